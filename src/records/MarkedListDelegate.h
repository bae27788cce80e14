// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Draws the lines of the marked conversions list with the list's tab stops. A line is the
// quantity, two tabs and the conversion; the window puts the first tab stop just past the
// widest quantity name in the list and the second a little further, so that every conversion
// starts at the same place whatever its quantity.
#pragma once

#include <QStyledItemDelegate>

class MarkedListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit MarkedListDelegate(QObject *parent = nullptr);

    void setTabStops(qreal first, qreal second);
    qreal secondTabStop() const { return m_second; }
    // The blank the style leaves on each side of an item's text.
    static int textMargin(const QWidget *widget);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;

private:
    qreal m_first = 80;
    qreal m_second = 160;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The marked conversions as the list of the marked conversions window shows them. The model owns
// the records themselves (row i is record i), so the list and the records can never get out of
// step; each row's text is the record's list line, made when it is drawn. All rows have one size,
// whose width is the widest line seen plus a margin, which gives the list its horizontal scroll
// range.
#pragma once

#include "records/MarkedConversion.h"

#include <QAbstractListModel>
#include <QList>
#include <QSize>

class MarkedConversionsModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit MarkedConversionsModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    const QList<MarkedConversion> &records() const { return m_records; }
    void append(const QList<MarkedConversion> &records);
    // Removes the given rows (any order, no duplicates); the others keep their order.
    void removeRowList(QList<int> rows);
    void clear();

    void setItemSize(const QSize &size);
    QSize itemSize() const { return m_itemSize; }

private:
    QList<MarkedConversion> m_records;
    QSize m_itemSize;
};

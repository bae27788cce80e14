// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/MarkedListDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextOption>

MarkedListDelegate::MarkedListDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

void MarkedListDelegate::setTabStops(qreal first, qreal second)
{
    m_first = first;
    m_second = second;
}

int MarkedListDelegate::textMargin(const QWidget *widget)
{
    const QStyle *style = widget ? widget->style() : QApplication::style();
    return style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, widget) + 1;
}

void MarkedListDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString text = item.text;
    // The style draws the background, selection and focus; the text is drawn here.
    item.text.clear();
    const QWidget *widget = item.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);

    QRect textRect = style->subElementRect(QStyle::SE_ItemViewItemText, &item, widget);
    const int margin = textMargin(widget);
    textRect.adjust(margin, 0, -margin, 0);
    const QPalette::ColorGroup group = !(item.state & QStyle::State_Enabled) ? QPalette::Disabled
        : (item.state & QStyle::State_Active)                                ? QPalette::Normal
                                                                             : QPalette::Inactive;
    const QPalette::ColorRole role
        = item.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text;

    QTextOption layout(Qt::AlignLeft | Qt::AlignVCenter);
    layout.setWrapMode(QTextOption::NoWrap);
    layout.setTabArray({ m_first, m_second });
    painter->save();
    painter->setFont(item.font);
    painter->setPen(item.palette.color(group, role));
    painter->drawText(textRect, text, layout);
    painter->restore();
}

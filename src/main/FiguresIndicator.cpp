// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/FiguresIndicator.h"

#include <QPainter>

FiguresIndicator::FiguresIndicator(QWidget *parent)
    : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    setVisible(false);
}

void FiguresIndicator::setOn(bool on)
{
    m_on = on;
    setVisible(on);
}

QSize FiguresIndicator::sizeHint() const
{
    const int extent = qMax(8, fontMetrics().height() / 2 + 2);
    return QSize(extent, extent);
}

void FiguresIndicator::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal extent = qMin(width(), height()) - 1.0;
    const QRectF dot((width() - extent) / 2.0, (height() - extent) / 2.0, extent, extent);
    painter.setPen(QPen(palette().color(QPalette::Highlight).darker(130), 1.0));
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawEllipse(dot);
    // A small "+" on the dot: more figures can be had.
    const QPointF centre = dot.center();
    const qreal arm = extent * 0.25;
    painter.setPen(QPen(palette().color(QPalette::HighlightedText), qMax(1.0, extent / 8.0),
        Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(centre.x() - arm, centre.y()), QPointF(centre.x() + arm, centre.y()));
    painter.drawLine(QPointF(centre.x(), centre.y() - arm), QPointF(centre.x(), centre.y() + arm));
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/StatusPanel.h"

#include "main/AppIcons.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

static constexpr int Margin = 4;
static constexpr int Spacing = 4;

StatusPanel::StatusPanel(const QString &objectName, const char *iconName, QWidget *parent)
    : QFrame(parent)
    , m_iconName(iconName)
{
    setObjectName(objectName);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    // Keyboard users reach the panels too: Space or Enter is a click and a double-click.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void StatusPanel::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    // Assistive technology reads the panel's name and, as its description, what it shows.
    setAccessibleDescription(text);
    updateGeometry();
    update();
}

void StatusPanel::setPanelEnabled(bool enabled)
{
    if (m_panelEnabled == enabled)
        return;
    m_panelEnabled = enabled;
    update();
}

int StatusPanel::iconExtent() const
{
    return m_iconName ? style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) : 0;
}

void StatusPanel::setMinimumPanelWidth(int width)
{
    m_minimumWidth = width;
    updateGeometry();
}

QSize StatusPanel::minimumSizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int frame = 2 * frameWidth();
    return QSize(qMax(m_minimumWidth, metrics.horizontalAdvance(m_text) + 2 * Margin + frame),
        qMax(metrics.height(), iconExtent()) + 2 + frame);
}

QSize StatusPanel::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int text = metrics.horizontalAdvance(m_text) + 2 * Margin + 2 * frameWidth();
    const int icon = m_iconName ? iconExtent() + Spacing : 0;
    return QSize(qMax(m_minimumWidth, text + icon), minimumSizeHint().height());
}

bool StatusPanel::showsIcon() const
{
    return m_iconName && width() >= sizeHint().width();
}

void StatusPanel::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    QRect area = contentsRect().adjusted(Margin, 0, -Margin, 0);
    if (showsIcon()) {
        if (m_icon.isNull())
            m_icon = AppIcons::panel(m_iconName);
        const int extent = iconExtent();
        const QRect iconArea(
            area.left(), area.top() + (area.height() - extent) / 2, extent, extent);
        m_icon.paint(
            &painter, iconArea, Qt::AlignCenter, m_panelEnabled ? QIcon::Normal : QIcon::Disabled);
        area.setLeft(iconArea.right() + 1 + Spacing);
    }
    painter.setPen(palette().color(
        m_panelEnabled ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, m_text);
}

void StatusPanel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        const bool doubleClick = m_releaseEndsDoubleClick;
        m_releaseEndsDoubleClick = false;
        if (!doubleClick && rect().contains(event->position().toPoint()))
            emit clicked();
    }
    QFrame::mouseReleaseEvent(event);
}

// Qt may deliver the double-click event before or after the second press (it comes first with
// Qt 6.4 here): either way the release after it ends the double-click.
void StatusPanel::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        m_releaseEndsDoubleClick = true;
        emit doubleClicked();
    }
    QFrame::mouseDoubleClickEvent(event);
}

void StatusPanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return
        || event->key() == Qt::Key_Enter) {
        emit clicked();
        emit doubleClicked();
        return;
    }
    QFrame::keyPressEvent(event);
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/QuantityTabBar.h"

#include "main/QuantityBarAccessible.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QToolButton>

// Room beside a button's text, and between two buttons.
static constexpr int TextMargin = 8;
static constexpr int Gap = 2;

QuantityTabBar::QuantityTabBar(QWidget *parent)
    : QTabBar(parent)
{
    setElideMode(Qt::ElideNone);
    setUsesScrollButtons(true);
    setExpanding(false);
    setDrawBase(true);
    setDocumentMode(true);
    // Assistive technologies see the quantities where they are drawn, in either style.
    static const bool accessible = [] {
        QAccessible::installFactory(&QuantityBarAccessible::create);
        return true;
    }();
    Q_UNUSED(accessible)
    connect(this, &QTabBar::currentChanged, this, [this](int index) {
        if (m_buttons) {
            showCurrentRow();
            announceChecked(m_checked);
            announceChecked(index);
        }
        m_checked = index;
    });
    // Buttons are the style a new user sees: the bar starts so, and measures its tabs once.
    setButtonStyle(true);
}

void QuantityTabBar::setQuantities(const QStringList &captions, const QList<QVariant> &data)
{
    m_replacing = true;
    while (count() > 0)
        removeTab(count() - 1);
    for (int i = 0; i < captions.size(); ++i) {
        const int tab = addTab(captions.at(i));
        setTabData(tab, data.value(i));
    }
    m_replacing = false;
    // Now the tabs are measured, once: a font change makes the bar lay them out anew.
    m_widths.clear();
    QEvent refresh(QEvent::FontChange);
    QCoreApplication::sendEvent(this, &refresh);
    relayout();
}

QSize QuantityTabBar::tabSizeHint(int index) const
{
    // While the tabs are being replaced, and in the button style (where the bar lays out its
    // buttons itself), the tab bar's own layout needs no measured tabs.
    if (m_replacing)
        return QSize(1, 1);
    return m_buttons ? buttonSize(index) : QTabBar::tabSizeHint(index);
}

QSize QuantityTabBar::minimumTabSizeHint(int index) const
{
    if (m_replacing || m_buttons)
        return tabSizeHint(index);
    return QTabBar::minimumTabSizeHint(index);
}

void QuantityTabBar::setButtonStyle(bool buttons)
{
    if (m_buttons == buttons)
        return;
    m_buttons = buttons;
    // The tab style scrolls its row; the buttons wrap instead.
    setUsesScrollButtons(!buttons);
    setDrawBase(!buttons);
    // The rows of buttons are as high as their width makes them.
    QSizePolicy policy(
        QSizePolicy::Preferred, buttons ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    policy.setHeightForWidth(buttons);
    setSizePolicy(policy);
    if (buttons && !m_up) {
        m_up = new QToolButton(this);
        m_up->setObjectName(QStringLiteral("tabMainRowUp"));
        m_up->setArrowType(Qt::UpArrow);
        m_down = new QToolButton(this);
        m_down->setObjectName(QStringLiteral("tabMainRowDown"));
        m_down->setArrowType(Qt::DownArrow);
        for (QToolButton *arrow : { m_up, m_down }) {
            arrow->setAutoRaise(true);
            arrow->setFocusPolicy(Qt::NoFocus);
            arrow->hide();
        }
        connect(m_up, &QToolButton::clicked, this, [this] { scrollRows(-1); });
        connect(m_down, &QToolButton::clicked, this, [this] { scrollRows(1); });
    }
    relayout();
}

void QuantityTabBar::setRowsHeightLimit(int height)
{
    const int rows = height > 0 ? qMax(1, (height + Gap) / (rowHeight() + Gap)) : 0;
    if (m_maxRows == rows)
        return;
    m_maxRows = rows;
    if (m_buttons)
        relayout();
}

// A caption's width. Shaping every caption costs more than laying out the whole window; for
// the Latin letters the quantity names are written in, the sum of the letters' advances is
// the width (kerning can only make the text narrower than that, never cut it). Other
// scripts may join or reorder letters and are measured whole.
static int textWidth(const QFontMetrics &metrics, const QString &text)
{
    int width = 0;
    for (const QChar c : text) {
        if (c.unicode() > 0x24F)
            return metrics.horizontalAdvance(text);
        width += metrics.horizontalAdvance(c);
    }
    return width;
}

QSize QuantityTabBar::buttonSize(int index) const
{
    // Measuring text is what laying out the buttons costs: each caption is measured once.
    if (m_widths.size() != count()) {
        m_widths.resize(count());
        const QFontMetrics metrics = fontMetrics();
        for (int i = 0; i < count(); ++i) {
            // The caption's "&&" draws as one "&" (a quantity name has no accelerator).
            QString caption = tabText(i);
            caption.replace(QStringLiteral("&&"), QStringLiteral("&"));
            m_widths[i] = textWidth(metrics, caption) + 2 * TextMargin;
        }
    }
    return QSize(m_widths.at(index), rowHeight());
}

int QuantityTabBar::rowHeight() const
{
    return fontMetrics().height() + 8;
}

int QuantityTabBar::pagerWidth() const
{
    return rowHeight();
}

QuantityTabBar::Layout QuantityTabBar::layoutButtons(int width) const
{
    Layout layout;
    const int n = count();
    layout.rects.resize(n);
    layout.rowOf.resize(n);
    const int height = rowHeight();
    int first = 0;
    while (first < n) {
        // As many buttons as fit on this row (at least one), then the row's spare width shared
        // among them, unless it is the last row.
        int last = first;
        int used = buttonSize(first).width();
        while (last + 1 < n && used + Gap + buttonSize(last + 1).width() <= width) {
            ++last;
            used += Gap + buttonSize(last).width();
        }
        const int spare = last + 1 < n ? qMax(0, width - used) : 0;
        const int buttons = last - first + 1;
        int x = 0;
        for (int i = first; i <= last; ++i) {
            const int share = spare / buttons + (i - first < spare % buttons ? 1 : 0);
            const int w = buttonSize(i).width() + share;
            layout.rects[i] = QRect(x, layout.rows * (height + Gap), w, height);
            layout.rowOf[i] = layout.rows;
            x += w + Gap;
        }
        ++layout.rows;
        first = last + 1;
    }
    return layout;
}

QuantityTabBar::Layout QuantityTabBar::layoutFor(int width) const
{
    Layout layout = layoutButtons(width);
    if (m_maxRows > 0 && layout.rows > m_maxRows) {
        // Room for the paging arrows on the right.
        layout = layoutButtons(width - pagerWidth() - Gap);
        layout.paged = true;
    }
    return layout;
}

int QuantityTabBar::visibleRows() const
{
    if (!m_buttons)
        return 1;
    return m_layout.paged ? m_maxRows : qMax(1, m_layout.rows);
}

void QuantityTabBar::relayout()
{
    if (m_buttons) {
        m_layout = layoutFor(width());
        m_firstRow = qBound(0, m_firstRow, qMax(0, m_layout.rows - visibleRows()));
        showCurrentRow();
        const int half = qMax(1, (rowHeight() * qMin(2, visibleRows())) / 2);
        m_up->setGeometry(width() - pagerWidth(), 0, pagerWidth(), half);
        m_down->setGeometry(width() - pagerWidth(), half, pagerWidth(), half);
        m_up->setVisible(m_layout.paged);
        m_down->setVisible(m_layout.paged);
    } else if (m_up) {
        m_up->hide();
        m_down->hide();
    }
    updateGeometry();
    update();
}

void QuantityTabBar::showCurrentRow()
{
    const int current = currentIndex();
    if (current >= 0 && current < m_layout.rowOf.size()) {
        const int row = m_layout.rowOf.at(current);
        if (row < m_firstRow)
            m_firstRow = row;
        else if (row >= m_firstRow + visibleRows())
            m_firstRow = row - visibleRows() + 1;
    }
    if (m_up) {
        m_up->setEnabled(m_firstRow > 0);
        m_down->setEnabled(m_firstRow + visibleRows() < m_layout.rows);
    }
    update();
}

// A button's checked state changed: the tab bar itself only tells of a new current tab.
void QuantityTabBar::announceChecked(int index)
{
    if (index < 0 || !QAccessible::isActive())
        return;
    QAccessibleInterface *button = QAccessible::queryAccessibleInterface(this)->child(index);
    if (!button)
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(button, changed);
    QAccessible::updateAccessibility(&event);
}

void QuantityTabBar::scrollRows(int step)
{
    const int first = qBound(0, m_firstRow + step, qMax(0, m_layout.rows - visibleRows()));
    if (first == m_firstRow)
        return;
    m_firstRow = first;
    m_up->setEnabled(m_firstRow > 0);
    m_down->setEnabled(m_firstRow + visibleRows() < m_layout.rows);
    update();
}

QRect QuantityTabBar::quantityRect(int index) const
{
    if (!m_buttons)
        return tabRect(index);
    if (index < 0 || index >= m_layout.rects.size())
        return QRect();
    const int row = m_layout.rowOf.at(index);
    if (row < m_firstRow || row >= m_firstRow + visibleRows())
        return QRect();
    return m_layout.rects.at(index).translated(0, -m_firstRow * (rowHeight() + Gap));
}

int QuantityTabBar::quantityAt(const QPoint &pos) const
{
    if (!m_buttons)
        return tabAt(pos);
    for (int i = 0; i < m_layout.rects.size(); ++i)
        if (quantityRect(i).contains(pos))
            return i;
    return -1;
}

QSize QuantityTabBar::sizeHint() const
{
    if (!m_buttons)
        return QTabBar::sizeHint();
    int width = 0;
    for (int i = 0; i < count(); ++i)
        width += buttonSize(i).width() + Gap;
    // Wide enough for a few rows, not one endless row: the layout gives what there is.
    return QSize(qMin(width, 60 * fontMetrics().averageCharWidth()), rowHeight());
}

QSize QuantityTabBar::minimumSizeHint() const
{
    if (!m_buttons)
        return QTabBar::minimumSizeHint();
    int widest = 0;
    for (int i = 0; i < count(); ++i)
        widest = qMax(widest, buttonSize(i).width());
    return QSize(widest + pagerWidth() + Gap, rowHeight());
}

bool QuantityTabBar::hasHeightForWidth() const
{
    return m_buttons;
}

int QuantityTabBar::heightForWidth(int width) const
{
    if (!m_buttons)
        return QTabBar::heightForWidth(width);
    const Layout layout = layoutFor(width);
    const int rows = layout.paged ? m_maxRows : qMax(1, layout.rows);
    return rows * (rowHeight() + Gap) - Gap;
}

void QuantityTabBar::resizeEvent(QResizeEvent *event)
{
    QTabBar::resizeEvent(event);
    if (m_buttons)
        relayout();
}

void QuantityTabBar::tabLayoutChange()
{
    QTabBar::tabLayoutChange();
    if (m_replacing)
        return; // laid out once all tabs are there
    m_widths.clear();
    relayout();
}

void QuantityTabBar::tabInserted(int index)
{
    QTabBar::tabInserted(index);
    m_widths.clear();
}

void QuantityTabBar::tabRemoved(int index)
{
    QTabBar::tabRemoved(index);
    m_widths.clear();
}

void QuantityTabBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_widths.clear();
    QTabBar::changeEvent(event);
}

void QuantityTabBar::mousePressEvent(QMouseEvent *event)
{
    if (!m_buttons) {
        QTabBar::mousePressEvent(event);
        return;
    }
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const int index = quantityAt(event->position().toPoint());
    if (index >= 0 && isTabEnabled(index))
        setCurrentIndex(index);
}

void QuantityTabBar::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_buttons) {
        QTabBar::mouseMoveEvent(event);
        return;
    }
    const int index = quantityAt(event->position().toPoint());
    if (index != m_hovered) {
        m_hovered = index;
        update();
    }
}

void QuantityTabBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_buttons)
        QTabBar::mouseReleaseEvent(event);
}

void QuantityTabBar::wheelEvent(QWheelEvent *event)
{
    // Paged rows scroll with the wheel; otherwise the wheel steps through the quantities.
    if (m_buttons && m_layout.paged) {
        scrollRows(event->angleDelta().y() > 0 ? -1 : 1);
        event->accept();
        return;
    }
    QTabBar::wheelEvent(event);
}

void QuantityTabBar::leaveEvent(QEvent *event)
{
    m_hovered = -1;
    if (m_buttons)
        update();
    QTabBar::leaveEvent(event);
}

void QuantityTabBar::paintEvent(QPaintEvent *event)
{
    if (!m_buttons) {
        QTabBar::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    const int current = currentIndex();
    for (int i = 0; i < count(); ++i) {
        const QRect place = quantityRect(i);
        if (place.isEmpty() || !place.intersects(event->rect()))
            continue;
        QStyleOptionButton option;
        option.initFrom(this);
        option.rect = place;
        option.text = tabText(i);
        option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
        if (!isTabEnabled(i))
            option.state &= ~QStyle::State_Enabled;
        if (i == current) {
            // Pressed in, and in the selection colours so that it stands out among the rest.
            option.state |= QStyle::State_On | QStyle::State_Sunken;
            option.palette.setColor(QPalette::Button, palette().color(QPalette::Highlight));
            option.palette.setColor(
                QPalette::ButtonText, palette().color(QPalette::HighlightedText));
        } else {
            option.state |= QStyle::State_Raised;
        }
        if (i == m_hovered)
            option.state |= QStyle::State_MouseOver;
        painter.drawControl(QStyle::CE_PushButton, option);
        if (i == current && hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = place.adjusted(3, 3, -3, -3);
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
        }
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/QuantityButtonAccessible.h"

#include "main/QuantityTabBar.h"

QuantityButtonAccessible::QuantityButtonAccessible(QuantityTabBar *bar, int index)
    : m_bar(bar)
    , m_index(index)
{
}

void *QuantityButtonAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface *>(this);
    return nullptr;
}

bool QuantityButtonAccessible::isValid() const
{
    return m_bar && m_index < m_bar->count();
}

QObject *QuantityButtonAccessible::object() const
{
    return nullptr; // a quantity is no object of its own
}

QWindow *QuantityButtonAccessible::window() const
{
    return m_bar ? m_bar->window()->windowHandle() : nullptr;
}

QAccessibleInterface *QuantityButtonAccessible::parent() const
{
    return m_bar ? QAccessible::queryAccessibleInterface(m_bar.data()) : nullptr;
}

QAccessibleInterface *QuantityButtonAccessible::child(int) const
{
    return nullptr;
}

int QuantityButtonAccessible::childCount() const
{
    return 0;
}

int QuantityButtonAccessible::indexOfChild(const QAccessibleInterface *) const
{
    return -1;
}

QAccessibleInterface *QuantityButtonAccessible::childAt(int, int) const
{
    return nullptr;
}

QString QuantityButtonAccessible::text(QAccessible::Text t) const
{
    if (!isValid() || t != QAccessible::Name)
        return QString();
    // The caption's "&&" draws as one "&".
    QString caption = m_bar->tabText(m_index);
    caption.replace(QStringLiteral("&&"), QStringLiteral("&"));
    return caption;
}

void QuantityButtonAccessible::setText(QAccessible::Text, const QString &) { }

QRect QuantityButtonAccessible::rect() const
{
    if (!isValid())
        return QRect();
    // The part that shows: a tab may be scrolled partly out of the strip.
    const QRect place = m_bar->quantityRect(m_index).intersected(m_bar->rect());
    if (place.isEmpty())
        return QRect();
    return QRect(m_bar->mapToGlobal(place.topLeft()), place.size());
}

QAccessible::Role QuantityButtonAccessible::role() const
{
    return m_bar && m_bar->buttonStyle() ? QAccessible::Button : QAccessible::PageTab;
}

QAccessible::State QuantityButtonAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const bool current = m_index == m_bar->currentIndex();
    state.focusable = true;
    state.focused = current && m_bar->hasFocus();
    state.disabled = !m_bar->isTabEnabled(m_index);
    if (m_bar->buttonStyle()) {
        state.checkable = true;
        state.checked = current;
    } else {
        state.selectable = true;
        state.selected = current;
    }
    // A button in a row paged out of view, or a tab scrolled out of view.
    state.offscreen = !m_bar->rect().intersects(m_bar->quantityRect(m_index));
    state.invisible = state.offscreen || !m_bar->isVisible();
    return state;
}

QStringList QuantityButtonAccessible::actionNames() const
{
    if (!isValid() || !m_bar->isTabEnabled(m_index))
        return {};
    if (m_bar->buttonStyle())
        return { pressAction(), toggleAction() };
    return { pressAction() };
}

void QuantityButtonAccessible::doAction(const QString &actionName)
{
    if (actionNames().contains(actionName))
        m_bar->setCurrentIndex(m_index);
}

QStringList QuantityButtonAccessible::keyBindingsForAction(const QString &) const
{
    return {};
}

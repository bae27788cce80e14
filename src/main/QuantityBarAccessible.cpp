// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/QuantityBarAccessible.h"

#include "main/QuantityButtonAccessible.h"
#include "main/QuantityTabBar.h"

QuantityBarAccessible::QuantityBarAccessible(QuantityTabBar *bar)
    : QAccessibleWidget(bar, QAccessible::PageTabList)
{
}

QuantityBarAccessible::~QuantityBarAccessible()
{
    for (const QAccessible::Id id : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface *QuantityBarAccessible::create(const QString &className, QObject *object)
{
    if (className == QLatin1String("QuantityTabBar") && object && object->isWidgetType())
        return new QuantityBarAccessible(static_cast<QuantityTabBar *>(object));
    return nullptr;
}

QuantityTabBar *QuantityBarAccessible::bar() const
{
    return static_cast<QuantityTabBar *>(object());
}

QAccessible::Role QuantityBarAccessible::role() const
{
    return bar()->buttonStyle() ? QAccessible::Grouping : QAccessible::PageTabList;
}

QString QuantityBarAccessible::text(QAccessible::Text t) const
{
    // Named after the current quantity, as a tab bar is, unless given a name of its own.
    if (t == QAccessible::Name && bar()->accessibleName().isEmpty()) {
        const QAccessibleInterface *current = child(bar()->currentIndex());
        return current ? current->text(QAccessible::Name) : QString();
    }
    return QAccessibleWidget::text(t);
}

int QuantityBarAccessible::childCount() const
{
    return bar()->count();
}

QAccessibleInterface *QuantityBarAccessible::child(int index) const
{
    if (index < 0 || index >= bar()->count())
        return nullptr;
    const auto found = m_children.constFind(index);
    if (found != m_children.constEnd())
        return QAccessible::accessibleInterface(*found);
    auto *button = new QuantityButtonAccessible(bar(), index);
    m_children.insert(index, QAccessible::registerAccessibleInterface(button));
    return button;
}

int QuantityBarAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    // Only this view makes quantity buttons, and each knows its place.
    for (auto it = m_children.cbegin(); it != m_children.cend(); ++it)
        if (QAccessible::accessibleInterface(it.value()) == child)
            return it.key();
    return -1;
}

QAccessibleInterface *QuantityBarAccessible::childAt(int x, int y) const
{
    return child(bar()->quantityAt(bar()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface *QuantityBarAccessible::focusChild() const
{
    return bar()->hasFocus() ? child(bar()->currentIndex()) : nullptr;
}

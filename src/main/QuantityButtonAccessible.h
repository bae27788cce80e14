// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One quantity of the quantity strip as assistive technologies see it: a page tab in the tab
// style, a checkable button in the button style, at the place where it is drawn, current when
// its quantity is. Pressing it makes its quantity current, as a click does.
#pragma once

#include <QAccessibleInterface>
#include <QPointer>

class QuantityTabBar;

class QuantityButtonAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    QuantityButtonAccessible(QuantityTabBar *bar, int index);

    void *interface_cast(QAccessible::InterfaceType type) override;

    bool isValid() const override;
    QObject *object() const override;
    QWindow *window() const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QString text(QAccessible::Text t) const override;
    void setText(QAccessible::Text t, const QString &text) override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
    QStringList keyBindingsForAction(const QString &actionName) const override;

    int index() const { return m_index; }

private:
    QPointer<QuantityTabBar> m_bar;
    int m_index;
};

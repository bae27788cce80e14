// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What assistive technologies (screen readers, automation tools) see of the quantity strip. A
// tab bar's own accessible view places every tab where the tab bar would lay it out, which in
// the button style is nowhere on screen, and never says which quantity is current in a way a
// button can. This view has one child a quantity (QuantityButtonAccessible), placed where the
// quantity is drawn in either style: page tabs with a selected state, or buttons that are
// checked while their quantity is current. QuantityTabBar installs it for itself.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

class QuantityTabBar;

class QuantityBarAccessible : public QAccessibleWidget
{
public:
    explicit QuantityBarAccessible(QuantityTabBar *bar);
    ~QuantityBarAccessible() override;

    // The factory QAccessible::installFactory takes: this view for every QuantityTabBar.
    static QAccessibleInterface *create(const QString &className, QObject *object);

    QAccessible::Role role() const override;
    QString text(QAccessible::Text t) const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

private:
    QuantityTabBar *bar() const;

    // The children are made when first asked for and live as long as this view.
    mutable QHash<int, QAccessible::Id> m_children;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A node of the options dialog's quantities-and-units tree. Nodes sort alphabetically the way a
// reader expects, capitals and small letters together ("area", "Length", "mass"), which Qt's
// own item comparison does not do.
#pragma once

#include <QTreeWidgetItem>

class TreeMainItem : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem &other) const override
    {
        const QString mine = text(0);
        const QString theirs = other.text(0);
        const int folded = QString::localeAwareCompare(mine.toCaseFolded(), theirs.toCaseFolded());
        return folded != 0 ? folded < 0 : mine < theirs;
    }
};

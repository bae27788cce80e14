// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// An item of the main window's hidden alphabetical list of quantities, which puts the quantity
// tabs in order. It sorts names as people read them (small and capital letters alike, numbers
// by their value, in the user's language), not by character code; names that read the same
// fall back to their characters, so that the order is always the same.
#pragma once

#include <QListWidgetItem>

class AlphabetItem : public QListWidgetItem
{
public:
    using QListWidgetItem::QListWidgetItem;
    bool operator<(const QListWidgetItem &other) const override;
};

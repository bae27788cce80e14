// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/AlphabetItem.h"

#include <QCollator>

bool AlphabetItem::operator<(const QListWidgetItem &other) const
{
    static const QCollator collator = [] {
        QCollator made;
        made.setCaseSensitivity(Qt::CaseInsensitive);
        made.setNumericMode(true);
        return made;
    }();
    const int order = collator.compare(text(), other.text());
    return order != 0 ? order < 0 : text() < other.text();
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A message box that a core routine asks for: the core returns it as data and the window that
// called the routine shows it, so that the core never needs a window.
#pragma once

#include <QString>

struct Notice {
    enum Icon { NoIcon, Information, Exclamation, Critical };

    Icon icon = NoIcon;
    QString text;
    QString title; // empty: the program's title

    bool operator==(const Notice &other) const
    {
        return icon == other.icon && text == other.text && title == other.title;
    }
};

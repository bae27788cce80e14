// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Opens a link target of the string table (the web items of the Help menu, the About window's
// home page and e-mail address) in the user's browser or mail program.
#pragma once

#include <QString>

class Links
{
public:
    // Opens the target by the open-link rule of LinkTarget. A link that cannot be opened fails
    // silently: nothing is reported.
    static void open(const QString &target);
};

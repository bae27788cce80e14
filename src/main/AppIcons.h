// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The program's icons, drawn as SVG under resources/icons and carried as PNG renditions
// (resources/icons/render.sh) in the sizes the window system and the status bar ask for, so
// that showing them needs no SVG renderer.
#pragma once

#include <QIcon>

class AppIcons
{
public:
    // The program's icon ("smallicon"): window, task bar, tray. Every size is read when it is
    // made, so the application sets it once for all of its windows.
    static QIcon program();
    // A status bar panel's icon by its name ("cardfileicon", "markicon", "calcicon").
    static QIcon panel(const char *name);
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Keeps a top-level window above other windows, or lets it go back among them.
#pragma once

class QWidget;

class WindowOnTop
{
public:
    // The window otherwise stays as it was: shown or hidden, minimised, maximised or normal.
    static void set(QWidget *window, bool on);
    static bool isSet(const QWidget *window);
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers

#include "main/WindowOnTop.h"

#include <QWidget>

void WindowOnTop::set(QWidget *window, bool on)
{
    if (isSet(window) == on)
        return;
    // Changing a window flag hides the window; it comes back as it was.
    const bool visible = window->isVisible();
    const Qt::WindowStates state = window->windowState();
    window->setWindowFlag(Qt::WindowStaysOnTopHint, on);
    if (visible) {
        window->setWindowState(state);
        window->show();
    }
}

bool WindowOnTop::isSet(const QWidget *window)
{
    return window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

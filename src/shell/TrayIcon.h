// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The icon the main window leaves in the notification area while it is minimised there: its
// tooltip says how to get the window back, a double-click brings it back and a right-click
// opens the window's tray menu. Made only when the window first goes to the tray.
#pragma once

#include <QObject>

class QIcon;
class QMenu;
class QSystemTrayIcon;

class TrayIcon : public QObject
{
    Q_OBJECT

public:
    TrayIcon(const QIcon &icon, const QString &toolTip, QMenu *menu, QObject *parent = nullptr);

    // True when the desktop has a notification area to put the icon in.
    static bool isAvailable();

    void show();
    void hide();
    bool isVisible() const;

signals:
    void restoreRequested();

private:
    QSystemTrayIcon *m_icon = nullptr;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What the main window does beyond its controls, watched from outside it as the window system
// tells it: it is never made smaller than 7100 x 7000 twips, never moved beyond the left or top
// edge of its screen, and, when minimised with the tray option on and a notification area to go
// to, it leaves the task bar for a tray icon (explaining so the first time ever) and comes back
// from there. The hook watches the window's events; the window keeps its menus and texts.
#pragma once

#include <QObject>

class Dialogs;
class QMainWindow;
class QMenu;
class Settings;
class SettingsStore;
class TrayIcon;
struct Session;

class MainWindowHook : public QObject
{
    Q_OBJECT

public:
    // trayMenu: the tray icon's menu, owned by the window.
    MainWindowHook(QMainWindow *window, const Settings &settings, Session &session,
        SettingsStore &store, Dialogs &dialogs, QMenu *trayMenu);

    bool isInTray() const { return m_inTray; }
    // Shows the window again from the tray (nothing when it is not there).
    void restoreFromTray();
    // Stops acting on the window (it is closing for good); the tray icon goes.
    void release();
    // The window has just been shown at a saved placement: once the window manager has put its
    // frame around it, the whole frame is brought onto a screen, title bar included.
    void fitFrameWhenFramed();

signals:
    // The window has left the task bar for the tray.
    void wentToTray();
    // The window is back from the tray.
    void restored();
    // The hook wrote to the settings store (which may have failed to save).
    void storeWritten();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void windowMinimised();
    void goToTray();
    void keepOnScreen();
    void fitFrame();

    QMainWindow *m_window;
    const Settings &m_settings;
    Session &m_session;
    SettingsStore &m_store;
    Dialogs &m_dialogs;
    QMenu *m_trayMenu;
    TrayIcon *m_tray = nullptr;
    bool m_inTray = false;
    bool m_released = false;
    bool m_fitWhenFramed = false;
};

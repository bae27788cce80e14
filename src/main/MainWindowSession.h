// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What the main window keeps in the "settings" key from one run to the next: where it stood
// (the frame's position and the inside's size, in twips) and in which state, and, when the
// settings say so, the last conversion. Reading gives the placement in pixels for the window to
// apply; closing hands over what the window shows. A stored placement that is no number is
// reported as the run-time error it is, and its default used. A store that cannot be saved is
// reported once per run.
#pragma once

#include <QRect>
#include <QString>

class Dialogs;
class QWidget;
class Settings;
class SettingsStore;

class MainWindowSession
{
public:
    MainWindowSession(SettingsStore &store, Dialogs &dialogs);

    struct Placement {
        QRect frame; // the frame's position, the inside's size
        Qt::WindowState state = Qt::WindowNoState;
    };
    // The saved placement at the screen's dots per inch; the default height is the screen's
    // (screenHeight pixels) less a margin. parent: the window the messages belong to.
    Placement readPlacement(QWidget *parent, qreal dpiX, qreal dpiY, int screenHeight);

    // What the window shows as it closes.
    struct Closing {
        Qt::WindowStates state;
        QRect frame; // the frame's position, the inside's size
        QString quantity; // empty without a current quantity
        QString value, leftUnit, rightUnit;
    };
    // Saves the state, the placement of a window in its normal state, the last conversion
    // when the settings ask for it, and the number style; then closes the store.
    void save(const Closing &closing, const Settings &settings, qreal dpiX, qreal dpiY);

    // The message about a store that cannot be saved, the first time it fails in a run.
    void reportStoreFailure(QWidget *parent);

private:
    SettingsStore &m_store;
    Dialogs &m_dialogs;
    bool m_storeFailureReported = false;
};

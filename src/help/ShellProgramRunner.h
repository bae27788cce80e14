// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The "Run Shell Program" command: starts the calculator or the user's own program (as
// ShellProgram chooses) on its own, outliving Mensura. When it cannot be started the user is
// told so, and the caller then opens the options dialog, where the program is chosen.
#pragma once

class Dialogs;
class QWidget;
class Settings;
class SettingsStore;

class ShellProgramRunner
{
public:
    // True when the program was started. False after the "could not be found" message has
    // been shown: the caller opens the options dialog next.
    static bool run(
        const Settings &settings, SettingsStore &store, Dialogs &dialogs, QWidget *parent);
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Which program the "Run Shell Program" command starts: the platform's own calculator when the
// options say so, else the program the user chose. ShellProgramRunner starts it and reports a
// failure.
#pragma once

#include <functional>
#include <QString>
#include <QStringList>

class Settings;

class ShellProgram
{
public:
    // What to start, and the path the failure message names.
    struct Command {
        QString program;
        QStringList arguments;
        QString path;
    };

    // Finds a program on the PATH: its full path, or "".
    using ExecutableFinder = std::function<QString(const QString &name)>;

    // The command for the current settings. UseWindowsCalc (non-zero) means the platform's
    // calculator: calc.exe in the Windows system folder, the Calculator application on macOS,
    // elsewhere the first desktop calculator found on the PATH.
    static Command command(const Settings &settings, const ExecutableFinder &finder = {});
    // The platform's calculator.
    static Command calculator(const ExecutableFinder &finder = {});
    // The calculators looked for on the PATH of a Linux or other Unix desktop, in this order.
    static QStringList desktopCalculators();
};

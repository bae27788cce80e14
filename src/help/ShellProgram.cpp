// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Choosing the shell program.
#include "help/ShellProgram.h"

#include "shell/Settings.h"

#include <QStandardPaths>

ShellProgram::Command ShellProgram::command(
    const Settings &settings, const ExecutableFinder &finder)
{
    if (settings.UseWindowsCalc != 0)
        return calculator(finder);
    return { settings.ShellProgram, {}, settings.ShellProgram };
}

ShellProgram::Command ShellProgram::calculator(const ExecutableFinder &finder)
{
#if defined(Q_OS_WIN)
    Q_UNUSED(finder);
    const QString path = Settings::defaultShellProgram();
    return { path, {}, path };
#elif defined(Q_OS_MACOS)
    Q_UNUSED(finder);
    return { QStringLiteral("open"), { QStringLiteral("-a"), QStringLiteral("Calculator") },
        QStringLiteral("Calculator") };
#else
    const ExecutableFinder find = finder ? finder : [](const QString &name) {
        return QStandardPaths::findExecutable(name);
    };
    const QStringList names = desktopCalculators();
    for (const QString &name : names) {
        const QString path = find(name);
        if (!path.isEmpty())
            return { path, {}, path };
    }
    // None installed: try the first by name, so that the failure message names a calculator.
    return { names.first(), {}, names.first() };
#endif
}

QStringList ShellProgram::desktopCalculators()
{
    return { QStringLiteral("gnome-calculator"), QStringLiteral("kcalc"),
        QStringLiteral("galculator"), QStringLiteral("qalculate-gtk"), QStringLiteral("mate-calc"),
        QStringLiteral("xcalc") };
}

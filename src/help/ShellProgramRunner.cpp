// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Starting the shell program, and the message when that fails.
#include "help/ShellProgramRunner.h"

#include "catalogue/StringTable.h"
#include "help/ShellProgram.h"
#include "shell/Dialogs.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QProcess>

#ifdef Q_OS_WIN
#include <optional>
#include <qt_windows.h>
#include <string>
#endif

namespace
{
constexpr int NotFoundStartId = 328; // "I'm sorry, the program specified to run  - "
constexpr int NotFoundEndId = 329; // " - could not be found.  Please check ..."

#ifdef Q_OS_WIN
// The Windows calculator of old kept its view (scientific or standard) as "layout" in the
// [SciCalc] section of win.ini. Mensura starts it in the view chosen in its options and then
// puts the user's own value back, so that the calculator started elsewhere keeps its view.
class CalculatorLayout
{
public:
    CalculatorLayout(SettingsStore &store)
        : m_saved(GetProfileIntW(L"SciCalc", L"layout", 0))
    {
        const bool scientific
            = store.RegReadString(Settings::Section, QStringLiteral("SciCalc"), QStringLiteral("1"))
            != QLatin1String("0");
        WriteProfileStringW(L"SciCalc", L"layout", scientific ? L"1" : L"0");
    }
    ~CalculatorLayout()
    {
        const std::wstring saved = std::to_wstring(m_saved);
        WriteProfileStringW(L"SciCalc", L"layout", saved.c_str());
    }

private:
    UINT m_saved;
};
#endif
} // namespace

bool ShellProgramRunner::run(
    const Settings &settings, SettingsStore &store, Dialogs &dialogs, QWidget *parent)
{
    const ShellProgram::Command command = ShellProgram::command(settings);
    bool started = false;
    {
#ifdef Q_OS_WIN
        std::optional<CalculatorLayout> layout;
        if (settings.UseWindowsCalc != 0)
            layout.emplace(store);
#else
        Q_UNUSED(store);
#endif
        started = !command.program.isEmpty()
            && QProcess::startDetached(command.program, command.arguments);
    }
    if (!started) {
        Notice notice;
        notice.icon = Notice::Exclamation;
        notice.text
            = StringTable::text(NotFoundStartId) + command.path + StringTable::text(NotFoundEndId);
        dialogs.message(parent, notice);
    }
    return started;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Which program the Run Shell Program command starts, and the message when it cannot start.
#include "catalogue/StringTable.h"
#include "help/ShellProgram.h"
#include "help/ShellProgramRunner.h"
#include "shell/HiveFile.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"
#include "support/ScriptedDialogs.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class tst_ShellProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void command_data();
    void command();
    void programThatCannotStartIsReported_data();
    void programThatCannotStartIsReported();
    void programThatStartsIsNotReported();

private:
    QTemporaryDir m_dir;
    std::unique_ptr<SettingsStore> m_store;
};

void tst_ShellProgram::init()
{
    const QString file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(file);
    m_store = std::make_unique<SettingsStore>(std::make_unique<HiveFile>(file));
}

void tst_ShellProgram::command_data()
{
    QTest::addColumn<int>("useCalculator");
    QTest::addColumn<QStringList>("installed"); // calculators found on the PATH
    QTest::addColumn<QString>("expected");
    const QString chosen = QStringLiteral("/opt/tools/bin/units-calc");
    QTest::newRow("the program chosen") << 0 << QStringList { "gnome-calculator" } << chosen;
    QTest::newRow("the calculator: GNOME's first")
        << 1 << QStringList { "xcalc", "kcalc", "gnome-calculator" } << "/usr/bin/gnome-calculator";
    QTest::newRow("the calculator: only xcalc") << 1 << QStringList { "xcalc" } << "/usr/bin/xcalc";
    QTest::newRow("the calculator: KDE's before the rest")
        << 1 << QStringList { "mate-calc", "kcalc" } << "/usr/bin/kcalc";
    QTest::newRow("the calculator: none, the first is named")
        << 1 << QStringList {} << "gnome-calculator";
    QTest::newRow("any number but 0 means the calculator")
        << -1 << QStringList { "kcalc" } << "/usr/bin/kcalc";
}

void tst_ShellProgram::command()
{
    QFETCH(int, useCalculator);
    QFETCH(QStringList, installed);
    QFETCH(QString, expected);
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    if (useCalculator)
        QSKIP("The calculator is looked for on the PATH on Linux and other Unix desktops only");
#endif
    Settings settings;
    settings.UseWindowsCalc = useCalculator;
    settings.ShellProgram = QStringLiteral("/opt/tools/bin/units-calc");
    const ShellProgram::Command command
        = ShellProgram::command(settings, [&installed](const QString &name) {
              return installed.contains(name) ? QStringLiteral("/usr/bin/") + name : QString();
          });
    QCOMPARE(command.program, expected);
    QCOMPARE(command.path, expected);
    QVERIFY(command.arguments.isEmpty());
}

void tst_ShellProgram::programThatCannotStartIsReported_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a missing file") << m_dir.filePath(QStringLiteral("no/such/program"));
    QTest::newRow("a folder") << m_dir.path();
    QTest::newRow("no program chosen") << QString();
}

void tst_ShellProgram::programThatCannotStartIsReported()
{
    QFETCH(QString, path);
    Settings settings;
    settings.UseWindowsCalc = 0;
    settings.ShellProgram = path;
    ScriptedDialogs dialogs;
    dialogs.expectMessage();
    QVERIFY(!ShellProgramRunner::run(settings, *m_store, dialogs, nullptr));
    const Notice expected { Notice::Exclamation,
        "I'm sorry, the program specified to run  - " + path
            + " - could not be found.  Please check that you've put the right path and filename "
              "in the options dialog box.",
        {} };
    QCOMPARE(dialogs.notices(), QList<Notice> { expected });
}

void tst_ShellProgram::programThatStartsIsNotReported()
{
    Settings settings;
    settings.UseWindowsCalc = 0;
    settings.ShellProgram = QStandardPaths::findExecutable(QStringLiteral("true"));
    if (settings.ShellProgram.isEmpty())
        QSKIP("no 'true' program on this system");
    ScriptedDialogs dialogs;
    QVERIFY(ShellProgramRunner::run(settings, *m_store, dialogs, nullptr));
    QVERIFY(dialogs.asked().isEmpty());
}

QTEST_MAIN(tst_ShellProgram)
#include "tst_ShellProgram.moc"

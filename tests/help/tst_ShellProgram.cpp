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
    void command_data();
    void command();
    void onlyAProgramThatCannotStartIsReported_data();
    void onlyAProgramThatCannotStartIsReported();

private:
    QTemporaryDir m_dir;
};

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

void tst_ShellProgram::onlyAProgramThatCannotStartIsReported_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("starts");
    QTest::newRow("a missing file") << m_dir.filePath(QStringLiteral("no/such/program")) << false;
    QTest::newRow("no program chosen") << QString() << false;
    QTest::newRow("a program") << QStandardPaths::findExecutable(QStringLiteral("true")) << true;
}

void tst_ShellProgram::onlyAProgramThatCannotStartIsReported()
{
    QFETCH(QString, path);
    QFETCH(bool, starts);
    if (starts && path.isEmpty())
        QSKIP("no 'true' program on this system");
    Settings settings;
    settings.UseWindowsCalc = 0;
    settings.ShellProgram = path;
    SettingsStore store(std::make_unique<HiveFile>(m_dir.filePath(QStringLiteral("hive.reg"))));
    ScriptedDialogs dialogs;
    if (!starts)
        dialogs.expectMessage();
    QCOMPARE(ShellProgramRunner::run(settings, store, dialogs, nullptr), starts);
    const Notice notFound { Notice::Exclamation,
        StringTable::text(328) + path + StringTable::text(329), {} };
    QCOMPARE(dialogs.notices(), starts ? QList<Notice>() : QList<Notice> { notFound });
}

QTEST_MAIN(tst_ShellProgram)
#include "tst_ShellProgram.moc"

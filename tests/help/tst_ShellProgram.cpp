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
    void otherProgramIsTheChosenPath();
    void calculatorIsTheFirstOneInstalled_data();
    void calculatorIsTheFirstOneInstalled();
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

void tst_ShellProgram::otherProgramIsTheChosenPath()
{
    Settings settings;
    settings.UseWindowsCalc = 0;
    settings.ShellProgram = QStringLiteral("/opt/tools/bin/units-calc");
    const ShellProgram::Command command = ShellProgram::command(
        settings, [](const QString &name) { return QStringLiteral("/usr/bin/") + name; });
    QCOMPARE(command.program, settings.ShellProgram);
    QVERIFY(command.arguments.isEmpty());
    QCOMPARE(command.path, settings.ShellProgram);
}

void tst_ShellProgram::calculatorIsTheFirstOneInstalled_data()
{
    QTest::addColumn<QStringList>("installed");
    QTest::addColumn<QString>("expected");

    QTest::newRow("GNOME first") << QStringList { "xcalc", "kcalc", "gnome-calculator" }
                                 << "/usr/bin/gnome-calculator";
    QTest::newRow("only xcalc") << QStringList { "xcalc" } << "/usr/bin/xcalc";
    QTest::newRow("KDE before the rest")
        << QStringList { "mate-calc", "kcalc" } << "/usr/bin/kcalc";
    QTest::newRow("none: the first is named") << QStringList {} << "gnome-calculator";
}

void tst_ShellProgram::calculatorIsTheFirstOneInstalled()
{
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    QSKIP("The calculator is looked for on the PATH on Linux and other Unix desktops only");
#endif
    QFETCH(QStringList, installed);
    QFETCH(QString, expected);
    Settings settings;
    settings.UseWindowsCalc = 1;
    settings.ShellProgram = QStringLiteral("/somewhere/else");
    const ShellProgram::Command command
        = ShellProgram::command(settings, [&installed](const QString &name) {
              return installed.contains(name) ? QStringLiteral("/usr/bin/") + name : QString();
          });
    QCOMPARE(command.program, expected);
    QCOMPARE(command.path, expected);
}

void tst_ShellProgram::programThatCannotStartIsReported_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("missing file") << m_dir.filePath(QStringLiteral("no/such/program"));
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
    QVERIFY(dialogs.scriptDone());
    QCOMPARE(dialogs.notices().first().icon, Notice::Exclamation);
    QCOMPARE(dialogs.notices().first().text,
        QStringLiteral("I'm sorry, the program specified to run  - ") + path
            + QStringLiteral(" - could not be found.  Please check that you've put the right "
                             "path and filename in the options dialog box."));
}

void tst_ShellProgram::programThatStartsIsNotReported()
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("true"));
    if (program.isEmpty())
        QSKIP("no 'true' program on this system");
    Settings settings;
    settings.UseWindowsCalc = 0;
    settings.ShellProgram = program;
    ScriptedDialogs dialogs;
    QVERIFY(ShellProgramRunner::run(settings, *m_store, dialogs, nullptr));
    QVERIFY(dialogs.asked().isEmpty());
}

QTEST_MAIN(tst_ShellProgram)
#include "tst_ShellProgram.moc"

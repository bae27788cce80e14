// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What the program hands to programs outside it: the addresses its web and mail links open, the
// program the Run Shell Program command starts, and the message when that cannot start.
#include "catalogue/StringTable.h"
#include "help/LinkTarget.h"
#include "help/ShellProgram.h"
#include "help/ShellProgramRunner.h"
#include "shell/HiveFile.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"
#include "support/DataRows.h"
#include "support/ScriptedDialogs.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class tst_OutsidePrograms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linkUrl_data();
    void linkUrl();
    void theProgramsLinksAreWebAddresses();
    void command_data();
    void command();
    void onlyAProgramThatCannotStartIsReported_data();
    void onlyAProgramThatCannotStartIsReported();

private:
    QTemporaryDir m_dir;
};

void tst_OutsidePrograms::linkUrl_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("expected");
    const char *rows[][3] = {
        { "an address without scheme gets http", "physics.nist.gov/cuu/Units/",
            "http://physics.nist.gov/cuu/Units/" },
        { "an http address stays", "http://example.org/a", "http://example.org/a" },
        { "an https address stays", "https://example.org/a", "https://example.org/a" },
        { "a mail address gets mailto", "mensura@example.org", "mailto:mensura@example.org" },
        { "http first wins over an @", "http://example.org/~a@b", "http://example.org/~a@b" },
        { "a host starting with http is taken as a scheme", "httpbin.org", "httpbin.org" },
        { "the comparison is case-sensitive", "HTTP://example.org", "http://HTTP://example.org" },
    };
    addTextRows(rows);
}

void tst_OutsidePrograms::linkUrl()
{
    QFETCH(QString, target);
    QFETCH(QString, expected);
    QCOMPARE(LinkTarget::url(target), QUrl(expected));
}

// The targets of the Help menu's web items and the About window's links.
void tst_OutsidePrograms::theProgramsLinksAreWebAddresses()
{
    for (const int id : { 19, 6, 44, 5404 }) {
        const QUrl url = LinkTarget::url(StringTable::text(id));
        QVERIFY2(url.isValid() && url.scheme() == QLatin1String("http") && !url.host().isEmpty(),
            qPrintable(QString::number(id) + u' ' + url.toString()));
    }
}

void tst_OutsidePrograms::command_data()
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

void tst_OutsidePrograms::command()
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

void tst_OutsidePrograms::onlyAProgramThatCannotStartIsReported_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("starts");
    QTest::newRow("a missing file") << m_dir.filePath(QStringLiteral("no/such/program")) << false;
    QTest::newRow("no program chosen") << QString() << false;
    QTest::newRow("a program") << QStandardPaths::findExecutable(QStringLiteral("true")) << true;
}

void tst_OutsidePrograms::onlyAProgramThatCannotStartIsReported()
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

QTEST_MAIN(tst_OutsidePrograms)
#include "tst_OutsidePrograms.moc"

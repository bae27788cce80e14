// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One copy per user, desktop and settings file. The real program started twice: a copy started
// while another runs there hands over and ends, also the next one; a copy on another display or
// with other settings, or after the first was killed outright (leaving its socket behind), runs on
// its own. And through the start-up sequence: the running copy comes to the front, also from a
// minimised state.
#include "shell/SettingsStore.h"
#include "shell/SingleInstance.h"
#include "support/DataRows.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>

class tst_SingleInstance : public QObject
{
    Q_OBJECT

private slots:
    void secondProgram_data();
    void secondProgram();
    void minimisedWindowComesBack();
};

struct SecondCopy {
    const char *row;
    const char *hive; // the second copy's: "same", "other" or "link"
    const char *display;
    bool firstKilled;
    bool handsOver;
};
Q_DECLARE_METATYPE(SecondCopy)

void tst_SingleInstance::secondProgram_data()
{
    addRows<SecondCopy>({
        { "same settings on the same display hands over", "same", ":42", false, true },
        { "same display, screen named, hands over", "same", ":42.0", false, true },
        { "same settings file by another path hands over", "link", ":42", false, true },
        { "other settings file runs on its own", "other", ":42", false, false },
        { "other display runs on its own", "same", ":43", false, false },
        { "the socket of a copy killed outright is taken over", "same", ":42", true, false },
    });
}

void tst_SingleInstance::secondProgram()
{
    QFETCH(SecondCopy, row);
    const QString program = qEnvironmentVariable("MENSURA_PROGRAM");
    if (program.isEmpty())
        QSKIP("MENSURA_PROGRAM names no program to start");
    TestHive firstHive, otherHive;
    firstHive.writeSetting("StartOnce", "1");
    QTemporaryDir folder;
    const QString link = folder.filePath("link.reg");
    QVERIFY(QFile::link(firstHive.path(), link));
    const QString hive(row.hive);
    const QString secondHive = hive == "same" ? firstHive.path()
        : hive == "link"                      ? link
                                              : otherHive.path();

    // The copies meet under the name a program computes from its own environment.
    struct Copy {
        QProcess process;
        QString serverName;
    };
    const auto start = [&program](Copy &copy, const QString &hivePath, const QString &display) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("MENSURA_INSTANCE");
        environment.remove("WAYLAND_DISPLAY");
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("DISPLAY", display);
        const QStringList arguments { "--hive", hivePath };
        qputenv("DISPLAY", display.toLocal8Bit());
        copy.serverName = SingleInstance::defaultServerName(SettingsStore::location(arguments));
        copy.process.setProcessEnvironment(environment);
        copy.process.start(program, arguments);
        return copy.process.waitForStarted();
    };
    const auto listening = [](const Copy &copy) {
        QLocalSocket socket;
        socket.connectToServer(copy.serverName);
        return socket.waitForConnected(100);
    };
    qunsetenv("MENSURA_INSTANCE");
    qunsetenv("WAYLAND_DISPLAY");
    Copy first, second, third;
    QVERIFY(start(first, firstHive.path(), ":42"));
    QTRY_VERIFY_WITH_TIMEOUT(listening(first), 10000);
    if (row.firstKilled) {
        first.process.kill();
        QVERIFY(first.process.waitForFinished());
    }

    // A copy that hands over ends at once, and so does the next one.
    for (Copy *later : { &second, &third }) {
        QVERIFY(start(*later, secondHive, row.display));
        if (!row.handsOver)
            break;
        QVERIFY(later->process.waitForFinished(10000));
        QCOMPARE(later->process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(later->process.exitCode(), 0);
    }
    if (!row.handsOver) {
        // It listens for copies of its own, and stays.
        QTRY_VERIFY_WITH_TIMEOUT(listening(second), 10000);
        QVERIFY(!second.process.waitForFinished(500));
    }
    QCOMPARE(first.process.state(), row.firstKilled ? QProcess::NotRunning : QProcess::Running);
    for (Copy *copy : { &first, &second }) {
        copy->process.kill();
        copy->process.waitForFinished();
        QLocalServer::removeServer(copy->serverName);
    }
}

void tst_SingleInstance::minimisedWindowComesBack()
{
    TestHive hive;
    hive.writeSetting("StartOnce", "1");
    hive.writeSetting("minonce", "1"); // where there is a tray
    ScriptedDialogs dialogs;
    TestProgram first(hive, dialogs);
    QVERIFY(first.start());
    first.window()->showMinimized();
    QVERIFY(first.window()->isMinimized());

    Startup second(hive.arguments(), dialogs);
    second.setServerName(first.serverName());
    QVERIFY(!second.run());
    QVERIFY(!second.window());
    QTRY_VERIFY(!first.window()->isMinimized());
    QVERIFY(first.window()->isVisible());
    QVERIFY(dialogs.asked().isEmpty());
}

MENSURA_GUI_TEST_MAIN(tst_SingleInstance)
#include "tst_SingleInstance.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One copy per user, desktop and settings file: a copy started while another runs there hands
// over and ends, and the running copy comes to the front, also from a minimised state; a copy on
// another display or with other settings runs on its own. Checked on the socket itself, through
// the start-up sequence, and with the real program started twice.
#include "shell/SettingsStore.h"
#include "shell/SingleInstance.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <future>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

class tst_SingleInstance : public QObject
{
    Q_OBJECT

private slots:
    void nobodyToHandOverTo();
    void runningCopyIsAskedToComeForward();
    void socketLeftByACrashIsReplaced();
    void minimisedWindowComesBack();
    void secondProgram_data();
    void secondProgram();
};

void tst_SingleInstance::nobodyToHandOverTo()
{
    SingleInstance instance(TestProgram::uniqueServerName());
    QVERIFY(!instance.handOver(500));
    QVERIFY(instance.listen());
}

void tst_SingleInstance::runningCopyIsAskedToComeForward()
{
    const QString name = TestProgram::uniqueServerName();
    SingleInstance running(name);
    QVERIFY(running.listen());
    QSignalSpy asked(&running, &SingleInstance::activationRequested);
    // The later copy waits for the answer, so it runs beside this thread's event loop.
    std::future<bool> later = std::async(std::launch::async, [name] {
        SingleInstance instance(name);
        return instance.handOver(5000);
    });
    QTRY_COMPARE(asked.size(), 1);
    QVERIFY(later.get());
    // A second one is answered as well.
    later = std::async(std::launch::async, [name] { return SingleInstance(name).handOver(5000); });
    QTRY_COMPARE(asked.size(), 2);
    QVERIFY(later.get());
}

void tst_SingleInstance::socketLeftByACrashIsReplaced()
{
#ifdef Q_OS_UNIX
    // A socket file nobody listens on, as a copy killed outright leaves behind.
    const QString name = TestProgram::uniqueServerName();
    const QByteArray path = QFile::encodeName(QDir::tempPath() + u'/' + name);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    QVERIFY(fd >= 0);
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.constData(), sizeof(address.sun_path));
    QCOMPARE(::bind(fd, reinterpret_cast<sockaddr *>(&address), sizeof(address)), 0);
    ::close(fd);
    QVERIFY(QFile::exists(QString::fromLocal8Bit(path)));

    SingleInstance instance(name);
    QVERIFY(!instance.handOver(500));
    QVERIFY(instance.listen());
    QSignalSpy asked(&instance, &SingleInstance::activationRequested);
    std::future<bool> later
        = std::async(std::launch::async, [name] { return SingleInstance(name).handOver(5000); });
    QTRY_COMPARE(asked.size(), 1);
    QVERIFY(later.get());
#else
    QSKIP("socket files exist on Unix only");
#endif
}

void tst_SingleInstance::minimisedWindowComesBack()
{
    TestHive hive;
    hive.writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    hive.writeSetting(QStringLiteral("minonce"), QStringLiteral("1")); // where there is a tray
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

void tst_SingleInstance::secondProgram_data()
{
    QTest::addColumn<QString>("hive"); // the second copy's: "same", "other" or "link"
    QTest::addColumn<QString>("display");
    QTest::addColumn<bool>("handsOver");
    QTest::newRow("same settings on the same display hands over") << "same"
                                                                  << ":42" << true;
    QTest::newRow("same display, screen named, hands over") << "same"
                                                            << ":42.0" << true;
    QTest::newRow("same settings file by another path hands over") << "link"
                                                                   << ":42" << true;
    QTest::newRow("other settings file runs on its own") << "other"
                                                         << ":42" << false;
    QTest::newRow("other display runs on its own") << "same"
                                                   << ":43" << false;
}

void tst_SingleInstance::secondProgram()
{
    QFETCH(QString, hive);
    QFETCH(QString, display);
    QFETCH(bool, handsOver);
    const QString program = qEnvironmentVariable("MENSURA_PROGRAM");
    if (program.isEmpty())
        QSKIP("MENSURA_PROGRAM names no program to start");
    TestHive firstHive;
    TestHive otherHive;
    firstHive.writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("link.reg"));
    QVERIFY(QFile::link(firstHive.path(), link));
    const QString secondHive = hive == u"same" ? firstHive.path()
        : hive == u"link"                      ? link
                                               : otherHive.path();

    // The copies meet under the name a program computes from its own environment.
    struct Copy {
        QProcess process;
        QString serverName;
    };
    const auto start = [&program](Copy &copy, const QString &hivePath, const QString &display) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("MENSURA_INSTANCE"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("DISPLAY"), display);
        const QStringList arguments { QStringLiteral("--hive"), hivePath };
        qputenv("DISPLAY", display.toLocal8Bit());
        copy.serverName = SingleInstance::defaultServerName(SettingsStore::location(arguments));
        copy.process.setProcessEnvironment(environment);
        copy.process.start(program, arguments);
        return copy.process.waitForStarted();
    };
    qunsetenv("MENSURA_INSTANCE");
    qunsetenv("WAYLAND_DISPLAY");
    Copy first;
    QVERIFY(start(first, firstHive.path(), QStringLiteral(":42")));
    const auto listening = [](const Copy &copy) {
        QLocalSocket socket;
        socket.connectToServer(copy.serverName);
        return socket.waitForConnected(100);
    };
    QTRY_VERIFY_WITH_TIMEOUT(listening(first), 10000);

    Copy second;
    QVERIFY(start(second, secondHive, display));
    if (handsOver) {
        QVERIFY(second.process.waitForFinished(10000));
        QCOMPARE(second.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.process.exitCode(), 0);
    } else {
        // It listens for copies of its own, and stays.
        QTRY_VERIFY_WITH_TIMEOUT(listening(second), 10000);
        QVERIFY(!second.process.waitForFinished(500));
    }
    QCOMPARE(first.process.state(), QProcess::Running);
    for (Copy *copy : { &first, &second }) {
        copy->process.kill();
        copy->process.waitForFinished();
        QLocalServer::removeServer(copy->serverName);
    }
}

MENSURA_GUI_TEST_MAIN(tst_SingleInstance)
#include "tst_SingleInstance.moc"

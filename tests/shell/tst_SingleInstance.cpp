// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One copy per user: a copy started while another runs hands over and ends, and the running
// copy comes to the front, also from a minimised state. Checked on the socket itself, through
// the start-up sequence, and with the real program started twice.
#include "shell/SingleInstance.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <future>
#include <QLocalServer>
#include <QProcess>

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
    void secondProgramEnds();
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

void tst_SingleInstance::secondProgramEnds()
{
    const QString program = qEnvironmentVariable("MENSURA_PROGRAM");
    if (program.isEmpty())
        QSKIP("MENSURA_PROGRAM names no program to start");
    TestHive hive;
    const QString name = TestProgram::uniqueServerName();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("MENSURA_INSTANCE"), name);

    QProcess first;
    first.setProcessEnvironment(environment);
    first.start(program, { QStringLiteral("--hive"), hive.path() });
    QVERIFY(first.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(QDir::tempPath() + u'/' + name), 10000);

    QProcess second;
    second.setProcessEnvironment(environment);
    QElapsedTimer clock;
    clock.start();
    second.start(program, { QStringLiteral("--hive"), hive.path() });
    QVERIFY(second.waitForFinished(10000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QVERIFY2(clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(first.state(), QProcess::Running);

    first.kill();
    first.waitForFinished();
    QLocalServer::removeServer(name);
}

MENSURA_GUI_TEST_MAIN(tst_SingleInstance)
#include "tst_SingleInstance.moc"

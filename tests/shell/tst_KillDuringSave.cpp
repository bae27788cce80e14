// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A program killed while it saves never leaves a torn file: save_helper saves a large hive in
// a loop and is killed (SIGKILL) at a random moment, 200 times; after each kill the file must
// be exactly the last save that was put in place or the one under way, byte for byte.
#include "shell/SaveHelperHive.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

class tst_KillDuringSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hiveIsOldOrNewNeverTorn();
};

namespace
{

struct Progress {
    int saving = -1; // the last save begun
    int committed = -1; // the last save in place
};

Progress progressOf(const QByteArray &output)
{
    Progress progress;
    for (const QByteArray &line : output.split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() != 2)
            continue; // a line cut by the kill
        if (words[0] == "saving")
            progress.saving = words[1].toInt();
        else if (words[0] == "committed")
            progress.committed = words[1].toInt();
    }
    return progress;
}

QByteArray expectedFile(int generation)
{
    HiveFile hive(QStringLiteral("/dev/null/none.reg"), true);
    SaveHelperHive::fill(hive, generation);
    return hive.serialize();
}

// Microseconds from the helper's start to its second save in place (then the file is removed).
int calibrate(const QString &file)
{
    QProcess helper;
    QElapsedTimer clock;
    clock.start();
    helper.start(QStringLiteral(SAVE_HELPER), { file });
    QByteArray output;
    while (progressOf(output).committed < 2 && helper.waitForReadyRead())
        output += helper.readAllStandardOutput();
    const qint64 elapsed = clock.nsecsElapsed() / 1000;
    helper.kill();
    helper.waitForFinished();
    QFile::remove(file);
    return int(elapsed);
}

} // namespace

void tst_KillDuringSave::hiveIsOldOrNewNeverTorn()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString file = dir.filePath(QStringLiteral("registry.reg"));
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("random seed %u", seed);
    QRandomGenerator random(seed);

    // Kills are spread over the helper's start and its first few saves, however fast they are
    // on this machine.
    const int killWindow = calibrate(file);
    QVERIFY(killWindow > 0);

    int onDisk = -1; // the generation the file holds; -1 while there is no file
    QByteArray expected;
    int expectedGeneration = -1;
    int killedWhileSaving = 0, newFileFound = 0;
    QElapsedTimer clock;
    clock.start();
    for (int trial = 0; trial < 200; ++trial) {
        QProcess helper;
        helper.start(QStringLiteral(SAVE_HELPER), { file });
        QVERIFY(helper.waitForStarted());
        QThread::usleep(random.bounded(killWindow));
        helper.kill();
        QVERIFY(helper.waitForFinished());
        QVERIFY2(helper.exitStatus() == QProcess::CrashExit,
            qPrintable(QStringLiteral("the helper ended by itself with %1: %2")
                           .arg(helper.exitCode())
                           .arg(QString::fromLocal8Bit(helper.readAllStandardError()))));
        const Progress progress = progressOf(helper.readAllStandardOutput());
        if (progress.saving > progress.committed)
            ++killedWhileSaving;

        if (!QFile::exists(file)) {
            QCOMPARE(progress.committed, -1);
            continue;
        }
        QFile bytes(file);
        QVERIFY(bytes.open(QIODevice::ReadOnly));
        const QByteArray found = bytes.readAll();
        // Most kills leave the file as it was; only a changed file needs reading.
        int generation = expectedGeneration;
        if (found != expected) {
            HiveFile hive(file, true);
            QVERIFY(!hive.damaged());
            generation = hive.value(SaveHelperHive::SettingsKey, SaveHelperHive::GenerationName)
                             .value_or(QString())
                             .toInt();
            expected = expectedFile(generation);
            expectedGeneration = generation;
            QCOMPARE(found, expected);
        }
        // The last save put in place, or the one the kill interrupted just after its rename.
        const int lastWhole = progress.committed >= 0 ? progress.committed : onDisk;
        QVERIFY2(generation == lastWhole || generation == progress.saving,
            qPrintable(QStringLiteral("trial %1: file holds %2, last save %3, saving %4")
                           .arg(trial)
                           .arg(generation)
                           .arg(lastWhole)
                           .arg(progress.saving)));
        if (generation != onDisk)
            ++newFileFound;
        onDisk = generation;
    }
    qInfo("kills within %d us of the start", killWindow);
    qInfo("200 kills in %lld ms: %d while saving, %d found a newer file, last generation %d",
        clock.elapsed(), killedWhileSaving, newFileFound, onDisk);
    // The kills must have hit saves, or the test proved nothing.
    QVERIFY(killedWhileSaving > 20);
    QVERIFY(newFileFound > 10);
}

QTEST_GUILESS_MAIN(tst_KillDuringSave)
#include "tst_KillDuringSave.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A program killed while it saves never leaves a torn file: save_helper saves a large hive (and
// a large conversions file) in a loop and is killed (SIGKILL) at a random moment, 200 times;
// after each kill every file must be exactly the last save of it that was put in place or the
// one under way, byte for byte, and read back whole.
#include "shell/SaveHelperFiles.h"
#include "support/TestFiles.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

class tst_KillDuringSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesAreOldOrNewNeverTorn();
};

namespace
{

struct Progress {
    int saving = -1; // the last save begun
    int committed = -1; // the last save in place
};

// What the helper said it did ("saving KIND G", "committed KIND G"), for each kind of file.
QHash<QByteArray, Progress> progressOf(const QByteArray &output)
{
    QHash<QByteArray, Progress> progress;
    for (const QByteArray &line : output.split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() == 3 && words[0] == "saving") // else a line cut by the kill
            progress[words[1]].saving = words[2].toInt();
        else if (words.size() == 3 && words[0] == "committed")
            progress[words[1]].committed = words[2].toInt();
    }
    return progress;
}

// What is known of one file between the kills.
struct Watched {
    QByteArray kind;
    QString path;
    int onDisk = -1; // the generation the file holds; -1 while there is none
    QByteArray expected; // its bytes
    int killedWhileSaving = 0;
    int newerFound = 0;
};

// Microseconds from the helper's start to its second round of saves in place (then the files
// are removed).
int calibrate(const QTemporaryDir &dir)
{
    QProcess helper;
    QElapsedTimer clock;
    clock.start();
    helper.start(QStringLiteral(SAVE_HELPER), { dir.path() });
    QByteArray output;
    while (progressOf(output).value(SaveHelperFiles::Kinds.last()).committed < 2
        && helper.waitForReadyRead())
        output += helper.readAllStandardOutput();
    const qint64 elapsed = clock.nsecsElapsed() / 1000;
    helper.kill();
    helper.waitForFinished();
    for (const QByteArray &kind : SaveHelperFiles::Kinds)
        QFile::remove(dir.filePath(QString::fromLatin1(kind)));
    return int(elapsed);
}

} // namespace

void tst_KillDuringSave::filesAreOldOrNewNeverTorn()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("random seed %u", seed);
    QRandomGenerator random(seed);
    // A quarter of the kills fall anywhere in the helper's start and first saves; the others
    // soon after one of its saves began, wherever its time goes on this machine at the moment.
    const int killWindow = calibrate(dir);
    QVERIFY(killWindow > 0);

    QList<Watched> files;
    for (const QByteArray &kind : SaveHelperFiles::Kinds)
        files.append({ kind, dir.filePath(QString::fromLatin1(kind)), -1, {}, 0, 0 });
    for (int trial = 0; trial < 200; ++trial) {
        QProcess helper;
        helper.start(QStringLiteral(SAVE_HELPER), { dir.path() });
        QVERIFY(helper.waitForStarted());
        QByteArray output;
        if (random.bounded(4) == 0) {
            QThread::usleep(random.bounded(killWindow));
        } else {
            const QByteArray begun = "saving " + files[random.bounded(files.size())].kind + ' ';
            const int round = 1 + random.bounded(2);
            while (output.count(begun) < round && helper.waitForReadyRead(10000))
                output += helper.readAllStandardOutput();
            QThread::usleep(random.bounded(killWindow / 2));
        }
        helper.kill();
        QVERIFY(helper.waitForFinished());
        QVERIFY2(helper.exitStatus() == QProcess::CrashExit,
            "the helper ended by itself: " + helper.readAllStandardError());
        const auto progress = progressOf(output + helper.readAllStandardOutput());

        for (Watched &file : files) {
            const Progress done = progress.value(file.kind);
            file.killedWhileSaving += done.saving > done.committed;
            if (!QFile::exists(file.path)) {
                QCOMPARE(done.committed, -1);
                continue;
            }
            const QByteArray found = fileBytes(file.path);
            // Most kills leave a file as it was; only a changed file needs reading.
            int generation = file.onDisk;
            if (found != file.expected) {
                const std::optional<int> read = SaveHelperFiles::generationIn(file.kind, file.path);
                QVERIFY2(read, qPrintable(file.path + QStringLiteral(" does not read back")));
                generation = *read;
                file.expected = SaveHelperFiles::expectedBytes(file.kind, generation);
                QCOMPARE(found, file.expected);
                ++file.newerFound;
            }
            // The last save put in place, or the one the kill interrupted just after its rename.
            const int lastWhole = done.committed >= 0 ? done.committed : file.onDisk;
            QVERIFY2(generation == lastWhole || generation == done.saving,
                qPrintable(QStringLiteral("trial %1: %2 holds %3, last save %4, saving %5")
                               .arg(trial)
                               .arg(QString::fromLatin1(file.kind))
                               .arg(generation)
                               .arg(lastWhole)
                               .arg(done.saving)));
            file.onDisk = generation;
        }
    }
    for (const Watched &file : std::as_const(files)) {
        qInfo("%s: %d kills while saving, %d times a newer file, last generation %d",
            file.kind.constData(), file.killedWhileSaving, file.newerFound, file.onDisk);
        // The kills must have hit saves, or the test proved nothing.
        QVERIFY(file.killedWhileSaving > 10);
        QVERIFY(file.newerFound > 10);
    }
}

QTEST_GUILESS_MAIN(tst_KillDuringSave)
#include "tst_KillDuringSave.moc"

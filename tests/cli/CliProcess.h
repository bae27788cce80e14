// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Runs the real mensura-cli (its path comes from the build as MENSURA_CLI) and writes the
// settings files it is pointed at. Every run names its own settings file with --hive, or sets
// MENSURA_HIVE itself: a test never reaches the user's own settings.
#pragma once

#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <functional>
#include <QFile>
#include <QProcess>
#include <QTest>

struct CliRun {
    int exitCode = -1;
    QString out;
    QString err;

    QStringList outLines() const { return out.split(u'\n', Qt::SkipEmptyParts); }
};

inline CliRun runCli(const QStringList &arguments, const QByteArray &input = QByteArray(),
    const QString &environmentHive = QString())
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("MENSURA_HIVE"));
    if (!environmentHive.isEmpty())
        environment.insert(QStringLiteral("MENSURA_HIVE"), environmentHive);
    // The user's configuration folder is out of reach too.
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("/nonexistent-mensura"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(MENSURA_CLI), arguments);
    CliRun run;
    if (!process.waitForStarted(10000))
        return run;
    if (!input.isEmpty())
        process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000)) {
        process.kill();
        return run;
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

// Writes a settings file: fill() stores values through the program's own settings store.
inline void writeHive(const QString &fileName, const std::function<void(SettingsStore &)> &fill)
{
    QFile::remove(fileName);
    SettingsStore store(std::make_unique<HiveFile>(fileName));
    {
        SettingsStore::Batch batch(store);
        // A file, even for no values, so that --hive has something to read.
        store.RegWriteString(
            QStringLiteral("settings"), QStringLiteral("triads"), QStringLiteral("1"));
        fill(store);
    }
    QVERIFY2(store.close() && !store.saveFailed(), qPrintable(store.errorText()));
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Runs the real mensura-cli (its path comes from the build as MENSURA_CLI) against settings
// files written here. Every run names its settings file with --hive, or sets MENSURA_HIVE
// itself, and the user's configuration folder is out of reach: a test never touches the
// user's own settings.
#pragma once

#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <QFile>
#include <QProcess>
#include <QTest>

struct CliRun {
    int exitCode = -1;
    QString out;
    QString err;
};

inline CliRun runCli(const QStringList &arguments, const QByteArray &input = QByteArray(),
    const QString &environmentHive = QString())
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("MENSURA_HIVE"));
    if (!environmentHive.isEmpty())
        environment.insert(QStringLiteral("MENSURA_HIVE"), environmentHive);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("/nonexistent-mensura"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(MENSURA_CLI), arguments);
    process.write(input);
    process.closeWriteChannel();
    CliRun run;
    if (!process.waitForFinished(60000))
        return run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

// Writes a settings file through the program's own settings store: "settings" values in pairs
// of name and text and, unless told otherwise, the catalogue the tests share: the built-in one
// with Luminance, "square inch (in²)" of Area and "milligal (mGal)" of Acceleration switched
// off, and the user's quantity Reach of "hand-width" (default, exact 0.1), "stride" (0.75, two
// figures), "zero" (a factor of 0) and "hidden" (switched off).
inline void writeHive(const QString &fileName, const QStringList &settings, bool catalogue = true)
{
    QFile::remove(fileName);
    SettingsStore store(std::make_unique<HiveFile>(fileName));
    {
        SettingsStore::Batch batch(store);
        QStringList values { "settings", "triads", "1" }; // a file, even for no values
        for (qsizetype i = 0; i + 1 < settings.size(); i += 2)
            values += { "settings", settings[i], settings[i + 1] };
        if (catalogue)
            values += { "User\\OnOff\\Luminance", "OnOff", "0", "User\\OnOff\\Area",
                "square inch (in²)", "0", "User\\OnOff\\Acceleration", "milligal (mGal)", "0",
                "User\\NewQuans\\Reach", "DefaultUnit", "hand-width", "User\\Units\\Reach",
                "hand-width", "c0.1", "User\\Units\\Reach", "stride", "a0.75", "User\\Units\\Reach",
                "zero", "a0", "User\\Units\\Reach", "hidden", "d2" };
        for (qsizetype i = 0; i + 2 < values.size(); i += 3)
            store.RegWriteString(values[i], values[i + 1], values[i + 2]);
    }
    QVERIFY2(store.close() && !store.saveFailed(), qPrintable(store.errorText()));
}

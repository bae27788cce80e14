// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The files that save_helper saves over and over and tst_KillDuringSave expects to find whole:
// a large hive and a large conversions file, each named by its kind. Every value and record of
// generation g names g, so a file mixing two saves cannot pass for one.
#pragma once

#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"
#include "shell/HiveFile.h"

#include <optional>
#include <QByteArray>
#include <QDir>
#include <QList>

namespace SaveHelperFiles
{

inline const QByteArrayList Kinds { "hive", "conversions" };
inline const QString SettingsKey = QStringLiteral("Software\\Mensura\\settings");

inline void fill(HiveFile &hive, int generation)
{
    hive.setValue(SettingsKey, QStringLiteral("generation"), QString::number(generation));
    // Lengths vary from one generation to the next, so a torn file also differs in size.
    for (int k = 0; k < 1000; ++k)
        hive.setValue(QStringLiteral("Software\\Mensura\\User\\Units\\Quantity %1").arg(k % 200),
            QStringLiteral("unit %1").arg(k),
            QStringLiteral("g%1 k%2 ").arg(generation).arg(k)
                + QString((generation + k) % 23, u'µ'));
}

// Odd generations hold a character outside code page 1252, so the file alternates between
// its two encodings.
inline QList<MarkedConversion> records(int generation)
{
    QList<MarkedConversion> list;
    const QString mark = generation % 2 ? QStringLiteral("Ω") : QStringLiteral("µ");
    for (int k = 0; k < 400; ++k)
        list.append({ QStringLiteral("g%1").arg(generation), QStringLiteral("unit %1").arg(k),
            QStringLiteral("%1.%2").arg(k).arg(generation), mark + QString(k % 7, u'x'),
            QStringLiteral("Quantity %1").arg(k % 43) });
    return list;
}

// What a file of this kind holds after the save of a generation, byte for byte.
inline QByteArray expectedBytes(const QByteArray &kind, int generation)
{
    if (kind == "conversions")
        return ConversionsFile::encode(ConversionsFile::recordsText(records(generation)));
    HiveFile hive(QStringLiteral("/dev/null/none.reg"), true);
    fill(hive, generation);
    return hive.serialize();
}

// The generation a file holds, read back through its reader; nothing when it does not read.
inline std::optional<int> generationIn(const QByteArray &kind, const QString &path)
{
    if (kind == "conversions") {
        const ConversionsReader::Result read = ConversionsReader::readFile(path);
        if (read.status != ConversionsReader::Finished || read.records.isEmpty())
            return std::nullopt;
        return read.records.first().fromValue.mid(1).toInt();
    }
    const HiveFile hive(path, true);
    if (hive.damaged())
        return std::nullopt;
    return hive.value(SettingsKey, QStringLiteral("generation")).value_or(QString()).toInt();
}

} // namespace SaveHelperFiles

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The large hive that save_helper saves over and over and tst_KillDuringSave expects to find
// whole: every value of generation g names g, so a file mixing two saves cannot pass for one.
#pragma once

#include "shell/HiveFile.h"

namespace SaveHelperHive
{

inline const QString SettingsKey = QStringLiteral("Software\\Mensura\\settings");
inline const QString GenerationName = QStringLiteral("generation");

inline void fill(HiveFile &hive, int generation)
{
    hive.setValue(SettingsKey, GenerationName, QString::number(generation));
    for (int k = 0; k < 1000; ++k) {
        const QString key
            = QStringLiteral("Software\\Mensura\\User\\Units\\Quantity %1").arg(k % 200);
        // Lengths vary from one generation to the next, so a torn file also differs in size.
        hive.setValue(key, QStringLiteral("unit %1").arg(k),
            QStringLiteral("g%1 k%2 ").arg(generation).arg(k)
                + QString((generation + k) % 23, u'\u00b5'));
    }
}

} // namespace SaveHelperHive

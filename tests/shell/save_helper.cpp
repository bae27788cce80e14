// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Saves a large hive again and again until it is killed, for tst_KillDuringSave. Takes the
// generation from the file it finds, then writes the next ones, saying on standard output when
// a save begins ("saving G") and when it is in place ("committed G").
// Usage: save_helper HIVE_FILE. Exit code 3: the file found was not whole.
#include "shell/SaveHelperHive.h"

#include <cstdio>
#include <QElapsedTimer>

int main(int argc, char *argv[])
{
    if (argc != 2)
        return 2;
    HiveFile hive(QString::fromLocal8Bit(argv[1]));
    if (hive.damaged())
        return 3;
    int generation = hive.value(SaveHelperHive::SettingsKey, SaveHelperHive::GenerationName)
                         .value_or(QString())
                         .toInt();
    // Never outlives a test that died.
    QElapsedTimer running;
    running.start();
    while (running.elapsed() < 10000) {
        ++generation;
        SaveHelperHive::fill(hive, generation);
        std::printf("saving %d\n", generation);
        std::fflush(stdout);
        if (!hive.flush())
            return 1;
        std::printf("committed %d\n", generation);
        std::fflush(stdout);
    }
    return 0;
}

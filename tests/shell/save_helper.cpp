// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Saves large files again and again until it is killed, for tst_KillDuringSave: in turn each
// kind of file of SaveHelperFiles, in the folder given. Takes the generation from the hive it
// finds, then writes the next ones, saying on standard output when a save begins ("saving
// KIND G") and when it is in place ("committed KIND G").
// Usage: save_helper FOLDER. Exit code 3: the hive found was not whole.
#include "shell/SaveHelperFiles.h"

#include <cstdio>
#include <QElapsedTimer>

int main(int argc, char *argv[])
{
    if (argc != 2)
        return 2;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    HiveFile hive(folder.filePath(QStringLiteral("hive")));
    if (hive.damaged())
        return 3;
    int generation = *SaveHelperFiles::generationIn("hive", hive.fileName());
    // Never outlives a test that died.
    QElapsedTimer running;
    running.start();
    while (running.elapsed() < 10000) {
        SaveHelperFiles::fill(hive, ++generation);
        for (const QByteArray &kind : SaveHelperFiles::Kinds) {
            std::printf("saving %s %d\n", kind.constData(), generation);
            std::fflush(stdout);
            if (kind == "conversions" ? !ConversionsFile::saveRecords(
                    folder.filePath("conversions"), SaveHelperFiles::records(generation))
                                             .ok()
                                      : !hive.flush())
                return 1;
            std::printf("committed %s %d\n", kind.constData(), generation);
            std::fflush(stdout);
        }
    }
    return 0;
}

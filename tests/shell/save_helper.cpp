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

namespace
{

bool save(const SaveHelperFiles::Kind &kind, const QDir &folder, HiveFile &hive, int generation)
{
    std::printf("saving %s %d\n", kind.word, generation);
    std::fflush(stdout);
    bool saved;
    if (qstrcmp(kind.word, "conversions") == 0)
        saved = ConversionsFile::saveRecords(folder.filePath(QString::fromLatin1(kind.fileName)),
            SaveHelperFiles::records(generation))
                    .ok();
    else
        saved = hive.flush();
    if (!saved)
        return false;
    std::printf("committed %s %d\n", kind.word, generation);
    std::fflush(stdout);
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2)
        return 2;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    HiveFile hive(folder.filePath(QStringLiteral("registry.reg")));
    if (hive.damaged())
        return 3;
    int generation = hive.value(SaveHelperFiles::SettingsKey, SaveHelperFiles::GenerationName)
                         .value_or(QString())
                         .toInt();
    // Never outlives a test that died.
    QElapsedTimer running;
    running.start();
    while (running.elapsed() < 10000) {
        ++generation;
        SaveHelperFiles::fill(hive, generation);
        for (const SaveHelperFiles::Kind &kind : SaveHelperFiles::kinds())
            if (!save(kind, folder, hive, generation))
                return 1;
    }
    return 0;
}

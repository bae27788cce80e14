// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The hive file reader on arbitrary bytes. Whatever it makes of them must survive being saved
// and read again unchanged: the saved text reads back undamaged, to the same keys and values,
// and saves to the same bytes.
#include "FuzzCheck.h"

#include "shell/HiveFile.h"

#include <cstdint>
#include <QStringList>

// A file that can never be opened: the hives here live in memory only.
static const QString NoFile = QStringLiteral("/dev/null/fuzz.reg");

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    HiveFile read(NoFile, true);
    read.parse(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    const QByteArray saved = read.serialize();

    HiveFile again(NoFile, true);
    again.parse(saved);
    FUZZ_CHECK(!again.damaged());
    FUZZ_CHECK(again.serialize() == saved);

    // Every value of every saved key is found again by its name.
    const QString prefix = QStringLiteral("[HKEY_CURRENT_USER\\");
    for (const QString &line : QString::fromUtf8(saved).split(QStringLiteral("\r\n"))) {
        if (!line.startsWith(prefix))
            continue;
        const QString path = line.mid(prefix.size(), line.size() - prefix.size() - 1);
        const auto values = again.values(path);
        FUZZ_CHECK(values == read.values(path));
        for (const auto &[name, value] : values)
            FUZZ_CHECK(again.value(path, name) == value);
    }
    return 0;
}

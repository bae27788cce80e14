// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// mensura-cli's argument handling on arbitrary arguments (UTF-8, separated by NUL bytes as in a
// real argument vector). A rejected command line always says why; an accepted one names a
// command and only option values within their ranges, and the formatting settings it makes
// still format a value.
#include "FuzzCheck.h"

#include "cli/CommandLine.h"
#include "convert/NumberFormat.h"
#include "shell/Settings.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QStringList arguments
        = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size)).split(QChar(0));
    CommandLine line;
    if (!line.parse(arguments)) {
        FUZZ_CHECK(!line.error().isEmpty());
        return 0;
    }
    FUZZ_CHECK(line.command != CommandLine::Command::None);
    if (line.command == CommandLine::Command::Convert)
        FUZZ_CHECK(line.operands.size() == 3);
    if (line.sigFigs)
        FUZZ_CHECK(*line.sigFigs >= 1 && *line.sigFigs <= 13);
    if (line.minNumber)
        FUZZ_CHECK(*line.minNumber >= 1e-9);
    if (line.maxNumber)
        FUZZ_CHECK(*line.maxNumber <= 1e9);
    const QStringList store = line.storeArguments();
    FUZZ_CHECK(store.isEmpty() || (store.size() == 2 && !store[1].isEmpty()));

    Settings settings;
    line.applyTo(settings);
    const QString x = QStringLiteral("x");
    for (double value : { 0.0, 1.0, -1234.5678, 1e-12, 1e300 }) {
        const FormattedResult result = NumberFormat::FormatResult(value, x, x, settings);
        FUZZ_CHECK(result.text.isEmpty() == result.notice.has_value());
    }
    return 0;
}

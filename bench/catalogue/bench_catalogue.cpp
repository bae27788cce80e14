// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Building the catalogue at start-up: the built-in quantities from the string table (already
// parsed once, as after the first run of the program) merged with an empty user catalogue,
// and the first load that also parses the string table.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <benchmark/benchmark.h>
#include <QTemporaryDir>

static void LoadCatalogue(benchmark::State &state)
{
    QTemporaryDir dir;
    SettingsStore store(std::make_unique<HiveFile>(dir.filePath(QStringLiteral("r.reg")), true));
    StringTable::text(9); // the table is parsed once per run of the program
    for (auto _ : state) {
        Catalogue catalogue;
        catalogue.LoadCatalogue(store);
        benchmark::DoNotOptimize(catalogue.QuantityCount);
    }
}
BENCHMARK(LoadCatalogue)->Unit(benchmark::kMicrosecond);

static void ParseStringTable(benchmark::State &state)
{
    QFile file(QStringLiteral(":/strings.tsv"));
    file.open(QIODevice::ReadOnly);
    const QByteArray data = file.readAll();
    for (auto _ : state)
        benchmark::DoNotOptimize(StringTable::parse(data).size());
}
BENCHMARK(ParseStringTable)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();

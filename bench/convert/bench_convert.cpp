// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One conversion as the main window and the command line do it: ConversionEngine::Convert,
// which multiplies by the factors (or runs the temperature formulas) and formats the result
// with FormatResult. A mix of the kinds of conversion the built-in catalogue holds is timed
// together, each kind on its own, and the formatter alone. The values are spread over many
// magnitudes so that both notations and every rounding path are taken.
#include "catalogue/Catalogue.h"
#include "convert/ConversionEngine.h"
#include "convert/NumberFormat.h"
#include "shell/HiveFile.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <QRandomGenerator>
#include <QTemporaryDir>

namespace
{

struct Case {
    int quantity;
    QString from;
    QString to;
    double value;
};

enum Kind { ExactRegular, InexactRegular, Temperature, Scientific, Mixed };

// The built-in catalogue with an empty user catalogue, loaded once for all benchmarks.
Catalogue &catalogue()
{
    static Catalogue loaded = [] {
        QTemporaryDir dir;
        SettingsStore store(
            std::make_unique<HiveFile>(dir.filePath(QStringLiteral("bench.reg")), true));
        Catalogue c;
        c.LoadCatalogue(store);
        return c;
    }();
    return loaded;
}

Case makeCase(const QString &quantity, const QString &from, const QString &to, double value)
{
    const int q = catalogue().findQuantity(quantity);
    if (q == 0 || catalogue().findUnit(q, from) == 0 || catalogue().findUnit(q, to) == 0)
        qFatal("bench_convert: %s / %s / %s not in the catalogue", qPrintable(quantity),
            qPrintable(from), qPrintable(to));
    return Case { q, from, to, value };
}

// 256 conversions of one kind, or of all kinds in turn, with values of many magnitudes.
QVector<Case> cases(Kind kind)
{
    QRandomGenerator random(20260101);
    QVector<Case> list;
    for (int i = 0; i < 256; ++i) {
        const Kind k = kind == Mixed ? Kind(i % 4) : kind;
        // 0.1 .. 1000: regular notation with the default thresholds
        const double regular = 0.1 * std::pow(10.0, random.generateDouble() * 4);
        switch (k) {
        case ExactRegular:
            list.append(i % 2
                    ? makeCase(QStringLiteral("Length"), QStringLiteral("inch (in)"),
                        QStringLiteral("metre (m)"), regular * 10)
                    : makeCase(QStringLiteral("Mass"), QStringLiteral("pound (avoirdupois) (lb)"),
                        QStringLiteral("kilogram (kg)"), regular));
            break;
        case InexactRegular:
            list.append(i % 2
                    ? makeCase(QStringLiteral("Angle"), QStringLiteral("degree (°)"),
                        QStringLiteral("radian (rad)"), regular)
                    : makeCase(QStringLiteral("Length"), QStringLiteral("foot (US survey)"),
                        QStringLiteral("metre (m)"), regular));
            break;
        case Temperature:
            list.append(i % 2
                    ? makeCase(QStringLiteral("Temperature"), QStringLiteral("Celsius (°C)"),
                        QStringLiteral("Fahrenheit (°F)"), regular * 2 - 100)
                    : makeCase(QStringLiteral("Temperature"), QStringLiteral("Fahrenheit (°F)"),
                        QStringLiteral("kelvin (K)"), regular));
            break;
        default: // far outside 0.1 .. 1000 either way
            list.append(makeCase(QStringLiteral("Length"), QStringLiteral("light year (ly)"),
                QStringLiteral("metre (m)"), i % 2 ? regular * 1e6 : regular * 1e-9));
            break;
        }
    }
    return list;
}

void Convert(benchmark::State &state, Kind kind)
{
    Catalogue &c = catalogue();
    Settings settings;
    Session session;
    ConversionEngine engine(c, settings, session);
    const QVector<Case> list = cases(kind);
    qsizetype i = 0;
    for (auto _ : state) {
        const Case &one = list[i];
        c.CurrentQuantity = one.quantity;
        benchmark::DoNotOptimize(engine.Convert(one.from, one.to, one.value));
        i = (i + 1) % list.size();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(Convert, mix, Mixed);
BENCHMARK_CAPTURE(Convert, exact_regular, ExactRegular);
BENCHMARK_CAPTURE(Convert, inexact_regular, InexactRegular);
BENCHMARK_CAPTURE(Convert, temperature, Temperature);
BENCHMARK_CAPTURE(Convert, scientific, Scientific);

// The update routine: the value's text read first, as the window and the command line pass it.
void UpdateResult(benchmark::State &state)
{
    Catalogue &c = catalogue();
    Settings settings;
    Session session;
    ConversionEngine engine(c, settings, session);
    const QVector<Case> list = cases(Mixed);
    QStringList texts;
    for (const Case &one : list)
        texts.append(QString::number(one.value, 'g', 8));
    qsizetype i = 0;
    for (auto _ : state) {
        const Case &one = list[i];
        c.CurrentQuantity = one.quantity;
        benchmark::DoNotOptimize(engine.UpdateResult(one.from, one.to, texts[i]));
        i = (i + 1) % list.size();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(UpdateResult);

void FormatResult(benchmark::State &state, bool triads, bool scientific)
{
    Settings settings;
    settings.Triads = triads;
    settings.Scientific = scientific;
    const QString exact = QStringLiteral("x");
    const QString degree = QStringLiteral("1.74532925199433E-02");
    QVector<double> values;
    QRandomGenerator random(7);
    for (int i = 0; i < 256; ++i)
        values.append(0.1 * std::pow(10.0, random.generateDouble() * 4));
    qsizetype i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            NumberFormat::FormatResult(values[i], i % 2 ? exact : degree, exact, settings));
        i = (i + 1) % values.size();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(FormatResult, regular_triads, true, false);
BENCHMARK_CAPTURE(FormatResult, regular_plain, false, false);
BENCHMARK_CAPTURE(FormatResult, scientific_triads, true, true);

} // namespace

BENCHMARK_MAIN();

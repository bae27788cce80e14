// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// FormatResult over arbitrary doubles, exactness texts and settings (any figures 0..13, any
// thresholds a stored setting may hold, scientific and triads on or off). It must return, and
// its text is empty exactly when it reports an error; the shown mantissa never carries more
// significant figures than the formatter allowed.
#include "FuzzCheck.h"

#include "convert/NumberFormat.h"
#include "convert/RuntimeError.h"
#include "shell/Settings.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>

namespace
{

double threshold(FuzzedDataProvider &in)
{
    static const double usual[] = { 1000, 0.1, 1e9, 1e-9, 1, 0, -1 };
    return in.ConsumeBool() ? in.ConsumeFloatingPoint<double>() : in.PickValueInArray(usual);
}

QString exactness(FuzzedDataProvider &in)
{
    static const char *const factors[] = { "x", "0.0254", "1.74532925199433E-02",
        "11348.93179479260", "1200", "5.5555555555555555555e-1" };
    if (in.ConsumeBool())
        return QString::fromUtf8(in.PickValueInArray(factors));
    return QString::fromStdString(in.ConsumeRandomLengthString(24));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzedDataProvider in(data, size);
    Settings settings;
    settings.SigFigs = in.ConsumeIntegralInRange(0, 13);
    settings.Scientific = in.ConsumeBool();
    settings.Triads = in.ConsumeBool();
    settings.MaxNumber = threshold(in);
    settings.MinNumber = threshold(in);
    const QString from = exactness(in);
    const QString to = exactness(in);
    const double value = in.ConsumeFloatingPoint<double>();

    const FormattedResult result = NumberFormat::FormatResult(value, from, to, settings);
    FUZZ_CHECK(result.text.isEmpty() == result.notice.has_value());
    if (result.notice)
        return 0;

    // The figures the formatter allows, as its status text reports them.
    int allowed = qMin(settings.SigFigs, int(NumberFormat::MaxFigures));
    if (from != QStringLiteral("x"))
        allowed = qMin(allowed, NumberFormat::CountSignificantDigits(from));
    if (to != QStringLiteral("x"))
        allowed = qMin(allowed, NumberFormat::CountSignificantDigits(to));
    FUZZ_CHECK(allowed >= 1);

    QString mantissa = result.text;
    mantissa.remove(u' ');
    const qsizetype exponent = mantissa.indexOf(u'E');
    if (exponent >= 0)
        mantissa.truncate(exponent);
    // A subnormal value carries fewer digits than the 15 its shortest text writes.
    if (std::fabs(value) >= DBL_MIN)
        FUZZ_CHECK(NumberFormat::CountSignificantDigits(mantissa) <= allowed);
    FUZZ_CHECK(result.moreFiguresAvailable.has_value() && result.statusText.has_value());
    return 0;
}

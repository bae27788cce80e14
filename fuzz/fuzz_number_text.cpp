// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Number entry on arbitrary text (UTF-8 or UTF-16 by the first byte): the paste filter, the
// lenient leading-number reading and the strict readings of stored settings. The lenient reading
// never gives NaN; the strict ones fail only with their own run-time errors and agree with the
// lenient one where they accept a text; the shortest text and the scientific picture read back
// as the value they were made from.
#include "FuzzCheck.h"

#include "convert/NumberFilter.h"
#include "convert/NumberText.h"

#include <cmath>
#include <cstdint>

namespace
{

bool isNumberCharacter(QChar c)
{
    return (c >= u'0' && c <= u'9') || QStringView(u" .+-EeDd").contains(c);
}

template<typename Reading> void strictReading(Reading reading)
{
    try {
        reading();
    } catch (const RuntimeError &error) {
        FUZZ_CHECK(
            error.number == RuntimeError::TypeMismatch || error.number == RuntimeError::Overflow);
    }
}

bool close(double a, double b, double relative)
{
    return std::fabs(a - b) <= relative * std::fabs(b);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const char *bytes = reinterpret_cast<const char *>(data + 1);
    const QString text = data[0] & 1
        ? QString(reinterpret_cast<const QChar *>(bytes), qsizetype((size - 1) / 2))
        : QString::fromUtf8(bytes, qsizetype(size - 1));

    const QString filtered = NumberFilter::filter(text);
    FUZZ_CHECK(filtered.size() <= text.size());
    for (QChar c : filtered)
        FUZZ_CHECK(isNumberCharacter(c));

    const double lenient = NumberText::leadingNumber(text);
    FUZZ_CHECK(!std::isnan(lenient));
    FUZZ_CHECK(!std::isnan(NumberText::leadingNumber(filtered)));

    strictReading([&] {
        const double strict = NumberText::toDouble(text);
        FUZZ_CHECK(std::isfinite(strict));
        // The strict reading allows any surrounding white space, the lenient one blanks and tabs.
        FUZZ_CHECK(strict == NumberText::leadingNumber(text.trimmed()));
    });
    strictReading([&] {
        const int value = NumberText::toInt16(text);
        FUZZ_CHECK(value >= -32768 && value <= 32767);
    });
    strictReading([&] { NumberText::toInt32(text); });
    strictReading([&] { NumberText::toBoolean(text, u','); });

    if (std::isfinite(lenient) && lenient != 0) {
        // 15 significant digits hold any double to within 5E-15 of itself.
        const double shortest = NumberText::leadingNumber(NumberText::shortestText(lenient));
        FUZZ_CHECK(close(shortest, lenient, 1e-14));
        const int figures = 1 + data[0] / 2 % 20;
        const QString picture = NumberText::scientific(lenient, figures);
        const double rounded = NumberText::leadingNumber(picture);
        // Rounding to n figures moves a value by at most half a unit of its last figure.
        if (std::isfinite(rounded))
            FUZZ_CHECK(close(rounded, lenient, 5 * std::pow(10.0, -figures) + 1e-14));
    }
    return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "convert/NumberFormat.h"

#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "convert/RuntimeError.h"
#include "shell/Settings.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>

namespace StringId
{
constexpr int ExactFactors = 5600;
constexpr int ClosingParenthesis = 5602;
constexpr int Max = 430;
constexpr int Current = 369;
} // namespace StringId

// 10^0 .. 10^12, all exact doubles.
static constexpr double PowersOfTen[NumberFormat::MaxFigures]
    = { 1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12 };
// 10^-22 .. 10^22, each the double nearest the power.
static constexpr double TenToThe[45] = { 1e-22, 1e-21, 1e-20, 1e-19, 1e-18, 1e-17, 1e-16, 1e-15,
    1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9, 1e-8, 1e-7, 1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1e0,
    1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17,
    1e18, 1e19, 1e20, 1e21, 1e22 };

// The formatter runs once per conversion, and a batch of conversions runs it many times: the
// texts are built in character buffers and become a QString once, at the end. The grouping
// works on either kind of character, Latin-1 for the formatter's own texts and UTF-16 for any
// text handed to triads().
namespace
{

template<typename Ch> inline bool isSpace(Ch c)
{
    return QChar::isSpace(char32_t(std::make_unsigned_t<Ch>(c)));
}

// Trims blanks at both ends of [begin, end), moving what is kept to begin; returns its end.
template<typename Ch> Ch *trimInPlace(Ch *begin, Ch *end)
{
    Ch *first = begin;
    while (first < end && isSpace(*first))
        ++first;
    while (end > first && isSpace(end[-1]))
        --end;
    if (first != begin)
        std::memmove(begin, first, size_t(end - first) * sizeof(Ch));
    return begin + (end - first);
}

// The text with a blank in front of every third character counted from the right, trimmed. A
// leading minus sign is not counted and never gets a blank after it. Writes at most
// size + size / 3 + 1 characters to out and returns their end.
template<typename Ch> Ch *groupFromRight(const Ch *text, qsizetype size, Ch *out)
{
    if (size > 0 && text[0] == Ch('-')) {
        *out++ = Ch('-');
        ++text;
        --size;
    }
    Ch *start = out;
    for (qsizetype i = 0; i < size; ++i) {
        if ((size - i) % 3 == 0)
            *out++ = Ch(' ');
        *out++ = text[i];
    }
    return trimInPlace(start, out);
}

// The triads of NumberFormat::triads, written to out (room for 2 * size + 2 characters);
// returns the number of characters written.
template<typename Ch> qsizetype groupTriads(const Ch *text, qsizetype size, Ch *out)
{
    const Ch *end = text + size;
    const Ch *point = std::find(text, end, Ch('.'));
    if (point == end) {
        if (size > 3)
            return groupFromRight(text, size, out) - out;
        std::copy(text, end, out);
        return size;
    }
    Ch *o
        = point - text > 3 ? groupFromRight(text, point - text, out) : std::copy(text, point, out);
    *o++ = Ch('.');
    const Ch *fraction = point + 1;
    const Ch *exponent
        = std::find_if(fraction, end, [](Ch c) { return c == Ch('e') || c == Ch('E'); });
    for (const Ch *digit = fraction; digit < exponent; ++digit) {
        *o++ = *digit;
        if ((digit - fraction + 1) % 3 == 0)
            *o++ = Ch(' ');
    }
    o = std::copy(exponent, end, o);
    return trimInPlace(out, o) - out;
}

// text == "x", the mark of an exact side.
bool isExact(const QString &text)
{
    return text.size() == 1 && text.front() == u'x';
}

// The counting of CountSignificantDigits, over the characters before the exponent.
template<typename Ch> int countFigures(const Ch *begin, const Ch *end)
{
    int count = 0;
    for (; begin < end; ++begin) {
        if (*begin == Ch('.'))
            continue;
        if (*begin != Ch('0') || count > 0)
            ++count;
    }
    return count >= 14 ? NumberFormat::MaxFigures : count;
}

// The status texts for every number of figures the settings allow, built once: the string
// table never changes while the program runs.
struct StatusTexts {
    static constexpr int Cached = NumberFormat::MaxFigures + 1;
    QString exactFactors, max, current, closing;
    QString exact[Cached]; // by SigFigs
    QString limited[Cached][Cached]; // by figures available, SigFigs

    StatusTexts()
        : exactFactors(StringTable::text(StringId::ExactFactors))
        , max(StringTable::text(StringId::Max))
        , current(StringTable::text(StringId::Current))
        , closing(StringTable::text(StringId::ClosingParenthesis))
    {
        for (int sigFigs = 0; sigFigs < Cached; ++sigFigs) {
            exact[sigFigs] = exactText(sigFigs);
            for (int n = 0; n < Cached; ++n)
                limited[n][sigFigs] = limitedText(n, sigFigs);
        }
    }
    QString currentText(int sigFigs) const { return current + QString::number(sigFigs) + closing; }
    QString exactText(int sigFigs) const
    {
        if (sigFigs >= 0 && sigFigs < Cached && !exact[sigFigs].isNull())
            return exact[sigFigs];
        return exactFactors + currentText(sigFigs);
    }
    QString limitedText(int n, int sigFigs) const
    {
        if (n >= 0 && n < Cached && sigFigs >= 0 && sigFigs < Cached
            && !limited[n][sigFigs].isNull())
            return limited[n][sigFigs];
        return max + QString::number(n) + currentText(sigFigs);
    }
};

const StatusTexts &statusTexts()
{
    static const StatusTexts texts;
    return texts;
}

} // namespace

int NumberFormat::CountSignificantDigits(const QString &text)
{
    const char16_t *begin = reinterpret_cast<const char16_t *>(text.utf16());
    const char16_t *end = begin + text.size();
    while (begin < end && isSpace(*begin))
        ++begin;
    while (end > begin && isSpace(end[-1]))
        --end;
    if (begin < end && *begin == u'-')
        ++begin;
    // Only "e" and "E" fold to "e", only "d" and "D" to "d".
    const char16_t *e = std::find_if(begin, end, [](char16_t c) { return c == u'e' || c == u'E'; });
    if (e == end && std::any_of(begin, end, [](char16_t c) { return c == u'd' || c == u'D'; }))
        throw RuntimeError { RuntimeError::InvalidCall, {} }; // a "D" exponent is not cut off
    return countFigures(begin, e);
}

QString NumberFormat::triads(const QString &s)
{
    QVarLengthArray<char16_t, 128> grouped(2 * s.size() + 2);
    const qsizetype size
        = groupTriads(reinterpret_cast<const char16_t *>(s.utf16()), s.size(), grouped.data());
    return QString(reinterpret_cast<const QChar *>(grouped.constData()), size);
}

FormattedResult NumberFormat::FormatResult(
    double v, const QString &a, const QString &b, const Settings &settings)
{
    FormattedResult result;
    try {
        const StatusTexts &texts = statusTexts();
        const bool exact = isExact(a) && isExact(b);
        int n;
        if (exact) {
            n = qMin(settings.SigFigs, int(MaxFigures));
            result.statusText = texts.exactText(settings.SigFigs);
        } else {
            if (isExact(a))
                n = CountSignificantDigits(b);
            else if (isExact(b))
                n = CountSignificantDigits(a);
            else
                n = qMin(CountSignificantDigits(a), CountSignificantDigits(b));
            result.statusText = texts.limitedText(n, settings.SigFigs);
        }
        if (settings.SigFigs < n) {
            n = settings.SigFigs;
            result.moreFiguresAvailable = true;
        } else {
            result.moreFiguresAvailable = false;
        }
        if (exact && n < MaxFigures)
            result.moreFiguresAvailable = true;

        if (n < 1) // the picture "0." with a negative number of zeros cannot be built
            throw RuntimeError { RuntimeError::InvalidCall, {} };
        if (!std::isfinite(v))
            throw RuntimeError { RuntimeError::Overflow, {} };

        const double magnitude = std::fabs(v);
        const bool regular = magnitude <= settings.MaxNumber && !settings.Scientific
            && magnitude >= settings.MinNumber;
        // n is at most 13: the texts below stay well within their buffers.
        char s[64];
        qsizetype length;
        if (!regular) {
            length = NumberText::scientific(v, n, s);
        } else {
            // Round to n figures through the scientific picture, then write the rounded value
            // plainly and pad it with zeros up to n figures.
            char t[MaxFigures + NumberText::ScientificExtra];
            const char *tEnd = t + NumberText::scientific(v, n, t);
            const char *e = std::find(static_cast<const char *>(t), tEnd, 'E');
            // The mantissa's value: its n digits as a whole number, divided by 10^(n - 1). Both
            // are exact doubles, so the quotient is the double nearest the mantissa's decimal
            // value, the same that reading its text gives.
            double digits = 0;
            for (const char *c = t; c < e; ++c)
                if (*c >= '0' && *c <= '9')
                    digits = digits * 10 + (*c - '0');
            double mantissa = digits / PowersOfTen[n - 1];
            if (t[0] == '-')
                mantissa = -mantissa;
            int exponent = 0;
            for (const char *digit = e + 2; digit < tEnd; ++digit)
                exponent = exponent * 10 + (*digit - '0');
            if (e[1] == '-')
                exponent = -exponent;
            // From 10^-22 to 10^22 pow() gives the double nearest the power, as the table
            // holds it; the table saves the call.
            const double r = mantissa
                * (exponent >= -22 && exponent <= 22 ? TenToThe[exponent + 22]
                                                     : std::pow(10.0, double(exponent)));
            if (!std::isfinite(r))
                throw RuntimeError { RuntimeError::Overflow, {} };
            length = NumberText::shortestText(r, s);
            // Beyond the plain range the shortest text carries an exponent: pad the mantissa.
            const qsizetype exponentAt = std::find(s, s + length, 'E') - s;
            char exponentPart[16];
            const qsizetype exponentLength = length - exponentAt;
            std::memcpy(exponentPart, s + exponentAt, size_t(exponentLength));
            length = exponentAt;
            const char *figures = s[0] == '-' ? s + 1 : s;
            bool point = std::find(s, s + length, '.') != s + length;
            int count = countFigures(figures, s + length);
            // A value that rounds to nothing at all (a zero in regular notation) has no figure
            // to pad after: its zeros would never count.
            while (count < n && count > 0) {
                if (!point) {
                    s[length++] = '.';
                    point = true;
                }
                s[length++] = '0';
                count = countFigures(figures, s + length);
            }
            std::memcpy(s + length, exponentPart, size_t(exponentLength));
            length += exponentLength;
        }
        if (settings.Triads) {
            char grouped[2 * sizeof s + 2];
            result.text = QString::fromLatin1(grouped, groupTriads(s, length, grouped));
        } else {
            result.text = QString::fromLatin1(s, length);
        }
    } catch (const RuntimeError &error) {
        result.text.clear();
        result.notice = Notice { Notice::NoIcon, error.messageText(), QString() };
    }
    return result;
}

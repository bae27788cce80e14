// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "convert/NumberText.h"

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace
{

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isExponentLetter(QChar c)
{
    return c == u'E' || c == u'e' || c == u'D' || c == u'd';
}

// The clean ASCII form of a number read from a text; most numbers fit without an allocation.
using CleanNumber = QVarLengthArray<char, 64>;

// Parses an ASCII number "[-]digits[.digits][e[+-]digits]" that is known to be well formed.
// Out-of-range values become an infinity (too large) or zero (too small).
double parseClean(const CleanNumber &clean)
{
    double value = 0;
    const char *first = clean.data();
    const char *last = first + clean.size();
    const bool negative = !clean.empty() && clean.front() == '-';
    if (negative)
        ++first;
    const auto [ptr, ec] = std::from_chars(first, last, value);
    if (ec == std::errc::result_out_of_range) {
        // Decide overflow against underflow from the decimal magnitude of the text.
        const std::string body(first, last);
        const auto e = body.find('e');
        const std::string mantissa = body.substr(0, e);
        const long exponent
            = e == std::string::npos ? 0 : std::strtol(body.c_str() + e + 1, nullptr, 10);
        const auto point = mantissa.find('.');
        const std::string whole = mantissa.substr(0, point);
        long magnitude;
        const auto firstNonZero = whole.find_first_not_of('0');
        if (firstNonZero != std::string::npos) {
            magnitude = long(whole.size() - firstNonZero);
        } else {
            const std::string fraction
                = point == std::string::npos ? std::string() : mantissa.substr(point + 1);
            magnitude = -long(fraction.find_first_not_of('0'));
        }
        // The exponent may be as large as strtol goes: compare without adding to it.
        value = exponent > -magnitude ? std::numeric_limits<double>::infinity() : 0.0;
    } else if (ec != std::errc() || ptr == first) {
        value = 0;
    }
    return negative ? -value : value;
}

// Reads a number from the start of text into clean; blanks and tabs are skipped when lenient.
// Sets how many characters of text it used; clean stays empty when there is no number.
void scanNumber(
    QStringView text, bool skipBlanks, QChar localeDecimal, qsizetype &used, CleanNumber &clean)
{
    bool digitSeen = false, pointSeen = false;
    qsizetype i = 0;
    auto skip = [&] {
        while (i < text.size() && (text[i] == u' ' || text[i] == u'\t'))
            ++i;
    };
    skip();
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) {
        if (text[i] == u'-')
            clean.append('-');
        ++i;
    }
    for (; i < text.size(); ++i) {
        const QChar c = text[i];
        if (skipBlanks && (c == u' ' || c == u'\t'))
            continue;
        if (isDigit(c)) {
            clean.append(char(c.unicode()));
            digitSeen = true;
        } else if ((c == u'.' || c == localeDecimal) && !pointSeen) {
            clean.append('.');
            pointSeen = true;
        } else {
            break;
        }
    }
    used = i;
    if (!digitSeen) {
        used = 0;
        clean.clear();
        return;
    }
    if (i < text.size() && isExponentLetter(text[i])) {
        qsizetype j = i + 1;
        const qsizetype mantissaEnd = clean.size();
        clean.append('e');
        auto skipInExponent = [&] {
            while (skipBlanks && j < text.size() && (text[j] == u' ' || text[j] == u'\t'))
                ++j;
        };
        skipInExponent();
        if (j < text.size() && (text[j] == u'+' || text[j] == u'-'))
            clean.append(char(text[j++].unicode()));
        bool exponentDigits = false;
        for (; j < text.size(); ++j) {
            const QChar c = text[j];
            if (skipBlanks && (c == u' ' || c == u'\t'))
                continue;
            if (!isDigit(c))
                break;
            clean.append(char(c.unicode()));
            exponentDigits = true;
        }
        if (exponentDigits)
            used = j;
        else
            clean.resize(mantissaEnd); // a letter without an exponent is not read
    }
}

// The exponent after the "e" of to_chars: a sign and digits.
int readExponent(const char *sign, const char *end)
{
    int magnitude = 0;
    for (const char *p = sign + 1; p < end; ++p)
        magnitude = magnitude * 10 + (*p - '0');
    return *sign == '-' ? -magnitude : magnitude;
}

} // namespace

double NumberText::leadingNumber(QStringView text)
{
    qsizetype used = 0;
    CleanNumber clean;
    scanNumber(text, true, u'.', used, clean);
    return clean.empty() ? 0.0 : parseClean(clean);
}

NumberText::LeadingNumber NumberText::readLeadingNumber(QStringView text)
{
    LeadingNumber reading;
    CleanNumber clean;
    scanNumber(text, true, u'.', reading.length, clean);
    if (clean.empty())
        return reading;
    reading.value = parseClean(clean);
    reading.hasDigits = true;
    while (reading.length < text.size()
        && (text[reading.length] == u' ' || text[reading.length] == u'\t'))
        ++reading.length;
    return reading;
}

double NumberText::toDouble(QStringView text, QChar localeDecimal)
{
    const QStringView trimmed = text.trimmed();
    qsizetype used = 0;
    CleanNumber clean;
    scanNumber(trimmed, false, localeDecimal, used, clean);
    if (clean.empty() || used != trimmed.size())
        throw RuntimeError { RuntimeError::TypeMismatch, {} };
    const double value = parseClean(clean);
    if (std::isinf(value))
        throw RuntimeError { RuntimeError::Overflow, {} };
    return value;
}

static int toInteger(QStringView text, QChar localeDecimal, double low, double high)
{
    const double value = NumberText::toDouble(text, localeDecimal);
    const double rounded = std::nearbyint(value); // the default rounding mode: half to even
    if (rounded < low || rounded > high)
        throw RuntimeError { RuntimeError::Overflow, {} };
    return int(rounded);
}

int NumberText::toInt16(QStringView text, QChar localeDecimal)
{
    return toInteger(text, localeDecimal, -32768.0, 32767.0);
}

int NumberText::toInt32(QStringView text, QChar localeDecimal)
{
    return toInteger(text, localeDecimal, -2147483648.0, 2147483647.0);
}

bool NumberText::toBoolean(QStringView text, QChar localeDecimal)
{
    const QStringView trimmed = text.trimmed();
    if (trimmed.compare(u"true", Qt::CaseInsensitive) == 0)
        return true;
    if (trimmed.compare(u"false", Qt::CaseInsensitive) == 0)
        return false;
    return toDouble(trimmed, localeDecimal) != 0.0;
}

// Writes value as exactly count decimal digits, leading zeros included.
static inline void writeDigits(char *out, quint32 value, int count)
{
    static constexpr char Pairs[]
        = "0001020304050607080910111213141516171819202122232425262728293031"
          "3233343536373839404142434445464748495051525354555657585960616263"
          "6465666768697071727374757677787980818283848586878889909192939495"
          "96979899";
    int i = count;
    while (i >= 2) {
        const quint32 pair = value % 100;
        value /= 100;
        i -= 2;
        out[i] = Pairs[2 * pair];
        out[i + 1] = Pairs[2 * pair + 1];
    }
    if (i == 1)
        out[0] = char('0' + value % 10);
}

// The 15 significant digits of magnitude as a whole number, quickly, for the values where plain
// floating-point arithmetic can tell them for certain: magnitude times a power of ten (exact
// up to 10^22) is within half a unit in the last place of the true product, at most 1/16 for
// products below 10^15; unless that product lies that close to a rounding tie, rounding it
// gives the digits that an exact conversion gives. False leaves the work to the exact one.
static bool quickDigits(double magnitude, qint64 &digits, int &exponent)
{
    static constexpr double Powers[23] = { 1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10,
        1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22 };
    if (!(magnitude >= 1e-8 && magnitude < 1e36))
        return false;
    // The decade from the binary exponent: magnitude = f * 2^binary with 0.5 <= f < 1, so its
    // decade is this one or the next; the loop moves to the right one.
    quint64 bits;
    std::memcpy(&bits, &magnitude, sizeof bits);
    const int binary = int((bits >> 52) & 0x7ff) - 1022;
    int decade = int((binary - 1) * 0.30102999566398120); // within one of the right decade
    for (int attempt = 0; attempt < 3; ++attempt) {
        const int shift = 14 - decade;
        if (shift > 22 || shift < -22)
            return false;
        const double product = shift >= 0 ? magnitude * Powers[shift] : magnitude / Powers[-shift];
        if (product < 1e14) {
            --decade;
            continue;
        }
        if (product >= 1e15) {
            ++decade;
            continue;
        }
        const qint64 whole = qint64(product);
        const double fraction = product - double(whole); // exact below 2^52
        if (std::fabs(fraction - 0.5) <= 0.0625)
            return false;
        digits = whole + (fraction > 0.5 ? 1 : 0);
        if (digits >= 1000000000000000) // rounds up into the next decade
            return false;
        exponent = decade;
        return true;
    }
    return false;
}

void NumberText::decimalDigits(double value, char (&digits)[16], int &exponent)
{
    const double magnitude = std::fabs(value);
    qint64 whole = 0;
    if (quickDigits(magnitude, whole, exponent)) {
        // Two halves that fit 32 bits, written two digits at a time.
        writeDigits(digits, quint32(whole / 100000000), 7);
        writeDigits(digits + 7, quint32(whole % 100000000), 8);
        return;
    }
    char buffer[40];
    const auto result = std::to_chars(
        buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific, 14);
    // buffer holds "d.dddddddddddddde±xx"
    digits[0] = buffer[0];
    std::memcpy(digits + 1, buffer + 2, 14);
    exponent = readExponent(buffer + 17, result.ptr);
}

// Writes a non-negative whole number in decimal; returns the position after it.
static char *writeDecimal(char *out, int number)
{
    char reversed[12];
    int count = 0;
    do {
        reversed[count++] = char('0' + number % 10);
        number /= 10;
    } while (number > 0);
    while (count > 0)
        *out++ = reversed[--count];
    return out;
}

QString NumberText::shortestText(double value)
{
    char buffer[ShortestTextCapacity];
    return QString::fromLatin1(buffer, shortestText(value, buffer));
}

qsizetype NumberText::shortestText(double value, char *buffer)
{
    char *out = buffer;
    if (value == 0) {
        *out++ = '0';
        return out - buffer;
    }
    if (!std::isfinite(value)) {
        const QByteArray text = QString::number(value).toLatin1();
        std::memcpy(buffer, text.constData(), size_t(text.size()));
        return text.size();
    }
    char digits[16];
    int exponent = 0;
    decimalDigits(value, digits, exponent);
    int count = 15;
    while (count > 1 && digits[count - 1] == '0')
        --count;
    if (value < 0)
        *out++ = '-';
    if (exponent >= -9 && exponent <= 14) {
        if (exponent < 0) {
            *out++ = '0';
            *out++ = '.';
            for (int i = 0; i < -exponent - 1; ++i)
                *out++ = '0';
            out = std::copy(digits, digits + count, out);
        } else if (count <= exponent + 1) {
            out = std::copy(digits, digits + count, out);
            for (int i = 0; i < exponent + 1 - count; ++i)
                *out++ = '0';
        } else {
            out = std::copy(digits, digits + exponent + 1, out);
            *out++ = '.';
            out = std::copy(digits + exponent + 1, digits + count, out);
        }
        return out - buffer;
    }
    *out++ = digits[0];
    if (count > 1) {
        *out++ = '.';
        out = std::copy(digits + 1, digits + count, out);
    }
    *out++ = 'E';
    *out++ = exponent < 0 ? '-' : '+';
    out = writeDecimal(out, std::abs(exponent));
    return out - buffer;
}

QString NumberText::scientific(double value, int figures)
{
    QVarLengthArray<char, 64> buffer(figures + ScientificExtra);
    return QString::fromLatin1(buffer.data(), scientific(value, figures, buffer.data()));
}

qsizetype NumberText::scientific(double value, int figures, char *buffer)
{
    // The mantissa's digits are written straight into place: buffer[1] onwards, leaving room
    // for a sign in front; the point goes in afterwards.
    char *mantissa = buffer + 1;
    int exponent = 0;
    if (value == 0) {
        std::memset(mantissa, '0', size_t(figures));
    } else {
        char digits[16];
        decimalDigits(value, digits, exponent);
        if (figures < 15) {
            std::memcpy(mantissa, digits, size_t(figures));
            if (digits[figures] >= '5') {
                int i = figures - 1;
                while (i >= 0 && mantissa[i] == '9')
                    mantissa[i--] = '0';
                if (i >= 0) {
                    ++mantissa[i];
                } else {
                    mantissa[0] = '1'; // all nines rounded up: 10.00 becomes 1.000, one place up
                    ++exponent;
                }
            }
        } else {
            std::memcpy(mantissa, digits, 15);
            std::memset(mantissa + 15, '0', size_t(figures - 15));
        }
    }
    char *out = buffer;
    if (value < 0)
        *out++ = '-';
    const char first = mantissa[0];
    if (figures > 1) {
        // Shift the digits after the first one place right to make room for the point.
        std::memmove(out + 2, mantissa + 1, size_t(figures - 1));
        out[0] = first;
        out[1] = '.';
        out += figures + 1;
    } else {
        *out++ = first;
    }
    *out++ = 'E';
    *out++ = exponent < 0 ? '-' : '+';
    out = writeDecimal(out, std::abs(exponent));
    return out - buffer;
}

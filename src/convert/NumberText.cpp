// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "convert/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
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

// Parses an ASCII number "[-]digits[.digits][e[+-]digits]" that is known to be well formed.
// Out-of-range values become an infinity (too large) or zero (too small).
double parseClean(const std::string &clean)
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
        value = magnitude + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    } else if (ec != std::errc() || ptr == first) {
        value = 0;
    }
    return negative ? -value : value;
}

// Reads a number from the start of text; blanks and tabs are skipped when lenient. Returns the
// clean ASCII form and how many characters of text it used.
std::string scanNumber(QStringView text, bool skipBlanks, QChar localeDecimal, qsizetype &used)
{
    std::string clean;
    bool digitSeen = false, pointSeen = false;
    qsizetype i = 0;
    auto skip = [&] {
        while (i < text.size() && (text[i] == u' ' || text[i] == u'\t'))
            ++i;
    };
    skip();
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) {
        if (text[i] == u'-')
            clean += '-';
        ++i;
    }
    for (; i < text.size(); ++i) {
        const QChar c = text[i];
        if (skipBlanks && (c == u' ' || c == u'\t'))
            continue;
        if (isDigit(c)) {
            clean += char(c.unicode());
            digitSeen = true;
        } else if ((c == u'.' || c == localeDecimal) && !pointSeen) {
            clean += '.';
            pointSeen = true;
        } else {
            break;
        }
    }
    used = i;
    if (!digitSeen) {
        used = 0;
        return std::string();
    }
    if (i < text.size() && isExponentLetter(text[i])) {
        qsizetype j = i + 1;
        std::string exponent = "e";
        auto skipInExponent = [&] {
            while (skipBlanks && j < text.size() && (text[j] == u' ' || text[j] == u'\t'))
                ++j;
        };
        skipInExponent();
        if (j < text.size() && (text[j] == u'+' || text[j] == u'-'))
            exponent += char(text[j++].unicode());
        bool exponentDigits = false;
        for (; j < text.size(); ++j) {
            const QChar c = text[j];
            if (skipBlanks && (c == u' ' || c == u'\t'))
                continue;
            if (!isDigit(c))
                break;
            exponent += char(c.unicode());
            exponentDigits = true;
        }
        if (exponentDigits) {
            clean += exponent;
            used = j;
        }
    }
    return clean;
}

} // namespace

double NumberText::leadingNumber(QStringView text)
{
    qsizetype used = 0;
    const std::string clean = scanNumber(text, true, u'.', used);
    return clean.empty() ? 0.0 : parseClean(clean);
}

double NumberText::toDouble(QStringView text, QChar localeDecimal)
{
    const QStringView trimmed = text.trimmed();
    qsizetype used = 0;
    const std::string clean = scanNumber(trimmed, false, localeDecimal, used);
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

void NumberText::decimalDigits(double value, char (&digits)[16], int &exponent)
{
    char buffer[40];
    const auto result = std::to_chars(
        buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific, 14);
    // buffer holds "d.dddddddddddddde±xx"
    digits[0] = buffer[0];
    for (int i = 0; i < 14; ++i)
        digits[i + 1] = buffer[i + 2];
    exponent = std::atoi(std::string(buffer + 17, result.ptr).c_str());
}

QString NumberText::shortestText(double value)
{
    if (value == 0 || !std::isfinite(value))
        return value == 0 ? QStringLiteral("0") : QString::number(value);
    char digits[16];
    int exponent = 0;
    decimalDigits(value, digits, exponent);
    int count = 15;
    while (count > 1 && digits[count - 1] == '0')
        --count;
    QString text;
    if (value < 0)
        text += u'-';
    if (exponent >= -9 && exponent <= 14) {
        if (exponent < 0) {
            text += QStringLiteral("0.") + QString(-exponent - 1, u'0');
            text += QString::fromLatin1(digits, count);
        } else if (count <= exponent + 1) {
            text += QString::fromLatin1(digits, count) + QString(exponent + 1 - count, u'0');
        } else {
            text += QString::fromLatin1(digits, exponent + 1) + u'.'
                + QString::fromLatin1(digits + exponent + 1, count - exponent - 1);
        }
        return text;
    }
    text += QLatin1Char(digits[0]);
    if (count > 1)
        text += u'.' + QString::fromLatin1(digits + 1, count - 1);
    text += exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+");
    text += QString::number(std::abs(exponent));
    return text;
}

QString NumberText::scientific(double value, int figures)
{
    int exponent = 0;
    QByteArray mantissa;
    if (value == 0) {
        mantissa = QByteArray(figures, '0');
    } else {
        char digits[16];
        decimalDigits(value, digits, exponent);
        mantissa = QByteArray(digits, 15);
        if (figures < 15) {
            const bool roundUp = mantissa[figures] >= '5';
            mantissa.truncate(figures);
            if (roundUp) {
                int i = figures - 1;
                while (i >= 0 && mantissa[i] == '9')
                    mantissa[i--] = '0';
                if (i >= 0) {
                    ++mantissa[i];
                } else {
                    mantissa.prepend('1');
                    mantissa.chop(1);
                    ++exponent;
                }
            }
        } else {
            mantissa += QByteArray(figures - 15, '0');
        }
    }
    QString text;
    if (value < 0)
        text += u'-';
    text += QLatin1Char(mantissa[0]);
    if (figures > 1)
        text += u'.' + QString::fromLatin1(mantissa.constData() + 1, figures - 1);
    text += exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+");
    text += QString::number(std::abs(exponent));
    return text;
}

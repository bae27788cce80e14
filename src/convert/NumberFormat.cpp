// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "convert/NumberFormat.h"

#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "convert/RuntimeError.h"
#include "shell/Settings.h"

#include <cmath>

namespace StringId
{
constexpr int ExactFactors = 5600;
constexpr int ClosingParenthesis = 5602;
constexpr int Max = 430;
constexpr int Current = 369;
} // namespace StringId

static const QString Exact = QStringLiteral("x");

int NumberFormat::CountSignificantDigits(const QString &text)
{
    QString t = text.trimmed();
    if (t.startsWith(u'-'))
        t.remove(0, 1);
    const qsizetype e = t.indexOf(u'e', 0, Qt::CaseInsensitive);
    if (e >= 0)
        t.truncate(e);
    else if (t.contains(u'd', Qt::CaseInsensitive))
        throw RuntimeError { RuntimeError::InvalidCall, {} }; // a "D" exponent is not cut off
    int count = 0;
    for (QChar c : std::as_const(t)) {
        if (c == u'.')
            continue;
        if (c != u'0' || count > 0)
            ++count;
    }
    return count >= 14 ? MaxFigures : count;
}

// Copies text right to left, putting a blank in front after every third character. A leading
// minus sign is not counted and never gets a blank after it.
static QString groupFromRight(QStringView text)
{
    QString sign;
    if (text.startsWith(u'-')) {
        sign = QStringLiteral("-");
        text = text.sliced(1);
    }
    QString out;
    int counted = 0;
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        out.prepend(text[i]);
        if (++counted % 3 == 0)
            out.prepend(u' ');
    }
    return sign + out.trimmed();
}

QString NumberFormat::triads(const QString &s)
{
    const qsizetype point = s.indexOf(u'.');
    if (point < 0)
        return s.size() > 3 ? groupFromRight(s) : s;
    const QString integer = s.left(point);
    const QString fraction = s.mid(point + 1);
    const qsizetype e = fraction.indexOf(u'e', 0, Qt::CaseInsensitive);
    const QString digits = e >= 0 ? fraction.left(e) : fraction;
    const QString exponent = e >= 0 ? fraction.mid(e) : QString();
    QString grouped;
    for (qsizetype i = 0; i < digits.size(); ++i) {
        grouped += digits[i];
        if ((i + 1) % 3 == 0)
            grouped += u' ';
    }
    const QString left = integer.size() > 3 ? groupFromRight(integer) : integer;
    return (left + u'.' + grouped + exponent).trimmed();
}

FormattedResult NumberFormat::FormatResult(
    double v, const QString &a, const QString &b, const Settings &settings)
{
    FormattedResult result;
    try {
        const bool exact = a == Exact && b == Exact;
        int n;
        const QString current = StringTable::text(StringId::Current)
            + QString::number(settings.SigFigs) + StringTable::text(StringId::ClosingParenthesis);
        if (exact) {
            n = qMin(settings.SigFigs, int(MaxFigures));
            result.statusText = StringTable::text(StringId::ExactFactors) + current;
        } else {
            if (a == Exact)
                n = CountSignificantDigits(b);
            else if (b == Exact)
                n = CountSignificantDigits(a);
            else
                n = qMin(CountSignificantDigits(a), CountSignificantDigits(b));
            result.statusText = StringTable::text(StringId::Max) + QString::number(n) + current;
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
        QString s;
        if (!regular) {
            s = NumberText::scientific(v, n);
        } else {
            // Round to n figures through the scientific picture, then write the rounded value
            // plainly and pad it with zeros up to n figures.
            const QString t = NumberText::scientific(v, n);
            const qsizetype e = t.indexOf(u'E');
            const double r = NumberText::leadingNumber(QStringView(t).first(e))
                * std::pow(10.0, NumberText::leadingNumber(QStringView(t).sliced(e + 1)));
            if (!std::isfinite(r))
                throw RuntimeError { RuntimeError::Overflow, {} };
            s = NumberText::shortestText(r);
            // Beyond the plain range the shortest text carries an exponent: pad the mantissa.
            const qsizetype exponentAt = s.indexOf(u'E');
            QString mantissa = exponentAt < 0 ? s : s.left(exponentAt);
            const QString exponentPart = exponentAt < 0 ? QString() : s.mid(exponentAt);
            while (CountSignificantDigits(mantissa) < n)
                mantissa += mantissa.contains(u'.') ? QStringLiteral("0") : QStringLiteral(".0");
            s = mantissa + exponentPart;
        }
        result.text = settings.Triads ? triads(s) : s;
    } catch (const RuntimeError &error) {
        result.text.clear();
        result.notice = Notice { Notice::NoIcon, error.messageText(), QString() };
    }
    return result;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "convert/ConversionEngine.h"

#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "convert/RuntimeError.h"
#include "shell/Session.h"
#include "shell/Settings.h"

#include <cmath>

namespace StringId
{
constexpr int TooBig = 28;
constexpr int TryAgain = 321;
constexpr int EnterNumber = 367;
constexpr int ChooseUnits = 368;
constexpr int BelowAbsoluteZero = 371;
constexpr int Celsius = 3001;
constexpr int Kelvin = 3002;
constexpr int Fahrenheit = 3003;
constexpr int Rankine = 3004;
} // namespace StringId

static const QString Exact = QStringLiteral("x");

static double checked(double value)
{
    if (!std::isfinite(value))
        throw RuntimeError { RuntimeError::Overflow, {} };
    return value;
}

// The same as a == b, sooner for the names a unit scan passes over: those differ in length or
// in their first or last character; and a caller may hand over the catalogue's own text.
static inline bool sameName(const QString &a, const QString &b)
{
    const qsizetype size = a.size();
    if (size != b.size())
        return false;
    const QChar *x = a.constData();
    const QChar *y = b.constData();
    if (size == 0 || x == y)
        return true;
    return x[0] == y[0] && x[size - 1] == y[size - 1] && a == b;
}

void ConversionResult::take(const FormattedResult &formatted)
{
    text = formatted.text;
    if (formatted.statusText)
        statusText = formatted.statusText;
    if (formatted.moreFiguresAvailable)
        moreFiguresAvailable = formatted.moreFiguresAvailable;
    if (formatted.notice)
        notices.append(*formatted.notice);
}

ConversionEngine::ConversionEngine(
    const Catalogue &catalogue, const Settings &settings, Session &session)
    : m_catalogue(catalogue)
    , m_settings(settings)
    , m_session(session)
{
}

ConversionResult ConversionEngine::Convert(
    const QString &fromUnit, const QString &toUnit, double value) const
{
    checked(value);
    if (m_catalogue.isTemperature(m_catalogue.CurrentQuantity))
        return convertTemperature(fromUnit, toUnit, value);
    return convertProportional(fromUnit, toUnit, value);
}

ConversionResult ConversionEngine::convertProportional(
    const QString &fromUnit, const QString &toUnit, double value) const
{
    const int q = m_catalogue.CurrentQuantity;
    double fromFactor = 0, toInverse = 0;
    bool fromExact = false, toExact = false;
    QString fromText, toText;
    const int count
        = q >= 1 && q <= m_catalogue.QuantityCount ? m_catalogue.Quantities[q].UnitCount : 0;
    const UnitEntry *units = count > 0 ? m_catalogue.Units[q].constData() : nullptr;
    for (int j = 1; j <= count; ++j) {
        const UnitEntry &u = units[j];
        if (sameName(u.Name, fromUnit)) {
            fromFactor = u.Factor;
            fromText = u.FactorText;
            fromExact = u.Exact == 1;
        }
        if (sameName(u.Name, toUnit)) {
            if (u.Factor == 0)
                throw RuntimeError { RuntimeError::DivisionByZero, {} };
            toInverse = checked(1.0 / u.Factor); // the reciprocal, taken once
            toText = u.FactorText;
            toExact = u.Exact == 1;
        }
        if (fromFactor != 0 && toInverse != 0)
            break;
    }
    const double result = checked(checked(value * fromFactor) * toInverse);

    // Identical factor texts cancel: the result counts as exact.
    const bool same = fromText == toText;
    const QString first = same || fromExact ? Exact : fromText;
    const QString second = same || toExact ? Exact : toText;
    ConversionResult converted;
    converted.take(NumberFormat::FormatResult(result, first, second, m_settings));
    return converted;
}

ConversionResult ConversionEngine::convertTemperature(
    const QString &fromUnit, const QString &toUnit, double value) const
{
    ConversionResult converted;
    if (fromUnit == toUnit) {
        converted.take(NumberFormat::FormatResult(value, Exact, Exact, m_settings));
        return converted;
    }
    // The scale names, read once: the string table never changes while the program runs.
    // The Celsius name is the default unit's text without its "*" mark.
    static const QString celsius = StringTable::text(StringId::Celsius).right(12);
    static const QString kelvin = StringTable::text(StringId::Kelvin);
    static const QString fahrenheit = StringTable::text(StringId::Fahrenheit);
    static const QString rankine = StringTable::text(StringId::Rankine);

    double c = 0;
    if (fromUnit == celsius)
        c = value;
    else if (fromUnit == kelvin)
        c = value - 273.15;
    else if (fromUnit == fahrenheit)
        c = (value - 32) / 1.8;
    else if (fromUnit == rankine)
        c = value / 1.8 - 273.15;
    checked(c);

    if (c < -273.15) {
        converted.notices.append(Notice {
            Notice::Information, StringTable::text(StringId::BelowAbsoluteZero), QString() });
        if (fromUnit == celsius)
            converted.replacedEntry = QStringLiteral("-273.15");
        else if (fromUnit == fahrenheit)
            converted.replacedEntry = QStringLiteral("-459.67");
        else
            converted.replacedEntry = QStringLiteral("0");
        c = -273.15;
    }

    double output = 0;
    if (toUnit == celsius)
        output = c;
    else if (toUnit == kelvin)
        output = c - (-273.15);
    else if (toUnit == fahrenheit)
        output = c * 1.8 - (-32);
    else if (toUnit == rankine)
        output = (c - (-273.15)) * 1.8;
    checked(output);

    converted.take(NumberFormat::FormatResult(output, Exact, Exact, m_settings));
    return converted;
}

ConversionResult ConversionEngine::convertCaught(
    const QString &fromUnit, const QString &toUnit, double value) const
{
    try {
        return Convert(fromUnit, toUnit, value);
    } catch (const RuntimeError &error) {
        ConversionResult failed;
        if (error.number == RuntimeError::Overflow) {
            failed.notices.append(Notice { Notice::Exclamation,
                StringTable::text(StringId::TooBig) + QStringLiteral("\n\n")
                    + StringTable::text(StringId::TryAgain),
                QString() });
        } else {
            failed.notices.append(Notice { Notice::NoIcon, error.description(), QString() });
        }
        return failed;
    }
}

ConversionResult ConversionEngine::UpdateResult(
    const QString &leftUnit, const QString &rightUnit, const QString &valueText) const
{
    const bool complete = !leftUnit.isEmpty() && !rightUnit.isEmpty() && !valueText.isEmpty();
    ConversionResult result;
    if (m_session.SkipNextUpdate) {
        m_session.SkipNextUpdate = false;
    } else if (valueText.isEmpty()) {
        result.text = StringTable::text(StringId::EnterNumber);
    } else if (leftUnit.isEmpty() || rightUnit.isEmpty()) {
        result.text = StringTable::text(StringId::ChooseUnits);
    } else {
        result = convertCaught(leftUnit, rightUnit, NumberText::leadingNumber(valueText));
    }
    result.markEnabled = complete;
    return result;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/CliConverter.h"

#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "cli/CliText.h"

CliConverter::CliConverter(Catalogue &catalogue, const Settings &settings)
    : m_catalogue(catalogue)
    , m_engine(catalogue, settings, m_session)
    , m_lookup(catalogue)
{
}

bool CliConverter::isNumber(QStringView value)
{
    return NumberText::readLeadingNumber(value).hasDigits;
}

QString CliConverter::readAs(const QString &value)
{
    return readAs(value, NumberText::readLeadingNumber(value));
}

QString CliConverter::readAs(const QString &value, const NumberText::LeadingNumber &reading)
{
    if (!reading.readInPart(value.size()))
        return QString();
    return CliText::valueReadAs(value, NumberText::shortestText(reading.value));
}

QString CliConverter::messageText(const QString &text)
{
    static constexpr int TryAgainId = 321;
    static const QString tryAgain = QStringLiteral("\n\n") + StringTable::text(TryAgainId);
    return text.endsWith(tryAgain) ? text.chopped(tryAgain.size()) : text;
}

CliConverter::Outcome CliConverter::convert(
    const QString &value, const QString &from, const QString &to, const QString &quantity)
{
    if (!isNumber(value)) {
        Outcome refused;
        refused.exitStatus = BadInput;
        refused.errors.append(CliText::notANumber(value));
        return refused;
    }
    return convertResolved(value, m_lookup.resolve(from, to, quantity));
}

CliConverter::Outcome CliConverter::convertResolved(
    const QString &value, const UnitLookup::Resolution &resolution)
{
    Outcome outcome;
    const NumberText::LeadingNumber reading = NumberText::readLeadingNumber(value);
    if (!reading.hasDigits) {
        outcome.exitStatus = BadInput;
        outcome.errors.append(CliText::notANumber(value));
        return outcome;
    }
    if (!resolution.ok()) {
        outcome.exitStatus = BadInput;
        outcome.errors.append(resolution.error);
        return outcome;
    }
    outcome.note = readAs(value, reading);
    m_catalogue.CurrentQuantity = resolution.quantity;
    const auto &units = m_catalogue.Units[resolution.quantity];
    // What UpdateResult does with a value and two units, without reading the value again.
    ConversionResult result = m_engine.convertCaught(
        units[resolution.fromUnit].Name, units[resolution.toUnit].Name, reading.value);
    outcome.text = std::move(result.text);
    if (result.statusText)
        outcome.statusText = std::move(*result.statusText);
    qsizetype firstError = 0;
    if (result.replacedEntry && !result.notices.isEmpty()) {
        // Below absolute zero: the window corrects the value and converts that.
        outcome.warning = messageText(result.notices.first().text)
            + CliText::valueTakenAs(*result.replacedEntry);
        firstError = 1;
    }
    for (qsizetype i = firstError; i < result.notices.size(); ++i)
        outcome.errors.append(messageText(result.notices[i].text));
    if (!outcome.errors.isEmpty())
        outcome.exitStatus = ConversionFailed;
    return outcome;
}

UnitReport CliConverter::report(
    const QString &value, const UnitLookup::Resolution &resolution, QList<Notice> *notices)
{
    m_catalogue.CurrentQuantity = resolution.quantity;
    const int q = resolution.quantity;
    return UnitReport::convert(m_engine, value, m_catalogue.Units[q][resolution.fromUnit].Name,
        m_catalogue.Quantities[q].Name, m_catalogue.enabledUnitNames(q), notices);
}

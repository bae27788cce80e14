// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/CliConverter.h"

#include "catalogue/Catalogue.h"
#include "cli/CliText.h"
#include "convert/NumberFilter.h"

CliConverter::CliConverter(Catalogue &catalogue, const Settings &settings)
    : m_catalogue(catalogue)
    , m_engine(catalogue, settings, m_session)
    , m_lookup(catalogue)
{
}

bool CliConverter::isNumber(QStringView value)
{
    // The filter always keeps a leading sign or digit; only other texts need the whole scan.
    if (!value.isEmpty()) {
        const QChar first = value.front();
        if ((first >= u'0' && first <= u'9') || first == u'-' || first == u'+')
            return true;
    }
    return !NumberFilter::filter(value.toString()).isEmpty();
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
    if (!isNumber(value)) {
        outcome.exitStatus = BadInput;
        outcome.errors.append(CliText::notANumber(value));
        return outcome;
    }
    if (!resolution.ok()) {
        outcome.exitStatus = BadInput;
        outcome.errors.append(resolution.error);
        return outcome;
    }
    m_catalogue.CurrentQuantity = resolution.quantity;
    const auto &units = m_catalogue.Units[resolution.quantity];
    ConversionResult result = m_engine.UpdateResult(
        units[resolution.fromUnit].Name, units[resolution.toUnit].Name, value);
    outcome.text = std::move(result.text);
    if (result.statusText)
        outcome.statusText = std::move(*result.statusText);
    qsizetype firstError = 0;
    if (result.replacedEntry && !result.notices.isEmpty()) {
        // Below absolute zero: the window corrects the value and converts that.
        outcome.warning
            = result.notices.first().text + CliText::valueTakenAs(*result.replacedEntry);
        firstError = 1;
    }
    for (qsizetype i = firstError; i < result.notices.size(); ++i)
        outcome.errors.append(result.notices[i].text);
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

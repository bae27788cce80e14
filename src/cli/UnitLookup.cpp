// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/UnitLookup.h"

#include "catalogue/Catalogue.h"
#include "cli/CliText.h"

#include <algorithm>

UnitLookup::UnitLookup(const Catalogue &catalogue)
    : m_catalogue(catalogue)
    , m_matcher(catalogue)
{
}

UnitLookup::QuantityAnswer UnitLookup::findQuantity(const QString &name)
{
    const auto cached = m_quantityCache.constFind(name);
    if (cached != m_quantityCache.constEnd())
        return *cached;

    QuantityAnswer answer;
    int folded = 0;
    int switchedOff = 0;
    for (int q = 1; q <= m_catalogue.QuantityCount && answer.quantity == 0; ++q) {
        const PhysicalQuantity &quantity = m_catalogue.Quantities[q];
        const bool exact = quantity.Name == name;
        const bool sameLetters = exact || quantity.Name.compare(name, Qt::CaseInsensitive) == 0;
        if (!sameLetters)
            continue;
        if (!quantity.enabled()) {
            if (switchedOff == 0)
                switchedOff = q;
        } else if (exact) {
            answer.quantity = q;
        } else if (folded == 0) {
            folded = q;
        }
    }
    if (answer.quantity == 0)
        answer.quantity = folded;
    if (answer.quantity == 0) {
        if (switchedOff != 0)
            answer.error = CliText::quantitySwitchedOff(m_catalogue.Quantities[switchedOff].Name);
        else
            answer.error = CliText::unknownQuantity(name, quantitySuggestions(name));
    }
    return *m_quantityCache.insert(name, answer);
}

UnitLookup::Resolution UnitLookup::resolve(
    const QString &from, const QString &to, const QString &quantityName)
{
    Resolution resolution;
    int q = 0;
    if (!quantityName.isEmpty()) {
        const QuantityAnswer answer = findQuantity(quantityName);
        if (!answer.error.isEmpty()) {
            resolution.error = answer.error;
            return resolution;
        }
        q = answer.quantity;
    } else {
        if (m_matcher.matches(from).isEmpty()) {
            resolution.error = unitError(from, 0);
            return resolution;
        }
        if (m_matcher.matches(to).isEmpty()) {
            resolution.error = unitError(to, 0);
            return resolution;
        }
        const UnitMatcher::QuantityChoice common = m_matcher.quantityOf(from, to);
        if (common.outcome == UnitMatcher::Outcome::None) {
            resolution.error = CliText::noCommonQuantity(from,
                quantityNames(m_matcher.matches(from)), to, quantityNames(m_matcher.matches(to)));
            return resolution;
        }
        if (common.outcome == UnitMatcher::Outcome::Ambiguous) {
            QStringList names;
            for (int quantity : common.quantities)
                names.append(m_catalogue.Quantities[quantity].Name);
            resolution.error = CliText::severalQuantities(from, to, names);
            return resolution;
        }
        q = common.quantities.first();
    }

    const UnitMatcher::Choice fromChoice = m_matcher.best(from, q);
    resolution.error = choiceError(from, fromChoice, q);
    if (!resolution.ok())
        return resolution;
    const UnitMatcher::Choice toChoice = m_matcher.best(to, q);
    resolution.error = choiceError(to, toChoice, q);
    if (!resolution.ok())
        return resolution;
    resolution.quantity = q;
    resolution.fromUnit = fromChoice.candidates.first().unit;
    resolution.toUnit = toChoice.candidates.first().unit;
    return resolution;
}

UnitLookup::Resolution UnitLookup::resolveUnit(const QString &name, const QString &quantityName)
{
    Resolution resolution;
    int q = 0;
    if (!quantityName.isEmpty()) {
        const QuantityAnswer answer = findQuantity(quantityName);
        if (!answer.error.isEmpty()) {
            resolution.error = answer.error;
            return resolution;
        }
        q = answer.quantity;
    }
    const UnitMatcher::Choice choice = m_matcher.best(name, q);
    resolution.error = choiceError(name, choice, q);
    if (resolution.ok()) {
        resolution.quantity = choice.candidates.first().quantity;
        resolution.fromUnit = resolution.toUnit = choice.candidates.first().unit;
    }
    return resolution;
}

// Why a choice of the matcher names no one unit (searched in quantity q, or anywhere when q is
// 0), or nothing when it does: several units of one quantity, or units of several quantities,
// tied at the best rank.
QString UnitLookup::choiceError(const QString &name, const UnitMatcher::Choice &choice, int q)
{
    if (choice.outcome == UnitMatcher::Outcome::None)
        return unitError(name, q);
    if (choice.outcome == UnitMatcher::Outcome::Found)
        return QString();
    const QVector<UnitMatcher::Match> &tied = choice.candidates;
    const int first = tied.first().quantity;
    const bool oneQuantity = std::all_of(tied.cbegin(), tied.cend(),
        [first](const UnitMatcher::Match &match) { return match.quantity == first; });
    if (!oneQuantity)
        return CliText::unitOfSeveralQuantities(name, quantityNames(tied));
    QStringList units;
    for (const UnitMatcher::Match &match : tied)
        units.append(m_catalogue.Units[first][match.unit].Name);
    return CliText::ambiguousUnit(name, m_catalogue.Quantities[first].Name, units);
}

QString UnitLookup::unitError(const QString &name, int q)
{
    const QString switchedOff = switchedOffUnit(name, q);
    if (!switchedOff.isEmpty())
        return switchedOff;
    QStringList suggestions;
    for (const UnitMatcher::UnitRef &unit : m_matcher.closest(name, q, MaxSuggestions)) {
        const QString &unitName = m_catalogue.Units[unit.quantity][unit.unit].Name;
        suggestions.append(q != 0
                ? unitName
                : CliText::unitOfQuantity(unitName, m_catalogue.Quantities[unit.quantity].Name));
    }
    return CliText::unknownUnit(name, q ? m_catalogue.Quantities[q].Name : QString(), suggestions);
}

// The message for a name that means a unit the catalogue has switched off, or its quantity.
QString UnitLookup::switchedOffUnit(const QString &name, int q) const
{
    const int first = q ? q : 1;
    const int last = q ? q : m_catalogue.QuantityCount;
    for (int i = first; i <= last; ++i) {
        const PhysicalQuantity &quantity = m_catalogue.Quantities[i];
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            const UnitEntry &unit = m_catalogue.Units[i][j];
            if ((!unit.enabled() || !quantity.enabled())
                && unit.Name.compare(name, Qt::CaseInsensitive) == 0) {
                return quantity.enabled() ? CliText::unitSwitchedOff(unit.Name, quantity.Name)
                                          : CliText::quantitySwitchedOff(quantity.Name);
            }
        }
    }
    return QString();
}

QStringList UnitLookup::quantitySuggestions(const QString &name) const
{
    QStringList names;
    for (int q = 1; q <= m_catalogue.QuantityCount; ++q)
        if (m_catalogue.Quantities[q].enabled())
            names.append(m_catalogue.Quantities[q].Name);
    QStringList suggestions;
    for (int i : UnitMatcher::closestNames(name, names, MaxSuggestions))
        suggestions.append(names[i]);
    return suggestions;
}

// The quantities of the matches, each once, in the order of the matches.
QStringList UnitLookup::quantityNames(const QVector<UnitMatcher::Match> &matches) const
{
    QStringList names;
    for (const UnitMatcher::Match &match : matches) {
        const QString &name = m_catalogue.Quantities[match.quantity].Name;
        if (!names.contains(name))
            names.append(name);
    }
    return names;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/UnitLookup.h"

#include "catalogue/Catalogue.h"
#include "cli/CliText.h"

#include <algorithm>

namespace
{

// "watt (J/s) (W)" -> bare name "watt", symbols "J/s" and "W".
void splitBrackets(const QString &name, QString &bare, QStringList &symbols)
{
    const QStringView text(name);
    qsizetype depth = 0, open = 0, outside = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'(') {
            if (depth++ == 0) {
                bare += text.sliced(outside, i - outside);
                open = i;
            }
        } else if (text[i] == u')' && depth > 0 && --depth == 0) {
            const QStringView symbol = text.sliced(open + 1, i - open - 1).trimmed();
            if (!symbol.isEmpty())
                symbols.append(symbol.toString());
            outside = i + 1;
        }
    }
    if (depth == 0) // an unclosed bracket runs to the end of the name
        bare += text.sliced(outside);
    // Blanks are left where the brackets were; most names need no more than a trim.
    bool runs = false;
    for (qsizetype i = 0; i < bare.size() && !runs; ++i)
        runs = bare[i].isSpace()
            && (bare[i] != u' ' || (i + 1 < bare.size() && bare[i + 1].isSpace()));
    bare = runs ? bare.simplified() : bare.trimmed();
}

struct Named {
    QString shown;
    QString name; // what is matched
};

// Names that begin with the text, then names that contain it; failing both, names that begin
// like it (the text cut back a character at a time, down to three).
QStringList closest(const QString &text, const QVector<Named> &names)
{
    const QString wanted = text.simplified();
    QStringList found;
    auto add = [&](const QString &shown) {
        if (found.size() < UnitLookup::MaxSuggestions && !found.contains(shown))
            found.append(shown);
    };
    if (!wanted.isEmpty()) {
        for (const Named &name : names)
            if (name.name.startsWith(wanted, Qt::CaseInsensitive))
                add(name.shown);
        for (const Named &name : names)
            if (name.name.contains(wanted, Qt::CaseInsensitive))
                add(name.shown);
    }
    for (qsizetype length = wanted.size() - 1; found.isEmpty() && length >= 3; --length) {
        const QString start = wanted.left(length);
        for (const Named &name : names)
            if (name.name.startsWith(start, Qt::CaseInsensitive))
                add(name.shown);
    }
    return found;
}

} // namespace

UnitLookup::UnitLookup(const Catalogue &catalogue)
    : m_catalogue(catalogue)
{
    for (int q = 1; q <= catalogue.QuantityCount; ++q) {
        if (!catalogue.Quantities[q].enabled())
            continue;
        for (int j = 1; j <= catalogue.Quantities[q].UnitCount; ++j) {
            const UnitEntry &unit = catalogue.Units[q][j];
            if (!unit.enabled())
                continue;
            UnitForms forms { q, j, QString(), QStringList() };
            splitBrackets(unit.Name, forms.bare, forms.symbols);
            m_forms.append(forms);
        }
    }
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

QVector<UnitLookup::Candidate> UnitLookup::candidates(const QString &name)
{
    const auto cached = m_unitCache.constFind(name);
    if (cached != m_unitCache.constEnd())
        return *cached;

    const QString trimmed = name.trimmed();
    const QString simplified = trimmed.simplified();
    QVector<Candidate> found;
    for (const UnitForms &forms : std::as_const(m_forms)) {
        Tier tier;
        const QString &unit = m_catalogue.Units[forms.quantity][forms.unit].Name;
        if (unit == name)
            tier = ExactName;
        else if (unit.compare(trimmed, Qt::CaseInsensitive) == 0)
            tier = FoldedName;
        else if (forms.bare.compare(simplified, Qt::CaseInsensitive) == 0)
            tier = BareName;
        else if (forms.symbols.contains(trimmed))
            tier = Symbol;
        else
            continue;
        if (found.isEmpty() || found.last().quantity != forms.quantity) {
            found.append(Candidate { forms.quantity, tier, { forms.unit } });
        } else if (tier < found.last().tier) {
            found.last().tier = tier;
            found.last().units = { forms.unit };
        } else if (tier == found.last().tier) {
            found.last().units.append(forms.unit);
        }
    }
    return *m_unitCache.insert(name, found);
}

const UnitLookup::Candidate *UnitLookup::inQuantity(const QVector<Candidate> &list, int q)
{
    for (const Candidate &candidate : list)
        if (candidate.quantity == q)
            return &candidate;
    return nullptr;
}

UnitLookup::Resolution UnitLookup::resolve(
    const QString &from, const QString &to, const QString &quantityName)
{
    Resolution resolution;
    const QVector<Candidate> fromCandidates = candidates(from);
    const QVector<Candidate> toCandidates = candidates(to);

    const Candidate *fromMatch = nullptr;
    const Candidate *toMatch = nullptr;
    if (!quantityName.isEmpty()) {
        const QuantityAnswer answer = findQuantity(quantityName);
        if (!answer.error.isEmpty()) {
            resolution.error = answer.error;
            return resolution;
        }
        fromMatch = inQuantity(fromCandidates, answer.quantity);
        toMatch = inQuantity(toCandidates, answer.quantity);
        if (!fromMatch) {
            resolution.error = unitError(from, answer.quantity);
            return resolution;
        }
        if (!toMatch) {
            resolution.error = unitError(to, answer.quantity);
            return resolution;
        }
    } else {
        if (fromCandidates.isEmpty()) {
            resolution.error = unitError(from, 0);
            return resolution;
        }
        if (toCandidates.isEmpty()) {
            resolution.error = unitError(to, 0);
            return resolution;
        }
        // Quantities holding both, kept when their worse match is the best there is.
        QVector<QPair<const Candidate *, const Candidate *>> common;
        int bestScore = Symbol + 1;
        for (const Candidate &f : fromCandidates) {
            for (const Candidate &t : toCandidates) {
                if (f.quantity != t.quantity)
                    continue;
                const int score = std::max(f.tier, t.tier);
                if (score < bestScore) {
                    bestScore = score;
                    common.clear();
                }
                if (score == bestScore)
                    common.append(qMakePair(&f, &t));
            }
        }
        if (common.isEmpty()) {
            resolution.error = CliText::noCommonQuantity(
                from, quantityNames(fromCandidates), to, quantityNames(toCandidates));
            return resolution;
        }
        if (common.size() > 1) {
            QStringList names;
            for (const auto &pair : std::as_const(common))
                names.append(m_catalogue.Quantities[pair.first->quantity].Name);
            resolution.error = CliText::severalQuantities(from, to, names);
            return resolution;
        }
        fromMatch = common.first().first;
        toMatch = common.first().second;
    }

    const QString &quantity = m_catalogue.Quantities[fromMatch->quantity].Name;
    if (fromMatch->units.size() > 1) {
        resolution.error = CliText::ambiguousUnit(from, quantity, unitNames(*fromMatch));
        return resolution;
    }
    if (toMatch->units.size() > 1) {
        resolution.error = CliText::ambiguousUnit(to, quantity, unitNames(*toMatch));
        return resolution;
    }
    resolution.quantity = fromMatch->quantity;
    resolution.fromUnit = fromMatch->units.first();
    resolution.toUnit = toMatch->units.first();
    return resolution;
}

UnitLookup::Resolution UnitLookup::resolveUnit(const QString &name, const QString &quantityName)
{
    Resolution resolution;
    const QVector<Candidate> found = candidates(name);
    const Candidate *match = nullptr;
    if (!quantityName.isEmpty()) {
        const QuantityAnswer answer = findQuantity(quantityName);
        if (!answer.error.isEmpty()) {
            resolution.error = answer.error;
            return resolution;
        }
        match = inQuantity(found, answer.quantity);
        if (!match) {
            resolution.error = unitError(name, answer.quantity);
            return resolution;
        }
    } else {
        if (found.isEmpty()) {
            resolution.error = unitError(name, 0);
            return resolution;
        }
        // The quantity where the name matches best; several such leave the choice open.
        match = &*std::min_element(found.cbegin(), found.cend(),
            [](const Candidate &a, const Candidate &b) { return a.tier < b.tier; });
        QVector<Candidate> best;
        for (const Candidate &candidate : found)
            if (candidate.tier == match->tier)
                best.append(candidate);
        if (best.size() > 1) {
            resolution.error = CliText::unitOfSeveralQuantities(name, quantityNames(best));
            return resolution;
        }
    }
    if (match->units.size() > 1) {
        resolution.error = CliText::ambiguousUnit(
            name, m_catalogue.Quantities[match->quantity].Name, unitNames(*match));
        return resolution;
    }
    resolution.quantity = match->quantity;
    resolution.fromUnit = resolution.toUnit = match->units.first();
    return resolution;
}

// Why a name found no enabled unit (in quantity q, or anywhere when q is 0).
QString UnitLookup::unitError(const QString &name, int q) const
{
    const QString switchedOff = switchedOffUnit(name, q);
    if (!switchedOff.isEmpty())
        return switchedOff;
    return CliText::unknownUnit(
        name, q ? m_catalogue.Quantities[q].Name : QString(), unitSuggestions(name, q));
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

QStringList UnitLookup::unitSuggestions(const QString &name, int q) const
{
    QVector<Named> names;
    for (const UnitForms &forms : m_forms) {
        if (q != 0 && forms.quantity != q)
            continue;
        const QString &unit = m_catalogue.Units[forms.quantity][forms.unit].Name;
        const QString shown = q != 0
            ? unit
            : CliText::unitOfQuantity(unit, m_catalogue.Quantities[forms.quantity].Name);
        names.append(Named { shown, unit });
    }
    return closest(name, names);
}

QStringList UnitLookup::quantitySuggestions(const QString &name) const
{
    QVector<Named> names;
    for (int q = 1; q <= m_catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = m_catalogue.Quantities[q];
        if (quantity.enabled())
            names.append(Named { quantity.Name, quantity.Name });
    }
    return closest(name, names);
}

QStringList UnitLookup::quantityNames(const QVector<Candidate> &list) const
{
    QStringList names;
    for (const Candidate &candidate : list)
        names.append(m_catalogue.Quantities[candidate.quantity].Name);
    return names;
}

QStringList UnitLookup::unitNames(const Candidate &candidate) const
{
    QStringList names;
    for (int unit : candidate.units)
        names.append(m_catalogue.Units[candidate.quantity][unit].Name);
    return names;
}

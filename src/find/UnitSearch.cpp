// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The lines of the find dialog and the search through them.
#include "find/UnitSearch.h"

#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"

#include <utility>

namespace
{
// Texts of the status bar: "Total: " n " quantities and " m " units".
constexpr int TotalId = 380;
constexpr int QuantitiesAndId = 381;
constexpr int UnitsId = 379;
} // namespace

UnitSearch::UnitSearch(const Catalogue &catalogue)
    : m_catalogue(catalogue)
{
    for (int q = 1; q <= catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = catalogue.quantity(q);
        if (!quantity.enabled())
            continue;
        ++m_quantityCount;
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            const UnitEntry &unit = catalogue.Units[q][j];
            if (!unit.enabled())
                continue;
            m_lines.append(lineFor(unit.Name, quantity.Name));
            m_units.append({ q, j });
        }
    }
    m_foldedLines.reserve(m_lines.size());
    for (const QString &line : std::as_const(m_lines))
        m_foldedLines.append(line.toCaseFolded());
}

QString UnitSearch::totalText() const
{
    return StringTable::text(TotalId) + QString::number(m_quantityCount)
        + StringTable::text(QuantitiesAndId) + QString::number(m_lines.size())
        + StringTable::text(UnitsId);
}

int UnitSearch::find(const QString &text) const
{
    const QString folded = text.toCaseFolded();
    for (int i = 0; i < m_foldedLines.size(); ++i)
        if (m_foldedLines.at(i).startsWith(folded))
            return i;
    return -1;
}

UnitSearch::Found UnitSearch::search(const QString &text)
{
    Found found;
    found.line = find(text);
    if (found.line >= 0 || text.trimmed().isEmpty())
        return found;
    if (!m_matcher)
        m_matcher.emplace(m_catalogue);
    const UnitMatcher::Choice choice = m_matcher->best(text);
    for (const UnitMatcher::Match &match : choice.candidates) {
        const int line = int(m_units.indexOf(qMakePair(match.quantity, match.unit)));
        if (line < 0)
            continue;
        if (found.line < 0)
            found.line = line;
        if (choice.outcome == UnitMatcher::Outcome::Ambiguous)
            found.tied.append(m_lines.at(line));
    }
    return found;
}

QString UnitSearch::lineFor(const QString &unit, const QString &quantity)
{
    return unit + QStringLiteral(" [") + quantity + QLatin1Char(']');
}

bool UnitSearch::parseLine(const QString &line, Target *target)
{
    const int bracket = line.indexOf(QLatin1Char('['));
    if (bracket < 0)
        return false;
    // The list's own lines always have the blank before "[" and the "]" at the end; a shorter
    // text gives empty parts rather than a wrong cut.
    target->quantity = line.mid(bracket + 1, qMax(0, line.size() - bracket - 2));
    target->unit = line.left(qMax(0, bracket - 1));
    return true;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/UnitListing.h"

#include "catalogue/Catalogue.h"
#include "cli/CliText.h"

#include <algorithm>
#include <QStringList>
#include <QVector>

namespace
{

// Lays rows out in columns two blanks apart, without blanks at the ends of the lines.
QString columns(const QVector<QStringList> &rows, const QString &indent)
{
    QVector<qsizetype> widths;
    for (const QStringList &row : rows) {
        if (widths.size() < row.size())
            widths.resize(row.size());
        for (qsizetype i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    QString text;
    for (const QStringList &row : rows) {
        QString line = indent;
        for (qsizetype i = 0; i < row.size(); ++i) {
            line += row[i];
            if (i + 1 < row.size())
                line += QString(widths[i] - row[i].size() + 2, u' ');
        }
        while (line.endsWith(u' '))
            line.chop(1);
        text += line + u'\n';
    }
    return text;
}

QString tabbed(const QStringList &fields)
{
    return fields.join(u'\t') + u'\n';
}

} // namespace

UnitListing::UnitListing(const Catalogue &catalogue, bool tsv, bool all)
    : m_catalogue(catalogue)
    , m_tsv(tsv)
    , m_all(all)
{
}

QString UnitListing::quantities() const
{
    QVector<int> order;
    for (int q = 1; q <= m_catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = m_catalogue.Quantities[q];
        // A quantity the string table does not name has no tab either.
        if (!quantity.Name.isEmpty() && (m_all || quantity.enabled()))
            order.append(q);
    }
    // The main window's tabs are in alphabetical order.
    std::stable_sort(order.begin(), order.end(), [this](int a, int b) {
        return m_catalogue.Quantities[a].Name.compare(
                   m_catalogue.Quantities[b].Name, Qt::CaseInsensitive)
            < 0;
    });

    QString text;
    QVector<QStringList> rows;
    for (int q : std::as_const(order)) {
        const PhysicalQuantity &quantity = m_catalogue.Quantities[q];
        const int enabledUnits = int(m_catalogue.enabledUnitNames(q).size());
        const bool custom = quantity.Custom == 1;
        if (m_tsv) {
            text += tabbed({ quantity.Name, QString::number(enabledUnits), quantity.DefaultUnit,
                custom ? CliText::customWord() : CliText::builtinWord(),
                quantity.enabled() ? CliText::onWord() : CliText::offWord() });
            continue;
        }
        QStringList marks;
        if (custom)
            marks.append(CliText::customMark());
        if (!quantity.enabled())
            marks.append(CliText::switchedOffMark());
        rows.append({ quantity.Name, CliText::unitsCount(enabledUnits),
            CliText::defaultUnitColumn(quantity.DefaultUnit), CliText::marks(marks) });
    }
    return m_tsv ? text : columns(rows, QString());
}

QString UnitListing::units(int q) const
{
    const PhysicalQuantity &quantity = m_catalogue.Quantities[q];
    const bool formula = m_catalogue.isTemperature(q);
    QString text;
    QVector<QStringList> rows;
    for (int j = 1; j <= quantity.UnitCount; ++j) {
        const UnitEntry &unit = m_catalogue.Units[q][j];
        if (!m_all && !unit.enabled())
            continue;
        const bool isDefault = unit.Name == quantity.DefaultUnit;
        const QString exactness = formula ? CliText::formulaWord()
            : unit.Exact == 1             ? CliText::exactWord()
                                          : CliText::inexactWord();
        if (m_tsv) {
            text += tabbed({ unit.Name, unit.FactorText, exactness,
                isDefault ? CliText::defaultMark() : QString(),
                unit.Custom == 1 ? CliText::customWord() : CliText::builtinWord(),
                unit.enabled() ? CliText::onWord() : CliText::offWord() });
            continue;
        }
        QStringList marks;
        if (isDefault)
            marks.append(CliText::defaultMark());
        if (unit.Custom == 1)
            marks.append(CliText::customMark());
        if (!unit.enabled())
            marks.append(CliText::switchedOffMark());
        if (formula)
            rows.append({ unit.Name, CliText::byFormula(), CliText::marks(marks) });
        else
            rows.append({ unit.Name, unit.FactorText, exactness, CliText::marks(marks) });
    }
    if (m_tsv)
        return text;
    return CliText::quantityHeading(quantity.Name, quantity.DefaultUnit) + u'\n'
        + columns(rows, QStringLiteral("  "));
}

QString UnitListing::matches(const QString &text, const UnitMatcher::Choice &choice,
    const QVector<UnitMatcher::Match> &matches) const
{
    auto isCandidate = [&choice](const UnitMatcher::Match &match) {
        return std::any_of(choice.candidates.cbegin(), choice.candidates.cend(),
            [&match](const UnitMatcher::Match &candidate) {
                return candidate.quantity == match.quantity && candidate.unit == match.unit;
            });
    };
    const bool found = choice.outcome == UnitMatcher::Outcome::Found;
    QString lines;
    QVector<QStringList> rows { CliText::matchColumns() };
    for (const UnitMatcher::Match &match : matches) {
        const QString &unit = m_catalogue.Units[match.quantity][match.unit].Name;
        const QString &quantity = m_catalogue.Quantities[match.quantity].Name;
        const QString rank = QString::number(int(match.rank) + 1);
        if (m_tsv) {
            const QString verdict = !isCandidate(match) ? QString()
                : found                                 ? CliText::chosenWord()
                                                        : CliText::tiedWord();
            lines += tabbed(
                { rank, CliText::rankWord(match.rank), unit, quantity, match.form, verdict });
        } else {
            rows.append({ rank, unit, quantity, CliText::rankText(match.rank, match.form) });
        }
    }
    if (m_tsv)
        return lines;
    const UnitMatcher::Match &best = choice.candidates.first();
    const QString verdict = found
        ? CliText::findFound(text, m_catalogue.Units[best.quantity][best.unit].Name,
            m_catalogue.Quantities[best.quantity].Name)
        : CliText::findTied(text, int(choice.candidates.size()));
    return verdict + u'\n' + columns(rows, QStringLiteral("  "));
}

int UnitListing::findQuantity(const QString &name) const
{
    int folded = 0;
    for (int q = 1; q <= m_catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = m_catalogue.Quantities[q];
        if (!m_all && !quantity.enabled())
            continue;
        if (quantity.Name == name)
            return q;
        if (folded == 0 && quantity.Name.compare(name, Qt::CaseInsensitive) == 0)
            folded = q;
    }
    return folded;
}

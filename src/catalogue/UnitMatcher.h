// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Finds the units a typed text means, among the enabled units of the enabled quantities (the
// user's own included), as the command line and the find dialog take names. A text may be a
// unit's full name, its name in another letter case or spelling, a common name from the alias
// table (UnitAliases), its name without the parts in brackets, a symbol in brackets, or that
// symbol as people type it on a plain keyboard: "·" as ".", "-", a blank or nothing; "²" as
// "2" or "^2"; "µ" as "u"; "°" as "deg" or left out (a bare "F" or "C" only for Temperature);
// "Ω" as "ohm"; a two-factor product in the other order. Every match has a rank, and only the
// best rank counts: two units tied there leave the text ambiguous, never silently decided.
// Letter case matters first ("mm" is not "Mm"); only a text that matches nothing in the case
// typed is tried in any case. Unicode equivalents (µ and μ, fullwidth letters) are the same
// characters; look-alike letters of other scripts are not, but closest() suggests what they
// resemble.
//
// The tables are built once from the catalogue as it is; build a new matcher after the
// catalogue changes. Every distinct text is matched once and remembered.
#pragma once

#include "catalogue/UnitAliases.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

#include <utility>

class Catalogue;

class UnitMatcher
{
public:
    // How a text matched a unit; lower is better.
    enum Rank {
        FullName, // the name exactly as the catalogue writes it
        Name, // the name in another letter case, with other blanks, accents or "meter"
        Alias, // a common name from the alias table
        BareName, // the name without its parts in brackets: "inch" for "inch (in)"
        Symbol, // a part in brackets as written: "kPa", "ft·lbf"
        TypedSymbol, // a symbol as typed on a plain keyboard: "kWh", "m2", "um", "degF", "N-m"
        SwappedSymbol, // a two-factor symbol in the other order: "lbf-ft" for "ft·lbf"
        OtherCase, // a symbol or alias in another letter case, when nothing else matches
    };
    static constexpr int RankCount = OtherCase + 1;

    struct Match {
        int quantity = 0;
        int unit = 0;
        Rank rank = FullName;
        QString form; // the name, symbol or alias that matched, as the catalogue or table has it
    };

    struct UnitRef {
        int quantity = 0;
        int unit = 0;
    };

    enum class Outcome { Found, Ambiguous, None };

    // What a text means: one unit, or the units tied at the best rank, or nothing.
    struct Choice {
        Outcome outcome = Outcome::None;
        QVector<Match> candidates; // the unit found, or the tied ones in catalogue order
    };

    // The quantity that two texts mean units of: one, several tied, or none holding both.
    struct QuantityChoice {
        Outcome outcome = Outcome::None;
        QVector<int> quantities; // the quantity found, or the tied ones in catalogue order
    };

    explicit UnitMatcher(const Catalogue &catalogue);
    UnitMatcher(const Catalogue &catalogue, const QVector<UnitAliases::Alias> &aliases);

    // Every unit the text matches, best rank first, then in catalogue order; each unit once,
    // with its best rank. The list is the matcher's own: copy it before matching another text.
    const QVector<Match> &matches(const QString &text);
    // The unit the text means, in quantity q, or in any enabled quantity when q is 0.
    Choice best(const QString &text, int q = 0);
    // The quantity that holds a unit of each text. A quantity where both texts match well wins
    // over one where either matches worse: the worse of the two ranks decides, and a tie is
    // ambiguous. "F" and "C" thus mean Temperature: Capacitance has no "C", Charge no "F".
    QuantityChoice quantityOf(const QString &from, const QString &to);

    // Units whose names are near the text, for a text that matches nothing: names beginning
    // with it, then names containing it, failing both names beginning like it; and, first,
    // what a text of look-alike letters (Cyrillic "м", Greek "Κ") would match in Latin ones.
    QVector<UnitRef> closest(const QString &text, int q = 0, int count = 8);
    // The same search over other names (a list of quantities): indexes into names.
    static QVector<int> closestNames(const QString &text, const QStringList &names, int count);

private:
    // One form of a unit's name under which a text finds it: the key a text is compared by,
    // and the form as the catalogue or the alias table writes it.
    struct Entry {
        Rank rank;
        QString key;
        int quantity;
        int unit;
        QString form;
    };

    // Entries found by rank and key through a binary search over one number for each: the
    // rank in the top bits, the key's hash below. Keys whose hashes meet are told apart by
    // comparing them.
    struct Table {
        QVector<Entry> entries;
        QVector<std::pair<quint64, qsizetype>> order; // sorted once all entries are in

        void add(Rank rank, const QString &key, int q, int j, const QString &form);
        void sort();
        // The entries of that rank and key, as matches of reportedRank.
        void collect(Rank rank, const QString &key, QVector<Match> &found, Rank reportedRank) const;
        void collect(Rank rank, const QString &key, QVector<Match> &found) const
        {
            collect(rank, key, found, rank);
        }
    };

    void addUnit(int q, int j, bool temperature);
    void addSymbol(int q, int j, const QString &symbol, bool temperature);
    const Table &otherCase();

    const Catalogue &m_catalogue;
    QVector<UnitRef> m_units; // the enabled units, in catalogue order
    Table m_table;
    Table m_otherCase; // the symbols and aliases case-folded, made when first needed
    bool m_otherCaseMade = false;
    QHash<QString, QVector<Match>> m_cache;
};

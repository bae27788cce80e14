// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The common names of units that the catalogue's own names and symbols lack ("cfm", "psig",
// "sq ft", "ton"), kept as data in resources/aliases.tsv, compiled in as a resource of the
// core. UnitMatcher reads them; an alias names its unit and quantity by their catalogue names,
// so one whose unit is switched off or gone simply matches nothing.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

class UnitAliases
{
public:
    struct Alias {
        QString alias;
        QString unit;
        QString quantity;
    };

    // The compiled-in table, read once on first use.
    static const QVector<Alias> &builtin();

    // Parses the table's file format: "alias<TAB>unit<TAB>quantity" lines, "#" comment lines and
    // empty lines ignored. Lines without three non-empty fields are skipped.
    static QVector<Alias> parse(const QByteArray &data);
};

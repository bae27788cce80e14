// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The quantity and the units a command line names, or the message saying why not. Units are
// found by UnitMatcher, the same matcher as the find dialog's, so only what the main window
// lists counts: enabled quantities and their enabled units. This class adds the quantity
// named by --quantity (in any letter case) and the command line's wording of what went wrong:
// an unknown name with the closest names, a switched-off unit, a name that stays ambiguous.
// Every name is looked up once and remembered, so a batch of a hundred thousand lines costs
// a handful of look-ups.
#pragma once

#include "catalogue/UnitMatcher.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

class Catalogue;

class UnitLookup
{
public:
    // What a conversion's names come to: a quantity and a unit index on each side, or why not.
    struct Resolution {
        int quantity = 0;
        int fromUnit = 0;
        int toUnit = 0;
        QString error; // empty when resolved

        bool ok() const { return error.isEmpty(); }
    };

    struct QuantityAnswer {
        int quantity = 0;
        QString error; // empty when found
    };

    explicit UnitLookup(const Catalogue &catalogue);

    // An enabled quantity by its name in any letter case (an exact match first).
    QuantityAnswer findQuantity(const QString &name);
    // The units and quantity of a conversion. Without a quantity name, the quantity is the one
    // that holds both units, as UnitMatcher::quantityOf chooses it.
    Resolution resolve(const QString &from, const QString &to, const QString &quantityName);
    // One unit and its quantity (fromUnit and toUnit both name it). Without a quantity name,
    // the unit the name matches best; several tied leave the choice to the user.
    Resolution resolveUnit(const QString &name, const QString &quantityName);
    // Why a name found no enabled unit (in quantity q, or anywhere when q is 0).
    QString unitError(const QString &name, int q);

    UnitMatcher &matcher() { return m_matcher; }

    static constexpr int MaxSuggestions = 8;

private:
    QString choiceError(const QString &name, const UnitMatcher::Choice &choice, int q);
    QString switchedOffUnit(const QString &name, int q) const;
    QStringList quantitySuggestions(const QString &name) const;
    QStringList quantityNames(const QVector<UnitMatcher::Match> &matches) const;

    const Catalogue &m_catalogue;
    UnitMatcher m_matcher;
    QHash<QString, QuantityAnswer> m_quantityCache;
};

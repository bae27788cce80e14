// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Finds the quantity and the units a command line names. Only what the main window lists
// counts: enabled quantities and their enabled units. A unit may be named, from the best
// match to the loosest, by its exact name, by its name in any letter case, by its name
// without the parts in brackets ("inch" for "inch (in)") or by a symbol in brackets ("in",
// letter case kept since "mm" is not "Mm"). Every name is looked up once and remembered,
// so a batch of a hundred thousand lines costs a handful of catalogue scans.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

class Catalogue;

class UnitLookup
{
public:
    // How well a name matched a unit; lower is better.
    enum Tier { ExactName, FoldedName, BareName, Symbol };

    // The units one name can mean within one quantity: all units matched at the best tier
    // there (more than one makes the name ambiguous in that quantity).
    struct Candidate {
        int quantity = 0;
        Tier tier = ExactName;
        QVector<int> units;
    };

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
    // Every enabled quantity in which the name means one or more enabled units.
    QVector<Candidate> candidates(const QString &name);
    // The units and quantity of a conversion. Without a quantity name, the quantity is the one
    // that holds both units; among several, the one whose worse match is best.
    Resolution resolve(const QString &from, const QString &to, const QString &quantityName);
    // One unit and its quantity (fromUnit and toUnit both name it). Without a quantity name,
    // the quantity where the name matches best; several such leave the choice to the user.
    Resolution resolveUnit(const QString &name, const QString &quantityName);

    // Enabled unit names (with their quantity when quantity is 0) that begin with or contain
    // the name, ignoring letter case; failing that, those that begin like it.
    QStringList unitSuggestions(const QString &name, int quantity) const;
    QStringList quantitySuggestions(const QString &name) const;

    static constexpr int MaxSuggestions = 8;

private:
    static const Candidate *inQuantity(const QVector<Candidate> &list, int q);

    // The forms of one enabled unit's name that the matching compares with.
    struct UnitForms {
        int quantity;
        int unit;
        QString bare; // without the parts in brackets
        QStringList symbols; // the parts in brackets, as written
    };

    QString unitError(const QString &name, int quantity) const;
    QString switchedOffUnit(const QString &name, int quantity) const;
    QStringList quantityNames(const QVector<Candidate> &candidates) const;
    QStringList unitNames(const Candidate &candidate) const;

    const Catalogue &m_catalogue;
    QVector<UnitForms> m_forms;
    QHash<QString, QVector<Candidate>> m_unitCache;
    QHash<QString, QuantityAnswer> m_quantityCache;
};

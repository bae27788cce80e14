// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The catalogue in memory: every quantity with its units and factors, built at start from the
// string table (the 43 built-in quantities) and the settings store (what the user switched off
// and added). Quantities and units are numbered from 1, as the store's and the options
// dialog's keys number them; index 0 of both tables is an unused empty record.
#pragma once

#include "catalogue/PhysicalQuantity.h"
#include "catalogue/UnitEntry.h"
#include "convert/RuntimeError.h"

#include <QList>
#include <QStringList>
#include <QVector>

class SettingsStore;

class Catalogue
{
public:
    static constexpr int BuiltinQuantityCount = 43;
    static constexpr int MaxUnits = 55;
    // String ids: 200 + k the unit count of quantity k; B = 400 + 100 k its name, B + j the
    // name of unit j, B + 50 + j its factor text.
    static constexpr int UnitCountBase = 200;
    static constexpr int QuantityBase = 400;
    static constexpr int TemperatureNameId = 3000;

    int QuantityCount = 0;
    int CurrentQuantity = 0;
    QVector<PhysicalQuantity> Quantities; // Quantities[1 .. QuantityCount]
    QVector<QVector<UnitEntry>> Units; // Units[q][1 .. MaxUnits]

    // Builds the whole catalogue: the built-in one, then the user's. Type errors in stored
    // on/off values are reported in problems; such an entry stays enabled.
    void LoadCatalogue(SettingsStore &store, QList<RuntimeError> *problems = nullptr);
    // Quantities 1..43 from the string table, with their on/off state from the store.
    void LoadBuiltinCatalogue(SettingsStore &store, QList<RuntimeError> *problems = nullptr);

    // Makes room for count quantities, keeping what is there.
    void resize(int count);

    PhysicalQuantity &quantity(int q) { return Quantities[q]; }
    const PhysicalQuantity &quantity(int q) const { return Quantities[q]; }
    UnitEntry &unit(int q, int j) { return Units[q][j]; }
    const UnitEntry &unit(int q, int j) const { return Units[q][j]; }

    // The index of the first quantity of that name (exact comparison), or 0.
    int findQuantity(const QString &name) const;
    // The index of the first unit of that name in quantity q (exact comparison), or 0.
    int findUnit(int q, const QString &name) const;
    // The enabled units of quantity q in catalogue order: what the unit lists show.
    QStringList enabledUnitNames(int q) const;
    // True for the quantity converted by formulas rather than factors.
    bool isTemperature(int q) const;
};

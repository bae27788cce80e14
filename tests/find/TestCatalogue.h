// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Small catalogues made by hand for the find tests: quantity names with their unit names, each
// enabled unless written with a leading "-".
#pragma once

#include "catalogue/Catalogue.h"

#include <QStringList>
#include <utility>
#include <vector>

inline Catalogue makeCatalogue(const std::vector<std::pair<QString, QStringList>> &quantities)
{
    Catalogue catalogue;
    catalogue.resize(int(quantities.size()));
    int q = 0;
    for (const auto &[name, units] : quantities) {
        ++q;
        PhysicalQuantity &quantity = catalogue.quantity(q);
        quantity.Name = name.startsWith(QLatin1Char('-')) ? name.mid(1) : name;
        quantity.OnOff = name.startsWith(QLatin1Char('-')) ? 0 : 1;
        quantity.UnitCount = int(units.size());
        for (int j = 1; j <= units.size(); ++j) {
            const QString &unitName = units.at(j - 1);
            UnitEntry &unit = catalogue.unit(q, j);
            unit.Name = unitName.startsWith(QLatin1Char('-')) ? unitName.mid(1) : unitName;
            unit.OnOff = unitName.startsWith(QLatin1Char('-')) ? 0 : 1;
        }
    }
    return catalogue;
}

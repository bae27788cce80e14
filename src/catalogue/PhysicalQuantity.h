// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#pragma once

#include <QString>

// One physical quantity of the catalogue, built in or the user's own.
struct PhysicalQuantity {
    QString Name;
    int OnOff = 1; // 1 = enabled (shown); any other value = disabled
    int UnitCount = 0; // units in use, 0 .. Catalogue::MaxUnits
    QString DefaultUnit; // the unit all factors refer to, without its "*" mark
    int Custom = 0; // 1 for a quantity the user added

    bool enabled() const { return OnOff == 1; }
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#pragma once

#include <QString>

// One unit of a quantity. Factor says how many default units one of this unit is; FactorText
// keeps the factor as written, since its digits tell how many figures a result may show.
struct UnitEntry {
    QString Name;
    int OnOff = 1; // 1 = enabled (listed); any other value = disabled
    int Custom = 0; // 1 for a unit the user added
    double Factor = 0;
    int Exact = 0; // 1 = the factor is exact by definition (and for every default unit)
    QString FactorText;

    bool enabled() const { return OnOff == 1; }
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One marked conversion: the five texts of a conversion the user set aside, kept exactly as they
// were shown. Nothing here is ever read back as a number. The marked conversions window keeps a
// list of them, and a conversions file stores one per record line.
#pragma once

#include <QString>

struct MarkedConversion {
    QString fromValue;
    QString fromUnit;
    QString toValue;
    QString toUnit;
    QString quantity;

    // The line the marked conversions list shows: the quantity first, then two tabs so that the
    // conversions line up at the list's tab stops.
    QString listLine() const
    {
        return quantity + QStringLiteral("\t\t  ") + fromValue + QStringLiteral("  ") + fromUnit
            + QStringLiteral("  =  ") + toValue + QStringLiteral("  ") + toUnit;
    }

    bool operator==(const MarkedConversion &other) const
    {
        return fromValue == other.fromValue && fromUnit == other.fromUnit
            && toValue == other.toValue && toUnit == other.toUnit && quantity == other.quantity;
    }
    bool operator!=(const MarkedConversion &other) const { return !(*this == other); }
};

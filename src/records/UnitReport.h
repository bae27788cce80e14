// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One value converted into every unit of its quantity: what the main window's commands "save all
// conversions for this unit and value" and "print all conversions ..." put out, and what its
// "add all conversions" command marks. The conversions are computed once, here, with the
// conversion engine, so the file, the printed page and the marked list all show the same texts
// the main window would show.
#pragma once

#include "records/MarkedConversion.h"
#include "shell/Notice.h"

#include <optional>
#include <QList>
#include <QString>
#include <QStringList>

class ConversionEngine;

struct UnitReport {
    struct Line {
        QString toValue;
        QString toUnit;
    };

    QString fromValue; // the value as typed
    QString fromUnit;
    QString quantity;
    QList<Line> lines; // in the order of the units given
    // What the value box should hold instead of the value (a temperature below absolute zero).
    std::optional<QString> replacedEntry;

    // Converts the leading number of valueText from fromUnit into each of toUnits, with the
    // engine's current quantity, as the main window's result box would show it. A conversion
    // that fails gets an empty value; its message boxes are added to notices once each.
    static UnitReport convert(const ConversionEngine &engine, const QString &valueText,
        const QString &fromUnit, const QString &quantity, const QStringList &toUnits,
        QList<Notice> *notices = nullptr);

    // The lines that have a value, as marked conversions.
    QList<MarkedConversion> markedConversions() const;
};

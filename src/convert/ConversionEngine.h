// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Converts a value between two units of the current quantity: multiplied by the factor of the
// unit it is in, divided by the factor of the unit wanted (Temperature goes through degrees
// Celsius instead), then formatted. UpdateResult is what the main window runs after every
// change; everything the conversion means for the window (status text, the "more figures"
// mark, message boxes, a corrected value) comes back as data in a ConversionResult.
#pragma once

#include "convert/NumberFormat.h"
#include "shell/Notice.h"

#include <optional>
#include <QList>
#include <QString>

class Catalogue;
class Settings;
struct Session;

struct ConversionResult {
    QString text; // for the result box
    // Marking the conversion is possible (value and both units are there).
    bool markEnabled = false;
    std::optional<QString> statusText;
    std::optional<bool> moreFiguresAvailable;
    QList<Notice> notices; // message boxes to show, in order
    // The value box's text must become this (a temperature below absolute zero).
    std::optional<QString> replacedEntry;

    void take(const FormattedResult &formatted);
};

class ConversionEngine
{
public:
    ConversionEngine(const Catalogue &catalogue, const Settings &settings, Session &session);

    // Converts value from fromUnit to toUnit of the catalogue's current quantity (names compared
    // exactly; a disabled unit is still found). Throws RuntimeError (Overflow, DivisionByZero)
    // when the arithmetic fails.
    ConversionResult Convert(const QString &fromUnit, const QString &toUnit, double value) const;

    // The update routine: the prompts while something is missing, else the conversion of the
    // value text; run-time errors become message boxes and an empty result.
    ConversionResult UpdateResult(
        const QString &leftUnit, const QString &rightUnit, const QString &valueText) const;

    // Convert with its errors caught as UpdateResult catches them.
    ConversionResult convertCaught(
        const QString &fromUnit, const QString &toUnit, double value) const;

private:
    ConversionResult convertTemperature(
        const QString &fromUnit, const QString &toUnit, double value) const;
    ConversionResult convertProportional(
        const QString &fromUnit, const QString &toUnit, double value) const;

    const Catalogue &m_catalogue;
    const Settings &m_settings;
    Session &m_session;
};

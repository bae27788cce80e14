// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Turns a converted value into the text the user reads: as many significant figures as the
// user chose, but never more than the factors behind the conversion justify; regular or
// scientific notation by the two thresholds; digits grouped in threes when asked.
#pragma once

#include "shell/Notice.h"

#include <optional>
#include <QString>

class Settings;

// What the formatter hands back: the text, and what it tells the main window besides.
struct FormattedResult {
    QString text;
    // Status-bar text on the allowed figures ("Max: 13  (Current: 7)"); unset: unchanged.
    std::optional<QString> statusText;
    // More significant figures could be shown than are shown; unset: unchanged.
    std::optional<bool> moreFiguresAvailable;
    // A run-time error of the formatter, to be shown as message 271 (text is then empty).
    std::optional<Notice> notice;
};

class NumberFormat
{
public:
    // fromExactness and toExactness are "x" for an exact side, else that side's factor text.
    static FormattedResult FormatResult(double value, const QString &fromExactness,
        const QString &toExactness, const Settings &settings);

    // The significant digits written in a number text, at most 13: leading zeros and the
    // point do not count, every other character before the exponent does. Throws
    // RuntimeError::InvalidCall for a text with a "d" but no "e".
    static int CountSignificantDigits(const QString &text);

    // Groups digits in threes with blanks ("1 234 567.891 2").
    static QString triads(const QString &text);

    static constexpr int MaxFigures = 13;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Mensura's plain-text clipboard: what the copy commands put on it (the clipboard is emptied
// first, so no other format of an earlier copy stays behind), the text of a whole conversion,
// and the text the paste commands and the Edit menu's rule read from it, from the clipboard or
// from the selection that the middle mouse button pastes.
#pragma once

#include <optional>
#include <QString>

class Clipboard
{
public:
    static void put(const QString &text);
    // "12 foot  =  144.0000 inch".
    static QString wholeConversion(const QString &value, const QString &fromUnit,
        const QString &result, const QString &toUnit);
    // The plain text on the clipboard (or the selection), "" when it holds none.
    static QString text(bool fromSelection = false);
    // The plain text on the clipboard, or nothing when it holds no text at all.
    static std::optional<QString> plainText();
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Pasted text is cut down to its leading number-like part before it enters the value box;
// typed text is never filtered.
#pragma once

#include <QString>

class NumberFilter
{
public:
    // Keeps one leading sign, digits and blanks, one ".", one exponent letter (E, e, D, d) and
    // one sign after it, stopping at the first character that does not fit. The scan runs over
    // as many characters as the text has once trimmed, but takes them from the untrimmed text:
    // a text with leading blanks keeps them and loses as many characters at its end.
    static QString filter(const QString &text);
};

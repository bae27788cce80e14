// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Every conversion between numbers and their texts in Mensura goes through here, always with
// "." as the decimal point whatever the user's locale:
//  - the lenient leading-number reading used for typed values and factor texts,
//  - the strict readings of stored settings (a text that is no number is a type error),
//  - the standard shortest text of a double and the scientific picture "0.000E+#".
#pragma once

#include "convert/RuntimeError.h"

#include <cmath>
#include <QString>
#include <QStringView>

class NumberText
{
public:
    // The number at the start of the text: blanks and tabs anywhere are skipped ("1 234.5" is
    // 1234.5), an optional sign, digits with one ".", an optional exponent after E, e, D or d.
    // Reading stops at the first character that cannot continue the number; no number is 0.
    // A value beyond the range of a double is returned as an infinity of its sign.
    static double leadingNumber(QStringView text);

    // The same reading, told in full for a value the user typed: the number, how many
    // characters of the text it used, and whether the text starts with a number at all (a
    // digit after the blanks, sign and point it may start with). The blanks and tabs around the
    // number count as used, so a text read to its end has length == text.size(); a text
    // without a digit at its start is value 0, length 0.
    struct LeadingNumber {
        double value = 0;
        qsizetype length = 0;
        bool hasDigits = false;

        // A number was read, but from the start of a text of textLength characters only: the
        // user is told what it was read as. A value beyond a double's range is not: its
        // conversion fails, which says enough.
        bool readInPart(qsizetype textLength) const
        {
            return hasDigits && length < textLength && std::isfinite(value);
        }
    };
    static LeadingNumber readLeadingNumber(QStringView text);

    // Strict readings of a whole text (surrounding blanks allowed). The decimal point is "." or
    // the locale's separator given. They throw RuntimeError: TypeMismatch when the text is not
    // a number, Overflow when it does not fit the type.
    static double toDouble(QStringView text, QChar localeDecimal = u'.');
    // Rounds half to even, as a whole-number conversion of the program's settings does.
    static int toInt16(QStringView text, QChar localeDecimal = u'.');
    static int toInt32(QStringView text, QChar localeDecimal = u'.');
    // "1", "-1", "true" (any case) and any other non-zero number are true; "0" and "false" are
    // false; anything else is a TypeMismatch.
    static bool toBoolean(QStringView text, QChar localeDecimal = u'.');

    // At most 15 significant digits, no trailing zeros; plain digits for decimal exponents
    // -9 .. 14, otherwise a mantissa and "E+15" / "E-10" style exponent.
    static QString shortestText(double value);

    // The picture "0.<figures-1 zeros>E+#": one digit before the point, figures - 1 after it,
    // the exponent's sign always written and no leading zeros in it ("1.235E+8", "1.200E-4",
    // "5E+12" for one figure). The mantissa is rounded half away from zero on the value's
    // 15-significant-digit decimal form, the precision a double reliably carries, so that
    // 1.0005 with 4 figures is "1.001E+0" although its binary value lies just below 1.0005.
    // figures must be at least 1.
    static QString scientific(double value, int figures);

    // The same two texts written as ASCII characters into a caller's buffer, for callers that
    // format many numbers; they return the number of characters written. The buffer holds at
    // least ShortestTextCapacity characters, or figures + ScientificExtra.
    static constexpr int ShortestTextCapacity = 32;
    static constexpr int ScientificExtra = 8;
    static qsizetype shortestText(double value, char *buffer);
    static qsizetype scientific(double value, int figures, char *buffer);

private:
    // The 15 significant digits of a finite non-zero value and its decimal exponent.
    static void decimalDigits(double value, char (&digits)[16], int &exponent);
};

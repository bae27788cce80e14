// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The Windows "ANSI" code page 1252, in which conversions files have always been written. Qt's
// own converters know only the Unicode encodings and Latin-1, so the 32 bytes where 1252 differs
// from Latin-1 are kept in a table here. The five bytes 1252 leaves undefined (81, 8D, 8F, 90,
// 9D) stand for the control characters of the same number, as Windows itself decodes them, so
// that every byte string decodes and encodes back unchanged.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

class Windows1252
{
public:
    static QString decode(QByteArrayView bytes);
    // True when every character of the text has a byte in code page 1252.
    static bool canEncode(QStringView text);
    // The text's bytes; a character without one becomes "?".
    static QByteArray encode(QStringView text);
    // The byte of one character, or -1 when code page 1252 has none.
    static int byteOf(char16_t c);
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/Windows1252.h"

// Bytes 0x80 .. 0x9F; every other byte is the Latin-1 character of the same number.
static constexpr char16_t HighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, //
};

QString Windows1252::decode(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    char16_t *out = reinterpret_cast<char16_t *>(text.data());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        out[i] = b >= 0x80 && b < 0xA0 ? HighControls[b - 0x80] : char16_t(b);
    }
    return text;
}

int Windows1252::byteOf(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return c;
    for (int i = 0; i < 32; ++i)
        if (HighControls[i] == c)
            return 0x80 + i;
    return -1;
}

bool Windows1252::canEncode(QStringView text)
{
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u >= 0x80 && byteOf(u) < 0)
            return false;
    }
    return true;
}

QByteArray Windows1252::encode(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char *out = bytes.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t u = text[i].unicode();
        if (u < 0x80) {
            out[i] = char(u);
        } else {
            const int b = byteOf(u);
            out[i] = b < 0 ? '?' : char(b);
        }
    }
    return bytes;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/LineWidthMeter.h"

LineWidthMeter::LineWidthMeter(const QFont &font)
    : m_metrics(font)
    , m_advances(0x10000, qint16(-1))
{
}

int LineWidthMeter::width(QStringView text) const
{
    int x = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            x += m_metrics.horizontalAdvance(text.mid(i, 2).toString());
            ++i;
        } else {
            qint16 &advance = m_advances[c.unicode()];
            if (advance < 0)
                advance = qint16(qBound(0, m_metrics.horizontalAdvance(c), 0x7FFF));
            x += advance;
        }
    }
    return x;
}

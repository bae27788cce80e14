// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Measures how wide a text is drawn in a font the way a list box measures its lines: character
// advances added up. Each character's advance is looked up once and kept, so measuring a hundred
// thousand lines costs next to nothing.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QStringView>
#include <QVector>

class LineWidthMeter
{
public:
    explicit LineWidthMeter(const QFont &font);

    int width(QStringView text) const;

private:
    QFontMetrics m_metrics;
    mutable QVector<qint16> m_advances; // per UTF-16 unit; -1 until measured
};

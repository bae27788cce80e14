// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Measures how wide a list line is drawn, tabs expanded to the list's tab stops, the way a list
// box measures its text: character advances added up. Each character's advance is looked up
// once and kept, so measuring a hundred thousand lines costs next to nothing.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QStringView>
#include <QVector>

class LineWidthMeter
{
public:
    explicit LineWidthMeter(const QFont &font, int tabStop);

    int width(QStringView text) const;
    int tabStop() const { return m_tabStop; }

private:
    QFontMetrics m_metrics;
    int m_tabStop;
    mutable QVector<qint16> m_advances; // per UTF-16 unit; -1 until measured
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// "convert --batch": lines VALUE<TAB>FROM_UNIT<TAB>TO_UNIT[<TAB>QUANTITY] in, one result line
// out for each, in order. A line that cannot be converted gives "error: line N: why" and the
// run goes on. Input is taken as it comes, up to a megabyte at a time, and the answers to
// what came go out before the next wait, so a file streams through in large blocks and a
// program feeding one line at a time gets each answer at once. The names of a line are
// resolved once per distinct spelling (the whole FROM/TO/QUANTITY part of the line is the
// key), so a long run spends its time converting, not looking names up.
#pragma once

#include "cli/UnitLookup.h"

#include <cstdio>
#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QString>

class CliConverter;
class OutputBuffer;

class BatchConverter
{
public:
    BatchConverter(CliConverter &converter, const QString &defaultQuantity, bool verbose);

    // Converts every line of input; returns the exit status (1 when a line failed, 2 when the
    // input could not be read).
    int run(std::FILE *input, OutputBuffer &out, OutputBuffer &errors);

    // One line without its line break.
    void convertLine(QByteArrayView line, OutputBuffer &out, OutputBuffer &errors);

    qint64 lines() const { return m_lines; }
    qint64 failed() const { return m_failed; }

private:
    const UnitLookup::Resolution &resolution(
        QByteArrayView names, QByteArrayView from, QByteArrayView to, QByteArrayView quantity);
    void fail(const QString &message, OutputBuffer &out);

    CliConverter &m_converter;
    QString m_defaultQuantity;
    bool m_verbose;
    QHash<QByteArray, UnitLookup::Resolution> m_resolutions;
    qint64 m_lines = 0;
    qint64 m_failed = 0;
};

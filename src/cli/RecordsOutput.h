// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The records of a conversions file as lines for other programs: five fields (from value,
// from unit, to value, to unit, quantity) separated by tabs, or as RFC 4180 CSV, which a
// spreadsheet opens. A record's texts never hold a line break (the reader splits there), so
// one record is always one line.
#pragma once

#include "records/MarkedConversion.h"

#include <QString>

class RecordsOutput
{
public:
    // Tab-separated, ending in LF; a tab within a text becomes a blank.
    static QString tsvLine(const MarkedConversion &record);
    // Comma-separated, ending in CR LF; a text with a comma, a quote or a line break is quoted
    // and its quotes doubled.
    static QString csvLine(const MarkedConversion &record);
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One line of a printed report and the font it is printed in. The report texts are put together
// in the core (PrintReport); the printer only paints the lines, one below the other.
#pragma once

#include <QString>

struct ReportLine {
    enum FontRole {
        Opening, // the empty lines at the top: the report font, bold, at its normal size
        Heading, // bold, 14 points
        Body, // regular, 12 points
    };

    QString text;
    FontRole role = Body;
    // The number of leading characters that form the line's label ("     12.     "); when the
    // line is too long for the page, the rest goes on below the end of the label.
    int labelLength = 0;

    bool operator==(const ReportLine &other) const
    {
        return text == other.text && role == other.role && labelLength == other.labelLength;
    }
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The texts of the two printed reports, line by line with their fonts (ReportLine):
//  - all conversions of one value and unit: two empty lines, the heading (string 85) in bold
//    14 point, then in 12 point the notice line (89) and an empty line, "The value you entered
//    was: " with the value and unit and an empty line, "Upon conversion, " value and unit
//    " equals:", an empty line, and one numbered line per unit: "     1.     <value>  <unit>";
//  - marked conversions: the same opening and heading lines, the notice line, two empty lines
//    and one numbered line per record: "     1.     <from value>  <from unit>  =  <to value>
//    <to unit>" (the quantity is not printed), numbered from 1 whichever records are printed.
// The report font is Times New Roman; ReportPrinter paints the lines on a page.
#pragma once

#include "records/MarkedConversion.h"
#include "records/ReportLine.h"
#include "records/UnitReport.h"

#include <QList>

class PrintReport
{
public:
    static const QString FontFamily; // "Times New Roman"
    static constexpr int HeadingPointSize = 14;
    static constexpr int BodyPointSize = 12;

    static QList<ReportLine> unitReport(const UnitReport &report);
    static QList<ReportLine> markedReport(const QList<MarkedConversion> &records);

    // "     12.     ": the start of every numbered line.
    static QString numberLabel(int number);
    // The numbered line of a marked conversion as printed and copied to the clipboard.
    static QString conversionLine(int number, const MarkedConversion &record);

    // The text copied to the clipboard for these records: each numbered line preceded by a
    // line end (lineEnd), with neither heading nor quantity.
    static QString clipboardText(const QList<MarkedConversion> &records, const QString &lineEnd);

private:
    static void appendOpening(QList<ReportLine> &lines);
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/PrintReport.h"

#include "catalogue/StringTable.h"
#include "records/ConversionsFile.h"

namespace StringId
{
constexpr int ReportHeading = 85;
constexpr int ValueEntered = 86;
constexpr int UponConversion = 87;
constexpr int Equals = 88;
constexpr int NoticeLine = 89;
} // namespace StringId

const QString PrintReport::FontFamily = QStringLiteral("Times New Roman");

// The report starts with a line break printed in the bold report font, which with the printer's
// own line end leaves two empty lines; then the heading, the notice line and an empty line.
void PrintReport::appendOpening(QList<ReportLine> &lines)
{
    lines.append({ QString(), ReportLine::Opening });
    lines.append({ QString(), ReportLine::Opening });
    lines.append({ StringTable::text(StringId::ReportHeading), ReportLine::Heading });
    lines.append({ StringTable::text(StringId::NoticeLine), ReportLine::Body });
    lines.append({ QString(), ReportLine::Body });
}

QList<ReportLine> PrintReport::unitReport(const UnitReport &report)
{
    QList<ReportLine> lines;
    appendOpening(lines);
    const QString valueAndUnit = report.fromValue + u' ' + report.fromUnit;
    lines.append({ StringTable::text(StringId::ValueEntered) + valueAndUnit, ReportLine::Body });
    lines.append({ QString(), ReportLine::Body });
    lines.append({ StringTable::text(StringId::UponConversion) + valueAndUnit
            + StringTable::text(StringId::Equals),
        ReportLine::Body });
    // The conversions are printed as one text that starts with a line break.
    lines.append({ QString(), ReportLine::Body });
    int number = 0;
    for (const UnitReport::Line &line : report.lines) {
        const QString label = numberLabel(++number);
        lines.append({ label + line.toValue + QStringLiteral("  ") + line.toUnit, ReportLine::Body,
            int(label.size()) });
    }
    return lines;
}

QString PrintReport::numberLabel(int number)
{
    return ConversionsFile::Indent + QString::number(number) + ConversionsFile::NumberEnd;
}

QString PrintReport::conversionLine(int number, const MarkedConversion &record)
{
    return numberLabel(number) + record.fromValue + QStringLiteral("  ") + record.fromUnit
        + QStringLiteral("  =  ") + record.toValue + QStringLiteral("  ") + record.toUnit;
}

QList<ReportLine> PrintReport::markedReport(const QList<MarkedConversion> &records)
{
    QList<ReportLine> lines;
    appendOpening(lines);
    lines.append({ QString(), ReportLine::Body });
    int number = 0;
    for (const MarkedConversion &record : records) {
        ++number;
        lines.append(
            { conversionLine(number, record), ReportLine::Body, int(numberLabel(number).size()) });
    }
    return lines;
}

QString PrintReport::clipboardText(const QList<MarkedConversion> &records, const QString &lineEnd)
{
    QString text;
    int number = 0;
    for (const MarkedConversion &record : records) {
        text.append(lineEnd);
        text.append(conversionLine(++number, record));
    }
    return text;
}

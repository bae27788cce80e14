// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/UnitReport.h"

#include "convert/ConversionEngine.h"
#include "convert/NumberText.h"

UnitReport UnitReport::convert(const ConversionEngine &engine, const QString &valueText,
    const QString &fromUnit, const QString &quantity, const QStringList &toUnits,
    QList<Notice> *notices)
{
    UnitReport report;
    report.fromValue = valueText;
    report.fromUnit = fromUnit;
    report.quantity = quantity;
    report.lines.reserve(toUnits.size());
    const double value = NumberText::leadingNumber(valueText);
    for (const QString &toUnit : toUnits) {
        const ConversionResult result = engine.convertCaught(fromUnit, toUnit, value);
        report.lines.append({ result.text, toUnit });
        if (result.replacedEntry)
            report.replacedEntry = result.replacedEntry;
        if (notices) {
            for (const Notice &notice : result.notices)
                if (!notices->contains(notice))
                    notices->append(notice);
        }
    }
    return report;
}

QList<MarkedConversion> UnitReport::markedConversions() const
{
    QList<MarkedConversion> marked;
    // A conversion that failed has no value to keep.
    for (const Line &line : lines)
        if (!line.toValue.isEmpty())
            marked.append({ fromValue, fromUnit, line.toValue, line.toUnit, quantity });
    return marked;
}

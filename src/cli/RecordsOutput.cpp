// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/RecordsOutput.h"

#include <QStringList>

namespace
{

QStringList fieldsOf(const MarkedConversion &record)
{
    return { record.fromValue, record.fromUnit, record.toValue, record.toUnit, record.quantity };
}

QString csvField(QString text)
{
    if (!text.contains(u',') && !text.contains(u'"') && !text.contains(u'\r')
        && !text.contains(u'\n'))
        return text;
    text.replace(QStringLiteral("\""), QStringLiteral("\"\""));
    return u'"' + text + u'"';
}

} // namespace

QString RecordsOutput::tsvLine(const MarkedConversion &record)
{
    QStringList fields = fieldsOf(record);
    for (QString &field : fields)
        field.replace(u'\t', u' ');
    return fields.join(u'\t') + u'\n';
}

QString RecordsOutput::csvLine(const MarkedConversion &record)
{
    QStringList fields = fieldsOf(record);
    for (QString &field : fields)
        field = csvField(field);
    return fields.join(u',') + QStringLiteral("\r\n");
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "convert/RuntimeError.h"

#include "catalogue/StringTable.h"

// The run-time descriptions are numbered 5700 + error number in the string table.
static constexpr int RuntimeDescriptionBase = 5700;
static constexpr int ErrorNumberText = 271;

QString RuntimeError::description() const
{
    const QString standard = StringTable::text(RuntimeDescriptionBase + number);
    if (detail.isEmpty())
        return standard;
    return standard.isEmpty() ? detail : standard + QStringLiteral(": ") + detail;
}

QString RuntimeError::messageText() const
{
    return StringTable::text(ErrorNumberText) + QString::number(number) + u'\n' + description();
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The open-link rule.
#include "help/LinkTarget.h"

QUrl LinkTarget::url(const QString &target)
{
    // The comparison is case-sensitive: "HTTP://..." gets a second scheme, as it always did.
    if (target.startsWith(QLatin1String("http")))
        return QUrl(target);
    if (target.contains(QLatin1Char('@')))
        return QUrl(QStringLiteral("mailto:") + target);
    return QUrl(QStringLiteral("http://") + target);
}

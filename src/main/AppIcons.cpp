// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/AppIcons.h"

QIcon AppIcons::program()
{
    QIcon icon;
    for (int size : { 16, 32, 48, 64 })
        icon.addFile(QStringLiteral(":/icons/png/smallicon-%1.png").arg(size), QSize(size, size));
    return icon;
}

QIcon AppIcons::panel(const char *name)
{
    QIcon icon;
    for (int size : { 16, 32, 48 })
        icon.addFile(QStringLiteral(":/icons/png/%1-%2.png").arg(QLatin1String(name)).arg(size),
            QSize(size, size));
    return icon;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Opening links through the desktop's own handlers.
#include "help/Links.h"

#include "help/LinkTarget.h"

#include <QDesktopServices>

void Links::open(const QString &target)
{
    QDesktopServices::openUrl(LinkTarget::url(target));
}

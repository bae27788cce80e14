// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The rule that turns a link target of the string table (an address written without scheme,
// such as the home page or the author's e-mail address) into the address to open. Links opens
// the result in the browser or mail program.
#pragma once

#include <QString>
#include <QUrl>

class LinkTarget
{
public:
    // A target whose first four characters are "http" is opened as it stands; one holding an
    // "@" is a mail address ("mailto:" in front); anything else is a web address ("http://" in
    // front).
    static QUrl url(const QString &target);
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "convert/NumberFilter.h"

QString NumberFilter::filter(const QString &text)
{
    QString result;
    bool pointTaken = false, exponentTaken = false, exponentSignTaken = false;
    const qsizetype length = text.trimmed().size();
    qsizetype start = 0;
    if (!text.isEmpty() && (text[0] == u'+' || text[0] == u'-')) {
        result += text[0];
        start = 1;
    }
    for (qsizetype i = start; i < length; ++i) {
        const QChar c = text[i];
        if ((c >= u'0' && c <= u'9') || c == u' ') {
            result += c;
        } else if (c == u'.') {
            if (pointTaken)
                break;
            result += c;
            pointTaken = true;
        } else if (c == u'E' || c == u'e' || c == u'D' || c == u'd') {
            if (exponentTaken)
                break;
            result += c;
            exponentTaken = true;
        } else if (c == u'+' || c == u'-') {
            if (!exponentTaken || exponentSignTaken)
                break;
            result += c;
            exponentSignTaken = true;
        } else {
            break;
        }
    }
    return result;
}

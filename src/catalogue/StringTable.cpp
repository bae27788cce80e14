// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "catalogue/StringTable.h"

#include <QFile>

QString StringTable::text(int id)
{
    return table().value(id);
}

bool StringTable::contains(int id)
{
    return table().contains(id);
}

const QHash<int, QString> &StringTable::table()
{
    static const QHash<int, QString> strings = [] {
        QFile file(QStringLiteral(":/strings.tsv"));
        if (!file.open(QIODevice::ReadOnly))
            return QHash<int, QString>();
        return parse(file.readAll());
    }();
    return strings;
}

static QString unescape(QStringView raw)
{
    QString text;
    text.reserve(raw.size());
    for (qsizetype i = 0; i < raw.size(); ++i) {
        const QChar c = raw[i];
        if (c != u'\\' || i + 1 == raw.size()) {
            text += c;
            continue;
        }
        const QChar next = raw[++i];
        if (next == u't')
            text += u'\t';
        else if (next == u'n')
            text += u'\n';
        else if (next == u'\\')
            text += u'\\';
        else
            text += c, text += next; // not an escape: kept as written
    }
    return text;
}

QHash<int, QString> StringTable::parse(const QByteArray &data)
{
    QHash<int, QString> strings;
    const QString all = QString::fromUtf8(data);
    strings.reserve(2200);
    for (QStringView line : QStringView(all).split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const qsizetype tab = line.indexOf(u'\t');
        if (tab <= 0)
            continue;
        bool ok = false;
        const int id = line.first(tab).toInt(&ok);
        if (ok)
            strings.insert(id, unescape(line.sliced(tab + 1)));
    }
    return strings;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "catalogue/UnitAliases.h"

#include <QFile>
#include <QStringView>

const QVector<UnitAliases::Alias> &UnitAliases::builtin()
{
    static const QVector<Alias> aliases = [] {
        QFile file(QStringLiteral(":/aliases.tsv"));
        if (!file.open(QIODevice::ReadOnly))
            return QVector<Alias>();
        return parse(file.readAll());
    }();
    return aliases;
}

QVector<UnitAliases::Alias> UnitAliases::parse(const QByteArray &data)
{
    QVector<Alias> aliases;
    const QString all = QString::fromUtf8(data);
    for (QStringView line : QStringView(all).split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QList<QStringView> fields = line.split(u'\t');
        if (fields.size() != 3 || fields[0].isEmpty() || fields[1].isEmpty() || fields[2].isEmpty())
            continue;
        aliases.append(Alias { fields[0].toString(), fields[1].toString(), fields[2].toString() });
    }
    return aliases;
}

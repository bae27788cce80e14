// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Every user-visible text and the whole built-in unit catalogue are numbered strings in
// resources/strings.tsv, compiled in as a resource. The table is read once, on first use, and
// never changes afterwards, so it is safe to share between windows and threads.
#pragma once

#include <QHash>
#include <QString>

class StringTable
{
public:
    // The text with that id, or "" when the table has none.
    static QString text(int id);
    // True when the table holds the id (an empty text is still a text).
    static bool contains(int id);

    // Parses the table's file format: "id<TAB>text" lines with \t, \n and \\ escapes, "#"
    // comment lines and blank lines ignored. Malformed lines are skipped.
    static QHash<int, QString> parse(const QByteArray &data);

private:
    static const QHash<int, QString> &table();
};

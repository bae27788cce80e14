// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Tables of test cases kept as text beside the tests that read them in their _data(): one case
// a line, its fields separated by tabs, the case's name first; "#" lines and empty lines are
// skipped. In a field "\t" stands for a tab, "\n" for a line break, "\\" for a backslash and
// "\uXXXX" for that character.
#pragma once

#include <QFile>
#include <QStringList>
#include <QTest>

// The cases of a table with that many fields each; a table that cannot be read, or a case with
// another number of fields, fails the test and gives no cases.
inline QList<QStringList> readTestTable(const QString &fileName, qsizetype fields)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        QTest::qFail(qPrintable(QStringLiteral("cannot read ") + fileName), __FILE__, __LINE__);
        return {};
    }
    QList<QStringList> cases;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        QStringList values = line.split(u'\t');
        if (values.size() != fields) {
            QTest::qFail(
                qPrintable(QStringLiteral("wrong number of fields: ") + line), __FILE__, __LINE__);
            return {};
        }
        for (QString &value : values) {
            QString plain;
            for (qsizetype i = 0; i < value.size(); ++i) {
                const QChar next = i + 1 < value.size() ? value[i + 1] : QChar();
                if (value[i] != u'\\' || next.isNull()) {
                    plain += value[i];
                } else if (next == u'u' && i + 5 < value.size()) {
                    plain += QChar(value.mid(i + 2, 4).toUShort(nullptr, 16));
                    i += 5;
                } else {
                    plain += next == u't' ? QChar(u'\t') : next == u'n' ? QChar(u'\n') : next;
                    ++i;
                }
            }
            value = plain;
        }
        cases.append(values);
    }
    return cases;
}

// The cases of the named table beside the test (in TEST_DATA_DIR) as a test's data rows, each
// named by its first field, with one column "fields" holding the others.
inline void addTestTableRows(const char *name, qsizetype fields)
{
    QTest::addColumn<QStringList>("fields");
    for (QStringList f :
        readTestTable(QStringLiteral(TEST_DATA_DIR "/") + QLatin1String(name), fields))
        QTest::newRow(qPrintable(f.takeFirst())) << f;
}

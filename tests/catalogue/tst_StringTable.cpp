// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The string table's file format, and texts of the compiled-in table that keep their blanks.
#include "catalogue/StringTable.h"

#include <QTest>

class tst_StringTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parse_data();
    void parse();
    void compiledInTextsKeepTheirBlanks();
};

void tst_StringTable::parse_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("id"); // 0: the line holds no text
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QByteArray("9\tMensura") << 9 << "Mensura";
    QTest::newRow("tab escape") << QByteArray("1\ta\\tb") << 1 << "a\tb";
    QTest::newRow("line break escape") << QByteArray("1\ta\\nb") << 1 << "a\nb";
    QTest::newRow("backslash escape") << QByteArray("1\tC:\\\\x") << 1 << "C:\\x";
    QTest::newRow("unknown escape kept") << QByteArray("1\ta\\qb") << 1 << "a\\qb";
    QTest::newRow("backslash at the end kept") << QByteArray("1\ta\\") << 1 << "a\\";
    QTest::newRow("trailing blanks kept") << QByteArray("401\tMark  ") << 401 << "Mark  ";
    QTest::newRow("carriage return dropped") << QByteArray("2\tx\r") << 2 << "x";
    QTest::newRow("UTF-8") << QByteArray("3\t°C ²") << 3 << "°C ²";
    QTest::newRow("empty text") << QByteArray("4\t") << 4 << "";
    QTest::newRow("a second tab is text") << QByteArray("5\ta\tb") << 5 << "a\tb";
    QTest::newRow("no id") << QByteArray("\ttext") << 0 << "";
    QTest::newRow("id that is no number") << QByteArray("x1\ttext") << 0 << "";
}

void tst_StringTable::parse()
{
    QFETCH(QByteArray, line);
    QFETCH(int, id);
    QFETCH(QString, text);
    const auto table = StringTable::parse("# comment\r\n\r\n" + line + "\nnot a line\n7\tlast");
    QCOMPARE(table.size(), id ? 2 : 1);
    QCOMPARE(table.value(7), QStringLiteral("last"));
    if (id)
        QCOMPARE(table.value(id), text);
}

void tst_StringTable::compiledInTextsKeepTheirBlanks()
{
    QCOMPARE(StringTable::text(401), QStringLiteral("Mark  "));
    QCOMPARE(StringTable::text(408), QStringLiteral(" Sci "));
    QCOMPARE(StringTable::text(136), QStringLiteral(" marked conversion(s) "));
    QVERIFY(!StringTable::contains(1));
    QCOMPARE(StringTable::text(1), QString());
}

QTEST_GUILESS_MAIN(tst_StringTable)
#include "tst_StringTable.moc"

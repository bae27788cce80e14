// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The string table's file format and the compiled-in table.
#include "catalogue/StringTable.h"

#include <QTest>

class tst_StringTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parse_data();
    void parse();
    void textsKeepTheirBlanks();
    void missingIdGivesEmptyText();
};

void tst_StringTable::parse_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QByteArray("9\tMensura 98") << 9 << "Mensura 98";
    QTest::newRow("tab escape") << QByteArray("1\ta\\tb") << 1 << "a\tb";
    QTest::newRow("line break escape") << QByteArray("1\ta\\nb") << 1 << "a\nb";
    QTest::newRow("backslash escape") << QByteArray("1\tC:\\\\x") << 1 << "C:\\x";
    QTest::newRow("unknown escape kept") << QByteArray("1\ta\\qb") << 1 << "a\\qb";
    QTest::newRow("trailing blanks kept") << QByteArray("401\tMark  ") << 401 << "Mark  ";
    QTest::newRow("carriage return dropped") << QByteArray("2\tx\r") << 2 << "x";
    QTest::newRow("UTF-8") << QByteArray("3\t°C ²") << 3 << "°C ²";
    QTest::newRow("empty text") << QByteArray("4\t") << 4 << "";
}

void tst_StringTable::parse()
{
    QFETCH(QByteArray, line);
    QFETCH(int, id);
    QFETCH(QString, text);
    const auto table = StringTable::parse("# comment\n\n" + line + "\nnot a line\n");
    QCOMPARE(table.size(), 1);
    QVERIFY(table.contains(id));
    QCOMPARE(table.value(id), text);
}

void tst_StringTable::textsKeepTheirBlanks()
{
    QCOMPARE(StringTable::text(401), QStringLiteral("Mark  "));
    QCOMPARE(StringTable::text(408), QStringLiteral(" Sci "));
    QCOMPARE(StringTable::text(369), QStringLiteral("  (Current: "));
    QCOMPARE(StringTable::text(136), QStringLiteral(" marked conversion(s) "));
}

void tst_StringTable::missingIdGivesEmptyText()
{
    QVERIFY(!StringTable::contains(1));
    QCOMPARE(StringTable::text(1), QString());
}

QTEST_GUILESS_MAIN(tst_StringTable)
#include "tst_StringTable.moc"

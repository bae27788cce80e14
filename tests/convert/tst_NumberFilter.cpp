// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Pasted text is cut down to its number.
#include "convert/NumberFilter.h"

#include <QTest>

class tst_NumberFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filter_data();
    void filter();
};

void tst_NumberFilter::filter_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("entered");
    QTest::newRow("unit after the number") << "12.5e-3kg"
                                           << "12.5e-3";
    QTest::newRow("negative") << "-4.2"
                              << "-4.2";
    QTest::newRow("sign without exponent stops") << "4-2"
                                                 << "4";
    QTest::newRow("second point stops") << "1.2.3"
                                        << "1.2";
    QTest::newRow("second exponent stops") << "1e5e6"
                                           << "1e5";
    QTest::newRow("D exponent with sign") << "3d+2"
                                          << "3d+2";
    QTest::newRow("second exponent sign stops") << "3d+-2"
                                                << "3d+";
    QTest::newRow("blanks are kept") << "1 000"
                                     << "1 000";
    QTest::newRow("leading blanks cost the end") << "  12"
                                                 << "  ";
    QTest::newRow("one leading blank") << " 345"
                                       << " 34";
    QTest::newRow("letters only") << "abc"
                                  << "";
    QTest::newRow("lone sign") << "+"
                               << "+";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("point after exponent") << "1e5.5"
                                          << "1e5.5";
    QTest::newRow("trailing blanks are not scanned") << "12   "
                                                     << "12";
    QTest::newRow("line break stops") << "42\nmore"
                                      << "42";
    QTest::newRow("triads of a result") << "1 234 567.891"
                                        << "1 234 567.891";
}

void tst_NumberFilter::filter()
{
    QFETCH(QString, pasted);
    QFETCH(QString, entered);
    QCOMPARE(NumberFilter::filter(pasted), entered);
}

QTEST_GUILESS_MAIN(tst_NumberFilter)
#include "tst_NumberFilter.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Pasted text is cut down to its number; the cases are in pasted_texts.tsv.
#include "convert/NumberFilter.h"

#include "TestTable.h"

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
    for (const QStringList &f : readTestTable(QStringLiteral(TEST_DATA_DIR "/pasted_texts.tsv"), 3))
        QTest::newRow(qPrintable(f[0])) << f[1] << f[2];
}

void tst_NumberFilter::filter()
{
    QFETCH(QString, pasted);
    QFETCH(QString, entered);
    QCOMPARE(NumberFilter::filter(pasted), entered);
}

QTEST_GUILESS_MAIN(tst_NumberFilter)
#include "tst_NumberFilter.moc"

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
    addTestTableRows("pasted_texts.tsv", 3);
}

void tst_NumberFilter::filter()
{
    QFETCH(QStringList, fields); // pasted, entered
    QCOMPARE(NumberFilter::filter(fields[0]), fields[1]);
}

QTEST_GUILESS_MAIN(tst_NumberFilter)
#include "tst_NumberFilter.moc"

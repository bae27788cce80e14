// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Significant figures, notation thresholds and triads of a converted value, the status text
// and "more figures" mark that go with it, and a result in triads pasted back as its number
// (the cases are in significant_digits.tsv and formatted_results.tsv).
#include "convert/NumberFilter.h"
#include "convert/NumberFormat.h"
#include "convert/NumberText.h"
#include "shell/Settings.h"

#include "TestTable.h"

#include <QTest>

class tst_NumberFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countSignificantDigits_data();
    void countSignificantDigits();
    void formatResult_data();
    void formatResult();
};

void tst_NumberFormat::countSignificantDigits_data()
{
    addTestTableRows("significant_digits.tsv", 3);
}

void tst_NumberFormat::countSignificantDigits()
{
    QFETCH(QStringList, fields); // factor text, digits (-1: refused as an invalid call)
    const int digits = fields[1].toInt();
    try {
        QCOMPARE(NumberFormat::CountSignificantDigits(fields[0]), digits);
    } catch (const RuntimeError &error) {
        QCOMPARE(digits, -1);
        QCOMPARE(error.number, int(RuntimeError::InvalidCall));
    }
}

void tst_NumberFormat::formatResult_data()
{
    addTestTableRows("formatted_results.tsv", 9);
}

// The fields: value, from side, to side, significant figures, options, text (or the message of
// a failure), status text, more figures available.
void tst_NumberFormat::formatResult()
{
    QFETCH(QStringList, fields);
    const QString &status = fields[6];
    Settings settings;
    settings.SigFigs = fields[3].toInt();
    for (const QString &option : fields[4].split(u' ', Qt::SkipEmptyParts)) {
        if (option == QStringLiteral("scientific"))
            settings.Scientific = true;
        else if (option == QStringLiteral("plain"))
            settings.Triads = false;
        else if (option.startsWith(QStringLiteral("max=")))
            settings.MaxNumber = option.mid(4).toDouble();
        else
            settings.MinNumber = option.mid(4).toDouble();
    }
    const double value = fields[0].toDouble();
    const FormattedResult result
        = NumberFormat::FormatResult(value, fields[1], fields[2], settings);
    QCOMPARE(result.notice ? result.notice->text : result.text, fields[5]);
    QVERIFY(!result.notice || result.text.isEmpty());
    // Both are told unless counting the figures failed.
    QCOMPARE(result.statusText.value_or(QString()), status);
    QCOMPARE(result.moreFiguresAvailable.has_value(), !status.isEmpty());
    QCOMPARE(result.moreFiguresAvailable.value_or(false), fields[7] == QStringLiteral("1"));
    // Pasted back, the text in triads is the number the text without them shows.
    Settings plain = settings;
    plain.Triads = false;
    if (!result.notice)
        QCOMPARE(NumberText::leadingNumber(NumberFilter::filter(result.text)),
            NumberText::leadingNumber(
                NumberFormat::FormatResult(value, fields[1], fields[2], plain).text));
}

QTEST_GUILESS_MAIN(tst_NumberFormat)
#include "tst_NumberFormat.moc"

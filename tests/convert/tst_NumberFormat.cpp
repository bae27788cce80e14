// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Significant figures, notation thresholds and triads of a converted value, and the status
// text and "more figures" mark that go with it (the cases are in significant_digits.tsv and
// formatted_results.tsv).
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
    void groupedResultPastesBackAsTheSameNumber_data();
    void groupedResultPastesBackAsTheSameNumber();
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
    const FormattedResult result
        = NumberFormat::FormatResult(fields[0].toDouble(), fields[1], fields[2], settings);
    QCOMPARE(result.notice ? result.notice->text : result.text, fields[5]);
    QVERIFY(!result.notice || result.text.isEmpty());
    // Both are told unless counting the figures failed.
    QCOMPARE(result.statusText.value_or(QString()), status);
    QCOMPARE(result.moreFiguresAvailable.has_value(), !status.isEmpty());
    QCOMPARE(result.moreFiguresAvailable.value_or(false), fields[7] == QStringLiteral("1"));
}

void tst_NumberFormat::groupedResultPastesBackAsTheSameNumber_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("sigFigs");
    QTest::addColumn<bool>("scientific");
    QTest::newRow("regular with triads") << 1234567.891 << 10 << false;
    QTest::newRow("scientific with triads") << 123456.789 << 10 << true;
    QTest::newRow("one figure exponent") << 5e12 << 1 << true;
    QTest::newRow("small value") << 0.000123456 << 6 << false;
    QTest::newRow("negative") << -98765.4321 << 9 << false;
}

void tst_NumberFormat::groupedResultPastesBackAsTheSameNumber()
{
    QFETCH(double, value);
    QFETCH(int, sigFigs);
    QFETCH(bool, scientific);
    Settings grouped;
    grouped.SigFigs = sigFigs;
    grouped.Scientific = scientific;
    grouped.MaxNumber = 1e9;
    Settings plain = grouped;
    plain.Triads = false;
    const QString x = QStringLiteral("x");
    const QString shown = NumberFormat::FormatResult(value, x, x, grouped).text;
    QVERIFY(shown.contains(u' '));
    QCOMPARE(NumberText::leadingNumber(NumberFilter::filter(shown)),
        NumberText::leadingNumber(NumberFormat::FormatResult(value, x, x, plain).text));
}

QTEST_GUILESS_MAIN(tst_NumberFormat)
#include "tst_NumberFormat.moc"

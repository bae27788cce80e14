// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Significant figures, notation thresholds and triads of a converted value, and the status
// text and "more figures" mark that go with it (the cases are in formatted_results.tsv).
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
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("digits"); // -1: refused as an invalid call
    QTest::newRow("degree factor, 15 digits, counts 13") << "1.74532925199433E-02" << 13;
    QTest::newRow("fourteen digits count 13") << "12345678901234" << 13;
    QTest::newRow("seventeen digits count 13") << "11348.93179479260" << 13;
    QTest::newRow("long mantissa with e") << "5.5555555555555555555e-1" << 13;
    QTest::newRow("leading zeros do not count") << "0.0254" << 3;
    QTest::newRow("trailing zeros count") << "1200" << 4;
    QTest::newRow("zeros after the point count") << "1.500" << 4;
    QTest::newRow("minus sign dropped") << "-0.050" << 2;
    QTest::newRow("blanks trimmed") << "  -2.5\t" << 2;
    QTest::newRow("exponent cut off") << "1.550003100006200E3" << 13;
    QTest::newRow("short exponent text") << "1E4" << 1;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("blanks only") << "   " << 0;
    QTest::newRow("a stray letter counts") << "12a" << 3;
    QTest::newRow("a D exponent is refused") << "1d5" << -1;
    QTest::newRow("a D exponent after an E is cut off") << "1.5E2d" << 2;
}

void tst_NumberFormat::countSignificantDigits()
{
    QFETCH(QString, text);
    QFETCH(int, digits);
    try {
        QCOMPARE(NumberFormat::CountSignificantDigits(text), digits);
    } catch (const RuntimeError &error) {
        QCOMPARE(digits, -1);
        QCOMPARE(error.number, int(RuntimeError::InvalidCall));
    }
}

void tst_NumberFormat::formatResult_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("sigFigs");
    QTest::addColumn<QString>("options"); // scientific, plain (no triads), max=X, min=X
    QTest::addColumn<QString>("text"); // or the message of a failure
    QTest::addColumn<QString>("status");
    QTest::addColumn<bool>("moreFigures");
    for (const QStringList &f :
        readTestTable(QStringLiteral(TEST_DATA_DIR "/formatted_results.tsv"), 9))
        QTest::newRow(qPrintable(f[0])) << f[1].toDouble() << f[2] << f[3] << f[4].toInt() << f[5]
                                        << f[6] << f[7] << (f[8] == QStringLiteral("1"));
}

void tst_NumberFormat::formatResult()
{
    QFETCH(double, value);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, sigFigs);
    QFETCH(QString, options);
    QFETCH(QString, text);
    QFETCH(QString, status);
    QFETCH(bool, moreFigures);

    Settings settings;
    settings.SigFigs = sigFigs;
    for (const QString &option : options.split(u' ', Qt::SkipEmptyParts)) {
        if (option == QStringLiteral("scientific"))
            settings.Scientific = true;
        else if (option == QStringLiteral("plain"))
            settings.Triads = false;
        else if (option.startsWith(QStringLiteral("max=")))
            settings.MaxNumber = option.mid(4).toDouble();
        else
            settings.MinNumber = option.mid(4).toDouble();
    }
    const FormattedResult result = NumberFormat::FormatResult(value, from, to, settings);
    QCOMPARE(result.notice ? result.notice->text : result.text, text);
    QVERIFY(!result.notice || result.text.isEmpty());
    // Both are told unless counting the figures failed.
    QCOMPARE(result.statusText.value_or(QString()), status);
    QCOMPARE(result.moreFiguresAvailable.has_value(), !status.isEmpty());
    QCOMPARE(result.moreFiguresAvailable.value_or(false), moreFigures);
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

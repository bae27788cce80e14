// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Significant figures, notation thresholds and triads of a converted value.
#include "convert/NumberFilter.h"
#include "convert/NumberFormat.h"
#include "convert/NumberText.h"
#include "shell/Settings.h"

#include <QTest>

class tst_NumberFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countSignificantDigits_data();
    void countSignificantDigits();
    void countSignificantDigitsRefusesADExponent();
    void formatResult_data();
    void formatResult();
    void paddingCountsOnlySignificantZeros();
    void zeroWithoutAMinimumIsWrittenPlainly();
    void formattingErrorsBecomeMessages_data();
    void formattingErrorsBecomeMessages();
    void groupedResultPastesBackAsTheSameNumber_data();
    void groupedResultPastesBackAsTheSameNumber();
};

void tst_NumberFormat::countSignificantDigits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("digits");
    QTest::newRow("degree factor, 15 digits, counts 13") << "1.74532925199433E-02" << 13;
    QTest::newRow("seventeen digits count 13") << "11348.93179479260" << 13;
    QTest::newRow("long mantissa with e") << "5.5555555555555555555e-1" << 13;
    QTest::newRow("minute factor") << "2.90888208665722E-04" << 13;
    QTest::newRow("leading zeros do not count") << "0.0254" << 3;
    QTest::newRow("trailing zeros count") << "1200" << 4;
    QTest::newRow("zeros after the point count") << "1.500" << 4;
    QTest::newRow("minus sign dropped") << "-0.050" << 2;
    QTest::newRow("blanks trimmed") << "  2.5  " << 2;
    QTest::newRow("exponent cut off") << "1.550003100006200E3" << 13;
    QTest::newRow("short exponent text") << "1E4" << 1;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("a stray letter counts") << "12a" << 3;
}

void tst_NumberFormat::countSignificantDigits()
{
    QFETCH(QString, text);
    QFETCH(int, digits);
    QCOMPARE(NumberFormat::CountSignificantDigits(text), digits);
}

void tst_NumberFormat::countSignificantDigitsRefusesADExponent()
{
    try {
        NumberFormat::CountSignificantDigits(QStringLiteral("1d5"));
        QFAIL("a D exponent was counted");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number, int(RuntimeError::InvalidCall));
    }
}

void tst_NumberFormat::formatResult_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("sigFigs");
    QTest::addColumn<bool>("scientific");
    QTest::addColumn<bool>("triads");
    QTest::addColumn<double>("maxNumber");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("status");
    QTest::addColumn<bool>("moreFigures");

    const QString x = QStringLiteral("x");
    QTest::newRow("exact at 13 figures, nothing more to show")
        << 1.0 << x << x << 13 << false << true << 1000.0 << "1.000 000 000 000"
        << "Exact Factors  (Current: 13)" << false;
    QTest::newRow("exact at 12 figures, more available")
        << 1.0 << x << x << 12 << false << true << 1000.0 << "1.000 000 000 00"
        << "Exact Factors  (Current: 12)" << true;
    QTest::newRow("degrees to radians shows Max 13")
        << 0.0174532925199433 << "1.74532925199433E-02" << x << 7 << false << true << 1000.0
        << "1.745 329 E-2"
        << "Max: 13  (Current: 7)" << true;
    QTest::newRow("factor of three digits limits the result")
        << 0.3048 << "0.0254" << x << 7 << false << true << 1000.0 << "0.305"
        << "Max: 3  (Current: 7)" << false;
    QTest::newRow("the smaller of two inexact counts")
        << 2.0 << "0.0254"
        << "0.3048" << 7 << false << true << 1000.0 << "2.00"
        << "Max: 3  (Current: 7)" << false;
    QTest::newRow("target side inexact")
        << 2.0 << x << "0.3048" << 7 << false << true << 1000.0 << "2.000"
        << "Max: 4  (Current: 7)" << false;
    QTest::newRow("maximum itself is regular")
        << 1000.0 << x << x << 7 << false << true << 1000.0 << "1 000.000"
        << "Exact Factors  (Current: 7)" << true;
    QTest::newRow("above the maximum is scientific")
        << 1000.5 << x << x << 7 << false << true << 1000.0 << "1.000 500 E+3"
        << "Exact Factors  (Current: 7)" << true;
    QTest::newRow("minimum itself is regular")
        << 0.1 << x << x << 7 << false << true << 1000.0 << "0.100 000 0"
        << "Exact Factors  (Current: 7)" << true;
    QTest::newRow("below the minimum is scientific")
        << 0.0999 << x << x << 7 << false << true << 1000.0 << "9.990 000 E-2"
        << "Exact Factors  (Current: 7)" << true;
    QTest::newRow("zero is below any minimum")
        << 0.0 << x << x << 7 << false << true << 1000.0 << "0.000 000 E+0"
        << "Exact Factors  (Current: 7)" << true;
    QTest::newRow("scientific setting")
        << 12.0 << x << x << 7 << true << true << 1000.0 << "1.200 000 E+1"
        << "Exact Factors  (Current: 7)" << true;
    QTest::newRow("triads off") << 1234567.891 << x << x << 10 << false << false << 1e9
                                << "1234567.891"
                                << "Exact Factors  (Current: 10)" << true;
    QTest::newRow("triads on both sides of the point")
        << 1234567.891 << x << x << 10 << false << true << 1e9 << "1 234 567.891"
        << "Exact Factors  (Current: 10)" << true;
    QTest::newRow("whole number rounded, not padded")
        << 1234.0 << x << x << 2 << false << true << 1e9 << "1 200"
        << "Exact Factors  (Current: 2)" << true;
    QTest::newRow("padded with a point and zeros")
        << 1.5 << x << x << 4 << false << false << 1000.0 << "1.500"
        << "Exact Factors  (Current: 4)" << true;
    QTest::newRow("padded after leading zeros")
        << 0.05 << x << x << 3 << false << false << 1000.0 << "5.00E-2"
        << "Exact Factors  (Current: 3)" << true;
    QTest::newRow("one figure groups the exponent")
        << 5e12 << x << x << 1 << false << true << 1000.0 << "5E +12"
        << "Exact Factors  (Current: 1)" << true;
    QTest::newRow("nine fraction digits keep their blank before the exponent")
        << 123456.789 << x << x << 10 << true << true << 1000.0 << "1.234 567 890 E+5"
        << "Exact Factors  (Current: 10)" << true;
    QTest::newRow("eight fraction digits")
        << 123456.789 << x << x << 9 << true << true << 1000.0 << "1.234 567 89E+5"
        << "Exact Factors  (Current: 9)" << true;
    QTest::newRow("negative value groups its digits, not its sign")
        << -1234.5 << x << x << 7 << false << true << 1e9 << "-1 234.500"
        << "Exact Factors  (Current: 7)" << true;
    QTest::newRow("negative three-digit integer part")
        << -273.15 << x << x << 7 << false << true << 1000.0 << "-273.150 0"
        << "Exact Factors  (Current: 7)" << true;
    QTest::newRow("rounding half away from zero")
        << 1.0005 << x << x << 4 << false << false << 1000.0 << "1.001"
        << "Exact Factors  (Current: 4)" << true;
}

void tst_NumberFormat::formatResult()
{
    QFETCH(double, value);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, sigFigs);
    QFETCH(bool, scientific);
    QFETCH(bool, triads);
    QFETCH(double, maxNumber);
    QFETCH(QString, text);
    QFETCH(QString, status);
    QFETCH(bool, moreFigures);

    Settings settings;
    settings.SigFigs = sigFigs;
    settings.Scientific = scientific;
    settings.Triads = triads;
    settings.MaxNumber = maxNumber;
    const FormattedResult result = NumberFormat::FormatResult(value, from, to, settings);
    QCOMPARE(result.text, text);
    QCOMPARE(result.statusText.value_or(QString()), status);
    QCOMPARE(result.moreFiguresAvailable.value_or(!moreFigures), moreFigures);
    QVERIFY(!result.notice);
}

void tst_NumberFormat::paddingCountsOnlySignificantZeros()
{
    Settings settings;
    settings.SigFigs = 3;
    settings.MinNumber = 0.01;
    const QString x = QStringLiteral("x");
    QCOMPARE(NumberFormat::FormatResult(0.05, x, x, settings).text, QStringLiteral("0.050 0"));
    settings.Triads = false;
    QCOMPARE(NumberFormat::FormatResult(0.05, x, x, settings).text, QStringLiteral("0.0500"));
}

void tst_NumberFormat::zeroWithoutAMinimumIsWrittenPlainly()
{
    // A stored minimum of 0 or below makes zero regular; it has no significant digit to pad,
    // and padding must still come to an end.
    Settings settings;
    settings.MinNumber = 0;
    const QString x = QStringLiteral("x");
    const FormattedResult seven = NumberFormat::FormatResult(0.0, x, x, settings);
    QVERIFY(!seven.notice);
    QVERIFY(!seven.text.contains(u'E'));
    QCOMPARE(NumberText::leadingNumber(seven.text), 0.0);
    settings.MinNumber = -1;
    settings.SigFigs = 1;
    const FormattedResult one = NumberFormat::FormatResult(-0.0, x, x, settings);
    QVERIFY(!one.text.contains(u'E'));
    QCOMPARE(NumberText::leadingNumber(one.text), 0.0);
}

void tst_NumberFormat::formattingErrorsBecomeMessages_data()
{
    QTest::addColumn<QString>("factorText");
    QTest::addColumn<int>("sigFigs");
    QTest::addColumn<QString>("message");
    QTest::newRow("factor text with a D exponent")
        << "1d5" << 7 << "Error # 5\nInvalid procedure call or argument";
    QTest::newRow("zero significant figures")
        << "x" << 0 << "Error # 5\nInvalid procedure call or argument";
}

void tst_NumberFormat::formattingErrorsBecomeMessages()
{
    QFETCH(QString, factorText);
    QFETCH(int, sigFigs);
    QFETCH(QString, message);
    Settings settings;
    settings.SigFigs = sigFigs;
    const FormattedResult result
        = NumberFormat::FormatResult(2.0, factorText, QStringLiteral("x"), settings);
    QCOMPARE(result.text, QString());
    QVERIFY(result.notice);
    QCOMPARE(result.notice->text, message);
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
    const QString ungrouped = NumberFormat::FormatResult(value, x, x, plain).text;
    QVERIFY(shown.contains(u' '));
    QCOMPARE(NumberText::leadingNumber(NumberFilter::filter(shown)),
        NumberText::leadingNumber(ungrouped));
}

QTEST_GUILESS_MAIN(tst_NumberFormat)
#include "tst_NumberFormat.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Reading numbers from text (lenient and strict) and writing them back.
#include "convert/NumberText.h"

#include <cmath>
#include <QTest>

class tst_NumberText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leadingNumber_data();
    void leadingNumber();
    void leadingNumberBeyondDoubleRange();
    void howMuchTheLenientReadingUses_data();
    void howMuchTheLenientReadingUses();
    void strictReading_data();
    void strictReading();
    void wholeNumbersRoundHalfToEven_data();
    void wholeNumbersRoundHalfToEven();
    void booleans_data();
    void booleans();
    void shortestText_data();
    void shortestText();
    void scientific_data();
    void scientific();
};

void tst_NumberText::leadingNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("plain") << "12" << 12.0;
    QTest::newRow("decimal point is always a point") << "12.5" << 12.5;
    QTest::newRow("comma stops the number") << "12,5" << 12.0;
    QTest::newRow("blanks inside are skipped") << "1 234.5" << 1234.5;
    QTest::newRow("tabs inside are skipped") << "1\t234" << 1234.0;
    QTest::newRow("leading blanks") << "   7" << 7.0;
    QTest::newRow("negative") << "-4.2" << -4.2;
    QTest::newRow("plus sign") << "+3" << 3.0;
    QTest::newRow("exponent E") << "1.5E3" << 1500.0;
    QTest::newRow("exponent e negative") << "12.5e-3kg" << 0.0125;
    QTest::newRow("exponent D") << "3D2" << 300.0;
    QTest::newRow("exponent d with sign") << "3d+2" << 300.0;
    QTest::newRow("exponent without digits is ignored") << "3e" << 3.0;
    QTest::newRow("exponent sign without digits") << "3e+" << 3.0;
    QTest::newRow("second point stops") << "1.2.3" << 1.2;
    QTest::newRow("sign after digits stops") << "4-2" << 4.0;
    QTest::newRow("no number") << "abc" << 0.0;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("lone point") << "." << 0.0;
    QTest::newRow("fraction only") << ".5" << 0.5;
    QTest::newRow("triads pasted back") << "1 234 567.891 2" << 1234567.8912;
    QTest::newRow("triads before exponent") << "1.234 567 890 E+5" << 123456.789;
    QTest::newRow("tiny underflows to zero") << "1e-999" << 0.0;
}

void tst_NumberText::leadingNumber()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    QCOMPARE(NumberText::leadingNumber(text), expected);
}

void tst_NumberText::leadingNumberBeyondDoubleRange()
{
    QVERIFY(std::isinf(NumberText::leadingNumber(u"1e999")));
    QVERIFY(NumberText::leadingNumber(u"-1e400") < 0);
    QVERIFY(std::isinf(NumberText::leadingNumber(u"-1e400")));
    QVERIFY(std::isinf(NumberText::leadingNumber(u"0.0001e313")));
    QCOMPARE(NumberText::leadingNumber(u"0.00001e-320"), 0.0);
    // An exponent beyond what a long holds still overflows to infinity.
    QVERIFY(std::isinf(NumberText::leadingNumber(u"133 E8888888888888888888888873")));
    QCOMPARE(NumberText::leadingNumber(u"1e-8888888888888888888888888"), 0.0);
}

void tst_NumberText::howMuchTheLenientReadingUses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("hasDigits");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("length");
    QTest::newRow("whole number") << "12" << true << 12.0 << 2;
    QTest::newRow("tab in front and blank behind are used") << "\t12 " << true << 12.0 << 4;
    QTest::newRow("negative fraction without a leading zero") << "-.5" << true << -0.5 << 3;
    QTest::newRow("exponent read to its end") << "1e5x" << true << 1e5 << 3;
    QTest::newRow("blanks inside are used") << "1 234.5" << true << 1234.5 << 7;
    QTest::newRow("comma: only what stands before it") << "1,500" << true << 1.0 << 1;
    QTest::newRow("fraction: only the numerator") << "3/8" << true << 3.0 << 1;
    QTest::newRow("mixed number: the blank is skipped") << "1 1/2" << true << 11.0 << 3;
    QTest::newRow("unit after a blank") << "12 kg" << true << 12.0 << 3;
    QTest::newRow("exponent letter without digits is not used") << "3e" << true << 3.0 << 1;
    QTest::newRow("second point") << "1.2.3" << true << 1.2 << 3;
    QTest::newRow("word") << "dozen" << false << 0.0 << 0;
    QTest::newRow("exponent without a mantissa") << "e5" << false << 0.0 << 0;
    QTest::newRow("point and letters") << ".abc" << false << 0.0 << 0;
    QTest::newRow("sign and letters") << "+abc" << false << 0.0 << 0;
    QTest::newRow("infinity") << "-inf" << false << 0.0 << 0;
    QTest::newRow("not a number") << "-NaN" << false << 0.0 << 0;
    QTest::newRow("sign alone") << "+" << false << 0.0 << 0;
    QTest::newRow("blanks only") << "  " << false << 0.0 << 0;
}

void tst_NumberText::howMuchTheLenientReadingUses()
{
    QFETCH(QString, text);
    QFETCH(bool, hasDigits);
    QFETCH(double, value);
    QFETCH(int, length);
    const NumberText::LeadingNumber reading = NumberText::readLeadingNumber(text);
    QCOMPARE(reading.hasDigits, hasDigits);
    QCOMPARE(reading.value, value);
    QCOMPARE(reading.length, qsizetype(length));
    QCOMPARE(reading.value, NumberText::leadingNumber(text));
}

void tst_NumberText::strictReading_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QChar>("localeDecimal");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("error");
    QTest::newRow("number") << "1000" << QChar(u'.') << 1000.0 << 0;
    QTest::newRow("surrounding blanks") << " 0.1 " << QChar(u'.') << 0.1 << 0;
    QTest::newRow("exponent") << "1e+9" << QChar(u'.') << 1e9 << 0;
    QTest::newRow("locale comma") << "0,5" << QChar(u',') << 0.5 << 0;
    QTest::newRow("point with comma locale") << "0.5" << QChar(u',') << 0.5 << 0;
    QTest::newRow("words") << "abc" << QChar(u'.') << 0.0 << int(RuntimeError::TypeMismatch);
    QTest::newRow("trailing text")
        << "12kg" << QChar(u'.') << 0.0 << int(RuntimeError::TypeMismatch);
    QTest::newRow("blank inside") << "1 000" << QChar(u'.') << 0.0
                                  << int(RuntimeError::TypeMismatch);
    QTest::newRow("empty") << "" << QChar(u'.') << 0.0 << int(RuntimeError::TypeMismatch);
    QTest::newRow("too big") << "1e999" << QChar(u'.') << 0.0 << int(RuntimeError::Overflow);
}

void tst_NumberText::strictReading()
{
    QFETCH(QString, text);
    QFETCH(QChar, localeDecimal);
    QFETCH(double, expected);
    QFETCH(int, error);
    try {
        const double value = NumberText::toDouble(text, localeDecimal);
        QCOMPARE(error, 0);
        QCOMPARE(value, expected);
    } catch (const RuntimeError &e) {
        QCOMPARE(e.number, error);
    }
}

void tst_NumberText::wholeNumbersRoundHalfToEven_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::addColumn<int>("error");
    QTest::newRow("one") << "1" << 1 << 0;
    QTest::newRow("half to even down") << "2.5" << 2 << 0;
    QTest::newRow("half to even up") << "3.5" << 4 << 0;
    QTest::newRow("negative half") << "-0.5" << 0 << 0;
    QTest::newRow("largest") << "32767" << 32767 << 0;
    QTest::newRow("smallest") << "-32768" << -32768 << 0;
    QTest::newRow("overflow") << "32768" << 0 << int(RuntimeError::Overflow);
    QTest::newRow("rounds into overflow") << "32767.5" << 0 << int(RuntimeError::Overflow);
    QTest::newRow("not a number") << "yes" << 0 << int(RuntimeError::TypeMismatch);
}

void tst_NumberText::wholeNumbersRoundHalfToEven()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    QFETCH(int, error);
    try {
        const int value = NumberText::toInt16(text);
        QCOMPARE(error, 0);
        QCOMPARE(value, expected);
    } catch (const RuntimeError &e) {
        QCOMPARE(e.number, error);
    }
}

void tst_NumberText::booleans_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    QTest::addColumn<int>("error");
    QTest::newRow("1") << "1" << true << 0;
    QTest::newRow("-1") << "-1" << true << 0;
    QTest::newRow("true any case") << "TRUE" << true << 0;
    QTest::newRow("0") << "0" << false << 0;
    QTest::newRow("false") << "false" << false << 0;
    QTest::newRow("other number") << "2" << true << 0;
    QTest::newRow("word") << "maybe" << false << int(RuntimeError::TypeMismatch);
    QTest::newRow("empty") << "" << false << int(RuntimeError::TypeMismatch);
}

void tst_NumberText::booleans()
{
    QFETCH(QString, text);
    QFETCH(bool, expected);
    QFETCH(int, error);
    try {
        const bool value = NumberText::toBoolean(text);
        QCOMPARE(error, 0);
        QCOMPARE(value, expected);
    } catch (const RuntimeError &e) {
        QCOMPARE(e.number, error);
    }
}

void tst_NumberText::shortestText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("negative zero") << -0.0 << "0";
    QTest::newRow("whole") << 1200.0 << "1200";
    QTest::newRow("fraction") << 0.05 << "0.05";
    QTest::newRow("fifteen digits at most") << 0.1 + 0.2 << "0.3";
    QTest::newRow("rounded product") << 1.235 * 1e8 << "123500000";
    QTest::newRow("negative") << -273.15 << "-273.15";
    QTest::newRow("smallest plain") << 1e-9 << "0.000000001";
    QTest::newRow("billion plain") << 1e9 << "1000000000";
    QTest::newRow("large exponent") << 1.5e15 << "1.5E+15";
    QTest::newRow("small exponent") << 1e-10 << "1E-10";
}

void tst_NumberText::shortestText()
{
    QFETCH(double, value);
    QFETCH(QString, expected);
    QCOMPARE(NumberText::shortestText(value), expected);
}

void tst_NumberText::scientific_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("figures");
    QTest::addColumn<QString>("expected");
    QTest::newRow("rounds to four figures") << 123456789.0 << 4 << "1.235E+8";
    QTest::newRow("pads with zeros") << 0.00012 << 4 << "1.200E-4";
    QTest::newRow("one") << 1.0 << 4 << "1.000E+0";
    QTest::newRow("zero") << 0.0 << 7 << "0.000000E+0";
    QTest::newRow("one figure has no point") << 5e12 << 1 << "5E+12";
    QTest::newRow("negative") << -2.5e-7 << 2 << "-2.5E-7";
    QTest::newRow("half away from zero on the decimal value") << 1.0005 << 4 << "1.001E+0";
    QTest::newRow("negative half away from zero") << -1.0005 << 4 << "-1.001E+0";
    QTest::newRow("binary just below half still rounds as written") << 0.125 << 2 << "1.3E-1";
    QTest::newRow("carry into the exponent") << 9.9996 << 4 << "1.000E+1";
    QTest::newRow("below half") << 1.00049 << 4 << "1.000E+0";
    QTest::newRow("thirteen figures") << 1.0 / 3.0 << 13 << "3.333333333333E-1";
    QTest::newRow("degree in radians") << 0.0174532925199433 << 7 << "1.745329E-2";
}

void tst_NumberText::scientific()
{
    QFETCH(double, value);
    QFETCH(int, figures);
    QFETCH(QString, expected);
    QCOMPARE(NumberText::scientific(value, figures), expected);
}

QTEST_GUILESS_MAIN(tst_NumberText)
#include "tst_NumberText.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Reading numbers from text, leniently and strictly, cutting pasted text down to its number, and
// writing numbers back both as strings and into a caller's buffer; the cases are in
// leading_numbers.tsv, strict_readings.tsv, pasted_texts.tsv and written_numbers.tsv. The
// digits of the written texts are also checked against the C library's own decimal conversion
// over values of every magnitude.
#include "convert/NumberFilter.h"
#include "convert/NumberText.h"

#include "TestTable.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <QRandomGenerator>
#include <QTest>

class tst_NumberText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leadingNumber_data();
    void leadingNumber();
    void strictReadings_data();
    void strictReadings();
    void pastedTexts_data();
    void pastedTexts();
    void writtenTexts_data();
    void writtenTexts();
    void digitsAgreeWithTheCLibrary();
};

void tst_NumberText::leadingNumber_data()
{
    addTestTableRows("leading_numbers.tsv", 4);
    // Beyond a double's range, too small told from too large however many zeros lead
    QTest::newRow("1E-401 written with 400 zeros")
        << QStringList { "0." + QString(400, u'0') + u'1', "0", "403" };
}

void tst_NumberText::leadingNumber()
{
    QFETCH(QStringList, fields); // text, value, characters read (blanks around the number too)
    const double value = fields[1].toDouble();
    const int length = fields[2].toInt();
    QCOMPARE(NumberText::leadingNumber(fields[0]), value);
    const NumberText::LeadingNumber reading = NumberText::readLeadingNumber(fields[0]);
    QCOMPARE(reading.value, value);
    QCOMPARE(reading.length, qsizetype(length));
    QCOMPARE(reading.hasDigits, length > 0);
}

void tst_NumberText::strictReadings_data()
{
    addTestTableRows("strict_readings.tsv", 6);
}

void tst_NumberText::strictReadings()
{
    QFETCH(QStringList, fields); // read as, text, decimal separator, value, error
    const QString &as = fields[0], &text = fields[1];
    const QChar localeDecimal = fields[2].front();
    const int error = fields[4].isEmpty()         ? 0
        : fields[4] == QStringLiteral("overflow") ? int(RuntimeError::Overflow)
                                                  : int(RuntimeError::TypeMismatch);
    try {
        double value = 0;
        if (as == QStringLiteral("double"))
            value = NumberText::toDouble(text, localeDecimal);
        else if (as == QStringLiteral("int16"))
            value = NumberText::toInt16(text, localeDecimal);
        else if (as == QStringLiteral("int32"))
            value = NumberText::toInt32(text, localeDecimal);
        else
            value = NumberText::toBoolean(text, localeDecimal) ? 1 : 0;
        QCOMPARE(error, 0);
        QCOMPARE(value, fields[3].toDouble());
    } catch (const RuntimeError &e) {
        QCOMPARE(e.number, error);
    }
}

void tst_NumberText::pastedTexts_data()
{
    addTestTableRows("pasted_texts.tsv", 3);
}

void tst_NumberText::pastedTexts()
{
    QFETCH(QStringList, fields); // pasted, entered
    QCOMPARE(NumberFilter::filter(fields[0]), fields[1]);
}

void tst_NumberText::writtenTexts_data()
{
    addTestTableRows("written_numbers.tsv", 4);
}

// The string and the caller's buffer of the size asked for say the same, and nothing is
// written beyond that buffer.
void tst_NumberText::writtenTexts()
{
    QFETCH(QStringList, fields); // value, figures (0: the shortest text), text
    const double value = fields[0].toDouble();
    const int figures = fields[1].toInt();
    const int capacity
        = figures ? figures + NumberText::ScientificExtra : NumberText::ShortestTextCapacity;
    QByteArray buffer(capacity + 8, '#');
    const qsizetype length = figures ? NumberText::scientific(value, figures, buffer.data())
                                     : NumberText::shortestText(value, buffer.data());
    QCOMPARE(QString::fromLatin1(buffer.constData(), length), fields[2]);
    QCOMPARE(buffer.mid(capacity), QByteArray(8, '#'));
    QCOMPARE(figures ? NumberText::scientific(value, figures) : NumberText::shortestText(value),
        fields[2]);
}

// Fifteen significant digits of values of every magnitude, as the C library writes them: the
// shortest text reads back to the same decimal number, and the fifteen-figure picture has the
// same digits and exponent.
void tst_NumberText::digitsAgreeWithTheCLibrary()
{
    QRandomGenerator random(1998);
    char reference[40];
    for (int i = 0; i < 40000; ++i) {
        double value;
        if (i % 3 == 0) { // any finite double
            quint64 bits = random.generate64();
            if (((bits >> 52) & 0x7ff) == 0x7ff)
                bits ^= quint64(1) << 62;
            std::memcpy(&value, &bits, sizeof value);
        } else if (i % 3 == 1) { // where most conversions are
            value = (random.generateDouble() * 9 + 1) * std::pow(10.0, random.bounded(-12, 40));
        } else { // a fifteenth digit followed by a five: near a tie, or on one
            value = (std::floor(random.bounded(9e14)) + 1e14 + 0.5)
                * std::pow(10.0, random.bounded(-30, 10));
        }
        std::snprintf(reference, sizeof reference, "%.14e", value);
        const QByteArray shortest = NumberText::shortestText(value).toLatin1();
        QVERIFY2(std::strtod(shortest.constData(), nullptr) == std::strtod(reference, nullptr),
            (shortest + " for " + reference).constData());
        if (value == 0)
            continue;
        const QByteArray picture = NumberText::scientific(value, 15).toLatin1();
        const QByteArray digits = QByteArray(reference).replace(".", "").left(value < 0 ? 16 : 15);
        QVERIFY2(QByteArray(picture).replace(".", "").startsWith(digits + 'E'),
            (picture + " for " + reference).constData());
        QCOMPARE(std::atoi(picture.constData() + picture.indexOf('E') + 1),
            std::atoi(std::strchr(reference, 'e') + 1));
    }
}

QTEST_GUILESS_MAIN(tst_NumberText)
#include "tst_NumberText.moc"

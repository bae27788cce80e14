// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Printed reports, checked on PDF: every line on the page in order, new pages when needed, the
// heading larger than the rest; the offer of a PDF file on a computer without a printer; and the
// main window's two commands for all conversions of a value.
#include "records/PdfText.h"
#include "records/PrintReport.h"
#include "records/ReportPrinter.h"
#include "records/TestRecords.h"
#include "records/UnitReportCommands.h"
#include "support/ScriptedDialogs.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using Lines = QList<ReportLine>;

static QStringList simplifiedTexts(const Lines &lines)
{
    QStringList texts;
    for (const ReportLine &line : lines)
        if (!line.text.simplified().isEmpty())
            texts.append(line.text.simplified());
    return texts;
}

static UnitReport temperatureReport()
{
    UnitReport report;
    report.fromValue = "100";
    report.fromUnit = "Celsius (\u00B0C)";
    report.quantity = "Temperature";
    report.lines = { { "100", "Celsius (\u00B0C)" }, { "373.15", "kelvin (K)" },
        { "212", "Fahrenheit (\u00B0F)" } };
    return report;
}

class tst_ReportPrinter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pdfHoldsEveryLine_data();
    void pdfHoldsEveryLine();
    void headingIsLargerThanBody();
    void noPrinterOffersPdf_data();
    void noPrinterOffersPdf();
    void printAllConversionsAsks_data();
    void printAllConversionsAsks();
    void saveAllConversions();

private:
    QTemporaryDir temp;
    ScriptedDialogs dialogs;
};

void tst_ReportPrinter::init()
{
    if (!pdfToTextAvailable())
        QSKIP("pdftotext (poppler-utils) is not installed");
    dialogs.clear();
}

void tst_ReportPrinter::cleanup()
{
    QVERIFY2(dialogs.scriptDone(), "a dialog that the test expected was not shown");
}

void tst_ReportPrinter::pdfHoldsEveryLine_data()
{
    QTest::addColumn<Lines>("lines");
    QTest::addColumn<int>("pages"); // at least
    QTest::newRow("all conversions of a value")
        << PrintReport::unitReport(temperatureReport()) << 1;
    Records many;
    for (int i = 1; i <= 150; ++i)
        many.append(conversion(QString::number(i), "metre (m)", QString::number(i * 100),
            "centimetre (cm)", "Length"));
    // 156 lines of 12 points cannot fit on two pages of A4 or Letter.
    QTest::newRow("150 marked conversions run over several pages")
        << PrintReport::markedReport(many) << 3;
    const QString longName = QStringLiteral("very long unit name ").repeated(12).trimmed();
    QTest::newRow("a line wider than the page wraps")
        << PrintReport::markedReport({ conversion("1", longName, "2", "b", "q") }) << 1;
}

void tst_ReportPrinter::pdfHoldsEveryLine()
{
    QFETCH(Lines, lines);
    QFETCH(int, pages);
    const QString path = temp.filePath("report.pdf");
    QCOMPARE(ReportPrinter::savePdf(path, lines), QString());
    const QString text = pdfText(path);
    QVERIFY(!text.isNull());
    // Wrapped lines come back as several; join the words to compare.
    QCOMPARE(simplifiedLines(text).join(u' '), simplifiedTexts(lines).join(u' '));
    QVERIFY(text.count(u'\f') >= pages);
    if (pages == 1)
        QCOMPARE(text.count(u'\f'), 1);
}

void tst_ReportPrinter::headingIsLargerThanBody()
{
    const QString path = temp.filePath("report.pdf");
    QCOMPARE(ReportPrinter::savePdf(path, PrintReport::unitReport(temperatureReport())), QString());
    const QString boxes = pdfText(path, { "-bbox" });
    // <word xMin=".." yMin=".." xMax=".." yMax="..">text</word>
    const QRegularExpression word(R"re(yMin="([\d.]+)" xMax="[\d.]+" yMax="([\d.]+)">([^<]*)<)re");
    QMap<QString, double> heights;
    for (const auto &match : word.globalMatch(boxes)) {
        if (!heights.contains(match.captured(3)))
            heights.insert(
                match.captured(3), match.captured(2).toDouble() - match.captured(1).toDouble());
    }
    QVERIFY(heights.contains("report") && heights.contains("entered"));
    QVERIFY2(heights["report"] > heights["entered"] * 1.1, "the heading is printed larger");
}

void tst_ReportPrinter::noPrinterOffersPdf_data()
{
    QTest::addColumn<Dialogs::Answer>("answer");
    QTest::addColumn<QString>("fileName"); // "" for a cancelled file dialog
    QTest::addColumn<int>("outcome");
    QTest::newRow("saved as PDF") << Dialogs::Yes << "report.pdf" << int(ReportPrinter::SavedAsPdf);
    QTest::newRow("declined") << Dialogs::No << "" << int(ReportPrinter::NotPrinted);
    QTest::newRow("file dialog cancelled") << Dialogs::Yes << "" << int(ReportPrinter::NotPrinted);
    QTest::newRow("folder gone") << Dialogs::Yes << "gone/report.pdf" << int(ReportPrinter::Failed);
}

void tst_ReportPrinter::noPrinterOffersPdf()
{
    QFETCH(Dialogs::Answer, answer);
    QFETCH(QString, fileName);
    QFETCH(int, outcome);
    ReportPrinter printer(dialogs, nullptr);
    printer.defaultPrinter = [] { return QPrinterInfo(); };
    dialogs.answerQuestion(answer);
    const QString path = fileName.isEmpty() ? QString() : temp.filePath(fileName);
    if (answer == Dialogs::Yes)
        dialogs.answerSaveFile(path);
    if (outcome == ReportPrinter::Failed)
        dialogs.expectMessage();

    const Lines lines = PrintReport::markedReport(
        { conversion("12", "metre (m)", "39.370 08", "inch (in)", "Length") });
    QCOMPARE(int(printer.print(lines)), outcome);

    // The question, the file dialog when answered Yes, and a message only when saving failed.
    QCOMPARE(dialogs.asked().size(),
        1 + (answer == Dialogs::Yes ? 1 : 0) + (outcome == ReportPrinter::Failed ? 1 : 0));
    QCOMPARE(dialogs.asked()[0].kind, ScriptedDialogs::Question);
    QCOMPARE(dialogs.asked()[0].notice.text,
        QStringLiteral(
            "No printer is set up on this computer.\n\nDo you want to save the report as a PDF "
            "file instead?"));
    if (answer == Dialogs::Yes) {
        QCOMPARE(dialogs.asked()[1].filter, QStringLiteral("PDF Files (*.pdf)"));
        QCOMPARE(dialogs.asked()[1].defaultName, QStringLiteral("untitled.pdf"));
        QCOMPARE(dialogs.asked()[1].defaultSuffix, QStringLiteral("pdf"));
    }
    if (outcome == ReportPrinter::SavedAsPdf)
        QCOMPARE(simplifiedLines(pdfText(path)), simplifiedTexts(lines));
    if (outcome == ReportPrinter::Failed) {
        QVERIFY(dialogs.asked()[2].notice.text.startsWith(
            "The report could not be saved to " + path + ":\n"));
        QVERIFY(!QFile::exists(path));
    }
}

void tst_ReportPrinter::printAllConversionsAsks_data()
{
    QTest::addColumn<Dialogs::Answer>("answer");
    QTest::newRow("yes") << Dialogs::Yes;
    QTest::newRow("no") << Dialogs::No;
}

void tst_ReportPrinter::printAllConversionsAsks()
{
    QFETCH(Dialogs::Answer, answer);
    UnitReportCommands commands(dialogs, nullptr);
    commands.printer().defaultPrinter = [] { return QPrinterInfo(); };
    const QString path = temp.filePath("all.pdf");
    dialogs.answerQuestion(answer);
    if (answer == Dialogs::Yes) {
        dialogs.answerQuestion(Dialogs::Yes); // save as PDF instead
        dialogs.answerSaveFile(path);
    }
    const auto outcome = commands.printAll(temperatureReport());
    QVERIFY(!dialogs.asked().isEmpty());
    QCOMPARE(dialogs.asked()[0].notice.text,
        QStringLiteral(
            "Print a copy (to the default printer) of all of the possible conversions for \n"
            "100 Celsius (\u00B0C)?"));
    QCOMPARE(dialogs.asked()[0].notice.icon, Notice::Exclamation);
    if (answer == Dialogs::No) {
        QCOMPARE(outcome, ReportPrinter::NotPrinted);
        QCOMPARE(dialogs.asked().size(), 1);
        return;
    }
    QCOMPARE(outcome, ReportPrinter::SavedAsPdf);
    QCOMPARE(simplifiedLines(pdfText(path)),
        QStringList({ "Conversion report generated by Mensura 98",
            "(Mensura - unit conversions following CAN/CSA-Z234.1-89 and NIST SP 811)",
            "The value you entered was: 100 Celsius (\u00B0C)",
            "Upon conversion, 100 Celsius (\u00B0C) equals:", "1. 100 Celsius (\u00B0C)",
            "2. 373.15 kelvin (K)", "3. 212 Fahrenheit (\u00B0F)" }));
}

void tst_ReportPrinter::saveAllConversions()
{
    UnitReportCommands commands(dialogs, nullptr);
    const QString path = temp.filePath("all.txt");
    dialogs.answerSaveFile(path);
    QVERIFY(commands.saveAll(temperatureReport()));
    QCOMPARE(dialogs.asked().size(), 1); // the file dialog only, no message
    QCOMPARE(dialogs.asked()[0].defaultName, QStringLiteral("untitled.txt"));
    QCOMPARE(dialogs.asked()[0].defaultSuffix, QStringLiteral("txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
        Opening
            + "     1.     100  Celsius (\xB0"
              "C)  =  100  Celsius (\xB0"
              "C)  [Temperature]\r\n"
              "     2.     100  Celsius (\xB0"
              "C)  =  373.15  kelvin (K)  [Temperature]\r\n"
              "     3.     100  Celsius (\xB0"
              "C)  =  212  Fahrenheit (\xB0"
              "F)  [Temperature]\r\n");

    dialogs.answerSaveFile(temp.filePath("gone/all.txt"));
    dialogs.expectMessage();
    QVERIFY(!commands.saveAll(temperatureReport()));
    QCOMPARE(dialogs.asked().size(), 3);
    QVERIFY(dialogs.asked()[2].notice.text.startsWith("The conversions could not be saved to "));
}

QTEST_MAIN(tst_ReportPrinter)
#include "tst_ReportPrinter.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Printed reports, checked on PDF: every line on the page in order, new pages when needed, the
// heading larger than the rest; the offer of a PDF file on a computer without a printer; and the
// main window's two commands for all conversions of a value.
#include "records/PdfText.h"
#include "records/PrintReport.h"
#include "records/RecordsFakes.h"
#include "records/ReportPrinter.h"
#include "records/TestRecords.h"
#include "records/UnitReportCommands.h"

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
    ScriptDialogs dialogs;
};

void tst_ReportPrinter::init()
{
    if (!pdfToTextAvailable())
        QSKIP("pdftotext (poppler-utils) is not installed");
    dialogs = ScriptDialogs();
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
    dialogs.answers.enqueue(answer);
    const QString path = fileName.isEmpty() ? QString() : temp.filePath(fileName);
    if (answer == Dialogs::Yes)
        dialogs.fileNames.enqueue(path);

    const Lines lines = PrintReport::markedReport(
        { conversion("12", "metre (m)", "39.370 08", "inch (in)", "Length") });
    QCOMPARE(int(printer.print(lines)), outcome);

    QCOMPARE(dialogs.questions.size(), 1);
    QCOMPARE(dialogs.questions[0].text,
        QStringLiteral(
            "No printer is set up on this computer.\n\nDo you want to save the report as a PDF "
            "file instead?"));
    if (answer == Dialogs::Yes) {
        QCOMPARE(dialogs.fileFilters, QStringList { "PDF Files (*.pdf)" });
        QCOMPARE(dialogs.saveDefaults, QStringList { "untitled.pdf|pdf" });
    }
    if (outcome == ReportPrinter::SavedAsPdf)
        QCOMPARE(simplifiedLines(pdfText(path)), simplifiedTexts(lines));
    if (outcome == ReportPrinter::Failed) {
        QCOMPARE(dialogs.messages.size(), 1);
        QVERIFY(dialogs.messages[0].text.startsWith(
            "The report could not be saved to " + path + ":\n"));
        QVERIFY(!QFile::exists(path));
    } else {
        QVERIFY(dialogs.messages.isEmpty());
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
    dialogs.answers.enqueue(answer);
    if (answer == Dialogs::Yes) {
        dialogs.answers.enqueue(Dialogs::Yes); // save as PDF instead
        dialogs.fileNames.enqueue(path);
    }
    const auto outcome = commands.printAll(temperatureReport());
    QCOMPARE(dialogs.questions[0].text,
        QStringLiteral(
            "Print a copy (to the default printer) of all of the possible conversions for \n"
            "100 Celsius (\u00B0C)?"));
    QCOMPARE(dialogs.questions[0].icon, Notice::Exclamation);
    if (answer == Dialogs::No) {
        QCOMPARE(outcome, ReportPrinter::NotPrinted);
        QCOMPARE(dialogs.questions.size(), 1);
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
    dialogs.fileNames.enqueue(path);
    QVERIFY(commands.saveAll(temperatureReport()));
    QCOMPARE(dialogs.saveDefaults, QStringList { "untitled.txt|txt" });
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

    dialogs.fileNames.enqueue(temp.filePath("gone/all.txt"));
    QVERIFY(!commands.saveAll(temperatureReport()));
    QCOMPARE(dialogs.messages.size(), 1);
    QVERIFY(dialogs.messages[0].text.startsWith("The conversions could not be saved to "));
}

QTEST_MAIN(tst_ReportPrinter)
#include "tst_ReportPrinter.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The marked conversions window driven as a user drives it: lines shown for marked conversions,
// selection texts, menu states, copy, delete, make current, save and load with their failures
// and cancelling, and the window's placement.
#include "help/HelpTopics.h"
#include "records/ConversionsFile.h"
#include "records/frmConvRecords.h"
#include "records/PdfText.h"
#include "records/RecordsFakes.h"
#include "records/TestRecords.h"
#include "shell/HiveFile.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"
#include "support/ScriptedDialogs.h"

#include <memory>
#include <QAbstractItemModel>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

class tst_frmConvRecords : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void markedLinesAndCounts();
    void selectionText_data();
    void selectionText();
    void menuStates_data();
    void menuStates();
    void menuTexts_data();
    void menuTexts();
    void deleteSelected_data();
    void deleteSelected();
    void deleteAllAsksTheMainWindow();
    void copyToClipboard_data();
    void copyToClipboard();
    void makeCurrent_data();
    void makeCurrent();
    void printChosenLines_data();
    void printChosenLines();
    void saveWritesTheChosenLines_data();
    void saveWritesTheChosenLines();
    void saveFailureIsReported();
    void cancelledSaveKeepsTheOldFile();
    void loadAddsRecords_data();
    void loadAddsRecords();
    void cancelledLoadKeepsWhatWasRead();
    void longLinesScrollIntoView();
    void closingHidesAndKeepsTheList();
    void helpButtonAsksForItsTopic();
    void statusBarIsWholeAtTheDefaultSize();
    void placement_data();
    void placement();

private:
    QListView *list() const { return window->findChild<QListView *>("lstConvRecords"); }
    QAction *action(const char *name) const { return window->findChild<QAction *>(name); }
    QString panel(const char *name) const { return window->findChild<QLabel *>(name)->text(); }
    void select(const QList<int> &rows);
    QStringList shownLines() const;
    void addNumbered(int n);
    QString writeFile(const QString &name, const QByteArray &bytes);

    std::unique_ptr<QTemporaryDir> temp;
    std::unique_ptr<SettingsStore> store;
    Settings settings;
    Session session;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<FakeMainWindow> mainWindow;
    std::unique_ptr<frmConvRecords> window;
};

void tst_frmConvRecords::init()
{
    temp = std::make_unique<QTemporaryDir>();
    store = std::make_unique<SettingsStore>(std::make_unique<HiveFile>(temp->filePath("hive.reg")));
    session = Session();
    dialogs = std::make_unique<ScriptedDialogs>();
    mainWindow = std::make_unique<FakeMainWindow>(session);
    window = std::make_unique<frmConvRecords>(settings, session, *store, *dialogs, *mainWindow);
}

void tst_frmConvRecords::cleanup()
{
    window.reset();
    QVERIFY2(dialogs->scriptDone(), "a dialog that the test expected was not shown");
}

void tst_frmConvRecords::select(const QList<int> &rows)
{
    list()->clearSelection();
    for (const int row : rows)
        list()->selectionModel()->select(
            list()->model()->index(row, 0), QItemSelectionModel::Select);
}

QStringList tst_frmConvRecords::shownLines() const
{
    QStringList lines;
    const QAbstractItemModel *model = list()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        lines.append(model->index(row, 0).data().toString());
    return lines;
}

void tst_frmConvRecords::addNumbered(int n)
{
    for (int i = 1; i <= n; ++i)
        window->AddConv(
            QString::number(i), "metre (m)", QString::number(i * 100), "centimetre (cm)", "Length");
}

QString tst_frmConvRecords::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = temp->filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

void tst_frmConvRecords::markedLinesAndCounts()
{
    QCOMPARE(panel("numconvs"), QStringLiteral("0 marked conversion(s) "));
    QCOMPARE(panel("mainmessage"), QStringLiteral("Prints, saves, or copies marked conversions"));
    session.MarkedConversionsSaved = true;

    window->AddConv("12", "metre (m)", "39.370 08", "inch (in)", "Length");
    window->AddConv("100", "Celsius (\u00B0C)", "212", "Fahrenheit (\u00B0F)", "Temperature");

    QCOMPARE(shownLines(),
        QStringList({ "Length\t\t  12  metre (m)  =  39.370 08  inch (in)",
            "Temperature\t\t  100  Celsius (\u00B0C)  =  212  Fahrenheit (\u00B0F)" }));
    QCOMPARE(window->count(), 2);
    QCOMPARE(window->conversions().at(1),
        conversion("100", "Celsius (\u00B0C)", "212", "Fahrenheit (\u00B0F)", "Temperature"));
    QCOMPARE(panel("numconvs"), QStringLiteral("2 marked conversion(s) "));
    QCOMPARE(mainWindow->counts.last(), 2);
    QVERIFY(!session.MarkedConversionsSaved);
}

void tst_frmConvRecords::selectionText_data()
{
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<QString>("text");
    QTest::newRow("one line") << QList<int> { 1 }
                              << "1 item selected out of 4 marked conversion(s) ";
    QTest::newRow("three lines") << QList<int> { 0, 2, 3 }
                                 << "3 items selected out of 4 marked conversion(s) ";
    QTest::newRow("selection cleared")
        << QList<int>() << "0 items selected out of 4 marked conversion(s) ";
}

void tst_frmConvRecords::selectionText()
{
    QFETCH(QList<int>, rows);
    QFETCH(QString, text);
    addNumbered(4);
    select({ 0, 1 });
    select(rows);
    QCOMPARE(panel("mainmessage"), text);
}

void tst_frmConvRecords::menuStates_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<QList<int>>("rows");
    // make current, print/save/copy/delete selected and deselect, print/save/copy/delete all
    QTest::addColumn<bool>("makeCurrent");
    QTest::addColumn<bool>("selectionCommands");
    QTest::addColumn<bool>("allCommands");
    QTest::newRow("empty list") << 0 << QList<int>() << false << false << false;
    QTest::newRow("lines, none selected") << 3 << QList<int>() << false << false << true;
    QTest::newRow("one line selected") << 3 << QList<int> { 2 } << true << true << true;
    QTest::newRow("two lines selected") << 3 << QList<int> { 0, 2 } << false << true << true;
}

void tst_frmConvRecords::menuStates()
{
    QFETCH(int, lines);
    QFETCH(QList<int>, rows);
    QFETCH(bool, makeCurrent);
    QFETCH(bool, selectionCommands);
    QFETCH(bool, allCommands);
    addNumbered(lines);
    select(rows);
    emit window->findChild<QMenu *>("mnuFile")->aboutToShow();
    emit window->findChild<QMenu *>("mnuEdit")->aboutToShow();
    QCOMPARE(action("mnuFileMakeCurrentConv")->isEnabled(), makeCurrent);
    for (const char *name : { "mnuFilePrintCurrentRecord", "mnuFileSaveCurrentRecord",
             "mnuEditSelectAll", "mnuEditCopyItem", "mnuEditDelSelectedItem" })
        QVERIFY2(action(name)->isEnabled() == selectionCommands, name);
    for (const char *name : { "mnuFilePrintAllRecords", "mnuFileSaveAllRecords",
             "mnuEditCopyAllItems", "mnuEditDelAllItems" })
        QVERIFY2(action(name)->isEnabled() == allCommands, name);
    QVERIFY(action("mnuFileLoadConversions")->isEnabled());
    QVERIFY(action("mnuFileExit")->isEnabled());
}

void tst_frmConvRecords::menuTexts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("hint");
    QTest::newRow("make current") << "mnuFileMakeCurrentConv"
                                  << "&Make this Conversion Mensura's Current Conversion"
                                  << "Makes the selected conversion Mensura's current conversion";
    QTest::newRow("load") << "mnuFileLoadConversions"
                          << "&Load Conversions from File..."
                          << "Loads previously saved conversions from a file";
    QTest::newRow("print selected") << "mnuFilePrintCurrentRecord"
                                    << "Print &Selected Conversions"
                                    << "Prints the selected conversions to the default printer";
    QTest::newRow("print all") << "mnuFilePrintAllRecords"
                               << "Print &All Conversions"
                               << "Prints all of the conversions listed to the default printer";
    QTest::newRow("save selected") << "mnuFileSaveCurrentRecord"
                                   << "Sa&ve Selected Conversions"
                                   << "Saves the selected conversions to a file";
    QTest::newRow("save all") << "mnuFileSaveAllRecords"
                              << "Sav&e All Conversions"
                              << "Saves all of the conversions listed to a file";
    QTest::newRow("close") << "mnuFileExit"
                           << "&Close"
                           << "Closes this window; the marked conversions are kept";
    QTest::newRow("deselect") << "mnuEditSelectAll"
                              << "&Deselect All Items"
                              << "Clears the selection of all of the conversions listed";
    QTest::newRow("copy selected") << "mnuEditCopyItem"
                                   << "Copy &Selected Conversions"
                                   << "Copies the selected conversions to the clipboard";
    QTest::newRow("copy all") << "mnuEditCopyAllItems"
                              << "Copy &All Conversions"
                              << "Copies all of the conversions listed to the clipboard";
    QTest::newRow("delete selected") << "mnuEditDelSelectedItem"
                                     << "Delete Selected &Conversions"
                                     << "Deletes the selected conversions from the list";
    QTest::newRow("delete all") << "mnuEditDelAllItems"
                                << "Delete All Con&versions"
                                << "Deletes all of the conversions listed";
}

void tst_frmConvRecords::menuTexts()
{
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QFETCH(QString, hint);
    QAction *item = window->findChild<QAction *>(name);
    QVERIFY(item);
    QCOMPARE(item->text(), caption);
    QCOMPARE(item->statusTip(), hint);
    // Highlighting the item shows its hint in the status bar.
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    item->showStatusText(window.get());
    QCOMPARE(window->statusBar()->currentMessage(), hint);
}

void tst_frmConvRecords::deleteSelected_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<Dialogs::Answer>("answer");
    QTest::addColumn<QList<int>>("kept"); // numbers of the records left, in order

    QTest::newRow("three of five")
        << 5 << QList<int> { 0, 2, 4 } << Dialogs::Yes << QList<int> { 2, 4 };
    QTest::newRow("a block in the middle")
        << 5 << QList<int> { 1, 2, 3 } << Dialogs::Yes << QList<int> { 1, 5 };
    QTest::newRow("answered No") << 5 << QList<int> { 0, 2 } << Dialogs::No
                                 << QList<int> { 1, 2, 3, 4, 5 };
    QList<int> everyOther, odd;
    for (int i = 0; i < 400; ++i)
        (i % 2 ? everyOther : odd).append(i % 2 ? i : i + 1);
    QTest::newRow("two hundred scattered lines") << 400 << everyOther << Dialogs::Yes << odd;
}

void tst_frmConvRecords::deleteSelected()
{
    QFETCH(int, lines);
    QFETCH(QList<int>, selected);
    QFETCH(Dialogs::Answer, answer);
    QFETCH(QList<int>, kept);
    addNumbered(lines);
    select(selected);
    dialogs->answerQuestion(answer);
    action("mnuEditDelSelectedItem")->trigger();

    QCOMPARE(dialogs->asked().size(), 1);
    QCOMPARE(dialogs->asked()[0].notice.text,
        QStringLiteral("Are you sure you want to delete the selected items?"));
    QCOMPARE(dialogs->asked()[0].notice.icon, Notice::Critical);
    QStringList expectedLines;
    Records expected;
    for (const int n : kept) {
        expected.append(conversion(QString::number(n), "metre (m)", QString::number(n * 100),
            "centimetre (cm)", "Length"));
        expectedLines.append(QStringLiteral("Length\t\t  %1  metre (m)  =  %2  centimetre (cm)")
                                 .arg(n)
                                 .arg(n * 100));
    }
    QCOMPARE(window->conversions(), expected);
    QCOMPARE(shownLines(), expectedLines);
    QCOMPARE(panel("numconvs"), QStringLiteral("%1 marked conversion(s) ").arg(kept.size()));
    QVERIFY2(panel("mainmessage")
                 .endsWith(QStringLiteral(" out of %1 marked conversion(s) ").arg(kept.size())),
        qPrintable(panel("mainmessage")));
    QCOMPARE(mainWindow->counts.last(), kept.size());
}

void tst_frmConvRecords::deleteAllAsksTheMainWindow()
{
    addNumbered(3);
    QSignalSpy asked(window.get(), &frmConvRecords::deleteAllRequested);
    action("mnuEditDelAllItems")->trigger();
    QCOMPARE(asked.size(), 1);
    QCOMPARE(window->count(), 3); // only the main window's command deletes, once it asked
    window->clearAll();
    QCOMPARE(window->count(), 0);
    QVERIFY(shownLines().isEmpty());
    QCOMPARE(panel("numconvs"), QStringLiteral("0 marked conversion(s) "));
    QCOMPARE(mainWindow->counts.last(), 0);
}

void tst_frmConvRecords::copyToClipboard_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QString>("text");
    QTest::newRow("selected lines numbered from 1")
        << "mnuEditCopyItem" << QList<int> { 1, 2 }
        << "\n     1.     2  metre (m)  =  200  centimetre (cm)\n     2.     3  metre (m)  =  300  "
           "centimetre (cm)";
    QTest::newRow("all lines") << "mnuEditCopyAllItems" << QList<int> { 1 }
                               << "\n     1.     1  metre (m)  =  100  centimetre (cm)\n     2.    "
                                  " 2  metre (m)  =  200  centimetre (cm)"
                                  "\n     3.     3  metre (m)  =  300  centimetre (cm)";
    QTest::newRow("nothing selected gives an empty text")
        << "mnuEditCopyItem" << QList<int>() << "";
}

void tst_frmConvRecords::copyToClipboard()
{
    QFETCH(QString, command);
    QFETCH(QList<int>, selected);
    QFETCH(QString, text);
    addNumbered(3);
    select(selected);
    QGuiApplication::clipboard()->setText("something else");
    window->findChild<QAction *>(command)->trigger();
#ifdef Q_OS_WIN
    text.replace("\n", "\r\n");
#endif
    QCOMPARE(QGuiApplication::clipboard()->text(), text);
}

void tst_frmConvRecords::makeCurrent_data()
{
    QTest::addColumn<QStringList>("lengthUnits");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<bool>("fails");
    const QStringList both { "metre (m)", "centimetre (cm)" };
    QTest::newRow("everything there") << both
                                      << QStringList { "quantity Length", "value 2",
                                             "left metre (m)", "right centimetre (cm)", "refresh" }
                                      << false;
    QTest::newRow("quantity disabled")
        << QStringList() << QStringList { "quantity Length" } << true;
    QTest::newRow("initial unit disabled")
        << QStringList { "centimetre (cm)" }
        << QStringList { "quantity Length", "value 2", "left metre (m)" } << true;
    QTest::newRow("target unit disabled")
        << QStringList { "metre (m)" }
        << QStringList { "quantity Length", "value 2", "left metre (m)", "right centimetre (cm)" }
        << true;
}

void tst_frmConvRecords::makeCurrent()
{
    QFETCH(QStringList, lengthUnits);
    QFETCH(QStringList, calls);
    QFETCH(bool, fails);
    if (!lengthUnits.isEmpty())
        mainWindow->units.insert("Length", lengthUnits);
    addNumbered(3);
    select({ 1 });
    if (fails)
        dialogs->expectMessage();
    action("mnuFileMakeCurrentConv")->trigger();
    QCOMPARE(mainWindow->calls, calls);
    QVERIFY(mainWindow->skipWasSet);
    QCOMPARE(dialogs->asked().size(), fails ? 1 : 0);
    if (fails) {
        QCOMPARE(dialogs->asked()[0].notice.icon, Notice::Exclamation);
        QCOMPARE(dialogs->asked()[0].notice.text,
            QStringLiteral(
                "Mensura could not find all of the required details in order to complete this task."
                "\n\nThis is most likely because you have disabled one or more of the units needed "
                "for this conversion.\nIt is also possible that you have disabled the physical "
                "quantity necessary for this conversion."));
    }
}

void tst_frmConvRecords::printChosenLines_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<Dialogs::Answer>("answer");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QStringList>("printed"); // the numbered lines, blanks made single
    QTest::newRow("selected lines numbered from 1")
        << "mnuFilePrintCurrentRecord" << QList<int> { 1, 2 } << Dialogs::Yes
        << "Print the selected items?"
        << QStringList { "1. 2 metre (m) = 200 centimetre (cm)",
               "2. 3 metre (m) = 300 centimetre (cm)" };
    QTest::newRow("all lines") << "mnuFilePrintAllRecords" << QList<int> { 1 } << Dialogs::Yes
                               << "Print all of the saved conversions?"
                               << QStringList { "1. 1 metre (m) = 100 centimetre (cm)",
                                      "2. 2 metre (m) = 200 centimetre (cm)",
                                      "3. 3 metre (m) = 300 centimetre (cm)" };
    QTest::newRow("nothing selected prints the heading only")
        << "mnuFilePrintCurrentRecord" << QList<int>() << Dialogs::Yes
        << "Print the selected items?" << QStringList();
    QTest::newRow("declined") << "mnuFilePrintAllRecords" << QList<int>() << Dialogs::No
                              << "Print all of the saved conversions?" << QStringList();
}

void tst_frmConvRecords::printChosenLines()
{
    QFETCH(QString, command);
    QFETCH(QList<int>, selected);
    QFETCH(Dialogs::Answer, answer);
    QFETCH(QString, question);
    QFETCH(QStringList, printed);
    if (!pdfToTextAvailable())
        QSKIP("pdftotext (poppler-utils) is not installed");
    addNumbered(3);
    select(selected);
    // No printer here: the report goes into a PDF file instead.
    window->reportPrinter().defaultPrinter = [] { return QPrinterInfo(); };
    const QString path = temp->filePath("printed.pdf");
    dialogs->answerQuestion(answer);
    if (answer == Dialogs::Yes) {
        dialogs->answerQuestion(Dialogs::Yes); // save as PDF instead
        dialogs->answerSaveFile(path);
    }
    window->findChild<QAction *>(command)->trigger();
    QVERIFY(!dialogs->asked().isEmpty());
    QCOMPARE(dialogs->asked().first().notice.text, question);
    QCOMPARE(dialogs->asked().first().notice.icon, Notice::Exclamation);
    if (answer == Dialogs::No) {
        QCOMPARE(dialogs->asked().size(), 1);
        return;
    }
    const QStringList expected = QStringList { "Conversion report generated by Mensura 98",
        "(Mensura - unit conversions following CAN/CSA-Z234.1-89 "
        "and NIST SP 811)" }
        + printed;
    QCOMPARE(simplifiedLines(pdfText(path)), expected);
}

void tst_frmConvRecords::saveWritesTheChosenLines_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("savedFlag");
    QTest::newRow("all lines") << "mnuFileSaveAllRecords" << QList<int> { 1 }
                               << Opening
            + "     1.     1  metre (m)  =  100  centimetre (cm)  [Length]\r\n"
              "     2.     2  metre (m)  =  200  centimetre (cm)  [Length]\r\n"
              "     3.     3  metre (m)  =  300  centimetre (cm)  [Length]\r\n"
                               << true;
    QTest::newRow("selected lines numbered from 1")
        << "mnuFileSaveCurrentRecord" << QList<int> { 2 }
        << Opening + "     1.     3  metre (m)  =  300  centimetre (cm)  [Length]\r\n"
        << false;
    QTest::newRow("nothing selected writes the opening only")
        << "mnuFileSaveCurrentRecord" << QList<int>() << Opening << false;
}

void tst_frmConvRecords::saveWritesTheChosenLines()
{
    QFETCH(QString, command);
    QFETCH(QList<int>, selected);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, savedFlag);
    addNumbered(3);
    select(selected);
    const QString path = temp->filePath("saved.txt");
    dialogs->answerSaveFile(path);
    window->findChild<QAction *>(command)->trigger();
    QCOMPARE(dialogs->asked().size(), 1); // the file dialog only, no message
    QCOMPARE(dialogs->asked()[0].kind, ScriptedDialogs::SaveFile);
    QCOMPARE(dialogs->asked()[0].filter, QStringLiteral("Text Files (*.txt)"));
    QCOMPARE(dialogs->asked()[0].defaultName, QStringLiteral("untitled.txt"));
    QCOMPARE(dialogs->asked()[0].defaultSuffix, QStringLiteral("txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
    QCOMPARE(session.MarkedConversionsSaved, savedFlag);
    QCOMPARE(panel("mainmessage"), QStringLiteral("100% done"));
}

void tst_frmConvRecords::saveFailureIsReported()
{
    addNumbered(2);
    const QString path = temp->filePath("missing-folder/saved.txt");
    dialogs->answerSaveFile(path);
    dialogs->expectMessage();
    action("mnuFileSaveAllRecords")->trigger();
    QCOMPARE(dialogs->asked().size(), 2);
    const Notice &message = dialogs->asked()[1].notice;
    QCOMPARE(message.icon, Notice::Exclamation);
    QVERIFY(message.text.startsWith("The conversions could not be saved to " + path + ":\n"));
    QVERIFY(message.text.endsWith("A file that was already there has been left as it was."));
    QVERIFY(!session.MarkedConversionsSaved);
    QVERIFY(!QFile::exists(path));
}

void tst_frmConvRecords::cancelledSaveKeepsTheOldFile()
{
    addNumbered(5000);
    const QString path = writeFile("saved.txt", "earlier file");
    connect(
        window.get(), &frmConvRecords::progressed, window.get(), &frmConvRecords::cancelOperation);
    dialogs->answerSaveFile(path);
    action("mnuFileSaveAllRecords")->trigger();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("earlier file"));
    QVERIFY(!session.MarkedConversionsSaved);
    QCOMPARE(dialogs->asked().size(), 1); // the file dialog only, no message
    QCOMPARE(panel("mainmessage"), QStringLiteral("Saving was cancelled; no file was changed."));
}

void tst_frmConvRecords::loadAddsRecords_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Records>("added");
    QTest::addColumn<bool>("foreign");
    QTest::newRow("conversions file")
        << Opening + "     1.     5  a  =  6  b  [q]\r\n     2.     7  c  =  8  d  [r]\r\n"
        << Records { conversion("5", "a", "6", "b", "q"), conversion("7", "c", "8", "d", "r") }
        << false;
    QTest::newRow("foreign file") << QByteArray("Dear diary,\r\n") << Records() << true;
    QTest::newRow("damaged record keeps the ones before")
        << Opening + "     1.     5  a  =  6  b  [q]\r\n     2.     broken\r\n"
        << Records { conversion("5", "a", "6", "b", "q") } << false;
    QTest::newRow("no records") << Opening << Records() << false;
}

void tst_frmConvRecords::loadAddsRecords()
{
    QFETCH(QByteArray, bytes);
    QFETCH(Records, added);
    QFETCH(bool, foreign);
    window->AddConv("1", "x", "2", "y", "z");
    const int reportsBefore = mainWindow->counts.size();
    dialogs->answerOpenFile(writeFile("load.txt", bytes));
    if (foreign)
        dialogs->expectMessage();
    action("mnuFileLoadConversions")->trigger();

    QCOMPARE(dialogs->asked().size(), foreign ? 2 : 1);
    QCOMPARE(dialogs->asked()[0].kind, ScriptedDialogs::OpenFile);
    QCOMPARE(dialogs->asked()[0].filter, QStringLiteral("Text Files (*.txt)"));
    QCOMPARE(window->conversions(), Records { conversion("1", "x", "2", "y", "z") } + added);
    if (foreign) {
        QCOMPARE(dialogs->asked()[1].notice.icon, Notice::Exclamation);
        QCOMPARE(dialogs->asked()[1].notice.text,
            QStringLiteral(
                "This file was not generated by Mensura. Only Mensura files can be opened"));
    }
    // The main window hears of the new count only when records came.
    QCOMPARE(mainWindow->counts.size() > reportsBefore, !added.isEmpty());
}

void tst_frmConvRecords::cancelledLoadKeepsWhatWasRead()
{
    Records records(20000, conversion("1", "a", "2", "b", "q"));
    const QString path = temp->filePath("many.txt");
    QVERIFY(ConversionsFile::saveRecords(path, records).ok());
    connect(
        window.get(), &frmConvRecords::progressed, window.get(), &frmConvRecords::cancelOperation);
    dialogs->expectMessage();
    const auto outcome = window->loadFile(path);
    QVERIFY(outcome.cancelled);
    QVERIFY(window->count() > 0);
    QVERIFY(window->count() < records.size());
    QCOMPARE(outcome.added, window->count());
    QCOMPARE(dialogs->asked().size(), 1);
    QCOMPARE(dialogs->asked()[0].notice.icon, Notice::Information);
    QCOMPARE(dialogs->asked()[0].notice.text,
        QStringLiteral("Loading was cancelled. %1 conversion(s) read before that were added to the "
                       "marked conversions.")
            .arg(window->count()));
}

void tst_frmConvRecords::longLinesScrollIntoView()
{
    window->resize(400, 300);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    addNumbered(3);
    QCoreApplication::processEvents();
    QCOMPARE(list()->horizontalScrollBar()->maximum(), 0);

    const QString longUnit(300, u'w');
    window->AddConv("1", longUnit, "2", "b", "q");
    QCoreApplication::processEvents();
    const int widthOfLongLine = list()->fontMetrics().horizontalAdvance(longUnit);
    QVERIFY(
        list()->horizontalScrollBar()->maximum() + list()->viewport()->width() > widthOfLongLine);

    // The scroll range is never narrowed, not even when the long line goes.
    const int range = list()->horizontalScrollBar()->maximum();
    select({ 3 });
    dialogs->answerQuestion(Dialogs::Yes);
    action("mnuEditDelSelectedItem")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(list()->horizontalScrollBar()->maximum(), range);
}

void tst_frmConvRecords::closingHidesAndKeepsTheList()
{
    addNumbered(2);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    window->activateWindow();
    QTRY_VERIFY(window->shownWithMainWindow());
    QPointer<frmConvRecords> alive(window.get());
    window->findChild<QPushButton *>("cmdHideForm")->click();
    QVERIFY(alive);
    QVERIFY(!window->isVisible());
    QVERIFY(!window->shownWithMainWindow());
    window->show();
    QCOMPARE(window->count(), 2);
    QCOMPARE(shownLines().size(), 2);
}

void tst_frmConvRecords::helpButtonAsksForItsTopic()
{
    QSignalSpy help(window.get(), &frmConvRecords::helpRequested);
    window->findChild<QPushButton *>("cmdHelp")->click();
    QCOMPARE(help.size(), 1);
    QCOMPARE(HelpTopics::topicFile(help[0][0].toInt()), QStringLiteral("marked.html"));
}

void tst_frmConvRecords::statusBarIsWholeAtTheDefaultSize()
{
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    const auto *message = window->findChild<QLabel *>("mainmessage");
    const auto *count = window->findChild<QLabel *>("numconvs");
    for (const QList<int> &rows : { QList<int>(), QList<int> { 0, 1 } }) {
        select(rows);
        QVERIFY2(message->width() >= message->fontMetrics().horizontalAdvance(message->text()),
            qPrintable(message->text()));
        QVERIFY(count->width() >= count->minimumSizeHint().width());
        QVERIFY(message->geometry().right() < count->geometry().left());
        addNumbered(120);
    }
}

void tst_frmConvRecords::placement_data()
{
    QTest::addColumn<QStringList>("stored"); // left, top, width, height as stored, "" for none
    QTest::addColumn<QRect>("expected"); // at 96 dots per inch
    QTest::newRow("defaults") << QStringList { "", "", "", "" } << QRect(33, 33, 400, 367);
    QTest::newRow("stored twips") << QStringList { "1440", "720", "7200", "5760" }
                                  << QRect(96, 48, 480, 384);
    QTest::newRow("a value that is no number takes its default")
        << QStringList { "abc", "720", "7200", "5760" } << QRect(33, 48, 480, 384);
    QTest::newRow("off every screen goes back to the defaults")
        << QStringList { "30000", "30000", "7200", "5760" } << QRect(33, 33, 400, 367);
}

void tst_frmConvRecords::placement()
{
    QFETCH(QStringList, stored);
    QFETCH(QRect, expected);
    if (!qFuzzyCompare(window->screen()->logicalDotsPerInch(), 96.0))
        QSKIP("the expected placements are worked out for 96 dots per inch");
    const char16_t *names[] = { u"frmconvleft", u"frmconvtop", u"frmconvwidth", u"frmconvheight" };
    for (int i = 0; i < 4; ++i)
        if (!stored[i].isEmpty())
            store->RegWriteString("settings", QString::fromUtf16(names[i]), stored[i]);
    window = std::make_unique<frmConvRecords>(settings, session, *store, *dialogs, *mainWindow);
    QCOMPARE(QRect(window->pos(), window->size()), expected);

    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    window->activateWindow();
    window->move(144, 96);
    window->resize(600, 450);
    QTRY_COMPARE(window->pos(), QPoint(144, 96));
    window->close();
    QCOMPARE(store->RegReadString("settings", "frmconvleft", ""), QStringLiteral("2160"));
    QCOMPARE(store->RegReadString("settings", "frmconvtop", ""), QStringLiteral("1440"));
    QCOMPARE(store->RegReadString("settings", "frmconvwidth", ""), QStringLiteral("9000"));
    QCOMPARE(store->RegReadString("settings", "frmconvheight", ""), QStringLiteral("6750"));
}

QTEST_MAIN(tst_frmConvRecords)
#include "tst_frmConvRecords.moc"

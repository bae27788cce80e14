// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The marked conversions window driven as a user drives it, with RecordsFixture standing in for
// the main window: the lines and counts shown, what the selection enables, copying, saving and
// printing the selected or all lines, deleting, making a line current, loading and saving with
// their failures and cancelling, and the window's size and placement. The file format itself is
// tst_ConversionsFile's; here a saved file is only read back.
#include "help/HelpTopics.h"
#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"
#include "records/frmConvRecords.h"
#include "shell/SettingsStore.h"
#include "support/DataRows.h"
#include "support/RecordsFixture.h"
#include "support/TestFiles.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>

struct SelectionRow {
    const char *row;
    int lines;
    QList<int> selected;
    QString text; // the status bar's
    // Enabled: making current; the commands on the selection (print, save, copy, delete and
    // deselect); those on all lines (print, save, copy and delete).
    bool makeCurrent, onSelection, onAll;
};
Q_DECLARE_METATYPE(SelectionRow)

class tst_frmConvRecords : public QObject
{
    Q_OBJECT

private slots:
    void init() { f = std::make_unique<RecordsFixture>(); }
    void cleanup();
    void linesCountsScrollingAndClosing();
    void selectionDrivesTextAndMenus_data();
    void selectionDrivesTextAndMenus();
    void chosenLines();
    void deleteSelected();
    void makeCurrent();
    void load();
    void failedOrCancelledSave();
    void placement_data();
    void placement();

private:
    bool shown() { return f->window->show(), QTest::qWaitForWindowExposed(f->window.get()); }
    // Cancel is pressed as soon as a load or save shows its progress.
    QMetaObject::Connection cancelOnProgress()
    {
        return connect(f->window.get(), &frmConvRecords::progressed, f->window.get(),
            &frmConvRecords::cancelOperation);
    }

    std::unique_ptr<RecordsFixture> f;
};

void tst_frmConvRecords::cleanup()
{
    f->window.reset();
    QVERIFY2(f->dialogs.scriptDone(), "a dialog that the test expected was not shown");
    f.reset();
}

void tst_frmConvRecords::linesCountsScrollingAndClosing()
{
    QCOMPARE(f->panel("numconvs"), "0 marked conversion(s) ");
    f->session.MarkedConversionsSaved = true;
    f->window->AddConv("12", "metre (m)", "39.370 08", "inch (in)", "Length");
    f->window->AddConv("100", "Celsius (\u00B0C)", "212", "Fahrenheit (\u00B0F)", "Temperature");
    // The quantity first, then the conversion, past the tab stops.
    QCOMPARE(f->list()->model()->index(1, 0).data().toString(),
        "Temperature\t\t  100  Celsius (\u00B0C)  =  212  Fahrenheit (\u00B0F)");
    QCOMPARE(f->counts, (QList<int> { 0, 1, 2 }));
    QVERIFY(!f->session.MarkedConversionsSaved);

    // Closing hides the window and keeps the list; Help asks for this window's topic.
    QVERIFY(shown());
    f->window->activateWindow();
    QTRY_VERIFY(f->window->shownWithMainWindow());
    QSignalSpy help(f->window.get(), &frmConvRecords::helpRequested);
    f->window->findChild<QPushButton *>("cmdHelp")->click();
    QCOMPARE(HelpTopics::topicFile(help.value(0).value(0).toInt()), "marked.html");
    // At its default size the status bar shows both panels whole, with a selection text too.
    for (const QList<int> &rows : { QList<int>(), QList<int> { 0, 1 } }) {
        f->select(rows);
        const auto *message = f->window->findChild<QLabel *>("mainmessage");
        const auto *count = f->window->findChild<QLabel *>("numconvs");
        QVERIFY2(message->width() >= message->fontMetrics().horizontalAdvance(message->text()),
            qPrintable(message->text()));
        QVERIFY(count->width() >= count->minimumSizeHint().width());
        QVERIFY(message->geometry().right() < count->geometry().left());
        f->addNumbered(120);
    }
    // A long line scrolls into view, and so does a long quantity name, which moves the tab
    // stops; the scroll range is never narrowed, not even when the long lines go.
    QScrollBar *scroll = f->list()->horizontalScrollBar();
    const auto maximum = [scroll] { return QCoreApplication::processEvents(), scroll->maximum(); };
    const QString longUnit(300, u'w');
    f->window->AddConv("1", longUnit, "2", "b", "q");
    QVERIFY(maximum() + f->list()->viewport()->width()
        > f->list()->fontMetrics().horizontalAdvance(longUnit));
    int range = maximum();
    f->window->AddConv("1", "b", "2", "b", QString(300, u'q'));
    QVERIFY(maximum() > range);
    range = maximum();
    f->select({ 242, 243 });
    f->dialogs.answerQuestion(Dialogs::Yes);
    f->action("mnuEditDelSelectedItem")->trigger();
    QCOMPARE(maximum(), range);
    f->window->findChild<QPushButton *>("cmdHideForm")->click();
    QVERIFY(!f->window->isVisible() && !f->window->shownWithMainWindow());
    QCOMPARE(f->list()->model()->rowCount(), 242);
}

void tst_frmConvRecords::selectionDrivesTextAndMenus_data()
{
    const QString of4 = " out of 4 marked conversion(s) ";
    addRows<SelectionRow>({
        { "empty list", 0, {}, "Prints, saves, or copies marked conversions", 0, 0, 0 },
        { "lines, selection cleared", 4, {}, "0 items selected" + of4, 0, 0, 1 },
        { "one line", 4, { 2 }, "1 item selected" + of4, 1, 1, 1 },
        { "three lines", 4, { 0, 2, 3 }, "3 items selected" + of4, 0, 1, 1 },
    });
}

void tst_frmConvRecords::selectionDrivesTextAndMenus()
{
    QFETCH(SelectionRow, row);
    f->addNumbered(row.lines);
    if (row.lines > 0) {
        f->select({ 0, 1 });
        f->select(row.selected);
    }
    QCOMPARE(f->panel("mainmessage"), row.text);
    emit f->window->findChild<QMenu *>("mnuFile")->aboutToShow();
    emit f->window->findChild<QMenu *>("mnuEdit")->aboutToShow();
    QString enabled;
    for (const char *name : { "mnuFileMakeCurrentConv", "mnuFilePrintCurrentRecord",
             "mnuFileSaveCurrentRecord", "mnuEditSelectAll", "mnuEditCopyItem",
             "mnuEditDelSelectedItem", "mnuFilePrintAllRecords", "mnuFileSaveAllRecords",
             "mnuEditCopyAllItems", "mnuEditDelAllItems", "mnuFileLoadConversions" })
        enabled += f->action(name)->isEnabled() ? u'1' : u'0';
    const auto bits = [](int n, bool on) { return QString(n, on ? u'1' : u'0'); };
    QCOMPARE(
        enabled, bits(1, row.makeCurrent) + bits(5, row.onSelection) + bits(4, row.onAll) + "1");
    f->action("mnuEditSelectAll")->trigger();
    QVERIFY(!f->list()->selectionModel()->hasSelection());
}

// The two lines selected of three, or all of them, copied, saved and printed. With no printer a
// PDF file is offered: printing declined, the PDF declined, its file dialog cancelled, a folder
// that is not there, and a PDF saved.
void tst_frmConvRecords::chosenLines()
{
    f->addNumbered(3);
    f->select({ 1, 2 });
    // The numbered lines of these records, blanks made single.
    const auto lines = [](const QList<int> &numbers) {
        QStringList lines;
        for (int i = 0; i < numbers.size(); ++i)
            lines.append(QString("%1. %2 metre (m) = %3 centimetre (cm)")
                             .arg(i + 1)
                             .arg(numbers[i])
                             .arg(numbers[i] * 100));
        return lines;
    };
    // Each copied line comes after a line break; the blanks are the printed report's.
    const auto copied = [] {
        QStringList copied = QGuiApplication::clipboard()->text().split(u'\n');
        for (QString &line : copied)
            line = line.simplified();
        return copied;
    };
    f->action("mnuEditCopyItem")->trigger();
    QCOMPARE(copied(), QStringList { "" } + lines({ 2, 3 }));
    f->action("mnuEditCopyAllItems")->trigger();
    QCOMPARE(copied(), QStringList { "" } + lines({ 1, 2, 3 }));

    const QString path = f->temp.filePath("chosen");
    f->dialogs.answerSaveFile(path);
    f->action("mnuFileSaveCurrentRecord")->trigger();
    QCOMPARE(ConversionsReader::readFile(path).records, (Records { numbered(2), numbered(3) }));
    QVERIFY(!f->session.MarkedConversionsSaved);
    f->dialogs.answerSaveFile(path);
    f->action("mnuFileSaveAllRecords")->trigger();
    QCOMPARE(ConversionsReader::readFile(path).records,
        (Records { numbered(1), numbered(2), numbered(3) }));
    QVERIFY(f->session.MarkedConversionsSaved);
    QCOMPARE(f->dialogs.asked().size(), 2); // the file dialogs only, no message
    QCOMPARE(f->panel("mainmessage"), "100% done");

    if (!pdfToTextAvailable())
        QSKIP("pdftotext (poppler-utils) is not installed");
    f->window->reportPrinter().defaultPrinter = [] { return QPrinterInfo(); };
    const QString gone = f->temp.filePath("gone/chosen.pdf"), pdf = f->temp.filePath("chosen.pdf");
    f->dialogs.answerQuestion(Dialogs::No);
    f->action("mnuFilePrintAllRecords")->trigger();
    f->dialogs.answerQuestion(Dialogs::Yes);
    f->dialogs.answerQuestion(Dialogs::No); // no PDF file
    f->action("mnuFilePrintAllRecords")->trigger();
    for (const QString &file : { QString(), gone, pdf }) {
        f->dialogs.answerQuestion(Dialogs::Yes);
        f->dialogs.answerQuestion(Dialogs::Yes);
        f->dialogs.answerSaveFile(file);
        if (file == gone)
            f->dialogs.expectMessage();
        f->action(file == pdf ? "mnuFilePrintCurrentRecord" : "mnuFilePrintAllRecords")->trigger();
    }
    const QList<ScriptedDialogs::Asked> &asked = f->dialogs.asked();
    QVERIFY(!asked[2].notice.text.contains("selected"));
    QVERIFY(asked[asked.size() - 4].notice.text.startsWith(
        "The report could not be saved to " + gone + ":\n"));
    QVERIFY(asked[asked.size() - 3].notice.text.contains("selected"));
    QCOMPARE(pdfLines(pdf).mid(2), lines({ 2, 3 })); // after the heading (tst_ReportPrinter's)
}

// Deleting the selected lines of 400, after a question answered No and then Yes: two hundred
// scattered lines, then the first line and a block in the middle.
void tst_frmConvRecords::deleteSelected()
{
    f->addNumbered(400);
    Records kept;
    for (int n = 1; n <= 400; ++n)
        kept.append(numbered(n));
    const auto remove = [&](const QList<int> &rows, Dialogs::Answer answer) {
        f->select(rows);
        f->dialogs.answerQuestion(answer);
        f->action("mnuEditDelSelectedItem")->trigger();
        QCOMPARE(f->dialogs.asked().last().notice.icon, Notice::Critical);
        for (qsizetype i = rows.size() - 1; i >= 0 && answer == Dialogs::Yes; --i)
            kept.removeAt(rows[i]);
        QCOMPARE(f->window->conversions(), kept);
        const QString count = QString("%1 marked conversion(s) ").arg(kept.size());
        QCOMPARE(f->panel("numconvs"), count);
        QVERIFY2(f->panel("mainmessage").endsWith(" out of " + count),
            qPrintable(f->panel("mainmessage")));
        QCOMPARE(f->counts.last(), kept.size());
    };
    QList<int> even;
    for (int row = 0; row < 400; row += 2)
        even.append(row);
    remove(even, Dialogs::No);
    remove(even, Dialogs::Yes);
    remove({ 0, 99, 100, 101 }, Dialogs::Yes);
}

// The last of several selected lines made current: the main window is asked for its quantity,
// value and units until one is missing (Length disabled, then its initial unit, then its target
// unit), which a message reports.
void tst_frmConvRecords::makeCurrent()
{
    f->addNumbered(3);
    f->select({ 0, 2 });
    const QStringList calls { "quantity Length", "value 3", "left metre (m)",
        "right centimetre (cm)", "refresh" };
    const QList<QPair<QStringList, int>> steps { { {}, 1 }, { { "centimetre (cm)" }, 3 },
        { { "metre (m)" }, 4 }, { { "metre (m)", "centimetre (cm)" }, 5 } };
    for (const auto &[units, made] : steps) {
        if (!units.isEmpty())
            f->units.insert("Length", units);
        f->calls.clear();
        f->session.SkipNextUpdate = false;
        if (made < 5)
            f->dialogs.expectMessage();
        f->action("mnuFileMakeCurrentConv")->trigger();
        QCOMPARE(f->calls, calls.mid(0, made));
        QVERIFY(f->skipWasSet);
        if (made < 5)
            QCOMPARE(f->dialogs.asked().last().notice.icon, Notice::Exclamation);
    }
}

// Loading adds what a file holds to the lines there; the main window hears of a new count only
// when records came.
void tst_frmConvRecords::load()
{
    f->window->AddConv("1", "x", "2", "y", "z");
    f->counts.clear();
    const QString status = f->panel("mainmessage");
    const QString path = f->temp.filePath("load.txt"); // not there at first: a file gone
    const auto load = [&](const QByteArray &bytes, bool message = false) {
        QVERIFY(bytes.isNull() || putFile(path, bytes));
        f->dialogs.answerOpenFile(path);
        if (message)
            f->dialogs.expectMessage();
        f->action("mnuFileLoadConversions")->trigger();
    };
    load(QByteArray());
    load("Dear diary,\r\n", true);
    QCOMPARE(f->dialogs.asked().size(), 3); // a message for the foreign file only
    QCOMPARE(f->dialogs.asked()[2].notice.text,
        "This file was not generated by Mensura. Only Mensura files can be opened");
    QCOMPARE(f->dialogs.asked()[2].notice.icon, Notice::Exclamation);
    QVERIFY(f->counts.isEmpty());

    // Cancel is pressed as soon as progress shows. A file read in one step is done before that:
    // its damaged record keeps the ones before it, and the status bar is left alone.
    const QMetaObject::Connection cancel = cancelOnProgress();
    load(Opening + "     1.     5  a  =  6  b  [q]\r\n     2.     broken\r\n");
    QCOMPARE(f->window->conversions().mid(1), Records { conversion("5", "a", "6", "b", "q") });
    QCOMPARE(f->counts, QList<int> { 2 });
    f->window->AddConv("1", "x", "2", "y", "z");
    QCOMPARE(f->panel("mainmessage"), status);

    // 7000 records, read in two steps as the reader reads them (past record 999 the number runs
    // into the value): when cancelled, what was read before stays.
    const QByteArray manyBytes
        = ConversionsFile::encode(ConversionsFile::recordsText(Records(7000, numbered(1))));
    const Records many = ConversionsReader::readBytes(manyBytes).records;
    load(manyBytes, true);
    const Records read = f->window->conversions().mid(3);
    QVERIFY(read.size() > 0 && read.size() < many.size());
    QCOMPARE(read, many.mid(0, read.size()));
    QCOMPARE(f->dialogs.asked().last().notice.text,
        QString("Loading was cancelled. %1 conversion(s) read before that were added to the "
                "marked conversions.")
            .arg(read.size()));
    QCOMPARE(f->dialogs.asked().last().notice.icon, Notice::Information);
    // Not cancelled, such a load does not stop short of the end, nor does a count that changes
    // later wipe that out.
    disconnect(cancel);
    load(manyBytes);
    QCOMPARE(f->window->conversions().mid(3 + read.size()), many);
    f->window->AddConv("1", "x", "2", "y", "z");
    QCOMPARE(f->panel("mainmessage"), "100% done");
}

// A save whose file dialog is cancelled does nothing; one cancelled on its progress says so in
// the status bar; one that fails says why. (That a file already there stays whole is
// tst_ConversionsFile's.)
void tst_frmConvRecords::failedOrCancelledSave()
{
    f->addNumbered(2);
    cancelOnProgress();
    QAction *save = f->action("mnuFileSaveAllRecords");
    f->dialogs.answerSaveFile(QString());
    save->trigger();
    f->dialogs.answerSaveFile(f->temp.filePath("saved.txt"));
    save->trigger();
    QCOMPARE(f->dialogs.asked().size(), 2); // the file dialogs only, no message
    f->window->AddConv("1", "x", "2", "y", "z"); // a later count does not wipe it out
    QCOMPARE(f->panel("mainmessage"), "Saving was cancelled; no file was changed.");

    const QString path = f->temp.filePath("missing/saved.txt");
    f->dialogs.answerSaveFile(path);
    f->dialogs.expectMessage();
    save->trigger();
    const Notice &message = f->dialogs.asked().last().notice;
    QCOMPARE(message.icon, Notice::Exclamation);
    QVERIFY(message.text.startsWith("The conversions could not be saved to " + path + ":\n"));
    QVERIFY(!f->session.MarkedConversionsSaved);
}

void tst_frmConvRecords::placement_data()
{
    QTest::addColumn<QStringList>("stored"); // left, top, width, height as stored, "" for none
    QTest::addColumn<QRect>("expected"); // at 96 dots per inch
    const QRect defaults(33, 33, 400, 367);
    QTest::newRow("defaults") << QStringList { "", "", "", "" } << defaults;
    QTest::newRow("stored twips") << QStringList { "1440", "720", "7200", "5760" }
                                  << QRect(96, 48, 480, 384);
    QTest::newRow("a value that is no number takes its default")
        << QStringList { "abc", "720", "7200", "5760" } << QRect(33, 48, 480, 384);
    QTest::newRow("off every screen goes back to the defaults")
        << QStringList { "30000", "30000", "7200", "5760" } << defaults;
}

void tst_frmConvRecords::placement()
{
    QFETCH(QStringList, stored);
    QFETCH(QRect, expected);
    if (!qFuzzyCompare(f->window->screen()->logicalDotsPerInch(), 96.0))
        QSKIP("the expected placements are worked out for 96 dots per inch");
    const QStringList names { "frmconvleft", "frmconvtop", "frmconvwidth", "frmconvheight" };
    for (int i = 0; i < 4; ++i)
        if (!stored[i].isEmpty())
            f->store->RegWriteString("settings", names[i], stored[i]);
    // A window never shown stores nothing.
    f->reopen();
    f->reopen();
    QCOMPARE(QRect(f->window->pos(), f->window->size()), expected);
    // How a placement is stored: tst_MarkedConversionsInMainWindow, on leaving the program.
}

QTEST_MAIN(tst_frmConvRecords)
#include "tst_frmConvRecords.moc"

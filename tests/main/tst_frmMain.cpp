// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The main window driven as a user drives it: keys and clicks on the controls found by name,
// the result and the status bar read back (see MainWindowFixture for the hive's quantities).
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "find/frmFind.h"
#include "help/HelpTopics.h"
#include "main/FiguresIndicator.h"
#include "support/DataRows.h"
#include "support/GuiTestMain.h"
#include "support/MainWindowFixture.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

static QString text(int id)
{
    return StringTable::text(id);
}

// Status panel 3 for a conversion with exact factors, as the user reads it.
static QString exactStatus(int figures)
{
    return text(5600) + text(369) + QString::number(figures) + text(5602);
}

class tst_frmMain : public QObject, MainWindowFixture
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void mainRoad();
    void readingNote_data();
    void readingNote();
    void history_data();
    void history();
    void keys_data();
    void keys();
    void significantFigures_data();
    void significantFigures();
    void clipboard_data();
    void clipboard();
    void conversionAfterACommand_data();
    void conversionAfterACommand();
    void menuRulesAndOverflow();
    void markAddAllDeleteAndDoubleClick();
    void keysHelpLinesAndAlwaysOnTop();
};

void tst_frmMain::mainRoad()
{
    QVERIFY(start());
    QCOMPARE(currentQuantity(), Lengths);
    typeValue(QString());
    QCOMPARE(result()->text(), text(367));
    typeValue(QStringLiteral("12"));
    QCOMPARE(result()->text(), text(368));
    QVERIFY(!action("mnurecordsadd")->isEnabled());

    clickUnit(left(), QStringLiteral("foot"));
    QCOMPARE(result()->text(), text(368));
    // The target unit by keyboard: the first row, then two down.
    right()->setFocus();
    QTest::keyClick(right(), Qt::Key_Home);
    QTest::keyClick(right(), Qt::Key_Down);
    QTest::keyClick(right(), Qt::Key_Down);
    QCOMPARE(selected(right()), QStringLiteral("inch"));
    QCOMPARE(result()->text(), QStringLiteral("144.0000"));
    QCOMPARE(panel(3)->text(), exactStatus(7));
    QVERIFY(m_program->find<FiguresIndicator *>("Shape1")->isOn()); // exact: up to 13 figures
    QVERIFY(action("mnurecordsadd")->isEnabled());
    QVERIFY(panel(2)->isPanelEnabled());

    // A factor written with five figures limits the result to five.
    clickUnit(left(), QStringLiteral("rod"));
    clickUnit(right(), QStringLiteral("metre"));
    typeValue(QStringLiteral("1"));
    QCOMPARE(result()->text(), QStringLiteral("5.0292"));
    QCOMPARE(panel(3)->text(),
        text(430) + QStringLiteral("5") + text(369) + QStringLiteral("7") + text(5602));
    QVERIFY(!m_program->find<FiguresIndicator *>("Shape1")->isOn());

    // Each quantity remembers its conversion. Acceleration is the catalogue's first quantity,
    // Zeta Mass its last: the memory is kept for both ends too.
    const QString acceleration = text(500);
    clickTab(Masses);
    typeValue(QStringLiteral("0.5"));
    clickUnit(left(), QStringLiteral("kilogram"));
    clickUnit(right(), QStringLiteral("gram"));
    QCOMPARE(result()->text(), QStringLiteral("500.0000"));
    clickTab(acceleration);
    QCOMPARE(selected(left()), QString());
    QCOMPARE(result()->text(), text(368));
    typeValue(QStringLiteral("0.25"));
    clickUnit(left(), text(502));
    clickUnit(right(), text(501).mid(1));
    QCOMPARE(result()->text(), QStringLiteral("7.620000E-2"));

    clickTab(Masses);
    QCOMPARE(value()->currentText(), QStringLiteral("0.5"));
    QCOMPARE(selected(left()), QStringLiteral("kilogram"));
    QCOMPARE(selected(right()), QStringLiteral("gram"));
    QCOMPARE(result()->text(), QStringLiteral("500.0000"));

    QVERIFY(m_program->window()->selectQuantity(acceleration));
    QCOMPARE(value()->currentText(), QStringLiteral("0.25"));
    QCOMPARE(result()->text(), QStringLiteral("7.620000E-2"));
    QVERIFY(!m_program->window()->selectQuantity(QStringLiteral("No Such Quantity")));
    QVERIFY(!m_program->window()->selectRightUnit(QStringLiteral("furlong")));
    // A value the program put back is followed by the user's own change at once.
    QTest::keyClick(value()->lineEdit(), Qt::Key_End);
    QTest::keyClick(value()->lineEdit(), Qt::Key_5);
    QCOMPARE(result()->text(), QStringLiteral("7.772400E-2"));

    // The result follows a value picked from the history by keyboard, units chosen by another
    // window (the first row of either list) and a unit selected without moving the current row.
    showFeetInInches(QStringLiteral("6"));
    QTest::keyClick(value()->lineEdit(), Qt::Key_Return); // "6" into the history
    typeValue(QStringLiteral("1"));
    QCOMPARE(result()->text(), QStringLiteral("12.00000"));
    QTest::keyClick(value()->lineEdit(), Qt::Key_Down);
    QCOMPARE(value()->currentText(), QStringLiteral("6"));
    QCOMPARE(result()->text(), QStringLiteral("72.00000"));
    QVERIFY(m_program->window()->selectRightUnit(QStringLiteral("metre")));
    QCOMPARE(result()->text(), QStringLiteral("1.828800"));
    QVERIFY(m_program->window()->selectLeftUnit(QStringLiteral("metre")));
    QCOMPARE(result()->text(), QStringLiteral("6.000000"));
    // What assistive technology does: the row is selected, the current row stays.
    const QModelIndex inch = right()->model()->index(2, 0);
    right()->selectionModel()->select(inch, QItemSelectionModel::ClearAndSelect);
    QCOMPARE(right()->currentRow(), 0);
    QCOMPARE(result()->text(), QStringLiteral("236.2205"));
}

void tst_frmMain::readingNote_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("readAs"); // "" when the whole text is the number
    const char *rows[][3] = {
        { "a thousands comma", "1,500", "1" },
        { "a mixed number: blanks inside are skipped", "1 1/2", "11" },
        { "a whole number", "12", "" },
        { "blanks around a number", " 1 500 ", "" },
        { "an empty box", "", "" },
        { "no number at all", "abc", "0" },
    };
    addTextRows(rows);
}

// A value read from its start only converts as before, and the box says what it was read as;
// the note goes when the whole text is a number.
void tst_frmMain::readingNote()
{
    QFETCH(QString, typed);
    QFETCH(QString, readAs);
    QVERIFY(start());
    showFeetInInches(QStringLiteral("1,5"));
    showFeetInInches(typed);
    auto *mark = m_program->find<QAction *>("actReadingNote");
    QCOMPARE(mark->isVisible(), !readAs.isEmpty());
    const QString note = readAs.isEmpty() ? QString()
        : readAs == u"0"                  ? text(5531)
                                          : text(5530).arg(readAs);
    QCOMPARE(mark->toolTip().isEmpty() ? QString() : mark->toolTip(), note);
    QCOMPARE(value()->lineEdit()->accessibleDescription(), note);
    if (!readAs.isEmpty() && readAs != u"0") {
        const QString shown = result()->text();
        typeValue(readAs);
        QCOMPARE(result()->text(), shown);
    }
}

void tst_frmMain::history_data()
{
    QTest::addColumn<QStringList>("entered");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("newest first") << QStringList { "1", "2", "3" } << QStringList { "3", "2", "1" };
    QTest::newRow("a value entered again is kept once, where it was")
        << QStringList { "1", "2", "1" } << QStringList { "2", "1" };
    QTest::newRow("values differing in case are different")
        << QStringList { "1e3", "1E3" } << QStringList { "1E3", "1e3" };
    QTest::newRow("an empty value is not kept") << QStringList { "5", "" } << QStringList { "5" };
    QStringList eleven, tenNewest;
    for (int i = 1; i <= 11; ++i) {
        eleven.append(QString::number(i));
        tenNewest.prepend(QString::number(i));
    }
    tenNewest.removeLast();
    QTest::newRow("the eleventh value pushes out the oldest") << eleven << tenNewest;
}

// Enter keeps the value in the history, refreshes and leaves the value and the focus alone.
void tst_frmMain::history()
{
    QFETCH(QStringList, entered);
    QFETCH(QStringList, expected);
    QVERIFY(start());
    showFeetInInches(QString());
    QLineEdit *edit = value()->lineEdit();
    for (const QString &each : entered) {
        typeValue(each);
        result()->clear();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(value()->currentText(), each);
        QCOMPARE(edit->selectedText(), each); // typing still replaces it
        QVERIFY(!result()->text().isEmpty());
        QVERIFY(edit->hasFocus());
    }
    QCOMPARE(m_program->window()->valueHistory(), expected);
    // A unit list taking the focus keeps the value; the box taking it back selects it all.
    typeValue(QStringLiteral("42"));
    left()->setFocus();
    QCOMPARE(m_program->window()->valueHistory().constFirst(), QStringLiteral("42"));
    typeValue(QStringLiteral("43")); // a right click on another unit selects and keeps nothing
    const QPoint metre = left()->visualItemRect(left()->item(0)).center();
    QTest::mouseClick(left()->viewport(), Qt::RightButton, {}, metre);
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QVERIFY(!m_program->window()->valueHistory().contains(QStringLiteral("43")));
    edit->setFocus();
    QTRY_COMPARE(edit->selectedText(), value()->currentText());
}

void tst_frmMain::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<int>("from"); // the tab current before: 0 the first, -1 the last, 1 as it is
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("value");
    const auto ctrl = Qt::KeyboardModifiers(Qt::ControlModifier);
    const auto ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
    QTest::newRow("Ctrl+Tab on the last tab selects the first")
        << int(Qt::Key_Tab) << ctrl << -1 << 0 << "2";
    // X11 delivers Backtab but matches shortcuts by the unshifted key; other platforms differ.
    QTest::newRow("Ctrl+Shift+Tab as Tab on the first tab selects the last")
        << int(Qt::Key_Tab) << ctrlShift << 0 << -1 << "2";
    QTest::newRow("Ctrl+Shift+Tab as Backtab on the first tab selects the last")
        << int(Qt::Key_Backtab) << ctrlShift << 0 << -1 << "2";
    QTest::newRow("Ctrl+1 enters 1 and goes to the initial unit")
        << int(Qt::Key_1) << ctrl << 1 << 1 << "1";
}

// The window sees these keys before the control that has the focus: a list or the value box.
void tst_frmMain::keys()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, value);
    QVERIFY(start());
    showFeetInInches(QStringLiteral("2"));
    QuantityTabBar *bar = tabs();
    const auto index = [bar](int tab) {
        return tab == 1 ? bar->currentIndex() : tab < 0 ? bar->count() - 1 : 0;
    };
    const int expected = index(to);
    bar->setCurrentIndex(index(from));
    QWidget *focus = from == 0 ? static_cast<QWidget *>(left()) : this->value()->lineEdit();
    focus->setFocus();
    QTest::keyClick(focus, Qt::Key(key), modifiers);
    QCOMPARE(bar->currentIndex(), expected);
    QCOMPARE(currentQuantity(), bar->tabText(expected));
    const Catalogue &catalogue = m_program->startup().catalogue();
    QCOMPARE(left()->count(), catalogue.enabledUnitNames(catalogue.CurrentQuantity).size());
    QCOMPARE(this->value()->currentText(), value);
    if (key == Qt::Key_1) {
        QCOMPARE(result()->text(), QStringLiteral("12.00000"));
        QVERIFY(left()->hasFocus());
    }
}

void tst_frmMain::significantFigures_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<bool>("increase");
    QTest::addColumn<bool>("byKeyboard");
    QTest::addColumn<int>("expected");
    QTest::addColumn<QString>("shown"); // empty: the click did nothing, not even a refresh
    QTest::newRow("Ctrl+Shift+Alt+I increases from 7") << 7 << true << true << 8 << "144.00000";
    QTest::newRow("Ctrl+Shift+Alt+D decreases from 7") << 7 << false << true << 6 << "144.000";
    QTest::newRow("increase at 13 does nothing") << 13 << true << false << 13 << "";
    QTest::newRow("decrease at 1 does nothing") << 1 << false << false << 1 << "";
    QTest::newRow("decrease from 2 to 1") << 2 << false << false << 1 << "100";
    QTest::newRow("a stored 0 is not decreased") << 0 << false << false << 0 << "";
    QTest::newRow("a stored 0 is increased to 1") << 0 << true << false << 1 << "100";
}

void tst_frmMain::significantFigures()
{
    QFETCH(int, start);
    QFETCH(bool, increase);
    QFETCH(bool, byKeyboard);
    QFETCH(int, expected);
    QFETCH(QString, shown);
    m_hive->writeSetting(QStringLiteral("numericformatting"), QString::number(start));
    // With no figures at all every conversion is an error, reported as such.
    m_dialogs->allowMessages(start == 0);
    QVERIFY(this->start());
    showFeetInInches(QStringLiteral("12"));
    // A mark in the result box shows whether the click refreshed it.
    const QString marker = QStringLiteral("not refreshed");
    result()->setText(marker);
    if (byKeyboard)
        QTest::keyClick(left(), increase ? Qt::Key_I : Qt::Key_D,
            Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier);
    else
        QTest::mouseClick(
            m_program->find<QToolButton *>(increase ? "cmdIncreaseSigFigs" : "cmdDecreaseSigFigs"),
            Qt::LeftButton);
    QCOMPARE(m_program->startup().settings().SigFigs, expected);
    QCOMPARE(result()->text(), shown.isEmpty() ? marker : shown);
    if (!shown.isEmpty()) {
        QVERIFY(value()->lineEdit()->hasFocus());
        QCOMPARE(panel(3)->text(), exactStatus(expected));
    }
}

void tst_frmMain::clipboard_data()
{
    // command: a menu item, "lblUnitLeft" / "lblUnitRight", "keys" (Ctrl+V in the value box),
    // "box menu" (the value box's own Paste); value: what the value box shows afterwards
    // (empty: refused with a message); copied: what the clipboard holds afterwards.
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("copied");
    const char *rows[][5] = {
        { "Copy Converted Value", "mnueditedit_0", "x", "12", "144.0000" },
        { "the right label copies the value", "lblUnitRight", "x", "12", "144.0000" },
        { "Copy Whole Conversion", "mnueditCopyWholeConv", "x", "12", "12 foot  =  144.0000 inch" },
        { "Paste keeps the number a text starts with", "mnueditedit_1", "12.5e-3kg", "12.5e-3",
            "12.5e-3kg" },
        { "a second point ends the pasted number", "mnuview2edit_1", "1.2.3", "1.2", "1.2.3" },
        { "the left label pastes", "lblUnitLeft", "5 ft", "5 ", "5 ft" },
        { "the left label pastes no 0", "lblUnitLeft", "0", "12", "0" },
        { "the paste key enters 0, which the menu does not offer", "keys", "0", "0", "0" },
        { "the value box's own menu pastes the number", "box menu", "7.5 feet", "7.5 ",
            "7.5 feet" },
        { "a text without a number is refused", "keys", "abc", "", "abc" },
    };
    addTextRows(rows);
    const QString huge(1'000'000, u'7');
    QTest::newRow("a number before a huge block of words")
        << "keys" << QStringLiteral("2.5") + QString(1'000'000, u'x') << "2.5" << QString();
    QTest::newRow("a huge block of digits fills the box and is too big to convert")
        << "keys" << huge << QString(32767, u'7') << huge;
}

void tst_frmMain::clipboard()
{
    QFETCH(QString, command);
    QFETCH(QString, clipboard);
    QFETCH(QString, value);
    QFETCH(QString, copied);
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    QGuiApplication::clipboard()->setText(clipboard);
    const bool refused = value.isEmpty();
    const bool tooBig = value.size() > 100;
    if (refused || tooBig)
        m_dialogs->expectMessage();
    if (command.startsWith(u"mnu")) {
        emit m_program->find<QMenu *>(command.contains(u"view2") ? "mnuview2" : "mnuEdit")
            ->aboutToShow();
        QVERIFY(action(command.toLatin1().constData())->isEnabled());
        action(command.toLatin1().constData())->trigger();
    } else if (command.startsWith(u"lbl")) {
        QTest::mouseClick(
            m_program->find<QLabel *>(command.toLatin1().constData()), Qt::LeftButton);
    } else if (command == u"keys") {
        QTest::keyClick(this->value()->lineEdit(), Qt::Key_V, Qt::ControlModifier);
    } else {
        QLineEdit *edit = this->value()->lineEdit();
        QContextMenuEvent event(
            QContextMenuEvent::Mouse, QPoint(5, 5), edit->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(edit, &event);
        auto *menu = edit->findChild<QMenu *>();
        const QString keys = QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
        for (QAction *item : menu->actions())
            if (item->text().endsWith(keys))
                item->trigger();
        menu->close();
    }
    const Notice refusal { Notice::Information, text(322), text(321) };
    if (refused)
        QCOMPARE(m_dialogs->notices(), QList { refusal });
    QCOMPARE(this->value()->currentText(), refused ? QStringLiteral("12") : value);
    if (!copied.isNull())
        QCOMPARE(QGuiApplication::clipboard()->text(), copied);
}

// The rules themselves are MenuRules's; here: each menu applies its rule as it opens. Then a
// value too big to convert changes nothing else.
void tst_frmMain::menuRulesAndOverflow()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    right()->clearSelection();
    const QList<QPair<const char *, QStringList>> menus {
        { "mnuEdit", { "mnueditedit_0", "mnueditswitch", "mnueditCopyWholeConv" } },
        { "mnuview2", { "mnuview2edit_0", "mnuview2switch" } },
    };
    for (const auto &[menu, items] : menus) {
        for (const QString &item : items)
            action(item.toLatin1().constData())->setEnabled(true);
        emit m_program->find<QMenu *>(menu)->aboutToShow();
        for (const QString &item : items)
            QVERIFY2(!action(item.toLatin1().constData())->isEnabled(), qPrintable(item));
    }
    for (const char *item : { "mnuFilePrintAllConvForItem", "mnurecordsAddAll" })
        action(item)->setEnabled(true);
    typeValue(QString());
    emit m_program->find<QMenu *>("mnurecords")->aboutToShow();
    QVERIFY(!action("mnurecordsAddAll")->isEnabled());
    // The print key reaches its command without the menu: the File rule follows the value.
    QVERIFY(!action("mnuFilePrintAllConvForItem")->isEnabled());
    typeValue(QStringLiteral("3"));
    QVERIFY(action("mnuFilePrintAllConvForItem")->isEnabled());
    QVERIFY(action("mnuFileSaveAllConvForItem")->isEnabled());

    clickUnit(right(), QStringLiteral("inch"));
    const QStringList history = m_program->window()->valueHistory();
    m_dialogs->expectMessage();
    m_program->window()->setValueText(QStringLiteral("1e999"));
    const Notice overflow { Notice::Exclamation, text(28) + QStringLiteral("\n\n") + text(321),
        {} };
    QCOMPARE(m_dialogs->notices(), QList { overflow });
    QCOMPARE(value()->currentText(), QStringLiteral("1e999"));
    QCOMPARE(result()->text(), QString());
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QCOMPARE(selected(right()), QStringLiteral("inch"));
    QCOMPARE(m_program->window()->valueHistory(), history);
    // Put back on coming back to the quantity, the value is converted, and refused, once.
    clickTab(Masses);
    typeValue(QStringLiteral("2"));
    m_dialogs->expectMessage();
    clickTab(Lengths);
    QCOMPARE(value()->currentText(), QStringLiteral("1e999"));
}

void tst_frmMain::markAddAllDeleteAndDoubleClick()
{
    QVERIFY(start());
    const auto commandsEnabled = [this](bool enabled) {
        for (const char *name : { "mnurecordspurge", "mnuRecordsView", "mnuview2records" })
            if (action(name)->isEnabled() != enabled)
                return false;
        return m_program->startup().session().MarkedConversionsExist == enabled;
    };
    QCOMPARE(panel(1)->text(), text(400) + QStringLiteral("0"));
    QVERIFY(commandsEnabled(false));

    showFeetInInches(QStringLiteral("12"));
    action("mnurecordsadd")->trigger();
    QTest::mouseClick(panel(2), Qt::LeftButton); // the Mark panel does the same
    using Line = frmMain::MarkedLine;
    const Line marked { "12", "foot", "144.0000", "inch", Lengths };
    QCOMPARE(m_program->window()->markedConversions(), (QList<Line> { marked, marked }));
    QCOMPARE(panel(1)->text(), text(400) + QStringLiteral("2"));
    QVERIFY(commandsEnabled(true));

    action("mnurecordsAddAll")->trigger();
    const QList<Line> all = m_program->window()->markedConversions();
    QCOMPARE(all.size(), 2 + right()->count());
    QCOMPARE(all.at(2), (Line { "12", "foot", "3.657600", "metre", Lengths }));
    QCOMPARE(all.last(), (Line { "12", "foot", "0.72727", "rod", Lengths }));
    QCOMPARE(panel(1)->text(), text(400) + QString::number(all.size()));

    m_dialogs->answerQuestion(Dialogs::No);
    action("mnurecordspurge")->trigger();
    QCOMPARE(m_program->window()->markedConversions().size(), all.size());
    QCOMPARE(m_dialogs->asked().last().notice, (Notice { Notice::Critical, text(324), text(325) }));
    QCOMPARE(m_dialogs->asked().last().defaultAnswer, Dialogs::No);

    m_dialogs->answerQuestion(Dialogs::Yes);
    action("mnurecordspurge")->trigger();
    QVERIFY(m_program->window()->markedConversions().isEmpty());
    QCOMPARE(panel(1)->text(), text(400) + QStringLiteral("0"));
    QVERIFY(commandsEnabled(false));
    // The conversion shown can be marked again at once. Through the window system, which makes
    // press, release, press, double-click, release: a double-click on Mark marks once, one on Sci
    // turns scientific notation on and leaves it on.
    QVERIFY(action("mnurecordsadd")->isEnabled());
    frmMain *window = m_program->window();
    for (const int n : { 2, 4 })
        QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {},
            panel(n)->mapTo(window, panel(n)->rect().center()));
    QCOMPARE(window->markedConversions(), QList { marked });
    QCOMPARE(result()->text(), QStringLiteral("1.440000E+2"));
    QVERIFY(panel(4)->isPanelEnabled());
    QVERIFY(m_program->startup().settings().Scientific);
}

void tst_frmMain::conversionAfterACommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("units"); // the units selected afterwards, left and right
    QTest::addColumn<QString>("shown");
    const char *rows[][4] = {
        { "Switch Units in the Edit menu", "mnueditswitch", "inch foot", "1.000000" },
        { "Switch Units in the pop-up menu", "mnuview2switch", "inch foot", "1.000000" },
        // Quantities switched off and the interface style: tst_OptionsFromMainWindow.
        { "options: a unit switched off and four figures", "options", "foot inch", "144.0" },
    };
    addTextRows(rows);
}

void tst_frmMain::conversionAfterACommand()
{
    QFETCH(QString, command);
    QFETCH(QString, units);
    QFETCH(QString, shown);
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    if (command.startsWith(u"mnu")) {
        action(qPrintable(command))->trigger();
    } else {
        Catalogue &catalogue = m_program->startup().catalogue();
        const int q = catalogue.findQuantity(Lengths);
        catalogue.Units[q][catalogue.findUnit(q, QStringLiteral("metre"))].OnOff = 0;
        m_program->startup().settings().SigFigs = 4;
        m_program->window()->optionsChanged();
        QVERIFY(left()->findItems(QStringLiteral("metre"), Qt::MatchExactly).isEmpty());
    }
    QCOMPARE(currentQuantity(), Lengths);
    QCOMPARE(selected(left()) + u' ' + selected(right()), units);
    QCOMPARE(value()->currentText(), QStringLiteral("12"));
    QCOMPARE(result()->text(), shown);
}

// The platform's keys for common commands do what their menu items do, with the menus closed
// (Quit, which the offscreen platform lacks, is pressed by screen_reader_converts.py); the help
// lines of menu items in the status bar; the Always on Top menu.
void tst_frmMain::keysHelpLinesAndAlwaysOnTop()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12")); // the items are enabled: only those can be highlighted
    QLineEdit *box = value()->lineEdit();
    m_dialogs->answerOpenFile(QString());
    QTest::keySequence(box, QKeySequence::Open);
    QVERIFY(m_dialogs->scriptDone());
    m_dialogs->answerQuestion(Dialogs::No);
    QTest::keySequence(box, QKeySequence::Print);
    QVERIFY(m_dialogs->scriptDone());
    QVERIFY(m_dialogs->asked().constLast().notice.text.startsWith(text(286)));
    frmMain *window = m_program->window();
    action("mnualwaystoponoff_0")->trigger();
    QTest::keySequence(box, QKeySequence::HelpContents);
    const QTextBrowser *topic = nullptr;
    for (const QWidget *window : QApplication::topLevelWidgets())
        if (window->objectName() == u"HelpWindow")
            topic = window->findChild<QTextBrowser *>("txtTopic");
    QVERIFY(topic && topic->isVisible());
    QCOMPARE(topic->source(), HelpTopics::topicUrl(HelpTopics::MainWindow));
    // The help follows the window on top, or the window would hide it where they meet.
    const QWidget *help = topic->window();
    const auto helpOnTop = [help] { return help->windowFlags() & Qt::WindowStaysOnTopHint; };
    QVERIFY(window->isTopmost() && helpOnTop());
    // The menu item itself opens the contents.
    action("mnuhelphelp")->trigger();
    QCOMPARE(topic->source(), HelpTopics::contentsUrl());
    bool found = false;
    QTimer::singleShot(0, this, [&] {
        auto *dialog = qobject_cast<frmFind *>(QApplication::activeModalWidget());
        found = dialog && dialog->isVisible();
        if (dialog)
            dialog->close();
    });
    QTest::keySequence(box, QKeySequence::Find);
    QVERIFY(found && !window->isTopmost() && !helpOnTop());
    auto *bar = m_program->find<QStatusBar *>("StatusBar");
    QMenu *edit = m_program->find<QMenu *>("mnuEdit");
    edit->popup(QPoint(0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(edit));
    QCOMPARE(bar->currentMessage(), text(258));
    QTest::mouseMove(edit, edit->actionGeometry(action("mnueditCopyWholeConv")).center());
    QTest::mouseMove(edit, edit->actionGeometry(action("mnueditswitch")).center());
    QCOMPARE(bar->currentMessage(), text(395));
    edit->close();
    QTRY_COMPARE(bar->currentMessage(), QString());
    // An item without a help line of its own.
    QMenu *onTop = m_program->find<QMenu *>("mnualwaystop");
    onTop->popup(QPoint(0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(onTop));
    QTest::mouseMove(onTop, onTop->actionGeometry(action("mnualwaystoponoff_1")).center());
    QTest::mouseMove(onTop, onTop->actionGeometry(action("mnualwaystoponoff_0")).center());
    QCOMPARE(bar->currentMessage(), text(258));
    onTop->close();
    QTRY_COMPARE(bar->currentMessage(), QString());

    QVERIFY(action("mnualwaystoponoff_1")->isChecked());
    action("mnualwaystoponoff_0")->trigger();
    QVERIFY(!action("mnualwaystoponoff_1")->isChecked());
    QVERIFY(window->isTopmost() && helpOnTop());
    // A modal dialog must not open behind them: neither is on top while one is open.
    for (const char *command : { "mnufilesetopt", "mnuhelpabout" }) {
        bool onTopMeanwhile = true;
        QTimer::singleShot(0, this, [&] {
            if (QWidget *dialog = QApplication::activeModalWidget()) {
                onTopMeanwhile = window->isTopmost() || helpOnTop();
                dialog->close();
            }
        });
        action(command)->trigger();
        QVERIFY2(!onTopMeanwhile, command);
        QVERIFY(window->isTopmost() && helpOnTop());
    }
    action("mnualwaystoponoff_1")->trigger();
    QVERIFY(!window->isTopmost() && !helpOnTop());
    QVERIFY(window->isVisible() && help->isVisible());
}

MENSURA_GUI_TEST_MAIN(tst_frmMain)
#include "tst_frmMain.moc"

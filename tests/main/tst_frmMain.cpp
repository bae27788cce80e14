// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The main window driven as a user drives it: keys and clicks on the controls found by name,
// the result and the status bar read back. Every test starts the program on a hive of its own
// holding two quantities of the test's own, whose factors make the expected results easy to
// work out by hand: 1 foot = 0.3048 m and 1 inch = 0.0254 m exactly, 1 rod = 5.0292 m written
// with five figures and not exact.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "find/frmFind.h"
#include "help/HelpTopics.h"
#include "main/FiguresIndicator.h"
#include "main/QuantityTabBar.h"
#include "main/StatusPanel.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QStatusBar>
#include <QTabBar>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

static const QString Lengths = QStringLiteral("Zeta Length");
static const QString Masses = QStringLiteral("Zeta Mass");

static QString text(int id)
{
    return StringTable::text(id);
}

// Status panel 3 for a conversion with exact factors, as the user reads it.
static QString exactStatus(int figures)
{
    return text(5600) + text(369) + QString::number(figures) + text(5602);
}

class tst_frmMain : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void mainRoad();
    void resultFollowsEveryKindOfChange_data();
    void resultFollowsEveryKindOfChange();
    void enterRefreshesAndKeepsTheValue();
    void readingNote_data();
    void readingNote();
    void history_data();
    void history();
    void quantityRemembersItsConversion();
    void ctrlTabWrapsAround_data();
    void ctrlTabWrapsAround();
    void ctrl1EntersOne();
    void standardKeys_data();
    void standardKeys();
    void significantFigures_data();
    void significantFigures();
    void paste_data();
    void paste();
    void pasteOfZeroByKeyboard();
    void copy();
    void labelShortcuts();
    void swap();
    void editRule_data();
    void editRule();
    void fileAndToolsRules();
    void markAddAllAndDelete();
    void scientificPanelToggles();
    void doubleClickOnAPanelIsOneClick_data();
    void doubleClickOnAPanelIsOneClick();
    void overflowChangesNothingElse();
    void helpLines();
    void rightClickLeavesSelection();
    void alwaysOnTop();
    void otherWindowsChangeTheMarkedCount();
    void optionsChangeTheWindow();
    void accessibleNames();

private:
    bool start();
    QComboBox *value() const { return m_program->find<QComboBox *>("txtLeft"); }
    QLineEdit *result() const { return m_program->find<QLineEdit *>("txtRight"); }
    QListWidget *left() const { return m_program->find<QListWidget *>("lstLeft"); }
    QListWidget *right() const { return m_program->find<QListWidget *>("lstRight"); }
    QTabBar *tabs() const { return m_program->find<QTabBar *>("tabMain"); }
    StatusPanel *panel(int n) const;
    QAction *action(const char *name) const { return m_program->find<QAction *>(name); }
    void typeValue(const QString &value);
    void clickUnit(QListWidget *list, const QString &unit);
    void clickTab(const QString &quantity);
    QString selected(QListWidget *list) const;
    // The Zeta Length conversion foot -> inch of the value.
    void showFeetInInches(const QString &value);

    std::unique_ptr<TestHive> m_hive;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<TestProgram> m_program;
};

void tst_frmMain::init()
{
    m_hive = std::make_unique<TestHive>();
    m_hive->writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    m_hive->writeSetting(QStringLiteral("triads"), QStringLiteral("0"));
    m_hive->writeSetting(QStringLiteral("currphysquan"), Lengths);
    m_hive->addQuantity(Lengths,
        { { QStringLiteral("metre"), QStringLiteral("x1") },
            { QStringLiteral("foot"), QStringLiteral("x0.3048") },
            { QStringLiteral("inch"), QStringLiteral("x0.0254") },
            { QStringLiteral("rod"), QStringLiteral("5.0292") } });
    m_hive->addQuantity(Masses,
        { { QStringLiteral("kilogram"), QStringLiteral("x1") },
            { QStringLiteral("pound"), QStringLiteral("x0.45359237") },
            { QStringLiteral("gram"), QStringLiteral("x1E-3") } });
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
}

void tst_frmMain::cleanup()
{
    m_program.reset();
    m_dialogs.reset();
    m_hive.reset();
}

bool tst_frmMain::start()
{
    if (!m_program->start() || !QTest::qWaitForWindowExposed(m_program->window()))
        return false;
    // Shortcuts and focus need the active window (a real X server without a window manager
    // activates nothing by itself).
    m_program->window()->activateWindow();
    return QTest::qWaitForWindowActive(m_program->window());
}

StatusPanel *tst_frmMain::panel(int n) const
{
    const QByteArray name = "StatusBarPanel" + QByteArray::number(n);
    return m_program->find<StatusPanel *>(name.constData());
}

void tst_frmMain::typeValue(const QString &typed)
{
    QLineEdit *edit = value()->lineEdit();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, typed);
}

void tst_frmMain::clickUnit(QListWidget *list, const QString &unit)
{
    const QList<QListWidgetItem *> items = list->findItems(unit, Qt::MatchExactly);
    QVERIFY2(!items.isEmpty(), qPrintable(unit));
    QTest::mouseClick(
        list->viewport(), Qt::LeftButton, {}, list->visualItemRect(items.first()).center());
}

void tst_frmMain::clickTab(const QString &quantity)
{
    auto *bar = m_program->find<QuantityTabBar *>("tabMain");
    for (int i = 0; i < bar->count(); ++i) {
        if (bar->tabText(i) == quantity) {
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->quantityRect(i).center());
            QCOMPARE(bar->currentIndex(), i);
            return;
        }
    }
    QFAIL(qPrintable(QStringLiteral("no tab ") + quantity));
}

QString tst_frmMain::selected(QListWidget *list) const
{
    const auto items = list->selectedItems();
    return items.isEmpty() ? QString() : items.first()->text();
}

void tst_frmMain::showFeetInInches(const QString &typed)
{
    clickTab(Lengths);
    typeValue(typed);
    clickUnit(left(), QStringLiteral("foot"));
    clickUnit(right(), QStringLiteral("inch"));
}

void tst_frmMain::mainRoad()
{
    QVERIFY(start());
    QCOMPARE(m_program->startup()
                 .catalogue()
                 .Quantities.at(m_program->startup().catalogue().CurrentQuantity)
                 .Name,
        Lengths);

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
    QVERIFY(m_dialogs->asked().isEmpty());
}

void tst_frmMain::resultFollowsEveryKindOfChange_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a value picked from the history by keyboard") << "history"
                                                                 << "72.00000";
    QTest::newRow("a target unit selected without moving the current row") << "selection"
                                                                           << "0.3048000";
    QTest::newRow("a target unit chosen by another window") << "control"
                                                            << "1.000000";
    QTest::newRow("a value put in by another window") << "control value"
                                                      << "36.00000";
}

void tst_frmMain::resultFollowsEveryKindOfChange()
{
    QFETCH(QString, how);
    QFETCH(QString, expected);
    QVERIFY(start());
    showFeetInInches(QStringLiteral("6"));
    QTest::keyClick(value()->lineEdit(), Qt::Key_Return); // "6" into the history
    typeValue(QStringLiteral("1"));
    QCOMPARE(result()->text(), QStringLiteral("12.00000"));

    if (how == QLatin1String("history")) {
        QTest::keyClick(value()->lineEdit(), Qt::Key_Down);
        QCOMPARE(value()->currentText(), QStringLiteral("6"));
    } else if (how == QLatin1String("selection")) {
        // What assistive technology does: the row is selected, the current row stays.
        const QModelIndex metre = right()->model()->index(0, 0);
        right()->selectionModel()->select(metre, QItemSelectionModel::ClearAndSelect);
        QCOMPARE(right()->currentRow(), 2);
    } else if (how == QLatin1String("control")) {
        QVERIFY(m_program->window()->selectRightUnit(QStringLiteral("foot")));
        QVERIFY(!m_program->window()->selectRightUnit(QStringLiteral("furlong")));
    } else {
        m_program->window()->setValueText(QStringLiteral("3"));
    }
    QCOMPARE(result()->text(), expected);
}

void tst_frmMain::readingNote_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("readAs"); // "" when the whole text is the number
    QTest::newRow("a thousands comma") << "1,500"
                                       << "1";
    QTest::newRow("a fraction") << "3/8"
                                << "3";
    QTest::newRow("a mixed number: blanks inside are skipped") << "1 1/2"
                                                               << "11";
    QTest::newRow("a unit after the number") << "12kg"
                                             << "12";
    QTest::newRow("a dangling exponent") << "2.5e"
                                         << "2.5";
    QTest::newRow("a whole number") << "12"
                                    << "";
    QTest::newRow("blanks around a number") << " 1 500 "
                                            << "";
    QTest::newRow("an exponent") << "-1.5D3"
                                 << "";
    QTest::newRow("an empty box") << ""
                                  << "";
    QTest::newRow("no number at all") << "abc"
                                      << "0";
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

void tst_frmMain::enterRefreshesAndKeepsTheValue()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("2"));
    QLineEdit *edit = value()->lineEdit();
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(value()->currentText(), QStringLiteral("2"));
    QCOMPARE(result()->text(), QStringLiteral("24.00000"));
    QVERIFY(edit->hasFocus());
    QCOMPARE(m_program->window()->valueHistory(), QStringList { QStringLiteral("2") });
    // Coming back to the value box selects the whole value, so that typing replaces it.
    left()->setFocus();
    edit->setFocus();
    QTRY_COMPARE(edit->selectedText(), QStringLiteral("2"));
    QTest::keyClicks(edit, QStringLiteral("5"));
    QCOMPARE(result()->text(), QStringLiteral("60.00000"));
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
    for (int i = 1; i <= 11; ++i)
        eleven.append(QString::number(i));
    for (int i = 11; i >= 2; --i)
        tenNewest.append(QString::number(i));
    QTest::newRow("the eleventh value pushes out the oldest") << eleven << tenNewest;
}

void tst_frmMain::history()
{
    QFETCH(QStringList, entered);
    QFETCH(QStringList, expected);
    QVERIFY(start());
    clickTab(Lengths);
    for (const QString &each : entered) {
        typeValue(each);
        QTest::keyClick(value()->lineEdit(), Qt::Key_Return);
        // Keeping a value in the history never changes the value shown.
        QCOMPARE(value()->currentText(), each);
    }
    QCOMPARE(m_program->window()->valueHistory(), expected);
}

void tst_frmMain::quantityRemembersItsConversion()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    clickTab(Masses);
    QCOMPARE(selected(left()), QString());
    QCOMPARE(result()->text(), text(368));
    typeValue(QStringLiteral("0.5"));
    clickUnit(left(), QStringLiteral("kilogram"));
    clickUnit(right(), QStringLiteral("gram"));
    QCOMPARE(result()->text(), QStringLiteral("500.0000"));

    clickTab(Lengths);
    QCOMPARE(value()->currentText(), QStringLiteral("12"));
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QCOMPARE(selected(right()), QStringLiteral("inch"));
    QCOMPARE(result()->text(), QStringLiteral("144.0000"));

    QVERIFY(m_program->window()->selectQuantity(Masses));
    QCOMPARE(value()->currentText(), QStringLiteral("0.5"));
    QCOMPARE(selected(right()), QStringLiteral("gram"));
    QCOMPARE(result()->text(), QStringLiteral("500.0000"));
    QVERIFY(!m_program->window()->selectQuantity(QStringLiteral("No Such Quantity")));
}

void tst_frmMain::ctrlTabWrapsAround_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Ctrl+Tab on the last tab selects the first")
        << int(Qt::Key_Tab) << Qt::KeyboardModifiers(Qt::ControlModifier);
    // X11 delivers Backtab but matches shortcuts by the unshifted key; other platforms differ.
    QTest::newRow("Ctrl+Shift+Tab as Tab on the first tab selects the last")
        << int(Qt::Key_Tab) << (Qt::ControlModifier | Qt::ShiftModifier);
    QTest::newRow("Ctrl+Shift+Tab as Backtab on the first tab selects the last")
        << int(Qt::Key_Backtab) << (Qt::ControlModifier | Qt::ShiftModifier);
}

void tst_frmMain::ctrlTabWrapsAround()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    const bool backwards = modifiers.testFlag(Qt::ShiftModifier);
    QVERIFY(start());
    QTabBar *bar = tabs();
    QVERIFY(bar->count() >= 3);
    const int from = backwards ? 0 : bar->count() - 1;
    const int to = backwards ? bar->count() - 1 : 0;
    bar->setCurrentIndex(from);
    // From the value box and from a list alike: the window sees these keys first.
    QWidget *focus = backwards ? static_cast<QWidget *>(left()) : value()->lineEdit();
    focus->setFocus();
    QTest::keyClick(focus, Qt::Key(key), modifiers);
    QCOMPARE(bar->currentIndex(), to);
    const Catalogue &catalogue = m_program->startup().catalogue();
    QCOMPARE(catalogue.Quantities.at(catalogue.CurrentQuantity).Name, bar->tabText(to));
    QCOMPARE(left()->count(), catalogue.enabledUnitNames(catalogue.CurrentQuantity).size());
}

void tst_frmMain::standardKeys_data()
{
    QTest::addColumn<QKeySequence>("keys");
    QTest::addColumn<QString>("command");
    QTest::newRow("Find opens the find dialog") << QKeySequence(QKeySequence::Find) << "find";
    QTest::newRow("Open loads conversions") << QKeySequence(QKeySequence::Open) << "load";
    QTest::newRow("Print prints all conversions of the value")
        << QKeySequence(QKeySequence::Print) << "print";
    QTest::newRow("Quit asks before leaving marked conversions")
        << QKeySequence(QKeySequence::Quit) << "quit";
    QTest::newRow("Help opens the main window's topic")
        << QKeySequence(QKeySequence::HelpContents) << "help";
}

// The platform's keys for common commands do what their menu items do, with the menus closed.
void tst_frmMain::standardKeys()
{
    QFETCH(QKeySequence, keys);
    QFETCH(QString, command);
    if (keys.isEmpty())
        QSKIP("this platform has no such key");
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    if (command == u"quit")
        action("mnurecordsadd")->trigger();
    bool found = false;
    if (command == u"find") {
        QTimer::singleShot(0, this, [&] {
            auto *dialog = qobject_cast<frmFind *>(QApplication::activeModalWidget());
            found = dialog && dialog->isVisible();
            if (dialog)
                dialog->close();
        });
    } else if (command == u"load") {
        m_dialogs->answerOpenFile(QString());
    } else if (command != u"help") {
        m_dialogs->answerQuestion(Dialogs::No);
    }
    QTest::keySequence(value()->lineEdit(), keys);

    if (command == u"find") {
        QVERIFY(found);
    } else if (command == u"help") {
        const QTextBrowser *topic = nullptr;
        for (const QWidget *window : QApplication::topLevelWidgets())
            if (window->objectName() == u"HelpWindow")
                topic = window->findChild<QTextBrowser *>("txtTopic");
        QVERIFY(topic && topic->isVisible());
        QCOMPARE(topic->source(), HelpTopics::topicUrl(HelpTopics::MainWindow));
        // The menu item itself opens the contents.
        action("mnuhelphelp")->trigger();
        QCOMPARE(topic->source(), HelpTopics::contentsUrl());
    } else {
        QVERIFY(m_dialogs->scriptDone());
        const auto &asked = m_dialogs->asked().constLast();
        if (command == u"print")
            QVERIFY(asked.notice.text.startsWith(text(286)));
        if (command == u"quit")
            QCOMPARE(asked.notice.text, text(333));
        QVERIFY(m_program->window()->isVisible());
    }
}

void tst_frmMain::ctrl1EntersOne()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("250"));
    QTest::keyClick(value()->lineEdit(), Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(value()->currentText(), QStringLiteral("1"));
    QCOMPARE(result()->text(), QStringLiteral("12.00000"));
    QVERIFY(left()->hasFocus());
}

void tst_frmMain::significantFigures_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<bool>("increase");
    QTest::addColumn<bool>("byKeyboard");
    QTest::addColumn<int>("expected");
    QTest::addColumn<QString>("shown"); // empty: the click did nothing, not even a refresh
    QTest::newRow("increase from 7") << 7 << true << false << 8 << "144.00000";
    QTest::newRow("decrease from 7 by keyboard") << 7 << false << true << 6 << "144.000";
    QTest::newRow("increase at 13 does nothing") << 13 << true << false << 13 << "";
    QTest::newRow("Ctrl+Shift+Alt+I at 13 does nothing") << 13 << true << true << 13 << "";
    QTest::newRow("decrease at 1 does nothing") << 1 << false << false << 1 << "";
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

void tst_frmMain::paste_data()
{
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("entered"); // empty: refused with a message
    QTest::addColumn<bool>("menuEnabled");
    QTest::addColumn<bool>("tooBig");
    QTest::newRow("a number with its unit keeps the number") << "12.5e-3kg"
                                                             << "12.5e-3" << true << false;
    QTest::newRow("a second point ends the number") << "1.2.3"
                                                    << "1.2" << true << false;
    QTest::newRow("text without a number is refused") << "abc"
                                                      << "" << false << false;
    QTest::newRow("only a sign is entered, as the filter keeps it") << "+"
                                                                    << "+" << false << false;
    QTest::newRow("a number before a huge block of words")
        << QStringLiteral("2.5") + QString(1'000'000, u'x') << "2.5" << true << false;
    QTest::newRow("a huge block of digits fills the box and is too big to convert")
        << QString(1'000'000, u'7') << QString(32767, u'7') << true << true;
    QTest::newRow("a huge block of words is refused")
        << QString(200'000, u'x') << "" << false << false;
}

void tst_frmMain::paste()
{
    QFETCH(QString, clipboard);
    QFETCH(QString, entered);
    QFETCH(bool, menuEnabled);
    QFETCH(bool, tooBig);
    QVERIFY(start());
    showFeetInInches(QStringLiteral("3"));
    QGuiApplication::clipboard()->setText(clipboard);
    emit m_program->find<QMenu *>("mnuEdit")->aboutToShow();
    QCOMPARE(action("mnueditedit_1")->isEnabled(), menuEnabled);
    QCOMPARE(action("mnuview2edit_1")->isEnabled(), menuEnabled);

    if (entered.isEmpty() || tooBig)
        m_dialogs->expectMessage();
    // The menu when it lets us, else the keyboard: both paste through the same filter.
    if (menuEnabled)
        action("mnueditedit_1")->trigger();
    else
        QTest::keyClick(value()->lineEdit(), Qt::Key_V, Qt::ControlModifier);
    QVERIFY(m_dialogs->scriptDone());
    if (entered.isEmpty()) {
        QCOMPARE(
            m_dialogs->notices().first(), (Notice { Notice::Information, text(322), text(321) }));
        QCOMPARE(value()->currentText(), QStringLiteral("3"));
        QCOMPARE(result()->text(), QStringLiteral("36.00000"));
    } else {
        QCOMPARE(value()->currentText(), entered);
    }
}

void tst_frmMain::pasteOfZeroByKeyboard()
{
    // "0" leaves the menu's Paste disabled, yet pasting in the value box still enters it.
    QVERIFY(start());
    showFeetInInches(QStringLiteral("3"));
    QGuiApplication::clipboard()->setText(QStringLiteral("0"));
    emit m_program->find<QMenu *>("mnuEdit")->aboutToShow();
    QVERIFY(!action("mnueditedit_1")->isEnabled());
    QTest::keyClick(value()->lineEdit(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(value()->currentText(), QStringLiteral("0"));
    // Pasting by keyboard goes through the same filter, and so does the value box's own menu.
    QGuiApplication::clipboard()->setText(QStringLiteral("42 inches"));
    QTest::keyClick(value()->lineEdit(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(value()->currentText(), QStringLiteral("42 "));
    QGuiApplication::clipboard()->setText(QStringLiteral("7.5 feet"));
    QContextMenuEvent menuEvent(
        QContextMenuEvent::Mouse, QPoint(5, 5), value()->lineEdit()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(value()->lineEdit(), &menuEvent);
    QMenu *menu = value()->lineEdit()->findChild<QMenu *>();
    QVERIFY(menu);
    QAction *paste = nullptr;
    const QString keys = QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
    for (QAction *item : menu->actions())
        if (item->text().endsWith(keys))
            paste = item;
    QVERIFY(paste);
    paste->trigger();
    menu->close();
    QCOMPARE(value()->currentText(), QStringLiteral("7.5 "));
}

void tst_frmMain::copy()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    QGuiApplication::clipboard()->setText(QStringLiteral("something else"));
    action("mnueditedit_0")->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("144.0000"));
    action("mnueditCopyWholeConv")->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("12 foot  =  144.0000 inch"));
}

void tst_frmMain::labelShortcuts()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    QGuiApplication::clipboard()->setText(QStringLiteral("5 ft"));
    QTest::mouseClick(m_program->find<QLabel *>("lblUnitLeft"), Qt::LeftButton);
    QCOMPARE(value()->currentText(), QStringLiteral("5 "));
    QCOMPARE(result()->text(), QStringLiteral("60.00000"));
    QTest::mouseClick(m_program->find<QLabel *>("lblUnitRight"), Qt::LeftButton);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("60.00000"));

    // Nothing to copy while the result is a prompt; nothing to paste without a number.
    left()->clearSelection();
    QCOMPARE(result()->text(), text(368));
    QTest::mouseClick(m_program->find<QLabel *>("lblUnitRight"), Qt::LeftButton);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("60.00000"));
    QGuiApplication::clipboard()->setText(QStringLiteral("none"));
    QTest::mouseClick(m_program->find<QLabel *>("lblUnitLeft"), Qt::LeftButton);
    QCOMPARE(value()->currentText(), QStringLiteral("5 "));
    QVERIFY(m_dialogs->asked().isEmpty());
}

void tst_frmMain::swap()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    action("mnueditswitch")->trigger();
    QCOMPARE(selected(left()), QStringLiteral("inch"));
    QCOMPARE(selected(right()), QStringLiteral("foot"));
    QCOMPARE(value()->currentText(), QStringLiteral("12"));
    QCOMPARE(result()->text(), QStringLiteral("1.000000"));
    action("mnuview2switch")->trigger();
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QCOMPARE(result()->text(), QStringLiteral("144.0000"));
}

void tst_frmMain::editRule_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("copy");
    QTest::addColumn<bool>("swap");
    QTest::addColumn<bool>("copyWhole");
    QTest::newRow("a conversion shown") << "converted" << true << true << true;
    QTest::newRow("no value: the prompt cannot be copied") << "no value" << false << true << false;
    QTest::newRow("no target unit") << "no target" << false << false << false;
    QTest::newRow("a result in scientific notation can be copied")
        << "scientific" << true << true << true;
}

void tst_frmMain::editRule()
{
    QFETCH(QString, state);
    QFETCH(bool, copy);
    QFETCH(bool, swap);
    QFETCH(bool, copyWhole);
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    if (state == QLatin1String("no value"))
        typeValue(QString());
    else if (state == QLatin1String("no target"))
        right()->clearSelection();
    else if (state == QLatin1String("scientific"))
        typeValue(QStringLiteral("1e6"));
    emit m_program->find<QMenu *>("mnuEdit")->aboutToShow();
    QCOMPARE(action("mnueditedit_0")->isEnabled(), copy);
    QCOMPARE(action("mnuview2edit_0")->isEnabled(), copy);
    QCOMPARE(action("mnueditswitch")->isEnabled(), swap);
    QCOMPARE(action("mnuview2switch")->isEnabled(), swap);
    QCOMPARE(action("mnueditCopyWholeConv")->isEnabled(), copyWhole);
    // The pop-up menu of the lists follows the same rule when it opens.
    action("mnuview2switch")->setEnabled(!swap);
    emit m_program->find<QMenu *>("mnuview2")->aboutToShow();
    QCOMPARE(action("mnuview2switch")->isEnabled(), swap);
}

void tst_frmMain::fileAndToolsRules()
{
    QVERIFY(start());
    clickTab(Lengths);
    typeValue(QStringLiteral("7"));
    left()->clearSelection();
    emit m_program->find<QMenu *>("mnuFile")->aboutToShow();
    emit m_program->find<QMenu *>("mnurecords")->aboutToShow();
    QVERIFY(!action("mnuFilePrintAllConvForItem")->isEnabled());
    QVERIFY(!action("mnuFileSaveAllConvForItem")->isEnabled());
    QVERIFY(!action("mnurecordsAddAll")->isEnabled());
    // A value and an initial unit are enough: every target unit is converted.
    clickUnit(left(), QStringLiteral("inch"));
    emit m_program->find<QMenu *>("mnuFile")->aboutToShow();
    emit m_program->find<QMenu *>("mnurecords")->aboutToShow();
    QVERIFY(action("mnuFilePrintAllConvForItem")->isEnabled());
    QVERIFY(action("mnuFileSaveAllConvForItem")->isEnabled());
    QVERIFY(action("mnurecordsAddAll")->isEnabled());
}

void tst_frmMain::markAddAllAndDelete()
{
    QVERIFY(start());
    QCOMPARE(panel(1)->text(), text(400) + QStringLiteral("0"));
    QVERIFY(!action("mnurecordspurge")->isEnabled());
    QVERIFY(!action("mnuRecordsView")->isEnabled());
    QVERIFY(!action("mnuview2records")->isEnabled());

    showFeetInInches(QStringLiteral("12"));
    action("mnurecordsadd")->trigger();
    QTest::mouseClick(panel(2), Qt::LeftButton); // the Mark panel does the same
    using Line = frmMain::MarkedLine;
    const Line marked { "12", "foot", "144.0000", "inch", Lengths };
    QCOMPARE(m_program->window()->markedConversions(), (QList<Line> { marked, marked }));
    QCOMPARE(panel(1)->text(), text(400) + QStringLiteral("2"));
    QVERIFY(action("mnurecordspurge")->isEnabled());
    QVERIFY(action("mnuRecordsView")->isEnabled());
    QVERIFY(action("mnuview2records")->isEnabled());
    QVERIFY(m_program->startup().session().MarkedConversionsExist);

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
    QVERIFY(!action("mnurecordspurge")->isEnabled());
    QVERIFY(!action("mnuRecordsView")->isEnabled());
    QVERIFY(!action("mnuview2records")->isEnabled());
    QVERIFY(!m_program->startup().session().MarkedConversionsExist);
    // The conversion shown can be marked again at once.
    QVERIFY(action("mnurecordsadd")->isEnabled());
    QVERIFY(m_dialogs->scriptDone());
}

void tst_frmMain::scientificPanelToggles()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    QVERIFY(!panel(4)->isPanelEnabled());
    QTest::mouseClick(panel(4), Qt::LeftButton);
    QVERIFY(m_program->startup().settings().Scientific);
    QVERIFY(panel(4)->isPanelEnabled());
    QCOMPARE(result()->text(), QStringLiteral("1.440000E+2"));
    QTest::mouseClick(panel(4), Qt::LeftButton);
    QCOMPARE(result()->text(), QStringLiteral("144.0000"));
}

void tst_frmMain::doubleClickOnAPanelIsOneClick_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("marked");
    QTest::addColumn<bool>("scientific");
    QTest::newRow("Mark marks the conversion once") << 2 << 1 << false;
    QTest::newRow("Sci turns scientific notation on") << 4 << 0 << true;
}

void tst_frmMain::doubleClickOnAPanelIsOneClick()
{
    QFETCH(int, n);
    QFETCH(int, marked);
    QFETCH(bool, scientific);
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    // Through the window system, which makes press, release, press, double-click, release.
    frmMain *window = m_program->window();
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {},
        panel(n)->mapTo(window, panel(n)->rect().center()));
    QCOMPARE(int(window->markedConversions().size()), marked);
    QCOMPARE(m_program->startup().settings().Scientific, scientific);
}

void tst_frmMain::overflowChangesNothingElse()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    QTest::keyClick(value()->lineEdit(), Qt::Key_Return);
    m_dialogs->expectMessage();
    m_program->window()->setValueText(QStringLiteral("1e999"));
    QVERIFY(m_dialogs->scriptDone());
    QCOMPARE(m_dialogs->notices().first(),
        (Notice { Notice::Exclamation, text(28) + QStringLiteral("\n\n") + text(321), QString() }));
    QCOMPARE(value()->currentText(), QStringLiteral("1e999"));
    QCOMPARE(result()->text(), QString());
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QCOMPARE(selected(right()), QStringLiteral("inch"));
    QCOMPARE(m_program->window()->valueHistory(), QStringList { QStringLiteral("12") });
}

void tst_frmMain::helpLines()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12")); // the items are enabled: only those can be highlighted
    auto *bar = m_program->find<QStatusBar *>("StatusBar");
    QMenu *edit = m_program->find<QMenu *>("mnuEdit");
    edit->popup(QPoint(0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(edit));
    QCOMPARE(bar->currentMessage(), text(258));
    QTest::mouseMove(edit, edit->actionGeometry(action("mnueditCopyWholeConv")).center());
    QTest::mouseMove(edit, edit->actionGeometry(action("mnueditswitch")).center());
    QCOMPARE(bar->currentMessage(), text(395));
    QTest::mouseMove(edit, edit->actionGeometry(action("mnueditedit_0")).center());
    QCOMPARE(bar->currentMessage(), text(393));
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
    QVERIFY(panel(3)->isVisible());
}

void tst_frmMain::rightClickLeavesSelection()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    QListWidgetItem *metre = left()->item(0);
    QTest::mousePress(
        left()->viewport(), Qt::RightButton, {}, left()->visualItemRect(metre).center());
    QTest::mouseRelease(
        left()->viewport(), Qt::RightButton, {}, left()->visualItemRect(metre).center());
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QCOMPARE(result()->text(), QStringLiteral("144.0000"));
}

void tst_frmMain::alwaysOnTop()
{
    QVERIFY(start());
    QVERIFY(action("mnualwaystoponoff_1")->isChecked());
    QVERIFY(!m_program->window()->isTopmost());
    action("mnualwaystoponoff_0")->trigger();
    QVERIFY(action("mnualwaystoponoff_0")->isChecked());
    QVERIFY(!action("mnualwaystoponoff_1")->isChecked());
    QVERIFY(m_program->window()->isTopmost());
    QVERIFY(m_program->window()->isVisible());
    action("mnualwaystoponoff_1")->trigger();
    QVERIFY(!m_program->window()->isTopmost());
    QVERIFY(m_program->window()->isVisible());
}

void tst_frmMain::otherWindowsChangeTheMarkedCount()
{
    QVERIFY(start());
    m_program->window()->markedCountChanged(3);
    QCOMPARE(panel(1)->text(), text(400) + QStringLiteral("3"));
    QVERIFY(m_program->startup().session().MarkedConversionsExist);
    QVERIFY(action("mnuRecordsView")->isEnabled());
    QVERIFY(action("mnuview2records")->isEnabled());
    QVERIFY(action("mnurecordspurge")->isEnabled());
    m_program->window()->markedCountChanged(0);
    QCOMPARE(panel(1)->text(), text(400) + QStringLiteral("0"));
    QVERIFY(!m_program->startup().session().MarkedConversionsExist);
    QVERIFY(!action("mnuRecordsView")->isEnabled());
    QVERIFY(!action("mnurecordspurge")->isEnabled());
}

void tst_frmMain::optionsChangeTheWindow()
{
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    // What the options dialog may change: a quantity switched off, a unit switched off, the
    // interface style, the figures.
    Catalogue &catalogue = m_program->startup().catalogue();
    catalogue.Quantities[catalogue.findQuantity(Masses)].OnOff = 0;
    const int q = catalogue.findQuantity(Lengths);
    catalogue.Units[q][catalogue.findUnit(q, QStringLiteral("metre"))].OnOff = 0;
    m_program->startup().settings().ShowTabs = true;
    m_program->startup().settings().SigFigs = 4;
    m_program->window()->optionsChanged();

    auto *bar = m_program->find<QuantityTabBar *>("tabMain");
    QVERIFY(!bar->buttonStyle());
    for (int i = 0; i < bar->count(); ++i)
        QVERIFY(bar->tabText(i) != Masses);
    QCOMPARE(bar->tabText(bar->currentIndex()), Lengths);
    QVERIFY(left()->findItems(QStringLiteral("metre"), Qt::MatchExactly).isEmpty());
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QCOMPARE(selected(right()), QStringLiteral("inch"));
    QCOMPARE(result()->text(), QStringLiteral("144.0"));
}

void tst_frmMain::accessibleNames()
{
    QVERIFY(start());
    QCOMPARE(value()->lineEdit()->accessibleName(), text(5500));
    QCOMPARE(left()->accessibleName(), text(5501));
    QCOMPARE(right()->accessibleName(), text(5502));
    QCOMPARE(result()->accessibleName(), text(5503));
    QCOMPARE(m_program->find<QToolButton *>("cmdIncreaseSigFigs")->accessibleName(), text(5504));
    QCOMPARE(m_program->find<QToolButton *>("cmdDecreaseSigFigs")->accessibleName(), text(5505));
    for (int i = 1; i <= 4; ++i)
        QCOMPARE(panel(i)->accessibleName(), text(5509 + i));
    QCOMPARE(m_program->find<FiguresIndicator *>("Shape1")->accessibleName(), text(5520));
    QCOMPARE(m_program->find<QLabel *>("lblUnitLeft")->buddy(), value());
    QCOMPARE(m_program->find<QLabel *>("lblUnitRight")->buddy(), result());
}

MENSURA_GUI_TEST_MAIN(tst_frmMain)
#include "tst_frmMain.moc"

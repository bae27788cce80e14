// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The marked conversions inside the whole program, on a hive of its own that holds one quantity
// of the test's own: marked conversions saved from their window, deleted and loaded back with the
// main window's command, made current again; the main window's commands for all conversions of
// a value; and what leaving the program asks and keeps.
#include "records/ConversionsReader.h"
#include "records/frmConvRecords.h"
#include "support/GuiTestMain.h"
#include "support/RecordsFixture.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QScreen>

static const QString Lengths = QStringLiteral("Zeta Length");

class tst_MarkedConversionsInMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void saveDeleteLoadAndMakeCurrent();
    void allConversionsOfTheValue();
    void leaving_data();
    void leaving();

private:
    bool start();
    frmConvRecords *records() const { return &m_program->window()->convRecords(); }
    QAction *action(const char *name) const { return m_program->find<QAction *>(name); }
    QAction *recordsAction(const char *name) const { return records()->findChild<QAction *>(name); }
    QListWidget *left() const { return m_program->find<QListWidget *>("lstLeft"); }
    QListWidget *right() const { return m_program->find<QListWidget *>("lstRight"); }
    QString result() const { return m_program->find<QLineEdit *>("txtRight")->text(); }
    void show(const QString &value, const QString &from, const QString &to);
    void selectUnit(QListWidget *list, const QString &unit);

    std::unique_ptr<TestHive> m_hive;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<TestProgram> m_program;
    QTemporaryDir m_temp;
};

void tst_MarkedConversionsInMainWindow::init()
{
    m_hive = std::make_unique<TestHive>();
    m_hive->writeSetting("StartOnce", "1");
    m_hive->writeSetting("currphysquan", Lengths);
    m_hive->addQuantity(Lengths,
        { { "metre", "x1" }, { "foot", "x0.3048" }, { "inch", "x0.0254" }, { "rod", "5.0292" } });
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
}

void tst_MarkedConversionsInMainWindow::cleanup()
{
    if (m_program->window() && m_program->window()->isVisible()) {
        // Leaving with unsaved marked conversions asks; the answer is not part of any test.
        m_dialogs->allowMessages(true);
        if (!m_program->startup().session().MarkedConversionsSaved
            && m_program->window()->markedConversions().size() > 0)
            m_dialogs->answerQuestion(Dialogs::Yes);
        m_program->close();
    }
    QVERIFY2(m_dialogs->scriptDone(), "a dialog the test expected was not shown");
    m_program.reset();
}

bool tst_MarkedConversionsInMainWindow::start()
{
    if (!m_program->start() || !QTest::qWaitForWindowExposed(m_program->window()))
        return false;
    m_program->window()->activateWindow();
    return QTest::qWaitForWindowActive(m_program->window());
}

void tst_MarkedConversionsInMainWindow::selectUnit(QListWidget *list, const QString &unit)
{
    const QList<QListWidgetItem *> items = list->findItems(unit, Qt::MatchExactly);
    QVERIFY2(!items.isEmpty(), qPrintable(unit));
    QTest::mouseClick(
        list->viewport(), Qt::LeftButton, {}, list->visualItemRect(items.first()).center());
}

void tst_MarkedConversionsInMainWindow::show(
    const QString &value, const QString &from, const QString &to)
{
    QLineEdit *edit = m_program->find<QComboBox *>("txtLeft")->lineEdit();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, value);
    selectUnit(left(), from);
    selectUnit(right(), to);
}

void tst_MarkedConversionsInMainWindow::saveDeleteLoadAndMakeCurrent()
{
    QVERIFY(start());
    show("12", "foot", "inch");
    const QString shown = result();
    action("mnurecordsadd")->trigger();
    show("3", "metre", "rod");
    action("mnurecordsadd")->trigger();
    const Records marked { conversion("12", "foot", shown, "inch", Lengths),
        conversion("3", "metre", result(), "rod", Lengths) };
    action("mnuRecordsView")->trigger();
    QVERIFY(QTest::qWaitForWindowExposed(records()));
    QCOMPARE(records()->conversions(), marked);

    const QString path = m_temp.filePath("marked.txt");
    m_dialogs->answerSaveFile(path);
    recordsAction("mnuFileSaveAllRecords")->trigger();

    m_dialogs->answerQuestion(Dialogs::No);
    recordsAction("mnuEditDelAllItems")->trigger();
    QCOMPARE(records()->count(), 2);
    m_dialogs->answerQuestion(Dialogs::Yes);
    recordsAction("mnuEditDelAllItems")->trigger();
    QCOMPARE(records()->count(), 0);
    QVERIFY(!action("mnurecordspurge")->isEnabled());
    QVERIFY(!action("mnuRecordsView")->isEnabled());

    // Loaded back with the main window's command, and added to what is marked.
    m_dialogs->answerOpenFile(path);
    action("mnuFileLoad")->trigger();
    QCOMPARE(records()->conversions(), marked);
    QVERIFY(action("mnuRecordsView")->isEnabled());

    show("1", "metre", "foot");
    auto *list = records()->findChild<QListView *>("lstConvRecords");
    list->selectionModel()->select(list->model()->index(0, 0), QItemSelectionModel::ClearAndSelect);
    recordsAction("mnuFileMakeCurrentConv")->trigger();
    QCOMPARE(m_program->find<QComboBox *>("txtLeft")->currentText(), "12");
    QCOMPARE(left()->currentItem()->text() + right()->currentItem()->text(), "footinch");
    QCOMPARE(result(), shown);

    // A unit that is not in the main window's lists.
    records()->AddConv("5", "furlong", "1", "inch", Lengths);
    list->selectionModel()->select(list->model()->index(2, 0), QItemSelectionModel::ClearAndSelect);
    m_dialogs->expectMessage();
    recordsAction("mnuFileMakeCurrentConv")->trigger();
    QVERIFY(m_dialogs->asked().last().notice.text.startsWith(
        "Mensura could not find all of the required details"));
}

// The report holds, for every unit of the right-hand list, what the main window shows for it.
void tst_MarkedConversionsInMainWindow::allConversionsOfTheValue()
{
    QVERIFY(start());
    show("12", "foot", "inch");
    m_dialogs->answerQuestion(Dialogs::No);
    action("mnuFilePrintAllConvForItem")->trigger();
    QVERIFY(m_dialogs->asked().last().notice.text.endsWith("\n12 foot?"));

    const QString path = m_temp.filePath("report.txt");
    m_dialogs->answerSaveFile(path);
    action("mnuFileSaveAllConvForItem")->trigger();
    const auto read = ConversionsReader::readFile(path);
    QCOMPARE(read.status, ConversionsReader::Finished);
    QCOMPARE(read.records.size(), right()->count());
    for (int row = 0; row < right()->count(); ++row) {
        const QString unit = right()->item(row)->text();
        selectUnit(right(), unit);
        QCOMPARE(read.records[row], conversion("12", "foot", result(), unit, Lengths));
    }

    const QString gone = m_temp.filePath("gone/report.txt");
    m_dialogs->answerSaveFile(gone);
    m_dialogs->expectMessage();
    action("mnuFileSaveAllConvForItem")->trigger();
    QVERIFY(m_dialogs->asked().last().notice.text.startsWith(
        "The conversions could not be saved to " + gone));
}

void tst_MarkedConversionsInMainWindow::leaving_data()
{
    QTest::addColumn<bool>("saveFirst");
    QTest::newRow("unsaved marked conversions ask first") << false;
    QTest::newRow("all saved from the marked window, nothing to ask") << true;
}

void tst_MarkedConversionsInMainWindow::leaving()
{
    QFETCH(bool, saveFirst);
    QVERIFY(start());
    show("12", "foot", "inch");
    action("mnurecordsadd")->trigger();
    records()->show();
    QVERIFY(QTest::qWaitForWindowExposed(records()));
    records()->move(144, 96);
    QTRY_COMPARE(records()->pos(), QPoint(144, 96));
    if (saveFirst) {
        m_dialogs->answerSaveFile(m_temp.filePath("saved.txt"));
        recordsAction("mnuFileSaveAllRecords")->trigger();
    } else {
        m_dialogs->answerQuestion(Dialogs::Yes);
    }
    QVERIFY(m_program->close());
    QCOMPARE(m_dialogs->asked().last().kind,
        saveFirst ? ScriptedDialogs::SaveFile : ScriptedDialogs::Question);
    // The marked conversions window's placement is kept with the rest.
    if (qFuzzyCompare(m_program->window()->screen()->logicalDotsPerInch(), 96.0)) {
        QCOMPARE(m_hive->readSetting("frmconvleft"), std::optional<QString>("2160"));
        QCOMPARE(m_hive->readSetting("frmconvtop"), std::optional<QString>("1440"));
    }
}

MENSURA_GUI_TEST_MAIN(tst_MarkedConversionsInMainWindow)
#include "tst_MarkedConversionsInMainWindow.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The marked conversions window inside the whole program: the main window's mark, view,
// delete-all, load and "all conversions for this unit" commands, making a marked conversion
// current again, and what leaving the program does with the window and the saved flag. The
// program runs on a hive of its own holding one quantity of the test's own.
#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"
#include "records/frmConvRecords.h"
#include "records/TestRecords.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QScreen>
#include <QTabBar>

static const QString Lengths = QStringLiteral("Zeta Length");

class tst_MarkedConversionsInMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void markAndView();
    void deleteAllFromTheMarkedWindowAsksFirst();
    void makeCurrent();
    void loadCommand_data();
    void loadCommand();
    void saveAllConversionsForThisUnit();
    void printAllConversionsAsksFirst();
    void leavingAsksOnlyWhenUnsaved_data();
    void leavingAsksOnlyWhenUnsaved();
    void leavingSavesThePlacement();

private:
    bool start();
    frmConvRecords *records() const
    {
        return m_program->window()->findChild<frmConvRecords *>("frmConvRecords");
    }
    QAction *action(const char *name) const { return m_program->find<QAction *>(name); }
    QAction *recordsAction(const char *name) const { return records()->findChild<QAction *>(name); }
    QListWidget *left() const { return m_program->find<QListWidget *>("lstLeft"); }
    QListWidget *right() const { return m_program->find<QListWidget *>("lstRight"); }
    QString result() const { return m_program->find<QLineEdit *>("txtRight")->text(); }
    void show(const QString &value, const QString &from, const QString &to);
    void selectUnit(QListWidget *list, const QString &unit);
    QString selected(QListWidget *list) const;

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
        // Leaving with marked conversions asks; the answer is not part of any test.
        m_dialogs->allowMessages(true);
        if (m_program->window()->markedConversions().size() > 0)
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

QString tst_MarkedConversionsInMainWindow::selected(QListWidget *list) const
{
    const auto items = list->selectedItems();
    return items.isEmpty() ? QString() : items.first()->text();
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

void tst_MarkedConversionsInMainWindow::markAndView()
{
    QVERIFY(start());
    QVERIFY(!records()); // made when first needed
    show("12", "foot", "inch");
    const QString shown = result();
    action("mnurecordsadd")->trigger();
    QVERIFY(records());
    QVERIFY(!records()->isVisible());
    QCOMPARE(
        records()->conversions(), Records { conversion("12", "foot", shown, "inch", Lengths) });

    action("mnurecordsAddAll")->trigger();
    QCOMPARE(records()->count(), 1 + right()->count());
    QCOMPARE(records()->conversions().last().toUnit, QStringLiteral("rod"));

    action("mnuRecordsView")->trigger();
    QVERIFY(QTest::qWaitForWindowExposed(records()));
    QVERIFY(records()->isVisible());
}

void tst_MarkedConversionsInMainWindow::deleteAllFromTheMarkedWindowAsksFirst()
{
    QVERIFY(start());
    show("12", "foot", "inch");
    action("mnurecordsadd")->trigger();
    action("mnurecordsadd")->trigger();

    m_dialogs->answerQuestion(Dialogs::No);
    recordsAction("mnuEditDelAllItems")->trigger();
    QCOMPARE(records()->count(), 2);
    m_dialogs->answerQuestion(Dialogs::Yes);
    recordsAction("mnuEditDelAllItems")->trigger();
    QCOMPARE(m_dialogs->asked().last().notice.text,
        QStringLiteral("Are you sure you wish to delete all of your marked conversions?"));
    QCOMPARE(records()->count(), 0);
    QVERIFY(!action("mnurecordspurge")->isEnabled());
    QVERIFY(!action("mnuRecordsView")->isEnabled());
}

void tst_MarkedConversionsInMainWindow::makeCurrent()
{
    QVERIFY(start());
    show("12", "foot", "inch");
    const QString shown = result();
    action("mnurecordsadd")->trigger();
    records()->AddConv("5", "furlong", "1", "inch", Lengths);
    show("3", "metre", "rod");

    auto *list = records()->findChild<QListView *>("lstConvRecords");
    list->selectionModel()->select(list->model()->index(0, 0), QItemSelectionModel::ClearAndSelect);
    recordsAction("mnuFileMakeCurrentConv")->trigger();
    QCOMPARE(m_program->find<QComboBox *>("txtLeft")->currentText(), QStringLiteral("12"));
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QCOMPARE(selected(right()), QStringLiteral("inch"));
    QCOMPARE(result(), shown);

    // A unit that is not in the main window's lists.
    list->selectionModel()->select(list->model()->index(1, 0), QItemSelectionModel::ClearAndSelect);
    m_dialogs->expectMessage();
    recordsAction("mnuFileMakeCurrentConv")->trigger();
    QVERIFY(m_dialogs->asked().last().notice.text.startsWith(
        "Mensura could not find all of the required details"));
}

void tst_MarkedConversionsInMainWindow::loadCommand_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Records>("loaded");
    QTest::newRow("conversions file") << Opening
            + "     1.     1  foot  =  12  inch  [Zeta Length]\r\n"
              "     2.     5  metre  =  0.994 2  rod  [Zeta Length]\r\n"
                                      << Records { conversion("1", "foot", "12", "inch", Lengths),
                                             conversion("5", "metre", "0.994 2", "rod", Lengths) };
    QTest::newRow("foreign file") << QByteArray("no conversions here") << Records();
}

void tst_MarkedConversionsInMainWindow::loadCommand()
{
    QFETCH(QByteArray, bytes);
    QFETCH(Records, loaded);
    QVERIFY(start());
    const QString path = m_temp.filePath("load.txt");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();

    m_dialogs->answerOpenFile(path);
    if (loaded.isEmpty())
        m_dialogs->expectMessage();
    action("mnuFileLoad")->trigger();
    QCOMPARE(m_program->window()->markedConversions(), loaded);
    QCOMPARE(action("mnuRecordsView")->isEnabled(), !loaded.isEmpty());
    if (loaded.isEmpty()) {
        QCOMPARE(m_dialogs->asked().last().notice.text,
            QStringLiteral(
                "This file was not generated by Mensura. Only Mensura files can be opened"));
    }
}

// The report holds, for every unit of the right-hand list, what the main window shows for it.
void tst_MarkedConversionsInMainWindow::saveAllConversionsForThisUnit()
{
    QVERIFY(start());
    show("12", "foot", "inch");
    const QString path = m_temp.filePath("report.txt");
    m_dialogs->answerSaveFile(path);
    action("mnuFileSaveAllConvForItem")->trigger();
    QCOMPARE(m_dialogs->asked().last().defaultName, QStringLiteral("untitled.txt"));

    const auto read = ConversionsReader::readFile(path);
    QCOMPARE(read.status, ConversionsReader::Finished);
    QCOMPARE(read.records.size(), right()->count());
    for (int row = 0; row < right()->count(); ++row) {
        const QString unit = right()->item(row)->text();
        selectUnit(right(), unit);
        QCOMPARE(read.records[row], conversion("12", "foot", result(), unit, Lengths));
    }
}

void tst_MarkedConversionsInMainWindow::printAllConversionsAsksFirst()
{
    QVERIFY(start());
    show("12", "foot", "inch");
    m_dialogs->answerQuestion(Dialogs::No);
    action("mnuFilePrintAllConvForItem")->trigger();
    QCOMPARE(m_dialogs->asked().last().notice.text,
        QStringLiteral("Print a copy (to the default printer) of all of the possible conversions "
                       "for \n12 foot?"));
}

void tst_MarkedConversionsInMainWindow::leavingAsksOnlyWhenUnsaved_data()
{
    QTest::addColumn<bool>("saveFirst");
    QTest::newRow("unsaved marked conversions") << false;
    QTest::newRow("all saved from the marked window") << true;
}

void tst_MarkedConversionsInMainWindow::leavingAsksOnlyWhenUnsaved()
{
    QFETCH(bool, saveFirst);
    QVERIFY(start());
    show("12", "foot", "inch");
    action("mnurecordsadd")->trigger();
    if (saveFirst) {
        m_dialogs->answerSaveFile(m_temp.filePath("saved.txt"));
        recordsAction("mnuFileSaveAllRecords")->trigger();
    } else {
        m_dialogs->answerQuestion(Dialogs::Yes);
    }
    QVERIFY(m_program->close());
    QCOMPARE(m_dialogs->asked().last().kind,
        saveFirst ? ScriptedDialogs::SaveFile : ScriptedDialogs::Question);
}

void tst_MarkedConversionsInMainWindow::leavingSavesThePlacement()
{
    QVERIFY(start());
    if (!qFuzzyCompare(m_program->window()->screen()->logicalDotsPerInch(), 96.0))
        QSKIP("the twips below are worked out for 96 dots per inch");
    m_program->window()->convRecords().show();
    QVERIFY(QTest::qWaitForWindowExposed(records()));
    records()->move(144, 96);
    QTRY_COMPARE(records()->pos(), QPoint(144, 96));
    QVERIFY(m_program->close());
    QCOMPARE(m_hive->readSetting("frmconvleft"), std::optional<QString>("2160"));
    QCOMPARE(m_hive->readSetting("frmconvtop"), std::optional<QString>("1440"));
}

MENSURA_GUI_TEST_MAIN(tst_MarkedConversionsInMainWindow)
#include "tst_MarkedConversionsInMainWindow.moc"

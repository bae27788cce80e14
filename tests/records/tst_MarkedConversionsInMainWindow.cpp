// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The marked conversions inside the whole program: marked conversions saved from their window,
// deleted and loaded back with the main window's command, made current again; the main window's
// commands for all conversions of a value; and what leaving the program asks and keeps.
#include "records/ConversionsReader.h"
#include "records/frmConvRecords.h"
#include "support/GuiTestMain.h"
#include "support/MainWindowFixture.h"
#include "support/RecordsFixture.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QScreen>

class tst_MarkedConversionsInMainWindow : public QObject, MainWindowFixture
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); } // which checks every scripted dialog was shown
    void markSaveDeleteLoadMakeCurrentReportAndLeave();

private:
    frmConvRecords *records() const { return &m_program->window()->convRecords(); }
    QAction *recordsAction(const char *name) const { return records()->findChild<QAction *>(name); }
    void show(const QString &value, const QString &from, const QString &to)
    {
        typeValue(value);
        clickUnit(left(), from);
        clickUnit(right(), to);
    }

    QTemporaryDir m_temp;
};

void tst_MarkedConversionsInMainWindow::markSaveDeleteLoadMakeCurrentReportAndLeave()
{
    QVERIFY(start());
    show("12", "foot", "inch");
    const QString shown = result()->text();
    action("mnurecordsadd")->trigger();
    show("3", "metre", "rod");
    action("mnurecordsadd")->trigger();
    const Records marked { conversion("12", "foot", shown, "inch", Lengths),
        conversion("3", "metre", result()->text(), "rod", Lengths) };
    action("mnuRecordsView")->trigger();
    QVERIFY(QTest::qWaitForWindowExposed(records()));
    QCOMPARE(records()->conversions(), marked);
    records()->move(144, 96);
    records()->resize(600, 450);
    QTRY_COMPARE(records()->pos(), QPoint(144, 96));

    const QString path = m_temp.filePath("marked.txt");
    m_dialogs->answerSaveFile(path);
    recordsAction("mnuFileSaveAllRecords")->trigger();

    // Deleting all is the main window's command (its question: tst_frmMain).
    m_dialogs->answerQuestion(Dialogs::Yes);
    recordsAction("mnuEditDelAllItems")->trigger();
    QCOMPARE(records()->count(), 0);

    // Loaded back with the main window's command, and added to what is marked.
    m_dialogs->answerOpenFile(path);
    action("mnuFileLoad")->trigger();
    QCOMPARE(records()->conversions(), marked);
    QVERIFY(action("mnuRecordsView")->isEnabled());

    show("1", "metre", "foot");
    auto *list = records()->findChild<QListView *>("lstConvRecords");
    list->selectionModel()->select(list->model()->index(0, 0), QItemSelectionModel::ClearAndSelect);
    recordsAction("mnuFileMakeCurrentConv")->trigger();
    QCOMPARE(value()->currentText(), "12");
    QCOMPARE(selected(left()) + selected(right()), "footinch");
    QCOMPARE(result()->text(), shown);

    // All conversions of the value: the report holds, for every unit of the right-hand list,
    // what the main window shows for it.
    m_dialogs->answerQuestion(Dialogs::No);
    action("mnuFilePrintAllConvForItem")->trigger();
    QVERIFY(m_dialogs->asked().last().notice.text.endsWith("\n12 foot?"));
    const QString report = m_temp.filePath("report.txt");
    m_dialogs->answerSaveFile(report);
    action("mnuFileSaveAllConvForItem")->trigger();
    const auto read = ConversionsReader::readFile(report);
    QCOMPARE(read.records.size(), right()->count());
    for (int row = 0; row < right()->count(); ++row) {
        const QString unit = right()->item(row)->text();
        clickUnit(right(), unit);
        QCOMPARE(read.records[row], conversion("12", "foot", result()->text(), unit, Lengths));
    }
    const QString gone = m_temp.filePath("gone/report.txt");
    m_dialogs->answerSaveFile(gone);
    m_dialogs->expectMessage();
    action("mnuFileSaveAllConvForItem")->trigger();
    QVERIFY(m_dialogs->asked().last().notice.text.startsWith(
        "The conversions could not be saved to " + gone));

    // Saved from their window, the marked conversions leave nothing to ask on leaving (the
    // question itself: tst_frmMainSession), and the window's placement is kept with the rest.
    m_dialogs->answerSaveFile(path);
    recordsAction("mnuFileSaveAllRecords")->trigger();
    QVERIFY(m_program->close());
    QCOMPARE(m_dialogs->asked().last().kind, ScriptedDialogs::SaveFile);
    // In twips at 96 dots per inch.
    const QStringList names { "frmconvleft", "frmconvtop", "frmconvwidth", "frmconvheight" };
    const QStringList twips { "2160", "1440", "9000", "6750" };
    for (int i = 0; i < 4; ++i)
        if (qFuzzyCompare(m_program->window()->screen()->logicalDotsPerInch(), 96.0))
            QCOMPARE(m_hive->readSetting(names[i]).value_or("none"), twips[i]);
}

MENSURA_GUI_TEST_MAIN(tst_MarkedConversionsInMainWindow)
#include "tst_MarkedConversionsInMainWindow.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Minimising into the notification area. Where there is one (an X server with a tray such as
// trayer: with_tray.sh runs this test so), the window goes there, shows its hint the first time
// only, takes the marked conversions window with it and comes back from the icon's menu and when
// another copy is started; where there is none, or with the tray option off, minimising is what
// it always is.
#include "catalogue/StringTable.h"
#include "records/frmConvRecords.h"
#include "shell/TrayIcon.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QSystemTrayIcon>

class tst_TrayIcon : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void minimisingStaysNormal_data();
    void minimisingStaysNormal();
    void intoTheTrayAndBack();

private:
    static bool trayWanted();
    void restore();

    std::unique_ptr<TestHive> m_hive;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<TestProgram> m_program;
};

bool tst_TrayIcon::trayWanted()
{
    if (qEnvironmentVariableIsSet("MENSURA_TRAY_EXPECTED")) {
        // The tray program may still be starting.
        if (!QTest::qWaitFor([] { return TrayIcon::isAvailable(); }, 10000))
            qFatal("MENSURA_TRAY_EXPECTED is set but no notification area appeared");
        return true;
    }
    return TrayIcon::isAvailable();
}

void tst_TrayIcon::init()
{
    m_hive = std::make_unique<TestHive>();
    m_hive->writeSetting("StartOnce", "1");
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
}

void tst_TrayIcon::cleanup()
{
    m_program.reset();
    QVERIFY2(m_dialogs->scriptDone(), "a dialog the test expected was not shown");
}

void tst_TrayIcon::restore()
{
    m_program->find<QAction *>("mnuSysTrayShowMensura")->trigger();
    QVERIFY(QTest::qWaitForWindowExposed(m_program->window()));
    QVERIFY(!m_program->window()->isInTray());
}

void tst_TrayIcon::minimisingStaysNormal_data()
{
    QTest::addColumn<bool>("trayOption");
    QTest::newRow("no notification area") << true;
    QTest::newRow("tray option off") << false;
}

void tst_TrayIcon::minimisingStaysNormal()
{
    QFETCH(bool, trayOption);
    if (trayOption && trayWanted())
        QSKIP("this desktop has a notification area");
    m_hive->writeSetting("systray", trayOption ? "1" : "0");
    QVERIFY(m_program->start());
    QVERIFY(QTest::qWaitForWindowExposed(m_program->window()));
    m_program->window()->showMinimized();
    QTest::qWait(200);
    QVERIFY(!m_program->window()->isInTray());
    QVERIFY(m_program->window()->isVisible());
    QVERIFY(m_dialogs->asked().isEmpty());
    QVERIFY(!m_hive->readSetting("minonce"));
}

void tst_TrayIcon::intoTheTrayAndBack()
{
    if (!trayWanted())
        QSKIP("needs a notification area: with_tray.sh runs this test under Xvfb and trayer");
    QVERIFY(m_program->start());
    frmMain *window = m_program->window();
    QVERIFY(QTest::qWaitForWindowExposed(window));

    m_dialogs->expectMessage();
    window->showMinimized();
    QTRY_VERIFY(window->isInTray());
    QCOMPARE(m_dialogs->notices().constFirst().text,
        StringTable::text(283) + u'\n' + StringTable::text(284) + QStringLiteral("\n\n")
            + StringTable::text(285));
    QVERIFY(!window->isVisible());
    QCOMPARE(m_hive->readSetting("minonce"), QStringLiteral("1"));
    auto *icon = window->findChild<QSystemTrayIcon *>(QStringLiteral("TrayIcon"));
    QVERIFY(icon && icon->isVisible());
    QCOMPARE(
        icon->contextMenu()->defaultAction(), m_program->find<QAction *>("mnuSysTrayShowMensura"));
    restore();
    QVERIFY(!window->isMinimized());
    QVERIFY(!icon->isVisible());

    // A marked conversions window in use goes into the tray and comes back with the main window;
    // one the user has closed stays closed. The hint does not come again.
    QTest::keyClicks(m_program->find<QComboBox *>("txtLeft")->lineEdit(), QStringLiteral("12"));
    m_program->find<QListWidget *>("lstLeft")->setCurrentRow(0);
    m_program->find<QListWidget *>("lstRight")->setCurrentRow(1);
    m_program->find<QAction *>("mnurecordsadd")->trigger();
    m_program->find<QAction *>("mnuRecordsView")->trigger();
    frmConvRecords *records = &window->convRecords();
    QVERIFY(QTest::qWaitForWindowExposed(records));
    records->activateWindow();
    QTRY_VERIFY(records->shownWithMainWindow());
    window->showMinimized();
    QTRY_VERIFY(window->isInTray());
    QVERIFY(!records->isVisible());
    restore();
    QVERIFY(QTest::qWaitForWindowExposed(records));
    records->close();
    window->showMinimized();
    QTRY_VERIFY(window->isInTray());
    // Another copy started brings it back.
    window->activateFromOtherCopy();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(!window->isInTray());
    QTest::qWait(100);
    QVERIFY(!records->isVisible());
    QCOMPARE(m_dialogs->asked().size(), 1);

    // Nor in a later run. Leaving from the tray keeps the window as a normal one.
    m_dialogs->answerQuestion(Dialogs::Yes);
    QVERIFY(m_program->close());
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
    QVERIFY(m_program->start());
    QVERIFY(QTest::qWaitForWindowExposed(m_program->window()));
    m_program->window()->showMinimized();
    QTRY_VERIFY(m_program->window()->isInTray());
    QCOMPARE(m_dialogs->notices().size(), 2); // the hint and the question on leaving
    QSignalSpy unloaded(m_program->window(), &frmMain::unloaded);
    m_program->find<QAction *>("mnuSysTrayExit")->trigger();
    QCOMPARE(unloaded.size(), 1);
    QCOMPARE(m_hive->readSetting("windowstate"), QStringLiteral("0"));
}

MENSURA_GUI_TEST_MAIN(tst_TrayIcon)
#include "tst_TrayIcon.moc"

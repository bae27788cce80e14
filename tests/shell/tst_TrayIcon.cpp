// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Minimising into the notification area. Where there is one (an X server with a tray such as
// trayer: with_tray.sh runs this test so), the window goes there, shows its hint the first time
// only, takes the marked conversions window with it and comes back from the icon's menu and
// when another copy is started; where there is none (the offscreen platform), minimising is what
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
    void withoutTrayMinimisingIsNormal();
    void trayOptionOffMinimisingIsNormal();
    void intoTheTrayAndBack();
    void markedConversionsWindowGoesAlong();

private:
    static bool trayWanted();

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
    m_hive->writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
}

void tst_TrayIcon::cleanup()
{
    m_program.reset();
    m_dialogs.reset();
    m_hive.reset();
}

void tst_TrayIcon::withoutTrayMinimisingIsNormal()
{
    if (trayWanted())
        QSKIP("this desktop has a notification area");
    QVERIFY(m_program->start());
    QVERIFY(QTest::qWaitForWindowExposed(m_program->window()));
    m_program->window()->showMinimized();
    QTest::qWait(50);
    QVERIFY(!m_program->window()->isInTray());
    QVERIFY(m_program->window()->isVisible());
    QVERIFY(m_dialogs->asked().isEmpty());
    QVERIFY(!m_hive->readSetting(QStringLiteral("minonce")));
}

void tst_TrayIcon::trayOptionOffMinimisingIsNormal()
{
    m_hive->writeSetting(QStringLiteral("systray"), QStringLiteral("0"));
    QVERIFY(m_program->start());
    QVERIFY(QTest::qWaitForWindowExposed(m_program->window()));
    m_program->window()->showMinimized();
    QTest::qWait(200);
    QVERIFY(!m_program->window()->isInTray());
    QVERIFY(m_dialogs->asked().isEmpty());
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
    QVERIFY(m_dialogs->scriptDone());
    QCOMPARE(m_dialogs->notices().constFirst().text,
        StringTable::text(283) + u'\n' + StringTable::text(284) + QStringLiteral("\n\n")
            + StringTable::text(285));
    QVERIFY(!window->isVisible());
    QCOMPARE(m_hive->readSetting(QStringLiteral("minonce")), QStringLiteral("1"));
    auto *icon = window->findChild<QSystemTrayIcon *>(QStringLiteral("TrayIcon"));
    QVERIFY(icon);
    QVERIFY(icon->isVisible());
    QCOMPARE(icon->toolTip(), StringTable::text(366));
    QCOMPARE(
        icon->contextMenu()->defaultAction(), m_program->find<QAction *>("mnuSysTrayShowMensura"));

    m_program->find<QAction *>("mnuSysTrayShowMensura")->trigger();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(!window->isInTray());
    QVERIFY(!window->isMinimized());
    QCOMPARE(window->windowTitle(), StringTable::text(9));
    QVERIFY(!icon->isVisible());

    // The hint comes once: not the second time, and not in a later run.
    window->showMinimized();
    QTRY_VERIFY(window->isInTray());
    window->activateFromOtherCopy();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(!window->isInTray());
    QCOMPARE(m_dialogs->asked().size(), 1);

    QVERIFY(m_program->close());
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
    QVERIFY(m_program->start());
    QVERIFY(QTest::qWaitForWindowExposed(m_program->window()));
    m_program->window()->showMinimized();
    QTRY_VERIFY(m_program->window()->isInTray());
    QCOMPARE(m_dialogs->asked().size(), 1);

    // Leaving from the tray: the window is kept as a normal one, not a minimised one.
    QSignalSpy unloaded(m_program->window(), &frmMain::unloaded);
    m_program->find<QAction *>("mnuSysTrayExit")->trigger();
    QCOMPARE(unloaded.size(), 1);
    QCOMPARE(m_hive->readSetting(QStringLiteral("windowstate")), QStringLiteral("0"));
}

// A marked conversions window in use goes into the tray and comes back with the main window; one
// the user has closed stays closed.
void tst_TrayIcon::markedConversionsWindowGoesAlong()
{
    if (!trayWanted())
        QSKIP("needs a notification area: with_tray.sh runs this test under Xvfb and trayer");
    m_hive->writeSetting(QStringLiteral("minonce"), QStringLiteral("1"));
    QVERIFY(m_program->start());
    frmMain *window = m_program->window();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QTest::keyClicks(m_program->find<QComboBox *>("txtLeft")->lineEdit(), QStringLiteral("12"));
    m_program->find<QListWidget *>("lstLeft")->setCurrentRow(0);
    m_program->find<QListWidget *>("lstRight")->setCurrentRow(1);
    m_program->find<QAction *>("mnurecordsadd")->trigger();
    m_program->find<QAction *>("mnuRecordsView")->trigger();
    auto *records = window->findChild<frmConvRecords *>();
    QVERIFY(records);
    QVERIFY(QTest::qWaitForWindowExposed(records));
    records->activateWindow();
    QTRY_VERIFY(records->shownWithMainWindow());

    window->showMinimized();
    QTRY_VERIFY(window->isInTray());
    QVERIFY(!records->isVisible());
    m_program->find<QAction *>("mnuSysTrayShowMensura")->trigger();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(QTest::qWaitForWindowExposed(records));

    records->close();
    QVERIFY(!records->isVisible());
    window->showMinimized();
    QTRY_VERIFY(window->isInTray());
    m_program->find<QAction *>("mnuSysTrayShowMensura")->trigger();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QTest::qWait(100);
    QVERIFY(!records->isVisible());
}

MENSURA_GUI_TEST_MAIN(tst_TrayIcon)
#include "tst_TrayIcon.moc"

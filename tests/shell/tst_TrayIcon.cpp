// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Minimising into the notification area. Where there is one (an X server with a tray such as
// trayer: QT_QPA_PLATFORM=xcb), the window goes there, shows its hint the first time only and
// comes back from the icon's menu and when another copy is started; where there is none (the
// offscreen platform of the normal test run), minimising is what it always is.
#include "catalogue/StringTable.h"
#include "shell/TrayIcon.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <QAction>
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

private:
    std::unique_ptr<TestHive> m_hive;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<TestProgram> m_program;
};

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
    if (TrayIcon::isAvailable())
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
    if (!TrayIcon::isAvailable())
        QSKIP("needs a notification area: run under an X server with a tray (Xvfb and trayer)");
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

MENSURA_GUI_TEST_MAIN(tst_TrayIcon)
#include "tst_TrayIcon.moc"

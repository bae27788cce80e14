// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The options dialog opened from the main window of a running program: each of its three
// commands opens it, and what OK changed is in use at once (tabs, lists, number style), while
// Cancel changes nothing. The dialog is modal, so each test acts on it from inside its event
// loop. It runs without the modal-window watchdog of the other window tests, which would take
// the options dialog itself for a stray window.
#include "catalogue/StringTable.h"
#include "main/QuantityTabBar.h"
#include "main/StatusPanel.h"
#include "options/frmSetOpt.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <functional>
#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTimer>
#include <QTreeWidget>

static const QString Widgets = QStringLiteral("Zeta Widgets");

class tst_OptionsFromMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void everyCommandOpensTheDialog_data();
    void everyCommandOpensTheDialog();
    void okPutsTheCatalogueIntoUse();
    void okPutsTheNumberStyleIntoUse();
    void removingTheCurrentQuantity();
    void hintsShownInEarlierRunsStayShown();
    void helpIsPassedOn();

private:
    bool start();
    // Runs the options command; act is called on the open dialog and must close it.
    bool runOptions(QAction *command, const std::function<void(frmSetOpt *)> &act);
    QStringList tabs() const;
    static void selectNode(frmSetOpt *dialog, const QString &text);
    static void click(frmSetOpt *dialog, const char *name);

    std::unique_ptr<TestHive> m_hive;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<TestProgram> m_program;
};

void tst_OptionsFromMainWindow::init()
{
    m_hive = std::make_unique<TestHive>();
    m_hive->writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    m_hive->writeSetting(QStringLiteral("currphysquan"), Widgets);
    m_hive->addQuantity(Widgets,
        { { QStringLiteral("widget"), QStringLiteral("x1") },
            { QStringLiteral("gadget"), QStringLiteral("2.5") },
            { QStringLiteral("sprocket"), QStringLiteral("0.35") } });
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
    QVERIFY(start());
}

void tst_OptionsFromMainWindow::cleanup()
{
    m_program.reset();
    m_dialogs.reset();
    m_hive.reset();
}

bool tst_OptionsFromMainWindow::start()
{
    if (!m_program->start() || !QTest::qWaitForWindowExposed(m_program->window()))
        return false;
    m_program->window()->activateWindow();
    return QTest::qWaitForWindowActive(m_program->window());
}

bool tst_OptionsFromMainWindow::runOptions(
    QAction *command, const std::function<void(frmSetOpt *)> &act)
{
    bool opened = false;
    QTimer::singleShot(0, this, [&] {
        auto *dialog = qobject_cast<frmSetOpt *>(QApplication::activeModalWidget());
        opened = dialog != nullptr;
        if (dialog)
            act(dialog);
    });
    command->trigger();
    return opened;
}

QStringList tst_OptionsFromMainWindow::tabs() const
{
    QStringList names;
    auto *bar = m_program->find<QuantityTabBar *>("tabMain");
    for (int i = 0; i < bar->count(); ++i)
        names.append(bar->tabText(i));
    return names;
}

void tst_OptionsFromMainWindow::selectNode(frmSetOpt *dialog, const QString &text)
{
    auto *tree = dialog->findChild<QTreeWidget *>(QStringLiteral("treeMain"));
    const auto found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    if (!found.isEmpty())
        tree->setCurrentItem(found.first());
}

void tst_OptionsFromMainWindow::click(frmSetOpt *dialog, const char *name)
{
    dialog->findChild<QAbstractButton *>(QLatin1String(name))->click();
}

void tst_OptionsFromMainWindow::everyCommandOpensTheDialog_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("Options... in the File menu") << "mnufilesetopt";
    QTest::newRow("Options... in the pop-up menu") << "mnuview2numfor";
    QTest::newRow("double-click on status panel 3") << "StatusBarPanel3";
}

void tst_OptionsFromMainWindow::everyCommandOpensTheDialog()
{
    QFETCH(QString, command);
    const QStringList before = tabs();
    bool opened = false;
    QTimer::singleShot(0, this, [&] {
        auto *dialog = qobject_cast<frmSetOpt *>(QApplication::activeModalWidget());
        opened = dialog != nullptr;
        if (dialog) {
            selectNode(dialog, Widgets);
            click(dialog, "optOnOff_1"); // an edit, dropped by Cancel
            click(dialog, "cmdCancel");
        }
    });
    if (command.startsWith(QStringLiteral("StatusBarPanel"))) {
        auto *panel = m_program->find<StatusPanel *>(command.toLatin1().constData());
        QTest::mouseDClick(panel, Qt::LeftButton);
    } else {
        m_program->find<QAction *>(command.toLatin1().constData())->trigger();
    }
    QVERIFY(opened);
    QCOMPARE(tabs(), before);
    QVERIFY(!m_hive->read(QStringLiteral("User\\NewQuans\\") + Widgets, QStringLiteral("OnOff"))
                 .value_or(QString())
                 .startsWith(u'0'));
}

// A built-in quantity switched off loses its tab and a new unit is listed, at once.
void tst_OptionsFromMainWindow::okPutsTheCatalogueIntoUse()
{
    const QString temperature = StringTable::text(3000);
    QVERIFY(tabs().contains(temperature));
    m_dialogs->answerInput(QStringLiteral("doohickey"));
    m_dialogs->answerInput(QStringLiteral("4"));
    QVERIFY(runOptions(m_program->find<QAction *>("mnufilesetopt"), [&](frmSetOpt *dialog) {
        selectNode(dialog, temperature);
        click(dialog, "optOnOff_1");
        selectNode(dialog, Widgets);
        click(dialog, "cmdAddNewUnit");
        click(dialog, "cmdOK");
    }));
    QVERIFY(m_dialogs->scriptDone());
    QVERIFY(!tabs().contains(temperature));
    auto *bar = m_program->find<QuantityTabBar *>("tabMain");
    QCOMPARE(bar->tabText(bar->currentIndex()), Widgets);
    const auto units = m_program->find<QListWidget *>("lstLeft")->findItems(
        QStringLiteral("doohickey"), Qt::MatchExactly);
    QCOMPARE(units.size(), 1);
    QCOMPARE(m_hive->read(QStringLiteral("User\\Units\\") + Widgets, QStringLiteral("doohickey")),
        std::optional<QString>(QStringLiteral("a4")));
}

void tst_OptionsFromMainWindow::okPutsTheNumberStyleIntoUse()
{
    auto *scientific = m_program->find<StatusPanel *>("StatusBarPanel4");
    QVERIFY(!scientific->isPanelEnabled());
    QVERIFY(runOptions(m_program->find<QAction *>("mnufilesetopt"), [&](frmSetOpt *dialog) {
        click(dialog, "Option1_0");
        click(dialog, "optTabs_0");
        click(dialog, "cmdOK");
    }));
    QVERIFY(scientific->isPanelEnabled());
    QVERIFY(!m_program->find<QuantityTabBar *>("tabMain")->buttonStyle());
    QCOMPARE(m_hive->readSetting(QStringLiteral("scientific")),
        std::optional<QString>(QStringLiteral("1")));
}

void tst_OptionsFromMainWindow::removingTheCurrentQuantity()
{
    m_dialogs->answerQuestion(Dialogs::Yes);
    QVERIFY(runOptions(m_program->find<QAction *>("mnufilesetopt"), [&](frmSetOpt *dialog) {
        selectNode(dialog, Widgets);
        click(dialog, "cmdRemovePhysQuan");
        click(dialog, "cmdOK");
    }));
    QVERIFY(!tabs().contains(Widgets));
    auto *bar = m_program->find<QuantityTabBar *>("tabMain");
    QVERIFY(bar->currentIndex() >= 0);
    QVERIFY(m_program->find<QListWidget *>("lstLeft")->count() > 0);
}

// OK rewrites the whole settings key. The first-run help and the tray hint were shown in an
// earlier run, not this one: after a restart on the same settings neither comes back.
void tst_OptionsFromMainWindow::hintsShownInEarlierRunsStayShown()
{
    m_program.reset();
    m_hive->writeSetting(QStringLiteral("minonce"), QStringLiteral("1"));
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
    QVERIFY(start());
    QVERIFY(runOptions(m_program->find<QAction *>("mnufilesetopt"), [&](frmSetOpt *dialog) {
        selectNode(dialog, StringTable::text(3000));
        click(dialog, "optOnOff_1");
        click(dialog, "cmdOK");
    }));
    QVERIFY(m_program->close());
    QCOMPARE(m_hive->readSetting(QStringLiteral("minonce")),
        std::optional<QString>(QStringLiteral("1")));

    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
    QVERIFY(start());
    QVERIFY(!m_program->startup().firstRunHelp());
    QVERIFY(m_program->startup().session().TrayHintShown);
}

void tst_OptionsFromMainWindow::helpIsPassedOn()
{
    QSignalSpy help(m_program->window(), &frmMain::helpRequested);
    QVERIFY(runOptions(m_program->find<QAction *>("mnufilesetopt"), [&](frmSetOpt *dialog) {
        click(dialog, "cmdTutorial");
        QApplication::setActiveWindow(dialog); // shortcuts go to the active window
        QTest::keyClick(dialog, Qt::Key_F1);
        click(dialog, "cmdCancel");
    }));
    QCOMPARE(help.size(), 2);
    QCOMPARE(help.at(0).at(0).toInt(), frmSetOpt::HelpContextCustomUnits);
    QCOMPARE(help.at(1).at(0).toInt(), frmSetOpt::HelpContextOptions);
}

int main(int argc, char *argv[])
{
    GuiTest::prepareEnvironment();
    QApplication app(argc, argv);
    tst_OptionsFromMainWindow test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_OptionsFromMainWindow.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The options dialog opened from the main window of a running program: each of its three
// commands opens it, help asked for in it goes to the main window's help, and Cancel changes
// nothing; what OK changed is in use at once and after a restart. The dialog is modal, so
// each test acts on it from inside its event loop. It runs without the modal-window watchdog of
// the other window tests, which would take the options dialog itself for a stray window.
#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "help/HelpTopics.h"
#include "main/QuantityTabBar.h"
#include "main/StatusPanel.h"
#include "support/GuiTestMain.h"
#include "support/OptionsFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTextBrowser>

class tst_OptionsFromMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void everyCommandOpensTheDialog_data();
    void everyCommandOpensTheDialog();
    void okPutsTheCatalogueIntoUse();

private:
    QStringList tabs() const;

    OptionsFixture f;
};

void tst_OptionsFromMainWindow::init()
{
    f.reset();
    f.hive->writeSetting(QStringLiteral("currphysquan"), OptionsFixture::Widgets);
    f.hive->writeSetting(QStringLiteral("minonce"), QStringLiteral("1")); // in an earlier run
    QVERIFY(f.startProgram());
}

void tst_OptionsFromMainWindow::cleanup()
{
    f.close();
}

QStringList tst_OptionsFromMainWindow::tabs() const
{
    QStringList names;
    auto *bar = f.program->find<QuantityTabBar *>("tabMain");
    for (int i = 0; i < bar->count(); ++i)
        names.append(bar->tabText(i));
    return names;
}

void tst_OptionsFromMainWindow::everyCommandOpensTheDialog_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("Options... in the File menu") << QByteArray("mnufilesetopt");
    QTest::newRow("Options... in the pop-up menu") << QByteArray("mnuview2numfor");
    QTest::newRow("double-click on status panel 3") << QByteArray("StatusBarPanel3");
}

// F1 and the tutorial button ask the main window for help. The help is then clicked through the
// window system, where a window blocked by a modal dialog gets no input, as a user clicks it: it
// is usable beside the dialog, and the main window is out of reach. Cancel drops every edit.
void tst_OptionsFromMainWindow::everyCommandOpensTheDialog()
{
    QFETCH(QByteArray, command);
    const QStringList before = tabs();
    const QByteArray hive = f.hiveBytes();
    const int figures = f.program->startup().settings().SigFigs;
    QSignalSpy help(f.program->window(), &frmMain::helpRequested);
    const auto clickThroughTheWindowSystem = [](QWidget *widget) {
        QWidget *window = widget->window();
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
            widget->mapTo(window, widget->rect().center()));
    };
    QUrl shown;
    f.answer({ QStringLiteral("Gizmos"), QStringLiteral("gizmo") });
    QVERIFY(f.runOptions(command.constData(), [&] {
        f.click("cmdTutorial");
        QApplication::setActiveWindow(f.dialog()); // shortcuts go to the active window
        QTest::keyClick(f.dialog(), Qt::Key_F1);
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"HelpWindow" && QTest::qWaitForWindowExposed(window)) {
                clickThroughTheWindowSystem(window->findChild<QWidget *>("cmdContents"));
                shown = window->findChild<QTextBrowser *>("txtTopic")->source();
            }
        }
        clickThroughTheWindowSystem(f.program->find<QWidget *>("cmdIncreaseSigFigs"));
        f.select(f.node(u'p' + OptionsFixture::Widgets));
        f.click("optOnOff_1");
        f.click("cmdAddNewPhysQuan");
        f.click("Option1_0");
        f.click("chkSysTray");
        f.click("cmdCancel");
    }));
    QCOMPARE(help.size(), 2);
    QCOMPARE(help.at(0).at(0).toInt(), 24);
    QCOMPARE(help.at(1).at(0).toInt(), 40);
    QCOMPARE(shown, HelpTopics::contentsUrl());
    QCOMPARE(f.program->startup().settings().SigFigs, figures);
    QCOMPARE(tabs(), before);
    QVERIFY(!f.program->find<StatusPanel *>("StatusBarPanel4")->isPanelEnabled());
    QCOMPARE(f.hiveBytes(), hive);
    QVERIFY(!f.program->startup().session().CatalogueChanged); // the edits are dropped
}

// A built-in quantity switched off loses its tab, a new unit converts and the number style
// changes, at once and after a restart. OK rewrites the program's whole key: hints shown in an
// earlier run stay shown.
void tst_OptionsFromMainWindow::okPutsTheCatalogueIntoUse()
{
    const QString temperature = StringTable::text(Catalogue::TemperatureNameId);
    QVERIFY(tabs().contains(temperature));
    f.answer({ QStringLiteral("doohickey"), QStringLiteral("4") });
    QVERIFY(f.runOptions("mnufilesetopt", [&] {
        f.click("Option1_0");
        f.click("optTabs_0");
        f.select(f.node(u'p' + temperature));
        f.click("optOnOff_1");
        f.select(f.node(u'p' + OptionsFixture::Widgets));
        f.click("cmdAddNewUnit");
        f.click("cmdOK");
    }));
    QVERIFY(f.dialogs.scriptDone());
    for (int run = 1; run <= 2; ++run) {
        auto *bar = f.program->find<QuantityTabBar *>("tabMain");
        QVERIFY(!tabs().contains(temperature) && !bar->buttonStyle());
        QCOMPARE(bar->tabText(bar->currentIndex()), OptionsFixture::Widgets);
        QVERIFY(f.program->find<StatusPanel *>("StatusBarPanel4")->isPanelEnabled());
        QLineEdit *value = f.program->find<QComboBox *>("txtLeft")->lineEdit();
        value->selectAll();
        QTest::keyClicks(value, QStringLiteral("8"));
        for (const auto &[name, unit] :
            { std::pair { "lstLeft", "widget" }, { "lstRight", "doohickey" } }) {
            auto *list = f.program->find<QListWidget *>(name);
            list->setCurrentItem(
                list->findItems(QString::fromUtf8(unit), Qt::MatchExactly).value(0));
        }
        const QString result = f.program->find<QLineEdit *>("txtRight")->text();
        QVERIFY2(NumberText::leadingNumber(result) == 2.0, qPrintable(result));
        if (run == 2)
            break;
        QVERIFY(f.program->close());
        QVERIFY(f.startProgram());
        QVERIFY(!f.program->startup().firstRunHelp());
        QVERIFY(f.program->startup().session().TrayHintShown);
    }
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

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The find unit dialog of a running program, over the built-in catalogue and the test hive's own
// quantities, driven as a user would: typing, clicking a line, going to a unit in the main
// window.
#include "find/frmFind.h"
#include "help/HelpTopics.h"
#include "support/DataRows.h"
#include "support/GuiTestMain.h"
#include "support/MainWindowFixture.h"

#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStatusBar>

class tst_frmFind : public QObject, MainWindowFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void typing_data();
    void typing();
    void clearedTextDisablesGoToThenHelpAndCancel();
    void clickingALineTakesItsTextAndScrollsNoFurtherThanNeeded_data();
    void clickingALineTakesItsTextAndScrollsNoFurtherThanNeeded();
    void goTo_data();
    void goTo();

private:
    void typeText(const QString &text);
    QString currentLine() const;

    std::unique_ptr<frmFind> m_find;
    QLineEdit *txtFind = nullptr;
    QListWidget *lstFind = nullptr;
    QPushButton *cmdGoTo = nullptr;
    QStatusBar *StatusBar = nullptr;
};

void tst_frmFind::init()
{
    setUp();
    m_hive->write(
        QStringLiteral("User\\OnOff\\Length"), QStringLiteral("fermi"), QStringLiteral("0"));
    // A unit whose own name holds a "[": its line is cut at that bracket.
    m_hive->addQuantity(QStringLiteral("Zeta Things"),
        { { QStringLiteral("widget [old]"), QStringLiteral("x1") } });
    QVERIFY(start());
    Startup &startup = m_program->startup();
    m_find = std::make_unique<frmFind>(
        startup.catalogue(), startup.session(), *m_dialogs, *m_program->window());
    m_find->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_find.get()));
    txtFind = m_find->findChild<QLineEdit *>(QStringLiteral("txtFind"));
    lstFind = m_find->findChild<QListWidget *>(QStringLiteral("lstFind"));
    cmdGoTo = m_find->findChild<QPushButton *>(QStringLiteral("cmdGoTo"));
    StatusBar = m_find->findChild<QStatusBar *>(QStringLiteral("StatusBar"));
}

void tst_frmFind::cleanup()
{
    m_find.reset();
    tearDown();
}

void tst_frmFind::typeText(const QString &text)
{
    txtFind->setFocus();
    QTest::keyClicks(txtFind, text);
}

QString tst_frmFind::currentLine() const
{
    const QListWidgetItem *item = lstFind->currentItem();
    return item && item->isSelected() ? item->text() : QString();
}

void tst_frmFind::typing_data()
{
    // What the list makes current: the first line that begins with the text, else the unit the
    // text names as people write it (which names: tst_UnitMatcher); tied names all in the status
    // bar.
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("tied"); // the status bar's message
    const char *rows[][4] = {
        { "capitals find small letters", "INCH", "inch per second squared (in/s²) [Acceleration]",
            "" },
        { "a line that begins so comes before a symbol", "m",
            "metre per second squared (m/s²) [Acceleration]", "" },
        { "a symbol no line begins with, of the first line", "m/s2",
            "metre per second squared (m/s²) [Acceleration]", "" },
        { "a line that begins so, whatever else the text names", "kilowatt",
            "kilowatt hour (kW·h) [Energy]", "" },
        { "mph names two units: the first, and the other told", "mph",
            "milliphot (mph) [Illuminance]", "\"mph\" also names mile per hour (mph) [Velocity]" },
        { "a switched-off unit is not there", "fermi", "", "" },
        { "nothing begins so or is named so", "zzq", "", "" },
    };
    addTextRows(rows);
}

void tst_frmFind::typing()
{
    QFETCH(QString, text);
    QFETCH(QString, line);
    QFETCH(QString, tied);
    typeText(text);
    QCOMPARE(currentLine(), line);
    QCOMPARE(cmdGoTo->isEnabled(), !line.isEmpty());
    if (line.isEmpty())
        QCOMPARE(lstFind->currentRow(), -1);
    QCOMPARE(StatusBar->currentMessage(), tied);
    // Typing must never be overwritten by the line it selects.
    QCOMPARE(txtFind->text(), text);
    QVERIFY(lstFind->viewport()->rect().intersects(lstFind->visualItemRect(lstFind->currentItem()))
        || line.isEmpty());
}

void tst_frmFind::clearedTextDisablesGoToThenHelpAndCancel()
{
    typeText(QStringLiteral("foot"));
    QVERIFY(cmdGoTo->isEnabled());
    txtFind->clear();
    QVERIFY(!currentLine().isEmpty());
    QVERIFY(!cmdGoTo->isEnabled());
    QTest::keyClick(lstFind, Qt::Key_Return); // Enter does nothing while Go to is disabled
    QVERIFY(m_find->isVisible());

    QSignalSpy help(m_find.get(), &frmFind::helpRequested);
    QTest::mouseClick(m_find->findChild<QPushButton *>(QStringLiteral("cmdHelp")), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    QCOMPARE(HelpTopics::topicFile(help.first().first().toInt()), QStringLiteral("findunit.html"));
    // Cancel leaves the main window as it was.
    typeText(QStringLiteral("psi"));
    QTest::mouseClick(m_find->findChild<QPushButton *>(QStringLiteral("cmdOK")), Qt::LeftButton);
    QVERIFY(!m_find->isVisible());
    QCOMPARE(currentQuantity(), Lengths);
}

void tst_frmFind::clickingALineTakesItsTextAndScrollsNoFurtherThanNeeded_data()
{
    // Where the click goes, as a share of the list's height from its top.
    QTest::addColumn<double>("height");
    QTest::newRow("a line in the middle of the list") << 0.5;
    QTest::newRow("a line cut off at the bottom edge") << 1.0;
}

void tst_frmFind::clickingALineTakesItsTextAndScrollsNoFurtherThanNeeded()
{
    QFETCH(double, height);
    QWidget *viewport = lstFind->viewport();
    QTest::mouseClick(lstFind->verticalScrollBar(), Qt::LeftButton, {},
        lstFind->verticalScrollBar()->rect().bottomLeft() + QPoint(2, -20)); // a page down
    const QPoint click(4, qMin(int(height * viewport->height()), viewport->height() - 1));
    QListWidgetItem *item = lstFind->itemAt(click);
    QVERIFY(item);
    const QRect before = lstFind->visualItemRect(item);
    QTest::mouseClick(viewport, Qt::LeftButton, {}, click);
    QCOMPARE(txtFind->text(), item->text());
    QCOMPARE(currentLine(), item->text());
    const QRect after = lstFind->visualItemRect(item);
    QVERIFY(viewport->rect().contains(after));
    QVERIFY2(after.top() >= before.top() - after.height(),
        qPrintable(QStringLiteral("line moved from %1 to %2").arg(before.top()).arg(after.top())));
}

void tst_frmFind::goTo_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("byEnter");
    QTest::addColumn<QString>("quantity"); // the main window's afterwards
    QTest::addColumn<QString>("unit");
    QTest::newRow("a unit found by its symbol") << "psi" << false << "Pressure or Stress"
                                                << "pound per square inch (psi)";
    QTest::newRow("Enter in the list") << "foot (ft)" << true << "Length"
                                       << "foot (ft)";
    // "widget [old] [Zeta Things]" names the quantity "old] [Zeta Things", which does not exist.
    QTest::newRow("a name with a bracket is cut at it") << "widget" << false << Lengths << "";
}

void tst_frmFind::goTo()
{
    QFETCH(QString, text);
    QFETCH(bool, byEnter);
    QFETCH(QString, quantity);
    QFETCH(QString, unit);
    typeText(text);
    if (byEnter) {
        lstFind->setFocus();
        QTest::keyClick(lstFind, Qt::Key_Return);
    } else {
        QTest::mouseClick(cmdGoTo, Qt::LeftButton);
    }
    QVERIFY(!m_find->isVisible());
    QCOMPARE(currentQuantity(), quantity);
    QCOMPARE(selected(left()), unit);
    QCOMPARE(m_program->window()->focusWidget(), value());
    // The change came from the program: the result is not taken for the user's conversion.
    QVERIFY(!action("mnurecordsadd")->isEnabled());
}

MENSURA_GUI_TEST_MAIN(tst_frmFind)
#include "tst_frmFind.moc"

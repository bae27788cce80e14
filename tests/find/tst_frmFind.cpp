// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The find unit dialog driven as a user would: typing, clicking a line, going to a unit.
#include "find/FakeMainWindow.h"
#include "find/frmFind.h"
#include "find/TestCatalogue.h"
#include "help/HelpTopics.h"
#include "shell/MessageBoxDialogs.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>

class tst_frmFind : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void listAndStatusBarAtLoad();
    void typingSelectsTheFirstMatch_data();
    void typingSelectsTheFirstMatch();
    void clearedTextDisablesGoToWithALineStillSelected();
    void clickingALineCopiesItIntoTheTextBox();
    void clickingALineScrollsNoFurtherThanNeeded_data();
    void clickingALineScrollsNoFurtherThanNeeded();
    void goToSelectsQuantityAndUnitAndCloses();
    void enterInTheListGoesToTheUnit();
    void enterInTheListDoesNothingWhileGoToIsDisabled();
    void aNameWithABracketIsSplitAtIt();
    void cancelClosesWithoutGoingAnywhere();
    void helpAsksForTheFindTopic();

private:
    void typeText(const QString &text);
    QString selectedLine() const;

    Catalogue m_catalogue;
    Session m_session;
    MessageBoxDialogs m_dialogs; // the dialog asks nothing; a question would show up as a hang
    std::unique_ptr<FakeMainWindow> m_main;
    std::unique_ptr<frmFind> m_find;
    QLineEdit *txtFind = nullptr;
    QListWidget *lstFind = nullptr;
    QPushButton *cmdGoTo = nullptr;
};

void tst_frmFind::init()
{
    m_catalogue = makeCatalogue({
        { QStringLiteral("Length"),
            { QStringLiteral("metre (m)"), QStringLiteral("inch (in)"), QStringLiteral("-fermi"),
                QStringLiteral("foot (ft)") } },
        { QStringLiteral("Pressure or Stress"),
            { QStringLiteral("kilopascal (kPa)"), QStringLiteral("Inch of mercury") } },
        { QStringLiteral("Things"), { QStringLiteral("widget [old]") } },
    });
    m_session = Session();
    m_main = std::make_unique<FakeMainWindow>(m_session,
        QStringList { QStringLiteral("Length"), QStringLiteral("Pressure or Stress"),
            QStringLiteral("Things") });
    m_find = std::make_unique<frmFind>(m_catalogue, m_session, m_dialogs, *m_main);
    m_find->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_find.get()));
    txtFind = m_find->findChild<QLineEdit *>(QStringLiteral("txtFind"));
    lstFind = m_find->findChild<QListWidget *>(QStringLiteral("lstFind"));
    cmdGoTo = m_find->findChild<QPushButton *>(QStringLiteral("cmdGoTo"));
    QVERIFY(txtFind && lstFind && cmdGoTo);
}

void tst_frmFind::cleanup()
{
    m_find.reset();
    m_main.reset();
}

void tst_frmFind::typeText(const QString &text)
{
    txtFind->setFocus();
    QTest::keyClicks(txtFind, text);
}

QString tst_frmFind::selectedLine() const
{
    const QList<QListWidgetItem *> selected = lstFind->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void tst_frmFind::listAndStatusBarAtLoad()
{
    QCOMPARE(lstFind->count(), 6);
    QCOMPARE(lstFind->item(0)->text(), QStringLiteral("metre (m) [Length]"));
    QCOMPARE(lstFind->item(2)->text(), QStringLiteral("foot (ft) [Length]"));
    QCOMPARE(selectedLine(), QString());
    QVERIFY(!cmdGoTo->isEnabled());
    const auto *status = m_find->findChild<QStatusBar *>(QStringLiteral("StatusBar"));
    QVERIFY(status);
    const auto *total = status->findChild<QLabel *>();
    QVERIFY(total);
    QCOMPARE(total->text(), QStringLiteral("Total: 3 quantities and 6 units"));
}

void tst_frmFind::typingSelectsTheFirstMatch_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");

    QTest::newRow("capitals") << "IN"
                              << "inch (in) [Length]";
    QTest::newRow("small letters find a capital") << "inch of"
                                                  << "Inch of mercury [Pressure or Stress]";
    QTest::newRow("one letter") << "k"
                                << "kilopascal (kPa) [Pressure or Stress]";
    QTest::newRow("a switched-off unit is not there") << "fermi"
                                                      << "";
    QTest::newRow("no unit begins so") << "zz"
                                       << "";
}

void tst_frmFind::typingSelectsTheFirstMatch()
{
    QFETCH(QString, text);
    QFETCH(QString, line);
    typeText(text);
    QCOMPARE(selectedLine(), line);
    QCOMPARE(cmdGoTo->isEnabled(), !line.isEmpty());
    if (line.isEmpty())
        QCOMPARE(lstFind->currentRow(), -1);
    // Typing must never be overwritten by the line it selects.
    QCOMPARE(txtFind->text(), text);
}

void tst_frmFind::clearedTextDisablesGoToWithALineStillSelected()
{
    typeText(QStringLiteral("foot"));
    QVERIFY(cmdGoTo->isEnabled());
    txtFind->clear();
    QVERIFY(!selectedLine().isEmpty());
    QVERIFY(!cmdGoTo->isEnabled());
}

void tst_frmFind::clickingALineCopiesItIntoTheTextBox()
{
    QListWidgetItem *item = lstFind->item(3);
    const QRect rect = lstFind->visualItemRect(item);
    QTest::mouseClick(lstFind->viewport(), Qt::LeftButton, {}, rect.center());
    QCOMPARE(txtFind->text(), item->text());
    QCOMPARE(selectedLine(), item->text());
    QVERIFY(cmdGoTo->isEnabled());
}

void tst_frmFind::clickingALineScrollsNoFurtherThanNeeded_data()
{
    // Where the click goes, as a share of the list's height from its top.
    QTest::addColumn<double>("height");
    QTest::newRow("a line in the middle of the list") << 0.5;
    QTest::newRow("a line cut off at the bottom edge") << 1.0;
}

void tst_frmFind::clickingALineScrollsNoFurtherThanNeeded()
{
    QFETCH(double, height);
    QStringList units;
    for (int i = 1; i <= 55; ++i) // as many as a quantity holds
        units.append(QStringLiteral("unit %1").arg(i));
    m_catalogue = makeCatalogue({ { QStringLiteral("Length"), units } });
    m_find = std::make_unique<frmFind>(m_catalogue, m_session, m_dialogs, *m_main);
    m_find->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_find.get()));
    lstFind = m_find->findChild<QListWidget *>(QStringLiteral("lstFind"));
    txtFind = m_find->findChild<QLineEdit *>(QStringLiteral("txtFind"));
    QWidget *viewport = lstFind->viewport();
    QTest::mouseClick(lstFind->verticalScrollBar(), Qt::LeftButton, {},
        lstFind->verticalScrollBar()->rect().bottomLeft() + QPoint(2, -20)); // a page down
    const QPoint click(4, qMin(int(height * viewport->height()), viewport->height() - 1));
    QListWidgetItem *item = lstFind->itemAt(click);
    QVERIFY(item);
    const QRect before = lstFind->visualItemRect(item);

    QTest::mouseClick(viewport, Qt::LeftButton, {}, click);
    QCOMPARE(txtFind->text(), item->text());
    const QRect after = lstFind->visualItemRect(item);
    QVERIFY(viewport->rect().contains(after));
    QVERIFY2(after.top() >= before.top() - after.height(),
        qPrintable(QStringLiteral("line moved from %1 to %2").arg(before.top()).arg(after.top())));
}

void tst_frmFind::goToSelectsQuantityAndUnitAndCloses()
{
    typeText(QStringLiteral("kilo"));
    QTest::mouseClick(cmdGoTo, Qt::LeftButton);
    const QStringList expected { QStringLiteral("quantity:Pressure or Stress"),
        QStringLiteral("left:kilopascal (kPa)"), QStringLiteral("focus") };
    QCOMPARE(m_main->calls, expected);
    QVERIFY(m_main->skipWasSet);
    QVERIFY(!m_find->isVisible());
}

void tst_frmFind::enterInTheListGoesToTheUnit()
{
    typeText(QStringLiteral("foot"));
    lstFind->setFocus();
    QTest::keyClick(lstFind, Qt::Key_Return);
    QCOMPARE(m_main->calls.value(1), QStringLiteral("left:foot (ft)"));
    QVERIFY(!m_find->isVisible());
}

void tst_frmFind::enterInTheListDoesNothingWhileGoToIsDisabled()
{
    typeText(QStringLiteral("m"));
    txtFind->clear();
    lstFind->setFocus();
    QTest::keyClick(lstFind, Qt::Key_Return);
    QVERIFY(m_main->calls.isEmpty());
    QVERIFY(m_find->isVisible());
}

void tst_frmFind::aNameWithABracketIsSplitAtIt()
{
    // The line "widget [old] [Things]" names the quantity "old] [Things", which the main
    // window does not have: no unit is selected, the value box still gets the focus.
    typeText(QStringLiteral("widget"));
    QTest::mouseClick(cmdGoTo, Qt::LeftButton);
    const QStringList expected { QStringLiteral("quantity:old] [Things"), QStringLiteral("focus") };
    QCOMPARE(m_main->calls, expected);
}

void tst_frmFind::cancelClosesWithoutGoingAnywhere()
{
    typeText(QStringLiteral("inch"));
    QTest::mouseClick(m_find->findChild<QPushButton *>(QStringLiteral("cmdOK")), Qt::LeftButton);
    QVERIFY(!m_find->isVisible());
    QVERIFY(m_main->calls.isEmpty());
    QVERIFY(!m_session.SkipNextUpdate);
}

void tst_frmFind::helpAsksForTheFindTopic()
{
    QSignalSpy help(m_find.get(), &frmFind::helpRequested);
    QTest::mouseClick(m_find->findChild<QPushButton *>(QStringLiteral("cmdHelp")), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    const int context = help.first().first().toInt();
    QCOMPARE(HelpTopics::topicFile(context), QStringLiteral("findunit.html"));
}

QTEST_MAIN(tst_frmFind)
#include "tst_frmFind.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What the main window keeps between runs: closing it (with its question about unsaved marked
// conversions) saves its placement and the last conversion, and the next run on the same hive
// puts them back. Saved values that no longer fit (a unit since removed, a position off every
// screen, text where a number belongs) must not stop the window from coming up usable.
#include "catalogue/StringTable.h"
#include "main/WindowPlacement.h"
#include "support/DataRows.h"
#include "support/GuiTestMain.h"
#include "support/MainWindowFixture.h"

#include <QScreen>
#include <QTabBar>

class tst_frmMainSession : public QObject, MainWindowFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tearDown(); }

    void exitQuestion_data();
    void exitQuestion();
    void sessionComesBack();
    void windowStateCodes_data();
    void windowStateCodes();
    void savedConversionThatNoLongerFits_data();
    void savedConversionThatNoLongerFits();
    void savedPlacementComesUpOnTheScreen();
    void placementThatIsNoNumberAndConversionNotKept();
};

void tst_frmMainSession::init()
{
    setUp();
    // The session's own values are what these tests look at: none saved to begin with.
    m_hive->writeSetting(QStringLiteral("currphysquan"), QString());
}

void tst_frmMainSession::exitQuestion_data()
{
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<bool>("mark");
    QTest::addColumn<int>("answer"); // -1: no question asked
    QTest::addColumn<bool>("closes");
    // Marked conversions all saved: tst_MarkedConversionsInMainWindow.
    QTest::newRow("marked conversions, answer No") << true << true << int(Dialogs::No) << false;
    QTest::newRow("marked conversions, answer Cancel")
        << true << true << int(Dialogs::Cancel) << false;
    QTest::newRow("marked conversions, answer Yes") << true << true << int(Dialogs::Yes) << true;
    QTest::newRow("nothing marked: no question") << true << false << -1 << true;
    QTest::newRow("confirmation switched off: no question") << false << true << -1 << true;
}

void tst_frmMainSession::exitQuestion()
{
    QFETCH(bool, confirm);
    QFETCH(bool, mark);
    QFETCH(int, answer);
    QFETCH(bool, closes);
    m_hive->writeSetting(
        QStringLiteral("confirm"), confirm ? QStringLiteral("1") : QStringLiteral("0"));
    QVERIFY(start());
    showFeetInInches(QStringLiteral("12"));
    if (mark)
        m_program->find<QAction *>("mnurecordsadd")->trigger();
    if (answer >= 0)
        m_dialogs->answerQuestion(Dialogs::Answer(answer));

    QSignalSpy unloaded(m_program->window(), &frmMain::unloaded);
    QCOMPARE(m_program->close(), closes);
    QCOMPARE(unloaded.size(), closes ? 1 : 0);
    QCOMPARE(m_program->window()->isVisible(), !closes);
    // Nothing is saved by an exit that did not happen.
    QCOMPARE(m_hive->readSetting(QStringLiteral("currvalue")).has_value(), closes);
    if (answer >= 0) {
        const ScriptedDialogs::Asked asked = m_dialogs->asked().value(0);
        QCOMPARE(asked.notice, (Notice { Notice::Critical, StringTable::text(333), QString() }));
        QCOMPARE(asked.buttons, Dialogs::YesNoCancel);
        QCOMPARE(asked.defaultAnswer, Dialogs::Cancel);
    }
}

void tst_frmMainSession::sessionComesBack()
{
    QVERIFY(start());
    frmMain *window = m_program->window();
    showFeetInInches(QStringLiteral("12"));
    QTest::mouseClick(panel(4), Qt::LeftButton);
    QTest::mouseClick(m_program->find<QWidget *>("cmdIncreaseSigFigs"), Qt::LeftButton);
    const QString shown = result()->text();
    QCOMPARE(shown, QStringLiteral("1.4400000E+2"));
    // The window is never smaller than 7100 x 7000 twips, and a move beyond the left or top edge
    // of the screen is stopped a little inside it.
    const qreal dpi = window->screen()->logicalDotsPerInchX();
    const qreal dpiY = window->screen()->logicalDotsPerInchY();
    window->resize(100, 100);
    QCOMPARE(window->size(),
        QSize(
            WindowPlacement::twipsToPixels(7100, dpi), WindowPlacement::twipsToPixels(7000, dpiY)));
    const QRect screen = window->screen()->availableGeometry();
    window->move(screen.left() - 30, screen.top() + 50);
    QCOMPARE(window->pos(), QPoint(screen.left() + WindowPlacement::EdgeGap, screen.top() + 50));
    window->move(screen.left() + 40, screen.top() - 5);
    QCOMPARE(window->pos(), QPoint(screen.left() + 40, screen.top() + WindowPlacement::EdgeGap));
    window->move(70, 40);
    window->resize(660, 500);
    QVERIFY(m_program->close());
    const auto twips = [dpi](int pixels) {
        return QString::number(WindowPlacement::pixelsToTwips(pixels, dpi));
    };
    QCOMPARE(m_hive->readSetting(QStringLiteral("windowstate")), QStringLiteral("0"));
    QCOMPARE(m_hive->readSetting(QStringLiteral("left")), twips(70));
    QCOMPARE(m_hive->readSetting(QStringLiteral("top")), twips(40));
    QCOMPARE(m_hive->readSetting(QStringLiteral("width")), twips(660));
    QCOMPARE(m_hive->readSetting(QStringLiteral("height")), twips(500));
    QCOMPARE(m_hive->readSetting(QStringLiteral("scientific")), QStringLiteral("1"));
    QCOMPARE(m_hive->readSetting(QStringLiteral("numericformatting")), QStringLiteral("8"));

    QVERIFY(restart());
    window = m_program->window();
    QCOMPARE(tabs()->tabText(tabs()->currentIndex()), Lengths);
    QCOMPARE(value()->currentText(), QStringLiteral("12"));
    QCOMPARE(selected(left()), QStringLiteral("foot"));
    QCOMPARE(selected(right()), QStringLiteral("inch"));
    QCOMPARE(result()->text(), shown);
    QCOMPARE(window->pos(), QPoint(70, 40));
    QCOMPARE(window->size(), QSize(660, 500));

    // The hive's folder is replaced by a plain file: no hive can be written there any more.
    const QString folder = QFileInfo(m_hive->path()).absolutePath();
    QFile::remove(m_hive->path());
    QVERIFY(QDir(folder).removeRecursively());
    QFile blocker(folder);
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    // The message's text: tst_Startup.
    m_dialogs->expectMessage();
    QVERIFY(m_program->close());
    QFile::remove(folder);
}

void tst_frmMainSession::windowStateCodes_data()
{
    QTest::addColumn<Qt::WindowState>("state");
    QTest::addColumn<QString>("code");
    QTest::newRow("maximised") << Qt::WindowMaximized << "1";
    QTest::newRow("minimised") << Qt::WindowMinimized << "2";
}

void tst_frmMainSession::windowStateCodes()
{
    QFETCH(Qt::WindowState, state);
    QFETCH(QString, code);
    m_hive->writeSetting(
        QStringLiteral("systray"), QStringLiteral("0")); // minimised, not in a tray
    QVERIFY(start());
    m_program->window()->setWindowState(state);
    QVERIFY(m_program->close());
    QCOMPARE(m_hive->readSetting(QStringLiteral("windowstate")), code);
    // Only a window in its normal state has a placement worth keeping.
    QVERIFY(!m_hive->readSetting(QStringLiteral("left")));
    QVERIFY(!m_hive->readSetting(QStringLiteral("width")));

    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
    QVERIFY(m_program->start()); // a minimised window is never exposed
    QVERIFY(m_program->window()->windowState().testFlag(state));
}

void tst_frmMainSession::savedConversionThatNoLongerFits_data()
{
    // The saved quantity and unit, and what is shown. A quantity switched off since has no tab
    // either, as one that no longer exists.
    for (const char *column : { "quantity", "unit1", "shownQuantity", "shownUnit1" })
        QTest::addColumn<QString>(column);
    const char *rows[][5] = {
        { "a unit that no longer exists", "Zeta Length", "furlong", "Zeta Length", "" },
        { "a quantity that no longer exists", "Zeta Time", "foot", "", "" },
        { "all fits", "Zeta Mass", "gram", "Zeta Mass", "gram" },
    };
    addTextRows(rows);
}

void tst_frmMainSession::savedConversionThatNoLongerFits()
{
    QFETCH(QString, quantity);
    QFETCH(QString, unit1);
    QFETCH(QString, shownQuantity);
    QFETCH(QString, shownUnit1);
    m_hive->writeSetting(QStringLiteral("currphysquan"), quantity);
    m_hive->writeSetting(QStringLiteral("currvalue"), QStringLiteral("5"));
    m_hive->writeSetting(QStringLiteral("currunit1"), unit1);
    m_hive->writeSetting(QStringLiteral("currunit2"), QStringLiteral("no such unit"));
    QVERIFY(start());
    const QTabBar *tabs = this->tabs();
    // A quantity without a tab leaves the first tab current, with its units and none chosen.
    QCOMPARE(tabs->tabText(tabs->currentIndex()),
        shownQuantity.isEmpty() ? tabs->tabText(0) : shownQuantity);
    QCOMPARE(currentQuantity(), tabs->tabText(tabs->currentIndex()));
    QVERIFY(left()->count() > 0);
    QCOMPARE(selected(left()), shownUnit1);
    QCOMPARE(selected(right()), QString());
    QCOMPARE(value()->currentText(), QStringLiteral("5"));
    QCOMPARE(result()->text(), StringTable::text(368));
}

// A saved window twice as tall as the screen and far off every screen comes up wholly on the
// screen, shrunk and moved as far as it must be (other placements: tst_WindowPlacement).
void tst_frmMainSession::savedPlacementComesUpOnTheScreen()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const int screenTwips
        = WindowPlacement::pixelsToTwips(area.height(), screen->logicalDotsPerInchY());
    m_hive->writeSetting(QStringLiteral("left"), QStringLiteral("-400000"));
    m_hive->writeSetting(QStringLiteral("top"), QStringLiteral("300"));
    m_hive->writeSetting(QStringLiteral("width"), QStringLiteral("9000"));
    m_hive->writeSetting(QStringLiteral("height"), QString::number(2 * screenTwips));
    QVERIFY(start());
    const QRect frame = m_program->window()->frameGeometry();
    QCOMPARE(frame.intersected(area), frame);
    QCOMPARE(frame.bottom(), area.bottom());
    QCOMPARE(m_program->window()->width(), 600);
}

// A saved placement that is no number is reported and not used; a last conversion not to be
// kept is neither shown nor saved.
void tst_frmMainSession::placementThatIsNoNumberAndConversionNotKept()
{
    m_hive->writeSetting(QStringLiteral("remember"), QStringLiteral("0"));
    m_hive->writeSetting(QStringLiteral("currvalue"), QStringLiteral("99"));
    m_hive->writeSetting(QStringLiteral("left"), QStringLiteral("far left"));
    m_hive->writeSetting(QStringLiteral("windowstate"), QStringLiteral("big"));
    m_dialogs->expectMessage();
    m_dialogs->expectMessage();
    QVERIFY(start());
    for (const Notice &notice : m_dialogs->notices())
        QVERIFY2(notice.text.startsWith(StringTable::text(271) + QStringLiteral("13")),
            qPrintable(notice.text));
    QVERIFY(m_dialogs->notices().at(0).text.contains(QStringLiteral("far left")));
    QCOMPARE(m_program->window()->pos().x(),
        WindowPlacement::twipsToPixels(200, m_program->window()->screen()->logicalDotsPerInchX()));
    QVERIFY(!m_program->window()->isMaximized());
    QCOMPARE(value()->currentText(), QString());
    showFeetInInches(QStringLiteral("12"));
    QVERIFY(m_program->close());
    QCOMPARE(m_hive->readSetting(QStringLiteral("currvalue")), QStringLiteral("99"));
    QVERIFY(!m_hive->readSetting(QStringLiteral("currunit1")));
}

MENSURA_GUI_TEST_MAIN(tst_frmMainSession)
#include "tst_frmMainSession.moc"

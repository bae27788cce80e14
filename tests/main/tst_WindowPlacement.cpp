// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Where the main window may go: twips and pixels, the clamp at the top and left edges while it
// moves, and a saved placement brought back onto a screen.
#include "main/WindowPlacement.h"

#include <QtTest>

// Two screens side by side, the second to the left of the first and a little lower, each with
// a panel taking its top 30 pixels.
static const QList<QRect> Screens { QRect(0, 30, 1600, 1170), QRect(-1280, 130, 1280, 994) };

class tst_WindowPlacement : public QObject
{
    Q_OBJECT

private slots:
    void twips_data();
    void twips();
    void clampWhileMoving_data();
    void clampWhileMoving();
    void savedPlacement_data();
    void savedPlacement();
};

void tst_WindowPlacement::twips_data()
{
    QTest::addColumn<int>("twips");
    QTest::addColumn<qreal>("dpi");
    QTest::addColumn<int>("pixels");
    QTest::newRow("an inch at 96 dpi") << 1440 << 96.0 << 96;
    QTest::newRow("the minimum width at 96 dpi") << 7100 << 96.0 << 473;
    QTest::newRow("the minimum height at 120 dpi") << 7000 << 120.0 << 583;
    QTest::newRow("a negative position") << -300 << 96.0 << -20;
}

void tst_WindowPlacement::twips()
{
    QFETCH(int, twips);
    QFETCH(qreal, dpi);
    QFETCH(int, pixels);
    QCOMPARE(WindowPlacement::twipsToPixels(twips, dpi), pixels);
    // Whole pixels come back as the twips they were saved as, give or take the rounding.
    QCOMPARE(
        WindowPlacement::twipsToPixels(WindowPlacement::pixelsToTwips(pixels, dpi), dpi), pixels);
}

void tst_WindowPlacement::clampWhileMoving_data()
{
    QTest::addColumn<QPoint>("moved");
    QTest::addColumn<QPoint>("placed");
    QTest::newRow("left of the screen by 30 pixels")
        << QPoint(-30, 300) << QPoint(-30, 300); // on the second
    QTest::newRow("left of every screen") << QPoint(-1310, 300) << QPoint(-1270, 300);
    QTest::newRow("above the first screen's work area") << QPoint(200, 10) << QPoint(200, 40);
    QTest::newRow("above and left of the second screen") << QPoint(-1400, 0) << QPoint(-1270, 140);
    QTest::newRow("inside a screen stays") << QPoint(100, 100) << QPoint(100, 100);
    QTest::newRow("right of every screen stays") << QPoint(1700, 500) << QPoint(1700, 500);
    QTest::newRow("below every screen stays") << QPoint(300, 1300) << QPoint(300, 1300);
}

void tst_WindowPlacement::clampWhileMoving()
{
    QFETCH(QPoint, moved);
    QFETCH(QPoint, placed);
    QCOMPARE(WindowPlacement::clampPosition(moved, Screens), placed);
    QCOMPARE(WindowPlacement::clampPosition(moved, {}), moved);
}

void tst_WindowPlacement::savedPlacement_data()
{
    QTest::addColumn<QRect>("saved");
    QTest::addColumn<QRect>("placed");
    QTest::newRow("on a screen stays") << QRect(100, 100, 600, 800) << QRect(100, 100, 600, 800);
    QTest::newRow("on the second screen stays")
        << QRect(-1000, 200, 600, 800) << QRect(-1000, 200, 600, 800);
    QTest::newRow("far right comes back to the right edge")
        << QRect(5000, 400, 600, 800) << QRect(1000, 400, 600, 800);
    QTest::newRow("far left comes to the second screen")
        << QRect(-9000, 400, 600, 800) << QRect(-1280, 324, 600, 800);
    QTest::newRow("far below comes to the bottom")
        << QRect(200, 9000, 600, 800) << QRect(200, 400, 600, 800);
    QTest::newRow("larger than the screen is made to fit")
        << QRect(200, 100, 3000, 3000) << QRect(0, 30, 1600, 1170);
    QTest::newRow("reaching below the screen moves up")
        << QRect(100, 400, 600, 1000) << QRect(100, 200, 600, 1000);
    QTest::newRow("taller than the screen lower down shrinks to its height")
        << QRect(100, 200, 600, 1200) << QRect(100, 30, 600, 1170);
    QTest::newRow("reaching beyond the second screen's right edge moves left")
        << QRect(-400, 300, 600, 800) << QRect(-600, 300, 600, 800);
}

void tst_WindowPlacement::savedPlacement()
{
    QFETCH(QRect, saved);
    QFETCH(QRect, placed);
    QCOMPARE(WindowPlacement::fitToScreens(saved, Screens), placed);
}

QTEST_GUILESS_MAIN(tst_WindowPlacement)
#include "tst_WindowPlacement.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Where the main window may sit. The settings keep its placement in twips (1440 to the inch,
// converted with the screen's logical DPI); a placement read back must land on a screen, and a
// window being moved must never go beyond the left or top edge of the screen it is on. The
// rules work on plain rectangles so that they can be checked without a screen.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

class WindowPlacement
{
public:
    static constexpr int TwipsPerInch = 1440;
    // How far from the edge a window pushed beyond the left or top edge is put.
    static constexpr int EdgeGap = 10;

    static int twipsToPixels(int twips, qreal dotsPerInch);
    static int pixelsToTwips(int pixels, qreal dotsPerInch);

    // The position a window being moved is given instead of pos: unless the top-left corner
    // lies on one of the screens, it is kept EdgeGap pixels inside the left and top edges of
    // the screen nearest to it. Positions right of or below those edges are left alone.
    static QPoint clampPosition(const QPoint &pos, const QList<QRect> &screens);

    // A window's frame made to lie wholly on a screen: the one holding its top-left corner, else
    // the nearest one. It shrinks to the screen's size when larger and moves as little as it
    // must to come inside.
    static QRect fitToScreens(const QRect &frame, const QList<QRect> &screens);

    // The areas of the screens that windows may use (without panels and docks).
    static QList<QRect> availableScreens();

    // The screen whose area is nearest to the point (the one containing it, if any); -1 when
    // there is no screen.
    static int nearestScreen(const QPoint &point, const QList<QRect> &screens);
};

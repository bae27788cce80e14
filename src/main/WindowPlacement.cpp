// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/WindowPlacement.h"

#include <limits>
#include <QGuiApplication>
#include <QScreen>
#include <QtMath>

int WindowPlacement::twipsToPixels(int twips, qreal dotsPerInch)
{
    return qRound(twips * dotsPerInch / TwipsPerInch);
}

int WindowPlacement::pixelsToTwips(int pixels, qreal dotsPerInch)
{
    if (dotsPerInch <= 0)
        return 0;
    return qRound(pixels * TwipsPerInch / dotsPerInch);
}

static qint64 distanceSquared(const QPoint &point, const QRect &rect)
{
    const qint64 dx = point.x() < rect.left() ? rect.left() - point.x()
        : point.x() > rect.right()            ? point.x() - rect.right()
                                              : 0;
    const qint64 dy = point.y() < rect.top() ? rect.top() - point.y()
        : point.y() > rect.bottom()          ? point.y() - rect.bottom()
                                             : 0;
    return dx * dx + dy * dy;
}

int WindowPlacement::nearestScreen(const QPoint &point, const QList<QRect> &screens)
{
    int best = -1;
    qint64 bestDistance = std::numeric_limits<qint64>::max();
    for (int i = 0; i < screens.size(); ++i) {
        const qint64 distance = distanceSquared(point, screens.at(i));
        if (distance < bestDistance) {
            bestDistance = distance;
            best = i;
        }
    }
    return best;
}

QPoint WindowPlacement::clampPosition(const QPoint &pos, const QList<QRect> &screens)
{
    for (const QRect &screen : screens)
        if (screen.contains(pos))
            return pos;
    const int nearest = nearestScreen(pos, screens);
    if (nearest < 0)
        return pos;
    const QRect &screen = screens.at(nearest);
    QPoint clamped = pos;
    if (clamped.x() < screen.left())
        clamped.setX(screen.left() + EdgeGap);
    if (clamped.y() < screen.top())
        clamped.setY(screen.top() + EdgeGap);
    return clamped;
}

QRect WindowPlacement::fitToScreens(const QRect &frame, const QList<QRect> &screens)
{
    const int index = nearestScreen(frame.topLeft(), screens);
    if (index < 0)
        return frame;
    const QRect &screen = screens.at(index);
    QRect fitted(frame.topLeft(), frame.size().boundedTo(screen.size()));
    fitted.moveLeft(qBound(screen.left(), frame.left(), screen.right() + 1 - fitted.width()));
    fitted.moveTop(qBound(screen.top(), frame.top(), screen.bottom() + 1 - fitted.height()));
    return fitted;
}

QList<QRect> WindowPlacement::availableScreens()
{
    QList<QRect> areas;
    for (const QScreen *each : QGuiApplication::screens())
        areas.append(each->availableGeometry());
    return areas;
}

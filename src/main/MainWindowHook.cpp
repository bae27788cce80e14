// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/MainWindowHook.h"

#include "catalogue/StringTable.h"
#include "main/AppIcons.h"
#include "main/WindowPlacement.h"
#include "shell/Dialogs.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"
#include "shell/TrayIcon.h"

#include <QEvent>
#include <QMainWindow>
#include <QScreen>
#include <QTimer>

namespace StringId
{
constexpr int ProgramTitle = 9;
constexpr int TrayHint1 = 283;
constexpr int TrayHint2 = 284;
constexpr int TrayHint3 = 285;
constexpr int TrayTip = 366;
constexpr int TrayTitle = 5604;
} // namespace StringId

static constexpr int MinimumWidthTwips = 7100;
static constexpr int MinimumHeightTwips = 7000;

MainWindowHook::MainWindowHook(QMainWindow *window, const Settings &settings, Session &session,
    SettingsStore &store, Dialogs &dialogs, QMenu *trayMenu)
    : QObject(window)
    , m_window(window)
    , m_settings(settings)
    , m_session(session)
    , m_store(store)
    , m_dialogs(dialogs)
    , m_trayMenu(trayMenu)
{
    const QScreen *screen = window->screen();
    const qreal dpiX = screen ? screen->logicalDotsPerInchX() : 96.0;
    const qreal dpiY = screen ? screen->logicalDotsPerInchY() : 96.0;
    window->setMinimumSize(WindowPlacement::twipsToPixels(MinimumWidthTwips, dpiX),
        WindowPlacement::twipsToPixels(MinimumHeightTwips, dpiY));
    window->installEventFilter(this);
}

void MainWindowHook::release()
{
    m_released = true;
    m_window->removeEventFilter(this);
    if (m_tray)
        m_tray->hide();
}

void MainWindowHook::fitFrameWhenFramed()
{
    m_fitWhenFramed = true;
    fitFrame();
}

bool MainWindowHook::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && !m_released) {
        if (m_fitWhenFramed
            && (event->type() == QEvent::Move || event->type() == QEvent::Resize
                || event->type() == QEvent::WindowActivate))
            fitFrame();
        if (event->type() == QEvent::Move)
            keepOnScreen();
        else if (event->type() == QEvent::WindowStateChange
            && m_window->windowState().testFlag(Qt::WindowMinimized))
            windowMinimised();
    }
    return QObject::eventFilter(watched, event);
}

void MainWindowHook::keepOnScreen()
{
    if (!m_window->isVisible()
        || m_window->windowState()
            & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized))
        return;
    const QPoint clamped
        = WindowPlacement::clampPosition(m_window->pos(), WindowPlacement::availableScreens());
    if (clamped != m_window->pos())
        m_window->move(clamped);
}

void MainWindowHook::fitFrame()
{
    // Until the window manager has framed the window, its frame is the window itself.
    const QRect frame = m_window->frameGeometry();
    const QRect inside = m_window->geometry();
    if (frame == inside || !m_window->isVisible()
        || m_window->windowState()
            & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized))
        return;
    m_fitWhenFramed = false;
    const QRect fitted = WindowPlacement::fitToScreens(frame, WindowPlacement::availableScreens());
    if (fitted == frame)
        return;
    // The inside keeps its distances to the frame's edges.
    m_window->setGeometry(fitted.adjusted(inside.left() - frame.left(), inside.top() - frame.top(),
        inside.right() - frame.right(), inside.bottom() - frame.bottom()));
}

void MainWindowHook::windowMinimised()
{
    // Without a notification area, or with the option off, minimising is what it always is.
    if (m_inTray || !m_settings.ShowTrayIcon || !TrayIcon::isAvailable())
        return;
    if (!m_session.TrayHintShown) {
        const QString hint = StringTable::text(StringId::TrayHint1) + u'\n'
            + StringTable::text(StringId::TrayHint2) + QStringLiteral("\n\n")
            + StringTable::text(StringId::TrayHint3);
        m_dialogs.message(nullptr, Notice { Notice::Information, hint, QString() });
    }
    // Not from inside the state change itself: the window system is still minimising.
    QTimer::singleShot(0, this, &MainWindowHook::goToTray);
}

void MainWindowHook::goToTray()
{
    if (m_inTray || m_released || !m_window->windowState().testFlag(Qt::WindowMinimized))
        return; // restored or closed in the meantime
    if (!m_session.TrayHintShown) {
        m_session.TrayHintShown = true;
        m_store.RegWriteString(
            Settings::Section, Settings::TrayHintShownValue, QStringLiteral("1"));
        emit storeWritten();
    }
    if (!m_tray) {
        m_tray = new TrayIcon(
            AppIcons::program(), StringTable::text(StringId::TrayTip), m_trayMenu, this);
        connect(m_tray, &TrayIcon::restoreRequested, this, &MainWindowHook::restoreFromTray);
    }
    m_tray->show();
    m_inTray = true;
    m_window->hide();
    // Hidden in the tray, the window is not what a search for Mensura's window should find.
    m_window->setWindowTitle(StringTable::text(StringId::TrayTitle));
    emit wentToTray();
}

void MainWindowHook::restoreFromTray()
{
    if (!m_inTray)
        return;
    m_inTray = false;
    m_window->setWindowTitle(StringTable::text(StringId::ProgramTitle));
    // Hidden, the window is still minimised: it comes back as it was before that.
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    if (m_tray)
        m_tray->hide();
    emit restored();
}

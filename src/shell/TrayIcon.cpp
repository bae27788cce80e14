// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/TrayIcon.h"

#include <QMenu>
#include <QSystemTrayIcon>

TrayIcon::TrayIcon(const QIcon &icon, const QString &toolTip, QMenu *menu, QObject *parent)
    : QObject(parent)
    , m_icon(new QSystemTrayIcon(icon, this))
{
    m_icon->setObjectName(QStringLiteral("TrayIcon"));
    m_icon->setToolTip(toolTip);
    m_icon->setContextMenu(menu);
    connect(m_icon, &QSystemTrayIcon::activated, this,
        [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::DoubleClick)
                emit restoreRequested();
        });
}

bool TrayIcon::isAvailable()
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void TrayIcon::show()
{
    m_icon->show();
}

void TrayIcon::hide()
{
    m_icon->hide();
}

bool TrayIcon::isVisible() const
{
    return m_icon->isVisible();
}

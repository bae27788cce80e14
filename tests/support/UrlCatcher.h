// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// While it lives, catches the web and mail addresses a window asks the desktop to open, in order,
// instead of starting a browser or a mail program.
#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher()
    {
        for (const char *scheme : Schemes)
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
    }
    ~UrlCatcher() override
    {
        for (const char *scheme : Schemes)
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened.append(url); }

private:
    static constexpr const char *Schemes[] = { "http", "https", "mailto" };
};

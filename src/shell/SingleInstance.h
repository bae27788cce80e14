// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One copy of Mensura per user, desktop session and settings store. The first copy listens on a
// local socket named after the three; a copy started later with the same three connects to it,
// asks it to come to the front and ends. A copy on another display, or started with another
// settings file, meets nobody and opens its own window. A socket left behind by a copy that
// crashed answers nobody and is replaced.
#pragma once

#include <QObject>
#include <QString>

class QLocalServer;

class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(const QString &serverName, QObject *parent = nullptr);
    ~SingleInstance() override;

    // "mensura-" and a hash of the user, the desktop session and the settings location (see
    // SettingsStore::location); $MENSURA_INSTANCE replaces it (tests).
    static QString defaultServerName(const QString &settingsLocation);
    // The desktop session this process shows its windows in: the Wayland or X display (without
    // an X screen number), or on Windows the log-on session; empty where there is one only.
    static QString desktopSession();
    QString serverName() const { return m_serverName; }

    // Asks a copy already running to come to the front. True when one answered: this copy
    // then has nothing more to do.
    bool handOver(int timeoutMs = 2000);
    // Starts listening for copies started later. False when the socket cannot be made (the
    // program then simply runs without the hand-over).
    bool listen();

signals:
    // A copy started later asked this one to come to the front.
    void activationRequested();

private:
    void answer();

    QString m_serverName;
    QLocalServer *m_server = nullptr;
};

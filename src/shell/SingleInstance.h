// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One copy of Mensura per user. The first copy listens on a local socket named after the user;
// a copy started later connects to it, asks it to come to the front and ends. A socket left
// behind by a copy that crashed answers nobody and is replaced.
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

    // "mensura-" and the user's identity; $MENSURA_INSTANCE replaces it (tests, or a second
    // profile with a hive of its own).
    static QString defaultServerName();
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

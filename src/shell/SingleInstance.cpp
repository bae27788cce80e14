// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif
#ifdef Q_OS_WIN
#include <windows.h>
#endif

// The whole conversation: the new copy sends the request line, the running copy answers with
// the acknowledgement line once it has acted on it.
static const QByteArray Request = QByteArrayLiteral("activate\n");
static const QByteArray Acknowledgement = QByteArrayLiteral("ok\n");

SingleInstance::SingleInstance(const QString &serverName, QObject *parent)
    : QObject(parent)
    , m_serverName(serverName)
{
}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::defaultServerName(const QString &settingsLocation)
{
    const QString chosen = qEnvironmentVariable("MENSURA_INSTANCE");
    if (!chosen.isEmpty())
        return chosen;
#ifdef Q_OS_UNIX
    const QString user = QString::number(::getuid());
#else
    const QString user = qEnvironmentVariable("USERNAME", QDir::homePath());
#endif
    // A hash keeps the name short and free of characters a socket name cannot hold.
    const QString identity = user + u'\n' + desktopSession() + u'\n' + settingsLocation;
    const QByteArray hash = QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha1);
    return QStringLiteral("mensura-") + QString::fromLatin1(hash.toHex().left(16));
}

QString SingleInstance::desktopSession()
{
#ifdef Q_OS_WIN
    DWORD session = 0;
    if (ProcessIdToSessionId(GetCurrentProcessId(), &session))
        return QString::number(session);
    return QString();
#else
    const QString wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
    if (!wayland.isEmpty())
        return QStringLiteral("wayland ") + wayland;
    // ":0" and ":0.0" are the same display: its screens belong to one desktop.
    QString x = qEnvironmentVariable("DISPLAY");
    const qsizetype colon = x.lastIndexOf(u':');
    const qsizetype dot = x.indexOf(u'.', colon + 1);
    if (colon >= 0 && dot > colon)
        x.truncate(dot);
    return x.isEmpty() ? QString() : QStringLiteral("x ") + x;
#endif
}

bool SingleInstance::handOver(int timeoutMs)
{
    QLocalSocket socket;
    socket.connectToServer(m_serverName);
    if (!socket.waitForConnected(timeoutMs))
        return false;
    socket.write(Request);
    if (!socket.waitForBytesWritten(timeoutMs))
        return false;
    // A copy that takes the connection is running, even if it is too busy to answer in time.
    socket.waitForReadyRead(timeoutMs);
    socket.disconnectFromServer();
    return true;
}

bool SingleInstance::listen()
{
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server->listen(m_serverName)) {
        // Nobody answered handOver(): what is there was left by a copy that ended abnormally.
        QLocalServer::removeServer(m_serverName);
        if (!m_server->listen(m_serverName))
            return false;
    }
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstance::answer);
    return true;
}

void SingleInstance::answer()
{
    while (QLocalSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (!socket->canReadLine())
                return;
            const QByteArray line = socket->readLine();
            if (line == Request) {
                emit activationRequested();
                socket->write(Acknowledgement);
                socket->flush();
            }
            socket->disconnectFromServer();
        });
    }
}

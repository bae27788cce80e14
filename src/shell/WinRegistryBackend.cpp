// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/WinRegistryBackend.h"

#include "shell/WinRegistry.h"

WinRegistryBackend::WinRegistryBackend(bool readOnly)
    : m_readOnly(readOnly)
{
}

void WinRegistryBackend::remember(long status)
{
    if (status != 0)
        m_error = QString::fromStdWString(WinRegistry::statusText(status));
}

bool WinRegistryBackend::createKey(const QString &path)
{
    if (m_readOnly)
        return false;
    WinRegistry::Status status = 0;
    const bool made = WinRegistry::createKey(path.toStdWString(), &status);
    remember(status);
    return made;
}

std::optional<QString> WinRegistryBackend::value(const QString &path, const QString &name) const
{
    const auto text = WinRegistry::value(path.toStdWString(), name.toStdWString());
    if (!text)
        return std::nullopt;
    return QString::fromStdWString(*text);
}

bool WinRegistryBackend::setValue(const QString &path, const QString &name, const QString &value)
{
    if (m_readOnly)
        return true;
    const WinRegistry::Status status
        = WinRegistry::setValue(path.toStdWString(), name.toStdWString(), value.toStdWString());
    remember(status);
    return status == 0;
}

QStringList WinRegistryBackend::subKeys(const QString &path) const
{
    QStringList names;
    for (const std::wstring &name : WinRegistry::subKeys(path.toStdWString()))
        names.append(QString::fromStdWString(name));
    return names;
}

QList<QPair<QString, QString>> WinRegistryBackend::values(const QString &path) const
{
    QList<QPair<QString, QString>> list;
    for (const auto &[name, text] : WinRegistry::values(path.toStdWString()))
        list.append({ QString::fromStdWString(name), QString::fromStdWString(text) });
    return list;
}

bool WinRegistryBackend::deleteTree(const QString &path)
{
    if (m_readOnly)
        return WinRegistry::keyExists(path.toStdWString());
    WinRegistry::Status status = 0;
    const bool deleted = WinRegistry::deleteTree(path.toStdWString(), &status);
    if (status != 2) // a key that was not there is no failure
        remember(status);
    return deleted;
}

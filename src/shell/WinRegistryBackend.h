// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The settings store's keys in the real Windows registry below HKEY_CURRENT_USER: Qt's strings
// put on WinRegistry's wide-character calls. Every change is written at once, so flush() has
// nothing left to do. A read-only backend never changes the registry: it creates no key, and
// its writes and deletions are dropped.
#pragma once

#include "shell/SettingsBackend.h"

class WinRegistryBackend : public SettingsBackend
{
public:
    explicit WinRegistryBackend(bool readOnly = false);

    bool createKey(const QString &path) override;
    std::optional<QString> value(const QString &path, const QString &name) const override;
    bool setValue(const QString &path, const QString &name, const QString &value) override;
    QStringList subKeys(const QString &path) const override;
    QList<QPair<QString, QString>> values(const QString &path) const override;
    bool deleteTree(const QString &path) override;
    bool flush() override { return true; }
    QString errorText() const override { return m_error; }

private:
    void remember(long status);

    bool m_readOnly;
    QString m_error;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Where the settings store keeps its keys: the hive file on Linux and macOS, the real registry
// on Windows. Paths are below HKEY_CURRENT_USER ("Software\Mensura\settings"), "\" separated;
// key and value names compare case-insensitively, as the registry does. All values are text.
#pragma once

#include <optional>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

class SettingsBackend
{
public:
    virtual ~SettingsBackend() = default;

    // Creates the key and every missing key above it; true when the key was made now.
    virtual bool createKey(const QString &path) = 0;
    virtual std::optional<QString> value(const QString &path, const QString &name) const = 0;
    // Creates the key when needed. False when the value could not be written.
    virtual bool setValue(const QString &path, const QString &name, const QString &value) = 0;
    // Names of the direct sub-keys and the values of a key, in a stable order.
    virtual QStringList subKeys(const QString &path) const = 0;
    virtual QList<QPair<QString, QString>> values(const QString &path) const = 0;
    // Deletes the key with everything below it. False when it did not exist.
    virtual bool deleteTree(const QString &path) = 0;
    // Makes every change so far lasting. False, with errorText() saying why, when it failed.
    virtual bool flush() = 0;
    virtual QString errorText() const = 0;
};

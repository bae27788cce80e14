// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Everything Mensura remembers between runs: string values below the product key
// "HKEY_CURRENT_USER\Software\Mensura", reached through RegReadString and RegWriteString.
// Sub-keys are given relative to the product key ("settings", "User\OnOff\Length").
//
// Each write is saved at once unless a Batch is open; a batch saves once when it closes, so
// rewriting hundreds of values costs one save and a crash leaves the old or the new store.
// A save that fails is reported once through saveFailed(); the program goes on with what it
// holds in memory.
#pragma once

#include "shell/SettingsBackend.h"

#include <memory>
#include <QString>

class SettingsStore
{
public:
    explicit SettingsStore(std::unique_ptr<SettingsBackend> backend);

    // The hive file to use: "--hive FILE" from the arguments, else $MENSURA_HIVE, else
    // registry.reg in the application's configuration folder.
    static QString hivePath(const QStringList &arguments);
    // Where the store of these arguments lives: the hive file's absolute path (symbolic links
    // resolved), or on Windows the registry key when no hive file is named. Two runs with the
    // same location share their settings.
    static QString location(const QStringList &arguments);
    // The store for this platform: the hive file (read-only when asked), or on Windows the
    // registry unless a hive file was named explicitly.
    static std::unique_ptr<SettingsStore> open(const QStringList &arguments, bool readOnly = false);

    static const QString ProductKey; // "Software\Mensura\"

    // Reads a value; reading creates the key as the registry does. An absent value gives
    // defaultValue; the stored one-character NUL text gives "".
    QString RegReadString(
        const QString &subKey, const QString &valueName, const QString &defaultValue);
    // Writes a value, "" stored as the one-character NUL text. Returns 0 on success.
    int RegWriteString(const QString &subKey, const QString &valueName, const QString &value);

    QStringList subKeys(const QString &subKey) const;
    // The values of a key as (name, data) pairs, the NUL text already turned into "".
    QList<QPair<QString, QString>> values(const QString &subKey) const;
    // Deletes the key and everything below it, depth first.
    bool deleteKey(const QString &subKey);

    // Groups writes into one save; nestable. Saving happens when the outermost batch ends.
    class Batch
    {
    public:
        explicit Batch(SettingsStore &store);
        ~Batch();
        Batch(const Batch &) = delete;
        Batch &operator=(const Batch &) = delete;

    private:
        SettingsStore &m_store;
    };

    // Saves what is pending (the store's closing routine at exit).
    bool close();
    // True once a save failed; errorText() says why. Callers show one message, once.
    bool saveFailed() const { return m_saveFailed; }
    QString errorText() const { return m_backend->errorText(); }
    SettingsBackend &backend() { return *m_backend; }

private:
    bool save();
    QString path(const QString &subKey) const;

    std::unique_ptr<SettingsBackend> m_backend;
    int m_batchDepth = 0;
    bool m_dirty = false;
    bool m_saveFailed = false;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The settings store's keys kept in a text file in the registry's own export format, so that the
// file imports into a real registry and a real export reads here:
//
//     Windows Registry Editor Version 5.00
//
//     [HKEY_CURRENT_USER\Software\Mensura\settings]
//     "name"="value with \\ and \" escaped"
//
// Values holding control characters (a line break, or the one-character NUL text that stands
// for an empty value) are written as hex(1): UTF-16LE bytes, as the registry exports them.
// The file is read as UTF-8 or as the UTF-16 of a real export. A damaged file is read as far as
// it makes sense; before it is first overwritten, the original is kept beside it as
// "<name>.bad". Saving writes a whole new file and then puts it in place.
#pragma once

#include "shell/SettingsBackend.h"

#include <QHash>
#include <QVector>

class HiveFile : public SettingsBackend
{
public:
    // Reads the file when it exists. A read-only hive never writes the file.
    explicit HiveFile(const QString &fileName, bool readOnly = false);

    // Parses hive text into this hive's keys (used by the constructor; public for tests).
    void parse(const QByteArray &data);
    QByteArray serialize() const;
    // True when the file read had lines that made no sense (kept as ".bad" on the next save).
    bool damaged() const { return m_damaged; }
    QString fileName() const { return m_fileName; }

    bool createKey(const QString &path) override;
    std::optional<QString> value(const QString &path, const QString &name) const override;
    bool setValue(const QString &path, const QString &name, const QString &value) override;
    QStringList subKeys(const QString &path) const override;
    QList<QPair<QString, QString>> values(const QString &path) const override;
    bool deleteTree(const QString &path) override;
    bool flush() override;
    QString errorText() const override { return m_error; }

private:
    struct Key {
        QString path;
        QVector<QPair<QString, QString>> values;
    };

    int keyIndex(const QString &path) const;
    Key &ensureKey(const QString &path);
    void rebuildIndex();

    QString m_fileName;
    bool m_readOnly;
    bool m_damaged = false;
    bool m_backupKept = false;
    QByteArray m_original;
    QString m_error;
    QVector<Key> m_keys; // in the order they were first seen or made
    QHash<QString, int> m_index; // lower-case path -> position in m_keys
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/SettingsStore.h"

#include "shell/HiveFile.h"
#ifdef Q_OS_WIN
#include "shell/WinRegistryBackend.h"
#endif

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

const QString SettingsStore::ProductKey = QStringLiteral("Software\\Mensura\\");

static const QString NulText = QString(QChar(0));

// The hive file named by "--hive FILE", "--hive=FILE" or $MENSURA_HIVE; empty when none is.
static QString namedHivePath(const QStringList &arguments)
{
    const auto option = arguments.indexOf(QStringLiteral("--hive"));
    if (option >= 0 && option + 1 < arguments.size())
        return arguments.at(option + 1);
    for (const QString &argument : arguments)
        if (argument.startsWith(QStringLiteral("--hive=")))
            return argument.mid(7);
    return qEnvironmentVariable("MENSURA_HIVE");
}

SettingsStore::SettingsStore(std::unique_ptr<SettingsBackend> backend)
    : m_backend(std::move(backend))
{
}

QString SettingsStore::hivePath(const QStringList &arguments)
{
    const QString named = namedHivePath(arguments);
    if (!named.isEmpty())
        return named;
    QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    if (folder.isEmpty())
        folder = QDir::homePath() + QStringLiteral("/.config/mensura");
    return folder + QStringLiteral("/registry.reg");
}

QString SettingsStore::location(const QStringList &arguments)
{
#ifdef Q_OS_WIN
    if (namedHivePath(arguments).isEmpty())
        return QStringLiteral("HKEY_CURRENT_USER\\") + ProductKey;
#endif
    const QFileInfo hive(hivePath(arguments));
    const QString canonical = hive.canonicalFilePath(); // empty while the file does not exist
    return canonical.isEmpty() ? hive.absoluteFilePath() : canonical;
}

std::unique_ptr<SettingsStore> SettingsStore::open(const QStringList &arguments, bool readOnly)
{
#ifdef Q_OS_WIN
    // Windows keeps the settings in the registry itself; a hive file only when one is named.
    if (namedHivePath(arguments).isEmpty())
        return std::make_unique<SettingsStore>(std::make_unique<WinRegistryBackend>(readOnly));
#endif
    return std::make_unique<SettingsStore>(
        std::make_unique<HiveFile>(hivePath(arguments), readOnly));
}

QString SettingsStore::path(const QString &subKey) const
{
    QString full = ProductKey + subKey;
    while (full.endsWith(u'\\'))
        full.chop(1);
    return full;
}

QString SettingsStore::RegReadString(
    const QString &subKey, const QString &valueName, const QString &defaultValue)
{
    const QString key = path(subKey);
    // Reading opens the key with "create": a missing key exists afterwards.
    if (m_backend->createKey(key))
        m_dirty = true;
    const std::optional<QString> stored = m_backend->value(key, valueName);
    if (!stored)
        return defaultValue;
    return *stored == NulText ? QString() : *stored;
}

int SettingsStore::RegWriteString(
    const QString &subKey, const QString &valueName, const QString &value)
{
    if (!m_backend->setValue(path(subKey), valueName, value.isEmpty() ? NulText : value))
        return 1;
    m_dirty = true;
    if (m_batchDepth == 0 && !save())
        return 1;
    return 0;
}

QStringList SettingsStore::subKeys(const QString &subKey) const
{
    return m_backend->subKeys(path(subKey));
}

QList<QPair<QString, QString>> SettingsStore::values(const QString &subKey) const
{
    auto list = m_backend->values(path(subKey));
    for (auto &entry : list)
        if (entry.second == NulText)
            entry.second.clear();
    return list;
}

bool SettingsStore::deleteKey(const QString &subKey)
{
    const bool existed = m_backend->deleteTree(path(subKey));
    m_dirty = true;
    if (m_batchDepth == 0)
        save();
    return existed;
}

bool SettingsStore::save()
{
    if (!m_dirty)
        return true;
    if (!m_backend->flush()) {
        m_saveFailed = true;
        return false;
    }
    m_dirty = false;
    return true;
}

bool SettingsStore::close()
{
    return save();
}

SettingsStore::Batch::Batch(SettingsStore &store)
    : m_store(store)
{
    ++m_store.m_batchDepth;
}

SettingsStore::Batch::~Batch()
{
    if (--m_store.m_batchDepth == 0)
        m_store.save();
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/TestHive.h"

#include "catalogue/UserCatalogue.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <memory>

TestHive::TestHive()
    : m_path(m_folder.filePath(QStringLiteral("registry.reg")))
{
}

QStringList TestHive::arguments() const
{
    return { QStringLiteral("mensura"), QStringLiteral("--hive"), m_path };
}

void TestHive::write(const QString &subKey, const QString &name, const QString &value)
{
    SettingsStore store(std::make_unique<HiveFile>(m_path));
    store.RegWriteString(subKey, name, value);
}

std::optional<QString> TestHive::read(const QString &subKey, const QString &name) const
{
    const HiveFile hive(m_path, true);
    return hive.value(SettingsStore::ProductKey + subKey, name);
}

void TestHive::addQuantity(const QString &name, const QList<QPair<QString, QString>> &units)
{
    SettingsStore store(std::make_unique<HiveFile>(m_path));
    const SettingsStore::Batch batch(store);
    const QString key = QStringLiteral("User\\NewQuans\\") + name;
    store.RegWriteString(key, QStringLiteral("OnOff"), QStringLiteral("1"));
    store.RegWriteString(
        key, QStringLiteral("DefaultUnit"), units.isEmpty() ? QString() : units.constFirst().first);
    for (const auto &[unit, factor] : units) {
        const bool exact = factor.startsWith(u'x');
        store.RegWriteString(QStringLiteral("User\\Units\\") + name, unit,
            UserCatalogue::unitData(1, exact ? 1 : 0, exact ? factor.mid(1) : factor));
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// RegReadString / RegWriteString and batching over a hive file.
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class tst_SettingsStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void readingCreatesTheKey();
    void absentValueGivesTheDefault();
    void emptyValueIsStoredAsTheNulText();
    void eachWriteIsSavedAtOnce();
    void aBatchSavesOnceWhenItEnds();
    void deleteKeyRemovesEverythingBelow();
    void failedSaveIsReported();
    void hivePathFollowsArgumentsThenEnvironment();

private:
    QByteArray fileBytes() const;
    std::unique_ptr<SettingsStore> openStore() const;
    QTemporaryDir m_dir;
    QString m_file;
};

void tst_SettingsStore::init()
{
    m_file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(m_file);
}

QByteArray tst_SettingsStore::fileBytes() const
{
    QFile file(m_file);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::unique_ptr<SettingsStore> tst_SettingsStore::openStore() const
{
    return std::make_unique<SettingsStore>(std::make_unique<HiveFile>(m_file));
}

void tst_SettingsStore::readingCreatesTheKey()
{
    auto store = openStore();
    QCOMPARE(store->RegReadString(
                 QStringLiteral("settings"), QStringLiteral("systray"), QStringLiteral("1")),
        QStringLiteral("1"));
    QVERIFY(store->close());
    QVERIFY(fileBytes().contains("[HKEY_CURRENT_USER\\Software\\Mensura\\settings]"));
}

void tst_SettingsStore::absentValueGivesTheDefault()
{
    auto store = openStore();
    store->RegWriteString(
        QStringLiteral("settings"), QStringLiteral("currvalue"), QStringLiteral("12"));
    QCOMPARE(store->RegReadString(
                 QStringLiteral("settings"), QStringLiteral("currvalue"), QStringLiteral("1")),
        QStringLiteral("12"));
    QCOMPARE(store->RegReadString(
                 QStringLiteral("settings"), QStringLiteral("missing"), QStringLiteral("dflt")),
        QStringLiteral("dflt"));
    QCOMPARE(
        store->RegReadString(QStringLiteral("SETTINGS"), QStringLiteral("CURRVALUE"), QString()),
        QStringLiteral("12"));
}

void tst_SettingsStore::emptyValueIsStoredAsTheNulText()
{
    {
        auto store = openStore();
        QCOMPARE(store->RegWriteString(
                     QStringLiteral("settings"), QStringLiteral("currunit1"), QString()),
            0);
    }
    QVERIFY(fileBytes().contains("\"currunit1\"=hex(1):00,00,00,00"));
    HiveFile raw(m_file);
    QCOMPARE(raw.value(QStringLiteral("Software\\Mensura\\settings"), QStringLiteral("currunit1"))
                 .value_or(QString()),
        QString(QChar(0)));
    auto store = openStore();
    QCOMPARE(store->RegReadString(
                 QStringLiteral("settings"), QStringLiteral("currunit1"), QStringLiteral("dflt")),
        QString());
    QCOMPARE(store->values(QStringLiteral("settings")).constFirst().second, QString());
}

void tst_SettingsStore::eachWriteIsSavedAtOnce()
{
    auto store = openStore();
    store->RegWriteString(
        QStringLiteral("settings"), QStringLiteral("triads"), QStringLiteral("0"));
    QVERIFY(fileBytes().contains("\"triads\"=\"0\""));
}

void tst_SettingsStore::aBatchSavesOnceWhenItEnds()
{
    auto store = openStore();
    {
        SettingsStore::Batch outer(*store);
        store->RegWriteString(QStringLiteral("settings"), QStringLiteral("a"), QStringLiteral("1"));
        {
            SettingsStore::Batch inner(*store);
            store->RegWriteString(
                QStringLiteral("settings"), QStringLiteral("b"), QStringLiteral("2"));
        }
        QVERIFY(!QFile::exists(m_file)); // the inner batch does not save
    }
    const QByteArray bytes = fileBytes();
    QVERIFY(bytes.contains("\"a\"=\"1\""));
    QVERIFY(bytes.contains("\"b\"=\"2\""));
}

void tst_SettingsStore::deleteKeyRemovesEverythingBelow()
{
    auto store = openStore();
    store->RegWriteString(
        QStringLiteral("User\\Units\\Length"), QStringLiteral("smoot"), QStringLiteral("a1.7018"));
    store->RegWriteString(QStringLiteral("settings"), QStringLiteral("a"), QStringLiteral("1"));
    QVERIFY(store->deleteKey(QStringLiteral("User")));
    QVERIFY(store->values(QStringLiteral("User\\Units\\Length")).isEmpty());
    QVERIFY(!fileBytes().contains("smoot"));
    QVERIFY(fileBytes().contains("\"a\"=\"1\""));
}

void tst_SettingsStore::failedSaveIsReported()
{
    QFile blocker(m_dir.filePath(QStringLiteral("blocker")));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    SettingsStore store(
        std::make_unique<HiveFile>(m_dir.filePath(QStringLiteral("blocker/registry.reg"))));
    QVERIFY(!store.saveFailed());
    QVERIFY(
        store.RegWriteString(QStringLiteral("settings"), QStringLiteral("a"), QStringLiteral("1"))
        != 0);
    QVERIFY(store.saveFailed());
    QVERIFY(!store.errorText().isEmpty());
    // The program goes on with what it holds.
    QCOMPARE(store.RegReadString(QStringLiteral("settings"), QStringLiteral("a"), QString()),
        QStringLiteral("1"));
}

void tst_SettingsStore::hivePathFollowsArgumentsThenEnvironment()
{
    qputenv("MENSURA_HIVE", "/tmp/from-environment.reg");
    QCOMPARE(SettingsStore::hivePath({ "mensura", "--hive", "/tmp/x.reg" }),
        QStringLiteral("/tmp/x.reg"));
    QCOMPARE(
        SettingsStore::hivePath({ "mensura", "--hive=/tmp/y.reg" }), QStringLiteral("/tmp/y.reg"));
    QCOMPARE(SettingsStore::hivePath({ "mensura" }), QStringLiteral("/tmp/from-environment.reg"));
    qunsetenv("MENSURA_HIVE");
    QVERIFY(SettingsStore::hivePath({ "mensura" }).endsWith(QStringLiteral("/registry.reg")));
}

QTEST_GUILESS_MAIN(tst_SettingsStore)
#include "tst_SettingsStore.moc"

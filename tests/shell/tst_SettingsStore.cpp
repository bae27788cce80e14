// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The settings store over its hive file: values written and read back in a later run, the
// empty value's NUL text, the registry's export format read, damaged files read as far as they
// make sense and kept as ".bad", saving at once or in batches and failing; and the settings read
// from it with their types, defaults and bounds, and written back.
#include "shell/HiveFile.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

static const QString SettingsKey = QStringLiteral("Software\\Mensura\\settings");
static const QString Nul(QChar(0));

class tst_SettingsStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void valuesReadBackInALaterRun_data();
    void valuesReadBackInALaterRun();
    void keysKeepTheirOrderAndGoWithTheirChildren();
    void readsARegistryExport_data();
    void readsARegistryExport();
    void damagedFileIsKeptBeforeItIsOverwritten_data();
    void damagedFileIsKeptBeforeItIsOverwritten();
    void savesAtOnceOrInBatches();
    void failedSaveKeepsTheValues();
    void hivePathFollowsArgumentsThenEnvironment();
    void settings_data();
    void settings();

private:
    std::unique_ptr<SettingsStore> open(bool readOnly = false) const
    {
        return std::make_unique<SettingsStore>(std::make_unique<HiveFile>(m_file, readOnly));
    }

    QTemporaryDir m_dir;
    QString m_file;
};

void tst_SettingsStore::init()
{
    m_file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(m_file);
    QFile::remove(m_file + QStringLiteral(".bad"));
}

void tst_SettingsStore::valuesReadBackInALaterRun_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *what, const QString &name, const QString &value) {
        QTest::newRow(what) << name << value;
    };
    row("plain", "currvalue", "12");
    row("quotes and backslashes", "shellprog", "C:\\Program \"Files\"\\calc.exe");
    row("other scripts", "\u0415\u0434\u0438\u043D\u0438\u0446\u0430",
        "\u6D4B\u91CF \u5358\u4F4D \u0645\u064A\u0632\u0627\u0646");
    row("line breaks beside other letters", "note", "first\r\n\u03A9 second\nthird");
    row("empty, stored as the NUL text", "currunit2", "");
    row("brackets and equals", "[odd] = \"name\"", "a=b]");
    row("leading and trailing blanks", "  padded  ", "  value  ");
    row("emoji outside the basic plane", "smile", "\U0001F600");
}

// Names compare without regard to case, as in the registry.
void tst_SettingsStore::valuesReadBackInALaterRun()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QCOMPARE(open()->RegWriteString("settings", name, value), 0);
    const HiveFile raw(m_file, true);
    QVERIFY(!raw.damaged());
    QCOMPARE(raw.value(SettingsKey, name).value_or("<absent>"), value.isEmpty() ? Nul : value);
    const auto store = open();
    QCOMPARE(store->RegReadString("SETTINGS", name.toUpper(), "<absent>"), value);
    QCOMPARE(store->values("settings"), (QList<QPair<QString, QString>> { { name, value } }));
    QCOMPARE(store->RegReadString("settings", name + "2", "<absent>"), QStringLiteral("<absent>"));
}

void tst_SettingsStore::keysKeepTheirOrderAndGoWithTheirChildren()
{
    {
        const auto store = open();
        for (const char *name : { "Zeta", "alpha", "Mid" })
            store->RegWriteString(QStringLiteral("User\\NewQuans\\") + name, "OnOff", "1");
        store->RegWriteString("User\\Units\\Zeta", "smoot", "a1.7018");
        store->RegWriteString("settings", "a", "1");
    }
    const auto store = open();
    QCOMPARE(store->subKeys("User\\NewQuans"), QStringList({ "Zeta", "alpha", "Mid" }));
    QCOMPARE(store->subKeys(""), QStringList({ "User", "settings" }));
    QVERIFY(store->deleteKey("user"));
    QVERIFY(!store->deleteKey("User"));
    QVERIFY(store->subKeys("User\\NewQuans").isEmpty());
    QVERIFY(!fileBytes(m_file).contains("smoot"));
    QCOMPARE(open()->subKeys(""), QStringList({ "settings" }));
    QCOMPARE(open()->RegReadString("settings", "a", ""), QStringLiteral("1"));
    QVERIFY(!QFile::exists(m_file + ".bad")); // a whole file is no damaged one
}

void tst_SettingsStore::readsARegistryExport_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString text
        = QStringLiteral("Windows Registry Editor Version 5.00\r\n\r\n"
                         "[HKEY_CURRENT_USER\\Software\\Mensura]\r\n\r\n"
                         "[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\r\n"
                         "\"currunit1\"=\"inch (in)\"\r\n"
                         "\"shellprog\"=\"C:\\\\WINDOWS\\\\system32\\\\calc.exe\"\r\n"
                         "\"currunit2\"=hex(1):00,00,00,00\r\n"
                         "\"note\"=hex(1):61,00,0a,00,\\\r\n  62,00,00,00\r\n"
                         "\"count\"=dword:0000001a\r\n"
                         "@=\"default\"\r\n");
    QTest::newRow("UTF-16 as regedit exports") << QByteArray(
        QStringEncoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom).encode(text));
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with byte-order mark") << QByteArray("\xef\xbb\xbf") + text.toUtf8();
    QTest::newRow("LF line ends") << text.toUtf8().replace("\r\n", "\n");
}

void tst_SettingsStore::readsARegistryExport()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(putFile(m_file, bytes));
    const HiveFile hive(m_file);
    QVERIFY(!hive.damaged());
    const auto store = open();
    QCOMPARE(store->values("settings"),
        (QList<QPair<QString, QString>> { { "currunit1", "inch (in)" },
            { "shellprog", "C:\\WINDOWS\\system32\\calc.exe" }, { "currunit2", "" },
            { "note", "a\nb" }, { "count", "26" }, { "", "default" } }));
}

void tst_SettingsStore::damagedFileIsKeptBeforeItIsOverwritten_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("kept"); // the value of "a" that survives
    const QByteArray good = "Windows Registry Editor Version 5.00\r\n\r\n"
                            "[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\r\n\"a\"=\"1\"\r\n";
    const auto row = [&](const char *what, const QByteArray &bytes, const char *kept = "1") {
        QTest::newRow(what) << bytes << QString::fromLatin1(kept);
    };
    row("truncated in a value", good + "\"b\"=\"unfinish");
    row("a key line without its bracket, the values after it dropped",
        good + "[HKEY_CURRENT_USER\\Softw\r\n\"a\"=\"2\"\r\n");
    row("binary garbage after the values",
        good + QByteArray("\x00\xff\xfe\x01\x9c junk\r\n\x7f", 13));
    row("not UTF-8", good + "\"b\"=\"\xB0\"\r\n");
    row("unknown escape", good + "\"b\"=\"tab\\there\"\r\n");
    row("text after a value", good + "\"b\"=\"2\" and more\r\n");
    row("a value without its equals sign", good + "\"b\" \"2\"\r\n");
    row("duplicate value, the last one counts", good + "\"A\"=\"2\"\r\n", "2");
    row("duplicate key, the values merge",
        good + "[HKEY_CURRENT_USER\\Software\\Mensura\\SETTINGS]\r\n\"b\"=\"2\"\r\n");
    row("no header", QByteArray(good).remove(0, 40));
    row("values before any key", "\"x\"=\"y\"\r\n" + good);
    row("key of another hive", good + "[HKEY_LOCAL_MACHINE\\Software\\Evil]\r\n");
    row("a key with an empty name on its path", good + "[HKEY_CURRENT_USER\\Software\\\\x]\r\n");
    row("a key deleted", good + "[-HKEY_CURRENT_USER\\Software\\Mensura]\r\n");
    row("bad hex", good + "\"b\"=hex(1):zz,00\r\n");
    row("a hex byte above ff", good + "\"b\"=hex(1):100,00\r\n");
    row("odd number of hex bytes", good + "\"b\"=hex(1):41,00,42\r\n");
    row("a hex value cut after its mark to go on", good + "\"b\"=hex(1):41,00,\\");
    row("NUL in a key name",
        good + QByteArray("[HKEY_CURRENT_USER\\Software\\Mensura\\x\0y]\r\n\"b\"=\"2\"\r\n", 51));
    row("NUL in a value name", good + QByteArray("\"b\0c\"=\"2\"\r\n", 11));
    row("NUL inside a value", good + QByteArray("\"b\"=\"x\0y\"\r\n", 11));
}

void tst_SettingsStore::damagedFileIsKeptBeforeItIsOverwritten()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, kept);
    QVERIFY(putFile(m_file, bytes));
    HiveFile hive(m_file);
    QVERIFY(hive.damaged());
    QCOMPARE(hive.value(SettingsKey, "a").value_or("<absent>"), kept);
    const auto backup = [this] { return fileBytes(m_file + ".bad"); };
    QVERIFY(hive.setValue(SettingsKey, "c", "3") && hive.flush());
    QCOMPARE(backup(), bytes);
    // The next save keeps the original, and what was kept reads back whole: else every later
    // start would take its own file for a damaged one.
    QVERIFY(hive.setValue(SettingsKey, "d", "4") && hive.flush());
    QCOMPARE(backup(), bytes);
    const HiveFile reread(m_file);
    QVERIFY(!reread.damaged());
    QCOMPARE(reread.serialize(), hive.serialize());
    QCOMPARE(reread.value(SettingsKey, "a").value_or("<absent>"), kept);
    QCOMPARE(reread.value(SettingsKey, "d").value_or("<absent>"), QStringLiteral("4"));
}

void tst_SettingsStore::savesAtOnceOrInBatches()
{
    const auto store = open();
    // Reading creates the key, as the registry's own reading does.
    QCOMPARE(store->RegReadString("settings", "systray", "1"), QStringLiteral("1"));
    QVERIFY(store->close());
    QVERIFY(fileBytes(m_file).contains("[HKEY_CURRENT_USER\\Software\\Mensura\\settings]"));
    store->RegWriteString("settings", "currunit1", "inch (in)");
    QVERIFY(fileBytes(m_file).contains("\"currunit1\"=\"inch (in)\"")); // as plain text
    {
        SettingsStore::Batch outer(*store);
        store->RegWriteString("settings", "a", "1");
        {
            SettingsStore::Batch inner(*store);
            store->RegWriteString("settings", "b", "2");
            store->deleteKey("settings\\old");
        }
        QVERIFY(!fileBytes(m_file).contains("\"a\"")); // the inner batch does not save
    }
    QVERIFY(fileBytes(m_file).contains("\"a\"=\"1\"\r\n\"b\"=\"2\""));
    QFile::remove(m_file);
    QVERIFY(store->close()); // nothing changed since the last save: no second write
    QVERIFY(!QFile::exists(m_file));

    // A read-only store never writes its file.
    QFile::remove(m_file);
    const auto readOnly = open(true);
    QCOMPARE(readOnly->RegWriteString("settings", "a", "1"), 0);
    QVERIFY(readOnly->close());
    QVERIFY(!QFile::exists(m_file));
}

void tst_SettingsStore::failedSaveKeepsTheValues()
{
    // The hive's folder cannot be made: its parent is a file (permissions do not stop root).
    QFile blocker(m_dir.filePath("blocker"));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    m_file = blocker.fileName() + "/sub/registry.reg";
    const auto store = open();
    QVERIFY(!store->saveFailed());
    QVERIFY(store->RegWriteString("settings", "a", "1") != 0);
    QVERIFY(store->saveFailed());
    QVERIFY(!store->errorText().isEmpty());
    // The program goes on with what it holds.
    QCOMPARE(store->RegReadString("settings", "a", ""), QStringLiteral("1"));
}

void tst_SettingsStore::hivePathFollowsArgumentsThenEnvironment()
{
    qputenv("MENSURA_HIVE", "/tmp/from-environment.reg");
    QCOMPARE(SettingsStore::hivePath({ "mensura", "--hive", "/tmp/x.reg" }), "/tmp/x.reg");
    QCOMPARE(SettingsStore::hivePath({ "mensura", "--hive=/tmp/y.reg" }), "/tmp/y.reg");
    QCOMPARE(SettingsStore::hivePath({ "mensura", "--hive" }), "/tmp/from-environment.reg");
    qunsetenv("MENSURA_HIVE");
    QVERIFY(SettingsStore::hivePath({ "mensura" }).endsWith("/registry.reg"));
}

void tst_SettingsStore::settings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stored"); // null: nothing stored
    QTest::addColumn<QString>("read"); // the setting's stored text once read
    QTest::addColumn<int>("error"); // the type error reported, 0 for none
    const auto row = [](const char *what, const char *name, const QString &stored,
                         const QString &read, int error = 0) {
        QTest::newRow(what) << QString::fromLatin1(name) << stored << read << error;
    };
    const QString none;
    row("tray icon by default", "systray", none, "1");
    row("exit question by default", "confirm", none, "1");
    row("last conversion remembered by default", "remember", none, "1");
    row("triads by default", "triads", none, "1");
    row("regular notation up to 1000", "maxnumber", none, "1000");
    row("regular notation down to 0.1", "minnumber", none, "0.1");
    row("no scientific notation by default", "scientific", none, "0");
    row("last value 1 by default", "currvalue", none, "1");
    row("no last unit by default", "currunit1", none, "");
    row("no tabs by default", "tabs", none, "0");
    row("calculator 1 by default", "wincalc", none, "1");

    row("true as -1", "systray", "-1", "1");
    row("true as a word in any case", "confirm", "True", "1");
    row("false as a word", "remember", "false", "0");
    row("scientific on", "scientific", "1", "1");
    row("maximum", "maxnumber", "1e+9", "1000000000");
    row("minimum", "minnumber", "0.001", "0.001");
    row("unit with a double blank", "currunit2", "erg  (dyne)", "erg  (dyne)");
    row("empty last value", "currvalue", "", "");
    row("last quantity", "currphysquan", "Mass", "Mass");
    row("other calculator", "wincalc", "0", "0");
    row("zero figures are kept", "numericformatting", "0", "0");
    row("thirteen figures", "numericformatting", "13", "13");
    row("fourteen figures become seven", "numericformatting", "14", "7");
    row("negative figures become seven", "numericformatting", "-1", "7");
    row("figures rounded half to even", "numericformatting", "4.5", "4");

    row("figures as a word", "numericformatting", "seven", "7", 13);
    row("maximum as words", "maxnumber", "a thousand", "1000", 13);
    row("boolean as words", "triads", "yes please", "1", 13);
    row("calculator choice too big", "wincalc", "1e20", "1", 6);
    row("empty number", "minnumber", "", "0.1", 13);
}

// Each setting read from a store that holds the text stored (or nothing), then saved into
// another store: read and saved, it is the same text.
void tst_SettingsStore::settings()
{
    QFETCH(QString, name);
    QFETCH(QString, stored);
    QFETCH(QString, read);
    QFETCH(int, error);
    const auto store = open();
    if (!stored.isNull())
        store->RegWriteString(Settings::Section, name, stored);
    Settings settings;
    QList<RuntimeError> problems;
    settings.LoadSettings(*store, &problems);
    settings.LoadSigFigs(*store, &problems);
    settings.LoadLastQuantity(*store);
    QCOMPARE(settings.storedText(name), read);
    QCOMPARE(problems.size(), error ? 1 : 0);
    if (error) {
        QCOMPARE(problems[0].number, error);
        // The message names the value so that the user can find it.
        QVERIFY(problems[0].messageText().startsWith(QStringLiteral("Error # %1\n").arg(error)));
        QVERIFY(problems[0].messageText().contains(name));
    }
    QVERIFY(store->subKeys("").contains(Settings::Section)); // reading made the key

    QTemporaryDir other;
    SettingsStore saved(std::make_unique<HiveFile>(other.filePath("registry.reg")));
    settings.save(saved, name);
    QCOMPARE(saved.RegReadString(Settings::Section, name, "<absent>"), read);
}

QTEST_GUILESS_MAIN(tst_SettingsStore)
#include "tst_SettingsStore.moc"

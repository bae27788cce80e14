// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The hive file: the registry's export format read and written, and damaged files survived.
#include "shell/HiveFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

static const QString Settings = QStringLiteral("Software\\Mensura\\settings");

class tst_HiveFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void valuesRoundTrip_data();
    void valuesRoundTrip();
    void namesCompareWithoutCase();
    void keysKeepTheirOrderAndDeleteWithTheirChildren();
    void readsARegistryExport_data();
    void readsARegistryExport();
    void damagedFileIsReadAsFarAsItMakesSense_data();
    void damagedFileIsReadAsFarAsItMakesSense();
    void damagedFileIsKeptBeforeItIsOverwritten();
    void savedDamagedFileReadsBackWhole_data();
    void savedDamagedFileReadsBackWhole();
    void unwritableFolderReportsAnError();
    void readOnlyHiveNeverWrites();

private:
    QString write(const QByteArray &bytes);
    QTemporaryDir m_dir;
    QString m_file;
};

void tst_HiveFile::init()
{
    QVERIFY(m_dir.isValid());
    m_file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(m_file);
    QFile::remove(m_file + QStringLiteral(".bad"));
}

QString tst_HiveFile::write(const QByteArray &bytes)
{
    QFile file(m_file);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write(bytes);
    return m_file;
}

void tst_HiveFile::valuesRoundTrip_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::newRow("plain") << "currvalue"
                           << "12";
    QTest::newRow("quotes and backslashes") << "shellprog"
                                            << "C:\\Program \"Files\"\\calc.exe";
    QTest::newRow("unit name with degree sign") << "currunit1"
                                                << "Fahrenheit (°F)";
    QTest::newRow("non-Latin script") << "Единица"
                                      << "测量 単位 ميزان";
    QTest::newRow("line breaks") << "note"
                                 << "first\r\nsecond\nthird";
    QTest::newRow("the NUL text of an empty value") << "currunit2" << QString(QChar(0));
    QTest::newRow("longer than the registry's read buffer") << "long" << QString(5000, u'x');
    QTest::newRow("brackets and equals") << "[odd] = \"name\""
                                         << "a=b]";
    QTest::newRow("leading and trailing blanks") << "  padded  "
                                                 << "  value  ";
    QTest::newRow("emoji outside the basic plane") << "smile" << QStringLiteral("\U0001F600");
}

void tst_HiveFile::valuesRoundTrip()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    {
        HiveFile hive(m_file);
        QVERIFY(hive.setValue(Settings, name, value));
        QVERIFY(hive.flush());
    }
    HiveFile reread(m_file);
    QVERIFY(!reread.damaged());
    QCOMPARE(reread.value(Settings, name).value_or(QStringLiteral("<absent>")), value);
}

void tst_HiveFile::namesCompareWithoutCase()
{
    HiveFile hive(m_file);
    hive.setValue(QStringLiteral("Software\\Mensura\\User\\OnOff\\Length"), QStringLiteral("OnOff"),
        QStringLiteral("0"));
    QCOMPARE(hive.value(QStringLiteral("software\\mensura\\user\\onoff\\LENGTH"),
                     QStringLiteral("onoff"))
                 .value_or(QString()),
        QStringLiteral("0"));
    hive.setValue(QStringLiteral("SOFTWARE\\Mensura\\User\\OnOff\\Length"), QStringLiteral("ONOFF"),
        QStringLiteral("1"));
    QCOMPARE(hive.values(QStringLiteral("Software\\Mensura\\User\\OnOff\\Length")).size(), 1);
}

void tst_HiveFile::keysKeepTheirOrderAndDeleteWithTheirChildren()
{
    HiveFile hive(m_file);
    const QString quans = QStringLiteral("Software\\Mensura\\User\\NewQuans");
    for (const char *name : { "Zeta", "alpha", "Mid" })
        hive.setValue(
            quans + u'\\' + QLatin1String(name), QStringLiteral("OnOff"), QStringLiteral("1"));
    QCOMPARE(hive.subKeys(quans), QStringList({ "Zeta", "alpha", "Mid" }));
    QVERIFY(hive.flush());
    HiveFile reread(m_file);
    QCOMPARE(reread.subKeys(quans), QStringList({ "Zeta", "alpha", "Mid" }));
    QCOMPARE(reread.subKeys(QStringLiteral("Software\\Mensura")), QStringList({ "User" }));

    QVERIFY(reread.deleteTree(QStringLiteral("Software\\Mensura\\User")));
    QVERIFY(reread.subKeys(quans).isEmpty());
    QVERIFY(!reread.value(quans + QStringLiteral("\\Mid"), QStringLiteral("OnOff")));
    QVERIFY(!reread.deleteTree(QStringLiteral("Software\\Mensura\\User")));
    QCOMPARE(reread.subKeys(QStringLiteral("Software")), QStringList({ "Mensura" }));
}

void tst_HiveFile::readsARegistryExport_data()
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
    QByteArray utf16("\xff\xfe");
    for (QChar c : text)
        utf16 += char(c.unicode() & 0xff), utf16 += char(c.unicode() >> 8);
    QTest::newRow("UTF-16 as regedit exports") << utf16;
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with byte-order mark") << QByteArray("\xef\xbb\xbf") + text.toUtf8();
    QTest::newRow("LF line ends") << text.toUtf8().replace("\r\n", "\n");
}

void tst_HiveFile::readsARegistryExport()
{
    QFETCH(QByteArray, bytes);
    HiveFile hive(write(bytes));
    QVERIFY(!hive.damaged());
    QCOMPARE(hive.value(Settings, QStringLiteral("currunit1")).value_or(QString()),
        QStringLiteral("inch (in)"));
    QCOMPARE(hive.value(Settings, QStringLiteral("shellprog")).value_or(QString()),
        QStringLiteral("C:\\WINDOWS\\system32\\calc.exe"));
    QCOMPARE(
        hive.value(Settings, QStringLiteral("currunit2")).value_or(QString()), QString(QChar(0)));
    QCOMPARE(
        hive.value(Settings, QStringLiteral("note")).value_or(QString()), QStringLiteral("a\nb"));
    QCOMPARE(
        hive.value(Settings, QStringLiteral("count")).value_or(QString()), QStringLiteral("26"));
    QCOMPARE(hive.value(Settings, QString()).value_or(QString()), QStringLiteral("default"));
}

void tst_HiveFile::damagedFileIsReadAsFarAsItMakesSense_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("kept"); // the value of "a" that survives
    const QByteArray good = "Windows Registry Editor Version 5.00\r\n\r\n"
                            "[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\r\n\"a\"=\"1\"\r\n";
    QTest::newRow("truncated in a value") << good + "\"b\"=\"unfinish"
                                          << "1";
    QTest::newRow("truncated in a key line") << good + "[HKEY_CURRENT_USER\\Softw"
                                             << "1";
    QTest::newRow("binary garbage after the values")
        << good + QByteArray("\x00\xff\xfe\x01\x9c garbage\r\n\x7f", 17) << "1";
    QTest::newRow("unknown escape") << good + "\"b\"=\"tab\\there\"\r\n"
                                    << "1";
    QTest::newRow("duplicate key, the last value counts")
        << good + "[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\r\n\"a\"=\"2\"\r\n"
        << "2";
    QTest::newRow("no header") << QByteArray(good).remove(0, 40) << "1";
    QTest::newRow("values before any key") << "\"x\"=\"y\"\r\n" + good << "1";
    QTest::newRow("key of another hive")
        << good + "[HKEY_LOCAL_MACHINE\\Software\\Evil]\r\n\"a\"=\"9\"\r\n"
        << "1";
    QTest::newRow("bad hex") << good + "\"b\"=hex(1):zz,00\r\n"
                             << "1";
}

void tst_HiveFile::damagedFileIsReadAsFarAsItMakesSense()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, kept);
    HiveFile hive(write(bytes));
    QVERIFY(hive.damaged());
    QCOMPARE(hive.value(Settings, QStringLiteral("a")).value_or(QString()), kept);
}

void tst_HiveFile::damagedFileIsKeptBeforeItIsOverwritten()
{
    const QByteArray damaged
        = "Windows Registry Editor Version 5.00\r\n\r\n"
          "[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\r\n\"a\"=\"1\"\r\n\"b\"=\"cut";
    HiveFile hive(write(damaged));
    hive.setValue(Settings, QStringLiteral("c"), QStringLiteral("3"));
    QVERIFY(hive.flush());
    QFile backup(m_file + QStringLiteral(".bad"));
    QVERIFY(backup.open(QIODevice::ReadOnly));
    QCOMPARE(backup.readAll(), damaged);
    // The next save does not overwrite the kept original with the repaired file.
    hive.setValue(Settings, QStringLiteral("d"), QStringLiteral("4"));
    QVERIFY(hive.flush());
    backup.close();
    QVERIFY(backup.open(QIODevice::ReadOnly));
    QCOMPARE(backup.readAll(), damaged);
    HiveFile reread(m_file);
    QVERIFY(!reread.damaged());
    QCOMPARE(reread.value(Settings, QStringLiteral("a")).value_or(QString()), QStringLiteral("1"));
    QCOMPARE(reread.value(Settings, QStringLiteral("d")).value_or(QString()), QStringLiteral("4"));
}

void tst_HiveFile::savedDamagedFileReadsBackWhole_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = "Windows Registry Editor Version 5.00\r\n\r\n"
                            "[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\r\n\"a\"=\"1\"\r\n";
    QTest::newRow("NUL in a key name")
        << good + QByteArray("[HKEY_CURRENT_USER\\Software\\Mensura\\x\0y]\r\n\"b\"=\"2\"\r\n", 51);
    QTest::newRow("NUL in a value name") << good + QByteArray("\"b\0c\"=\"2\"\r\n", 11);
}

void tst_HiveFile::savedDamagedFileReadsBackWhole()
{
    // What is kept of a damaged file must save as a file that reads back undamaged, or every
    // later start would take its own file for a damaged one.
    QFETCH(QByteArray, bytes);
    HiveFile hive(write(bytes));
    QVERIFY(hive.damaged());
    QVERIFY(hive.flush());
    HiveFile reread(m_file);
    QVERIFY(!reread.damaged());
    QCOMPARE(reread.serialize(), hive.serialize());
    QCOMPARE(reread.value(Settings, QStringLiteral("a")).value_or(QString()), QStringLiteral("1"));
}

void tst_HiveFile::unwritableFolderReportsAnError()
{
    // A folder that cannot be made: its parent is a file. (Permissions do not stop root.)
    QFile blocker(m_dir.filePath(QStringLiteral("blocker")));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    HiveFile hive(m_dir.filePath(QStringLiteral("blocker/sub/registry.reg")));
    hive.setValue(Settings, QStringLiteral("a"), QStringLiteral("1"));
    QVERIFY(!hive.flush());
    QVERIFY(!hive.errorText().isEmpty());
    QCOMPARE(hive.value(Settings, QStringLiteral("a")).value_or(QString()), QStringLiteral("1"));
}

void tst_HiveFile::readOnlyHiveNeverWrites()
{
    HiveFile hive(m_file, true);
    hive.setValue(Settings, QStringLiteral("a"), QStringLiteral("1"));
    QVERIFY(hive.flush());
    QVERIFY(!QFile::exists(m_file));
}

QTEST_GUILESS_MAIN(tst_HiveFile)
#include "tst_HiveFile.moc"

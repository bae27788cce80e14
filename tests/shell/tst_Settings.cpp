// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Loading the settings: defaults, the significant figures' bounds and stored garbage.
#include "shell/HiveFile.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QTemporaryDir>
#include <QTest>

class tst_Settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void firstRunGivesTheDefaults();
    void significantFigures_data();
    void significantFigures();
    void storedValuesAreRead_data();
    void storedValuesAreRead();
    void textThatIsNoNumberKeepsTheDefault_data();
    void textThatIsNoNumberKeepsTheDefault();
    void savedSettingsReadBack();

private:
    QTemporaryDir m_dir;
    std::unique_ptr<SettingsStore> m_store;
};

void tst_Settings::init()
{
    const QString file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(file);
    m_store = std::make_unique<SettingsStore>(std::make_unique<HiveFile>(file));
}

void tst_Settings::firstRunGivesTheDefaults()
{
    Settings settings;
    settings.SigFigs = 3;
    settings.Triads = false;
    QList<RuntimeError> problems;
    settings.LoadSettings(*m_store, &problems);
    settings.LoadSigFigs(*m_store, &problems);
    settings.LoadLastQuantity(*m_store);
    QVERIFY(problems.isEmpty());
    QCOMPARE(settings.SigFigs, 7);
    QCOMPARE(settings.MaxNumber, 1000.0);
    QCOMPARE(settings.MinNumber, 0.1);
    QCOMPARE(settings.Scientific, false);
    QCOMPARE(settings.Triads, true);
    QCOMPARE(settings.ShowTrayIcon, true);
    QCOMPARE(settings.ConfirmExit, true);
    QCOMPARE(settings.RememberLast, true);
    QCOMPARE(settings.ShowTabs, false);
    QCOMPARE(settings.UseWindowsCalc, 1);
    QCOMPARE(settings.LastValue, QStringLiteral("1"));
    QCOMPARE(settings.LastUnit1, QString());
    QCOMPARE(settings.LastQuantity, QStringLiteral("Length"));
    QVERIFY(m_store->subKeys(QString()).contains(QStringLiteral("settings")));
}

void tst_Settings::significantFigures_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("sigFigs");
    QTest::newRow("zero is kept") << "0" << 0;
    QTest::newRow("thirteen") << "13" << 13;
    QTest::newRow("fourteen becomes seven") << "14" << 7;
    QTest::newRow("negative becomes seven") << "-1" << 7;
    QTest::newRow("rounded half to even") << "4.5" << 4;
}

void tst_Settings::significantFigures()
{
    QFETCH(QString, stored);
    QFETCH(int, sigFigs);
    m_store->RegWriteString(Settings::Section, QStringLiteral("numericformatting"), stored);
    Settings settings;
    settings.LoadSigFigs(*m_store);
    QCOMPARE(settings.SigFigs, sigFigs);
}

void tst_Settings::storedValuesAreRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("readBack"); // the setting's stored text after loading
    QTest::newRow("true as -1") << "systray"
                                << "-1"
                                << "1";
    QTest::newRow("true as word") << "confirm"
                                  << "True"
                                  << "1";
    QTest::newRow("false as word") << "remember"
                                   << "false"
                                   << "0";
    QTest::newRow("scientific on") << "scientific"
                                   << "1"
                                   << "1";
    QTest::newRow("maximum") << "maxnumber"
                             << "1e+9"
                             << "1000000000";
    QTest::newRow("minimum") << "minnumber"
                             << "0.001"
                             << "0.001";
    QTest::newRow("unit with odd characters") << "currunit1"
                                              << "erg  (dyne-centimetre)"
                                              << "erg  (dyne-centimetre)";
    QTest::newRow("calculator choice") << "wincalc"
                                       << "0"
                                       << "0";
}

void tst_Settings::storedValuesAreRead()
{
    QFETCH(QString, name);
    QFETCH(QString, stored);
    QFETCH(QString, readBack);
    m_store->RegWriteString(Settings::Section, name, stored);
    Settings settings;
    QList<RuntimeError> problems;
    settings.LoadSettings(*m_store, &problems);
    QVERIFY(problems.isEmpty());
    QCOMPARE(settings.storedText(name), readBack);
}

void tst_Settings::textThatIsNoNumberKeepsTheDefault_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("fallback");
    QTest::addColumn<int>("error");
    QTest::newRow("maximum as words") << "maxnumber"
                                      << "a thousand"
                                      << "1000" << 13;
    QTest::newRow("boolean as words") << "triads"
                                      << "yes please"
                                      << "1" << 13;
    QTest::newRow("calculator choice too big") << "wincalc"
                                               << "1e20"
                                               << "1" << 6;
    QTest::newRow("empty number") << "minnumber"
                                  << ""
                                  << "0.1" << 13;
}

void tst_Settings::textThatIsNoNumberKeepsTheDefault()
{
    QFETCH(QString, name);
    QFETCH(QString, stored);
    QFETCH(QString, fallback);
    QFETCH(int, error);
    m_store->RegWriteString(Settings::Section, name, stored);
    Settings settings;
    QList<RuntimeError> problems;
    settings.LoadSettings(*m_store, &problems);
    QCOMPARE(settings.storedText(name), fallback);
    QCOMPARE(problems.size(), 1);
    QCOMPARE(problems[0].number, error);
    // The message names the value so that the user can find it.
    QVERIFY(problems[0].messageText().startsWith(QStringLiteral("Error # %1\n").arg(error)));
    QVERIFY(problems[0].messageText().contains(name));
}

void tst_Settings::savedSettingsReadBack()
{
    Settings settings;
    settings.MaxNumber = 5e8;
    settings.Scientific = true;
    settings.ShellProgram = QStringLiteral("/usr/bin/gnome-calculator");
    settings.SigFigs = 11;
    for (const char *name : { "maxnumber", "scientific", "shellprog", "numericformatting" })
        settings.save(*m_store, QLatin1String(name));
    Settings loaded;
    loaded.LoadSettings(*m_store);
    loaded.LoadSigFigs(*m_store);
    QCOMPARE(loaded.MaxNumber, 5e8);
    QCOMPARE(loaded.Scientific, true);
    QCOMPARE(loaded.ShellProgram, QStringLiteral("/usr/bin/gnome-calculator"));
    QCOMPARE(loaded.SigFigs, 11);
}

QTEST_GUILESS_MAIN(tst_Settings)
#include "tst_Settings.moc"

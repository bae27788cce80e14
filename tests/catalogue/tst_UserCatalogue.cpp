// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The user's own quantities and units merged into the catalogue, and written back.
#include "catalogue/Catalogue.h"
#include "catalogue/UserCatalogue.h"
#include "convert/ConversionEngine.h"
#include "shell/HiveFile.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class tst_UserCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void emptyUserBranchLeavesTheBuiltInCatalogue();
    void customUnitFlags_data();
    void customUnitFlags();
    void customQuantityWithItsUnits();
    void customUnitInTemperatureConvertsToZero();
    void unitsBeyondTheLimitAreNotLoaded();
    void savedCatalogueLoadsBackTheSame();

private:
    Catalogue load();
    QTemporaryDir m_dir;
    std::unique_ptr<SettingsStore> m_store;
};

void tst_UserCatalogue::init()
{
    const QString file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(file);
    m_store = std::make_unique<SettingsStore>(std::make_unique<HiveFile>(file));
}

Catalogue tst_UserCatalogue::load()
{
    Catalogue catalogue;
    catalogue.LoadCatalogue(*m_store);
    return catalogue;
}

void tst_UserCatalogue::emptyUserBranchLeavesTheBuiltInCatalogue()
{
    const Catalogue catalogue = load();
    QCOMPARE(catalogue.QuantityCount, 43);
    int units = 0;
    for (int q = 1; q <= catalogue.QuantityCount; ++q)
        units += catalogue.Quantities[q].UnitCount;
    QCOMPARE(units, 514);
}

void tst_UserCatalogue::customUnitFlags_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<int>("onOff");
    QTest::addColumn<int>("exact");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("factorText");
    QTest::newRow("a: enabled, inexact") << "a0.3048" << 1 << 0 << 0.3048 << "0.3048";
    QTest::newRow("b: disabled, inexact") << "b2.5" << 0 << 0 << 2.5 << "2.5";
    QTest::newRow("c: enabled, exact") << "c1E3" << 1 << 1 << 1000.0 << "1E3";
    QTest::newRow("d: disabled, exact") << "d4" << 0 << 1 << 4.0 << "4";
    QTest::newRow("other letter: disabled, inexact") << "z7" << 0 << 0 << 7.0 << "7";
    QTest::newRow("factor that is no number") << "aabc" << 1 << 0 << 0.0 << "abc";
}

void tst_UserCatalogue::customUnitFlags()
{
    QFETCH(QString, data);
    QFETCH(int, onOff);
    QFETCH(int, exact);
    QFETCH(double, factor);
    QFETCH(QString, factorText);
    m_store->RegWriteString(QStringLiteral("User\\Units\\Length"), QStringLiteral("smoot"), data);
    const Catalogue catalogue = load();
    const int length = catalogue.findQuantity(QStringLiteral("Length"));
    QCOMPARE(catalogue.Quantities[length].UnitCount, 48);
    const UnitEntry &u = catalogue.Units[length][48];
    QCOMPARE(u.Name, QStringLiteral("smoot"));
    QCOMPARE(u.OnOff, onOff);
    QCOMPARE(u.Exact, exact);
    QCOMPARE(u.Factor, factor);
    QCOMPARE(u.FactorText, factorText);
    QCOMPARE(u.Custom, 1);
}

void tst_UserCatalogue::customQuantityWithItsUnits()
{
    m_store->RegWriteString(QStringLiteral("User\\NewQuans\\Data"), QStringLiteral("DefaultUnit"),
        QStringLiteral("byte"));
    m_store->RegWriteString(
        QStringLiteral("User\\NewQuans\\Cooking"), QStringLiteral("OnOff"), QStringLiteral("0"));
    m_store->RegWriteString(
        QStringLiteral("User\\Units\\Data"), QStringLiteral("byte"), QStringLiteral("c1"));
    m_store->RegWriteString(
        QStringLiteral("User\\Units\\Data"), QStringLiteral("bit"), QStringLiteral("c0.125"));
    m_store->RegWriteString(
        QStringLiteral("User\\Units\\Data"), QStringLiteral("kibibyte"), QStringLiteral("c1024"));
    const Catalogue catalogue = load();
    QCOMPARE(catalogue.QuantityCount, 45);
    const PhysicalQuantity &data = catalogue.Quantities[44];
    QCOMPARE(data.Name, QStringLiteral("Data"));
    QCOMPARE(data.DefaultUnit, QStringLiteral("byte"));
    QCOMPARE(data.Custom, 1);
    QCOMPARE(data.OnOff, 1);
    QCOMPARE(data.UnitCount, 3);
    QCOMPARE(catalogue.enabledUnitNames(44), QStringList({ "byte", "bit", "kibibyte" }));
    QCOMPARE(catalogue.Quantities[45].Name, QStringLiteral("Cooking"));
    QCOMPARE(catalogue.Quantities[45].OnOff, 0);
    QCOMPARE(catalogue.Quantities[45].UnitCount, 0);

    Catalogue current = catalogue;
    current.CurrentQuantity = 44;
    Settings settings;
    Session session;
    const ConversionEngine engine(current, settings, session);
    QCOMPARE(
        engine.UpdateResult(QStringLiteral("kibibyte"), QStringLiteral("bit"), QStringLiteral("1"))
            .text,
        QStringLiteral("8.192 000 E+3"));
}

void tst_UserCatalogue::customUnitInTemperatureConvertsToZero()
{
    m_store->RegWriteString(QStringLiteral("User\\Units\\Temperature"), QStringLiteral("Réaumur"),
        QStringLiteral("a1.25"));
    Catalogue catalogue = load();
    const int q = catalogue.findQuantity(QStringLiteral("Temperature"));
    QVERIFY(catalogue.enabledUnitNames(q).contains(QStringLiteral("Réaumur")));
    catalogue.CurrentQuantity = q;
    Settings settings;
    Session session;
    const ConversionEngine engine(catalogue, settings, session);
    QCOMPARE(engine
                 .UpdateResult(QStringLiteral("Celsius (°C)"), QStringLiteral("Réaumur"),
                     QStringLiteral("100"))
                 .text,
        QStringLiteral("0.000 000 E+0"));
}

void tst_UserCatalogue::unitsBeyondTheLimitAreNotLoaded()
{
    SettingsStore::Batch batch(*m_store);
    for (int i = 0; i < 60; ++i)
        m_store->RegWriteString(QStringLiteral("User\\Units\\Angle"),
            QStringLiteral("unit %1").arg(i), QStringLiteral("a1"));
    const Catalogue catalogue = load();
    QCOMPARE(catalogue.Quantities[catalogue.findQuantity(QStringLiteral("Angle"))].UnitCount,
        Catalogue::MaxUnits);
}

void tst_UserCatalogue::savedCatalogueLoadsBackTheSame()
{
    Catalogue edited = load();
    const int mass = edited.findQuantity(QStringLiteral("Mass"));
    edited.Quantities[mass].OnOff = 0;
    edited.Units[mass][3].OnOff = 0;
    edited.resize(44);
    PhysicalQuantity &custom = edited.Quantities[44];
    custom = PhysicalQuantity { QStringLiteral("Fuel \"economy\" [odd] = name"), 1, 2,
        QStringLiteral("km per litre"), 1 };
    edited.Units[44][1]
        = UnitEntry { QStringLiteral("km per litre"), 1, 1, 1.0, 1, QStringLiteral("1") };
    edited.Units[44][2] = UnitEntry { QStringLiteral("  mile\\gallon (US)  "), 0, 1,
        0.425143707430272, 0, QStringLiteral("0.425143707430272") };
    const int length = edited.findQuantity(QStringLiteral("Length"));
    const int slot = ++edited.Quantities[length].UnitCount;
    edited.Units[length][slot]
        = UnitEntry { QStringLiteral("пядь"), 1, 1, 0.1778, 1, QStringLiteral("0.1778") };

    UserCatalogue::SaveUserCatalogue(edited, *m_store);
    const Catalogue loaded = load();
    QCOMPARE(loaded.QuantityCount, 44);
    for (int q = 1; q <= 44; ++q) {
        QCOMPARE(loaded.Quantities[q].Name, edited.Quantities[q].Name);
        QCOMPARE(loaded.Quantities[q].OnOff, edited.Quantities[q].OnOff);
        QCOMPARE(loaded.Quantities[q].UnitCount, edited.Quantities[q].UnitCount);
        QCOMPARE(loaded.Quantities[q].DefaultUnit, edited.Quantities[q].DefaultUnit);
        for (int j = 1; j <= loaded.Quantities[q].UnitCount; ++j) {
            const UnitEntry &a = loaded.Units[q][j], &b = edited.Units[q][j];
            QCOMPARE(a.Name, b.Name);
            QCOMPARE(a.OnOff, b.OnOff);
            QCOMPARE(a.Exact, b.Exact);
            QCOMPARE(a.FactorText, b.FactorText);
            QCOMPARE(a.Factor, b.Factor);
        }
    }
}

QTEST_GUILESS_MAIN(tst_UserCatalogue)
#include "tst_UserCatalogue.moc"

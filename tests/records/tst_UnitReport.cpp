// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One value converted into every unit: the value text is read leniently, the units keep their
// order, and a message the conversions raise is passed on once.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/ConversionEngine.h"
#include "records/UnitReport.h"
#include "shell/HiveFile.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QTemporaryDir>
#include <QTest>

class tst_UnitReport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void convert_data();
    void convert();

private:
    QTemporaryDir temp;
    Catalogue catalogue;
    Settings settings;
    Session session;
};

void tst_UnitReport::initTestCase()
{
    SettingsStore store(std::make_unique<HiveFile>(temp.filePath("hive.reg")));
    catalogue.LoadCatalogue(store);
    catalogue.CurrentQuantity = catalogue.findQuantity("Temperature");
    QVERIFY(catalogue.CurrentQuantity > 0);
}

void tst_UnitReport::convert_data()
{
    QTest::addColumn<QString>("valueText");
    QTest::addColumn<double>("value"); // what the text reads as
    QTest::addColumn<int>("notices");
    QTest::newRow("plain number") << "100" << 100.0 << 0;
    QTest::newRow("number followed by text") << "37.5 degrees" << 37.5 << 0;
    QTest::newRow("no number reads as 0") << "warm" << 0.0 << 0;
    QTest::newRow("below absolute zero warns once") << "-500" << -500.0 << 1;
}

void tst_UnitReport::convert()
{
    QFETCH(QString, valueText);
    QFETCH(double, value);
    QFETCH(int, notices);
    const ConversionEngine engine(catalogue, settings, session);
    QStringList units = catalogue.enabledUnitNames(catalogue.CurrentQuantity);
    std::reverse(units.begin(), units.end());
    const QString from = units.at(1);

    QList<Notice> raised;
    const UnitReport report
        = UnitReport::convert(engine, valueText, from, "Temperature", units, &raised);
    QCOMPARE(report.fromValue, valueText);
    QCOMPARE(report.fromUnit, from);
    QCOMPARE(report.quantity, QStringLiteral("Temperature"));
    QCOMPARE(report.lines.size(), units.size());
    for (int i = 0; i < units.size(); ++i) {
        QCOMPARE(report.lines[i].toUnit, units[i]);
        QCOMPARE(report.lines[i].toValue, engine.convertCaught(from, units[i], value).text);
    }
    QCOMPARE(raised.size(), notices);
}

QTEST_GUILESS_MAIN(tst_UnitReport)
#include "tst_UnitReport.moc"

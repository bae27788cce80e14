// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The find dialog's lines, its prefix search and the taking apart of a chosen line.
#include "find/TestCatalogue.h"
#include "find/UnitSearch.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <QTemporaryDir>
#include <QTest>

class tst_UnitSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsEnabledUnitsOfEnabledQuantitiesInCatalogueOrder();
    void totalCountsQuantitiesAndLines();
    void find_data();
    void find();
    void parseLine_data();
    void parseLine();
    void everyBuiltinLineLeadsBackToItsUnit();
    void fullCustomQuantitiesAreListed();
};

void tst_UnitSearch::listsEnabledUnitsOfEnabledQuantitiesInCatalogueOrder()
{
    const Catalogue catalogue = makeCatalogue({
        { QStringLiteral("Length"),
            { QStringLiteral("metre (m)"), QStringLiteral("-fermi"),
                QStringLiteral("inch (in)") } },
        { QStringLiteral("-Angle"), { QStringLiteral("radian (rad)") } },
        { QStringLiteral("Area"), { QStringLiteral("acre") } },
    });
    const UnitSearch search(catalogue);
    const QStringList expected { QStringLiteral("metre (m) [Length]"),
        QStringLiteral("inch (in) [Length]"), QStringLiteral("acre [Area]") };
    QCOMPARE(search.lines(), expected);
}

void tst_UnitSearch::totalCountsQuantitiesAndLines()
{
    // An enabled quantity whose units are all switched off still counts as a quantity.
    const Catalogue catalogue = makeCatalogue({
        { QStringLiteral("Length"), { QStringLiteral("metre"), QStringLiteral("inch") } },
        { QStringLiteral("Angle"), { QStringLiteral("-radian") } },
        { QStringLiteral("-Area"), { QStringLiteral("acre") } },
        { QStringLiteral("Mass"), { QStringLiteral("gram") } },
    });
    const UnitSearch search(catalogue);
    QCOMPARE(search.quantityCount(), 3);
    QCOMPARE(search.totalText(), QStringLiteral("Total: 3 quantities and 3 units"));
}

void tst_UnitSearch::find_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");

    QTest::newRow("exact start") << "inch" << 1;
    QTest::newRow("capitals find small letters") << "IN" << 1;
    QTest::newRow("small letters find capitals") << "kelvin" << 3;
    QTest::newRow("the first of several matches") << "m" << 0;
    QTest::newRow("a later line when earlier ones differ") << "mil" << 2;
    QTest::newRow("across the quantity bracket") << "inch (in) [le" << 1;
    QTest::newRow("the whole line") << "Kelvin (K) [Temperature]" << 3;
    QTest::newRow("no unit begins so") << "xyz" << -1;
    QTest::newRow("inside a name is no match") << "nch" << -1;
    QTest::newRow("longer than every line") << "inch (in) [Length] and more" << -1;
    QTest::newRow("empty text finds the first line") << "" << 0;
    QTest::newRow("non-ASCII letters ignore case") << "ÅNG" << 4;
}

void tst_UnitSearch::find()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    const Catalogue catalogue = makeCatalogue({
        { QStringLiteral("Length"),
            { QStringLiteral("metre (m)"), QStringLiteral("inch (in)"), QStringLiteral("mil") } },
        { QStringLiteral("Temperature"),
            { QStringLiteral("Kelvin (K)"), QStringLiteral("ångström (Å)") } },
    });
    QCOMPARE(UnitSearch(catalogue).find(text), expected);
}

void tst_UnitSearch::parseLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("parsed");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("quantity");

    QTest::newRow("plain line") << "inch (in) [Length]" << true << "inch (in)"
                                << "Length";
    QTest::newRow("quantity of several words")
        << "kip per square inch (ksi) [Pressure or Stress]" << true << "kip per square inch (ksi)"
        << "Pressure or Stress";
    QTest::newRow("a '[' in the unit's name splits there")
        << "widget [old] [Things]" << true << "widget"
        << "old] [Things";
    QTest::newRow("a line without '['") << "inch" << false << ""
                                        << "";
    QTest::newRow("a '[' first leaves no unit") << "[Length]" << true << ""
                                                << "Length";
}

void tst_UnitSearch::parseLine()
{
    QFETCH(QString, line);
    QFETCH(bool, parsed);
    QFETCH(QString, unit);
    QFETCH(QString, quantity);
    UnitSearch::Target target;
    QCOMPARE(UnitSearch::parseLine(line, &target), parsed);
    if (parsed) {
        QCOMPARE(target.unit, unit);
        QCOMPARE(target.quantity, quantity);
    }
}

void tst_UnitSearch::everyBuiltinLineLeadsBackToItsUnit()
{
    QTemporaryDir dir;
    SettingsStore store(std::make_unique<HiveFile>(dir.filePath(QStringLiteral("hive.reg"))));
    Catalogue catalogue;
    catalogue.LoadCatalogue(store);
    const UnitSearch search(catalogue);

    int enabledUnits = 0;
    for (int q = 1; q <= catalogue.QuantityCount; ++q)
        if (catalogue.quantity(q).enabled())
            enabledUnits += int(catalogue.enabledUnitNames(q).size());
    QCOMPARE(search.lines().size(), enabledUnits);
    QVERIFY(enabledUnits > 0);

    for (int i = 0; i < search.lines().size(); ++i) {
        const QString &line = search.lines().at(i);
        UnitSearch::Target target;
        QVERIFY2(UnitSearch::parseLine(line, &target), qPrintable(line));
        const int q = catalogue.findQuantity(target.quantity);
        QVERIFY2(q > 0, qPrintable(line));
        QVERIFY2(catalogue.findUnit(q, target.unit) > 0, qPrintable(line));
        // Searching for a whole line finds that line or an identical one before it.
        const int found = search.find(line);
        QVERIFY2(found >= 0 && found <= i, qPrintable(line));
    }
}

void tst_UnitSearch::fullCustomQuantitiesAreListed()
{
    // Ten custom quantities of 55 units each on top of a built-in sized catalogue.
    std::vector<std::pair<QString, QStringList>> quantities;
    for (int q = 1; q <= 53; ++q) {
        QStringList units;
        const int count = q <= 43 ? 12 : Catalogue::MaxUnits;
        for (int j = 1; j <= count; ++j)
            units.append(QStringLiteral("unit %1 of %2").arg(j).arg(q));
        quantities.emplace_back(QStringLiteral("Quantity %1").arg(q), units);
    }
    const UnitSearch search(makeCatalogue(quantities));
    QCOMPARE(search.lines().size(), 43 * 12 + 10 * Catalogue::MaxUnits);
    QCOMPARE(search.find(QStringLiteral("UNIT 55 OF 53")), int(search.lines().size()) - 1);
    QCOMPARE(search.find(QStringLiteral("unit 56")), -1);
}

QTEST_GUILESS_MAIN(tst_UnitSearch)
#include "tst_UnitSearch.moc"

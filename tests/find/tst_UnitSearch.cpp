// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The find dialog's lines, its prefix search (the cases are in find_texts.tsv) and the taking
// apart of a chosen line.
#include "convert/TestTable.h"
#include "find/TestCatalogue.h"
#include "find/UnitSearch.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"
#include "support/DataRows.h"

#include <QTemporaryDir>
#include <QTest>

class tst_UnitSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsEnabledUnitsOfEnabledQuantitiesInCatalogueOrder();
    void find_data();
    void find();
    void parseLine_data();
    void parseLine();
    void everyBuiltinLineLeadsBackToItsUnit();
};

// Enabled units of enabled quantities in catalogue order; an enabled quantity whose units are
// all switched off still counts as a quantity.
void tst_UnitSearch::listsEnabledUnitsOfEnabledQuantitiesInCatalogueOrder()
{
    const UnitSearch search(makeCatalogue({
        { "Length", { "metre (m)", "-fermi", "inch (in)" } },
        { "-Angle", { "radian (rad)" } },
        { "Area", { "acre", "are" } },
        { "Mass", { "-gram" } },
    }));
    QCOMPARE(search.lines(),
        QStringList({ "metre (m) [Length]", "inch (in) [Length]", "acre [Area]", "are [Area]" }));
    QCOMPARE(search.quantityCount(), 3);
    QCOMPARE(search.totalText(), QStringLiteral("Total: 3 quantities and 4 units"));
}

void tst_UnitSearch::find_data()
{
    addTestTableRows("find_texts.tsv", 3);
}

void tst_UnitSearch::find()
{
    QFETCH(QStringList, fields); // text, line found
    const Catalogue catalogue = makeCatalogue({
        { "Length", { "metre (m)", "inch (in)", "mil" } },
        { "Temperature", { "Kelvin (K)", "ångström (Å)" } },
    });
    QCOMPARE(UnitSearch(catalogue).find(fields[0]), fields[1].toInt());
}

void tst_UnitSearch::parseLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("unit"); // "-": the line is refused
    QTest::addColumn<QString>("quantity");
    const char *const rows[][4] = {
        { "plain line", "inch (in) [Length]", "inch (in)", "Length" },
        { "quantity of several words", "kip per square inch (ksi) [Pressure or Stress]",
            "kip per square inch (ksi)", "Pressure or Stress" },
        { "a '[' in the unit's name splits there", "widget [old] [Things]", "widget",
            "old] [Things" },
        { "a line without '['", "inch", "-", "" },
        { "a '[' first leaves no unit", "[Length]", "", "Length" },
    };
    addTextRows(rows);
}

void tst_UnitSearch::parseLine()
{
    QFETCH(QString, line);
    QFETCH(QString, unit);
    QFETCH(QString, quantity);
    UnitSearch::Target target;
    QCOMPARE(UnitSearch::parseLine(line, &target), unit != QStringLiteral("-"));
    if (unit != QStringLiteral("-"))
        QCOMPARE(target.unit + u'|' + target.quantity, unit + u'|' + quantity);
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

QTEST_GUILESS_MAIN(tst_UnitSearch)
#include "tst_UnitSearch.moc"

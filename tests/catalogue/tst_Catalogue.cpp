// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The string table's file format (string_table_lines.tsv) and compiled-in texts. The catalogue as
// loaded: the built-in one from the string table, its shape against the table of quantities in
// builtin_quantities.tsv with the invariants of every unit, the units in telling_units.tsv as
// published; the on/off state from the settings store (stored_on_off.tsv); the user's own
// quantities and units merged in, as many as a quantity holds, and written back.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "catalogue/UserCatalogue.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include "convert/TestTable.h"

#include <QSet>
#include <QTemporaryDir>
#include <QTest>

class tst_Catalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void stringTableLines_data();
    void stringTableLines();
    void compiledInStringsKeepTheirBlanks();
    void quantities_data();
    void quantities();
    void tellingUnits_data();
    void tellingUnits();
    void storedOnOff_data();
    void storedOnOff();
    void customQuantityWithItsUnits();
    void savedCatalogueLoadsBackTheSame();

private:
    QTemporaryDir m_dir;
    std::unique_ptr<SettingsStore> m_store;
    Catalogue m_catalogue;
};

void tst_Catalogue::init()
{
    const QString file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(file);
    m_store = std::make_unique<SettingsStore>(std::make_unique<HiveFile>(file));
    m_catalogue = Catalogue();
    m_catalogue.LoadCatalogue(*m_store);
}

// The quantities from the one numbered first on, a line each (name|on|custom|default unit),
// each followed by a line for each of its units (name|on, exact and custom|factor text|factor).
static QStringList describe(const Catalogue &catalogue, int first)
{
    QStringList lines;
    for (int q = first; q <= catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = catalogue.Quantities[q];
        lines << QStringList { quantity.Name, QString::number(quantity.OnOff),
            QString::number(quantity.Custom), quantity.DefaultUnit }
                     .join(u'|');
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            const UnitEntry &u = catalogue.Units[q][j];
            lines << QStringLiteral("  ") + u.Name
                    + QStringLiteral("|%1%2%3|").arg(u.OnOff).arg(u.Exact).arg(u.Custom)
                    + u.FactorText + u'|' + QString::number(u.Factor, 'g', 15);
        }
    }
    return lines;
}

void tst_Catalogue::stringTableLines_data()
{
    addTestTableRows("string_table_lines.tsv", 4);
}

void tst_Catalogue::stringTableLines()
{
    QFETCH(QStringList, fields); // line, id, text
    const int id = fields[1].toInt();
    const auto table
        = StringTable::parse("# comment\r\n\r\n" + fields[0].toUtf8() + "\nnot a line\n7\tlast");
    QCOMPARE(table.size(), id ? 2 : 1);
    QCOMPARE(table.value(7), QStringLiteral("last"));
    if (id)
        QCOMPARE(table.value(id), fields[2]);
}

void tst_Catalogue::compiledInStringsKeepTheirBlanks()
{
    QCOMPARE(StringTable::text(401), QStringLiteral("Mark  "));
    QCOMPARE(StringTable::text(408), QStringLiteral(" Sci "));
    QCOMPARE(StringTable::text(136), QStringLiteral(" marked conversion(s) "));
    QVERIFY(!StringTable::contains(1));
    QCOMPARE(StringTable::text(1), QString());
}

void tst_Catalogue::quantities_data()
{
    addTestTableRows("builtin_quantities.tsv", 5);
}

void tst_Catalogue::quantities()
{
    QFETCH(QStringList, fields); // index, units, default unit, factors marked exact
    const int index = fields[0].toInt(), units = fields[1].toInt();
    const QString &defaultUnit = fields[2];
    QCOMPARE(m_catalogue.QuantityCount, 43);
    const PhysicalQuantity &q = m_catalogue.Quantities[index];
    QCOMPARE(q.Name, QString::fromUtf8(QTest::currentDataTag()));
    QCOMPARE(q.UnitCount, units);
    QCOMPARE(q.DefaultUnit, defaultUnit);
    QCOMPARE(q.OnOff, 1);
    QCOMPARE(q.Custom, 0);
    QVERIFY(!StringTable::contains(Catalogue::QuantityBase + 100 * index + units + 1));

    // Every unit: named once, without "[" (the find dialog's) or "," (the conversions file's);
    // exact when its factor text is marked "x" or it is the default unit (factor "1"); an
    // inexact factor written with enough digits to be worth its figures.
    int marks = 0;
    QSet<QString> names;
    for (int j = 1; j <= units; ++j) {
        const UnitEntry &u = m_catalogue.Units[index][j];
        const QString where = q.Name + QStringLiteral(": ") + u.Name;
        QVERIFY2(!names.contains(u.Name) && !u.Name.isEmpty() && u.Name == u.Name.trimmed()
                && !u.Name.contains(u'[') && !u.Name.contains(u','),
            qPrintable(where));
        names.insert(u.Name);
        QCOMPARE(u.OnOff, 1);
        QCOMPARE(u.Custom, 0);
        const bool isDefault = u.Name == defaultUnit;
        const QString written = StringTable::text(Catalogue::QuantityBase + 100 * index + 50 + j);
        marks += written.startsWith(u'x') ? 1 : 0;
        QVERIFY2(u.Exact == ((written.startsWith(u'x') || isDefault) ? 1 : 0), qPrintable(where));
        if (m_catalogue.isTemperature(index))
            continue;
        QVERIFY2(u.Factor > 0 && (u.Exact == 1 || u.FactorText.size() >= 6), qPrintable(where));
        QVERIFY(!isDefault || (u.FactorText == QStringLiteral("1") && u.Factor == 1.0));
    }
    QCOMPARE(marks, fields[3].toInt());
    QVERIFY(names.contains(defaultUnit));
}

void tst_Catalogue::tellingUnits_data()
{
    QTest::addColumn<QStringList>("fields");
    for (const QStringList &f :
        readTestTable(QStringLiteral(TEST_DATA_DIR "/telling_units.tsv"), 6))
        QTest::newRow(qPrintable(f[0] + QStringLiteral(": ") + f[2])) << f;
}

void tst_Catalogue::tellingUnits()
{
    QFETCH(QStringList, fields); // quantity, index, name, factor text, factor, exact
    const int q = m_catalogue.findQuantity(fields[0]);
    QVERIFY(q != 0);
    QCOMPARE(m_catalogue.findUnit(q, fields[2]), fields[1].toInt());
    const UnitEntry &u = m_catalogue.Units[q][fields[1].toInt()];
    QCOMPARE(u.FactorText, fields[3]);
    QCOMPARE(u.Factor, fields[4].toDouble());
    QCOMPARE(u.Exact, fields[5].toInt());
}

void tst_Catalogue::storedOnOff_data()
{
    addTestTableRows("stored_on_off.tsv", 6);
}

void tst_Catalogue::storedOnOff()
{
    QFETCH(QStringList, fields); // unit, name in another case, stored, on/off, reported
    const int unit = fields[0].toInt(), onOff = fields[3].toInt();
    const QString &stored = fields[2];
    const bool reported = fields[4] == QStringLiteral("1");
    const int length = m_catalogue.findQuantity(QStringLiteral("Length"));
    const QString name = unit ? m_catalogue.Units[length][unit].Name : QStringLiteral("OnOff");
    m_store->RegWriteString(QStringLiteral("User\\OnOff\\Length"),
        fields[1] == QStringLiteral("1") ? name.toUpper() : name, stored);
    Catalogue loaded;
    QList<RuntimeError> problems;
    loaded.LoadCatalogue(*m_store, &problems);
    QCOMPARE(unit ? loaded.Units[length][unit].OnOff : loaded.Quantities[length].OnOff, onOff);
    QCOMPARE(problems.size(), reported ? 1 : 0);
    if (reported)
        QCOMPARE(problems[0].messageText(),
            QStringLiteral("Error # 13\nType mismatch: \"%1\" is stored for \"%2\" in "
                           "\"User\\OnOff\\Length\"")
                .arg(stored, name));
    QCOMPARE(loaded.enabledUnitNames(length).size(), unit && onOff != 1 ? 46 : 47);
}

// The user's quantities come after the 43 built-in ones, and the user's units after the
// built-in units of their quantity, in the order they were stored. A unit's value is a flag
// letter and the factor text: a on, b off, c on and exact, d off and exact, anything else off.
void tst_Catalogue::customQuantityWithItsUnits()
{
    auto write = [this](const char *key, const char *name, const char *value) {
        m_store->RegWriteString(
            QString::fromUtf8(key), QString::fromUtf8(name), QString::fromUtf8(value));
    };
    write("User\\NewQuans\\Data", "DefaultUnit", "byte");
    write("User\\NewQuans\\Cooking", "OnOff", "0");
    write("User\\NewQuans\\Garden", "OnOff", "maybe");
    write("User\\Units\\Data", "byte", "c1");
    write("User\\Units\\Data", "a: on", "a0.125");
    write("User\\Units\\Data", "b: off", "b2.5");
    write("User\\Units\\Data", "c: on and exact", "c1E3");
    write("User\\Units\\Data", "d: off and exact", "d4");
    write("User\\Units\\Data", "another letter: off", "A7");
    write("User\\Units\\Data", "a factor that is no number", "aabc");
    write("User\\Units\\Data", "nothing stored", "");
    write("User\\Units\\Garden", "rod", "a5.0292");
    write("User\\Units\\Length", "smoot", "a1.7018");
    write("User\\Units\\Temperature", "Réaumur", "a1.25");
    for (int i = 0; i < 60; ++i) // more than a quantity holds
        write("User\\Units\\Angle", qPrintable(QStringLiteral("unit %1").arg(i)), "a1");
    Catalogue catalogue;
    QList<RuntimeError> problems;
    catalogue.LoadCatalogue(*m_store, &problems);
    QCOMPARE(catalogue.QuantityCount, 46);
    QCOMPARE(describe(catalogue, 44),
        QStringList({ "Data|1|1|byte", "  byte|111|1|1", "  a: on|101|0.125|0.125",
            "  b: off|001|2.5|2.5", "  c: on and exact|111|1E3|1000", "  d: off and exact|011|4|4",
            "  another letter: off|001|7|7", "  a factor that is no number|101|abc|0",
            "  nothing stored|001||0", "Cooking|0|1|",
            // An on/off that is no number is reported and leaves the quantity switched on.
            "Garden|1|1|", "  rod|101|5.0292|5.0292" }));
    QCOMPARE(problems.size(), 1);
    QCOMPARE(problems[0].messageText(),
        QStringLiteral("Error # 13\nType mismatch: \"maybe\" is stored for \"OnOff\" in "
                       "\"User\\NewQuans\\Garden\""));
    const int length = catalogue.findQuantity(QStringLiteral("Length"));
    QCOMPARE(catalogue.Quantities[length].UnitCount, 48);
    QCOMPARE(catalogue.Units[length][48].Name, QStringLiteral("smoot"));
    // A unit of the user's in Temperature is listed (the formulas convert it to nothing).
    QVERIFY(catalogue.enabledUnitNames(catalogue.findQuantity(QStringLiteral("Temperature")))
                .contains("Réaumur"));
    QCOMPARE(catalogue.Quantities[catalogue.findQuantity(QStringLiteral("Angle"))].UnitCount,
        Catalogue::MaxUnits);
    // A quantity number out of range names no units.
    QVERIFY(catalogue.enabledUnitNames(0).isEmpty() && catalogue.enabledUnitNames(47).isEmpty());
}

void tst_Catalogue::savedCatalogueLoadsBackTheSame()
{
    Catalogue edited = m_catalogue;
    const int mass = edited.findQuantity(QStringLiteral("Mass"));
    edited.Quantities[mass].OnOff = 0;
    edited.Units[mass][3].OnOff = 0;
    edited.resize(45);
    edited.Quantities[45] = PhysicalQuantity { QStringLiteral("Garden"), 0, 0, QString(), 1 };
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
    Catalogue loaded;
    loaded.LoadCatalogue(*m_store);
    QCOMPARE(loaded.QuantityCount, 45);
    QCOMPARE(describe(loaded, 1), describe(edited, 1));
}

QTEST_GUILESS_MAIN(tst_Catalogue)
#include "tst_Catalogue.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The options dialog's catalogue editor without a window: the rules and limits of every edit,
// the properties panel's texts and states, and the commit into a hive file and back.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "options/CatalogueEditor.h"
#include "shell/HiveFile.h"
#include "shell/Session.h"
#include "shell/SettingsStore.h"
#include "support/CountingHive.h"

#include <functional>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace
{

UnitEntry unit(const QString &name, const QString &factorText, int exact = 0, int custom = 0)
{
    UnitEntry u;
    u.Name = name;
    u.FactorText = factorText;
    u.Factor = NumberText::leadingNumber(factorText);
    u.Exact = exact;
    u.Custom = custom;
    return u;
}

QString text(int id)
{
    return StringTable::text(id);
}

} // namespace

class tst_CatalogueEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newQuantityName_data();
    void newQuantityName();
    void renamedQuantityKeepsItsNodeKey();
    void addUnit_data();
    void addUnit();
    void fiftyFifthUnitIsTheLast();
    void removingRenumbers();
    void properties_data();
    void properties();
    void twoUnitsOfOneNameShowTheFirst();
    void renamingTheDefaultUnitMovesTheDefault();
    void missingDefaultUnitBecomesTheFirstUnit();
    void everyEditSetsTheChangedFlag();
    void findProblem_data();
    void findProblem();
    void specialNamesSurviveTheStore_data();
    void specialNamesSurviveTheStore();
    void commitRewritesTheWholeKey_data();
    void commitRewritesTheWholeKey();
    void commitSavesOnce();
    void applyReplacesTheLiveCatalogue();

private:
    void addQuantity(
        const QString &name, const QList<UnitEntry> &units, int custom, const QString &defaultUnit);

    Catalogue m_catalogue;
    Session m_session;
    QTemporaryDir m_dir;
    int m_length = 0, m_temperature = 0, m_widgets = 0, m_rays = 0, m_empty = 0;
};

void tst_CatalogueEditor::addQuantity(
    const QString &name, const QList<UnitEntry> &units, int custom, const QString &defaultUnit)
{
    m_catalogue.resize(m_catalogue.QuantityCount + 1);
    PhysicalQuantity &q = m_catalogue.Quantities[m_catalogue.QuantityCount];
    q.Name = name;
    q.Custom = custom;
    q.DefaultUnit = defaultUnit;
    q.UnitCount = int(units.size());
    for (int j = 0; j < units.size(); ++j)
        m_catalogue.Units[m_catalogue.QuantityCount][j + 1] = units[j];
}

// Two built-in quantities and three of the user's, built by hand so that each case can name them.
void tst_CatalogueEditor::init()
{
    m_catalogue = Catalogue();
    m_session = Session();
    addQuantity(QStringLiteral("Length"),
        { unit(QStringLiteral("metre (m)"), QStringLiteral("1"), 1),
            unit(QStringLiteral("foot (ft)"), QStringLiteral("0.3048"), 1) },
        0, QStringLiteral("metre (m)"));
    m_length = 1;
    addQuantity(text(Catalogue::TemperatureNameId),
        { unit(QStringLiteral("Celsius (°C)"), QString(), 1),
            unit(QStringLiteral("kelvin (K)"), QString()),
            unit(QStringLiteral("Fahrenheit (°F)"), QString()),
            unit(QStringLiteral("Rankine (°R)"), QString()) },
        0, QStringLiteral("Celsius (°C)"));
    m_temperature = 2;
    addQuantity(QStringLiteral("Widgets"),
        { unit(QStringLiteral("widget"), QStringLiteral("1"), 1, 1),
            unit(QStringLiteral("gadget"), QStringLiteral("2.5"), 0, 1) },
        1, QStringLiteral("widget"));
    m_widgets = 3;
    addQuantity(QStringLiteral("Rays"), { unit(QStringLiteral("ray"), QStringLiteral("1"), 1, 1) },
        1, QStringLiteral("ray"));
    m_rays = 4;
    addQuantity(QStringLiteral("Empty"), {}, 1, QString());
    m_empty = 5;
}

void tst_CatalogueEditor::newQuantityName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("refusal"); // empty: accepted

    const QString inUse = text(5215) + u'\n' + text(5216);
    QTest::newRow("a new name is accepted") << "Speed" << QString();
    QTest::newRow("a name in use is refused") << "Length" << inUse;
    QTest::newRow("a custom quantity's name is refused") << "Widgets" << inUse;
    QTest::newRow("a name differing only in capitals would merge in the store")
        << "length" << text(5254).arg(QStringLiteral("length"), QStringLiteral("Length"));
    QTest::newRow("an empty name") << "" << text(5250);
    QTest::newRow("blanks only") << "   " << text(5250);
    QTest::newRow("a backslash") << "Speed\\Fast" << text(5251);
    QTest::newRow("a line break") << "Speed\nFast" << text(5252);
    QTest::newRow("a tab") << "Speed\tFast" << text(5252);
    QTest::newRow("256 characters") << QString(256, u'q') << text(5253);
    QTest::newRow("255 characters are accepted") << QString(255, u'q') << QString();
    QTest::newRow("quotes, brackets and an equals sign are accepted")
        << "He said \"x\" [a]=b" << QString();
    QTest::newRow("leading and trailing blanks are accepted") << " Speed " << QString();
    QTest::newRow("a non-Latin script is accepted") << "Скорость 速度" << QString();
}

void tst_CatalogueEditor::newQuantityName()
{
    QFETCH(QString, name);
    QFETCH(QString, refusal);
    CatalogueEditor editor(m_catalogue, m_session);
    const CatalogueEditor::Added added = editor.addQuantity(name, QStringLiteral("unit"));
    if (refusal.isEmpty()) {
        QVERIFY(!added.refusal);
        QCOMPARE(added.quantity, m_catalogue.QuantityCount + 1);
        QCOMPARE(editor.quantity(added.quantity).Name, name);
        QCOMPARE(editor.quantityNodeKey(added.quantity), u'p' + name);
        QVERIFY(m_session.CatalogueChanged);
    } else {
        QVERIFY(added.refusal);
        QCOMPARE(added.refusal->text, refusal);
        QCOMPARE(added.refusal->icon, Notice::Exclamation);
        QCOMPARE(editor.quantityCount(), m_catalogue.QuantityCount);
        QVERIFY(!m_session.CatalogueChanged);
    }
}

void tst_CatalogueEditor::renamedQuantityKeepsItsNodeKey()
{
    CatalogueEditor editor(m_catalogue, m_session);
    editor.renameQuantity(m_widgets, QStringLiteral("Gizmos"));
    QCOMPARE(editor.quantityNodeKey(m_widgets), QStringLiteral("pWidgets"));
    // The old name is still a node's key until the tree is rebuilt.
    QVERIFY(editor.checkNewQuantityName(QStringLiteral("Widgets")));
    editor.resetNodeKeys();
    QCOMPARE(editor.quantityNodeKey(m_widgets), QStringLiteral("pGizmos"));
    QVERIFY(!editor.checkNewQuantityName(QStringLiteral("Widgets")));
}

void tst_CatalogueEditor::addUnit_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("factorText");
    QTest::addColumn<QString>("refusal"); // empty: accepted
    QTest::addColumn<QString>("storedName");
    QTest::addColumn<double>("factor");

    const QString longName = QStringLiteral("A unit whose name goes on beyond forty characters");
    const QString emoji = QString(39, u'a') + QStringLiteral("😀b");
    QTest::newRow("a custom unit") << "Widgets"
                                   << "sprocket"
                                   << "0.35" << QString() << "sprocket" << 0.35;
    QTest::newRow("a name cut to 40 characters")
        << "Widgets" << longName << "2" << QString() << longName.left(40) << 2.0;
    QTest::newRow("the cut keeps a surrogate pair whole")
        << "Widgets" << emoji << "2" << QString() << QString(39, u'a') << 2.0;
    QTest::newRow("blanks inside the factor are skipped")
        << "Length"
        << "chain-ish"
        << "1 234.5" << QString() << "chain-ish" << 1234.5;
    QTest::newRow("an exponent") << "Length"
                                 << "kilo"
                                 << "1E3" << QString() << "kilo" << 1000.0;
    QTest::newRow("a name in use") << "Widgets"
                                   << "gadget"
                                   << "2" << text(5224) + "gadget" + text(5225) << QString() << 0.0;
    QTest::newRow("capitals differing from a built-in unit are another unit")
        << "Length"
        << "Metre (m)"
        << "1" << QString() << "Metre (m)" << 1.0;
    QTest::newRow("capitals differing from a custom unit would merge in the store")
        << "Widgets"
        << "Gadget"
        << "2" << text(5254).arg(QStringLiteral("Gadget"), QStringLiteral("gadget")) << QString()
        << 0.0;
    QTest::newRow("a factor that is no number") << "Widgets"
                                                << "w"
                                                << "abc" << text(5255) << QString() << 0.0;
    QTest::newRow("a zero factor") << "Widgets"
                                   << "w"
                                   << "0" << text(5255) << QString() << 0.0;
    QTest::newRow("a negative factor") << "Widgets"
                                       << "w"
                                       << "-2" << text(5255) << QString() << 0.0;
    QTest::newRow("a factor beyond a double") << "Widgets"
                                              << "w"
                                              << "1e999" << text(5235) << QString() << 0.0;
    QTest::newRow("a factor whose reciprocal overflows")
        << "Widgets"
        << "w"
        << "1e-320" << text(5235) << QString() << 0.0;
    QTest::newRow("a D exponent the figure count cannot read")
        << "Widgets"
        << "w"
        << "1D3" << text(5235) << QString() << 0.0;
}

void tst_CatalogueEditor::addUnit()
{
    QFETCH(QString, quantity);
    QFETCH(QString, typed);
    QFETCH(QString, factorText);
    QFETCH(QString, refusal);
    QFETCH(QString, storedName);
    QFETCH(double, factor);
    CatalogueEditor editor(m_catalogue, m_session);
    const int q = m_catalogue.findQuantity(quantity);
    const int before = editor.quantity(q).UnitCount;
    const CatalogueEditor::Added added = editor.addUnit(q, typed, factorText);
    if (!refusal.isEmpty()) {
        QVERIFY(added.refusal);
        QCOMPARE(added.refusal->text, refusal);
        QCOMPARE(editor.quantity(q).UnitCount, before);
        QVERIFY(!m_session.CatalogueChanged);
        return;
    }
    QVERIFY(!added.refusal);
    QCOMPARE(added.unit, before + 1);
    const UnitEntry &u = editor.unit(q, added.unit);
    QCOMPARE(u.Name, storedName);
    QCOMPARE(u.FactorText, factorText);
    QCOMPARE(u.Factor, factor);
    QCOMPARE(u.Custom, 1);
    QCOMPARE(u.OnOff, 1);
    QCOMPARE(u.Exact, 0);
    QCOMPARE(editor.unitIcon(q, added.unit), CatalogueEditor::EnabledUnitIcon);
}

void tst_CatalogueEditor::fiftyFifthUnitIsTheLast()
{
    CatalogueEditor editor(m_catalogue, m_session);
    for (int j = editor.quantity(m_widgets).UnitCount + 1; j <= Catalogue::MaxUnits; ++j)
        QVERIFY(!editor.addUnit(m_widgets, QStringLiteral("unit %1").arg(j), QStringLiteral("2"))
                     .refusal);
    QCOMPARE(editor.quantity(m_widgets).UnitCount, 55);
    QCOMPARE(editor.unit(m_widgets, 55).Name, QStringLiteral("unit 55"));
    const CatalogueEditor::Added refused
        = editor.addUnit(m_widgets, QStringLiteral("one too many"), QStringLiteral("2"));
    QVERIFY(refused.refusal);
    QCOMPARE(refused.refusal->text, text(5220));
    QCOMPARE(editor.quantity(m_widgets).UnitCount, 55);
}

void tst_CatalogueEditor::removingRenumbers()
{
    CatalogueEditor editor(m_catalogue, m_session);
    editor.addUnit(m_widgets, QStringLiteral("sprocket"), QStringLiteral("3"));
    editor.removeUnit(m_widgets, 2);
    QCOMPARE(editor.quantity(m_widgets).UnitCount, 2);
    QCOMPARE(editor.unit(m_widgets, 1).Name, QStringLiteral("widget"));
    QCOMPARE(editor.unit(m_widgets, 2).Name, QStringLiteral("sprocket"));
    QCOMPARE(editor.unit(m_widgets, 2).FactorText, QStringLiteral("3"));
    QVERIFY(editor.unit(m_widgets, 3).Name.isEmpty());

    editor.removeQuantity(m_widgets);
    QCOMPARE(editor.quantityCount(), m_catalogue.QuantityCount - 1);
    QCOMPARE(editor.quantity(m_widgets).Name, QStringLiteral("Rays"));
    QCOMPARE(editor.unit(m_widgets, 1).Name, QStringLiteral("ray"));
    QCOMPARE(editor.quantityNodeKey(m_widgets), QStringLiteral("pRays"));
    QVERIFY(editor.workingCopy().Units.size() == editor.quantityCount() + 1);
}

void tst_CatalogueEditor::properties_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("nodeText");
    QTest::addColumn<QString>("parentText");
    QTest::addColumn<QStringList>("enabled"); // the controls that apply
    QTest::addColumn<QString>("factorText");
    QTest::addColumn<QString>("comments");

    const QString temperature = text(Catalogue::TemperatureNameId);
    const QString indent = QStringLiteral("\n     ");
    QTest::newRow("the root") << "root"
                              << "Physical Quantities" << QString() << QStringList() << QString()
                              << QString();
    QTest::newRow("a built-in quantity")
        << "pLength"
        << "Length"
        << "Physical Quantities" << QStringList { "onOff", "addUnit" } << QString()
        << "Length has 2 units." + indent
            + "The default unit for this physical quantity is : metre (m).";
    QTest::newRow("a custom quantity of one unit")
        << "pRays"
        << "Rays"
        << "Physical Quantities" << QStringList { "name", "onOff", "addUnit", "removeQuantity" }
        << QString()
        << "Rays has 1 unit." + indent + "The default unit for this physical quantity is : ray.";
    QTest::newRow("a custom quantity without units")
        << "pEmpty"
        << "Empty"
        << "Physical Quantities" << QStringList { "name", "onOff", "addUnit", "removeQuantity" }
        << QString()
        << "Empty has 0 units." + indent + "The default unit for this physical quantity is : .";
    QTest::newRow("temperature") << "p" + temperature << temperature << "Physical Quantities"
                                 << QStringList { "onOff" } << QString()
                                 << temperature + " has 4 units." + indent
            + "You cannot add any units to this physical quantity.";
    QTest::newRow("a built-in unit")
        << "u1 2"
        << "foot (ft)"
        << "Length" << QStringList { "exactVisible", "onOff", "addUnit" } << "0.3048"
        << "This unit's conversion factor cannot be modified" + indent
            + "The default unit for Length is : metre (m).";
    QTest::newRow("a custom quantity's default unit")
        << "u3 1"
        << "widget"
        << "Widgets" << QStringList { "name", "exactVisible", "onOff", "addUnit" } << "1"
        << "This unit is the default unit, and therefore its conversion factor cannot be modified."
            + indent + "The default unit for Widgets is : widget.";
    QTest::newRow("a custom unit")
        << "u3 2"
        << "gadget"
        << "Widgets"
        << QStringList { "name", "factor", "exact", "exactVisible", "onOff", "addUnit",
               "removeUnit" }
        << "2.5"
        << "This unit is a custom unit, and therefore its conversion factor can be modified."
            + indent + "The default unit for Widgets is : widget.";
    QTest::newRow("a temperature unit")
        << "u2 2"
        << "kelvin (K)" << temperature << QStringList { "onOff" } << QString()
        << "kelvin (K)" + indent + "The default unit for " + temperature + " is : Celsius (°C).";
}

void tst_CatalogueEditor::properties()
{
    QFETCH(QString, key);
    QFETCH(QString, nodeText);
    QFETCH(QString, parentText);
    QFETCH(QStringList, enabled);
    QFETCH(QString, factorText);
    QFETCH(QString, comments);
    CatalogueEditor editor(m_catalogue, m_session);
    const CatalogueEditor::Properties p = editor.properties(key, nodeText, parentText);
    QStringList applying;
    const QList<QPair<const char *, bool>> flags = {
        { "name", p.nameEnabled },
        { "factor", p.factorEnabled },
        { "exact", p.exactEnabled },
        { "exactVisible", p.exactVisible },
        { "onOff", p.onOffEnabled },
        { "addUnit", p.addUnitEnabled },
        { "removeUnit", p.removeUnitEnabled },
        { "removeQuantity", p.removeQuantityEnabled },
    };
    for (const auto &[name, on] : flags)
        if (on)
            applying.append(QString::fromLatin1(name));
    QCOMPARE(applying, enabled);
    QCOMPARE(p.factorText, factorText);
    QCOMPARE(p.comments, comments);
    QCOMPARE(p.name, key == QStringLiteral("root") ? QString() : nodeText);
}

void tst_CatalogueEditor::twoUnitsOfOneNameShowTheFirst()
{
    CatalogueEditor editor(m_catalogue, m_session);
    const int j = editor.addUnit(m_widgets, QStringLiteral("sprocket"), QStringLiteral("7")).unit;
    editor.renameUnit(m_widgets, j, QStringLiteral("gadget"));
    const auto p = editor.properties(CatalogueEditor::unitKey(m_widgets, j),
        QStringLiteral("gadget"), QStringLiteral("Widgets"));
    QCOMPARE(p.unit, 2);
    QCOMPARE(p.factorText, QStringLiteral("2.5"));
}

void tst_CatalogueEditor::renamingTheDefaultUnitMovesTheDefault()
{
    CatalogueEditor editor(m_catalogue, m_session);
    editor.renameUnit(m_widgets, 1, QStringLiteral("doohickey"));
    QCOMPARE(editor.quantity(m_widgets).DefaultUnit, QStringLiteral("doohickey"));
    QCOMPARE(editor.unitIcon(m_widgets, 1), CatalogueEditor::DefaultUnitIcon);
    editor.renameUnit(m_widgets, 2, QStringLiteral("thingamajig"));
    QCOMPARE(editor.quantity(m_widgets).DefaultUnit, QStringLiteral("doohickey"));

    editor.setUnitOnOff(m_widgets, 1, 0);
    QCOMPARE(editor.unitIcon(m_widgets, 1), CatalogueEditor::DisabledDefaultUnitIcon);
    editor.setUnitOnOff(m_widgets, 1, 1);
    QCOMPARE(editor.unitIcon(m_widgets, 1), CatalogueEditor::DefaultUnitIcon);
}

void tst_CatalogueEditor::missingDefaultUnitBecomesTheFirstUnit()
{
    m_catalogue.Quantities[m_widgets].DefaultUnit = QStringLiteral("no such unit");
    CatalogueEditor editor(m_catalogue, m_session);
    QCOMPARE(editor.quantity(m_widgets).DefaultUnit, QStringLiteral("widget"));
    QCOMPARE(editor.unitIcon(m_widgets, 1), CatalogueEditor::DefaultUnitIcon);
    QVERIFY(!m_session.CatalogueChanged);

    // A quantity without units gets its first unit as default when one is added.
    QVERIFY(!editor.addUnit(m_empty, QStringLiteral("first"), QStringLiteral("3")).refusal);
    QCOMPARE(editor.quantity(m_empty).DefaultUnit, QStringLiteral("first"));
}

void tst_CatalogueEditor::everyEditSetsTheChangedFlag()
{
    const QList<std::function<void(CatalogueEditor &)>> edits = {
        [&](CatalogueEditor &e) { e.setQuantityOnOff(m_length, 1); }, // the same state again
        [&](CatalogueEditor &e) { e.setUnitOnOff(m_length, 2, 0); },
        [&](CatalogueEditor &e) { e.renameQuantity(m_widgets, QStringLiteral("Widgets")); },
        [&](CatalogueEditor &e) { e.renameUnit(m_widgets, 2, QStringLiteral("gizmo")); },
        [&](CatalogueEditor &e) { e.setFactorText(m_widgets, 2, QStringLiteral("4")); },
        [&](CatalogueEditor &e) { e.setExact(m_widgets, 2, 1); },
        [&](CatalogueEditor &e) { e.removeUnit(m_widgets, 2); },
        [&](CatalogueEditor &e) { e.removeQuantity(m_rays); },
    };
    for (int i = 0; i < edits.size(); ++i) {
        m_session.CatalogueChanged = false;
        CatalogueEditor editor(m_catalogue, m_session);
        edits[i](editor);
        QVERIFY2(m_session.CatalogueChanged, qPrintable(QString::number(i)));
    }
}

void tst_CatalogueEditor::findProblem_data()
{
    QTest::addColumn<int>("edit");
    QTest::addColumn<QString>("message"); // empty: nothing wrong
    QTest::addColumn<int>("quantity");
    QTest::addColumn<int>("unit");

    QTest::newRow("nothing wrong") << 0 << QString() << 0 << 0;
    QTest::newRow("a quantity renamed to nothing") << 1 << text(5250) << 3 << 0;
    QTest::newRow("a unit renamed to blanks") << 2 << text(5250) << 3 << 2;
    QTest::newRow("a unit renamed like another")
        << 3 << text(5224) + "widget" + text(5225) << 3 << 2;
    QTest::newRow("two custom units differing in capitals")
        << 4 << text(5254).arg(QStringLiteral("WIDGET"), QStringLiteral("widget")) << 3 << 2;
    QTest::newRow("a quantity renamed like a built-in one in other capitals")
        << 5 << text(5254).arg(QStringLiteral("LENGTH"), QStringLiteral("Length")) << 3 << 0;
    QTest::newRow("a quantity renamed with a backslash") << 6 << text(5251) << 4 << 0;
    QTest::newRow("a factor typed as 0") << 7 << text(5256).arg(QStringLiteral("gadget")) << 3 << 2;
    QTest::newRow("a factor typed as no number")
        << 8 << text(5256).arg(QStringLiteral("gadget")) << 3 << 2;
    QTest::newRow("a built-in unit may share capitals with a custom one")
        << 9 << QString() << 0 << 0;
}

void tst_CatalogueEditor::findProblem()
{
    QFETCH(int, edit);
    QFETCH(QString, message);
    QFETCH(int, quantity);
    QFETCH(int, unit);
    CatalogueEditor editor(m_catalogue, m_session);
    switch (edit) {
    case 1:
        editor.renameQuantity(m_widgets, QString());
        break;
    case 2:
        editor.renameUnit(m_widgets, 2, QStringLiteral("  "));
        break;
    case 3:
        editor.renameUnit(m_widgets, 2, QStringLiteral("widget"));
        break;
    case 4:
        editor.renameUnit(m_widgets, 2, QStringLiteral("WIDGET"));
        break;
    case 5:
        editor.renameQuantity(m_widgets, QStringLiteral("LENGTH"));
        break;
    case 6:
        editor.renameQuantity(m_rays, QStringLiteral("a\\b"));
        break;
    case 7:
        editor.setFactorText(m_widgets, 2, QStringLiteral("0"));
        break;
    case 8:
        editor.setFactorText(m_widgets, 2, QStringLiteral("lots"));
        break;
    case 9:
        editor.addUnit(m_length, QStringLiteral("FOOT (FT)"), QStringLiteral("0.3048"));
        break;
    }
    const auto problem = editor.findProblem();
    if (message.isEmpty()) {
        QVERIFY2(!problem, problem ? qPrintable(problem->notice.text) : "");
        return;
    }
    QVERIFY(problem);
    QCOMPARE(problem->notice.text, message);
    QCOMPARE(problem->quantity, quantity);
    QCOMPARE(problem->unit, unit);
}

void tst_CatalogueEditor::specialNamesSurviveTheStore_data()
{
    QTest::addColumn<QString>("quantityName");
    QTest::addColumn<QString>("unitName");

    QTest::newRow("quotes") << "The \"quoted\" one"
                            << "\"inch\"";
    QTest::newRow("a backslash in a unit name") << "Slashes"
                                                << "back\\slash\\";
    QTest::newRow("brackets") << "[Bracketed]"
                              << "]odd[";
    QTest::newRow("equals signs") << "a=b"
                                  << "=c=";
    QTest::newRow("leading and trailing blanks") << " Padded "
                                                 << "  unit  ";
    QTest::newRow("a semicolon and an at sign") << ";comment-like"
                                                << "@";
    QTest::newRow("a long quantity name") << QString(255, u'L') << QString(40, u'u');
    QTest::newRow("non-Latin scripts") << "Длина 長さ"
                                       << "aršin ℓ 尺";
    QTest::newRow("characters beyond the basic plane") << "Emoji 📏"
                                                       << "ruler 𝔐";
}

void tst_CatalogueEditor::specialNamesSurviveTheStore()
{
    QFETCH(QString, quantityName);
    QFETCH(QString, unitName);
    const QString file = m_dir.filePath(QStringLiteral("special.reg"));
    QFile::remove(file);
    {
        SettingsStore store(std::make_unique<HiveFile>(file));
        Catalogue live;
        live.LoadCatalogue(store);
        CatalogueEditor editor(live, m_session);
        const auto quantity = editor.addQuantity(quantityName, QStringLiteral("base ") + unitName);
        QVERIFY(!quantity.refusal);
        const auto added = editor.addUnit(quantity.quantity, unitName, QStringLiteral("2.5"));
        QVERIFY(!added.refusal);
        editor.setExact(quantity.quantity, added.unit, 1);
        QVERIFY(!editor.findProblem());
        editor.commitToStore(store, m_session);
        QVERIFY(!store.saveFailed());
    }
    SettingsStore reopened(std::make_unique<HiveFile>(file));
    Catalogue restarted;
    restarted.LoadCatalogue(reopened);
    const int q = restarted.findQuantity(quantityName);
    QVERIFY(q > Catalogue::BuiltinQuantityCount);
    const PhysicalQuantity &quantity = restarted.Quantities[q];
    QCOMPARE(quantity.Custom, 1);
    QCOMPARE(quantity.DefaultUnit, QStringLiteral("base ") + unitName);
    QCOMPARE(quantity.UnitCount, 2);
    const UnitEntry &u = restarted.Units[q][restarted.findUnit(q, unitName)];
    QCOMPARE(u.Name, unitName);
    QCOMPARE(u.FactorText, QStringLiteral("2.5"));
    QCOMPARE(u.Exact, 1);
    QCOMPARE(u.OnOff, 1);
}

void tst_CatalogueEditor::commitRewritesTheWholeKey_data()
{
    QTest::addColumn<bool>("trayHintShown");
    QTest::addColumn<bool>("firstRunHelpShown");
    QTest::newRow("no hint shown") << false << false;
    QTest::newRow("the tray hint shown") << true << false;
    QTest::newRow("the first-run help shown") << false << true;
    QTest::newRow("both shown") << true << true;
}

void tst_CatalogueEditor::commitRewritesTheWholeKey()
{
    QFETCH(bool, trayHintShown);
    QFETCH(bool, firstRunHelpShown);
    const QString file = m_dir.filePath(QStringLiteral("commit.reg"));
    QFile::remove(file);
    SettingsStore store(std::make_unique<HiveFile>(file));
    store.RegWriteString(
        QStringLiteral("settings"), QStringLiteral("currvalue"), QStringLiteral("12"));
    store.RegWriteString(
        QStringLiteral("User\\Units\\Gone"), QStringLiteral("old"), QStringLiteral("a2"));
    m_session.TrayHintShown = trayHintShown;
    m_session.FirstRunHelpShown = firstRunHelpShown;

    CatalogueEditor editor(m_catalogue, m_session);
    editor.setUnitOnOff(m_length, 2, 0);
    editor.commitToStore(store, m_session);

    QVERIFY(store.values(QStringLiteral("User\\Units\\Gone")).isEmpty());
    const QString none = QStringLiteral("absent");
    QCOMPARE(
        store.RegReadString(QStringLiteral("settings"), QStringLiteral("currvalue"), none), none);
    QCOMPARE(store.RegReadString(QStringLiteral("settings"), QStringLiteral("minonce"), none),
        trayHintShown ? QStringLiteral("1") : none);
    QCOMPARE(store.RegReadString(QStringLiteral("settings"), QStringLiteral("StartOnce"), none),
        firstRunHelpShown ? QStringLiteral("1") : none);
    QCOMPARE(store.RegReadString(
                 QStringLiteral("User\\OnOff\\Length"), QStringLiteral("foot (ft)"), none),
        QStringLiteral("0"));
    QCOMPARE(
        store.RegReadString(QStringLiteral("User\\Units\\Widgets"), QStringLiteral("gadget"), none),
        QStringLiteral("a2.5"));
    QCOMPARE(store.RegReadString(
                 QStringLiteral("User\\NewQuans\\Widgets"), QStringLiteral("DefaultUnit"), none),
        QStringLiteral("widget"));
}

void tst_CatalogueEditor::commitSavesOnce()
{
    const QString file = m_dir.filePath(QStringLiteral("once.reg"));
    QFile::remove(file);
    auto hive = std::make_unique<CountingHive>(file);
    CountingHive *counter = hive.get();
    SettingsStore store(std::move(hive));
    store.RegWriteString(
        QStringLiteral("settings"), QStringLiteral("currvalue"), QStringLiteral("12"));
    counter->flushes = 0;

    CatalogueEditor editor(m_catalogue, m_session);
    for (int j = 0; j < 20; ++j)
        editor.addUnit(m_widgets, QStringLiteral("unit %1").arg(j), QStringLiteral("3"));
    editor.commitToStore(store, m_session);
    QCOMPARE(counter->flushes, 1);
}

void tst_CatalogueEditor::applyReplacesTheLiveCatalogue()
{
    m_catalogue.CurrentQuantity = m_rays;
    CatalogueEditor editor(m_catalogue, m_session);
    editor.removeQuantity(m_widgets);
    editor.renameQuantity(m_widgets, QStringLiteral("Beams")); // Rays, moved down one
    editor.addUnit(m_length, QStringLiteral("rod"), QStringLiteral("5.0292"));
    Catalogue live = m_catalogue;
    editor.applyTo(live);
    QCOMPARE(live.QuantityCount, m_catalogue.QuantityCount - 1);
    QCOMPARE(live.Quantities[m_widgets].Name, QStringLiteral("Beams"));
    QCOMPARE(live.Quantities[m_length].UnitCount, 3);
    QCOMPARE(live.Units[m_length][3].Name, QStringLiteral("rod"));
    QCOMPARE(live.enabledUnitNames(m_length).size(), 3);
    QCOMPARE(live.CurrentQuantity, m_widgets); // still the quantity that was current

    m_catalogue.CurrentQuantity = m_widgets;
    Catalogue removed = m_catalogue;
    editor.applyTo(removed);
    QCOMPARE(removed.CurrentQuantity, 0);
}

QTEST_GUILESS_MAIN(tst_CatalogueEditor)
#include "tst_CatalogueEditor.moc"

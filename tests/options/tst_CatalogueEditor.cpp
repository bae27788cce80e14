// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The options dialog's catalogue editor without a window: the rules and limits of every edit,
// the properties panel's texts and states, the problems that keep OK from committing, and the
// commit into a hive file. Every case starts from the same small catalogue, built by hand
// so that rows can name its quantities; a row's edit is a function run on the editor first.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "options/CatalogueEditor.h"
#include "shell/Session.h"
#include "shell/SettingsStore.h"
#include "support/CountingHive.h"
#include "support/DataRows.h"

#include <functional>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Edit = std::function<void(CatalogueEditor &)>;
Q_DECLARE_METATYPE(Edit)

namespace
{
// The quantities every case starts from: two built-in ones and three of the user's (Empty has no
// unit at all, as a damaged store can leave it).
constexpr int Length = 1, Temperature = 2, Widgets = 3, Rays = 4, Empty = 5;

QString text(int id)
{
    return StringTable::text(id);
}

// A message of the string table, "%1"-style ids filled in with names.
QString message(int id, const char *name = nullptr, const char *other = nullptr)
{
    if (id == 5215)
        return text(5215) + u'\n' + text(5216);
    if (id == 5224)
        return text(5224) + QString::fromUtf8(name) + text(5225);
    if (other)
        return text(id).arg(QString::fromUtf8(name), QString::fromUtf8(other));
    return name ? text(id).arg(QString::fromUtf8(name)) : text(id);
}

struct AddRow {
    const char *row;
    int quantity; // 0: a new quantity is added, else a unit to this one
    QString typed, factorText, refusal;
    QString kept = {}; // the name added; none for a refusal
    double factor = 0;
    Edit edit = {}; // run on the editor first
};
struct PanelRow {
    const char *row;
    QString key, nodeText, parentText;
    QString shown = {}; // the controls that apply, and the states shown
    QString factorText = {}, comments = {};
    Edit edit = {}; // run on the editor first
};
struct ProblemRow {
    const char *row;
    Edit edit;
    QString message = {}; // none: nothing wrong
    int quantity = 0, unit = 0;
};
} // namespace
Q_DECLARE_METATYPE(AddRow)
Q_DECLARE_METATYPE(PanelRow)
Q_DECLARE_METATYPE(ProblemRow)

class tst_CatalogueEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void adding_data();
    void adding();
    void missingDefaultUnitBecomesTheFirstUnit();
    void properties_data();
    void properties();
    void editsAndTheProblemsTheyLeave_data();
    void editsAndTheProblemsTheyLeave();
    void commitRewritesTheWholeKeyInOneSave();
    void applyReplacesTheLiveCatalogue();

private:
    Catalogue m_catalogue;
    Session m_session;
    QTemporaryDir m_dir;
};

void tst_CatalogueEditor::init()
{
    struct Unit {
        const char *name, *factor;
        int exact;
    };
    const auto add = [this](const QString &name, int custom, const QList<Unit> &units) {
        const int q = m_catalogue.QuantityCount + 1;
        m_catalogue.resize(q);
        m_catalogue.Quantities[q] = { name, 1, int(units.size()),
            units.isEmpty() ? QString() : QString::fromUtf8(units.first().name), custom };
        for (int j = 1; j <= units.size(); ++j) {
            const Unit &u = units[j - 1];
            const QString factor = QString::fromUtf8(u.factor);
            m_catalogue.Units[q][j] = { QString::fromUtf8(u.name), 1, custom,
                NumberText::leadingNumber(factor), u.exact, factor };
        }
    };
    m_catalogue = Catalogue();
    m_session = Session();
    add(QStringLiteral("Length"), 0, { { "metre (m)", "1", 1 }, { "foot (ft)", "0.3048", 1 } });
    add(text(Catalogue::TemperatureNameId), 0,
        { { "Celsius (°C)", "", 1 }, { "kelvin (K)", "", 0 }, { "Fahrenheit (°F)", "", 0 },
            { "Rankine (°R)", "", 0 } });
    add(QStringLiteral("Widgets"), 1, { { "widget", "1", 1 }, { "gadget", "2.5", 0 } });
    add(QStringLiteral("Rays"), 1, { { "ray", "1", 1 } });
    add(QStringLiteral("Empty"), 1, {});
    // Defaults the editor looks at: its test is exact, and with no unit there is none to take.
    m_catalogue.Quantities[Rays].DefaultUnit = QStringLiteral("Ray");
    m_catalogue.Quantities[Empty].DefaultUnit = QStringLiteral("gone");
}

void tst_CatalogueEditor::adding_data()
{
    const Edit rename = [](CatalogueEditor &e) { e.renameQuantity(Widgets, "Gizmos"); };
    const Edit rebuilt = [=](CatalogueEditor &e) {
        rename(e);
        e.resetNodeKeys();
    };
    const auto fill = [](int count) -> Edit {
        return [count](CatalogueEditor &e) {
            for (int k = 1; k <= count; ++k)
                e.addUnit(Widgets, QStringLiteral("filler %1").arg(k), QStringLiteral("2"));
        };
    };
    const QString longName = QStringLiteral("A unit whose name goes on beyond forty characters");
    const QString emoji = QString(39, u'a') + QStringLiteral("😀b");
    addRows<AddRow>({
        { "a new quantity", 0, "Speed", "1", {}, "Speed", 1 },
        { "a built-in quantity's name", 0, "Length", {}, message(5215) },
        { "a name differing only in capitals", 0, "length", {}, message(5254, "length", "Length") },
        { "a renamed quantity's new name", 0, "Gizmos", {}, message(5215), {}, 0, rename },
        { "a renamed quantity's old name, still its node's key", 0, "Widgets", {}, message(5215),
            {}, 0, rename },
        { "a renamed quantity's old name once the tree is rebuilt", 0, "Widgets", "1", {},
            "Widgets", 1, rebuilt },
        { "no quantity name", 0, "", {}, message(5250) },
        { "a quantity name of blanks only", 0, "   ", {}, message(5250) },
        { "a backslash", 0, "Speed\\Fast", {}, message(5251) },
        { "a delete character", 0, "Speed\x7f", {}, message(5252) },
        { "the last control character", 0, "Speed\x1f", {}, message(5252) },
        { "256 characters", 0, QString(256, u'q'), {}, message(5253) },
        { "255 characters", 0, QString(255, u'q'), "1", {}, QString(255, u'q'), 1 },
        { "a custom unit, a backslash in its name", Widgets, "s\\p", "0.35", {}, "s\\p", 0.35 },
        { "a name cut to 40 characters", Widgets, longName, "2", {}, longName.left(40), 2 },
        { "a name of 40 characters", Widgets, longName.left(40), "2", {}, longName.left(40), 2 },
        { "the cut keeps a surrogate pair whole", Widgets, emoji, "2", {}, QString(39, u'a'), 2 },
        { "blanks inside the factor", Length, "chain-ish", "1 234.5", {}, "chain-ish", 1234.5 },
        { "an exponent", Length, "kilo", "1E3", {}, "kilo", 1000 },
        { "the 55th unit", Widgets, "last", "2", {}, "last", 2, fill(52) },
        { "the 56th unit", Widgets, "one too many", "2", message(5220), {}, 0, fill(53) },
        { "a unit name in use", Widgets, "gadget", "2", message(5224, "gadget") },
        { "a built-in unit's name in other capitals", Length, "Metre (m)", "1", {}, "Metre (m)",
            1 },
        { "a custom unit's name in other capitals", Widgets, "Gadget", "2",
            message(5254, "Gadget", "gadget") },
        { "no unit name", Widgets, "   ", "2", message(5250) },
        { "a factor that is no number", Widgets, "w", "abc", message(5255) },
        { "a zero factor", Widgets, "w", "0", message(5255) },
        { "a negative factor", Widgets, "w", "-2", message(5255) },
        { "a factor beyond a double", Widgets, "w", "1e999", message(5235) },
        { "a factor whose reciprocal overflows", Widgets, "w", "1e-320", message(5235) },
        { "a D exponent the figure count cannot read", Widgets, "w", "1D3", message(5235) },
    });
}

// A new quantity comes with its exact default unit of factor 1; a new unit is inexact.
void tst_CatalogueEditor::adding()
{
    QFETCH(AddRow, row);
    CatalogueEditor editor(m_catalogue, m_session);
    if (row.edit)
        row.edit(editor);
    m_session.CatalogueChanged = false;
    const int q = row.quantity;
    const auto count = [&] { return q ? editor.quantity(q).UnitCount : editor.quantityCount(); };
    const int before = count();
    // A unit's name may hold a backslash: only a quantity's name becomes a key of the store.
    const QString unit = QStringLiteral("back\\slash");
    const CatalogueEditor::Added added
        = q ? editor.addUnit(q, row.typed, row.factorText) : editor.addQuantity(row.typed, unit);
    QCOMPARE(added.refusal.value_or(Notice()).text, row.refusal);
    QCOMPARE(m_session.CatalogueChanged, row.refusal.isEmpty());
    QCOMPARE(count(), before + (added.refusal ? 0 : 1));
    if (added.refusal)
        return;
    QCOMPARE(added.quantity, q ? q : before + 1);
    QCOMPARE(added.unit, q ? before + 1 : 1);
    const PhysicalQuantity &quantity = editor.quantity(added.quantity);
    if (!q) {
        QCOMPARE(quantity.Name, row.kept);
        QVERIFY(quantity.OnOff == 1 && quantity.Custom == 1 && quantity.UnitCount == 1);
        QCOMPARE(quantity.DefaultUnit, unit);
    }
    const UnitEntry &u = editor.unit(added.quantity, added.unit);
    QCOMPARE(u.Name, q ? row.kept : unit);
    QCOMPARE(u.FactorText, row.factorText);
    QCOMPARE(u.Factor, row.factor);
    QVERIFY(u.Custom == 1 && u.OnOff == 1 && u.Exact == (q ? 0 : 1));
}

// A default unit that is there is kept, one that is not becomes the first unit (as the properties
// of Rays and Empty show), and neither is an edit.
void tst_CatalogueEditor::missingDefaultUnitBecomesTheFirstUnit()
{
    m_catalogue.Quantities[Widgets].DefaultUnit = QStringLiteral("gadget");
    CatalogueEditor editor(m_catalogue, m_session);
    QCOMPARE(editor.quantity(Widgets).DefaultUnit, QStringLiteral("gadget"));
    QVERIFY(!m_session.CatalogueChanged);
    // A quantity without units gets its first unit as default when one is added.
    QVERIFY(!editor.addUnit(Empty, QStringLiteral("first"), QStringLiteral("3")).refusal);
    QCOMPARE(editor.quantity(Empty).DefaultUnit, QStringLiteral("first"));
}

void tst_CatalogueEditor::properties_data()
{
    const QString temperature = text(Catalogue::TemperatureNameId);
    const QString top = QStringLiteral("Physical Quantities");
    const QString in = QStringLiteral("\n     ");
    const QString lengthHas = "The default unit for this physical quantity is : metre (m).";
    const QString builtin = "This unit's conversion factor cannot be modified" + in
        + "The default unit for Length is : metre (m).";
    const QString widgets = in + "The default unit for Widgets is : widget.";
    const QString custom
        = "This unit is a custom unit, and therefore its conversion factor can be modified.";
    const QString customUnit = "name factor exact exactVisible onOff addUnit removeUnit on";
    const auto twoGadgets = [](CatalogueEditor &e) {
        e.addUnit(Widgets, "sprocket", "7");
        e.renameUnit(Widgets, 3, "gadget");
    };
    addRows<PanelRow>({
        { "the root", "root", top, {} },
        { "a built-in quantity", "pLength", "Length", top, "onOff addUnit on", {},
            "Length has 2 units." + in + lengthHas },
        { "a custom quantity of one unit", "pRays", "Rays", top,
            "name onOff addUnit removeQuantity on", {},
            "Rays has 1 unit." + in + "The default unit for this physical quantity is : ray." },
        { "a custom quantity without units", "pEmpty", "Empty", top,
            "name onOff addUnit removeQuantity on", {},
            "Empty has 0 units." + in + "The default unit for this physical quantity is : gone." },
        { "temperature", "p" + temperature, temperature, top, "onOff on", {},
            temperature + " has 4 units." + in
                + "You cannot add any units to this physical quantity." },
        { "a built-in unit", "u1 2", "foot (ft)", "Length",
            "exactVisible onOff addUnit on exactTicked", "0.3048", builtin },
        { "a custom quantity's default unit", "u3 1", "widget", "Widgets",
            "name exactVisible onOff addUnit on exactTicked", "1",
            "This unit is the default unit, and therefore its conversion factor cannot be "
            "modified."
                + widgets },
        { "a custom unit", "u3 2", "gadget", "Widgets", customUnit, "2.5", custom + widgets },
        { "two units of one name show the first", "u3 3", "gadget", "Widgets", customUnit, "2.5",
            custom + widgets, twoGadgets },
        { "a temperature unit", "u2 2", "kelvin (K)", temperature, "onOff on", {},
            "kelvin (K)" + in + "The default unit for " + temperature + " is : Celsius (°C)." },
        { "a node whose unit is gone", "u3 2", "gadget", "Widgets", {}, {}, {},
            [](auto &e) { e.removeUnit(Widgets, 2); } },
    });
}

void tst_CatalogueEditor::properties()
{
    QFETCH(PanelRow, row);
    CatalogueEditor editor(m_catalogue, m_session);
    if (row.edit)
        row.edit(editor);
    const CatalogueEditor::Properties p = editor.properties(row.key, row.nodeText, row.parentText);
    QStringList applying;
    for (const auto &[name, on] :
        { std::pair { "name", p.nameEnabled }, { "factor", p.factorEnabled },
            { "exact", p.exactEnabled }, { "exactVisible", p.exactVisible },
            { "onOff", p.onOffEnabled }, { "addUnit", p.addUnitEnabled },
            { "removeUnit", p.removeUnitEnabled }, { "removeQuantity", p.removeQuantityEnabled },
            { "on", p.enabled }, { "exactTicked", p.exact } })
        if (on)
            applying.append(QString::fromLatin1(name));
    QCOMPARE(applying.join(u' '), row.shown);
    QCOMPARE(p.factorText, row.factorText);
    QCOMPARE(p.comments, row.comments);
    QCOMPARE(p.name, row.shown.isEmpty() ? QString() : row.nodeText);
}

void tst_CatalogueEditor::editsAndTheProblemsTheyLeave_data()
{
    const auto footTwice = [](CatalogueEditor &e) {
        e.addUnit(Length, "feet", "0.3");
        e.renameUnit(Length, 3, "foot (ft)");
    };
    addRows<ProblemRow>({
        { "nothing wrong", {} },
        { "a unit renamed to blanks", [](auto &e) { e.renameUnit(Widgets, 2, "  "); },
            message(5250), Widgets, 2 },
        { "a unit renamed like another", [](auto &e) { e.renameUnit(Widgets, 2, "widget"); },
            message(5224, "widget"), Widgets, 2 },
        { "a custom unit renamed like a built-in one", footTwice, message(5224, "foot (ft)"),
            Length, 3 },
        { "two custom units differing in capitals",
            [](auto &e) { e.renameUnit(Widgets, 2, "WIDGET"); }, message(5254, "WIDGET", "widget"),
            Widgets, 2 },
        { "a quantity renamed like another", [](auto &e) { e.renameQuantity(Rays, "Widgets"); },
            message(5215), Rays, 0 },
        { "a quantity renamed like a built-in one in other capitals",
            [](auto &e) { e.renameQuantity(Widgets, "LENGTH"); }, message(5254, "LENGTH", "Length"),
            Widgets, 0 },
        { "a quantity renamed with a backslash", [](auto &e) { e.renameQuantity(Rays, "a\\b"); },
            message(5251), Rays, 0 },
        { "a factor typed as 0", [](auto &e) { e.setFactorText(Widgets, 2, "0"); },
            message(5256, "gadget"), Widgets, 2 },
        { "a built-in unit may share capitals with a custom one",
            [](auto &e) { e.addUnit(Length, "FOOT (FT)", "0.3048"); } },
        { "switching on a quantity that is on", [](auto &e) { e.setQuantityOnOff(Length, 1); } },
        { "switching off a unit", [](auto &e) { e.setUnitOnOff(Length, 2, 0); } },
        { "renaming a quantity to its own name", [](auto &e) { e.renameQuantity(Rays, "Rays"); } },
        { "renaming a unit, a backslash in its name",
            [](auto &e) { e.renameUnit(Widgets, 2, "giz\\mo"); } },
        { "typing a factor", [](auto &e) { e.setFactorText(Widgets, 2, "4"); } },
        { "ticking Exact", [](auto &e) { e.setExact(Widgets, 2, 1); } },
        { "removing a unit", [](auto &e) { e.removeUnit(Widgets, 2); } },
        { "removing a quantity", [](auto &e) { e.removeQuantity(Rays); } },
    });
}

// Every edit, even one that leaves things as they were, marks the catalogue as changed.
void tst_CatalogueEditor::editsAndTheProblemsTheyLeave()
{
    QFETCH(ProblemRow, row);
    CatalogueEditor editor(m_catalogue, m_session);
    if (row.edit)
        row.edit(editor);
    QCOMPARE(m_session.CatalogueChanged, bool(row.edit));
    const auto problem = editor.findProblem().value_or(CatalogueEditor::Problem());
    QCOMPARE(problem.notice.text, row.message);
    QCOMPARE(problem.quantity, row.quantity);
    QCOMPARE(problem.unit, row.unit);
}

// Of the settings, only the one-time hints already shown are written again; that both are, and
// read back after a restart, is tst_OptionsFromMainWindow's.
void tst_CatalogueEditor::commitRewritesTheWholeKeyInOneSave()
{
    const QString file = m_dir.filePath(QStringLiteral("commit.reg"));
    QFile::remove(file);
    auto hive = std::make_unique<CountingHive>(file);
    CountingHive *counter = hive.get();
    SettingsStore store(std::move(hive));
    const auto read = [&store](const char *key, const char *name) {
        return store.RegReadString(QString::fromUtf8(key), QString::fromUtf8(name), "absent");
    };
    store.RegWriteString(QStringLiteral("settings"), "currvalue", "12");
    store.RegWriteString(QStringLiteral("User\\Units\\Gone"), "old", "a2");
    m_session.TrayHintShown = true;

    CatalogueEditor editor(m_catalogue, m_session);
    editor.setUnitOnOff(Length, 2, 0);
    counter->flushes = 0;
    editor.commitToStore(store, m_session);
    QCOMPARE(counter->flushes, 1);
    QCOMPARE(read("User\\Units\\Gone", "old"), "absent");
    QCOMPARE(read("settings", "currvalue"), "absent");
    QCOMPARE(read("settings", "minonce"), "1");
    QCOMPARE(read("settings", "StartOnce"), "absent");
    // The working copy, as the catalogue saves it (its format is tst_Catalogue's).
    QCOMPARE(read("User\\OnOff\\Length", "foot (ft)"), "0");
}

void tst_CatalogueEditor::applyReplacesTheLiveCatalogue()
{
    m_catalogue.CurrentQuantity = Rays;
    CatalogueEditor editor(m_catalogue, m_session);
    editor.removeQuantity(Widgets);
    QCOMPARE(editor.quantityNodeKey(Widgets), QStringLiteral("pRays")); // moved down one
    editor.renameQuantity(Widgets, QStringLiteral("Beams"));
    Catalogue live = m_catalogue;
    editor.applyTo(live);
    QCOMPARE(live.QuantityCount, Empty - 1);
    QCOMPARE(int(live.Units.size()), Empty);
    QCOMPARE(live.Quantities[Widgets].Name, QStringLiteral("Beams"));
    QCOMPARE(live.Units[Widgets][1].Name, QStringLiteral("ray"));
    QCOMPARE(live.CurrentQuantity, Widgets); // still the quantity that was current

    m_catalogue.CurrentQuantity = Widgets;
    Catalogue removed = m_catalogue;
    editor.applyTo(removed);
    QCOMPARE(removed.CurrentQuantity, 0);
}

QTEST_GUILESS_MAIN(tst_CatalogueEditor)
#include "tst_CatalogueEditor.moc"

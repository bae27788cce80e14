// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The options dialog driven as a user drives it: controls found by name, input boxes and
// questions answered from a script, what was kept read back from the hive file. The rules of the
// catalogue's edits are the editor's (tst_CatalogueEditor); here each edit is made through the
// tree and the properties panel, and OK and Cancel decide what reaches the hive.
#include "catalogue/StringTable.h"
#include "catalogue/UserCatalogue.h"
#include "convert/NumberText.h"
#include "support/DataRows.h"
#include "support/GuiTestMain.h"
#include "support/OptionsFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTreeWidget>

namespace
{
QString text(int id)
{
    return StringTable::text(id);
}

// The node's children are in alphabetical order, capitals and small letters together.
bool sorted(const QTreeWidgetItem *node)
{
    for (int i = 1; i < node->childCount(); ++i)
        if (node->child(i - 1)->text(0).compare(node->child(i)->text(0), Qt::CaseInsensitive) > 0)
            return false;
    return true;
}

struct ExampleRow {
    const char *row;
    bool scientific, triads;
    QString decimal;
    QStringList clicks;
    QString example;
};
struct ThresholdRow {
    const char *row;
    const char *box;
    QString decimal, typed;
    bool left; // the box is left; else OK is pressed while in it
    QString shown; // the box's text afterwards
    int message; // 0: none
    QString stored;
};
struct SwitchRow {
    const char *row;
    int unit; // of the user's quantity; 0: the quantity itself
    QString onIcon, offIcon;
};
struct ProblemRow {
    const char *row;
    int unit; // of the user's quantity; 0: the quantity itself
    const char *box;
    QString typed, message;
};
} // namespace
Q_DECLARE_METATYPE(ExampleRow)
Q_DECLARE_METATYPE(ThresholdRow)
Q_DECLARE_METATYPE(SwitchRow)
Q_DECLARE_METATYPE(ProblemRow)

class tst_frmSetOpt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f.reset(); }
    void cleanup();
    void exampleText_data();
    void exampleText();
    void thresholds_data();
    void thresholds();
    void shellProgramChoice();
    void okSavesEverythingOnceAndRemembersThePage();
    void switchingOnAndOff_data();
    void switchingOnAndOff();
    void addingAndRemovingWithTheirLimits();
    void problemsKeepTheDialogOpen_data();
    void problemsKeepTheDialogOpen();
    void treeShowsTheCatalogueAndLookingIsNoEdit();

private:
    OptionsFixture f;
};

void tst_frmSetOpt::cleanup()
{
    f.close();
    QVERIFY(f.dialogs.scriptDone());
}

void tst_frmSetOpt::exampleText_data()
{
    addRows<ExampleRow>({
        { "the locale's decimal comma", false, true, ",", {}, " 123 456,789 0" },
        { "regular chosen", true, false, ".", { "Option1_1" }, " 123456.7890" },
        { "scientific chosen, then triads", false, false, ",", { "Option1_0", "chkTriads" },
            " 1,234 567 890 E+5" },
    });
}

void tst_frmSetOpt::exampleText()
{
    QFETCH(ExampleRow, row);
    f.settings.Scientific = row.scientific;
    f.settings.Triads = row.triads;
    f.settings.DecimalSeparator = row.decimal;
    f.open();
    for (const QString &name : row.clicks)
        f.click(qPrintable(name));
    QCOMPARE(f.control<QLabel>("lblExampleText")->text(), row.example);
}

void tst_frmSetOpt::thresholds_data()
{
    const char *max = "txtMaxNumber", *min = "txtMinNumber";
    const QString highest = QStringLiteral("1000000000"), lowest = QStringLiteral("0.000000001");
    addRows<ThresholdRow>({
        { "1E+9 itself", max, ".", "1E+9", true, "1E+9", 0, highest },
        { "above 1E+9", max, ".", "2e9", true, "1e+9", 5018, highest },
        { "above 1E+9, OK pressed in the box", max, ".", "5e9", false, "1e+9", 5018, highest },
        { "1E-9 itself", min, ".", "1E-9", true, "1E-9", 0, lowest },
        { "below 1E-9", min, ".", "1e-10", true, "1e-9", 5019, lowest },
        { "below 1E-9, OK pressed in the box", min, ".", "1e-12", false, "1e-9", 5019, lowest },
        { "no number puts the last value back", max, ".", "lots", true, "1000", 5050, "1000" },
        { "the locale's decimal comma", max, ",", "2,5", true, "2,5", 0, "2.5" },
        { "the maximum has no lower limit", max, ".", "1e-12", false, "1e-12", 0,
            NumberText::shortestText(1e-12) },
        { "the minimum has no upper limit", min, ".", "5e9", true, "5e9", 0,
            NumberText::shortestText(5e9) },
    });
}

void tst_frmSetOpt::thresholds()
{
    QFETCH(ThresholdRow, row);
    f.settings.DecimalSeparator = row.decimal;
    f.open();
    const QString name = QString::fromLatin1(row.box).mid(3).toLower();
    auto *box = f.control<QLineEdit>(row.box);
    box->setText(row.typed);
    if (row.left) {
        // A message box or a menu taking the focus from the window is no leaving of the box.
        for (const auto reason : { Qt::ActiveWindowFocusReason, Qt::PopupFocusReason }) {
            QFocusEvent out(QEvent::FocusOut, reason);
            QApplication::sendEvent(box, &out);
        }
        QCOMPARE(f.dialogs.notices().size(), 0);
        f.type(row.box, row.typed);
    } else {
        f.click("cmdOK");
        // A value OK had to correct is shown to the user before anything is kept.
        QCOMPARE(f.dialog()->isVisible(), row.message != 0);
        QCOMPARE(f.storedSetting(name), row.message ? QString() : row.stored);
    }
    QCOMPARE(box->text(), row.shown);
    const Notice expected { Notice::Exclamation, text(row.message), {} };
    QCOMPARE(f.dialogs.notices(), row.message ? QList<Notice> { expected } : QList<Notice>());
    if (f.dialog()->isVisible())
        f.click("cmdOK");
    QCOMPARE(f.storedSetting(name), row.stored);
}

// The command runs the calculator for any number but 0; the dialog shows what it will run.
void tst_frmSetOpt::shellProgramChoice()
{
    f.settings.UseWindowsCalc = -1;
    f.open();
    auto *choose = f.control<QPushButton>("cmdDialog");
    QVERIFY(!choose->isEnabled());
    QVERIFY(f.control<QRadioButton>("optCalcSci_0")->isEnabled());
    f.click("optWinCalc_1");
    QVERIFY(choose->isEnabled());
    QVERIFY(!f.control<QRadioButton>("optCalcSci_0")->isEnabled());
    QVERIFY(!f.control<QRadioButton>("optCalcSci_1")->isEnabled());

    f.dialogs.answerOpenFile(QStringLiteral("/opt/tools/my calc"));
    f.dialogs.answerOpenFile(QString());
    choose->click();
    QCOMPARE(f.asked(ScriptedDialogs::OpenFile).first().filter, QStringLiteral("All Files (*)"));
    QCOMPARE(f.settings.ShellProgram, QStringLiteral("/opt/tools/my calc")); // in use at once
    QCOMPARE(f.control<QLabel>("lblShellProgram")->text(), QStringLiteral(" /opt/tools/my calc"));
    choose->click(); // cancelled: the path stays
    f.click("cmdCancel"); // and is in use until the program ends, though not saved
    QCOMPARE(f.settings.ShellProgram, QStringLiteral("/opt/tools/my calc"));
}

// Every setting of the general page turned from what was loaded (none of it the default), and
// edits of the catalogue typed into the properties panel, kept in one save of the hive; the
// settings are written from those in use.
void tst_frmSetOpt::okSavesEverythingOnceAndRemembersThePage()
{
    f.settings.SigFigs = 0; // the stored "0" is kept by the settings; the slider starts at 1
    f.settings.Scientific = f.settings.ShowTabs = true;
    f.settings.Triads = f.settings.ConfirmExit = f.settings.ShowTrayIcon = false;
    f.settings.RememberLast = false;
    f.settings.UseWindowsCalc = 0;
    f.open();
    auto *figures = f.control<QLabel>("lblslider");
    QCOMPARE(figures->text(), QStringLiteral("1"));
    auto *slider = f.control<QSlider>("Slider1");
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_End);
    QCOMPARE(figures->text(), QStringLiteral("13"));
    f.type("txtMaxNumber", QStringLiteral("5000"));
    f.type("txtMinNumber", QStringLiteral("0.01"));
    for (const char *name : { "Option1_1", "chkTriads", "optTabs_1", "optWinCalc_0", "optCalcSci_1",
             "chkConfirm", "chkSysTray", "chkRemember" })
        f.click(name);

    // Ctrl+Tab and Ctrl+Shift+Tab go round the pages.
    auto *tabs = f.control<QTabWidget>("TabStrip");
    QTest::keyClick(f.dialog(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 1);
    QTest::keyClick(f.dialog(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 0);
    QTest::keyClick(f.dialog(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(tabs->currentIndex(), 1);
    f.select(f.node(f.widgetsUnit(3)));
    f.type("txtName", QStringLiteral("cog"));
    f.type("txtConvFactor", QStringLiteral("0.5"));
    f.click("chkExact");
    f.click("optOnOff_1");
    f.select(f.node(f.widgetsUnit(1)));
    f.type("txtName", QStringLiteral("doohickey")); // the default unit: the default follows
    QTreeWidgetItem *quantity = f.node(u'p' + OptionsFixture::Widgets);
    f.select(quantity);
    f.type("txtName", QStringLiteral("Gizmos"));
    QCOMPARE(quantity->text(0), QStringLiteral("Gizmos"));
    QVERIFY(sorted(quantity->parent()));
    // A click on the node, selected already, shows it afresh under its new name.
    auto *tree = f.control<QTreeWidget>("treeMain");
    tree->scrollToItem(quantity);
    QTest::mouseClick(
        tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(quantity).center());
    const QString comments = f.control<QPlainTextEdit>("txtComments")->toPlainText();
    QVERIFY2(comments.startsWith(QStringLiteral("Gizmos has 3 units.")), qPrintable(comments));

    f.click("cmdOK");
    QCOMPARE(f.dialog()->result(), int(QDialog::Accepted));
    QCOMPARE(f.saves(), 1);
    const QList<QPair<QString, QString>> expected
        = { { "Tab", "1" }, { "numericformatting", "13" }, { "scientific", "0" }, { "triads", "1" },
              { "maxnumber", "5000" }, { "minnumber", "0.01" }, { "tabs", "0" }, { "WinCalc", "1" },
              { "SciCalc", "0" }, { "confirm", "1" }, { "systray", "1" }, { "remember", "1" } };
    for (const auto &[name, value] : expected)
        QCOMPARE(f.storedSetting(name), value);
    QCOMPARE(f.stored("User\\NewQuans\\Gizmos", "DefaultUnit"), QStringLiteral("doohickey"));
    QCOMPARE(f.stored("User\\Units\\Gizmos", "cog"), UserCatalogue::unitData(0, 1, "0.5"));

    // Reopened, the dialog shows the page that was shown on OK.
    f.open();
    QCOMPARE(f.control<QTabWidget>("TabStrip")->currentIndex(), 1);
    QVERIFY(f.control<QRadioButton>("optCalcSci_1")->isChecked());
}

// The tree holds every quantity and unit, keyed and pictured by their records; expanding,
// collapsing and selecting nodes is no edit, and OK then leaves the catalogue in the hive alone.
void tst_frmSetOpt::treeShowsTheCatalogueAndLookingIsNoEdit()
{
    f.open();
    auto *tree = f.control<QTreeWidget>("treeMain");
    QTreeWidgetItem *root = tree->topLevelItem(0);
    QVERIFY(root->isExpanded());
    QCOMPARE(root->childCount(), f.catalogue.QuantityCount);
    for (int q = 1; q <= f.catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = f.catalogue.Quantities[q];
        QTreeWidgetItem *node = f.node(u'p' + quantity.Name);
        QVERIFY2(node && node->parent() == root && !node->isExpanded(), qPrintable(quantity.Name));
        QCOMPARE(node->text(0), quantity.Name);
        QCOMPARE(f.icon(node), QStringLiteral("enablephysquan"));
        QCOMPARE(node->childCount(), quantity.UnitCount);
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            QTreeWidgetItem *unit = f.node(QStringLiteral("u%1 %2").arg(q).arg(j));
            QVERIFY(unit && unit->parent() == node);
            QCOMPARE(unit->text(0), f.catalogue.Units[q][j].Name);
            QCOMPARE(
                f.icon(unit), unit->text(0) == quantity.DefaultUnit ? "defaultunit" : "enable");
        }
        QVERIFY(sorted(node)); // whatever the catalogue's order
    }
    QVERIFY(!root->child(0)->icon(0).pixmap(16, 16).isNull()); // the picture can be drawn
    // Temperature takes no new units, and its units have no factor to show or change.
    QTreeWidgetItem *temperature = f.node(u'p' + text(Catalogue::TemperatureNameId));
    f.select(temperature);
    QVERIFY(!f.control<QPushButton>("cmdAddNewUnit")->isEnabled());
    f.select(temperature->child(0));
    QVERIFY(f.control<QCheckBox>("chkExact")->isHidden());

    auto *expand = f.control<QPushButton>("cmdExpandAll");
    for (const bool expanded : { true, false }) {
        expand->click();
        for (int i = 0; i < root->childCount(); ++i)
            QCOMPARE(root->child(i)->isExpanded(), expanded);
        QVERIFY(root->isExpanded());
        f.select(f.node(u'p' + OptionsFixture::Widgets));
        f.select(f.node(f.widgetsUnit(2)));
    }
    f.click("cmdOK");
    QVERIFY(!f.session.CatalogueChanged);
    QCOMPARE(f.saves(), 1);
    QCOMPARE(
        f.storedSetting(QStringLiteral("StartOnce")), QStringLiteral("1")); // the key not rewritten
}

void tst_frmSetOpt::switchingOnAndOff_data()
{
    addRows<SwitchRow>({
        { "the default unit", 1, "defaultunit", "disabledefaultunit" },
        { "another unit", 2, "enable", "disable" },
        { "the quantity", 0, "enablephysquan", "disablephysquan" },
    });
}

void tst_frmSetOpt::switchingOnAndOff()
{
    QFETCH(SwitchRow, row);
    f.open();
    QTreeWidgetItem *node
        = f.node(row.unit ? f.widgetsUnit(row.unit) : u'p' + OptionsFixture::Widgets);
    f.select(node);
    QVERIFY(f.control<QRadioButton>("optOnOff_0")->isChecked());
    QVERIFY(!f.session.CatalogueChanged);
    f.click("optOnOff_0"); // the state it has already: still an edit
    QVERIFY(f.session.CatalogueChanged);
    QCOMPARE(f.icon(node), row.onIcon);

    f.click("optOnOff_1");
    QCOMPARE(f.icon(node), row.offIcon);
    for (int i = 0; !row.unit && i < node->childCount(); ++i) // its units keep their own
        QVERIFY(!f.icon(node->child(i)).startsWith(QLatin1String("disable")));
    f.select(f.node(QStringLiteral("root")));
    f.select(node);
    QVERIFY(f.control<QRadioButton>("optOnOff_1")->isChecked());

    f.click("optOnOff_0");
    QCOMPARE(f.icon(node), row.onIcon);
}

// Adding and removing quantities and units through the tree, with every refusal and limit.
void tst_frmSetOpt::addingAndRemovingWithTheirLimits()
{
    f.open();
    const int q = f.catalogue.QuantityCount + 1;
    const auto key = [q](int j) { return QStringLiteral("u%1 %2").arg(q).arg(j); };
    // A name in use is refused before the default unit is asked for; no answer ends silently.
    // Then no name, Cancel, no default unit, and Cancel for it.
    f.answer({ OptionsFixture::Widgets, QString() });
    f.dialogs.answerInput(std::nullopt);
    f.answer({ QStringLiteral("Gizmos"), QString(), QStringLiteral("Gizmos") });
    f.dialogs.answerInput(std::nullopt);
    f.answer({ QStringLiteral("Gizmos"), QStringLiteral("gizmo") });
    for (int i = 0; i < 6; ++i)
        f.click("cmdAddNewPhysQuan");
    QCOMPARE(f.dialogs.notices().size(), 1);
    QTreeWidgetItem *quantity = f.node(QStringLiteral("pGizmos"));
    QVERIFY(quantity);
    QCOMPARE(quantity->childCount(), 1);
    QCOMPARE(f.currentKey(), key(1));
    QVERIFY(quantity->isExpanded()); // the new unit is in sight
    QVERIFY(f.control<QLineEdit>("txtName")->isEnabled());
    for (const char *name : { "txtConvFactor", "cmdRemoveUnit", "cmdRemovePhysQuan" })
        QVERIFY2(!f.control<QWidget>(name)->isEnabled(), name); // not for a default unit

    // Units, from the selected unit to its quantity: a name in use, a factor of 0, no name, no
    // factor; then two units.
    f.answer({ "gizmo", "nothing", "0", "", "cancelled" });
    f.dialogs.answerInput(std::nullopt);
    f.answer({ "cog", "2.5", "sprocket", "0.35" });
    for (int i = 0; i < 6; ++i)
        f.click("cmdAddNewUnit");
    QCOMPARE(f.dialogs.notices().size(), 3);
    const auto inputs = f.asked(ScriptedDialogs::Input);
    QCOMPARE(inputs.size(), 19);
    QVERIFY(inputs.at(16).prompt.contains("cog" + text(5231) + "gizmo")); // to its default unit
    QCOMPARE(inputs.at(16).defaultText, QStringLiteral("1"));
    QCOMPARE(quantity->childCount(), 3);
    QCOMPARE(f.currentKey(), key(3));
    QCOMPARE(f.control<QLineEdit>("txtConvFactor")->text(), QStringLiteral("0.35"));

    // The 55th unit is the last.
    for (int j = 4; j <= Catalogue::MaxUnits; ++j) {
        f.answer({ QStringLiteral("unit %1").arg(j), QStringLiteral("2") });
        f.click("cmdAddNewUnit");
    }
    QCOMPARE(quantity->childCount(), 55);
    const int asked = f.dialogs.asked().size();
    f.click("cmdAddNewUnit"); // refused before its name is asked for
    QCOMPARE(f.dialogs.asked().size(), asked + 1);
    QCOMPARE(f.dialogs.notices().last().text, text(5220));

    // Removing the second unit renumbers those behind it and makes room again.
    f.select(f.node(key(2)));
    f.dialogs.answerQuestion(Dialogs::No);
    f.dialogs.answerQuestion(Dialogs::Yes);
    f.click("cmdRemoveUnit");
    QCOMPARE(quantity->childCount(), 55);
    f.click("cmdRemoveUnit");
    QCOMPARE(f.dialogs.notices().last().text, text(5241) + "cog" + text(5242));
    QCOMPARE(quantity->childCount(), 54);
    QVERIFY(f.node(key(54)) && !f.node(key(55)));
    QCOMPARE(f.node(key(2))->text(0), QStringLiteral("sprocket"));
    QCOMPARE(f.currentKey(), QStringLiteral("pGizmos"));

    f.select(quantity);
    f.dialogs.answerQuestion(Dialogs::Yes);
    f.click("cmdRemovePhysQuan");
    QCOMPARE(f.dialogs.notices().last().text, text(5240) + "Gizmos" + text(5242));
    QVERIFY(!f.node(QStringLiteral("pGizmos")));
    QCOMPARE(f.currentKey(), QStringLiteral("root"));
}

void tst_frmSetOpt::problemsKeepTheDialogOpen_data()
{
    const QString gadget = text(5256).arg(QStringLiteral("gadget"));
    addRows<ProblemRow>({
        { "an empty unit name", 2, "txtName", "", text(5250) },
        { "an empty quantity name", 0, "txtName", "", text(5250) },
        { "a factor of 0", 2, "txtConvFactor", "0", gadget },
    });
}

void tst_frmSetOpt::problemsKeepTheDialogOpen()
{
    QFETCH(ProblemRow, row);
    f.open();
    const QString key = row.unit ? f.widgetsUnit(row.unit) : u'p' + OptionsFixture::Widgets;
    f.select(f.node(key));
    f.type(row.box, row.typed);
    f.control<QTabWidget>("TabStrip")->setCurrentIndex(0);
    f.select(f.node(QStringLiteral("root")));

    f.click("cmdOK");
    QVERIFY(f.dialog()->isVisible());
    QCOMPARE(f.dialogs.notices().last().text, row.message);
    // The entry at fault is shown, with the box to put right in focus.
    QCOMPARE(f.control<QTabWidget>("TabStrip")->currentIndex(), 1);
    QCOMPARE(f.currentKey(), key);
    QCOMPARE(QApplication::focusWidget(), f.control<QLineEdit>(row.box));
    QCOMPARE(f.saves(), 0);
    QCOMPARE(f.catalogue.Units[f.widgets()][2].FactorText, QStringLiteral("2.5"));
}

MENSURA_GUI_TEST_MAIN(tst_frmSetOpt)
#include "tst_frmSetOpt.moc"

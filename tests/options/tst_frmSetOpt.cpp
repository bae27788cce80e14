// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The options dialog driven as a user drives it: controls found by name, input boxes and
// questions answered from a script, the settings checked in the hive file afterwards. Until the
// built-in catalogue data is in the string table, the tree is tried on Temperature and on the
// user's own quantities, and names are read from the loaded catalogue.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/ConversionEngine.h"
#include "convert/NumberText.h"
#include "convert/RuntimeError.h"
#include "options/frmSetOpt.h"
#include "shell/HiveFile.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"
#include "support/CountingHive.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

namespace
{

QString text(int id)
{
    return StringTable::text(id);
}

// The catalogue part of a hive file: its "User" keys with their values, as written.
QByteArray userPart(const QByteArray &hive)
{
    QByteArray part;
    bool inUser = false;
    for (const QByteArray &line : hive.split('\n')) {
        if (line.startsWith('['))
            inUser = line.contains("\\Software\\Mensura\\User");
        if (inUser)
            part += line + '\n';
    }
    return part;
}

} // namespace

class tst_frmSetOpt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void exampleText_data();
    void exampleText();
    void exampleFollowsTheControlsAtOnce();
    void sliderRunsFromOneToThirteen();
    void thresholds_data();
    void thresholds();
    void thresholdIsCheckedOnOk();
    void shellProgram();
    void okWritesEverySetting();
    void pageKeysAndHelp();
    void everyControlExplainsItself();
    void treeShowsTheCatalogue();
    void addAndRemoveThroughTheTree();
    void unitRefusals();
    void enablingAndDisablingKeepsTheDefaultIcon();
    void renamedQuantityKeepsItsKey();
    void problemsKeepTheDialogOpen_data();
    void problemsKeepTheDialogOpen();
    void cancelLeavesEverythingAsItWas();
    void okWithoutEditsLeavesTheCatalogueAlone();
    void theUsersRoad();

private:
    void openStore();
    frmSetOpt *open();
    QByteArray fileBytes() const;
    template<typename T> T *control(const char *name) const
    {
        T *found = m_dialog ? m_dialog->findChild<T *>(QLatin1String(name)) : nullptr;
        if (!found)
            qWarning("no control %s", name);
        return found;
    }
    QTreeWidgetItem *node(const QString &key) const;
    // What the dialog asked of the user, by kind.
    QList<ScriptedDialogs::Asked> asked(ScriptedDialogs::Kind kind) const;
    QList<Notice> notices(ScriptedDialogs::Kind kind) const;
    void answerInputs(const QStringList &answers);
    QStringList childKeys(QTreeWidgetItem *parent) const;
    QString currentKey() const;
    void leave(QLineEdit *box, const QString &typed);
    int temperature() const { return m_catalogue.findQuantity(text(Catalogue::TemperatureNameId)); }

    QTemporaryDir m_dir;
    QString m_file;
    CountingHive *m_hive = nullptr;
    std::unique_ptr<SettingsStore> m_store;
    Catalogue m_catalogue;
    Settings m_settings;
    Session m_session;
    ScriptedDialogs m_answers;
    std::unique_ptr<frmSetOpt> m_dialog;
};

void tst_frmSetOpt::openStore()
{
    auto hive = std::make_unique<CountingHive>(m_file);
    m_hive = hive.get();
    m_store = std::make_unique<SettingsStore>(std::move(hive));
}

void tst_frmSetOpt::init()
{
    m_file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(m_file);
    openStore();
    m_catalogue = Catalogue();
    m_catalogue.LoadCatalogue(*m_store);
    m_settings = Settings();
    m_settings.LoadSettings(*m_store);
    m_settings.LoadSigFigs(*m_store);
    m_store->close();
    m_session = Session();
    m_answers.clear();
    m_answers.allowMessages(true); // recorded, and checked where they matter
}

void tst_frmSetOpt::cleanup()
{
    m_dialog.reset();
    QVERIFY(m_answers.scriptDone());
}

frmSetOpt *tst_frmSetOpt::open()
{
    m_dialog = std::make_unique<frmSetOpt>(m_catalogue, m_settings, m_session, *m_store, m_answers);
    // Shown, not run with exec(): a modal window would block the test (and alarm the watchdog).
    m_dialog->setModal(false);
    m_dialog->show();
    QApplication::setActiveWindow(m_dialog.get());
    if (!QTest::qWaitForWindowActive(m_dialog.get()))
        qWarning("the options dialog did not become active");
    m_hive->flushes = 0;
    return m_dialog.get();
}

QByteArray tst_frmSetOpt::fileBytes() const
{
    QFile file(m_file);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QTreeWidgetItem *tst_frmSetOpt::node(const QString &key) const
{
    auto *tree = control<QTreeWidget>("treeMain");
    QList<QTreeWidgetItem *> pending { tree->topLevelItem(0) };
    while (!pending.isEmpty()) {
        QTreeWidgetItem *item = pending.takeFirst();
        if (item->data(0, frmSetOpt::KeyRole).toString() == key)
            return item;
        for (int i = 0; i < item->childCount(); ++i)
            pending.append(item->child(i));
    }
    return nullptr;
}

QList<ScriptedDialogs::Asked> tst_frmSetOpt::asked(ScriptedDialogs::Kind kind) const
{
    QList<ScriptedDialogs::Asked> list;
    for (const auto &one : m_answers.asked())
        if (one.kind == kind)
            list.append(one);
    return list;
}

QList<Notice> tst_frmSetOpt::notices(ScriptedDialogs::Kind kind) const
{
    QList<Notice> list;
    for (const auto &one : asked(kind))
        list.append(one.notice);
    return list;
}

void tst_frmSetOpt::answerInputs(const QStringList &answers)
{
    for (const QString &answer : answers)
        m_answers.answerInput(answer);
}

QStringList tst_frmSetOpt::childKeys(QTreeWidgetItem *parent) const
{
    QStringList keys;
    for (int i = 0; i < parent->childCount(); ++i)
        keys.append(parent->child(i)->data(0, frmSetOpt::KeyRole).toString());
    keys.sort();
    return keys;
}

QString tst_frmSetOpt::currentKey() const
{
    QTreeWidgetItem *item = control<QTreeWidget>("treeMain")->currentItem();
    return item ? item->data(0, frmSetOpt::KeyRole).toString() : QString();
}

// Types into a threshold box and moves the focus on, as the user leaves it.
void tst_frmSetOpt::leave(QLineEdit *box, const QString &typed)
{
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, typed);
    control<QPushButton>("cmdHelp")->setFocus();
}

void tst_frmSetOpt::exampleText_data()
{
    QTest::addColumn<bool>("scientific");
    QTest::addColumn<bool>("triads");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<QString>("example");
    QTest::newRow("scientific with triads") << true << true << "."
                                            << " 1.234 567 890 E+5";
    QTest::newRow("scientific without triads") << true << false << "."
                                               << " 1.234567890 E+5";
    QTest::newRow("regular with triads") << false << true << "."
                                         << " 123 456.789 0";
    QTest::newRow("regular without triads") << false << false << "."
                                            << " 123456.7890";
    QTest::newRow("the locale's decimal comma") << false << true << ","
                                                << " 123 456,789 0";
}

void tst_frmSetOpt::exampleText()
{
    QFETCH(bool, scientific);
    QFETCH(bool, triads);
    QFETCH(QString, decimal);
    QFETCH(QString, example);
    m_settings.Scientific = scientific;
    m_settings.Triads = triads;
    m_settings.DecimalSeparator = decimal;
    open();
    QCOMPARE(control<QLabel>("lblExampleText")->text(), example);
}

void tst_frmSetOpt::exampleFollowsTheControlsAtOnce()
{
    m_settings.Scientific = false;
    m_settings.Triads = true;
    open();
    auto *example = control<QLabel>("lblExampleText");
    control<QCheckBox>("chkTriads")->click();
    QCOMPARE(example->text(), QStringLiteral(" 123456.7890"));
    control<QRadioButton>("Option1_0")->click();
    QCOMPARE(example->text(), QStringLiteral(" 1.234567890 E+5"));
    control<QCheckBox>("chkTriads")->click();
    QCOMPARE(example->text(), QStringLiteral(" 1.234 567 890 E+5"));
}

void tst_frmSetOpt::sliderRunsFromOneToThirteen()
{
    m_settings.SigFigs = 0; // stored "0" is kept by the settings; the slider starts at 1
    open();
    auto *slider = control<QSlider>("Slider1");
    QCOMPARE(slider->minimum(), 1);
    QCOMPARE(slider->maximum(), 13);
    QCOMPARE(slider->value(), 1);
    QCOMPARE(control<QLabel>("lblslider")->text(), QStringLiteral("1"));
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_End);
    QCOMPARE(control<QLabel>("lblslider")->text(), QStringLiteral("13"));
}

void tst_frmSetOpt::thresholds_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown"); // the box's text after leaving it
    QTest::addColumn<int>("message"); // 0: none
    QTest::addColumn<QString>("stored");

    QTest::newRow("1E+9 itself is accepted") << "txtMaxNumber"
                                             << "."
                                             << "1E+9"
                                             << "1E+9" << 0 << "1000000000";
    QTest::newRow("above 1E+9 becomes 1e+9") << "txtMaxNumber"
                                             << "."
                                             << "2e9"
                                             << "1e+9" << 5018 << "1000000000";
    QTest::newRow("1E-9 itself is accepted") << "txtMinNumber"
                                             << "."
                                             << "1E-9"
                                             << "1E-9" << 0 << "0.000000001";
    QTest::newRow("below 1E-9 becomes 1e-9") << "txtMinNumber"
                                             << "."
                                             << "1e-10"
                                             << "1e-9" << 5019 << "0.000000001";
    QTest::newRow("zero is below 1E-9") << "txtMinNumber"
                                        << "."
                                        << "0"
                                        << "1e-9" << 5019 << "0.000000001";
    QTest::newRow("no number puts the last value back") << "txtMaxNumber"
                                                        << "."
                                                        << "lots"
                                                        << "1000" << 5050 << "1000";
    QTest::newRow("the locale's decimal comma") << "txtMaxNumber"
                                                << ","
                                                << "2,5"
                                                << "2,5" << 0 << "2.5";
}

void tst_frmSetOpt::thresholds()
{
    QFETCH(QString, box);
    QFETCH(QString, decimal);
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(int, message);
    QFETCH(QString, stored);
    m_settings.DecimalSeparator = decimal;
    open();
    auto *edit = control<QLineEdit>(box.toLatin1().constData());
    leave(edit, typed);
    QCOMPARE(edit->text(), shown);
    QCOMPARE(notices(ScriptedDialogs::Message).size(), message ? 1 : 0);
    if (message)
        QCOMPARE(notices(ScriptedDialogs::Message).first().text, text(message));

    control<QPushButton>("cmdOK")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    const QString name = box == QStringLiteral("txtMaxNumber") ? QStringLiteral("maxnumber")
                                                               : QStringLiteral("minnumber");
    SettingsStore reread(std::make_unique<HiveFile>(m_file));
    QCOMPARE(reread.RegReadString(Settings::Section, name, QString()), stored);
}

void tst_frmSetOpt::thresholdIsCheckedOnOk()
{
    open();
    auto *max = control<QLineEdit>("txtMaxNumber");
    max->setText(QStringLiteral("5e9")); // typed, then Enter: the box was never left
    control<QPushButton>("cmdOK")->click();
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(notices(ScriptedDialogs::Message).size(), 1);
    QCOMPARE(max->text(), QStringLiteral("1e+9"));
    QVERIFY(fileBytes().isEmpty() || !fileBytes().contains("maxnumber"));
    control<QPushButton>("cmdOK")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_settings.MaxNumber, 1e9);
}

void tst_frmSetOpt::shellProgram()
{
    m_settings.UseWindowsCalc = 1;
    m_settings.ShellProgram = QStringLiteral("/usr/bin/old");
    open();
    const QByteArray before = fileBytes();
    auto *choose = control<QPushButton>("cmdDialog");
    QVERIFY(!choose->isEnabled());
    QVERIFY(control<QRadioButton>("optCalcSci_0")->isEnabled());
    control<QRadioButton>("optWinCalc_1")->click();
    QVERIFY(choose->isEnabled());
    QVERIFY(!control<QRadioButton>("optCalcSci_0")->isEnabled());
    QVERIFY(!control<QRadioButton>("optCalcSci_1")->isEnabled());

    m_answers.answerOpenFile(QStringLiteral("/opt/tools/my calc"));
    m_answers.answerOpenFile(QString());
    choose->click();
    QCOMPARE(asked(ScriptedDialogs::OpenFile).first().filter, QStringLiteral("All Files (*)"));
    QCOMPARE(m_settings.ShellProgram, QStringLiteral("/opt/tools/my calc")); // in use at once
    QCOMPARE(control<QLabel>("lblShellProgram")->text(), QStringLiteral(" /opt/tools/my calc"));
    choose->click(); // cancelled: the path stays
    QCOMPARE(m_settings.ShellProgram, QStringLiteral("/opt/tools/my calc"));

    control<QPushButton>("cmdCancel")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(m_settings.ShellProgram, QStringLiteral("/opt/tools/my calc"));
    QCOMPARE(fileBytes(), before);
}

void tst_frmSetOpt::okWritesEverySetting()
{
    open();
    control<QSlider>("Slider1")->setValue(4);
    control<QRadioButton>("Option1_0")->click();
    control<QCheckBox>("chkTriads")->setChecked(false);
    leave(control<QLineEdit>("txtMaxNumber"), QStringLiteral("5000"));
    leave(control<QLineEdit>("txtMinNumber"), QStringLiteral("0.01"));
    control<QRadioButton>("optTabs_0")->click();
    control<QRadioButton>("optCalcSci_1")->click();
    control<QRadioButton>("optWinCalc_1")->click();
    control<QCheckBox>("chkConfirm")->setChecked(false);
    control<QCheckBox>("chkSysTray")->setChecked(false);
    control<QCheckBox>("chkRemember")->setChecked(false);
    control<QTabWidget>("TabStrip")->setCurrentIndex(1);
    control<QPushButton>("cmdOK")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_hive->flushes, 1);

    SettingsStore reread(std::make_unique<HiveFile>(m_file));
    const QList<QPair<QString, QString>> expected = {
        { "Tab", "1" },
        { "numericformatting", "4" },
        { "scientific", "1" },
        { "triads", "0" },
        { "maxnumber", "5000" },
        { "minnumber", "0.01" },
        { "tabs", "1" },
        { "WinCalc", "0" },
        { "SciCalc", "0" },
        { "confirm", "0" },
        { "systray", "0" },
        { "remember", "0" },
    };
    for (const auto &[name, value] : expected)
        QCOMPARE(reread.RegReadString(Settings::Section, name, QString()), value);

    // The program's settings are in use, and the next run reads the same.
    Settings next;
    next.LoadSettings(reread);
    next.LoadSigFigs(reread);
    for (const Settings *s : { &m_settings, &next }) {
        QCOMPARE(s->SigFigs, 4);
        QVERIFY(s->Scientific && !s->Triads && s->ShowTabs);
        QVERIFY(!s->ConfirmExit && !s->ShowTrayIcon && !s->RememberLast);
        QCOMPARE(s->MaxNumber, 5000.0);
        QCOMPARE(s->MinNumber, 0.01);
        QCOMPARE(s->UseWindowsCalc, 0);
    }

    // Reopened, the dialog shows the page that was shown on OK.
    open();
    QCOMPARE(control<QTabWidget>("TabStrip")->currentIndex(), 1);
    QVERIFY(control<QRadioButton>("optCalcSci_1")->isChecked());
}

void tst_frmSetOpt::pageKeysAndHelp()
{
    open();
    auto *tabs = control<QTabWidget>("TabStrip");
    QCOMPARE(tabs->currentIndex(), 0);
    QTest::keyClick(m_dialog.get(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 1);
    QTest::keyClick(m_dialog.get(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 0); // wraps at the end
    QTest::keyClick(m_dialog.get(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(tabs->currentIndex(), 1); // and at the start

    QSignalSpy help(m_dialog.get(), &frmSetOpt::helpRequested);
    QTest::keyClick(control<QTreeWidget>("treeMain"), Qt::Key_F1);
    control<QPushButton>("cmdTutorial")->click();
    QCOMPARE(help.size(), 2);
    QCOMPARE(help.at(0).at(0).toInt(), 40);
    QCOMPARE(help.at(1).at(0).toInt(), 24);
}

void tst_frmSetOpt::everyControlExplainsItself()
{
    open();
    const QStringList prefixes = { "cmd", "txt", "chk", "opt", "Option", "Slider", "tree",
        "TabStrip", "lblslider", "lblExampleText", "lblShellProgram" };
    int checked = 0;
    for (QWidget *widget : m_dialog->findChildren<QWidget *>()) {
        const QString name = widget->objectName();
        if (std::none_of(prefixes.begin(), prefixes.end(),
                [&](const QString &prefix) { return name.startsWith(prefix); }))
            continue;
        ++checked;
        QVERIFY2(!widget->whatsThis().isEmpty(), qPrintable(name));
    }
    QVERIFY(checked >= 35);
}

void tst_frmSetOpt::treeShowsTheCatalogue()
{
    const int t = temperature();
    QVERIFY(t > 0);
    open();
    auto *tree = control<QTreeWidget>("treeMain");
    QCOMPARE(tree->topLevelItemCount(), 1);
    QTreeWidgetItem *root = tree->topLevelItem(0);
    QCOMPARE(currentKey(), QStringLiteral("root"));
    QCOMPARE(root->text(0), text(5101));
    QCOMPARE(root->childCount(), m_catalogue.QuantityCount);

    QTreeWidgetItem *quantity = node(u'p' + m_catalogue.Quantities[t].Name);
    QVERIFY(quantity);
    QCOMPARE(
        quantity->data(0, frmSetOpt::IconKeyRole).toString(), QStringLiteral("enablephysquan"));
    QCOMPARE(quantity->childCount(), m_catalogue.Quantities[t].UnitCount);
    QVERIFY(!quantity->icon(0).pixmap(16, 16).isNull()); // the picture is there and can be drawn
    for (int j = 1; j <= m_catalogue.Quantities[t].UnitCount; ++j) {
        QTreeWidgetItem *unit = node(QStringLiteral("u%1 %2").arg(t).arg(j));
        QVERIFY(unit);
        QCOMPARE(unit->parent(), quantity);
        QCOMPARE(unit->text(0), m_catalogue.Units[t][j].Name);
        const bool isDefault = unit->text(0) == m_catalogue.Quantities[t].DefaultUnit;
        QCOMPARE(unit->data(0, frmSetOpt::IconKeyRole).toString(),
            isDefault ? QStringLiteral("defaultunit") : QStringLiteral("enable"));
    }
    // The units are sorted alphabetically, whatever their catalogue order.
    for (int i = 1; i < quantity->childCount(); ++i)
        QVERIFY(quantity->child(i - 1)->text(0).compare(
                    quantity->child(i)->text(0), Qt::CaseInsensitive)
            <= 0);

    // Temperature takes no new units, and its units have no factor to show.
    tree->setCurrentItem(quantity);
    QVERIFY(!control<QPushButton>("cmdAddNewUnit")->isEnabled());
    tree->setCurrentItem(quantity->child(0));
    QVERIFY(control<QCheckBox>("chkExact")->isHidden());
    QVERIFY(!control<QLineEdit>("txtConvFactor")->isEnabled());
    QVERIFY(!control<QPushButton>("cmdRemoveUnit")->isEnabled());

    auto *expand = control<QPushButton>("cmdExpandAll");
    expand->click();
    QCOMPARE(expand->text(), text(5141));
    for (int i = 0; i < root->childCount(); ++i)
        QVERIFY(root->child(i)->isExpanded());
    expand->click();
    QCOMPARE(expand->text(), text(5140));
    QVERIFY(!quantity->isExpanded());
}

void tst_frmSetOpt::addAndRemoveThroughTheTree()
{
    open();
    const int q = m_catalogue.QuantityCount + 1;
    answerInputs({ QStringLiteral("Widgets"), QStringLiteral("widget") });
    control<QPushButton>("cmdAddNewPhysQuan")->click();
    const auto boxes = asked(ScriptedDialogs::Input);
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(boxes.at(0).title, text(5211));
    QCOMPARE(boxes.at(0).defaultText, text(5212));
    QCOMPARE(boxes.at(1).title, text(5214));
    QTreeWidgetItem *quantity = node(QStringLiteral("pWidgets"));
    QVERIFY(quantity);
    QCOMPARE(
        quantity->data(0, frmSetOpt::IconKeyRole).toString(), QStringLiteral("enablephysquan"));
    QCOMPARE(childKeys(quantity), QStringList { QStringLiteral("u%1 1").arg(q) });
    QCOMPARE(currentKey(), QStringLiteral("u%1 1").arg(q));
    QCOMPARE(quantity->child(0)->data(0, frmSetOpt::IconKeyRole).toString(),
        QStringLiteral("defaultunit"));
    QVERIFY(control<QLineEdit>("txtName")->isEnabled());
    QVERIFY(!control<QLineEdit>("txtConvFactor")->isEnabled());
    QVERIFY(m_session.CatalogueChanged);

    m_answers.clear();
    answerInputs({ QStringLiteral("gadget"), QStringLiteral("2.5"), QStringLiteral("sprocket"),
        QStringLiteral("0.35") });
    control<QPushButton>("cmdAddNewUnit")->click(); // from the selected unit: its quantity
    control<QPushButton>("cmdAddNewUnit")->click();
    QCOMPARE(asked(ScriptedDialogs::Input).at(0).prompt,
        text(5221) + "Widgets" + text(5229) + "\n\n" + text(5222));
    QCOMPARE(asked(ScriptedDialogs::Input).at(1).prompt,
        text(5230) + "gadget" + text(5231) + "widget" + text(5229) + "\n\n" + text(5232) + "widget"
            + text(5233));
    QCOMPARE(asked(ScriptedDialogs::Input).at(1).defaultText, QStringLiteral("1"));
    QCOMPARE(childKeys(quantity),
        QStringList({ QStringLiteral("u%1 1").arg(q), QStringLiteral("u%1 2").arg(q),
            QStringLiteral("u%1 3").arg(q) }));
    QCOMPARE(node(QStringLiteral("u%1 3").arg(q))->data(0, frmSetOpt::IconKeyRole).toString(),
        QStringLiteral("enable"));
    QCOMPARE(currentKey(), QStringLiteral("u%1 3").arg(q));
    QVERIFY(control<QLineEdit>("txtConvFactor")->isEnabled());
    QCOMPARE(control<QLineEdit>("txtConvFactor")->text(), QStringLiteral("0.35"));

    // Removing the second of three units renumbers the third; its quantity is selected after.
    control<QTreeWidget>("treeMain")->setCurrentItem(node(QStringLiteral("u%1 2").arg(q)));
    m_answers.answerQuestion(Dialogs::No);
    m_answers.answerQuestion(Dialogs::Yes);
    control<QPushButton>("cmdRemoveUnit")->click();
    QCOMPARE(quantity->childCount(), 3);
    control<QPushButton>("cmdRemoveUnit")->click();
    QCOMPARE(notices(ScriptedDialogs::Question).last().text, text(5241) + "gadget" + text(5242));
    QCOMPARE(notices(ScriptedDialogs::Question).last().icon, Notice::Critical);
    QCOMPARE(childKeys(quantity),
        QStringList({ QStringLiteral("u%1 1").arg(q), QStringLiteral("u%1 2").arg(q) }));
    QCOMPARE(node(QStringLiteral("u%1 2").arg(q))->text(0), QStringLiteral("sprocket"));
    QCOMPARE(currentKey(), QStringLiteral("pWidgets"));

    m_answers.answerQuestion(Dialogs::Yes);
    control<QPushButton>("cmdRemovePhysQuan")->click();
    QCOMPARE(notices(ScriptedDialogs::Question).last().text, text(5240) + "Widgets" + text(5242));
    QVERIFY(!node(QStringLiteral("pWidgets")));
    QCOMPARE(currentKey(), QStringLiteral("root"));
    QCOMPARE(m_dialog->editor().quantityCount(), m_catalogue.QuantityCount);
}

void tst_frmSetOpt::unitRefusals()
{
    open();
    answerInputs({ QStringLiteral("Widgets"), QStringLiteral("widget") });
    control<QPushButton>("cmdAddNewPhysQuan")->click();
    auto *add = control<QPushButton>("cmdAddNewUnit");

    answerInputs({ QStringLiteral("widget") });
    add->click();
    QCOMPARE(notices(ScriptedDialogs::Message).last().text, text(5224) + "widget" + text(5225));
    answerInputs({ QStringLiteral("nothing"), QStringLiteral("0") });
    add->click();
    QCOMPARE(notices(ScriptedDialogs::Message).last().text, text(5255));
    answerInputs({ QString() }); // an empty name ends silently
    add->click();
    QCOMPARE(notices(ScriptedDialogs::Message).size(), 2);

    for (int j = 2; j <= Catalogue::MaxUnits; ++j) {
        answerInputs({ QStringLiteral("unit %1").arg(j), QStringLiteral("2") });
        add->click();
    }
    QCOMPARE(m_dialog->editor().quantity(m_catalogue.QuantityCount + 1).UnitCount, 55);
    add->click();
    QCOMPARE(notices(ScriptedDialogs::Message).last().text, text(5220));
    QCOMPARE(notices(ScriptedDialogs::Message).size(), 3);
}

void tst_frmSetOpt::enablingAndDisablingKeepsTheDefaultIcon()
{
    const int t = temperature();
    const int j = m_catalogue.findUnit(t, m_catalogue.Quantities[t].DefaultUnit);
    open();
    auto *tree = control<QTreeWidget>("treeMain");
    QTreeWidgetItem *unit = node(QStringLiteral("u%1 %2").arg(t).arg(j));
    tree->setCurrentItem(unit);
    control<QRadioButton>("optOnOff_1")->click();
    QCOMPARE(
        unit->data(0, frmSetOpt::IconKeyRole).toString(), QStringLiteral("disabledefaultunit"));
    QCOMPARE(m_dialog->editor().unit(t, j).OnOff, 0);
    control<QRadioButton>("optOnOff_0")->click();
    QCOMPARE(unit->data(0, frmSetOpt::IconKeyRole).toString(), QStringLiteral("defaultunit"));

    m_session.CatalogueChanged = false;
    control<QRadioButton>("optOnOff_0")->click(); // the same state again is still an edit
    QVERIFY(m_session.CatalogueChanged);

    tree->setCurrentItem(unit->parent());
    control<QRadioButton>("optOnOff_1")->click();
    QCOMPARE(unit->parent()->data(0, frmSetOpt::IconKeyRole).toString(),
        QStringLiteral("disablephysquan"));
    QCOMPARE(unit->data(0, frmSetOpt::IconKeyRole).toString(), QStringLiteral("defaultunit"));
}

void tst_frmSetOpt::renamedQuantityKeepsItsKey()
{
    open();
    answerInputs({ QStringLiteral("Widgets"), QStringLiteral("widget") });
    control<QPushButton>("cmdAddNewPhysQuan")->click();
    QTreeWidgetItem *quantity = node(QStringLiteral("pWidgets"));
    control<QTreeWidget>("treeMain")->setCurrentItem(quantity);
    QCOMPARE(m_session.CatalogueChanged, true);
    auto *name = control<QLineEdit>("txtName");
    name->setFocus();
    name->selectAll();
    QTest::keyClicks(name, QStringLiteral("Gizmos"));
    QCOMPARE(quantity->text(0), QStringLiteral("Gizmos"));
    QCOMPARE(quantity->data(0, frmSetOpt::KeyRole).toString(), QStringLiteral("pWidgets"));
    // A click on the node, selected already, shows its properties under the new name.
    auto *tree = control<QTreeWidget>("treeMain");
    tree->scrollToItem(quantity);
    QTest::mouseClick(
        tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(quantity).center());
    QVERIFY2(control<QPlainTextEdit>("txtComments")
                 ->toPlainText()
                 .startsWith(QStringLiteral("Gizmos has 1 unit.")),
        qPrintable(control<QPlainTextEdit>("txtComments")->toPlainText()));

    answerInputs({ QStringLiteral("Widgets") });
    control<QPushButton>("cmdAddNewPhysQuan")->click();
    QCOMPARE(notices(ScriptedDialogs::Message).last().text, text(5215) + u'\n' + text(5216));

    // Stored under the name it has now.
    control<QPushButton>("cmdOK")->click();
    SettingsStore reread(std::make_unique<HiveFile>(m_file));
    QCOMPARE(
        reread.subKeys(QStringLiteral("User\\NewQuans")), QStringList { QStringLiteral("Gizmos") });
}

void tst_frmSetOpt::problemsKeepTheDialogOpen_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message");
    QTest::newRow("an empty unit name") << "txtName"
                                        << "" << text(5250);
    QTest::newRow("a factor of 0") << "txtConvFactor"
                                   << "0" << text(5256).arg(QStringLiteral("gadget"));
    QTest::newRow("a factor too large") << "txtConvFactor"
                                        << "1e999" << text(5256).arg(QStringLiteral("gadget"));
}

void tst_frmSetOpt::problemsKeepTheDialogOpen()
{
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    open();
    const int q = m_catalogue.QuantityCount + 1;
    answerInputs({ QStringLiteral("Widgets"), QStringLiteral("widget"), QStringLiteral("gadget"),
        QStringLiteral("2.5") });
    control<QPushButton>("cmdAddNewPhysQuan")->click();
    control<QPushButton>("cmdAddNewUnit")->click();
    auto *edit = control<QLineEdit>(box.toLatin1().constData());
    edit->setFocus();
    edit->selectAll();
    if (typed.isEmpty())
        QTest::keyClick(edit, Qt::Key_Delete);
    else
        QTest::keyClicks(edit, typed);
    control<QTreeWidget>("treeMain")->setCurrentItem(node(QStringLiteral("root")));
    const QByteArray before = fileBytes();

    control<QPushButton>("cmdOK")->click();
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(notices(ScriptedDialogs::Message).last().text, message);
    QCOMPARE(currentKey(), QStringLiteral("u%1 2").arg(q)); // the unit at fault is shown
    QCOMPARE(fileBytes(), before);
    QCOMPARE(m_catalogue.findQuantity(QStringLiteral("Widgets")), 0);
}

void tst_frmSetOpt::cancelLeavesEverythingAsItWas()
{
    const int t = temperature();
    open();
    const QByteArray before = fileBytes();
    const Catalogue catalogueBefore = m_catalogue;
    answerInputs({ QStringLiteral("Widgets"), QStringLiteral("widget") });
    control<QPushButton>("cmdAddNewPhysQuan")->click();
    control<QTreeWidget>("treeMain")->setCurrentItem(node(QStringLiteral("u%1 2").arg(t)));
    control<QRadioButton>("optOnOff_1")->click();
    control<QSlider>("Slider1")->setValue(2);
    control<QCheckBox>("chkSysTray")->setChecked(!m_settings.ShowTrayIcon);

    control<QPushButton>("cmdCancel")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(fileBytes(), before);
    QCOMPARE(m_hive->flushes, 0);
    QVERIFY(!m_session.CatalogueChanged);
    QCOMPARE(m_settings.SigFigs, 7);
    QCOMPARE(m_catalogue.QuantityCount, catalogueBefore.QuantityCount);
    QCOMPARE(m_catalogue.enabledUnitNames(t), catalogueBefore.enabledUnitNames(t));
    QCOMPARE(m_catalogue.Units[t][2].OnOff, 1);
}

void tst_frmSetOpt::okWithoutEditsLeavesTheCatalogueAlone()
{
    // A store that already holds a catalogue of the user's.
    {
        SettingsStore::Batch batch(*m_store);
        m_store->RegWriteString(QStringLiteral("User\\NewQuans\\Widgets"), QStringLiteral("OnOff"),
            QStringLiteral("1"));
        m_store->RegWriteString(QStringLiteral("User\\NewQuans\\Widgets"),
            QStringLiteral("DefaultUnit"), QStringLiteral("widget"));
        m_store->RegWriteString(
            QStringLiteral("User\\Units\\Widgets"), QStringLiteral("widget"), QStringLiteral("c1"));
        m_store->RegWriteString(QStringLiteral("User\\Units\\Widgets"), QStringLiteral("gadget"),
            QStringLiteral("b2.5"));
        m_store->RegWriteString(
            QStringLiteral("settings"), QStringLiteral("windowstate"), QStringLiteral("0"));
    }
    m_catalogue.LoadCatalogue(*m_store);
    m_store->close();
    const QByteArray before = fileBytes();
    open();
    auto *tree = control<QTreeWidget>("treeMain");
    control<QPushButton>("cmdExpandAll")->click();
    tree->setCurrentItem(node(QStringLiteral("pWidgets")));
    tree->setCurrentItem(node(QStringLiteral("pWidgets"))->child(0));
    control<QPushButton>("cmdOK")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(!m_session.CatalogueChanged);
    const QByteArray after = fileBytes();
    QVERIFY(!userPart(before).isEmpty());
    QCOMPARE(userPart(after), userPart(before));
    QVERIFY(after.contains("\"windowstate\"=\"0\"")); // nothing of the key was deleted
    QCOMPARE(m_hive->flushes, 1);
}

// Adds a quantity of three units and switches a built-in unit off; the next run converts between
// the new units and no longer lists the unit switched off.
void tst_frmSetOpt::theUsersRoad()
{
    const int t = temperature();
    const QString switchedOff = m_catalogue.Units[t][2].Name;
    m_session.TrayHintShown = true;
    open();
    answerInputs({ QStringLiteral("Widgets"), QStringLiteral("widget"), QStringLiteral("gadget"),
        QStringLiteral("2.5"), QStringLiteral("sprocket"), QStringLiteral("0.35") });
    control<QPushButton>("cmdAddNewPhysQuan")->click();
    control<QPushButton>("cmdAddNewUnit")->click();
    control<QPushButton>("cmdAddNewUnit")->click();
    control<QTreeWidget>("treeMain")->setCurrentItem(node(QStringLiteral("u%1 2").arg(t)));
    control<QRadioButton>("optOnOff_1")->click();
    const int other = t == 1 ? 2 : 1; // a built-in quantity switched off as a whole
    control<QTreeWidget>("treeMain")
        ->setCurrentItem(node(u'p' + m_catalogue.Quantities[other].Name));
    control<QRadioButton>("optOnOff_1")->click();
    control<QPushButton>("cmdOK")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_hive->flushes, 1); // catalogue and settings in one save
    QVERIFY(m_catalogue.findQuantity(QStringLiteral("Widgets")) > 0);
    m_dialog.reset();

    SettingsStore reread(std::make_unique<HiveFile>(m_file));
    QCOMPARE(reread.RegReadString(Settings::Section, QStringLiteral("minonce"), QString()),
        QStringLiteral("1"));
    Catalogue restarted;
    restarted.LoadCatalogue(reread);
    const int q = restarted.findQuantity(QStringLiteral("Widgets"));
    QVERIFY(q > 0);
    QCOMPARE(restarted.enabledUnitNames(q),
        QStringList(
            { QStringLiteral("widget"), QStringLiteral("gadget"), QStringLiteral("sprocket") }));
    QVERIFY(!restarted.enabledUnitNames(t).contains(switchedOff));
    QCOMPARE(restarted.enabledUnitNames(t).size(), m_catalogue.Quantities[t].UnitCount - 1);
    QCOMPARE(restarted.Quantities[other].OnOff, 0);
    QCOMPARE(restarted.enabledUnitNames(other).size(), m_catalogue.Quantities[other].UnitCount);

    restarted.CurrentQuantity = q;
    Session session;
    const ConversionEngine engine(restarted, m_settings, session);
    const ConversionResult converted
        = engine.Convert(QStringLiteral("gadget"), QStringLiteral("sprocket"), 7);
    QVERIFY(converted.notices.isEmpty());
    QCOMPARE(NumberText::leadingNumber(converted.text), 50.0);
    m_catalogue.CurrentQuantity = q;
    const ConversionEngine live(m_catalogue, m_settings, session);
    QCOMPARE(
        live.Convert(QStringLiteral("gadget"), QStringLiteral("sprocket"), 7).text, converted.text);

    // A unit of factor 0 that reached the store some other way (an older or hand-edited file)
    // is the engine's division error as a target, never a crash.
    reread.RegWriteString(
        QStringLiteral("User\\Units\\Widgets"), QStringLiteral("nothing"), QStringLiteral("a0"));
    restarted.LoadCatalogue(reread);
    restarted.CurrentQuantity = restarted.findQuantity(QStringLiteral("Widgets"));
    const ConversionEngine withZero(restarted, m_settings, session);
    const ConversionResult divided = withZero.UpdateResult(
        QStringLiteral("widget"), QStringLiteral("nothing"), QStringLiteral("3"));
    QCOMPARE(divided.notices.size(), 1);
    const RuntimeError division { RuntimeError::DivisionByZero, {} };
    QCOMPARE(divided.notices.first().text, division.description());
    QVERIFY(divided.text.isEmpty());
}

MENSURA_GUI_TEST_MAIN(tst_frmSetOpt)
#include "tst_frmSetOpt.moc"

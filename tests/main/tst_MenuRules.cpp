// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What the main window's Edit, File and Tools menus enable for what the window shows.
#include "catalogue/StringTable.h"
#include "main/MenuRules.h"

#include <QtTest>

class tst_MenuRules : public QObject
{
    Q_OBJECT

private slots:
    void rules_data();
    void rules();
};

void tst_MenuRules::rules_data()
{
    // The state: the result box, the clipboard ("-" for no text on it), the value box, which
    // units are selected ("LR", "L", "R" or ""), whether marking is enabled. What is enabled:
    // copy value, paste, swap, copy whole conversion, and the commands on all units (File,
    // Tools), as a string of five 0/1.
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("units");
    QTest::addColumn<bool>("mark");
    QTest::addColumn<QString>("enabled");
    QTest::newRow("a conversion shown") << "144.0000" << "-" << "12" << "LR" << true << "10111";
    QTest::newRow("scientific notation can be copied")
        << "1.440000E+2" << "-" << "12" << "LR" << true << "10111";
    QTest::newRow("the units prompt cannot be copied")
        << StringTable::text(368) << "-" << "12" << "L" << false << "00001";
    QTest::newRow("the value prompt cannot be copied")
        << StringTable::text(367) << "-" << "" << "LR" << false << "00100";
    QTest::newRow("an empty result box") << "" << "-" << "1" << "R" << false << "00000";
    QTest::newRow("a number with its unit can be pasted")
        << "" << "12.5e-3kg" << "" << "" << false << "01000";
    QTest::newRow("a negative number can be pasted") << "" << " -3" << "" << "" << false << "01000";
    QTest::newRow("zero is never offered for pasting")
        << "" << "0.0e5" << "" << "" << false << "00000";
    QTest::newRow("words are not offered for pasting")
        << "" << "twelve" << "" << "" << false << "00000";
    QTest::newRow("an empty clipboard text") << "" << "" << "" << "" << false << "00000";
    QTest::newRow("a value without an initial unit") << "" << "-" << "7" << "R" << false << "00000";
}

void tst_MenuRules::rules()
{
    QFETCH(QString, result);
    QFETCH(QString, clipboard);
    QFETCH(QString, value);
    QFETCH(QString, units);
    QFETCH(bool, mark);
    QFETCH(QString, enabled);
    MenuRules::State state;
    state.result = result;
    state.value = value;
    state.leftUnit = units.contains(u'L');
    state.rightUnit = units.contains(u'R');
    state.markEnabled = mark;
    if (clipboard != u"-")
        state.clipboard = clipboard;
    const MenuRules::Edit edit = MenuRules::edit(state);
    const auto bit = [](bool on) { return on ? u'1' : u'0'; };
    const QString shown = QString() + bit(edit.copyValue) + bit(edit.paste) + bit(edit.swap)
        + bit(edit.copyWholeConversion) + bit(MenuRules::file(state));
    QCOMPARE(shown, enabled);
    QCOMPARE(MenuRules::tools(state), MenuRules::file(state));
}

QTEST_GUILESS_MAIN(tst_MenuRules)
#include "tst_MenuRules.moc"

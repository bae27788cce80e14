// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What the main window's Edit, File and Tools menus enable for what the window shows.
#include "catalogue/StringTable.h"
#include "main/MenuRules.h"
#include "support/DataRows.h"

#include <QtTest>

class tst_MenuRules : public QObject
{
    Q_OBJECT

private slots:
    void rules_data();
    void rules();
};

// The state: the result box, the clipboard ("-" for no text on it), the value box, which units
// are selected ("LR", "L", "R" or ""), whether marking is enabled. What is enabled: copy value,
// paste, swap, copy whole conversion, and the commands on all units (File, Tools), as 0/1.
struct MenuRow {
    const char *row;
    QString result, clipboard, value, units;
    bool mark;
    QString enabled;
};
Q_DECLARE_METATYPE(MenuRow)

void tst_MenuRules::rules_data()
{
    const MenuRow rows[] = {
        { "a conversion shown", "144.0000", "-", "12", "LR", true, "10111" },
        { "scientific notation can be copied", "1.440000E+2", "-", "12", "LR", true, "10111" },
        { "the units prompt cannot be copied", StringTable::text(368), "-", "12", "L", false,
            "00001" },
        { "the value prompt cannot be copied", StringTable::text(367), "-", "", "LR", false,
            "00100" },
        { "an empty result box", "", "-", "1", "R", false, "00000" },
        { "a number with its unit can be pasted", "", "12.5e-3kg", "", "", false, "01000" },
        { "a negative number can be pasted", "", " -3", "", "", false, "01000" },
        { "zero is never offered for pasting", "", "0.0e5", "", "", false, "00000" },
        { "words are not offered for pasting", "", "twelve", "", "", false, "00000" },
        { "an empty clipboard text", "", "", "", "", false, "00000" },
        { "a value without an initial unit", "", "-", "7", "R", false, "00000" },
    };
    addRows(rows);
}

void tst_MenuRules::rules()
{
    QFETCH(MenuRow, row);
    MenuRules::State state;
    state.result = row.result;
    state.value = row.value;
    state.leftUnit = row.units.contains(u'L');
    state.rightUnit = row.units.contains(u'R');
    state.markEnabled = row.mark;
    if (row.clipboard != u"-")
        state.clipboard = row.clipboard;
    const MenuRules::Edit edit = MenuRules::edit(state);
    const auto bit = [](bool on) { return on ? u'1' : u'0'; };
    const QString shown = QString() + bit(edit.copyValue) + bit(edit.paste) + bit(edit.swap)
        + bit(edit.copyWholeConversion) + bit(MenuRules::file(state));
    QCOMPARE(shown, row.enabled);
    QCOMPARE(MenuRules::tools(state), MenuRules::file(state));
}

QTEST_GUILESS_MAIN(tst_MenuRules)
#include "tst_MenuRules.moc"

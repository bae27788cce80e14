// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Which items of the main window's Edit, File and Tools menus are enabled, decided when a menu
// opens from what the window shows at that moment. The rules are plain functions of that state,
// so that they hold without a window; frmMain gathers the state and enables its items.
#pragma once

#include <optional>
#include <QString>

class MenuRules
{
public:
    // What the rules look at.
    struct State {
        QString value; // the value box's text
        QString result; // the converted value box's text
        bool leftUnit = false; // a unit is selected in the left list
        bool rightUnit = false; // a unit is selected in the right list
        bool markEnabled = false; // a conversion that can be marked is shown
        std::optional<QString> clipboard; // the clipboard's plain text, when it holds any
    };

    struct Edit {
        bool copyValue = false;
        bool paste = false;
        bool swap = false;
        bool copyWholeConversion = false;
    };
    // Copying the value needs a result, not one of the prompts ("Choose the units below...",
    // "<---- Enter a number"); pasting needs a clipboard text whose leading number is not 0,
    // so "0" is never offered; swapping needs both units; the whole conversion goes with marking.
    static Edit edit(const State &state);
    // Printing and saving all conversions of the value: a value and an initial unit.
    static bool file(const State &state);
    // Adding all conversions of the value: a value and an initial unit.
    static bool tools(const State &state);
};

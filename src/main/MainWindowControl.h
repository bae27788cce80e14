// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What the other windows may do to the main window: the marked conversions window makes a
// record the current conversion again, the find dialog goes to a unit. frmMain implements it;
// a test can implement it to watch what a window asks for.
#pragma once

#include <QString>

class MainWindowControl
{
public:
    virtual ~MainWindowControl() = default;

    // Selects the tab of that quantity (as a tab change by the user does). False when the
    // quantity has no tab (unknown or disabled).
    virtual bool selectQuantity(const QString &name) = 0;
    // Select a unit of the current quantity in the left or right list by its text; false
    // when the list does not hold it.
    virtual bool selectLeftUnit(const QString &unit) = 0;
    virtual bool selectRightUnit(const QString &unit) = 0;
    // Puts a text into the value box (which refreshes the result as any change does).
    virtual void setValueText(const QString &text) = 0;
    // Runs the conversion update and shows its result.
    virtual void refreshResult() = 0;
    // Gives the value box the keyboard focus.
    virtual void focusValue() = 0;
    // The number of marked conversions changed: the status bar's count and the commands that
    // need marked conversions follow it.
    virtual void markedCountChanged(int count) = 0;
};

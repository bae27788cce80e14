// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The main window of a running program, on a hive of the test's own that holds two quantities
// whose factors make results easy to work out by hand: Zeta Length (metre; foot = 0.3048 m and
// inch = 0.0254 m exactly; rod = 5.0292 m written with five figures, not exact) and Zeta Mass
// (kilogram, pound, gram). The hive says the first run is over, starts at Zeta Length and turns
// digit groups off. A test class derives from it, calls setUp() in init() and tearDown() in
// cleanup(), and acts on the window as a user does.
#pragma once

#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <memory>

class QAction;
class QComboBox;
class QLineEdit;
class QListWidget;
class QuantityTabBar;
class StatusPanel;

class MainWindowFixture
{
public:
    static const QString Lengths;
    static const QString Masses;

protected:
    void setUp();
    void tearDown();
    // Starts the program and makes its window the active one (shortcuts and focus need it).
    bool start();
    // Ends the program, if it still runs, and starts it again on the same hive.
    bool restart();

    QComboBox *value() const;
    QLineEdit *result() const;
    QListWidget *left() const;
    QListWidget *right() const;
    QuantityTabBar *tabs() const;
    StatusPanel *panel(int n) const;
    QAction *action(const char *name) const;
    // The text of the selected unit, "" when none is selected.
    static QString selected(const QListWidget *list);
    QString currentQuantity() const;

    // Replaces the value by typing.
    void typeValue(const QString &typed);
    void clickUnit(QListWidget *list, const QString &unit);
    void clickTab(const QString &quantity);
    // The Zeta Length conversion foot -> inch of the value, as typed and clicked.
    void showFeetInInches(const QString &typed);

    std::unique_ptr<TestHive> m_hive;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<TestProgram> m_program;
};

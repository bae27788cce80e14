// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The main window of a running program, on a hive of the test's own that holds two quantities
// whose factors make results easy to work out by hand: Zeta Length (metre; foot = 0.3048 m and
// inch = 0.0254 m exactly; rod = 5.0292 m written with five figures, not exact) and Zeta Mass
// (kilogram, pound, gram). The hive says the first run is over, starts at Zeta Length and turns
// digit groups off. A test class derives from it, calls setUp() in init() and tearDown() in
// cleanup(), and acts on the window as a user does. tearDown() fails the test when a dialog the
// test scripted was never shown.
#pragma once

#include "main/QuantityTabBar.h"
#include "main/StatusPanel.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <memory>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

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

    QComboBox *value() const { return m_program->find<QComboBox *>("txtLeft"); }
    QLineEdit *result() const { return m_program->find<QLineEdit *>("txtRight"); }
    QListWidget *left() const { return m_program->find<QListWidget *>("lstLeft"); }
    QListWidget *right() const { return m_program->find<QListWidget *>("lstRight"); }
    QuantityTabBar *tabs() const { return m_program->find<QuantityTabBar *>("tabMain"); }
    StatusPanel *panel(int n) const;
    QAction *action(const char *name) const { return m_program->find<QAction *>(name); }
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

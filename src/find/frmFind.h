// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The find unit dialog: the user types the start of a unit's name, picks the unit from the
// list of every enabled unit ("inch [Length]") and goes to it: the main window switches to the
// unit's quantity and makes it the initial unit. The lines and the search come from
// UnitSearch; the main window is reached only through MainWindowControl.
#pragma once

#include "find/UnitSearch.h"

#include <QDialog>

class Catalogue;
class Dialogs;
class MainWindowControl;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStatusBar;
struct Session;

class frmFind : public QDialog
{
    Q_OBJECT

public:
    frmFind(const Catalogue &catalogue, Session &session, Dialogs &dialogs,
        MainWindowControl &mainWindow, QWidget *parent = nullptr);

signals:
    // cmdHelp asks for this dialog's help topic; the owner of the help window shows it.
    void helpRequested(int context);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createControls();
    void setTexts();
    void connectControls();
    void PopulateFindListBox();

    void txtFind_Change();
    void lstFind_Click();
    void cmdGoTo_Click();
    void cmdOK_Click();
    void cmdHelp_Click();

    Session &m_session;
    Dialogs &m_dialogs;
    MainWindowControl &m_mainWindow;
    UnitSearch m_search;
    // True while the search itself moves the list's current line, so that only the user's own
    // choice of a line is copied into txtFind.
    bool m_searching = false;

    QLabel *lblFind = nullptr;
    QLineEdit *txtFind = nullptr;
    QListWidget *lstFind = nullptr;
    QPushButton *cmdGoTo = nullptr;
    QPushButton *cmdOK = nullptr;
    QPushButton *cmdHelp = nullptr;
    QStatusBar *StatusBar = nullptr;
    QLabel *lblTotal = nullptr;
};

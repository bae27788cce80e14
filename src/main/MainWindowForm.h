// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The main window's controls as they are built, the way a form designer's class holds them:
// the menus and their items, the quantity strip, the conversion panel and the status bar, each
// named as its objectName, laid out, and given its texts from the string table. frmMain inherits
// the form and does the wiring: it connects the controls to its handlers and runs the program.
#pragma once

class FiguresIndicator;
class QAction;
class QActionGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMainWindow;
class QMenu;
class QStatusBar;
class QToolButton;
class QWidget;
class QuantityTabBar;
class StatusPanel;
class ValueEdit;

class MainWindowForm
{
protected:
    // In this order: the menus need no fonts and go first (see main()).
    void createMenus(QMainWindow *window);
    void createControls(QMainWindow *window);
    void createStatusBar(QMainWindow *window);
    // Every caption, help line, tooltip and accessible name, from the string table.
    void setTexts(QMainWindow *window);

    // Controls, named as their objectName (the status panels are StatusBarPanel1 .. 4, the
    // items of a menu item array mnueditedit_0, mnueditedit_1 and so on).
    QuantityTabBar *tabMain = nullptr;
    QListWidget *lstAlphabet = nullptr;
    QWidget *picMain = nullptr;
    QComboBox *txtLeft = nullptr;
    QLineEdit *txtRight = nullptr;
    QListWidget *lstLeft = nullptr;
    QListWidget *lstRight = nullptr;
    QLabel *lblUnitLeft = nullptr;
    QLabel *lblUnitRight = nullptr;
    QLabel *lblEqualSign = nullptr;
    QToolButton *cmdIncreaseSigFigs = nullptr;
    QToolButton *cmdDecreaseSigFigs = nullptr;
    QStatusBar *StatusBar = nullptr;
    StatusPanel *StatusBarPanel[4] = {};
    FiguresIndicator *Shape1 = nullptr;
    QLabel *Label2 = nullptr;
    QLabel *Label3 = nullptr;

    QMenu *mnuFile = nullptr;
    QAction *mnuFileLoad = nullptr;
    QAction *mnuFilePrintAllConvForItem = nullptr;
    QAction *mnuFileSaveAllConvForItem = nullptr;
    QAction *mnuFileExit = nullptr;
    QMenu *mnuEdit = nullptr;
    QAction *mnueditedit[2] = {};
    QAction *mnueditCopyWholeConv = nullptr;
    QAction *mnueditswitch = nullptr;
    QMenu *mnuview = nullptr;
    QAction *mnuviewphys = nullptr;
    QAction *mnuviewmetric = nullptr;
    QAction *mnuviewSIUnits = nullptr;
    QAction *mnuviewcalc = nullptr;
    QMenu *mnurecords = nullptr;
    QAction *mnurecordsadd = nullptr;
    QAction *mnurecordsAddAll = nullptr;
    QAction *mnurecordspurge = nullptr;
    QAction *mnuRecordsView = nullptr;
    QAction *mnuRecordsFind = nullptr;
    QAction *mnufilesetopt = nullptr;
    QMenu *mnualwaystop = nullptr;
    QAction *mnualwaystoponoff[2] = {};
    QMenu *mnuHelp = nullptr;
    QAction *mnuhelphelp = nullptr;
    QMenu *mnuHelpWeb = nullptr;
    QAction *mnuHelpWebMensura = nullptr;
    QAction *mnuHelpWebGeneralInfo = nullptr;
    QAction *mnuHelpWebOverview = nullptr;
    QAction *mnuhelpabout = nullptr;
    QAction *mnuHelpExit = nullptr;
    QMenu *mnuview2 = nullptr;
    QAction *mnuview2phys = nullptr;
    QAction *mnuview2metric = nullptr;
    QAction *mnuview2numfor = nullptr;
    QAction *mnuview2edit[2] = {};
    QAction *mnuview2switch = nullptr;
    QAction *mnuview2records = nullptr;
    QAction *mnuview2find = nullptr;
    QMenu *mnuSysTray = nullptr;
    QAction *mnuSysTrayShowMensura = nullptr;
    QAction *mnuSysTrayExit = nullptr;

    QActionGroup *m_onTopGroup = nullptr;
    ValueEdit *m_valueEdit = nullptr;

private:
    QMenu *newMenu(const char *name, QWidget *parent);
    QAction *newAction(const char *name, QMenu *menu);

    QMainWindow *m_formWindow = nullptr; // the actions' owner
};

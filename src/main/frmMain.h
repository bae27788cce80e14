// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// frmMain, Mensura's working window: a value on the left, the initial unit and the target unit
// in two lists, the converted value on the right, one tab per physical quantity above them,
// menus and a four-panel status bar around them. Every change of value, unit, quantity,
// significant figures or number style runs the conversion engine again ("refreshing the
// result") and shows what it returns; the window itself holds no conversion rule.
//
// The catalogue, the settings, the session flags, the settings store and the dialogs are the
// application's (see shell/Startup); the window works on them by reference. Other windows act
// on this one through MainWindowControl. Start-up builds the quantity tabs
// (BuildQuantityTabs), puts the last conversion back and shows the window in its saved state;
// closing the window saves the session.
//
// The controls are built in MainWindowForm; what the menus enable is decided by MenuRules;
// copy and paste go through Clipboard; the placement and the last conversion are read and saved
// by MainWindowSession; the window system's side (minimum size, tray, on top) is MainWindowHook.
// The marked conversions live in the marked conversions window (frmConvRecords), made when the
// first one is marked, loaded or shown.
#pragma once

#include "convert/ConversionEngine.h"
#include "main/MainWindowControl.h"
#include "main/MainWindowForm.h"
#include "main/MainWindowSession.h"
#include "main/MenuRules.h"
#include "records/MarkedConversion.h"

#include <QHash>
#include <QMainWindow>
#include <QStringList>

class Catalogue;
class Dialogs;
class FiguresIndicator;
class MainWindowHook;
class QAction;
class QActionGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QToolButton;
class QuantityTabBar;
class Settings;
class SettingsStore;
class StatusPanel;
class frmConvRecords;
struct UnitReport;
class ValueEdit;
class QStatusBar;
struct Session;

class HelpWindow;

class frmMain : public QMainWindow, public MainWindowControl, private MainWindowForm
{
    Q_OBJECT

public:
    // One marked conversion: from value, from unit, to value, to unit, quantity.
    using MarkedLine = MarkedConversion;

    frmMain(Catalogue &catalogue, Settings &settings, Session &session, SettingsStore &store,
        Dialogs &dialogs, QWidget *parent = nullptr);
    ~frmMain() override;

    // Start-up: one tab per enabled quantity in alphabetical order, the one named selectName
    // made current (the first one when no tab has that name).
    void BuildQuantityTabs(const QString &selectName);
    // Applies what the settings decide about the window's look: the interface style, the
    // number style panel and the significant-figures panel.
    void applySettings();
    // Puts the remembered value and units back (start-up, when the settings say so).
    void restoreLastConversion();
    // Reads the saved placement and state and shows the window that way.
    void showInSavedState();
    // After the options dialog changed settings or the catalogue: rebuilds the tabs (keeping the
    // current quantity when it is still there), the look and the result.
    void optionsChanged();

    // A second copy of the program was started: come to the front, out of the tray or restored
    // from a minimised state.
    void activateFromOtherCopy();
    // Shows the message about a settings store that cannot be saved, once per run.
    void reportStoreFailure();

    // Always on top: the window-order side only (the menu's check marks are not touched).
    void setTopmost(bool on);
    bool isTopmost() const;
    bool isInTray() const;

    const QList<MarkedLine> &markedConversions() const;
    // The marked conversions window, made on first use.
    frmConvRecords &convRecords();
    QStringList valueHistory() const;

    // MainWindowControl
    bool selectQuantity(const QString &name) override;
    bool selectLeftUnit(const QString &unit) override;
    bool selectRightUnit(const QString &unit) override;
    void setValueText(const QString &text) override;
    void refreshResult() override;
    void focusValue() override;
    void markedCountChanged(int count) override;

    // Opens the help window (made on first use) at a topic; context 0 opens the contents.
    QWidget *showHelp(int context);

signals:
    // The window has been closed for good; the session is saved.
    void unloaded();
    // A window of the program asks for the help topic with that context number.
    void helpRequested(int context);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
#ifdef Q_OS_WIN
    bool nativeEvent(const QByteArray &eventType, void *message, qintptr *result) override;
#endif

private:
    // Building the window
    void createShortcuts();
    void connectControls();
    void connectMenus();

    // Event handlers
    void txtLeft_Change();
    void txtLeft_Click();
    void txtLeft_KeyEnter();
    void lstLeft_Click();
    void lstRight_Click();
    void tabMain_Click(int index);
    void cmdIncreaseSigFigs_Click();
    void cmdDecreaseSigFigs_Click();
    void lblUnitLeft_Click();
    void lblUnitRight_Click();
    void StatusBar_PanelClick(int panel);
    void StatusBar_PanelDblClick(int panel);
    void mnuFile_Open();
    void mnuEdit_Open();
    void mnurecords_Open();
    void mnuview2_Open();
    void mnueditedit_Click(int item);
    void mnueditCopyWholeConv_Click();
    void mnueditswitch_Click();
    void mnurecordsadd_Click();
    void mnurecordsAddAll_Click();
    void mnurecordspurge_Click();
    void mnualwaystoponoff_Click(int item);
    void mnuSysTrayShowMensura_Click();
    // Commands of windows that are not part of this one; they are connected here and do their
    // work once those windows are linked in.
    void mnuFileLoad_Click();
    void mnuFilePrintAllConvForItem_Click();
    void mnuFileSaveAllConvForItem_Click();
    void mnuviewphys_Click();
    void mnuviewmetric_Click();
    void mnuviewSIUnits_Click();
    void mnuviewcalc_Click();
    void mnuRecordsView_Click();
    void mnuRecordsFind_Click();
    void mnufilesetopt_Click();
    void mnuhelphelp_Click();
    void mnuHelpWebMensura_Click();
    void mnuHelpWebGeneralInfo_Click();
    void mnuHelpWebOverview_Click();
    void mnuhelpabout_Click();

    // Routines
    void ClickTab();
    void FillUnitLists(int q);
    void AddNumberToComboBox();
    void RecordConversion();
    // What the menu rules look at.
    MenuRules::State menuState() const;
    void applyEditRule();
    void applyFileRule();
    void applyToolsRule();
    void showNumberStyle();
    void showCurrentFigures();
    void showConversion(const ConversionResult &result);
    void showNotices(const QList<Notice> &notices);
    void showReadingNote();
    void showHelpLine(const QString &line, bool menuOpen);
    void pasteValue(bool fromSelection);
    void pasteText(const QString &pasted);
    void copyConvertedValue();
    void changeSigFigs(int step);
    void stepTab(int step);
    void setMarkEnabled(bool enabled);
    void deleteMarkedConversions();
    // The value, the initial unit and every unit of the right-hand list, converted; the
    // message boxes the conversions would show go to notices.
    UnitReport currentUnitReport(QList<Notice> *notices);
    void saveSession();
    void hideWindowsWithTray();
    void showWindowsFromTray();

    // Changes made by the program itself: the next update is skipped, as the engine expects.
    void setRowByProgram(QListWidget *list, int row);
    void setValueByProgram(const QString &text);
    static int rowOf(const QListWidget *list, const QString &text);
    static QString selectedText(const QListWidget *list);

    qreal dotsPerInchX() const;
    qreal dotsPerInchY() const;

    Catalogue &m_catalogue;
    Settings &m_settings;
    Session &m_session;
    SettingsStore &m_store;
    Dialogs &m_dialogs;
    ConversionEngine m_engine;
    MainWindowSession m_windowSession;
    HelpWindow *m_helpWindow = nullptr;

    // What a quantity showed when it was last left: value, initial unit, target unit.
    struct QuantityMemory {
        QString value, leftUnit, rightUnit;
    };

    QHash<QString, QuantityMemory> m_memory; // by quantity name
    frmConvRecords *m_convRecords = nullptr;
    MainWindowHook *m_hook = nullptr;
    bool m_convRecordsInTray = false; // hidden with the main window, to come back with it
    bool m_buildingTabs = false;
    bool m_unloaded = false;
};

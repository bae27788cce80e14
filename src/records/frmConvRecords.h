// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The marked conversions window: the conversions the user set aside during this run, one line
// each, with commands to print, save, copy, delete them or make one the main window's current
// conversion again. The main window creates it once and hands it every marked conversion
// (AddConv); closing only hides it, so the list lasts until the program ends. The records live
// in MarkedConversionsModel; file reading and writing, report texts and printing are done by
// ConversionsReader, ConversionsFile, PrintReport and ReportPrinter. Whatever it does to the
// main window goes through MainWindowControl; deleting all conversions is the main window's own
// command, asked for with deleteAllRequested().
#pragma once

#include "records/ConversionsReader.h"
#include "records/LineWidthMeter.h"
#include "records/MarkedConversion.h"
#include "records/ReportPrinter.h"

#include <memory>
#include <QMainWindow>

class Dialogs;
class MainWindowControl;
class MarkedConversionsModel;
class MarkedListDelegate;
class QAction;
class QLabel;
class QListView;
class QMenu;
class QProgressDialog;
class QPushButton;
struct Session;
class Settings;
class SettingsStore;

class frmConvRecords : public QMainWindow
{
    Q_OBJECT

public:
    // "some": the selected lines; "all": every line.
    enum Mode { Some, All };

    struct LoadOutcome {
        ConversionsReader::Status status = ConversionsReader::Finished;
        int added = 0;
        bool cancelled = false;
    };

    frmConvRecords(Settings &settings, Session &session, SettingsStore &store, Dialogs &dialogs,
        MainWindowControl &mainWindow, QWidget *parent = nullptr);
    ~frmConvRecords() override;

    // Appends one marked conversion, in the order from value, from unit, to value, to unit,
    // quantity.
    void AddConv(const QString &fromValue, const QString &fromUnit, const QString &toValue,
        const QString &toUnit, const QString &quantity);
    // Appends many at once (loading a file, adding all conversions of a value).
    void addConversions(const QList<MarkedConversion> &records);
    int count() const;
    const QList<MarkedConversion> &conversions() const;
    // Empties the list (the main window's delete-all command, once the user agreed).
    void clearAll();
    // Reads a conversions file and adds its records: the load command of either window.
    // Progress and the foreign-file message are shown over dialogParent.
    LoadOutcome loadFile(const QString &path, QWidget *dialogParent);

    // The window was activated and has not been closed since: it is hidden and shown together
    // with the main window.
    bool shownWithMainWindow() const { return m_shownWithMainWindow; }
    // Stores the window's position and size in the settings (in twips).
    void savePlacement();
    ReportPrinter &reportPrinter() { return m_reportPrinter; }

public slots:
    // Stops a running load or save after its current step.
    void cancelOperation();

signals:
    // The delete-all command: the main window asks and then calls clearAll().
    void deleteAllRequested();
    void helpRequested(int context);
    // A load or save went on: percent done.
    void progressed(int percent);

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void createMenus();
    void createControls();
    void createStatusBar();
    void LoadTexts();
    void connectSignals();
    void loadPlacement();

    void mnuFile_Open();
    void mnuEdit_Open();
    void mnuFileMakeCurrentConv_Click();
    void mnuFileLoadConversions_Click();
    void mnuFilePrintCurrentRecord_Click();
    void mnuFilePrintAllRecords_Click();
    void mnuFileSaveCurrentRecord_Click();
    void mnuFileSaveAllRecords_Click();
    void mnuFileExit_Click();
    void mnuEditSelectAll_Click();
    void mnuEditCopyItem_Click();
    void mnuEditCopyAllItems_Click();
    void mnuEditDelSelectedItem_Click();
    void mnuEditDelAllItems_Click();
    void cmdHideForm_Click();
    void cmdHelp_Click();
    void lstConvRecords_Click();

    void SaveRecords(Mode mode);
    void PrintRecords(Mode mode);
    void CopyRecords(Mode mode);
    QList<int> selectedRows() const;
    QList<MarkedConversion> chosenRecords(Mode mode) const;
    void updateCountPanels();
    void updateListMeasures(int quantityWidth, int conversionWidth);

    void startProgress(int labelId, QWidget *dialogParent);
    bool reportProgress(qint64 done, qint64 total);
    void endProgress();

    Settings &m_settings;
    Session &m_session;
    SettingsStore &m_store;
    Dialogs &m_dialogs;
    MainWindowControl &m_mainWindow;

    MarkedConversionsModel *m_model = nullptr;
    MarkedListDelegate *m_delegate = nullptr;
    QListView *lstConvRecords = nullptr;
    QPushButton *cmdHideForm = nullptr;
    QPushButton *cmdHelp = nullptr;
    QLabel *mainmessage = nullptr;
    QLabel *numconvs = nullptr;

    QMenu *mnuFile = nullptr;
    QAction *mnuFileMakeCurrentConv = nullptr;
    QAction *mnuFileLoadConversions = nullptr;
    QAction *mnuFilePrintCurrentRecord = nullptr;
    QAction *mnuFilePrintAllRecords = nullptr;
    QAction *mnuFileSaveCurrentRecord = nullptr;
    QAction *mnuFileSaveAllRecords = nullptr;
    QAction *mnuFileExit = nullptr;
    QMenu *mnuEdit = nullptr;
    QAction *mnuEditSelectAll = nullptr;
    QAction *mnuEditCopyItem = nullptr;
    QAction *mnuEditCopyAllItems = nullptr;
    QAction *mnuEditDelSelectedItem = nullptr;
    QAction *mnuEditDelAllItems = nullptr;

    ReportPrinter m_reportPrinter;
    std::unique_ptr<LineWidthMeter> m_meter;
    // The widest quantity name and the widest conversion (the part after the tabs) seen, in
    // pixels; never lowered, not even by deleting lines.
    int m_widestQuantity = 0;
    int m_widestConversion = 0;
    int m_rowHeight = 0;
    bool m_shownWithMainWindow = false;
    bool m_everShown = false;
    // The status bar shows the selection text, which counts the lines too.
    bool m_selectionTextShown = false;

    QProgressDialog *m_progress = nullptr;
    bool m_cancelRequested = false;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/frmMain.h"

#include "about/frmAbout.h"
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/NumberFilter.h"
#include "convert/NumberText.h"
#include "find/frmFind.h"
#include "help/HelpTopics.h"
#include "help/HelpWindow.h"
#include "help/Links.h"
#include "help/ShellProgramRunner.h"
#include "main/AlphabetItem.h"
#include "main/Clipboard.h"
#include "main/FiguresIndicator.h"
#include "main/MainWindowHook.h"
#include "main/MainWindowSession.h"
#include "main/MainWindowStrings.h"
#include "main/QuantityTabBar.h"
#include "main/StatusPanel.h"
#include "main/ValueEdit.h"
#include "main/WindowOnTop.h"
#include "main/WindowPlacement.h"
#include "options/frmSetOpt.h"
#include "records/FileDialogTexts.h"
#include "records/frmConvRecords.h"
#include "records/UnitReport.h"
#include "records/UnitReportCommands.h"
#include "shell/Dialogs.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTimer>
#include <QToolButton>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace
{

constexpr int HistorySize = 10;

QString text(int id)
{
    return StringTable::text(id);
}

} // namespace

frmMain::frmMain(Catalogue &catalogue, Settings &settings, Session &session, SettingsStore &store,
    Dialogs &dialogs, QWidget *parent)
    : QMainWindow(parent)
    , m_catalogue(catalogue)
    , m_settings(settings)
    , m_session(session)
    , m_store(store)
    , m_dialogs(dialogs)
    , m_engine(catalogue, settings, session)
    , m_windowSession(store, dialogs)
{
    setObjectName(QStringLiteral("frmMain"));
    // The menus need no fonts yet: made first, they overlap the font database's set-up on
    // another core (see main()).
    createMenus(this);
    createControls(this);
    createStatusBar(this);
    createShortcuts();
    setTexts(this);
    connectControls();
    connectMenus();

    showNumberStyle();
    mnualwaystoponoff[1]->setChecked(true);
    setMarkEnabled(false);
    markedCountChanged(0);

    m_hook = new MainWindowHook(this, m_settings, m_session, m_store, m_dialogs, mnuSysTray);
    connect(m_hook, &MainWindowHook::wentToTray, this, &frmMain::hideWindowsWithTray);
    connect(m_hook, &MainWindowHook::restored, this, &frmMain::showWindowsFromTray);
    connect(m_hook, &MainWindowHook::storeWritten, this, &frmMain::reportStoreFailure);
}

frmMain::~frmMain()
{
    // The controls outlive this part of the window while QWidget's destructor deletes them, and
    // some still signal then (the value box reports losing the focus): nothing may reach here.
    for (QObject *child : findChildren<QObject *>()) {
        disconnect(child, nullptr, this, nullptr);
        child->removeEventFilter(this);
    }
}

// ---------------------------------------------------------------------------------------------
// Building the window

void frmMain::createShortcuts()
{
    // The window sees these keys before any of its controls does.
    const auto add = [this](const QKeySequence &keys, auto handler) {
        auto *shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, handler);
        return shortcut;
    };
    add(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { stepTab(1); });
    // Shift+Tab arrives as Backtab, and the platforms differ in which of the two spellings a
    // shortcut must use to see it (X11 matches only Tab). One shortcut holds both; should a
    // platform match both, the press comes as one ambiguous activation, which steps as well.
    QShortcut *previous
        = add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), [this] { stepTab(-1); });
    previous->setKeys({ QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab) });
    connect(previous, &QShortcut::activatedAmbiguously, this, [this] { stepTab(-1); });
    add(QKeySequence(Qt::CTRL | Qt::Key_1), [this] {
        txtLeft->setEditText(QStringLiteral("1"));
        lstLeft->setFocus();
    });
    add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::ALT | Qt::Key_I),
        [this] { cmdIncreaseSigFigs_Click(); });
    add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::ALT | Qt::Key_D),
        [this] { cmdDecreaseSigFigs_Click(); });

    // The platform's own keys for common commands, shown beside their menu items.
    mnuRecordsFind->setShortcut(QKeySequence::Find);
    mnuFileLoad->setShortcut(QKeySequence::Open);
    mnuFilePrintAllConvForItem->setShortcut(QKeySequence::Print);
    mnuFileExit->setShortcut(QKeySequence::Quit);
    // The help key asks for help on this window: pressed, it opens the main window's topic;
    // the menu item opens the contents.
    mnuhelphelp->setShortcut(QKeySequence::HelpContents);
    mnuhelphelp->installEventFilter(this);
}

void frmMain::connectControls()
{
    connect(this, &frmMain::helpRequested, this, &frmMain::showHelp);
    // The result follows every change of the value and of either selection, however it is made
    // (typing, the history, the mouse, the keyboard, assistive technology, another window).
    connect(txtLeft, &QComboBox::editTextChanged, this, &frmMain::txtLeft_Change);
    connect(txtLeft, &QComboBox::activated, this, &frmMain::txtLeft_Click);
    connect(lstLeft, &QListWidget::itemSelectionChanged, this, &frmMain::lstLeft_Click);
    connect(lstRight, &QListWidget::itemSelectionChanged, this, &frmMain::lstRight_Click);
    connect(tabMain, &QTabBar::currentChanged, this, &frmMain::tabMain_Click);
    connect(cmdIncreaseSigFigs, &QToolButton::clicked, this, &frmMain::cmdIncreaseSigFigs_Click);
    connect(cmdDecreaseSigFigs, &QToolButton::clicked, this, &frmMain::cmdDecreaseSigFigs_Click);

    int number = 0; // the panels count from 1
    for (StatusPanel *panel : StatusBarPanel) {
        const int n = ++number;
        connect(panel, &StatusPanel::clicked, this, [this, n] { StatusBar_PanelClick(n); });
        connect(
            panel, &StatusPanel::doubleClicked, this, [this, n] { StatusBar_PanelDblClick(n); });
    }

    const auto popUp = [this](QWidget *widget) {
        return [this, widget](const QPoint &pos) { mnuview2->popup(widget->mapToGlobal(pos)); };
    };
    connect(picMain, &QWidget::customContextMenuRequested, this, popUp(picMain));
    connect(lstLeft, &QWidget::customContextMenuRequested, this, popUp(lstLeft->viewport()));
    connect(lstRight, &QWidget::customContextMenuRequested, this, popUp(lstRight->viewport()));

    connect(m_valueEdit, &ValueEdit::enterPressed, this, &frmMain::txtLeft_KeyEnter);
    connect(m_valueEdit, &ValueEdit::pasteRequested, this, &frmMain::pasteValue);
    connect(m_valueEdit, &ValueEdit::textDropped, this, &frmMain::pasteText);
    for (QListWidget *list : { lstLeft, lstRight }) {
        list->installEventFilter(this);
        list->viewport()->installEventFilter(this);
    }
    lblUnitLeft->installEventFilter(this);
    lblUnitRight->installEventFilter(this);
}

void frmMain::connectMenus()
{
    connect(mnuFile, &QMenu::aboutToShow, this, &frmMain::mnuFile_Open);
    connect(mnuEdit, &QMenu::aboutToShow, this, &frmMain::mnuEdit_Open);
    connect(mnurecords, &QMenu::aboutToShow, this, &frmMain::mnurecords_Open);
    connect(mnuview2, &QMenu::aboutToShow, this, &frmMain::mnuview2_Open);
    for (QMenu *menu : { mnuFile, mnuEdit, mnuview, mnurecords, mnuHelp, mnuview2 }) {
        connect(menu, &QMenu::aboutToShow, this, [this] { showHelpLine(QString(), true); });
        // The bar goes back to its panels once no menu is open any more.
        connect(menu, &QMenu::aboutToHide, this, [this] {
            QTimer::singleShot(0, this, [this] {
                if (!QApplication::activePopupWidget())
                    StatusBar->clearMessage();
            });
        });
    }

    connect(mnuFileLoad, &QAction::triggered, this, &frmMain::mnuFileLoad_Click);
    connect(mnuFilePrintAllConvForItem, &QAction::triggered, this,
        &frmMain::mnuFilePrintAllConvForItem_Click);
    connect(mnuFileSaveAllConvForItem, &QAction::triggered, this,
        &frmMain::mnuFileSaveAllConvForItem_Click);
    connect(mnuFileExit, &QAction::triggered, this, &QWidget::close);
    for (int i = 0; i < 2; ++i) {
        connect(mnueditedit[i], &QAction::triggered, this, [this, i] { mnueditedit_Click(i); });
        connect(mnuview2edit[i], &QAction::triggered, this, [this, i] { mnueditedit_Click(i); });
        connect(mnualwaystoponoff[i], &QAction::triggered, this,
            [this, i] { mnualwaystoponoff_Click(i); });
    }
    connect(mnueditCopyWholeConv, &QAction::triggered, this, &frmMain::mnueditCopyWholeConv_Click);
    connect(mnueditswitch, &QAction::triggered, this, &frmMain::mnueditswitch_Click);
    connect(mnuviewphys, &QAction::triggered, this, &frmMain::mnuviewphys_Click);
    connect(mnuviewmetric, &QAction::triggered, this, &frmMain::mnuviewmetric_Click);
    connect(mnuviewSIUnits, &QAction::triggered, this, &frmMain::mnuviewSIUnits_Click);
    connect(mnuviewcalc, &QAction::triggered, this, &frmMain::mnuviewcalc_Click);
    connect(mnurecordsadd, &QAction::triggered, this, &frmMain::mnurecordsadd_Click);
    connect(mnurecordsAddAll, &QAction::triggered, this, &frmMain::mnurecordsAddAll_Click);
    connect(mnurecordspurge, &QAction::triggered, this, &frmMain::mnurecordspurge_Click);
    connect(mnuRecordsView, &QAction::triggered, this, &frmMain::mnuRecordsView_Click);
    connect(mnuRecordsFind, &QAction::triggered, this, &frmMain::mnuRecordsFind_Click);
    connect(mnufilesetopt, &QAction::triggered, this, &frmMain::mnufilesetopt_Click);
    connect(mnuhelphelp, &QAction::triggered, this, &frmMain::mnuhelphelp_Click);
    connect(mnuHelpWebMensura, &QAction::triggered, this, &frmMain::mnuHelpWebMensura_Click);
    connect(
        mnuHelpWebGeneralInfo, &QAction::triggered, this, &frmMain::mnuHelpWebGeneralInfo_Click);
    connect(mnuHelpWebOverview, &QAction::triggered, this, &frmMain::mnuHelpWebOverview_Click);
    connect(mnuhelpabout, &QAction::triggered, this, &frmMain::mnuhelpabout_Click);
    connect(mnuHelpExit, &QAction::triggered, this, &QWidget::close);
    connect(mnuview2phys, &QAction::triggered, this, &frmMain::mnuviewphys_Click);
    connect(mnuview2metric, &QAction::triggered, this, &frmMain::mnuviewmetric_Click);
    connect(mnuview2numfor, &QAction::triggered, this, &frmMain::mnufilesetopt_Click);
    connect(mnuview2switch, &QAction::triggered, this, &frmMain::mnueditswitch_Click);
    connect(mnuview2records, &QAction::triggered, this, &frmMain::mnuRecordsView_Click);
    connect(mnuview2find, &QAction::triggered, this, &frmMain::mnuRecordsFind_Click);
    connect(
        mnuSysTrayShowMensura, &QAction::triggered, this, &frmMain::mnuSysTrayShowMensura_Click);
    connect(mnuSysTrayExit, &QAction::triggered, this, &QWidget::close);
}

// ---------------------------------------------------------------------------------------------
// Start-up and the options

void frmMain::BuildQuantityTabs(const QString &selectName)
{
    m_catalogue.CurrentQuantity = 0;
    m_buildingTabs = true;
    lstAlphabet->clear();

    for (int q = 1; q <= m_catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = m_catalogue.Quantities.at(q);
        if (!quantity.enabled() || quantity.Name.isEmpty())
            continue;
        auto *item = new AlphabetItem(quantity.Name);
        item->setData(Qt::UserRole, q);
        lstAlphabet->addItem(item);
    }
    QStringList captions;
    QList<QVariant> quantities;
    int select = -1;
    for (int i = 0; i < lstAlphabet->count(); ++i) {
        const QListWidgetItem *item = lstAlphabet->item(i);
        // A quantity's name is its caption as it stands: "&" is no accelerator here.
        QString caption = item->text();
        caption.replace(u'&', QStringLiteral("&&"));
        captions.append(caption);
        quantities.append(item->data(Qt::UserRole));
        if (select < 0 && item->text() == selectName)
            select = i;
    }
    tabMain->setQuantities(captions, quantities);
    // A name that has no tab (a quantity since disabled or removed) selects the first tab.
    if (select < 0 && tabMain->count() > 0)
        select = 0;
    tabMain->setCurrentIndex(select);
    m_buildingTabs = false;
    ClickTab();
}

void frmMain::applySettings()
{
    tabMain->setButtonStyle(!m_settings.ShowTabs);
    Label3->setVisible(!m_settings.ShowTabs);
    showNumberStyle();
    showCurrentFigures();
}

void frmMain::restoreLastConversion()
{
    setRowByProgram(lstLeft, rowOf(lstLeft, m_settings.LastUnit1));
    setRowByProgram(lstRight, rowOf(lstRight, m_settings.LastUnit2));
    setValueByProgram(m_settings.LastValue);
    refreshResult();
}

void frmMain::optionsChanged()
{
    QString current;
    const int q = m_catalogue.CurrentQuantity;
    if (q >= 1 && q <= m_catalogue.QuantityCount) {
        current = m_catalogue.Quantities.at(q).Name;
        m_memory[current]
            = { txtLeft->currentText(), selectedText(lstLeft), selectedText(lstRight) };
    }
    BuildQuantityTabs(current);
    applySettings();
    refreshResult();
}

void frmMain::showInSavedState()
{
    const QScreen *primary = screen();
    const MainWindowSession::Placement saved = m_windowSession.readPlacement(
        this, dotsPerInchX(), dotsPerInchY(), primary ? primary->geometry().height() : 600);
    // The saved position is the frame's; the frame's own edges are known once it is shown.
    const QRect placed
        = WindowPlacement::fitToScreens(saved.frame, WindowPlacement::availableScreens());
    resize(placed.size().expandedTo(minimumSize()));
    move(placed.topLeft());

    if (saved.state == Qt::WindowMaximized)
        showMaximized();
    else if (saved.state == Qt::WindowMinimized)
        showMinimized();
    else
        show();
    m_hook->fitFrameWhenFramed();
    txtLeft->setFocus();
}

void frmMain::reportStoreFailure()
{
    m_windowSession.reportStoreFailure(isVisible() ? this : nullptr);
}

// ---------------------------------------------------------------------------------------------
// The result

void frmMain::refreshResult()
{
    showConversion(m_engine.UpdateResult(
        selectedText(lstLeft), selectedText(lstRight), txtLeft->currentText()));
    // The print key reaches its command without the menu being opened.
    applyFileRule();
}

void frmMain::showConversion(const ConversionResult &result)
{
    setMarkEnabled(result.markEnabled);
    showNotices(result.notices);
    // A temperature below absolute zero: the value box gets the lowest one there is, and that
    // change refreshes the result as any change of the value does.
    if (result.replacedEntry)
        txtLeft->setEditText(*result.replacedEntry);
    txtRight->setText(result.text);
    txtRight->setCursorPosition(0);
    if (result.statusText)
        StatusBarPanel[2]->setText(*result.statusText);
    if (result.moreFiguresAvailable)
        Shape1->setOn(*result.moreFiguresAvailable);
}

void frmMain::showNotices(const QList<Notice> &notices)
{
    for (const Notice &notice : notices)
        m_dialogs.message(this, notice);
}

void frmMain::setMarkEnabled(bool enabled)
{
    mnurecordsadd->setEnabled(enabled);
    StatusBarPanel[1]->setPanelEnabled(enabled);
}

void frmMain::showNumberStyle()
{
    StatusBarPanel[3]->setPanelEnabled(m_settings.Scientific);
}

void frmMain::showCurrentFigures()
{
    StatusBarPanel[2]->setText(text(MainText::CurrentFigures) + QString::number(m_settings.SigFigs)
        + text(MainText::CurrentFiguresEnd));
}

// ---------------------------------------------------------------------------------------------
// Value, lists and tabs

void frmMain::txtLeft_Change()
{
    refreshResult();
    showReadingNote();
}

// The value is read from its start; when the rest of the text is left out, the user is told
// what the value was read as.
void frmMain::showReadingNote()
{
    const QString typed = txtLeft->currentText();
    const NumberText::LeadingNumber reading = NumberText::readLeadingNumber(typed);
    QString note;
    if (reading.readInPart(typed.size()))
        note = text(MainText::ReadAs).arg(NumberText::shortestText(reading.value));
    else if (!reading.hasDigits && !typed.trimmed().isEmpty())
        note = text(MainText::NotANumber);
    m_valueEdit->setReadingNote(note);
}

void frmMain::txtLeft_Click()
{
    refreshResult();
}

void frmMain::txtLeft_KeyEnter()
{
    refreshResult();
    AddNumberToComboBox();
    txtLeft->setFocus();
}

void frmMain::lstLeft_Click()
{
    refreshResult();
}

void frmMain::lstRight_Click()
{
    refreshResult();
}

void frmMain::AddNumberToComboBox()
{
    const QString value = txtLeft->currentText();
    if (value.isEmpty())
        return;
    if (txtLeft->findText(value, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0)
        return;
    // Changing the drop-down's items can move the combo box's current item, which would
    // rewrite the value box; the value being kept is exactly what stays in the box.
    QLineEdit *edit = txtLeft->lineEdit();
    const int cursor = edit->cursorPosition();
    const int selectionStart = edit->selectionStart();
    const int selectionLength = edit->selectedText().size();
    {
        const QSignalBlocker blocker(txtLeft);
        while (txtLeft->count() >= HistorySize)
            txtLeft->removeItem(HistorySize - 1);
        txtLeft->insertItem(0, value);
        // No entry is current, so that the Down key starts the history at its newest value.
        txtLeft->setCurrentIndex(-1);
        if (edit->text() != value)
            edit->setText(value);
    }
    if (selectionStart >= 0)
        edit->setSelection(selectionStart, selectionLength);
    else
        edit->setCursorPosition(cursor);
}

QStringList frmMain::valueHistory() const
{
    QStringList values;
    for (int i = 0; i < txtLeft->count(); ++i)
        values.append(txtLeft->itemText(i));
    return values;
}

void frmMain::tabMain_Click(int)
{
    if (m_buildingTabs)
        return;
    // What the quantity being left showed, for when it comes back.
    const int leaving = m_catalogue.CurrentQuantity;
    if (leaving >= 1 && leaving <= m_catalogue.QuantityCount)
        m_memory[m_catalogue.Quantities.at(leaving).Name]
            = { txtLeft->currentText(), selectedText(lstLeft), selectedText(lstRight) };
    ClickTab();
}

void frmMain::ClickTab()
{
    const int index = tabMain->currentIndex();
    const int q = index >= 0 ? tabMain->tabData(index).toInt() : 0;
    m_catalogue.CurrentQuantity = q >= 1 && q <= m_catalogue.QuantityCount ? q : 0;
    FillUnitLists(m_catalogue.CurrentQuantity);
    showCurrentFigures();
    if (m_catalogue.CurrentQuantity > 0) {
        const QuantityMemory memory
            = m_memory.value(m_catalogue.Quantities.at(m_catalogue.CurrentQuantity).Name);
        setRowByProgram(lstLeft, rowOf(lstLeft, memory.leftUnit));
        setRowByProgram(lstRight, rowOf(lstRight, memory.rightUnit));
        if (!memory.value.isEmpty())
            setValueByProgram(memory.value);
    }
    refreshResult();
    AddNumberToComboBox();
}

void frmMain::FillUnitLists(int q)
{
    const QStringList names = m_catalogue.enabledUnitNames(q);
    for (QListWidget *list : { lstLeft, lstRight }) {
        list->clear();
        list->addItems(names);
    }
}

void frmMain::stepTab(int step)
{
    const int count = tabMain->count();
    if (count == 0)
        return;
    tabMain->setCurrentIndex((tabMain->currentIndex() + step + count) % count);
}

void frmMain::setRowByProgram(QListWidget *list, int row)
{
    const bool selected = !list->selectedItems().isEmpty();
    if (row < 0 ? !selected : (selected && list->currentRow() == row))
        return; // nothing changes, so no update would come to use up the flag
    m_session.SkipNextUpdate = true;
    if (row < 0) {
        list->clearSelection();
        list->setCurrentRow(-1);
    } else {
        list->setCurrentRow(row);
    }
    m_session.SkipNextUpdate = false;
}

void frmMain::setValueByProgram(const QString &value)
{
    if (txtLeft->currentText() == value)
        return;
    m_session.SkipNextUpdate = true;
    txtLeft->setEditText(value);
    m_session.SkipNextUpdate = false;
}

int frmMain::rowOf(const QListWidget *list, const QString &text)
{
    if (text.isEmpty())
        return -1;
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->text() == text)
            return row;
    return -1;
}

QString frmMain::selectedText(const QListWidget *list)
{
    const QList<QListWidgetItem *> selected = list->selectedItems();
    return selected.isEmpty() ? QString() : selected.constFirst()->text();
}

// ---------------------------------------------------------------------------------------------
// Significant figures

void frmMain::cmdIncreaseSigFigs_Click()
{
    changeSigFigs(1);
}

void frmMain::cmdDecreaseSigFigs_Click()
{
    changeSigFigs(-1);
}

void frmMain::changeSigFigs(int step)
{
    if ((step > 0 && m_settings.SigFigs >= NumberFormat::MaxFigures)
        || (step < 0 && m_settings.SigFigs <= 1))
        return;
    m_settings.SigFigs += step;
    txtLeft->setFocus();
    showCurrentFigures();
    refreshResult();
}

// ---------------------------------------------------------------------------------------------
// Clipboard and the label shortcuts

void frmMain::mnueditedit_Click(int item)
{
    if (item == 0)
        copyConvertedValue();
    else
        pasteValue(false);
}

void frmMain::copyConvertedValue()
{
    Clipboard::put(txtRight->text());
}

void frmMain::mnueditCopyWholeConv_Click()
{
    Clipboard::put(Clipboard::wholeConversion(
        txtLeft->currentText(), selectedText(lstLeft), txtRight->text(), selectedText(lstRight)));
}

void frmMain::pasteValue(bool fromSelection)
{
    pasteText(Clipboard::text(fromSelection));
}

void frmMain::pasteText(const QString &pasted)
{
    const QString number = NumberFilter::filter(pasted);
    if (number.isEmpty()) {
        m_dialogs.message(this,
            Notice {
                Notice::Information, text(MainText::NothingToPaste), text(MainText::TryAgain) });
        return;
    }
    txtLeft->setEditText(number);
}

void frmMain::lblUnitLeft_Click()
{
    applyEditRule();
    if (mnueditedit[1]->isEnabled())
        pasteValue(false);
}

void frmMain::lblUnitRight_Click()
{
    applyEditRule();
    if (mnueditedit[0]->isEnabled())
        copyConvertedValue();
}

// ---------------------------------------------------------------------------------------------
// Swap

void frmMain::mnueditswitch_Click()
{
    const int left = selectedText(lstLeft).isEmpty() ? -1 : lstLeft->currentRow();
    const int right = selectedText(lstRight).isEmpty() ? -1 : lstRight->currentRow();
    const QString value = txtLeft->currentText();
    setValueByProgram(QString());
    txtRight->clear();
    setRowByProgram(lstLeft, right);
    setRowByProgram(lstRight, left);
    setValueByProgram(value);
    refreshResult();
}

// ---------------------------------------------------------------------------------------------
// Menu rules, applied when a menu opens

MenuRules::State frmMain::menuState() const
{
    MenuRules::State state;
    state.value = txtLeft->currentText();
    state.result = txtRight->text();
    state.leftUnit = !selectedText(lstLeft).isEmpty();
    state.rightUnit = !selectedText(lstRight).isEmpty();
    state.markEnabled = mnurecordsadd->isEnabled();
    state.clipboard = Clipboard::plainText();
    return state;
}

void frmMain::applyEditRule()
{
    const MenuRules::Edit rule = MenuRules::edit(menuState());
    mnueditedit[0]->setEnabled(rule.copyValue);
    mnuview2edit[0]->setEnabled(rule.copyValue);
    mnueditedit[1]->setEnabled(rule.paste);
    mnuview2edit[1]->setEnabled(rule.paste);
    mnueditswitch->setEnabled(rule.swap);
    mnuview2switch->setEnabled(rule.swap);
    mnueditCopyWholeConv->setEnabled(rule.copyWholeConversion);
}

void frmMain::applyFileRule()
{
    const bool ready = MenuRules::file(menuState());
    mnuFilePrintAllConvForItem->setEnabled(ready);
    mnuFileSaveAllConvForItem->setEnabled(ready);
}

void frmMain::applyToolsRule()
{
    mnurecordsAddAll->setEnabled(MenuRules::tools(menuState()));
}

void frmMain::mnuFile_Open()
{
    applyFileRule();
}

void frmMain::mnuEdit_Open()
{
    applyEditRule();
}

void frmMain::mnurecords_Open()
{
    applyToolsRule();
}

void frmMain::mnuview2_Open()
{
    applyEditRule();
}

void frmMain::showHelpLine(const QString &line, bool menuOpen)
{
    if (!line.isEmpty())
        StatusBar->showMessage(line);
    else if (menuOpen || QApplication::activePopupWidget())
        StatusBar->showMessage(text(MainText::MenuHelpIdle));
    else
        StatusBar->clearMessage();
}

// ---------------------------------------------------------------------------------------------
// Marked conversions

void frmMain::mnurecordsadd_Click()
{
    RecordConversion();
}

// The marked conversions window tells the new count, which enables the commands that need
// marked conversions (markedCountChanged).
void frmMain::RecordConversion()
{
    const int q = m_catalogue.CurrentQuantity;
    convRecords().AddConv(txtLeft->currentText(), selectedText(lstLeft), txtRight->text(),
        selectedText(lstRight), q > 0 ? m_catalogue.Quantities.at(q).Name : QString());
}

void frmMain::mnurecordsAddAll_Click()
{
    QList<Notice> notices;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const UnitReport report = currentUnitReport(&notices);
    convRecords().addConversions(report.markedConversions());
    QApplication::restoreOverrideCursor();
    showNotices(notices);
    if (report.replacedEntry)
        txtLeft->setEditText(*report.replacedEntry);
    lstLeft_Click();
}

void frmMain::mnurecordspurge_Click()
{
    deleteMarkedConversions();
}

void frmMain::deleteMarkedConversions()
{
    const Notice question { Notice::Critical, text(MainText::DeleteMarkedQuestion),
        text(MainText::Confirmation) };
    if (m_dialogs.question(this, question, Dialogs::YesNo, Dialogs::No) != Dialogs::Yes)
        return;
    if (m_convRecords)
        m_convRecords->clearAll();
    markedCountChanged(0);
    setMarkEnabled(false);
    refreshResult();
}

void frmMain::markedCountChanged(int count)
{
    StatusBarPanel[0]->setText(text(MainText::MarkedCount) + QString::number(count));
    m_session.MarkedConversionsExist = count > 0;
    mnurecordspurge->setEnabled(count > 0);
    mnuRecordsView->setEnabled(count > 0);
    mnuview2records->setEnabled(count > 0);
}

// ---------------------------------------------------------------------------------------------
// Status bar

void frmMain::StatusBar_PanelClick(int panel)
{
    if (panel == 2 && StatusBarPanel[1]->isPanelEnabled()) {
        RecordConversion();
    } else if (panel == 4) {
        m_settings.Scientific = !m_settings.Scientific;
        showNumberStyle();
        refreshResult();
    }
}

void frmMain::StatusBar_PanelDblClick(int panel)
{
    if (panel == 1 && mnuRecordsView->isEnabled())
        mnuRecordsView_Click();
    else if (panel == 3)
        mnufilesetopt_Click();
}

// ---------------------------------------------------------------------------------------------
// Always on top

void frmMain::mnualwaystoponoff_Click(int item)
{
    mnualwaystoponoff[item]->setChecked(true);
    setTopmost(item == 0);
}

void frmMain::setTopmost(bool on)
{
    // The help goes first, so that the window re-shown last, this one, keeps the focus. It
    // follows this window: were only this one on top, it would hide the help wherever they meet.
    if (m_helpWindow)
        WindowOnTop::set(m_helpWindow, on);
    WindowOnTop::set(this, on);
}

bool frmMain::isTopmost() const
{
    return WindowOnTop::isSet(this);
}

// ---------------------------------------------------------------------------------------------
// Commands of the other windows

const QList<MarkedConversion> &frmMain::markedConversions() const
{
    static const QList<MarkedConversion> none;
    return m_convRecords ? m_convRecords->conversions() : none;
}

frmConvRecords &frmMain::convRecords()
{
    if (!m_convRecords) {
        m_convRecords = new frmConvRecords(m_settings, m_session, m_store, m_dialogs, *this, this);
        connect(m_convRecords, &frmConvRecords::deleteAllRequested, this,
            &frmMain::mnurecordspurge_Click);
        connect(m_convRecords, &frmConvRecords::helpRequested, this, &frmMain::helpRequested);
    }
    return *m_convRecords;
}

UnitReport frmMain::currentUnitReport(QList<Notice> *notices)
{
    const int q = m_catalogue.CurrentQuantity;
    QStringList units;
    for (int row = 0; row < lstRight->count(); ++row)
        units.append(lstRight->item(row)->text());
    return UnitReport::convert(m_engine, txtLeft->currentText(), selectedText(lstLeft),
        q > 0 ? m_catalogue.Quantities.at(q).Name : QString(), units, notices);
}

void frmMain::mnuFileLoad_Click()
{
    const QString path = FileDialogTexts::openFileName(m_dialogs, this);
    if (!path.isEmpty())
        convRecords().loadFile(path, this);
}

void frmMain::mnuFilePrintAllConvForItem_Click()
{
    QList<Notice> notices;
    const UnitReport report = currentUnitReport(&notices);
    showNotices(notices);
    UnitReportCommands(m_dialogs, this).printAll(report);
}

void frmMain::mnuFileSaveAllConvForItem_Click()
{
    QList<Notice> notices;
    const UnitReport report = currentUnitReport(&notices);
    showNotices(notices);
    UnitReportCommands(m_dialogs, this).saveAll(report);
}

void frmMain::mnuviewphys_Click()
{
    showHelp(HelpTopics::PhysicalConstants);
}

void frmMain::mnuviewmetric_Click()
{
    showHelp(HelpTopics::MetricPrefixes);
}

void frmMain::mnuviewSIUnits_Click()
{
    showHelp(HelpTopics::SIUnits);
}

void frmMain::mnuviewcalc_Click()
{
    // A program that cannot be started leads to the options, where another can be chosen.
    if (!ShellProgramRunner::run(m_settings, m_store, m_dialogs, this))
        mnufilesetopt_Click();
}
void frmMain::mnuRecordsFind_Click()
{
    // The find dialog would sit behind a window kept on top: "Off" for good.
    if (mnualwaystoponoff[0]->isChecked())
        mnualwaystoponoff[1]->trigger();
    frmFind dialog(m_catalogue, m_session, m_dialogs, *this, this);
    connect(&dialog, &frmFind::helpRequested, this, &frmMain::showHelp);
    // Modal toward this window only: the help window stays usable beside the dialog.
    dialog.setWindowModality(Qt::WindowModal);
    dialog.exec();
}

void frmMain::mnuRecordsView_Click()
{
    frmConvRecords &window = convRecords();
    window.show();
    window.raise();
    window.activateWindow();
}

void frmMain::mnufilesetopt_Click()
{
    // Modal: the window gives up being on top while the dialog is open.
    const bool onTop = mnualwaystoponoff[0]->isChecked();
    if (onTop)
        setTopmost(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    frmSetOpt dialog(m_catalogue, m_settings, m_session, m_store, m_dialogs, this);
    connect(&dialog, &frmSetOpt::helpRequested, this, &frmMain::helpRequested);
    QApplication::restoreOverrideCursor();
    dialog.setWindowModality(Qt::WindowModal);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    if (onTop)
        setTopmost(true);
    if (accepted)
        optionsChanged();
}
void frmMain::mnuhelphelp_Click()
{
    showHelp(0);
}

void frmMain::mnuHelpWebMensura_Click()
{
    Links::open(StringTable::text(MainText::HomePageTarget));
}

void frmMain::mnuHelpWebGeneralInfo_Click()
{
    Links::open(StringTable::text(MainText::SIInfoTarget));
}

void frmMain::mnuHelpWebOverview_Click()
{
    Links::open(StringTable::text(MainText::MetricOverviewTarget));
}

void frmMain::mnuhelpabout_Click()
{
    // Modal: the window gives up being on top while the About window is open.
    const bool onTop = mnualwaystoponoff[0]->isChecked();
    if (onTop)
        setTopmost(false);
    frmAbout about(m_dialogs, this);
    about.setWindowModality(Qt::WindowModal);
    about.exec();
    if (onTop)
        setTopmost(true);
}

QWidget *frmMain::showHelp(int context)
{
    if (!m_helpWindow) {
        m_helpWindow = new HelpWindow(this);
        WindowOnTop::set(m_helpWindow, isTopmost());
    }
    if (context == 0)
        m_helpWindow->showContents();
    else
        m_helpWindow->showContext(context);
    return m_helpWindow;
}

// ---------------------------------------------------------------------------------------------
// MainWindowControl

bool frmMain::selectQuantity(const QString &name)
{
    for (int i = 0; i < tabMain->count(); ++i) {
        const int q = tabMain->tabData(i).toInt();
        if (q >= 1 && q <= m_catalogue.QuantityCount && m_catalogue.Quantities.at(q).Name == name) {
            tabMain->setCurrentIndex(i);
            return true;
        }
    }
    return false;
}

bool frmMain::selectLeftUnit(const QString &unit)
{
    const int row = rowOf(lstLeft, unit);
    if (row >= 0)
        lstLeft->setCurrentRow(row);
    return row >= 0;
}

bool frmMain::selectRightUnit(const QString &unit)
{
    const int row = rowOf(lstRight, unit);
    if (row >= 0)
        lstRight->setCurrentRow(row);
    return row >= 0;
}

void frmMain::setValueText(const QString &value)
{
    txtLeft->setEditText(value);
}

void frmMain::focusValue()
{
    txtLeft->setFocus();
}

// ---------------------------------------------------------------------------------------------
// Window events

bool frmMain::event(QEvent *event)
{
    // Help lines of the menu items: the bar shows them across its whole width while a menu is
    // open, and its panels again once the menus are closed.
    if (event->type() == QEvent::StatusTip) {
        showHelpLine(static_cast<QStatusTipEvent *>(event)->tip(), false);
        return true;
    }
    return QMainWindow::event(event);
}

bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == mnuhelphelp && event->type() == QEvent::Shortcut) {
        showHelp(HelpTopics::MainWindow);
        return true;
    }
    if (watched == lstLeft || watched == lstRight) {
        if (event->type() == QEvent::FocusIn)
            AddNumberToComboBox();
    } else if (watched == lstLeft->viewport() || watched == lstRight->viewport()) {
        if (event->type() == QEvent::MouseButtonPress
            || event->type() == QEvent::MouseButtonDblClick) {
            const auto button = static_cast<QMouseEvent *>(event)->button();
            if (button == Qt::LeftButton && event->type() == QEvent::MouseButtonPress)
                AddNumberToComboBox();
            // The right button opens the pop-up menu and leaves the selection alone.
            if (button == Qt::RightButton)
                return true;
        }
    } else if (watched == lblUnitLeft || watched == lblUnitRight) {
        if (event->type() == QEvent::MouseButtonRelease
            && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
            if (watched == lblUnitLeft)
                lblUnitLeft_Click();
            else
                lblUnitRight_Click();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::closeEvent(QCloseEvent *event)
{
    if (m_unloaded) {
        event->accept();
        return;
    }
    if (m_settings.ConfirmExit && m_session.MarkedConversionsExist
        && !m_session.MarkedConversionsSaved) {
        const Notice question { Notice::Critical, text(MainText::QuitQuestion), QString() };
        if (m_dialogs.question(
                isVisible() ? this : nullptr, question, Dialogs::YesNoCancel, Dialogs::Cancel)
            != Dialogs::Yes) {
            event->ignore();
            return;
        }
    }
    // The marked conversions window goes first; its placement is saved with the rest.
    if (m_convRecords)
        m_convRecords->close();
    saveSession();
    m_unloaded = true;
    m_hook->release();
    event->accept();
    emit unloaded();
}

void frmMain::saveSession()
{
    // In the tray the window is minimised only to leave the task bar: it comes back as it was.
    Qt::WindowStates state = windowState();
    if (isInTray())
        state &= ~Qt::WindowMinimized;
    const int q = m_catalogue.CurrentQuantity;
    const bool current = m_catalogue.QuantityCount > 0 && q >= 1 && q <= m_catalogue.QuantityCount;
    // The frame's position and the inside size: what move() and resize() take back.
    m_windowSession.save(
        { state, QRect(pos(), size()), current ? m_catalogue.Quantities.at(q).Name : QString(),
            txtLeft->currentText(), selectedText(lstLeft), selectedText(lstRight) },
        m_settings, dotsPerInchX(), dotsPerInchY());
    reportStoreFailure();
}

// The marked conversions window, when the user has been using it, goes into the tray with the
// main window and comes back with it.
void frmMain::hideWindowsWithTray()
{
    m_convRecordsInTray
        = m_convRecords && m_convRecords->isVisible() && m_convRecords->shownWithMainWindow();
    if (m_convRecordsInTray)
        m_convRecords->hide();
}

void frmMain::showWindowsFromTray()
{
    if (m_convRecordsInTray && m_convRecords)
        m_convRecords->show();
    m_convRecordsInTray = false;
    activateWindow();
    txtLeft->setFocus();
}

bool frmMain::isInTray() const
{
    return m_hook->isInTray();
}

void frmMain::mnuSysTrayShowMensura_Click()
{
    m_hook->restoreFromTray();
}

void frmMain::activateFromOtherCopy()
{
    if (m_hook->isInTray()) {
        m_hook->restoreFromTray();
        return;
    }
    if (windowState().testFlag(Qt::WindowMinimized))
        setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
}

void frmMain::resizeEvent(QResizeEvent *event)
{
    // The quantity buttons take at most two fifths of the window's height; more rows page.
    tabMain->setRowsHeightLimit(height() * 2 / 5);
    QMainWindow::resizeEvent(event);
}

#ifdef Q_OS_WIN
bool frmMain::nativeEvent(const QByteArray &eventType, void *message, qintptr *result)
{
    // The window system's own menu is drawn by Windows: its help line comes from here.
    const MSG *msg = static_cast<const MSG *>(message);
    if (msg->message == WM_MENUSELECT) {
        const UINT flags = HIWORD(msg->wParam);
        if (flags == 0xFFFF && msg->lParam == 0)
            StatusBar->clearMessage();
        else if (flags & MF_SYSMENU)
            StatusBar->showMessage(text(MainText::SystemMenuHelp));
    }
    return QMainWindow::nativeEvent(eventType, message, result);
}
#endif

qreal frmMain::dotsPerInchX() const
{
    const QScreen *current = screen();
    return current ? current->logicalDotsPerInchX() : 96.0;
}

qreal frmMain::dotsPerInchY() const
{
    const QScreen *current = screen();
    return current ? current->logicalDotsPerInchY() : 96.0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/MainWindowForm.h"

#include "catalogue/StringTable.h"
#include "main/FiguresIndicator.h"
#include "main/MainWindowStrings.h"
#include "main/QuantityTabBar.h"
#include "main/StatusPanel.h"
#include "main/ValueEdit.h"
#include "main/WindowPlacement.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{

constexpr int DecimalsPanelMinimumTwips = 1500;
constexpr int ScientificPanelTwips = 500;

QString text(int id)
{
    return StringTable::text(id);
}

qreal dotsPerInchX(const QWidget *window)
{
    const QScreen *screen = window->screen();
    return screen ? screen->logicalDotsPerInchX() : 96.0;
}

} // namespace

void MainWindowForm::createControls(QMainWindow *window)
{
    auto *client = new QWidget(window);
    client->setObjectName(QStringLiteral("frmMainClient"));
    auto *clientLayout = new QVBoxLayout(client);
    clientLayout->setContentsMargins(0, 0, 0, 0);
    clientLayout->setSpacing(0);

    // The etched line under the menu bar.
    Label2 = new QLabel(client);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    Label2->setFixedHeight(2);
    clientLayout->addWidget(Label2);

    tabMain = new QuantityTabBar(client);
    tabMain->setObjectName(QStringLiteral("tabMain"));
    auto *tabRow = new QHBoxLayout;
    tabRow->setContentsMargins(6, 6, 6, 0);
    tabRow->addWidget(tabMain);
    clientLayout->addLayout(tabRow);

    lstAlphabet = new QListWidget(client);
    lstAlphabet->setObjectName(QStringLiteral("lstAlphabet"));
    lstAlphabet->setSortingEnabled(true);
    lstAlphabet->hide();

    picMain = new QWidget(client);
    picMain->setObjectName(QStringLiteral("picMain"));
    picMain->setContextMenuPolicy(Qt::CustomContextMenu);
    clientLayout->addWidget(picMain, 1);
    window->setCentralWidget(client);

    // The second etched line, under the quantity buttons when they are drawn as buttons.
    Label3 = new QLabel(picMain);
    Label3->setObjectName(QStringLiteral("Label3"));
    Label3->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    Label3->setFixedHeight(2);

    lblUnitLeft = new QLabel(picMain);
    lblUnitLeft->setObjectName(QStringLiteral("lblUnitLeft"));
    lblUnitRight = new QLabel(picMain);
    lblUnitRight->setObjectName(QStringLiteral("lblUnitRight"));
    lblEqualSign = new QLabel(picMain);
    lblEqualSign->setObjectName(QStringLiteral("lblEqualSign"));
    lblEqualSign->setAlignment(Qt::AlignCenter);

    txtLeft = new QComboBox(picMain);
    txtLeft->setObjectName(QStringLiteral("txtLeft"));
    m_valueEdit = new ValueEdit(txtLeft);
    txtLeft->setLineEdit(m_valueEdit);
    txtLeft->setInsertPolicy(QComboBox::NoInsert);
    // Typing is never completed from the history: a value is exactly what was typed.
    txtLeft->setCompleter(nullptr);
    txtLeft->setDuplicatesEnabled(false);
    // The box keeps its size whatever the history holds (a pasted value can be very long).
    txtLeft->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    txtLeft->setMinimumContentsLength(8);
    txtLeft->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    txtRight = new QLineEdit(picMain);
    txtRight->setObjectName(QStringLiteral("txtRight"));
    txtRight->setReadOnly(true);
    txtRight->setMinimumWidth(window->fontMetrics().averageCharWidth() * 8);
    txtRight->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    Shape1 = new FiguresIndicator(picMain);
    Shape1->setObjectName(QStringLiteral("Shape1"));

    cmdIncreaseSigFigs = new QToolButton(picMain);
    cmdIncreaseSigFigs->setObjectName(QStringLiteral("cmdIncreaseSigFigs"));
    cmdIncreaseSigFigs->setArrowType(Qt::UpArrow);
    cmdDecreaseSigFigs = new QToolButton(picMain);
    cmdDecreaseSigFigs->setObjectName(QStringLiteral("cmdDecreaseSigFigs"));
    cmdDecreaseSigFigs->setArrowType(Qt::DownArrow);
    const int arrowHeight = qMax(txtRight->sizeHint().height() / 2, 8);
    for (QToolButton *button : { cmdIncreaseSigFigs, cmdDecreaseSigFigs }) {
        button->setFixedSize(qRound(arrowHeight * 1.6), arrowHeight);
        button->setIconSize(QSize(arrowHeight - 4, arrowHeight - 4));
        button->setFocusPolicy(Qt::TabFocus);
    }

    lstLeft = new QListWidget(picMain);
    lstLeft->setObjectName(QStringLiteral("lstLeft"));
    lstRight = new QListWidget(picMain);
    lstRight->setObjectName(QStringLiteral("lstRight"));
    for (QListWidget *list : { lstLeft, lstRight }) {
        list->setSelectionMode(QAbstractItemView::SingleSelection);
        list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
        list->setContextMenuPolicy(Qt::CustomContextMenu);
        list->setMinimumHeight(window->fontMetrics().height() * 4);
    }

    lblUnitLeft->setBuddy(txtLeft);
    lblUnitRight->setBuddy(txtRight);

    // Two sides of equal width with the equals sign between them; the lists take the height.
    auto *grid = new QGridLayout(picMain);
    grid->setContentsMargins(8, 4, 8, 8);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    grid->addWidget(Label3, 0, 0, 1, 3);
    grid->addWidget(lblUnitLeft, 1, 0);
    grid->addWidget(lblUnitRight, 1, 2);
    grid->addWidget(txtLeft, 2, 0);
    grid->addWidget(lblEqualSign, 2, 1);
    auto *resultRow = new QHBoxLayout;
    resultRow->setSpacing(3);
    resultRow->addWidget(txtRight, 1);
    resultRow->addWidget(Shape1, 0, Qt::AlignVCenter);
    auto *arrows = new QVBoxLayout;
    arrows->setSpacing(0);
    arrows->addWidget(cmdIncreaseSigFigs);
    arrows->addWidget(cmdDecreaseSigFigs);
    resultRow->addLayout(arrows);
    grid->addLayout(resultRow, 2, 2);
    grid->addWidget(lstLeft, 3, 0);
    grid->addWidget(lstRight, 3, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(3, 1);

    QWidget::setTabOrder(txtLeft, lstLeft);
    QWidget::setTabOrder(lstLeft, lstRight);
    QWidget::setTabOrder(lstRight, cmdIncreaseSigFigs);
    QWidget::setTabOrder(cmdIncreaseSigFigs, cmdDecreaseSigFigs);
    QWidget::setTabOrder(cmdDecreaseSigFigs, txtRight);
    QWidget::setTabOrder(txtRight, tabMain);
}

QMenu *MainWindowForm::newMenu(const char *name, QWidget *parent)
{
    auto *menu = new QMenu(parent);
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
}

QAction *MainWindowForm::newAction(const char *name, QMenu *menu)
{
    // Actions belong to the window, so that their help lines reach its status bar also from
    // the pop-up menus.
    auto *action = new QAction(m_formWindow);
    action->setObjectName(QString::fromLatin1(name));
    if (menu)
        menu->addAction(action);
    return action;
}

static void addSeparator(QMenu *menu)
{
    menu->addSeparator()->setObjectName(QStringLiteral("sep"));
}

void MainWindowForm::createMenus(QMainWindow *window)
{
    m_formWindow = window;
    QMenuBar *bar = window->menuBar();

    mnuFile = newMenu("mnuFile", window);
    mnuFileLoad = newAction("mnuFileLoad", mnuFile);
    addSeparator(mnuFile);
    mnuFilePrintAllConvForItem = newAction("mnuFilePrintAllConvForItem", mnuFile);
    mnuFileSaveAllConvForItem = newAction("mnuFileSaveAllConvForItem", mnuFile);
    addSeparator(mnuFile);
    mnuFileExit = newAction("mnuFileExit", mnuFile);
    bar->addMenu(mnuFile);

    mnuEdit = newMenu("mnuEdit", window);
    mnueditedit[0] = newAction("mnueditedit_0", mnuEdit);
    mnueditedit[1] = newAction("mnueditedit_1", mnuEdit);
    mnueditCopyWholeConv = newAction("mnueditCopyWholeConv", mnuEdit);
    addSeparator(mnuEdit);
    mnueditswitch = newAction("mnueditswitch", mnuEdit);
    bar->addMenu(mnuEdit);

    mnuview = newMenu("mnuview", window);
    mnuviewphys = newAction("mnuviewphys", mnuview);
    mnuviewmetric = newAction("mnuviewmetric", mnuview);
    mnuviewSIUnits = newAction("mnuviewSIUnits", mnuview);
    addSeparator(mnuview);
    mnuviewcalc = newAction("mnuviewcalc", mnuview);
    bar->addMenu(mnuview);

    mnurecords = newMenu("mnurecords", window);
    mnurecordsadd = newAction("mnurecordsadd", mnurecords);
    mnurecordsAddAll = newAction("mnurecordsAddAll", mnurecords);
    mnurecordspurge = newAction("mnurecordspurge", mnurecords);
    mnuRecordsView = newAction("mnuRecordsView", mnurecords);
    addSeparator(mnurecords);
    mnuRecordsFind = newAction("mnuRecordsFind", mnurecords);
    addSeparator(mnurecords);
    mnufilesetopt = newAction("mnufilesetopt", mnurecords);
    mnualwaystop = newMenu("mnualwaystop", mnurecords);
    mnualwaystoponoff[0] = newAction("mnualwaystoponoff_0", mnualwaystop);
    mnualwaystoponoff[1] = newAction("mnualwaystoponoff_1", mnualwaystop);
    m_onTopGroup = new QActionGroup(window);
    for (QAction *item : mnualwaystoponoff) {
        item->setCheckable(true);
        m_onTopGroup->addAction(item);
    }
    mnurecords->addMenu(mnualwaystop);
    bar->addMenu(mnurecords);

    mnuHelp = newMenu("mnuHelp", window);
    mnuhelphelp = newAction("mnuhelphelp", mnuHelp);
    addSeparator(mnuHelp);
    mnuHelpWeb = newMenu("mnuHelpWeb", mnuHelp);
    mnuHelpWebMensura = newAction("mnuHelpWebMensura", mnuHelpWeb);
    mnuHelpWebGeneralInfo = newAction("mnuHelpWebGeneralInfo", mnuHelpWeb);
    mnuHelpWebOverview = newAction("mnuHelpWebOverview", mnuHelpWeb);
    mnuHelp->addMenu(mnuHelpWeb);
    addSeparator(mnuHelp);
    mnuhelpabout = newAction("mnuhelpabout", mnuHelp);
    addSeparator(mnuHelp);
    mnuHelpExit = newAction("mnuHelpExit", mnuHelp);
    bar->addMenu(mnuHelp);

    // The pop-up menu of the conversion panel and the unit lists.
    mnuview2 = newMenu("mnuview2", window);
    mnuview2phys = newAction("mnuview2phys", mnuview2);
    mnuview2metric = newAction("mnuview2metric", mnuview2);
    addSeparator(mnuview2);
    mnuview2numfor = newAction("mnuview2numfor", mnuview2);
    mnuview2->setDefaultAction(mnuview2numfor);
    addSeparator(mnuview2);
    mnuview2edit[0] = newAction("mnuview2edit_0", mnuview2);
    mnuview2edit[1] = newAction("mnuview2edit_1", mnuview2);
    mnuview2switch = newAction("mnuview2switch", mnuview2);
    addSeparator(mnuview2);
    mnuview2records = newAction("mnuview2records", mnuview2);
    mnuview2find = newAction("mnuview2find", mnuview2);

    // The tray icon's menu.
    mnuSysTray = newMenu("mnuSysTray", window);
    mnuSysTrayShowMensura = newAction("mnuSysTrayShowMensura", mnuSysTray);
    mnuSysTray->setDefaultAction(mnuSysTrayShowMensura);
    addSeparator(mnuSysTray);
    mnuSysTrayExit = newAction("mnuSysTrayExit", mnuSysTray);
}

void MainWindowForm::createStatusBar(QMainWindow *window)
{
    StatusBar = new QStatusBar(window);
    StatusBar->setObjectName(QStringLiteral("StatusBar"));
    window->setStatusBar(StatusBar);
    const char *names[]
        = { "StatusBarPanel1", "StatusBarPanel2", "StatusBarPanel3", "StatusBarPanel4" };
    const char *icons[] = { "cardfileicon", "markicon", "calcicon", nullptr };
    for (int i = 0; i < 4; ++i) {
        StatusBarPanel[i] = new StatusPanel(QString::fromLatin1(names[i]), icons[i], StatusBar);
        // Panels are ordinary (not permanent) widgets: a menu's help line covers all of them.
        StatusBar->addWidget(StatusBarPanel[i], i == 2 ? 1 : 0);
    }
    StatusBarPanel[2]->setMinimumPanelWidth(
        WindowPlacement::twipsToPixels(DecimalsPanelMinimumTwips, dotsPerInchX(window)));
}

void MainWindowForm::setTexts(QMainWindow *window)
{
    window->setWindowTitle(text(MainText::ProgramTitle));

    const auto menu = [](QMenu *item, int caption, int help = 0) {
        item->setTitle(text(caption));
        if (help)
            item->menuAction()->setStatusTip(text(help));
    };
    const auto item = [](QAction *action, int caption, int help = 0) {
        action->setText(text(caption));
        if (help)
            action->setStatusTip(text(help));
    };

    menu(mnuFile, MainText::FileMenu);
    item(mnuFileLoad, MainText::LoadConversions, MainText::LoadConversionsHelp);
    item(mnuFilePrintAllConvForItem, MainText::PrintAllForItem, MainText::PrintAllForItemHelp);
    item(mnuFileSaveAllConvForItem, MainText::SaveAllForItem, MainText::SaveAllForItemHelp);
    item(mnuFileExit, MainText::Exit, MainText::ExitHelp);
    menu(mnuEdit, MainText::EditMenu);
    item(mnueditedit[0], MainText::CopyValue, MainText::CopyValueHelp);
    item(mnueditedit[1], MainText::Paste, MainText::PasteHelp);
    item(mnueditCopyWholeConv, MainText::CopyWholeConversion, MainText::CopyWholeConversionHelp);
    item(mnueditswitch, MainText::SwapUnits, MainText::SwapUnitsHelp);
    menu(mnuview, MainText::ViewMenu);
    item(mnuviewphys, MainText::PhysicalConstants, MainText::PhysicalConstantsHelp);
    item(mnuviewmetric, MainText::MetricPrefixes, MainText::MetricPrefixesHelp);
    item(mnuviewSIUnits, MainText::SIUnits, MainText::SIUnitsHelp);
    item(mnuviewcalc, MainText::ShellProgram, MainText::ShellProgramHelp);
    menu(mnurecords, MainText::ToolsMenu);
    item(mnurecordsadd, MainText::MarkConversion, MainText::MarkConversionHelp);
    item(mnurecordsAddAll, MainText::AddAll, MainText::AddAllHelp);
    item(mnurecordspurge, MainText::DeleteMarked, MainText::DeleteMarkedHelp);
    item(mnuRecordsView, MainText::ViewMarked, MainText::ViewMarkedHelp);
    item(mnuRecordsFind, MainText::FindUnit, MainText::FindUnitHelp);
    item(mnufilesetopt, MainText::Options, MainText::OptionsHelp);
    menu(mnualwaystop, MainText::AlwaysOnTop, MainText::AlwaysOnTopHelp);
    item(mnualwaystoponoff[0], MainText::On);
    item(mnualwaystoponoff[1], MainText::Off);
    menu(mnuHelp, MainText::HelpMenu);
    item(mnuhelphelp, MainText::HelpContents, MainText::HelpContentsHelp);
    menu(mnuHelpWeb, MainText::WebResources, MainText::WebResourcesHelp);
    item(mnuHelpWebMensura, MainText::WebMensura, MainText::WebMensuraHelp);
    item(mnuHelpWebGeneralInfo, MainText::WebGeneralInfo);
    item(mnuHelpWebOverview, MainText::WebOverview);
    item(mnuhelpabout, MainText::About, MainText::AboutHelp);
    item(mnuHelpExit, MainText::Exit, MainText::ExitHelp);

    item(mnuview2phys, MainText::PhysicalConstants, MainText::PhysicalConstantsHelp);
    item(mnuview2metric, MainText::MetricPrefixes, MainText::MetricPrefixesHelp);
    item(mnuview2numfor, MainText::Options, MainText::OptionsHelp);
    item(mnuview2edit[0], MainText::CopyValue, MainText::CopyValueHelp);
    item(mnuview2edit[1], MainText::Paste, MainText::PasteHelp);
    item(mnuview2switch, MainText::SwapUnits, MainText::SwapUnitsHelp);
    item(mnuview2records, MainText::ViewMarked, MainText::ViewMarkedHelp);
    item(mnuview2find, MainText::FindUnit, MainText::FindUnitHelp);
    item(mnuSysTrayShowMensura, MainText::ShowMensura);
    item(mnuSysTrayExit, MainText::Exit);

    lblUnitLeft->setText(text(MainText::InitialUnit));
    lblUnitRight->setText(text(MainText::ConvertedUnit));
    lblEqualSign->setText(text(MainText::EqualSign));
    cmdIncreaseSigFigs->setToolTip(text(MainText::IncreaseFigures));
    cmdDecreaseSigFigs->setToolTip(text(MainText::DecreaseFigures));
    Shape1->setToolTip(text(MainText::IndicatorTip));

    StatusBarPanel[0]->setToolTip(text(MainText::MarkedCountTip));
    StatusBarPanel[1]->setText(text(MainText::MarkPanel));
    StatusBarPanel[1]->setToolTip(text(MainText::MarkPanelTip));
    StatusBarPanel[2]->setText(text(MainText::DecimalsPanel));
    StatusBarPanel[2]->setToolTip(text(MainText::DecimalsPanelTip));
    StatusBarPanel[3]->setText(text(MainText::ScientificPanel));
    StatusBarPanel[3]->setToolTip(text(MainText::ScientificPanelTip));
    // A panel of fixed width, wide enough for its text.
    StatusBarPanel[3]->setFixedWidth(
        qMax(WindowPlacement::twipsToPixels(ScientificPanelTwips, dotsPerInchX(window)),
            StatusBarPanel[3]->minimumSizeHint().width()));

    // What assistive technology reads. The combo box's own name is always its text, so the
    // value box is named on its line edit and described on the combo box.
    txtLeft->lineEdit()->setAccessibleName(text(MainText::ValueName));
    txtLeft->setAccessibleDescription(text(MainText::ValueName));
    lstAlphabet->setAccessibleName(text(MainText::QuantityListName));
    lstLeft->setAccessibleName(text(MainText::LeftListName));
    lstRight->setAccessibleName(text(MainText::RightListName));
    txtRight->setAccessibleName(text(MainText::ResultName));
    cmdIncreaseSigFigs->setAccessibleName(text(MainText::IncreaseName));
    cmdDecreaseSigFigs->setAccessibleName(text(MainText::DecreaseName));
    StatusBarPanel[0]->setAccessibleName(text(MainText::MarkedCountName));
    StatusBarPanel[1]->setAccessibleName(text(MainText::MarkPanelName));
    StatusBarPanel[2]->setAccessibleName(text(MainText::DecimalsPanelName));
    StatusBarPanel[3]->setAccessibleName(text(MainText::ScientificPanelName));
    Shape1->setAccessibleName(text(MainText::IndicatorName));
    Shape1->setAccessibleDescription(text(MainText::IndicatorTip));
}

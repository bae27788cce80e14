// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "options/frmSetOpt.h"

#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/NumberFormat.h"
#include "convert/NumberText.h"
#include "options/TreeMainItem.h"
#include "shell/Dialogs.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHash>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSlider>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWhatsThis>

namespace StringId
{
constexpr int InterfaceTabs = 45;
constexpr int InterfaceButtons = 46;
constexpr int InterfaceStyle = 47;
constexpr int Title = 5000;
constexpr int PageGeneral = 5001;
constexpr int PageQuantities = 5002;
constexpr int Ok = 5003;
constexpr int Cancel = 5004;
constexpr int Help = 5005;
constexpr int NumericFormatting = 5010;
constexpr int SignificantFigures = 5011;
constexpr int NumberStyle = 5012;
constexpr int ScientificNotation = 5013;
constexpr int RegularNotation = 5014;
constexpr int Triads = 5015;
constexpr int MaxNumberLabel = 5016;
constexpr int MinNumberLabel = 5017;
constexpr int MaxNumberAllowed = 5018;
constexpr int MinNumberAllowed = 5019;
constexpr int ExampleScientificStart = 5020;
constexpr int ExampleScientificTriads = 5021;
constexpr int ExampleScientificPlain = 5022;
constexpr int ExampleRegularTriadsStart = 5023;
constexpr int ExampleRegularTriadsEnd = 5024;
constexpr int ExampleRegularPlainStart = 5025;
constexpr int ExampleRegularPlainEnd = 5026;
constexpr int GeneralOptions = 5030;
constexpr int ShellProgramFrame = 5031;
constexpr int WindowsCalculator = 5032;
constexpr int OtherShellProgram = 5033;
constexpr int CalculatorScientific = 5034;
constexpr int CalculatorStandard = 5035;
constexpr int CurrentShellProgram = 5036;
constexpr int ChooseProgram = 5037;
constexpr int AllFilesFilter = 5038;
constexpr int ConfirmExit = 5039;
constexpr int SystemTray = 5040;
constexpr int RememberLast = 5041;
constexpr int Tutorial = 5042;
constexpr int NotANumber = 5050;
constexpr int WhatsThisGeneralFirst = 5060; // 5060 .. 5082, in the order of whatsThisGeneral()
constexpr int TreeFrame = 5100;
constexpr int RootNode = 5101;
constexpr int Legend = 5102;
constexpr int LegendFirst = 5103; // 5103 .. 5108, in the order of LegendIcons
constexpr int Properties = 5110;
constexpr int Name = 5111;
constexpr int ConversionFactor = 5112;
constexpr int Exact = 5113;
constexpr int Enabled = 5114;
constexpr int Disabled = 5115;
constexpr int ExpandAll = 5140;
constexpr int CollapseAll = 5141;
constexpr int ExpandAllTip = 5142;
constexpr int WhatsThisTreeFirst = 5150; // 5150 .. 5163, in the order of whatsThisQuantities()
constexpr int AddQuantity = 5200;
constexpr int AddQuantityTip = 5201;
constexpr int AddUnit = 5202;
constexpr int AddUnitTip = 5203;
constexpr int RemoveQuantity = 5204;
constexpr int RemoveQuantityTip = 5205;
constexpr int RemoveUnit = 5206;
constexpr int RemoveUnitTip = 5207;
constexpr int NewQuantityPrompt = 5210;
constexpr int NewQuantityTitle = 5211;
constexpr int NewQuantityDefault = 5212;
constexpr int DefaultUnitPrompt = 5213;
constexpr int DefaultUnitTitle = 5214;
constexpr int NewUnitPrompt = 5221;
constexpr int UpToForty = 5222;
constexpr int NewUnitTitle = 5223;
constexpr int FullStop = 5229;
constexpr int FactorPrompt = 5230;
constexpr int FactorPromptTo = 5231;
constexpr int FactorExample = 5232;
constexpr int FactorExampleEnd = 5233;
constexpr int FactorTitle = 5234;
constexpr int RemoveQuantityQuestion = 5240;
constexpr int RemoveUnitQuestion = 5241;
constexpr int QuestionMark = 5242;
} // namespace StringId

static const QString TabValue = QStringLiteral("Tab");
static const QString SciCalcValue = QStringLiteral("SciCalc");

// The legend shows the six node icons in this order, captioned 5103 .. 5108.
static const std::array<const QString *, 6> LegendIcons = {
    &CatalogueEditor::EnabledQuantityIcon,
    &CatalogueEditor::DisabledQuantityIcon,
    &CatalogueEditor::EnabledUnitIcon,
    &CatalogueEditor::DisabledUnitIcon,
    &CatalogueEditor::DefaultUnitIcon,
    &CatalogueEditor::DisabledDefaultUnitIcon,
};

static QString text(int id)
{
    return StringTable::text(id);
}

static const QIcon &nodeIcon(const QString &iconKey)
{
    static QHash<QString, QIcon> icons;
    auto found = icons.find(iconKey);
    if (found == icons.end())
        found = icons.insert(
            iconKey, QIcon(QStringLiteral(":/options/icons/") + iconKey + QStringLiteral(".svg")));
    return *found;
}

template<typename T> static T *named(T *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

frmSetOpt::frmSetOpt(Catalogue &live, Settings &settings, Session &session, SettingsStore &store,
    Dialogs &dialogs, QWidget *parent)
    : QDialog(parent)
    , m_live(live)
    , m_settings(settings)
    , m_session(session)
    , m_store(store)
    , m_dialogs(dialogs)
    , m_editor(live, session)
{
    setObjectName(QStringLiteral("frmSetOpt"));
    setModal(true);
    m_session.CatalogueChanged = false;
    createControls();
    setTexts();
    loadValues();
    connectControls();
    PopulateTreeMain();
    UpdateProperties();
    SetExampleText();
}

void frmSetOpt::createControls()
{
    TabStrip = named(new QTabWidget(this), "TabStrip");
    auto *general = named(new QWidget, "fraPageGeneral");
    auto *quantities = named(new QWidget, "fraPageQuantities");
    createGeneralPage(general);
    createQuantitiesPage(quantities);
    TabStrip->addTab(general, QString());
    TabStrip->addTab(quantities, QString());

    cmdHelp = named(new QPushButton(this), "cmdHelp");
    cmdOK = named(new QPushButton(this), "cmdOK");
    cmdCancel = named(new QPushButton(this), "cmdCancel");
    cmdOK->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdHelp);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(TabStrip);
    layout->addLayout(buttons);
    // Room for a useful part of the tree without scrolling at once.
    resize(sizeHint().expandedTo(QSize(780, 580)));
}

void frmSetOpt::createGeneralPage(QWidget *page)
{
    fraNumericFormatting = named(new QGroupBox(page), "fraNumericFormatting");
    lblSigFigs = named(new QLabel(fraNumericFormatting), "lblSigFigs");
    Slider1 = named(new QSlider(Qt::Horizontal, fraNumericFormatting), "Slider1");
    Slider1->setRange(1, NumberFormat::MaxFigures);
    Slider1->setPageStep(1);
    Slider1->setTickPosition(QSlider::TicksBelow);
    Slider1->setTickInterval(1);
    lblslider = named(new QLabel(fraNumericFormatting), "lblslider");
    lblslider->setMinimumWidth(
        lblslider->fontMetrics().horizontalAdvance(QStringLiteral("00")) + 6);
    lblslider->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblSigFigs->setBuddy(Slider1);

    fraNumberStyle = named(new QGroupBox(fraNumericFormatting), "fraNumberStyle");
    Option1[0] = named(new QRadioButton(fraNumberStyle), "Option1_0");
    Option1[1] = named(new QRadioButton(fraNumberStyle), "Option1_1");
    m_option1Group = new QButtonGroup(this);
    auto *styleLayout = new QVBoxLayout(fraNumberStyle);
    for (int i = 0; i < 2; ++i) {
        m_option1Group->addButton(Option1[i], i);
        styleLayout->addWidget(Option1[i]);
    }

    chkTriads = named(new QCheckBox(fraNumericFormatting), "chkTriads");
    lblExampleText = named(new QLabel(fraNumericFormatting), "lblExampleText");
    lblExampleText->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    lblExampleText->setAlignment(Qt::AlignCenter);
    lblExampleText->setMinimumHeight(lblExampleText->fontMetrics().height() * 2);
    lblMaxNumber = named(new QLabel(fraNumericFormatting), "lblMaxNumber");
    lblMaxNumber->setWordWrap(true);
    txtMaxNumber = named(new QLineEdit(fraNumericFormatting), "txtMaxNumber");
    lblMaxNumber->setBuddy(txtMaxNumber);
    lblMinNumber = named(new QLabel(fraNumericFormatting), "lblMinNumber");
    lblMinNumber->setWordWrap(true);
    txtMinNumber = named(new QLineEdit(fraNumericFormatting), "txtMinNumber");
    lblMinNumber->setBuddy(txtMinNumber);

    auto *sliderRow = new QHBoxLayout;
    sliderRow->addWidget(lblSigFigs);
    sliderRow->addWidget(Slider1, 1);
    sliderRow->addWidget(lblslider);
    auto *numeric = new QVBoxLayout(fraNumericFormatting);
    numeric->addLayout(sliderRow);
    numeric->addWidget(fraNumberStyle);
    numeric->addWidget(chkTriads);
    numeric->addWidget(lblExampleText);
    numeric->addSpacing(6);
    numeric->addWidget(lblMaxNumber);
    numeric->addWidget(txtMaxNumber);
    numeric->addWidget(lblMinNumber);
    numeric->addWidget(txtMinNumber);
    numeric->addStretch();

    fraGeneralOptions = named(new QGroupBox(page), "fraGeneralOptions");
    fraInterfaceStyle = named(new QGroupBox(fraGeneralOptions), "fraInterfaceStyle");
    optTabs[0] = named(new QRadioButton(fraInterfaceStyle), "optTabs_0");
    optTabs[1] = named(new QRadioButton(fraInterfaceStyle), "optTabs_1");
    m_tabsGroup = new QButtonGroup(this);
    auto *tabsLayout = new QHBoxLayout(fraInterfaceStyle);
    for (int i = 0; i < 2; ++i) {
        m_tabsGroup->addButton(optTabs[i], i);
        tabsLayout->addWidget(optTabs[i]);
    }
    tabsLayout->addStretch();

    fraShellProgram = named(new QGroupBox(fraGeneralOptions), "fraShellProgram");
    optWinCalc[0] = named(new QRadioButton(fraShellProgram), "optWinCalc_0");
    optWinCalc[1] = named(new QRadioButton(fraShellProgram), "optWinCalc_1");
    optCalcSci[0] = named(new QRadioButton(fraShellProgram), "optCalcSci_0");
    optCalcSci[1] = named(new QRadioButton(fraShellProgram), "optCalcSci_1");
    m_winCalcGroup = new QButtonGroup(this);
    m_calcSciGroup = new QButtonGroup(this);
    for (int i = 0; i < 2; ++i) {
        m_winCalcGroup->addButton(optWinCalc[i], i);
        m_calcSciGroup->addButton(optCalcSci[i], i);
    }
    cmdDialog = named(new QPushButton(fraShellProgram), "cmdDialog");
    lblShellCaption = named(new QLabel(fraShellProgram), "lblShellCaption");
    lblShellProgram = named(new QLabel(fraShellProgram), "lblShellProgram");
    lblShellProgram->setWordWrap(true);
    lblShellProgram->setTextInteractionFlags(Qt::TextSelectableByMouse);

    const int indent = 2 * style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth);
    auto *calculatorView = new QHBoxLayout;
    calculatorView->addSpacing(indent);
    calculatorView->addWidget(optCalcSci[0]);
    calculatorView->addWidget(optCalcSci[1]);
    calculatorView->addStretch();
    auto *chooseRow = new QHBoxLayout;
    chooseRow->addSpacing(indent);
    chooseRow->addWidget(cmdDialog);
    chooseRow->addStretch();
    auto *shell = new QVBoxLayout(fraShellProgram);
    shell->addWidget(optWinCalc[0]);
    shell->addLayout(calculatorView);
    shell->addWidget(optWinCalc[1]);
    shell->addLayout(chooseRow);
    shell->addWidget(lblShellCaption);
    shell->addWidget(lblShellProgram);

    chkConfirm = named(new QCheckBox(fraGeneralOptions), "chkConfirm");
    chkSysTray = named(new QCheckBox(fraGeneralOptions), "chkSysTray");
    chkRemember = named(new QCheckBox(fraGeneralOptions), "chkRemember");
    auto *options = new QVBoxLayout(fraGeneralOptions);
    options->addWidget(fraInterfaceStyle);
    options->addWidget(fraShellProgram);
    options->addWidget(chkConfirm);
    options->addWidget(chkSysTray);
    options->addWidget(chkRemember);
    options->addStretch();

    auto *layout = new QHBoxLayout(page);
    layout->addWidget(fraNumericFormatting, 1);
    layout->addWidget(fraGeneralOptions, 1);
}

void frmSetOpt::createQuantitiesPage(QWidget *page)
{
    fraTree = named(new QGroupBox(page), "fraTree");
    treeMain = named(new QTreeWidget(fraTree), "treeMain");
    treeMain->setColumnCount(1);
    treeMain->setHeaderHidden(true);
    treeMain->setSelectionMode(QAbstractItemView::SingleSelection);
    treeMain->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    treeMain->header()->setStretchLastSection(false);
    treeMain->setMinimumWidth(280);
    cmdExpandAll = named(new QPushButton(fraTree), "cmdExpandAll");
    auto *treeLayout = new QVBoxLayout(fraTree);
    treeLayout->addWidget(treeMain, 1);
    auto *expandRow = new QHBoxLayout;
    expandRow->addWidget(cmdExpandAll);
    expandRow->addStretch();
    treeLayout->addLayout(expandRow);

    fraProperties = named(new QGroupBox(page), "fraProperties");
    lblName = named(new QLabel(fraProperties), "lblName");
    txtName = named(new QLineEdit(fraProperties), "txtName");
    lblName->setBuddy(txtName);
    lblConvFactor = named(new QLabel(fraProperties), "lblConvFactor");
    txtConvFactor = named(new QLineEdit(fraProperties), "txtConvFactor");
    lblConvFactor->setBuddy(txtConvFactor);
    chkExact = named(new QCheckBox(fraProperties), "chkExact");
    optOnOff[0] = named(new QRadioButton(fraProperties), "optOnOff_0");
    optOnOff[1] = named(new QRadioButton(fraProperties), "optOnOff_1");
    m_onOffGroup = new QButtonGroup(this);
    txtComments = named(new QPlainTextEdit(fraProperties), "txtComments");
    txtComments->setReadOnly(true);
    txtComments->setMinimumHeight(txtComments->fontMetrics().height() * 5);
    auto *onOffRow = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        m_onOffGroup->addButton(optOnOff[i], i);
        onOffRow->addWidget(optOnOff[i]);
    }
    onOffRow->addStretch();
    auto *factorRow = new QHBoxLayout;
    factorRow->addWidget(txtConvFactor, 1);
    factorRow->addWidget(chkExact);
    auto *properties = new QGridLayout(fraProperties);
    properties->addWidget(lblName, 0, 0);
    properties->addWidget(txtName, 0, 1);
    properties->addWidget(lblConvFactor, 1, 0);
    properties->addLayout(factorRow, 1, 1);
    properties->addLayout(onOffRow, 2, 1);
    properties->addWidget(txtComments, 3, 0, 1, 2);

    fraLegend = named(new QGroupBox(page), "fraLegend");
    auto *legend = new QGridLayout(fraLegend);
    for (int i = 0; i < int(LegendIcons.size()); ++i) {
        const QByteArray index = QByteArray::number(i);
        imgLegend[i] = new QLabel(fraLegend);
        imgLegend[i]->setObjectName(QLatin1String("imgLegend_" + index));
        imgLegend[i]->setPixmap(nodeIcon(*LegendIcons[i]).pixmap(16, 16));
        lblLegend[i] = new QLabel(fraLegend);
        lblLegend[i]->setObjectName(QLatin1String("lblLegend_" + index));
        // Quantities in the first column, units in the second.
        const int row = i < 2 ? i : (i - 2) % 2;
        const int column = i < 2 ? 0 : 2 * ((i - 2) / 2 + 1);
        legend->addWidget(imgLegend[i], row, column);
        legend->addWidget(lblLegend[i], row, column + 1);
    }
    legend->setColumnStretch(1, 1);
    legend->setColumnStretch(3, 1);
    legend->setColumnStretch(5, 1);

    cmdAddNewPhysQuan = named(new QPushButton(page), "cmdAddNewPhysQuan");
    cmdAddNewUnit = named(new QPushButton(page), "cmdAddNewUnit");
    cmdRemovePhysQuan = named(new QPushButton(page), "cmdRemovePhysQuan");
    cmdRemoveUnit = named(new QPushButton(page), "cmdRemoveUnit");
    cmdTutorial = named(new QPushButton(page), "cmdTutorial");
    auto *editButtons = new QGridLayout;
    editButtons->addWidget(cmdAddNewPhysQuan, 0, 0);
    editButtons->addWidget(cmdRemovePhysQuan, 0, 1);
    editButtons->addWidget(cmdAddNewUnit, 1, 0);
    editButtons->addWidget(cmdRemoveUnit, 1, 1);
    auto *right = new QVBoxLayout;
    right->addWidget(fraProperties, 1);
    right->addLayout(editButtons);
    right->addWidget(cmdTutorial);

    auto *layout = new QGridLayout(page);
    layout->addWidget(fraTree, 0, 0);
    layout->addLayout(right, 0, 1);
    layout->addWidget(fraLegend, 1, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
}

void frmSetOpt::setTexts()
{
    setWindowTitle(text(StringId::Title));
    TabStrip->setTabText(0, text(StringId::PageGeneral));
    TabStrip->setTabText(1, text(StringId::PageQuantities));
    cmdOK->setText(text(StringId::Ok));
    cmdCancel->setText(text(StringId::Cancel));
    cmdHelp->setText(text(StringId::Help));

    fraNumericFormatting->setTitle(text(StringId::NumericFormatting));
    lblSigFigs->setText(text(StringId::SignificantFigures));
    fraNumberStyle->setTitle(text(StringId::NumberStyle));
    Option1[0]->setText(text(StringId::ScientificNotation));
    Option1[1]->setText(text(StringId::RegularNotation));
    chkTriads->setText(text(StringId::Triads));
    lblMaxNumber->setText(text(StringId::MaxNumberLabel));
    lblMinNumber->setText(text(StringId::MinNumberLabel));
    fraGeneralOptions->setTitle(text(StringId::GeneralOptions));
    fraInterfaceStyle->setTitle(text(StringId::InterfaceStyle));
    optTabs[0]->setText(text(StringId::InterfaceTabs));
    optTabs[1]->setText(text(StringId::InterfaceButtons));
    fraShellProgram->setTitle(text(StringId::ShellProgramFrame));
    optWinCalc[0]->setText(text(StringId::WindowsCalculator));
    optWinCalc[1]->setText(text(StringId::OtherShellProgram));
    optCalcSci[0]->setText(text(StringId::CalculatorScientific));
    optCalcSci[1]->setText(text(StringId::CalculatorStandard));
    cmdDialog->setText(text(StringId::ChooseProgram));
    lblShellCaption->setText(text(StringId::CurrentShellProgram));
    chkConfirm->setText(text(StringId::ConfirmExit));
    chkSysTray->setText(text(StringId::SystemTray));
    chkRemember->setText(text(StringId::RememberLast));

    fraTree->setTitle(text(StringId::TreeFrame));
    cmdExpandAll->setText(text(StringId::ExpandAll));
    cmdExpandAll->setToolTip(text(StringId::ExpandAllTip));
    fraLegend->setTitle(text(StringId::Legend));
    for (int i = 0; i < int(lblLegend.size()); ++i)
        lblLegend[i]->setText(text(StringId::LegendFirst + i));
    fraProperties->setTitle(text(StringId::Properties));
    lblName->setText(text(StringId::Name));
    lblConvFactor->setText(text(StringId::ConversionFactor));
    chkExact->setText(text(StringId::Exact));
    optOnOff[0]->setText(text(StringId::Enabled));
    optOnOff[1]->setText(text(StringId::Disabled));
    cmdAddNewPhysQuan->setText(text(StringId::AddQuantity));
    cmdAddNewPhysQuan->setToolTip(text(StringId::AddQuantityTip));
    cmdAddNewUnit->setText(text(StringId::AddUnit));
    cmdAddNewUnit->setToolTip(text(StringId::AddUnitTip));
    cmdRemovePhysQuan->setText(text(StringId::RemoveQuantity));
    cmdRemovePhysQuan->setToolTip(text(StringId::RemoveQuantityTip));
    cmdRemoveUnit->setText(text(StringId::RemoveUnit));
    cmdRemoveUnit->setToolTip(text(StringId::RemoveUnitTip));
    cmdTutorial->setText(text(StringId::Tutorial));

    // What's-this help, in the order of the string ids.
    const QList<QList<QWidget *>> general = {
        { TabStrip },
        { Slider1, lblSigFigs },
        { lblslider },
        { Option1[0] },
        { Option1[1] },
        { chkTriads },
        { lblExampleText },
        { txtMaxNumber, lblMaxNumber },
        { txtMinNumber, lblMinNumber },
        { optTabs[0] },
        { optTabs[1] },
        { optWinCalc[0] },
        { optWinCalc[1] },
        { optCalcSci[0] },
        { optCalcSci[1] },
        { cmdDialog },
        { lblShellProgram, lblShellCaption },
        { chkConfirm },
        { chkSysTray },
        { chkRemember },
        { cmdOK },
        { cmdCancel },
        { cmdHelp },
    };
    const QList<QList<QWidget *>> quantities = {
        { treeMain },
        { cmdExpandAll },
        { txtName, lblName },
        { txtConvFactor, lblConvFactor },
        { chkExact },
        { optOnOff[0] },
        { optOnOff[1] },
        { txtComments },
        { cmdAddNewPhysQuan },
        { cmdAddNewUnit },
        { cmdRemovePhysQuan },
        { cmdRemoveUnit },
        { cmdTutorial },
        { fraLegend },
    };
    for (int i = 0; i < general.size(); ++i)
        for (QWidget *widget : general[i])
            widget->setWhatsThis(text(StringId::WhatsThisGeneralFirst + i));
    for (int i = 0; i < quantities.size(); ++i)
        for (QWidget *widget : quantities[i])
            widget->setWhatsThis(text(StringId::WhatsThisTreeFirst + i));
}

// The controls start from the program's settings; "SciCalc" and "Tab" are read from the store.
void frmSetOpt::loadValues()
{
    Slider1->setValue(qBound(1, m_settings.SigFigs, int(NumberFormat::MaxFigures)));
    lblslider->setNum(Slider1->value());
    Option1[m_settings.Scientific ? 0 : 1]->setChecked(true);
    chkTriads->setChecked(m_settings.Triads);
    m_maxNumber = m_settings.MaxNumber;
    m_minNumber = m_settings.MinNumber;
    txtMaxNumber->setText(NumberText::shortestText(m_maxNumber));
    txtMinNumber->setText(NumberText::shortestText(m_minNumber));
    optTabs[m_settings.ShowTabs ? 0 : 1]->setChecked(true);
    // Any number but 0 starts the calculator (ShellProgram), and so shows it here.
    optWinCalc[m_settings.UseWindowsCalc != 0 ? 0 : 1]->setChecked(true);
    const QString sciCalc
        = m_store.RegReadString(Settings::Section, SciCalcValue, QStringLiteral("1"));
    optCalcSci[sciCalc == QStringLiteral("0") ? 1 : 0]->setChecked(true);
    lblShellProgram->setText(u' ' + m_settings.ShellProgram);
    chkConfirm->setChecked(m_settings.ConfirmExit);
    chkSysTray->setChecked(m_settings.ShowTrayIcon);
    chkRemember->setChecked(m_settings.RememberLast);
    optWinCalc_Click();

    int page = 0;
    try {
        page = NumberText::toInt16(
            m_store.RegReadString(Settings::Section, TabValue, QStringLiteral("0")));
    } catch (const RuntimeError &) {
        page = 0; // a damaged value only costs the remembered page
    }
    TabStrip->setCurrentIndex(qBound(0, page, TabStrip->count() - 1));
}

void frmSetOpt::connectControls()
{
    connect(Slider1, &QSlider::valueChanged, this, &frmSetOpt::Slider1_Change);
    connect(m_option1Group, &QButtonGroup::idToggled, this, [this] { SetExampleText(); });
    connect(chkTriads, &QCheckBox::toggled, this, [this] { SetExampleText(); });
    connect(m_winCalcGroup, &QButtonGroup::idClicked, this, [this] { optWinCalc_Click(); });
    connect(cmdDialog, &QPushButton::clicked, this, &frmSetOpt::cmdDialog_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmSetOpt::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmSetOpt::reject);
    connect(cmdHelp, &QPushButton::clicked, this, [] { QWhatsThis::enterWhatsThisMode(); });
    connect(cmdTutorial, &QPushButton::clicked, this,
        [this] { Q_EMIT helpRequested(HelpContextCustomUnits); });

    auto *help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(
        help, &QShortcut::activated, this, [this] { Q_EMIT helpRequested(HelpContextOptions); });
    auto *nextPage = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this);
    connect(nextPage, &QShortcut::activated, this, [this] { selectPage(1); });
    auto *previousPage = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), this);
    connect(previousPage, &QShortcut::activated, this, [this] { selectPage(-1); });

    for (QLineEdit *box : { txtMaxNumber, txtMinNumber, txtName, txtConvFactor })
        box->installEventFilter(this);

    connect(treeMain, &QTreeWidget::currentItemChanged, this, [this] { UpdateProperties(); });
    // A click on the node that is selected already shows it afresh (after a rename, say).
    connect(treeMain, &QTreeWidget::itemClicked, this, [this] { UpdateProperties(); });
    connect(txtName, &QLineEdit::textChanged, this, &frmSetOpt::txtName_Change);
    connect(txtConvFactor, &QLineEdit::textChanged, this, &frmSetOpt::txtConvFactor_Change);
    connect(chkExact, &QCheckBox::clicked, this, &frmSetOpt::chkExact_Click);
    connect(m_onOffGroup, &QButtonGroup::idClicked, this, &frmSetOpt::optOnOff_Click);
    connect(cmdExpandAll, &QPushButton::clicked, this, &frmSetOpt::cmdExpandAll_Click);
    connect(cmdAddNewPhysQuan, &QPushButton::clicked, this, &frmSetOpt::cmdAddNewPhysQuan_Click);
    connect(cmdAddNewUnit, &QPushButton::clicked, this, &frmSetOpt::cmdAddNewUnit_Click);
    connect(cmdRemovePhysQuan, &QPushButton::clicked, this, &frmSetOpt::cmdRemovePhysQuan_Click);
    connect(cmdRemoveUnit, &QPushButton::clicked, this, &frmSetOpt::cmdRemoveUnit_Click);
}

bool frmSetOpt::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QLineEdit *>(watched);
    if (box && event->type() == QEvent::FocusIn) {
        // After the mouse press that gave the focus, which would place the cursor instead.
        QTimer::singleShot(0, box, &QLineEdit::selectAll);
    } else if (box && event->type() == QEvent::FocusOut && isVisible()) {
        // Leaving the box; not the window losing the focus to a message box or a menu.
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            if (box == txtMaxNumber)
                txtMaxNumber_LostFocus();
            else if (box == txtMinNumber)
                txtMinNumber_LostFocus();
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmSetOpt::SetExampleText()
{
    const QString decimal = m_settings.DecimalSeparator;
    const bool triads = chkTriads->isChecked();
    QString example;
    if (Option1[0]->isChecked())
        example = text(StringId::ExampleScientificStart) + decimal
            + text(triads ? StringId::ExampleScientificTriads : StringId::ExampleScientificPlain);
    else if (triads)
        example = text(StringId::ExampleRegularTriadsStart) + decimal
            + text(StringId::ExampleRegularTriadsEnd);
    else
        example = text(StringId::ExampleRegularPlainStart) + decimal
            + text(StringId::ExampleRegularPlainEnd);
    lblExampleText->setText(example);
}

void frmSetOpt::Slider1_Change(int value)
{
    lblslider->setNum(value);
}

void frmSetOpt::optWinCalc_Click()
{
    const bool calculator = optWinCalc[0]->isChecked();
    optCalcSci[0]->setEnabled(calculator);
    optCalcSci[1]->setEnabled(calculator);
    cmdDialog->setEnabled(!calculator);
}

void frmSetOpt::cmdDialog_Click()
{
    QString filter = text(StringId::AllFilesFilter);
#ifndef Q_OS_WIN
    // "*.*" only matches names with a dot outside Windows, and most programs have none there.
    filter.replace(QStringLiteral("(*.*)"), QStringLiteral("(*)"));
#endif
    const QString path = m_dialogs.openFileName(this, filter);
    if (path.isEmpty())
        return; // cancelled: the previous program stays
    // In use at once, also when the dialog is cancelled afterwards; saved only by OK.
    m_settings.ShellProgram = path;
    lblShellProgram->setText(u' ' + path);
}

bool frmSetOpt::txtMaxNumber_LostFocus()
{
    return checkThreshold(txtMaxNumber, m_maxNumber, true);
}

bool frmSetOpt::txtMinNumber_LostFocus()
{
    return checkThreshold(txtMinNumber, m_minNumber, false);
}

bool frmSetOpt::checkThreshold(QLineEdit *box, double &accepted, bool isMaximum)
{
    static constexpr double Highest = 1e9;
    static constexpr double Lowest = 1e-9;
    const QChar decimal
        = m_settings.DecimalSeparator.isEmpty() ? QChar(u'.') : m_settings.DecimalSeparator.at(0);
    double value = 0;
    try {
        value = NumberText::toDouble(box->text(), decimal);
    } catch (const RuntimeError &) {
        m_dialogs.message(this, Notice { Notice::Exclamation, text(StringId::NotANumber), {} });
        box->setText(NumberText::shortestText(accepted));
        return false;
    }
    if (isMaximum && value > Highest) {
        m_dialogs.message(
            this, Notice { Notice::Exclamation, text(StringId::MaxNumberAllowed), {} });
        box->setText(QStringLiteral("1e+9"));
        accepted = Highest;
        return false;
    }
    if (!isMaximum && value < Lowest) {
        m_dialogs.message(
            this, Notice { Notice::Exclamation, text(StringId::MinNumberAllowed), {} });
        box->setText(QStringLiteral("1e-9"));
        accepted = Lowest;
        return false;
    }
    accepted = value;
    return true;
}

void frmSetOpt::selectPage(int step)
{
    const int count = TabStrip->count();
    TabStrip->setCurrentIndex((TabStrip->currentIndex() + step + count) % count);
}

void frmSetOpt::cmdOK_Click()
{
    // A threshold corrected here is shown to the user before anything is kept.
    if (!txtMaxNumber_LostFocus() || !txtMinNumber_LostFocus())
        return;
    const bool catalogueChanged = m_session.CatalogueChanged;
    if (catalogueChanged) {
        if (const auto problem = m_editor.findProblem()) {
            showProblem(*problem);
            return;
        }
    }

    QApplication::setOverrideCursor(Qt::WaitCursor);
    {
        // One batch: the store is saved once, and a crash leaves the old file or the new one.
        SettingsStore::Batch batch(m_store);
        if (catalogueChanged)
            m_editor.commitToStore(m_store, m_session);
        saveSettings();
    }
    if (catalogueChanged)
        m_editor.applyTo(m_live);
    QApplication::restoreOverrideCursor();
    accept();
}

void frmSetOpt::saveSettings()
{
    m_settings.SigFigs = Slider1->value();
    m_settings.Scientific = Option1[0]->isChecked();
    m_settings.Triads = chkTriads->isChecked();
    m_settings.MaxNumber = m_maxNumber;
    m_settings.MinNumber = m_minNumber;
    m_settings.ShowTabs = optTabs[0]->isChecked();
    m_settings.UseWindowsCalc = optWinCalc[0]->isChecked() ? 1 : 0;
    m_settings.ConfirmExit = chkConfirm->isChecked();
    m_settings.ShowTrayIcon = chkSysTray->isChecked();
    m_settings.RememberLast = chkRemember->isChecked();

    m_store.RegWriteString(Settings::Section, TabValue, QString::number(TabStrip->currentIndex()));
    // Every setting of the page, in the order of the page's table of settings. The number
    // style is written too: a catalogue commit has just deleted it with the rest of the key.
    for (const char16_t *name : { u"numericformatting", u"scientific", u"triads", u"maxnumber",
             u"minnumber", u"tabs", u"wincalc" })
        m_settings.save(m_store, QString::fromUtf16(name));
    m_store.RegWriteString(Settings::Section, SciCalcValue,
        optCalcSci[0]->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
    for (const char16_t *name : { u"shellprog", u"confirm", u"systray", u"remember" })
        m_settings.save(m_store, QString::fromUtf16(name));
}

void frmSetOpt::reject()
{
    m_session.CatalogueChanged = false; // the working copy is dropped
    QDialog::reject();
}

void frmSetOpt::showProblem(const CatalogueEditor::Problem &problem)
{
    TabStrip->setCurrentIndex(1);
    const QString key = problem.unit == 0
        ? m_editor.quantityNodeKey(problem.quantity)
        : CatalogueEditor::unitKey(problem.quantity, problem.unit);
    if (QTreeWidgetItem *node = findNode(key))
        selectNode(node);
    m_dialogs.message(this, problem.notice);
    QLineEdit *box = txtConvFactor->isEnabled() && problem.unit != 0
            && m_editor.checkFactorText(m_editor.unit(problem.quantity, problem.unit).FactorText)
        ? txtConvFactor
        : txtName;
    box->setFocus();
}

void frmSetOpt::PopulateTreeMain()
{
    treeMain->setUpdatesEnabled(false);
    treeMain->setSortingEnabled(false);
    treeMain->clear();
    m_editor.resetNodeKeys();
    auto *root = new TreeMainItem(treeMain);
    root->setText(0, text(StringId::RootNode));
    root->setData(0, KeyRole, CatalogueEditor::RootKey);
    for (int q = 1; q <= m_editor.quantityCount(); ++q) {
        QTreeWidgetItem *quantityNode = addQuantityNode(q);
        for (int j = 1; j <= m_editor.quantity(q).UnitCount; ++j)
            addUnitNode(quantityNode, q, j);
    }
    treeMain->setSortingEnabled(true);
    treeMain->sortByColumn(0, Qt::AscendingOrder);
    root->setExpanded(true);
    treeMain->setCurrentItem(root);
    cmdExpandAll->setText(text(StringId::ExpandAll)); // every quantity starts collapsed
    treeMain->setUpdatesEnabled(true);
}

QTreeWidgetItem *frmSetOpt::addQuantityNode(int q)
{
    auto *node = new TreeMainItem(treeMain->topLevelItem(0));
    node->setText(0, m_editor.quantity(q).Name);
    node->setData(0, KeyRole, m_editor.quantityNodeKey(q));
    setNodeIcon(node, m_editor.quantityIcon(q));
    return node;
}

QTreeWidgetItem *frmSetOpt::addUnitNode(QTreeWidgetItem *quantityNode, int q, int j)
{
    auto *node = new TreeMainItem(quantityNode);
    node->setText(0, m_editor.unit(q, j).Name);
    node->setData(0, KeyRole, CatalogueEditor::unitKey(q, j));
    setNodeIcon(node, m_editor.unitIcon(q, j));
    return node;
}

void frmSetOpt::setNodeIcon(QTreeWidgetItem *node, const QString &iconKey)
{
    node->setData(0, IconKeyRole, iconKey);
    node->setIcon(0, nodeIcon(iconKey));
}

QTreeWidgetItem *frmSetOpt::findNode(const QString &key) const
{
    QTreeWidgetItem *root = treeMain->topLevelItem(0);
    if (!root || root->data(0, KeyRole).toString() == key)
        return root;
    for (int i = 0; i < root->childCount(); ++i) {
        QTreeWidgetItem *quantityNode = root->child(i);
        if (quantityNode->data(0, KeyRole).toString() == key)
            return quantityNode;
        for (int k = 0; k < quantityNode->childCount(); ++k)
            if (quantityNode->child(k)->data(0, KeyRole).toString() == key)
                return quantityNode->child(k);
    }
    return nullptr;
}

void frmSetOpt::selectNode(QTreeWidgetItem *node)
{
    for (QTreeWidgetItem *parent = node->parent(); parent; parent = parent->parent())
        parent->setExpanded(true);
    treeMain->setCurrentItem(node);
    treeMain->scrollToItem(node);
}

// Fills the properties panel for the selected node and enables what applies to it.
void frmSetOpt::UpdateProperties()
{
    QTreeWidgetItem *node = treeMain->currentItem();
    const CatalogueEditor::Properties p = node
        ? m_editor.properties(node->data(0, KeyRole).toString(), node->text(0),
            node->parent() ? node->parent()->text(0) : QString())
        : CatalogueEditor::Properties();
    m_selectedKind = p.kind;
    m_selectedQuantity = p.quantity;
    m_selectedUnit = p.unit;

    m_filling = true;
    txtName->setText(p.name);
    txtName->setEnabled(p.nameEnabled);
    lblName->setEnabled(p.nameEnabled);
    txtConvFactor->setText(p.factorText);
    txtConvFactor->setEnabled(p.factorEnabled);
    lblConvFactor->setEnabled(p.factorEnabled);
    chkExact->setChecked(p.exact);
    chkExact->setVisible(p.exactVisible);
    chkExact->setEnabled(p.exactEnabled);
    if (p.kind != CatalogueEditor::NodeKind::Root)
        optOnOff[p.enabled ? 0 : 1]->setChecked(true);
    optOnOff[0]->setEnabled(p.onOffEnabled);
    optOnOff[1]->setEnabled(p.onOffEnabled);
    cmdAddNewUnit->setEnabled(p.addUnitEnabled);
    cmdRemoveUnit->setEnabled(p.removeUnitEnabled);
    cmdRemovePhysQuan->setEnabled(p.removeQuantityEnabled);
    txtComments->setPlainText(p.comments);
    m_filling = false;
}

void frmSetOpt::txtName_Change(const QString &name)
{
    QTreeWidgetItem *node = treeMain->currentItem();
    if (m_filling || !node || m_selectedKind == CatalogueEditor::NodeKind::Root)
        return;
    if (m_selectedKind == CatalogueEditor::NodeKind::Unit)
        m_editor.renameUnit(m_selectedQuantity, m_selectedUnit, name);
    else
        m_editor.renameQuantity(m_selectedQuantity, name);
    node->setText(0, name); // the key stays as it is until the tree is rebuilt
}

void frmSetOpt::txtConvFactor_Change(const QString &factorText)
{
    if (m_filling || m_selectedKind != CatalogueEditor::NodeKind::Unit)
        return;
    m_editor.setFactorText(m_selectedQuantity, m_selectedUnit, factorText);
}

void frmSetOpt::chkExact_Click(bool checked)
{
    if (m_filling || m_selectedKind != CatalogueEditor::NodeKind::Unit)
        return;
    m_editor.setExact(m_selectedQuantity, m_selectedUnit, checked ? 1 : 0);
}

void frmSetOpt::optOnOff_Click(int index)
{
    QTreeWidgetItem *node = treeMain->currentItem();
    if (!node || m_selectedKind == CatalogueEditor::NodeKind::Root)
        return;
    const int onOff = index == 0 ? 1 : 0;
    if (m_selectedKind == CatalogueEditor::NodeKind::Quantity) {
        m_editor.setQuantityOnOff(m_selectedQuantity, onOff);
        setNodeIcon(node, m_editor.quantityIcon(m_selectedQuantity));
        return;
    }
    // The icon keeps telling a default unit from the others, whatever its state.
    const QString present = node->data(0, IconKeyRole).toString();
    const bool isDefault = present == CatalogueEditor::DefaultUnitIcon
        || present == CatalogueEditor::DisabledDefaultUnitIcon;
    m_editor.setUnitOnOff(m_selectedQuantity, m_selectedUnit, onOff);
    if (isDefault)
        setNodeIcon(node,
            onOff == 1 ? CatalogueEditor::DefaultUnitIcon
                       : CatalogueEditor::DisabledDefaultUnitIcon);
    else
        setNodeIcon(node,
            onOff == 1 ? CatalogueEditor::EnabledUnitIcon : CatalogueEditor::DisabledUnitIcon);
}

void frmSetOpt::cmdExpandAll_Click()
{
    // The caption holds the state. Units have no children, so expanding every node expands
    // exactly the quantities, in one pass over the tree.
    const bool expand = cmdExpandAll->text() == text(StringId::ExpandAll);
    if (expand) {
        treeMain->expandAll();
    } else {
        treeMain->collapseAll();
        if (QTreeWidgetItem *root = treeMain->topLevelItem(0))
            root->setExpanded(true);
    }
    cmdExpandAll->setText(text(expand ? StringId::CollapseAll : StringId::ExpandAll));
    if (QTreeWidgetItem *root = treeMain->topLevelItem(0))
        treeMain->scrollToItem(root);
}

void frmSetOpt::cmdAddNewPhysQuan_Click()
{
    const auto name = m_dialogs.input(this, text(StringId::NewQuantityPrompt),
        text(StringId::NewQuantityTitle), text(StringId::NewQuantityDefault));
    if (!name || name->isEmpty())
        return;
    // Refused before the default unit is asked for, so that nothing is typed in vain.
    if (const auto refusal = m_editor.checkNewQuantityName(*name)) {
        m_dialogs.message(this, *refusal);
        return;
    }
    const auto defaultUnit = m_dialogs.input(
        this, text(StringId::DefaultUnitPrompt), text(StringId::DefaultUnitTitle), QString());
    if (!defaultUnit || defaultUnit->isEmpty())
        return;
    const CatalogueEditor::Added added = m_editor.addQuantity(*name, *defaultUnit);
    if (added.refusal) {
        m_dialogs.message(this, *added.refusal);
        return;
    }
    QTreeWidgetItem *quantityNode = addQuantityNode(added.quantity);
    QTreeWidgetItem *unitNode = addUnitNode(quantityNode, added.quantity, added.unit);
    treeMain->topLevelItem(0)->sortChildren(0, Qt::AscendingOrder);
    selectNode(unitNode);
    UpdateProperties();
}

void frmSetOpt::cmdAddNewUnit_Click()
{
    const int q = m_selectedQuantity;
    QTreeWidgetItem *node = treeMain->currentItem();
    if (q == 0 || !node)
        return;
    QTreeWidgetItem *quantityNode
        = m_selectedKind == CatalogueEditor::NodeKind::Unit ? node->parent() : node;
    if (const auto refusal = m_editor.checkUnitRoom(q)) {
        m_dialogs.message(this, *refusal);
        return;
    }
    const PhysicalQuantity &quantity = m_editor.quantity(q);
    const auto typed = m_dialogs.input(this,
        text(StringId::NewUnitPrompt) + quantity.Name + text(StringId::FullStop)
            + QStringLiteral("\n\n") + text(StringId::UpToForty),
        text(StringId::NewUnitTitle), QString());
    if (!typed)
        return;
    const QString name = CatalogueEditor::cutUnitName(*typed);
    if (name.isEmpty())
        return;
    if (const auto refusal = m_editor.checkNewUnitName(q, name)) {
        m_dialogs.message(this, *refusal);
        return;
    }
    const QString defaultUnit = quantity.DefaultUnit;
    const auto factor = m_dialogs.input(this,
        text(StringId::FactorPrompt) + name + text(StringId::FactorPromptTo) + defaultUnit
            + text(StringId::FullStop) + QStringLiteral("\n\n") + text(StringId::FactorExample)
            + defaultUnit + text(StringId::FactorExampleEnd),
        text(StringId::FactorTitle), QStringLiteral("1"));
    if (!factor || factor->isEmpty())
        return;
    const CatalogueEditor::Added added = m_editor.addUnit(q, name, *factor);
    if (added.refusal) {
        m_dialogs.message(this, *added.refusal);
        return;
    }
    QTreeWidgetItem *unitNode = addUnitNode(quantityNode, q, added.unit);
    quantityNode->sortChildren(0, Qt::AscendingOrder);
    selectNode(unitNode);
    UpdateProperties();
}

void frmSetOpt::cmdRemovePhysQuan_Click()
{
    const int q = m_selectedQuantity;
    if (q == 0 || m_selectedKind != CatalogueEditor::NodeKind::Quantity
        || m_editor.quantity(q).Custom != 1)
        return;
    const Notice question { Notice::Critical,
        text(StringId::RemoveQuantityQuestion) + m_editor.quantity(q).Name
            + text(StringId::QuestionMark),
        {} };
    if (m_dialogs.question(this, question, Dialogs::YesNo, Dialogs::Yes) != Dialogs::Yes)
        return;
    m_editor.removeQuantity(q);
    PopulateTreeMain(); // the root, the removed node's parent, is selected
    UpdateProperties();
}

void frmSetOpt::cmdRemoveUnit_Click()
{
    const int q = m_selectedQuantity;
    const int j = m_selectedUnit;
    QTreeWidgetItem *node = treeMain->currentItem();
    if (q == 0 || j == 0 || !node || m_editor.unit(q, j).Custom != 1
        || m_editor.isDefaultUnit(q, j))
        return;
    const Notice question { Notice::Critical,
        text(StringId::RemoveUnitQuestion) + m_editor.unit(q, j).Name
            + text(StringId::QuestionMark),
        {} };
    if (m_dialogs.question(this, question, Dialogs::YesNo, Dialogs::Yes) != Dialogs::Yes)
        return;
    QTreeWidgetItem *quantityNode = node->parent();
    m_editor.removeUnit(q, j);
    // The nodes of the removed unit and of those behind it are made again under their new keys.
    treeMain->setCurrentItem(quantityNode);
    for (int i = quantityNode->childCount() - 1; i >= 0; --i)
        if (CatalogueEditor::unitNumberOfKey(quantityNode->child(i)->data(0, KeyRole).toString())
            >= j)
            delete quantityNode->takeChild(i);
    for (int k = j; k <= m_editor.quantity(q).UnitCount; ++k)
        addUnitNode(quantityNode, q, k);
    quantityNode->sortChildren(0, Qt::AscendingOrder);
    selectNode(quantityNode);
    UpdateProperties();
}

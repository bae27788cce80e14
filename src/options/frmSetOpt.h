// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The options dialog, modal, with two pages in TabStrip: "General" (number style, interface
// style, shell program, behaviour switches) and "Physical Quantities and Units" (treeMain and
// the editor of the catalogue). The dialog works on copies: the general page on its controls,
// the tree page on a CatalogueEditor. OK writes everything to the settings store in one batch,
// then puts the new settings and catalogue into use; Cancel writes nothing. The caller re-applies
// the settings and the catalogue to its windows when exec() returns Accepted.
//
// Help is someone else's window: F1 and "How to Add/Remove..." ask for it by context number
// through helpRequested(). Every message and input box goes through Dialogs.
//
// Pairs of option buttons are arrays whose members are named "Option1_0", "Option1_1", ...
#pragma once

#include "options/CatalogueEditor.h"

#include <array>
#include <QDialog>

class Catalogue;
class Dialogs;
class Settings;
class SettingsStore;
struct Session;

class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

class frmSetOpt : public QDialog
{
    Q_OBJECT

public:
    // Help contexts the dialog asks for.
    static constexpr int HelpContextOptions = 40;
    static constexpr int HelpContextCustomUnits = 24;
    // The data roles of treeMain's nodes: the node's key and its icon's key.
    static constexpr int KeyRole = Qt::UserRole;
    static constexpr int IconKeyRole = Qt::UserRole + 1;

    frmSetOpt(Catalogue &live, Settings &settings, Session &session, SettingsStore &store,
        Dialogs &dialogs, QWidget *parent = nullptr);

    const CatalogueEditor &editor() const { return m_editor; }

Q_SIGNALS:
    void helpRequested(int context);

public Q_SLOTS:
    void reject() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createControls();
    void createGeneralPage(QWidget *page);
    void createQuantitiesPage(QWidget *page);
    void setTexts();
    void connectControls();
    void loadValues();

    // General page
    void SetExampleText();
    void Slider1_Change(int value);
    void optWinCalc_Click();
    void cmdDialog_Click();
    // Checks a threshold box as leaving it does; false when it had to be corrected.
    bool txtMaxNumber_LostFocus();
    bool txtMinNumber_LostFocus();
    bool checkThreshold(QLineEdit *box, double &accepted, bool isMaximum);
    void selectPage(int step);
    void cmdOK_Click();
    void saveSettings();

    // Quantities-and-units page
    void PopulateTreeMain();
    void UpdateProperties();
    QTreeWidgetItem *addQuantityNode(int q);
    QTreeWidgetItem *addUnitNode(QTreeWidgetItem *quantityNode, int q, int j);
    QTreeWidgetItem *findNode(const QString &key) const;
    void setNodeIcon(QTreeWidgetItem *node, const QString &iconKey);
    void selectNode(QTreeWidgetItem *node);
    void txtName_Change(const QString &text);
    void txtConvFactor_Change(const QString &text);
    void chkExact_Click(bool checked);
    void optOnOff_Click(int index);
    void cmdExpandAll_Click();
    void cmdAddNewPhysQuan_Click();
    void cmdAddNewUnit_Click();
    void cmdRemovePhysQuan_Click();
    void cmdRemoveUnit_Click();
    void showProblem(const CatalogueEditor::Problem &problem);

    Catalogue &m_live;
    Settings &m_settings;
    Session &m_session;
    SettingsStore &m_store;
    Dialogs &m_dialogs;
    CatalogueEditor m_editor;

    double m_maxNumber = 0; // the thresholds as last accepted
    double m_minNumber = 0;
    bool m_filling = false; // UpdateProperties is filling the property controls
    CatalogueEditor::NodeKind m_selectedKind = CatalogueEditor::NodeKind::Root;
    int m_selectedQuantity = 0;
    int m_selectedUnit = 0;

    QTabWidget *TabStrip = nullptr;
    QPushButton *cmdOK = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdHelp = nullptr;

    // General page
    QGroupBox *fraNumericFormatting = nullptr;
    QLabel *lblSigFigs = nullptr;
    QSlider *Slider1 = nullptr;
    QLabel *lblslider = nullptr;
    QGroupBox *fraNumberStyle = nullptr;
    std::array<QRadioButton *, 2> Option1 {};
    QCheckBox *chkTriads = nullptr;
    QLabel *lblExampleText = nullptr;
    QLabel *lblMaxNumber = nullptr;
    QLineEdit *txtMaxNumber = nullptr;
    QLabel *lblMinNumber = nullptr;
    QLineEdit *txtMinNumber = nullptr;
    QGroupBox *fraGeneralOptions = nullptr;
    QGroupBox *fraInterfaceStyle = nullptr;
    std::array<QRadioButton *, 2> optTabs {};
    QGroupBox *fraShellProgram = nullptr;
    std::array<QRadioButton *, 2> optWinCalc {};
    std::array<QRadioButton *, 2> optCalcSci {};
    QPushButton *cmdDialog = nullptr;
    QLabel *lblShellCaption = nullptr;
    QLabel *lblShellProgram = nullptr;
    QCheckBox *chkConfirm = nullptr;
    QCheckBox *chkSysTray = nullptr;
    QCheckBox *chkRemember = nullptr;

    // Quantities-and-units page
    QGroupBox *fraTree = nullptr;
    QTreeWidget *treeMain = nullptr;
    QPushButton *cmdExpandAll = nullptr;
    QGroupBox *fraLegend = nullptr;
    std::array<QLabel *, 6> imgLegend {};
    std::array<QLabel *, 6> lblLegend {};
    QGroupBox *fraProperties = nullptr;
    QLabel *lblName = nullptr;
    QLineEdit *txtName = nullptr;
    QLabel *lblConvFactor = nullptr;
    QLineEdit *txtConvFactor = nullptr;
    QCheckBox *chkExact = nullptr;
    std::array<QRadioButton *, 2> optOnOff {};
    QPlainTextEdit *txtComments = nullptr;
    QPushButton *cmdAddNewPhysQuan = nullptr;
    QPushButton *cmdAddNewUnit = nullptr;
    QPushButton *cmdRemovePhysQuan = nullptr;
    QPushButton *cmdRemoveUnit = nullptr;
    QPushButton *cmdTutorial = nullptr;

    QButtonGroup *m_option1Group = nullptr;
    QButtonGroup *m_tabsGroup = nullptr;
    QButtonGroup *m_winCalcGroup = nullptr;
    QButtonGroup *m_calcSciGroup = nullptr;
    QButtonGroup *m_onOffGroup = nullptr;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The find unit dialog.
#include "find/frmFind.h"

#include "catalogue/StringTable.h"
#include "help/HelpTopics.h"
#include "main/MainWindowControl.h"
#include "shell/Session.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace
{
constexpr int CancelId = 279; // "&Cancel"
constexpr int GoToId = 280; // "&Go to Unit"
constexpr int FindLabelId = 281; // "Type in a unit for Mensura to find:"
constexpr int CaptionId = 282; // "Find Unit"
constexpr int HelpId = 5301; // "&Help"
constexpr int ListNameId = 5302;
constexpr int TiedId = 5303; // "%1" also names %2
} // namespace

frmFind::frmFind(const Catalogue &catalogue, Session &session, Dialogs &dialogs,
    MainWindowControl &mainWindow, QWidget *parent)
    : QDialog(parent)
    , m_session(session)
    , m_dialogs(dialogs)
    , m_mainWindow(mainWindow)
    , m_search(catalogue)
{
    setObjectName(QStringLiteral("frmFind"));
    createControls();
    setTexts();
    connectControls();
    PopulateFindListBox();
}

void frmFind::createControls()
{
    lblFind = new QLabel(this);
    lblFind->setObjectName(QStringLiteral("lblFind"));
    txtFind = new QLineEdit(this);
    txtFind->setObjectName(QStringLiteral("txtFind"));
    lblFind->setBuddy(txtFind);

    lstFind = new QListWidget(this);
    lstFind->setObjectName(QStringLiteral("lstFind"));
    lstFind->setSelectionMode(QAbstractItemView::SingleSelection);
    // Every unit is listed: thousands of lines when custom quantities are full.
    lstFind->setUniformItemSizes(true);
    lstFind->installEventFilter(this);

    cmdGoTo = new QPushButton(this);
    cmdGoTo->setObjectName(QStringLiteral("cmdGoTo"));
    cmdGoTo->setDefault(true);
    cmdGoTo->setEnabled(false);
    cmdOK = new QPushButton(this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdHelp = new QPushButton(this);
    cmdHelp->setObjectName(QStringLiteral("cmdHelp"));

    StatusBar = new QStatusBar(this);
    StatusBar->setObjectName(QStringLiteral("StatusBar"));
    StatusBar->setSizeGripEnabled(true);
    lblTotal = new QLabel(StatusBar);
    lblTotal->setObjectName(QStringLiteral("lblTotal"));
    StatusBar->addWidget(lblTotal, 1);

    auto *buttons = new QVBoxLayout;
    buttons->addWidget(cmdGoTo);
    buttons->addWidget(cmdOK);
    buttons->addStretch();
    buttons->addWidget(cmdHelp);

    auto *grid = new QGridLayout;
    grid->addWidget(lblFind, 0, 0);
    grid->addWidget(txtFind, 1, 0);
    grid->addWidget(lstFind, 2, 0);
    grid->addLayout(buttons, 1, 1, 2, 1);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(0, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *content = new QWidget(this);
    content->setLayout(grid);
    layout->addWidget(content, 1);
    layout->addWidget(StatusBar);

    resize(480, 400);
}

void frmFind::setTexts()
{
    setWindowTitle(StringTable::text(CaptionId));
    lblFind->setText(StringTable::text(FindLabelId));
    lstFind->setAccessibleName(StringTable::text(ListNameId));
    cmdGoTo->setText(StringTable::text(GoToId));
    cmdOK->setText(StringTable::text(CancelId));
    cmdHelp->setText(StringTable::text(HelpId));
}

void frmFind::connectControls()
{
    connect(txtFind, &QLineEdit::textChanged, this, &frmFind::txtFind_Change);
    connect(lstFind, &QListWidget::currentRowChanged, this, &frmFind::lstFind_Click);
    // A click on the line that is already current changes no row, and still takes its text.
    connect(lstFind, &QListWidget::itemClicked, this, &frmFind::lstFind_Click);
    connect(cmdGoTo, &QPushButton::clicked, this, &frmFind::cmdGoTo_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmFind::cmdOK_Click);
    connect(cmdHelp, &QPushButton::clicked, this, &frmFind::cmdHelp_Click);
}

void frmFind::PopulateFindListBox()
{
    lstFind->clear();
    lstFind->addItems(m_search.lines());
    lblTotal->setText(m_search.totalText());
}

void frmFind::txtFind_Change()
{
    const QString text = txtFind->text();
    const UnitSearch::Found found = m_search.search(text);
    const int row = found.line;
    // Units named equally well: the first of them is the current line, the others are told.
    const QString others = found.tied.mid(1).join(QStringLiteral("; "));
    const QString tied = others.isEmpty() ? QString() : StringTable::text(TiedId).arg(text, others);
    StatusBar->showMessage(tied);
    StatusBar->setToolTip(tied);
    m_searching = true;
    if (row < 0) {
        lstFind->setCurrentRow(-1);
        lstFind->clearSelection();
    } else {
        lstFind->setCurrentRow(row);
        lstFind->scrollToItem(lstFind->item(row), QAbstractItemView::EnsureVisible);
    }
    m_searching = false;
    cmdGoTo->setEnabled(row >= 0 && !text.isEmpty());
}

void frmFind::lstFind_Click()
{
    if (m_searching)
        return;
    const QListWidgetItem *item = lstFind->currentItem();
    if (item && item->isSelected())
        txtFind->setText(item->text());
}

void frmFind::cmdGoTo_Click()
{
    const QListWidgetItem *item = lstFind->currentItem();
    UnitSearch::Target target;
    if (!cmdGoTo->isEnabled() || !item || !UnitSearch::parseLine(item->text(), &target))
        return;
    m_session.SkipNextUpdate = true;
    // The options dialog clears this flag when it opens, so it only ever mattered there.
    m_session.CatalogueChanged = true;
    if (m_mainWindow.selectQuantity(target.quantity))
        m_mainWindow.selectLeftUnit(target.unit);
    m_mainWindow.focusValue();
    cmdOK_Click();
}

void frmFind::cmdOK_Click()
{
    close();
}

void frmFind::cmdHelp_Click()
{
    emit helpRequested(HelpTopics::FindUnit);
}

bool frmFind::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == lstFind && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (cmdGoTo->isEnabled())
                cmdGoTo_Click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

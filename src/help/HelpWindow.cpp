// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The help window and its find bar.
#include "help/HelpWindow.h"

#include "catalogue/StringTable.h"
#include "help/HelpTopics.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
constexpr int TitleId = 5620; // "Mensura 98 Help"
constexpr int NoTopicId = 5621; // "The help topic %1 cannot be found."
constexpr int BackId = 5680;
constexpr int ForwardId = 5681;
constexpr int ContentsId = 5682;
constexpr int BackTipId = 5683;
constexpr int ForwardTipId = 5684;
constexpr int ContentsTipId = 5685;
constexpr int FindLabelId = 5686;
constexpr int FindNextId = 5687;
constexpr int FindPreviousId = 5688;
constexpr int CloseFindTipId = 5689;
constexpr int NotFoundId = 5690;
constexpr int FindId = 5691;
constexpr int FindTipId = 5692;
constexpr int TopicNameId = 5693;
constexpr int CloseFindId = 5694;

// The help window's size when it first opens, in pixels at the normal scale.
constexpr int DefaultWidth = 680;
constexpr int DefaultHeight = 640;

QToolButton *toolButton(QWidget *parent, const char *name, QStyle::StandardPixmap icon)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    if (icon != QStyle::SP_CustomBase)
        button->setIcon(parent->style()->standardIcon(icon));
    return button;
}
} // namespace

HelpWindow::HelpWindow(QWidget *anchor)
    : QWidget(nullptr, Qt::Window)
    , m_anchor(anchor)
{
    setObjectName(QStringLiteral("HelpWindow"));
    if (anchor)
        connect(anchor, &QObject::destroyed, this, [this] { delete this; });
    createControls();
    setTexts();
    connectControls();
    resize(DefaultWidth, DefaultHeight);
    updateNavigation();
}

void HelpWindow::createControls()
{
    cmdBack = toolButton(this, "cmdBack", QStyle::SP_ArrowBack);
    cmdForward = toolButton(this, "cmdForward", QStyle::SP_ArrowForward);
    cmdContents = toolButton(this, "cmdContents", QStyle::SP_FileDialogContentsView);
    cmdFind = toolButton(this, "cmdFind", QStyle::SP_CustomBase);

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(4, 4, 4, 0);
    buttons->addWidget(cmdBack);
    buttons->addWidget(cmdForward);
    buttons->addWidget(cmdContents);
    buttons->addStretch();
    buttons->addWidget(cmdFind);

    txtTopic = new QTextBrowser(this);
    txtTopic->setObjectName(QStringLiteral("txtTopic"));
    // Web and mail links go to the desktop; links between topics stay here.
    txtTopic->setOpenExternalLinks(true);
    txtTopic->document()->setDocumentMargin(10);

    fraFind = new QWidget(this);
    fraFind->setObjectName(QStringLiteral("fraFind"));
    lblFindInPage = new QLabel(fraFind);
    lblFindInPage->setObjectName(QStringLiteral("lblFindInPage"));
    txtFindInPage = new QLineEdit(fraFind);
    txtFindInPage->setObjectName(QStringLiteral("txtFindInPage"));
    txtFindInPage->setClearButtonEnabled(true);
    lblFindInPage->setBuddy(txtFindInPage);
    cmdFindNext = toolButton(fraFind, "cmdFindNext", QStyle::SP_ArrowDown);
    cmdFindPrevious = toolButton(fraFind, "cmdFindPrevious", QStyle::SP_ArrowUp);
    lblNotFound = new QLabel(fraFind);
    lblNotFound->setObjectName(QStringLiteral("lblNotFound"));
    lblNotFound->setVisible(false);
    cmdCloseFind = toolButton(fraFind, "cmdCloseFind", QStyle::SP_DialogCloseButton);
    cmdCloseFind->setToolButtonStyle(Qt::ToolButtonIconOnly);

    auto *findLayout = new QHBoxLayout(fraFind);
    findLayout->setContentsMargins(4, 0, 4, 4);
    findLayout->addWidget(lblFindInPage);
    findLayout->addWidget(txtFindInPage, 1);
    findLayout->addWidget(cmdFindNext);
    findLayout->addWidget(cmdFindPrevious);
    findLayout->addWidget(lblNotFound);
    findLayout->addWidget(cmdCloseFind);
    fraFind->setVisible(false);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(buttons);
    layout->addWidget(txtTopic, 1);
    layout->addWidget(fraFind);

    txtFindInPage->installEventFilter(this);
}

void HelpWindow::setTexts()
{
    setWindowTitle(StringTable::text(TitleId));
    cmdBack->setText(StringTable::text(BackId));
    cmdBack->setToolTip(StringTable::text(BackTipId));
    cmdForward->setText(StringTable::text(ForwardId));
    cmdForward->setToolTip(StringTable::text(ForwardTipId));
    cmdContents->setText(StringTable::text(ContentsId));
    cmdContents->setToolTip(StringTable::text(ContentsTipId));
    cmdFind->setText(StringTable::text(FindId));
    cmdFind->setToolTip(StringTable::text(FindTipId));
    txtTopic->setAccessibleName(StringTable::text(TopicNameId));
    lblFindInPage->setText(StringTable::text(FindLabelId));
    cmdFindNext->setText(StringTable::text(FindNextId));
    cmdFindPrevious->setText(StringTable::text(FindPreviousId));
    cmdCloseFind->setText(StringTable::text(CloseFindId));
    cmdCloseFind->setToolTip(StringTable::text(CloseFindTipId));
    lblNotFound->setText(StringTable::text(NotFoundId));
}

void HelpWindow::connectControls()
{
    connect(cmdBack, &QToolButton::clicked, txtTopic, &QTextBrowser::backward);
    connect(cmdForward, &QToolButton::clicked, txtTopic, &QTextBrowser::forward);
    connect(cmdContents, &QToolButton::clicked, this, &HelpWindow::showContents);
    connect(cmdFind, &QToolButton::clicked, this, &HelpWindow::showFindBar);
    connect(txtTopic, &QTextBrowser::backwardAvailable, this, &HelpWindow::updateNavigation);
    connect(txtTopic, &QTextBrowser::forwardAvailable, this, &HelpWindow::updateNavigation);
    connect(txtTopic, &QTextBrowser::sourceChanged, this, [this] {
        lblNotFound->setVisible(false);
        updateNavigation();
    });

    connect(txtFindInPage, &QLineEdit::textChanged, this, [this] {
        // Typing searches again from where the last match began, so that the match grows
        // with the text instead of jumping ahead.
        QTextCursor cursor = txtTopic->textCursor();
        cursor.setPosition(cursor.selectionStart());
        txtTopic->setTextCursor(cursor);
        findInPage(false);
    });
    connect(txtFindInPage, &QLineEdit::returnPressed, this, [this] { findInPage(false); });
    connect(cmdFindNext, &QToolButton::clicked, this, [this] { findInPage(false); });
    connect(cmdFindPrevious, &QToolButton::clicked, this, [this] { findInPage(true); });
    connect(cmdCloseFind, &QToolButton::clicked, this, &HelpWindow::hideFindBar);

    auto *find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, &HelpWindow::showFindBar);
    auto *findNext = new QShortcut(QKeySequence::FindNext, this);
    connect(findNext, &QShortcut::activated, this, [this] { findInPage(false); });
    auto *findPrevious = new QShortcut(QKeySequence::FindPrevious, this);
    connect(findPrevious, &QShortcut::activated, this, [this] { findInPage(true); });
}

void HelpWindow::showContext(int context)
{
    const QUrl url = HelpTopics::topicUrl(context);
    if (url.isEmpty()) {
        txtTopic->setHtml(QStringLiteral("<p>")
            + StringTable::text(NoTopicId).arg(context).toHtmlEscaped() + QStringLiteral("</p>"));
    } else {
        txtTopic->setSource(url);
    }
    showWindow();
}

void HelpWindow::showContents()
{
    txtTopic->setSource(HelpTopics::contentsUrl());
    showWindow();
}

void HelpWindow::showWindow()
{
    if (!m_placed) {
        placeBesideAnchor();
        m_placed = true;
    }
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
}

void HelpWindow::placeBesideAnchor()
{
    if (!m_anchor || !m_anchor->isVisible())
        return;
    const QRect anchor = m_anchor->frameGeometry();
    const QRect screen = m_anchor->screen()->availableGeometry();
    // The frame adds a little to the client size asked for; keep clear of the screen's edges.
    const int width = qMin(DefaultWidth, screen.width());
    const int height = qMin(qMax(anchor.height(), DefaultHeight), screen.height());
    resize(width, height);
    // To the right of the main window when there is room, else to its left, else at the
    // screen's right edge over the main window.
    int x = anchor.right() + 1;
    if (x + width > screen.right())
        x = anchor.left() - width;
    if (x < screen.left())
        x = screen.right() - width;
    const int y = qBound(screen.top(), anchor.top(), qMax(screen.top(), screen.bottom() - height));
    move(x, y);
}

bool HelpWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtFindInPage && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Escape) {
            hideFindBar();
            return true;
        }
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
            && key->modifiers() & Qt::ShiftModifier) {
            findInPage(true);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HelpWindow::changeEvent(QEvent *event)
{
    // The topic's colours are the palette's as it was when the topic was read (help.css): under
    // a new palette the topic is read again, at the place the reader had reached.
    if (event->type() == QEvent::PaletteChange && txtTopic && !txtTopic->source().isEmpty()) {
        QScrollBar *bar = txtTopic->verticalScrollBar();
        const int position = bar->value();
        txtTopic->reload();
        bar->setValue(position);
    }
    QWidget::changeEvent(event);
}

void HelpWindow::showFindBar()
{
    fraFind->setVisible(true);
    txtFindInPage->setFocus();
    txtFindInPage->selectAll();
}

void HelpWindow::hideFindBar()
{
    fraFind->setVisible(false);
    lblNotFound->setVisible(false);
    txtTopic->setFocus();
}

void HelpWindow::findInPage(bool backward)
{
    const QString text = txtFindInPage->text();
    if (text.isEmpty()) {
        QTextCursor cursor = txtTopic->textCursor();
        cursor.clearSelection();
        txtTopic->setTextCursor(cursor);
        lblNotFound->setVisible(false);
        return;
    }
    const QTextDocument::FindFlags flags
        = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = txtTopic->find(text, flags);
    if (!found) {
        // Go round: from the top when searching down, from the end when searching up.
        const QTextCursor kept = txtTopic->textCursor();
        QTextCursor cursor = kept;
        cursor.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        txtTopic->setTextCursor(cursor);
        found = txtTopic->find(text, flags);
        if (!found)
            txtTopic->setTextCursor(kept);
    }
    lblNotFound->setVisible(!found);
}

void HelpWindow::updateNavigation()
{
    cmdBack->setEnabled(txtTopic->isBackwardAvailable());
    cmdForward->setEnabled(txtTopic->isForwardAvailable());
}

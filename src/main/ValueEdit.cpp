// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/ValueEdit.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QStyle>
#include <QTimer>
#include <QToolTip>

ValueEdit::ValueEdit(QWidget *parent)
    : QLineEdit(parent)
{
}

void ValueEdit::setReadingNote(const QString &note)
{
    if (!m_noteMark) {
        if (note.isEmpty())
            return;
        m_noteMark = addAction(
            style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
        m_noteMark->setObjectName(QStringLiteral("actReadingNote"));
        // A click shows the note at once, for those who cannot hover.
        connect(m_noteMark, &QAction::triggered, this, [this] {
            QToolTip::showText(mapToGlobal(rect().bottomRight()), m_noteMark->toolTip(), this);
        });
    }
    m_noteMark->setToolTip(note);
    m_noteMark->setVisible(!note.isEmpty());
    setAccessibleDescription(note);
}

void ValueEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept(); // swallowed: no beep, and nothing for the combo box
        emit enterPressed();
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        event->accept();
        emit pasteRequested(false);
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void ValueEdit::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    // After the mouse press that brought the focus has placed the cursor.
    QTimer::singleShot(0, this, &QLineEdit::selectAll);
}

// The standard menu's Paste item: named "edit-paste" by newer Qt versions, and on any version
// the item whose text ends with the paste key (the menu writes "&Paste" + TAB + the keys).
static QAction *pasteItem(const QMenu *menu)
{
    const QString keys
        = u'\t' + QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
    for (QAction *action : menu->actions())
        if (action->objectName() == QLatin1String("edit-paste") || action->text().endsWith(keys))
            return action;
    return nullptr;
}

void ValueEdit::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (QAction *paste = pasteItem(menu)) {
        disconnect(paste, &QAction::triggered, nullptr, nullptr);
        connect(paste, &QAction::triggered, this, [this] { emit pasteRequested(false); });
    }
    menu->popup(event->globalPos());
}

void ValueEdit::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection()) {
        event->accept();
        emit pasteRequested(true);
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void ValueEdit::dropEvent(QDropEvent *event)
{
    if (event->mimeData()->hasText()) {
        event->acceptProposedAction();
        emit textDropped(event->mimeData()->text());
        return;
    }
    QLineEdit::dropEvent(event);
}

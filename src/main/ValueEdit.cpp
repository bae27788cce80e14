// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/ValueEdit.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

ValueEdit::ValueEdit(QWidget *parent)
    : QLineEdit(parent)
{
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

void ValueEdit::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (QAction *paste = menu->findChild<QAction *>(QStringLiteral("edit-paste"))) {
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

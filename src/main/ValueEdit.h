// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The line edit of the value box. Typing goes in as typed; everything pasted (the paste keys,
// the context menu's Paste, the middle button's selection paste) and everything dropped is
// handed to the window instead, which puts in only the number the text starts with. Enter is
// the window's too, and never reaches the combo box (which would otherwise insert the value
// into its drop-down). Getting the focus selects the whole value, so that typing replaces it.
// A note on how the value was read shows as a warning mark at the end of the box.
#pragma once

#include <QLineEdit>

class ValueEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit ValueEdit(QWidget *parent = nullptr);

    // Shows the note as the warning mark's tooltip and the box's accessible description; an
    // empty note takes the mark away.
    void setReadingNote(const QString &note);

signals:
    void enterPressed();
    // fromSelection: the selection (middle-button) clipboard rather than the clipboard.
    void pasteRequested(bool fromSelection);
    void textDropped(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QAction *m_noteMark = nullptr;
};

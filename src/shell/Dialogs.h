// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Every message box, question, input box and file dialog of the windows goes through this
// interface. The program answers with Qt's standard dialogs (MessageBoxDialogs); a test answers
// from a script and records what was asked.
#pragma once

#include "shell/Notice.h"

#include <optional>
#include <QString>

class QWidget;

class Dialogs
{
public:
    enum Answer { Ok, Yes, No, Cancel };
    enum Buttons { YesNo, YesNoCancel };

    virtual ~Dialogs() = default;

    // A message with an OK button.
    virtual void message(QWidget *parent, const Notice &notice) = 0;
    // A question; defaultAnswer is the button that Enter presses.
    virtual Answer question(
        QWidget *parent, const Notice &notice, Buttons buttons, Answer defaultAnswer)
        = 0;
    // An input box: the text entered, or nothing when cancelled.
    virtual std::optional<QString> input(
        QWidget *parent, const QString &prompt, const QString &title, const QString &defaultText)
        = 0;
    // File dialogs: the chosen path, or "" when cancelled. filter is Qt's "Text Files (*.txt)".
    virtual QString openFileName(QWidget *parent, const QString &filter) = 0;
    virtual QString saveFileName(QWidget *parent, const QString &filter, const QString &defaultName,
        const QString &defaultSuffix)
        = 0;
};

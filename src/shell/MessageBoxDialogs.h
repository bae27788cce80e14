// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The program's own answerer of Dialogs: Qt's message boxes, input boxes and file dialogs.
#pragma once

#include "shell/Dialogs.h"

class MessageBoxDialogs : public Dialogs
{
public:
    void message(QWidget *parent, const Notice &notice) override;
    Answer question(
        QWidget *parent, const Notice &notice, Buttons buttons, Answer defaultAnswer) override;
    std::optional<QString> input(QWidget *parent, const QString &prompt, const QString &title,
        const QString &defaultText) override;
    QString openFileName(QWidget *parent, const QString &filter) override;
    QString saveFileName(QWidget *parent, const QString &filter, const QString &defaultName,
        const QString &defaultSuffix) override;
};

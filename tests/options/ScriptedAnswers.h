// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Answers the options dialog's message boxes, questions, input boxes and file dialogs from a
// script, and records what was asked. A question or input box with no answer left in the script
// is answered No / Cancel and counted as unexpected.
#pragma once

#include "shell/Dialogs.h"

#include <QList>
#include <QStringList>

class ScriptedAnswers : public Dialogs
{
public:
    QList<std::optional<QString>> inputs; // answers to input boxes, in order
    QList<Answer> answers; // answers to questions, in order
    QStringList files; // answers to file dialogs, in order ("" = cancelled)

    QList<Notice> messages; // every message shown
    QList<Notice> questions; // every question asked
    QStringList prompts; // every input box's prompt
    QStringList titles; // every input box's title
    QStringList defaults; // every input box's default text
    QStringList filters; // every file dialog's filter
    int unexpected = 0;

    void message(QWidget *, const Notice &notice) override { messages.append(notice); }

    Answer question(QWidget *, const Notice &notice, Buttons, Answer) override
    {
        questions.append(notice);
        if (answers.isEmpty()) {
            ++unexpected;
            return No;
        }
        return answers.takeFirst();
    }

    std::optional<QString> input(
        QWidget *, const QString &prompt, const QString &title, const QString &defaultText) override
    {
        prompts.append(prompt);
        titles.append(title);
        defaults.append(defaultText);
        if (inputs.isEmpty()) {
            ++unexpected;
            return std::nullopt;
        }
        return inputs.takeFirst();
    }

    QString openFileName(QWidget *, const QString &filter) override
    {
        filters.append(filter);
        if (files.isEmpty()) {
            ++unexpected;
            return QString();
        }
        return files.takeFirst();
    }

    QString saveFileName(QWidget *, const QString &, const QString &, const QString &) override
    {
        ++unexpected;
        return QString();
    }
};

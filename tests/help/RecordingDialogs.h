// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A Dialogs answerer for tests: records every message and question and answers questions
// from a queue (No when it runs dry), so that no window ever waits for a person.
#pragma once

#include "shell/Dialogs.h"

#include <QList>
#include <QQueue>

class RecordingDialogs : public Dialogs
{
public:
    void message(QWidget *, const Notice &notice) override { notices.append(notice); }
    Answer question(QWidget *, const Notice &notice, Buttons, Answer) override
    {
        notices.append(notice);
        return answers.isEmpty() ? No : answers.dequeue();
    }
    std::optional<QString> input(
        QWidget *, const QString &, const QString &, const QString &) override
    {
        return std::nullopt;
    }
    QString openFileName(QWidget *, const QString &) override { return QString(); }
    QString saveFileName(QWidget *, const QString &, const QString &, const QString &) override
    {
        return QString();
    }

    QList<Notice> notices;
    QQueue<Answer> answers;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Stand-ins for what the records windows talk to: Dialogs answered from a script (recording
// every message and question), and a main window that holds a few quantities and units and
// records what it was asked to do.
#pragma once

#include "main/MainWindowControl.h"
#include "shell/Dialogs.h"
#include "shell/Session.h"

#include <QMap>
#include <QQueue>
#include <QStringList>

class ScriptDialogs : public Dialogs
{
public:
    QList<Notice> messages;
    QList<Notice> questions;
    QQueue<Answer> answers; // for questions; an unexpected question fails the test's checks
    QQueue<QString> fileNames; // for both file dialogs
    QStringList fileFilters;
    QStringList saveDefaults; // "name|suffix" of each save dialog

    void message(QWidget *, const Notice &notice) override { messages.append(notice); }
    Answer question(QWidget *, const Notice &notice, Buttons, Answer) override
    {
        questions.append(notice);
        return answers.isEmpty() ? Cancel : answers.dequeue();
    }
    std::optional<QString> input(
        QWidget *, const QString &, const QString &, const QString &) override
    {
        return std::nullopt;
    }
    QString openFileName(QWidget *, const QString &filter) override
    {
        fileFilters.append(filter);
        return fileNames.isEmpty() ? QString() : fileNames.dequeue();
    }
    QString saveFileName(QWidget *, const QString &filter, const QString &defaultName,
        const QString &defaultSuffix) override
    {
        fileFilters.append(filter);
        saveDefaults.append(defaultName + u'|' + defaultSuffix);
        return fileNames.isEmpty() ? QString() : fileNames.dequeue();
    }
};

class FakeMainWindow : public MainWindowControl
{
public:
    explicit FakeMainWindow(Session &session)
        : m_session(session)
    {
    }

    QMap<QString, QStringList> units; // enabled quantity -> its enabled units
    QStringList calls; // what was done, in order
    QString quantity;
    QList<int> counts; // every count reported
    bool skipWasSet = false; // SkipNextUpdate was set when the first change came

    bool selectQuantity(const QString &name) override
    {
        skipWasSet = m_session.SkipNextUpdate;
        calls.append(QStringLiteral("quantity ") + name);
        if (!units.contains(name))
            return false;
        quantity = name;
        return true;
    }
    bool selectLeftUnit(const QString &unit) override
    {
        calls.append(QStringLiteral("left ") + unit);
        return units.value(quantity).contains(unit);
    }
    bool selectRightUnit(const QString &unit) override
    {
        calls.append(QStringLiteral("right ") + unit);
        return units.value(quantity).contains(unit);
    }
    void setValueText(const QString &text) override
    {
        calls.append(QStringLiteral("value ") + text);
    }
    void refreshResult() override { calls.append(QStringLiteral("refresh")); }
    void focusValue() override { calls.append(QStringLiteral("focus")); }
    void markedCountChanged(int count) override { counts.append(count); }

private:
    Session &m_session;
};

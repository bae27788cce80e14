// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A stand-in for the main window that the marked conversions window talks to: it holds a few
// quantities and units and records what it was asked to do. The windows' dialogs are answered
// by ScriptedDialogs (support/ScriptedDialogs.h).
#pragma once

#include "main/MainWindowControl.h"
#include "shell/Session.h"

#include <QMap>
#include <QStringList>

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

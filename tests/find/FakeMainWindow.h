// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A stand-in for the main window that records what a dialog asks of it, and whether the
// session's SkipNextUpdate flag was set when the quantity was selected.
#pragma once

#include "main/MainWindowControl.h"
#include "shell/Session.h"

#include <QStringList>

class FakeMainWindow : public MainWindowControl
{
public:
    explicit FakeMainWindow(const Session &session, QStringList quantities = {})
        : m_session(session)
        , m_quantities(std::move(quantities))
    {
    }

    bool selectQuantity(const QString &name) override
    {
        calls.append(QStringLiteral("quantity:") + name);
        skipWasSet = m_session.SkipNextUpdate;
        return m_quantities.contains(name);
    }
    bool selectLeftUnit(const QString &unit) override
    {
        calls.append(QStringLiteral("left:") + unit);
        return true;
    }
    bool selectRightUnit(const QString &unit) override
    {
        calls.append(QStringLiteral("right:") + unit);
        return true;
    }
    void setValueText(const QString &text) override
    {
        calls.append(QStringLiteral("value:") + text);
    }
    void refreshResult() override { calls.append(QStringLiteral("refresh")); }
    void focusValue() override { calls.append(QStringLiteral("focus")); }
    void markedCountChanged(int count) override
    {
        calls.append(QStringLiteral("marked:") + QString::number(count));
    }

    QStringList calls;
    bool skipWasSet = false;

private:
    const Session &m_session;
    QStringList m_quantities;
};

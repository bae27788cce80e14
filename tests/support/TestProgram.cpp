// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/TestProgram.h"

#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"

#include <QCoreApplication>

TestProgram::TestProgram(TestHive &hive, ScriptedDialogs &dialogs)
    : m_hive(hive)
    , m_dialogs(dialogs)
    , m_serverName(uniqueServerName())
{
}

TestProgram::~TestProgram() = default;

bool TestProgram::start()
{
    m_startup = std::make_unique<Startup>(m_hive.arguments(), m_dialogs);
    m_startup->setServerName(m_serverName);
    return m_startup->run();
}

bool TestProgram::close()
{
    return window() && window()->close();
}

QString TestProgram::uniqueServerName()
{
    static int count = 0;
    return QStringLiteral("mensura-test-%1-%2")
        .arg(QCoreApplication::applicationPid())
        .arg(++count);
}

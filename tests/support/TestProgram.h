// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The desktop program as a test runs it: the real start-up sequence on a test's own hive, with
// the test's scripted dialogs and a hand-over socket nobody else uses, so that tests never meet
// each other or a copy of the program the user is running. Windows are found by object name.
//
//     TestHive hive;
//     ScriptedDialogs dialogs;
//     TestProgram program(hive, dialogs);
//     QVERIFY(program.start());
//     auto *value = program.find<QComboBox *>("txtLeft");
#pragma once

#include "main/frmMain.h"
#include "shell/Startup.h"

#include <memory>
#include <QTest>

class ScriptedDialogs;
class TestHive;

class TestProgram
{
public:
    TestProgram(TestHive &hive, ScriptedDialogs &dialogs);
    ~TestProgram();

    // Runs the start-up sequence; false when a running copy took over.
    bool start();
    // Closes the main window as the user does; true when it closed.
    bool close();

    Startup &startup() { return *m_startup; }
    frmMain *window() const { return m_startup ? m_startup->window() : nullptr; }
    QString serverName() const { return m_serverName; }

    // The window's child of that name and type; a test failure when there is none.
    template<typename T> T find(const char *name) const
    {
        T child = window() ? window()->findChild<T>(QString::fromLatin1(name)) : nullptr;
        if (!child)
            QTest::qFail(
                qPrintable(QStringLiteral("No control named %1").arg(QString::fromLatin1(name))),
                __FILE__, __LINE__);
        return child;
    }

    // A socket name of its own for every program a test process starts.
    static QString uniqueServerName();

private:
    TestHive &m_hive;
    ScriptedDialogs &m_dialogs;
    QString m_serverName;
    std::unique_ptr<Startup> m_startup;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// How a run of Mensura begins, in this order: a copy already running is asked to come to the
// front (and this copy ends); with the busy pointer showing, the catalogue is built, the main
// window gets its quantity tabs, the settings are read and the last conversion is put back;
// the window is shown in its saved state; problems found on the way are reported; the first
// run of all opens the help.
//
// Startup owns what the windows share for the whole run: the settings store, the catalogue,
// the settings and the session flags, and the main window itself.
#pragma once

#include "catalogue/Catalogue.h"
#include "shell/Session.h"
#include "shell/Settings.h"

#include <memory>
#include <QObject>
#include <QPointer>
#include <QStringList>

class Dialogs;
class frmMain;
class SettingsStore;
class SingleInstance;

class Startup : public QObject
{
    Q_OBJECT

public:
    // arguments: the program's command line (it may name the hive with --hive FILE).
    Startup(const QStringList &arguments, Dialogs &dialogs, QObject *parent = nullptr);
    ~Startup() override;

    // The name the copies of the program meet under; SingleInstance::defaultServerName() for
    // the settings of the arguments unless set before run().
    void setServerName(const QString &name) { m_serverName = name; }

    // Runs the start-up sequence. False when a copy already running took over: this copy has
    // nothing more to do and ends.
    bool run();

    frmMain *window() const { return m_window.get(); }
    QWidget *firstRunHelp() const { return m_help; }
    SettingsStore &store() { return *m_store; }
    Catalogue &catalogue() { return m_catalogue; }
    Settings &settings() { return m_settings; }
    Session &session() { return m_session; }

private:
    void reportHiveProblems();
    void reportTypeErrors(const QList<RuntimeError> &problems);
    void openHelpOnFirstRun();
    void connectSessionEnd();

    QStringList m_arguments;
    Dialogs &m_dialogs;
    QString m_serverName;
    std::unique_ptr<SettingsStore> m_store;
    Catalogue m_catalogue;
    Settings m_settings;
    Session m_session;
    std::unique_ptr<SingleInstance> m_instance;
    std::unique_ptr<frmMain> m_window;
    QPointer<QWidget> m_help;
};

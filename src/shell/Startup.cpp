// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/Startup.h"

#include "catalogue/StringTable.h"
#include "main/AppIcons.h"
#include "main/frmMain.h"
#include "shell/Dialogs.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"
#include "shell/SingleInstance.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSettings>

#ifndef QT_NO_SESSIONMANAGER
#include <QSessionManager>
#endif

namespace StringId
{
constexpr int HiveDamaged = 5612;
constexpr int HiveUnreadable = 5613;
} // namespace StringId

Startup::Startup(const QStringList &arguments, Dialogs &dialogs, QObject *parent)
    : QObject(parent)
    , m_arguments(arguments)
    , m_dialogs(dialogs)
{
}

Startup::~Startup() = default;

bool Startup::run()
{
    if (m_serverName.isEmpty())
        m_serverName = SingleInstance::defaultServerName(SettingsStore::location(m_arguments));
    m_instance = std::make_unique<SingleInstance>(m_serverName);
    if (m_instance->handOver())
        return false;
    m_instance->listen();

    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_store = SettingsStore::open(m_arguments);
    QList<RuntimeError> problems;
    m_catalogue.LoadCatalogue(*m_store, &problems);
    const auto shownBefore = [this](const QString &value) {
        return m_store->RegReadString(Settings::Section, value, QStringLiteral("0"))
            != QStringLiteral("0");
    };
    m_session.TrayHintShown = shownBefore(Settings::TrayHintShownValue);
    m_session.FirstRunHelpShown = shownBefore(Settings::FirstRunHelpShownValue);

    m_settings.LoadLastQuantity(*m_store);
    m_window = std::make_unique<frmMain>(m_catalogue, m_settings, m_session, *m_store, m_dialogs);
    connect(m_instance.get(), &SingleInstance::activationRequested, m_window.get(),
        &frmMain::activateFromOtherCopy);
    m_window->BuildQuantityTabs(m_settings.LastQuantity);

    m_settings.LoadSettings(*m_store, &problems);
    m_settings.LoadSigFigs(*m_store, &problems);
    m_settings.DecimalSeparator = QLocale::system().decimalPoint();
    m_window->applySettings();
    if (m_settings.RememberLast)
        m_window->restoreLastConversion();
    QApplication::restoreOverrideCursor();

    m_window->showInSavedState();
    // The icon of every window of the program; the window system needs it only once the window
    // is there, so reading its images does not hold up the window's appearance.
    QApplication::setWindowIcon(AppIcons::program());
    reportHiveProblems();
    reportTypeErrors(problems);
    openHelpOnFirstRun();
    m_window->reportStoreFailure();
    connectSessionEnd();
    return true;
}

void Startup::reportHiveProblems()
{
    auto *hive = dynamic_cast<HiveFile *>(&m_store->backend());
    if (!hive)
        return;
    const QString path = hive->fileName();
    QFile file(path);
    if (file.exists() && !file.open(QIODevice::ReadOnly)) {
        m_dialogs.message(m_window.get(),
            Notice { Notice::Exclamation,
                StringTable::text(StringId::HiveUnreadable).arg(path, file.errorString()),
                QString() });
    } else if (hive->damaged()) {
        m_dialogs.message(m_window.get(),
            Notice { Notice::Exclamation,
                StringTable::text(StringId::HiveDamaged).arg(path, path + QStringLiteral(".bad")),
                QString() });
    }
}

void Startup::reportTypeErrors(const QList<RuntimeError> &problems)
{
    for (const RuntimeError &problem : problems)
        m_dialogs.message(
            m_window.get(), Notice { Notice::NoIcon, problem.messageText(), QString() });
}

void Startup::openHelpOnFirstRun()
{
    if (m_session.FirstRunHelpShown)
        return;
    m_store->RegWriteString(
        Settings::Section, Settings::FirstRunHelpShownValue, QStringLiteral("1"));
    m_session.FirstRunHelpShown = true;
    m_help = m_window->showHelp(0);
}

void Startup::connectSessionEnd()
{
#ifndef QT_NO_SESSIONMANAGER
    // A copy still running when the user logs off starts again at the next log-on.
    connect(qApp, &QGuiApplication::commitDataRequest, this, [](QSessionManager &manager) {
        manager.setRestartHint(QSessionManager::RestartIfRunning);
#ifdef Q_OS_WIN
        QSettings runOnce(
            QStringLiteral(
                "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\RunOnce"),
            QSettings::NativeFormat);
        runOnce.setValue(QStringLiteral("Mensura"),
            QDir::toNativeSeparators(QCoreApplication::applicationFilePath()));
#endif
    });
#endif
}

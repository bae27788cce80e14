// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The desktop program's entry point: the application object, then the start-up sequence. The
// program ends when the main window has been closed for good, not when its last window hides
// (it hides in the notification area).
#include "main/frmMain.h"
#include "shell/MessageBoxDialogs.h"
#include "shell/Startup.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("mensura"));
    QApplication::setApplicationVersion(QStringLiteral(MENSURA_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);

    // --help and --version answer and end here; an unknown option is refused with a message.
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({ QStringLiteral("hive"),
        QStringLiteral("Keep the settings in FILE instead of the usual place."),
        QStringLiteral("FILE") });
    parser.process(app);

    MessageBoxDialogs dialogs;
    Startup startup(QApplication::arguments(), dialogs);
    if (!startup.run())
        return 0;
    QObject::connect(
        startup.window(), &frmMain::unloaded, &app, &QCoreApplication::quit, Qt::QueuedConnection);
    return app.exec();
}

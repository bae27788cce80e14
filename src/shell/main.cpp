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
#include <QFontDatabase>
#include <thread>

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

    // The font database (fontconfig's set-up) is the largest single cost before the window can be
    // laid out. It is built on another core while the settings, the catalogue and the window's
    // first parts are prepared; the window's first use of a font waits for it if need be.
    std::thread fontWarmUp([] { QFontDatabase::families(); });

    MessageBoxDialogs dialogs;
    Startup startup(QApplication::arguments(), dialogs);
    const bool started = startup.run();
    fontWarmUp.join();
    if (!started)
        return 0;
    QObject::connect(
        startup.window(), &frmMain::unloaded, &app, &QCoreApplication::quit, Qt::QueuedConnection);
    return app.exec();
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The desktop program's entry point.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("mensura"));
    QApplication::setApplicationVersion(QStringLiteral(MENSURA_VERSION));

    auto store = SettingsStore::open(QApplication::arguments());
    Catalogue catalogue;
    catalogue.LoadCatalogue(*store);
    Settings settings;
    settings.LoadSettings(*store);
    settings.LoadSigFigs(*store);

    QMainWindow window;
    window.setWindowTitle(StringTable::text(9));
    window.resize(640, 480);
    window.show();
    const int status = app.exec();
    store->close();
    return status;
}

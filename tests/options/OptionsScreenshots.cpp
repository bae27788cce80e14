// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Draws both pages of the options dialog into PNG files, for a developer to look at:
//     options_screenshots OUTPUT_FOLDER
// The dialog works on a temporary hive holding a small catalogue of the user's, with a unit of
// that catalogue selected on the second page. Built on request only (not part of the tests).
#include "catalogue/Catalogue.h"
#include "options/frmSetOpt.h"
#include "shell/HiveFile.h"
#include "shell/MessageBoxDialogs.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QApplication>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeWidget>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    QTemporaryDir dir;
    SettingsStore store(std::make_unique<HiveFile>(dir.filePath(QStringLiteral("shot.reg"))));
    {
        SettingsStore::Batch batch(store);
        const QString quantity = QStringLiteral("User\\NewQuans\\Widgets");
        store.RegWriteString(quantity, QStringLiteral("OnOff"), QStringLiteral("1"));
        store.RegWriteString(quantity, QStringLiteral("DefaultUnit"), QStringLiteral("widget"));
        const QString units = QStringLiteral("User\\Units\\Widgets");
        store.RegWriteString(units, QStringLiteral("widget"), QStringLiteral("c1"));
        store.RegWriteString(units, QStringLiteral("gadget"), QStringLiteral("a2.5"));
        store.RegWriteString(units, QStringLiteral("sprocket"), QStringLiteral("b0.35"));
        store.RegWriteString(QStringLiteral("User\\OnOff\\Temperature"),
            QStringLiteral("Rankine (°R)"), QStringLiteral("0"));
        store.RegWriteString(QStringLiteral("settings"), QStringLiteral("shellprog"),
            QStringLiteral("/usr/bin/gnome-calculator"));
    }
    Catalogue catalogue;
    catalogue.LoadCatalogue(store);
    Settings settings;
    settings.LoadSettings(store);
    settings.LoadSigFigs(store);
    Session session;
    MessageBoxDialogs dialogs;

    frmSetOpt dialog(catalogue, settings, session, store, dialogs);
    dialog.show();
    auto *tabs = dialog.findChild<QTabWidget *>(QStringLiteral("TabStrip"));
    auto *tree = dialog.findChild<QTreeWidget *>(QStringLiteral("treeMain"));
    QApplication::processEvents();
    dialog.grab().save(folder + QStringLiteral("/options-general.png"));

    tabs->setCurrentIndex(1);
    QTreeWidgetItem *root = tree->topLevelItem(0);
    for (int i = 0; i < root->childCount(); ++i) {
        QTreeWidgetItem *quantity = root->child(i);
        if (quantity->text(0) == QStringLiteral("Widgets")
            || quantity->text(0) == QStringLiteral("Temperature"))
            quantity->setExpanded(true);
        for (int j = 0; j < quantity->childCount(); ++j)
            if (quantity->child(j)->text(0) == QStringLiteral("gadget"))
                tree->setCurrentItem(quantity->child(j));
    }
    tree->scrollToItem(tree->currentItem());
    QApplication::processEvents();
    dialog.grab().save(folder + QStringLiteral("/options-quantities.png"));
    return 0;
}

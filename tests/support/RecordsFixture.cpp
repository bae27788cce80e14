// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/RecordsFixture.h"

#include "records/frmConvRecords.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <QAbstractItemModel>
#include <QLabel>
#include <QListView>

RecordsFixture::RecordsFixture()
    : store(std::make_unique<SettingsStore>(std::make_unique<HiveFile>(temp.filePath("hive.reg"))))
{
    reopen();
}

RecordsFixture::~RecordsFixture() = default;

void RecordsFixture::reopen()
{
    window.reset();
    window = std::make_unique<frmConvRecords>(settings, session, *store, dialogs, *this);
}

QListView *RecordsFixture::list() const
{
    return window->findChild<QListView *>("lstConvRecords");
}

QAction *RecordsFixture::action(const char *name) const
{
    return window->findChild<QAction *>(name);
}

QString RecordsFixture::panel(const char *name) const
{
    return window->findChild<QLabel *>(name)->text();
}

void RecordsFixture::select(const QList<int> &rows)
{
    list()->clearSelection();
    for (const int row : rows)
        list()->selectionModel()->select(
            list()->model()->index(row, 0), QItemSelectionModel::Select);
}

void RecordsFixture::addNumbered(int n)
{
    for (int i = 1; i <= n; ++i) {
        const MarkedConversion r = numbered(i);
        window->AddConv(r.fromValue, r.fromUnit, r.toValue, r.toUnit, r.quantity);
    }
}

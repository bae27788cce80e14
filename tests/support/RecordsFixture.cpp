// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/RecordsFixture.h"

#include "records/frmConvRecords.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <QAbstractItemModel>
#include <QFile>
#include <QLabel>
#include <QListView>

RecordsFixture::RecordsFixture()
    : store(std::make_unique<SettingsStore>(
        std::make_unique<HiveFile>(temp.filePath(QStringLiteral("hive.reg")))))
{
    reopen();
}

RecordsFixture::~RecordsFixture()
{
    window.reset();
}

void RecordsFixture::reopen()
{
    window.reset();
    window = std::make_unique<frmConvRecords>(settings, session, *store, dialogs, *this);
}

QListView *RecordsFixture::list() const
{
    return window->findChild<QListView *>(QStringLiteral("lstConvRecords"));
}

QAction *RecordsFixture::action(const char *name) const
{
    return window->findChild<QAction *>(QLatin1String(name));
}

QString RecordsFixture::panel(const char *name) const
{
    return window->findChild<QLabel *>(QLatin1String(name))->text();
}

void RecordsFixture::select(const QList<int> &rows)
{
    list()->clearSelection();
    for (const int row : rows)
        list()->selectionModel()->select(
            list()->model()->index(row, 0), QItemSelectionModel::Select);
}

QStringList RecordsFixture::shownLines() const
{
    QStringList lines;
    const QAbstractItemModel *model = list()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        lines.append(model->index(row, 0).data().toString());
    return lines;
}

void RecordsFixture::addNumbered(int n)
{
    for (int i = 1; i <= n; ++i) {
        const MarkedConversion record = numbered(i);
        window->AddConv(
            record.fromValue, record.fromUnit, record.toValue, record.toUnit, record.quantity);
    }
}

QString RecordsFixture::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = temp.filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

bool RecordsFixture::selectQuantity(const QString &name)
{
    skipWasSet = session.SkipNextUpdate;
    calls.append(QStringLiteral("quantity ") + name);
    if (!units.contains(name))
        return false;
    m_quantity = name;
    return true;
}

bool RecordsFixture::selectLeftUnit(const QString &unit)
{
    calls.append(QStringLiteral("left ") + unit);
    return units.value(m_quantity).contains(unit);
}

bool RecordsFixture::selectRightUnit(const QString &unit)
{
    calls.append(QStringLiteral("right ") + unit);
    return units.value(m_quantity).contains(unit);
}

void RecordsFixture::setValueText(const QString &text)
{
    calls.append(QStringLiteral("value ") + text);
}

void RecordsFixture::refreshResult()
{
    calls.append(QStringLiteral("refresh"));
}

void RecordsFixture::focusValue()
{
    calls.append(QStringLiteral("focus"));
}

void RecordsFixture::markedCountChanged(int count)
{
    counts.append(count);
}

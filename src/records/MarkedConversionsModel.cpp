// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/MarkedConversionsModel.h"

#include <algorithm>

// Beyond this many separate blocks of rows to remove, the records are compacted in one pass and
// the view is reset, which is cheaper than removing the blocks one by one.
static constexpr int MaxRemovedBlocks = 64;

MarkedConversionsModel::MarkedConversionsModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

int MarkedConversionsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_records.size());
}

QVariant MarkedConversionsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_records.size())
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return m_records[index.row()].listLine();
    case Qt::SizeHintRole:
        return m_itemSize.isValid() ? QVariant(m_itemSize) : QVariant();
    default:
        return QVariant();
    }
}

void MarkedConversionsModel::append(const QList<MarkedConversion> &records)
{
    if (records.isEmpty())
        return;
    const int first = int(m_records.size());
    beginInsertRows(QModelIndex(), first, first + int(records.size()) - 1);
    m_records.append(records);
    endInsertRows();
}

void MarkedConversionsModel::removeRowList(QList<int> rows)
{
    if (rows.isEmpty())
        return;
    std::sort(rows.begin(), rows.end());
    // Blocks of consecutive rows, last block first so that earlier rows keep their numbers.
    QList<QPair<int, int>> blocks;
    for (const int row : rows) {
        if (!blocks.isEmpty() && blocks.last().second == row - 1)
            blocks.last().second = row;
        else
            blocks.append({ row, row });
    }
    if (blocks.size() <= MaxRemovedBlocks) {
        for (auto block = blocks.crbegin(); block != blocks.crend(); ++block) {
            beginRemoveRows(QModelIndex(), block->first, block->second);
            m_records.remove(block->first, block->second - block->first + 1);
            endRemoveRows();
        }
        return;
    }
    beginResetModel();
    QList<MarkedConversion> kept;
    kept.reserve(m_records.size() - rows.size());
    qsizetype next = 0;
    for (qsizetype i = 0; i < m_records.size(); ++i) {
        if (next < rows.size() && rows[next] == i)
            ++next;
        else
            kept.append(m_records[i]);
    }
    m_records = std::move(kept);
    endResetModel();
}

void MarkedConversionsModel::clear()
{
    beginResetModel();
    m_records.clear();
    endResetModel();
}

void MarkedConversionsModel::setItemSize(const QSize &size)
{
    if (size == m_itemSize)
        return;
    m_itemSize = size;
    if (!m_records.isEmpty()) {
        // All rows share this size: tell the view it changed for every row.
        emit dataChanged(index(0), index(int(m_records.size()) - 1), { Qt::SizeHintRole });
    }
}

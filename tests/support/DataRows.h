// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Data rows as one struct each: a test's _data() lists them in a table, whose first member "row"
// names the row in words, and the test fetches the whole struct with QFETCH(Row, row). The struct
// needs Q_DECLARE_METATYPE. Rows of texts alone can be a plain table of strings instead: the first
// names the row, the others fill the test's QString columns in order.
#pragma once

#include <cstddef>
#include <QTest>

template<typename Row, std::size_t N> void addRows(const Row (&rows)[N])
{
    QTest::addColumn<Row>("row");
    for (const Row &row : rows)
        QTest::newRow(row.row) << row;
}

template<std::size_t N, std::size_t M> void addTextRows(const char *const (&rows)[N][M])
{
    for (const auto &row : rows) {
        QTestData &data = QTest::newRow(row[0]);
        for (std::size_t i = 1; i < M; ++i)
            data << QString::fromUtf8(row[i]);
    }
}

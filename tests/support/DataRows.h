// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Data rows as one struct each: a test's _data() lists them in a table, whose first member "row"
// names the row in words, and the test fetches the whole struct with QFETCH(Row, row). The struct
// needs Q_DECLARE_METATYPE.
#pragma once

#include <cstddef>
#include <QTest>

template<typename Row, std::size_t N> void addRows(const Row (&rows)[N])
{
    QTest::addColumn<Row>("row");
    for (const Row &row : rows)
        QTest::newRow(row.row) << row;
}

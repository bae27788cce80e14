// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A hive file of its own for one test, in a temporary folder that goes away with the object:
// a test never sees the user's settings or another test's. Values can be written before the
// program reads the hive and read back after it wrote it, each time through a fresh store on
// the file, as a later run of the program would.
#pragma once

#include <QList>
#include <QPair>
#include <QStringList>
#include <QTemporaryDir>

class TestHive
{
public:
    TestHive();

    QString path() const { return m_path; }
    // A command line that points the program at this hive.
    QStringList arguments() const;

    void write(const QString &subKey, const QString &name, const QString &value);
    void writeSetting(const QString &name, const QString &value)
    {
        write(QStringLiteral("settings"), name, value);
    }
    // The stored value, or nothing when the file does not hold it.
    std::optional<QString> read(const QString &subKey, const QString &name) const;
    std::optional<QString> readSetting(const QString &name) const
    {
        return read(QStringLiteral("settings"), name);
    }

    // A custom quantity with its units (name, factor text; enabled and exact when the factor
    // text is written with a leading "x", as in the built-in catalogue).
    void addQuantity(const QString &name, const QList<QPair<QString, QString>> &units);

private:
    QTemporaryDir m_folder;
    QString m_path;
};

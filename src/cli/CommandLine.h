// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The arguments of mensura-cli taken apart: the command, its operands and the options, with
// the option values checked (significant figures 1..13, thresholds within the range the
// options dialog allows). Numbers in option values are read strictly through NumberText.
// Anything wrong leaves a message in error() for the caller to print with exit status 2.
#pragma once

#include <optional>
#include <QString>
#include <QStringList>

class Settings;

class CommandLine
{
public:
    enum class Command { None, Help, Version, Convert, Batch, Units, Report, Records };

    // arguments without the program's own name. False when they make no sense (see error()).
    bool parse(const QStringList &arguments);
    QString error() const { return m_error; }

    // Overrides the stored formatting settings with the options given.
    void applyTo(Settings &settings) const;
    // The arguments for SettingsStore::open: "--hive FILE" when given, else none.
    QStringList storeArguments() const;

    Command command = Command::None;
    // VALUE FROM_UNIT TO_UNIT for convert, QUANTITY for units, VALUE FROM_UNIT for report,
    // FILE for records
    QStringList operands;
    QString quantity; // --quantity, empty when not given
    QString hive; // --hive, empty when not given
    QString output; // -o or --output of report, empty when not given
    std::optional<QString> find; // --find of units
    bool verbose = false;
    bool tsv = false;
    bool all = false;
    bool csv = false;
    std::optional<int> sigFigs;
    std::optional<bool> scientific;
    std::optional<bool> triads;
    std::optional<double> maxNumber;
    std::optional<double> minNumber;

private:
    bool fail(const QString &message);
    bool takeOption(const QString &name, const std::optional<QString> &inlineValue,
        const QStringList &arguments, qsizetype &i);

    QString m_error;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/CommandLine.h"

#include "cli/CliText.h"
#include "convert/NumberText.h"
#include "convert/RuntimeError.h"
#include "shell/Settings.h"

#include <cmath>

namespace
{

// "-40" and "-.5" are values to convert, not options.
bool looksLikeNegativeNumber(const QString &argument)
{
    return argument.size() > 1 && argument[0] == u'-'
        && (argument[1].isDigit() || argument[1] == u'.');
}

std::optional<double> strictNumber(const QString &text)
{
    try {
        return NumberText::toDouble(text);
    } catch (const RuntimeError &) {
        return std::nullopt;
    }
}

} // namespace

bool CommandLine::fail(const QString &message)
{
    if (m_error.isEmpty())
        m_error = message;
    return false;
}

bool CommandLine::parse(const QStringList &arguments)
{
    QString commandWord;
    bool batch = false, help = false, version = false, optionsEnded = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (!optionsEnded && argument == QStringLiteral("--")) {
            optionsEnded = true;
            continue;
        }
        const bool isOption = !optionsEnded && argument.size() > 1 && argument[0] == u'-'
            && !looksLikeNegativeNumber(argument);
        if (!isOption) {
            if (commandWord.isNull())
                commandWord = argument;
            else
                operands.append(argument);
            continue;
        }
        QString name = argument;
        std::optional<QString> inlineValue;
        const qsizetype equals = argument.indexOf(u'=');
        if (argument.startsWith(QStringLiteral("--")) && equals > 2) {
            name = argument.left(equals);
            inlineValue = argument.mid(equals + 1);
        }
        if (name == QStringLiteral("-h") || name == QStringLiteral("--help"))
            help = true;
        else if (name == QStringLiteral("--version"))
            version = true;
        else if (name == QStringLiteral("--batch"))
            batch = true;
        else if (name == QStringLiteral("--verbose"))
            verbose = true;
        else if (name == QStringLiteral("--tsv"))
            tsv = true;
        else if (name == QStringLiteral("--all"))
            all = true;
        else if (name == QStringLiteral("--csv"))
            csv = true;
        else if (name == QStringLiteral("--scientific"))
            scientific = true;
        else if (name == QStringLiteral("--regular"))
            scientific = false;
        else if (name == QStringLiteral("--triads"))
            triads = true;
        else if (name == QStringLiteral("--no-triads"))
            triads = false;
        else
            takeOption(name, inlineValue, arguments, i);
    }

    if (help) {
        command = Command::Help;
        return true;
    }
    if (version) {
        command = Command::Version;
        return true;
    }
    if (!m_error.isEmpty())
        return false;
    if (commandWord.isNull())
        return fail(CliText::noCommand());
    if (!output.isEmpty() && commandWord != QStringLiteral("report"))
        return fail(CliText::outputOnlyForReport());
    if (find && commandWord != QStringLiteral("units"))
        return fail(CliText::findOnlyForUnits());
    if (commandWord == QStringLiteral("help")) {
        command = Command::Help;
    } else if (commandWord == QStringLiteral("convert")) {
        if (batch) {
            if (!operands.isEmpty())
                return fail(CliText::batchTakesNoArguments());
            command = Command::Batch;
        } else {
            if (operands.size() != 3)
                return fail(CliText::convertArguments());
            command = Command::Convert;
        }
    } else if (commandWord == QStringLiteral("units")) {
        if (operands.size() > 1)
            return fail(CliText::unitsArguments());
        if (find && !operands.isEmpty())
            return fail(CliText::findTakesNoQuantity());
        command = Command::Units;
    } else if (commandWord == QStringLiteral("report")) {
        if (operands.size() != 2)
            return fail(CliText::reportArguments());
        command = Command::Report;
    } else if (commandWord == QStringLiteral("records")) {
        if (operands.size() != 1)
            return fail(CliText::recordsArguments());
        command = Command::Records;
    } else {
        return fail(CliText::unknownCommand(commandWord));
    }
    return true;
}

// Options with a value, given as "--name value" or "--name=value".
bool CommandLine::takeOption(const QString &name, const std::optional<QString> &inlineValue,
    const QStringList &arguments, qsizetype &i)
{
    const bool isOutput = name == QStringLiteral("-o") || name == QStringLiteral("--output");
    const bool takesValue = name == QStringLiteral("--quantity") || name == QStringLiteral("--hive")
        || name == QStringLiteral("--find") || name == QStringLiteral("--sigfigs")
        || name == QStringLiteral("--max") || name == QStringLiteral("--min") || isOutput;
    if (!takesValue)
        return fail(CliText::unknownOption(arguments[i]));
    QString value;
    if (inlineValue)
        value = *inlineValue;
    else if (i + 1 < arguments.size())
        value = arguments[++i];
    else
        return fail(CliText::missingOptionValue(name));

    if (name == QStringLiteral("--quantity")) {
        quantity = value;
    } else if (name == QStringLiteral("--find")) {
        find = value;
    } else if (name == QStringLiteral("--hive")) {
        if (value.isEmpty())
            return fail(CliText::missingOptionValue(name));
        hive = value;
    } else if (isOutput) {
        if (value.isEmpty())
            return fail(CliText::missingOptionValue(name));
        output = value;
    } else if (name == QStringLiteral("--sigfigs")) {
        const auto number = strictNumber(value);
        if (!number || *number != std::floor(*number) || *number < 1 || *number > 13)
            return fail(CliText::sigFigsRange(value));
        sigFigs = int(*number);
    } else if (name == QStringLiteral("--max")) {
        const auto number = strictNumber(value);
        if (!number || *number > 1e9)
            return fail(CliText::maxRange(value));
        maxNumber = *number;
    } else {
        const auto number = strictNumber(value);
        if (!number || *number < 1e-9)
            return fail(CliText::minRange(value));
        minNumber = *number;
    }
    return true;
}

void CommandLine::applyTo(Settings &settings) const
{
    if (sigFigs)
        settings.SigFigs = *sigFigs;
    if (scientific)
        settings.Scientific = *scientific;
    if (triads)
        settings.Triads = *triads;
    if (maxNumber)
        settings.MaxNumber = *maxNumber;
    if (minNumber)
        settings.MinNumber = *minNumber;
}

QStringList CommandLine::storeArguments() const
{
    if (hive.isEmpty())
        return {};
    return { QStringLiteral("--hive"), hive };
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// mensura-cli: Mensura's conversions from the command line, with the catalogue and settings
// of the desktop program (its store only read, never written). It needs the core alone: no
// window, no event loop, no application object.
#include "catalogue/Catalogue.h"
#include "cli/BatchConverter.h"
#include "cli/CliConverter.h"
#include "cli/CliText.h"
#include "cli/CommandLine.h"
#include "cli/OutputBuffer.h"
#include "cli/RecordsOutput.h"
#include "cli/UnitListing.h"
#include "cli/UnitLookup.h"
#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <cstdio>
#include <QCoreApplication>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <fcntl.h>
#include <io.h>
#endif

namespace
{

// "units --find TEXT": what the text matches and which unit it names.
int findUnits(const CommandLine &commandLine, const Catalogue &catalogue, OutputBuffer &out,
    OutputBuffer &errors)
{
    UnitLookup lookup(catalogue);
    int q = 0;
    if (!commandLine.quantity.isEmpty()) {
        const UnitLookup::QuantityAnswer answer = lookup.findQuantity(commandLine.quantity);
        if (!answer.error.isEmpty()) {
            errors.line(CliText::errorPrefix() + answer.error);
            return CliConverter::BadInput;
        }
        q = answer.quantity;
    }
    const QString &text = *commandLine.find;
    const UnitMatcher::Choice choice = lookup.matcher().best(text, q);
    if (choice.outcome == UnitMatcher::Outcome::None) {
        errors.line(CliText::errorPrefix() + lookup.unitError(text, q).simplified());
        return CliConverter::BadInput;
    }
    QVector<UnitMatcher::Match> matches;
    for (const UnitMatcher::Match &match : lookup.matcher().matches(text))
        if (q == 0 || match.quantity == q)
            matches.append(match);
    const UnitListing listing(catalogue, commandLine.tsv, commandLine.all);
    out.append(listing.matches(text, choice, matches));
    return CliConverter::Success;
}

int listUnits(const CommandLine &commandLine, const Catalogue &catalogue, OutputBuffer &out,
    OutputBuffer &errors)
{
    if (commandLine.find)
        return findUnits(commandLine, catalogue, out, errors);
    const UnitListing listing(catalogue, commandLine.tsv, commandLine.all);
    if (commandLine.operands.isEmpty()) {
        out.append(listing.quantities());
        return CliConverter::Success;
    }
    const QString &name = commandLine.operands.first();
    const int q = listing.findQuantity(name);
    if (q == 0) {
        UnitLookup lookup(catalogue);
        errors.line(CliText::errorPrefix() + lookup.findQuantity(name).error);
        return CliConverter::BadInput;
    }
    out.append(listing.units(q));
    return CliConverter::Success;
}

int convertOne(const CommandLine &commandLine, Catalogue &catalogue, const Settings &settings,
    OutputBuffer &out, OutputBuffer &errors)
{
    CliConverter converter(catalogue, settings);
    const QStringList &operands = commandLine.operands;
    const CliConverter::Outcome outcome
        = converter.convert(operands[0], operands[1], operands[2], commandLine.quantity);
    if (!outcome.note.isEmpty())
        errors.line(CliText::notePrefix() + outcome.note.simplified());
    if (!outcome.warning.isEmpty())
        errors.line(CliText::warningPrefix() + outcome.warning.simplified());
    for (const QString &error : outcome.errors)
        errors.line(CliText::errorPrefix() + error.simplified());
    if (outcome.exitStatus == CliConverter::Success) {
        out.line(outcome.text);
        if (commandLine.verbose)
            out.line(outcome.statusText);
    }
    return outcome.exitStatus;
}

int writeReport(const CommandLine &commandLine, Catalogue &catalogue, const Settings &settings,
    OutputBuffer &out, OutputBuffer &errors)
{
    const QString &value = commandLine.operands[0];
    if (!CliConverter::isNumber(value)) {
        errors.line(CliText::errorPrefix() + CliText::notANumber(value));
        return CliConverter::BadInput;
    }
    CliConverter converter(catalogue, settings);
    const UnitLookup::Resolution resolution
        = converter.lookup().resolveUnit(commandLine.operands[1], commandLine.quantity);
    if (!resolution.ok()) {
        errors.line(CliText::errorPrefix() + resolution.error);
        return CliConverter::BadInput;
    }
    const QString note = CliConverter::readAs(value);
    if (!note.isEmpty())
        errors.line(CliText::notePrefix() + note.simplified());
    QList<Notice> notices;
    const UnitReport report = converter.report(value, resolution, &notices);
    for (const Notice &notice : std::as_const(notices))
        errors.line(CliText::errorPrefix() + CliConverter::messageText(notice.text).simplified());
    const int status = notices.isEmpty() ? CliConverter::Success : CliConverter::ConversionFailed;

    if (commandLine.output.isEmpty()) {
        // The file's own lines, with the line ends of a text stream.
        QString text = ConversionsFile::reportText(report);
        text.replace(ConversionsFile::LineEnd, QStringLiteral("\n"));
        out.append(text);
        return status;
    }
    const ConversionsFile::WriteResult written
        = ConversionsFile::saveReport(commandLine.output, report);
    if (!written.ok()) {
        errors.line(CliText::errorPrefix()
            + CliText::fileUnwritable(commandLine.output, written.errorText));
        return CliConverter::BadInput;
    }
    return status;
}

// Prints the records of a conversions file as they are read, so a large file streams through.
int printRecords(const CommandLine &commandLine, OutputBuffer &out, OutputBuffer &errors)
{
    const QString &path = commandLine.operands[0];
    ConversionsReader reader(path);
    ConversionsReader::Status status = reader.open();
    QList<MarkedConversion> records;
    while (status == ConversionsReader::Reading) {
        records.clear();
        status = reader.readSome(records, 1000);
        for (const MarkedConversion &record : std::as_const(records))
            out.append(
                commandLine.csv ? RecordsOutput::csvLine(record) : RecordsOutput::tsvLine(record));
    }
    switch (status) {
    case ConversionsReader::Foreign:
        errors.line(CliText::errorPrefix() + reader.notice().text);
        return CliConverter::BadInput;
    case ConversionsReader::Unreadable:
        errors.line(CliText::errorPrefix() + CliText::fileUnreadable(path, reader.errorText()));
        return CliConverter::BadInput;
    case ConversionsReader::BadRecord:
        errors.line(CliText::errorPrefix()
            + CliText::damagedRecord(path, reader.badLine(), reader.errorText()));
        return CliConverter::ConversionFailed;
    default:
        return CliConverter::Success;
    }
}

int run(const CommandLine &commandLine, OutputBuffer &out, OutputBuffer &errors)
{
    switch (commandLine.command) {
    case CommandLine::Command::Help:
        out.append(CliText::help());
        return CliConverter::Success;
    case CommandLine::Command::Version:
        out.append(CliText::version());
        return CliConverter::Success;
    case CommandLine::Command::Records:
        // The file alone is read: no settings, no catalogue.
        return printRecords(commandLine, out, errors);
    default:
        break;
    }

    if (!commandLine.hive.isEmpty()) {
        const QFileInfo hive(commandLine.hive);
        if (!hive.isFile() || !hive.isReadable()) {
            errors.line(CliText::errorPrefix() + CliText::hiveUnreadable(commandLine.hive));
            return CliConverter::BadInput;
        }
    }
    const auto store = SettingsStore::open(commandLine.storeArguments(), true);
    QList<RuntimeError> problems;
    Catalogue catalogue;
    catalogue.LoadCatalogue(*store, &problems);
    Settings settings;
    settings.LoadSettings(*store, &problems);
    settings.LoadSigFigs(*store, &problems);
    for (const RuntimeError &problem : std::as_const(problems))
        errors.line(CliText::warningPrefix() + CliText::storeProblem(problem.description()));
    commandLine.applyTo(settings);

    switch (commandLine.command) {
    case CommandLine::Command::Units:
        return listUnits(commandLine, catalogue, out, errors);
    case CommandLine::Command::Convert:
        return convertOne(commandLine, catalogue, settings, out, errors);
    case CommandLine::Command::Report:
        return writeReport(commandLine, catalogue, settings, out, errors);
    case CommandLine::Command::Batch: {
        CliConverter converter(catalogue, settings);
        BatchConverter batch(converter, commandLine.quantity, commandLine.verbose);
        return batch.run(stdin, out, errors);
    }
    default:
        return CliConverter::BadInput;
    }
}

} // namespace

int main(int argc, char *argv[])
{
#ifdef Q_OS_WIN
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    // The desktop program's name, so that its settings store is the one found.
    QCoreApplication::setApplicationName(QStringLiteral("mensura"));
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));

    OutputBuffer out(stdout);
    OutputBuffer errors(stderr, 1 << 12);
    CommandLine commandLine;
    if (!commandLine.parse(arguments)) {
        errors.line(CliText::errorPrefix() + commandLine.error());
        return CliConverter::BadInput;
    }
    const int status = run(commandLine, out, errors);
    if (!out.flush())
        return status == CliConverter::Success ? CliConverter::ConversionFailed : status;
    return status;
}

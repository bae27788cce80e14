// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Every text the command line writes of its own: the usage text and the error and warning
// messages. The converted values, status texts and conversion messages are the program's
// own and come from the string table through the conversion engine; only the command line's
// English usage lives here, in this one file.
#pragma once

#include "catalogue/UnitMatcher.h"

#include <QString>
#include <QStringList>

class CliText
{
public:
    // A text the user gave, in quotes; a very long one cut short, so that a message stays
    // readable whatever was typed.
    static QString quoted(const QString &text);

    static QString help();
    static QString version();
    static QString seeHelp();

    // Argument errors
    static QString unknownOption(const QString &option);
    static QString missingOptionValue(const QString &option);
    static QString unknownCommand(const QString &command);
    static QString noCommand();
    static QString convertArguments();
    static QString batchTakesNoArguments();
    static QString unitsArguments();
    static QString reportArguments();
    static QString recordsArguments();
    static QString outputOnlyForReport();
    static QString findOnlyForUnits();
    static QString findTakesNoQuantity();
    static QString sigFigsRange(const QString &given);
    static QString maxRange(const QString &given);
    static QString minRange(const QString &given);
    static QString hiveUnreadable(const QString &fileName);
    static QString storeProblem(const QString &description);

    // Conversions files
    static QString fileUnreadable(const QString &fileName, const QString &reason);
    static QString fileUnwritable(const QString &fileName, const QString &reason);
    static QString damagedRecord(const QString &fileName, int line, const QString &text);

    // Values and names
    static QString notANumber(const QString &value);
    static QString valueReadAs(const QString &value, const QString &number);
    static QString unknownQuantity(const QString &name, const QStringList &suggestions);
    static QString quantitySwitchedOff(const QString &name);
    static QString unknownUnit(
        const QString &name, const QString &quantity, const QStringList &suggestions);
    static QString unitSwitchedOff(const QString &name, const QString &quantity);
    static QString ambiguousUnit(
        const QString &name, const QString &quantity, const QStringList &candidates);
    static QString noCommonQuantity(const QString &from, const QStringList &fromQuantities,
        const QString &to, const QStringList &toQuantities);
    static QString severalQuantities(
        const QString &from, const QString &to, const QStringList &quantities);
    static QString unitOfSeveralQuantities(const QString &unit, const QStringList &quantities);
    static QString unitListHint();
    static QString unitOfQuantity(const QString &unit, const QString &quantity);

    // Batch
    static QString batchFieldCount();
    static QString batchLine(qint64 line, const QString &message);
    static QString batchFailures(qint64 failed, qint64 lines);
    static QString readError();

    // Conversion messages on the error stream
    static QString errorPrefix();
    static QString warningPrefix();
    static QString notePrefix();
    static QString valueTakenAs(const QString &value);

    // The units listing
    static QString quantityHeading(const QString &name, const QString &defaultUnit);
    static QString unitsCount(int count);
    static QString defaultUnitColumn(const QString &unit);
    static QString marks(const QStringList &marks);
    static QString customMark();
    static QString switchedOffMark();
    static QString defaultMark();
    static QString exactWord();
    static QString inexactWord();
    static QString formulaWord();
    static QStringList matchColumns();
    static QString rankText(UnitMatcher::Rank rank, const QString &form);
    static QString rankWord(UnitMatcher::Rank rank);
    static QString findFound(const QString &text, const QString &unit, const QString &quantity);
    static QString findTied(const QString &text, int count);
    static QString chosenWord();
    static QString tiedWord();
    static QString byFormula();
    static QString builtinWord();
    static QString customWord();
    static QString onWord();
    static QString offWord();
};

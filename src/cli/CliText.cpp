// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/CliText.h"

QString CliText::help()
{
    return QStringLiteral(R"help(Usage:
  mensura-cli convert VALUE FROM_UNIT TO_UNIT [--quantity NAME] [options]
  mensura-cli convert --batch [--quantity NAME] [options] < LINES
  mensura-cli units [QUANTITY] [--tsv] [--all] [--hive FILE]
  mensura-cli units --find TEXT [--quantity NAME] [--tsv] [--hive FILE]
  mensura-cli report VALUE FROM_UNIT [--quantity NAME] [-o FILE] [options]
  mensura-cli records FILE [--csv]
  mensura-cli --help | --version

Converts VALUE from FROM_UNIT into TO_UNIT and prints the result exactly as Mensura's
main window shows it: as many significant figures as chosen but never more than the
conversion factors justify, in regular or scientific notation, digits grouped in threes.

Commands:
  convert        Converts one value. With --batch, converts one line of standard input
                 after the other.
  units          Lists the quantities (in the main window's alphabetical order), or the
                 units of QUANTITY with their factor text (how many default units one
                 unit is) and whether that factor is exact. With --find TEXT, lists every
                 unit TEXT matches, best first, with its quantity, its rank (1 is best)
                 and how it matched, and says which unit TEXT names: what convert and
                 report would take it for.
  report         Converts VALUE from FROM_UNIT into every enabled unit of its quantity, as
                 Mensura's "save all conversions" does. Without -o the report goes to
                 standard output; with -o FILE it is saved as a conversions file that
                 Mensura loads (Windows-1252, or UTF-8 with a byte-order mark when a text
                 needs it, CR LF line ends).
  records        Reads a conversions file as Mensura's load command does and prints its
                 records one a line: from value, from unit, to value, to unit and quantity,
                 separated by tabs (a tab within a text becomes a blank), or as CSV
                 (RFC 4180, CR LF line ends) with --csv, for a spreadsheet.

The value:
  VALUE is read as the main window reads its value box: the number at its start counts
  ("1 234.5" is 1234.5, blanks and tabs around it are ignored), "." is the decimal point
  and E, e, D or d starts an exponent. When only the start of VALUE is a number, the
  result is written and a note on standard error says what VALUE was read as
  (note: "1,500" was read as 1; "12kg" is 12, "3/8" is 3). A value without a digit at
  its start ("abc", "e5", "+", "-inf", "") is refused. A negative value is written as it
  is ("-40"); "--" ends the options.

Units and quantities:
  Only the enabled quantities and their enabled units are used, as the main window lists
  them (your own catalogue, or the one of --hive). A unit may be named, from the best
  match to the loosest (the ranks of --find):
    1 by its full name ("metre (m)"),
    2 by its full name in any letter case, accents and hyphens aside, "meter" for "metre",
    3 by a common name the catalogue lacks ("cfm", "psig", "sq ft", "lbs", "ton" for the
      short ton, "L" for the litre),
    4 by its name without the parts in brackets ("metre"),
    5 by a symbol in brackets ("m", "kPa"; letter case matters there: "mm" is not "Mm"),
    6 by that symbol as typed on a plain keyboard: "·" as ".", "-", a blank or nothing
      ("kWh", "N-m", "lbf ft"), "²" and "³" as "2" or "^2" ("m2", "ft^3/min"), "µ" as "u"
      ("um"), "°" as "deg" or left out ("degF"; "F" and "C" alone only for Temperature),
      "Ω" as "ohm",
    7 by a symbol of two factors in the other order ("lbf-ft" for "ft·lbf"),
    8 by a symbol or common name in another letter case ("KWH", "Psi"), when nothing
      matches as typed.
  A quantity is named in any letter case. Without --quantity, the quantity is the one that
  holds both units ("98.6 F C" is a temperature: Capacitance has no "C", Charge no "F"); the
  one where both match best wins. When units or quantities tie, or none holds both,
  nothing is converted and the candidates are named. "°F" and "°C" (also "degF", "degC")
  are units of Temperature and of Temperature Interval: choose one with --quantity.

Options:
  --quantity NAME  Converts within that quantity (in batch mode: for the lines that do not
                   name one); units --find: matches within that quantity only.
  --verbose        Also prints the status text (figures allowed and chosen) on a second
                   line; in batch mode after a tab on the result line.
  --batch          Reads lines VALUE<TAB>FROM_UNIT<TAB>TO_UNIT[<TAB>QUANTITY] from
                   standard input and writes one line per input line, in order. A line that
                   cannot be converted gives a line "error: line N: why" and the run goes
                   on; the exit status is then 1. Notes and warnings about a line go to
                   standard error as "note: line N: ..." and "warning: line N: ...".
  --sigfigs N      Significant figures, 1 to 13 (default: the stored setting, else 7).
  --scientific     Always scientific notation.
  --regular        Regular notation between --min and --max (overrides a stored setting).
  --no-triads      No blanks between groups of three digits.
  --triads         Blanks between groups of three digits (overrides a stored setting).
  --max X          Values above X are shown in scientific notation; X at most 1E+9
                   (default: the stored setting, else 1000).
  --min X          Values below X are shown in scientific notation; X at least 1E-9
                   (default: the stored setting, else 0.1).
  --hive FILE      Takes the settings and the custom quantities and units from this
                   settings file. Without it your own settings are used ($MENSURA_HIVE, else
                   Mensura's registry.reg); they are only read, never written.
  --tsv            units: tab-separated lines for scripts:
                     quantities: NAME, ENABLED UNITS, DEFAULT UNIT, builtin|custom, on|off
                     units:      NAME, FACTOR, exact|inexact|formula, default|"",
                                 builtin|custom, on|off
  --all            units: also the switched-off quantities and units.
  --find TEXT      units: what TEXT matches as a unit name (see above); with --tsv, lines
                   RANK, how (full-name, name, alias, bare-name, symbol, typed-symbol,
                   swapped-symbol, other-case), UNIT, QUANTITY, the form matched, and
                   chosen, tied or "".
  -o, --output FILE
                   report: saves the report in FILE instead of printing it. An existing
                   file is replaced only once the new one is written whole.
  --csv            records: CSV instead of tab-separated fields.
  -h, --help       This text.
  --version        The program's version.

Temperature:
  A temperature below absolute zero is taken as absolute zero, as the main window does:
  the warning goes to standard error, the lowest temperature converted to standard
  output, and the exit status stays 0 (a corrected value, not a failure).

Exit status:
  0  converted (or listed)
  1  a conversion failed (a number too big to calculate, a division by zero): the
     message goes to standard error; in batch mode, at least one line failed; in a
     report, a unit's value is left empty; a conversions file holds a damaged record
     (the records before it are printed)
  2  a wrong command line: an unknown command, option, quantity or unit, a value that is
     not a number, an option value out of range, a --hive file that cannot be read;
     a file that cannot be read or written, or that is no conversions file

Examples:
  mensura-cli convert 12 inch "metre (m)"
  mensura-cli convert -40 Celsius Fahrenheit --sigfigs 3 --verbose
  printf '12\tinch\tm\n100\tCelsius\tkelvin\n' | mensura-cli convert --batch
  mensura-cli units Temperature --tsv
  mensura-cli units --find lbf-ft
  mensura-cli convert 45 lbf-ft N-m
  mensura-cli report 1 "inch (in)" -o inch.txt
  mensura-cli records inch.txt --csv > inch.csv
)help");
}

QString CliText::version()
{
    return QStringLiteral("mensura-cli %1\n").arg(QStringLiteral(MENSURA_VERSION));
}

QString CliText::seeHelp()
{
    return QStringLiteral("Try \"mensura-cli --help\".");
}

QString CliText::unknownOption(const QString &option)
{
    return QStringLiteral("unknown option \"%1\". %2").arg(option, seeHelp());
}

QString CliText::missingOptionValue(const QString &option)
{
    return QStringLiteral("%1 needs a value. %2").arg(option, seeHelp());
}

QString CliText::unknownCommand(const QString &command)
{
    return QStringLiteral(
        "unknown command \"%1\" (the commands are convert, units, report and records). %2")
        .arg(command, seeHelp());
}

QString CliText::noCommand()
{
    return QStringLiteral("no command given (convert, units, report or records). %1")
        .arg(seeHelp());
}

QString CliText::convertArguments()
{
    return QStringLiteral("convert takes VALUE FROM_UNIT TO_UNIT, or --batch. %1").arg(seeHelp());
}

QString CliText::batchTakesNoArguments()
{
    return QStringLiteral("convert --batch reads its conversions from standard input and takes "
                          "no VALUE or units. %1")
        .arg(seeHelp());
}

QString CliText::unitsArguments()
{
    return QStringLiteral("units takes at most one QUANTITY. %1").arg(seeHelp());
}

QString CliText::reportArguments()
{
    return QStringLiteral("report takes VALUE FROM_UNIT. %1").arg(seeHelp());
}

QString CliText::recordsArguments()
{
    return QStringLiteral("records takes one FILE. %1").arg(seeHelp());
}

QString CliText::outputOnlyForReport()
{
    return QStringLiteral("-o FILE is for the report command only. %1").arg(seeHelp());
}

QString CliText::findOnlyForUnits()
{
    return QStringLiteral("--find TEXT is for the units command only. %1").arg(seeHelp());
}

QString CliText::findTakesNoQuantity()
{
    return QStringLiteral("units --find TEXT takes no QUANTITY; name one with --quantity. %1")
        .arg(seeHelp());
}

QString CliText::sigFigsRange(const QString &given)
{
    return QStringLiteral("--sigfigs must be a whole number from 1 to 13, not \"%1\".").arg(given);
}

QString CliText::maxRange(const QString &given)
{
    return QStringLiteral("--max must be a number no larger than 1E+9, not \"%1\".").arg(given);
}

QString CliText::minRange(const QString &given)
{
    return QStringLiteral("--min must be a number no smaller than 1E-9, not \"%1\".").arg(given);
}

QString CliText::hiveUnreadable(const QString &fileName)
{
    return QStringLiteral("cannot read the settings file \"%1\".").arg(fileName);
}

QString CliText::fileUnreadable(const QString &fileName, const QString &reason)
{
    return QStringLiteral("cannot read \"%1\": %2").arg(fileName, reason);
}

QString CliText::fileUnwritable(const QString &fileName, const QString &reason)
{
    return QStringLiteral("cannot save \"%1\": %2").arg(fileName, reason);
}

QString CliText::damagedRecord(const QString &fileName, int line, const QString &text)
{
    return QStringLiteral("\"%1\", line %2: not a conversion record, reading stops here: %3")
        .arg(fileName)
        .arg(line)
        .arg(text);
}

QString CliText::storeProblem(const QString &description)
{
    return QStringLiteral("the settings store holds a bad value: %1").arg(description);
}

QString CliText::quoted(const QString &text)
{
    static constexpr qsizetype Longest = 60;
    if (text.size() <= Longest)
        return u'"' + text + u'"';
    return u'"' + text.left(Longest - 1) + QChar(0x2026) + u'"';
}

QString CliText::notANumber(const QString &value)
{
    return QStringLiteral("%1 is not a number.").arg(quoted(value));
}

QString CliText::valueReadAs(const QString &value, const QString &number)
{
    return QStringLiteral("%1 was read as %2").arg(quoted(value), number);
}

static QString suggestionList(const QStringList &suggestions)
{
    if (suggestions.isEmpty())
        return QString();
    return QStringLiteral(" Closest names: ") + suggestions.join(QStringLiteral("; ")) + u'.';
}

QString CliText::unknownQuantity(const QString &name, const QStringList &suggestions)
{
    QString text = QStringLiteral("unknown quantity %1.").arg(quoted(name));
    if (suggestions.isEmpty())
        return text + QStringLiteral(" \"mensura-cli units\" lists the quantities.");
    return text + suggestionList(suggestions);
}

QString CliText::quantitySwitchedOff(const QString &name)
{
    return QStringLiteral("the quantity \"%1\" is switched off in the catalogue.").arg(name);
}

QString CliText::unknownUnit(
    const QString &name, const QString &quantity, const QStringList &suggestions)
{
    QString text = quantity.isEmpty()
        ? QStringLiteral("unknown unit %1.").arg(quoted(name))
        : QStringLiteral("unknown unit %1 in %2.").arg(quoted(name), quantity);
    if (suggestions.isEmpty())
        return text + u' ' + unitListHint();
    return text + suggestionList(suggestions);
}

QString CliText::unitSwitchedOff(const QString &name, const QString &quantity)
{
    return QStringLiteral("the unit \"%1\" of %2 is switched off in the catalogue.")
        .arg(name, quantity);
}

QString CliText::ambiguousUnit(
    const QString &name, const QString &quantity, const QStringList &candidates)
{
    return QStringLiteral("%1 names several units of %2: %3. Give the full name.")
        .arg(quoted(name), quantity, candidates.join(QStringLiteral("; ")));
}

QString CliText::noCommonQuantity(const QString &from, const QStringList &fromQuantities,
    const QString &to, const QStringList &toQuantities)
{
    return QStringLiteral("no quantity holds both %1 (%2) and %3 (%4).")
        .arg(quoted(from), fromQuantities.join(QStringLiteral(", ")), quoted(to),
            toQuantities.join(QStringLiteral(", ")));
}

QString CliText::severalQuantities(
    const QString &from, const QString &to, const QStringList &quantities)
{
    return QStringLiteral("%1 and %2 are units of several quantities: %3. "
                          "Choose one with --quantity.")
        .arg(quoted(from), quoted(to), quantities.join(QStringLiteral(", ")));
}

QString CliText::unitOfSeveralQuantities(const QString &unit, const QStringList &quantities)
{
    return QStringLiteral("%1 is a unit of several quantities: %2. Choose one with --quantity.")
        .arg(quoted(unit), quantities.join(QStringLiteral(", ")));
}

QString CliText::unitListHint()
{
    return QStringLiteral("\"mensura-cli units QUANTITY\" lists the units of a quantity.");
}

QString CliText::unitOfQuantity(const QString &unit, const QString &quantity)
{
    return QStringLiteral("%1 [%2]").arg(unit, quantity);
}

QString CliText::batchFieldCount()
{
    return QStringLiteral("expected VALUE<TAB>FROM_UNIT<TAB>TO_UNIT[<TAB>QUANTITY].");
}

QString CliText::batchLine(qint64 line, const QString &message)
{
    return QStringLiteral("line %1: %2").arg(line).arg(message);
}

QString CliText::batchFailures(qint64 failed, qint64 lines)
{
    return QStringLiteral("%1 of %2 lines could not be converted.").arg(failed).arg(lines);
}

QString CliText::readError()
{
    return QStringLiteral("cannot read standard input.");
}

QString CliText::errorPrefix()
{
    return QStringLiteral("error: ");
}

QString CliText::warningPrefix()
{
    return QStringLiteral("warning: ");
}

QString CliText::notePrefix()
{
    return QStringLiteral("note: ");
}

QString CliText::valueTakenAs(const QString &value)
{
    return QStringLiteral(" (value taken as %1)").arg(value);
}

QString CliText::quantityHeading(const QString &name, const QString &defaultUnit)
{
    return QStringLiteral("%1 (default unit: %2)").arg(name, defaultUnit);
}

QString CliText::unitsCount(int count)
{
    return count == 1 ? QStringLiteral("1 unit") : QStringLiteral("%1 units").arg(count);
}

QString CliText::defaultUnitColumn(const QString &unit)
{
    return QStringLiteral("default: %1").arg(unit);
}

QString CliText::marks(const QStringList &marks)
{
    return marks.join(QStringLiteral(", "));
}

QString CliText::customMark()
{
    return QStringLiteral("custom");
}

QString CliText::switchedOffMark()
{
    return QStringLiteral("switched off");
}

QString CliText::defaultMark()
{
    return QStringLiteral("default");
}

QString CliText::exactWord()
{
    return QStringLiteral("exact");
}

QString CliText::inexactWord()
{
    return QStringLiteral("inexact");
}

QString CliText::formulaWord()
{
    return QStringLiteral("formula");
}

QString CliText::byFormula()
{
    return QStringLiteral("by formula");
}

QString CliText::builtinWord()
{
    return QStringLiteral("builtin");
}

QString CliText::customWord()
{
    return QStringLiteral("custom");
}

QString CliText::onWord()
{
    return QStringLiteral("on");
}

QString CliText::offWord()
{
    return QStringLiteral("off");
}

QStringList CliText::matchColumns()
{
    return { QStringLiteral("rank"), QStringLiteral("unit"), QStringLiteral("quantity"),
        QStringLiteral("matched as") };
}

QString CliText::rankText(UnitMatcher::Rank rank, const QString &form)
{
    switch (rank) {
    case UnitMatcher::FullName:
        return QStringLiteral("full name");
    case UnitMatcher::Name:
        return QStringLiteral("full name, other letter case or spelling");
    case UnitMatcher::Alias:
        return QStringLiteral("common name %1").arg(form);
    case UnitMatcher::BareName:
        return QStringLiteral("name without brackets");
    case UnitMatcher::Symbol:
        return QStringLiteral("symbol %1").arg(form);
    case UnitMatcher::TypedSymbol:
        return QStringLiteral("symbol %1 as typed on a keyboard").arg(form);
    case UnitMatcher::SwappedSymbol:
        return QStringLiteral("symbol %1 with its factors swapped").arg(form);
    case UnitMatcher::OtherCase:
        return QStringLiteral("%1 in another letter case").arg(form);
    }
    return QString();
}

QString CliText::rankWord(UnitMatcher::Rank rank)
{
    switch (rank) {
    case UnitMatcher::FullName:
        return QStringLiteral("full-name");
    case UnitMatcher::Name:
        return QStringLiteral("name");
    case UnitMatcher::Alias:
        return QStringLiteral("alias");
    case UnitMatcher::BareName:
        return QStringLiteral("bare-name");
    case UnitMatcher::Symbol:
        return QStringLiteral("symbol");
    case UnitMatcher::TypedSymbol:
        return QStringLiteral("typed-symbol");
    case UnitMatcher::SwappedSymbol:
        return QStringLiteral("swapped-symbol");
    case UnitMatcher::OtherCase:
        return QStringLiteral("other-case");
    }
    return QString();
}

QString CliText::findFound(const QString &text, const QString &unit, const QString &quantity)
{
    return QStringLiteral("%1 is %2 [%3].").arg(quoted(text), unit, quantity);
}

QString CliText::findTied(const QString &text, int count)
{
    return QStringLiteral("%1 names no one unit: %2 match it equally well.")
        .arg(quoted(text))
        .arg(count);
}

QString CliText::chosenWord()
{
    return QStringLiteral("chosen");
}

QString CliText::tiedWord()
{
    return QStringLiteral("tied");
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// mensura-cli as users run it, for what only the command line does: options and their
// precedence over the stored settings; units and quantities found through their names, with
// the messages for those it cannot take; refusals and exit statuses; the note on a value read
// only in part; batch lines in order across the blocks they are read in; the listings of
// quantities, units and what a text matches; reports and the records of conversions files.
// The number rules themselves are the formatter's and the engine's tests; the figures here are
// worked out by hand from exact factors (1 in = 25.4 mm, 1 mi = 1609.344 m).
#include "CliFixture.h"

#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"

#include <algorithm>
#include <QFileInfo>
#include <QTemporaryDir>

class tst_MensuraCli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void commandLines_data();
    void commandLines();
    void batchAnswersEachLineAsItArrives();
    void quantitiesAreTheEnabledOnesInAlphabeticalOrder();
    void savedReportLoadsBack();
    void failedSaveLeavesNothing();
    void helpListsEveryOptionAndWinsOverErrors();
    void settingsFileIsNeverWritten();

private:
    QString writeFile(const char *name, const QByteArray &bytes) const;

    QTemporaryDir m_dir;
    QString m_hive; // the shared catalogue, stored settings at their defaults
    QString m_styled; // the same with four figures, scientific, no triads, max 100, min 0.5
    Catalogue m_catalogue; // as the shared settings file leaves it
};

void tst_MensuraCli::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_hive = m_dir.filePath(QStringLiteral("shared.reg"));
    writeHive(m_hive, {});
    m_styled = m_dir.filePath(QStringLiteral("styled.reg"));
    writeHive(m_styled,
        { "numericformatting", "4", "scientific", "1", "triads", "0", "maxnumber", "100",
            "minnumber", "0.5" });
    SettingsStore store(std::make_unique<HiveFile>(m_hive, true));
    m_catalogue.LoadCatalogue(store);
}

QString tst_MensuraCli::writeFile(const char *name, const QByteArray &bytes) const
{
    const QString path = m_dir.filePath(QString::fromUtf8(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return QString();
    return path;
}

// Standard output and standard error are compared whole, with a line break after the last
// line; an expected text ending in "…" is only the beginning of what must be written.
static void compareStream(const QString &actual, const QString &expected)
{
    if (expected.endsWith(QChar(0x2026)))
        QVERIFY2(actual.startsWith(expected.chopped(1)), qPrintable(actual));
    else if (expected.isEmpty() || expected.endsWith(u'\n'))
        QCOMPARE(actual, expected);
    else
        QCOMPARE(actual, expected + u'\n');
}

void tst_MensuraCli::commandLines_data()
{
    QTest::addColumn<QStringList>("arguments"); // after "--hive" and the shared settings file
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");
    QTest::addColumn<QByteArray>("input");

    auto row = [](const char *name, const QStringList &arguments, int status, const QString &out,
                   const QString &err = QString(), const QByteArray &input = QByteArray()) {
        QTest::newRow(name) << arguments << status << out << err << input;
    };
    const QString styled = m_styled;
    // Arguments, and names through the matcher: 12 in = 0.3048 m, exact, seven figures
    row("full names", { "convert", "12", "inch (in)", "metre (m)" }, 0, "0.304 800 0");
    row("quantity named in another case", { "convert", "12", "in", "m", "--quantity", "length" }, 0,
        "0.304 800 0");
    row("option before the command, its value after =",
        { "--quantity=Length", "convert", "12", "in", "m" }, 0, "0.304 800 0");
    row("a negative value is no option", { "convert", "-12", "in", "m" }, 0, "-0.304 800 0");
    row("nor a negative fraction", { "convert", "-.5", "in", "mm" }, 0, "-12.700 00");
    row("-- ends the options", { "convert", "--", "-12", "in", "m" }, 0, "-0.304 800 0");
    // 3 x 0.75 / 0.1 = 22.5: the factor 0.75 allows two figures
    row("the user's units find their quantity", { "convert", "3", "stride", "hand-width" }, 0,
        "23");
    row("the user's quantity named",
        { "convert", "2", "hand-width", "stride", "--quantity", "reach" }, 0, "0.27");
    row("F and C are temperatures", { "convert", "98.6", "F", "C" }, 0, "37.000 00");
    row("units as handbooks write them", { "convert", "45", "lbf-ft", "N-m" }, 0, "61.011 81");
    row("--verbose adds the status text", { "convert", "12", "in", "m", "--verbose" }, 0,
        "0.304 800 0\nExact Factors  (Current: 7)");
    row("--verbose with figures limited by a factor",
        { "convert", "1", "degree", "radian", "--verbose", "--sigfigs", "5" }, 0,
        "1.745 3E-2\nMax: 13  (Current: 5)");
    row("--version", { "--version" }, 0, QStringLiteral("mensura-cli " MENSURA_VERSION));

    // The value as the value box reads it, with a note when only its start is a number
    row("blanks inside the value", { "convert", "1 000", "in", "m" }, 0, "25.400 00");
    row("blanks around the value", { "convert", " 12\t", "in", "mm" }, 0, "304.800 0");
    row("thousands comma", { "convert", "1,500", "in", "mm" }, 0, "25.400 00",
        "note: \"1,500\" was read as 1");
    row("unit glued on, read as its shortest text", { "convert", "2.50e-3 m", "in", "mm" }, 0,
        "6.350 000 E-2", "note: \"2.50e-3 m\" was read as 0.0025");
    row("below absolute zero the value is taken as absolute zero",
        { "convert", "-300", "Celsius", "kelvin" }, 0, "0.000 000 E+0",
        "warning: " + StringTable::text(371) + " (value taken as -273.15)");

    // Options over the stored settings; 1 in = 25.4 mm
    row("stored settings", { "--hive", styled, "convert", "1", "in", "mm" }, 0, "2.540E+1");
    row("--sigfigs over the stored figures",
        { "--hive", styled, "convert", "1", "in", "mm", "--sigfigs", "6" }, 0, "2.54000E+1");
    row("--triads over stored triads off",
        { "--hive", styled, "convert", "1", "in", "mm", "--triads" }, 0, "2.540 E+1");
    row("--regular over stored scientific",
        { "--hive", styled, "convert", "1", "in", "mm", "--regular" }, 0, "25.40");
    row("--max over the stored maximum",
        { "--hive", styled, "convert", "12", "in", "mm", "--regular", "--max", "1000" }, 0,
        "304.8");
    row("--min over the stored minimum",
        { "--hive", styled, "convert", "12", "in", "m", "--regular", "--min", "0.1" }, 0, "0.3048");
    row("--no-triads", { "convert", "12", "in", "m", "--no-triads" }, 0, "0.3048000");
    row("--scientific", { "convert", "12", "in", "m", "--scientific" }, 0, "3.048 000 E-1");
    row("--sigfigs 13, the most", { "convert", "12", "in", "m", "--sigfigs=13" }, 0,
        "0.304 800 000 000 0");
    row("--sigfigs 1, the fewest", { "convert", "12", "in", "m", "--sigfigs", "1" }, 0, "0.3");
    row("--max 1E+9, the largest", { "convert", "1", "mi", "mm", "--max", "1e9" }, 0, "1 609 344");
    row("--min 1E-9, the smallest", { "convert", "1", "nm", "m", "--min", "1e-9" }, 0,
        "0.000 000 001 000 000");

    // Conversions that fail: the message box's text alone, exit status 1
    row("number too big", { "convert", "1e308", "ly", "m" }, 1, "",
        "error: You have entered in a number that is too big to calculate!");
    row("value beyond the range of a double", { "convert", "1e400", "in", "m" }, 1, "",
        "error: You have entered in a number that is too big to calculate!");
    row("division by zero", { "convert", "1", "stride", "zero" }, 1, "",
        "error: " + StringTable::text(5711));

    // Names that are refused, exit status 2
    row("unknown unit: names beginning alike", { "convert", "1", "inc", "m" }, 2, "",
        "error: unknown unit \"inc\". Closest names: inch per second squared (in/s²) "
        "[Acceleration]; inch (in) [Length]; inch of mercury (conventional) (inHg) [Pressure or "
        "Stress]; inch of water (conventional) (inH2O) [Pressure or Stress]; inch of water "
        "(39.2 °F) [Pressure or Stress]; inch of water (60 °F) [Pressure or Stress]; inch per "
        "minute (in/min) [Velocity]; inch per second (in/s) [Velocity].");
    row("unknown unit: names beginning like it", { "convert", "1", "metres", "in" }, 2, "",
        "error: unknown unit \"metres\". Closest names: metre per second squared (m/s²) "
        "[Acceleration]; metre (m) [Length]; metre of water (4 °C) [Pressure or Stress]; metre "
        "per second (m/s) [Velocity]; metre per minute (m/min) [Velocity]; metre kelvin per "
        "watt [Thermal Resistivity].");
    row("unknown unit in the quantity given",
        { "convert", "1", "inch", "metr", "--quantity", "Length" }, 2, "",
        "error: unknown unit \"metr\" in Length. Closest names: metre (m); picometre (pm); "
        "nanometre (nm); micrometre (µm); millimetre (mm); centimetre (cm); decimetre (dm); "
        "decametre (dam).");
    row("unknown unit, nothing near", { "convert", "1", "ångström", "xyz" }, 2, "",
        "error: unknown unit \"xyz\". \"mensura-cli units QUANTITY\" lists the units of a "
        "quantity.");
    row("unit of another quantity than the one given",
        { "convert", "1", "kg", "lb", "--quantity", "Length" }, 2, "",
        "error: unknown unit \"kg\" in Length. \"mensura-cli units QUANTITY\" lists the units of "
        "a quantity.");
    row("a very long name is cut short", { "convert", "1", QString(10000, u'x'), "m" }, 2, "",
        "error: unknown unit \"" + QString(59, u'x') + QStringLiteral("\u2026\". \"mensura…"));
    row("several units of one quantity", { "convert", "1", "foot", "m" }, 2, "",
        "error: \"foot\" names several units of Length: foot (ft); foot (US survey). Give the "
        "full name.");
    row("units of several quantities", { "convert", "1", "°F", "°C" }, 2, "",
        "error: \"°F\" and \"°C\" are units of several quantities: Temperature, Temperature "
        "Interval. Choose one with --quantity.");
    row("no quantity holds both", { "convert", "1", "m", "s" }, 2, "",
        "error: no quantity holds both \"m\" (Length) and \"s\" (Time).");
    row("switched-off unit", { "convert", "1", "square inch (in²)", "m²" }, 2, "",
        "error: the unit \"square inch (in²)\" of Area is switched off in the catalogue.");
    row("switched-off unit of the first quantity", { "convert", "1", "milligal (mGal)", "Gal" }, 2,
        "",
        "error: the unit \"milligal (mGal)\" of Acceleration is switched off in the catalogue.");
    row("switched-off unit of the user's", { "convert", "1", "stride", "HIDDEN" }, 2, "",
        "error: the unit \"hidden\" of Reach is switched off in the catalogue.");
    row("unit of a switched-off quantity", { "convert", "1", "lambert (L)", "cd/m2" }, 2, "",
        "error: the quantity \"Luminance\" is switched off in the catalogue.");
    row("switched-off quantity given", { "convert", "1", "in", "m", "--quantity", "luminance" }, 2,
        "", "error: the quantity \"Luminance\" is switched off in the catalogue.");
    row("unknown quantity", { "convert", "1", "in", "m", "--quantity", "Lenght" }, 2, "",
        "error: unknown quantity \"Lenght\". Closest names: Length.");
    row("unknown quantity near the user's", { "convert", "1", "in", "m", "--quantity", "Reac" }, 2,
        "", "error: unknown quantity \"Reac\". Closest names: Reach.");
    row("the value is judged before the names", { "convert", "dozen", "furlong", "m" }, 2, "",
        "error: \"dozen\" is not a number.");
    row("a value without a digit at its start", { "convert", "--", "-inf", "in", "m" }, 2, "",
        "error: \"-inf\" is not a number.");
    row("an empty value", { "convert", "", "in", "m" }, 2, "", "error: \"\" is not a number.");

    // The units of a quantity, their factor texts and marks
    row("units of the user's quantity", { "units", "Reach", "--tsv" }, 0,
        "hand-width\t0.1\texact\tdefault\tcustom\ton\n"
        "stride\t0.75\tinexact\t\tcustom\ton\n"
        "zero\t0\tinexact\t\tcustom\ton\n");
    row("switched-off units with --all, in columns", { "units", "reach", "--all" }, 0,
        "Reach (default unit: hand-width)\n"
        "  hand-width  0.1   exact    default, custom\n"
        "  stride      0.75  inexact  custom\n"
        "  zero        0     inexact  custom\n"
        "  hidden      2     exact    custom, switched off\n");
    row("temperatures convert by formulas", { "units", "Temperature" }, 0,
        "Temperature (default unit: Celsius (°C))\n"
        "  Celsius (°C)     by formula  default\n"
        "  kelvin (K)       by formula\n"
        "  Fahrenheit (°F)  by formula\n"
        "  Rankine (°R)     by formula\n");
    row("a switched-off quantity with --all", { "units", "Luminance", "--all", "--tsv" }, 0,
        "candela per square metre (cd/m²)\t1\texact\tdefault\tbuiltin\ton\n"
        "nit (nt)\t1\texact\t\tbuiltin\ton\n"
        "kilocandela per square metre (kcd/m²)\t1000\texact\t\tbuiltin\ton\n"
        "stilb (sb)\t10000\texact\t\tbuiltin\ton\n"
        "candela per square foot (cd/ft²)\t10.7639104167097\tinexact\t\tbuiltin\ton\n"
        "candela per square inch (cd/in²)\t1550.00310000620\tinexact\t\tbuiltin\ton\n"
        "footlambert (fL)\t3.42625909963539\tinexact\t\tbuiltin\ton\n"
        "lambert (L)\t3183.09886183791\tinexact\t\tbuiltin\ton\n");
    row("a switched-off quantity", { "units", "Luminance" }, 2, "",
        "error: the quantity \"Luminance\" is switched off in the catalogue.\n");
    row("an unknown quantity", { "units", "Lenght" }, 2, "",
        "error: unknown quantity \"Lenght\". Closest names: Length.\n");
    row("two quantities", { "units", "Length", "Mass" }, 2, "",
        "error: units takes at most one QUANTITY.…");

    // What a text matches: rank, how, unit, quantity, the form matched, and the verdict
    row("a common name before symbols", { "units", "--find", "L" }, 0,
        "\"L\" is litre (l) [Volume].\n"
        "  rank  unit             quantity  matched as\n"
        "  3     litre (l)        Volume    common name L\n"
        "  5     right angle (L)  Angle     symbol L\n");
    row("a tie names no one unit", { "units", "--find", "mph" }, 0,
        "\"mph\" names no one unit: 2 match it equally well.\n"
        "  rank  unit                 quantity     matched as\n"
        "  5     milliphot (mph)      Illuminance  symbol mph\n"
        "  5     mile per hour (mph)  Velocity     symbol mph\n");
    row("tied units for scripts", { "units", "--find", "mph", "--tsv" }, 0,
        "5\tsymbol\tmilliphot (mph)\tIlluminance\tmph\ttied\n"
        "5\tsymbol\tmile per hour (mph)\tVelocity\tmph\ttied\n");
    row("the unit chosen over a worse match", { "units", "--find", "lbf-ft", "--tsv" }, 0,
        "6\ttyped-symbol\tpound-force foot (lbf·ft)\tTorque\tlbf·ft\tchosen\n"
        "7\tswapped-symbol\tfoot pound-force (ft·lbf)\tEnergy\tft·lbf\t\n");
    row("only within the quantity given", { "units", "--find", "F", "--quantity", "temperature" },
        0,
        "\"F\" is Fahrenheit (°F) [Temperature].\n"
        "  rank  unit             quantity     matched as\n"
        "  6     Fahrenheit (°F)  Temperature  symbol °F as typed on a keyboard\n");
    row("the user's own unit in another case", { "units", "--find", "STRIDE", "--tsv" }, 0,
        "2\tname\tstride\tReach\tstride\tchosen\n");
    row("look-alike letters", { "units", "--find", "\u043C" }, 2, "",
        "error: unknown unit \"\u043C\". Closest names: metre (m) [Length].\n");
    row("symbols only", { "units", "--find", "%$#@!" }, 2, "", "error: unknown unit \"%$#@!\".…");
    row("in an unknown quantity", { "units", "--find", "m", "--quantity", "Lenght" }, 2, "",
        "error: unknown quantity \"Lenght\". Closest names: Length.\n");
    row("with a quantity operand", { "units", "Length", "--find", "m" }, 2, "",
        "error: units --find TEXT takes no QUANTITY…");

    // A value in every unit of its quantity
    const QString heading = StringTable::text(85) + u'\n' + StringTable::text(89) + "\n\n\n";
    row("report of a temperature", { "report", "100", "Celsius (°C)" }, 0,
        heading
            + "     1.     100  Celsius (°C)  =  100.000 0  Celsius (°C)  [Temperature]\n"
              "     2.     100  Celsius (°C)  =  373.150 0  kelvin (K)  [Temperature]\n"
              "     3.     100  Celsius (°C)  =  212.000 0  Fahrenheit (°F)  [Temperature]\n"
              "     4.     100  Celsius (°C)  =  671.670 0  Rankine (°R)  [Temperature]\n");
    row("report of the user's enabled units, figures from the options",
        { "report", "2", "stride", "--quantity", "REACH", "--sigfigs", "1" }, 1,
        heading
            + "     1.     2  stride  =  20  hand-width  [Reach]\n"
              "     2.     2  stride  =  2  stride  [Reach]\n"
              "     3.     2  stride  =    zero  [Reach]\n",
        "error: " + StringTable::text(5711) + u'\n');
    row("report of a value read in part, as typed",
        { "report", "1,5", "Celsius", "--quantity", "Temperature" }, 0,
        heading
            + "     1.     1,5  Celsius (°C)  =  1.000 000  Celsius (°C)  [Temperature]\n"
              "     2.     1,5  Celsius (°C)  =  274.150 0  kelvin (K)  [Temperature]\n"
              "     3.     1,5  Celsius (°C)  =  33.800 00  Fahrenheit (°F)  [Temperature]\n"
              "     4.     1,5  Celsius (°C)  =  493.470 0  Rankine (°R)  [Temperature]\n",
        "note: \"1,5\" was read as 1\n");
    row("report of no number", { "report", "abc", "in" }, 2, "",
        "error: \"abc\" is not a number.\n");
    row("report in an unknown unit", { "report", "1", "furlongs per fortnight" }, 2, "",
        "error: unknown unit \"furlongs per fortnight\".…");
    row("report in a switched-off unit", { "report", "1", "square inch (in²)" }, 2, "",
        "error: the unit \"square inch (in²)\" of Area is switched off in the catalogue.\n");
    row("report in a unit not in the quantity named", { "report", "1", "in", "--quantity", "Mass" },
        2, "", "error: unknown unit \"in\" in Mass.…");
    row("report in an unknown quantity", { "report", "1", "m", "--quantity", "Nothing" }, 2, "",
        "error: unknown quantity \"Nothing\".…");
    row("report in a unit of several quantities", { "report", "1", "W" }, 2, "",
        "error: \"W\" is a unit of several quantities: Power, Heat Flow Rate. Choose one with "
        "--quantity.\n");
    row("report in a unit named ambiguously", { "report", "1", "mile" }, 2, "",
        "error: \"mile\" names several units of Length: mile (mi); mile (US survey).…");
    row("report with one operand", { "report", "1" }, 2, "",
        "error: report takes VALUE FROM_UNIT.…");

    // A conversions file's records
    const QByteArray fileHeading = "Conversion report generated by Mensura 98\r\n\r\n\r\n";
    const QString records = writeFile("records.txt",
        fileHeading
            + "     1.     12  inch (in)  =  30.48  centimetre (cm)  [Length]\r\n"
              "     2.     1  a\tb  =  2  \"c\"  [q]\r\n"
              "     \"3.     1  a,b  =  2  c  [q]\"\r\n");
    row("records tab-separated, a tab in a text made a blank", { "records", records }, 0,
        "12\tinch (in)\t30.48\tcentimetre (cm)\tLength\n"
        "1\ta b\t2\t\"c\"\tq\n"
        "1\ta,b\t2\tc\tq\n");
    row("records as CSV, quoted where a text needs it", { "records", records, "--csv" }, 0,
        "12,inch (in),30.48,centimetre (cm),Length\r\n"
        "1,a\tb,2,\"\"\"c\"\"\",q\r\n"
        "1,\"a,b\",2,c,q\r\n");
    const QString cp1252 = writeFile("cp1252.txt",
        fileHeading
            + "     1.     100  Celsius (\xB0"
              "C)  =  212  Fahrenheit (\xB0"
              "F)  [Temperature]\n");
    row("records of a Windows-1252 file as UTF-8", { "records", cp1252 }, 0,
        "100\tCelsius (°C)\t212\tFahrenheit (°F)\tTemperature\n");
    row("records of a file without any", { "records", writeFile("none.txt", fileHeading) }, 0, "");
    row("records after a damaged one are not read",
        { "records",
            writeFile("damaged.txt",
                fileHeading
                    + "     1.     1  a  =  2  b  [q]\r\n     2.     no separators here\r\n"
                      "     3.     3  c  =  4  d  [q]\r\n") },
        1, "1\ta\t2\tb\tq\n",
        "error: \"" + m_dir.filePath("damaged.txt") + "\", line 5: not a conversion record…");
    const QString foreign = "error: " + StringTable::text(274) + QChar(0x2026);
    row("records of a foreign text", { "records", writeFile("csv.txt", "Name,Value\r\nx,1\r\n") },
        2, "", foreign);
    row("records of an empty file", { "records", writeFile("empty.txt", "") }, 2, "", foreign);
    row("records of binary garbage",
        { "records", writeFile("binary.txt", QByteArray("\x00\xFF\xFE\x01\x80", 5)) }, 2, "",
        foreign);
    row("records of a file that is not there", { "records", m_dir.filePath("missing.txt") }, 2, "",
        "error: cannot read \"" + m_dir.filePath("missing.txt") + "\": …");
    row("records with -o", { "records", records, "-o", "y.txt" }, 2, "",
        "error: -o FILE is for the report command only.…");

    // Batches: one line out for each line in, in order
    const QStringList batch { "convert", "--batch" };
    const QString badLine
        = QStringLiteral("expected VALUE<TAB>FROM_UNIT<TAB>TO_UNIT[<TAB>QUANTITY].");
    row("batch lines in order with their errors", batch, 1,
        "0.304 800 0\n"
        "error: line 2: \"abc\" is not a number.\n"
        "212.000 0\n"
        "error: line 4: \"foot\" names several units of Length: foot (ft); foot (US survey). "
        "Give the full name.\n"
        "error: line 5: "
            + badLine
            + "\n"
              "error: line 6: "
            + badLine
            + "\n"
              "0.000 000 E+0\n"
              "error: line 8: You have entered in a number that is too big to calculate!\n"
              "error: line 9: "
            + StringTable::text(5711)
            + "\n"
              "23\n"
              "error: line 11: "
            + badLine
            + "\n"
              "25.400 00\n",
        "warning: line 7: " + StringTable::text(371)
            + " (value taken as -273.15)\n"
              "note: line 12: \"1,500\" was read as 1\n"
              "error: 7 of 12 lines could not be converted.\n",
        "12\tinch (in)\tmetre (m)\nabc\tin\tm\n100\tCelsius\tFahrenheit\n1\tfoot\tm\n1\tin\n\n"
        "-300\tCelsius\tkelvin\n1e308\tly\tm\n1\tstride\tzero\n3\tstride\thand-width\n"
        "1\tin\tm\tLength\textra\n1,500\tin\tmm\n");
    // °F and °C are units of Temperature and of Temperature Interval: 212 °F is 100 °C, a
    // difference of 212 °F is one of 117.8 °C
    const QStringList interval = batch + QStringList { "--quantity", "temperature interval" };
    row("batch: the fourth field names the quantity", batch, 0, "100.000 0", "",
        "212\t°F\t°C\tTemperature\n");
    row("batch: --quantity for the lines without one", interval, 0, "117.777 8", "",
        "212\t°F\t°C\n");
    row("batch: the fourth field before --quantity", interval, 0, "100.000 0", "",
        "212\t°F\t°C\tTemperature\n");
    row("batch: an empty fourth field means --quantity", interval, 0, "117.777 8", "",
        "212\t°F\t°C\t\n");
    row("batch: --verbose puts the status after a tab", batch + QStringList { "--verbose" }, 0,
        "25.400 00\tExact Factors  (Current: 7)", "", "1\tin\tmm\n");
    row("batch: options apply to every line",
        batch + QStringList { "--sigfigs", "2", "--no-triads" }, 0, "25\n51", "",
        "1\tin\tmm\n2\tin\tmm\n");
    row("batch: CR LF line ends", batch, 0, "0.304 800 0\n212.000 0", "",
        "12\tin\tm\r\n100\tCelsius\tFahrenheit\r\n");
    row("batch: last line without a line break", batch, 0, "0.304 800 0\n212.000 0", "",
        "12\tin\tm\n100\tCelsius\tFahrenheit");
    row("batch: no input at all", batch, 0, "");
    // Blanks inside a number are skipped: this is 12 however many blanks follow it.
    row("batch: a line longer than a read block", batch, 0, "25.400 00\n0.304 800 0\n25.400 00",
        "note: line 2: \"12" + QString(57, u' ') + QStringLiteral("\u2026\" was read as 12"),
        "1\tin\tmm\n12" + QByteArray(3 << 20, ' ') + "kg\tin\tm\n1\tin\tmm\n");
    // Some 4 MB: lines cut at the ends of the read blocks, each answered in its place.
    QByteArray many;
    QString answers, notes;
    for (int i = 0; i < 40000; ++i) {
        many += "12\tinch (in)\tmetre (m)\n1.5 in\tin\tmm\t\n-40\tC\tF\tTemperature\n"
                "12345.678\tmi\tm\tLength\n";
        answers += QStringLiteral("0.304 800 0\n38.100 00\n-40.000 00\n1.986 844 E+7\n");
        notes += QStringLiteral("note: line %1: \"1.5 in\" was read as 1.5\n").arg(4 * i + 2);
    }
    row("batch: many lines across read blocks", batch, 0, answers, notes, many);

    // Command lines that are refused, exit status 2
    auto refused = [&row](const char *name, const QStringList &arguments, const QString &err) {
        row(name, arguments, 2, "", "error: " + err);
    };
    const QStringList oneInch { "convert", "1", "in", "m" };
    const QString sigFigs = QStringLiteral("--sigfigs must be a whole number from 1 to 13, not ");
    refused("--sigfigs 0", oneInch + QStringList { "--sigfigs", "0" }, sigFigs + "\"0\".");
    refused("--sigfigs 14", oneInch + QStringList { "--sigfigs", "14" }, sigFigs + "\"14\".");
    refused(
        "--sigfigs not whole", oneInch + QStringList { "--sigfigs", "2.5" }, sigFigs + "\"2.5\".");
    refused("--sigfigs not a number", oneInch + QStringList { "--sigfigs=many" },
        sigFigs + "\"many\".");
    refused("--max above 1E+9", oneInch + QStringList { "--max", "1.000001e9" },
        "--max must be a number no larger than 1E+9, not \"1.000001e9\".");
    refused("--min below 1E-9", oneInch + QStringList { "--min", "0.999999e-9" },
        "--min must be a number no smaller than 1E-9, not \"0.999999e-9\".");
    refused("--max without a value", oneInch + QStringList { "--max" }, "--max needs a value.…");
    refused("--hive with an empty value", oneInch + QStringList { "--hive=" },
        "--hive needs a value.…");
    refused("unknown option", oneInch + QStringList { "--fast" }, "unknown option \"--fast\".…");
    refused("too few operands", { "convert", "1", "in" },
        "convert takes VALUE FROM_UNIT TO_UNIT, or --batch.…");
    refused("too many operands", oneInch + QStringList { "cm" },
        "convert takes VALUE FROM_UNIT TO_UNIT, or --batch.…");
    refused("batch with operands", { "convert", "--batch", "1" },
        "convert --batch reads its conversions from standard input and takes no VALUE or units.…");
    refused("unknown command", { "translate", "1", "in", "m" }, "unknown command \"translate\"…");
    refused("no command", {}, "no command given…");
    refused("-o for another command", oneInch + QStringList { "-o", "x.txt" },
        "-o FILE is for the report command only.…");
    refused("--find for another command", oneInch + QStringList { "--find", "m" },
        "--find TEXT is for the units command only.…");
    refused("settings file that is not there",
        oneInch + QStringList { "--hive", "/nonexistent/mensura.reg" },
        "cannot read the settings file \"/nonexistent/mensura.reg\".");
}

void tst_MensuraCli::commandLines()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QString, out);
    QFETCH(QString, err);
    QFETCH(QByteArray, input);
    const CliRun run = runCli(QStringList { "--hive", m_hive } + arguments, input);
    compareStream(run.err, err);
    compareStream(run.out, out);
    QCOMPARE(run.exitCode, status);
}

// A program that writes a line and waits for its answer, as with a co-process.
void tst_MensuraCli::batchAnswersEachLineAsItArrives()
{
    QProcess process;
    process.start(QStringLiteral(MENSURA_CLI),
        { QStringLiteral("convert"), QStringLiteral("--batch"), QStringLiteral("--hive"), m_hive });
    QVERIFY(process.waitForStarted());
    auto answer = [&process](const QByteArray &line) {
        process.write(line);
        QByteArray got;
        while (!got.endsWith('\n') && process.waitForReadyRead(10000))
            got += process.readAllStandardOutput();
        return got;
    };
    QCOMPARE(answer("12\tin\tm\n"), QByteArray("0.304 800 0\n"));
    QCOMPARE(answer("100\tCelsius\tFahrenheit\n"), QByteArray("212.000 0\n"));
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
}

void tst_MensuraCli::quantitiesAreTheEnabledOnesInAlphabeticalOrder()
{
    QStringList expected;
    for (int q = 1; q <= m_catalogue.QuantityCount; ++q)
        if (m_catalogue.Quantities[q].enabled())
            expected.append(m_catalogue.Quantities[q].Name);
    std::sort(expected.begin(), expected.end(),
        [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    QCOMPARE(expected.size(), 43); // 43 built in, one switched off, one of the user's

    const CliRun run = runCli({ "units", "--tsv", "--hive", m_hive });
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.out.split(u'\n', Qt::SkipEmptyParts);
    QStringList names;
    for (const QString &line : lines)
        names.append(line.section(u'\t', 0, 0));
    QCOMPARE(names, expected);
    QVERIFY(lines.contains(QStringLiteral("Reach\t3\thand-width\tcustom\ton")));
    QVERIFY(lines.contains(
        QStringLiteral("Acceleration\t6\tmetre per second squared (m/s²)\tbuiltin\ton")));

    const QStringList all = runCli({ "units", "--tsv", "--all", "--hive", m_hive })
                                .out.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(all.size(), 44);
    QCOMPARE(all.filter(QStringLiteral("Luminance\t")),
        QStringList { "Luminance\t8\tcandela per square metre (cd/m²)\tbuiltin\toff" });
}

// Saved with -o, the report is the conversions file the desktop program writes (code page
// 1252, CR LF): it holds the lines printed, and "records" reads them back.
void tst_MensuraCli::savedReportLoadsBack()
{
    const QString path = m_dir.filePath(QStringLiteral("temperature.txt"));
    const CliRun saved = runCli({ "report", "100", "Celsius (°C)", "-o", path, "--hive", m_hive });
    QCOMPARE(saved.err + saved.out, QString());
    QCOMPARE(saved.exitCode, 0);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString printed = runCli({ "report", "100", "Celsius (°C)", "--hive", m_hive }).out;
    QCOMPARE(file.readAll(), printed.toLatin1().replace("\n", "\r\n"));
    QCOMPARE(runCli({ "records", path }).out,
        "100\tCelsius (°C)\t100.000 0\tCelsius (°C)\tTemperature\n"
        "100\tCelsius (°C)\t373.150 0\tkelvin (K)\tTemperature\n"
        "100\tCelsius (°C)\t212.000 0\tFahrenheit (°F)\tTemperature\n"
        "100\tCelsius (°C)\t671.670 0\tRankine (°R)\tTemperature\n");
}

// A save that cannot be made is reported and leaves nothing behind. (How an existing file is
// kept whole on a failed save is the conversions file's own test.)
void tst_MensuraCli::failedSaveLeavesNothing()
{
    const QString gone = m_dir.filePath(QStringLiteral("gone/report.txt"));
    const CliRun run = runCli({ "report", "1", "in", "-o", gone, "--hive", m_hive });
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.startsWith("error: cannot save \"" + gone + "\": "), qPrintable(run.err));
    QVERIFY(!QFileInfo::exists(m_dir.filePath(QStringLiteral("gone"))));
}

void tst_MensuraCli::helpListsEveryOptionAndWinsOverErrors()
{
    const CliRun run = runCli({ "--help" });
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    for (const char *text : { "convert VALUE FROM_UNIT TO_UNIT", "--batch", "units [QUANTITY]",
             "units --find TEXT", "report VALUE FROM_UNIT", "records FILE", "--quantity",
             "--verbose", "--sigfigs", "--scientific", "--regular", "--no-triads", "--triads",
             "--max", "--min", "--hive", "--tsv", "--all", "--find", "--output", "--csv", "--help",
             "--version", "enabled", "absolute zero", "not a number", "Exit status" })
        QVERIFY2(run.out.contains(QString::fromUtf8(text)), text);
    QCOMPARE(runCli({ "-h" }).out, run.out);
    QCOMPARE(runCli({ "help" }).out, run.out);
    const CliRun wrong = runCli({ "convert", "--sigfigs", "99", "--fast", "--help" });
    QCOMPARE(wrong.exitCode, 0);
    QCOMPARE(wrong.out, run.out);
}

void tst_MensuraCli::settingsFileIsNeverWritten()
{
    // A settings file without "User" keys: reading them would create them in memory; nothing
    // of that may reach the file, nor a repair of its bad value. Named by --hive and by
    // MENSURA_HIVE.
    const QString hive = m_dir.filePath(QStringLiteral("untouched.reg"));
    writeHive(hive, { "numericformatting", "4", "scientific", "maybe" }, false);
    QFile file(hive);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();
    const QDateTime modified = QFileInfo(hive).lastModified();

    const CliRun named = runCli({ "convert", "12", "in", "m", "--hive", hive });
    QCOMPARE(named.out, "0.304 8\n");
    QCOMPARE(named.err,
        "warning: the settings store holds a bad value: Type mismatch: \"maybe\" is stored for "
        "\"scientific\"\n");
    QCOMPARE(runCli({ "convert", "12", "in", "m" }, QByteArray(), hive).out, "0.304 8\n");
    QCOMPARE(runCli({ "units", "--hive", hive }).exitCode, 0);
    QCOMPARE(runCli({ "report", "1", "in", "--hive", hive }).exitCode, 0);
    QCOMPARE(runCli({ "convert", "--batch", "--hive", hive }, "1\tin\tm\n").exitCode, 0);

    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), before);
    QCOMPARE(QFileInfo(hive).lastModified(), modified);
    QVERIFY(!QFile::exists(hive + QStringLiteral(".bad")));
}

QTEST_GUILESS_MAIN(tst_MensuraCli)
#include "tst_MensuraCli.moc"

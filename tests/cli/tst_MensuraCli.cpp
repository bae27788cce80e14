// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// mensura-cli as users run it, for what only the command line does: options and their
// precedence over the stored settings; units and quantities found through their names, with
// the messages for those it cannot take; refusals and exit statuses; the note on a value read
// only in part; batch lines in order across the blocks they are read in; the listings of
// quantities, units and what a text matches; reports and the records of conversions files.
// The number and name-matching rules themselves are the engine's and the matcher's tests; the
// figures here are worked out by hand from exact factors (1 in = 25.4 mm, 1 mi = 1609.344 m).
// Every run names its settings file with --hive, or sets MENSURA_HIVE itself, and the user's
// configuration folder is out of reach: a test never touches the user's own settings.
#include "catalogue/StringTable.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"
#include "support/TestFiles.h"

#include <algorithm>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

struct CliRun {
    int exitCode = -1;
    QString out;
    QString err;
};

static void startCli(
    QProcess &process, const QStringList &arguments, const QString &environmentHive = QString())
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("MENSURA_HIVE"));
    if (!environmentHive.isEmpty())
        environment.insert(QStringLiteral("MENSURA_HIVE"), environmentHive);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("/nonexistent-mensura"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(MENSURA_CLI), arguments);
}

static CliRun runCli(const QStringList &arguments, const QByteArray &input = QByteArray())
{
    QProcess process;
    startCli(process, arguments);
    process.write(input);
    process.closeWriteChannel();
    CliRun run;
    if (!process.waitForFinished(60000))
        return run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

// Writes a settings file through the program's own settings store: "settings" values in pairs
// of name and text and, unless told otherwise, the catalogue the tests share: the built-in one
// with Luminance and "milligal (mGal)" of Acceleration, its first quantity, switched off, and the
// user's quantity Reach of "hand-width" (default, exact 0.1), "stride" (0.75, two figures), "zero"
// (a factor of 0) and "hidden" (switched off).
static void writeHive(const QString &fileName, const QStringList &settings, bool catalogue = true)
{
    SettingsStore store(std::make_unique<HiveFile>(fileName));
    {
        SettingsStore::Batch batch(store);
        QStringList values { "settings", "triads", "1" }; // a file, even for no values
        for (qsizetype i = 0; i + 1 < settings.size(); i += 2)
            values += { "settings", settings[i], settings[i + 1] };
        if (catalogue)
            values += { "User\\OnOff\\Luminance", "OnOff", "0", "User\\OnOff\\Acceleration",
                "milligal (mGal)", "0", "User\\NewQuans\\Reach", "DefaultUnit", "hand-width",
                "User\\Units\\Reach", "hand-width", "c0.1", "User\\Units\\Reach", "stride", "a0.75",
                "User\\Units\\Reach", "zero", "a0", "User\\Units\\Reach", "hidden", "d2" };
        for (qsizetype i = 0; i + 2 < values.size(); i += 3)
            store.RegWriteString(values[i], values[i + 1], values[i + 2]);
    }
    QVERIFY2(store.close() && !store.saveFailed(), qPrintable(store.errorText()));
}

class tst_MensuraCli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void commandLines_data();
    void commandLines();
    void quantitiesAreTheEnabledOnesInAlphabeticalOrder();
    void reportAndBatchOnASettingsFileOnlyRead();

private:
    QString writeFile(const char *name, const QByteArray &bytes) const;

    QTemporaryDir m_dir;
    QString m_hive; // the shared catalogue, stored settings at their defaults
    QString m_styled; // the same with four figures, scientific, no triads, max 100, min 0.5
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
}

// The file written, quoted for a command line.
QString tst_MensuraCli::writeFile(const char *name, const QByteArray &bytes) const
{
    const QString path = m_dir.filePath(QString::fromUtf8(name));
    return putFile(path, bytes) ? u'"' + path + u'"' : QString();
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
    QTest::addColumn<QString>("command"); // after "--hive" and the shared settings file
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");
    QTest::addColumn<QByteArray>("input");

    auto row = [](const char *name, const QString &command, int status, const QString &out,
                   const QString &err = QString(), const QByteArray &input = QByteArray()) {
        QTest::newRow(name) << command << status << out << err << input;
    };
    // Exit status 2, nothing written but the error.
    auto refused = [&row](const char *name, const QString &command, const QString &err) {
        row(name, command, 2, QString(), "error: " + err);
    };
    const QString styled = "--hive \"" + m_styled + "\" convert ";
    // Arguments, and names through the matcher: 12 in = 0.3048 m, exact, seven figures
    row("option before the command, its value after =", "--quantity=Length convert 12 in m", 0,
        "0.304 800 0");
    row("a negative value is no option", "convert -12 in m", 0, "-0.304 800 0");
    row("nor a negative fraction", "convert -.5 in mm", 0, "-12.700 00");
    row("--verbose adds the status text", "convert 12 in m --verbose", 0,
        "0.304 800 0\nExact Factors  (Current: 7)");
    row("--version", "--version", 0, QStringLiteral("mensura-cli " MENSURA_VERSION));

    // The value as the value box reads it, with a note when only its start is a number
    row("thousands comma", "convert 1,500 in mm", 0, "25.400 00", "note: \"1,500\" was read as 1");
    row("below absolute zero the value is taken as absolute zero", "convert -300 Celsius kelvin", 0,
        "0.000 000 E+0", "warning: " + StringTable::text(371) + " (value taken as -273.15)");

    // Options over the stored settings, and at their bounds; 1 in = 25.4 mm
    row("stored settings", styled + "1 in mm", 0, "2.540E+1");
    row("--sigfigs and --triads over the stored ones", styled + "1 in mm --sigfigs 6 --triads", 0,
        "2.540 00E+1");
    row("--regular, --max and --min over the stored ones, for every line of a batch",
        styled + "--batch --regular --max 1000 --min 0.1", 0, "304.8\n0.3048", "",
        "12\tin\tmm\n12\tin\tm\n");
    row("--no-triads, --scientific, --sigfigs 13",
        "convert 12 in m --no-triads --scientific --sigfigs=13", 0, "3.048000000000E-1");
    row("--sigfigs 1, --max 1E+9, --min 1E-9", "convert 1 nm m --sigfigs 1 --max 1e9 --min 1e-9", 0,
        "0.000 000 001");

    // A conversion that fails: the message box's text alone, exit status 1
    row("value beyond the range of a double", "convert 1e400 in m", 1, "",
        "error: You have entered in a number that is too big to calculate!");

    // Names that are refused
    refused("unknown unit: names beginning alike, with their quantities", "convert 1 inc m",
        "unknown unit \"inc\". Closest names: inch per second squared (in/s²) [Acceleration]; "
        "inch (in) [Length]; …");
    refused("unknown unit in the quantity given", "convert 1 inch metr --quantity Length",
        "unknown unit \"metr\" in Length. Closest names: metre (m); picometre (pm); …");
    refused("a very long name is cut short, nothing near it",
        "convert 1 " + QString(10000, u'x') + " m",
        "unknown unit \"" + QString(59, u'x')
            + QStringLiteral(
                "\u2026\". \"mensura-cli units QUANTITY\" lists the units of a quantity."));
    refused("several units of one quantity", "convert 1 foot m",
        "\"foot\" names several units of Length: foot (ft); foot (US survey). Give the full name.");
    refused("units of several quantities", "convert 1 °F °C",
        "\"°F\" and \"°C\" are units of several quantities: Temperature, Temperature Interval. "
        "Choose one with --quantity.");
    refused("no quantity holds both", "convert 1 m s",
        "no quantity holds both \"m\" (Length) and \"s\" (Time).");
    const QString off = QStringLiteral(" is switched off in the catalogue.");
    refused("switched-off unit of the first quantity", "convert 1 \"milligal (mGal)\" Gal",
        "the unit \"milligal (mGal)\" of Acceleration" + off);
    refused("switched-off unit of the user's", "convert 1 stride HIDDEN",
        "the unit \"hidden\" of Reach" + off);
    refused("unit of a switched-off quantity", "convert 1 \"lambert (L)\" cd/m2",
        "the quantity \"Luminance\"" + off);
    refused("unknown quantity near the user's", "convert 1 in m --quantity Reac",
        "unknown quantity \"Reac\". Closest names: Reach.");
    refused("the value is judged before the names", "convert dozen furlong m",
        "\"dozen\" is not a number.");

    // The units of a quantity, their factor texts and marks
    row("switched-off units with --all, in columns", "units reach --all", 0,
        "Reach (default unit: hand-width)\n"
        "  hand-width  0.1   exact    default, custom\n"
        "  stride      0.75  inexact  custom\n"
        "  zero        0     inexact  custom\n"
        "  hidden      2     exact    custom, switched off\n");
    row("temperatures convert by formulas", "units Temperature", 0,
        "Temperature (default unit: Celsius (°C))\n  Celsius (°C)     by formula  default\n…");
    row("a switched-off quantity with --all", "units Luminance --all --tsv", 0,
        "candela per square metre (cd/m²)\t1\texact\tdefault\tbuiltin\ton\n"
        "nit (nt)\t1\texact\t\tbuiltin\ton\n…");
    refused("a switched-off quantity", "units Luminance", "the quantity \"Luminance\"" + off);
    refused("two quantities", "units Length Mass", "units takes at most one QUANTITY.…");
    refused("-- ends the options", "units -- --all", "unknown quantity \"--all\".…");

    // What a text matches: rank, how, unit, quantity, the form matched, and the verdict
    row("a tie names no one unit", "units --find mph", 0,
        "\"mph\" names no one unit: 2 match it equally well.\n  rank  unit  …");
    row("the unit chosen over a worse match", "units --find lbf-ft --tsv", 0,
        "6\ttyped-symbol\tpound-force foot (lbf·ft)\tTorque\tlbf·ft\tchosen\n"
        "7\tswapped-symbol\tfoot pound-force (ft·lbf)\tEnergy\tft·lbf\t\n");
    row("only within the quantity given", "units --find F --quantity temperature", 0,
        "\"F\" is Fahrenheit (°F) [Temperature].\n"
        "  rank  unit             quantity     matched as\n"
        "  6     Fahrenheit (°F)  Temperature  symbol °F as typed on a keyboard\n");
    refused("symbols only", "units --find %$#@!", "unknown unit \"%$#@!\".…");
    refused(
        "with a quantity operand", "units Length --find m", "units --find TEXT takes no QUANTITY…");

    // A value in every unit of its quantity (a whole report: reportAndBatchOnASettingsFileOnlyRead)
    const QString heading = StringTable::text(85) + u'\n' + StringTable::text(89) + "\n\n\n";
    row("report of the user's enabled units, figures from the options",
        "report 2 stride --quantity REACH --sigfigs 1", 1,
        heading
            + "     1.     2  stride  =  20  hand-width  [Reach]\n"
              "     2.     2  stride  =  2  stride  [Reach]\n"
              "     3.     2  stride  =    zero  [Reach]\n",
        "error: " + StringTable::text(5711));
    row("report of a value read in part, as typed", "report 1,5 Celsius --quantity Temperature", 0,
        heading + "     1.     1,5  Celsius (°C)  =  1.000 000  Celsius (°C)  [Temperature]\n…",
        "note: \"1,5\" was read as 1");
    row("report below absolute zero: the message once, however many units raise it",
        "report -500 Celsius --quantity Temperature", 1,
        heading + "     1.     -500  Celsius (°C)  =  -500.000 0  Celsius (°C)  [Temperature]\n…",
        "error: " + StringTable::text(371));
    refused("report of no number", "report abc in", "\"abc\" is not a number.");
    refused("report in an unknown quantity", "report 1 m --quantity Nothing",
        "unknown quantity \"Nothing\".…");
    refused("report in a unit of several quantities", "report 1 W",
        "\"W\" is a unit of several quantities: Power, Heat Flow Rate. Choose one with "
        "--quantity.");
    refused("report with one operand", "report 1", "report takes VALUE FROM_UNIT.…");
    const QString gone = m_dir.filePath(QStringLiteral("gone/report.txt"));
    refused("report to a folder that is not there", "report 1 in -o \"" + gone + u'"',
        "cannot save \"" + gone + "\": …");

    // A conversions file's records (how files are read: the conversions file's own tests)
    const QByteArray fileHeading = "Conversion report generated by Mensura 98\r\n\r\n\r\n";
    const QString records = "records "
        + writeFile("records.txt",
            fileHeading
                + "     1.     12  inch (in)  =  30.48  centimetre (cm)  [Length]\r\n"
                  "     2.     1  a\tb  =  2  \"c\"  [q]\r\n     \"3.     1  a,b  =  2  c  "
                  "[q]\"\r\n");
    row("records tab-separated, a tab in a text made a blank", records, 0,
        "12\tinch (in)\t30.48\tcentimetre (cm)\tLength\n1\ta b\t2\t\"c\"\tq\n1\ta,b\t2\tc\tq\n");
    row("records as CSV, quoted where a text needs it", records + " --csv", 0,
        "12,inch (in),30.48,centimetre (cm),Length\r\n1,a\tb,2,\"\"\"c\"\"\",q\r\n"
        "1,\"a,b\",2,c,q\r\n");
    row("records after a damaged one are not read",
        "records "
            + writeFile("damaged.txt",
                fileHeading
                    + "     1.     1  a  =  2  b  [q]\r\n     2.     no separators here\r\n"
                      "     3.     3  c  =  4  d  [q]\r\n"),
        1, "1\ta\t2\tb\tq\n",
        "error: \"" + m_dir.filePath("damaged.txt") + "\", line 5: not a conversion record…");
    refused("records of a foreign text", "records " + writeFile("csv.txt", "Name,Value\r\nx,1\r\n"),
        StringTable::text(274) + QChar(0x2026));
    const QString missing = m_dir.filePath("missing.txt");
    refused("records of a file that is not there", "records \"" + missing + u'"',
        "cannot read \"" + missing + "\": …");

    // Batches: one line out for each line in, in order, whatever the line ends
    row("batch lines in order with their errors, CR LF and none at the end", "convert --batch", 1,
        QStringLiteral("0.304 800 0\nerror: line 2: \"abc\" is not a number.\n212.000 0\n"
                       "error: line 4: \"foot\" names several units of Length: foot (ft); foot "
                       "(US survey). Give the full name.\nerror: line 5: %1\nerror: line 6: %1\n"
                       "0.000 000 E+0\n"
                       "error: line 8: You have entered in a number that is too big to calculate!\n"
                       "error: line 9: %2\n23\nerror: line 11: %1\n25.400 00\n")
            .arg("expected VALUE<TAB>FROM_UNIT<TAB>TO_UNIT[<TAB>QUANTITY].",
                StringTable::text(5711)),
        "warning: line 7: " + StringTable::text(371)
            + " (value taken as -273.15)\nnote: line 12: \"1,500\" was read as 1\n"
              "error: 7 of 12 lines could not be converted.\n",
        "12\tinch (in)\tmetre (m)\r\nabc\tin\tm\n100\tCelsius\tFahrenheit\n1\tfoot\tm\n1\tin\n\n"
        "-300\tCelsius\tkelvin\n1e308\tly\tm\n1\tstride\tzero\n3\tstride\thand-width\n"
        "1\tin\tm\tLength\textra\n1,500\tin\tmm");
    // °F and °C are units of Temperature and of Temperature Interval: 212 °F is 100 °C, a
    // difference of 212 °F is one of 117.8 °C
    const QString interval = QStringLiteral("convert --batch --quantity \"temperature interval\"");
    row("batch: --quantity for lines without a fourth field or an empty one", interval, 0,
        "117.777 8\n100.000 0\n117.777 8", "",
        "212\t°F\t°C\n212\t°F\t°C\tTemperature\n212\t°F\t°C\t\n");
    row("batch: --verbose puts the status after a tab", "convert --batch --verbose", 0,
        "25.400 00\tExact Factors  (Current: 7)", "", "1\tin\tmm\n");
    row("batch: no input at all", "convert --batch", 0, "");
    // Blanks inside a number are skipped: this is 12 however many blanks follow it. The line
    // before it is answered from the first block, the one after from the last.
    row("batch: a line longer than a read block", "convert --batch", 0,
        "25.400 00\n0.304 800 0\n25.400 00",
        "note: line 2: \"12" + QString(57, u' ') + QStringLiteral("\u2026\" was read as 12"),
        "1\tin\tmm\n12" + QByteArray(3 << 20, ' ') + "kg\tin\tm\n1\tin\tmm\n");

    // Command lines that are refused
    const QString sigFigs = QStringLiteral("--sigfigs must be a whole number from 1 to 13, not ");
    for (const QString value : { "0", "14", "2.5", "many" })
        refused(qPrintable("--sigfigs " + value), "convert 1 in m --sigfigs=" + value,
            sigFigs + '"' + value + "\".");
    refused("--max above 1E+9", "convert 1 in m --max 1.000001e9",
        "--max must be a number no larger than 1E+9, not \"1.000001e9\".");
    refused("--min below 1E-9", "convert 1 in m --min 0.999999e-9",
        "--min must be a number no smaller than 1E-9, not \"0.999999e-9\".");
    refused("--max without a value", "convert 1 in m --max", "--max needs a value.…");
    refused("--hive with an empty value", "convert 1 in m --hive=", "--hive needs a value.…");
    refused("unknown option", "convert 1 in m --fast", "unknown option \"--fast\".…");
    const QString operands = QStringLiteral("convert takes VALUE FROM_UNIT TO_UNIT, or --batch.…");
    refused("too few operands", "convert 1 in", operands);
    refused("too many operands", "convert 1 in m cm", operands);
    refused("batch with operands", "convert --batch 1",
        "convert --batch reads its conversions from standard input and takes no VALUE or units.…");
    refused("unknown command", "translate 1 in m", "unknown command \"translate\"…");
    refused("no command", "", "no command given…");
    refused("-o for another command", "convert 1 in m -o x.txt",
        "-o FILE is for the report command only.…");
    refused("--find for another command", "convert 1 in m --find m",
        "--find TEXT is for the units command only.…");
    refused("settings file that is not there", "convert 1 in m --hive /nonexistent/mensura.reg",
        "cannot read the settings file \"/nonexistent/mensura.reg\".");
    // Help, however asked for, and even after errors
    for (const char *help : { "--help", "-h", "help", "convert --sigfigs 99 --fast --help" })
        row(help, help, 0,
            "Usage:\n  mensura-cli convert VALUE FROM_UNIT TO_UNIT [--quantity NAME]…");
}

void tst_MensuraCli::commandLines()
{
    QFETCH(QString, command);
    QFETCH(int, status);
    QFETCH(QString, out);
    QFETCH(QString, err);
    QFETCH(QByteArray, input);
    const CliRun run
        = runCli(QStringList { "--hive", m_hive } + QProcess::splitCommand(command), input);
    compareStream(run.err, err);
    compareStream(run.out, out);
    QCOMPARE(run.exitCode, status);
}

// 43 built in, one switched off, one of the user's: 43 listed, 44 with --all.
void tst_MensuraCli::quantitiesAreTheEnabledOnesInAlphabeticalOrder()
{
    const QStringList lines
        = runCli({ "units", "--tsv", "--hive", m_hive }).out.split(u'\n', Qt::SkipEmptyParts);
    QStringList names;
    for (const QString &line : lines)
        names.append(line.section(u'\t', 0, 0));
    QVERIFY(std::is_sorted(names.begin(), names.end(),
        [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; }));
    QCOMPARE(names.size(), 43);
    QVERIFY(lines.contains(QStringLiteral("Reach\t3\thand-width\tcustom\ton")));
    const QStringList all = runCli({ "units", "--tsv", "--all", "--hive", m_hive })
                                .out.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(all.size(), 44);
    QCOMPARE(all.filter(QStringLiteral("Luminance\t")),
        QStringList { "Luminance\t8\tcandela per square metre (cd/m²)\tbuiltin\toff" });
}

// A settings file without "User" keys: reading them would create them in memory; nothing of
// that may reach the file, nor a repair of its bad value, and the file is never saved at all.
void tst_MensuraCli::reportAndBatchOnASettingsFileOnlyRead()
{
    const QString hive = m_dir.filePath(QStringLiteral("untouched.reg"));
    writeHive(hive, { "numericformatting", "4", "scientific", "maybe" }, false);
    const QByteArray before = fileBytes(hive);
    QVERIFY(before.startsWith("Windows Registry Editor"));
    const QDateTime modified = QFileInfo(hive).lastModified();

    // Saved with -o, a report is the conversions file the desktop program writes (code page
    // 1252, CR LF) holding the lines printed. (How an existing file is kept whole on a failed
    // save is the conversions file's own test; how one is read back, too.)
    const QString path = m_dir.filePath(QStringLiteral("temperature.txt"));
    const CliRun saved = runCli({ "report", "100", "Celsius (°C)", "-o", path, "--hive", hive });
    QCOMPARE(saved.exitCode, 0);
    QCOMPARE(saved.out + saved.err,
        "warning: the settings store holds a bad value: Type mismatch: \"maybe\" is stored for "
        "\"scientific\"\n");
    const QString printed = runCli({ "report", "100", "Celsius (°C)", "--hive", hive }).out;
    QVERIFY(printed.contains(QStringLiteral("  =  373.2  kelvin (K)  [Temperature]\n")));
    QCOMPARE(fileBytes(path), printed.toLatin1().replace("\n", "\r\n"));

    // Named by MENSURA_HIVE, for a program that writes a line and waits for its answer, as
    // with a co-process: the answer comes before the input ends.
    QProcess batch;
    startCli(batch, { "convert", "--batch" }, hive);
    batch.write("12\tin\tm\n");
    QByteArray answer;
    while (!answer.endsWith('\n') && batch.waitForReadyRead(10000))
        answer += batch.readAllStandardOutput();
    QCOMPARE(answer, "0.304 8\n");
    batch.closeWriteChannel();
    QVERIFY(batch.waitForFinished());

    // Not even written again as it was.
    QCOMPARE(fileBytes(hive), before);
    QCOMPARE(QFileInfo(hive).lastModified(), modified);
    QVERIFY(!QFile::exists(hive + QStringLiteral(".bad")));
}

QTEST_GUILESS_MAIN(tst_MensuraCli)
#include "tst_MensuraCli.moc"

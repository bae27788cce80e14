// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// "mensura-cli convert VALUE FROM TO": the result box's text on standard output, the options
// for the number style, how units and quantities are named, and the exit status and message
// of everything that goes wrong. The expected figures are worked out by hand from the factors
// (inch 0.0254 m exactly, degree 1.74532925199433E-02 rad) and the formatting rules.
#include "CliProcess.h"

#include "catalogue/StringTable.h"

#include <QTemporaryDir>

class tst_CliConvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void converts_data();
    void converts();
    void verboseAddsTheStatusText_data();
    void verboseAddsTheStatusText();
    void storedSettingsAndOptions_data();
    void storedSettingsAndOptions();
    void handbookSpellings_data();
    void handbookSpellings();
    void valuesReadOnlyInPart_data();
    void valuesReadOnlyInPart();
    void namesThatAreRefused_data();
    void namesThatAreRefused();
    void argumentsThatAreRefused_data();
    void argumentsThatAreRefused();
    void conversionFailures_data();
    void conversionFailures();
    void temperatureBelowAbsoluteZeroIsCorrected();
    void helpDocumentsEveryOption();
    void versionIsTheProgramVersion();
    void settingsFileIsNeverWritten();

private:
    QStringList withHive(QStringList arguments) const;

    QTemporaryDir m_dir;
    QString m_hive;
};

// The catalogue used throughout: the built-in one, inch switched off in Area, Torque switched
// off, and a custom quantity "Reach" with units of every kind.
void tst_CliConvert::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_hive = m_dir.filePath(QStringLiteral("cli.reg"));
    writeHive(m_hive, [](SettingsStore &store) {
        store.RegWriteString(QStringLiteral("User\\OnOff\\Area"),
            QStringLiteral("square inch (in²)"), QStringLiteral("0"));
        store.RegWriteString(
            QStringLiteral("User\\OnOff\\Torque"), QStringLiteral("OnOff"), QStringLiteral("0"));
        const QString reach = QStringLiteral("Reach");
        store.RegWriteString(QStringLiteral("User\\NewQuans\\") + reach,
            QStringLiteral("DefaultUnit"), QStringLiteral("hand-width"));
        const QString units = QStringLiteral("User\\Units\\") + reach;
        store.RegWriteString(units, QStringLiteral("hand-width"), QStringLiteral("c0.1"));
        store.RegWriteString(units, QStringLiteral("stride"), QStringLiteral("a0.75"));
        store.RegWriteString(units, QStringLiteral("zero"), QStringLiteral("a0"));
        store.RegWriteString(units, QStringLiteral("hidden"), QStringLiteral("b2"));
    });
}

// In front, so that it stays an option after a "--" among the arguments.
QStringList tst_CliConvert::withHive(QStringList arguments) const
{
    return QStringList { QStringLiteral("--hive"), m_hive } + arguments;
}

void tst_CliConvert::converts_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expected");

    auto row = [](const char *name, const QStringList &arguments, const QString &expected) {
        QTest::newRow(name) << arguments << expected;
    };
    // 12 x 0.0254 = 0.3048, exact: seven figures, grouped in threes
    row("inch to metre by full names", { "convert", "12", "inch (in)", "metre (m)" },
        "0.304 800 0");
    row("quantity named in any case", { "convert", "12", "in", "m", "--quantity", "length" },
        "0.304 800 0");
    row("options before the operands", { "--quantity=Length", "convert", "12", "in", "m" },
        "0.304 800 0");
    // The value is read as the value box reads it
    row("blanks inside the number", { "convert", "1 000", "in", "m" }, "25.400 00");
    row("exponent with D", { "convert", "1.2D1", "in", "m" }, "0.304 800 0");
    row("negative value", { "convert", "-12", "in", "m" }, "-0.304 800 0");
    row("value after --", { "convert", "--", "-12", "in", "m" }, "-0.304 800 0");
    // Temperature through Celsius: 100 x 1.8 + 32 = 212; -40 is -40 on both scales
    row("Celsius to Fahrenheit", { "convert", "100", "Celsius", "Fahrenheit" }, "212.000 0");
    row("minus forty", { "convert", "-40", "°C", "°F", "--quantity", "Temperature" }, "-40.000 00");
    row("kelvin to Rankine", { "convert", "100", "kelvin", "Rankine", "--quantity", "Temperature" },
        "180.000 0");
    // degree: factor text of 15 digits, counted as 13; 0.01745 is below 0.1: scientific
    row("degree to radian", { "convert", "1", "degree", "radian" }, "1.745 329 E-2");
    // 3 x 0.75 / 0.1 = 22.5; the factor 0.75 allows two figures, 22.5 rounds up to 23
    row("custom inexact unit limits the figures", { "convert", "3", "stride", "hand-width" }, "23");
    row("custom quantity named", { "convert", "2", "hand-width", "stride", "--quantity", "reach" },
        "0.27");
    // 1 ly = 9.4607304725808E15 m exactly: far above 1000
    row("large result in scientific notation", { "convert", "1", "ly", "m" }, "9.460 730 E+15");
}

void tst_CliConvert::converts()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, expected);
    const CliRun run = runCli(withHive(arguments));
    QCOMPARE(run.err, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, expected + u'\n');
}

void tst_CliConvert::verboseAddsTheStatusText_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("status");

    QTest::newRow("exact factors") << QStringList { "convert", "12", "in", "m",
        "--verbose" } << StringTable::text(5600) + StringTable::text(369) + QStringLiteral("7)");
    QTest::newRow("figures limited by the factor")
        << QStringList { "convert", "1", "degree", "radian", "--verbose", "--sigfigs", "5" }
        << StringTable::text(430) + QStringLiteral("13") + StringTable::text(369)
            + QStringLiteral("5)");
    QTest::newRow("custom factor of two figures")
        << QStringList { "convert", "3", "stride", "hand-width", "--verbose" }
        << StringTable::text(430) + QStringLiteral("2") + StringTable::text(369)
            + QStringLiteral("7)");
}

void tst_CliConvert::verboseAddsTheStatusText()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, status);
    const CliRun run = runCli(withHive(arguments));
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.out.split(u'\n');
    QCOMPARE(lines.size(), 3); // result, status, and the end of the last line
    QCOMPARE(lines[1], status);
}

void tst_CliConvert::storedSettingsAndOptions_data()
{
    QTest::addColumn<QStringList>("stored"); // value name, text, value name, text, ...
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("expected");

    const QStringList none;
    QTest::newRow("defaults") << none << none << "0.304 800 0";
    QTest::newRow("stored figures")
        << QStringList { "numericformatting", "4" } << none << "0.304 8";
    QTest::newRow("--sigfigs over the stored figures")
        << QStringList { "numericformatting", "4" } << QStringList { "--sigfigs", "3" } << "0.305";
    QTest::newRow("--sigfigs 13 shows all figures of an exact result")
        << none << QStringList { "--sigfigs=13" } << "0.304 800 000 000 0";
    QTest::newRow("--sigfigs 1") << none << QStringList { "--sigfigs", "1" } << "0.3";
    QTest::newRow("--no-triads") << none << QStringList { "--no-triads" } << "0.3048000";
    QTest::newRow("stored triads off") << QStringList { "triads", "0" } << none << "0.3048000";
    QTest::newRow("--triads over stored triads off")
        << QStringList { "triads", "0" } << QStringList { "--triads" } << "0.304 800 0";
    QTest::newRow("--scientific") << none << QStringList { "--scientific" } << "3.048 000 E-1";
    QTest::newRow("stored scientific")
        << QStringList { "scientific", "1" } << none << "3.048 000 E-1";
    QTest::newRow("--regular over stored scientific")
        << QStringList { "scientific", "1" } << QStringList { "--regular" } << "0.304 800 0";
    QTest::newRow("--max below the value")
        << none << QStringList { "--max", "0.3" } << "3.048 000 E-1";
    QTest::newRow("--max just above the value stays regular")
        << none << QStringList { "--max", "0.3048" } << "0.304 800 0";
    QTest::newRow("--min above the value")
        << none << QStringList { "--min", "0.5" } << "3.048 000 E-1";
    QTest::newRow("stored min above the value")
        << QStringList { "minnumber", "0.5" } << none << "3.048 000 E-1";
    QTest::newRow("--min over a stored min")
        << QStringList { "minnumber", "0.5" } << QStringList { "--min", "1e-9" } << "0.304 800 0";
}

void tst_CliConvert::storedSettingsAndOptions()
{
    QFETCH(QStringList, stored);
    QFETCH(QStringList, options);
    QFETCH(QString, expected);
    const QString hive = m_dir.filePath(QStringLiteral("settings.reg"));
    writeHive(hive, [&](SettingsStore &store) {
        for (qsizetype i = 0; i + 1 < stored.size(); i += 2)
            store.RegWriteString(QStringLiteral("settings"), stored[i], stored[i + 1]);
    });
    const CliRun run = runCli(QStringList { "convert", "12", "in", "m", "--hive", hive } + options);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, expected + u'\n');
}

// Units as handbooks write them, in the built-in catalogue. 1 kW·h = 3.6 MJ; 1 ft³/min =
// 0.4719474432 l/s; 1 ft² = 0.09290304 m²; (98.6 - 32) / 1.8 = 37; 1 psi = 6.894757293168 kPa;
// 1 lbf·ft = 1.3558179483314 N·m.
void tst_CliConvert::handbookSpellings_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expected");

    QTest::newRow("kWh to MJ") << QStringList { "1", "kWh", "MJ" } << "3.600 000";
    QTest::newRow("cfm to l/s") << QStringList { "100", "cfm", "l/s" } << "47.194 74";
    QTest::newRow("m2 to ft2") << QStringList { "12", "m2", "ft2" } << "129.166 9";
    QTest::newRow("F to C is a temperature") << QStringList { "98.6", "F", "C" } << "37.000 00";
    QTest::newRow("psi to kPa") << QStringList { "30", "psi", "kPa" } << "206.842 7";
    QTest::newRow("lbf-ft to N-m") << QStringList { "45", "lbf-ft", "N-m" } << "61.011 81";
}

void tst_CliConvert::handbookSpellings()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, expected);
    const QString hive = m_dir.filePath(QStringLiteral("builtin.reg"));
    if (!QFile::exists(hive))
        writeHive(hive, [](SettingsStore &) {});
    const CliRun run = runCli(QStringList { "convert", "--hive", hive } + arguments);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, expected + u'\n');
}

// The result is still written; a note says what the value was read as. 1 in = 25.4 mm.
void tst_CliConvert::valuesReadOnlyInPart_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("readAs"); // empty: no note

    QTest::newRow("tab in front") << "\t12"
                                  << "304.800 0"
                                  << "";
    QTest::newRow("blanks around") << " 12 "
                                   << "304.800 0"
                                   << "";
    QTest::newRow("thousands comma") << "1,500"
                                     << "25.400 00"
                                     << "1";
    QTest::newRow("fraction") << "3/8"
                              << "76.200 00"
                              << "3";
    QTest::newRow("mixed number, blank skipped") << "1 1/2"
                                                 << "279.400 0"
                                                 << "11";
    QTest::newRow("unit glued on") << "12kg"
                                   << "304.800 0"
                                   << "12";
    QTest::newRow("shortest text of the number read") << "2.50e-3 m"
                                                      << "6.350 000 E-2"
                                                      << "0.0025";
}

void tst_CliConvert::valuesReadOnlyInPart()
{
    QFETCH(QString, value);
    QFETCH(QString, result);
    QFETCH(QString, readAs);
    const CliRun run = runCli(withHive({ "convert", "--", value, "in", "mm" }));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, result + u'\n');
    QCOMPARE(run.err,
        readAs.isEmpty() ? QString()
                         : QStringLiteral("note: \"%1\" was read as %2\n").arg(value, readAs));
}

void tst_CliConvert::namesThatAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("mentioned"); // in the message, in any order

    auto row = [](const char *name, const QStringList &arguments, const QStringList &mentioned) {
        QTest::newRow(name) << arguments << mentioned;
    };
    row("unknown unit: names beginning alike", { "convert", "1", "inc", "m" },
        { "unknown unit \"inc\"", "inch (in) [Length]", "inch of mercury" });
    row("unknown unit: names containing it", { "convert", "1", "ångström", "xyz" },
        { "unknown unit \"xyz\"", "units QUANTITY" });
    row("unknown unit in the quantity given",
        { "convert", "1", "inch", "metr", "--quantity", "Length" },
        { "unknown unit \"metr\" in Length", "metre (m)", "millimetre (mm)" });
    row("misspelt unit: names beginning like it", { "convert", "1", "metres", "in" },
        { "unknown unit \"metres\"", "metre (m)" });
    row("two units of one quantity by the same short name", { "convert", "1", "foot", "m" },
        { "\"foot\" names several units of Length", "foot (ft)", "foot (US survey)" });
    row("units of several quantities", { "convert", "1", "°F", "°C" },
        { "several quantities", "Temperature", "Temperature Interval", "--quantity" });
    row("no quantity holds both", { "convert", "1", "m", "s" },
        { "no quantity holds both", "Length", "Time" });
    row("unit of another quantity than the one given",
        { "convert", "1", "kg", "lb", "--quantity", "Length" }, { "unknown unit \"kg\"" });
    row("switched-off unit", { "convert", "1", "square inch (in²)", "m²" },
        { "square inch (in²)", "switched off" });
    row("switched-off custom unit", { "convert", "1", "hidden", "stride" },
        { "\"hidden\" of Reach is switched off" });
    row("unit of a switched-off quantity",
        { "convert", "1", "newton metre (N·m) (kg·m²/s²)", "foot pound-force" },
        { "Torque", "switched off" });
    row("unknown quantity", { "convert", "1", "in", "m", "--quantity", "Lenght" },
        { "unknown quantity \"Lenght\"", "Length" });
    row("switched-off quantity", { "convert", "1", "in", "m", "--quantity", "torque" },
        { "Torque", "switched off" });
}

void tst_CliConvert::namesThatAreRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, mentioned);
    const CliRun run = runCli(withHive(arguments));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QVERIFY2(run.err.startsWith(QStringLiteral("error: ")), qPrintable(run.err));
    for (const QString &text : mentioned)
        QVERIFY2(run.err.contains(text), qPrintable(run.err));
}

void tst_CliConvert::argumentsThatAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("mentioned");

    auto row = [](const char *name, const QStringList &arguments, const char *mentioned) {
        QTest::newRow(name) << arguments << QString::fromUtf8(mentioned);
    };
    // No digit at the start of the value: it is refused, never read as 0.
    for (const char *value :
        { "abc", "dozen", "eleven", "e5", ".abc", "+abc", "-inf", "-NaN", "+", "", " ", "kg12" }) {
        const QByteArray name = QByteArray("value \"") + value + "\"";
        QTest::newRow(name.constData()) << QStringList { "convert", "--", value, "in", "m" }
                                        << QStringLiteral("\"%1\" is not a number").arg(value);
    }
    row("--sigfigs 0", { "convert", "1", "in", "m", "--sigfigs", "0" }, "--sigfigs");
    row("--sigfigs 14", { "convert", "1", "in", "m", "--sigfigs", "14" }, "--sigfigs");
    row("--sigfigs not whole", { "convert", "1", "in", "m", "--sigfigs", "2.5" }, "--sigfigs");
    row("--sigfigs not a number", { "convert", "1", "in", "m", "--sigfigs=many" }, "--sigfigs");
    row("--max above 1E+9", { "convert", "1", "in", "m", "--max", "2e9" }, "--max");
    row("--min below 1E-9", { "convert", "1", "in", "m", "--min", "0" }, "--min");
    row("--max without a value", { "convert", "1", "in", "m", "--max" }, "--max needs a value");
    row("unknown option", { "convert", "1", "in", "m", "--fast" }, "unknown option \"--fast\"");
    row("too few operands", { "convert", "1", "in" }, "VALUE FROM_UNIT TO_UNIT");
    row("too many operands", { "convert", "1", "in", "m", "cm" }, "VALUE FROM_UNIT TO_UNIT");
    row("batch with operands", { "convert", "--batch", "1", "in", "m" }, "standard input");
    row("unknown command", { "translate", "1", "in", "m" }, "unknown command \"translate\"");
    row("no command", QStringList {}, "no command");
    row("units with two quantities", { "units", "Length", "Mass" }, "at most one QUANTITY");
    row("settings file that is not there",
        { "convert", "1", "in", "m", "--hive", "/nonexistent/mensura.reg" },
        "cannot read the settings file");
}

void tst_CliConvert::argumentsThatAreRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, mentioned);
    QStringList all = arguments;
    if (!arguments.contains(QStringLiteral("--hive")))
        all = withHive(arguments);
    const CliRun run = runCli(all);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QVERIFY2(run.err.startsWith(QStringLiteral("error: ")), qPrintable(run.err));
    QVERIFY2(run.err.contains(mentioned), qPrintable(run.err));
}

void tst_CliConvert::conversionFailures_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    // 1E308 light years overflow a double; "zero" has the factor 0: a division by zero. The
    // message is the message box's text alone.
    QTest::newRow("number too big")
        << QStringList { "convert", "1e308", "ly", "m" } << StringTable::text(28);
    QTest::newRow("division by zero")
        << QStringList { "convert", "1", "stride", "zero" } << StringTable::text(5711);
    QTest::newRow("value beyond the range of a double")
        << QStringList { "convert", "1e400", "in", "m" } << StringTable::text(28);
}

void tst_CliConvert::conversionFailures()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const CliRun run = runCli(withHive(arguments));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, QStringLiteral("error: ") + message + u'\n');
}

void tst_CliConvert::temperatureBelowAbsoluteZeroIsCorrected()
{
    // -300 °C is taken as -273.15 °C: 0 K, and zero is shown in scientific notation.
    const CliRun run = runCli(withHive({ "convert", "-300", "Celsius", "kelvin" }));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("0.000 000 E+0\n"));
    QVERIFY2(run.err.startsWith(QStringLiteral("warning: ")), qPrintable(run.err));
    QVERIFY(run.err.contains(StringTable::text(371)));
    QVERIFY(run.err.contains(QStringLiteral("-273.15")));

    // -459.68 °F becomes -459.67 °F, which is -273.150 0 °C.
    const CliRun fahrenheit = runCli(withHive({ "convert", "-459.68", "Fahrenheit", "Celsius" }));
    QCOMPARE(fahrenheit.exitCode, 0);
    QCOMPARE(fahrenheit.out, QStringLiteral("-273.150 0\n"));
    QVERIFY(fahrenheit.err.contains(QStringLiteral("-459.67")));
}

void tst_CliConvert::helpDocumentsEveryOption()
{
    const CliRun run = runCli({ "--help" });
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    for (const char *text : { "convert VALUE FROM_UNIT TO_UNIT", "--batch", "units [QUANTITY]",
             "--quantity", "--verbose", "--sigfigs", "--scientific", "--regular", "--no-triads",
             "--triads", "--max", "--min", "--hive", "--tsv", "--all", "--find", "--help",
             "--version", "enabled", "absolute zero", "Exit status", "not a number" })
        QVERIFY2(run.out.contains(QString::fromUtf8(text)), text);
    // -h and the help command say the same
    QCOMPARE(runCli({ "-h" }).out, run.out);
    QCOMPARE(runCli({ "help" }).out, run.out);
    // and help wins over arguments that are wrong
    const CliRun wrong = runCli({ "convert", "--sigfigs", "99", "--help" });
    QCOMPARE(wrong.exitCode, 0);
    QCOMPARE(wrong.out, run.out);
}

void tst_CliConvert::versionIsTheProgramVersion()
{
    const CliRun run = runCli({ "--version" });
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("mensura-cli " MENSURA_VERSION "\n"));
}

void tst_CliConvert::settingsFileIsNeverWritten()
{
    // A settings file that has no "settings" or "User" keys yet: reading them would create them
    // in memory; nothing of that may reach the file. Named by --hive and by MENSURA_HIVE.
    const QString hive = m_dir.filePath(QStringLiteral("untouched.reg"));
    writeHive(hive, [](SettingsStore &store) {
        store.RegWriteString(
            QStringLiteral("settings"), QStringLiteral("numericformatting"), QStringLiteral("4"));
    });
    QFile file(hive);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();
    const QDateTime modified = QFileInfo(hive).lastModified();

    const CliRun named = runCli({ "convert", "12", "in", "m", "--hive", hive });
    QCOMPARE(named.out, QStringLiteral("0.304 8\n"));
    const CliRun fromEnvironment = runCli({ "convert", "12", "in", "m" }, QByteArray(), hive);
    QCOMPARE(fromEnvironment.out, QStringLiteral("0.304 8\n"));
    QCOMPARE(runCli({ "units", "--hive", hive }).exitCode, 0);
    QCOMPARE(runCli({ "convert", "--batch", "--hive", hive }, "1\tin\tm\n").exitCode, 0);

    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), before);
    QCOMPARE(QFileInfo(hive).lastModified(), modified);
    QVERIFY(!QFile::exists(hive + QStringLiteral(".bad")));
}

QTEST_GUILESS_MAIN(tst_CliConvert)
#include "tst_CliConvert.moc"

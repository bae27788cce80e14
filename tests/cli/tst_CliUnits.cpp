// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// "mensura-cli units": the quantities as the main window's tabs show them (the enabled ones,
// alphabetically), the units of one quantity with their factors, and the tab-separated form
// for scripts. The catalogue read here from the same settings file is the reference.
#include "CliProcess.h"

#include "catalogue/Catalogue.h"

#include <algorithm>
#include <QTemporaryDir>

class tst_CliUnits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void quantitiesAreTheEnabledOnesInAlphabeticalOrder();
    void switchedOffQuantitiesWithAll();
    void unitsOfAQuantity_data();
    void unitsOfAQuantity();
    void builtInUnitsCarryTheirFactors();
    void readableListing();
    void unknownOrSwitchedOffQuantity();
    void findListsWhatATextMatches_data();
    void findListsWhatATextMatches();
    void findRefusals_data();
    void findRefusals();

private:
    QStringList tsv(const QStringList &arguments) const;

    QTemporaryDir m_dir;
    QString m_hive;
};

void tst_CliUnits::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_hive = m_dir.filePath(QStringLiteral("units.reg"));
    writeHive(m_hive, [](SettingsStore &store) {
        store.RegWriteString(
            QStringLiteral("User\\OnOff\\Torque"), QStringLiteral("OnOff"), QStringLiteral("0"));
        store.RegWriteString(
            QStringLiteral("User\\OnOff\\Length"), QStringLiteral("fermi"), QStringLiteral("0"));
        store.RegWriteString(QStringLiteral("User\\NewQuans\\Reach"), QStringLiteral("DefaultUnit"),
            QStringLiteral("hand-width"));
        const QString units = QStringLiteral("User\\Units\\Reach");
        store.RegWriteString(units, QStringLiteral("hand-width"), QStringLiteral("c0.1"));
        store.RegWriteString(units, QStringLiteral("stride"), QStringLiteral("a0.75"));
        store.RegWriteString(units, QStringLiteral("hidden"), QStringLiteral("d2"));
    });
}

QStringList tst_CliUnits::tsv(const QStringList &arguments) const
{
    const CliRun run = runCli(arguments + QStringList { "--tsv", "--hive", m_hive });
    if (run.exitCode != 0 || !run.err.isEmpty())
        return { QStringLiteral("failed: ") + run.err };
    return run.outLines();
}

void tst_CliUnits::quantitiesAreTheEnabledOnesInAlphabeticalOrder()
{
    auto store = SettingsStore::open({ QStringLiteral("--hive"), m_hive }, true);
    Catalogue catalogue;
    catalogue.LoadCatalogue(*store);
    QStringList expected;
    for (int q = 1; q <= catalogue.QuantityCount; ++q)
        if (catalogue.Quantities[q].enabled())
            expected.append(catalogue.Quantities[q].Name);
    std::sort(expected.begin(), expected.end(),
        [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    QCOMPARE(expected.size(), 43); // 43 built in, one switched off, one of the user's

    const QStringList lines = tsv({ "units" });
    QStringList names;
    for (const QString &line : lines)
        names.append(line.section(u'\t', 0, 0));
    QCOMPARE(names, expected);
    QVERIFY(lines.contains(QStringLiteral("Reach\t2\thand-width\tcustom\ton")));
    // Length lists its 47 units but one switched off
    QVERIFY(lines.contains(QStringLiteral("Length\t46\tmetre (m)\tbuiltin\ton")));
}

void tst_CliUnits::switchedOffQuantitiesWithAll()
{
    const QStringList lines = tsv({ "units", "--all" });
    QCOMPARE(lines.size(), 44);
    QVERIFY(
        lines.contains(QStringLiteral("Torque\t7\tnewton metre (N·m) (kg·m²/s²)\tbuiltin\toff")));
}

void tst_CliUnits::unitsOfAQuantity_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("custom quantity") << QStringList { "units", "Reach" }
                                     << QStringList { "hand-width\t0.1\texact\tdefault\tcustom\ton",
                                            "stride\t0.75\tinexact\t\tcustom\ton" };
    QTest::newRow("switched-off unit with --all")
        << QStringList { "units", "reach", "--all" }
        << QStringList { "hand-width\t0.1\texact\tdefault\tcustom\ton",
               "stride\t0.75\tinexact\t\tcustom\ton", "hidden\t2\texact\t\tcustom\toff" };
    QTest::newRow("temperature converts by formulas")
        << QStringList { "units", "Temperature" }
        << QStringList { "Celsius (°C)\t\tformula\tdefault\tbuiltin\ton",
               "kelvin (K)\t\tformula\t\tbuiltin\ton", "Fahrenheit (°F)\t\tformula\t\tbuiltin\ton",
               "Rankine (°R)\t\tformula\t\tbuiltin\ton" };
    QTest::newRow("switched-off quantity with --all")
        << QStringList { "units", "Torque", "--all" }
        << QStringList { "newton metre (N·m) (kg·m²/s²)\t1\texact\tdefault\tbuiltin\ton" };
}

void tst_CliUnits::unitsOfAQuantity()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, expected);
    const QStringList lines = tsv(arguments);
    // Torque has more units than the one looked at
    QCOMPARE(lines.mid(0, expected.size()), expected);
}

void tst_CliUnits::builtInUnitsCarryTheirFactors()
{
    const QStringList lines = tsv({ "units", "Length" });
    QCOMPARE(lines.size(), 46);
    QVERIFY(lines.contains(QStringLiteral("inch (in)\t0.0254\texact\t\tbuiltin\ton")));
    QVERIFY(lines.contains(
        QStringLiteral("foot (US survey)\t0.304800609601219\tinexact\t\tbuiltin\ton")));
    for (const QString &line : lines)
        QVERIFY2(!line.startsWith(QStringLiteral("fermi")), "a switched-off unit is listed");
}

void tst_CliUnits::readableListing()
{
    const CliRun run = runCli({ "units", "Length", "--hive", m_hive });
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.size(), 47); // a heading and 46 units
    QCOMPARE(lines[0], QStringLiteral("Length (default unit: metre (m))"));
    // Columns line up: every factor starts where the first one does.
    const qsizetype column = lines[1].indexOf(QStringLiteral("  1  ")) + 2;
    QVERIFY(column > 2);
    for (const QString &line : lines.mid(1)) {
        QVERIFY2(line.startsWith(QStringLiteral("  ")), qPrintable(line));
        QVERIFY2(line[column - 1] == u' ' && line[column] != u' ', qPrintable(line));
        QVERIFY2(!line.endsWith(u' '), qPrintable(line));
    }
}

void tst_CliUnits::unknownOrSwitchedOffQuantity()
{
    const CliRun unknown = runCli({ "units", "Lenght", "--hive", m_hive });
    QCOMPARE(unknown.exitCode, 2);
    QCOMPARE(unknown.out, QString());
    QVERIFY2(unknown.err.contains(QStringLiteral("Length")), qPrintable(unknown.err));

    const CliRun switchedOff = runCli({ "units", "Torque", "--hive", m_hive });
    QCOMPARE(switchedOff.exitCode, 2);
    QVERIFY2(switchedOff.err.contains(QStringLiteral("switched off")), qPrintable(switchedOff.err));
}

// Rank, how, unit, quantity, the form matched, and whether the unit is the one chosen. Torque
// and fermi are switched off here; Reach is the user's own quantity.
void tst_CliUnits::findListsWhatATextMatches_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("common name before symbols")
        << QStringList { "L" }
        << QStringList { "3\talias\tlitre (l)\tVolume\tL\tchosen",
               "5\tsymbol\tright angle (L)\tAngle\tL\t", "5\tsymbol\tlambert (L)\tLuminance\tL\t" };
    QTest::newRow("a tie chooses nothing")
        << QStringList { "mph" }
        << QStringList { "5\tsymbol\tmilliphot (mph)\tIlluminance\tmph\ttied",
               "5\tsymbol\tmile per hour (mph)\tVelocity\tmph\ttied" };
    QTest::newRow("only within the quantity given")
        << QStringList { "F", "--quantity", "temperature" }
        << QStringList { "6\ttyped-symbol\tFahrenheit (°F)\tTemperature\t°F\tchosen" };
    QTest::newRow("a switched-off quantity takes no part")
        << QStringList { "lbf-ft" }
        << QStringList { "7\tswapped-symbol\tfoot pound-force (ft·lbf)\tEnergy\tft·lbf\tchosen" };
    QTest::newRow("the user's own unit in another case")
        << QStringList { "STRIDE" } << QStringList { "2\tname\tstride\tReach\tstride\tchosen" };
}

void tst_CliUnits::findListsWhatATextMatches()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, expected);
    QCOMPARE(tsv(QStringList { "units", "--find" } + arguments), expected);

    // Readable: a line on the unit chosen, if any, then a heading and one line per match.
    const CliRun run
        = runCli(QStringList { "units", "--find" } + arguments + QStringList { "--hive", m_hive });
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.size(), expected.size() + 2);
    const QStringList chosen = expected.first().split(u'\t');
    QCOMPARE(lines.first(),
        chosen.last() == QStringLiteral("chosen")
            ? QStringLiteral("\"%1\" is %2 [%3].").arg(arguments.first(), chosen[2], chosen[3])
            : QStringLiteral("\"%1\" names no one unit: %2 match it equally well.")
                  .arg(arguments.first())
                  .arg(expected.size()));
}

void tst_CliUnits::findRefusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    QTest::newRow("look-alike letters") << QStringList { "units", "--find",
        "\u043C" } << "error: unknown unit \"\u043C\". Closest names: metre (m) [Length].";
    QTest::newRow("symbols only") << QStringList { "units", "--find", "%$#@!" }
                                  << "error: unknown unit \"%$#@!\".";
    QTest::newRow("a very long text is cut short in the message")
        << QStringList { "units", "--find", QString(10000, u'x') }
        << "error: unknown unit \"" + QString(59, u'x') + QStringLiteral("\u2026\".");
    QTest::newRow("a quantity operand besides")
        << QStringList { "units", "Length", "--find", "m" } << "error: units --find TEXT";
    QTest::newRow("another command") << QStringList { "convert", "1", "m", "ft", "--find", "m" }
                                     << "error: --find TEXT is for the units command only";
}

void tst_CliUnits::findRefusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const CliRun run = runCli(arguments + QStringList { "--hive", m_hive });
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QVERIFY2(run.err.startsWith(message), qPrintable(run.err));
}

QTEST_GUILESS_MAIN(tst_CliUnits)
#include "tst_CliUnits.moc"

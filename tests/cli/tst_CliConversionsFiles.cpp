// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// "mensura-cli report" and "mensura-cli records": a value in every unit, printed or saved as a
// conversions file, and a conversions file's records as tab-separated or CSV lines, with the
// refusals of the desktop program's load command.
#include "CliProcess.h"

#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"

#include <QTemporaryDir>

class tst_CliConversionsFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void reportHasEveryEnabledUnit_data();
    void reportHasEveryEnabledUnit();
    void savedReportLoadsBack();
    void reportRefusals_data();
    void reportRefusals();
    void failedSaveIsReported();
    void recordsAsTabsAndCsv_data();
    void recordsAsTabsAndCsv();
    void filesThatAreRefused_data();
    void filesThatAreRefused();
    void damagedRecordEndsTheListing();

private:
    QStringList withHive(QStringList arguments) const;
    QString writeFile(const QString &name, const QByteArray &bytes) const;

    QTemporaryDir m_dir;
    QString m_hive;
    Catalogue m_catalogue; // as the hive leaves it, to count the enabled units
};

// The built-in catalogue with square inch switched off in Area.
void tst_CliConversionsFiles::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_hive = m_dir.filePath(QStringLiteral("cli.reg"));
    writeHive(m_hive, [](SettingsStore &store) {
        store.RegWriteString(QStringLiteral("User\\OnOff\\Area"),
            QStringLiteral("square inch (in²)"), QStringLiteral("0"));
    });
    SettingsStore store(std::make_unique<HiveFile>(m_hive, true));
    m_catalogue.LoadCatalogue(store);
}

QStringList tst_CliConversionsFiles::withHive(QStringList arguments) const
{
    return QStringList { QStringLiteral("--hive"), m_hive } + arguments;
}

QString tst_CliConversionsFiles::writeFile(const QString &name, const QByteArray &bytes) const
{
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return QString();
    return path;
}

void tst_CliConversionsFiles::reportHasEveryEnabledUnit_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("expectedLine"); // one line of the report, its number left out

    QTest::newRow("inch named by its symbol")
        << QStringList { "report", "1", "in" } << "Length"
        << "1  inch (in)  =  2.540 000  centimetre (cm)  [Length]";
    QTest::newRow("a negative temperature, the quantity named")
        << QStringList { "report", "-40", "Celsius", "--quantity", "temperature" } << "Temperature"
        << "-40  Celsius (°C)  =  -40.000 00  Fahrenheit (°F)  [Temperature]";
    QTest::newRow("significant figures from the options")
        << QStringList { "report", "1", "foot (ft)", "--sigfigs", "2" } << "Length"
        << "1  foot (ft)  =  30  centimetre (cm)  [Length]";
    QTest::newRow("a switched-off unit is left out")
        << QStringList { "report", "1", "square metre (m²)" } << "Area"
        << "1  square metre (m²)  =  1.000 000  square metre (m²)  [Area]";
}

void tst_CliConversionsFiles::reportHasEveryEnabledUnit()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, quantity);
    QFETCH(QString, expectedLine);
    const CliRun run = runCli(withHive(arguments));
    QCOMPARE(run.err, QString());
    QCOMPARE(run.exitCode, 0);

    const QStringList lines = run.out.split(u'\n');
    QCOMPARE(lines.value(0), StringTable::text(85));
    QCOMPARE(lines.value(1), StringTable::text(89));
    QCOMPARE(lines.value(2), QString());
    QCOMPARE(lines.value(3), QString());
    const QStringList units = m_catalogue.enabledUnitNames(m_catalogue.findQuantity(quantity));
    QVERIFY(!units.isEmpty());
    QCOMPARE(lines.size(), 4 + units.size() + 1); // the last line end leaves an empty piece
    for (int i = 0; i < units.size(); ++i) {
        const QString &line = lines[4 + i];
        QVERIFY2(line.startsWith(QStringLiteral("     %1.     ").arg(i + 1)), qPrintable(line));
        QVERIFY2(
            line.contains(QStringLiteral("  %1  [%2]").arg(units[i], quantity)), qPrintable(line));
    }
    QVERIFY2(lines.filter(expectedLine).size() == 1, qPrintable(run.out));
    QVERIFY(!run.out.contains(QStringLiteral("square inch")));
}

// Saved with -o, the report is the conversions file the desktop program writes: it reads back
// to the same lines, and "records" prints them.
void tst_CliConversionsFiles::savedReportLoadsBack()
{
    const QString path = m_dir.filePath(QStringLiteral("temperature.txt"));
    const CliRun saved = runCli(withHive({ "report", "100", "Celsius (°C)", "-o", path }));
    QCOMPARE(saved.err, QString());
    QCOMPARE(saved.exitCode, 0);
    QCOMPARE(saved.out, QString());
    const CliRun printed = runCli(withHive({ "report", "100", "Celsius (°C)" }));

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.contains("\xB0"
                           "F)  [Temperature]\r\n")); // code page 1252, CR LF
    QCOMPARE(QString(ConversionsReader::isValidUtf8(bytes.constData(), bytes.size())
                     ? QString::fromUtf8(bytes)
                     : QString::fromLatin1(bytes))
                 .replace(QStringLiteral("\r\n"), QStringLiteral("\n")),
        printed.out);

    const ConversionsReader::Result read = ConversionsReader::readFile(path);
    QCOMPARE(read.status, ConversionsReader::Finished);
    const QStringList units = m_catalogue.enabledUnitNames(m_catalogue.findQuantity("Temperature"));
    QCOMPARE(read.records.size(), units.size());

    const CliRun listed = runCli({ "records", path });
    QCOMPARE(listed.exitCode, 0);
    const QStringList lines = listed.outLines();
    QCOMPARE(lines.size(), units.size());
    for (int i = 0; i < units.size(); ++i) {
        const MarkedConversion &r = read.records[i];
        QCOMPARE(lines[i],
            QStringList({ "100", "Celsius (°C)", r.toValue, units[i], "Temperature" }).join(u'\t'));
    }
}

void tst_CliConversionsFiles::reportRefusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("errorPart");

    QTest::newRow("not a number") << QStringList { "report", "abc", "in" } << 2 << "abc";
    QTest::newRow("unknown unit") << QStringList { "report", "1", "furlongs per fortnight" } << 2
                                  << "furlongs per fortnight";
    QTest::newRow("a switched-off unit")
        << QStringList { "report", "1", "square inch (in²)" } << 2 << "square inch (in²)";
    QTest::newRow("a unit not in the quantity named")
        << QStringList { "report", "1", "in", "--quantity", "Mass" } << 2 << "Mass";
    QTest::newRow("an unknown quantity")
        << QStringList { "report", "1", "metre (m)", "--quantity", "Nothing" } << 2 << "Nothing";
    QTest::newRow("a unit of several quantities")
        << QStringList { "report", "1", "W" } << 2 << "Heat Flow Rate";
    QTest::newRow("too few arguments") << QStringList { "report", "1" } << 2 << "VALUE FROM_UNIT";
    QTest::newRow("-o for another command")
        << QStringList { "records", "x.txt", "-o", "y.txt" } << 2 << "-o";
    QTest::newRow("a number too big to calculate")
        << QStringList { "report", "1e308", "mile (mi)" } << 1 << "";
    QTest::newRow("a unit name that is ambiguous")
        << QStringList { "report", "1", "mile" } << 2 << "mile (US survey)";
}

void tst_CliConversionsFiles::reportRefusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, errorPart);
    const CliRun run = runCli(withHive(arguments));
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY2(run.err.startsWith(QStringLiteral("error: ")), qPrintable(run.err));
    QVERIFY2(run.err.contains(errorPart), qPrintable(run.err));
}

// A save that cannot be made is reported and leaves nothing behind. (How an existing file is
// kept whole on a failed save is the conversions file's own test.)
void tst_CliConversionsFiles::failedSaveIsReported()
{
    const QString gone = m_dir.filePath(QStringLiteral("gone/report.txt"));
    const CliRun vanished = runCli(withHive({ "report", "1", "in", "-o", gone }));
    QCOMPARE(vanished.exitCode, 2);
    QVERIFY2(vanished.err.contains(gone), qPrintable(vanished.err));
    QVERIFY(!QFile::exists(gone));
    QVERIFY(!QFileInfo::exists(m_dir.filePath(QStringLiteral("gone"))));
}

void tst_CliConversionsFiles::recordsAsTabsAndCsv_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray heading = "Conversion report generated by Mensura 98\r\n\r\n\r\n";
    const QByteArray records = heading
        + "     1.     12  inch (in)  =  30.48  centimetre (cm)  [Length]\r\n"
          "     2.     1  a\tb  =  2  \"c\"  [q]\r\n";
    QTest::newRow("tab-separated, a tab in a text made a blank")
        << records << QString()
        << QByteArray("12\tinch (in)\t30.48\tcentimetre (cm)\tLength\n"
                      "1\ta b\t2\t\"c\"\tq\n");
    QTest::newRow("CSV quotes a text with a quote")
        << records << "--csv"
        << QByteArray("12,inch (in),30.48,centimetre (cm),Length\r\n"
                      "1,a\tb,2,\"\"\"c\"\"\",q\r\n");
    QTest::newRow("CSV quotes a comma read inside a quoted field")
        << heading + "     \"1.     1  a,b  =  2  c  [q]\"\r\n"
        << "--csv" << QByteArray("1,\"a,b\",2,c,q\r\n");
    QTest::newRow("Windows-1252 file printed as UTF-8")
        << heading
            + "     1.     100  Celsius (\xB0"
              "C)  =  212  Fahrenheit (\xB0"
              "F)  [Temperature]\n"
        << QString() << QByteArray("100\tCelsius (°C)\t212\tFahrenheit (°F)\tTemperature\n");
    QTest::newRow("no records, nothing printed") << heading << "--csv" << QByteArray();
}

void tst_CliConversionsFiles::recordsAsTabsAndCsv()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, option);
    QFETCH(QByteArray, expected);
    const QString path = writeFile(QStringLiteral("records.txt"), file);
    QStringList arguments { QStringLiteral("records"), path };
    if (!option.isEmpty())
        arguments.append(option);
    const CliRun run = runCli(arguments);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out.toUtf8(), expected);
}

void tst_CliConversionsFiles::filesThatAreRefused_data()
{
    QTest::addColumn<QByteArray>("file"); // null: the file does not exist
    QTest::addColumn<QString>("errorPart");

    const QString foreign = StringTable::text(274);
    QTest::newRow("foreign text") << QByteArray("Name,Value\r\nx,1\r\n") << foreign;
    QTest::newRow("empty file") << QByteArray("") << foreign;
    QTest::newRow("binary garbage") << QByteArray("\x00\xFF\xFE\x01\x80", 5) << foreign;
    QTest::newRow("no such file") << QByteArray() << QStringLiteral("missing.txt");
}

void tst_CliConversionsFiles::filesThatAreRefused()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, errorPart);
    const QString path = file.isNull() ? m_dir.filePath(QStringLiteral("missing.txt"))
                                       : writeFile(QStringLiteral("refused.txt"), file);
    const CliRun run = runCli({ "records", path });
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QVERIFY2(run.err.contains(errorPart), qPrintable(run.err));
}

void tst_CliConversionsFiles::damagedRecordEndsTheListing()
{
    const QString path = writeFile(QStringLiteral("damaged.txt"),
        "Conversion report generated by Mensura 98\r\n\r\n\r\n"
        "     1.     1  a  =  2  b  [q]\r\n"
        "     2.     no separators here\r\n"
        "     3.     3  c  =  4  d  [q]\r\n");
    const CliRun run = runCli({ "records", path });
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QStringLiteral("1\ta\t2\tb\tq\n"));
    QVERIFY2(run.err.contains(QStringLiteral("line 5")), qPrintable(run.err));
}

QTEST_GUILESS_MAIN(tst_CliConversionsFiles)
#include "tst_CliConversionsFiles.moc"

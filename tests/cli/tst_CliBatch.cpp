// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// "mensura-cli convert --batch": one output line per input line, in order, whatever the
// lines hold, read across the boundaries of the blocks the input is read in. Many random
// conversions are checked against the conversion engine run here, with the same catalogue and
// settings: the batch must print what the main window's update routine gives.
#include "CliProcess.h"

#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/ConversionEngine.h"
#include "shell/Session.h"
#include "shell/Settings.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

class tst_CliBatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void linesInOrderWithTheirErrors();
    void quantityFieldAndOption_data();
    void quantityFieldAndOption();
    void lineEndings_data();
    void lineEndings();
    void agreesWithTheConversionEngine_data();
    void agreesWithTheConversionEngine();
    void lineLongerThanAReadBlock();
    void answersEachLineAsItArrives();

private:
    CliRun batch(const QByteArray &input, const QStringList &options = {}) const;

    QTemporaryDir m_dir;
    QString m_hive;
};

void tst_CliBatch::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_hive = m_dir.filePath(QStringLiteral("batch.reg"));
    writeHive(m_hive, [](SettingsStore &store) {
        store.RegWriteString(QStringLiteral("User\\NewQuans\\Reach"), QStringLiteral("DefaultUnit"),
            QStringLiteral("hand-width"));
        store.RegWriteString(QStringLiteral("User\\Units\\Reach"), QStringLiteral("hand-width"),
            QStringLiteral("c0.1"));
        store.RegWriteString(QStringLiteral("User\\Units\\Reach"), QStringLiteral("stride"),
            QStringLiteral("a0.75"));
        store.RegWriteString(
            QStringLiteral("User\\Units\\Reach"), QStringLiteral("zero"), QStringLiteral("a0"));
    });
}

CliRun tst_CliBatch::batch(const QByteArray &input, const QStringList &options) const
{
    return runCli(QStringList { "convert", "--batch", "--hive", m_hive } + options, input);
}

void tst_CliBatch::linesInOrderWithTheirErrors()
{
    const QByteArray input = "12\tinch (in)\tmetre (m)\n" // 0.3048 exactly
                             "abc\tin\tm\n"
                             "100\tCelsius\tFahrenheit\n"
                             "1\tfoot\tm\n"
                             "1\tin\n"
                             "\n"
                             "-300\tCelsius\tkelvin\n"
                             "1e308\tly\tm\n"
                             "1\tstride\tzero\n"
                             "3\tstride\thand-width\n"
                             "1\tin\tm\tLength\textra\n"
                             "1,500\tin\tmm\n"
                             "dozen\tin\tmm\n";
    const CliRun run = batch(input);
    QCOMPARE(run.exitCode, 1);
    const QStringList lines = run.out.split(u'\n');
    QCOMPARE(lines.size(), 14); // thirteen lines and the end of the last one
    QCOMPARE(lines[0], QStringLiteral("0.304 800 0"));
    QCOMPARE(lines[1], QStringLiteral("error: line 2: \"abc\" is not a number."));
    QCOMPARE(lines[2], QStringLiteral("212.000 0"));
    QVERIFY2(
        lines[3].startsWith(QStringLiteral("error: line 4: ")) && lines[3].contains(u"foot (ft)"),
        qPrintable(lines[3]));
    QVERIFY2(
        lines[4].startsWith(QStringLiteral("error: line 5: expected VALUE")), qPrintable(lines[4]));
    QVERIFY2(lines[5].startsWith(QStringLiteral("error: line 6: ")), qPrintable(lines[5]));
    QCOMPARE(lines[6], QStringLiteral("0.000 000 E+0")); // corrected to absolute zero
    // The message box's text alone, on one line.
    QCOMPARE(lines[7], QStringLiteral("error: line 8: ") + StringTable::text(28));
    QCOMPARE(lines[8], QStringLiteral("error: line 9: ") + StringTable::text(5711));
    QCOMPARE(lines[9], QStringLiteral("23"));
    QVERIFY2(lines[10].startsWith(QStringLiteral("error: line 11: ")), qPrintable(lines[10]));
    QCOMPARE(lines[11], QStringLiteral("25.400 00")); // 1,500 is read as 1
    QCOMPARE(lines[12], QStringLiteral("error: line 13: \"dozen\" is not a number."));
    QCOMPARE(lines[13], QString());

    const QStringList errors = run.err.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(errors.size(), 3);
    QVERIFY(errors[0].startsWith(QStringLiteral("warning: line 7: ") + StringTable::text(371)));
    QCOMPARE(errors[1], QStringLiteral("note: line 12: \"1,500\" was read as 1"));
    QCOMPARE(errors[2], QStringLiteral("error: 8 of 13 lines could not be converted."));
}

void tst_CliBatch::quantityFieldAndOption_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("expected");

    // °F and °C are units of Temperature and of Temperature Interval: 212 °F is 100 °C, a
    // difference of 212 °F is 117.8 °C
    QTest::newRow("quantity in the fourth field")
        << QByteArray("212\t°F\t°C\tTemperature\n") << QStringList() << "100.000 0\n";
    QTest::newRow("quantity from --quantity")
        << QByteArray("212\t°F\t°C\n") << QStringList { "--quantity", "temperature interval" }
        << "117.777 8\n";
    QTest::newRow("the fourth field before --quantity")
        << QByteArray("212\t°F\t°C\tTemperature\n")
        << QStringList { "--quantity", "Temperature Interval" } << "100.000 0\n";
    QTest::newRow("empty fourth field means --quantity")
        << QByteArray("212\t°F\t°C\t\n") << QStringList { "--quantity", "Temperature" }
        << "100.000 0\n";
    // 1 in = 25.4 mm exactly
    QTest::newRow("status after a tab with --verbose")
        << QByteArray("1\tin\tmm\n") << QStringList { "--verbose" }
        << QStringLiteral("25.400 00\t") + StringTable::text(5600) + StringTable::text(369)
            + QStringLiteral("7)\n");
    QTest::newRow("formatting options apply to every line")
        << QByteArray("1\tin\tmm\n2\tin\tmm\n") << QStringList { "--sigfigs", "2", "--no-triads" }
        << "25\n51\n";
}

void tst_CliBatch::quantityFieldAndOption()
{
    QFETCH(QByteArray, input);
    QFETCH(QStringList, options);
    QFETCH(QString, expected);
    const CliRun run = batch(input, options);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, expected);
}

void tst_CliBatch::lineEndings_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QString>("expected");

    QTest::newRow("CR LF") << QByteArray("12\tin\tm\r\n100\tCelsius\tFahrenheit\r\n")
                           << "0.304 800 0\n212.000 0\n";
    QTest::newRow("last line without a line break")
        << QByteArray("12\tin\tm\n100\tCelsius\tFahrenheit") << "0.304 800 0\n212.000 0\n";
    QTest::newRow("no input at all") << QByteArray() << QString();
}

void tst_CliBatch::lineEndings()
{
    QFETCH(QByteArray, input);
    QFETCH(QString, expected);
    const CliRun run = batch(input);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, expected);
}

void tst_CliBatch::agreesWithTheConversionEngine_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("sigFigs");
    QTest::addColumn<bool>("triads");

    QTest::newRow("default settings") << QStringList() << 7 << true;
    QTest::newRow("13 figures without triads")
        << QStringList { "--sigfigs", "13", "--no-triads", "--verbose" } << 13 << false;
}

void tst_CliBatch::agreesWithTheConversionEngine()
{
    QFETCH(QStringList, options);
    QFETCH(int, sigFigs);
    QFETCH(bool, triads);

    auto store = SettingsStore::open({ QStringLiteral("--hive"), m_hive }, true);
    Catalogue catalogue;
    catalogue.LoadCatalogue(*store);
    Settings settings;
    settings.LoadSettings(*store);
    settings.SigFigs = sigFigs;
    settings.Triads = triads;
    Session session;
    const ConversionEngine engine(catalogue, settings, session);
    const bool verbose = options.contains(QStringLiteral("--verbose"));

    // Conversions between full unit names, each named with its quantity
    struct Pair {
        const char *quantity, *from, *to;
    };
    const Pair pairs[] = { { "Length", "inch (in)", "metre (m)" },
        { "Length", "foot (US survey)", "mile (mi)" },
        { "Length", "light year (ly)", "nanometre (nm)" }, { "Angle", "degree (°)", "mil" },
        { "Mass", "pound (avoirdupois) (lb)", "gram (g)" },
        { "Temperature", "Fahrenheit (°F)", "Celsius (°C)" },
        { "Temperature", "kelvin (K)", "Rankine (°R)" },
        { "Temperature Interval", "degree Fahrenheit (°F)", "degree Rankine (°R)" },
        { "Reach", "stride", "hand-width" },
        { "Pressure or Stress", "kilopascal (kPa)", "inch of mercury (conventional) (inHg)" } };
    // Values of every magnitude and in the forms the value box takes
    QRandomGenerator random(1998);
    QByteArray input;
    QStringList expected;
    for (int i = 0; i < 60000; ++i) {
        const Pair &pair = pairs[random.bounded(int(std::size(pairs)))];
        const double magnitude = std::pow(10.0, random.generateDouble() * 24 - 12);
        QString value;
        switch (random.bounded(6)) {
        case 0:
            value = QString::number(magnitude, 'g', 1 + random.bounded(15));
            break;
        case 1:
            value = QString::number(-magnitude, 'e', random.bounded(10));
            break;
        case 2:
            value = QString::number(random.bounded(100000));
            break;
        case 3:
            value = QString::number(magnitude, 'e', 3).replace(u'e', u'D') + QStringLiteral("kg");
            break;
        case 4:
            value = QStringLiteral("1 %1.%2").arg(random.bounded(1000)).arg(random.bounded(100));
            break;
        default:
            value = QString::number(random.bounded(2000) - 500) + QStringLiteral(".5");
            break;
        }
        catalogue.CurrentQuantity = catalogue.findQuantity(QString::fromUtf8(pair.quantity));
        QVERIFY(catalogue.CurrentQuantity != 0);
        const ConversionResult result
            = engine.UpdateResult(QString::fromUtf8(pair.from), QString::fromUtf8(pair.to), value);
        QVERIFY2(result.notices.isEmpty() || result.replacedEntry, qPrintable(value));
        expected.append(
            verbose ? result.text + u'\t' + result.statusText.value_or(QString()) : result.text);
        input += value.toUtf8() + '\t' + pair.from + '\t' + pair.to + '\t' + pair.quantity + '\n';
    }

    const CliRun run = batch(input, options);
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.out.split(u'\n');
    QCOMPARE(lines.size(), expected.size() + 1);
    for (qsizetype i = 0; i < expected.size(); ++i)
        QCOMPARE(lines[i], expected[i]);
}

void tst_CliBatch::lineLongerThanAReadBlock()
{
    // Blanks inside a number are skipped: this is 12 however many blanks follow it.
    const QByteArray value = "12" + QByteArray(3 << 20, ' ') + "kg";
    const CliRun run = batch("1\tin\tmm\n" + value + "\tin\tm\n1\tin\tmm\n");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("25.400 00\n0.304 800 0\n25.400 00\n"));
}

void tst_CliBatch::answersEachLineAsItArrives()
{
    // A program that writes a line and waits for its answer, as with a co-process.
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

QTEST_GUILESS_MAIN(tst_CliBatch)
#include "tst_CliBatch.moc"

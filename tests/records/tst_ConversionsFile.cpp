// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Conversions files written and read: the bytes written and the encoding chosen, what reads back
// (every unit name of the catalogue), files of every kind and damage, read whole and in steps, the
// numbering past 999, and saves that fail or are cancelled, which must leave the old file as it
// was. A large file loaded in steps, with its progress and Cancel, is tst_frmConvRecords'.
#include "catalogue/Catalogue.h"
#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"
#include "support/RecordsFixture.h"
#include "support/TestFiles.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <unistd.h>

class tst_ConversionsFile : public QObject
{
    Q_OBJECT

private slots:
    void writtenAndReadBack_data();
    void writtenAndReadBack();
    void read_data();
    void read();
    void utf8IsRecognised_data();
    void utf8IsRecognised();
    void saveLeavesTheOldFileUnlessWhole_data();
    void saveLeavesTheOldFileUnlessWhole();
    void fullDiskIsReported();
};

void tst_ConversionsFile::writtenAndReadBack_data()
{
    QTest::addColumn<Records>("records");
    QTest::addColumn<QByteArray>("bytes"); // written; "1252" or "UTF-8": only the encoding chosen
    const auto row = [](const char *name, const Records &records, const QByteArray &bytes) {
        QTest::newRow(name) << records << bytes;
    };
    row("nothing to write ends after the two empty lines", {}, Opening);
    row("records numbered from 1 with CR LF after the last",
        { conversion("12", "metre (m)", "39.370 08", "inch (in)", "Length"),
            conversion("1", "erg  (dyne-centimetre)", "1E-7", "joule (J)", "Energy") },
        Opening
            + "     1.     12  metre (m)  =  39.370 08  inch (in)  [Length]\r\n"
              "     2.     1  erg  (dyne-centimetre)  =  1E-7  joule (J)  [Energy]\r\n");
    row("degree, euro sign and quotes as the bytes of code page 1252",
        { conversion("100", "\u00B0C", "1", "\u20AC \u201Cx\u201D", "T") },
        Opening
            + "     1.     100  \xB0"
              "C  =  1  \x80 \x93x\x94  [T]\r\n");
    row("a character outside code page 1252 makes the whole file UTF-8 with a mark",
        { conversion("1", "ohm (\u03A9)", "1", "V/A", "R"),
            conversion("5", "\u00B5m", "5", "\u20AC", "q") },
        "\xEF\xBB\xBF" + Opening
            + "     1.     1  ohm (\xCE\xA9)  =  1  V/A  [R]\r\n"
              "     2.     5  \xC2\xB5m  =  5  \xE2\x82\xAC  [q]\r\n");
    row("texts written as stored, blanks and commas included",
        { conversion(" 1 234.5 ", "a, b", "", "", "") },
        Opening + "     1.      1 234.5   a, b  =      []\r\n");

    const auto unit
        = [](const QString &unit) { return Records { conversion("5", unit, "6", "\u00B0", "q") }; };
    row("plain text and a degree sign", unit("metre (m)"), "1252");
    // Code page 1252 only when its bytes cannot be taken for UTF-8 on reading.
    row("1252 bytes that are no UTF-8 beside such bytes", unit("\u00C3\u00A9"), "1252");
    row("1252 signs side by side", unit("\u20AC\u201C\u00B1\u00B0\u00B5\u00B2\u201D"), "1252");
    row("a character outside 1252 beside such bytes", unit("\u00C3\u00A9\u03A9"), "UTF-8");
    row("a control character that 1252 lacks", unit("\u0080"), "UTF-8");
    row("other scripts, quotes and brackets",
        unit("\"\u0441\u0430\u0436\u0435\u043D\u044C\" [\U0001D400]"), "UTF-8");
    row("empty texts", { conversion("5", "", "", "", "") }, "1252");
    const MarkedConversion mojibake
        = conversion("1", "\u00C3\u00A9", "1", "\u00E2\u201A\u00AC", "q");
    row("1252 bytes that would read as UTF-8", { mojibake }, "UTF-8");
    row("such bytes, and no UTF-8 in another record",
        { mojibake, conversion("2", "a", "2", "\u00E9t\u00E9", "q") }, "1252");

    // Every unit name of the catalogue, except those holding a comma (which the reading splits
    // on purpose), in files of fewer than 1000 records, so that every record reads back whole.
    QTemporaryDir temp;
    SettingsStore store(std::make_unique<HiveFile>(temp.filePath("hive.reg")));
    Catalogue catalogue;
    catalogue.LoadCatalogue(store);
    Records units;
    for (int q = 1; q <= catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = catalogue.Quantities[q];
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            const QString name = catalogue.Units[q][j].Name;
            if (!name.contains(u',') && !quantity.Name.contains(u','))
                units << conversion("1.5", name, "2.500 1E-9", quantity.DefaultUnit, quantity.Name)
                      << conversion("-3", quantity.DefaultUnit, "1 234 567", name, quantity.Name);
        }
    }
    QVERIFY(units.size() > 500);
    for (qsizetype first = 0; first < units.size(); first += 999)
        QTest::addRow("catalogue units from record %d", int(first + 1))
            << units.mid(first, 999) << QByteArray();
}

// The bytes written, by every way of writing them; whatever encoding the writer picks, the
// reader must take the bytes for that encoding.
void tst_ConversionsFile::writtenAndReadBack()
{
    QFETCH(Records, records);
    QFETCH(QByteArray, bytes);
    QTemporaryDir temp;
    const QString path = temp.filePath("conversions.txt");
    // Progress is reported as the records are written, up to the last: rarely enough not to slow
    // a long save down.
    QList<qint64> done;
    QVERIFY(ConversionsFile::saveRecords(path, records, [&](qint64 n, qint64 of) {
        done.append(n);
        return of == records.size();
    }).ok());
    QVERIFY(done.size() <= qMax(qsizetype(1), records.size() / 200));
    QCOMPARE(done.last(), records.size());
    const QByteArray saved = fileBytes(path);
    QCOMPARE(ConversionsFile::encode(ConversionsFile::recordsText(records)), saved);
    if (bytes == "UTF-8" || bytes == "1252")
        QCOMPARE(saved.startsWith("\xEF\xBB\xBF"), bytes == "UTF-8");
    else if (!bytes.isEmpty())
        QCOMPARE(saved, bytes);
    if (bytes.contains(','))
        return; // a comma ends a field on reading
    const ConversionsReader::Result result = ConversionsReader::readFile(path);
    QCOMPARE(result.status, ConversionsReader::Finished);
    QCOMPARE(result.records, records);
}

void tst_ConversionsFile::read_data()
{
    QTest::addColumn<QByteArray>("bytes"); // a null array: no file at all
    QTest::addColumn<int>("status");
    QTest::addColumn<Records>("expected");
    QTest::addColumn<int>("badLine");
    const auto row
        = [](const char *name, const QByteArray &bytes, int status, const Records &expected = {},
              int badLine = 0) { QTest::newRow(name) << bytes << status << expected << badLine; };
    const int Finished = ConversionsReader::Finished, Foreign = ConversionsReader::Foreign,
              BadRecord = ConversionsReader::BadRecord;
    const QByteArray two = Opening
        + "     1.     12  m  =  39.370 08  in  [Length]\r\n"
          "     2.     1  erg  (dyne-centimetre)  =  1E-7  J  [Energy]\r\n";
    const Records twoRead { conversion("12", "m", "39.370 08", "in", "Length"),
        conversion("1", "erg  (dyne-centimetre)", "1E-7", "J", "Energy") };
    const QByteArray one = "     1.     1  a  =  2  b  [q]\r\n";
    const Records oneRead { conversion("1", "a", "2", "b", "q") };

    row("two records", two, Finished, twoRead);
    row("LF line ends", QByteArray(two).replace("\r\n", "\n"), Finished, twoRead);
    row("no line end after the last record", two.chopped(2), Finished, twoRead);
    row("header only", Opening, Finished);
    row("heading compared on its first ten characters", "Conversion: tables\r\n" + one, Finished,
        oneRead);
    row("empty file", "", Foreign);
    row("heading in other case", "CONVERSION report\r\n" + one, Foreign);
    row("heading with a letter missing", "Conversio report\r\n" + one, Foreign);
    row("no such file", QByteArray(), ConversionsReader::Unreadable);

    row("records must start at number 1", Opening + "     2.     1  a  =  2  b  [q]\r\n", Finished);
    row("lines before the first record are passed over",
        Opening + "some remark\r\n\r\nmore, and more\r\n" + one, Finished, oneRead);
    row("a line without separators ends reading, earlier records stay",
        Opening + one + "     2.     no separators here\r\n" + one, BadRecord, oneRead, 6);
    row("so does an empty line among LF line ends",
        QByteArray(Opening + one + "\r\n" + one).replace("\r", ""), BadRecord, oneRead, 6);
    row("so does it with CR line ends",
        QByteArray(Opening + one + "broken\r\n").replace("\r\n", "\r"), BadRecord, oneRead, 6);
    row("a quoted record after CR line ends",
        QByteArray(Opening + one + "\"2.     5  a,b  =  6  c  [q]\"\r\n").replace("\r\n", "\r"),
        Finished, { oneRead[0], conversion("5", "a,b", "6", "c", "q") });
    row("nothing after the quantity's opening bracket", Opening + "     1.     1  a  =  2  b  [",
        BadRecord, {}, 5);
    row("empty quantity between the brackets", Opening + "     1.     1  a  =  2  b  []\r\n",
        Finished, { conversion("1", "a", "2", "b", "") });

    // A comma ends a field: the piece before it is read as a record of its own.
    row("comma in a unit name leaves a piece without separators",
        Opening + one + "     2.     5  metre, long  =  6  foot  [Length]\r\n", BadRecord, oneRead,
        6);
    row("comma in a quantity name yields a cut record, then fails",
        Opening + "     1.     5  m  =  6  ft  [Length, old]\r\n", BadRecord,
        { conversion("5", "m", "6", "ft", "Lengt") }, 5);
    row("a quoted field keeps its comma, what follows the quote is dropped",
        Opening + "\"1.     5  a,b  =  6  c  [q]\" dropped\r\n", Finished,
        { conversion("5", "a,b", "6", "c", "q") });

    row("UTF-8 without a mark",
        Opening + "     1.     1  \xCE\xA9 \xE2\x82\xAC  =  1  \xF0\x9F\x93\x8F  [q]\r\n", Finished,
        { conversion("1", "\u03A9 \u20AC", "1", "\U0001F4CF", "q") });
    row("UTF-8 with a mark", "\xEF\xBB\xBF" + Opening + "     1.     1  \xC2\xB0  =  1  x  [q]",
        Finished, { conversion("1", "\u00B0", "1", "x", "q") });
    // The fields of a record are found from fixed places: the first double blank is searched
    // from the ninth character on, which skips "1.     " to "999.     " and no wider number.
    const auto second = [&](const char *line) { return Opening + one + "     " + line + "\r\n"; };
    const auto afterOne = [&](const MarkedConversion &record) {
        return Records { oneRead[0], record };
    };
    row("record 999 reads whole", second("999.     5  a  =  6  b  [q]"), Finished,
        afterOne(conversion("5", "a", "6", "b", "q")));
    row("record 10000: the value runs into the unit", second("10000.     5  a  =  6  b  [q]"),
        Finished, afterOne(conversion("", " 5  a", "6", "b", "q")));
    row("a double blank inside the second value moves it into the unit",
        second("2.     5  a  =  6  7  b  [q]"), Finished,
        afterOne(conversion("5", "a", "6", "7  b", "q")));
    row("tabs around the first value stay", second("2.     \t5\t  a  =  6  b  [q]"), Finished,
        afterOne(conversion("\t5\t", "a", "6", "b", "q")));
    row("the quantity loses its last character whatever it is",
        second("2.     5  a  =  6  b  [quantity"), Finished,
        afterOne(conversion("5", "a", "6", "b", "quantit")));
    row("no equals separator", second("2.     5  a  6  b  [q]"), BadRecord, oneRead, 6);
    row("no blank pair after the second value", second("2.     5  a  =  6"), BadRecord, oneRead, 6);
    row("no quantity bracket", second("2.     5  a  =  6  b"), BadRecord, oneRead, 6);

    row("invalid UTF-8 late in the file makes all of it 1252",
        Opening + "     1.     1  \xC2\xB0  =  1  x  [q]\r\n     2.     1  \xB0  =  1  x  [q]\r\n",
        Finished,
        { conversion("1", "\u00C2\u00B0", "1", "x", "q"),
            conversion("1", "\u00B0", "1", "x", "q") });
}

void tst_ConversionsFile::read()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, status);
    QFETCH(Records, expected);
    QFETCH(int, badLine);
    // Through a real file as well as from memory.
    QTemporaryDir temp;
    const QString path = temp.filePath("conversions.txt");
    QList<ConversionsReader::Result> results { ConversionsReader::readFile(path) };
    if (!bytes.isNull()) {
        QVERIFY(putFile(path, bytes));
        results = { ConversionsReader::readFile(path), ConversionsReader::readBytes(bytes) };
    }
    for (const auto &result : results) {
        QCOMPARE(int(result.status), status);
        QCOMPARE(result.records, expected);
        QCOMPARE(result.badLine, badLine);
        if (status == ConversionsReader::Unreadable)
            QVERIFY(!result.errorText.isEmpty());
        QCOMPARE(result.notice.has_value(), status == ConversionsReader::Foreign);
        if (result.notice)
            QVERIFY(result.notice->text.startsWith("This file was not generated by Mensura."));
    }
    if (bytes.isNull())
        return;
    // In steps of one record, as a long load reads: one more each step, ending as one read does.
    ConversionsReader reader = ConversionsReader::fromBytes(bytes);
    Records stepped;
    qsizetype steps = 0;
    while (reader.readSome(stepped, 1) == ConversionsReader::Reading)
        QCOMPARE(stepped.size(), ++steps);
    QCOMPARE(int(reader.status()), status);
    QCOMPARE(stepped, expected);
    QCOMPARE(reader.badLine(), badLine);
}

void tst_ConversionsFile::utf8IsRecognised_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("utf8");
    const auto row = [](const char *name, const QByteArray &bytes, bool utf8) {
        QTest::newRow(name) << bytes << utf8;
    };
    row("plain ASCII", "metre (m)", true);
    row("lowest and highest two-byte forms", "\xC2\x80 \xDF\xBF", true);
    row("lowest three-byte form", "\xE0\xA0\x80", true);
    row("euro sign, last before the surrogates", "\xE2\x82\xAC \xED\x9F\xBF \xEF\xBF\xBF", true);
    row("lowest and highest four-byte forms", "\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF", true);
    row("a 1252 sign among eight ASCII characters", "abc\xB0 defg", false);
    row("1252 euro sign alone", "\x80", false);
    row("UTF-8 then a 1252 sign", "\xC3\xA9\xB0", false);
    row("overlong two-byte form", "\xC1\xBF", false);
    row("overlong three-byte form", "\xE0\x9F\xBF", false);
    row("surrogate", "\xED\xA0\x80", false);
    row("overlong four-byte form", "\xF0\x8F\xBF\xBF", false);
    row("above U+10FFFF", "\xF4\x90\x80\x80", false);
    row("no such lead byte", "\xF5\x80\x80\x80", false);
    row("last continuation byte missing", "\xE2\x82 ", false);
    row("cut short by the end", "\xE2\x82", false);
}

void tst_ConversionsFile::utf8IsRecognised()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, utf8);
    // Continuation bytes after the end: a check that reads past it takes them.
    const QByteArray padded = bytes + "\x80\x80\x80";
    QCOMPARE(ConversionsReader::isValidUtf8(padded.constData(), bytes.size()), utf8);
}

void tst_ConversionsFile::saveLeavesTheOldFileUnlessWhole_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("status");
    const int Failed = ConversionsFile::WriteResult::Failed;
    QTest::newRow("a longer file is replaced whole") << "longer" << 0;
    QTest::newRow("cancelled half-way") << "cancel" << int(ConversionsFile::WriteResult::Cancelled);
    QTest::newRow("folder without write permission") << "readonly" << Failed;
    QTest::newRow("target is a read-only file") << "readonlyfile" << Failed;
    QTest::newRow("folder path is a file") << "file" << Failed;
}

void tst_ConversionsFile::saveLeavesTheOldFileUnlessWhole()
{
    QFETCH(QString, how);
    QFETCH(int, status);
    QTemporaryDir temp;
    const QString folder = temp.filePath("folder");
    QDir().mkdir(folder);
    const QString kept = folder + "/conversions.txt";
    const QByteArray old = how == "longer" ? QByteArray(100000, 'x') : "the user's own file\r\n";
    QVERIFY(putFile(kept, old));
    QString target = kept;
    if (how.startsWith("readonly")) {
        if (geteuid() == 0)
            QSKIP("permissions do not stop the superuser");
        QFile::setPermissions(
            how == "readonly" ? folder : kept, QFile::ReadOwner | QFile::ExeOwner);
    } else if (how == "file") {
        target = kept + "/inside.txt";
    }
    int calls = 0;
    const Records records(how == "cancel" ? 5000 : 1, conversion("1", "a", "2", "b", "q"));
    const auto result = ConversionsFile::saveRecords(
        target, records, [&](qint64, qint64) { return ++calls < 2; });
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    QCOMPARE(int(result.status), status);
    QCOMPARE(result.errorText.isEmpty(), status != ConversionsFile::WriteResult::Failed);
    QCOMPARE(fileBytes(kept),
        status == 0 ? ConversionsFile::encode(ConversionsFile::recordsText(records)) : old);
    // No file half written is left beside it.
    QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList { "conversions.txt" });
}

void tst_ConversionsFile::fullDiskIsReported()
{
    // A device that takes 10000 bytes and then fails, as a full disk does.
    class FullDevice : public QBuffer
    {
        qint64 writeData(const char *data, qint64 length) override
        {
            if (size() + length <= 10000)
                return QBuffer::writeData(data, length);
            setErrorString(QStringLiteral("No space left on device"));
            return -1;
        }
    } device;
    device.open(QIODevice::WriteOnly);
    const auto result
        = ConversionsFile::writeRecords(device, Records(5000, conversion("1", "a", "2", "b", "q")));
    QCOMPARE(result.status, ConversionsFile::WriteResult::Failed);
    QCOMPARE(result.errorText, QStringLiteral("No space left on device"));
}

QTEST_GUILESS_MAIN(tst_ConversionsFile)
#include "tst_ConversionsFile.moc"

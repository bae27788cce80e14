// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The bytes of conversions files as written, their encoding, and how saving fails: a failed or
// cancelled save must leave whatever file was there untouched.
#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"
#include "records/TestRecords.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <unistd.h>

Q_DECLARE_METATYPE(UnitReport)

static QByteArray written(const Records &records)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const auto result = ConversionsFile::writeRecords(buffer, records);
    return result.ok() ? buffer.data() : QByteArray("failed");
}

// A device that accepts a given number of bytes and then fails, like a full disk.
class FailingDevice : public QIODevice
{
public:
    explicit FailingDevice(qint64 room)
        : m_room(room)
    {
        open(WriteOnly);
    }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 length) override
    {
        if (length > m_room) {
            setErrorString(QStringLiteral("No space left on device"));
            return -1;
        }
        m_room -= length;
        return length;
    }

private:
    qint64 m_room;
};

class tst_ConversionsFile : public QObject
{
    Q_OBJECT

private slots:
    void markedConversionBytes_data();
    void markedConversionBytes();
    void reportBytes_data();
    void reportBytes();
    void writtenTextsReadBack_data();
    void writtenTextsReadBack();
    void progressAndCancel();
    void writeFaultIsReported();
    void saveFailureLeavesOldFile_data();
    void saveFailureLeavesOldFile();
    void cancelledSaveLeavesOldFile();
    void saveReplacesWholeFile();
};

void tst_ConversionsFile::markedConversionBytes_data()
{
    QTest::addColumn<Records>("records");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("nothing to write ends after the two empty lines") << Records() << Opening;

    QTest::newRow("records numbered from 1 with CR LF after the last")
        << Records { conversion("12", "metre (m)", "39.370 08", "inch (in)", "Length"),
               conversion("1", "erg  (dyne-centimetre)", "1E-7", "joule (J)", "Energy") }
        << Opening
            + "     1.     12  metre (m)  =  39.370 08  inch (in)  [Length]\r\n"
              "     2.     1  erg  (dyne-centimetre)  =  1E-7  joule (J)  [Energy]\r\n";

    QTest::newRow("degree sign written as the single byte of code page 1252")
        << Records { conversion(
               "100", "Celsius (\u00B0C)", "212", "Fahrenheit (\u00B0F)", "Temperature") }
        << Opening
            + "     1.     100  Celsius (\xB0"
              "C)  =  212  Fahrenheit (\xB0"
              "F)  "
              "[Temperature]\r\n";

    QTest::newRow("euro sign and typographic quotes are in code page 1252")
        << Records { conversion("1", "\u20AC \u201Cunit\u201D", "2", "b", "q") }
        << Opening + "     1.     1  \x80 \x93unit\x94  =  2  b  [q]\r\n";

    QByteArray utf8 = "\xEF\xBB\xBF" + Opening
        + "     1.     1  ohm (\xCE\xA9)  =  1  volt per ampere  [Resistance]\r\n"
          "     2.     5  micro\xC2\xB5  =  5  \xE2\x82\xAC  [q]\r\n";
    QTest::newRow("a character outside code page 1252 makes the whole file UTF-8 with a mark")
        << Records { conversion("1", "ohm (\u03A9)", "1", "volt per ampere", "Resistance"),
               conversion("5", "micro\u00B5", "5", "\u20AC", "q") }
        << utf8;

    QTest::newRow("texts written as stored, blanks and commas included")
        << Records { conversion(" 1 234.5 ", "a, b", "", "", "") }
        << Opening + "     1.      1 234.5   a, b  =      []\r\n";
}

void tst_ConversionsFile::markedConversionBytes()
{
    QFETCH(Records, records);
    QFETCH(QByteArray, expected);
    QCOMPARE(written(records), expected);
    QCOMPARE(ConversionsFile::encode(ConversionsFile::recordsText(records)), expected);
}

void tst_ConversionsFile::writtenTextsReadBack_data()
{
    QTest::addColumn<Records>("records");
    QTest::addColumn<bool>("withMark");

    QTest::newRow("plain ASCII in code page 1252")
        << Records { conversion("12", "metre (m)", "39.37", "inch (in)", "Length") } << false;
    QTest::newRow("degree sign in code page 1252")
        << Records { conversion("1", "Celsius (\u00B0C)", "1", "kelvin (K)", "Temperature") }
        << false;
    QTest::newRow("1252 bytes that are valid UTF-8 are written as UTF-8")
        << Records { conversion("1", "\u00C3\u00A9", "1", "\u00E2\u201A\u00AC", "q") } << true;
    QTest::newRow("one text whose 1252 bytes are not UTF-8 keeps the file in 1252")
        << Records { conversion("1", "\u00C3\u00A9", "1", "\u00B0", "q") } << false;
    QTest::newRow("such texts in different records")
        << Records { conversion("1", "\u00C3\u00A9", "1", "b", "q"),
               conversion("2", "a", "2", "\u00E9t\u00E9", "q") }
        << false;
    QTest::newRow("a character outside 1252 with mojibake beside it")
        << Records { conversion("1", "\u00C3\u00A9", "1", "\u03A9", "q") } << true;
}

// Whatever encoding the writer picks, the reader must take the bytes for that encoding.
void tst_ConversionsFile::writtenTextsReadBack()
{
    QFETCH(Records, records);
    QFETCH(bool, withMark);
    const QByteArray bytes = written(records);
    QCOMPARE(bytes.startsWith("\xEF\xBB\xBF"), withMark);
    const ConversionsReader::Result read = ConversionsReader::readBytes(bytes);
    QCOMPARE(read.status, ConversionsReader::Finished);
    QCOMPARE(read.records, records);
    QCOMPARE(
        ConversionsReader::readBytes(ConversionsFile::encode(ConversionsFile::recordsText(records)))
            .records,
        records);
}

void tst_ConversionsFile::reportBytes_data()
{
    QTest::addColumn<UnitReport>("report");
    QTest::addColumn<QByteArray>("expected");

    UnitReport temperature;
    temperature.fromValue = "100";
    temperature.fromUnit = "Celsius (\u00B0C)";
    temperature.quantity = "Temperature";
    temperature.lines = { { "100", "Celsius (\u00B0C)" }, { "373.15", "kelvin (K)" },
        { "212", "Fahrenheit (\u00B0F)" } };
    QTest::newRow("every unit gets a numbered line with the same from value") << temperature
                                                                              << Opening
            + "     1.     100  Celsius (\xB0"
              "C)  =  100  Celsius (\xB0"
              "C)  [Temperature]\r\n"
              "     2.     100  Celsius (\xB0"
              "C)  =  373.15  kelvin (K)  [Temperature]\r\n"
              "     3.     100  Celsius (\xB0"
              "C)  =  212  Fahrenheit (\xB0"
              "F)  [Temperature]\r\n";

    UnitReport empty;
    empty.fromValue = "1";
    empty.fromUnit = "a";
    empty.quantity = "q";
    QTest::newRow("a quantity without units gives the opening alone") << empty << Opening;
}

void tst_ConversionsFile::reportBytes()
{
    QFETCH(UnitReport, report);
    QFETCH(QByteArray, expected);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(ConversionsFile::writeReport(buffer, report).ok());
    QCOMPARE(buffer.data(), expected);
}

void tst_ConversionsFile::progressAndCancel()
{
    Records records(2500, conversion("1", "a", "2", "b", "q"));
    QList<qint64> seen;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    auto result = ConversionsFile::writeRecords(buffer, records, [&](qint64 done, qint64 total) {
        seen.append(done);
        return total == 2500;
    });
    QVERIFY(result.ok());
    QVERIFY(seen.size() >= 2);
    QCOMPARE(seen.last(), 2500);
    for (int i = 1; i < seen.size(); ++i)
        QVERIFY(seen[i] > seen[i - 1]);

    buffer.close();
    buffer.setData(QByteArray());
    buffer.open(QIODevice::WriteOnly);
    result = ConversionsFile::writeRecords(buffer, records, [](qint64, qint64) { return false; });
    QCOMPARE(result.status, ConversionsFile::WriteResult::Cancelled);
}

void tst_ConversionsFile::writeFaultIsReported()
{
    Records records(5000, conversion("1", "a", "2", "b", "q"));
    FailingDevice device(10000);
    const auto result = ConversionsFile::writeRecords(device, records);
    QCOMPARE(result.status, ConversionsFile::WriteResult::Failed);
    QVERIFY(result.errorText.contains("No space"));
}

void tst_ConversionsFile::saveFailureLeavesOldFile_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("folder removed before saving") << "vanished";
    QTest::newRow("folder path is a file") << "file";
    QTest::newRow("folder without write permission") << "readonly";
    QTest::newRow("target is a read-only file") << "readonlyfile";
    QTest::newRow("system folder that takes no files") << "proc";
}

void tst_ConversionsFile::saveFailureLeavesOldFile()
{
    QFETCH(QString, how);
    QTemporaryDir temp;
    QVERIFY(temp.isValid());
    QString target;
    const QByteArray old = "the user's own file\r\n";
    if (how == "proc") {
        target = QStringLiteral("/proc/conversions.txt");
    } else if (how == "vanished") {
        QDir(temp.path()).mkdir("gone");
        target = temp.filePath("gone/conversions.txt");
        QDir(temp.filePath("gone")).removeRecursively();
    } else if (how == "file") {
        QFile plain(temp.filePath("plain"));
        QVERIFY(plain.open(QIODevice::WriteOnly));
        plain.close();
        target = temp.filePath("plain/conversions.txt");
    } else {
        QDir(temp.path()).mkdir("locked");
        target = temp.filePath("locked/conversions.txt");
        QFile existing(target);
        QVERIFY(existing.open(QIODevice::WriteOnly));
        existing.write(old);
        existing.close();
        if (how == "readonly")
            QFile::setPermissions(
                temp.filePath("locked"), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        else
            QFile::setPermissions(target, QFileDevice::ReadOwner);
        if (geteuid() == 0)
            QSKIP("permissions do not stop the superuser");
    }

    const auto result
        = ConversionsFile::saveRecords(target, { conversion("1", "a", "2", "b", "q") });
    QFile::setPermissions(temp.filePath("locked"),
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);

    QCOMPARE(result.status, ConversionsFile::WriteResult::Failed);
    QVERIFY(!result.errorText.isEmpty());
    if (how.startsWith("readonly")) {
        QFile existing(target);
        QVERIFY(existing.open(QIODevice::ReadOnly));
        QCOMPARE(existing.readAll(), old);
        QCOMPARE(QDir(temp.filePath("locked")).entryList(QDir::Files | QDir::Hidden),
            QStringList { "conversions.txt" });
    } else {
        QVERIFY(!QFile::exists(target));
    }
}

void tst_ConversionsFile::cancelledSaveLeavesOldFile()
{
    QTemporaryDir temp;
    const QString target = temp.filePath("conversions.txt");
    const QByteArray old = "earlier conversions\r\n";
    QFile existing(target);
    QVERIFY(existing.open(QIODevice::WriteOnly));
    existing.write(old);
    existing.close();

    Records records(5000, conversion("1", "a", "2", "b", "q"));
    int calls = 0;
    const auto result = ConversionsFile::saveRecords(target, records, [&](qint64, qint64) {
        return ++calls < 2; // stop half-way
    });
    QCOMPARE(result.status, ConversionsFile::WriteResult::Cancelled);
    QVERIFY(existing.open(QIODevice::ReadOnly));
    QCOMPARE(existing.readAll(), old);
    QCOMPARE(
        QDir(temp.path()).entryList(QDir::Files | QDir::Hidden), QStringList { "conversions.txt" });
}

void tst_ConversionsFile::saveReplacesWholeFile()
{
    QTemporaryDir temp;
    const QString target = temp.filePath("conversions.txt");
    QFile existing(target);
    QVERIFY(existing.open(QIODevice::WriteOnly));
    existing.write(QByteArray(100000, 'x'));
    existing.close();

    const Records records { conversion("1", "a", "2", "b", "q") };
    QVERIFY(ConversionsFile::saveRecords(target, records).ok());
    QVERIFY(existing.open(QIODevice::ReadOnly));
    QCOMPARE(existing.readAll(), Opening + "     1.     1  a  =  2  b  [q]\r\n");
}

QTEST_GUILESS_MAIN(tst_ConversionsFile)
#include "tst_ConversionsFile.moc"

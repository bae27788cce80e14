// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/ConversionsFile.h"

#include "catalogue/StringTable.h"
#include "records/ConversionsReader.h"
#include "records/Windows1252.h"

#include <algorithm>
#include <QIODevice>
#include <QSaveFile>

namespace StringId
{
constexpr int ReportHeading = 85;
constexpr int NoticeLine = 89;
} // namespace StringId

const QString ConversionsFile::LineEnd = QStringLiteral("\r\n");
const QString ConversionsFile::Indent = QStringLiteral("     ");
const QString ConversionsFile::NumberEnd = QStringLiteral(".     ");

static const QByteArray ByteOrderMark("\xEF\xBB\xBF", 3);
// Records put together before their bytes are written and progress is reported.
static constexpr int RecordsPerChunk = 1000;

static void appendRecordLine(QString &out, int number, const QString &fromValue,
    const QString &fromUnit, const QString &toValue, const QString &toUnit, const QString &quantity)
{
    out.append(ConversionsFile::Indent);
    out.append(QString::number(number));
    out.append(ConversionsFile::NumberEnd);
    out.append(fromValue);
    out.append(QLatin1String("  "));
    out.append(fromUnit);
    out.append(QLatin1String("  =  "));
    out.append(toValue);
    out.append(QLatin1String("  "));
    out.append(toUnit);
    out.append(QLatin1String("  ["));
    out.append(quantity);
    out.append(u']');
}

QString ConversionsFile::headerText()
{
    // The notice line carries a line end of its own besides the one every line gets, which
    // makes the first of the two empty lines; the record block brings the second.
    return StringTable::text(StringId::ReportHeading) + LineEnd
        + StringTable::text(StringId::NoticeLine) + LineEnd + LineEnd;
}

QString ConversionsFile::recordLine(int number, const QString &fromValue, const QString &fromUnit,
    const QString &toValue, const QString &toUnit, const QString &quantity)
{
    QString line;
    appendRecordLine(line, number, fromValue, fromUnit, toValue, toUnit, quantity);
    return line;
}

QString ConversionsFile::recordLine(int number, const MarkedConversion &record)
{
    return recordLine(
        number, record.fromValue, record.fromUnit, record.toValue, record.toUnit, record.quantity);
}

// The record block is written as one text that starts with a line end, followed by the line
// end every text gets; with no records it is that line end alone.
QString ConversionsFile::recordsText(const QList<MarkedConversion> &records)
{
    QString text = headerText();
    int number = 0;
    for (const MarkedConversion &r : records) {
        text.append(LineEnd);
        appendRecordLine(text, ++number, r.fromValue, r.fromUnit, r.toValue, r.toUnit, r.quantity);
    }
    text.append(LineEnd);
    return text;
}

QString ConversionsFile::reportText(const UnitReport &report)
{
    QString text = headerText();
    int number = 0;
    for (const UnitReport::Line &line : report.lines) {
        text.append(LineEnd);
        appendRecordLine(text, ++number, report.fromValue, report.fromUnit, line.toValue,
            line.toUnit, report.quantity);
    }
    text.append(LineEnd);
    return text;
}

namespace
{
// Looks at a file's texts one by one to choose its encoding. Code page 1252 is chosen only when
// the reader will take the bytes for 1252 again: every character has a byte there, and the
// bytes are plain ASCII or not valid UTF-8 (the 1252 bytes of "Ã©" are the UTF-8 of "é"). The texts
// are joined by ASCII, so the whole is valid UTF-8 when each text is.
struct EncodingCheck {
    bool representable = true;
    bool nonAscii = false;
    bool invalidUtf8 = false;

    void add(QStringView text)
    {
        // Plain ASCII reads back the same in either encoding.
        const bool ascii
            = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
        if (!representable || ascii)
            return;
        if (!Windows1252::canEncode(text)) {
            representable = false;
            return;
        }
        nonAscii = true;
        if (!invalidUtf8) {
            const QByteArray bytes = Windows1252::encode(text);
            invalidUtf8 = !ConversionsReader::isValidUtf8(bytes.constData(), bytes.size());
        }
    }

    ConversionsFile::Encoding encoding() const
    {
        return representable && (!nonAscii || invalidUtf8) ? ConversionsFile::Encoding::Windows1252
                                                           : ConversionsFile::Encoding::Utf8;
    }
};
} // namespace

ConversionsFile::Encoding ConversionsFile::encodingFor(QStringView text)
{
    EncodingCheck check;
    check.add(text);
    return check.encoding();
}

QByteArray ConversionsFile::encode(QStringView text)
{
    return encode(text, encodingFor(text), true);
}

QByteArray ConversionsFile::encode(QStringView text, Encoding encoding, bool withMark)
{
    if (encoding == Encoding::Windows1252)
        return Windows1252::encode(text);
    QByteArray bytes = text.toUtf8();
    if (withMark)
        bytes.prepend(ByteOrderMark);
    return bytes;
}

ConversionsFile::WriteResult ConversionsFile::writeBytes(QIODevice &device, const QByteArray &bytes)
{
    if (device.write(bytes) != bytes.size())
        return { WriteResult::Failed, device.errorString() };
    return {};
}

ConversionsFile::WriteResult ConversionsFile::writeRecords(
    QIODevice &device, const QList<MarkedConversion> &records, const Progress &progress)
{
    const QString header = headerText();
    // The encoding must be known before the first byte: look at every text first.
    EncodingCheck check;
    check.add(header);
    for (qsizetype i = 0; check.representable && i < records.size(); ++i) {
        const MarkedConversion &r = records[i];
        for (const QString *text :
            { &r.fromValue, &r.fromUnit, &r.toValue, &r.toUnit, &r.quantity })
            check.add(*text);
    }
    const Encoding encoding = check.encoding();

    WriteResult result = writeBytes(device, encode(header, encoding, true));
    QString chunk;
    const qsizetype total = records.size();
    for (qsizetype i = 0; result.ok() && i < total; ++i) {
        const MarkedConversion &r = records[i];
        chunk.append(LineEnd);
        appendRecordLine(
            chunk, int(i + 1), r.fromValue, r.fromUnit, r.toValue, r.toUnit, r.quantity);
        if ((i + 1) % RecordsPerChunk == 0 || i + 1 == total) {
            result = writeBytes(device, encode(chunk, encoding, false));
            chunk.clear();
            if (result.ok() && progress && !progress(i + 1, total))
                result.status = WriteResult::Cancelled;
        }
    }
    if (result.ok() && total == 0 && progress && !progress(0, 0))
        result.status = WriteResult::Cancelled;
    if (result.ok())
        result = writeBytes(device, encode(LineEnd, encoding, false));
    return result;
}

ConversionsFile::WriteResult ConversionsFile::writeReport(
    QIODevice &device, const UnitReport &report)
{
    return writeBytes(device, encode(reportText(report)));
}

ConversionsFile::WriteResult ConversionsFile::saveWith(const QString &path, const Writer &writer)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return { WriteResult::Failed, file.errorString() };
    WriteResult result = writer(file);
    if (!result.ok()) {
        file.cancelWriting();
        return result;
    }
    if (!file.commit())
        return { WriteResult::Failed, file.errorString() };
    return result;
}

ConversionsFile::WriteResult ConversionsFile::saveRecords(
    const QString &path, const QList<MarkedConversion> &records, const Progress &progress)
{
    return saveWith(
        path, [&](QIODevice &device) { return writeRecords(device, records, progress); });
}

ConversionsFile::WriteResult ConversionsFile::saveReport(
    const QString &path, const UnitReport &report)
{
    return saveWith(path, [&](QIODevice &device) { return writeReport(device, report); });
}

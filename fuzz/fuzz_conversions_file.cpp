// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The conversions file reader on arbitrary bytes. Reading in small steps gives what reading at
// once gives; and the records it finds, written again by the writer, read back the same, for
// every record whose texts the layout can carry (no comma, quote or line break, no blank at
// either end or two in a row, nothing empty, no half of a surrogate pair, fewer than 1000
// records).
#include "FuzzCheck.h"

#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"

#include <cstdint>
#include <QBuffer>

namespace
{

bool carried(const QString &text)
{
    if (text.isEmpty() || !text.isValidUtf16() || text.startsWith(u' ') || text.endsWith(u' ')
        || text.contains(QStringLiteral("  ")))
        return false;
    for (QChar c : text)
        if (c == u',' || c == u'"' || c == u'\r' || c == u'\n')
            return false;
    return true;
}

bool carried(const MarkedConversion &record)
{
    return carried(record.fromValue) && carried(record.fromUnit) && carried(record.toValue)
        && carried(record.toUnit) && carried(record.quantity);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const ConversionsReader::Result result = ConversionsReader::readBytes(bytes);
    FUZZ_CHECK(result.status == ConversionsReader::Finished
        || result.status == ConversionsReader::Foreign
        || result.status == ConversionsReader::BadRecord);

    ConversionsReader steps = ConversionsReader::fromBytes(bytes);
    QList<MarkedConversion> stepwise;
    ConversionsReader::Status status = steps.open();
    const int step = size ? 1 + data[0] % 7 : 1;
    while (status == ConversionsReader::Reading) {
        const qsizetype before = stepwise.size();
        status = steps.readSome(stepwise, step);
        FUZZ_CHECK(stepwise.size() - before <= step);
        FUZZ_CHECK(steps.position() <= steps.size());
    }
    FUZZ_CHECK(status == result.status);
    FUZZ_CHECK(stepwise == result.records);

    QList<MarkedConversion> records;
    for (const MarkedConversion &record : result.records)
        if (carried(record) && records.size() < 999)
            records.append(record);
    QBuffer written;
    written.open(QIODevice::WriteOnly);
    FUZZ_CHECK(ConversionsFile::writeRecords(written, records).ok());
    FUZZ_CHECK(written.data() == ConversionsFile::encode(ConversionsFile::recordsText(records)));
    const ConversionsReader::Result reread = ConversionsReader::readBytes(written.data());
    FUZZ_CHECK(reread.status == ConversionsReader::Finished);
    FUZZ_CHECK(reread.records == records);
    return 0;
}

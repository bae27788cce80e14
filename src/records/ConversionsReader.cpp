// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/ConversionsReader.h"

#include "catalogue/StringTable.h"
#include "records/Windows1252.h"

#include <cstring>

namespace StringId
{
constexpr int ReportHeading = 85;
constexpr int ForeignFile = 274;
} // namespace StringId

// The heading's first characters identify a conversions file.
static constexpr int HeadingCompareLength = 10;

ConversionsReader::ConversionsReader(const QString &path)
    : m_path(path)
    , m_file(std::make_unique<QFile>(path))
{
}

ConversionsReader ConversionsReader::fromBytes(const QByteArray &bytes)
{
    ConversionsReader reader;
    reader.m_buffer = bytes;
    return reader;
}

Notice ConversionsReader::foreignFileNotice()
{
    return Notice { Notice::Exclamation, StringTable::text(StringId::ForeignFile), QString() };
}

bool ConversionsReader::isValidUtf8(const char *data, qint64 size)
{
    const auto *p = reinterpret_cast<const unsigned char *>(data);
    const auto *end = p + size;
    while (p < end) {
        // Runs of ASCII go eight bytes at a time.
        if (end - p >= 8) {
            quint64 word;
            std::memcpy(&word, p, 8);
            if ((word & 0x8080808080808080ULL) == 0) {
                p += 8;
                continue;
            }
        }
        const unsigned char b = *p;
        if (b < 0x80) {
            ++p;
            continue;
        }
        int follow;
        unsigned char low = 0x80, high = 0xBF; // allowed range of the second byte
        if (b >= 0xC2 && b <= 0xDF) {
            follow = 1;
        } else if (b >= 0xE0 && b <= 0xEF) {
            follow = 2;
            if (b == 0xE0)
                low = 0xA0; // no overlong forms
            else if (b == 0xED)
                high = 0x9F; // no surrogates
        } else if (b >= 0xF0 && b <= 0xF4) {
            follow = 3;
            if (b == 0xF0)
                low = 0x90;
            else if (b == 0xF4)
                high = 0x8F; // nothing above U+10FFFF
        } else {
            return false;
        }
        if (end - p <= follow)
            return false;
        if (p[1] < low || p[1] > high)
            return false;
        for (int i = 2; i <= follow; ++i)
            if ((p[i] & 0xC0) != 0x80)
                return false;
        p += follow + 1;
    }
    return true;
}

ConversionsReader::Status ConversionsReader::open()
{
    if (m_opened)
        return m_status;
    m_opened = true;
    if (m_file) {
        if (!m_file->open(QIODevice::ReadOnly)) {
            m_errorText = m_file->errorString();
            return m_status = Unreadable;
        }
        m_size = m_file->size();
        if (m_size > 0)
            m_data = reinterpret_cast<const char *>(m_file->map(0, m_size));
        if (!m_data) {
            // Not mappable (a pipe, a special file): read it instead.
            m_buffer = m_file->readAll();
            if (m_file->error() != QFileDevice::NoError) {
                m_errorText = m_file->errorString();
                return m_status = Unreadable;
            }
        }
    }
    if (!m_data) {
        m_data = m_buffer.constData();
        m_size = m_buffer.size();
    }

    if (m_size >= 3 && std::memcmp(m_data, "\xEF\xBB\xBF", 3) == 0) {
        m_encoding = ConversionsFile::Encoding::Utf8;
        m_pos = 3;
    } else {
        m_encoding = isValidUtf8(m_data, m_size) ? ConversionsFile::Encoding::Utf8
                                                 : ConversionsFile::Encoding::Windows1252;
    }

    const char *start = nullptr;
    qint64 length = 0;
    QString first;
    if (nextField(start, length))
        first = decodeField(start, length);
    // An empty file has an empty first field: it is no conversions file either.
    const QString heading = StringTable::text(StringId::ReportHeading);
    if (first.left(HeadingCompareLength) != heading.left(HeadingCompareLength))
        return m_status = Foreign;
    return m_status = Reading;
}

// The next field, as the runtime's field input reads it; false at the end of the file.
bool ConversionsReader::nextField(const char *&start, qint64 &length)
{
    if (m_pos >= m_size)
        return false;
    const char *data = m_data;
    qint64 pos = m_pos;
    while (pos < m_size && data[pos] == ' ')
        ++pos;
    qint64 fieldEnd;
    if (pos < m_size && data[pos] == '"') {
        const qint64 open = pos + 1;
        const void *close
            = open < m_size ? std::memchr(data + open, '"', size_t(m_size - open)) : nullptr;
        fieldEnd = close ? static_cast<const char *>(close) - data : m_size;
        start = data + open;
        length = fieldEnd - open;
        pos = close ? fieldEnd + 1 : m_size;
        // Whatever follows the closing quote up to the delimiter is not part of the field.
        while (pos < m_size && data[pos] != ',' && data[pos] != '\r' && data[pos] != '\n')
            ++pos;
    } else {
        start = data + pos;
        while (pos < m_size && data[pos] != ',' && data[pos] != '\r' && data[pos] != '\n')
            ++pos;
        length = (data + pos) - start;
    }
    if (pos < m_size) {
        if (data[pos] == '\r') {
            ++pos;
            if (pos < m_size && data[pos] == '\n')
                ++pos;
        } else {
            ++pos; // a comma or an LF
        }
    }
    m_pos = pos;
    return true;
}

QString ConversionsReader::decodeField(const char *start, qint64 length) const
{
    if (m_encoding == ConversionsFile::Encoding::Utf8)
        return QString::fromUtf8(start, length);
    return Windows1252::decode(QByteArrayView(start, length));
}

int ConversionsReader::lineAt(qint64 offset) const
{
    int line = 1;
    for (qint64 i = 0; i < offset && i < m_size; ++i) {
        if (m_data[i] == '\n')
            ++line;
        else if (m_data[i] == '\r' && (i + 1 >= m_size || m_data[i + 1] != '\n'))
            ++line;
    }
    return line;
}

// Removes blanks (not tabs) at both ends.
static QStringView trimBlanks(QStringView text)
{
    qsizetype first = 0, last = text.size();
    while (first < last && text[first] == u' ')
        ++first;
    while (last > first && text[last - 1] == u' ')
        --last;
    return text.mid(first, last - first);
}

bool ConversionsReader::parseRecord(QStringView s, MarkedConversion &record)
{
    // Positions below are 0-based; the separators are searched from fixed places: the first
    // double blank from the ninth character on, which skips "1.     " .. "999.     ".
    const qsizetype p1 = s.indexOf(u"  ", 8);
    if (p1 < 0)
        return false;
    const qsizetype p2 = s.indexOf(u"  =  ", p1 + 2);
    if (p2 < 0)
        return false;
    const qsizetype p3 = s.indexOf(u"  ", p2 + 5);
    if (p3 < 0)
        return false;
    const qsizetype p4 = s.indexOf(u"  [", p3 + 2);
    if (p4 < 0)
        return false;
    // The quantity runs to the end less its closing bracket, which must leave a length of 0
    // at least.
    const qsizetype quantityLength = s.size() - p4 - 4;
    if (quantityLength < 0)
        return false;
    record.fromValue = trimBlanks(s.mid(7, p1 - 7)).toString();
    record.fromUnit = s.mid(p1 + 2, p2 - p1 - 2).toString();
    record.toValue = s.mid(p2 + 5, p3 - p2 - 5).toString();
    record.toUnit = s.mid(p3 + 2, p4 - p3 - 2).toString();
    record.quantity = s.mid(p4 + 3, quantityLength).toString();
    return true;
}

ConversionsReader::Status ConversionsReader::readSome(QList<MarkedConversion> &out, int maxRecords)
{
    if (!m_opened)
        open();
    if (m_status != Reading)
        return m_status;
    static const QString FirstRecord = QStringLiteral("1.     ");
    const char *start = nullptr;
    qint64 length = 0;
    int added = 0;
    while (added < maxRecords) {
        const qint64 fieldPos = m_pos;
        if (!nextField(start, length))
            return m_status = Finished;
        if (!m_recordsBegun) {
            // Cheap test on the bytes first: the marker is plain ASCII in either encoding.
            if (length < 7 || std::memcmp(start, "1.     ", 7) != 0)
                continue;
            m_recordsBegun = true;
        }
        const QString field = decodeField(start, length);
        MarkedConversion record;
        if (!parseRecord(field, record)) {
            m_badLine = lineAt(fieldPos);
            m_errorText = field;
            return m_status = BadRecord;
        }
        out.append(std::move(record));
        ++added;
    }
    return m_status;
}

ConversionsReader::Result ConversionsReader::readAll(ConversionsReader &reader)
{
    Result result;
    Status status = reader.open();
    while (status == Reading)
        status = reader.readSome(result.records, 10000);
    result.status = status;
    if (status == Foreign)
        result.notice = reader.notice();
    result.errorText = reader.errorText();
    result.badLine = reader.badLine();
    return result;
}

ConversionsReader::Result ConversionsReader::readFile(const QString &path)
{
    ConversionsReader reader(path);
    return readAll(reader);
}

ConversionsReader::Result ConversionsReader::readBytes(const QByteArray &bytes)
{
    ConversionsReader reader = fromBytes(bytes);
    return readAll(reader);
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/OutputBuffer.h"

OutputBuffer::OutputBuffer(std::FILE *stream, qsizetype blockSize)
    : m_stream(stream)
    , m_blockSize(blockSize)
{
    m_buffer.reserve(blockSize + 1024);
}

OutputBuffer::~OutputBuffer()
{
    flush();
}

void OutputBuffer::flushWhenFull()
{
    if (m_buffer.size() >= m_blockSize)
        flush();
}

void OutputBuffer::append(QByteArrayView bytes)
{
    m_buffer.append(bytes);
    flushWhenFull();
}

void OutputBuffer::append(char c)
{
    m_buffer.append(c);
    flushWhenFull();
}

void OutputBuffer::append(const QString &text)
{
    const qsizetype size = text.size();
    const QChar *characters = text.constData();
    const qsizetype start = m_buffer.size();
    m_buffer.resize(start + size);
    char *out = m_buffer.data() + start;
    for (qsizetype i = 0; i < size; ++i) {
        const char16_t c = characters[i].unicode();
        if (c >= 0x80) {
            m_buffer.truncate(start);
            m_buffer.append(text.toUtf8());
            break;
        }
        out[i] = char(c);
    }
    flushWhenFull();
}

void OutputBuffer::line(const QString &text)
{
    append(text);
    append('\n');
}

bool OutputBuffer::flush()
{
    if (!m_buffer.isEmpty() && !m_failed) {
        if (std::fwrite(m_buffer.constData(), 1, size_t(m_buffer.size()), m_stream)
            != size_t(m_buffer.size()))
            m_failed = true;
    }
    m_buffer.resize(0); // keeps the capacity for the next block
    if (std::fflush(m_stream) != 0)
        m_failed = true;
    return !m_failed;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Everything mensura-cli writes goes through one of these: text is gathered as UTF-8 and
// handed to the stream in large blocks, so that a batch of many short lines costs a few
// writes instead of one per line.
#pragma once

#include <cstdio>
#include <QByteArray>
#include <QByteArrayView>
#include <QString>

class OutputBuffer
{
public:
    explicit OutputBuffer(std::FILE *stream, qsizetype blockSize = 1 << 16);
    ~OutputBuffer();
    OutputBuffer(const OutputBuffer &) = delete;
    OutputBuffer &operator=(const OutputBuffer &) = delete;

    void append(QByteArrayView bytes);
    void append(char c);
    // Written as UTF-8; the usual all-ASCII result texts are copied without a conversion.
    void append(const QString &text);
    // text and a line break
    void line(const QString &text);

    // Writes what is gathered; false once a write has failed.
    bool flush();

private:
    void flushWhenFull();

    std::FILE *m_stream;
    qsizetype m_blockSize;
    QByteArray m_buffer;
    bool m_failed = false;
};

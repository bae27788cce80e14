// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "cli/BatchConverter.h"

#include "cli/CliConverter.h"
#include "cli/CliText.h"
#include "cli/OutputBuffer.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <QVarLengthArray>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

static constexpr qsizetype ReadBlock = 1 << 20;

BatchConverter::BatchConverter(
    CliConverter &converter, const QString &defaultQuantity, bool verbose)
    : m_converter(converter)
    , m_defaultQuantity(defaultQuantity)
    , m_verbose(verbose)
{
}

// Reads what input has, up to size bytes, waiting only when it has nothing: 0 at the end,
// -1 on an error.
static qint64 readSome(std::FILE *input, char *buffer, qsizetype size)
{
#ifdef Q_OS_UNIX
    for (;;) {
        const ssize_t read = ::read(fileno(input), buffer, size_t(size));
        if (read >= 0 || errno != EINTR)
            return read;
    }
#else
    const size_t read = std::fread(buffer, 1, size_t(size), input);
    return read == 0 && std::ferror(input) ? -1 : qint64(read);
#endif
}

int BatchConverter::run(std::FILE *input, OutputBuffer &out, OutputBuffer &errors)
{
    QByteArray block(ReadBlock, Qt::Uninitialized);
    qsizetype kept = 0; // the start of an unfinished line, moved to the front of the block
    bool failedToRead = false;
    for (;;) {
        if (kept == block.size())
            block.resize(block.size() * 2); // a line longer than the block
        const qint64 read = readSome(input, block.data() + kept, block.size() - kept);
        failedToRead = read < 0;
        const qsizetype filled = kept + qsizetype(std::max<qint64>(read, 0));
        const char *data = block.constData();
        qsizetype start = 0;
        for (;;) {
            const void *newline = std::memchr(data + start, '\n', size_t(filled - start));
            if (!newline)
                break;
            const qsizetype end = static_cast<const char *>(newline) - data;
            convertLine(QByteArrayView(data + start, end - start), out, errors);
            start = end + 1;
        }
        kept = filled - start;
        if (read <= 0) {
            if (kept > 0) // a last line without its line break
                convertLine(QByteArrayView(data + start, kept), out, errors);
            break;
        }
        if (kept > 0 && start > 0)
            std::memmove(block.data(), block.constData() + start, size_t(kept));
        // Whatever has been converted goes out before the next read may wait: a program that
        // writes one line and waits for its answer gets it.
        out.flush();
        errors.flush();
    }
    if (failedToRead) {
        errors.line(CliText::errorPrefix() + CliText::readError());
        return CliConverter::BadInput;
    }
    if (m_failed > 0) {
        errors.line(CliText::errorPrefix() + CliText::batchFailures(m_failed, m_lines));
        return CliConverter::ConversionFailed;
    }
    return CliConverter::Success;
}

void BatchConverter::fail(const QString &message, OutputBuffer &out)
{
    ++m_failed;
    // One output line per input line: the messages' own line breaks become blanks.
    out.line(CliText::errorPrefix() + CliText::batchLine(m_lines, message.simplified()));
}

void BatchConverter::convertLine(QByteArrayView line, OutputBuffer &out, OutputBuffer &errors)
{
    ++m_lines;
    if (line.endsWith('\r'))
        line.chop(1);
    QVarLengthArray<qsizetype, 4> tabs;
    for (qsizetype i = 0; i < line.size() && tabs.size() < 4; ++i)
        if (line[i] == '\t')
            tabs.append(i);
    if (tabs.size() < 2 || tabs.size() > 3) {
        fail(CliText::batchFieldCount(), out);
        return;
    }
    const QByteArrayView value = line.first(tabs[0]);
    const QByteArrayView names = line.sliced(tabs[0] + 1);
    const QByteArrayView from = line.sliced(tabs[0] + 1, tabs[1] - tabs[0] - 1);
    const qsizetype toEnd = tabs.size() == 3 ? tabs[2] : line.size();
    const QByteArrayView to = line.sliced(tabs[1] + 1, toEnd - tabs[1] - 1);
    const QByteArrayView quantity = tabs.size() == 3 ? line.sliced(tabs[2] + 1) : QByteArrayView();

    const UnitLookup::Resolution &resolved = resolution(names, from, to, quantity);
    const CliConverter::Outcome outcome
        = m_converter.convertResolved(QString::fromUtf8(value), resolved);
    if (!outcome.note.isEmpty())
        errors.line(CliText::notePrefix() + CliText::batchLine(m_lines, outcome.note));
    if (!outcome.warning.isEmpty())
        errors.line(CliText::warningPrefix() + CliText::batchLine(m_lines, outcome.warning));
    if (outcome.exitStatus != CliConverter::Success) {
        fail(outcome.errors.join(u' '), out);
        return;
    }
    out.append(outcome.text);
    if (m_verbose) {
        out.append('\t');
        out.append(outcome.statusText);
    }
    out.append('\n');
}

const UnitLookup::Resolution &BatchConverter::resolution(
    QByteArrayView names, QByteArrayView from, QByteArrayView to, QByteArrayView quantity)
{
    // Looked up without copying the line; the key is copied only when it is new.
    const auto found = m_resolutions.constFind(QByteArray::fromRawData(names.data(), names.size()));
    if (found != m_resolutions.constEnd())
        return *found;
    const QString quantityName
        = quantity.isEmpty() ? m_defaultQuantity : QString::fromUtf8(quantity);
    const UnitLookup::Resolution resolved = m_converter.lookup().resolve(
        QString::fromUtf8(from), QString::fromUtf8(to), quantityName);
    return *m_resolutions.insert(names.toByteArray(), resolved);
}

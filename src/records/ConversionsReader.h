// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Reads a conversions file (see ConversionsFile for the layout) back into marked conversions.
//
// The file is read the way it always has been: as a run of fields, where a comma or a line end
// ends a field, leading blanks are skipped and a field that opens with a double quote runs to
// the closing quote. The first field must start like the heading line (its first ten
// characters), or the file is not a conversions file. Then every field is passed over until one
// starts with "1.     ", the first record; from there every field is a record, taken apart by
// the positions of its separators (parseRecord). The first field that does not hold all the
// separators ends the reading; the records before it stay read. So a name with a comma in it
// splits its record, and the number column is skipped by position: from record 1000 on the first
// value comes out empty and the first unit starts with the value.
//
// Encoding: a UTF-8 byte-order mark, or bytes that are valid UTF-8 throughout, mean UTF-8;
// anything else is code page 1252. LF and CR line ends read as CR LF does.
//
// A file is read in steps (readSome), so that a window can show progress and stop between them;
// readFile reads a whole file at once.
#pragma once

#include "records/ConversionsFile.h"
#include "records/MarkedConversion.h"
#include "shell/Notice.h"

#include <memory>
#include <optional>
#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

class ConversionsReader
{
public:
    enum Status {
        Reading, // more records may follow
        Finished, // end of file reached
        Foreign, // not a conversions file: show notice()
        Unreadable, // the file could not be opened or read: errorText()
        BadRecord, // a record field without all its separators: errorText(), badLine()
    };

    explicit ConversionsReader(const QString &path);
    // Reads file contents already in memory.
    static ConversionsReader fromBytes(const QByteArray &bytes);

    // Opens the file and checks its first field; Reading when records may follow.
    Status open();
    // Appends up to maxRecords records to out; returns the status after them.
    Status readSome(QList<MarkedConversion> &out, int maxRecords);
    Status status() const { return m_status; }

    // How far reading has come, in bytes of the file.
    qint64 position() const { return m_pos; }
    qint64 size() const { return m_size; }
    ConversionsFile::Encoding encoding() const { return m_encoding; }

    // Message 274 for a foreign file.
    static Notice foreignFileNotice();
    Notice notice() const { return foreignFileNotice(); }
    QString errorText() const { return m_errorText; }
    // The line (from 1) where the bad record field starts.
    int badLine() const { return m_badLine; }

    // Takes one record field apart; false when a separator is missing (or nothing follows the
    // last one), as the reading's run-time error was.
    static bool parseRecord(QStringView field, MarkedConversion &record);

    // Decides the encoding of a whole file's bytes (after any byte-order mark).
    static bool isValidUtf8(const char *data, qint64 size);

    struct Result {
        QList<MarkedConversion> records;
        Status status = Finished;
        std::optional<Notice> notice; // the foreign-file message
        QString errorText;
        int badLine = 0;
    };
    // Reads a whole file (or bytes): what the command line and the tests use.
    static Result readFile(const QString &path);
    static Result readBytes(const QByteArray &bytes);

private:
    ConversionsReader() = default;
    static Result readAll(ConversionsReader &reader);
    bool nextField(const char *&start, qint64 &length);
    QString decodeField(const char *start, qint64 length) const;
    int lineAt(qint64 offset) const;

    QString m_path;
    std::unique_ptr<QFile> m_file; // none when reading bytes
    QByteArray m_buffer; // the bytes when the file could not be mapped
    const char *m_data = nullptr;
    qint64 m_size = 0;
    qint64 m_pos = 0;
    ConversionsFile::Encoding m_encoding = ConversionsFile::Encoding::Windows1252;
    Status m_status = Reading;
    bool m_opened = false;
    bool m_recordsBegun = false;
    QString m_errorText;
    int m_badLine = 0;
};

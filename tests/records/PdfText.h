// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Reads the text of a PDF file back with pdftotext (poppler-utils), to check what a printed
// report says.
#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

inline bool pdfToTextAvailable()
{
    return !QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty();
}

// The text of the PDF, line by line as laid out on the page, pages separated by form feeds; a
// null string when it could not be read.
inline QString pdfText(
    const QString &path, const QStringList &options = { QStringLiteral("-layout") })
{
    QProcess process;
    process.start(QStringLiteral("pdftotext"),
        QStringList(options) << QStringLiteral("-enc") << QStringLiteral("UTF-8") << path
                             << QStringLiteral("-"));
    if (!process.waitForFinished(30000) || process.exitCode() != 0)
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The non-empty lines of a text with runs of blanks made single: how a report's lines can be
// compared whatever spacing the PDF's text extraction guesses.
inline QStringList simplifiedLines(const QString &text)
{
    QStringList lines;
    for (const QString &line : text.split(u'\n')) {
        const QString simple = QString(line).remove(u'\f').simplified();
        if (!simple.isEmpty())
            lines.append(simple);
    }
    return lines;
}

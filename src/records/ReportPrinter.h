// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Puts a report (PrintReport's lines) on paper: one line below the other from the top of the
// printable area, in Times New Roman, a new page whenever a line would not fit. It paints on any
// paged device, so the same code prints on the default printer and writes a PDF file.
//
// There is no print dialog: a report goes to the default printer. When the computer has no
// printer, the user is offered to save the report as a PDF file instead.
#pragma once

#include "records/ReportLine.h"

#include <functional>
#include <QList>
#include <QPrinterInfo>
#include <QString>

class Dialogs;
class QFont;
class QPagedPaintDevice;
class QWidget;

class ReportPrinter
{
public:
    enum Outcome { Printed, SavedAsPdf, NotPrinted, Failed };

    ReportPrinter(Dialogs &dialogs, QWidget *parent);

    // Paints the lines on the device, starting new pages as needed. False when the device
    // could not be painted on.
    static bool paint(QPagedPaintDevice &device, const QList<ReportLine> &lines);
    // Writes the report as a PDF file, put in place only when complete; the error text, or ""
    // when it was written.
    static QString savePdf(const QString &path, const QList<ReportLine> &lines);
    static QFont fontFor(ReportLine::FontRole role);

    // Prints on the default printer, or offers a PDF file when there is none. A printer fault
    // ends quietly; a PDF file that cannot be written is reported.
    Outcome print(const QList<ReportLine> &lines);

    // Where the default printer comes from; a test puts in its own.
    std::function<QPrinterInfo()> defaultPrinter = [] { return QPrinterInfo::defaultPrinter(); };

private:
    Outcome offerPdf(const QList<ReportLine> &lines);

    Dialogs &m_dialogs;
    QWidget *m_parent;
};

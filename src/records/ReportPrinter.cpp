// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/ReportPrinter.h"

#include "catalogue/StringTable.h"
#include "records/PrintReport.h"
#include "shell/Dialogs.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

namespace StringId
{
constexpr int ProgramName = 9;
constexpr int ReportHeading = 85;
constexpr int NoPrinter = 5325;
constexpr int PdfFilter = 5326;
constexpr int PdfDefaultName = 5327;
constexpr int PdfNotSaved = 5328;
} // namespace StringId

// The margins of the report, in millimetres.
static const QMarginsF PageMargins(20, 20, 20, 20);

ReportPrinter::ReportPrinter(Dialogs &dialogs, QWidget *parent)
    : m_dialogs(dialogs)
    , m_parent(parent)
{
}

QFont ReportPrinter::fontFor(ReportLine::FontRole role)
{
    QFont font(PrintReport::FontFamily);
    font.setStyleHint(QFont::Serif); // wherever Times New Roman is missing
    font.setBold(role != ReportLine::Body);
    font.setPointSize(
        role == ReportLine::Heading ? PrintReport::HeadingPointSize : PrintReport::BodyPointSize);
    return font;
}

bool ReportPrinter::paint(QPagedPaintDevice &device, const QList<ReportLine> &lines)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    // The painter's origin is the top left corner of the printable area.
    const qreal width = device.width();
    const qreal height = device.height();
    qreal y = 0;
    for (const ReportLine &line : lines) {
        const QFont font = fontFor(line.role);
        painter.setFont(font);
        const QFontMetricsF metrics(font, &device);
        // A line too long for the page goes on below, after its label, rather than off the
        // paper.
        const QString label = line.text.left(line.labelLength);
        const QString rest = line.text.mid(label.size());
        const qreal indent = qMin(metrics.horizontalAdvance(label), width / 2);
        const QRectF restBox = rest.isEmpty()
            ? QRectF()
            : metrics.boundingRect(QRectF(0, 0, width - indent, height), Qt::TextWordWrap, rest);
        const qreal lineHeight = qMax(restBox.height(), metrics.lineSpacing());
        if (y > 0 && y + lineHeight > height) {
            if (!device.newPage())
                return false;
            y = 0;
        }
        if (!label.isEmpty())
            painter.drawText(QRectF(0, y, indent, lineHeight), Qt::TextSingleLine, label);
        if (!rest.isEmpty())
            painter.drawText(QRectF(indent, y, width - indent, lineHeight), Qt::TextWordWrap, rest);
        y += lineHeight;
    }
    return painter.end();
}

QString ReportPrinter::savePdf(const QString &path, const QList<ReportLine> &lines)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    {
        QPdfWriter writer(&file);
        writer.setTitle(StringTable::text(StringId::ReportHeading));
        writer.setCreator(StringTable::text(StringId::ProgramName));
        const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
        writer.setPageSize(QPageSize(letter ? QPageSize::Letter : QPageSize::A4));
        writer.setPageMargins(PageMargins, QPageLayout::Millimeter);
        if (!paint(writer, lines)) {
            file.cancelWriting();
            return file.errorString().isEmpty() ? QStringLiteral("PDF") : file.errorString();
        }
    }
    if (!file.commit())
        return file.errorString();
    return QString();
}

ReportPrinter::Outcome ReportPrinter::print(const QList<ReportLine> &lines)
{
    const QPrinterInfo info = defaultPrinter();
    if (info.isNull())
        return offerPdf(lines);
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(StringTable::text(StringId::ReportHeading));
    // The printer keeps its own paper; it gets the report's margins, or its own where they
    // are wider.
    printer.setPageMargins(PageMargins, QPageLayout::Millimeter);
    // A printer fault ends the command without a message; the spooler keeps what it got.
    return paint(printer, lines) ? Printed : Failed;
}

ReportPrinter::Outcome ReportPrinter::offerPdf(const QList<ReportLine> &lines)
{
    const Notice question { Notice::Exclamation, StringTable::text(StringId::NoPrinter),
        QString() };
    if (m_dialogs.question(m_parent, question, Dialogs::YesNo, Dialogs::Yes) != Dialogs::Yes)
        return NotPrinted;
    const QString path = m_dialogs.saveFileName(m_parent, StringTable::text(StringId::PdfFilter),
        StringTable::text(StringId::PdfDefaultName), QStringLiteral("pdf"));
    if (path.isEmpty())
        return NotPrinted;
    const QString error = savePdf(path, lines);
    if (error.isEmpty())
        return SavedAsPdf;
    m_dialogs.message(m_parent,
        Notice { Notice::Exclamation, StringTable::text(StringId::PdfNotSaved).arg(path, error),
            QString() });
    return Failed;
}

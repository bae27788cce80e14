// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/UnitReportCommands.h"

#include "catalogue/StringTable.h"
#include "records/ConversionsFile.h"
#include "records/FileDialogTexts.h"
#include "records/PrintReport.h"
#include "shell/Dialogs.h"

namespace StringId
{
constexpr int PrintAllQuestion = 286;
constexpr int QuestionMark = 5603;
constexpr int NotSaved = 5324;
} // namespace StringId

UnitReportCommands::UnitReportCommands(Dialogs &dialogs, QWidget *parent)
    : m_dialogs(dialogs)
    , m_parent(parent)
    , m_printer(dialogs, parent)
{
}

ReportPrinter::Outcome UnitReportCommands::printAll(const UnitReport &report)
{
    const QString text = StringTable::text(StringId::PrintAllQuestion) + u'\n' + report.fromValue
        + u' ' + report.fromUnit + StringTable::text(StringId::QuestionMark);
    if (m_dialogs.question(
            m_parent, Notice { Notice::Exclamation, text, QString() }, Dialogs::YesNo, Dialogs::Yes)
        != Dialogs::Yes)
        return ReportPrinter::NotPrinted;
    return m_printer.print(PrintReport::unitReport(report));
}

bool UnitReportCommands::saveAll(const UnitReport &report)
{
    const QString path = FileDialogTexts::saveFileName(m_dialogs, m_parent);
    if (path.isEmpty())
        return false;
    const auto result = ConversionsFile::saveReport(path, report);
    if (!result.ok()) {
        m_dialogs.message(m_parent,
            Notice { Notice::Exclamation,
                StringTable::text(StringId::NotSaved).arg(path, result.errorText), QString() });
    }
    return result.ok();
}

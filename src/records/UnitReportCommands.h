// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The main window's two commands for "all conversions for this unit and value": print them
// (after asking) or save them to a conversions file. The main window gathers the value, the
// unit and the units of its right-hand list into a UnitReport; the texts come from the core,
// this class only asks, prints and saves.
#pragma once

#include "records/ReportPrinter.h"
#include "records/UnitReport.h"

class Dialogs;
class QWidget;

class UnitReportCommands
{
public:
    UnitReportCommands(Dialogs &dialogs, QWidget *parent);

    // Asks "Print a copy ... for <value> <unit>?"; on Yes prints the report.
    ReportPrinter::Outcome printAll(const UnitReport &report);
    // Asks for a file name and writes the report there; false when nothing was written.
    bool saveAll(const UnitReport &report);

    ReportPrinter &printer() { return m_printer; }

private:
    Dialogs &m_dialogs;
    QWidget *m_parent;
    ReportPrinter m_printer;
};

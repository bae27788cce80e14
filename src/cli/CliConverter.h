// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One conversion of the command line, done as the main window does it: the quantity becomes
// the catalogue's current one and the value, read as the value box's text is read, goes to the
// conversion that ConversionEngine::UpdateResult runs, so the result is the very text the
// result box would show. What the window would show in message boxes comes back as error or
// warning texts, with the exit status they mean.
#pragma once

#include "cli/UnitLookup.h"
#include "convert/ConversionEngine.h"
#include "convert/NumberText.h"
#include "records/UnitReport.h"
#include "shell/Session.h"

#include <QString>
#include <QStringList>
#include <QStringView>

class Catalogue;
class Settings;

class CliConverter
{
public:
    enum ExitStatus { Success = 0, ConversionFailed = 1, BadInput = 2 };

    struct Outcome {
        int exitStatus = Success;
        QString text; // the result box's text; empty when nothing was converted
        QString statusText; // the status bar's text on the figures
        QStringList errors; // why nothing was converted
        QString warning; // the value was corrected (a temperature below absolute zero)
        QString note; // only the start of the value was a number: what it was read as
    };

    CliConverter(Catalogue &catalogue, const Settings &settings);

    // Converts value from one unit to another, the names resolved by the lookup.
    Outcome convert(
        const QString &value, const QString &from, const QString &to, const QString &quantity);
    // The same for names already resolved.
    Outcome convertResolved(const QString &value, const UnitLookup::Resolution &resolution);

    // The value converted from the resolved unit into every enabled unit of its quantity, as
    // the main window's report commands convert it; failures' messages go to notices.
    UnitReport report(
        const QString &value, const UnitLookup::Resolution &resolution, QList<Notice> *notices);

    UnitLookup &lookup() { return m_lookup; }

    // A value is refused when the value box's reading finds no digit at its start; otherwise it
    // is converted as that reading reads it. readAs() is the note for a value of which only the
    // start was a number ("1,500" is read as 1), or empty.
    static bool isNumber(QStringView value);
    static QString readAs(const QString &value);

    // A message box's text as one message: without the "Try Again." the window puts under it.
    static QString messageText(const QString &text);

private:
    static QString readAs(const QString &value, const NumberText::LeadingNumber &reading);

    Catalogue &m_catalogue;
    Session m_session;
    ConversionEngine m_engine;
    UnitLookup m_lookup;
};

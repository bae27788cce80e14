// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The program's settings as one plain object, owned by the application and handed to whoever
// needs them. Every stored setting is declared once, in the table of Settings.cpp, with its
// value name in the "settings" key, its type and its default.
#pragma once

#include "convert/RuntimeError.h"

#include <QList>
#include <QString>

class SettingsStore;

class Settings
{
public:
    static const QString Section; // "settings"
    // Values of that key that say a one-time hint has been shown, in any run: "1" once it has,
    // "0" (or absent) before.
    static const QString TrayHintShownValue; // "minonce"
    static const QString FirstRunHelpShownValue; // "StartOnce"

    // Number formatting
    int SigFigs = 7;
    double MaxNumber = 1000;
    double MinNumber = 0.1;
    bool Scientific = false;
    bool Triads = true;
    // Behaviour and look
    bool ShowTrayIcon = true;
    bool ConfirmExit = true;
    bool RememberLast = true;
    bool ShowTabs = false;
    int UseWindowsCalc = 1;
    QString ShellProgram;
    // The last conversion, put back at start when RememberLast is on
    QString LastValue = QStringLiteral("1");
    QString LastUnit1;
    QString LastUnit2;
    QString LastQuantity = QStringLiteral("Length");
    // The user's decimal separator, read from the locale at start (never stored)
    QString DecimalSeparator = QStringLiteral(".");

    // Reads the settings in their table order, except "numericformatting", "currphysquan" and
    // "windowstate". A stored text that is not of the setting's type leaves the default in
    // place and is reported in problems (a type error naming the value).
    void LoadSettings(SettingsStore &store, QList<RuntimeError> *problems = nullptr);
    // Reads "numericformatting"; a value outside 0..13 becomes 7.
    void LoadSigFigs(SettingsStore &store, QList<RuntimeError> *problems = nullptr);
    // Reads the name of the last quantity ("currphysquan", default "Length").
    void LoadLastQuantity(SettingsStore &store);

    // Writes one setting of the table by its value name, in its stored form ("1"/"0" for
    // booleans, numbers as their shortest text).
    void save(SettingsStore &store, const QString &valueName) const;
    // The stored text of a setting of the table, as save() writes it.
    QString storedText(const QString &valueName) const;

    // The default shell program: the platform's calculator.
    static QString defaultShellProgram();
};

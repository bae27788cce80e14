// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The user's changes to the catalogue in the settings store:
//   User\OnOff\<quantity>    "OnOff" and one value per built-in unit: "1" enabled, "0" not
//   User\NewQuans\<quantity> one key per custom quantity: "OnOff", "DefaultUnit"
//   User\Units\<quantity>    one value per custom unit: a flag letter and the factor text,
//                            a = enabled, b = disabled, c = enabled exact, d = disabled exact
// Custom entries come after the built-in ones, in the store's own order.
#pragma once

#include "convert/RuntimeError.h"

#include <QList>

class Catalogue;
class SettingsStore;

class UserCatalogue
{
public:
    // Appends the custom quantities and units of the store to a catalogue that holds the
    // built-in quantities.
    static void LoadUserCatalogue(
        Catalogue &catalogue, SettingsStore &store, QList<RuntimeError> *problems = nullptr);
    // Writes the user's part of a whole catalogue into the store (below User\), as one batch.
    // Disabled built-in entries are written as "0"; enabled ones need no value.
    static void SaveUserCatalogue(const Catalogue &catalogue, SettingsStore &store);

    // The stored form of a custom unit: flag letter and factor text.
    static QString unitData(int onOff, int exact, const QString &factorText);
};

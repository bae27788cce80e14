// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Flags shared by the windows during one run and never stored.
#pragma once

struct Session {
    // Set just before the program itself changes the main window's selections or value, so
    // that the next update shows nothing instead of taking the change for the user's.
    bool SkipNextUpdate = false;
    // The marked conversions: some exist; all of them have been saved to a file.
    bool MarkedConversionsExist = false;
    bool MarkedConversionsSaved = false;
    // The options dialog's working copy of the catalogue has been edited.
    bool CatalogueChanged = false;
    // The one-time hints (tray hint, first-run help) have been shown: in an earlier run, as the
    // settings said at start, or in this one. Whoever rewrites the settings keeps them shown.
    bool TrayHintShown = false;
    bool FirstRunHelpShown = false;
};

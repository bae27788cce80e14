// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The file dialogs of conversions files, shared by the main window and the marked conversions
// window: the filter "Text Files (*.txt)", "untitled.txt" as the name offered for saving and
// "txt" added to a name typed without an extension.
#pragma once

#include <QString>

class Dialogs;
class QWidget;

class FileDialogTexts
{
public:
    static QString filter();
    static QString defaultName();
    // The stored default extension is "*.txt"; the dialog wants it without the "*.".
    static QString defaultSuffix();

    // "" when the user cancelled.
    static QString openFileName(Dialogs &dialogs, QWidget *parent);
    static QString saveFileName(Dialogs &dialogs, QWidget *parent);
};

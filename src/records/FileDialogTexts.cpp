// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/FileDialogTexts.h"

#include "catalogue/StringTable.h"
#include "shell/Dialogs.h"

namespace StringId
{
constexpr int DefaultExtension = 273;
constexpr int DefaultName = 278;
constexpr int TextFilesFilter = 5300;
} // namespace StringId

QString FileDialogTexts::filter()
{
    return StringTable::text(StringId::TextFilesFilter);
}

QString FileDialogTexts::defaultName()
{
    return StringTable::text(StringId::DefaultName);
}

QString FileDialogTexts::defaultSuffix()
{
    QString suffix = StringTable::text(StringId::DefaultExtension);
    while (suffix.startsWith(u'*') || suffix.startsWith(u'.'))
        suffix.remove(0, 1);
    return suffix;
}

QString FileDialogTexts::openFileName(Dialogs &dialogs, QWidget *parent)
{
    return dialogs.openFileName(parent, filter());
}

QString FileDialogTexts::saveFileName(Dialogs &dialogs, QWidget *parent)
{
    return dialogs.saveFileName(parent, filter(), defaultName(), defaultSuffix());
}

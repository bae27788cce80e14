// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

void Clipboard::put(const QString &text)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(text);
}

QString Clipboard::wholeConversion(
    const QString &value, const QString &fromUnit, const QString &result, const QString &toUnit)
{
    return value + u' ' + fromUnit + QStringLiteral("  =  ") + result + u' ' + toUnit;
}

QString Clipboard::text(bool fromSelection)
{
    return QGuiApplication::clipboard()->text(
        fromSelection ? QClipboard::Selection : QClipboard::Clipboard);
}

std::optional<QString> Clipboard::plainText()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (data && data->hasText())
        return data->text();
    return std::nullopt;
}

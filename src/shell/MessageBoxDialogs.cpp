// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/MessageBoxDialogs.h"

#include "catalogue/StringTable.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

static constexpr int ProgramTitle = 9;

static QMessageBox::Icon iconOf(Notice::Icon icon)
{
    switch (icon) {
    case Notice::Information:
        return QMessageBox::Information;
    case Notice::Exclamation:
        return QMessageBox::Warning;
    case Notice::Critical:
        return QMessageBox::Critical;
    case Notice::NoIcon:
        break;
    }
    return QMessageBox::NoIcon;
}

static QString titleOf(const Notice &notice)
{
    return notice.title.isEmpty() ? StringTable::text(ProgramTitle) : notice.title;
}

void MessageBoxDialogs::message(QWidget *parent, const Notice &notice)
{
    QMessageBox box(iconOf(notice.icon), titleOf(notice), notice.text, QMessageBox::Ok, parent);
    box.exec();
}

Dialogs::Answer MessageBoxDialogs::question(
    QWidget *parent, const Notice &notice, Buttons buttons, Answer defaultAnswer)
{
    QMessageBox::StandardButtons standard = QMessageBox::Yes | QMessageBox::No;
    if (buttons == YesNoCancel)
        standard |= QMessageBox::Cancel;
    QMessageBox box(iconOf(notice.icon), titleOf(notice), notice.text, standard, parent);
    box.setDefaultButton(defaultAnswer == Yes ? QMessageBox::Yes
            : defaultAnswer == Cancel         ? QMessageBox::Cancel
                                              : QMessageBox::No);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Yes;
    case QMessageBox::No:
        return No;
    default:
        return Cancel;
    }
}

std::optional<QString> MessageBoxDialogs::input(
    QWidget *parent, const QString &prompt, const QString &title, const QString &defaultText)
{
    bool ok = false;
    const QString text
        = QInputDialog::getText(parent, title, prompt, QLineEdit::Normal, defaultText, &ok);
    if (!ok)
        return std::nullopt;
    return text;
}

QString MessageBoxDialogs::openFileName(QWidget *parent, const QString &filter)
{
    return QFileDialog::getOpenFileName(parent, QString(), QString(), filter);
}

QString MessageBoxDialogs::saveFileName(QWidget *parent, const QString &filter,
    const QString &defaultName, const QString &defaultSuffix)
{
    QFileDialog dialog(parent, QString(), QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(defaultSuffix);
    dialog.selectFile(defaultName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}

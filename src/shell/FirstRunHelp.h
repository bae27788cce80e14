// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The page shown once, the first time Mensura starts: a short contents page on how the main
// window works. It stands in for the help window's contents page, which replaces it when the
// help topics are built in; start-up is its only user.
#pragma once

#include <QWidget>

class FirstRunHelp : public QWidget
{
    Q_OBJECT

public:
    explicit FirstRunHelp(QWidget *parent = nullptr);

    // The page as HTML, built from the string table.
    static QString contentsPage();
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A Qt Widgets program that does nothing but show one label: what any Qt program pays to show
// a window, against which Mensura's start-up is measured.
#include <QApplication>
#include <QLabel>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QLabel label(QStringLiteral("Mensura"));
    label.resize(300, 100);
    label.show();
    return app.exec();
}

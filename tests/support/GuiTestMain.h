// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The main function of a GUI test: MENSURA_GUI_TEST_MAIN(TestClass) in place of QTEST_MAIN.
// It makes sure the test runs without a display and without the user's runtime folder (also
// when started by hand rather than by ctest), and watches for modal dialogs: every message of
// the program goes through Dialogs, so a modal window that turns up is a fault. The watchdog
// fails the running test and closes the window, so that the test cannot hang.
#pragma once

#include <QtTest>

class QObject;

namespace GuiTest
{
// Before the application exists: the platform and the runtime folder.
void prepareEnvironment();
// Runs the test object's functions with the watchdog in place.
int run(QObject *test, int argc, char **argv);
} // namespace GuiTest

#define MENSURA_GUI_TEST_MAIN(TestObject)                                                          \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        GuiTest::prepareEnvironment();                                                             \
        QApplication app(argc, argv);                                                              \
        TestObject test;                                                                           \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return GuiTest::run(&test, argc, argv);                                                    \
    }

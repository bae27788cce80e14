// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A run-time error of a routine: the program's routines stop where the error happens and a
// handler further up (the update routine, the formatter) catches it and reports it to the user
// as "Error # <number>" and a description. The numbers are the classic run-time ones, so the
// messages read the same everywhere in the program.
#pragma once

#include <QString>

struct RuntimeError {
    enum Number {
        InvalidCall = 5,
        Overflow = 6,
        DivisionByZero = 11,
        TypeMismatch = 13,
    };

    int number = 0;
    // What went wrong in words, when the routine knows more than the number says
    // (for example which stored value was not a number). Empty: the standard description.
    QString detail;

    // The standard description of the error number, from the string table.
    QString description() const;
    // Message 271's text: "Error # <number>", a line break and the description.
    QString messageText() const;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The fuzz targets' invariant check: a broken invariant prints what broke and aborts, which
// libFuzzer reports as a crash and saves the input that caused it.
#pragma once

#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(condition)                                                                      \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(                                                                          \
                stderr, "invariant broken at %s:%d: %s\n", __FILE__, __LINE__, #condition);        \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)

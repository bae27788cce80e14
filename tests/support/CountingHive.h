// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A hive file that counts how often it is saved, for tests of how many saves a command costs.
#pragma once

#include "shell/HiveFile.h"

class CountingHive : public HiveFile
{
public:
    using HiveFile::HiveFile;
    bool flush() override
    {
        ++flushes;
        return HiveFile::flush();
    }
    int flushes = 0;
};

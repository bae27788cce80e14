// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The Windows registry below HKEY_CURRENT_USER through the wide-character Win32 API, for the
// settings store on Windows (WinRegistryBackend puts Qt's strings on it). Free of Qt so that it
// builds and is tested on its own with a cross compiler. Paths are "\" separated and relative to
// HKEY_CURRENT_USER ("Software\Mensura\settings"); the registry itself compares key and value
// names without regard to case. Every value is written as REG_SZ with its terminating NUL; a
// read gives the stored characters less that terminator, so the one-character NUL text that
// stands for an empty value comes back as written.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

class WinRegistry
{
public:
    // A Win32 status: 0 is success, 2 (ERROR_FILE_NOT_FOUND) a missing key or value.
    using Status = long;

    // Opens the key with create, making it and every missing key above it. True when the key
    // did not exist before; status (when given) receives the result of the call.
    static bool createKey(const std::wstring &path, Status *status = nullptr);
    // The text of a value: REG_SZ and REG_EXPAND_SZ as stored, REG_DWORD as its decimal
    // number. Nothing for a missing key or value, or a value of another type.
    static std::optional<std::wstring> value(const std::wstring &path, const std::wstring &name);
    // Creates the key when needed and writes the value as REG_SZ.
    static Status setValue(
        const std::wstring &path, const std::wstring &name, const std::wstring &text);
    // The names of the direct sub-keys, and the text values of a key, in the registry's own
    // enumeration order. Empty for a missing key.
    static std::vector<std::wstring> subKeys(const std::wstring &path);
    static std::vector<std::pair<std::wstring, std::wstring>> values(const std::wstring &path);
    // Deletes the key with all its sub-keys and values. False when it did not exist or could
    // not be deleted (status says which).
    static bool deleteTree(const std::wstring &path, Status *status = nullptr);
    static bool keyExists(const std::wstring &path);

    // The system's description of a status, for error messages.
    static std::wstring statusText(Status status);
};

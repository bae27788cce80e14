// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/WinRegistry.h"

#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0601 // RegDeleteTreeW came with Windows Vista
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace
{

// Closes the key it holds when it goes out of scope.
class KeyHandle
{
public:
    KeyHandle() = default;
    ~KeyHandle()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    KeyHandle(const KeyHandle &) = delete;
    KeyHandle &operator=(const KeyHandle &) = delete;

    HKEY *out() { return &m_key; }
    HKEY get() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

// Leading and trailing separators would name another key ("" is HKEY_CURRENT_USER itself).
std::wstring trimmedPath(const std::wstring &path)
{
    const auto first = path.find_first_not_of(L'\\');
    if (first == std::wstring::npos)
        return std::wstring();
    const auto last = path.find_last_not_of(L'\\');
    return path.substr(first, last - first + 1);
}

LSTATUS openForReading(const std::wstring &path, KeyHandle &key)
{
    return RegOpenKeyExW(HKEY_CURRENT_USER, trimmedPath(path).c_str(), 0, KEY_READ, key.out());
}

// The value's bytes as text: REG_SZ data less one terminating NUL, a DWORD as its number.
std::optional<std::wstring> textOf(DWORD type, const std::vector<BYTE> &data, DWORD size)
{
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        std::wstring text(size / sizeof(wchar_t), L'\0');
        if (!text.empty())
            std::memcpy(&text[0], data.data(), text.size() * sizeof(wchar_t));
        if (!text.empty() && text.back() == L'\0')
            text.pop_back();
        return text;
    }
    if (type == REG_DWORD && size == sizeof(DWORD)) {
        DWORD number = 0;
        std::memcpy(&number, data.data(), sizeof number);
        return std::to_wstring(number);
    }
    return std::nullopt;
}

} // namespace

bool WinRegistry::createKey(const std::wstring &path, Status *status)
{
    KeyHandle key;
    DWORD disposition = 0;
    const LSTATUS result = RegCreateKeyExW(HKEY_CURRENT_USER, trimmedPath(path).c_str(), 0, nullptr,
        REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE, nullptr, key.out(), &disposition);
    if (status)
        *status = result;
    return result == ERROR_SUCCESS && disposition == REG_CREATED_NEW_KEY;
}

std::optional<std::wstring> WinRegistry::value(const std::wstring &path, const std::wstring &name)
{
    KeyHandle key;
    if (openForReading(path, key) != ERROR_SUCCESS)
        return std::nullopt;
    // The size is asked first; should the value grow in between, the read says so and is
    // repeated with the new size.
    for (;;) {
        DWORD type = 0, size = 0;
        LSTATUS result = RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, nullptr, &size);
        if (result != ERROR_SUCCESS)
            return std::nullopt;
        std::vector<BYTE> data(size + sizeof(wchar_t));
        result = RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, data.data(), &size);
        if (result == ERROR_MORE_DATA)
            continue;
        if (result != ERROR_SUCCESS)
            return std::nullopt;
        return textOf(type, data, size);
    }
}

WinRegistry::Status WinRegistry::setValue(
    const std::wstring &path, const std::wstring &name, const std::wstring &text)
{
    KeyHandle key;
    LSTATUS result = RegCreateKeyExW(HKEY_CURRENT_USER, trimmedPath(path).c_str(), 0, nullptr,
        REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, key.out(), nullptr);
    if (result != ERROR_SUCCESS)
        return result;
    // The length includes the terminating NUL, which c_str() provides.
    const auto bytes = DWORD((text.size() + 1) * sizeof(wchar_t));
    result = RegSetValueExW(
        key.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE *>(text.c_str()), bytes);
    return result;
}

std::vector<std::wstring> WinRegistry::subKeys(const std::wstring &path)
{
    std::vector<std::wstring> names;
    KeyHandle key;
    if (openForReading(path, key) != ERROR_SUCCESS)
        return names;
    DWORD longest = 0;
    if (RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, nullptr, &longest, nullptr, nullptr,
            nullptr, nullptr, nullptr, nullptr)
        != ERROR_SUCCESS)
        return names;
    std::vector<wchar_t> buffer(longest + 1);
    for (DWORD index = 0;;) {
        auto length = DWORD(buffer.size());
        const LSTATUS result = RegEnumKeyExW(
            key.get(), index, buffer.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (result == ERROR_MORE_DATA) { // a longer key was added meanwhile
            buffer.resize(buffer.size() * 2);
            continue;
        }
        if (result != ERROR_SUCCESS)
            break;
        names.emplace_back(buffer.data(), length);
        ++index;
    }
    return names;
}

std::vector<std::pair<std::wstring, std::wstring>> WinRegistry::values(const std::wstring &path)
{
    std::vector<std::pair<std::wstring, std::wstring>> list;
    KeyHandle key;
    if (openForReading(path, key) != ERROR_SUCCESS)
        return list;
    DWORD longestName = 0, largestData = 0;
    if (RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
            &longestName, &largestData, nullptr, nullptr)
        != ERROR_SUCCESS)
        return list;
    std::vector<wchar_t> name(longestName + 1);
    std::vector<BYTE> data(largestData + sizeof(wchar_t));
    for (DWORD index = 0;;) {
        auto nameLength = DWORD(name.size());
        auto size = DWORD(data.size());
        DWORD type = 0;
        const LSTATUS result = RegEnumValueW(
            key.get(), index, name.data(), &nameLength, nullptr, &type, data.data(), &size);
        if (result == ERROR_MORE_DATA) { // a value grew meanwhile
            name.resize(name.size() * 2);
            data.resize(std::max<size_t>(data.size() * 2, size + sizeof(wchar_t)));
            continue;
        }
        if (result != ERROR_SUCCESS)
            break;
        if (auto text = textOf(type, data, size))
            list.emplace_back(std::wstring(name.data(), nameLength), std::move(*text));
        ++index;
    }
    return list;
}

bool WinRegistry::deleteTree(const std::wstring &path, Status *status)
{
    const std::wstring trimmed = trimmedPath(path);
    LSTATUS result = ERROR_INVALID_PARAMETER; // never all of HKEY_CURRENT_USER
    if (!trimmed.empty()) {
        result = keyExists(trimmed) ? RegDeleteTreeW(HKEY_CURRENT_USER, trimmed.c_str())
                                    : LSTATUS(ERROR_FILE_NOT_FOUND);
    }
    if (status)
        *status = result;
    return result == ERROR_SUCCESS;
}

bool WinRegistry::keyExists(const std::wstring &path)
{
    KeyHandle key;
    return openForReading(path, key) == ERROR_SUCCESS;
}

std::wstring WinRegistry::statusText(Status status)
{
    wchar_t buffer[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, DWORD(status), 0, buffer, DWORD(std::size(buffer)), nullptr);
    std::wstring text(buffer, length);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.pop_back();
    if (text.empty())
        text = L"registry error " + std::to_wstring(status);
    return text;
}

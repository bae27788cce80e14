// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// WinRegistry against a real registry (under wine on Linux). Run with the name of one case;
// each case works below its own key HKCU\Software\Mensura\tests\<case>-<process>-<tick>, which
// it deletes again, and checks the raw registry data through the Win32 API where the store's
// rules depend on the exact bytes.
#include "shell/WinRegistry.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace
{

int failures = 0;

#define CHECK(condition)                                                                           \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::printf("FAIL %s:%d: %s\n", __FILE__, __LINE__, #condition);                       \
            ++failures;                                                                            \
        }                                                                                          \
    } while (false)

const std::wstring TestsKey = L"Software\\Mensura\\tests";
std::wstring root; // this case's own key

std::wstring under(const std::wstring &relative)
{
    return relative.empty() ? root : root + L"\\" + relative;
}

// The raw data of a value as the registry holds it.
struct RawValue {
    LSTATUS status = ERROR_FILE_NOT_FOUND;
    DWORD type = REG_NONE;
    std::string bytes;
};

RawValue rawValue(const std::wstring &path, const std::wstring &name)
{
    RawValue raw;
    HKEY key = nullptr;
    raw.status = RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key);
    if (raw.status != ERROR_SUCCESS)
        return raw;
    DWORD size = 0;
    raw.status = RegQueryValueExW(key, name.c_str(), nullptr, &raw.type, nullptr, &size);
    if (raw.status == ERROR_SUCCESS) {
        raw.bytes.resize(size);
        raw.status = RegQueryValueExW(
            key, name.c_str(), nullptr, &raw.type, reinterpret_cast<BYTE *>(&raw.bytes[0]), &size);
        raw.bytes.resize(size);
    }
    RegCloseKey(key);
    return raw;
}

LSTATUS setRawValue(
    const std::wstring &path, const std::wstring &name, DWORD type, const void *data, DWORD size)
{
    HKEY key = nullptr;
    LSTATUS status = RegCreateKeyExW(
        HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    if (status == ERROR_SUCCESS) {
        status = RegSetValueExW(key, name.c_str(), 0, type, static_cast<const BYTE *>(data), size);
        RegCloseKey(key);
    }
    return status;
}

// A key made outside WinRegistry, to check what it sees.
void setTextValue(const std::wstring &path, const std::wstring &name, const std::wstring &text)
{
    CHECK(setRawValue(path, name, REG_SZ, text.c_str(), DWORD((text.size() + 1) * 2))
        == ERROR_SUCCESS);
}

bool contains(const std::vector<std::wstring> &list, const std::wstring &item)
{
    return std::find(list.begin(), list.end(), item) != list.end();
}

void createKeys()
{
    WinRegistry::Status status = -1;
    CHECK(WinRegistry::createKey(under(L"settings"), &status));
    CHECK(status == ERROR_SUCCESS);
    CHECK(!WinRegistry::createKey(under(L"settings"), &status)); // it exists now
    CHECK(status == ERROR_SUCCESS);
    CHECK(!WinRegistry::createKey(under(L"SETTINGS"))); // the registry ignores case

    // Every missing key on the way is made.
    CHECK(WinRegistry::createKey(under(L"User\\Units\\Length")));
    CHECK(WinRegistry::keyExists(under(L"User")));
    CHECK(WinRegistry::keyExists(under(L"user\\units")));
    CHECK(WinRegistry::subKeys(under(L"User")) == std::vector<std::wstring> { L"Units" });

    // A trailing separator names the same key, never the one above it.
    CHECK(!WinRegistry::createKey(under(L"settings\\")));
    CHECK(!WinRegistry::keyExists(under(L"absent")));
    CHECK(WinRegistry::subKeys(under(L"absent")).empty());
    CHECK(WinRegistry::values(under(L"absent")).empty());
}

void writeAndRead()
{
    CHECK(WinRegistry::setValue(under(L"settings"), L"currvalue", L"12") == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"settings"), L"currvalue") == std::wstring(L"12"));
    // The key was created by the write; names are found in any case.
    CHECK(WinRegistry::value(under(L"SETTINGS"), L"CurrValue") == std::wstring(L"12"));

    // Stored as REG_SZ with its terminating NUL.
    const RawValue raw = rawValue(under(L"settings"), L"currvalue");
    CHECK(raw.status == ERROR_SUCCESS);
    CHECK(raw.type == REG_SZ);
    CHECK(raw.bytes == std::string("1\0002\0\0\0", 6));

    // Overwriting in another case keeps one value.
    CHECK(WinRegistry::setValue(under(L"settings"), L"CURRVALUE", L"3.5") == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"settings"), L"currvalue") == std::wstring(L"3.5"));
    CHECK(WinRegistry::values(under(L"settings")).size() == 1);

    CHECK(!WinRegistry::value(under(L"settings"), L"missing"));
    CHECK(!WinRegistry::value(under(L"absent"), L"currvalue"));
    CHECK(!WinRegistry::keyExists(under(L"absent"))); // reading creates nothing

    // The key's default value has the empty name.
    CHECK(WinRegistry::setValue(under(L"settings"), L"", L"default") == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"settings"), L"") == std::wstring(L"default"));

    // Data written by another program without a terminating NUL is read whole.
    const std::wstring unterminated = L"abc";
    CHECK(
        setRawValue(under(L"settings"), L"raw", REG_SZ, unterminated.c_str(), 6) == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"settings"), L"raw") == std::wstring(L"abc"));
}

void emptyValueNulText()
{
    // The settings store writes an empty value as the one-character NUL text...
    const std::wstring nulText(1, L'\0');
    CHECK(WinRegistry::setValue(under(L"settings"), L"currunit1", nulText) == ERROR_SUCCESS);
    const RawValue raw = rawValue(under(L"settings"), L"currunit1");
    CHECK(raw.type == REG_SZ);
    CHECK(raw.bytes == std::string(4, '\0')); // the NUL character and the terminator
    // ...and must get exactly that text back to turn it into "".
    CHECK(WinRegistry::value(under(L"settings"), L"currunit1") == nulText);
    const auto listed = WinRegistry::values(under(L"settings"));
    CHECK(listed.size() == 1 && listed[0].second == nulText);

    // A truly empty text is the terminator alone and reads back empty.
    CHECK(WinRegistry::setValue(under(L"settings"), L"empty", L"") == ERROR_SUCCESS);
    CHECK(rawValue(under(L"settings"), L"empty").bytes == std::string(2, '\0'));
    CHECK(WinRegistry::value(under(L"settings"), L"empty") == std::wstring());

    // A value with no data at all, as some programs write it, is empty too.
    CHECK(setRawValue(under(L"settings"), L"nodata", REG_SZ, nullptr, 0) == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"settings"), L"nodata") == std::wstring());
}

void namesWithSlashAndLetters()
{
    // "/" is an ordinary character of a name, never a separator.
    const std::wstring slashKey = L"km/h";
    CHECK(WinRegistry::createKey(under(L"User\\Units\\" + slashKey)));
    CHECK(WinRegistry::subKeys(under(L"User\\Units")) == std::vector<std::wstring> { slashKey });
    CHECK(!WinRegistry::keyExists(under(L"User\\Units\\km")));

    // Greek, Cyrillic, CJK, accented Latin and a character beyond the BMP (a surrogate pair).
    const std::wstring key = L"\u0394\u03b9\u03ac\u03c3\u03c4\u03b7\u03bc\u03b1 "
                             L"\u0414\u043b\u0438\u043d\u0430";
    const std::wstring name = L"m/s\u00b2 \u9577\u3055 \u00c5ngstr\u00f6m \U0001d70b";
    const std::wstring text = L"\u00b5m \u2192 \u0434\u044e\u0439\u043c \U0001f4cf";
    CHECK(WinRegistry::setValue(under(key), name, text) == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(key), name) == text);
    CHECK(contains(WinRegistry::subKeys(root), key));
    const auto listed = WinRegistry::values(under(key));
    CHECK(listed.size() == 1 && listed[0].first == name && listed[0].second == text);
    // Case folding reaches beyond ASCII: the registry finds the upper-case spelling.
    CHECK(WinRegistry::value(under(L"\u0394\u0399\u0386\u03a3\u03a4\u0397\u039c\u0391 "
                                   L"\u0414\u041b\u0418\u041d\u0410"),
              name)
        == text);
}

void longValues()
{
    // Longer than the 255 characters a fixed buffer would hold, and far longer.
    std::wstring longer;
    for (int i = 0; longer.size() < 300; ++i)
        longer += std::to_wstring(i) + L";";
    const std::wstring huge(70000, L'\u00e9');
    CHECK(WinRegistry::setValue(under(L"User\\Units\\Length"), L"long", longer) == ERROR_SUCCESS);
    CHECK(WinRegistry::setValue(under(L"User\\Units\\Length"), L"huge", huge) == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"User\\Units\\Length"), L"long") == longer);
    CHECK(WinRegistry::value(under(L"User\\Units\\Length"), L"huge") == huge);
    std::map<std::wstring, std::wstring> listed;
    for (const auto &[name, text] : WinRegistry::values(under(L"User\\Units\\Length")))
        listed[name] = text;
    CHECK(listed.size() == 2 && listed[L"long"] == longer && listed[L"huge"] == huge);

    // A long value name (the registry allows 16383 characters).
    const std::wstring longName(1000, L'n');
    CHECK(WinRegistry::setValue(under(L"settings"), longName, L"x") == ERROR_SUCCESS);
    const auto named = WinRegistry::values(under(L"settings"));
    CHECK(named.size() == 1 && named[0].first == longName);
}

void enumerationOrder()
{
    const std::vector<std::wstring> keys { L"Mass", L"area", L"Length", L"Zeta", L"b" };
    for (const auto &key : keys)
        CHECK(WinRegistry::createKey(under(L"User\\OnOff\\" + key)));
    const std::vector<std::wstring> names { L"z", L"A", L"m", L"B" };
    for (const auto &name : names)
        CHECK(WinRegistry::setValue(under(L"settings"), name, L"v" + name) == ERROR_SUCCESS);

    const auto first = WinRegistry::subKeys(under(L"User\\OnOff"));
    CHECK(first.size() == keys.size());
    for (const auto &key : keys)
        CHECK(contains(first, key));
    CHECK(WinRegistry::subKeys(under(L"User\\OnOff")) == first);

    const auto values = WinRegistry::values(under(L"settings"));
    CHECK(values.size() == names.size());
    for (const auto &[name, text] : values)
        CHECK(text == L"v" + name);
    CHECK(WinRegistry::values(under(L"settings")) == values);

    // Adding a key or a value keeps the others in the order they had.
    CHECK(WinRegistry::createKey(under(L"User\\OnOff\\Force")));
    CHECK(WinRegistry::setValue(under(L"settings"), L"c", L"vc") == ERROR_SUCCESS);
    auto after = WinRegistry::subKeys(under(L"User\\OnOff"));
    after.erase(std::remove(after.begin(), after.end(), L"Force"), after.end());
    CHECK(after == first);
    auto valuesAfter = WinRegistry::values(under(L"settings"));
    valuesAfter.erase(std::remove_if(valuesAfter.begin(), valuesAfter.end(),
                          [](const auto &entry) { return entry.first == L"c"; }),
        valuesAfter.end());
    CHECK(valuesAfter == values);
}

void deleteKeys()
{
    CHECK(WinRegistry::setValue(under(L"User\\Units\\Length"), L"smoot", L"a1.7018")
        == ERROR_SUCCESS);
    CHECK(WinRegistry::setValue(under(L"User\\NewQuans\\Q1"), L"name", L"Luck") == ERROR_SUCCESS);
    CHECK(WinRegistry::setValue(under(L"settings"), L"a", L"1") == ERROR_SUCCESS);

    WinRegistry::Status status = -1;
    CHECK(WinRegistry::deleteTree(under(L"user"), &status)); // any case, everything below
    CHECK(status == ERROR_SUCCESS);
    CHECK(!WinRegistry::keyExists(under(L"User\\Units\\Length")));
    CHECK(!WinRegistry::keyExists(under(L"User")));
    CHECK(WinRegistry::value(under(L"settings"), L"a") == std::wstring(L"1"));
    CHECK(WinRegistry::subKeys(root) == std::vector<std::wstring> { L"settings" });

    CHECK(!WinRegistry::deleteTree(under(L"User"), &status));
    CHECK(status == ERROR_FILE_NOT_FOUND);
    CHECK(!WinRegistry::statusText(status).empty());

    // A path naming no key below HKEY_CURRENT_USER deletes nothing.
    CHECK(!WinRegistry::deleteTree(L"", &status));
    CHECK(status == ERROR_INVALID_PARAMETER);
    CHECK(!WinRegistry::deleteTree(L"\\\\"));
    CHECK(WinRegistry::keyExists(L"Software"));
    CHECK(WinRegistry::keyExists(root));
}

void otherValueTypes()
{
    const DWORD number = 4096;
    CHECK(setRawValue(under(L"settings"), L"windowstate", REG_DWORD, &number, sizeof number)
        == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"settings"), L"windowstate") == std::wstring(L"4096"));
    const std::wstring expandable = L"%SystemRoot%\\system32\\calc.exe";
    CHECK(setRawValue(under(L"settings"), L"shellprog", REG_EXPAND_SZ, expandable.c_str(),
              DWORD((expandable.size() + 1) * 2))
        == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"settings"), L"shellprog") == expandable);
    const char binary[] = { 1, 2, 3 };
    CHECK(setRawValue(under(L"settings"), L"blob", REG_BINARY, binary, sizeof binary)
        == ERROR_SUCCESS);
    CHECK(!WinRegistry::value(under(L"settings"), L"blob"));
    setTextValue(under(L"settings"), L"text", L"t");

    std::map<std::wstring, std::wstring> listed;
    for (const auto &[name, text] : WinRegistry::values(under(L"settings")))
        listed[name] = text;
    CHECK(listed.size() == 3); // the binary value is left out
    CHECK(listed[L"windowstate"] == L"4096" && listed[L"shellprog"] == expandable
        && listed[L"text"] == L"t");
}

} // namespace

int main(int argc, char **argv)
{
    const std::map<std::string, std::function<void()>> cases {
        { "create_keys", createKeys },
        { "write_and_read", writeAndRead },
        { "empty_value_nul_text", emptyValueNulText },
        { "names_with_slash_and_letters", namesWithSlashAndLetters },
        { "long_values", longValues },
        { "enumeration_order", enumerationOrder },
        { "delete_keys", deleteKeys },
        { "other_value_types", otherValueTypes },
    };
    const auto found = argc == 2 ? cases.find(argv[1]) : cases.end();
    if (found == cases.end()) {
        std::printf("usage: tst_WinRegistry CASE\n");
        return 2;
    }
    root = TestsKey + L"\\" + std::wstring(found->first.begin(), found->first.end()) + L"-"
        + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount64());

    found->second();

    // Leave nothing behind: this case's key, and the tests key once no other case uses it.
    WinRegistry::deleteTree(root);
    CHECK(!WinRegistry::keyExists(root));
    RegDeleteKeyW(HKEY_CURRENT_USER, TestsKey.c_str()); // fails while it has sub-keys
    std::printf("%s: %s\n", found->first.c_str(), failures ? "FAILED" : "passed");
    return failures ? 1 : 0;
}

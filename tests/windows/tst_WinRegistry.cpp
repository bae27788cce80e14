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

// The raw bytes of a value as the registry holds it; "none" when it cannot be read.
std::string rawValue(const std::wstring &path, const std::wstring &name, DWORD *type = nullptr)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return "none";
    DWORD size = 0;
    std::string bytes = "none";
    if (RegQueryValueExW(key, name.c_str(), nullptr, type, nullptr, &size) == ERROR_SUCCESS) {
        bytes.assign(size, '\0');
        RegQueryValueExW(
            key, name.c_str(), nullptr, type, reinterpret_cast<BYTE *>(&bytes[0]), &size);
    }
    RegCloseKey(key);
    return bytes;
}

// A value written by another program, to check what WinRegistry makes of it.
bool setRawValue(
    const std::wstring &path, const std::wstring &name, DWORD type, const void *data, DWORD size)
{
    HKEY key = nullptr;
    LSTATUS status = RegCreateKeyExW(
        HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    if (status == ERROR_SUCCESS) {
        status = RegSetValueExW(key, name.c_str(), 0, type, static_cast<const BYTE *>(data), size);
        RegCloseKey(key);
    }
    return status == ERROR_SUCCESS;
}

std::map<std::wstring, std::wstring> valueMap(const std::wstring &path)
{
    std::map<std::wstring, std::wstring> map;
    for (const auto &[name, text] : WinRegistry::values(path))
        map[name] = text;
    return map;
}

void keys()
{
    WinRegistry::Status status = -1;
    CHECK(WinRegistry::createKey(under(L"settings"), &status));
    CHECK(status == ERROR_SUCCESS);
    CHECK(!WinRegistry::createKey(under(L"settings"), &status)); // it exists now
    CHECK(status == ERROR_SUCCESS);
    CHECK(!WinRegistry::createKey(under(L"SETTINGS"))); // the registry ignores case
    // A trailing separator names the same key, never the one above it.
    CHECK(!WinRegistry::createKey(under(L"settings\\")));

    // Every missing key on the way is made, and deleted with everything below it.
    CHECK(WinRegistry::setValue(under(L"User\\Units\\Length"), L"smoot", L"a1.7018")
        == ERROR_SUCCESS);
    CHECK(WinRegistry::keyExists(under(L"user\\units")));
    CHECK(WinRegistry::subKeys(under(L"User")) == std::vector<std::wstring> { L"Units" });
    CHECK(WinRegistry::setValue(under(L"settings"), L"a", L"1") == ERROR_SUCCESS);
    CHECK(WinRegistry::deleteTree(under(L"user"), &status));
    CHECK(status == ERROR_SUCCESS);
    CHECK(!WinRegistry::keyExists(under(L"User")));
    CHECK(WinRegistry::value(under(L"settings"), L"a") == std::wstring(L"1"));
    CHECK(WinRegistry::subKeys(root) == std::vector<std::wstring> { L"settings" });

    CHECK(!WinRegistry::deleteTree(under(L"User"), &status));
    CHECK(status == ERROR_FILE_NOT_FOUND);
    CHECK(!WinRegistry::statusText(status).empty());
    CHECK(!WinRegistry::keyExists(under(L"absent")));
    CHECK(WinRegistry::subKeys(under(L"absent")).empty());
    CHECK(WinRegistry::values(under(L"absent")).empty());
    // A path naming no key below HKEY_CURRENT_USER deletes nothing.
    CHECK(!WinRegistry::deleteTree(L"", &status));
    CHECK(status == ERROR_INVALID_PARAMETER);
    CHECK(!WinRegistry::deleteTree(L"\\\\"));
    CHECK(WinRegistry::keyExists(L"Software"));
    CHECK(WinRegistry::keyExists(root));
}

void values()
{
    CHECK(WinRegistry::setValue(under(L"settings"), L"currvalue", L"12") == ERROR_SUCCESS);
    // Stored as REG_SZ with its terminating NUL, found by its name in any case.
    DWORD type = REG_NONE;
    CHECK(rawValue(under(L"settings"), L"currvalue", &type) == std::string("1\0002\0\0\0", 6));
    CHECK(type == REG_SZ);
    CHECK(WinRegistry::value(under(L"SETTINGS"), L"CurrValue") == std::wstring(L"12"));
    CHECK(WinRegistry::setValue(under(L"settings"), L"CURRVALUE", L"3.5") == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"settings"), L"currvalue") == std::wstring(L"3.5"));
    CHECK(!WinRegistry::value(under(L"settings"), L"missing"));
    CHECK(!WinRegistry::value(under(L"absent"), L"currvalue"));
    CHECK(!WinRegistry::keyExists(under(L"absent"))); // reading creates nothing
    // The key's default value has the empty name.
    CHECK(WinRegistry::setValue(under(L"settings"), L"", L"default") == ERROR_SUCCESS);

    // The settings store writes an empty value as the one-character NUL text, and must get
    // exactly that text back to turn it into "".
    const std::wstring nulText(1, L'\0');
    CHECK(WinRegistry::setValue(under(L"settings"), L"currunit1", nulText) == ERROR_SUCCESS);
    CHECK(rawValue(under(L"settings"), L"currunit1") == std::string(4, '\0'));
    CHECK(WinRegistry::value(under(L"settings"), L"currunit1") == nulText);
    // A truly empty text is the terminator alone.
    CHECK(WinRegistry::setValue(under(L"settings"), L"empty", L"") == ERROR_SUCCESS);
    CHECK(rawValue(under(L"settings"), L"empty") == std::string(2, '\0'));

    // Values written by other programs: without a terminating NUL, without any data, a number,
    // an expandable text; a binary value is no text at all.
    CHECK(setRawValue(under(L"settings"), L"raw", REG_SZ, L"abc", 6));
    CHECK(setRawValue(under(L"settings"), L"nodata", REG_SZ, nullptr, 0));
    const DWORD number = 4096;
    CHECK(setRawValue(under(L"settings"), L"windowstate", REG_DWORD, &number, sizeof number));
    const std::wstring expandable = L"%SystemRoot%\\system32\\calc.exe";
    CHECK(setRawValue(under(L"settings"), L"shellprog", REG_EXPAND_SZ, expandable.c_str(),
        DWORD((expandable.size() + 1) * 2)));
    const char binary[] = { 1, 2, 3 };
    CHECK(setRawValue(under(L"settings"), L"blob", REG_BINARY, binary, sizeof binary));
    CHECK(!WinRegistry::value(under(L"settings"), L"blob"));
    const std::map<std::wstring, std::wstring> expected { { L"currvalue", L"3.5" },
        { L"", L"default" }, { L"currunit1", nulText }, { L"empty", L"" }, { L"raw", L"abc" },
        { L"nodata", L"" }, { L"windowstate", L"4096" }, { L"shellprog", expandable } };
    CHECK(valueMap(under(L"settings")) == expected);
    for (const auto &[name, text] : expected)
        CHECK(WinRegistry::value(under(L"settings"), name) == text);
}

void namesWithSlashAndLetters()
{
    // "/" is an ordinary character of a name, never a separator.
    CHECK(WinRegistry::createKey(under(L"User\\Units\\km/h")));
    CHECK(WinRegistry::subKeys(under(L"User\\Units")) == std::vector<std::wstring> { L"km/h" });
    CHECK(!WinRegistry::keyExists(under(L"User\\Units\\km")));

    // Greek, Cyrillic, CJK, accented Latin and a character beyond the BMP (a surrogate pair).
    const std::wstring key = L"\u0394\u03b9\u03ac\u03c3\u03c4\u03b7\u03bc\u03b1 "
                             L"\u0414\u043b\u0438\u043d\u0430";
    const std::wstring name = L"m/s\u00b2 \u9577\u3055 \u00c5ngstr\u00f6m \U0001d70b";
    const std::wstring text = L"\u00b5m \u2192 \u0434\u044e\u0439\u043c \U0001f4cf";
    CHECK(WinRegistry::setValue(under(key), name, text) == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(key), name) == text);
    const auto keys = WinRegistry::subKeys(root);
    CHECK(std::find(keys.begin(), keys.end(), key) != keys.end());
    CHECK(valueMap(under(key)) == (std::map<std::wstring, std::wstring> { { name, text } }));
    // Case folding reaches beyond ASCII: the registry finds the upper-case spelling.
    CHECK(WinRegistry::value(under(L"\u0394\u0399\u0386\u03a3\u03a4\u0397\u039c\u0391 "
                                   L"\u0414\u041b\u0418\u041d\u0410"),
              name)
        == text);
}

void longValues()
{
    // Longer than the 255 characters a fixed buffer would hold, and far longer; a long name.
    std::wstring longer;
    for (int i = 0; longer.size() < 300; ++i)
        longer += std::to_wstring(i) + L";";
    const std::wstring huge(70000, L'\u00e9');
    const std::wstring longName(1000, L'n');
    CHECK(WinRegistry::setValue(under(L"Length"), L"long", longer) == ERROR_SUCCESS);
    CHECK(WinRegistry::setValue(under(L"Length"), L"huge", huge) == ERROR_SUCCESS);
    CHECK(WinRegistry::setValue(under(L"Length"), longName, L"x") == ERROR_SUCCESS);
    CHECK(WinRegistry::value(under(L"Length"), L"long") == longer);
    CHECK(WinRegistry::value(under(L"Length"), L"huge") == huge);
    CHECK(valueMap(under(L"Length"))
        == (std::map<std::wstring, std::wstring> {
            { L"long", longer }, { L"huge", huge }, { longName, L"x" } }));
}

void enumeration()
{
    // Every key and value is listed once, and again in the same order.
    const std::vector<std::wstring> keys { L"Mass", L"area", L"Length", L"Zeta", L"b" };
    for (const auto &key : keys) {
        CHECK(WinRegistry::createKey(under(L"User\\OnOff\\" + key)));
        CHECK(WinRegistry::setValue(under(L"settings"), key, L"v" + key) == ERROR_SUCCESS);
    }
    auto listed = WinRegistry::subKeys(under(L"User\\OnOff"));
    CHECK(WinRegistry::subKeys(under(L"User\\OnOff")) == listed);
    std::sort(listed.begin(), listed.end());
    auto sorted = keys;
    std::sort(sorted.begin(), sorted.end());
    CHECK(listed == sorted);
    const auto values = WinRegistry::values(under(L"settings"));
    CHECK(values.size() == keys.size());
    CHECK(WinRegistry::values(under(L"settings")) == values);
    for (const auto &[name, text] : values)
        CHECK(text == L"v" + name);
}

} // namespace

int main(int argc, char **argv)
{
    const std::map<std::string, std::function<void()>> cases {
        { "keys", keys },
        { "values", values },
        { "names_with_slash_and_letters", namesWithSlashAndLetters },
        { "long_values", longValues },
        { "enumeration", enumeration },
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

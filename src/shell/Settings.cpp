// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/Settings.h"

#include "convert/NumberText.h"
#include "shell/SettingsStore.h"

#include <QDir>
#include <variant>

const QString Settings::Section = QStringLiteral("settings");
const QString Settings::TrayHintShownValue = QStringLiteral("minonce");
const QString Settings::FirstRunHelpShownValue = QStringLiteral("StartOnce");

namespace
{

using Member
    = std::variant<bool Settings::*, int Settings::*, double Settings::*, QString Settings::*>;

struct SettingDeclaration {
    const char16_t *name; // the stored value name, exactly as it has always been spelled
    Member member;
    const char16_t *defaultText; // nullptr: the platform default of that setting
};

// The settings LoadSettings reads, in the order it reads them.
const SettingDeclaration Declarations[] = {
    { u"systray", &Settings::ShowTrayIcon, u"1" },
    { u"confirm", &Settings::ConfirmExit, u"1" },
    { u"remember", &Settings::RememberLast, u"1" },
    { u"triads", &Settings::Triads, u"1" },
    { u"maxnumber", &Settings::MaxNumber, u"1000" },
    { u"minnumber", &Settings::MinNumber, u"0.1" },
    { u"scientific", &Settings::Scientific, u"false" },
    { u"currvalue", &Settings::LastValue, u"1" },
    { u"currunit1", &Settings::LastUnit1, u"" },
    { u"currunit2", &Settings::LastUnit2, u"" },
    { u"tabs", &Settings::ShowTabs, u"0" },
    { u"wincalc", &Settings::UseWindowsCalc, u"1" },
    { u"shellprog", &Settings::ShellProgram, nullptr },
};

const SettingDeclaration SigFigsDeclaration { u"numericformatting", &Settings::SigFigs, u"7" };
const SettingDeclaration LastQuantityDeclaration { u"currphysquan", &Settings::LastQuantity,
    u"Length" };

QString defaultOf(const SettingDeclaration &declaration)
{
    return declaration.defaultText ? QString::fromUtf16(declaration.defaultText)
                                   : Settings::defaultShellProgram();
}

// Converts a stored text into the member's type; throws RuntimeError on a type error.
void assign(Settings &settings, const Member &member, const QString &text)
{
    std::visit(
        [&](auto pointer) {
            using T = std::decay_t<decltype(settings.*pointer)>;
            if constexpr (std::is_same_v<T, bool>)
                settings.*pointer = NumberText::toBoolean(text);
            else if constexpr (std::is_same_v<T, int>)
                settings.*pointer = NumberText::toInt32(text);
            else if constexpr (std::is_same_v<T, double>)
                settings.*pointer = NumberText::toDouble(text);
            else
                settings.*pointer = text;
        },
        member);
}

void load(Settings &settings, SettingsStore &store, const SettingDeclaration &declaration,
    QList<RuntimeError> *problems)
{
    const QString name = QString::fromUtf16(declaration.name);
    const QString fallback = defaultOf(declaration);
    const QString text = store.RegReadString(Settings::Section, name, fallback);
    try {
        assign(settings, declaration.member, text);
    } catch (RuntimeError &error) {
        assign(settings, declaration.member, fallback);
        if (problems) {
            error.detail = QStringLiteral("\"%1\" is stored for \"%2\"").arg(text, name);
            problems->append(error);
        }
    }
}

const SettingDeclaration *find(const QString &valueName)
{
    for (const auto &declaration : Declarations)
        if (valueName.compare(QString::fromUtf16(declaration.name), Qt::CaseInsensitive) == 0)
            return &declaration;
    if (valueName == QString::fromUtf16(SigFigsDeclaration.name))
        return &SigFigsDeclaration;
    if (valueName == QString::fromUtf16(LastQuantityDeclaration.name))
        return &LastQuantityDeclaration;
    return nullptr;
}

} // namespace

void Settings::LoadSettings(SettingsStore &store, QList<RuntimeError> *problems)
{
    for (const auto &declaration : Declarations)
        load(*this, store, declaration, problems);
}

void Settings::LoadSigFigs(SettingsStore &store, QList<RuntimeError> *problems)
{
    load(*this, store, SigFigsDeclaration, problems);
    if (SigFigs < 0 || SigFigs > 13)
        SigFigs = 7;
}

void Settings::LoadLastQuantity(SettingsStore &store)
{
    load(*this, store, LastQuantityDeclaration, nullptr);
}

QString Settings::storedText(const QString &valueName) const
{
    const SettingDeclaration *declaration = find(valueName);
    if (!declaration)
        return QString();
    return std::visit(
        [&](auto pointer) -> QString {
            using T = std::decay_t<decltype(this->*pointer)>;
            if constexpr (std::is_same_v<T, bool>)
                return this->*pointer ? QStringLiteral("1") : QStringLiteral("0");
            else if constexpr (std::is_same_v<T, int>)
                return QString::number(this->*pointer);
            else if constexpr (std::is_same_v<T, double>)
                return NumberText::shortestText(this->*pointer);
            else
                return this->*pointer;
        },
        declaration->member);
}

void Settings::save(SettingsStore &store, const QString &valueName) const
{
    const SettingDeclaration *declaration = find(valueName);
    if (declaration)
        store.RegWriteString(Section, QString::fromUtf16(declaration->name), storedText(valueName));
}

QString Settings::defaultShellProgram()
{
#ifdef Q_OS_WIN
    const QString windows = qEnvironmentVariable("SystemRoot", QStringLiteral("C:\\Windows"));
    return QDir::toNativeSeparators(windows + QStringLiteral("\\system32\\calc.exe"));
#else
    return QString();
#endif
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "catalogue/Catalogue.h"

#include "catalogue/StringTable.h"
#include "catalogue/UserCatalogue.h"
#include "convert/NumberText.h"
#include "shell/SettingsStore.h"

static const QString OnOffKey = QStringLiteral("User\\OnOff\\");

// An on/off value of the store: strictly an integer; a type error keeps the entry enabled.
static int toOnOff(const QString &text, const QString &subKey, const QString &valueName,
    QList<RuntimeError> *problems)
{
    try {
        return NumberText::toInt16(text);
    } catch (RuntimeError &error) {
        if (problems) {
            error.detail = QStringLiteral("\"%1\" is stored for \"%2\" in \"%3\"")
                               .arg(text, valueName, subKey);
            problems->append(error);
        }
        return 1;
    }
}

// The stored value of that name (compared as the registry does, ignoring case), or "1".
static QString storedOnOff(const QList<QPair<QString, QString>> &values, const QString &name)
{
    for (const auto &[valueName, data] : values)
        if (valueName.compare(name, Qt::CaseInsensitive) == 0)
            return data;
    return QStringLiteral("1");
}

void Catalogue::resize(int count)
{
    QuantityCount = count;
    Quantities.resize(count + 1);
    Units.resize(count + 1);
    for (auto &units : Units)
        units.resize(MaxUnits + 1);
}

void Catalogue::LoadCatalogue(SettingsStore &store, QList<RuntimeError> *problems)
{
    Quantities.clear();
    Units.clear();
    resize(BuiltinQuantityCount);
    LoadBuiltinCatalogue(store, problems);
    UserCatalogue::LoadUserCatalogue(*this, store, problems);
}

void Catalogue::LoadBuiltinCatalogue(SettingsStore &store, QList<RuntimeError> *problems)
{
    const QString temperature = StringTable::text(TemperatureNameId);
    for (int i = 1; i <= BuiltinQuantityCount; ++i) {
        PhysicalQuantity &q = Quantities[i];
        const QString countText = StringTable::text(UnitCountBase + i);
        q.UnitCount
            = countText.isEmpty() ? 0 : qBound(0, NumberText::toInt16(countText), int(MaxUnits));
        const int base = QuantityBase + 100 * i;
        q.Name = StringTable::text(base);
        // One read of the quantity's key serves the quantity and all its units.
        const QString onOffKey = OnOffKey + q.Name;
        const QString onOff = QStringLiteral("OnOff");
        q.OnOff = toOnOff(
            store.RegReadString(onOffKey, onOff, QStringLiteral("1")), onOffKey, onOff, problems);
        const auto stored = store.values(onOffKey);
        q.Custom = 0;
        for (int j = 1; j <= q.UnitCount; ++j) {
            UnitEntry &u = Units[i][j];
            QString name = StringTable::text(base + j);
            u = UnitEntry();
            if (name.startsWith(u'*')) {
                name.remove(0, 1);
                q.DefaultUnit = name;
                u.Exact = 1;
            }
            u.Name = name;
            u.Custom = 0;
            u.OnOff = stored.isEmpty()
                ? 1
                : toOnOff(storedOnOff(stored, name), onOffKey, name, problems);
        }
        if (q.Name == temperature)
            continue; // converted by formulas: no factors
        for (int j = 1; j <= q.UnitCount; ++j) {
            UnitEntry &u = Units[i][j];
            const QString text = StringTable::text(base + 50 + j);
            if (text.startsWith(u'x')) {
                u.FactorText = text.mid(1);
                u.Exact = 1;
            } else {
                u.FactorText = text;
            }
            u.Factor = NumberText::leadingNumber(u.FactorText);
        }
    }
}

int Catalogue::findQuantity(const QString &name) const
{
    for (int q = 1; q <= QuantityCount; ++q)
        if (Quantities[q].Name == name)
            return q;
    return 0;
}

int Catalogue::findUnit(int q, const QString &name) const
{
    if (q < 1 || q > QuantityCount)
        return 0;
    for (int j = 1; j <= Quantities[q].UnitCount; ++j)
        if (Units[q][j].Name == name)
            return j;
    return 0;
}

QStringList Catalogue::enabledUnitNames(int q) const
{
    QStringList names;
    if (q < 1 || q > QuantityCount)
        return names;
    for (int j = 1; j <= Quantities[q].UnitCount; ++j)
        if (Units[q][j].enabled())
            names.append(Units[q][j].Name);
    return names;
}

bool Catalogue::isTemperature(int q) const
{
    // The string table never changes while the program runs: look the name up once.
    static const QString temperature = StringTable::text(TemperatureNameId);
    return q >= 1 && q <= QuantityCount && Quantities[q].Name == temperature;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "catalogue/UserCatalogue.h"

#include "catalogue/Catalogue.h"
#include "convert/NumberText.h"
#include "shell/SettingsStore.h"

static const QString OnOffKey = QStringLiteral("User\\OnOff\\");
static const QString NewQuansKey = QStringLiteral("User\\NewQuans");
static const QString UnitsKey = QStringLiteral("User\\Units\\");

void UserCatalogue::LoadUserCatalogue(
    Catalogue &catalogue, SettingsStore &store, QList<RuntimeError> *problems)
{
    const QStringList custom = store.subKeys(NewQuansKey);
    const int first = catalogue.QuantityCount + 1;
    catalogue.resize(catalogue.QuantityCount + int(custom.size()));
    for (int i = 0; i < custom.size(); ++i) {
        PhysicalQuantity &q = catalogue.Quantities[first + i];
        const QString key = NewQuansKey + u'\\' + custom[i];
        q.Name = custom[i];
        const QString onOff
            = store.RegReadString(key, QStringLiteral("OnOff"), QStringLiteral("1"));
        try {
            q.OnOff = NumberText::toInt16(onOff);
        } catch (RuntimeError &error) {
            q.OnOff = 1;
            if (problems) {
                error.detail
                    = QStringLiteral("\"%1\" is stored for \"OnOff\" in \"%2\"").arg(onOff, key);
                problems->append(error);
            }
        }
        q.DefaultUnit = store.RegReadString(key, QStringLiteral("DefaultUnit"), QString());
        q.Custom = 1;
        q.UnitCount = 0;
    }

    for (int q = 1; q <= catalogue.QuantityCount; ++q) {
        PhysicalQuantity &quantity = catalogue.Quantities[q];
        const QString key = UnitsKey + quantity.Name;
        for (const auto &[name, data] : store.values(key)) {
            if (quantity.UnitCount >= Catalogue::MaxUnits)
                break; // a consistent store never holds more; the rest cannot be shown
            UnitEntry &u = catalogue.Units[q][++quantity.UnitCount];
            u = UnitEntry();
            u.Name = name;
            u.FactorText = data.mid(1);
            u.Factor = NumberText::leadingNumber(u.FactorText);
            const QChar flag = data.isEmpty() ? QChar() : data.at(0);
            u.OnOff = (flag == u'a' || flag == u'c') ? 1 : 0;
            u.Exact = (flag == u'c' || flag == u'd') ? 1 : 0;
            u.Custom = 1;
        }
    }
}

QString UserCatalogue::unitData(int onOff, int exact, const QString &factorText)
{
    const bool enabled = onOff == 1;
    QChar flag = exact == 1 ? (enabled ? u'c' : u'd') : (enabled ? u'a' : u'b');
    return flag + factorText;
}

void UserCatalogue::SaveUserCatalogue(const Catalogue &catalogue, SettingsStore &store)
{
    SettingsStore::Batch batch(store);
    for (int q = 1; q <= catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = catalogue.Quantities[q];
        if (quantity.Custom == 1) {
            const QString key = NewQuansKey + u'\\' + quantity.Name;
            store.RegWriteString(key, QStringLiteral("OnOff"), QString::number(quantity.OnOff));
            store.RegWriteString(key, QStringLiteral("DefaultUnit"), quantity.DefaultUnit);
        } else if (!quantity.enabled()) {
            store.RegWriteString(
                OnOffKey + quantity.Name, QStringLiteral("OnOff"), QStringLiteral("0"));
        }
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            const UnitEntry &u = catalogue.Units[q][j];
            if (u.Custom == 1)
                store.RegWriteString(
                    UnitsKey + quantity.Name, u.Name, unitData(u.OnOff, u.Exact, u.FactorText));
            else if (!u.enabled())
                store.RegWriteString(OnOffKey + quantity.Name, u.Name, QStringLiteral("0"));
        }
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "options/CatalogueEditor.h"

#include "catalogue/StringTable.h"
#include "catalogue/UserCatalogue.h"
#include "convert/NumberFormat.h"
#include "convert/NumberText.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <cmath>

namespace StringId
{
constexpr int Has = 5120;
constexpr int Units = 5121;
constexpr int Unit = 5122;
constexpr int Indent = 5123;
constexpr int DefaultUnitIs = 5124;
constexpr int FullStop = 5125;
constexpr int NoUnitsCanBeAdded = 5126;
constexpr int CustomUnit = 5127;
constexpr int CustomDefaultUnit = 5128;
constexpr int BuiltinUnit = 5129;
constexpr int DefaultUnitFor = 5130;
constexpr int Is = 5131;
constexpr int NameInUse = 5215;
constexpr int NotSupported = 5216;
constexpr int TooManyUnits = 5220;
constexpr int UnitNameInUse = 5224;
constexpr int EnterAnother = 5225;
constexpr int NotAValidNumber = 5235;
constexpr int EmptyName = 5250;
constexpr int Backslash = 5251;
constexpr int ControlCharacter = 5252;
constexpr int NameTooLong = 5253;
constexpr int CapitalsClash = 5254;
constexpr int FactorNotPositive = 5255;
constexpr int FactorUnusable = 5256;
} // namespace StringId

const QString CatalogueEditor::RootKey = QStringLiteral("root");
const QString CatalogueEditor::EnabledQuantityIcon = QStringLiteral("enablephysquan");
const QString CatalogueEditor::DisabledQuantityIcon = QStringLiteral("disablephysquan");
const QString CatalogueEditor::EnabledUnitIcon = QStringLiteral("enable");
const QString CatalogueEditor::DisabledUnitIcon = QStringLiteral("disable");
const QString CatalogueEditor::DefaultUnitIcon = QStringLiteral("defaultunit");
const QString CatalogueEditor::DisabledDefaultUnitIcon = QStringLiteral("disabledefaultunit");

static const QString MinOnce = QStringLiteral("minonce");
static const QString StartOnce = QStringLiteral("StartOnce");

static Notice refusal(const QString &text)
{
    return Notice { Notice::Exclamation, text, QString() };
}

static QString text(int id)
{
    return StringTable::text(id);
}

QString CatalogueEditor::quantityKey(const QString &name)
{
    return u'p' + name;
}

QString CatalogueEditor::unitKey(int q, int j)
{
    return QStringLiteral("u%1 %2").arg(q).arg(j);
}

CatalogueEditor::NodeKind CatalogueEditor::kindOfKey(const QString &key)
{
    if (key.startsWith(u'p'))
        return NodeKind::Quantity;
    if (key.startsWith(u'u'))
        return NodeKind::Unit;
    return NodeKind::Root;
}

int CatalogueEditor::unitNumberOfKey(const QString &key)
{
    if (kindOfKey(key) != NodeKind::Unit)
        return 0;
    return key.mid(key.indexOf(u' ') + 1).toInt();
}

CatalogueEditor::CatalogueEditor(const Catalogue &live, Session &session)
    : m_work(live)
    , m_session(session)
{
    m_origins.append(0);
    for (int q = 1; q <= m_work.QuantityCount; ++q) {
        if (m_work.Quantities[q].Custom == 1)
            repairDefaultUnit(q);
        m_origins.append(q);
    }
    resetNodeKeys();
}

void CatalogueEditor::repairDefaultUnit(int q)
{
    PhysicalQuantity &quantity = m_work.Quantities[q];
    if (quantity.UnitCount > 0 && m_work.findUnit(q, quantity.DefaultUnit) == 0)
        quantity.DefaultUnit = m_work.Units[q][1].Name;
}

void CatalogueEditor::resetNodeKeys()
{
    m_nodeKeys.clear();
    m_nodeKeys.append(QString());
    for (int q = 1; q <= m_work.QuantityCount; ++q)
        m_nodeKeys.append(quantityKey(m_work.Quantities[q].Name));
}

void CatalogueEditor::changed()
{
    m_session.CatalogueChanged = true;
}

bool CatalogueEditor::isDefaultUnit(int q, int j) const
{
    return m_work.Units[q][j].Name == m_work.Quantities[q].DefaultUnit;
}

QString CatalogueEditor::quantityIcon(int q) const
{
    return m_work.Quantities[q].OnOff == 1 ? EnabledQuantityIcon : DisabledQuantityIcon;
}

QString CatalogueEditor::unitIcon(int q, int j) const
{
    const bool on = m_work.Units[q][j].OnOff == 1;
    if (isDefaultUnit(q, j))
        return on ? DefaultUnitIcon : DisabledDefaultUnitIcon;
    return on ? EnabledUnitIcon : DisabledUnitIcon;
}

QString CatalogueEditor::quantityComments(int q) const
{
    const PhysicalQuantity &quantity = m_work.Quantities[q];
    // One unit is "unit."; none or several are "units.".
    QString comments = quantity.Name + text(StringId::Has) + QString::number(quantity.UnitCount)
        + text(quantity.UnitCount == 1 ? StringId::Unit : StringId::Units);
    comments += u'\n' + text(StringId::Indent);
    if (isTemperature(q))
        comments += text(StringId::NoUnitsCanBeAdded);
    else
        comments += text(StringId::DefaultUnitIs) + quantity.DefaultUnit + text(StringId::FullStop);
    return comments;
}

QString CatalogueEditor::unitComments(int q, int j) const
{
    const PhysicalQuantity &quantity = m_work.Quantities[q];
    const UnitEntry &u = m_work.Units[q][j];
    QString first;
    if (isTemperature(q))
        first = u.Name;
    else if (u.Custom != 1)
        first = text(StringId::BuiltinUnit);
    else if (isDefaultUnit(q, j))
        first = text(StringId::CustomDefaultUnit);
    else
        first = text(StringId::CustomUnit);
    return first + u'\n' + text(StringId::Indent) + text(StringId::DefaultUnitFor) + quantity.Name
        + text(StringId::Is) + quantity.DefaultUnit + text(StringId::FullStop);
}

CatalogueEditor::Properties CatalogueEditor::properties(
    const QString &key, const QString &nodeText, const QString &parentText) const
{
    Properties p;
    p.kind = kindOfKey(key);
    if (p.kind == NodeKind::Quantity) {
        p.quantity = m_work.findQuantity(nodeText);
    } else if (p.kind == NodeKind::Unit) {
        p.quantity = m_work.findQuantity(parentText);
        p.unit = m_work.findUnit(p.quantity, nodeText);
    }
    if (p.quantity == 0 || (p.kind == NodeKind::Unit && p.unit == 0)) {
        // The root, or a node whose record is gone: nothing applies.
        p.kind = NodeKind::Root;
        p.quantity = p.unit = 0;
        return p;
    }

    const int q = p.quantity;
    const PhysicalQuantity &quantity = m_work.Quantities[q];
    const bool temperature = isTemperature(q);
    p.onOffEnabled = true;
    if (p.kind == NodeKind::Quantity) {
        p.name = quantity.Name;
        p.nameEnabled = quantity.Custom == 1;
        p.removeQuantityEnabled = quantity.Custom == 1;
        p.enabled = quantity.OnOff == 1;
        p.addUnitEnabled = !temperature;
        p.comments = quantityComments(q);
        return p;
    }

    const int j = p.unit;
    const UnitEntry &u = m_work.Units[q][j];
    p.name = u.Name;
    p.enabled = u.OnOff == 1;
    p.exact = u.Exact == 1;
    p.exactVisible = true;
    p.nameEnabled = u.Custom == 1;
    p.comments = unitComments(q, j);
    if (temperature) {
        p.exactVisible = false;
        return p;
    }
    const bool editable = u.Custom == 1 && !isDefaultUnit(q, j);
    p.factorText = u.FactorText;
    p.factorEnabled = editable;
    p.exactEnabled = editable;
    p.removeUnitEnabled = editable;
    p.addUnitEnabled = true;
    return p;
}

void CatalogueEditor::setQuantityOnOff(int q, int onOff)
{
    m_work.Quantities[q].OnOff = onOff;
    changed();
}

void CatalogueEditor::setUnitOnOff(int q, int j, int onOff)
{
    m_work.Units[q][j].OnOff = onOff;
    changed();
}

void CatalogueEditor::renameQuantity(int q, const QString &name)
{
    m_work.Quantities[q].Name = name;
    changed();
}

void CatalogueEditor::renameUnit(int q, int j, const QString &name)
{
    if (isDefaultUnit(q, j))
        m_work.Quantities[q].DefaultUnit = name;
    m_work.Units[q][j].Name = name;
    changed();
}

void CatalogueEditor::setFactorText(int q, int j, const QString &factorText)
{
    UnitEntry &u = m_work.Units[q][j];
    u.FactorText = factorText;
    u.Factor = NumberText::leadingNumber(factorText);
    changed();
}

void CatalogueEditor::setExact(int q, int j, int exact)
{
    m_work.Units[q][j].Exact = exact;
    changed();
}

// Names become key and value names of the store: its text format has no room for control
// characters, and a backslash in a key name would start a key below it.
std::optional<Notice> CatalogueEditor::checkStorableName(const QString &name, bool isQuantity) const
{
    if (name.trimmed().isEmpty())
        return refusal(text(StringId::EmptyName));
    for (QChar c : name)
        if (c.unicode() < 0x20 || c.unicode() == 0x7f)
            return refusal(text(StringId::ControlCharacter));
    if (isQuantity && name.contains(u'\\'))
        return refusal(text(StringId::Backslash));
    if (isQuantity && name.size() > MaxQuantityNameLength)
        return refusal(text(StringId::NameTooLong));
    return std::nullopt;
}

// The store compares key names without regard to case: two quantities whose names differ only
// in capitals would share their keys and come back from it as one.
std::optional<Notice> CatalogueEditor::quantityNameClash(const QString &name, int except) const
{
    for (int q = 1; q <= m_work.QuantityCount; ++q) {
        if (q == except)
            continue;
        const QString &other = m_work.Quantities[q].Name;
        if (other == name || m_nodeKeys.value(q) == quantityKey(name))
            return refusal(text(StringId::NameInUse) + u'\n' + text(StringId::NotSupported));
        if (other.compare(name, Qt::CaseInsensitive) == 0)
            return refusal(text(StringId::CapitalsClash).arg(name, other));
    }
    return std::nullopt;
}

// Custom units of one quantity are values of one key, whose names the store compares without
// regard to case; a built-in unit differing only in capitals is stored elsewhere and is fine.
std::optional<Notice> CatalogueEditor::unitNameClash(int q, const QString &name, int except) const
{
    for (int j = 1; j <= m_work.Quantities[q].UnitCount; ++j) {
        if (j == except)
            continue;
        const UnitEntry &other = m_work.Units[q][j];
        if (other.Name == name)
            return refusal(text(StringId::UnitNameInUse) + name + text(StringId::EnterAnother));
        if (other.Custom == 1 && other.Name.compare(name, Qt::CaseInsensitive) == 0)
            return refusal(text(StringId::CapitalsClash).arg(name, other.Name));
    }
    return std::nullopt;
}

std::optional<Notice> CatalogueEditor::checkNewQuantityName(const QString &name) const
{
    if (auto problem = checkStorableName(name, true))
        return problem;
    return quantityNameClash(name, 0);
}

CatalogueEditor::Added CatalogueEditor::addQuantity(const QString &name, const QString &defaultUnit)
{
    Added added;
    if ((added.refusal = checkNewQuantityName(name)))
        return added;
    if ((added.refusal = checkStorableName(defaultUnit, false)))
        return added;

    const int q = m_work.QuantityCount + 1;
    m_work.resize(q);
    PhysicalQuantity &quantity = m_work.Quantities[q];
    quantity = PhysicalQuantity();
    quantity.Name = name;
    quantity.OnOff = 1;
    quantity.UnitCount = 1;
    quantity.DefaultUnit = defaultUnit;
    quantity.Custom = 1;
    UnitEntry &u = m_work.Units[q][1];
    u = UnitEntry();
    u.Name = defaultUnit;
    u.Factor = 1.0;
    u.FactorText = QStringLiteral("1");
    u.OnOff = 1;
    u.Custom = 1;
    u.Exact = 1;
    m_nodeKeys.append(quantityKey(name));
    m_origins.append(0);
    changed();
    added.quantity = q;
    added.unit = 1;
    return added;
}

std::optional<Notice> CatalogueEditor::checkUnitRoom(int q) const
{
    if (m_work.Quantities[q].UnitCount >= Catalogue::MaxUnits)
        return refusal(text(StringId::TooManyUnits));
    return std::nullopt;
}

QString CatalogueEditor::cutUnitName(const QString &typed)
{
    if (typed.size() <= MaxUnitNameLength)
        return typed;
    // Never keep half of a character written as a surrogate pair.
    const int length = typed.at(MaxUnitNameLength - 1).isHighSurrogate() ? MaxUnitNameLength - 1
                                                                         : MaxUnitNameLength;
    return typed.left(length);
}

std::optional<Notice> CatalogueEditor::checkNewUnitName(int q, const QString &name) const
{
    if (auto problem = checkStorableName(name, false))
        return problem;
    return unitNameClash(q, name, 0);
}

std::optional<Notice> CatalogueEditor::checkFactorText(const QString &factorText)
{
    const double factor = NumberText::leadingNumber(factorText);
    if (!std::isfinite(factor))
        return refusal(text(StringId::NotAValidNumber));
    if (!(factor > 0))
        return refusal(text(StringId::FactorNotPositive));
    if (!std::isfinite(1.0 / factor)) // so small that dividing by it overflows
        return refusal(text(StringId::NotAValidNumber));
    try {
        if (NumberFormat::CountSignificantDigits(factorText) < 1)
            return refusal(text(StringId::NotAValidNumber));
    } catch (const RuntimeError &) {
        return refusal(text(StringId::NotAValidNumber));
    }
    return std::nullopt;
}

CatalogueEditor::Added CatalogueEditor::addUnit(
    int q, const QString &typedName, const QString &factorText)
{
    Added added;
    const QString name = cutUnitName(typedName);
    if ((added.refusal = checkUnitRoom(q)) || (added.refusal = checkNewUnitName(q, name))
        || (added.refusal = checkFactorText(factorText)))
        return added;

    PhysicalQuantity &quantity = m_work.Quantities[q];
    const int j = ++quantity.UnitCount;
    UnitEntry &u = m_work.Units[q][j];
    u = UnitEntry();
    u.Name = name;
    u.FactorText = factorText;
    u.Factor = NumberText::leadingNumber(factorText);
    u.Custom = 1;
    u.OnOff = 1;
    u.Exact = 0;
    if (quantity.Custom == 1)
        repairDefaultUnit(q);
    changed();
    added.quantity = q;
    added.unit = j;
    return added;
}

void CatalogueEditor::removeQuantity(int q)
{
    m_work.Quantities.remove(q);
    m_work.Units.remove(q);
    m_nodeKeys.remove(q);
    m_origins.remove(q);
    --m_work.QuantityCount;
    changed();
}

void CatalogueEditor::removeUnit(int q, int j)
{
    PhysicalQuantity &quantity = m_work.Quantities[q];
    QVector<UnitEntry> &units = m_work.Units[q];
    for (int k = j; k < quantity.UnitCount; ++k)
        units[k] = units[k + 1];
    units[quantity.UnitCount] = UnitEntry();
    --quantity.UnitCount;
    changed();
}

std::optional<CatalogueEditor::Problem> CatalogueEditor::findProblem() const
{
    for (int q = 1; q <= m_work.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = m_work.Quantities[q];
        if (quantity.Custom == 1) {
            auto notice = checkStorableName(quantity.Name, true);
            if (!notice) {
                // Only quantities before this one count: a clash is reported once, at the later
                // of the two, which is the one most likely just added or renamed.
                for (int other = 1; other < q && !notice; ++other) {
                    const QString &name = m_work.Quantities[other].Name;
                    if (name == quantity.Name)
                        notice = refusal(
                            text(StringId::NameInUse) + u'\n' + text(StringId::NotSupported));
                    else if (name.compare(quantity.Name, Qt::CaseInsensitive) == 0)
                        notice = refusal(text(StringId::CapitalsClash).arg(quantity.Name, name));
                }
            }
            if (notice)
                return Problem { *notice, q, 0 };
        }
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            const UnitEntry &u = m_work.Units[q][j];
            if (u.Custom != 1)
                continue;
            auto notice = checkStorableName(u.Name, false);
            for (int other = 1; other <= quantity.UnitCount && !notice; ++other) {
                const UnitEntry &o = m_work.Units[q][other];
                if (other == j || (o.Custom == 1 && other > j))
                    continue; // a clash of two custom units is reported at the later one
                if (o.Name == u.Name)
                    notice = refusal(
                        text(StringId::UnitNameInUse) + u.Name + text(StringId::EnterAnother));
                else if (o.Custom == 1 && o.Name.compare(u.Name, Qt::CaseInsensitive) == 0)
                    notice = refusal(text(StringId::CapitalsClash).arg(u.Name, o.Name));
            }
            if (!notice && !isTemperature(q) && !isDefaultUnit(q, j)
                && checkFactorText(u.FactorText))
                notice = refusal(text(StringId::FactorUnusable).arg(u.Name));
            if (notice)
                return Problem { *notice, q, j };
        }
    }
    return std::nullopt;
}

void CatalogueEditor::commitToStore(SettingsStore &store, const Session &session) const
{
    SettingsStore::Batch batch(store);
    store.deleteKey(QString()); // the program's whole key, settings included
    UserCatalogue::SaveUserCatalogue(m_work, store);
    if (session.TrayHintShown)
        store.RegWriteString(Settings::Section, MinOnce, QStringLiteral("1"));
    if (session.FirstRunHelpShown)
        store.RegWriteString(Settings::Section, StartOnce, QStringLiteral("1"));
}

void CatalogueEditor::applyTo(Catalogue &live) const
{
    // The current quantity by where it went: renamed or moved down by a removal, it is still
    // the same quantity; removed, there is none.
    const int current = live.CurrentQuantity;
    live.QuantityCount = m_work.QuantityCount;
    live.Quantities = m_work.Quantities;
    live.Units = m_work.Units;
    live.CurrentQuantity = current > 0 ? int(m_origins.indexOf(current)) : 0;
    if (live.CurrentQuantity < 0)
        live.CurrentQuantity = 0;
}

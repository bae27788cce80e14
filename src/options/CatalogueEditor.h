// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The options dialog's working copy of the catalogue and every edit the user can make to it:
// switching quantities and units on and off, renaming custom entries, changing a custom
// unit's factor, adding and removing custom quantities and units. Nothing reaches the settings
// store or the program's catalogue before commitToStore() and applyTo(), which the dialog
// calls on OK; Cancel simply drops the editor.
//
// The editor also knows the tree the dialog shows: the node keys ("root", "p" + quantity name,
// "u" + quantity number + " " + unit number), the icon of each node, and the texts and control
// states of the properties panel, so that all of it can be checked without a window.
// Quantities and units are numbered from 1, as in Catalogue.
#pragma once

#include "catalogue/Catalogue.h"
#include "shell/Notice.h"

#include <optional>
#include <QString>
#include <QStringList>

class SettingsStore;
struct Session;

class CatalogueEditor
{
public:
    static constexpr int MaxUnitNameLength = 40;
    // A quantity's name is a key name in the store, which the registry limits to 255.
    static constexpr int MaxQuantityNameLength = 255;

    // Node keys and icon keys of the tree.
    enum class NodeKind { Root, Quantity, Unit };
    static const QString RootKey; // "root"
    static QString quantityKey(const QString &name); // "p" + name
    static QString unitKey(int q, int j); // "u12 3"
    // The kind of node a key names, by its first letter.
    static NodeKind kindOfKey(const QString &key);
    // The unit number of a unit node's key ("u12 3" gives 3), else 0.
    static int unitNumberOfKey(const QString &key);

    static const QString EnabledQuantityIcon; // "enablephysquan"
    static const QString DisabledQuantityIcon; // "disablephysquan"
    static const QString EnabledUnitIcon; // "enable"
    static const QString DisabledUnitIcon; // "disable"
    static const QString DefaultUnitIcon; // "defaultunit"
    static const QString DisabledDefaultUnitIcon; // "disabledefaultunit"

    // What the properties panel shows for a node, and which of its controls apply.
    struct Properties {
        NodeKind kind = NodeKind::Root;
        int quantity = 0; // the selection: 0 when no quantity / no unit is selected
        int unit = 0;
        QString name;
        bool nameEnabled = false;
        QString factorText;
        bool factorEnabled = false;
        bool exact = false;
        bool exactVisible = false;
        bool exactEnabled = false;
        bool enabled = false; // the Enabled / Disabled pair
        bool onOffEnabled = false;
        bool addUnitEnabled = false;
        bool removeUnitEnabled = false;
        bool removeQuantityEnabled = false;
        QString comments;
    };

    // Something in the working copy that cannot be stored or converted with, found before a
    // commit: the message to show and the quantity (and unit, else 0) to select.
    struct Problem {
        Notice notice;
        int quantity = 0;
        int unit = 0;
    };

    // The result of an add: the refusal to show, or the new entry's numbers.
    struct Added {
        std::optional<Notice> refusal;
        int quantity = 0;
        int unit = 0;
    };

    // Takes a copy of the catalogue. Custom quantities whose default unit names no unit of
    // theirs get their first unit as default unit.
    CatalogueEditor(const Catalogue &live, Session &session);

    int quantityCount() const { return m_work.QuantityCount; }
    const PhysicalQuantity &quantity(int q) const { return m_work.Quantities[q]; }
    const UnitEntry &unit(int q, int j) const { return m_work.Units[q][j]; }

    // A unit is its quantity's default unit when its name equals the default unit's name.
    bool isDefaultUnit(int q, int j) const;
    bool isTemperature(int q) const { return m_work.isTemperature(q); }

    // The key the quantity's node was given when it was made; it keeps the old name after a
    // rename until the tree is rebuilt (resetNodeKeys).
    QString quantityNodeKey(int q) const { return m_nodeKeys.value(q); }
    // Gives every quantity node the key of its present name, as rebuilding the tree does.
    void resetNodeKeys();
    QString quantityIcon(int q) const;
    QString unitIcon(int q, int j) const;

    // The properties panel for a node, found as the panel finds it: a quantity node by its
    // text, a unit node by its parent's text and then by its own text (the first match).
    Properties properties(
        const QString &key, const QString &text, const QString &parentText = QString()) const;
    QString quantityComments(int q) const;
    QString unitComments(int q, int j) const;

    // Edits. Each one sets the session's catalogue-changed flag, also when it repeats the
    // present state.
    void setQuantityOnOff(int q, int onOff);
    void setUnitOnOff(int q, int j, int onOff);
    void renameQuantity(int q, const QString &name);
    // The default unit's name follows when the unit renamed is the default unit.
    void renameUnit(int q, int j, const QString &name);
    // The factor is the text's leading number (0 when it has none); the text is kept.
    void setFactorText(int q, int j, const QString &text);
    void setExact(int q, int j, int exact);

    // Adding a quantity with its default unit. Refused: an empty or unstorable name, a name
    // already in use (or still the key of a renamed node), a name the store would mix up with
    // another one because it differs only in capitals.
    std::optional<Notice> checkNewQuantityName(const QString &name) const;
    Added addQuantity(const QString &name, const QString &defaultUnit);

    // Adding a unit: room for one more, then its name (cut to 40 characters first), then its
    // factor text.
    std::optional<Notice> checkUnitRoom(int q) const;
    static QString cutUnitName(const QString &typed);
    std::optional<Notice> checkNewUnitName(int q, const QString &name) const;
    // A factor must be a number greater than 0 whose reciprocal is a number too, written so
    // that its significant figures can be counted; otherwise no conversion could use it.
    static std::optional<Notice> checkFactorText(const QString &text);
    Added addUnit(int q, const QString &name, const QString &factorText);

    // Removing: the entries behind the removed one move down one number.
    void removeQuantity(int q);
    void removeUnit(int q, int j);

    // The first thing in the working copy that cannot be committed: a name that is empty, not
    // storable, used twice or mixed up with another by the store, or a custom unit's factor
    // that no conversion could use.
    std::optional<Problem> findProblem() const;

    // Rewrites the store from the working copy, as one batch: deletes the program's whole key,
    // writes the user catalogue, and writes "minonce" and "StartOnce" again when those hints
    // were shown. The caller writes its settings afterwards, inside its own batch, so that the
    // store is saved once.
    void commitToStore(SettingsStore &store, const Session &session) const;
    // Replaces the program's catalogue by the working copy. The current quantity stays the same
    // quantity, under its new number (0 when it was removed).
    void applyTo(Catalogue &live) const;

private:
    std::optional<Notice> checkStorableName(const QString &name, bool quantity) const;
    std::optional<Notice> quantityNameClash(const QString &name, int except) const;
    std::optional<Notice> unitNameClash(int q, const QString &name, int except) const;
    void repairDefaultUnit(int q);
    void changed();

    Catalogue m_work;
    Session &m_session;
    QStringList m_nodeKeys; // m_nodeKeys[q], index 0 unused
    QVector<int> m_origins; // m_origins[q]: its number in the catalogue copied, 0 when added
};

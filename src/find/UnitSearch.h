// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The find dialog's list and search without the window: one line "unit [Quantity]" for every
// enabled unit of every enabled quantity, in catalogue order; the first line that begins with
// a typed text, whatever its case, or else the line of the unit the text names as people write
// units ("psi", "kWh"; see UnitMatcher); and a line taken apart again into unit and quantity
// for the main window to go to. frmFind shows the lines and asks this class.
#pragma once

#include "catalogue/UnitMatcher.h"

#include <optional>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

class Catalogue;

class UnitSearch
{
public:
    explicit UnitSearch(const Catalogue &catalogue);

    // What a chosen line names: the unit and its quantity.
    struct Target {
        QString unit;
        QString quantity;
    };

    const QStringList &lines() const { return m_lines; }
    int quantityCount() const { return m_quantityCount; }
    // "Total: 43 quantities and 514 units", for the status bar.
    QString totalText() const;

    // The index of the first line that begins with text, case ignored, or -1. The empty text
    // begins every line, so it finds the first one, as the list box search does.
    int find(const QString &text) const;

    // The line a typed text makes current: the first that begins with it; when none does, the
    // line of the unit the text names. Several units named equally well are all in tied, and
    // the first of them is the line; a text that names nothing finds no line (-1).
    struct Found {
        int line = -1;
        QStringList tied;
    };
    Found search(const QString &text);

    // The line the list shows for a unit of a quantity.
    static QString lineFor(const QString &unit, const QString &quantity);
    // Takes a line apart at its first "[": the quantity is what follows it less the closing
    // "]", the unit what stands before it less the blank in front. A unit whose own name holds
    // a "[" is therefore split inside its name; the built-in catalogue has no such name.
    // A line without "[" names nothing.
    static bool parseLine(const QString &line, Target *target);

private:
    const Catalogue &m_catalogue;
    QStringList m_lines;
    QVector<QPair<int, int>> m_units; // each line's quantity and unit
    QStringList m_foldedLines; // m_lines case-folded once, so that each search only compares
    int m_quantityCount = 0;
    std::optional<UnitMatcher> m_matcher; // made when a text first needs it
};

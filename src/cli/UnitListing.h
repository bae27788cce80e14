// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// "mensura-cli units": the quantities in the main window's alphabetical order, or the units
// of one quantity in catalogue order with their factor text (how many default units one unit
// is) and its exactness, or what a typed name matches (--find). Readable columns by default,
// tab-separated lines for scripts.
#pragma once

#include "catalogue/UnitMatcher.h"

#include <QString>

class Catalogue;

class UnitListing
{
public:
    // all: switched-off quantities and units too, marked as such.
    UnitListing(const Catalogue &catalogue, bool tsv, bool all);

    QString quantities() const;
    QString units(int quantity) const;
    // What text matches, best first, with each match's rank, unit, quantity and the form it
    // matched; readable, a line first says which unit the text names, if any. choice is the
    // matcher's verdict on them.
    QString matches(const QString &text, const UnitMatcher::Choice &choice,
        const QVector<UnitMatcher::Match> &matches) const;

    // The quantity of that name in any letter case (an exact match first) among those listed,
    // or 0.
    int findQuantity(const QString &name) const;

private:
    const Catalogue &m_catalogue;
    bool m_tsv;
    bool m_all;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/MenuRules.h"

#include "convert/NumberText.h"

MenuRules::Edit MenuRules::edit(const State &state)
{
    Edit edit;
    edit.copyValue
        = !state.result.isEmpty() && !state.result.contains(u'C') && !state.result.contains(u'<');
    edit.paste = state.clipboard && NumberText::leadingNumber(*state.clipboard) != 0;
    edit.swap = state.leftUnit && state.rightUnit;
    edit.copyWholeConversion = state.markEnabled;
    return edit;
}

bool MenuRules::file(const State &state)
{
    return !state.value.isEmpty() && state.leftUnit;
}

bool MenuRules::tools(const State &state)
{
    return !state.value.isEmpty() && state.leftUnit;
}

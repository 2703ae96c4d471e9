// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/editor/CDlgAddAutomobilContractMatter.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"

using namespace Qt::StringLiterals;

// Enters what a contract's vehicle cannot be saved without.
inline void fillMatterPage(CDlgAddAutomobilContractMatter &page)
{
    const std::pair<QString, QString> entries[] = {{u"sAutomobilName"_s, u"پراید 131"_s},
                                                   {u"sModel"_s, u"1402"_s},
                                                   {u"sColor"_s, u"سفید"_s},
                                                   {u"sNumOfPlates"_s, u"12 ب 345 ایران 67"_s}};
    for (const auto &[column, text] : entries)
        page.form()->edit(column)->setText(text);
}

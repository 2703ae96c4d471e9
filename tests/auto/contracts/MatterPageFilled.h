// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/editor/CDlgAddAutomobilContractMatter.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"

// Enters what a contract's vehicle cannot be saved without.
inline void fillMatterPage(CDlgAddAutomobilContractMatter &page)
{
    const std::pair<QString, QString> entries[] = {{QStringLiteral("sAutomobilName"), QStringLiteral("پراید 131")},
                                                   {QStringLiteral("sModel"), QStringLiteral("1402")},
                                                   {QStringLiteral("sColor"), QStringLiteral("سفید")},
                                                   {QStringLiteral("sNumOfPlates"), QStringLiteral("12 ب 345 ایران 67")}};
    for (const auto &[column, text] : entries)
        page.form()->edit(column)->setText(text);
}

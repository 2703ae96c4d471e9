// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/CTblItems.h"

// Adds a value of that item type, as another desk would; its key.
inline int addItem(int itemType, const QString &name)
{
    CTblItems item;
    item.AddNew();
    item.m_iType = itemType;
    item.m_sName = name;
    item.Update(true);
    return item.m_iID;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/lists/KListFilter.h"

class QWidget;

// The control of a filter, and how its value is read and set; see KListFilter::Kind.
struct TZACCOUNTING_EXPORT KFilterControl
{
    // Makes the control of a filter in the filter box.
    using Maker = std::function<KFilterControl(const KListFilter &filter, QWidget *box)>;

    QWidget *widget = nullptr; // null: the filter has none
    std::function<QVariant()> value = {};
    std::function<void(const QVariant &)> set = {};
    std::function<QString()> asked = {};    // what it asks for now, in the user's words; empty while it asks for nothing
    std::function<void()> readChoices = {}; // of a drop-down

    // The control of any kind but Person, whose field stands above this library; it holds nothing yet.
    static KFilterControl make(const KListFilter &filter, QWidget *box);
};

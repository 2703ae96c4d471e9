// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

#include <array>

// The suite's data areas, by the number under which related records (attached files, custom fields, reminders) are kept:
// FileDocs.iTable, CustomFields.iTable, CustomFieldRecords.iTable. The numbers are stored, so they never move.
namespace RecordKind {

enum : int {
    Person = 1,
    Item = 2,
    Department = 3,
    User = 4,
    Document = 5,
    DocumentRow = 6,
    SaleInvoice = 7,
    PurchaseInvoice = 8,
    InvoiceLine = 9,
    Receipt = 10,
    Service = 11,
    HesabKol = 12,
    HesabMoeen = 13,
    HesabTafsily = 14,
    Reminder = 15,
    Cheque = 16,
    AutomobilInformation = 68,
    AutomobilContract = 69,
    AutomobilDemandReminder = 70
};

inline constexpr int count = 79;

// Persian name per kind, by position; empty where the suite has no such area.
TZACCOUNTINGDATA_EXPORT const std::array<QString, count> &names();

}

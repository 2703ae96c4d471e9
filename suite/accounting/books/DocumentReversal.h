// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// Takes an accounting document back, for whoever it belongs to.
namespace DocumentReversal {

// The reversing document; numbers 0 where the document itself was emptied.
struct Reversing
{
    int num = 0;
    int fiscalYear = 0;
};

// A document of the current fiscal year loses its rows and is void. One of another year stays as it is, since its books are closed: a
// document of today (the nearest day of the current fiscal year) with the same rows, debit and credit exchanged, takes its effect
// back. desc: of that document and its rows. Number 0: there is nothing to take back. Joins the caller's transaction. Throws
// KAccountingError and CMySQLException.
[[nodiscard]] TZACCOUNTINGDATA_EXPORT Reversing takeBack(int num, int fiscalYear, const QString &desc, int database = 0);

}

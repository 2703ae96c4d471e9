// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Fills a database that has the schema but no data with a demo office: company, settings, a user "demo" with the
// password "demo", persons, contracts over two years with their documents, the car catalog, input parameters and tariffs, and
// a car of the register for every third contract.
namespace DemoData {

// The largest useful number of contracts.
inline constexpr int largest = 1000000;

// All or nothing, in one transaction. The same contents for the same number of contracts, but for the password's salt.
// Throws CMySQLException; KAccountingError when the database holds users, persons or contracts already.
void fill(int contracts, int database = 0);

}

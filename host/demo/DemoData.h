// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>

// Fills a database that has the schema but no data with a demo office: company, settings, a user "demo" with the
// password "demo" and three colleagues, persons, contracts over two years with their documents, the car catalog, input parameters and tariffs, and
// a car of the register for every third contract.
namespace DemoData {

// The largest useful number of contracts.
inline constexpr int largest = 1000000;

// In two units of work, the rows and what happens to the latest of them; one that was broken off between the two is gone on with, by other chances. Today its
// day begins: contracts reach to the evening before, and what is due is due around it. The same contents for the same number of contracts
// and the same day, but for the passwords' salt.
// Throws CMySQLException; KAccountingError when the database holds users, persons or contracts already.
void fill(int contracts, const QDate &today = QDate::currentDate(), int database = 0);

}

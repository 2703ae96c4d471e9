// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalRow.h"
#include "suite/crm/persons/CompanyDetails.h"

#include <QVector>

#include <functional>

class CTblPersons;

// Gathers the rows of the seasonal report. Needs no window and may run in any thread: it uses the connection of the thread
// that calls gather, and everything else comes with the query.
namespace SeasonalGathering {

enum class Kind {
    Sales = 0,    // commissions of contracts, then sales invoices
    Purchases = 1 // purchase invoices
};

struct Query
{
    Kind kind = Kind::Sales;
    int season = 0; // 0 spring to 3 winter; one that does not exist holds nothing
    int shamsiYear = 0;
    double minimumAmount = 0;  // contracts with a smaller commission are summed, smaller lines left out; in the money unit
    int departmentID = 0;      // whose invoices count; 0: departments are not in use
    bool kindFromMark = false; // a person's own mark, not the kind, decides whether it is a natural person
    CompanyDetails company;    // stands in for a party that is not in the list of persons
};

struct Outcome
{
    SeasonalTotals totals;
    int rows = 0;
    int tooLongAddresses = 0;
    bool cancelled = false;
};

// Takes the next rows of the report, in order; false ends the gathering.
using Batch = std::function<bool(QVector<SeasonalRow>)>;

// Throws CMySQLException.
Outcome gather(const Query &query, const Batch &batch);

// How a person and the dealership itself appear in a row.
TaxParty partyOf(const CTblPersons &person, bool kindFromMark);
TaxParty partyOf(const CompanyDetails &company);

}

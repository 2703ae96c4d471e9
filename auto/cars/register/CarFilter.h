// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

// What the car list asks for. Texts go into the statement as they are typed. 0, an empty text and an invalid date ask nothing.
struct CarCriteria
{
    bool withInactive = false;
    int archiveState = 0;       // position in WordLists::archiveStates
    int currentUserID = 0;      // whose archive "archived" means
    int automobilType = 0;      // key of a brand
    int color = 0;              // key of an item
    int fuel = 0;               // position in WordLists::fuelTypes, which is the fuel's code
    QDateTime introductionFrom; // the time of day does not count
    QDateTime introductionTo;
    QString documentsDeficitPart;
    QString partsDeficitPart;
    double amountFrom = 0; // in the suite's money unit
    double amountTo = 0;
    int yearFrom = 0; // exactly this year: it does not bound from below
    int yearTo = 0;   // at most this year
    int buyerID = 0;  // keys of persons
    int ownerID = 0;
    QString chassisPart;
};

// The condition for CTblAutomobilInformationJoins::m_filter, with the grouping that lists each car once. The "to" date is
// moved on by one day and still compared with <=, so that all of the chosen day is in.
QString carFilter(const CarCriteria &criteria);

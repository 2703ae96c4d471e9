// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

// What the demand list asks for. 0, an empty text and an invalid date ask nothing. Years and amounts bound the range that
// the demand itself states: a demand is found whose wanted range lies inside the searched one.
struct DemandCriteria
{
    bool withInactive = false;
    int archiveState = 0;    // position in WordLists::archiveStates
    int currentUserID = 0;   // whose archive "archived" means
    int automobilType = 0;   // key of a brand
    int color = 0;           // key of an item
    QDateTime referenceFrom; // the time of day does not count
    QDateTime referenceTo;
    QString specialDescriptionPart; // goes into the statement as typed
    int personID = 0;               // who asks
    int yearFrom = 0;
    int yearTo = 0;
    double amountFrom = 0; // in the suite's money unit
    double amountTo = 0;
};

// The condition for CTblAutomobilDemandJoins::m_filter, with the grouping that lists each demand once. The "to" date is
// moved on by one day and still compared with <=, so that all of the chosen day is in.
QString demandFilter(const DemandCriteria &criteria);

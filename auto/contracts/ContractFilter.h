// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

// What the contract list asks for. Defaults: every contract. Positions are those of the filter lists in auto/words/WordLists.h,
// 0 meaning all.
struct ContractCriteria
{
    bool activeOnly = false; // leave void contracts out
    int firstPersonID = 0;   // key of the first party (seller), 0: any
    int secondPersonID = 0;  // key of the second party (buyer), 0: any
    int returnState = 0;     // position in WordLists::returnStates
    int archiveState = 0;    // position in WordLists::archiveStates
    int currentUserID = 0;   // whose archive "archived" means
    int contractType = 0;    // position in WordLists::contractTypesWithAll
    QDateTime contractFrom;  // invalid: open; the time of day does not count
    QDateTime contractTo;
    QDateTime expirationFrom;
    QDateTime expirationTo;
    QString descriptionPart; // already escaped for a LIKE literal (KEdit::queryText); empty: any
    QString explanationPart;
};

// The condition for KMySQL::m_filter; empty when nothing is asked. "To" dates are moved on by one day and still compared
// with <=, so that all of the chosen day is in (and what is dated on the start of the next day).
QString contractFilter(const ContractCriteria &criteria);

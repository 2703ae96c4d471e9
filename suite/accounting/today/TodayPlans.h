// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/today/TodayCards.h"

// Something that users plan for a day, on a card of its own: their reminders, the calls that they meant to make.
struct TodayPlan
{
    TodayCard card;
    QString table; // of RecordWindows: what its lines open
    // SELECT of key, date, words, whom it is about, and how many there are in all, each column with a name; the earliest ones, at most
    // TodayContent::mostLines.
    std::function<KSql(const TodayFrame &frame)> select;
    // Opens all of them in the list of the table. Empty: there is no list.
    std::function<KListRequest(const TodayFrame &frame)> request = {};
};

// What users plan, among TodayCards: everybody's own, so that no right is needed. Each floor adds what it knows; all are read by one statement.
class TZACCOUNTINGDATA_EXPORT TodayPlans
{
public:
    // Replaces one with the same card.
    static void add(const TodayPlan &plan);
};

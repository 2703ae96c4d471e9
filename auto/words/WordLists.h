// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>
#include <QStringView>

#include <span>

// The module's Persian word lists, each once. A list is ordered and counted from 0; its positions are the stored values
// unless it opens with the word for "all": then it serves as a filter, position 0 filters nothing and the stored value is
// the position less one. A first entry "-" stands for nothing chosen. Views of static text: valid for the program's life.
//
// The suite's list of record kinds is the suite's own: suite/accounting/frame/RecordKinds.h.
namespace WordLists {

using List = std::span<const QStringView>;

List contractTypesWithAll(); // contract types as a filter
List contractTypes();        // the same without the "all" entry: positions are iContractType
List archiveStates();        // archive filter: all, not archived, archived (by oneself), archived by other users
List returnStates();         // return filter: all, not returned, returned
List fuelTypes();
List usageTypes();    // what a vehicle is for; positions are iUsageType
List sendingStates(); // of a record on its way to the tax authority's system
List paymentStates(); // of an instalment
List inputParameterTypes();
List companyTypes();
List personalTitles();
List starRatings();  // position n holds n + 1 asterisks
List balanceSides(); // debit, neutral, credit

// For combo boxes.
QStringList texts(List list);
// The text at a position; empty for a position outside the list.
QString textAt(List list, int position);

}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/subjects/TreasurySearch.h"

#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/accounting/search/SearchValues.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/ChequeStates.h"

using namespace Qt::StringLiterals;

namespace {

using namespace SearchText;
using namespace SearchValues;

void enterSoughtCheques()
{
    const KSql table = "Cheques t LEFT JOIN Persons p ON p.iID=t.iPersonID";
    SearchIndex::enter({.number = SearchKinds::Cheques,
                        .table = u"Cheques"_s,
                        .group = u"چک‌ها"_s,
                        .form = u"Cheques"_s,
                        .columns = {u"sNumber"_s, u"sSayad"_s, u"sDrawer"_s, u"iPersonID"_s, u"sBank"_s, u"sDesc"_s},
                        .keyColumns = {{u"t.iID"_s, u"t.iPersonID"_s, u"p.sName2"_s, u"t.sNumber"_s, u"t.sSayad"_s, u"t.sDrawer"_s, u"t.sBank"_s, u"t.sDesc"_s}, table},
                        .keys = [](const SearchRow &row) { return ofName(row.at(2)) + ofLongNumber(row.at(3)) + ofLongNumber(row.at(4)) + ofName(row.at(5)) + ofExplanation(row.at(6)) + ofExplanation(row.at(7)); },
                        .persons = {1},
                        .hitColumns = {{u"t.iID"_s, u"t.iKind"_s, u"t.iState"_s, u"t.sNumber"_s, u"t.sBank"_s, u"p.sName2"_s, u"t.dAmount"_s, u"t.dateDue"_s, u"t.sSayad"_s}, table},
                        .hit = [](const SearchRow &row) {
                            const bool given = row.at(1).toInt() == CTblReceipts::paid;
                            const QString due = labelled(u"سررسید"_s, day(row.at(7)));
                            return SearchHit{.title = u"چک %1 %2"_s.arg(row.at(3), row.at(4)).simplified(),
                                             .line = joined({row.at(5), money(row.at(6)), due, labelled(u"صیادی"_s, row.at(8))}),
                                             .aside = ChequeStates::name(static_cast<ChequeState>(row.at(2).toInt()), given)}; }});
}

void enterSoughtReceipts()
{
    const KSql table = "Receipts t LEFT JOIN Persons p ON p.iID=t.iPersonID";
    SearchIndex::enter({.number = SearchKinds::Receipts,
                        .table = u"Receipts"_s,
                        .group = u"دریافت‌ها و پرداخت‌ها"_s,
                        .form = u"Receipts"_s,
                        .columns = {u"iPersonID"_s, u"sDesc"_s},
                        .keyColumns = {{u"t.iID"_s, u"t.iPersonID"_s, u"p.sName2"_s, u"t.sDesc"_s}, table},
                        .keys = [](const SearchRow &row) { return ofNumber(row.at(0).toLongLong()) + ofName(row.at(2)) + ofExplanation(row.at(3)); },
                        .persons = {1},
                        .hitColumns = {{u"t.iID"_s, u"t.iKind"_s, u"p.sName2"_s, u"t.dAmount"_s, u"t.sFor"_s, u"t.date"_s, u"t.iStatus"_s, u"t.sDesc"_s}, table},
                        .hit = [](const SearchRow &row) {
                            const bool isValid = row.at(6).toInt() == CTblReceipts::valid;
                            return SearchHit{.title = u"%1 %2"_s.arg(CTblReceipts::kindName(row.at(1).toInt()), row.at(0)),
                                             .line = joined({row.at(2), money(row.at(3)), row.at(4), row.at(7).simplified()}),
                                             .aside = isValid ? day(row.at(5)) : CTblReceipts::statusName(row.at(6).toInt())}; }});
}

}

void TreasurySearch::enter()
{
    enterSoughtCheques();
    enterSoughtReceipts();
}

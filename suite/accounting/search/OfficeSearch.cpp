// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/OfficeSearch.h"

#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/accounting/search/SearchValues.h"

using namespace Qt::StringLiterals;

namespace {

using namespace SearchText;
using namespace SearchValues;

// What the program writes into its documents by itself repeats what other records are found by.
constexpr int wordsOfADocument = 12;

void enterDocuments()
{
    SearchIndex::enter({.number = SearchKinds::Documents,
                        .table = u"Documents"_s,
                        .group = u"اسناد"_s,
                        .form = u"Documents"_s,
                        .columns = {u"iNum"_s, u"sDesc"_s},
                        .keyColumns = {{u"t.iID"_s, u"t.iNum"_s, u"t.sDesc"_s}, "Documents t"},
                        .keys = [](const SearchRow &row) { return ofNumber(row.at(1).toLongLong()) + ofExplanation(row.at(2), wordsOfADocument); },
                        .hitColumns = {{u"t.iID"_s, u"t.iNum"_s, u"t.iFiscalYear"_s, u"t.sDesc"_s, u"t.date"_s, u"t.iStatus"_s}, "Documents t"},
                        .hit = [](const SearchRow &row) { return SearchHit{.title = u"سند %1، سال %2"_s.arg(row.at(1), row.at(2)), .line = row.at(3).simplified(), .aside = row.at(5) == "1"_L1 ? u"باطل"_s : day(row.at(4))}; }});
}

void enterInvoices()
{
    const KSql table = "Factors t LEFT JOIN Persons p ON p.iID=t.iPersonID";
    SearchIndex::enter({.number = SearchKinds::Invoices,
                        .table = u"Factors"_s,
                        .group = u"فاکتورها"_s,
                        .form = u"Factors"_s,
                        .columns = {u"iPersonID"_s, u"sDesc"_s},
                        .keyColumns = {{u"t.iID"_s, u"t.iPersonID"_s, u"p.sName2"_s, u"t.sDesc"_s}, table},
                        .keys = [](const SearchRow &row) { return ofNumber(row.at(0).toLongLong()) + ofName(row.at(2)) + ofExplanation(row.at(3)); },
                        .persons = {1},
                        .hitColumns = {{u"t.iID"_s, u"t.iType"_s, u"p.sName2"_s, u"t.sDesc"_s, u"t.dAmount"_s, u"t.date"_s, u"t.iStatus"_s}, table},
                        .hit = [](const SearchRow &row) {
                            const QString type = row.at(1).toInt() == CTblFactors::purchase ? u"خرید"_s : u"فروش"_s;
                            return SearchHit{.title = u"فاکتور %1 %2"_s.arg(type, row.at(0)),
                                             .line = joined({row.at(2), money(row.at(4)), row.at(3).simplified()}),
                                             .aside = row.at(6).toInt() == CTblFactors::voided ? u"باطل"_s : day(row.at(5))}; }});
}

}

void OfficeSearch::enter()
{
    enterDocuments();
    enterInvoices();
}

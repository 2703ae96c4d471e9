// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/subjects/CrmSearch.h"

#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/accounting/search/SearchValues.h"

using namespace Qt::StringLiterals;

void CrmSearch::enter()
{
    using namespace SearchText;
    using namespace SearchValues;
    SearchIndex::enter({.number = SearchKinds::Persons,
                        .table = u"Persons"_s,
                        .group = u"اشخاص"_s,
                        .form = u"Persons"_s,
                        .columns = {u"iCode"_s, u"sName2"_s, u"sNationalCode"_s, u"sEconomicCode"_s, u"sMobile"_s, u"sTel"_s, u"sAreaCode"_s},
                        .keyColumns = {{u"t.iID"_s, u"t.iCode"_s, u"t.sName2"_s, u"t.sNationalCode"_s, u"t.sEconomicCode"_s, u"t.sMobile"_s, u"t.sTel"_s, u"t.sAreaCode"_s}, "Persons t"},
                        .keys =
                            [](const SearchRow &row) {
                                QStringList keys = ofNumber(row.at(1).toLongLong()) + ofName(row.at(2)) + ofCode(row.at(3)) + ofCode(row.at(4)) + ofTelephone(row.at(5)) + ofTelephone(row.at(6));
                                if (!row.at(6).isEmpty() && !row.at(7).isEmpty())
                                    keys += ofTelephone(row.at(7) + row.at(6));
                                return keys;
                            },
                        .hitColumns = {{u"t.iID"_s, u"t.iCode"_s, u"t.sName2"_s, u"t.sNationalCode"_s, u"t.sMobile"_s, u"t.sTel"_s, u"t.iStatus"_s}, "Persons t"},
                        .hit = [](const SearchRow &row) {
                            const QString telephone = row.at(4).isEmpty() ? labelled(u"تلفن"_s, row.at(5)) : labelled(u"موبایل"_s, row.at(4));
                            return SearchHit{.title = row.at(2), .line = joined({labelled(u"کد ملی"_s, row.at(3)), telephone}), .aside = row.at(6).toInt() != 0 ? u"غیر فعال"_s : u"شخص %1"_s.arg(row.at(1))}; }});
}

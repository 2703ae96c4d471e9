// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/CarChoices.h"

#include "auto/catalog/parameters/InputParameters.h"
#include "auto/db/CTblCarBrands.h"
#include "suite/accounting/office/CTblItems.h"

using namespace Qt::StringLiterals;

namespace {

template <class Record>
QList<KListFilter::Choice> readNames(const KSql &filter, const KSql &sort)
{
    Record rows;
    rows.m_filter = filter;
    rows.m_sort = sort;
    rows.SetColumns({u"sName"_s});
    QList<KListFilter::Choice> choices = {{u"همه"_s, 0}};
    for (rows.Open(true, true, true); !rows.IsEOF(); rows.MoveNext())
        choices.append({rows.m_sName, rows.m_iID});
    return choices;
}

}

QList<KListFilter::Choice> CarChoices::types()
{
    return readNames<CTblCarBrands>({}, "iID");
}

QList<KListFilter::Choice> CarChoices::colors()
{
    return readNames<CTblItems>(InputParameters::valuesFilter(InputParameters::Color), "sName");
}

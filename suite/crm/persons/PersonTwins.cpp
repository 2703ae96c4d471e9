// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/PersonTwins.h"

#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

std::optional<Twin> PersonTwins::ofNationalCode(const QString &code, qint32 exceptID, int database)
{
    return Twins::find(SearchKinds::Persons, u"sNationalCode"_s, Twins::Sort::Number, code, exceptID, database);
}

std::optional<Twin> PersonTwins::ofMobile(const QString &mobile, qint32 exceptID, int database)
{
    return Twins::find(SearchKinds::Persons, u"sMobile"_s, Twins::Sort::Telephone, mobile, exceptID, database);
}

std::optional<Twin> PersonTwins::ofName(const QString &name, const QString &father, qint32 exceptID, int database)
{
    const QString fathersName = SearchText::folded(father);
    const QStringList keys = SearchText::ofName(name);
    if (fathersName.isEmpty() || keys.isEmpty())
        return std::nullopt;
    QList<qint32> records = SearchIndex::recordsWith(SearchKinds::Persons, keys.constFirst(), database);
    records.removeAll(exceptID);
    if (records.isEmpty())
        return std::nullopt;
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT iID,sName2,sFatherName FROM Persons WHERE iID IN (%1) ORDER BY iID DESC", KSql::list(records)));
    for (; query.HasResultRow(); query.MoveNextResult()) {
        if (SearchText::folded(query.GetTextFieldValue(1)) == SearchText::folded(name) && SearchText::folded(query.GetTextFieldValue(2)) == fathersName)
            return Twins::of(SearchKinds::Persons, query.GetLongFieldValue(0), database);
    }
    return std::nullopt;
}

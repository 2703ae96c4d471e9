// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/records/ChequeEntry.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/treasury/records/SayadNumber.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

// The window keeps to these; what comes from elsewhere is told by its field and not cut.
void requireFitting(const Cheque &cheque)
{
    struct Limit
    {
        QString column;
        QString name;
        QString text;
        int longest;
    };
    const Limit limits[] = {{u"sNumber"_s, u"شماره چک"_s, cheque.number, CTblCheques::longestNumber},
                            {u"sBank"_s, u"نام بانک"_s, cheque.bank, CTblCheques::longestBank},
                            {u"sBranch"_s, u"نام شعبه"_s, cheque.branch, CTblCheques::longestBranch},
                            {u"sBranchCode"_s, u"کد شعبه"_s, cheque.branchCode, CTblCheques::longestBranchCode},
                            {u"sDrawer"_s, u"نام صادرکننده"_s, cheque.drawer, CTblCheques::longestDrawer}};
    for (const Limit &limit : limits) {
        if (ConvertToStandard(limit.text).size() > limit.longest)
            throw FieldRefused(u"%1 بیش از %2 نویسه است."_s.arg(limit.name).arg(limit.longest), limit.column);
    }
}

}

void ChequeEntry::requireUnused(const CTblCheques &entry, const QString &sayad)
{
    NamedLock::take(u"Cheques"_s, entry.database());
    CTblTemp query(entry.database());
    query.Open(false, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT iPersonID,dateDue FROM Cheques WHERE sSayad=%1 AND iState NOT IN (%2,%3) AND iID<>%4 FOR UPDATE",
                                       KSql::quoted(sayad), int(ChequeState::Returned), int(ChequeState::Void), entry.m_iID));
    if (query.HasResultRow())
        throw FieldRefused(u"چکی با این شناسه صیادی ثبت شده است: %1، سررسید %2."_s.arg(
                               KLookup::name<CTblCheques>(u"iPersonID", query.GetLongFieldValue(0), entry.database()), shamsiText(query.GetDateFieldValue(1).date())),
                           u"sSayad"_s);
}

void ChequeEntry::requireComplete(const Cheque &cheque)
{
    if (const QString problem = SayadNumber::problem(cheque.sayad); !problem.isEmpty())
        throw FieldRefused(problem, u"sSayad"_s);
    if (ConvertToStandard(cheque.bank).isEmpty())
        throw FieldRefused(u"لطفا نام بانک چک را وارد نمایید."_s, u"sBank"_s);
    if (!cheque.due.isValid())
        throw FieldRefused(u"لطفا تاریخ سررسید چک را وارد نمایید."_s, u"dateDue"_s);
    requireFitting(cheque);
}

void ChequeEntry::add(CTblCheques &entry, const Cheque &cheque)
{
    requireComplete(cheque);
    const QString sayad = SayadNumber::normalized(cheque.sayad);
    requireUnused(entry, sayad);
    entry.m_iState = static_cast<int>(ChequeState::InHand);
    entry.m_sSayad = sayad;
    entry.m_sNumber = toAsciiDigits(cheque.number).trimmed();
    entry.m_sBank = ConvertToStandard(cheque.bank);
    entry.m_sBranch = ConvertToStandard(cheque.branch);
    entry.m_sBranchCode = toAsciiDigits(cheque.branchCode).trimmed();
    entry.m_dateDue = cheque.due;
    entry.m_sDrawer = ConvertToStandard(cheque.drawer);
    entry.m_iUserID = GetDBSetting()->GetUserID();
    entry.m_dateCreate = GetDBSetting()->GetDBServerDate();
    entry.Update(true);
    entry.m_iID = static_cast<qint32>(entry.GetLastInsertedID());
}

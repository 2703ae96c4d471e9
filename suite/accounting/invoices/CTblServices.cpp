// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/CTblServices.h"

#include "suite/db/CTblTemp.h"
#include "suite/db/KTransaction.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

// The name in standard form. Stands inside the transaction that writes it.
QString requireGood(int code, const QString &name, int ownID, int database)
{
    QString kept = ConvertToStandard(name);
    if (kept.isEmpty())
        throw KAccountingError(u"لطفا نام خدمت را وارد نمایید."_s);
    if (code < 1)
        throw KAccountingError(u"لطفا کد خدمت را وارد نمایید."_s);
    CTblServices others(database);
    others.m_filter = KSql::formatted("iID<>%1", ownID);
    const QString key = searchKey(kept);
    for (others.Open(true, true, true); !others.IsEOF(); others.MoveNext()) {
        if (others.m_iCode == code)
            throw KAccountingError(u"کد %1 از آن خدمت «%2» است."_s.arg(QString::number(code), others.m_sName));
        if (searchKey(others.m_sName) == key)
            throw KAccountingError(u"خدمتی به نام «%1» وجود دارد."_s.arg(others.m_sName));
    }
    return kept;
}

}

CTblServices::CTblServices(int database)
    : KMySQL(database)
{
}

CTblServices::~CTblServices() = default;

QString CTblServices::GetTableName() const
{
    return u"Services"_s;
}

void CTblServices::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iCode", m_iCode, u"کد خدمت");
    RFX_Text(u"sName", m_sName, u"نام خدمت");
}

int CTblServices::nextCode(int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT MAX(iCode) FROM Services");
    return query.GetLongFieldValue(0) + 1;
}

int CTblServices::add(int code, const QString &name, int database)
{
    KTransaction transaction(database);
    CTblServices set(database);
    set.AddNew();
    set.m_sName = requireGood(code, name, 0, database);
    set.m_iCode = code;
    set.Update(true);
    transaction.commit();
    return static_cast<int>(set.GetLastInsertedID());
}

void CTblServices::change(int id, int code, const QString &name, int database)
{
    KTransaction transaction(database);
    CTblServices set(database);
    if (!set.IsRecordExist(u"iID"_s, id))
        throw KAccountingError(u"این خدمت دیگر وجود ندارد."_s);
    set.Edit();
    set.m_sName = requireGood(code, name, id, database);
    set.m_iCode = code;
    set.Update(true);
    transaction.commit();
}

void CTblServices::remove(int id, int database)
{
    KTransaction transaction(database);
    CTblTemp query(database);
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT iFactorNum FROM FactorStuffs WHERE iServiceID=%d ORDER BY iFactorNum LIMIT 1 FOR UPDATE", id);
    if (query.HasResultRow())
        throw KAccountingError(u"این خدمت در فاکتور شماره %1 به کار رفته است و حذف نمی‌شود."_s
                                   .arg(query.GetLongFieldValue(0)));
    query.FormatAndExecuteQuery("DELETE FROM Services WHERE iID=%d", id);
    transaction.commit();
}

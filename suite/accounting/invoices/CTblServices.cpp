// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/CTblServices.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/RowEdit.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

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
    CTblServices service(database);
    RowEdit edit(service);
    edit.save(
        [&] {
            service.m_iCode = code;
            service.m_sName = name;
        },
        [&] { service.settle(0); });
    return edit.key();
}

void CTblServices::settle(qint32 key)
{
    const QString nameColumn = u"sName"_s;
    const QString codeColumn = u"iCode"_s;
    m_sName = ConvertToStandard(m_sName);
    if (m_sName.isEmpty())
        throw FieldRefused(u"لطفا نام خدمت را وارد نمایید."_s, nameColumn);
    if (m_iCode < 1)
        throw FieldRefused(u"لطفا کد خدمت را وارد نمایید."_s, codeColumn);
    CTblServices others(database());
    others.m_filter = KSql::formatted("iID<>%1", key);
    const QString ownName = searchKey(m_sName);
    for (others.Open(false, true, true); !others.IsEOF(); others.MoveNext()) {
        if (others.m_iCode == m_iCode)
            throw FieldRefused(u"کد %1 از آن خدمت «%2» است."_s.arg(QString::number(m_iCode), others.m_sName), codeColumn);
        if (searchKey(others.m_sName) == ownName)
            throw FieldRefused(u"خدمتی به نام «%1» وجود دارد."_s.arg(others.m_sName), nameColumn);
    }
}

// The row first: who writes an invoice holds the services of its lines, and waits here, or is waited for.
void CTblServices::remove(int id, int database)
{
    KTransaction::runReplayable(
        [&] {
            CTblServices service(database);
            if (!service.lockRecord(id))
                throw RowChanged(RowChanged::Kind::Gone, service, id);
            CTblTemp query(database);
            query.FormatAndExecuteQuery("SELECT iFactorNum FROM FactorStuffs WHERE iServiceID=%d ORDER BY iFactorNum LIMIT 1 FOR UPDATE", id);
            if (query.HasResultRow())
                throw KAccountingError(u"این خدمت در فاکتور شماره %1 به کار رفته است و حذف نمی‌شود."_s
                                           .arg(query.GetLongFieldValue(0)));
            service.Delete();
        },
        database);
}

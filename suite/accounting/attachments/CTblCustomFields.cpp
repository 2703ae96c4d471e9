// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CTblCustomFields.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/RowEdit.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

CTblCustomFields::CTblCustomFields(int database)
    : KMySQL(database)
{
}

CTblCustomFields::~CTblCustomFields() = default;

QString CTblCustomFields::GetTableName() const
{
    return u"CustomFields"_s;
}

void CTblCustomFields::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Text(u"sName", m_sName, u"نام فیلد");
    RFX_Long(u"iType", m_iType, u"نوع فیلد");
}

const QStringList &CTblCustomFields::typeNames()
{
    static const QStringList names{u"متن"_s, u"عدد"_s, u"تاریخ"_s,
                                   u"بلی/خیر"_s};
    return names;
}

int CTblCustomFields::define(int table, const QString &name, Type type, int database)
{
    CTblCustomFields field(database);
    RowEdit edit(field);
    edit.save(
        [&] {
            field.m_iTable = table;
            field.m_sName = name;
            field.m_iType = type;
        },
        [&] { field.settle(0); });
    return edit.key();
}

void CTblCustomFields::settle(qint32 key)
{
    m_sName = ConvertToStandard(m_sName);
    if (m_sName.isEmpty())
        throw FieldRefused(u"لطفا نام فیلد را وارد نمایید."_s, u"sName"_s);
    CTblCustomFields others(database());
    others.m_filter = KSql::formatted("iTable=%1 AND sName=%2 AND iID<>%3", m_iTable, KSql::quoted(m_sName), key);
    others.Open(false, true, true);
    if (!others.IsEOF())
        throw FieldRefused(u"فیلدی با این نام قبلا تعریف شده است."_s, u"sName"_s);
}

void CTblCustomFields::remove(int fieldID, int database)
{
    KTransaction::runReplayable(
        [&] {
            CTblCustomFields field(database);
            if (!field.lockRecord(fieldID))
                throw RowChanged(RowChanged::Kind::Gone, field, fieldID);
            CTblTemp temp(database);
            temp.FormatAndExecuteQuery("DELETE FROM CustomFieldRecords WHERE iFieldID=%d", fieldID);
            field.Delete();
        },
        database);
}

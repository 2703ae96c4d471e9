// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CTblCustomFields.h"

#include "suite/db/CTblTemp.h"
#include "suite/db/KTransaction.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

QString requiredName(const QString &name)
{
    const QString standard = ConvertToStandard(name);
    if (standard.isEmpty())
        throw KAccountingError(u"لطفا نام فیلد را وارد نمایید."_s);
    return standard;
}

void write(CTblCustomFields &set)
{
    try {
        set.Update(true);
    } catch (const CMySQLException &error) {
        if (error.category() == CMySQLException::Category::DuplicateKey)
            throw KAccountingError(u"فیلدی با این نام قبلا تعریف شده است."_s);
        throw;
    }
}

}

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
    CTblCustomFields set(database);
    set.AddNew();
    set.m_iTable = table;
    set.m_sName = requiredName(name);
    set.m_iType = type;
    write(set);
    return static_cast<int>(set.GetLastInsertedID());
}

void CTblCustomFields::rename(int fieldID, const QString &name, int database)
{
    CTblCustomFields set(database);
    if (!set.IsRecordExist(u"iID"_s, fieldID))
        return;
    set.Edit();
    set.m_sName = requiredName(name);
    write(set);
}

void CTblCustomFields::remove(int fieldID, int database)
{
    KTransaction transaction(database);
    CTblTemp temp(database);
    temp.Open(false, false, true);
    temp.FormatAndExecuteQuery("DELETE FROM CustomFieldRecords WHERE iFieldID=%d", fieldID);
    temp.FormatAndExecuteQuery("DELETE FROM CustomFields WHERE iID=%d", fieldID);
    transaction.commit();
}

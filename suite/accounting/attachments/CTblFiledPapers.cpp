// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblFiledPapers.h"

#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

CTblFiledPapers::CTblFiledPapers(int database)
    : KMySQL(database)
{
}

CTblFiledPapers::~CTblFiledPapers() = default;

QString CTblFiledPapers::GetTableName() const
{
    return u"FiledPapers"_s;
}

void CTblFiledPapers::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Long(u"iVersion", m_iVersion, u"نسخه");
    RFX_Long(u"iFileDocID", m_iFileDocID, u"", u"FileDocs", u"iID", u"sName");
    RFX_Text(u"sValuesHash", m_sValuesHash, u"");
    RFX_Text(u"sValues", m_sValues, u"");
    RFX_Text(u"sFileHash", m_sFileHash, u"");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
}

void CTblFiledPapers::deleteOf(int kind, qint32 recordID, int database)
{
    CTblTemp statement(database);
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE FROM FiledPapers WHERE iTable=%d AND iRecordID=%d", kind, recordID);
}

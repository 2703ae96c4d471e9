// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CTblFiledPapers.h"

#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"

#include <QCryptographicHash>

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

bool CTblFiledPapers::openNewest(int kind, qint32 recordID)
{
    m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2", kind, recordID);
    m_sort = "iVersion DESC";
    SetLimit(1);
    Open(false, true, true);
    return !IsEOF();
}

qint32 CTblFiledPapers::add(const Filing &filing, int database)
{
    const int user = GetDBSetting()->GetUserID();
    const qint32 fileID = CTblFileDocs::addContent(filing.kind, filing.recordID, CTblFileDocs::General, user, filing.name, filing.file, database);
    CTblFiledPapers paper(database);
    paper.Open(false, false, true);
    paper.AddNew();
    paper.m_iTable = filing.kind;
    paper.m_iRecordID = filing.recordID;
    paper.m_iVersion = filing.version;
    paper.m_iFileDocID = fileID;
    paper.m_sValuesHash = filing.valuesHash;
    paper.m_sValues = QString::fromUtf8(filing.values);
    paper.m_sFileHash = sha256(filing.file);
    paper.m_iUserID = user;
    paper.m_dateCreate = GetDBSetting()->GetDBServerDate();
    paper.Update(true);
    return fileID;
}

QString CTblFiledPapers::sha256(const QByteArray &bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

void CTblFiledPapers::deleteOf(int kind, qint32 recordID, int database)
{
    CTblTemp statement(database);
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE FROM FiledPapers WHERE iTable=%d AND iRecordID=%d", kind, recordID);
}

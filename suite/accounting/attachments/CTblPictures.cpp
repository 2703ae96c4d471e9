// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CTblPictures.h"

using namespace Qt::StringLiterals;

CTblPictures::CTblPictures(int database)
    : KMySQL(database)
{
}

CTblPictures::~CTblPictures() = default;

QString CTblPictures::GetTableName() const
{
    return u"Pictures"_s;
}

void CTblPictures::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Long(u"iOrder", m_iOrder, u"ترتیب");
    RFX_Text(u"sName", m_sName, u"نام تصویر");
    RFX_LongBlob(u"oPicture", m_oPicture, u"تصویر");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
}

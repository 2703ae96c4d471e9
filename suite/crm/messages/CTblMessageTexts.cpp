// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/CTblMessageTexts.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/crm/messages/MessageFilling.h"
#include "suite/crm/messages/MessageKinds.h"
#include "suite/db/records/CTblTemp.h"

#include <algorithm>

using namespace Qt::StringLiterals;

CTblMessageTexts::CTblMessageTexts(int database)
    : KMySQL(database)
{
}

CTblMessageTexts::~CTblMessageTexts() = default;

QString CTblMessageTexts::GetTableName() const
{
    return u"MessageTexts"_s;
}

void CTblMessageTexts::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Text(u"sKind", m_sKind, u"برای");
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Text(u"sText", m_sText, u"متن");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر");
    namesFrom(u"iUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
}

QString CTblMessageTexts::suppliedName()
{
    return u"متن همراه برنامه"_s;
}

QList<CTblMessageTexts::Entry> CTblMessageTexts::entries(const QString &kind, int database)
{
    CTblMessageTexts set(database);
    set.m_filter = KSql::formatted("sKind=%1", KSql::quoted(kind));
    set.m_sort = "sName";
    QList<Entry> entries;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        entries.append({set.m_iID, set.m_sName, set.m_sText});
    if (const MessageKind *known = MessageKinds::of(kind))
        entries.append({0, suppliedName(), known->suppliedText});
    return entries;
}

void CTblMessageTexts::settle(qint32 key) const
{
    if (!MessageKinds::of(m_sKind))
        throw FieldRefused(u"لطفا مشخص نمایید متن برای چیست."_s, u"sKind"_s);
    if (m_sName.isEmpty())
        throw FieldRefused(u"لطفا نام متن را وارد نمایید."_s, u"sName"_s);
    if (std::ranges::any_of(m_sName, [](QChar c) { return c.isSurrogate(); }))
        throw FieldRefused(u"شکلک در نام متن نمی‌آید. لطفا آن را بردارید."_s, u"sName"_s);
    CTblTemp others(database());
    others.ExecuteQuery(KSql::formatted("SELECT iID FROM MessageTexts WHERE sKind=%1 AND sName=%2 AND iID<>%3", KSql::quoted(m_sKind), KSql::quoted(m_sName), key));
    if (m_sName == suppliedName() || others.HasResultRow())
        throw FieldRefused(u"متن دیگری برای «%1» همین نام را دارد. لطفا نام دیگری وارد نمایید."_s.arg(MessageKinds::titleOf(m_sKind)), u"sName"_s);
    requireText();
}

void CTblMessageTexts::requireText() const
{
    const QString column = u"sText"_s;
    if (m_sText.trimmed().isEmpty())
        throw FieldRefused(u"لطفا متن پیام را وارد نمایید."_s, column);
    if (m_sText.size() > longestText)
        throw FieldRefused(u"متن پیام بیش از %1 حرف است."_s.arg(longestText), column);
    const QList<MessageFilling::Wrong> wrong = MessageFilling::wrong(m_sText, MessageKinds::of(m_sKind)->fieldNames());
    if (!wrong.isEmpty())
        throw FieldRefused(u"«%1» در سطر %2 از فیلدهای این متن نیست. لطفا آن را اصلاح نمایید."_s.arg(wrong.constFirst().text).arg(wrong.constFirst().line), column);
}

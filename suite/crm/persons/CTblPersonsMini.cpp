// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CTblPersonsMini.h"

#include "suite/db/records/KLookup.h"

using namespace Qt::StringLiterals;

namespace {

KLookup::Source shownNames()
{
    return {u"Persons"_s, u"iID"_s, u"sName2"_s};
}

}

CTblPersonsMini::CTblPersonsMini(int database)
    : KMySQL(database)
{
}

CTblPersonsMini::~CTblPersonsMini() = default;

QString CTblPersonsMini::GetTableName() const
{
    return shownNames().table;
}

void CTblPersonsMini::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iCode", m_iCode, u"کد شخص");
    RFX_Text(u"sName2", m_sName2, u"نام و نام خانوادگی");
}

QString CTblPersonsMini::GetName(int id, int database)
{
    return id > 0 ? KLookup::name(shownNames(), id, database) : QString();
}

QHash<int, QString> CTblPersonsMini::GetNames(const QList<int> &ids, int database)
{
    return KLookup::names(shownNames(), ids, database);
}

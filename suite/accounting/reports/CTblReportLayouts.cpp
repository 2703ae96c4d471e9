// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/CTblReportLayouts.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

KSql ofReport(const QString &group, const QString &report)
{
    return KSql::formatted("sGroup=%1 AND sReport=%2", KSql::quoted(group), KSql::quoted(report));
}

KSql ofName(const QString &group, const QString &report, const QString &name)
{
    return ofReport(group, report) + " AND sName=" + KSql::quoted(name);
}

}

CTblReportLayouts::CTblReportLayouts(int database)
    : KMySQL(database)
{
}

CTblReportLayouts::~CTblReportLayouts() = default;

QString CTblReportLayouts::GetTableName() const
{
    return u"ReportLayouts"_s;
}

void CTblReportLayouts::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Text(u"sGroup", m_sGroup, u"");
    RFX_Text(u"sReport", m_sReport, u"");
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Text(u"sLayout", m_sLayout, u"");
    RFX_Bool(u"bDefault", m_bDefault, u"پیش فرض");
}

QVector<CTblReportLayouts::Entry> CTblReportLayouts::entries(const QString &group, const QString &report)
{
    CTblReportLayouts set;
    set.m_filter = ofReport(group, report);
    set.m_sort = "sName";
    QVector<Entry> entries;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        entries.append({set.m_iID, set.m_sName, set.m_sLayout, set.m_bDefault != 0});
    return entries;
}

std::optional<ReportLayout> CTblReportLayouts::load(const QString &group, const QString &report, const QString &name)
{
    CTblReportLayouts set;
    set.m_filter = name.isEmpty() ? ofReport(group, report) + " AND bDefault=1" : ofName(group, report, name);
    set.Open(true, true, true);
    if (set.IsEOF())
        return std::nullopt;
    return ReportLayout::fromJson(set.m_sLayout.toUtf8());
}

void CTblReportLayouts::begin(const QString &group, const QString &report, const QString &name, const Entry &listed)
{
    m_sGroup = group;
    m_sReport = report;
    m_sName = ConvertToStandard(name);
    m_sLayout = listed.layout;
    m_bDefault = listed.isDefault ? 1 : 0;
}

void CTblReportLayouts::setLayout(const ReportLayout &layout, bool isDefault)
{
    m_sLayout = QString::fromUtf8(layout.toJson());
    m_bDefault = isDefault ? 1 : 0;
}

void CTblReportLayouts::settle(qint32 key)
{
    if (m_sName.isEmpty())
        throw FieldRefused(u"لطفا نام قالب را وارد نمایید."_s, u"sName"_s);
    CTblTemp others(database());
    const KSql other = KSql::formatted(" AND iID<>%1", key);
    others.ExecuteQuery("SELECT iID FROM ReportLayouts WHERE " + ofName(m_sGroup, m_sReport, m_sName) + other);
    if (others.HasResultRow())
        throw FieldRefused(u"%1 قالبی با این نام در این میان ذخیره کرده است."_s.arg(
                               RowChanged::lastChange(GetTableName(), others.GetLongFieldValue(0), database())),
                           u"sName"_s);
    if (m_bDefault != 0)
        others.ExecuteQuery("UPDATE ReportLayouts SET bDefault=0 WHERE " + ofReport(m_sGroup, m_sReport) + other);
}

void CTblReportLayouts::remove(const QString &group, const QString &report, const QString &name)
{
    CTblReportLayouts set;
    set.m_filter = ofName(group, report, name);
    set.Open(true, true, true);
    if (!set.IsEOF())
        set.Delete();
}

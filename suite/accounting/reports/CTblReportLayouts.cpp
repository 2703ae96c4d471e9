// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/CTblReportLayouts.h"

#include "suite/db/CTblTemp.h"
#include "suite/db/KConnection.h"
#include "suite/db/KTransaction.h"
#include "suite/accounting/frame/KAccountingError.h"
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
        entries.append({set.m_sName, set.m_bDefault != 0});
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

void CTblReportLayouts::save(const QString &group, const QString &report, const QString &name, const ReportLayout &layout,
                             bool isDefault)
{
    const QString standard = ConvertToStandard(name);
    if (standard.isEmpty())
        throw KAccountingError(u"لطفا نام قالب را وارد نمایید."_s);
    KTransaction transaction;
    if (isDefault) {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("UPDATE ReportLayouts SET bDefault=0 WHERE " + ofReport(group, report));
    }
    CTblReportLayouts set;
    set.m_filter = ofName(group, report, standard);
    set.Open(false, true, true);
    if (set.IsEOF()) {
        set.AddNew();
        set.m_sGroup = group;
        set.m_sReport = report;
        set.m_sName = standard;
    } else {
        set.Edit();
    }
    set.m_sLayout = QString::fromUtf8(layout.toJson());
    set.m_bDefault = isDefault ? 1 : 0;
    set.Update(true);
    transaction.commit();
}

void CTblReportLayouts::remove(const QString &group, const QString &report, const QString &name)
{
    CTblTemp temp;
    temp.Open(false, false, true);
    temp.ExecuteQuery("DELETE FROM ReportLayouts WHERE " + ofName(group, report, name));
}

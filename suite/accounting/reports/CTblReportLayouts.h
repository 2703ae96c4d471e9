// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/KLiveCount.h"
#include "suite/db/KMySQL.h"
#include "suite/accounting/reports/ReportLayout.h"
#include "suite/accounting/TzAccountingDataExport.h"

// The layouts that an office keeps for its reports, each under a name; at most one of a report is its default.
class TZACCOUNTINGDATA_EXPORT CTblReportLayouts : public KMySQL, private KLiveCount<CTblReportLayouts>
{
public:
    using KLiveCount<CTblReportLayouts>::liveCount;

    struct Entry
    {
        QString name;
        bool isDefault = false;
    };

    explicit CTblReportLayouts(int database = 0);
    ~CTblReportLayouts() override;
    QString GetTableName() const override;

    // Of one report, by name.
    static QVector<Entry> entries(const QString &group, const QString &report);
    // The named layout, or the default one for an empty name. Nothing when there is none or what is kept is no layout.
    static std::optional<ReportLayout> load(const QString &group, const QString &report, const QString &name = {});
    // Keeps the layout, in place of the one of that name. Throws KAccountingError for an empty name.
    static void save(const QString &group, const QString &report, const QString &name, const ReportLayout &layout, bool isDefault);
    static void remove(const QString &group, const QString &report, const QString &name);

    qint32 m_iID = 0;
    QString m_sGroup;
    QString m_sReport;
    QString m_sName;
    QString m_sLayout; // JSON
    qint32 m_bDefault = 0;

protected:
    void DoFieldExchange() override;
};

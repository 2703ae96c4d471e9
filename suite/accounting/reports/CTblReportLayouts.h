// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/reports/ReportLayout.h"
#include "suite/accounting/TzAccountingDataExport.h"

// The layouts that an office keeps for its reports, each under a name; at most one of a report is its default.
class TZACCOUNTINGDATA_EXPORT CTblReportLayouts : public KMySQL, private KLiveCount<CTblReportLayouts>
{
public:
    using KLiveCount<CTblReportLayouts>::liveCount;

    struct Entry
    {
        qint32 key = 0;
        QString name;
        QString layout; // JSON
        bool isDefault = false;
    };

    explicit CTblReportLayouts(int database = 0);
    ~CTblReportLayouts() override;
    QString GetTableName() const override;

    // Of one report, by name.
    static QVector<Entry> entries(const QString &group, const QString &report);
    // The named layout, or the default one for an empty name. Nothing when there is none or what is kept is no layout.
    static std::optional<ReportLayout> load(const QString &group, const QString &report, const QString &name = {});
    // For a user who keeps a layout (RowEdit): the layout as it was listed, or a new one of that name; what is written; and what
    // settles it: no other layout of the report is its default then. Throws FieldRefused for an empty name and for one that
    // another layout than that of the key has got.
    void begin(const QString &group, const QString &report, const QString &name, const Entry &listed);
    void setLayout(const ReportLayout &layout, bool isDefault);
    void settle(qint32 key);
    static void remove(const QString &group, const QString &report, const QString &name);

    qint32 m_iID = 0;
    QString m_sGroup;
    QString m_sReport;
    QString m_sName;
    QString m_sLayout; // JSON
    qint32 m_bDefault = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};

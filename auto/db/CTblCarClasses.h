// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/ComboRows.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

using namespace Qt::StringLiterals;

// Classes (trims) of the car catalog; iBrandID is the key of the class's model.
class CTblCarClasses : public KMySQL, private KLiveCount<CTblCarClasses>
{
public:
    using KLiveCount<CTblCarClasses>::liveCount;

    explicit CTblCarClasses(int database = 0);
    ~CTblCarClasses() override;
    QString GetTableName() const override;

    // Fills the drop-down with the model's classes in the order of their keys (entry data: the key) and selects the one
    // with key current; nothing is selected when there is none. Returns 1.
    template <class ComboBox>
    static int FillComboBox(ComboBox *combo, int modelID, int current, int database = 0)
    {
        CTblCarClasses rows(database);
        rows.setOf(modelID);
        return fillComboBox(combo, rows, current);
    }
    // That it will be (KReadAhead).
    static void expectChoice(int modelID, int database = 0)
    {
        CTblCarClasses rows(database);
        rows.setOf(modelID);
        expectComboBox(rows);
    }

    qint32 m_iID = 0;
    QString m_sName;
    QString m_sDesc;
    qint32 m_iBrandID = 0;
    QString m_sClassCode;
    qint32 m_iClassType = 0;
    qint32 m_iYearFrom = 0;
    qint32 m_iYiearTo = 0;
    QString m_sCurrentGeneration;
    qint32 m_iStatus = 0;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }

private:
    void setOf(int modelID)
    {
        m_filter = KSql::formatted("iBrandID=%1", modelID);
        m_sort = "iID";
    }
};

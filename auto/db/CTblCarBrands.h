// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/ComboRows.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

using namespace Qt::StringLiterals;

// Makers of the car catalog, its first level.
class CTblCarBrands : public KMySQL, private KLiveCount<CTblCarBrands>
{
public:
    using KLiveCount<CTblCarBrands>::liveCount;

    explicit CTblCarBrands(int database = 0);
    ~CTblCarBrands() override;
    QString GetTableName() const override;
    // Also deletes the brand's models and their classes, all in one joined statement that finds them only where the models
    // have classes; a model without classes stays.
    bool Delete() override;

    // Fills the drop-down with all brands in the order of their keys (entry data: the key); nothing is chosen. Returns 1.
    template <class ComboBox>
    static int FillComboBox(ComboBox *combo, int database = 0)
    {
        CTblCarBrands rows(database);
        rows.setInOrder();
        return fillComboBox(combo, rows, 0);
    }
    // That it will be (KReadAhead).
    static void expectChoice(int database = 0)
    {
        CTblCarBrands rows(database);
        rows.setInOrder();
        expectComboBox(rows);
    }

    qint32 m_iID = 0;
    QString m_sName;
    QString m_sNameEnglish;
    qint32 m_iCompanyID = 0;
    QString m_sWebName;
    QString m_sCountry;
    QString m_sFounders;
    QString m_sCeo;
    QString m_sCentralOffice;
    qint32 m_iYearFrom = 0;
    qint32 m_iYearTo = 0;
    QString m_sWebSite;
    QString m_sLogoFile;
    qint32 m_iGrade = 0;
    qint32 m_bShowInHomePage = 0;
    qint32 m_iWebOrder = 0;
    qint32 m_iStatus = 0;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }

private:
    void setInOrder() { m_sort = "iID"; }
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/settings/ContractSettings.h"
#include "suite/accounting/changes/SettingsEdit.h"
#include "suite/utility/frame/KDialog.h"

#include <array>

class FormGrid;
class KEdit;
class QCheckBox;

// The dialog of the contract settings: tax and duty on the commission, the commission tiers, archiving of demands; what settling
// proposes, and instalment sales in the books.
// Reads the settings of the open database when it is made and writes those that were changed on OK.
class CDlgAutomobilContractSetting : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgAutomobilContractSetting(QWidget *parent = nullptr);

protected:
    bool OnOK() override;

private:
    CDlgAutomobilContractSetting(const OfficeSettings &settings, QWidget *parent);

    struct TierRow
    {
        KEdit *lowerBound = nullptr; // display only
        KEdit *ceiling = nullptr;
        KEdit *percent = nullptr;
        QList<QWidget *> widgets; // all of the row but its heading
    };

    void addTemplatesButton();
    QWidget *createTaxGroup();
    QWidget *createTierGroup(const QString &moneyUnit);
    QWidget *createDemandGroup();
    QWidget *createMoneyGroup();
    bool lateFeeRefused();
    void createTierRow(FormGrid *grid, int tier, const QString &moneyUnit);
    void writeSettings();
    bool save();
    void showSettings(const ContractSettings &settings);
    ContractSettings shownSettings() const;
    void showNextLowerBound(std::size_t tier);
    void showThirdTier(bool shown);
    bool warn(const QString &text, QWidget *field);

    SettingsEdit m_edit;
    KEdit *m_taxPercent = nullptr;
    KEdit *m_dutyPercent = nullptr;
    std::array<TierRow, 3> m_tiers;
    QCheckBox *m_thirdInUse = nullptr;
    QCheckBox *m_archiveDemands = nullptr;
    KEdit *m_demandDays = nullptr;
    QCheckBox *m_levySeparate = nullptr;
    QCheckBox *m_postPlan = nullptr;
    KEdit *m_lateFeePercent = nullptr;
    KEdit *m_lateFeeGrace = nullptr;
};

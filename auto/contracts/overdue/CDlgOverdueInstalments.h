// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/overdue/DueAmounts.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/lists/KListPage.h"

#include <QDate>

class CTblDueInstalments;

// The overdue desk ("اقساط و سررسیدها"): the unpaid instalments of all contracts, whom to call about them, what was said, and
// receiving them.
class CDlgOverdueInstalments final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgOverdueInstalments(QWidget *parent = nullptr);
    ~CDlgOverdueInstalments() override;

    // Opens the desk as a page of the host, with all that is open of the contract that is called by that number.
    static void showContract(int number);

    // The sums of what is listed, as the foot of the list shows them.
    QString totalText() const;

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    void beginRows(KMySQL &records) override;
    void showTotals(const QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override { return u"ap.date"_s; }
    void activated(int key) override;
    KListReport reportSpec() const override;

private:
    // What the selected row is about.
    struct Chosen
    {
        int paymentID = 0; // 0: none is selected, or it is gone
        int contractID = 0;
        int personID = 0;
        int number = 0;
    };

    DueAmounts::Amount amountOf(const CTblDueInstalments &instalment) const;
    double restOf(const CTblDueInstalments &instalment) const;
    double lateFeeOf(const CTblDueInstalments &instalment) const;
    Chosen chosen();
    void receive();
    void followUp();
    void showRecord();
    void showPlan();
    void showStatement();

    QDate m_today; // by the server's clock, when the list was last filled
    int m_decimals = 0;
    ContractSettings m_settings;
    QHash<int, DueAmounts::Amount> m_amounts;
    QLabel *m_total;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"

// The notary tariffs: named fees with an amount. A window to keep them in, or, in select mode, to choose one.
//
// Adding needs the right to delete, not the right to write: who may take tariffs away is who decides which there are.
class CDlgAutomobilTariffs final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAutomobilTariffs(QWidget *parent = nullptr);
    ~CDlgAutomobilTariffs() override;

    // Lets the user choose a tariff; current is selected at first (0: none). The key of the chosen one; 0 when the window
    // was cancelled or the user may not open it.
    [[nodiscard]] static int Select(QWidget *parent, int current = 0);
    // Opens the list to be kept.
    static void Open(QWidget *parent);

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    std::vector<KListCommand> commands() override;
    KListTraits traits() const override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    void recordDeleted(int key) override;
    void activated(int key) override;
    KListReport reportSpec() const override;

private:
    void addTariff();
    void editTariff();
};

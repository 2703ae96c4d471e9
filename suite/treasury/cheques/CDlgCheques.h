// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/TzTreasuryExport.h"

// The register of received and given cheques ("چک‌ها").
class TZTREASURY_EXPORT CDlgCheques : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgCheques(QWidget *parent = nullptr);

    // Opens the register as a page of the host, filtered to that cheque; 0: as it opens by itself.
    static void showCheque(int chequeID);

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    bool isWarning(KMySQL &record) const override;
    void beginRows(KMySQL &) override;
    QString defaultSort() const override;
    int defaultLastColumn() const override;
    void opening() override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;

private:
    void addCheque(CTblReceipts::Kind kind);
    void changeState();
    void showSelected();
    void showHistory();
    void voidCheque();

    int m_wanted = 0; // the cheque that the page is opened for
    QDate m_today;    // of the server, when the rows were read
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/printing/ContractPrinting.h"
#include "suite/accounting/lists/KListPage.h"

using namespace Qt::StringLiterals;

// The list of contracts, and the commands on a contract. In select mode another window picks an active
// contract with it.
class CDlgAutomobilContracts final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAutomobilContracts(QWidget *parent = nullptr);
    ~CDlgAutomobilContracts() override;

    // Select mode, after OK: the number that column 1 of the chosen row reads as, and the text of column 2 (the seller).
    int chosenNumber() const { return m_chosenNumber; }
    QString chosenName() const { return m_chosenName; }

    // Sets other dialogs or places for printed contracts; the page starts with the user's own.
    void setPrinting(ContractPrinting printing) { m_printing = std::move(printing); }

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    void opening() override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    QString defaultSort() const override { return u"iCode"_s; }
    void requireDeletable(KMySQL &record) override;
    void deleteRecord(KMySQL &asked) override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    void rightClicked(int key) override;
    KListReport reportSpec() const override;
    void chose(int row) override;
    void beginRows(KMySQL &) override;
    bool completesRows() const override;
    void completeRows(QVector<KListModel::Row> &rows) override;

private:
    KListColumn receivedColumn(int side) const;

    void addContract();
    void editContract();
    void showSelected();
    void showContract(int key);
    void archiveContract();
    void deleteContract();
    void printContract();
    void filePrinted();
    void settle(int side);
    void showReceipts();
    void showStatement(int side);
    void showOverdue();
    void editSettings();

    ContractPrinting m_printing;
    bool m_levySeparate = false; // as the settings were when the rows were read
    int m_chosenNumber = 0;
    QString m_chosenName;
};

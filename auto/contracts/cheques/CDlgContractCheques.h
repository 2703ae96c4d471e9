// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/cheques/ContractCheques.h"
#include "suite/utility/frame/KDialog.h"

#include <memory>

class KExtListCtrl;
class QComboBox;
class QLabel;
class QPushButton;

// The cheques that the buyer gave for a contract ("چک‌های قرارداد"), and the commands that enter further ones in the register.
class CDlgContractCheques final : public KDialog
{
    Q_OBJECT

public:
    // The contract exists. readOnly: nothing can be entered.
    CDlgContractCheques(const CTblAutomobilContracts &contract, bool readOnly, QWidget *parent = nullptr);
    ~CDlgContractCheques() override;

    // Opens the window and waits until it closes; nothing without the right to see cheques (the user is told).
    static void Show(const CTblAutomobilContracts &contract, bool readOnly, QWidget *parent);

    // The commands behind the buttons: an empty cheque, and one that follows the last.
    void addCheque();
    void addNext();
    void voidSelected();

    KExtListCtrl *list() const { return m_list; }
    QComboBox *purposeBox() const { return m_purpose; }
    QPushButton *addButton() const { return m_add; }
    QPushButton *nextButton() const { return m_next; }
    QString totalText() const;

private:
    void build();
    QWidget *buildEntering();
    QPushButton *command(const QString &caption, const QString &icon, void (CDlgContractCheques::*run)());
    void refill();
    void fillPurposes();
    void updateButtons();
    void enter(const Cheque &cheque, double amount);
    void showSelected();
    const ContractCheques::Row *selected() const;
    const ContractCheques::Row *last() const;

    std::unique_ptr<CTblAutomobilContracts> m_contract; // as it is stored
    bool m_readOnly;
    QString m_moneyUnit;
    QList<ContractCheques::Row> m_rows;
    QList<OpenItem> m_items;
    KExtListCtrl *m_list = nullptr;
    QLabel *m_total = nullptr;
    QComboBox *m_purpose = nullptr;
    QPushButton *m_add = nullptr;
    QPushButton *m_next = nullptr;
    QPushButton *m_void = nullptr;
};

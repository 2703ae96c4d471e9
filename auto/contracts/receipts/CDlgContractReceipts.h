// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/receipts/ContractReceipts.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/frame/KDialog.h"

class KAccountingError;
class KEdit;
class KExtListCtrl;
class QLabel;
class QPushButton;

// The money that was received and paid for a contract, and the command that makes a receipt void ("دریافت‌های قرارداد").
class CDlgContractReceipts final : public KDialog
{
    Q_OBJECT

public:
    // The contract exists.
    explicit CDlgContractReceipts(int contractID, QWidget *parent = nullptr);
    ~CDlgContractReceipts() override;

    // Opens the window; nothing for a contract that is gone, nor without the right to see receipts (the user is told).
    static void Show(int contractID, QWidget *parent);
    // Says why something was refused, and asks whether to open the window, where what refuses it can be made void.
    static void offer(const KAccountingError &refused, int contractID, QWidget *parent);

    // The command behind the button, on the selected row with the entered reason; asks first.
    void voidSelected();

    KExtListCtrl *list() const { return m_list; }
    KEdit *reason() const { return m_reason; }
    QPushButton *voidButton() const { return m_void; }
    QPushButton *printButton() const { return m_print; }
    QPushButton *paperButton() const { return m_paper; }
    QString totalText() const;
    // What the button "چاپ" shows.
    ListReport report() const;

private:
    void build();
    QWidget *buildVoiding();
    bool load();
    void refill();
    void updateButton();
    bool refuse(const QString &message, QWidget *field);
    QString totals() const;
    QString voidingQuestion(const ContractReceipts::Entry &entry) const;
    void print();
    void printSelected();
    const ContractReceipts::Entry *selected() const;

    int m_contractID;
    QString m_moneyUnit;
    bool m_closed = false; // the database, when the window was opened
    QList<ContractReceipts::Entry> m_entries;
    KExtListCtrl *m_list = nullptr;
    QLabel *m_total = nullptr;
    KEdit *m_reason = nullptr;
    QPushButton *m_void = nullptr;
    QPushButton *m_print = nullptr; // the list
    QPushButton *m_paper = nullptr; // the selected receipt
};

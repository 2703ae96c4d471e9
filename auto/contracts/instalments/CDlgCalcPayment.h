// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/instalments/InstalmentPlan.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KListModel.h"

#include <optional>

class FormGrid;
class KDateEdit;
class KEdit;
class KExtListCtrl;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QPushButton;
class QRadioButton;

// Calculates, stores, deletes and shows the instalment plan of a contract, and receives its instalments, whole or in parts. Once
// something was received for one the plan stays as it is: calculating, saving and deleting are refused.
class CDlgCalcPayment final : public KDialog
{
    Q_OBJECT

public:
    // principal: the amount proposed for splitting, in the suite's money unit.
    CDlgCalcPayment(int contractID, int personID, double principal, QWidget *parent = nullptr);
    ~CDlgCalcPayment() override;

    // Opens the window for a contract; nothing for one that does not exist.
    static void Run(int contractID, int personID, double principal, QWidget *parent, bool readOnly = false);
    // Opens it with a plan calculated for that principal, by the terms of the stored one, which it is to replace.
    static void RunAnew(int contractID, int personID, double principal, QWidget *parent);

    void setReadOnly(bool readOnly);
    void calculateAnew(double principal);
    // The commands behind the buttons.
    void calculate();
    void savePlan();
    void deletePlan();
    void receiveSelected();
    // Of the marked instalments.
    void writeMessages();
    void printPlan();
    void showPage();
    // The plan as the list shows it, on paper.
    ListReport planReport() const;

    KExtListCtrl *list() const { return m_list; }
    bool isNoteShown() const;
    // What is said about a plan that does not agree with its contract; empty where it does.
    QString disagreementText() const;
    InstalmentTerms terms() const;
    void setTerms(const InstalmentTerms &terms);
    double shownTotal() const;
    double shownInterest() const;
    QPushButton *button(const QString &caption) const;

private:
    void build(double principal);
    QWidget *buildTerms(double principal);
    static QComboBox *addWithUnit(FormGrid *grid, const QString &caption, KEdit *edit, const QString &name, const QStringList &units);
    QWidget *buildMethod();
    QWidget *buildSums();
    void addCommands(QDialogButtonBox *close);
    void loadPlan();
    bool storePlan(const QList<int> &seen);
    void showStored();
    void showDisagreement();
    KListModel::Row storedRow(const StoredInstalments::Row &row, int number) const;
    void showPlan();
    void updateButtons();
    bool refuse(const QString &message, QWidget *field);
    // When false, the reason has been shown.
    bool checkEntries();
    bool checkTerms(const InstalmentTerms &terms);
    void guarded(void (CDlgCalcPayment::*command)());
    // Asks the database: for a command that is about to change the plan.
    bool changesAllowed() const;

    const OfficeSettings m_settings; // as the window's opening found them
    const ContractSettings m_rates;
    int m_contractID;
    int m_personID;
    int m_contractCode = 0;
    int m_contractNumber = 0; // in the registry, or the code while there is none
    bool m_confirmed = false; // the contract was saved at least once, and so has its document
    bool m_readOnly = false;
    bool m_anyReceived = false;
    std::vector<StoredInstalments::Row> m_stored; // what the list shows, unless a plan was just calculated
    std::optional<InstalmentPlan> m_plan;         // calculated and not yet saved
    InstalmentTerms m_plannedTerms;
    KEdit *m_principal = nullptr;
    KDateEdit *m_start = nullptr;
    QRadioButton *m_declining = nullptr;
    QRadioButton *m_whole = nullptr;
    KEdit *m_rate = nullptr;
    QComboBox *m_rateUnit = nullptr;
    KEdit *m_count = nullptr;
    KEdit *m_interval = nullptr;
    QComboBox *m_intervalUnit = nullptr;
    KExtListCtrl *m_list = nullptr;
    KEdit *m_total = nullptr;
    KEdit *m_interest = nullptr;
    KEdit *m_remaining = nullptr;
    QLabel *m_note = nullptr;
    QLabel *m_disagreement = nullptr;
    QList<QPushButton *> m_buttons;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/cheques/MatterCheques.h"
#include "auto/contracts/editor/ContractEditorPage.h"
#include "auto/contracts/editor/ContractFromCar.h"
#include "suite/utility/forms/KForm.h"

class QGroupBox;
class QPushButton;

// Second page of the contract editor: the vehicle, how it is paid, the registry and notary data, and the terms of a rent or
// of an instalment sale. What of it shows, and is written, follows the contract's type; what does not show keeps the value
// that is stored.
class CDlgAddAutomobilContractMatter final : public ContractEditorPage
{
    Q_OBJECT

public:
    explicit CDlgAddAutomobilContractMatter(ContractEditorMode mode, QWidget *parent = nullptr);
    ~CDlgAddAutomobilContractMatter() override;

    void fill(CTblAutomobilContracts &contract) override;
    [[nodiscard]] bool validate() override;
    void write(CTblAutomobilContracts &contract) override;
    void follow(CTblAutomobilContracts &contract) override;
    QList<KForm::Problem> doubts() const override;

    // The fields of that type of contract, one that has this page.
    void showContractType(int contractType);
    // What of an instalment sale's amount is neither paid in cash nor by cheque, and so is split into instalments; never
    // below 0. In the suite's money unit.
    double amountLeftOf(double contractAmount) const;
    // Shows these texts in their fields; the others stay as they are. Returns the names of the fields whose text
    // was too long and is cut.
    QStringList takeVehicle(const QList<ContractFieldText> &fields);

    // Shows what the register now says of the cheques for the price, in place of what it said before; asks first where the fields
    // hold something else. Nothing where it knows, and knew, none.
    void followCheques(const QList<MatterCheques::FieldText> &before, const QList<MatterCheques::FieldText> &now);

    KForm *form() const override { return m_form; }
    QPushButton *instalmentsButton() const { return m_instalments; }
    QPushButton *chequesButton() const { return m_cheques; }

Q_SIGNALS:
    // The user wants the contract's instalment plan.
    void instalmentsRequested();
    // The user wants the register's cheques for the contract.
    void chequesRequested();

private:
    void build();
    QGroupBox *card(const QString &title, std::initializer_list<KForm::Cell> cells);
    QGroupBox *buildPayment();
    QGroupBox *buildTerms();
    QPushButton *smallButton(const QString &caption, QGroupBox *card, void (CDlgAddAutomobilContractMatter::*request)());
    void offerCities();
    bool mayTakeCheques(const QList<MatterCheques::FieldText> &before, const QList<MatterCheques::FieldText> &now);

    bool m_filling = false;
    KForm *m_form = nullptr;
    QGroupBox *m_terms = nullptr;
    QPushButton *m_instalments = nullptr;
    QPushButton *m_cheques = nullptr;
};

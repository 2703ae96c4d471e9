// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/figures/Commission.h"
#include "suite/utility/forms/KForm.h"

#include <QGroupBox>

#include <array>
#include <optional>
#include <utility>

class CTblAutomobilContracts;
class CTblPersons;
class FormGrid;
class KDateEdit;
class KEdit;
class KPersonField;

// The columns of one side of a contract, and the figures that they hold.
struct ContractPartySide
{
    using Figure = std::pair<CommissionField, QString>;

    int number; // 1 or 2
    qint32 CTblAutomobilContracts::*personID;
    QString CTblAutomobilContracts::*name;
    CommissionField kindField;
    CommissionField discountPercentField;
    QString kind;
    QString byVirtue;
    QString from;
    QString nationalId;
    QString address;
    QString tel;
    QString mobile;
    QString taxPercent;
    QString tax;
    QString dutyPercent;
    QString duty;
    QString discountPercent;
    QString discount;
    QString pays;
    std::array<Figure, 7> figures;

    static const ContractPartySide &first();
    static const ContractPartySide &second();
    // The side's rows of the page's form table.
    QList<KFormField> formFields() const;
};

// One side of a contract on the editor's base page: its identity, by kind, and what it pays. Its controls that mirror columns
// are those of the page's form; the rest of a person's data is shown from the list of persons.
class ContractPartyGroup final : public QGroupBox
{
    Q_OBJECT

public:
    // The form holds the side's fields already.
    ContractPartyGroup(const ContractPartySide &side, KForm &form, QWidget *parent);

    // The contract's own columns; what the record of a person of the list says is added by showPerson.
    void fill(const CTblAutomobilContracts &contract);
    // Name and personal data of the person whose key the contract keeps.
    void showPerson(const CTblPersons &person);
    void write(CTblAutomobilContracts &contract) const;
    void setShowMode(bool show);

    PartyKind kind() const;
    QString name() const;
    // A discount that leaves a payment below zero; none otherwise.
    std::optional<KForm::Problem> discountProblem() const;
    // Moves to where the name is entered: the picker, or the name line for a party typed by hand.
    void askForPerson();

    // Changes the kind as the user does. Emits kindChanged once the group shows what belongs to the kind.
    void setKind(PartyKind kind);
    // Takes over a person of the list; one that does not exist changes nothing.
    void takePerson(int personID);

    KPersonField *personField() const { return m_person; }

Q_SIGNALS:
    void kindChanged();
    // The discount percentage that the chosen person's record keeps; 0 when the person is taken out.
    void personDiscountFound(double percent);

private:
    void buildPersonRows(FormGrid *grid);
    void buildFigureRow(FormGrid *grid);
    void offerKnownPerson();
    void kindChosen();
    void showPersonalData(const CTblPersons &person);
    void clearPerson();
    void takeCompany();
    void applyKind();
    void setPersonDataEditable(bool editable);

    const ContractPartySide &m_side;
    KForm &m_form;
    KPersonField *m_person;
    KEdit *m_father;
    KEdit *m_identityCity;
    KEdit *m_identityNumber;
    KDateEdit *m_birth;
    bool m_filling = false;
};

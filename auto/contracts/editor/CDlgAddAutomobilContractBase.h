// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/figures/Commission.h"
#include "auto/contracts/editor/ContractEditorPage.h"
#include "suite/utility/forms/KForm.h"

#include <QDate>
#include <QList>
#include <QStringList>

#include <memory>
#include <optional>
#include <utility>

class ArchiveLine;
class ContractPartyGroup;
class KEdit;
class OfficeSettings;
class QGroupBox;
class QPushButton;

// First page of the contract editor: identity, parties, amount and commission. The figures follow each other live by the
// rules of Commission.h.
class CDlgAddAutomobilContractBase final : public ContractEditorPage
{
    Q_OBJECT

public:
    // Settings that were read with the section of the contracts.
    CDlgAddAutomobilContractBase(ContractEditorMode mode, const OfficeSettings &settings, QWidget *parent = nullptr);
    ~CDlgAddAutomobilContractBase() override;

    void fill(CTblAutomobilContracts &contract) override;
    [[nodiscard]] bool validate() override;
    // Shows why the code cannot be saved, and goes to its field.
    bool refuseCode(const QString &why);
    // The amount of the contract, with what follows from it, where none is entered yet; 0: nothing is proposed.
    void proposeAmount(double amount);
    void write(CTblAutomobilContracts &contract) override;
    QList<KForm::Problem> doubts() const override;
    QHash<QString, Entry> furtherEntries() const override;

    // Asks what to do where a party pays another amount than the contract's document will charge, and takes the document's when
    // told to. When false, the user went back to the payment.
    [[nodiscard]] bool settlePayments();

    KForm *form() const override { return m_form; }
    ContractPartyGroup *firstParty() const { return m_first; }
    ContractPartyGroup *secondParty() const { return m_second; }
    // The notes, as the line shows them.
    QStringList notes() const { return m_notes; }
    void pickNotes();

Q_SIGNALS:
    void contractTypeChanged(int contractType);

private:
    // What a party pays is not what the document will charge.
    struct PaymentDifference
    {
        CommissionField figure;
        KEdit *edit;
        QString name; // of the party
        double charged;
    };

    void build();
    QGroupBox *buildIdentity(QWidget *content);
    QGroupBox *buildTexts(QWidget *content);
    QWidget *buildRegistrySentence(QWidget *card);
    void wireFigures();
    void figureEdited(CommissionField figure, double number);
    QList<PaymentDifference> paymentDifferences() const;
    void recompute(CommissionField changed);
    void showFigures();
    void showPersons();
    void nameGroups(int contractType);
    void showNotes();
    bool validateAmountAndParties();
    bool validateDate();
    bool validateEntries();

    KForm *m_form = nullptr;
    ContractPartyGroup *m_first = nullptr;
    ContractPartyGroup *m_second = nullptr;
    ArchiveLine *m_archiveLine = nullptr;
    KEdit *m_notesLine = nullptr;
    QPushButton *m_notesButton = nullptr;
    QStringList m_notes;
    const CommissionTiers m_tiers;
    const QDate m_today; // by the server's clock
    CommissionFields m_figures;
    std::optional<CommissionFields> m_beforeAmount; // the figures before the amount that is being entered
    QList<std::pair<CommissionField, QString>> m_figureColumns;
};

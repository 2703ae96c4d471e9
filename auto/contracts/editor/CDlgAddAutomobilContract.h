// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/editor/CDlgRecordEditor.h"
#include "auto/contracts/document/ContractSaving.h"
#include "auto/contracts/editor/CarOfContract.h"
#include "auto/contracts/editor/ContractEditorPage.h"
#include "auto/contracts/instalments/PlanFollowing.h"
#include "suite/accounting/office/OfficeSettings.h"

class CDlgAddAutomobilContractBase;
class CDlgAddAutomobilContractMatter;
class CDlgCustomFields;
class QPushButton;

// The window in which one contract is written, changed or shown: a row of tabs over its pages, which ContractSaving
// saves together with the accounting document.
class CDlgAddAutomobilContract final : public CDlgRecordEditor
{
    Q_OBJECT

public:
    // Adds a contract with the next code and the settings' tax and duty, and opens it. Returns its key, or 0 when
    // the user cancelled: the contract is then deleted again. carID: the car that it is about, whose vehicle and owner it takes over; 0: none yet.
    static int NewContract(QWidget *parent, int carID = 0);
    // True when the user confirmed. False also when there is no such contract.
    static bool EditContract(int key, bool isNew, QWidget *parent);
    // That one will be edited, or only begun (KReadAhead).
    static void expectEdit(int key);
    static void expectSettings();
    // refresh is set when the contract was changed meanwhile (taken out of the archive). A key below 1 does nothing.
    static void ShowContract(int key, bool &refresh, QWidget *parent);

    // The settings that an opening needs, read in one statement.
    static OfficeSettings readSettings();
    // Adds the row that a new contract starts as and returns its key. Part of NewContract.
    static int addPlaceholder(const OfficeSettings &settings = readSettings());

    CDlgAddAutomobilContract(int key, ContractEditorMode mode, QWidget *parent = nullptr);
    ~CDlgAddAutomobilContract() override;

    // Builds the pages and fills them. False when the contract does not exist; the window must not be shown then.
    [[nodiscard]] bool load(const OfficeSettings &settings = readSettings());

    // The car whose vehicle, owner and price the contract takes over, and which it remembers once it is saved. False: the user leaves it,
    // because it is in another contract.
    [[nodiscard]] bool takeCar(int carID);

    CDlgAddAutomobilContractBase *basePage() const { return m_base; }
    CDlgAddAutomobilContractMatter *matterPage() const { return m_matter; }
    QPushButton *carButton() const { return m_copyCar; }

protected:
    [[nodiscard]] bool validatePages() override;
    void save() override;
    [[nodiscard]] int saveAsNew() override;
    QString recordName() const override;
    QString rightsForm() const override;
    QString captionOf(const QString &column) const override;
    std::optional<QString> textOf(const QString &column, const QVariant &value) const override;
    void goToField(const QString &column) override;
    void refuseCode(const QString &why) override;
    void saved() override;
    [[nodiscard]] bool takeOutOfArchive() override;

private:
    // The key of the confirmed contract, 0 when the user cancelled.
    static int edit(int key, ContractEditorMode mode, const OfficeSettings &settings, QWidget *parent, int carID = 0);
    void addPages(const OfficeSettings &settings);
    void applyMode();
    void showContractType(int contractType);
    void showInstalments();
    void savePosted();
    void showCheques();
    void copyCar();
    void estimate();
    // The pages that a contract of the shown type has.
    QList<ContractEditorPage *> pages() const;

    ContractSaving::Posted m_posted;
    std::optional<PlanFollowing::Answer> m_planAnswer; // of the save that is at work
    QHash<int, QString> m_customValues;                // of the contract as it was opened
    int m_contractType = 0;
    CarOfContract m_car;
    int m_matterTab = -1;
    CDlgAddAutomobilContractBase *m_base = nullptr;
    CDlgAddAutomobilContractMatter *m_matter = nullptr;
    CDlgCustomFields *m_customFields = nullptr;
    QPushButton *m_copyCar = nullptr;
    QPushButton *m_estimate = nullptr;
};

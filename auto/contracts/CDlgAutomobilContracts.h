// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/ContractFilter.h"
#include "auto/contracts/printing/ContractPrinting.h"
#include "suite/accounting/lists/KListPage.h"

class CTblAutomobilContracts;
class KDateEdit;
class KPersonField;
class QCheckBox;
class QComboBox;

// The list of contracts, and from it everything that is done with one. In select mode another window picks an active
// contract by it.
class CDlgAutomobilContracts final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAutomobilContracts(QWidget *parent = nullptr);
    ~CDlgAutomobilContracts() override;

    // Select mode, after OK: the number that column 1 of the chosen row reads as, and the text of column 2 (the seller).
    int chosenNumber() const { return m_chosenNumber; }
    QString chosenName() const { return m_chosenName; }

    // What the filter controls ask for now.
    ContractCriteria criteria() const;
    // Filter as a person sets it, for callers that preset it and for tests.
    KPersonField *sellerFilter() const { return m_seller; }
    KPersonField *buyerFilter() const { return m_buyer; }
    QComboBox *archiveFilter() const { return m_archive; }
    QComboBox *returnFilter() const { return m_returned; }
    QComboBox *typeFilter() const { return m_type; }
    KDateEdit *contractFromFilter() const { return m_contractFrom; }
    KDateEdit *contractToFilter() const { return m_contractTo; }
    KDateEdit *expirationFromFilter() const { return m_expirationFrom; }
    KDateEdit *expirationToFilter() const { return m_expirationTo; }
    KEdit *descriptionFilter() const { return m_description; }
    KEdit *explanationFilter() const { return m_explanation; }
    QCheckBox *inactiveFilter() const { return m_inactive; }

    // Another desk or other places for printed contracts; the page begins with the person's own.
    void setPrinting(ContractPrinting printing) { m_printing = std::move(printing); }

    // The list keeps the archive and return filters as they are.
    void resetFilter();

protected:
    QVector<KListModel::Column> listColumns() const override;
    std::vector<KListCommand> commands() override;
    void buildFilters(QGridLayout *grid) override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    QStringList fetchedColumns() const override;
    QString filterClauses() const override;
    KListModel::Row makeRow(KMySQL &record, int number) override;
    void beginRows() override;
    void completeRows(QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override { return QStringLiteral("iCode"); }
    void modeApplied() override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    void rightClicked(int key) override;
    KListReport reportSpec() const override;
    void chose(int row) override;
    QWidget *firstFilterControl() const override;

private:
    enum class Side {
        Seller,
        Buyer
    };

    void addContract();
    void editContract();
    void showSelected();
    void showContract(int key);
    void archiveContract();
    void printContract();
    void settle(Side side);
    void editSettings();

    struct Parties
    {
        int first = 0;
        int second = 0;
    };

    QVector<Parties> m_parties; // of the rows being read, until their names are known
    ContractPrinting m_printing;
    int m_chosenNumber = 0;
    QString m_chosenName;
    KPersonField *m_seller = nullptr;
    KPersonField *m_buyer = nullptr;
    QComboBox *m_archive = nullptr;
    QComboBox *m_returned = nullptr;
    QComboBox *m_type = nullptr;
    KDateEdit *m_contractFrom = nullptr;
    KDateEdit *m_contractTo = nullptr;
    KDateEdit *m_expirationFrom = nullptr;
    KDateEdit *m_expirationTo = nullptr;
    KEdit *m_description = nullptr;
    KEdit *m_explanation = nullptr;
    QCheckBox *m_inactive = nullptr;
};

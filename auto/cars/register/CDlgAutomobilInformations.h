// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/register/CarFilter.h"
#include "suite/accounting/lists/KListPage.h"

class KDateEdit;
class KPersonField;
class QCheckBox;
class QComboBox;

// The list of the cars on offer, and from it everything that is done with one. In select mode another window picks a car by
// it. The search may begin with the wishes of a customer's demand.
class CDlgAutomobilInformations final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAutomobilInformations(QWidget *parent = nullptr);
    ~CDlgAutomobilInformations() override;

    // Lets the user pick a car in a modal window. Its key, or 0 when the user cancelled.
    static int SelectCar(QWidget *parent, int preselected = 0);
    // Opens the list as a page of the host's work area, searching for what the demand wishes.
    static void ShowForDemand(int demandID);

    // The row that a new car starts as; its key. Part of the command "جديد".
    static int addPlaceholder();

    // The demand whose wishes the search begins with, 0 for none; to be set before the page is first shown. A demand that
    // does not exist changes nothing.
    void setDemand(int demandID) { m_demandID = demandID; }

    // What the filter controls ask for now.
    CarCriteria criteria() const;
    // Filter as a person sets it, for tests.
    KPersonField *ownerFilter() const { return m_owner; }
    KPersonField *buyerFilter() const { return m_buyer; }
    QComboBox *typeFilter() const { return m_type; }
    QComboBox *colorFilter() const { return m_color; }
    QComboBox *fuelFilter() const { return m_fuel; }
    QComboBox *usageFilter() const { return m_usage; }
    QComboBox *archiveFilter() const { return m_archive; }
    KEdit *amountFromFilter() const { return m_amountFrom; }
    KEdit *amountToFilter() const { return m_amountTo; }
    KEdit *yearFromFilter() const { return m_yearFrom; }
    KEdit *yearToFilter() const { return m_yearTo; }
    KDateEdit *introductionFromFilter() const { return m_introductionFrom; }
    KDateEdit *introductionToFilter() const { return m_introductionTo; }
    KEdit *chassisFilter() const { return m_chassis; }
    KEdit *documentsDeficitFilter() const { return m_documentsDeficit; }
    KEdit *partsDeficitFilter() const { return m_partsDeficit; }
    QCheckBox *inactiveFilter() const { return m_inactive; }

    // Nothing asked but what is not archived; the list is emptied.
    void resetFilter() override;

protected:
    QVector<KListModel::Column> listColumns() const override;
    std::vector<KListCommand> commands() override;
    void buildFilters(QGridLayout *grid) override;
    KListTraits traits() const override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    std::unique_ptr<KMySQL> makeRecord() const override;
    QStringList fetchedColumns() const override;
    QString filterClauses() const override;
    KListModel::Row makeRow(KMySQL &record, int number) override;
    void beginRows() override;
    void completeRows(QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override;
    void recordDeleted(int key) override;
    void modeApplied() override;
    void activated(int key) override;
    KListReport reportSpec() const override;
    QWidget *firstFilterControl() const override;

private:
    void buildHiddenFilters(QWidget *box);
    void presetFromDemand();
    void addCar();
    void editCar();
    void showSelected();
    void showCar(int key);
    void archiveCar();
    void showMatchingDemands();
    void browseCatalog();
    void editInputParameters();

    // What the cells of a row name by key.
    struct Keys
    {
        int buyer = 0;
        int owner = 0;
        int type = 0;
        int color = 0;
    };

    QVector<Keys> m_keys; // of the rows being read, until their names are known
    int m_demandID = 0;
    KPersonField *m_owner = nullptr;
    KPersonField *m_buyer = nullptr;
    QComboBox *m_type = nullptr;
    QComboBox *m_color = nullptr;
    QComboBox *m_fuel = nullptr;
    QComboBox *m_usage = nullptr;
    QComboBox *m_archive = nullptr;
    KEdit *m_amountFrom = nullptr;
    KEdit *m_amountTo = nullptr;
    KEdit *m_yearFrom = nullptr;
    KEdit *m_yearTo = nullptr;
    KDateEdit *m_introductionFrom = nullptr;
    KDateEdit *m_introductionTo = nullptr;
    KEdit *m_chassis = nullptr;
    KEdit *m_documentsDeficit = nullptr;
    KEdit *m_partsDeficit = nullptr;
    QCheckBox *m_inactive = nullptr;
};

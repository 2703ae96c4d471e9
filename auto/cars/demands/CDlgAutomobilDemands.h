// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/demands/DemandFilter.h"
#include "suite/accounting/lists/KListPage.h"

class KDateEdit;
class KPersonField;
class QCheckBox;
class QComboBox;

// The list of customers' demands, and from it everything that is done with one, the cars that fit it among them.
class CDlgAutomobilDemands final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAutomobilDemands(QWidget *parent = nullptr);
    ~CDlgAutomobilDemands() override;

    // What the filter controls ask for now.
    DemandCriteria criteria() const;
    // Filter as a person sets it, for callers that preset it and for tests.
    KPersonField *personFilter() const { return m_person; }
    QComboBox *archiveFilter() const { return m_archive; }
    QComboBox *typeFilter() const { return m_type; }
    QComboBox *colorFilter() const { return m_color; }
    KDateEdit *referenceFromFilter() const { return m_referenceFrom; }
    KDateEdit *referenceToFilter() const { return m_referenceTo; }
    KEdit *amountFromFilter() const { return m_amountFrom; }
    KEdit *amountToFilter() const { return m_amountTo; }
    KEdit *yearFromFilter() const { return m_yearFrom; }
    KEdit *yearToFilter() const { return m_yearTo; }
    KEdit *specialDescriptionFilter() const { return m_specialDescription; }
    QCheckBox *inactiveFilter() const { return m_inactive; }

    // The filter as a new window has it; the list is emptied.
    void resetFilter() override;

protected:
    QVector<KListModel::Column> listColumns() const override;
    std::vector<KListCommand> commands() override;
    void buildFilters(QGridLayout *grid) override;
    KListTraits traits() const override;
    void opening() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    std::unique_ptr<KMySQL> makeRecord() const override;
    QStringList fetchedColumns() const override;
    QString filterClauses() const override;
    KListModel::Row makeRow(KMySQL &record, int number) override;
    void beginRows() override;
    void completeRows(QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override { return QStringLiteral("ad.iCode"); }
    void recordDeleted(int key) override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;
    QWidget *firstFilterControl() const override;

private:
    void addDemand();
    void editDemand();
    void showDemand(int key);
    void archiveDemand();

    // Of the rows being read, until their names are known.
    struct Keys
    {
        int person = 0;
        int type = 0;
    };
    QVector<Keys> m_keys;
    KPersonField *m_person = nullptr;
    QComboBox *m_archive = nullptr;
    QComboBox *m_type = nullptr;
    QComboBox *m_color = nullptr;
    KDateEdit *m_referenceFrom = nullptr;
    KDateEdit *m_referenceTo = nullptr;
    KEdit *m_amountFrom = nullptr;
    KEdit *m_amountTo = nullptr;
    KEdit *m_yearFrom = nullptr;
    KEdit *m_yearTo = nullptr;
    KEdit *m_specialDescription = nullptr;
    QCheckBox *m_inactive = nullptr;
};

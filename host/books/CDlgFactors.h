// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/lists/KListPage.h"

class KDateEdit;
class KPersonField;
class QCheckBox;
class QComboBox;

// The invoices of services, sold and bought.
class CDlgFactors : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgFactors(QWidget *parent = nullptr);

protected:
    QVector<KListModel::Column> listColumns() const override;
    std::vector<KListCommand> commands() override;
    void buildFilters(QGridLayout *grid) override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    QString filterClauses() const override;
    KListModel::Row makeRow(KMySQL &record, int number) override;
    void beginRows() override;
    void completeRows(QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;
    QWidget *firstFilterControl() const override;

private:
    void addInvoice(int type);
    void editInvoice();
    void showInvoice();
    void voidInvoice();
    void showDocument();

    KPersonField *m_person = nullptr;
    QComboBox *m_type = nullptr;
    KDateEdit *m_from = nullptr;
    KDateEdit *m_to = nullptr;
    QCheckBox *m_voided = nullptr;
    QList<int> m_personIDs;
};

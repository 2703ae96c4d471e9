// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"

class QCheckBox;

// The people who may log in, and what each of them may do.
class CDlgUsers : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgUsers(QWidget *parent = nullptr);

protected:
    QVector<KListModel::Column> listColumns() const override;
    std::vector<KListCommand> commands() override;
    void buildFilters(QGridLayout *grid) override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    QStringList fetchedColumns() const override;
    QString filterClauses() const override;
    KListModel::Row makeRow(KMySQL &record, int number) override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    QWidget *firstFilterControl() const override;

private:
    void addUser();
    // An administrator's account and everybody's rights are for administrators alone; tells a refusal.
    bool mayTouch(bool needsAdmin);
    void editUser();
    void editRights();
    void toggleActive();

    KEdit *m_name = nullptr;
    QCheckBox *m_inactive = nullptr;
};

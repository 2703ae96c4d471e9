// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"

// The people who may log in, and what each of them may do.
class CDlgUsers : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgUsers(QWidget *parent = nullptr);

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;

private:
    void addUser();
    // An administrator's account and everybody's rights are for administrators alone; reports a refusal.
    bool mayTouch(bool needsAdmin);
    void editUser();
    void editRights();
    void toggleActive();
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"
#include "suite/accounting/changes/RowEdit.h"
#include "suite/utility/frame/KDialog.h"

#include <memory>

class KEdit;

// Adds an account to the chart, or renames one.
class CDlgAddAccount : public KDialog
{
    Q_OBJECT

public:
    // A new account on the level below that parent (0 for a general account); its code is proposed.
    CDlgAddAccount(AccountLevel level, int parentCode, QWidget *parent = nullptr);
    // An existing account: its name can be changed, its code cannot.
    explicit CDlgAddAccount(int code, QWidget *parent = nullptr);

    // Code of the account; for a new one, after OK.
    int code() const { return m_code; }

    bool OnOK() override;

private:
    void build(const QString &title, const QString &above);
    void write() const;
    bool rename();
    bool add();

    AccountLevel m_level;
    int m_parent;
    int m_code;
    std::unique_ptr<KMySQL> m_record; // of an account that is there
    std::unique_ptr<RowEdit> m_edit;
    KEdit *m_codeEdit;
    KEdit *m_name;
};

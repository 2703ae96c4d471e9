// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/utility/frame/KDialog.h"

class FormGrid;
class KEdit;
class QCheckBox;

// Editor of a user; key 0 for a new one. An empty password keeps the current one.
class CDlgAddUser : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgAddUser(int userID, QWidget *parent = nullptr);

    // The key of the user; for a new one, after OK.
    int userID() const { return m_edit.key(); }

protected:
    bool OnOK() override;

private:
    KEdit *addEdit(FormGrid *grid, const QString &caption, int maxLength);
    void load();
    bool validate();
    void write();
    void settle();
    bool save();
    QWidget *fieldOf(const QString &column) const;
    bool refuse(const QString &message, QWidget *field);

    CTblUsers m_record;
    RowEdit m_edit;
    QString m_hash; // of the password that was entered; empty: it stays
    KEdit *m_user;
    KEdit *m_name;
    KEdit *m_password;
    KEdit *m_repeated;
    QCheckBox *m_admin;
    QCheckBox *m_active;
};

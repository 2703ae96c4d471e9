// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/utility/frame/KDialog.h"

class KEdit;

// Editor of a service; key 0 for a new one.
class CDlgAddService : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgAddService(int serviceID, QWidget *parent = nullptr);

    // The key of the service; for a new one, after OK.
    int serviceID() const { return m_edit.key(); }

    bool OnOK() override;

private:
    void store();

    CTblServices m_service;
    RowEdit m_edit;
    KEdit *m_code;
    KEdit *m_name;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/treasury/cheques/ChequeHistory.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class KExtListCtrl;
class QPushButton;

// What happened to one cheque, step by step ("گردش چک"), and the command that takes the last step back.
class TZTREASURY_EXPORT CDlgChequeHistory : public KDialog
{
    Q_OBJECT

public:
    // The cheque exists.
    explicit CDlgChequeHistory(int chequeID, QWidget *parent = nullptr);

    // Shows it to a user who may read cheques; says so when the user may not or the cheque is gone. True when a step was taken back.
    static bool Show(int chequeID, QWidget *parent);

    // The command behind the button: asks for the reason.
    void undoLast();

    KExtListCtrl *list() const { return m_list; }
    QPushButton *undoButton() const { return m_undo; }
    bool isChanged() const { return m_changed; }

private:
    void build();
    void refill();
    void showDocument(int key);

    int m_chequeID;
    bool m_closed;
    bool m_changed = false;
    ChequeChanging::Seen m_seen; // as the rows were read
    QList<ChequeHistory::Entry> m_entries;
    KExtListCtrl *m_list = nullptr;
    QPushButton *m_undo = nullptr;
};

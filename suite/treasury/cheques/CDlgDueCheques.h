// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/cheques/ChequesDue.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class KDateEdit;
class KEmptyState;
class KExtListCtrl;
class QLabel;
class QPushButton;

// The open cheques, received and given, that are due up to a day ("چک‌های سررسید"), with the way to each in the register.
class TZTREASURY_EXPORT CDlgDueCheques : public KDialog
{
    Q_OBJECT

public:
    // An invalid day: all that are open.
    explicit CDlgDueCheques(const QDate &upTo, QWidget *parent = nullptr);
    ~CDlgDueCheques() override;

    // What is due today or overdue, to a user who may open the register; says why not otherwise.
    static void Show(QWidget *parent);

    KExtListCtrl *list() const { return m_list; }
    QString totalsText() const;

public Q_SLOTS:
    // Reads the cheques up to the day as it stands; an entry that is no date is reported and keeps the rows.
    void refill();
    void print();

private:
    void build();
    QWidget *buildFilter();
    void showTotals(const QList<ChequesDue::Row> &due);
    void showCheque();
    void openRegister();

    KDateEdit *m_upTo;
    KExtListCtrl *m_list;
    KEmptyState *m_empty = nullptr;
    QLabel *m_totals;
    QList<QPushButton *> m_onRow; // commands of the selected row
};

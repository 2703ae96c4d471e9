// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/Cheque.h"
#include "suite/treasury/TzTreasuryExport.h"

#include <QGroupBox>

class FieldNote;
class KDateEdit;
class KEdit;

// The card in which a cheque is entered ("مشخصات چک"). The Sayad number is checked while it is typed.
class TZTREASURY_EXPORT ChequeFields : public QGroupBox
{
    Q_OBJECT

public:
    explicit ChequeFields(QWidget *parent = nullptr);

    Cheque cheque() const;
    void setCheque(const Cheque &cheque);
    // Who it is from where no drawer is entered.
    void setDrawerHint(const QString &name);
    // What keeps the entries from being read, and the field it is in; empty: nothing.
    QString problem(QWidget **field) const;
    // The field of a column of Cheques, as FieldRefused names it; nullptr for any other.
    QWidget *fieldOf(const QString &column) const;

private:
    void checkSayad(bool isFinished);

    KEdit *m_sayad;
    FieldNote *m_sayadNote;
    KEdit *m_number;
    KDateEdit *m_due;
    KEdit *m_bank;
    KEdit *m_branch;
    KEdit *m_branchCode;
    KEdit *m_drawer;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/OpenItem.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/entries/KDropDown.h"

#include <QList>

// The field "بابت :" of a receipt or payment: what the person has open, and on account before it.
class TZTREASURY_EXPORT OpenItemField : public KDropDown
{
    Q_OBJECT

public:
    explicit OpenItemField(CTblReceipts::Kind kind, QWidget *parent = nullptr);

    // One purpose, which cannot be changed; shown as its text or, without one, as the other.
    void setFixed(const ReceiptPurpose &purpose, const QString &textWithoutOwn);
    // What is chosen before the user does so.
    enum class Proposal {
        OnAccount,
        FirstDue // on account where nothing is open
    };
    // The items of another person.
    void setPerson(int personID, Proposal proposal);
    // Reads the items anew and keeps the choice. What is no longer open is no longer chosen, and nothing else is instead.
    void reload();

    const QList<OpenItem> &items() const { return m_items; }
    // False after reload took the choice away.
    bool isChosen() const { return currentIndex() >= 0; }
    ReceiptPurpose purpose() const;
    // The open item behind the choice; nullptr on account, and for a fixed purpose that nothing is known of.
    const OpenItem *item() const;

private:
    void read();
    void fill(const ReceiptPurpose &chosen);

    CTblReceipts::Kind m_kind;
    int m_personID = 0;
    ReceiptPurpose m_fixed; // of no record: none
    QString m_fixedText;
    QList<OpenItem> m_items;
};

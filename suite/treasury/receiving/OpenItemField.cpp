// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/OpenItemField.h"

#include "suite/treasury/records/ReceiptOwners.h"
#include "suite/treasury/receiving/ReceiptSpread.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

OpenItemField::OpenItemField(CTblReceipts::Kind kind, QWidget *parent)
    : KDropDown(parent)
    , m_kind(kind)
{
}

void OpenItemField::setFixed(const ReceiptPurpose &purpose, const QString &textWithoutOwn)
{
    m_fixed = purpose;
    m_fixedText = purpose.text.isEmpty() ? textWithoutOwn : purpose.text;
    setEnabled(false);
}

void OpenItemField::setPerson(int personID, Proposal proposal)
{
    m_personID = personID;
    read();
    const OpenItem *first = proposal == Proposal::FirstDue ? ReceiptSpread::firstDue(m_items) : nullptr;
    fill(first ? first->purpose : ReceiptPurpose());
}

void OpenItemField::reload()
{
    const ReceiptPurpose chosen = purpose();
    read();
    fill(chosen);
}

void OpenItemField::read()
{
    m_items = m_personID > 0 ? ReceiptOwners::openItems(m_personID, m_kind) : QList<OpenItem>();
}

ReceiptPurpose OpenItemField::purpose() const
{
    if (m_fixed.recordKind != 0)
        return m_fixed;
    const int item = currentIndex() - 1;
    return item >= 0 && item < m_items.size() ? m_items.at(item).purpose : ReceiptPurpose();
}

const OpenItem *OpenItemField::item() const
{
    return ReceiptSpread::find(m_items, purpose());
}

void OpenItemField::fill(const ReceiptPurpose &chosen)
{
    {
        const QSignalBlocker quiet(this);
        clear();
        if (m_fixed.recordKind != 0) {
            addItem(m_fixedText);
        } else {
            addItem(u"علی‌الحساب"_s);
            for (const OpenItem &item : std::as_const(m_items))
                addItem(item.purpose.text);
            // What was to be paid and is no longer open must not become money on account unseen.
            const OpenItem *found = ReceiptSpread::find(m_items, chosen);
            setCurrentIndex(found ? int(found - m_items.constData()) + 1 : chosen.recordKind != 0 ? -1
                                                                                                  : 0);
        }
    }
    Q_EMIT currentIndexChanged(currentIndex());
}

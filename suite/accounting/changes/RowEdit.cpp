// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RowEdit.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/connection/KTransaction.h"

RowEdit::RowEdit(KMySQL &record, qint32 key, QList<QStringList> groups)
    : m_record(record)
    , m_key(key)
    , m_new(key == 0)
    , m_groups(std::move(groups))
{
}

RowEdit::~RowEdit() = default;

void RowEdit::remember(const Write &write)
{
    m_opened = OpenedRow(m_record, m_groups, write);
}

void RowEdit::becomeNew()
{
    m_key = 0;
    m_new = true;
    m_kept = m_opened.values();
    m_opened = {};
}

void RowEdit::save(const Write &write, const Settle &settle)
{
    const int database = m_record.database();
    try {
        KTransaction::runReplayable(
            [&] {
                if (settle || isAlwaysAlone())
                    NamedLock::take(m_lock.isEmpty() ? m_record.GetTableName() : m_lock, database);
                if (isRefusedWhenClosed())
                    OfficeClosing::requireOpen(database);
                startRow();
                m_opened.mergeOnto(m_record, write);
                if (settle)
                    settle();
                storeRow();
            },
            database);
    } catch (...) {
        m_record.CancelUpdate();
        throw;
    }
    m_key = m_record.value(u"iID").toInt();
    m_new = false;
    remember(write);
}

void RowEdit::startRow()
{
    if (!m_new)
        return lockRow();
    m_record.AddNew();
    m_record.setRowValues(m_kept);
}

void RowEdit::doubt(const QString &question, const QString &column) const
{
    if (!m_agreed.contains(question))
        throw FieldDoubted(question, column);
}

void RowEdit::forgetAnswers()
{
    m_opened.forgetAnswers();
    m_agreed.clear();
}

void RowEdit::lockRow()
{
    if (!m_record.lockRecord(m_key))
        throw RowChanged(RowChanged::Kind::Gone, m_record, m_key);
    m_record.Edit();
}

void RowEdit::storeRow()
{
    m_record.Update(true);
}

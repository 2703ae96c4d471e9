// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/OpenedRow.h"

#include <QSet>

// The row that a window edits, from its opening to its saving. What was read is what is changed: the save locks the row, puts
// onto it what the user has changed, and leaves what others have changed meanwhile. The checks against other rows and the row
// itself are one unit of work.
class TZACCOUNTINGDATA_EXPORT RowEdit
{
public:
    // Sets members of the record from what the window holds, and from nothing that the record holds: it runs on the row as it
    // is now, and again when the unit of work is replayed.
    using Write = std::function<void()>;
    // Runs between the merge and the row, with nobody else settling a row of the table (NamedLock): sets what follows from other columns,
    // and throws FieldRefused or doubts. Asks the database by plain reads, which see everything that is saved.
    using Settle = std::function<void()>;

    // The record outlives this. key 0: a new row. Columns of one group count as one field.
    explicit RowEdit(KMySQL &record, qint32 key = 0, QList<QStringList> groups = {});
    virtual ~RowEdit();
    RowEdit(const RowEdit &) = delete;
    RowEdit &operator=(const RowEdit &) = delete;

    qint32 key() const { return m_key; }
    bool isNew() const { return m_new; }
    KMySQL &record() const { return m_record; }
    OpenedRow &opened() { return m_opened; }

    // Whom a save waits for: all that hold the lock of that name. Those of the same table, unless it is said here.
    void lockAs(const QString &name) { m_lock = name; }
    // The record holds the row as it was read, and the window shows it.
    void remember(const Write &write);
    // What is saved next is a new row with all that was read: the row itself is gone.
    void becomeNew();

    // Throws RowChanged when the row is gone or when both sides changed the same field, KAccountingError in a closed database,
    // what settle throws, CMySQLException; nothing is written then. Afterwards the row that was saved is what was read.
    void save(const Write &write, const Settle &settle = {});

    // For settle: throws FieldDoubted unless the user has agreed to that question already.
    void doubt(const QString &question, const QString &column) const;
    void agree(const QString &question) { m_agreed.insert(question); }
    // Answers to conflicts and doubts hold for one press of the button.
    void forgetAnswers();

protected:
    // Makes the record hold the row as it is now, locked and open for editing. Throws RowChanged when it is gone.
    virtual void lockRow();
    virtual void storeRow();
    virtual bool isRefusedWhenClosed() const { return true; }
    // Whether one save of the kind waits for another even where nothing is to settle.
    virtual bool isAlwaysAlone() const { return false; }

private:
    void startRow();

    KMySQL &m_record;
    qint32 m_key;
    bool m_new;
    QString m_lock;
    QList<QStringList> m_groups;
    OpenedRow m_opened;
    KRowValues m_kept; // by a new row of the one that is gone
    QSet<QString> m_agreed;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QObject>

#include <memory>

class KMySQL;
class QThread;

// How many rows a list has that its limit kept back. Some thousands are counted at once; where there are more, a million takes its time
// in any database, so they are counted on a thread of its own, and until then it is known that there are at least so many.
class TZACCOUNTINGDATA_EXPORT KListCount : public QObject
{
    Q_OBJECT

public:
    explicit KListCount(QObject *parent = nullptr);
    // Ends a count that is still on its way.
    ~KListCount() override;

    // Of what the set's filter matches, where so many have been read. Throws CMySQLException.
    void count(KMySQL &set, qint64 read);
    // That it will be counted (KReadAhead).
    static void expect(KMySQL &set, qint64 read);
    // Nothing is kept back.
    void forget();

    qint64 leftOut() const { return m_leftOut; }
    // Whether there are more than that.
    bool isAtLeast() const { return m_isAtLeast; }

    // For tests: so many beyond those that were read are counted at once.
    static void setAtOnce(qint64 rows);

Q_SIGNALS:
    // What is left out is known now.
    void counted();

private:
    struct Task;
    void countBeside(KMySQL &set, qint64 read);
    void drop();

    qint64 m_leftOut = 0;
    bool m_isAtLeast = false;
    std::shared_ptr<Task> m_task;
    std::unique_ptr<QThread> m_thread;
};

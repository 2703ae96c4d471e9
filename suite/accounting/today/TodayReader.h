// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/TodayCards.h"

#include <QHash>
#include <QObject>

#include <memory>

class QThread;

// The day as it was read: what each card says, by its id.
struct TodayState
{
    TodayFrame frame;
    QHash<QString, TodayContent> cards;
    std::optional<TodayFigures> figures;
    // What kept it from being read, for the log; empty: nothing did. The rest holds what could be read before.
    QString trouble;
};

// Reads the day for the user who is logged in, on a thread of its own with a connection of its own.
class TZACCOUNTINGDATA_EXPORT TodayReader
{
public:
    // done: called on the thread that asked, unless the reader is gone by then.
    using Done = std::function<void(const TodayState &state)>;

    explicit TodayReader(const Done &done);
    // Waits for a reading that is under way.
    ~TodayReader();
    TodayReader(const TodayReader &) = delete;
    TodayReader &operator=(const TodayReader &) = delete;

    // While one is under way, once more after it: what has changed meanwhile may not be in it. Nothing without a login.
    void read();
    bool isReading() const { return m_thread != nullptr; }

    // The whole reading on the calling thread; the rights are those of the user who is logged in.
    static TodayState readNow(int database = 0);
    // What readNow reads for, from the settings of the office.
    static TodayFrame frame(int database = 0);

private:
    Done m_done;
    std::unique_ptr<QThread> m_thread;
    bool m_isAskedAgain = false;
    QObject m_here; // stands for the thread that asked
};

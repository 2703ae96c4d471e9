// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

// Watches the statements that this thread sends while it lives. Only the module knows which of its steps are due and when one has ended,
// so its statements show both. What a callback throws keeps the statement from running.
class SchemaGuard
{
public:
    struct Callbacks
    {
        std::function<void()> beforeAny;                          // also before those that change no schema
        std::function<void(const QString &dropped)> beforeChange; // with the name of the table that it drops; empty: it drops none
    };

    explicit SchemaGuard(Callbacks callbacks);
    ~SchemaGuard();
    SchemaGuard(const SchemaGuard &) = delete;
    SchemaGuard &operator=(const SchemaGuard &) = delete;

private:
    void meet(const QString &statement);

    Callbacks m_callbacks;
    Qt::HANDLE m_thread;
    bool m_inside = false; // the callbacks' own statements are not watched
};

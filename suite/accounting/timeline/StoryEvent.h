// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

// One thing that happened around a record: a line of its story.
struct StoryEvent
{
    // What a story can be narrowed to. Each user's choice is kept under the numbers, so they never move.
    enum class Kind {
        Record = 0, // entered, changed, sold, archived
        Price = 1,
        Picture = 2,
        Demand = 3,
        Contract = 4,
        Money = 5, // receipts, payments, cheques, instalments
        File = 6,
        Reminder = 7,
        Note = 8 // what was said
    };
    static constexpr int kindCount = 9;

    // What it means to the reader.
    enum class Tone {
        Neutral,
        Info,
        Good,
        Warn,
        Danger
    };

    Kind kind = Kind::Record;
    QDateTime when;
    Tone tone = Tone::Neutral;
    QString title;
    QString line;  // empty: the title says it all
    QString user;  // shown name; empty: nobody, or somebody who is gone
    QString table; // of the record that it tells of (RecordWindows); empty: none that opens
    qint32 key = 0;
    double amount = 0; // in the money unit; 0: it is about none
    qint32 userID = 0; // whose name Story::read shows; 0: nobody's, or the name stands already
};

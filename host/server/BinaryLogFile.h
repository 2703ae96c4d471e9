// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

// What one file of the server's binary log holds, read event by event. Only the frame of the events is looked at, so that a damaged or cut-off
// file is known before a line of it is replayed.
struct BinaryLogFile
{
    bool isLog = false;        // there is such a file and it begins as one
    bool isWhole = false;      // every event is as it was written, up to the end of the file
    bool wasBrokenOff = false; // not so, because the server that wrote it was killed: its last event is cut off
    bool goesFurther = false;  // there is a transaction that was not complete before the moment that was asked for; end is in front of it
    qint64 end = 0;            // position after the last whole transaction
    QDateTime last;            // when that was; the computer's clock, held as UTC like all times of the office; invalid: there is none

    // What stands in front of the position is not looked at. until is on the same clock; what comes after it is not read, and may be damaged.
    static BinaryLogFile read(const QString &path, qint64 from = 0, const std::optional<QDateTime> &until = {});
};

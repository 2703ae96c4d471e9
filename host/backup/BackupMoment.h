// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

// How far a backup is to be brought forward, as people write it.
struct BackupMoment
{
    bool lastMinute = false;
    QDateTime time = {}; // of the office's clock, when it is not the last minute

    // "now", "1405/09/01 14:20" or "2026-11-22T14:20", with seconds or without, in Latin or Persian digits. Nothing for anything else, and for
    // days that no calendar has.
    static std::optional<BackupMoment> fromText(const QString &text);
    // As people read it.
    QString shown() const;
};

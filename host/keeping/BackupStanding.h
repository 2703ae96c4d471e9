// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

// How the backups of an office stand now, in words for the status line.
struct BackupStanding
{
    enum class Kind {
        Unknown, // nothing is said
        None,    // there is none yet
        Taking,
        Verifying,
        Taken, // not verified yet
        Verified,
        Refuted, // what was loaded back is not what was saved
        Failed   // the last one could not be taken or verified
    };

    Kind kind = Kind::Unknown;
    QDateTime taken;    // the newest one, or the newest verified one; local time
    QDateTime verified; // when it was
    QString trouble;    // what is wrong, in one sentence; also that the second folder is missing
    QDate today = QDate::currentDate();

    bool isBad() const { return !trouble.isEmpty() || kind == Kind::Refuted || kind == Kind::Failed; }
    // Empty: nothing is shown.
    QString text() const;
    QString tip() const;
    // A time of today as "۱۴:۲۰", any other with its day.
    static QString timeText(const QDateTime &when, const QDate &today);
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"

#include <QList>

// The backups that a user can choose from: those of the data folder and, where there is a second folder, of that.
namespace BackupListing {

struct Entry
{
    BackupFile file;
    QString otherCopy;     // of the same backup, in the second folder; empty: none
    bool isSecond = false; // file is itself in the second folder, because the first has none

    // Where it is, in words.
    QString place() const;
};

// Newest first. A second folder that is empty or away has none.
QList<Entry> of(const QString &folder, const QString &secondFolder, const QString &database);
// The same with those that passed their verification first.
QList<Entry> verifiedFirst(QList<Entry> entries);

// In words, for lists and questions.
QString dateText(const BackupFile &file);
QString timeText(const BackupFile &file);
QString whenText(const BackupFile &file); // "۱۴۰۵/۰۹/۰۱ ساعت ۱۴:۲۰"
QString reasonText(const BackupFile &file);
QString sizeText(qint64 bytes);
QString verificationText(const BackupFile &file);
bool isBad(const BackupFile &file);

}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/letters/Letter.h"
#include "suite/crm/TzCRMDataExport.h"

#include <QDateTime>

// The letters that were filed, each with the files of the person it went to.
namespace LetterFiling {

// A letter that was filed before.
struct Filed
{
    qint32 id = 0;
    QString person;
    Letter letter;
};

// Which letter this is: one that is filed twice under the same mark, with the same words to the same person, is kept once.
TZCRMDATA_EXPORT QString newMark();

// Keeps the PDF with the person's general files and what it says beside it, in one unit, and returns the key of the file. Throws
// KAccountingError without the right to change persons, in a closed database, and where the person is gone.
TZCRMDATA_EXPORT qint32 file(const LetterRecipient &recipient, const Letter &letter, const QString &mark, const QByteArray &pdf, int database = 0);

// The newest letters of the office, so many at most, the newest first.
TZCRMDATA_EXPORT QList<Filed> newest(int most, int database = 0);
// What the next one is numbered by.
TZCRMDATA_EXPORT QString proposedNumber(const QDate &today, int database = 0);

}

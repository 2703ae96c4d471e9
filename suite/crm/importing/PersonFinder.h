// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/importing/ImportField.h"
#include "suite/crm/TzCRMDataExport.h"

// The persons that rows of a file name, by code, national code or a name that only one of them has. All are read once.
class TZCRMDATA_EXPORT PersonFinder
{
public:
    // Throws CMySQLException.
    explicit PersonFinder(int database = 0);

    // 0 for a text that names nobody, or several; why says which, with how it is mended.
    qint32 find(const QString &text, QString *why) const;
    // Puts the key in place of the text in that value; refuses the row where there is none.
    void settle(ImportRow &row, const QString &key, const QString &title) const;

private:
    QHash<QString, QList<qint32>> m_byNumber;
    QHash<QString, QList<qint32>> m_byName;
};

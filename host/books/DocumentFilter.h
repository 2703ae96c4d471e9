// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

// What the list of accounting documents asks for. Defaults: every document.
struct DocumentCriteria
{
    int fiscalYear = 0;      // 0: any
    int number = 0;          // 0: any
    QDateTime from;          // invalid: open; the time of day does not count
    QDateTime to;            // the whole day is in
    QString descriptionPart; // already escaped for a LIKE literal (KEdit::queryText); empty: any
};

// A run of clauses, each beginning with " AND "; empty when nothing is asked.
QString documentFilter(const DocumentCriteria &criteria);

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

using namespace Qt::StringLiterals;

// Asks the tables alone, past the classes that write them, about the documents of a kind (Documents.iKind): how many have
// rows, how many of those have unequal sides, and how many rows of any kind stand under no header. "2/0/0" is as it should be.
inline QString booksAgree(int kind)
{
    return u"SELECT CONCAT_WS('/',COUNT(*),IFNULL(SUM(ABS(sides.bed-sides.bes)>=0.0001),0),"
           "(SELECT COUNT(*) FROM Docs lost WHERE NOT EXISTS(SELECT 1 FROM Documents h WHERE h.iNum=lost.iDocNum "
           "AND h.iFiscalYear=lost.iFiscalYear))) "
           "FROM (SELECT SUM(d.dBed) bed,SUM(d.dBes) bes FROM Documents h JOIN Docs d ON d.iDocNum=h.iNum "
           "AND d.iFiscalYear=h.iFiscalYear WHERE h.iKind=%1 GROUP BY h.iFiscalYear,h.iNum) sides"_s
               .arg(kind);
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequesDue.h"

#include "suite/db/records/CTblTemp.h"

#include <algorithm>

KSql ChequesDue::openCondition()
{
    KSql states;
    for (int state = 0; state <= static_cast<int>(ChequeState::Void); ++state) {
        if (ChequeStates::isOpen(static_cast<ChequeState>(state)))
            states += states.isEmpty() ? KSql::number(state) : "," + KSql::number(state);
    }
    return "iState IN (" + states + ")";
}

QList<ChequesDue::Row> ChequesDue::open(const QDate &today, const QDate &upTo, int database)
{
    KSql statement = "SELECT c.iID,c.iKind,iState,sSayad,sNumber,sBank,dAmount,dateDue,c.iPersonID,p.sName2,p.sMobile,iTable,iRecordID,sFor "
                     "FROM Cheques c LEFT JOIN Persons p ON p.iID=c.iPersonID WHERE "
        + openCondition();
    if (upTo.isValid())
        statement += " AND dateDue<" + DateToSQL(QDateTime(upTo.addDays(1), QTime(0, 0), Qt::UTC));
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(statement + " ORDER BY dateDue,c.iID");
    QList<Row> rows;
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const QDateTime due = query.GetDateFieldValue(7);
        rows.append({.id = query.GetLongFieldValue(0),
                     .kind = static_cast<CTblReceipts::Kind>(query.GetLongFieldValue(1)),
                     .state = static_cast<ChequeState>(query.GetLongFieldValue(2)),
                     .sayad = query.GetTextFieldValue(3),
                     .number = query.GetTextFieldValue(4),
                     .bank = query.GetTextFieldValue(5),
                     .amount = query.GetDoubleFieldValue(6),
                     .due = due,
                     .daysOverdue = due.isValid() ? std::max(0, static_cast<int>(due.date().daysTo(today))) : 0,
                     .personID = query.GetLongFieldValue(8),
                     .person = query.GetTextFieldValue(9),
                     .mobile = query.GetTextFieldValue(10),
                     .recordKind = query.GetLongFieldValue(11),
                     .recordID = query.GetLongFieldValue(12),
                     .purpose = query.GetTextFieldValue(13)});
    }
    return rows;
}

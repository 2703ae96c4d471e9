// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequeVoiding.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/treasury/receiving/ReceiptPosting.h"

using namespace Qt::StringLiterals;

void ChequeVoiding::makeVoid(int chequeID, const QString &reason, int database)
{
    CTblReceipts receipts(database);
    receipts.SetColumns({u"iChequeID"_s});
    receipts.m_filter = KSql::formatted("iChequeID=%1", chequeID);
    receipts.m_sort = "iID";
    receipts.SetLimit(1);
    receipts.Open(true, true, true);
    if (chequeID == 0 || receipts.IsEOF())
        throw KAccountingError(u"این چک دیگر وجود ندارد."_s);
    ReceiptPosting::makeVoid(receipts.m_iID, reason, database);
}

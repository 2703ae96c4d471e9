// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// What the office sells and buys on invoices. A service is known by its code, which is assigned once and printed on tax
// returns.
class TZACCOUNTINGDATA_EXPORT CTblServices : public KMySQL, private KLiveCount<CTblServices>
{
public:
    using KLiveCount<CTblServices>::liveCount;

    explicit CTblServices(int database = 0);
    ~CTblServices() override;
    QString GetTableName() const override;

    // One more than the highest code; 1 in an empty list.
    static int nextCode(int database = 0);
    // Returns the new service's key. Throws what settle throws.
    static int add(int code, const QString &name, int database = 0);
    // Between the entries of a service and its row, inside the transaction and with nobody else writing a service: brings the
    // name into standard form. Throws FieldRefused for an empty name, a code below 1, or a name (searchKey) or code that another
    // service than the one of the key has.
    void settle(qint32 key);
    // Throws KAccountingError, with nothing changed, for a service that is used on an invoice, valid or void; RowChanged for one
    // that is gone.
    static void remove(int id, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    QString m_sName;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};

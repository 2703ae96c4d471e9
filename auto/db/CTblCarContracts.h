// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// Which car of the register a contract was made from. A contract has one car at most, a car any number of contracts. The row belongs to the
// contract and goes with it.
class CTblCarContracts : public KMySQL, private KLiveCount<CTblCarContracts>
{
public:
    using KLiveCount<CTblCarContracts>::liveCount;

    explicit CTblCarContracts(int database = 0);
    ~CTblCarContracts() override;
    QString GetTableName() const override;

    // Remembers the car of the contract, in place of another one; carID 0: it has none any more. Joins the caller's transaction.
    static void set(qint32 contractID, qint32 carID, int database = 0);
    // 0 for a contract without a car.
    static qint32 carOf(qint32 contractID, int database = 0);
    // That it will be asked (KReadAhead).
    static void expectCarOf(qint32 contractID, int database = 0);
    // How many contracts remember the car.
    static int countOf(qint32 carID, int database = 0);
    // That of a contract that is being deleted. Joins the caller's transaction.
    static void deleteOf(qint32 contractID, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iCarID = 0;
    qint32 m_iContractID = 0;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};

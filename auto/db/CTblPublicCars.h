// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// The cars that the office lets anybody see, each once. The row belongs to the car and goes with it. That it came or went is noted as a change
// of the car (PublicCars), where people look for it.
class CTblPublicCars : public KMySQL, private KLiveCount<CTblPublicCars>
{
public:
    using KLiveCount<CTblPublicCars>::liveCount;

    explicit CTblPublicCars(int database = 0);
    ~CTblPublicCars() override;
    QString GetTableName() const override;

    // That of a car that is being deleted. Joins the caller's transaction.
    static void deleteOf(qint32 carID, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iCarID = 0;
    qint32 m_iUserID = 0; // who said so
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
};

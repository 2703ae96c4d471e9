// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/demo/DemoCatalog.h"
#include "host/demo/DemoPersons.h"
#include "host/demo/DemoRandom.h"

#include <QDate>
#include <QList>

class CTblAutomobilDemands;

// The demands of the demo office: customers who came in the last months before its last day, for cars of its catalog.
class DemoDemands
{
public:
    DemoDemands(int userID, const QDate &lastDay, const DemoCatalog &catalog, const QList<DemoPersons::Person> &persons,
                DemoRandom &random);

    // Writes demands with the codes 1 to count. Belongs inside a transaction.
    void write(int count, int database = 0);

private:
    void set(CTblAutomobilDemands &demand, int code, const QDate &day);
    void setWishes(CTblAutomobilDemands &demand, int year);
    int oneOf(const QList<DemoCatalog::Item> &items);

    int m_userID;
    QDate m_lastDay;
    const DemoCatalog &m_catalog;
    const QList<DemoPersons::Person> &m_persons;
    DemoRandom &m_random;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/demo/DemoPersons.h"
#include "host/demo/DemoRandom.h"
#include "suite/accounting/invoices/Invoice.h"

#include <QDate>

// The services of the demo office and the invoices of its last months, saved as the editor saves them. Some have a discount,
// one was returned, and one is void.
class DemoInvoices
{
public:
    // The user who writes them must be logged in.
    DemoInvoices(const QDate &firstDay, const QDate &lastDay, double taxPercent, double dutyPercent,
                 const QList<DemoPersons::Person> &persons, DemoRandom &random, int database = 0);

    // Writes that many sales and half as many purchases, spread evenly over the days. Belongs inside a transaction.
    void write(int sales);

private:
    struct Service
    {
        int id;
        int millions; // price, in millions of rials
    };

    QList<Service> writeServices(bool sold) const;
    Invoice makeInvoice(int type, const QList<Service> &services, const QDate &day);

    QDate m_firstDay;
    QDate m_lastDay;
    double m_taxPercent;
    double m_dutyPercent;
    const QList<DemoPersons::Person> &m_persons;
    DemoRandom &m_random;
    int m_database;
};

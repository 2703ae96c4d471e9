// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/accounting/books/ManualDocument.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/host/HostTestOffice.h"

using namespace Qt::StringLiterals;

// An office with two persons, two services and an expense account of its own, in the fiscal year 1405.
class BooksOffice : public HostTestOffice
{
public:
    static constexpr int year = 1405;
    static constexpr int ali = 1;
    static constexpr int pars = 2;
    static constexpr int water = 620101001;

    int inspection = 0; // services
    int transfer = 0;

    // Everything as at the beginning.
    void open()
    {
        fresh();
        GetDBSetting()->SetFiscalYear(year);
        GetDBSetting()->SetFiscalYearOpeningDate(day(1, 1));
        database.run(u"INSERT INTO Persons(iID,iCode,sName2) VALUES(1,1,'علی رضایی'),(2,2,'پارس خودرو')"_s);
        database.run(u"INSERT INTO Properties(sSection,sKey,sValue) VALUES"
                     "('AutomobilContracts','dPrecentTax','6'),('AutomobilContracts','dPercentImposition','4')"_s);
        inspection = CTblServices::add(101, u"کارشناسی خودرو"_s);
        transfer = CTblServices::add(102, u"انتقال سند"_s);
        AccountChart::add(AccountLevel::Kol, 6201, u"هزینه‌های اداری"_s, 0);
        AccountChart::add(AccountLevel::Moeen, 620101, u"قبض‌ها"_s, 6201);
        AccountChart::add(AccountLevel::Tafsily, water, u"آب"_s, 620101);
    }

    static QDateTime day(int month, int dayOfMonth)
    {
        return QDateTime(ConvertToMiladi(year, month, dayOfMonth), QTime(0, 0), Qt::UTC);
    }

    Invoice invoice(int type = CTblFactors::sale, int person = ali) const
    {
        Invoice invoice;
        invoice.type = type;
        invoice.personID = person;
        invoice.date = day(2, 3);
        invoice.lines = {{inspection, {}, 2, 400}, {0, u"کرایه"_s, 1, 200}};
        invoice.discount = 100;
        invoice.tax = 54;
        invoice.duty = 36;
        return invoice;
    }

    static ManualDocument document(double amount = 300)
    {
        ManualDocument document;
        document.date = day(3, 1);
        document.desc = u"قبض دفتر"_s;
        document.rows = {{water, 0, amount, 0, u"آب"_s}, {Accounts::cash, 0, 0, amount, u"نقد"_s}};
        return document;
    }
};

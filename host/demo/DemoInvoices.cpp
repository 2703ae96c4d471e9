// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoInvoices.h"

#include "host/demo/DemoYear.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/invoices/InvoicePosting.h"

#include <span>

namespace {

struct KnownService
{
    int code;
    QStringView name;
    int millions;
};

constexpr KnownService soldServices[] = {
    {101, u"کارشناسی فنی و بدنه", 12},
    {102, u"پیگیری انتقال سند", 25},
    {103, u"تعویض پلاک", 8},
    {104, u"شست و شو و صفرشویی", 15},
    {105, u"پارکینگ ماهانه", 30},
};

constexpr KnownService boughtServices[] = {
    {201, u"آگهی و تبلیغات", 40},
    {202, u"نظافت نمایشگاه", 18},
    {203, u"حمل با خودروبر", 22},
    {204, u"صافکاری و نقاشی", 35},
};

constexpr double million = 1e6;
constexpr int mostLines = 3;

}

DemoInvoices::DemoInvoices(const QDate &firstDay, const QDate &lastDay, double taxPercent, double dutyPercent,
                           const QList<DemoPersons::Person> &persons, DemoRandom &random, int database)
    : m_firstDay(firstDay)
    , m_lastDay(lastDay)
    , m_taxPercent(taxPercent)
    , m_dutyPercent(dutyPercent)
    , m_persons(persons)
    , m_random(random)
    , m_database(database)
{
}

QList<DemoInvoices::Service> DemoInvoices::writeServices(bool sold) const
{
    QList<Service> services;
    for (const KnownService &service : sold ? std::span<const KnownService>(soldServices) : boughtServices)
        services.append({CTblServices::add(service.code, service.name.toString(), m_database), service.millions});
    return services;
}

Invoice DemoInvoices::makeInvoice(int type, const QList<Service> &services, const QDate &day)
{
    const int decimals = GetDBSetting()->MoneyDecimals();
    Invoice invoice;
    invoice.type = type;
    invoice.personID = m_persons.at(m_random.below(static_cast<int>(m_persons.size()))).id;
    invoice.date = QDateTime(day, QTime(0, 0), Qt::UTC);
    for (int line = m_random.between(1, mostLines); line > 0; --line) {
        const Service &service = services.at(m_random.below(static_cast<int>(services.size())));
        const bool severalTimes = m_random.chance(30);
        invoice.lines.append({service.id, {}, severalTimes ? double(m_random.between(2, 4)) : 1.0, service.millions * million});
    }
    InvoiceFigures figures(decimals);
    figures.setLines(invoice.lines);
    if (m_random.chance(25))
        figures.setDiscount(m_random.between(1, 4) * million);
    figures.setTaxPercent(m_taxPercent);
    figures.setDutyPercent(m_dutyPercent);
    invoice.discount = figures.discount();
    invoice.tax = figures.tax().amount;
    invoice.duty = figures.duty().amount;
    return invoice;
}

void DemoInvoices::write(int sales)
{
    const QList<Service> sold = writeServices(true);
    const QList<Service> bought = writeServices(false);
    const qint64 days = m_firstDay.daysTo(m_lastDay);
    // Two sales and a purchase in turn, so that the numbers follow the days.
    const int all = sales + sales / 2;
    for (int written = 1; written <= all; ++written) {
        const bool isPurchase = written % 3 == 0;
        Invoice invoice = makeInvoice(isPurchase ? CTblFactors::purchase : CTblFactors::sale, isPurchase ? bought : sold,
                                      m_firstDay.addDays(days * written / all));
        invoice.returned = written == 5;
        DemoYear::enter(invoice.date.date());
        const int num = InvoicePosting::save(invoice, m_database).num;
        if (written == 7)
            InvoicePosting::makeVoid(num, m_database);
    }
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/SeasonalGathering.h"

#include "auto/WordLists.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/reports/SeasonBounds.h"
#include "auto/reports/SeasonalRules.h"
#include "suite/accounting/CTblDocuments.h"
#include "suite/accounting/CTblFactorStuffs.h"
#include "suite/accounting/CTblFactors.h"
#include "suite/accounting/CTblServices.h"
#include "suite/crm/CTblPersons.h"

#include <QHash>

#include <algorithm>
#include <utility>

namespace {

using namespace SeasonalGathering;
using Party = std::shared_ptr<const TaxParty>;

constexpr qsizetype batchSize = 4096;

QString subselect(const char *column, const char *table, const QString &condition)
{
    return QStringLiteral("(SELECT %1 FROM %2 WHERE %3)").arg(QLatin1String(column), QLatin1String(table), condition);
}

// One gathering: what is looked up for all rows at once, and the rows on their way to the caller.
class Gatherer
{
public:
    Gatherer(const Query &query, const Batch &batch)
        : m_query(query)
        , m_batch(batch)
        , m_bounds(Season::bounds(query.season, query.shamsiYear))
        , m_company(std::make_shared<const TaxParty>(partyOf(query.company)))
    {
        m_rows.reserve(batchSize);
    }

    Outcome run()
    {
        if (m_query.kind == Kind::Sales)
            addContracts();
        if (!m_outcome.cancelled)
            addInvoices();
        if (!m_outcome.cancelled) {
            for (const SeasonalRow &row : m_small.rows())
                add(row);
        }
        if (!m_rows.isEmpty())
            deliver();
        return m_outcome;
    }

private:
    void addContracts();
    void addContract(const CTblAutomobilContracts &contract);

    struct Invoice
    {
        int number = 0;
        Party party;
        QDate date;
        int documentNumber = 0;
        QDate documentDate;
        SeasonalRules::Invoice figures;
    };
    struct Line
    {
        qsizetype invoice = 0; // position of its invoice
        bool returned = false;
        int serviceID = 0;
        QString description;
        double count = 0;
        double price = 0;
    };
    struct Service
    {
        int code = 0;
        QString name;
    };
    void addInvoices();
    QVector<Invoice> readInvoices(const QString &condition);
    QVector<Line> readLines(const QVector<Invoice> &invoices, const QString &condition) const;
    void addLine(const Invoice &invoice, const Line &line, const QHash<int, Service> &services);
    QString departmentClause() const;

    void readPersons(const QString &keys);
    void readDocuments(const QString &numbers);
    Party partyFor(int personID) const;
    QDate documentDate(int number, int fiscalYear) const;

    void add(SeasonalRow row)
    {
        row.number = ++m_outcome.rows;
        m_outcome.totals.add(row);
        m_outcome.tooLongAddresses += row.isAddressTooLong() ? 1 : 0;
        m_rows.append(std::move(row));
        if (m_rows.size() >= batchSize)
            deliver();
    }

    void deliver()
    {
        if (!m_batch(std::exchange(m_rows, {})))
            m_outcome.cancelled = true;
        m_rows.reserve(batchSize);
    }

    const Query &m_query;
    const Batch &m_batch;
    Season::Bounds m_bounds;
    Party m_company;
    QHash<int, Party> m_persons;
    QHash<QPair<int, int>, QDate> m_documents; // by number and fiscal year
    SeasonalRules::SmallContracts m_small;
    QVector<SeasonalRow> m_rows;
    Outcome m_outcome;
};

void Gatherer::readPersons(const QString &keys)
{
    CTblPersons persons;
    persons.SetColumns({QStringLiteral("sName"), QStringLiteral("sFamily"), QStringLiteral("sNationalCode"),
                        QStringLiteral("sEconomicCode"), QStringLiteral("sPostalCode"), QStringLiteral("sAreaCode"),
                        QStringLiteral("sTel"), QStringLiteral("sAddress"), QStringLiteral("iKind"), QStringLiteral("bNatural"),
                        QStringLiteral("iTaxKind"), QStringLiteral("iTaxZone"), QStringLiteral("iProvinceCode"),
                        QStringLiteral("iCityCode")});
    persons.m_filter = QStringLiteral("iID IN ") + keys;
    for (persons.Open(true, true, true); !persons.IsEOF(); persons.MoveNext())
        m_persons.insert(persons.m_iID, std::make_shared<const TaxParty>(partyOf(persons, m_query.kindFromMark)));
}

void Gatherer::readDocuments(const QString &numbers)
{
    CTblDocuments documents;
    documents.SetColumns({QStringLiteral("iNum"), QStringLiteral("iFiscalYear"), QStringLiteral("date")});
    documents.m_filter = QStringLiteral("iNum IN ") + numbers;
    for (documents.Open(true, true, true); !documents.IsEOF(); documents.MoveNext())
        m_documents.insert({documents.m_iNum, documents.m_iFiscalYear}, documents.m_date.date());
}

// Somebody who is in no list is the dealership's own matter.
Party Gatherer::partyFor(int personID) const
{
    return m_persons.value(personID, m_company);
}

QDate Gatherer::documentDate(int number, int fiscalYear) const
{
    return number == 0 ? QDate() : m_documents.value({number, fiscalYear});
}

void Gatherer::addContracts()
{
    const QString condition = Season::condition(QStringLiteral("dateContract"), m_bounds) + QLatin1String(" AND iStatus=0");
    const char *table = "AutomobilContracts";
    readPersons(subselect("iPersonFirstID", table, condition));
    readPersons(subselect("iPersonSecondID", table, condition));
    readDocuments(subselect("iDocNum", table, condition));

    CTblAutomobilContracts contracts;
    contracts.SetColumns({QStringLiteral("iCode"), QStringLiteral("iPersonFirstID"), QStringLiteral("iPersonSecondID"),
                          QStringLiteral("dateContract"), QStringLiteral("iContractType"), QStringLiteral("dCommission"),
                          QStringLiteral("dDiscountFirst"), QStringLiteral("dDiscountSecond"), QStringLiteral("dTax"),
                          QStringLiteral("dImposition"), QStringLiteral("iDocNum"), QStringLiteral("iPersonContract1"),
                          QStringLiteral("iPersonContract2"), QStringLiteral("bReturn"), QStringLiteral("dTax2"),
                          QStringLiteral("dImposition2"), QStringLiteral("iFiscalYear")});
    contracts.m_filter = condition;
    contracts.m_sort = QStringLiteral("dateContract");
    for (contracts.Open(true, true, true); !contracts.IsEOF() && !m_outcome.cancelled; contracts.MoveNext())
        addContract(contracts);
}

void Gatherer::addContract(const CTblAutomobilContracts &contract)
{
    const SeasonalRules::Contract figures{
        contract.m_dCommission,
        contract.m_bReturn != 0,
        {contract.m_iPersonContract1, contract.m_dTax, contract.m_dImposition, contract.m_dDiscountFirst},
        {contract.m_iPersonContract2, contract.m_dTax2, contract.m_dImposition2, contract.m_dDiscountSecond}};
    if (SeasonalRules::isSmall(figures.commission, m_query.minimumAmount)) {
        m_small.add(figures);
        return;
    }
    SeasonalRow row;
    row.returned = figures.returned;
    row.description = WordLists::textAt(WordLists::contractTypes(), contract.m_iContractType);
    row.code = contract.m_iCode;
    row.date = contract.m_dateContract.date();
    row.documentNumber = contract.m_iDocNum;
    row.documentDate = documentDate(contract.m_iDocNum, contract.m_iFiscalYear);
    const auto addParty = [&](int personID, const SeasonalRules::ContractParty &party) {
        row.party = partyFor(personID);
        SeasonalRules::setFigures(row, figures.commission, party);
        add(row);
    };
    addParty(contract.m_iPersonFirstID, figures.first);
    addParty(contract.m_iPersonSecondID, figures.second);
}

QString Gatherer::departmentClause() const
{
    return m_query.departmentID == 0 ? QString() : QStringLiteral(" AND iDepartmentID=%1").arg(m_query.departmentID);
}

void Gatherer::addInvoices()
{
    const int type = m_query.kind == Kind::Sales ? CTblFactors::sale : CTblFactors::purchase;
    const QString ofType = QStringLiteral(" AND iType=%1").arg(type) + departmentClause();
    const QString condition =
        Season::condition(QStringLiteral("date"), m_bounds) + QLatin1String(" AND iStatus=0") + ofType;
    const QVector<Invoice> invoices = readInvoices(condition);
    if (invoices.isEmpty())
        return;
    const QVector<Line> lines =
        readLines(invoices, QLatin1String("iFactorNum IN ") + subselect("iID", "Factors", condition) + ofType);

    QHash<int, Service> services;
    CTblServices service;
    for (service.Open(true, true, true); !service.IsEOF(); service.MoveNext())
        services.insert(service.m_iID, {service.m_iCode, service.m_sName});
    for (const Line &line : lines) {
        if (m_outcome.cancelled)
            return;
        addLine(invoices.at(line.invoice), line, services);
    }
}

// In the order of their dates; those without a person in the list are left out.
QVector<Gatherer::Invoice> Gatherer::readInvoices(const QString &condition)
{
    const char *table = "Factors";
    readPersons(subselect("iPersonID", table, condition));
    readDocuments(subselect("iDocNum", table, condition));
    QVector<Invoice> invoices;
    CTblFactors invoice;
    invoice.m_filter = condition;
    invoice.m_sort = QStringLiteral("date");
    for (invoice.Open(true, true, true); !invoice.IsEOF(); invoice.MoveNext()) {
        const Party party = m_persons.value(invoice.m_iPersonID);
        if (party)
            invoices.append({invoice.m_iID, party, invoice.m_date.date(), invoice.m_iDocNum, documentDate(invoice.m_iDocNum, invoice.m_iFiscalYear), {invoice.m_dAmount, invoice.m_dDiscount, invoice.m_dTax, invoice.m_dImposition}});
    }
    return invoices;
}

// All lines of the season in one statement, in the order of their invoices and within one as they were entered.
QVector<Gatherer::Line> Gatherer::readLines(const QVector<Invoice> &invoices, const QString &condition) const
{
    QHash<int, qsizetype> positions;
    positions.reserve(invoices.size());
    for (qsizetype i = 0; i < invoices.size(); ++i)
        positions.insert(invoices.at(i).number, i);
    QVector<Line> lines;
    CTblFactorStuffs line;
    line.SetColumns({QStringLiteral("iFactorNum"), QStringLiteral("iKind"), QStringLiteral("iServiceID"), QStringLiteral("sDesc"),
                     QStringLiteral("dCount"), QStringLiteral("dPrice")});
    line.m_filter = condition;
    line.m_sort = QStringLiteral("iID");
    for (line.Open(true, true, true); !line.IsEOF(); line.MoveNext()) {
        const auto position = positions.constFind(line.m_iFactorNum);
        if (position != positions.cend() && SeasonalRules::isLineListed(line.m_dCount, line.m_dPrice, m_query.minimumAmount))
            lines.append({*position, CTblFactorStuffs::isReturned(line.m_iKind), line.m_iServiceID, line.m_sDesc, line.m_dCount,
                          line.m_dPrice});
    }
    std::stable_sort(lines.begin(), lines.end(), [](const Line &a, const Line &b) { return a.invoice < b.invoice; });
    return lines;
}

void Gatherer::addLine(const Invoice &invoice, const Line &line, const QHash<int, Service> &services)
{
    SeasonalRow row;
    row.source = SeasonalRow::Source::InvoiceLine;
    row.returned = line.returned;
    const auto service = services.constFind(line.serviceID);
    if (service != services.cend()) {
        row.serviceCode = service->code;
        row.description = service->name;
    } else {
        row.description = line.description;
    }
    row.code = invoice.number;
    row.date = invoice.date;
    row.documentNumber = invoice.documentNumber;
    row.documentDate = invoice.documentDate;
    row.party = invoice.party;
    SeasonalRules::setFigures(row, line.count, line.price, invoice.figures);
    add(std::move(row));
}

}

TaxParty SeasonalGathering::partyOf(const CTblPersons &person, bool kindFromMark)
{
    TaxParty party;
    party.personID = person.m_iID;
    party.natural = kindFromMark ? person.m_bNatural != 0 : person.isNatural();
    party.postalCode = person.m_sPostalCode;
    party.areaCode = person.m_sAreaCode;
    party.telephone = person.m_sTel;
    party.address = person.m_sAddress;
    party.name = person.m_sName;
    party.family = person.m_sFamily;
    party.economicCode = person.m_sEconomicCode;
    party.nationalCode = person.m_sNationalCode;
    party.kindCode = person.m_iTaxKind;
    party.zone = person.m_iTaxZone;
    party.provinceCode = person.m_iProvinceCode;
    party.cityCode = person.m_iCityCode;
    return party;
}

TaxParty SeasonalGathering::partyOf(const CompanyDetails &company)
{
    TaxParty party;
    party.natural = company.kind == CompanyDetails::kindNatural;
    party.postalCode = company.postalCode;
    party.telephone = company.telephone;
    party.address = company.address;
    party.name = company.name1;
    party.family = company.name2;
    party.economicCode = company.economicCode;
    party.nationalCode = company.nationalCode;
    return party;
}

SeasonalGathering::Outcome SeasonalGathering::gather(const Query &query, const Batch &batch)
{
    return Gatherer(query, batch).run();
}

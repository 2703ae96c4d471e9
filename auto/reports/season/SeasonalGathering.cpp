// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalGathering.h"

#include "auto/words/WordLists.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/reports/season/SeasonBounds.h"
#include "auto/reports/season/SeasonalRules.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/invoices/CTblFactorStuffs.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/persons/CTblPersons.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using namespace SeasonalGathering;
using Party = std::shared_ptr<const TaxParty>;

constexpr qsizetype batchSize = 4096;

// Keys and numbers of records as "(1,2,3)"; none of them is 0.
KSql listed(const QSet<int> &numbers)
{
    return KSql::formatted("(%1)", numbers.isEmpty() ? KSql("0") : KSql::list(numbers));
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
    struct Contract
    {
        int code = 0;
        int type = 0;
        int firstID = 0;
        int secondID = 0;
        QDate date;
        int documentNumber = 0;
        int fiscalYear = 0;
        SeasonalRules::Contract figures;
    };
    void addContracts();
    QVector<Contract> readContracts();
    void addContract(const Contract &contract);

    struct Invoice
    {
        int number = 0;
        int personID = 0;
        QDate date;
        int documentNumber = 0;
        int fiscalYear = 0;
        SeasonalRules::Invoice figures;
    };
    struct Line
    {
        qsizetype invoice = 0; // position of its invoice
        int id = 0;
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
    QVector<Invoice> readInvoices(const KSql &ofType);
    QVector<Line> readLines(const QVector<Invoice> &invoices, const KSql &ofType) const;
    void addLine(const Invoice &invoice, const Line &line, const QHash<int, Service> &services);
    KSql departmentClause() const;

    void readPersons(const QSet<int> &keys);
    void readDocuments(const QSet<int> &numbers);
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

void Gatherer::readPersons(const QSet<int> &keys)
{
    CTblPersons persons;
    persons.SetColumns({u"sName"_s, u"sFamily"_s, u"sNationalCode"_s,
                        u"sEconomicCode"_s, u"sPostalCode"_s, u"sAreaCode"_s,
                        u"sTel"_s, u"sAddress"_s, u"iKind"_s, u"bNatural"_s,
                        u"iTaxKind"_s, u"iTaxZone"_s, u"iProvinceCode"_s,
                        u"iCityCode"_s});
    persons.m_filter = "iID IN " + listed(keys);
    for (persons.Open(true, true, true); !persons.IsEOF(); persons.MoveNext())
        m_persons.insert(persons.m_iID, std::make_shared<const TaxParty>(partyOf(persons, m_query.kindFromMark)));
}

void Gatherer::readDocuments(const QSet<int> &numbers)
{
    CTblDocuments documents;
    documents.SetColumns({u"iNum"_s, u"iFiscalYear"_s, u"date"_s});
    documents.m_filter = "iNum IN " + listed(numbers);
    for (documents.Open(true, true, true); !documents.IsEOF(); documents.MoveNext())
        m_documents.insert({documents.m_iNum, documents.m_iFiscalYear}, documents.m_date.date());
}

// A party that is in no list is the dealership itself.
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
    const QVector<Contract> contracts = readContracts();
    QSet<int> persons;
    QSet<int> documents;
    for (const Contract &contract : contracts) {
        persons << contract.firstID << contract.secondID;
        documents << contract.documentNumber;
    }
    readPersons(persons);
    readDocuments(documents);
    for (const Contract &contract : contracts) {
        if (m_outcome.cancelled)
            return;
        addContract(contract);
    }
}

// In the order of their dates, without the small ones, which are summed meanwhile.
QVector<Gatherer::Contract> Gatherer::readContracts()
{
    QVector<Contract> contracts;
    CTblAutomobilContracts record;
    record.SetColumns({u"iCode"_s, u"iPersonFirstID"_s, u"iPersonSecondID"_s,
                       u"dateContract"_s, u"iContractType"_s, u"dCommission"_s,
                       u"dDiscountFirst"_s, u"dDiscountSecond"_s, u"dTax"_s,
                       u"dImposition"_s, u"iDocNum"_s, u"iPersonContract1"_s,
                       u"iPersonContract2"_s, u"bReturn"_s, u"dTax2"_s,
                       u"dImposition2"_s, u"iFiscalYear"_s});
    record.m_filter = Season::condition("dateContract", m_bounds) + " AND iStatus=0 AND " + Placeholders::none(record.GetTableName());
    record.m_sort = "dateContract";
    for (record.Open(true, true, true); !record.IsEOF(); record.MoveNext()) {
        const SeasonalRules::Contract figures{
            record.m_dCommission,
            record.m_bReturn != 0,
            {record.m_iPersonContract1, record.m_dTax, record.m_dImposition, record.m_dDiscountFirst},
            {record.m_iPersonContract2, record.m_dTax2, record.m_dImposition2, record.m_dDiscountSecond}};
        if (SeasonalRules::isSmall(figures.commission, m_query.minimumAmount)) {
            m_small.add(figures);
            continue;
        }
        contracts.append({record.m_iCode, record.m_iContractType, record.m_iPersonFirstID, record.m_iPersonSecondID,
                          record.m_dateContract.date(), record.m_iDocNum, record.m_iFiscalYear, figures});
    }
    return contracts;
}

void Gatherer::addContract(const Contract &contract)
{
    SeasonalRow row;
    row.returned = contract.figures.returned;
    row.description = WordLists::textAt(WordLists::contractTypes(), contract.type);
    row.code = contract.code;
    row.date = contract.date;
    row.documentNumber = contract.documentNumber;
    row.documentDate = documentDate(contract.documentNumber, contract.fiscalYear);
    const auto addParty = [&](int personID, const SeasonalRules::ContractParty &party) {
        row.party = partyFor(personID);
        SeasonalRules::setFigures(row, contract.figures.commission, party);
        add(row);
    };
    addParty(contract.firstID, contract.figures.first);
    addParty(contract.secondID, contract.figures.second);
}

KSql Gatherer::departmentClause() const
{
    return m_query.departmentID == 0 ? KSql() : KSql::formatted(" AND iDepartmentID=%1", m_query.departmentID);
}

void Gatherer::addInvoices()
{
    const int type = m_query.kind == Kind::Sales ? CTblFactors::sale : CTblFactors::purchase;
    const KSql ofType = KSql::formatted(" AND iType=%1", type) + departmentClause();
    const QVector<Invoice> invoices = readInvoices(ofType);
    if (invoices.isEmpty())
        return;
    QSet<int> persons;
    QSet<int> documents;
    for (const Invoice &invoice : invoices) {
        persons << invoice.personID;
        documents << invoice.documentNumber;
    }
    readPersons(persons);
    readDocuments(documents);

    QHash<int, Service> services;
    CTblServices service;
    for (service.Open(true, true, true); !service.IsEOF(); service.MoveNext())
        services.insert(service.m_iID, {service.m_iCode, service.m_sName});
    const QVector<Line> lines = readLines(invoices, ofType);
    for (const Line &line : lines) {
        if (m_outcome.cancelled)
            return;
        addLine(invoices.at(line.invoice), line, services);
    }
}

// In the order of their dates.
QVector<Gatherer::Invoice> Gatherer::readInvoices(const KSql &ofType)
{
    QVector<Invoice> invoices;
    CTblFactors invoice;
    invoice.SetColumns({u"iPersonID"_s, u"date"_s, u"dAmount"_s, u"dDiscount"_s,
                        u"dTax"_s, u"dImposition"_s, u"iDocNum"_s, u"iFiscalYear"_s});
    invoice.m_filter = Season::condition("date", m_bounds) + " AND iStatus=0" + ofType;
    invoice.m_sort = "date";
    for (invoice.Open(true, true, true); !invoice.IsEOF(); invoice.MoveNext()) {
        invoices.append({invoice.m_iID, invoice.m_iPersonID, invoice.m_date.date(), invoice.m_iDocNum, invoice.m_iFiscalYear, {invoice.m_dAmount, invoice.m_dDiscount, invoice.m_dTax, invoice.m_dImposition}});
    }
    return invoices;
}

// The lines of all invoices in one statement: the season's numbers are adjacent, and the few of other days between them are
// skipped here. In the order of their invoices, and within one as they were entered; lines without a person are left out.
QVector<Gatherer::Line> Gatherer::readLines(const QVector<Invoice> &invoices, const KSql &ofType) const
{
    QHash<int, qsizetype> positions;
    positions.reserve(invoices.size());
    int lowest = invoices.constFirst().number;
    int highest = lowest;
    for (qsizetype i = 0; i < invoices.size(); ++i) {
        const int number = invoices.at(i).number;
        lowest = std::min(lowest, number);
        highest = std::max(highest, number);
        if (m_persons.contains(invoices.at(i).personID))
            positions.insert(number, i);
    }
    QVector<Line> lines;
    CTblFactorStuffs line;
    line.SetColumns({u"iFactorNum"_s, u"iKind"_s, u"iServiceID"_s, u"sDesc"_s,
                     u"dCount"_s, u"dPrice"_s});
    line.m_filter = KSql::formatted("iFactorNum BETWEEN %1 AND %2", lowest, highest) + ofType;
    for (line.Open(true, true, true); !line.IsEOF(); line.MoveNext()) {
        const auto position = positions.constFind(line.m_iFactorNum);
        if (position != positions.cend() && SeasonalRules::isLineListed(line.m_dCount, line.m_dPrice, m_query.minimumAmount))
            lines.append({*position, line.m_iID, CTblFactorStuffs::isReturned(line.m_iKind), line.m_iServiceID, line.m_sDesc,
                          line.m_dCount, line.m_dPrice});
    }
    std::sort(lines.begin(), lines.end(),
              [](const Line &a, const Line &b) { return std::tie(a.invoice, a.id) < std::tie(b.invoice, b.id); });
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
    row.documentDate = documentDate(invoice.documentNumber, invoice.fiscalYear);
    row.party = partyFor(invoice.personID);
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
    party.areaCode = company.areaCode;
    party.telephone = company.telephone;
    party.address = company.address;
    party.name = company.name1;
    party.family = company.name2;
    party.economicCode = company.economicCode;
    party.nationalCode = company.nationalCode;
    party.kindCode = company.taxKind.toInt();
    party.zone = company.taxZone.toInt();
    party.provinceCode = company.provinceCode.toInt();
    party.cityCode = company.cityCode.toInt();
    return party;
}

SeasonalGathering::Outcome SeasonalGathering::gather(const Query &query, const Batch &batch)
{
    return Gatherer(query, batch).run();
}

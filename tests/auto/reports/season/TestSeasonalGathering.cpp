// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/reports/season/SeasonBounds.h"
#include "auto/reports/season/SeasonalGathering.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/invoices/CTblFactorStuffs.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/accounting/office/Placeholders.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QThread>

using namespace Qt::StringLiterals;

using namespace SeasonalGathering;

namespace {

constexpr int year = 1405;
using Contract = CTblAutomobilContracts;

QDateTime at(int month, int day, int hour = 0)
{
    return QDateTime(ConvertToMiladi(year, month, day), QTime(hour, 0), Qt::UTC);
}

struct Gathered
{
    Outcome outcome;
    QVector<SeasonalRow> rows;

    QStringList column(int column) const
    {
        QStringList texts;
        for (const SeasonalRow &row : rows)
            texts.append(row.text(column));
        return texts;
    }
};

Query query(double minimumAmount = 0, Kind kind = Kind::Sales)
{
    Query query;
    query.kind = kind;
    query.shamsiYear = year;
    query.minimumAmount = minimumAmount;
    return query;
}

Gathered gathered(const Query &query)
{
    Gathered all;
    all.outcome = gather(query, [&all](QVector<SeasonalRow> batch) {
        all.rows += batch;
        return true;
    });
    return all;
}

}

class TestSeasonalGathering : public QObject
{
    Q_OBJECT

    TestOffice m_office;

    int addInvoice(int type, const QDateTime &date, int person, const std::function<void(CTblFactors &)> &set = {})
    {
        CTblFactors invoice;
        invoice.Open(true, false, true);
        invoice.AddNew();
        invoice.m_iType = type;
        invoice.m_date = date;
        invoice.m_iPersonID = person;
        if (set)
            set(invoice);
        invoice.Update(true);
        return int(invoice.GetLastInsertedID());
    }

    void addLine(int invoice, int type, double count, double price, const std::function<void(CTblFactorStuffs &)> &set = {})
    {
        CTblFactorStuffs line;
        line.Open(true, false, true);
        line.AddNew();
        line.m_iFactorNum = invoice;
        line.m_iType = type;
        line.m_dCount = count;
        line.m_dPrice = price;
        line.m_dAmount = count * price;
        if (set)
            set(line);
        line.Update(true);
    }

    double sum(const QString &expression, const QString &from)
    {
        return queried(u"SELECT COALESCE(SUM(%1),0) FROM %2"_s.arg(expression, from)).toDouble();
    }
    QString queried(const QString &statement) { return m_office.database().value(statement); }

private Q_SLOTS:
    void init() { m_office.clear(); }

    void aContractGivesARowForEachParty()
    {
        const int seller = m_office.addPerson(u"علی"_s, u"رضایی"_s);
        const int buyer = m_office.addPerson(u"مریم"_s, u"کاظمی"_s);
        m_office.addContract([&](Contract &contract) {
            contract.m_iCode = 77;
            contract.m_iPersonFirstID = seller;
            contract.m_iPersonSecondID = buyer;
            contract.m_dateContract = at(2, 5);
            contract.m_iContractType = 2;
            contract.m_dCommission = 1000;
            contract.m_dTax = 60;
            contract.m_dImposition = 30;
            contract.m_dTax2 = 6;
            contract.m_dImposition2 = 3;
            contract.m_dDiscountFirst = 40;
            contract.m_dDiscountSecond = 4;
            contract.m_iPersonContract2 = 1;
        });
        const Gathered all = gathered(query());
        QCOMPARE(all.rows.size(), 2);
        QCOMPARE(all.column(SeasonalRow::Name), (QStringList{u"علی"_s, u"مریم"_s}));
        QCOMPARE(all.column(SeasonalRow::Family), (QStringList{u"رضایی"_s, u"کاظمی"_s}));
        QCOMPARE(all.column(SeasonalRow::RowNumber), (QStringList{u"1"_s, u"2"_s}));
        QCOMPARE(all.column(SeasonalRow::Serial), (QStringList{u"1"_s, u"2"_s}));
        QCOMPARE(all.column(SeasonalRow::Description).constFirst(), u"فروش اقساطی"_s);
        QCOMPARE(all.column(SeasonalRow::Amount), (QStringList{u"1,000"_s, u"0"_s}));
        QCOMPARE(all.column(SeasonalRow::Tax), (QStringList{u"90"_s, u"9"_s}));
        QCOMPARE(all.column(SeasonalRow::Discount), (QStringList{u"40"_s, u"0"_s}));
        QCOMPARE(all.column(SeasonalRow::Total), (QStringList{u"1,050"_s, u"9"_s}));
        QCOMPARE(all.column(SeasonalRow::Code), (QStringList{u"77"_s, u"77"_s}));
        QCOMPARE(all.column(SeasonalRow::Date).constFirst(), u"1405/02/05"_s);
        QCOMPARE(all.rows.at(0).party->personID, seller);
        QCOMPARE(all.rows.at(1).party->personID, buyer);
        QCOMPARE(all.outcome.totals.total, 1059.0);
    }

    void contractsOfOtherDaysAndVoidOnesAreLeftOut()
    {
        const auto add = [this](const QDateTime &date, int code, int status = 0) {
            m_office.addContract([&](Contract &contract) {
                contract.m_iCode = code;
                contract.m_dateContract = date;
                contract.m_iStatus = status;
            });
        };
        add(at(1, 1).addSecs(-1), 1);
        add(at(3, 31, 23), 2);
        add(at(4, 1), 3);
        add(at(2, 1), 4, 1);
        add(at(1, 1), 5);
        // Of an editor that is open.
        add(at(2, 2), 6);
        Placeholders::add({u"AutomobilContracts"_s, queried(u"SELECT iID FROM AutomobilContracts WHERE iCode=6"_s).toInt()}, u"another desk"_s);
        // In the order of their dates.
        const QStringList wanted{u"5"_s, u"5"_s, u"2"_s, u"2"_s};
        QCOMPARE(gathered(query()).column(SeasonalRow::Code), wanted);
    }

    void smallContractsAreSummedReturnedOnesApart()
    {
        for (int i = 0; i < 5; ++i) {
            m_office.addContract([i](Contract &contract) {
                contract.m_dateContract = at(1, 10 + i);
                contract.m_dCommission = i == 4 ? 1000 : 100 * (i + 1);
                contract.m_bReturn = i == 1;
                contract.m_dTax = 10;
                contract.m_dTax2 = 1;
                contract.m_dImposition = 4;
                contract.m_dImposition2 = 2;
                contract.m_dDiscountFirst = 3;
                contract.m_dDiscountSecond = 5;
            });
        }
        const Gathered all = gathered(query(1000));
        QCOMPARE(all.rows.size(), 4);
        QCOMPARE(all.column(SeasonalRow::Returned),
                 (QStringList{u"خیر"_s, u"خیر"_s, u"خیر"_s, u"بلی"_s}));
        QCOMPARE(all.column(SeasonalRow::IsSmallSum),
                 (QStringList{u"خیر"_s, u"خیر"_s, u"بلی"_s, u"بلی"_s}));
        QCOMPARE(all.column(SeasonalRow::RowNumber).constLast(), u"4"_s);
        QCOMPARE(all.rows.at(2).amount.value(), 2 * (100.0 + 300 + 400));
        QCOMPARE(all.rows.at(2).tax, 33.0);
        QCOMPARE(all.rows.at(2).discount.value(), 24.0);
        QCOMPARE(all.rows.at(2).total.value(), 1600.0 + 33 + 18 - 24);
        QCOMPARE(all.rows.at(3).amount.value(), 400.0);
    }

    void missingPersonTakesTheCompanysDetails_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        QTest::newRow("natural") << CompanyDetails::kindNatural << u"حقیقی"_s;
        QTest::newRow("legal") << CompanyDetails::kindLegal << u"حقوقی"_s;
        QTest::newRow("anything else is legal") << 7 << u"حقوقی"_s;
    }

    void missingPersonTakesTheCompanysDetails()
    {
        QFETCH(int, kind);
        m_office.addContract([](Contract &contract) {
            contract.m_dateContract = at(2, 2);
            contract.m_iPersonFirstID = 4711; // deleted since
        });
        Query asked = query();
        asked.company.kind = kind;
        asked.company.name1 = u"گالری"_s;
        asked.company.name2 = u"آریا"_s;
        asked.company.address = u"تهران"_s;
        asked.company.postalCode = u"1111111111"_s;
        asked.company.economicCode = u"411"_s;
        asked.company.nationalCode = u"222"_s;
        asked.company.telephone = u"333"_s;
        asked.company.areaCode = u"021"_s;
        asked.company.taxKind = u"6"_s;
        asked.company.taxZone = u"77"_s;
        asked.company.provinceCode = u"23"_s;
        asked.company.cityCode = u"1"_s;
        const Gathered all = gathered(asked);
        for (const SeasonalRow &row : all.rows) {
            QCOMPARE(row.party->personID, 0);
            QTEST(row.text(SeasonalRow::PersonKind), "text");
            QCOMPARE(row.text(SeasonalRow::Name), u"گالری"_s);
            QCOMPARE(row.text(SeasonalRow::Family), u"آریا"_s);
            QCOMPARE(row.text(SeasonalRow::Address), u"تهران"_s);
            QCOMPARE(row.text(SeasonalRow::PostalCode), u"1111111111"_s);
            QCOMPARE(row.text(SeasonalRow::EconomicCode), u"411"_s);
            QCOMPARE(row.text(SeasonalRow::NationalCode), u"222"_s);
            QCOMPARE(row.text(SeasonalRow::Telephone), u"333"_s);
            QCOMPARE(row.text(SeasonalRow::AreaCode), u"021"_s);
            QCOMPARE(row.text(SeasonalRow::PartyKind), u"6"_s);
            QCOMPARE(row.text(SeasonalRow::Zone), u"77"_s);
            QCOMPARE(row.text(SeasonalRow::ProvinceCode), u"23"_s);
            QCOMPARE(row.text(SeasonalRow::CityCode), u"1"_s);
        }
        QCOMPARE(all.rows.size(), 2);
    }

    void kindOfAPerson_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("mark");
        QTest::addColumn<bool>("byMark");
        QTest::addColumn<QString>("text");
        const QString natural = u"حقیقی"_s;
        const QString legal = u"حقوقی"_s;
        QTest::newRow("kind 0") << 0 << 0 << false << natural;
        QTest::newRow("kind 1") << 1 << 0 << false << natural;
        QTest::newRow("kind 2") << 2 << 1 << false << legal;
        QTest::newRow("kind 9") << 9 << 1 << false << legal;
        QTest::newRow("mark set") << 2 << 1 << true << natural;
        QTest::newRow("mark clear") << 0 << 0 << true << legal;
    }

    void kindOfAPerson()
    {
        QFETCH(int, kind);
        QFETCH(int, mark);
        QFETCH(bool, byMark);
        const int person = m_office.addPerson(u"الف"_s, u"ب"_s, [&](CTblPersons &record) {
            record.m_iKind = kind;
            record.m_bNatural = mark;
        });
        m_office.addContract([&](Contract &contract) {
            contract.m_dateContract = at(2, 2);
            contract.m_iPersonFirstID = contract.m_iPersonSecondID = person;
        });
        Query asked = query();
        asked.kindFromMark = byMark;
        QTEST(gathered(asked).rows.constFirst().text(SeasonalRow::PersonKind), "text");
    }

    void linesTakeTheirShareOfTheInvoice()
    {
        const int person = m_office.addPerson(u"الف"_s, u"ب"_s);
        const int service = CTblServices::add(31, u"کارشناسی"_s);
        const int invoice = addInvoice(CTblFactors::sale, at(2, 20), person, [](CTblFactors &record) {
            record.m_dAmount = 1000;
            record.m_dDiscount = 100;
            record.m_dTax = 90;
            record.m_dImposition = 10;
        });
        addLine(invoice, CTblFactors::sale, 2, 375, [service](CTblFactorStuffs &line) { line.m_iServiceID = service; });
        addLine(invoice, CTblFactors::sale, 1, 250, [](CTblFactorStuffs &line) {
            line.m_sDesc = u"متفرقه"_s;
            line.m_iKind = CTblFactorStuffs::returnedSale;
        });
        const Gathered all = gathered(query());
        QCOMPARE(all.column(SeasonalRow::Serial), (QStringList{u"31"_s, u"2"_s}));
        QCOMPARE(all.column(SeasonalRow::Description), (QStringList{u"کارشناسی"_s, u"متفرقه"_s}));
        QCOMPARE(all.column(SeasonalRow::Returned), (QStringList{u"خیر"_s, u"بلی"_s}));
        QCOMPARE(all.column(SeasonalRow::Amount), (QStringList{u"750"_s, u"250"_s}));
        QCOMPARE(all.rows.at(0).tax, 67.5);
        QCOMPARE(all.rows.at(0).duties, 7.5);
        QCOMPARE(all.rows.at(0).discount.value(), 75.0);
        QCOMPARE(all.rows.at(0).total.value(), 750.0);
        QCOMPARE(all.rows.at(1).total.value(), 250.0);
        QCOMPARE(all.column(SeasonalRow::Code).constFirst(), QString::number(invoice));
        QCOMPARE(all.outcome.totals.discount, 100.0);
    }

    void skippedLinesAndInvoices()
    {
        const int person = m_office.addPerson(u"الف"_s, u"ب"_s);
        const int good = addInvoice(CTblFactors::sale, at(2, 20), person);
        addLine(good, CTblFactors::sale, -1, 5000);
        addLine(good, CTblFactors::sale, 1, -5000);
        addLine(good, CTblFactors::sale, 1, 999); // below the minimum amount: neither listed nor summed
        addLine(good, CTblFactors::sale, 1, 1000);
        addLine(good, CTblFactors::purchase, 1, 2000); // of another kind than its invoice
        const auto voided = [](CTblFactors &record) { record.m_iStatus = CTblFactors::voided; };
        addLine(addInvoice(CTblFactors::sale, at(2, 20), person, voided), CTblFactors::sale, 1, 3000);
        addLine(addInvoice(CTblFactors::sale, at(2, 20), 4711), CTblFactors::sale, 1, 4000);
        addLine(addInvoice(CTblFactors::sale, at(4, 1), person), CTblFactors::sale, 1, 5000);
        addLine(addInvoice(CTblFactors::purchase, at(2, 20), person), CTblFactors::purchase, 1, 6000);
        const Gathered all = gathered(query(1000));
        QCOMPARE(all.column(SeasonalRow::Amount), QStringList{u"1,000"_s});
        QCOMPARE(all.outcome.rows, 1);
    }

    void purchasesAreInvoicesOfTheirKindAlone()
    {
        const int person = m_office.addPerson(u"الف"_s, u"ب"_s);
        m_office.addContract([](Contract &contract) {
            contract.m_dateContract = at(2, 2);
            contract.m_dCommission = 5;
        });
        addLine(addInvoice(CTblFactors::sale, at(2, 20), person), CTblFactors::sale, 1, 100);
        addLine(addInvoice(CTblFactors::purchase, at(2, 21), person), CTblFactors::purchase, 1, 200);
        addLine(addInvoice(CTblFactors::purchase, at(1, 3), person), CTblFactors::purchase, 1, 300,
                [](CTblFactorStuffs &line) { line.m_iKind = CTblFactorStuffs::returnedPurchase; });
        const Gathered all = gathered(query(0, Kind::Purchases));
        QCOMPARE(all.column(SeasonalRow::Amount), (QStringList{u"300"_s, u"200"_s}));
        QCOMPARE(all.column(SeasonalRow::Returned), (QStringList{u"بلی"_s, u"خیر"_s}));
        QVERIFY(gathered(query(10, Kind::Purchases)).rows.size() == 2); // small contracts are no purchases
    }

    void departmentsPartTheInvoices()
    {
        const int person = m_office.addPerson(u"الف"_s, u"ب"_s);
        const auto ofDepartment = [](int department) {
            return [department](auto &record) { record.m_iDepartmentID = department; };
        };
        const int mine = addInvoice(CTblFactors::sale, at(2, 1), person, ofDepartment(2));
        addLine(mine, CTblFactors::sale, 1, 10, ofDepartment(2));
        addLine(mine, CTblFactors::sale, 1, 20, ofDepartment(3));
        addLine(addInvoice(CTblFactors::sale, at(2, 1), person, ofDepartment(3)), CTblFactors::sale, 1, 30, ofDepartment(3));
        Query asked = query();
        QCOMPARE(gathered(asked).rows.size(), 3);
        asked.departmentID = 2;
        QCOMPARE(gathered(asked).column(SeasonalRow::Amount), QStringList{u"10"_s});
    }

    void documentDateComesFromTheDocument()
    {
        const int number = CTblDocuments::AddDoc(28, at(2, 9), QString(), year);
        m_office.addContract([number](Contract &contract) {
            contract.m_dateContract = at(2, 2);
            contract.m_iDocNum = number;
            contract.m_iFiscalYear = year;
        });
        m_office.addContract([](Contract &contract) { contract.m_dateContract = at(2, 3); });
        const Gathered all = gathered(query());
        QCOMPARE(all.rows.at(0).text(SeasonalRow::DocumentNumber), QString::number(number));
        QCOMPARE(all.rows.at(0).text(SeasonalRow::DocumentDate), u"1405/02/09"_s);
        QCOMPARE(all.rows.at(2).text(SeasonalRow::DocumentNumber), QString());
        QCOMPARE(all.rows.at(2).text(SeasonalRow::DocumentDate), QString());
    }

    void tooLongAddressesAreCounted()
    {
        const auto withAddress = [this](int length) {
            return m_office.addPerson(u"الف"_s, u"ب"_s,
                                      [length](CTblPersons &person) { person.m_sAddress = QString(length, u'ن'); });
        };
        const int fits = withAddress(80);
        const int tooLong = withAddress(81);
        for (int i = 0; i < 2; ++i) {
            m_office.addContract([&](Contract &contract) {
                contract.m_dateContract = at(2, 2);
                contract.m_iPersonFirstID = fits;
                contract.m_iPersonSecondID = tooLong;
            });
        }
        QCOMPARE(gathered(query()).outcome.tooLongAddresses, 2);
    }

    void aSeasonThatDoesNotExistIsEmpty()
    {
        m_office.addContract([](Contract &contract) { contract.m_dateContract = at(2, 2); });
        Query asked = query();
        asked.season = 4;
        QCOMPARE(gathered(asked).outcome.rows, 0);
    }

    void batchesCanEndTheGathering()
    {
        for (int i = 0; i < 3000; ++i)
            m_office.database().run(u"INSERT INTO AutomobilContracts SET dateContract='2026-04-01', iCode=%1"_s.arg(i));
        int calls = 0;
        const Outcome stopped = gather(query(), [&calls](const QVector<SeasonalRow> &rows) {
            ++calls;
            return rows.isEmpty();
        });
        QCOMPARE(calls, 1);
        QVERIFY(stopped.cancelled);
        // Not all at once: what takes them must have time for other things.
        QVector<qsizetype> sizes;
        const Outcome whole = gather(query(), [&sizes](const QVector<SeasonalRow> &rows) {
            sizes.append(rows.size());
            return true;
        });
        QVERIFY(!whole.cancelled);
        QCOMPARE(whole.rows, 6000);
        QCOMPARE(sizes, (QVector<qsizetype>{4096, 6000 - 4096}));
        QCOMPARE(gathered(query()).rows.constLast().number, 6000);
    }

    void runsInAThreadOfItsOwn()
    {
        m_office.addContract([](Contract &contract) {
            contract.m_dateContract = at(2, 2);
            contract.m_dCommission = 9;
        });
        Outcome outcome;
        QThread *thread = QThread::create([&outcome] {
            outcome = gather(query(), [](const QVector<SeasonalRow> &) { return true; });
            KConnection::closeThreadConnections();
        });
        thread->start();
        QVERIFY(thread->wait(30'000));
        delete thread;
        QCOMPARE(outcome.rows, 2);
        QCOMPARE(outcome.totals.amount, 18.0);
    }

    // The database adds the same columns up by itself, from other expressions.
    void sumsAgreeWithTheDatabasesOwn()
    {
        const int person = m_office.addPerson(u"الف"_s, u"ب"_s);
        for (int i = 0; i < 200; ++i) {
            m_office.addContract([&](Contract &contract) {
                contract.m_dateContract = at(1 + i % 5, 1 + i % 29, i % 24);
                contract.m_iStatus = i % 11 == 0;
                contract.m_bReturn = i % 3 == 0;
                contract.m_dCommission = (i * 7919) % 2000;
                contract.m_iPersonContract1 = i % 4 == 0;
                contract.m_iPersonContract2 = i % 5 == 0;
                contract.m_dTax = i;
                contract.m_dTax2 = i * 0.5;
                contract.m_dImposition = i * 0.25;
                contract.m_dImposition2 = 3;
                contract.m_dDiscountFirst = i % 7;
                contract.m_dDiscountSecond = i % 13;
            });
            const int invoice = addInvoice(CTblFactors::sale, at(1 + i % 4, 1 + i % 28), person, [i](CTblFactors &record) {
                record.m_dAmount = 1000;
                record.m_dDiscount = i;
                record.m_dTax = i * 2;
                record.m_dImposition = i * 0.5;
            });
            addLine(invoice, CTblFactors::sale, 2, 400);
            addLine(invoice, CTblFactors::sale, 1, 200);
        }
        constexpr int minimum = 500;
        const SeasonalTotals totals = gathered(query(minimum)).outcome.totals;
        const QString contracts = u"AutomobilContracts WHERE iStatus=0 AND DATE(dateContract) BETWEEN '%1' AND '%2'"_s
                                      .arg(Season::bounds(0, year).first.toString(Qt::ISODate),
                                           Season::bounds(0, year).last.toString(Qt::ISODate));
        const QString lines = u"FactorStuffs s JOIN Factors f ON f.iID=s.iFactorNum WHERE s.dAmount>=%1 AND "
                              "DATE(f.date) BETWEEN '%2' AND '%3'"_s
                                  .arg(QString::number(minimum), Season::bounds(0, year).first.toString(Qt::ISODate),
                                       Season::bounds(0, year).last.toString(Qt::ISODate));
        const QString small = u"dCommission<%1"_s.arg(minimum);
        const auto ofContracts = [&](const QString &ifSmall, const QString &ofFirst, const QString &ofSecond) {
            return sum(u"IF(%1,%2,%3+%4)"_s.arg(small, ifSmall, ofFirst, ofSecond), contracts);
        };
        const QString pays1 = u"(iPersonContract1=0)*"_s;
        const QString pays2 = u"(iPersonContract2=0)*"_s;
        const double amount =
            ofContracts(u"2*dCommission"_s, pays1 + QLatin1String("dCommission"), pays2 + QLatin1String("dCommission"))
            + sum(u"s.dAmount"_s, lines);
        const double tax =
            ofContracts(u"dTax+dTax2"_s, u"dTax+dImposition"_s, u"dTax2+dImposition2"_s)
            + sum(u"s.dAmount/f.dAmount*f.dTax"_s, lines);
        const double discount = ofContracts(u"dDiscountFirst+dDiscountSecond"_s, pays1 + QLatin1String("dDiscountFirst"),
                                            pays2 + QLatin1String("dDiscountSecond"))
            + sum(u"s.dAmount/f.dAmount*f.dDiscount"_s, lines);
        const double duties =
            sum(u"IF(%1,dImposition+dImposition2,0)"_s.arg(small), contracts) // of large ones they are in the tax
            + sum(u"s.dAmount/f.dAmount*f.dImposition"_s, lines);
        QVERIFY(amount > 0 && tax > 0 && discount > 0 && duties > 0);
        QVERIFY(qAbs(totals.amount - amount) < 0.001);
        QVERIFY(qAbs(totals.tax - tax) < 0.001);
        QVERIFY(qAbs(totals.discount - discount) < 0.001);
        QVERIFY(qAbs(totals.total - (amount + tax + duties - discount)) < 0.001);
    }
};

static const RegisteredTest<TestSeasonalGathering, KApplication> registeredSeasonalGathering;

#include "TestSeasonalGathering.moc"

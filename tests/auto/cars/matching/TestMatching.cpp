// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/matching/MatchingCars.h"
#include "auto/cars/matching/MatchingDemands.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarModels.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/persons/CTblPersons.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using Demand = CTblAutomobilDemands;

template <class Record, class Set>
int add(const Set &set)
{
    Record record;
    record.AddNew();
    set(record);
    record.Update(true);
    return static_cast<int>(record.GetLastInsertedID());
}

QList<int> codesOf(const MatchingCars &matching)
{
    QList<int> codes;
    for (const MatchingCars::Car &car : matching.cars)
        codes.append(car.code);
    return codes;
}

QList<int> codesOf(const MatchingDemands &matching)
{
    QList<int> codes;
    for (const MatchingDemands::Demand &demand : matching.demands)
        codes.append(demand.code);
    return codes;
}

}

// Cars for a demand and demands for a car, out of real rows.
class TestMatching : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    int m_peugeot = 0;
    int m_saipa = 0;
    int m_model = 0;
    int m_white = 0;
    int m_black = 0;
    int m_person = 0;

    int addCar(int code, const std::function<void(Car &)> &set = {})
    {
        return add<Car>([&](Car &car) {
            car.m_iCode = code;
            car.m_iAutomobilType = m_peugeot;
            car.m_iColor = m_white;
            car.m_iYear = 1398;
            car.m_dAmount = 1000;
            if (set)
                set(car);
        });
    }

    int addDemand(int code, const std::function<void(Demand &)> &set = {})
    {
        return add<Demand>([&](Demand &demand) {
            demand.m_iCode = code;
            demand.m_iPersonID = m_person;
            demand.m_iAutomobilType = m_peugeot;
            demand.m_iColor = m_white;
            demand.m_iModelFrom = 1395;
            demand.m_iModelUpTo = 1400;
            demand.m_dAmountFrom = 900;
            demand.m_dAmountUpTo = 1100;
            if (set)
                set(demand);
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        prepareModuleTables(m_database);
        m_peugeot = add<CTblCarBrands>([](CTblCarBrands &b) { b.m_sName = u"پژو"_s; });
        m_saipa = add<CTblCarBrands>([](CTblCarBrands &b) { b.m_sName = u"سایپا"_s; });
        m_model = add<CTblCarModels>([](CTblCarModels &m) { m.m_sName = u"پارس"_s; });
        m_white = add<CTblItems>([](CTblItems &i) { i.m_iType = CTblItems::typeColor; i.m_sName = u"سفید"_s; });
        m_black = add<CTblItems>([](CTblItems &i) { i.m_iType = CTblItems::typeColor; i.m_sName = u"سیاه"_s; });
        m_person = add<CTblPersons>([](CTblPersons &p) {
            p.m_sName2 = u"سارا کریمی"_s;
            p.m_sMobile = u"09121234567"_s;
        });
    }

    void init()
    {
        m_database.run(u"DELETE FROM AutomobilInformations"_s);
        m_database.run(u"DELETE FROM AutomobilDemands"_s);
    }

    void carsAreListedBestFirstAndTiesByCode()
    {
        const int demand = addDemand(1);
        addCar(5, [this](Car &car) { car.m_iColor = m_black; });
        addCar(4);
        addCar(3, [](Car &car) { car.m_iYear = 1394; });
        addCar(2);
        addCar(6, [this](Car &car) { car.m_iAutomobilType = m_saipa; });
        const auto matching = MatchingCars::of(demand);
        QVERIFY(matching);
        QCOMPARE(codesOf(*matching), (QList<int>{2, 4, 3, 5}));
        QCOMPARE(matching->cars.at(0).match.percent, 100);
        QCOMPARE(matching->cars.at(2).match.percent, 93);
        QCOMPARE(matching->cars.at(3).match.percent, 90);
    }

    void aBrandThatIsNotAskedForOrNotKnown()
    {
        const int any = addDemand(1, [](Demand &demand) { demand.m_iAutomobilType = 0; });
        const int peugeot = addDemand(2);
        const int unwritten = addDemand(3);
        m_database.run(u"UPDATE AutomobilDemands SET iAutomobilType=NULL WHERE iCode=3"_s);
        const int ofPeugeot = addCar(1);
        const int ofSaipa = addCar(2, [this](Car &car) { car.m_iAutomobilType = m_saipa; });
        const int ofNone = addCar(3, [](Car &car) { car.m_iAutomobilType = 0; });
        addCar(4);
        m_database.run(u"UPDATE AutomobilInformations SET iAutomobilType=NULL WHERE iCode=4"_s);
        QCOMPARE(codesOf(*MatchingCars::of(any)), (QList<int>{1, 2, 3, 4}));
        QCOMPARE(codesOf(*MatchingCars::of(unwritten)), (QList<int>{1, 2, 3, 4}));
        QCOMPARE(codesOf(*MatchingCars::of(peugeot)), QList<int>{1});
        QCOMPARE(codesOf(*MatchingDemands::of(ofPeugeot)), (QList<int>{2, 1, 3}));
        QCOMPARE(codesOf(*MatchingDemands::of(ofSaipa)), (QList<int>{1, 3}));
        QCOMPARE(codesOf(*MatchingDemands::of(ofNone)), (QList<int>{1, 3}));
    }

    void archivedAndInactiveCarsAreNotOffered()
    {
        const int demand = addDemand(1);
        addCar(2, [](Car &car) { car.m_iArchiveUserID = 4; });
        addCar(3, [](Car &car) { car.m_iStatus = 1; });
        addCar(4);
        QCOMPARE(codesOf(*MatchingCars::of(demand)), QList<int>{4});
    }

    void soldCarsStandBehindTheOthersHoweverWellTheyFit()
    {
        const int demand = addDemand(1);
        addCar(1, [](Car &car) { car.m_bSold = 1; });
        addCar(2, [this](Car &car) { car.m_iColor = m_black; });
        addCar(3, [this](Car &car) {
            car.m_bSold = 1;
            car.m_iColor = m_black;
        });
        addCar(4);
        const auto matching = MatchingCars::of(demand);
        QCOMPARE(codesOf(*matching), (QList<int>{4, 2, 1, 3}));
        QVERIFY(!matching->cars.at(1).offer.sold);
        QVERIFY(matching->cars.at(2).offer.sold);
    }

    void aDemandIsOverdueAfterItsLatestDay_data()
    {
        QTest::addColumn<int>("days"); // from today
        QTest::addColumn<bool>("overdue");
        QTest::newRow("yesterday") << -1 << true;
        QTest::newRow("today") << 0 << false;
        QTest::newRow("tomorrow") << 1 << false;
    }

    void aDemandIsOverdueAfterItsLatestDay()
    {
        QFETCH(int, days);
        QFETCH(bool, overdue);
        const QDateTime latest(GetDBSetting()->GetDBServerDate().date().addDays(days), QTime(0, 0), Qt::UTC);
        const int demand = addDemand(1, [&latest](Demand &demand) { demand.m_dateMaxTimeNeed = latest; });
        const int car = addCar(1);
        const auto cars = MatchingCars::of(demand);
        QCOMPARE(cars->overdue, overdue);
        QCOMPARE(cars->latestDate, latest);
        const auto demands = MatchingDemands::of(car);
        QCOMPARE(demands->demands.at(0).overdue, overdue);
        QCOMPARE(demands->demands.at(0).latestDate, latest);
    }

    void overdueDemandsStandBehindTheOthersHoweverWellTheyFit()
    {
        const int car = addCar(1);
        const QDateTime over(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC);
        addDemand(1, [&over](Demand &demand) { demand.m_dateMaxTimeNeed = over; });
        addDemand(2, [this](Demand &demand) { demand.m_iColor = m_black; });
        addDemand(3);
        QCOMPARE(codesOf(*MatchingDemands::of(car)), (QList<int>{3, 2, 1}));
    }

    void carsComeWithTheirNames()
    {
        const int demand = addDemand(7);
        const int key = addCar(1, [this](Car &car) {
            car.m_iModel = m_model;
            car.m_iPersonID = m_person;
            car.m_sNumOfPlates = u"12 ب 345"_s;
        });
        const auto matching = MatchingCars::of(demand);
        QCOMPARE(matching->demandCode, 7);
        QCOMPARE(matching->person, u"سارا کریمی"_s);
        QCOMPARE(matching->type, u"پژو"_s);
        QCOMPARE(matching->color, u"سفید"_s);
        const MatchingCars::Car &car = matching->cars.at(0);
        QCOMPARE(car.id, key);
        QCOMPARE(car.type, u"پژو"_s);
        QCOMPARE(car.model, u"پارس"_s);
        QCOMPARE(car.carClass, QString());
        QCOMPARE(car.color, u"سفید"_s);
        QCOMPARE(car.owner, u"سارا کریمی"_s);
        QCOMPARE(car.plate, u"12 ب 345"_s);
    }

    void aDemandThatIsGoneHasNoMatches()
    {
        QVERIFY(!MatchingCars::of(4711));
        QVERIFY(!MatchingDemands::of(4711));
    }

    void whatAnOpenEditorHasAddedMatchesNothing()
    {
        const int demand = addDemand(1);
        const int car = addCar(2);
        QCOMPARE(codesOf(*MatchingCars::of(demand)), QList<int>{2});
        QCOMPARE(codesOf(*MatchingDemands::of(car)), QList<int>{1});
        Placeholders::add({u"AutomobilInformations"_s, car}, u"another desk"_s);
        Placeholders::add({u"AutomobilDemands"_s, demand}, u"another desk"_s);
        QVERIFY(codesOf(*MatchingCars::of(demand)).isEmpty());
        QVERIFY(codesOf(*MatchingDemands::of(car)).isEmpty());
        m_database.run(u"DELETE FROM Placeholders"_s);
    }

    // One statement however many cars there are, and none that reads pictures.
    void carsAreReadByOneStatement()
    {
        const int demand = addDemand(1);
        addCar(1);
        const auto statementsFor = [demand] {
            const ObservedStatements statements({u"SELECT"_s});
            [[maybe_unused]] const auto matching = MatchingCars::of(demand);
            return statements.taken();
        };
        const qsizetype few = statementsFor().size();
        for (int code = 2; code < 60; ++code)
            addCar(code);
        const QStringList all = statementsFor();
        QCOMPARE(all.size(), few);
        QCOMPARE(all.filter(u"FROM AutomobilInformations"_s).size(), 1);
        QVERIFY(all.filter(u"oPicture"_s).isEmpty());
    }

    void demandsAreListedBestFirstAndTheMoreSpecificBeforeTheVaguer()
    {
        const int car = addCar(1);
        addDemand(1, [this](Demand &demand) { demand.m_iColor = m_black; });
        addDemand(2, [](Demand &demand) {
            demand.m_iColor = demand.m_iModelFrom = demand.m_iModelUpTo = 0;
            demand.m_dAmountFrom = demand.m_dAmountUpTo = 0;
        });
        addDemand(3);
        addDemand(4, [](Demand &demand) { demand.m_iModelFrom = demand.m_iModelUpTo = 1402; });
        const auto matching = MatchingDemands::of(car);
        QVERIFY(matching);
        QCOMPARE(codesOf(*matching), (QList<int>{3, 2, 1}));
        const MatchingDemands::Demand &best = matching->demands.at(0);
        QCOMPARE(best.match.percent, 100);
        QCOMPARE(best.person, u"سارا کریمی"_s);
        QCOMPARE(best.mobile, u"09121234567"_s);
        QCOMPARE(best.type, u"پژو"_s);
        QCOMPARE(best.color, u"سفید"_s);
        QCOMPARE(best.wishes, (DemandWishes{m_peugeot, m_white, 1395, 1400, 900, 1100}));
    }

    void archivedAndInactiveDemandsAndThoseOfNobodyAreNotListed()
    {
        const int car = addCar(1);
        addDemand(1, [](Demand &demand) { demand.m_iArchiveUserID = 4; });
        addDemand(2, [](Demand &demand) { demand.m_iStatus = 1; });
        addDemand(3, [](Demand &demand) { demand.m_iPersonID = 999999; });
        addDemand(4, [](Demand &demand) { demand.m_iPersonID = 0; });
        addDemand(5);
        QCOMPARE(codesOf(*MatchingDemands::of(car)), QList<int>{5});
    }

    // The car may be sold by now: the clerk asks who else wanted one like it.
    void demandsAreListedForASoldCarToo()
    {
        const int car = addCar(1, [](Car &car) { car.m_bSold = 1; });
        addDemand(1);
        QCOMPARE(codesOf(*MatchingDemands::of(car)), QList<int>{1});
        QVERIFY(MatchingDemands::of(car)->offer.sold);
    }
};

static const RegisteredTest<TestMatching, QCoreApplication> registeredMatching;
#include "TestMatching.moc"

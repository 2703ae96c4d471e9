// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/prices/CDlgPriceHistory.h"

#include "auto/cars/prices/PriceHistory.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/office/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgPriceHistory : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static void change(int car, const std::function<void(CTblAutomobilInformations &)> &work)
    {
        CTblAutomobilInformations record;
        QVERIFY(record.IsRecordExist(u"iID"_s, car));
        record.Edit();
        work(record);
        record.Update(true);
    }

    int pricedCar()
    {
        const int car = m_office->addCar([](CTblAutomobilInformations &c) { c.m_dAmount = 100; });
        change(car, [](CTblAutomobilInformations &c) { c.m_dAmount = 120; });
        change(car, [](CTblAutomobilInformations &c) { c.m_sDesc = u"بی رنگ"_s; });
        change(car, [](CTblAutomobilInformations &c) { c.m_dAmountContract = 5; });
        change(car, [](CTblAutomobilInformations &c) { c.m_dAmount = 90; });
        return car;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->database().run(u"DELETE FROM Changes"_s);
    }

    void eachPriceWithWhatItChangedAndNothingElse()
    {
        const int car = pricedCar();
        m_office->addCar([](CTblAutomobilInformations &c) { c.m_dAmount = 7; });
        const ObservedStatements statements({u"SELECT"_s});
        const QList<PriceHistory::Entry> prices = PriceHistory::of(car);
        QCOMPARE(statements.taken().size(), 1);
        QCOMPARE(prices.size(), 3);
        QCOMPARE(prices.at(0).price, 100.0);
        QCOMPARE(prices.at(0).before, 0.0);
        QCOMPARE(prices.at(1).difference(), 20.0);
        QCOMPARE(prices.at(2).difference(), -30.0);
        QVERIFY(!prices.at(2).user.isEmpty());
        QVERIFY(prices.at(2).when.isValid());
    }

    void windowShowsTheLatestFirst()
    {
        CDlgPriceHistory dialog(pricedCar());
        dialog.show();
        QCOMPARE(dialog.list()->count(), 3);
        QCOMPARE(dialog.list()->cellText(0, 3), u"90"_s);
        QCOMPARE(dialog.list()->cellText(0, 4), u"30 کمتر"_s);
        QCOMPARE(dialog.list()->cellText(2, 4), u"نخستین قیمت"_s);
    }

    void carWithoutAPriceHasNone()
    {
        QVERIFY(PriceHistory::of(m_office->addCar()).isEmpty());
        CDlgPriceHistory dialog(m_office->addCar());
        dialog.show();
        QCOMPARE(dialog.list()->count(), 0);
    }
};

static const RegisteredTest<TestCDlgPriceHistory, KApplication> registeredCDlgPriceHistory;
#include "TestCDlgPriceHistory.moc"

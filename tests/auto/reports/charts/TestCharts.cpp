// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/reports/charts/BarChart.h"
#include "auto/reports/charts/CDlgCharts.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QChart>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

// The charts' figures, against sums that the database makes by itself.
class TestCharts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->logInAsAdmin(); }
    void marginsAgreeWithTheTable();
    void monthsAreInTheirOrder();
    void daysStandingAreAverages();
    void demandsStandBesideStock();
    void commissionIsThatOfWhoWrote();
    void brandNarrows();
    void wrongDaysAreTold();
    void nothingIsSaid();
    void listPaperAndChartSayTheSame();
    void chartIsDrawn();

private:
    double number(const QString &query) { return m_office->database().value(query).toDouble(); }
    static double total(const QList<ChartFigures::Bar> &bars, double ChartFigures::Bar::*value = &ChartFigures::Bar::first)
    {
        double sum = 0;
        for (const ChartFigures::Bar &bar : bars)
            sum += bar.*value;
        return sum;
    }
    static void openRange(CDlgCharts &window)
    {
        window.fromDate()->setDateTime(ConvertToMiladi(1404, 1, 1).startOfDay(Qt::UTC));
        window.toDate()->setDateTime(ConvertToMiladi(1405, 12, 29).startOfDay(Qt::UTC));
        window.search();
    }

    std::unique_ptr<TestOffice> m_office;
    int m_saipa = 0;
};

void TestCharts::initTestCase()
{
    m_office = std::make_unique<TestOffice>();
    const int peugeot = m_office->addBrand(u"پژو"_s);
    m_saipa = m_office->addBrand(u"سایپا"_s);
    const int person = m_office->addPerson(u"زهرا"_s, u"صادقی"_s);
    const auto day = [](int month, int dayOfMonth) { return ConvertToMiladi(1405, month, dayOfMonth).startOfDay(Qt::UTC); };
    for (int i = 0; i < 6; ++i) {
        m_office->addCar([&](CTblAutomobilInformations &car) {
            car.m_iAutomobilType = i % 2 == 0 ? peugeot : m_saipa;
            car.m_bSold = i < 4 ? 1 : 0;
            car.m_dateIntroduction = day(1, 1 + i);
            car.m_dateBuy = i < 4 ? day(2 + i / 2, 10) : QDateTime();
            car.m_dSoldAmount = 1000 + 100 * i;
            car.m_dPurchasePriceOfOwner = 900;
            car.m_dAutomobilExpenses = 30;
            car.m_dAmountPresence = 7;
            car.m_dRemainingPresence = 3;
        });
    }
    for (int i = 0; i < 3; ++i) {
        m_office->addDemand([&](CTblAutomobilDemands &demand) {
            demand.m_iPersonID = person;
            demand.m_iAutomobilType = i < 2 ? m_saipa : 0;
            demand.m_dateMaxTimeNeed = i == 1 ? QDateTime() : GetDBSetting()->GetDBServerDate().addDays(10);
        });
    }
    for (int i = 0; i < 4; ++i) {
        m_office->addContract([&](CTblAutomobilContracts &contract) {
            contract.m_dateContract = day(3 + i % 2, 5);
            contract.m_dCommission = 250 + i;
            contract.m_bReturn = i == 3 ? 1 : 0;
            contract.m_iUserID = m_office->adminID();
        });
    }
}

void TestCharts::marginsAgreeWithTheTable()
{
    CDlgCharts window;
    openRange(window);
    QCOMPARE(window.bars().size(), 2);
    QCOMPARE(total(window.bars()), number(u"SELECT SUM(dSoldAmount-dPurchasePriceOfOwner-dAutomobilExpenses-dAmountPresence-dRemainingPresence) FROM AutomobilInformations WHERE bSold=1"_s));
    QCOMPARE(window.bars().constFirst().first, number(u"SELECT MAX(margin) FROM (SELECT SUM(dSoldAmount-940) margin FROM AutomobilInformations WHERE bSold=1 GROUP BY iAutomobilType) b"_s));
    QCOMPARE(window.bars().constFirst().name, u"سایپا"_s);
}

void TestCharts::monthsAreInTheirOrder()
{
    CDlgCharts window;
    window.choose(CDlgCharts::Kind::MarginByMonth);
    openRange(window);
    QCOMPARE(window.bars().size(), 2);
    QCOMPARE(window.bars().at(0).name, u"اردیبهشت 1405"_s);
    QCOMPARE(window.bars().at(1).name, u"خرداد 1405"_s);
    QCOMPARE(window.bars().at(0).count, 2);
    QCOMPARE(window.bars().at(0).first, 1000.0 + 1100.0 - 2 * 940.0);
    // The last day counts whole, the day behind it does not.
    window.toDate()->setDateTime(ConvertToMiladi(1405, 2, 10).startOfDay(Qt::UTC));
    window.search();
    QCOMPARE(window.bars().size(), 1);
    window.toDate()->setDateTime(ConvertToMiladi(1405, 2, 9).startOfDay(Qt::UTC));
    window.search();
    QCOMPARE(window.bars().size(), 0);
}

void TestCharts::daysStandingAreAverages()
{
    CDlgCharts window;
    window.choose(CDlgCharts::Kind::StandingByBrand);
    openRange(window);
    for (const ChartFigures::Bar &bar : window.bars()) {
        const double average = number(u"SELECT AVG(DATEDIFF(dateBuy,dateIntroduction)) FROM AutomobilInformations a JOIN CarBrands b ON b.iID=a.iAutomobilType WHERE a.bSold=1 AND b.sName='%1'"_s.arg(bar.name));
        QVERIFY(std::abs(bar.first - average) < 0.001);
    }
    QCOMPARE(window.bars().size(), 2);
}

void TestCharts::demandsStandBesideStock()
{
    CDlgCharts window;
    window.choose(CDlgCharts::Kind::DemandAndStock);
    QVERIFY(!window.fromDate()->isEnabled());
    QCOMPARE(window.bars().constFirst().name, u"سایپا"_s);
    QCOMPARE(window.bars().constFirst().first, 2.0);
    QCOMPARE(window.bars().constFirst().second, 1.0);
    QCOMPARE(total(window.bars()), 3.0);
    QCOMPARE(total(window.bars(), &ChartFigures::Bar::second), number(u"SELECT COUNT(*) FROM AutomobilInformations WHERE bSold=0"_s));
}

void TestCharts::commissionIsThatOfWhoWrote()
{
    CDlgCharts window;
    window.choose(CDlgCharts::Kind::CommissionByClerk);
    openRange(window);
    QCOMPARE(window.bars().size(), 1);
    QCOMPARE(window.bars().constFirst().name, u"مدیر دفتر"_s);
    QCOMPARE(window.bars().constFirst().first, number(u"SELECT SUM(dCommission) FROM AutomobilContracts WHERE bReturn=0"_s));
    window.choose(CDlgCharts::Kind::CommissionByMonth);
    QCOMPARE(window.bars().size(), 2);
    QCOMPARE(total(window.bars()), 250.0 + 251.0 + 252.0);
}

void TestCharts::brandNarrows()
{
    CDlgCharts window;
    openRange(window);
    window.brands()->setCurrentIndex(window.brands()->findData(m_saipa));
    QCOMPARE(window.bars().size(), 1);
    QCOMPARE(window.bars().constFirst().count, 2);
    window.choose(CDlgCharts::Kind::DemandAndStock);
    QCOMPARE(window.bars().size(), 1);
}

void TestCharts::wrongDaysAreTold()
{
    CDlgCharts window;
    openRange(window);
    g_pDlgWarning->takeShown();
    window.fromDate()->setText(u"1405/13/01"_s);
    window.search();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(window.bars().size(), 2);
    QCOMPARE(window.fromDate()->text(), u"1405/13/01"_s);
}

void TestCharts::nothingIsSaid()
{
    CDlgCharts window;
    window.fromDate()->setDateTime(ConvertToMiladi(1390, 1, 1).startOfDay(Qt::UTC));
    window.toDate()->setDateTime(ConvertToMiladi(1390, 2, 1).startOfDay(Qt::UTC));
    window.search();
    QCOMPARE(window.list()->model()->rowCount(), 0);
    QVERIFY(!window.chart()->isVisibleTo(&window));
}

void TestCharts::listPaperAndChartSayTheSame()
{
    CDlgCharts window;
    openRange(window);
    for (int kind = 0; kind < CDlgCharts::kindCount; ++kind) {
        window.choose(CDlgCharts::Kind(kind));
        QVERIFY(!window.bars().isEmpty());
        const QVector<KListModel::Row> rows = window.listReport().rows();
        QCOMPARE(rows.size(), window.bars().size());
        QCOMPARE(rows.constFirst().cells.constFirst().text, window.bars().constFirst().name);
        QCOMPARE(window.chart()->chart()->series().size(), 1);
    }
}

void TestCharts::chartIsDrawn()
{
    CDlgCharts window;
    openRange(window);
    QImage paper(800, 500, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    window.chart()->draw(painter, paper.rect(), u"1405"_s);
    painter.end();
    int inked = 0;
    for (int y = 0; y < paper.height(); y += 4) {
        for (int x = 0; x < paper.width(); x += 4)
            inked += paper.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
    }
    QVERIFY(inked > 1000);
}

static const RegisteredTest<TestCharts, QApplication> registeredCharts;
#include "TestCharts.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/register/editor/CDlgMatchingCars.h"
#include "auto/cars/demands/editor/CDlgMatchingDemands.h"
#include "auto/cars/matching/DemandMatch.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using Demand = CTblAutomobilDemands;

QStringList row(const CDlgMatches &window, int row)
{
    QStringList cells;
    for (int column = 0; column < window.list()->listModel()->columnCount(); ++column)
        cells << window.list()->cellText(row, column);
    return cells;
}

QPushButton *button(const QWidget &window, const QString &caption)
{
    for (QPushButton *button : window.findChildren<QPushButton *>()) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}

}

// The windows of fitting cars and of fitting demands.
class TestCDlgMatches : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_person = 0;
    int m_brand = 0;
    int m_white = 0;

    int addDemand(const std::function<void(Demand &)> &set = {})
    {
        return m_office->addDemand([&](Demand &demand) {
            demand.m_dateCreate = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
            demand.m_iPersonID = m_person;
            demand.m_iAutomobilType = m_brand;
            demand.m_iColor = m_white;
            demand.m_iModelFrom = 1395;
            demand.m_iModelUpTo = 1400;
            demand.m_dAmountFrom = 4e9;
            demand.m_dAmountUpTo = 5e9;
            demand.m_dateReference = QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC);
            if (set)
                set(demand);
        });
    }

    int addCar(const std::function<void(Car &)> &set = {})
    {
        return m_office->addCar([&](Car &car) {
            car.m_iAutomobilType = m_brand;
            car.m_iColor = m_white;
            car.m_iYear = 1398;
            car.m_dAmount = 4.5e9;
            car.m_iPersonID = m_person;
            if (set)
                set(car);
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_person = m_office->addPerson(u"سارا"_s, u"کریمی"_s,
                                       [](CTblPersons &person) { person.m_sMobile = u"09121234567"_s; });
        m_brand = m_office->addBrand(u"پژو"_s);
        m_white = CTblMultiItems::addValue(CTblItems::typeColor, u"سفید"_s);
    }

    void wishesText_data()
    {
        QTest::addColumn<QList<double>>("ranges"); // years, amounts
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("text");
        QTest::newRow("all") << QList<double>{1395, 1400, 1000, 2000} << "پژو"
                             << "پژو، سفید، سال تولید از 1395 تا 1400، مبلغ از 1,000 تا 2,000";
        QTest::newRow("open ranges") << QList<double>{0, 1400, 1000, 0} << ""
                                     << "سفید، سال تولید تا 1400، مبلغ از 1,000";
        QTest::newRow("no ranges") << QList<double>{0, 0, 0, 0} << "پژو"
                                   << "پژو، سفید";
    }

    void wishesText()
    {
        QFETCH(QList<double>, ranges);
        QFETCH(QString, type);
        const DemandWishes wishes{1, 2, int(ranges.at(0)), int(ranges.at(1)), ranges.at(2), ranges.at(3)};
        QTEST(CDlgMatchingCars::wishesText(wishes, type, u"سفید"_s), "text");
    }

    void wishesTextOfADemandThatStatesNothing()
    {
        QCOMPARE(CDlgMatchingCars::wishesText({}, {}, {}), u"بدون خواسته مشخص"_s);
    }

    void fittingCarsAreShownWithTheDemand()
    {
        const int demand = addDemand();
        addCar([](Car &car) { car.m_iYear = 1394; });
        const int best = addCar([](Car &car) { car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s; });
        CDlgMatches window(CDlgMatchingCars::table(demand));
        QVERIFY(window.load());
        QCOMPARE(window.windowTitle(), u"خودروهای مناسب"_s);
        QCOMPARE(window.subject(), u"تقاضای 1، سارا کریمی: پژو، سفید، سال تولید از 1395 تا 1400، مبلغ از %1 تا %2"_s.arg(DToMoney(4e9), DToMoney(5e9)));
        QCOMPARE(window.countText(), u"تعداد : 2"_s);
        QCOMPARE(window.list()->currentKey(), best);
        QCOMPARE(row(window, 0), (QStringList{u"1"_s, u"100%"_s, u"2"_s, u"پژو"_s, u"-"_s, u"-"_s, u"1398"_s, u"سفید"_s, DToMoney(4.5e9), u"12 ب 345 ایران 67"_s, u"سارا کریمی"_s, u"-"_s, QString()}));
        QCOMPARE(row(window, 1).at(1), u"93%"_s);
    }

    void fittingDemandsAreShownWithTheCar()
    {
        const int car = addCar();
        addDemand([](Demand &d) { d.m_sDescSpecial = u"فوری"_s; });
        CDlgMatches window(CDlgMatchingDemands::table(car));
        QVERIFY(window.load());
        QCOMPARE(window.windowTitle(), u"متقاضیان"_s);
        QCOMPARE(window.subject(), u"خودروی 1: پژو، سفید، سال تولید 1398، مبلغ "_s + DToMoney(4.5e9));
        QCOMPARE(row(window, 0), (QStringList{u"1"_s, u"100%"_s, u"1"_s, u"سارا کریمی"_s, u"09121234567"_s, u"پژو"_s, u"1395"_s, u"1400"_s, u"سفید"_s, DToMoney(4e9), DToMoney(5e9), u"1405/01/01"_s, QString(), u"-"_s, u"فوری"_s}));
    }

    void whatIsOverStandsApart_data()
    {
        QTest::addColumn<bool>("sold");
        QTest::addColumn<bool>("overdue");
        QTest::newRow("live") << false << false;
        QTest::newRow("sold") << true << false;
        QTest::newRow("overdue") << false << true;
    }

    void whatIsOverStandsApart()
    {
        QFETCH(bool, sold);
        QFETCH(bool, overdue);
        const int car = addCar([sold](Car &car) { car.m_bSold = sold ? 1 : 0; });
        const QDate latest(overdue ? 2020 : 2100, 3, 25);
        const int demand = addDemand([latest](Demand &demand) { demand.m_dateMaxTimeNeed = QDateTime(latest, QTime(0, 0), Qt::UTC); });
        for (const MatchTable &table : {CDlgMatchingDemands::table(car), CDlgMatchingCars::table(demand)}) {
            CDlgMatches window(table);
            QVERIFY(window.load());
            const KListModel *rows = window.list()->listModel();
            QCOMPARE(rows->rowCount(), 1);
            QCOMPARE(rows->index(0, 0).data(Qt::ForegroundRole).isValid(), sold || overdue);
            QCOMPARE(row(window, 0).contains(u"فروخته شده"_s), sold);
            QVERIFY(row(window, 0).contains(shamsiText(latest)));
            QVERIFY(window.list()->columnWidth(rows->columnCount() - 1) > 0);
        }
    }

    void withoutAMatchTheWindowSaysSo()
    {
        const int demand = addDemand();
        CDlgMatches window(CDlgMatchingCars::table(demand));
        const auto isTold = [&window] {
            const QList<QLabel *> labels = window.findChildren<QLabel *>();
            return std::any_of(labels.cbegin(), labels.cend(), [](const QLabel *label) {
                return label->isVisible() && label->text() == u"خودرویی که با این تقاضا جور باشد پیدا نشد."_s;
            });
        };
        QVERIFY(window.load());
        window.show();
        QCOMPARE(window.countText(), u"تعداد : 0"_s);
        QVERIFY(!button(window, u"نمايش"_s)->isEnabled());
        QVERIFY(isTold());
        // In the place of the rows.
        const auto *empty = window.findChild<KEmptyState *>();
        QCOMPARE(empty->parentWidget(), window.list());
        QVERIFY(!empty->isHidden());
        window.showSelected();
        addCar();
        QVERIFY(window.load());
        QVERIFY(!isTold());
    }

    void nothingIsShownForWhatIsGone()
    {
        CDlgMatchingCars::Show(4711, nullptr);
        CDlgMatchingDemands::Show(4711, nullptr);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void aListThatMayNotBeOpenedIsRefused()
    {
        const int demand = addDemand();
        const int car = addCar();
        m_office->logInAs(u"clerk"_s, u"AutomobilDemands"_s, KSecurity::allRights & ~KSecurity::Access);
        CDlgMatchingDemands::Show(car, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"AutomobilDemands"_s, KSecurity::Access)});
        CDlgMatchingCars::Show(demand, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(u"AutomobilInformations"_s, KSecurity::Access)});
    }

    void activationOpensTheDemandReadOnly()
    {
        const int car = addCar();
        const int demand = addDemand();
        CDlgMatches window(CDlgMatchingDemands::table(car));
        QVERIFY(window.load());
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *dialog) {
            QCOMPARE(dialog->windowTitle(), u"تقاضا - نمایش"_s);
            static_cast<QDialog *>(dialog)->reject();
        });
        Q_EMIT window.list()->rowActivated(demand);
        QCOMPARE(window.list()->currentKey(), demand);
    }

    void listFollowsWhatChangedAndClosesWhenItsSubjectIsGone()
    {
        const int car = addCar();
        const int demand = addDemand();
        MatchTable table = CDlgMatchingDemands::table(car);
        bool changed = false;
        table.show = [&changed](int, QWidget *) { return changed; };
        CDlgMatches window(table);
        QVERIFY(window.load());
        window.show();
        m_office->database().run(u"UPDATE AutomobilDemands SET sDescSpecial='x'"_s);
        Q_EMIT window.list()->rowActivated(demand);
        QVERIFY(!row(window, 0).contains(u"x"_s));
        changed = true;
        Q_EMIT window.list()->rowActivated(demand);
        QVERIFY(row(window, 0).contains(u"x"_s));
        m_office->database().run(u"DELETE FROM AutomobilInformations"_s);
        Q_EMIT window.list()->rowActivated(demand);
        QVERIFY(!window.isVisible());
    }

    void activationNeedsTheRightToRead()
    {
        const int car = addCar();
        const int demand = addDemand();
        m_office->logInAs(u"clerk"_s, u"AutomobilDemands"_s, KSecurity::Access);
        CDlgMatches window(CDlgMatchingDemands::table(car));
        QVERIFY(window.load());
        Q_EMIT window.list()->rowActivated(demand);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"AutomobilDemands"_s, KSecurity::Read)});
        window.print();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(u"AutomobilDemands"_s, KSecurity::PrintList)});
    }

    void listIsPrintedWithWhatItIsMatchedWith()
    {
        const int demand = addDemand();
        addCar();
        CDlgMatches window(CDlgMatchingCars::table(demand));
        QVERIFY(window.load());
        const ListReport report = window.report();
        QCOMPARE(report.shownTitle(), u"خودروهای مناسب"_s);
        QCOMPARE(report.text(u"RightTop"_s), window.subject());
        QCOMPARE(report.text(u"Count"_s), u"تعداد : 1"_s);
        QCOMPARE(report.rows().size(), 1);
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&shown](QWidget *generator) {
            shown = true;
            static_cast<QDialog *>(generator)->reject();
        });
        button(window, u"چاپ"_s)->click();
        QVERIFY(shown);
    }
};

static const RegisteredTest<TestCDlgMatches, KApplication> registeredCDlgMatches;
#include "TestCDlgMatches.moc"

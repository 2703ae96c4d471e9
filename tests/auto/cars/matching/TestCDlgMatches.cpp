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
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

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
        m_person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"),
                                       [](CTblPersons &person) { person.m_sMobile = QStringLiteral("09121234567"); });
        m_brand = m_office->addBrand(QStringLiteral("پژو"));
        m_white = CTblMultiItems::addValue(CTblItems::typeColor, QStringLiteral("سفید"));
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
        QTEST(CDlgMatchingCars::wishesText(wishes, type, QStringLiteral("سفید")), "text");
    }

    void wishesTextOfADemandThatStatesNothing()
    {
        QCOMPARE(CDlgMatchingCars::wishesText({}, {}, {}), QStringLiteral("بدون خواسته مشخص"));
    }

    void fittingCarsAreShownWithTheDemand()
    {
        const int demand = addDemand();
        addCar([](Car &car) { car.m_iYear = 1394; });
        const int best = addCar([](Car &car) { car.m_sNumOfPlates = QStringLiteral("12 ب 345 ایران 67"); });
        CDlgMatches window(CDlgMatchingCars::table(demand));
        QVERIFY(window.load());
        QCOMPARE(window.windowTitle(), QStringLiteral("خودروهای مناسب"));
        QCOMPARE(window.subject(), QStringLiteral("تقاضای 1، سارا کریمی: پژو، سفید، سال تولید از 1395 تا 1400، مبلغ از %1 تا %2").arg(DToMoney(4e9), DToMoney(5e9)));
        QCOMPARE(window.countText(), QStringLiteral("تعداد : 2"));
        QCOMPARE(window.list()->currentKey(), best);
        QCOMPARE(row(window, 0), (QStringList{QStringLiteral("1"), QStringLiteral("100%"), QStringLiteral("2"), QStringLiteral("پژو"), QStringLiteral("-"), QStringLiteral("-"), QStringLiteral("1398"), QStringLiteral("سفید"), DToMoney(4.5e9), QStringLiteral("12 ب 345 ایران 67"), QStringLiteral("سارا کریمی")}));
        QCOMPARE(row(window, 1).at(1), QStringLiteral("93%"));
    }

    void fittingDemandsAreShownWithTheCar()
    {
        const int car = addCar();
        addDemand([](Demand &d) { d.m_sDescSpecial = QStringLiteral("فوری"); });
        CDlgMatches window(CDlgMatchingDemands::table(car));
        QVERIFY(window.load());
        QCOMPARE(window.windowTitle(), QStringLiteral("متقاضیان"));
        QCOMPARE(window.subject(), QStringLiteral("خودروی 1: پژو، سفید، سال تولید 1398، مبلغ ") + DToMoney(4.5e9));
        QCOMPARE(row(window, 0), (QStringList{QStringLiteral("1"), QStringLiteral("100%"), QStringLiteral("1"), QStringLiteral("سارا کریمی"), QStringLiteral("09121234567"), QStringLiteral("پژو"), QStringLiteral("1395"), QStringLiteral("1400"), QStringLiteral("سفید"), DToMoney(4e9), DToMoney(5e9), QStringLiteral("1405/01/01"), QStringLiteral("فوری")}));
    }

    void withoutAMatchTheWindowSaysSo()
    {
        const int demand = addDemand();
        CDlgMatches window(CDlgMatchingCars::table(demand));
        const auto isTold = [&window] {
            const QList<QLabel *> labels = window.findChildren<QLabel *>();
            return std::any_of(labels.cbegin(), labels.cend(), [](const QLabel *label) {
                return label->isVisible() && label->text() == QStringLiteral("خودرویی که با این تقاضا جور باشد پیدا نشد.");
            });
        };
        QVERIFY(window.load());
        window.show();
        QCOMPARE(window.countText(), QStringLiteral("تعداد : 0"));
        QVERIFY(!button(window, QStringLiteral("نمايش"))->isEnabled());
        QVERIFY(isTold());
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
        m_office->logInAs(QStringLiteral("clerk"), QStringLiteral("AutomobilDemands"), KSecurity::allRights & ~KSecurity::Access);
        CDlgMatchingDemands::Show(car, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("AutomobilDemands"), KSecurity::Access)});
        CDlgMatchingCars::Show(demand, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(QStringLiteral("AutomobilInformations"), KSecurity::Access)});
    }

    void activationOpensTheDemandReadOnly()
    {
        const int car = addCar();
        const int demand = addDemand();
        CDlgMatches window(CDlgMatchingDemands::table(car));
        QVERIFY(window.load());
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *dialog) {
            QCOMPARE(dialog->windowTitle(), QStringLiteral("تقاضا - نمایش"));
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
        m_office->database().run(QStringLiteral("UPDATE AutomobilDemands SET sDescSpecial='x'"));
        Q_EMIT window.list()->rowActivated(demand);
        QVERIFY(!row(window, 0).contains(QStringLiteral("x")));
        changed = true;
        Q_EMIT window.list()->rowActivated(demand);
        QVERIFY(row(window, 0).contains(QStringLiteral("x")));
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilInformations"));
        Q_EMIT window.list()->rowActivated(demand);
        QVERIFY(!window.isVisible());
    }

    void activationNeedsTheRightToRead()
    {
        const int car = addCar();
        const int demand = addDemand();
        m_office->logInAs(QStringLiteral("clerk"), QStringLiteral("AutomobilDemands"), KSecurity::Access);
        CDlgMatches window(CDlgMatchingDemands::table(car));
        QVERIFY(window.load());
        Q_EMIT window.list()->rowActivated(demand);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("AutomobilDemands"), KSecurity::Read)});
        window.print();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(QStringLiteral("AutomobilDemands"), KSecurity::PrintList)});
    }

    void listIsPrintedWithWhatItIsMatchedWith()
    {
        const int demand = addDemand();
        addCar();
        CDlgMatches window(CDlgMatchingCars::table(demand));
        QVERIFY(window.load());
        const ListReport report = window.report();
        QCOMPARE(report.shownTitle(), QStringLiteral("خودروهای مناسب"));
        QCOMPARE(report.text(QStringLiteral("RightTop")), window.subject());
        QCOMPARE(report.text(QStringLiteral("Count")), QStringLiteral("تعداد : 1"));
        QCOMPARE(report.rows().size(), 1);
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&shown](QWidget *generator) {
            shown = true;
            static_cast<QDialog *>(generator)->reject();
        });
        button(window, QStringLiteral("چاپ"))->click();
        QVERIFY(shown);
    }
};

static const RegisteredTest<TestCDlgMatches, KApplication> registered;
#include "TestCDlgMatches.moc"

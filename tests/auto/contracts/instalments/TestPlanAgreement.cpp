// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/PlanAgreement.h"

#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int buyer = 7;
using Choices = QList<PlanChoice>;

}

class TestPlanAgreement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contractAndPlanAreCompared_data()
    {
        QTest::addColumn<bool>("sale");
        QTest::addColumn<double>("left");
        QTest::addColumn<int>("person");
        QTest::addColumn<double>("principal");
        QTest::addColumn<int>("payer"); // -1: nothing is open
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("disagree");
        const auto row = [](const char *name, bool sale, double left, int person, double principal, int payer, int decimals,
                            const QString &disagree) {
            QTest::newRow(name) << sale << left << person << principal << payer << decimals << disagree;
        };
        row("agree", true, 1200, buyer, 1200, buyer, 0, {});
        row("another amount", true, 1500, buyer, 1200, buyer, 0, u"amount"_s);
        row("another buyer", true, 1200, 8, 1200, buyer, 0, u"buyer"_s);
        row("both", true, 1500, 8, 1200, buyer, 0, u"amount buyer"_s);
        row("another buyer once all is paid", true, 1200, 8, 1200, -1, 0, {});
        row("a buyer typed by hand", true, 1200, 0, 1200, buyer, 0, u"buyer"_s);
        row("no instalment sale any more", false, 1500, 8, 1200, buyer, 0, u"type"_s);
        row("less than the unit shows", true, 1200.4, buyer, 1200, buyer, 0, {});
        row("half of it", true, 1200.5, buyer, 1200, buyer, 0, u"amount"_s);
        row("seen in two decimals", true, 1200.01, buyer, 1200, buyer, 2, u"amount"_s);
        row("from rounding only", true, 3'600'000'000., buyer, 3'600'000'000.0000012, buyer, 4, {});
    }

    void contractAndPlanAreCompared()
    {
        QFETCH(bool, sale);
        QFETCH(double, left);
        QFETCH(int, person);
        QFETCH(double, principal);
        QFETCH(int, payer);
        QFETCH(int, decimals);
        QFETCH(QString, disagree);
        const PlanBasis basis{sale, left, person};
        const PlanFigures plan{principal, payer < 0 ? std::nullopt : std::optional(payer), false, true, true};
        const PlanAgreement agreement = PlanAgreement::of(basis, plan, decimals);
        QStringList found;
        if (agreement.type)
            found.append(u"type"_s);
        if (agreement.amount)
            found.append(u"amount"_s);
        if (agreement.buyer)
            found.append(u"buyer"_s);
        QCOMPARE(found.join(u' '), disagree);
        QCOMPARE(agreement.agrees(), disagree.isEmpty());
        QCOMPARE(agreement.sentences(basis, plan, u"ریال"_s, decimals).size(), found.size());
    }

    void bothAmountsAreSaid()
    {
        const PlanBasis basis{true, 1500, buyer};
        const PlanFigures plan{1200, buyer, false, true, true};
        QCOMPARE(PlanAgreement::of(basis, plan, 0).sentences(basis, plan, u"ریال"_s, 0),
                 QStringList{u"مانده بهای قرارداد 1,500 ریال است، ولی برنامه اقساط آن برای 1,200 ریال محاسبه شده است."_s});
    }

    void whatCanBeDoneIsOffered_data()
    {
        QTest::addColumn<bool>("sale");
        QTest::addColumn<double>("left");
        QTest::addColumn<bool>("received");
        QTest::addColumn<bool>("open");
        QTest::addColumn<bool>("within");
        QTest::addColumn<Choices>("choices");
        const auto row = [](const char *name, bool sale, double left, bool received, bool open, bool within, const Choices &choices) {
            QTest::newRow(name) << sale << left << received << open << within << choices;
        };
        row("nothing received", true, 1500, false, true, true, {PlanChoice::NewPlan, PlanChoice::Spread, PlanChoice::Leave});
        row("something received", true, 1500, true, true, true, {PlanChoice::Spread, PlanChoice::Leave});
        row("more received than there is to be", true, 100, true, true, false, {PlanChoice::Leave});
        row("all is paid", true, 1500, true, false, false, {PlanChoice::Leave});
        row("nothing left to split", true, 0, false, true, true, {PlanChoice::Delete, PlanChoice::Leave});
        row("nothing left, something received", true, 0, true, true, false, {PlanChoice::Leave});
        row("no instalment sale", false, 1500, false, true, true, {PlanChoice::Delete, PlanChoice::Leave});
        row("no instalment sale, something received", false, 1500, true, true, true, {PlanChoice::Leave});
    }

    void whatCanBeDoneIsOffered()
    {
        QFETCH(bool, sale);
        QFETCH(double, left);
        QFETCH(bool, received);
        QFETCH(bool, open);
        QFETCH(bool, within);
        const PlanBasis basis{sale, left, buyer};
        const PlanFigures plan{1200, buyer, received, open, within};
        QTEST(PlanAgreement::of(basis, plan, 0).choices(basis, plan), "choices");
    }
};

static const RegisteredTest<TestPlanAgreement, QCoreApplication> registeredPlanAgreement;
#include "TestPlanAgreement.moc"

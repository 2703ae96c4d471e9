// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/lists/KFilterForm.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using F = KListFilter;
using K = KListFilter::Kind;

// The colours that a drop-down offers next.
QList<F::Choice> offered;

QList<KListFilter> filters()
{
    using namespace FilterClauses;
    return {
        {.key = u"inactive"_s, .label = u"Inactive"_s, .kind = K::Flag, .place = {1, 0, 2}, .clause = flag("", " AND iStatus=0"), .initial = false, .options = F::KeptByReset | F::HiddenInSelect},
        {.key = u"owner"_s, .clause = [](const QVariant &, int user) { return KSql::formatted(" AND iUserID=%1", user); }},
        {.key = u"color"_s, .label = u"Color :"_s, .kind = K::Choice, .place = {0, 2}, .clause = number(" AND iColor="), .choices = [] { return offered; }, .options = F::ReadByReset},
        {.key = u"from"_s, .label = u"From :"_s, .kind = K::Date, .place = {2, 0}, .clause = from(" AND date>=")},
        {.key = u"to"_s, .label = u"To :"_s, .kind = K::PlainDate, .place = {2, 2}, .clause = upTo(" AND date<"), .accessibleName = u"Day to :"_s},
        {.key = u"part"_s, .label = u"Part :"_s, .kind = K::Text, .place = {0, 0}, .clause = part("sName"), .maxLength = 5, .options = F::FindGoesHere},
        {.key = u"typed"_s, .label = u"Typed :"_s, .kind = K::Text, .clause = pattern("sTyped")},
        {.key = u"number"_s, .label = u"Number :"_s, .kind = K::Number, .place = {3, 0}, .clause = number(" AND iNum="), .initial = 7},
        {.key = u"amount"_s, .label = u"Amount :"_s, .kind = K::Amount, .place = {3, 2}, .clause = amount(" AND dAmount>=")},
    };
}

struct Form
{
    QWidget box;
    QGridLayout *grid = new QGridLayout(&box);
    KFilterForm form{filters(), {}, grid, &box};
};

}

// The filters of a list as a table, with one of each kind that needs no other library.
class TestKFilterForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { offered = {{u"all"_s, 0}, {u"red"_s, 4}, {u"blue"_s, 9}}; }

    void eachFilterAsksItsClauseInTheOrderOfTheTable()
    {
        Form f;
        QCOMPARE(f.form.condition(3).text(), u"iStatus=0 AND iUserID=3 AND iNum=7"_s);
        f.form.set(u"inactive", true);
        f.form.set(u"color", 9);
        f.form.set(u"from", QDate(2026, 5, 1));
        f.form.set(u"to", QDate(2026, 5, 2));
        f.form.set(u"part", u"x%"_s);
        f.form.set(u"typed", u"x%"_s);
        f.form.set(u"number", 0);
        f.form.set(u"amount", 2.5);
        QCOMPARE(f.form.condition(3).text(),
                 u"iUserID=3 AND iColor=9 AND date>='2026-05-01' AND date<'2026-05-03' AND sName LIKE '%x\\\\%%'"
                 u" AND sTyped LIKE '%x%%' AND dAmount>=2.500000"_s);
    }

    void aDateAsksWhileItIsTickedOrWithoutABoxWhileItIsThere()
    {
        Form f;
        f.form.control<KDateEdit>(u"from")->setDate(QDate(2026, 5, 1));
        QVERIFY(!f.form.value(u"from").toDateTime().isValid());
        f.form.control<KDateEdit>(u"from")->setChecked(true);
        QCOMPARE(f.form.value(u"from").toDateTime().date(), QDate(2026, 5, 1));
        f.form.set(u"from", {});
        QVERIFY(!f.form.value(u"from").toDateTime().isValid());
        QCOMPARE(f.form.control<KDateEdit>(u"from")->date(), QDate(2026, 5, 1));
        QVERIFY(!f.form.control<KDateEdit>(u"to")->isCheckable());
        f.form.set(u"to", QDate(2026, 5, 1));
        QVERIFY(f.form.value(u"to").toDateTime().isValid());
        f.form.set(u"to", {});
        QVERIFY(f.form.control<KDateEdit>(u"to")->text().isEmpty());
    }

    void aChoiceThatIsNotThereMeansTheFirst()
    {
        Form f;
        f.form.set(u"color", 5);
        QCOMPARE(f.form.value(u"color").toInt(), 0);
        QCOMPARE(f.form.control<QComboBox>(u"color")->currentIndex(), 0);
    }

    void choicesReadAnewKeepTheChosenOneWhereItStillIs()
    {
        Form f;
        f.form.set(u"color", 9);
        offered = {{u"all"_s, 0}, {u"blue"_s, 9}, {u"green"_s, 2}};
        f.form.readChoices(u"color");
        QCOMPARE(f.form.value(u"color").toInt(), 9);
        QCOMPARE(f.form.control<QComboBox>(u"color")->count(), 3);
        offered = {{u"all"_s, 0}};
        f.form.readChoices(u"color");
        QCOMPARE(f.form.value(u"color").toInt(), 0);
    }

    void aResetKeepsWhatTheTableKeepsAndReadsWhatItReads()
    {
        Form f;
        for (const QString &key : {u"inactive"_s, u"color"_s, u"number"_s, u"amount"_s})
            f.form.set(key, 9);
        f.form.set(u"part", u"x"_s);
        offered = {{u"all"_s, 0}};
        f.form.reset();
        QVERIFY(f.form.value(u"inactive").toBool());
        QCOMPARE(f.form.control<QComboBox>(u"color")->count(), 1);
        QCOMPARE(f.form.value(u"number").toInt(), 7);
        QCOMPARE(f.form.value(u"amount").toDouble(), 0.0);
        QVERIFY(f.form.value(u"part").toString().isEmpty());
    }

    void inSelectModeAFilterMayAskWhatItAsksAtFirst()
    {
        Form f;
        f.form.set(u"inactive", true);
        f.form.setSelectMode(true);
        QVERIFY(f.form.control(u"inactive")->isHidden());
        QVERIFY(!f.form.value(u"inactive").toBool());
        f.form.setSelectMode(false);
        QVERIFY(!f.form.control(u"inactive")->isHidden());
        QVERIFY(f.form.value(u"inactive").toBool());
    }

    void theWidestLeavesWhatTheUserDoesNotSee_data()
    {
        QTest::addColumn<bool>("select");
        QTest::addColumn<QString>("widest");
        QTest::newRow("list") << false << u"iUserID=3 AND sTyped LIKE '%x%%'"_s;
        QTest::newRow("choosing a row") << true << u"iStatus=0 AND iUserID=3 AND sTyped LIKE '%x%%'"_s;
    }

    void theWidestLeavesWhatTheUserDoesNotSee()
    {
        QFETCH(bool, select);
        QFETCH(QString, widest);
        Form f;
        f.form.setSelectMode(select);
        f.form.set(u"typed", u"x%"_s);
        f.form.set(u"color", 9);
        f.form.set(u"amount", 2.5);
        QCOMPARE(f.form.widestCondition(3).text(), widest);
        f.form.widen();
        QCOMPARE(f.form.condition(3).text(), widest);
        QCOMPARE(f.form.value(u"typed").toString(), u"x%"_s);
        // What is hidden meanwhile is as it was when it comes back.
        f.form.setSelectMode(false);
        QCOMPARE(f.form.value(u"inactive").toBool(), !select);
    }

    void controlsStandAtTheirPlacesWithTheirNames()
    {
        Form f;
        QCOMPARE(f.grid->itemAtPosition(0, 1)->widget(), f.form.control(u"part"));
        QCOMPARE(f.grid->itemAtPosition(1, 0)->widget(), f.form.control(u"inactive"));
        QCOMPARE(f.grid->itemAtPosition(1, 1)->widget(), f.form.control(u"inactive"));
        QCOMPARE(f.grid->itemAtPosition(2, 3)->widget(), f.form.control(u"to"));
        auto *label = qobject_cast<QLabel *>(f.grid->itemAtPosition(2, 2)->widget());
        QVERIFY(label);
        QCOMPARE(label->buddy(), f.form.control(u"to"));
        QCOMPARE(f.form.control(u"to")->accessibleName(), u"Day to :"_s);
        QCOMPARE(f.form.control(u"from")->accessibleName(), u"From :"_s);
        QVERIFY(f.form.control(u"typed")->isHidden());
        QCOMPARE(f.grid->indexOf(f.form.control(u"typed")), -1);
        QVERIFY(!f.form.control(u"owner"));
        QCOMPARE(f.form.control<KEdit>(u"part")->maxLength(), 5);
        QCOMPARE(f.form.findControl(), f.form.control(u"part"));
    }

    void rangeThatEndsBeforeItBeginsIsFound_data()
    {
        QTest::addColumn<K>("kind");
        QTest::addColumn<QVariant>("from");
        QTest::addColumn<QVariant>("to");
        QTest::addColumn<bool>("backwards");
        const QDate day(2026, 11, 20);
        QTest::newRow("days") << K::Date << QVariant(day) << QVariant(day.addDays(-1)) << true;
        QTest::newRow("one day") << K::Date << QVariant(day) << QVariant(day) << false;
        QTest::newRow("no last day") << K::Date << QVariant(day) << QVariant(QDate()) << false;
        QTest::newRow("plain days") << K::PlainDate << QVariant(day) << QVariant(day.addDays(-1)) << true;
        QTest::newRow("no first day") << K::PlainDate << QVariant(QDate()) << QVariant(day) << false;
        QTest::newRow("years") << K::Number << QVariant(1400) << QVariant(1399) << true;
        QTest::newRow("a year and any") << K::Number << QVariant(1400) << QVariant(0) << false;
        QTest::newRow("amounts") << K::Amount << QVariant(5e9) << QVariant(4e9) << true;
        QTest::newRow("amounts in order") << K::Amount << QVariant(4e9) << QVariant(5e9) << false;
    }

    void rangeThatEndsBeforeItBeginsIsFound()
    {
        QFETCH(K, kind);
        QFETCH(QVariant, from);
        QFETCH(QVariant, to);
        QFETCH(bool, backwards);
        for (const auto &[fromKey, toKey] : {std::pair(u"from"_s, u"to"_s), std::pair(u"soldFrom"_s, u"soldTo"_s)}) {
            QWidget box;
            auto *grid = new QGridLayout(&box);
            KFilterForm form({{.key = u"wasFrom"_s, .label = u"Was from :"_s, .kind = K::Text, .place = {0, 0}},
                              {.key = toKey, .label = u"To :"_s, .kind = kind, .place = {0, 4}, .accessibleName = u"Sold to :"_s},
                              {.key = fromKey, .label = u"Sold from :"_s, .kind = kind, .place = {0, 2}}},
                             {}, grid, &box);
            QVERIFY(!form.backwardsRange());
            form.set(fromKey, from);
            form.set(toKey, to);
            const auto found = form.backwardsRange();
            QCOMPARE(found.has_value(), backwards);
            if (!backwards)
                continue;
            QCOMPARE(found->line, form.control(fromKey));
            QCOMPARE(found->message, u"«Sold from» بزرگتر از «Sold to» است. لطفا اصلاح نمایید."_s);
        }
    }
};

static const RegisteredTest<TestKFilterForm, QApplication> registeredKFilterForm;
#include "TestKFilterForm.moc"

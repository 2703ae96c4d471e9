// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/cars/demands/DemandListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// A column of the list of demands that is off at first.
class TestFurtherDemandColumns : public DemandListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    void thePhoneIsTheMobileOrElseTheTelephone()
    {
        const int other = m_office->addPerson(u"رضا"_s, u"کریمی"_s);
        m_office->database().run(u"UPDATE Persons SET sMobile='09121112233',sTel='02133334444' WHERE iID=%1"_s.arg(m_person));
        m_office->database().run(u"UPDATE Persons SET sMobile='',sTel='02155556666' WHERE iID=%1"_s.arg(other));
        addDemand();
        addDemand([other](Demand &demand) { demand.m_iPersonID = other; });
        Page page;
        const ObservedStatements statements({u"SELECT"_s});
        page.open();
        QVERIFY(!page.list()->isColumnShown(u"phone"));
        QVERIFY(statements.taken().filter(u"sMobile"_s).isEmpty());
        page.list()->setColumnShown(u"phone", true);
        QCOMPARE(column(page, u"phone"), (QStringList{u"09121112233"_s, u"02155556666"_s}));
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"phone"));
        QCOMPARE(column(page, u"phone"), (QStringList{u"02155556666"_s, u"09121112233"_s}));
        page.list()->resetColumns();
    }
};

static const RegisteredTest<TestFurtherDemandColumns, QApplication> registeredFurtherDemandColumns;
#include "TestFurtherDemandColumns.moc"

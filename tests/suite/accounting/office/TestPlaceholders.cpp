// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/OfficeSession.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A session that no program holds.
const QString deadSession = u"dead"_s;

QStringList leftOnes()
{
    QStringList texts;
    for (const Placeholders::Row &row : Placeholders::left())
        texts.append(u"%1:%2"_s.arg(row.table).arg(row.key));
    return texts;
}

}

// Rows of editors that are open, and which of them their program has left behind.
class TestPlaceholders : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString keysOf(const KSql &condition)
    {
        return m_office->database.value(u"SELECT GROUP_CONCAT(iID ORDER BY iID) FROM Items WHERE "_s + condition.text());
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase()
    {
        GetDBSetting()->Logout();
        m_office.reset();
    }
    void init() { m_office->database.run(u"DELETE FROM Placeholders"_s); }

    void aSessionIsOneForTheLifeOfTheProgram()
    {
        const QString key = OfficeSession::key();
        QCOMPARE(key.size(), 36);
        QCOMPARE(OfficeSession::key(), key);
        QVERIFY(OfficeSession::isAlive(key));
        QVERIFY(!OfficeSession::isAlive(deadSession));
    }

    void aSessionEndsWithItsUser()
    {
        const QString key = OfficeSession::key();
        GetDBSetting()->Logout();
        QVERIFY(!OfficeSession::isAlive(key));
        GetDBSetting()->Login(m_office->admin);
        QVERIFY(OfficeSession::key() != key);
        QVERIFY(OfficeSession::isAlive(OfficeSession::key()));
    }

    void anAddedRowIsOneUntilItIsConfirmed()
    {
        Placeholders::add({u"Items"_s, 5}, OfficeSession::key());
        QVERIFY(Placeholders::contains({u"Items"_s, 5}));
        QVERIFY(!Placeholders::contains({u"Items"_s, 6}));
        QVERIFY(!Placeholders::contains({u"Persons"_s, 5}));
        Placeholders::confirm(u"Items"_s, 6);
        QVERIFY(Placeholders::contains({u"Items"_s, 5}));
        Placeholders::confirm(u"Items"_s, 5);
        QVERIFY(!Placeholders::contains({u"Items"_s, 5}));
    }

    void addedAndConfirmedJoinTheTransactionTheyAreIn()
    {
        const QString session = OfficeSession::key();
        {
            KTransaction givenUp;
            Placeholders::add({u"Items"_s, 5}, session);
        }
        QVERIFY(!Placeholders::contains({u"Items"_s, 5}));
        Placeholders::add({u"Items"_s, 5}, session);
        {
            KTransaction givenUp;
            Placeholders::confirm(u"Items"_s, 5);
        }
        QVERIFY(Placeholders::contains({u"Items"_s, 5}));
    }

    void theConditionLeavesThemOutOfTheirTableOnly()
    {
        m_office->database.run(u"DELETE FROM Items"_s);
        for (int key = 1; key <= 3; ++key)
            m_office->database.run(u"INSERT INTO Items(iID,iType) VALUES(%1,7)"_s.arg(key));
        Placeholders::add({u"Items"_s, 2}, OfficeSession::key());
        Placeholders::add({u"Persons"_s, 3}, deadSession);
        QCOMPARE(keysOf(Placeholders::none(u"Items"_s)), u"1,3"_s);
        QCOMPARE(m_office->database.value(u"SELECT GROUP_CONCAT(it.iID ORDER BY it.iID) FROM Items it WHERE "_s
                                          + Placeholders::none(u"Items"_s, u"it.iID"_s).text()),
                 u"1,3"_s);
    }

    void leftAreThoseWhoseProgramHasDied()
    {
        const auto elsewhere = KLease::tryTake(u"Session elsewhere"_s, u"another desk"_s);
        QVERIFY(elsewhere);
        Placeholders::add({u"Items"_s, 1}, OfficeSession::key());
        Placeholders::add({u"Items"_s, 2}, deadSession);
        Placeholders::add({u"Items"_s, 3}, u"elsewhere"_s);
        Placeholders::add({u"Persons"_s, 2}, deadSession);
        QCOMPARE(leftOnes(), (QStringList{u"Items:2"_s, u"Persons:2"_s}));
    }

    void onlyOneThatIsLeftAndFreeIsLocked()
    {
        Placeholders::add({u"Items"_s, 1}, OfficeSession::key());
        Placeholders::add({u"Items"_s, 2}, deadSession);
        // A second connection, as another desk has.
        constexpr int other = 1;
        KConnection::configure(other, KConnection::settings(0));
        KTransaction removing;
        QVERIFY(!Placeholders::lockLeft({u"Items"_s, 1}));
        QVERIFY(!Placeholders::lockLeft({u"Items"_s, 9}));
        QVERIFY(Placeholders::lockLeft({u"Items"_s, 2}));
        KTransaction beside(other);
        QVERIFY(!Placeholders::lockLeft({u"Items"_s, 2}, other));
    }
};

static const RegisteredTest<TestPlaceholders, QCoreApplication> registeredPlaceholders;
#include "TestPlaceholders.moc"

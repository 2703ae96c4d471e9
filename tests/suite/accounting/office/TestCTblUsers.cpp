// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

#include <ctime>

namespace {

QStringList *loggedLines = nullptr;

void keepLog(QtMsgType, const QMessageLogContext &, const QString &line)
{
    if (loggedLines)
        loggedLines->append(line);
}

// Processor time that a login takes, which the load of the machine does not change.
double verifyCost(const QString &user)
{
    const std::clock_t before = std::clock();
    (void)CTblUsers::verify(user, QStringLiteral("wrong"));
    return static_cast<double>(std::clock() - before);
}

}

class TestCTblUsers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void passwordOpensItsUserOnly_data();
    void passwordOpensItsUserOnly();
    void hashIsArgon2idAndHoldsNoPassword();
    void sameNameInAnotherCaseIsTaken();
    void emptyNameOrPasswordIsRefused();
    void inactiveUserIsRefused();
    void hashOfAnotherCostIsRenewedAtLogin();
    void unknownUserCostsAHashLikeAKnownOne();
    void changedPasswordReplacesTheOldOne();
    void passwordReachesNeitherLogNorStatement();
    void lastAdministratorIsKnown();

private:
    QString storedHash(int userID);

    TestOffice m_office;
};

void TestCTblUsers::cleanup()
{
    CTblUsers::setHashCost(CTblUsers::leastCost());
    KConnection::setStatementObserver({});
    m_office.database.run(QStringLiteral("DELETE FROM Users WHERE iID>%1").arg(m_office.clerk));
}

QString TestCTblUsers::storedHash(int userID)
{
    return m_office.database.value(QStringLiteral("SELECT sPasswordHash FROM Users WHERE iID=%1").arg(userID));
}

void TestCTblUsers::passwordOpensItsUserOnly_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("opens");
    const QString name = QStringLiteral("علی");
    QTest::newRow("right") << name << QStringLiteral("رمز123") << true;
    QTest::newRow("digits of a Persian keyboard") << name << QStringLiteral("رمز۱۲۳") << true;
    QTest::newRow("name with an Arabic yeh") << QStringLiteral("علي") << QStringLiteral("رمز123") << true;
    QTest::newRow("wrong") << name << QStringLiteral("رمز124") << false;
    QTest::newRow("other case") << name << QStringLiteral("رمز123 ") << false;
    QTest::newRow("empty") << name << QString() << false;
    QTest::newRow("unknown user") << QStringLiteral("رضا") << QStringLiteral("رمز123") << false;
    QTest::newRow("statement as a name") << QStringLiteral("x' OR '1'='1") << QStringLiteral("رمز123") << false;
}

void TestCTblUsers::passwordOpensItsUserOnly()
{
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(bool, opens);
    const int id = CTblUsers::create(QStringLiteral("علی"), QStringLiteral("رمز123"), QString(), false);
    QCOMPARE(CTblUsers::verify(user, password), opens ? std::optional<int>(id) : std::nullopt);
}

void TestCTblUsers::hashIsArgon2idAndHoldsNoPassword()
{
    const int first = CTblUsers::create(QStringLiteral("one"), QStringLiteral("same"), QString(), false);
    const int second = CTblUsers::create(QStringLiteral("two"), QStringLiteral("same"), QString(), false);
    QVERIFY(storedHash(first).startsWith(QStringLiteral("$argon2id$")));
    QVERIFY(!storedHash(first).contains(QStringLiteral("same")));
    QVERIFY(storedHash(first) != storedHash(second));
}

void TestCTblUsers::sameNameInAnotherCaseIsTaken()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::create(QStringLiteral("ADMIN"), QStringLiteral("x"), QString(), false));
}

void TestCTblUsers::emptyNameOrPasswordIsRefused()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::create(QStringLiteral("  "), QStringLiteral("x"), QString(), false));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::create(QStringLiteral("new"), QString(), QString(), false));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::setPassword(m_office.clerk, QString()));
    QVERIFY(!CTblUsers::verify(QStringLiteral("new"), QString()));
}

void TestCTblUsers::inactiveUserIsRefused()
{
    const int id = CTblUsers::create(QStringLiteral("gone"), QStringLiteral("x"), QString(), false);
    QCOMPARE(CTblUsers::verify(QStringLiteral("gone"), QStringLiteral("x")), std::optional<int>(id));
    m_office.database.run(QStringLiteral("UPDATE Users SET iStatus=1 WHERE iID=%1").arg(id));
    QVERIFY(!CTblUsers::verify(QStringLiteral("gone"), QStringLiteral("x")));
    QVERIFY(!GetDBSetting()->Login(id));
    QCOMPARE(GetDBSetting()->GetUserID(), m_office.admin);
}

void TestCTblUsers::hashOfAnotherCostIsRenewedAtLogin()
{
    const int id = CTblUsers::create(QStringLiteral("old"), QStringLiteral("x"), QString(), false);
    const QString before = storedHash(id);
    QVERIFY(CTblUsers::verify(QStringLiteral("old"), QStringLiteral("x")));
    QCOMPARE(storedHash(id), before);

    CTblUsers::setHashCost({2, 1024 * 1024});
    QVERIFY(!CTblUsers::verify(QStringLiteral("old"), QStringLiteral("wrong")));
    QCOMPARE(storedHash(id), before);
    QVERIFY(CTblUsers::verify(QStringLiteral("old"), QStringLiteral("x")));
    QVERIFY(storedHash(id).contains(QStringLiteral("m=1024,t=2")));
    QVERIFY(CTblUsers::verify(QStringLiteral("old"), QStringLiteral("x")));
}

void TestCTblUsers::unknownUserCostsAHashLikeAKnownOne()
{
    CTblUsers::setHashCost(CTblUsers::officeCost());
    CTblUsers::create(QStringLiteral("known"), QStringLiteral("x"), QString(), false);
    // The hash that stands for nobody is made at the first use.
    verifyCost(QStringLiteral("nobody"));
    const double known = verifyCost(QStringLiteral("known"));
    const double unknown = verifyCost(QStringLiteral("nobody"));
    // A name that is not there would cost next to nothing if no password were hashed for it.
    QVERIFY2(unknown > known / 4, qPrintable(QStringLiteral("%1 %2").arg(known).arg(unknown)));
}

void TestCTblUsers::changedPasswordReplacesTheOldOne()
{
    const int id = CTblUsers::create(QStringLiteral("moves"), QStringLiteral("old"), QString(), false);
    CTblUsers::setPassword(id, QStringLiteral("new"));
    QVERIFY(!CTblUsers::verify(QStringLiteral("moves"), QStringLiteral("old")));
    QCOMPARE(CTblUsers::verify(QStringLiteral("moves"), QStringLiteral("new")), std::optional<int>(id));
}

void TestCTblUsers::passwordReachesNeitherLogNorStatement()
{
    const QString password = QStringLiteral("verySecret99");
    QStringList lines;
    KConnection::setStatementObserver([&lines](const QString &statement) { lines.append(statement); });
    loggedLines = &lines;
    const QtMessageHandler before = qInstallMessageHandler(keepLog);
    const int id = CTblUsers::create(QStringLiteral("quiet"), password, QString(), false);
    (void)CTblUsers::verify(QStringLiteral("quiet"), password);
    CTblUsers::setPassword(id, password);
    bool refused = false;
    try {
        CTblUsers::create(QStringLiteral("quiet"), password, QString(), false);
    } catch (const KAccountingError &) {
        refused = true;
    }
    qInstallMessageHandler(before);
    loggedLines = nullptr;
    QVERIFY(refused);
    QVERIFY(lines.size() >= 4);
    QVERIFY(lines.filter(password).isEmpty());
}

void TestCTblUsers::lastAdministratorIsKnown()
{
    QVERIFY(CTblUsers::anyUser());
    QVERIFY(!CTblUsers::hasOtherAdmin(m_office.admin));
    CTblUsers::create(QStringLiteral("second"), QStringLiteral("x"), QString(), true);
    QVERIFY(CTblUsers::hasOtherAdmin(m_office.admin));
    m_office.database.run(QStringLiteral("UPDATE Users SET iStatus=1 WHERE sUser='second'"));
    QVERIFY(!CTblUsers::hasOtherAdmin(m_office.admin));
}

static const RegisteredTest<TestCTblUsers, QCoreApplication> registered;
#include "TestCTblUsers.moc"

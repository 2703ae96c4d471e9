// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/db/records/KChangeLog.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

#include <ctime>

using namespace Qt::StringLiterals;

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
    (void)CTblUsers::verify(user, u"wrong"_s);
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
    void renewedHashDoesNotUndoAChangedPassword();
    void unknownUserCostsAHashLikeAKnownOne();
    void changedPasswordReplacesTheOldOne();
    void passwordReachesNeitherLogNorStatement();
    void lastAdministratorIsKnown();
    void administratorIsChangedByAnAdministratorOnly();

private:
    QString storedHash(int userID);

    TestOffice m_office;
};

void TestCTblUsers::cleanup()
{
    CTblUsers::setHashCost(CTblUsers::leastCost());
    KConnection::setStatementObserver({});
    m_office.database.run(u"DELETE FROM Users WHERE iID>%1"_s.arg(m_office.clerk));
}

QString TestCTblUsers::storedHash(int userID)
{
    return m_office.database.value(u"SELECT sPasswordHash FROM Users WHERE iID=%1"_s.arg(userID));
}

void TestCTblUsers::passwordOpensItsUserOnly_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("opens");
    const QString name = u"علی"_s;
    QTest::newRow("right") << name << u"رمز123"_s << true;
    QTest::newRow("digits of a Persian keyboard") << name << u"رمز۱۲۳"_s << true;
    QTest::newRow("name with an Arabic yeh") << u"علي"_s << u"رمز123"_s << true;
    QTest::newRow("wrong") << name << u"رمز124"_s << false;
    QTest::newRow("other case") << name << u"رمز123 "_s << false;
    QTest::newRow("empty") << name << QString() << false;
    QTest::newRow("unknown user") << u"رضا"_s << u"رمز123"_s << false;
    QTest::newRow("statement as a name") << u"x' OR '1'='1"_s << u"رمز123"_s << false;
}

void TestCTblUsers::passwordOpensItsUserOnly()
{
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(bool, opens);
    const int id = CTblUsers::create(u"علی"_s, u"رمز123"_s, QString(), false);
    QCOMPARE(CTblUsers::verify(user, password), opens ? std::optional<int>(id) : std::nullopt);
}

void TestCTblUsers::hashIsArgon2idAndHoldsNoPassword()
{
    const int first = CTblUsers::create(u"one"_s, u"same"_s, QString(), false);
    const int second = CTblUsers::create(u"two"_s, u"same"_s, QString(), false);
    QVERIFY(storedHash(first).startsWith(u"$argon2id$"_s));
    QVERIFY(!storedHash(first).contains(u"same"_s));
    QVERIFY(storedHash(first) != storedHash(second));
}

void TestCTblUsers::sameNameInAnotherCaseIsTaken()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::create(u"ADMIN"_s, u"x"_s, QString(), false));
}

void TestCTblUsers::emptyNameOrPasswordIsRefused()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::create(u"  "_s, u"x"_s, QString(), false));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::create(u"new"_s, QString(), QString(), false));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::hashOf(QString()));
    QVERIFY(!CTblUsers::verify(u"new"_s, QString()));
}

void TestCTblUsers::inactiveUserIsRefused()
{
    const int id = CTblUsers::create(u"gone"_s, u"x"_s, QString(), false);
    QCOMPARE(CTblUsers::verify(u"gone"_s, u"x"_s), std::optional<int>(id));
    m_office.database.run(u"UPDATE Users SET iStatus=1 WHERE iID=%1"_s.arg(id));
    QVERIFY(!CTblUsers::verify(u"gone"_s, u"x"_s));
    QVERIFY(!GetDBSetting()->Login(id));
    QCOMPARE(GetDBSetting()->GetUserID(), m_office.admin);
}

void TestCTblUsers::hashOfAnotherCostIsRenewedAtLogin()
{
    const int id = CTblUsers::create(u"old"_s, u"x"_s, QString(), false);
    const QString before = storedHash(id);
    QVERIFY(CTblUsers::verify(u"old"_s, u"x"_s));
    QCOMPARE(storedHash(id), before);

    CTblUsers::setHashCost({2, 1024 * 1024});
    QVERIFY(!CTblUsers::verify(u"old"_s, u"wrong"_s));
    QCOMPARE(storedHash(id), before);
    QVERIFY(CTblUsers::verify(u"old"_s, u"x"_s));
    QVERIFY(storedHash(id).contains(u"m=1024,t=2"_s));
    QVERIFY(CTblUsers::verify(u"old"_s, u"x"_s));
}

// The login of one desk makes the hash anew while another desk changes the password.
void TestCTblUsers::renewedHashDoesNotUndoAChangedPassword()
{
    const int id = CTblUsers::create(u"changed"_s, u"x"_s, QString(), false);
    CTblUsers::setHashCost({2, 1024 * 1024});
    const QString changed = CTblUsers::hashOf(u"y"_s);
    KConnection::setStatementObserver([&](const QString &statement) {
        if (!statement.startsWith(u"START TRANSACTION"_s))
            return;
        KConnection::setStatementObserver({});
        m_office.database.run(u"UPDATE Users SET sPasswordHash='%1' WHERE iID=%2"_s.arg(changed).arg(id));
    });
    QVERIFY(CTblUsers::verify(u"changed"_s, u"x"_s));
    KConnection::setStatementObserver({});
    QCOMPARE(storedHash(id), changed);
    QVERIFY(CTblUsers::verify(u"changed"_s, u"y"_s));
}

void TestCTblUsers::unknownUserCostsAHashLikeAKnownOne()
{
    CTblUsers::setHashCost(CTblUsers::officeCost());
    CTblUsers::create(u"known"_s, u"x"_s, QString(), false);
    // The hash that stands for no user is made at first use.
    verifyCost(u"nobody"_s);
    const double known = verifyCost(u"known"_s);
    const double unknown = verifyCost(u"nobody"_s);
    // A name that is not there would cost next to nothing if no password were hashed for it.
    QVERIFY2(unknown > known / 4, qPrintable(u"%1 %2"_s.arg(known).arg(unknown)));
}

void TestCTblUsers::changedPasswordReplacesTheOldOne()
{
    const int id = CTblUsers::create(u"moves"_s, u"old"_s, QString(), false);
    QVERIFY(!CTblUsers::changePassword(id, u"guess"_s, u"new"_s));
    QCOMPARE(CTblUsers::verify(u"moves"_s, u"old"_s), std::optional<int>(id));
    QVERIFY(CTblUsers::changePassword(id, u"old"_s, u"new"_s));
    QVERIFY(!CTblUsers::verify(u"moves"_s, u"old"_s));
    QCOMPARE(CTblUsers::verify(u"moves"_s, u"new"_s), std::optional<int>(id));
}

void TestCTblUsers::passwordReachesNeitherLogNorStatement()
{
    const QString password = u"verySecret99"_s;
    QStringList lines;
    KConnection::setStatementObserver([&lines](const QString &statement) { lines.append(statement); });
    loggedLines = &lines;
    const QtMessageHandler before = qInstallMessageHandler(keepLog);
    const int id = CTblUsers::create(u"quiet"_s, password, QString(), false);
    (void)CTblUsers::verify(u"quiet"_s, password);
    QVERIFY(CTblUsers::changePassword(id, password, password));
    bool refused = false;
    try {
        CTblUsers::create(u"quiet"_s, password, QString(), false);
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
    CTblUsers::create(u"second"_s, u"x"_s, QString(), true);
    QVERIFY(CTblUsers::hasOtherAdmin(m_office.admin));
    m_office.database.run(u"UPDATE Users SET iStatus=1 WHERE sUser='second'"_s);
    QVERIFY(!CTblUsers::hasOtherAdmin(m_office.admin));
}

// A user may have been made an administrator, and an administrator something else, since the windows about them were opened.
void TestCTblUsers::administratorIsChangedByAnAdministratorOnly()
{
    const int second = CTblUsers::create(u"second"_s, u"x"_s, QString(), true);
    KChangeLog::setAuthor(m_office.clerk);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::setActive(second, false));
    KChangeLog::setAuthor(m_office.admin);
    CTblUsers::setActive(second, false);
    m_office.database.run(u"UPDATE Users SET bAdmin=0 WHERE iID=%1"_s.arg(m_office.admin));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblUsers::setActive(second, true));
    m_office.database.run(u"UPDATE Users SET bAdmin=1 WHERE iID=%1"_s.arg(m_office.admin));
}

static const RegisteredTest<TestCTblUsers, QCoreApplication> registeredCTblUsers;
#include "TestCTblUsers.moc"

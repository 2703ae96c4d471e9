// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/AccountChart.h"

#include "suite/accounting/books/chart/AccountCode.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

class TestAccountChart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void accountsAreAddedOnEveryLevel();
    void additionsThatAreRefused_data();
    void additionsThatAreRefused();
    void noDetailBelowAnAccountWithRowsOfItsOwn();
    void noDetailBecomesActiveAgainBelowAnAccountWithRowsOfItsOwn();
    void rename();
    void renameThatIsRefused_data();
    void renameThatIsRefused();
    void accountThatTheProgramPostsToStaysActive();
    void accountAboveAnActiveOneStaysActive();
    void accountBelowAnInactiveOneStaysInactive();
    void postableAccountsAreTheDeepest();
    void closedDatabaseIsRefused();
    void nameOfEveryLevel();

private:
    static QString refusalOf(const std::function<void()> &work);
    QString value(const QString &statement) { return m_office.database.value(statement); }
    static QList<int> postableCodes();

    TestOffice m_office;
};

namespace {

constexpr AccountLevel kol = AccountLevel::Kol;
constexpr AccountLevel moeen = AccountLevel::Moeen;
constexpr AccountLevel tafsily = AccountLevel::Tafsily;

const QString rentName = u"اجاره"_s;

// As the window of an account saves the name.
void renameAccount(int code, const QString &name)
{
    const std::unique_ptr<KMySQL> record = AccountChart::records(AccountCode::levelOf(code));
    QVERIFY(record->IsRecordExist(u"iCode"_s, code));
    RowEdit edit(*record, record->value(u"iID").toInt());
    edit.lockAs(AccountChart::lockName());
    edit.remember([] {});
    edit.save([&] { record->setValue(u"sName", name); }, [&] { AccountChart::settleName(*record); });
}

}

void TestAccountChart::init()
{
    GetDBSetting()->SetClosedDB(false);
    for (const char *statement : {"DELETE FROM Docs", "DELETE FROM Documents", "DELETE FROM HesabTafsily",
                                  "DELETE FROM HesabMoeen WHERE iHesabKolCode=6201", "DELETE FROM HesabKol WHERE iCode=6201"})
        m_office.database.run(QString::fromLatin1(statement));
    AccountChart::add(kol, 6201, u"هزینه‌های اداری"_s, 0);
    AccountChart::add(moeen, 620101, rentName, 6201);
    AccountChart::add(tafsily, 620101001, u"انبار"_s, 620101);
}

QString TestAccountChart::refusalOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

QList<int> TestAccountChart::postableCodes()
{
    QList<int> codes;
    for (const AccountChart::Account &account : AccountChart::postable())
        codes.append(account.code);
    return codes;
}

void TestAccountChart::accountsAreAddedOnEveryLevel()
{
    QCOMPARE(value(u"SELECT CONCAT_WS('/',iCode,sName,iStatus) FROM HesabKol WHERE iCode=6201"_s),
             u"6201/هزینه‌های اداری/0"_s);
    QCOMPARE(value(u"SELECT CONCAT_WS('/',iCode,sName,iStatus,iHesabKolCode) FROM HesabMoeen WHERE iCode=620101"_s),
             u"620101/اجاره/0/6201"_s);
    QCOMPARE(value(u"SELECT CONCAT_WS('/',iCode,sName,iStatus,iHesabMoeenCode) FROM HesabTafsily"_s),
             u"620101001/انبار/0/620101"_s);
}

void TestAccountChart::additionsThatAreRefused_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("parent");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *what, AccountLevel level, int code, const QString &name, int parent, const QString &message) {
        QTest::newRow(what) << static_cast<int>(level) << code << name << parent << message;
    };
    const QString name = u"تازه"_s;
    row("no name", kol, 6202, u"  "_s, 0, u"لطفا نام حساب را وارد نمایید."_s);
    row("general of three digits", kol, 620, name, 0, u"کد حساب کل باید چهار رقم باشد."_s);
    row("subsidiary of seven digits", moeen, 6201011, name, 6201, u"کد حساب معین باید شش رقم باشد."_s);
    row("detail of six digits", tafsily, 620101, name, 620101, u"کد حساب تفصیلی باید هفت تا نه رقم باشد."_s);
    row("not under its parent", moeen, 620201, name, 6201, u"کد حساب باید با 6201 آغاز شود."_s);
    row("code is taken", moeen, 620101, name, 6201, u"حساب 620101 وجود دارد."_s);
    row("no such parent", moeen, 990101, name, 9901, u"حساب بالاتر وجود ندارد."_s);
    row("name is taken beside it", moeen, 620102, u"اجاره "_s, 6201, u"حساب 620101 همین نام را دارد."_s);
    row("name is taken in another spelling", moeen, 620102, u"إجاره"_s, 6201,
        u"حساب 620101 همین نام را دارد."_s);
    row("below an account that the program posts to", tafsily, 410202001, name, 410202,
        u"برنامه خودش روی حساب «درآمد کمیسیون» سند می‌زند و زیر آن حساب تفصیلی ساخته نمی‌شود."_s);
}

void TestAccountChart::additionsThatAreRefused()
{
    QFETCH(int, level);
    QFETCH(int, code);
    QFETCH(QString, name);
    QFETCH(int, parent);
    const QString counts = u"SELECT CONCAT_WS('/',(SELECT COUNT(*) FROM HesabKol),(SELECT COUNT(*) FROM "
                           "HesabMoeen),(SELECT COUNT(*) FROM HesabTafsily))"_s;
    const QString before = value(counts);
    QTEST(refusalOf([&] { AccountChart::add(static_cast<AccountLevel>(level), code, name, parent); }), "message");
    QCOMPARE(value(counts), before);
}

void TestAccountChart::noDetailBelowAnAccountWithRowsOfItsOwn()
{
    AccountChart::add(moeen, 620102, u"آب و برق"_s, 6201);
    const QDateTime day(QDate(2026, 5, 1), QTime(0, 0), Qt::UTC);
    const int num = CTblDocuments::AddDoc(Accounts::documentKindManual, day, {}, 1405);
    CTblDocs::AddRecords(num, 1405, {{.account = 620102, .debit = 5}});
    QCOMPARE(refusalOf([] { AccountChart::add(tafsily, 620102001, u"آب"_s, 620102); }),
             u"حساب «آب و برق» خودش گردش دارد و زیر آن حساب تفصیلی ساخته نمی‌شود."_s);
    m_office.database.run(u"DELETE FROM Docs"_s);
    AccountChart::add(tafsily, 620102001, u"آب"_s, 620102);
}

// While no detail account is active, rows go to the subsidiary one; the report would lose them behind the detail account.
void TestAccountChart::noDetailBecomesActiveAgainBelowAnAccountWithRowsOfItsOwn()
{
    AccountChart::setActive(620101001, false);
    const QDateTime day(QDate(2026, 5, 1), QTime(0, 0), Qt::UTC);
    const int num = CTblDocuments::AddDoc(Accounts::documentKindManual, day, {}, 1405);
    CTblDocs::AddRecords(num, 1405, {{.account = 620101, .debit = 5}});
    QCOMPARE(refusalOf([] { AccountChart::setActive(620101001, true); }),
             u"حساب «اجاره» خودش گردش دارد و حساب تفصیلی زیر آن فعال نمی‌شود."_s);
    QCOMPARE(value(u"SELECT iStatus FROM HesabTafsily"_s), u"1"_s);
    m_office.database.run(u"DELETE FROM Docs"_s);
    AccountChart::setActive(620101001, true);
}

void TestAccountChart::rename()
{
    renameAccount(620101, u"اجاره‌ي  دفتر"_s);
    QCOMPARE(AccountChart::nameOf(620101), u"اجاره‌ی دفتر"_s);
    renameAccount(620101, u"اجاره‌ی دفتر"_s);
    // The program goes by the code; the name is the office's.
    renameAccount(Accounts::cash, u"صندوق مرکزی"_s);
    QCOMPARE(AccountChart::nameOf(Accounts::cash), u"صندوق مرکزی"_s);
    renameAccount(Accounts::cash, u"صندوق"_s);
}

void TestAccountChart::renameThatIsRefused_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("no name") << 620101 << QString() << u"لطفا نام حساب را وارد نمایید."_s;
    QTest::newRow("name of its neighbour") << int(Accounts::dutyPayable) << u"مالیات ارزش افزوده پرداختنی"_s
                                           << u"حساب 210501 همین نام را دارد."_s;
}

void TestAccountChart::renameThatIsRefused()
{
    QFETCH(int, code);
    QFETCH(QString, name);
    QTEST(refusalOf([&] { renameAccount(code, name); }), "message");
}

void TestAccountChart::accountThatTheProgramPostsToStaysActive()
{
    for (const int code : {int(Accounts::commissionIncome), int(Accounts::incomeKol), int(Accounts::persons)}) {
        QCOMPARE(refusalOf([code] { AccountChart::setActive(code, false); }),
                 u"برنامه خودش روی این حساب سند می‌زند و غیرفعال نمی‌شود."_s);
    }
    QCOMPARE(value(u"SELECT (SELECT SUM(iStatus) FROM HesabMoeen)+(SELECT SUM(iStatus) FROM HesabKol)"_s),
             u"0"_s);
}

void TestAccountChart::accountAboveAnActiveOneStaysActive()
{
    QCOMPARE(refusalOf([] { AccountChart::setActive(6201, false); }),
             u"ابتدا حساب «اجاره» را که زیر این حساب است غیرفعال نمایید."_s);
    AccountChart::setActive(620101001, false);
    AccountChart::setActive(620101, false);
    AccountChart::setActive(6201, false);
    QCOMPARE(value(u"SELECT CONCAT((SELECT iStatus FROM HesabKol WHERE iCode=6201),(SELECT iStatus FROM HesabMoeen "
                   "WHERE iCode=620101),(SELECT iStatus FROM HesabTafsily))"_s),
             u"111"_s);
}

void TestAccountChart::accountBelowAnInactiveOneStaysInactive()
{
    for (const int code : {620101001, 620101, 6201})
        AccountChart::setActive(code, false);
    QCOMPARE(refusalOf([] { AccountChart::setActive(620101, true); }), u"ابتدا حساب «هزینه‌های اداری» را فعال نمایید."_s);
    QCOMPARE(refusalOf([] { AccountChart::add(moeen, 620105, u"تازه"_s, 6201); }),
             u"حساب «هزینه‌های اداری» غیرفعال است."_s);
    AccountChart::setActive(6201, true);
    AccountChart::setActive(620101, true);
    QVERIFY(postableCodes().contains(620101));
}

void TestAccountChart::postableAccountsAreTheDeepest()
{
    QVERIFY(postableCodes().contains(620101001));
    QVERIFY(!postableCodes().contains(620101));
    QVERIFY(postableCodes().contains(Accounts::cash));
    QVERIFY(!postableCodes().contains(6201));
    AccountChart::setActive(620101001, false);
    QVERIFY(postableCodes().contains(620101));
    QVERIFY(!postableCodes().contains(620101001));
    AccountChart::setActive(620101, false);
    QVERIFY(!postableCodes().contains(620101));
    AccountChart::setActive(620101, true);
    m_office.database.run(u"UPDATE HesabKol SET iStatus=1 WHERE iCode=6201"_s);
    QVERIFY(!postableCodes().contains(620101));
}

void TestAccountChart::closedDatabaseIsRefused()
{
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!refusalOf([] { AccountChart::add(kol, 6202, u"تازه"_s, 0); }).isEmpty());
    QVERIFY(!refusalOf([] { renameAccount(6201, u"دیگر"_s); }).isEmpty());
    QVERIFY(!refusalOf([] { AccountChart::setActive(620101001, false); }).isEmpty());
    GetDBSetting()->SetClosedDB(false);
    QCOMPARE(AccountChart::nameOf(6201), u"هزینه‌های اداری"_s);
}

void TestAccountChart::nameOfEveryLevel()
{
    QCOMPARE(AccountChart::nameOf(6201), u"هزینه‌های اداری"_s);
    QCOMPARE(AccountChart::nameOf(620101), rentName);
    QCOMPARE(AccountChart::nameOf(620101001), u"انبار"_s);
    QVERIFY(AccountChart::nameOf(9999).isEmpty());
}

static const RegisteredTest<TestAccountChart, QCoreApplication> registeredAccountChart;
#include "TestAccountChart.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/followups/CDlgFollowUp.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/treasury/records/ReceiptOwners.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QtTest>

#include <thread>

using namespace Qt::StringLiterals;

using FormDriver::field;

namespace {

const QString followUpForm = u"AutomobilPayments"_s;

// Stands for the contracts: locks the person of that key, so that two units of one record come one after the other.
class FollowedOwner : public ReceiptOwner
{
public:
    QList<OpenItem> openItems(int, CTblReceipts::Kind) const override { return {}; }
    void lock(int recordID, bool mustExist) const override
    {
        if (mustExist && recordID == 404)
            throw KAccountingError(u"قرارداد حذف شده است."_s);
    }
    void recount(const CTblReceipts &) const override { }
};

}

// Notes about what is due, and the window that adds them.
class TestFollowUps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void noteIsKeptWithUserTimeAndPromise();
    void historyIsOfTheWholeRecordLatestFirst();
    void noteThatMayNotBeIsRefused_data();
    void noteThatMayNotBeIsRefused();
    void goneRecordIsTold();
    void whatIsRequiredComesBeforeTheNote();
    void closedDatabaseRefuses();
    void rightTakenAwayMeanwhileRefuses();
    void deletedWithItsRecord();
    void twoDesksAddBoth();
    void windowAddsOnceAndShowsTheHistory();
    void wrongEntriesKeepTheWindowAndWhatWasTyped();
    void windowNeedsRightAndOpenDatabase();
    void everyInputHasAName();

private:
    static CTblFollowUps::Subject subject(int payment = 5, int record = 12)
    {
        return {RecordKind::AutomobilContract, record, payment, followUpForm};
    }
    QString value(const QString &query) { return m_office.database.value(query); }

    TestOffice m_office;
    FollowedOwner m_owner;
};

void TestFollowUps::initTestCase()
{
    ReceiptOwners::enter(RecordKind::AutomobilContract, m_owner);
}

void TestFollowUps::cleanupTestCase()
{
    ReceiptOwners::remove(RecordKind::AutomobilContract);
}

void TestFollowUps::init()
{
    m_office.database.run(u"DELETE FROM FollowUps"_s);
    GetDBSetting()->Login(m_office.admin);
    KSecurity::forgetRights();
    g_pDlgWarning->takeShown();
}

void TestFollowUps::noteIsKeptWithUserTimeAndPromise()
{
    const QDateTime promised = GetDBSetting()->GetDBServerDate().addDays(3);
    const int key = CTblFollowUps::add(subject(), u"  فردا می‌آید "_s, promised);
    QVERIFY(key > 0);
    QCOMPARE(value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iPaymentID,sNote,iUserID,DATE(datePromised)=DATE(NOW())+INTERVAL 3 DAY,"
                   "ABS(TIMESTAMPDIFF(MINUTE,date,NOW()))<2) FROM FollowUps WHERE iID=%1"_s.arg(key)),
             u"69|12|5|فردا می‌آید|%1|1|1"_s.arg(m_office.admin));
}

void TestFollowUps::historyIsOfTheWholeRecordLatestFirst()
{
    CTblFollowUps::add(subject(5), u"اول"_s, {});
    CTblFollowUps::add(subject(6), u"دوم"_s, {});
    CTblFollowUps::add(subject(5, 13), u"قرارداد دیگر"_s, {});
    const QList<CTblFollowUps::Entry> entries = CTblFollowUps::history(RecordKind::AutomobilContract, 12);
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(0).note, u"دوم"_s);
    QCOMPARE(entries.at(0).paymentID, 6);
    QCOMPARE(entries.at(1).user, u"مدیر"_s);
    QVERIFY(!entries.at(1).promised.isValid());
}

void TestFollowUps::noteThatMayNotBeIsRefused_data()
{
    QTest::addColumn<QString>("note");
    QTest::addColumn<int>("days"); // to the promise; 99: none
    QTest::addColumn<QString>("column");
    QTest::newRow("nothing") << QString() << 99 << u"sNote"_s;
    QTest::newRow("blanks") << u"   "_s << 99 << u"sNote"_s;
    QTest::newRow("yesterday") << u"قول داد"_s << -1 << u"datePromised"_s;
    QTest::newRow("today") << u"قول داد"_s << 0 << QString();
    QTest::newRow("promise alone") << QString() << 1 << QString();
}

void TestFollowUps::noteThatMayNotBeIsRefused()
{
    QFETCH(QString, note);
    QFETCH(int, days);
    QFETCH(QString, column);
    const QDateTime promised = days == 99 ? QDateTime() : QDateTime(GetDBSetting()->GetDBServerDate().date().addDays(days), QTime(0, 0), Qt::UTC);
    QString refused;
    try {
        CTblFollowUps::add(subject(), note, promised);
    } catch (const FieldRefused &refusal) {
        refused = refusal.column();
    }
    QCOMPARE(refused, column);
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), column.isEmpty() ? u"1"_s : u"0"_s);
}

void TestFollowUps::goneRecordIsTold()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::add(subject(5, 404), u"آمد"_s, {}));
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestFollowUps::whatIsRequiredComesBeforeTheNote()
{
    CTblFollowUps::Subject known = subject();
    QString notes;
    known.require = [&] { notes = value(u"SELECT COUNT(*) FROM FollowUps"_s); };
    CTblFollowUps::add(known, u"آمد"_s, {});
    QCOMPARE(notes, u"0"_s);
    known.require = [] { throw KAccountingError(u"این قسط دیگر نیست."_s); };
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::add(known, u"نیامد"_s, {}));
    QCOMPARE(value(u"SELECT GROUP_CONCAT(sNote) FROM FollowUps"_s), u"آمد"_s);
}

void TestFollowUps::closedDatabaseRefuses()
{
    GetDBSetting()->SetClosedDB(true);
    bool refused = false;
    try {
        CTblFollowUps::add(subject(), u"آمد"_s, {});
    } catch (const KAccountingError &) {
        refused = true;
    }
    GetDBSetting()->SetClosedDB(false);
    QVERIFY(refused);
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestFollowUps::rightTakenAwayMeanwhileRefuses()
{
    KSecurity::setRights(m_office.clerk, followUpForm, KSecurity::Access | KSecurity::Write);
    GetDBSetting()->Login(m_office.clerk);
    CDlgFollowUp window(subject(), u"مریم کریمی"_s);
    window.show();
    field<KEdit>(&window, u"یادداشت تماس :"_s)->setText(u"آمد"_s);
    KSecurity::setRights(m_office.clerk, followUpForm, 0);
    window.accept();
    QVERIFY(window.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(followUpForm, KSecurity::Write)});
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestFollowUps::deletedWithItsRecord()
{
    CTblFollowUps::add(subject(), u"آمد"_s, {});
    CTblFollowUps::add(subject(5, 13), u"نیامد"_s, {});
    CTblFollowUps::deleteOf(RecordKind::AutomobilContract, 12);
    QCOMPARE(value(u"SELECT GROUP_CONCAT(iRecordID) FROM FollowUps"_s), u"13"_s);
}

// Neither overwrites the other's note: each is a row of its own.
void TestFollowUps::twoDesksAddBoth()
{
    CDlgFollowUp here(subject(), u"مریم کریمی"_s);
    here.show();
    field<KEdit>(&here, u"یادداشت تماس :"_s)->setText(u"این میز"_s);
    std::thread other([] { CTblFollowUps::add(subject(), u"میز دیگر"_s, {}); });
    other.join();
    here.accept();
    QVERIFY(!here.isVisible());
    QCOMPARE(value(u"SELECT GROUP_CONCAT(sNote ORDER BY iID) FROM FollowUps"_s), u"میز دیگر,این میز"_s);
}

void TestFollowUps::windowAddsOnceAndShowsTheHistory()
{
    CTblFollowUps::add(subject(6), u"قبلی"_s, {});
    CDlgFollowUp window(subject(), u"مریم کریمی     قسط شماره 2"_s);
    window.show();
    QCOMPARE(window.history()->count(), 1);
    QCOMPARE(window.history()->cellText(0, 2), u"قبلی"_s);
    QCOMPARE(window.history()->cellText(0, 4), u"ردیف دیگر"_s);
    field<KEdit>(&window, u"یادداشت تماس :"_s)->setText(u"هفته آینده"_s);
    field<KDateEdit>(&window, u"وعده پرداخت :"_s)->setDate(GetDBSetting()->GetDBServerDate().date().addDays(7));
    window.accept();
    window.accept();
    QVERIFY(!window.isVisible());
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps WHERE iPaymentID=5 AND datePromised IS NOT NULL"_s), u"1"_s);
}

void TestFollowUps::wrongEntriesKeepTheWindowAndWhatWasTyped()
{
    CDlgFollowUp window(subject(), u"مریم کریمی"_s);
    window.show();
    auto *note = field<KEdit>(&window, u"یادداشت تماس :"_s);
    auto *promised = field<KDateEdit>(&window, u"وعده پرداخت :"_s);
    window.accept();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(window.focusWidget(), note);
    note->setText(u"قول داد"_s);
    promised->setText(u"1405/13/1"_s);
    window.accept();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(window.focusWidget(), promised);
    promised->setDate(GetDBSetting()->GetDBServerDate().date().addDays(-1));
    window.accept();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(window.focusWidget(), promised);
    QVERIFY(window.isVisible());
    QCOMPARE(note->text(), u"قول داد"_s);
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestFollowUps::windowNeedsRightAndOpenDatabase()
{
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!CDlgFollowUp::run(subject(), {}, nullptr));
    GetDBSetting()->SetClosedDB(false);
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    GetDBSetting()->Login(m_office.clerk);
    QVERIFY(!CDlgFollowUp::run(subject(), {}, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(followUpForm, KSecurity::Write)});
}

void TestFollowUps::everyInputHasAName()
{
    CDlgFollowUp window(subject(), u"مریم کریمی"_s);
    QVERIFY(FormDriver::everyInputHasAName(&window));
}

static const RegisteredTest<TestFollowUps, QApplication> registeredFollowUps;
#include "TestFollowUps.moc"

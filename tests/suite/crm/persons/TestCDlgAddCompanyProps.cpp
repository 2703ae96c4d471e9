// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgAddCompanyProps.h"

#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/history/CDlgHistory.h"
#include "suite/accounting/history/HistoryRows.h"
#include "suite/accounting/history/HistoryWords.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestCDlgAddCompanyProps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init();
    void everyFieldIsKept();
    void whatChangedIsNotedByItsLabel();
    void nameIsRequired();
    void hintsFollowTheKind();
    void cancelWritesNothing();
    void closedDatabaseRefuses();
    void twoDesks_data() { TwoDesks::addCases(false); }
    void twoDesks();
    void closedMeanwhileIsToldWithWhoClosedIt();

private:
    static QList<QPair<QString, QString>> entries();

    Office m_office;
};

void TestCDlgAddCompanyProps::init()
{
    m_office.reset();
    m_office.db.run(u"DELETE FROM Properties WHERE sSection='Company'"_s);
}

QList<QPair<QString, QString>> TestCDlgAddCompanyProps::entries()
{
    return {
        {u"نام :"_s, u"نمایشگاه"_s},
        {u"دنباله نام :"_s, u"البرز"_s},
        {u"مدیر :"_s, u"رضا کریمی"_s},
        {u"کد ملی / شناسه ملی :"_s, u"10380284790"_s},
        {u"شماره ثبت :"_s, u"12"_s},
        {u"کد اقتصادی :"_s, u"411"_s},
        {u"موبایل :"_s, u"09121234567"_s},
        {u"تلفن :"_s, u"021"_s},
        {u"کد پستی :"_s, u"123"_s},
        {u"استان :"_s, u"تهران"_s},
        {u"شهر :"_s, u"ری"_s},
        {u"آدرس :"_s, u"خیابان آزادی"_s},
    };
}

void TestCDlgAddCompanyProps::everyFieldIsKept()
{
    Hand::inNextWindow([](QDialog *window) {
        for (const auto &[name, text] : entries())
            Hand::named<KEdit>(window, name)->setText(text);
        Hand::named<QComboBox>(window, u"نوع شخص :"_s)->setCurrentIndex(1);
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    CDlgAddCompanyProps dialog;
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Accepted));
    const CompanyDetails stored = CompanyDetails::read();
    QCOMPARE(stored.name(), u"نمایشگاه البرز"_s);
    QCOMPARE(stored.manager, u"رضا کریمی"_s);
    QCOMPARE(stored.nationalCode, u"10380284790"_s);
    QCOMPARE(stored.registrationNumber, u"12"_s);
    QCOMPARE(stored.economicCode, u"411"_s);
    QCOMPARE(stored.mobile, u"09121234567"_s);
    QCOMPARE(stored.telephone, u"021"_s);
    QCOMPARE(stored.postalCode, u"123"_s);
    QCOMPARE(stored.province, u"تهران"_s);
    QCOMPARE(stored.city, u"ری"_s);
    QCOMPARE(stored.address, u"خیابان آزادی"_s);
    QCOMPARE(stored.kind, CompanyDetails::kindLegal);
    CDlgAddCompanyProps again;
    QVERIFY(again.details() == stored);
}

void TestCDlgAddCompanyProps::whatChangedIsNotedByItsLabel()
{
    OfficeSubjects::enter();
    m_office.db.run(u"DELETE FROM Changes"_s);
    const auto save = [](const QString &label, const QString &text, int kind) {
        CDlgAddCompanyProps dialog;
        dialog.show();
        Hand::named<KEdit>(&dialog, label)->setText(text);
        Hand::named<QComboBox>(&dialog, u"نوع شخص :"_s)->setCurrentIndex(kind);
        dialog.accept();
        return dialog.result() == QDialog::Accepted;
    };
    const auto last = [] {
        const QList<HistoryEntry> entries = HistoryRows::read("sTable='Properties:Company'");
        return entries.isEmpty() ? QString() : HistoryWords::sentence(entries.constFirst());
    };
    QVERIFY(save(u"نام :"_s, u"نمایشگاه"_s, 1));
    QVERIFY2(last().contains(u"نام : (خالی) ← نمایشگاه"_s) && last().contains(u"نوع شخص : (خالی) ← حقوقی"_s), qPrintable(last()));
    m_office.db.run(u"DELETE FROM Changes"_s);
    QVERIFY(save(u"شماره ثبت :"_s, u"1"_s, 0));
    QCOMPARE(last(), u"شماره ثبت : (خالی) ← 1؛ نوع شخص : حقوقی ← حقیقی"_s);
    m_office.db.run(u"DELETE FROM Changes"_s);
    QVERIFY(save(u"شماره ثبت :"_s, u"1"_s, 0));
    QVERIFY(last().isEmpty());
    RecordHistory::setWindow(&CDlgHistory::Show);
    const auto reset = qScopeGuard([] { RecordHistory::setWindow(nullptr); });
    CDlgAddCompanyProps administrators;
    QVERIFY(Hand::named<QPushButton>(&administrators, RecordHistory::caption()));
    m_office.loginClerk();
    CDlgAddCompanyProps clerks;
    QVERIFY(!Hand::named<QPushButton>(&clerks, RecordHistory::caption()));
}

void TestCDlgAddCompanyProps::nameIsRequired()
{
    CDlgAddCompanyProps dialog;
    dialog.show();
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نام نمایشگاه را وارد نمایید."_s});
    QVERIFY(CompanyDetails::read() == CompanyDetails());
}

void TestCDlgAddCompanyProps::hintsFollowTheKind()
{
    CDlgAddCompanyProps dialog;
    dialog.show();
    auto *code = Hand::named<KEdit>(&dialog, u"کد ملی / شناسه ملی :"_s);
    code->setText(u"10380284790"_s);
    QVERIFY(code->accessibleDescription().contains(u"ده"_s));
    Hand::named<QComboBox>(&dialog, u"نوع شخص :"_s)->setCurrentIndex(1);
    QCOMPARE(code->accessibleDescription(), QString());
}

void TestCDlgAddCompanyProps::cancelWritesNothing()
{
    Hand::inNextWindow([](QDialog *window) {
        Hand::named<KEdit>(window, u"نام :"_s)->setText(u"الف"_s);
        Hand::press(Qt::Key_Escape);
    });
    CDlgAddCompanyProps dialog;
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Rejected));
    QVERIFY(CompanyDetails::read().isEmpty());
}

void TestCDlgAddCompanyProps::closedDatabaseRefuses()
{
    CDlgAddCompanyProps dialog;
    dialog.show();
    Hand::named<KEdit>(&dialog, u"نام :"_s)->setText(u"الف"_s);
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, dialog.OnOK());
    QVERIFY(CompanyDetails::read().isEmpty());
}

void TestCDlgAddCompanyProps::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    const auto other = [](void (*change)(CompanyDetails &)) {
        CompanyDetails details = CompanyDetails::read();
        change(details);
        details.write();
    };
    TwoDesks({
                 .reset = [&] { other([](CompanyDetails &details) { details.name1 = u"البرز"_s; }); },
                 .open = [] { return std::make_unique<CDlgAddCompanyProps>(); },
                 .enter = [](KDialog &window) { Hand::named<KEdit>(&window, u"نام :"_s)->setText(u"الوند"_s); },
                 .changeOther = [&] { other([](CompanyDetails &details) { details.kind = CompanyDetails::kindLegal; }); },
                 .changeSame = [&] { other([](CompanyDetails &details) { details.name1 = u"دنا"_s; }); },
                 .stored = [] { return u"%1/%2"_s.arg(CompanyDetails::read().name1).arg(CompanyDetails::read().kind); },
                 .merged = u"الوند/2"_s,
                 .theirs = u"دنا/1"_s,
                 .mine = u"الوند/1"_s,
             })
        .check(what);
}

void TestCDlgAddCompanyProps::closedMeanwhileIsToldWithWhoClosedIt()
{
    CDlgAddCompanyProps dialog;
    dialog.show();
    Hand::named<KEdit>(&dialog, u"نام :"_s)->setText(u"الف"_s);
    // Between the look and the unit of work.
    KConnection::setStatementObserver([this](const QString &statement) {
        if (!statement.startsWith(u"START TRANSACTION"_s))
            return;
        KConnection::setStatementObserver({});
        m_office.db.run(u"REPLACE INTO Properties(sSection,sKey,sValue) VALUES('Database','bClosed','1')"_s);
        m_office.db.run(u"INSERT INTO Changes(sTable,iRecordID,iKind,iUserID,date) "
                        "SELECT 'Properties:Database',0,1,iID,NOW() FROM Users WHERE sUser='clerk'"_s);
    });
    QVERIFY(!dialog.OnOK());
    KConnection::setStatementObserver({});
    const QStringList told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"«clerk»"_s), qPrintable(told.constFirst()));
    QVERIFY(CompanyDetails::read().isEmpty());
    QCOMPARE(Hand::named<KEdit>(&dialog, u"نام :"_s)->text(), u"الف"_s);
}

static const RegisteredTest<TestCDlgAddCompanyProps, QApplication> registeredCDlgAddCompanyProps;
#include "TestCDlgAddCompanyProps.moc"

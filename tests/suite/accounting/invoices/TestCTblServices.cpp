// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/CTblServices.h"

#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

#include <atomic>
#include <functional>
#include <thread>

using namespace Qt::StringLiterals;

class TestCTblServices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void codesAreProposedBehindTheHighest();
    void nameIsKeptInStandardForm();
    void refusals_data();
    void refusals();
    void ownNameAndCodeMayStay();
    void changeOfAMissingServiceIsRefused();
    void serviceOnAnInvoiceIsNotDeleted();
    void serviceThatAnInvoiceBeginsToUseIsNotDeleted();
    void unusedServiceIsDeleted();

private:
    static QString refusalOf(const std::function<void()> &work);

    TestOffice m_office;
};

namespace {

// As the window of a service saves it.
void change(int id, int code, const QString &name)
{
    CTblServices service;
    RowEdit edit(service, id);
    if (service.IsRecordExist(u"iID"_s, id))
        edit.remember([] {});
    edit.save(
        [&] {
            service.m_iCode = code;
            service.m_sName = name;
        },
        [&] { service.settle(id); });
}

}

void TestCTblServices::init()
{
    m_office.database.run(u"TRUNCATE TABLE Services"_s);
    m_office.database.run(u"TRUNCATE TABLE FactorStuffs"_s);
    CTblServices::add(10, u"کارشناسی خودرو"_s);
    CTblServices::add(25, u"انتقال سند"_s);
}

QString TestCTblServices::refusalOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

void TestCTblServices::codesAreProposedBehindTheHighest()
{
    QCOMPARE(CTblServices::nextCode(), 26);
    m_office.database.run(u"DELETE FROM Services"_s);
    QCOMPARE(CTblServices::nextCode(), 1);
}

void TestCTblServices::nameIsKeptInStandardForm()
{
    const int id = CTblServices::add(26, u"  شست و  شوي بدنه "_s);
    QCOMPARE(m_office.database.value(u"SELECT sName FROM Services WHERE iID=%1"_s.arg(id)),
             u"شست و شوی بدنه"_s);
}

void TestCTblServices::refusals_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    const QString name = u"بیمه"_s;
    QTest::newRow("no name") << 30 << u"  "_s << u"لطفا نام خدمت را وارد نمایید."_s;
    QTest::newRow("no code") << 0 << name << u"لطفا کد خدمت را وارد نمایید."_s;
    QTest::newRow("code is taken") << 10 << name << u"کد 10 از آن خدمت «کارشناسی خودرو» است."_s;
    QTest::newRow("name is taken in another spelling") << 30 << u"کارشناسي  خودرو"_s
                                                       << u"خدمتی به نام «کارشناسی خودرو» وجود دارد."_s;
}

void TestCTblServices::refusals()
{
    QFETCH(int, code);
    QFETCH(QString, name);
    QTEST(refusalOf([&] { CTblServices::add(code, name); }), "message");
    QTEST(refusalOf([&] { change(2, code, name); }), "message");
    QCOMPARE(m_office.database.value(u"SELECT GROUP_CONCAT(iCode,sName ORDER BY iID) FROM Services"_s),
             u"10کارشناسی خودرو,25انتقال سند"_s);
}

void TestCTblServices::ownNameAndCodeMayStay()
{
    change(1, 10, u"کارشناسی خودرو"_s);
    change(1, 11, u"کارشناسی"_s);
    QCOMPARE(m_office.database.value(u"SELECT CONCAT(iCode,sName) FROM Services WHERE iID=1"_s),
             u"11کارشناسی"_s);
}

void TestCTblServices::changeOfAMissingServiceIsRefused()
{
    QVERIFY(refusalOf([] { change(9, 40, u"بیمه"_s); }).contains(u"حذف کرده است"_s));
    QVERIFY(refusalOf([] { CTblServices::remove(9); }).contains(u"حذف کرده است"_s));
}

void TestCTblServices::serviceOnAnInvoiceIsNotDeleted()
{
    m_office.database.run(u"INSERT INTO FactorStuffs(iFactorNum,iType,iServiceID) VALUES(12,7,1)"_s);
    QCOMPARE(refusalOf([] { CTblServices::remove(1); }),
             u"این خدمت در فاکتور شماره 12 به کار رفته است و حذف نمی‌شود."_s);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Services"_s), u"2"_s);
}

// An invoice that is being written holds its services until it is saved.
void TestCTblServices::serviceThatAnInvoiceBeginsToUseIsNotDeleted()
{
    const int person = m_office.addPerson(u"علی"_s);
    Invoice invoice;
    invoice.personID = person;
    invoice.date = GetDBSetting()->GetDBServerDate();
    invoice.lines = {{1, {}, 1, 100}};
    QString refusal;
    std::atomic<bool> done{false};
    std::thread other;
    {
        KTransaction transaction;
        InvoicePosting::save(invoice);
        other = std::thread([&] {
            refusal = refusalOf([] { CTblServices::remove(1); });
            done = true;
            KConnection::closeThreadConnections();
        });
        QTest::qWait(300);
        QVERIFY(!done);
        transaction.commit();
    }
    other.join();
    QVERIFY2(refusal.contains(u"به کار رفته است"_s), qPrintable(refusal));
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Services"_s), u"2"_s);
}

void TestCTblServices::unusedServiceIsDeleted()
{
    CTblServices::remove(1);
    QCOMPARE(m_office.database.value(u"SELECT GROUP_CONCAT(iID) FROM Services"_s), u"2"_s);
}

static const RegisteredTest<TestCTblServices, QCoreApplication> registeredCTblServices;
#include "TestCTblServices.moc"

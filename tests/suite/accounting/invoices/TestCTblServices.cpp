// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/CTblServices.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

#include <functional>

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
    void unusedServiceIsDeleted();

private:
    static QString refusalOf(const std::function<void()> &work);

    TestOffice m_office;
};

void TestCTblServices::init()
{
    m_office.database.run(QStringLiteral("TRUNCATE TABLE Services"));
    m_office.database.run(QStringLiteral("TRUNCATE TABLE FactorStuffs"));
    CTblServices::add(10, QStringLiteral("کارشناسی خودرو"));
    CTblServices::add(25, QStringLiteral("انتقال سند"));
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
    m_office.database.run(QStringLiteral("DELETE FROM Services"));
    QCOMPARE(CTblServices::nextCode(), 1);
}

void TestCTblServices::nameIsKeptInStandardForm()
{
    const int id = CTblServices::add(26, QStringLiteral("  شست و  شوي بدنه "));
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT sName FROM Services WHERE iID=%1").arg(id)),
             QStringLiteral("شست و شوی بدنه"));
}

void TestCTblServices::refusals_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    const QString name = QStringLiteral("بیمه");
    QTest::newRow("no name") << 30 << QStringLiteral("  ") << QStringLiteral("لطفا نام خدمت را وارد نمایید.");
    QTest::newRow("no code") << 0 << name << QStringLiteral("لطفا کد خدمت را وارد نمایید.");
    QTest::newRow("code is taken") << 10 << name << QStringLiteral("کد 10 از آن خدمت «کارشناسی خودرو» است.");
    QTest::newRow("name is taken in another spelling") << 30 << QStringLiteral("کارشناسي  خودرو")
                                                       << QStringLiteral("خدمتی به نام «کارشناسی خودرو» وجود دارد.");
}

void TestCTblServices::refusals()
{
    QFETCH(int, code);
    QFETCH(QString, name);
    QTEST(refusalOf([&] { CTblServices::add(code, name); }), "message");
    QTEST(refusalOf([&] { CTblServices::change(2, code, name); }), "message");
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT GROUP_CONCAT(iCode,sName ORDER BY iID) FROM Services")),
             QStringLiteral("10کارشناسی خودرو,25انتقال سند"));
}

void TestCTblServices::ownNameAndCodeMayStay()
{
    CTblServices::change(1, 10, QStringLiteral("کارشناسی خودرو"));
    CTblServices::change(1, 11, QStringLiteral("کارشناسی"));
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT CONCAT(iCode,sName) FROM Services WHERE iID=1")),
             QStringLiteral("11کارشناسی"));
}

void TestCTblServices::changeOfAMissingServiceIsRefused()
{
    QCOMPARE(refusalOf([] { CTblServices::change(9, 40, QStringLiteral("بیمه")); }), QStringLiteral("این خدمت دیگر وجود ندارد."));
}

void TestCTblServices::serviceOnAnInvoiceIsNotDeleted()
{
    m_office.database.run(QStringLiteral("INSERT INTO FactorStuffs(iFactorNum,iType,iServiceID) VALUES(12,7,1)"));
    QCOMPARE(refusalOf([] { CTblServices::remove(1); }),
             QStringLiteral("این خدمت در فاکتور شماره 12 به کار رفته است و حذف نمی‌شود."));
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT COUNT(*) FROM Services")), QStringLiteral("2"));
}

void TestCTblServices::unusedServiceIsDeleted()
{
    CTblServices::remove(1);
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT GROUP_CONCAT(iID) FROM Services")), QStringLiteral("2"));
}

static const RegisteredTest<TestCTblServices, QCoreApplication> registered;
#include "TestCTblServices.moc"

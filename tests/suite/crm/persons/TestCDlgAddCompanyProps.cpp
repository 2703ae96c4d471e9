// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgAddCompanyProps.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>

class TestCDlgAddCompanyProps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init();
    void everyFieldIsKept();
    void nameIsRequired();
    void hintsFollowTheKind();
    void cancelWritesNothing();
    void closedDatabaseRefuses();

private:
    static QList<QPair<QString, QString>> entries();

    Office m_office;
};

void TestCDlgAddCompanyProps::init()
{
    m_office.reset();
    m_office.db.run(QStringLiteral("DELETE FROM Properties WHERE sSection='Company'"));
}

QList<QPair<QString, QString>> TestCDlgAddCompanyProps::entries()
{
    return {
        {QStringLiteral("نام :"), QStringLiteral("نمایشگاه")},
        {QStringLiteral("دنباله نام :"), QStringLiteral("البرز")},
        {QStringLiteral("مدیر :"), QStringLiteral("رضا کریمی")},
        {QStringLiteral("کد ملی / شناسه ملی :"), QStringLiteral("10380284790")},
        {QStringLiteral("شماره ثبت :"), QStringLiteral("12")},
        {QStringLiteral("کد اقتصادی :"), QStringLiteral("411")},
        {QStringLiteral("موبایل :"), QStringLiteral("09121234567")},
        {QStringLiteral("تلفن :"), QStringLiteral("021")},
        {QStringLiteral("کد پستی :"), QStringLiteral("123")},
        {QStringLiteral("استان :"), QStringLiteral("تهران")},
        {QStringLiteral("شهر :"), QStringLiteral("ری")},
        {QStringLiteral("آدرس :"), QStringLiteral("خیابان آزادی")},
    };
}

void TestCDlgAddCompanyProps::everyFieldIsKept()
{
    Hand::inNextWindow([](QDialog *window) {
        for (const auto &[name, text] : entries())
            Hand::named<KEdit>(window, name)->setText(text);
        Hand::named<QComboBox>(window, QStringLiteral("نوع شخص :"))->setCurrentIndex(1);
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    CDlgAddCompanyProps dialog;
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Accepted));
    const CompanyDetails stored = CompanyDetails::read();
    QCOMPARE(stored.name(), QStringLiteral("نمایشگاه البرز"));
    QCOMPARE(stored.manager, QStringLiteral("رضا کریمی"));
    QCOMPARE(stored.nationalCode, QStringLiteral("10380284790"));
    QCOMPARE(stored.registrationNumber, QStringLiteral("12"));
    QCOMPARE(stored.economicCode, QStringLiteral("411"));
    QCOMPARE(stored.mobile, QStringLiteral("09121234567"));
    QCOMPARE(stored.telephone, QStringLiteral("021"));
    QCOMPARE(stored.postalCode, QStringLiteral("123"));
    QCOMPARE(stored.province, QStringLiteral("تهران"));
    QCOMPARE(stored.city, QStringLiteral("ری"));
    QCOMPARE(stored.address, QStringLiteral("خیابان آزادی"));
    QCOMPARE(stored.kind, CompanyDetails::kindLegal);
    CDlgAddCompanyProps again;
    QVERIFY(again.details() == stored);
}

void TestCDlgAddCompanyProps::nameIsRequired()
{
    CDlgAddCompanyProps dialog;
    dialog.show();
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا نام نمایشگاه را وارد نمایید.")});
    QVERIFY(CompanyDetails::read() == CompanyDetails());
}

void TestCDlgAddCompanyProps::hintsFollowTheKind()
{
    CDlgAddCompanyProps dialog;
    dialog.show();
    auto *code = Hand::named<KEdit>(&dialog, QStringLiteral("کد ملی / شناسه ملی :"));
    code->setText(QStringLiteral("10380284790"));
    QVERIFY(code->accessibleDescription().contains(QStringLiteral("ده")));
    Hand::named<QComboBox>(&dialog, QStringLiteral("نوع شخص :"))->setCurrentIndex(1);
    QCOMPARE(code->accessibleDescription(), QString());
}

void TestCDlgAddCompanyProps::cancelWritesNothing()
{
    Hand::inNextWindow([](QDialog *window) {
        Hand::named<KEdit>(window, QStringLiteral("نام :"))->setText(QStringLiteral("الف"));
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
    Hand::named<KEdit>(&dialog, QStringLiteral("نام :"))->setText(QStringLiteral("الف"));
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, dialog.OnOK());
    QVERIFY(CompanyDetails::read().isEmpty());
}

static const RegisteredTest<TestCDlgAddCompanyProps, QApplication> registered;
#include "TestCDlgAddCompanyProps.moc"

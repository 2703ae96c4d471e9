// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/CDlgFirstStart.h"

#include "suite/crm/persons/CompanyDetails.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgFirstStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void fiscalYearIsProposed();
    void openingDayFollowsTheYear();
    void refused_data();
    void refused();
    void everythingIsStored();
    void theAdministratorCanLogIn();
    void aFailureLeavesNothingBehind();
    void cancelLeavesNothingBehind();

private:
    HostTestOffice m_office;
};

namespace {

KEdit *edit(const CDlgFirstStart &dialog, const QString &label)
{
    KEdit *found = named<KEdit>(dialog, label);
    Q_ASSERT(found);
    return found;
}

void fill(CDlgFirstStart &dialog)
{
    const QList<std::pair<QString, QString>> values = {
        {u"نام مدیر :"_s, u"سارا احمدی"_s},
        {u"نام کاربری :"_s, u"sara"_s},
        {u"کلمه عبور :"_s, u"gallery7"_s},
        {u"تکرار کلمه عبور :"_s, u"gallery7"_s},
        {u"نام نمایشگاه :"_s, u"نمايشگاه آريا"_s},
        {u"ادامه نام نمایشگاه :"_s, u"تهران"_s},
        {u"کد ملی :"_s, u"0012345679"_s},
        {u"تلفن :"_s, u"۰۲۱۴۴"_s},
        {u"موبایل :"_s, u"09121234567"_s},
        {u"شهر :"_s, u"تهران"_s},
        {u"نشانی :"_s, u"خیابان آزادی"_s},
    };
    for (const auto &[label, text] : values)
        edit(dialog, label)->setText(text);
}

}

void TestCDlgFirstStart::init()
{
    m_office.fresh();
    GetDBSetting()->Logout();
    m_office.database.run(u"DELETE FROM Users"_s);
}

void TestCDlgFirstStart::fiscalYearIsProposed()
{
    const CDlgFirstStart dialog;
    const int year = GetShamsi(GetDBSetting()->GetDBServerDate().date()).year;
    QCOMPARE(edit(dialog, u"سال مالی :"_s)->integer(), year);
    QCOMPARE(named<KDateEdit>(dialog, u"تاریخ افتتاح :"_s)->date(), ConvertToMiladi(year, 1, 1));
}

void TestCDlgFirstStart::openingDayFollowsTheYear()
{
    const CDlgFirstStart dialog;
    KEdit *year = edit(dialog, u"سال مالی :"_s);
    year->clear();
    QTest::keyClicks(year, u"1403"_s);
    QCOMPARE(named<KDateEdit>(dialog, u"تاریخ افتتاح :"_s)->date(), ConvertToMiladi(1403, 1, 1));
}

void TestCDlgFirstStart::refused_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");
    QTest::newRow("no user") << "نام کاربری :"
                             << " "
                             << "لطفا نام کاربری را وارد نمایید.";
    QTest::newRow("no password") << "کلمه عبور :"
                                 << ""
                                 << "لطفا کلمه عبور را وارد نمایید.";
    QTest::newRow("short password") << "کلمه عبور :"
                                    << "abc"
                                    << "کلمه عبور باید دست‌کم 4 نویسه باشد.";
    QTest::newRow("repeated otherwise") << "تکرار کلمه عبور :"
                                        << "gallery8"
                                        << "کلمه عبور و تکرار آن یکسان نیستند.";
    QTest::newRow("no dealership") << "نام نمایشگاه :"
                                   << ""
                                   << "لطفا نام نمایشگاه را وارد نمایید.";
    QTest::newRow("letters in the national code") << "کد ملی :"
                                                  << "12345abc"
                                                  << "کد ملی تنها از رقم ساخته می‌شود.";
    QTest::newRow("no year") << "سال مالی :"
                             << ""
                             << "لطفا سال مالی را درست وارد نمایید.";
    QTest::newRow("year far away") << "سال مالی :"
                                   << "2026"
                                   << "لطفا سال مالی را درست وارد نمایید.";
}

void TestCDlgFirstStart::refused()
{
    QFETCH(QString, label);
    QFETCH(QString, value);
    QFETCH(QString, message);
    CDlgFirstStart dialog;
    fill(dialog);
    edit(dialog, label)->setText(value);
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
    QVERIFY(dialog.userName().isEmpty());
    QVERIFY(!CTblUsers::anyUser());
    QVERIFY(CompanyDetails::read().isEmpty());
}

void TestCDlgFirstStart::everythingIsStored()
{
    CDlgFirstStart dialog;
    fill(dialog);
    edit(dialog, u"سال مالی :"_s)->setNumber(1404);
    named<KDateEdit>(dialog, u"تاریخ افتتاح :"_s)->setDate(ConvertToMiladi(1404, 2, 3));
    dialog.accept();
    QVERIFY2(g_pDlgWarning->takeShown().isEmpty(), "nothing was refused");
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.userName(), u"sara"_s);

    const CompanyDetails company = CompanyDetails::read();
    QCOMPARE(company.name(), u"نمایشگاه آریا تهران"_s);
    QCOMPARE(company.telephone, u"02144"_s);
    QCOMPARE(company.mobile, u"09121234567"_s);
    QCOMPARE(company.nationalCode, u"0012345679"_s);
    QCOMPARE(company.city, u"تهران"_s);
    QCOMPARE(company.address, u"خیابان آزادی"_s);
    QCOMPARE(GetDBSetting()->FiscalYear(), 1404);
    QCOMPARE(GetDBSetting()->FiscalYearOpeningDate().date(), ConvertToMiladi(1404, 2, 3));
}

void TestCDlgFirstStart::theAdministratorCanLogIn()
{
    CDlgFirstStart dialog;
    fill(dialog);
    dialog.accept();
    const std::optional<int> user = CTblUsers::verify(u"sara"_s, u"gallery7"_s);
    QVERIFY(user.has_value());
    QVERIFY(GetDBSetting()->Login(*user));
    QVERIFY(GetDBSetting()->IsAdmin());
    QCOMPARE(GetDBSetting()->GetUserFullName(), u"سارا احمدی"_s);
}

void TestCDlgFirstStart::aFailureLeavesNothingBehind()
{
    // Another user was quicker with the same name.
    CTblUsers::create(u"sara"_s, u"other"_s, {}, true);
    CDlgFirstStart dialog;
    fill(dialog);
    QVERIFY_THROWS_EXCEPTION(std::exception, dialog.accept());
    QVERIFY(dialog.userName().isEmpty());
    QVERIFY(CompanyDetails::read().isEmpty());
    QVERIFY(!CTblUsers::verify(u"sara"_s, u"gallery7"_s));
}

void TestCDlgFirstStart::cancelLeavesNothingBehind()
{
    CDlgFirstStart dialog;
    fill(dialog);
    dialog.reject();
    QVERIFY(!CTblUsers::anyUser());
    QVERIFY(CompanyDetails::read().isEmpty());
}

static const RegisteredTest<TestCDlgFirstStart, QApplication> registeredCDlgFirstStart;
#include "TestCDlgFirstStart.moc"

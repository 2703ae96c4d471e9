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
        {QStringLiteral("نام مدیر :"), QStringLiteral("سارا احمدی")},
        {QStringLiteral("نام کاربری :"), QStringLiteral("sara")},
        {QStringLiteral("کلمه عبور :"), QStringLiteral("gallery7")},
        {QStringLiteral("تکرار کلمه عبور :"), QStringLiteral("gallery7")},
        {QStringLiteral("نام نمایشگاه :"), QStringLiteral("نمايشگاه آريا")},
        {QStringLiteral("ادامه نام نمایشگاه :"), QStringLiteral("تهران")},
        {QStringLiteral("کد ملی :"), QStringLiteral("0012345679")},
        {QStringLiteral("تلفن :"), QStringLiteral("۰۲۱۴۴")},
        {QStringLiteral("موبایل :"), QStringLiteral("09121234567")},
        {QStringLiteral("شهر :"), QStringLiteral("تهران")},
        {QStringLiteral("نشانی :"), QStringLiteral("خیابان آزادی")},
    };
    for (const auto &[label, text] : values)
        edit(dialog, label)->setText(text);
}

}

void TestCDlgFirstStart::init()
{
    m_office.fresh();
    GetDBSetting()->Logout();
    m_office.database.run(QStringLiteral("DELETE FROM Users"));
}

void TestCDlgFirstStart::fiscalYearIsProposed()
{
    const CDlgFirstStart dialog;
    const int year = GetShamsi(GetDBSetting()->GetDBServerDate().date()).year;
    QCOMPARE(edit(dialog, QStringLiteral("سال مالی :"))->integer(), year);
    QCOMPARE(named<KDateEdit>(dialog, QStringLiteral("تاریخ افتتاح :"))->date(), ConvertToMiladi(year, 1, 1));
}

void TestCDlgFirstStart::openingDayFollowsTheYear()
{
    const CDlgFirstStart dialog;
    KEdit *year = edit(dialog, QStringLiteral("سال مالی :"));
    year->clear();
    QTest::keyClicks(year, QStringLiteral("1403"));
    QCOMPARE(named<KDateEdit>(dialog, QStringLiteral("تاریخ افتتاح :"))->date(), ConvertToMiladi(1403, 1, 1));
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
    edit(dialog, QStringLiteral("سال مالی :"))->setNumber(1404);
    named<KDateEdit>(dialog, QStringLiteral("تاریخ افتتاح :"))->setDate(ConvertToMiladi(1404, 2, 3));
    dialog.accept();
    QVERIFY2(g_pDlgWarning->takeShown().isEmpty(), "nothing was refused");
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.userName(), QStringLiteral("sara"));

    const CompanyDetails company = CompanyDetails::read();
    QCOMPARE(company.name(), QStringLiteral("نمایشگاه آریا تهران"));
    QCOMPARE(company.telephone, QStringLiteral("02144"));
    QCOMPARE(company.mobile, QStringLiteral("09121234567"));
    QCOMPARE(company.nationalCode, QStringLiteral("0012345679"));
    QCOMPARE(company.city, QStringLiteral("تهران"));
    QCOMPARE(company.address, QStringLiteral("خیابان آزادی"));
    QCOMPARE(GetDBSetting()->FiscalYear(), 1404);
    QCOMPARE(GetDBSetting()->FiscalYearOpeningDate().date(), ConvertToMiladi(1404, 2, 3));
}

void TestCDlgFirstStart::theAdministratorCanLogIn()
{
    CDlgFirstStart dialog;
    fill(dialog);
    dialog.accept();
    const std::optional<int> user = CTblUsers::verify(QStringLiteral("sara"), QStringLiteral("gallery7"));
    QVERIFY(user.has_value());
    QVERIFY(GetDBSetting()->Login(*user));
    QVERIFY(GetDBSetting()->IsAdmin());
    QCOMPARE(GetDBSetting()->GetUserFullName(), QStringLiteral("سارا احمدی"));
}

void TestCDlgFirstStart::aFailureLeavesNothingBehind()
{
    // Somebody else was quicker with the same name.
    CTblUsers::create(QStringLiteral("sara"), QStringLiteral("other"), {}, true);
    CDlgFirstStart dialog;
    fill(dialog);
    QVERIFY_THROWS_EXCEPTION(std::exception, dialog.accept());
    QVERIFY(dialog.userName().isEmpty());
    QVERIFY(CompanyDetails::read().isEmpty());
    QVERIFY(!CTblUsers::verify(QStringLiteral("sara"), QStringLiteral("gallery7")));
}

void TestCDlgFirstStart::cancelLeavesNothingBehind()
{
    CDlgFirstStart dialog;
    fill(dialog);
    dialog.reject();
    QVERIFY(!CTblUsers::anyUser());
    QVERIFY(CompanyDetails::read().isEmpty());
}

static const RegisteredTest<TestCDlgFirstStart, QApplication> registered;
#include "TestCDlgFirstStart.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgUsers.h"

#include "host/administration/CDlgAddUser.h"
#include "host/administration/CDlgChangePassword.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgUsers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listShowsEverybodyWithState();
    void namesAreSearchedAndInactiveOnesLeftOut();
    void withoutTheRightThePageIsRefused();
    void nobodyMakesThemselvesAdministrator();
    void readersChangeNothing();
    void closedDatabaseHidesTheCommands();
    void newUserIsAdded();
    void newUserNeedsAPassword();
    void loginNameIsTakenOnce();
    void editKeepsThePasswordThatIsNotTypedAnew();
    void editChangesThePassword();
    void lastAdministratorStays_data();
    void lastAdministratorStays();
    void oneDoesNotLockOneselfOut();
    void userIsSwitchedOffAndOn();
    void ownPasswordIsChanged();
    void ownPasswordNeedsTheOldOne();

private:
    HostTestOffice m_office;
    int m_clerk = 0;
};

namespace {

template <class Dialog>
KEdit *edit(const Dialog &dialog, const QString &label)
{
    return named<KEdit>(dialog, label);
}

QCheckBox *check(const CDlgAddUser &dialog, const QString &caption)
{
    for (QCheckBox *box : dialog.findChildren<QCheckBox *>())
        if (box->text() == caption)
            return box;
    return nullptr;
}

void fill(const CDlgAddUser &dialog, const QString &user, const QString &password, const QString &repeated)
{
    edit(dialog, QStringLiteral("نام کاربری :"))->setText(user);
    edit(dialog, QStringLiteral("کلمه عبور :"))->setText(password);
    edit(dialog, QStringLiteral("تکرار کلمه عبور :"))->setText(repeated);
}

}

void TestCDlgUsers::init()
{
    m_office.fresh();
    m_clerk = CTblUsers::create(QStringLiteral("clerk"), QStringLiteral("clerk1"), QStringLiteral("کارمند"), false);
}

void TestCDlgUsers::listShowsEverybodyWithState()
{
    CDlgUsers page;
    page.open();
    QCOMPARE(page.list()->count(), 2);
    const int row = page.list()->listModel()->rowOfKey(m_clerk);
    QCOMPARE(page.list()->cellText(row, u"user"), QStringLiteral("clerk"));
    QCOMPARE(page.list()->cellText(row, u"name"), QStringLiteral("کارمند"));
    QCOMPARE(page.list()->cellText(row, u"admin"), QStringLiteral("خیر"));
    QCOMPARE(page.list()->cellText(row, u"status"), QStringLiteral("فعال"));
    QCOMPARE(page.list()->cellText(page.list()->listModel()->rowOfKey(m_office.admin), u"admin"), QStringLiteral("بله"));
}

void TestCDlgUsers::namesAreSearchedAndInactiveOnesLeftOut()
{
    CDlgUsers page;
    page.open();
    page.filters().set(u"name", QStringLiteral("کارم"));
    page.refill();
    QCOMPARE(page.list()->count(), 1);
    page.filters().set(u"name", QStringLiteral("%"));
    page.refill();
    QCOMPARE(page.list()->count(), 0);
    page.filters().set(u"name", QString());
    m_office.database.run(QStringLiteral("UPDATE Users SET iStatus=1 WHERE iID=%1").arg(m_clerk));
    page.filters().set(u"inactive", false);
    page.refill();
    QCOMPARE(page.list()->count(), 1);
    QCOMPARE(page.list()->currentKey(), m_office.admin);
}

void TestCDlgUsers::withoutTheRightThePageIsRefused()
{
    GetDBSetting()->Login(m_clerk);
    CDlgUsers page;
    QVERIFY(!page.OnAccess());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("Users"), KSecurity::Access)});
}

void TestCDlgUsers::nobodyMakesThemselvesAdministrator()
{
    KSecurity::setRights(m_clerk, QStringLiteral("Users"), KSecurity::allRights);
    GetDBSetting()->Login(m_clerk);
    CDlgUsers page;
    page.open();
    const QStringList refusal{QStringLiteral("این کار فقط برای مدیر برنامه مجاز است.")};
    // Rights, also their own, and an administrator's account.
    page.list()->selectKey(m_clerk);
    QVERIFY(page.runCommand(u"rights"));
    QCOMPARE(g_pDlgWarning->takeShown(), refusal);
    page.list()->selectKey(m_office.admin);
    for (const QString &command : {u"edit"_s, u"toggleActive"_s}) {
        QVERIFY2(page.runCommand(command), qPrintable(command));
        QCOMPARE(g_pDlgWarning->takeShown(), refusal);
    }
    CDlgAddUser own(m_clerk);
    for (const QCheckBox *box : own.findChildren<QCheckBox *>())
        QCOMPARE(box->isEnabled(), box->text() == QStringLiteral("فعال"));
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT COUNT(*) FROM Users WHERE bAdmin=1 AND iStatus=0")), QStringLiteral("1"));
}

void TestCDlgUsers::readersChangeNothing()
{
    KSecurity::setRights(m_clerk, QStringLiteral("Users"), KSecurity::Access | KSecurity::Read);
    GetDBSetting()->Login(m_clerk);
    CDlgUsers page;
    QVERIFY(page.OnAccess());
    page.open();
    page.list()->selectKey(m_office.admin);
    for (const QString &command : {u"new"_s, u"edit"_s, u"rights"_s, u"toggleActive"_s}) {
        QVERIFY2(page.runCommand(command), qPrintable(command));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT COUNT(*) FROM Users WHERE iStatus=0")), QStringLiteral("2"));
}

void TestCDlgUsers::closedDatabaseHidesTheCommands()
{
    GetDBSetting()->SetClosedDB(true);
    CDlgUsers page;
    page.open();
    QVERIFY(!page.runCommand(u"new"));
    QVERIFY(!page.runCommand(u"toggleActive"));
}

void TestCDlgUsers::newUserIsAdded()
{
    CDlgAddUser dialog(0);
    fill(dialog, QStringLiteral(" seller "), QStringLiteral("word1"), QStringLiteral("word1"));
    edit(dialog, QStringLiteral("نام :"))->setText(QStringLiteral("فروشنده"));
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(CTblUsers::verify(QStringLiteral("seller"), QStringLiteral("word1")), std::optional<int>(dialog.userID()));
    CTblUsers stored;
    QVERIFY(stored.IsRecordExist(QStringLiteral("iID"), dialog.userID()));
    QCOMPARE(stored.m_sName, QStringLiteral("فروشنده"));
    QCOMPARE(stored.m_bAdmin, 0);
    QCOMPARE(stored.m_iStatus, 0);
}

void TestCDlgUsers::newUserNeedsAPassword()
{
    CDlgAddUser dialog(0);
    fill(dialog, QStringLiteral("seller"), {}, {});
    dialog.accept();
    fill(dialog, QStringLiteral("seller"), QStringLiteral("abc"), QStringLiteral("abc"));
    dialog.accept();
    fill(dialog, QStringLiteral("seller"), QStringLiteral("word1"), QStringLiteral("word2"));
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 3);
    QCOMPARE(dialog.userID(), 0);
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT COUNT(*) FROM Users")), QStringLiteral("2"));
}

void TestCDlgUsers::loginNameIsTakenOnce()
{
    CDlgAddUser dialog(0);
    fill(dialog, QStringLiteral("clerk"), QStringLiteral("word1"), QStringLiteral("word1"));
    QVERIFY_THROWS_EXCEPTION(std::exception, dialog.accept());
    QCOMPARE(dialog.userID(), 0);
    QCOMPARE(edit(dialog, QStringLiteral("نام کاربری :"))->text(), QStringLiteral("clerk"));
}

void TestCDlgUsers::editKeepsThePasswordThatIsNotTypedAnew()
{
    CDlgAddUser dialog(m_clerk);
    QCOMPARE(edit(dialog, QStringLiteral("نام کاربری :"))->text(), QStringLiteral("clerk"));
    QVERIFY(edit(dialog, QStringLiteral("کلمه عبور :"))->text().isEmpty());
    edit(dialog, QStringLiteral("نام کاربری :"))->setText(QStringLiteral("clerk2"));
    dialog.accept();
    QCOMPARE(CTblUsers::verify(QStringLiteral("clerk2"), QStringLiteral("clerk1")), std::optional<int>(m_clerk));
}

void TestCDlgUsers::editChangesThePassword()
{
    CDlgAddUser dialog(m_clerk);
    fill(dialog, QStringLiteral("clerk"), QStringLiteral("newword"), QStringLiteral("newword"));
    dialog.accept();
    QVERIFY(CTblUsers::verify(QStringLiteral("clerk"), QStringLiteral("newword")));
    QVERIFY(!CTblUsers::verify(QStringLiteral("clerk"), QStringLiteral("clerk1")));
}

void TestCDlgUsers::lastAdministratorStays_data()
{
    QTest::addColumn<QString>("box");
    QTest::newRow("no administrator any more") << "مدیر برنامه (همه دسترسی‌ها)";
    QTest::newRow("not active any more") << "فعال";
}

void TestCDlgUsers::lastAdministratorStays()
{
    QFETCH(QString, box);
    GetDBSetting()->Login(m_clerk);
    CDlgAddUser dialog(m_office.admin);
    QVERIFY(check(dialog, box));
    check(dialog, box)->setChecked(false);
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("برنامه باید دست‌کم یک مدیر فعال داشته باشد.")});
    CTblUsers stored;
    QVERIFY(stored.IsRecordExist(QStringLiteral("iID"), m_office.admin));
    QCOMPARE(stored.m_bAdmin, 1);
    QCOMPARE(stored.m_iStatus, 0);
}

void TestCDlgUsers::oneDoesNotLockOneselfOut()
{
    m_office.database.run(QStringLiteral("UPDATE Users SET bAdmin=1 WHERE iID=%1").arg(m_clerk));
    CDlgUsers page;
    page.open();
    page.list()->selectKey(m_office.admin);
    QVERIFY(page.runCommand(u"toggleActive"));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("کاربری که با آن وارد شده‌اید را نمی‌توان غیرفعال کرد.")});
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT iStatus FROM Users WHERE iID=%1").arg(m_office.admin)),
             QStringLiteral("0"));
}

void TestCDlgUsers::userIsSwitchedOffAndOn()
{
    CDlgUsers page;
    page.open();
    page.list()->selectKey(m_clerk);
    QVERIFY(page.runCommand(u"toggleActive"));
    QVERIFY(!CTblUsers::verify(QStringLiteral("clerk"), QStringLiteral("clerk1")));
    page.list()->selectKey(m_clerk);
    QVERIFY(page.runCommand(u"toggleActive"));
    QVERIFY(CTblUsers::verify(QStringLiteral("clerk"), QStringLiteral("clerk1")));
}

void TestCDlgUsers::ownPasswordIsChanged()
{
    CDlgChangePassword dialog;
    edit(dialog, QStringLiteral("کلمه عبور کنونی :"))->setText(QStringLiteral("secret"));
    edit(dialog, QStringLiteral("کلمه عبور جدید :"))->setText(QStringLiteral("better"));
    edit(dialog, QStringLiteral("تکرار کلمه عبور جدید :"))->setText(QStringLiteral("better"));
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(CTblUsers::verify(QStringLiteral("admin"), QStringLiteral("better")));
}

void TestCDlgUsers::ownPasswordNeedsTheOldOne()
{
    CDlgChangePassword dialog;
    edit(dialog, QStringLiteral("کلمه عبور کنونی :"))->setText(QStringLiteral("guess"));
    edit(dialog, QStringLiteral("کلمه عبور جدید :"))->setText(QStringLiteral("better"));
    edit(dialog, QStringLiteral("تکرار کلمه عبور جدید :"))->setText(QStringLiteral("better"));
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("کلمه عبور کنونی درست نیست.")});
    QVERIFY(CTblUsers::verify(QStringLiteral("admin"), QStringLiteral("secret")));
}

static const RegisteredTest<TestCDlgUsers, QApplication> registered;
#include "TestCDlgUsers.moc"

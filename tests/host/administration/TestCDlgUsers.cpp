// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgUsers.h"

#include "host/administration/CDlgAddUser.h"
#include "host/administration/CDlgChangePassword.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

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
    void twoDesks_data() { TwoDesks::addCases(true); }
    void twoDesks();
    void passwordOfTwoDesksIsAskedAboutAndNotShown();
    void ofTwoAdministratorsOneStays();
    void whatTheListShowsIsSwitched();
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
    edit(dialog, u"نام کاربری :"_s)->setText(user);
    edit(dialog, u"کلمه عبور :"_s)->setText(password);
    edit(dialog, u"تکرار کلمه عبور :"_s)->setText(repeated);
}

}

void TestCDlgUsers::init()
{
    m_office.fresh();
    m_clerk = CTblUsers::create(u"clerk"_s, u"clerk1"_s, u"کارمند"_s, false);
}

void TestCDlgUsers::listShowsEverybodyWithState()
{
    CDlgUsers page;
    page.open();
    QCOMPARE(page.list()->count(), 2);
    const int row = page.list()->listModel()->rowOfKey(m_clerk);
    QCOMPARE(page.list()->cellText(row, u"user"), u"clerk"_s);
    QCOMPARE(page.list()->cellText(row, u"name"), u"کارمند"_s);
    QCOMPARE(page.list()->cellText(row, u"admin"), u"خیر"_s);
    QCOMPARE(page.list()->cellText(row, u"status"), u"فعال"_s);
    QCOMPARE(page.list()->cellText(page.list()->listModel()->rowOfKey(m_office.admin), u"admin"), u"بله"_s);
}

void TestCDlgUsers::namesAreSearchedAndInactiveOnesLeftOut()
{
    CDlgUsers page;
    page.open();
    page.filters().set(u"name", u"کارم"_s);
    page.refill();
    QCOMPARE(page.list()->count(), 1);
    page.filters().set(u"name", u"%"_s);
    page.refill();
    QCOMPARE(page.list()->count(), 0);
    page.filters().set(u"name", QString());
    m_office.database.run(u"UPDATE Users SET iStatus=1 WHERE iID=%1"_s.arg(m_clerk));
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
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Users"_s, KSecurity::Access)});
}

void TestCDlgUsers::nobodyMakesThemselvesAdministrator()
{
    KSecurity::setRights(m_clerk, u"Users"_s, KSecurity::allRights);
    GetDBSetting()->Login(m_clerk);
    CDlgUsers page;
    page.open();
    const QStringList refusal{u"این کار فقط برای مدیر برنامه مجاز است."_s};
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
        QCOMPARE(box->isEnabled(), box->text() == u"فعال"_s);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Users WHERE bAdmin=1 AND iStatus=0"_s), u"1"_s);
}

void TestCDlgUsers::readersChangeNothing()
{
    KSecurity::setRights(m_clerk, u"Users"_s, KSecurity::Access | KSecurity::Read);
    GetDBSetting()->Login(m_clerk);
    CDlgUsers page;
    QVERIFY(page.OnAccess());
    page.open();
    page.list()->selectKey(m_office.admin);
    for (const QString &command : {u"new"_s, u"edit"_s, u"rights"_s, u"toggleActive"_s}) {
        QVERIFY2(page.runCommand(command), qPrintable(command));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Users WHERE iStatus=0"_s), u"2"_s);
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
    fill(dialog, u" seller "_s, u"word1"_s, u"word1"_s);
    edit(dialog, u"نام :"_s)->setText(u"فروشنده"_s);
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(CTblUsers::verify(u"seller"_s, u"word1"_s), std::optional<int>(dialog.userID()));
    CTblUsers stored;
    QVERIFY(stored.IsRecordExist(u"iID"_s, dialog.userID()));
    QCOMPARE(stored.m_sName, u"فروشنده"_s);
    QCOMPARE(stored.m_bAdmin, 0);
    QCOMPARE(stored.m_iStatus, 0);
}

void TestCDlgUsers::newUserNeedsAPassword()
{
    CDlgAddUser dialog(0);
    fill(dialog, u"seller"_s, {}, {});
    dialog.accept();
    fill(dialog, u"seller"_s, u"abc"_s, u"abc"_s);
    dialog.accept();
    fill(dialog, u"seller"_s, u"word1"_s, u"word2"_s);
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 3);
    QCOMPARE(dialog.userID(), 0);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Users"_s), u"2"_s);
}

void TestCDlgUsers::loginNameIsTakenOnce()
{
    CDlgAddUser dialog(0);
    fill(dialog, u"clerk"_s, u"word1"_s, u"word1"_s);
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این نام کاربری قبلا ثبت شده است."_s});
    QCOMPARE(dialog.userID(), 0);
    QCOMPARE(edit(dialog, u"نام کاربری :"_s)->text(), u"clerk"_s);
}

void TestCDlgUsers::editKeepsThePasswordThatIsNotTypedAnew()
{
    CDlgAddUser dialog(m_clerk);
    QCOMPARE(edit(dialog, u"نام کاربری :"_s)->text(), u"clerk"_s);
    QVERIFY(edit(dialog, u"کلمه عبور :"_s)->text().isEmpty());
    edit(dialog, u"نام کاربری :"_s)->setText(u"clerk2"_s);
    dialog.accept();
    QCOMPARE(CTblUsers::verify(u"clerk2"_s, u"clerk1"_s), std::optional<int>(m_clerk));
}

void TestCDlgUsers::editChangesThePassword()
{
    CDlgAddUser dialog(m_clerk);
    fill(dialog, u"clerk"_s, u"newword"_s, u"newword"_s);
    dialog.accept();
    QVERIFY(CTblUsers::verify(u"clerk"_s, u"newword"_s));
    QVERIFY(!CTblUsers::verify(u"clerk"_s, u"clerk1"_s));
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
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"برنامه باید دست‌کم یک مدیر فعال داشته باشد."_s});
    CTblUsers stored;
    QVERIFY(stored.IsRecordExist(u"iID"_s, m_office.admin));
    QCOMPARE(stored.m_bAdmin, 1);
    QCOMPARE(stored.m_iStatus, 0);
}

void TestCDlgUsers::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    const auto run = [this](const QString &statement) { m_office.database.run(statement); };
    int id = 0;
    TwoDesks({
                 .reset =
                     [&] {
                         run(u"DELETE FROM Users WHERE bAdmin=0"_s);
                         id = CTblUsers::create(u"seller"_s, u"word1"_s, u"فروشنده"_s, false);
                     },
                 .open = [&] { return std::make_unique<CDlgAddUser>(id); },
                 .enter = [](KDialog &window) { edit(static_cast<CDlgAddUser &>(window), u"نام :"_s)->setText(u"رضا"_s); },
                 .changeOther = [&] { run(u"UPDATE Users SET iStatus=1 WHERE bAdmin=0"_s); },
                 .changeSame = [&] { run(u"UPDATE Users SET sName='علی' WHERE bAdmin=0"_s); },
                 .remove = [&] { run(u"DELETE FROM Users WHERE bAdmin=0"_s); },
                 .stored =
                     [&] {
                         return m_office.database.value(
                             u"SELECT GROUP_CONCAT(CONCAT_WS('/',sUser,sName,iStatus,sPasswordHash<>'')) FROM Users WHERE bAdmin=0"_s);
                     },
                 .merged = u"seller/رضا/1/1"_s,
                 .theirs = u"seller/علی/0/1"_s,
                 .mine = u"seller/رضا/0/1"_s,
                 .renewed = u"seller/رضا/0/1"_s,
             })
        .check(what);
}

void TestCDlgUsers::passwordOfTwoDesksIsAskedAboutAndNotShown()
{
    CDlgAddUser first(m_clerk);
    CDlgAddUser second(m_clerk);
    fill(first, u"clerk"_s, u"word1"_s, u"word1"_s);
    fill(second, u"clerk"_s, u"word2"_s, u"word2"_s);
    first.accept();
    CDlgRowConflict::answerNext(CDlgRowConflict::Answer::GoBack);
    second.accept();
    QCOMPARE(CDlgRowConflict::takeShown(), QStringList{u"کلمه عبور: ••••• | ••••• | آنچه وارد کرده‌اید"_s});
    QVERIFY(CTblUsers::verify(u"clerk"_s, u"word1"_s));
}

// Each of two windows leaves the other's user as the last administrator.
void TestCDlgUsers::ofTwoAdministratorsOneStays()
{
    m_office.database.run(u"UPDATE Users SET bAdmin=1 WHERE iID=%1"_s.arg(m_clerk));
    const int third = CTblUsers::create(u"third"_s, u"word1"_s, {}, false);
    GetDBSetting()->Login(third);
    // Neither of the two, who may not be deactivated by themselves, and nobody who is refused for not being an administrator.
    KChangeLog::setAuthor(0);
    CDlgAddUser first(m_office.admin);
    CDlgAddUser second(m_clerk);
    for (CDlgAddUser *dialog : {&first, &second}) {
        check(*dialog, u"فعال"_s)->setChecked(false);
        dialog->accept();
    }
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"برنامه باید دست‌کم یک مدیر فعال داشته باشد."_s});
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Users WHERE bAdmin=1 AND iStatus=0"_s), u"1"_s);
}

void TestCDlgUsers::whatTheListShowsIsSwitched()
{
    CDlgUsers page;
    page.open();
    page.list()->selectKey(m_clerk);
    // Switched off by another desk: what the user means is the same.
    m_office.database.run(u"UPDATE Users SET iStatus=1 WHERE iID=%1"_s.arg(m_clerk));
    QVERIFY(page.runCommand(u"toggleActive"));
    QCOMPARE(m_office.database.value(u"SELECT iStatus FROM Users WHERE iID=%1"_s.arg(m_clerk)), u"1"_s);
}

void TestCDlgUsers::oneDoesNotLockOneselfOut()
{
    m_office.database.run(u"UPDATE Users SET bAdmin=1 WHERE iID=%1"_s.arg(m_clerk));
    CDlgUsers page;
    page.open();
    page.list()->selectKey(m_office.admin);
    QVERIFY(page.runCommand(u"toggleActive"));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"کاربری که با آن وارد شده‌اید را نمی‌توان غیرفعال کرد."_s});
    QCOMPARE(m_office.database.value(u"SELECT iStatus FROM Users WHERE iID=%1"_s.arg(m_office.admin)),
             u"0"_s);
}

void TestCDlgUsers::userIsSwitchedOffAndOn()
{
    CDlgUsers page;
    page.open();
    page.list()->selectKey(m_clerk);
    QVERIFY(page.runCommand(u"toggleActive"));
    QVERIFY(!CTblUsers::verify(u"clerk"_s, u"clerk1"_s));
    page.list()->selectKey(m_clerk);
    QVERIFY(page.runCommand(u"toggleActive"));
    QVERIFY(CTblUsers::verify(u"clerk"_s, u"clerk1"_s));
}

void TestCDlgUsers::ownPasswordIsChanged()
{
    CDlgChangePassword dialog;
    edit(dialog, u"کلمه عبور کنونی :"_s)->setText(u"secret"_s);
    edit(dialog, u"کلمه عبور جدید :"_s)->setText(u"better"_s);
    edit(dialog, u"تکرار کلمه عبور جدید :"_s)->setText(u"better"_s);
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(CTblUsers::verify(u"admin"_s, u"better"_s));
}

void TestCDlgUsers::ownPasswordNeedsTheOldOne()
{
    CDlgChangePassword dialog;
    edit(dialog, u"کلمه عبور کنونی :"_s)->setText(u"guess"_s);
    edit(dialog, u"کلمه عبور جدید :"_s)->setText(u"better"_s);
    edit(dialog, u"تکرار کلمه عبور جدید :"_s)->setText(u"better"_s);
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"کلمه عبور کنونی درست نیست."_s});
    QVERIFY(CTblUsers::verify(u"admin"_s, u"secret"_s));
}

static const RegisteredTest<TestCDlgUsers, QApplication> registeredCDlgUsers;
#include "TestCDlgUsers.moc"

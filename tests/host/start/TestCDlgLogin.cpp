// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/CDlgLogin.h"

#include "suite/utility/entries/KEdit.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

class TestCDlgLogin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.fresh(); }
    void labelsAndButtonStandToTheLetter();
    void rightPasswordLogsIn();
    void enterMovesToThePasswordAndThenLogsIn();
    void wrongPasswordIsToldAndThePasswordHasTheFocus();
    void unknownUserIsToldTheSame();
    void inactiveUserIsRefused();
    void emptyFieldsAreAskedFor();
    void lastUserIsRememberedAndThePasswordIsNot();
    void attemptsAreSlowed();
    void waitGrowsUpToItsLimit_data();
    void waitGrowsUpToItsLimit();
    void saysWhenItIsOnTheScreen();

private:
    HostTestOffice m_office;
};

namespace {

struct Login
{
    explicit Login(const QString &officeName = {})
        : dialog(officeName)
        , user(named<KEdit>(dialog, QStringLiteral("نام کاربری :")))
        , password(named<KEdit>(dialog, QStringLiteral("کلمه عبور :")))
        , ok(named<QPushButton>(dialog, QStringLiteral("ورود")))
    {
        if (!ok) // a button's caption is its accessible name unless it has one of its own
            for (QPushButton *button : dialog.findChildren<QPushButton *>())
                if (button->text() == QStringLiteral("ورود"))
                    ok = button;
    }

    void enter(const QString &name, const QString &word)
    {
        user->setText(name);
        password->setText(word);
        ok->click();
    }

    CDlgLogin dialog;
    KEdit *user;
    KEdit *password;
    QPushButton *ok;
};

}

void TestCDlgLogin::labelsAndButtonStandToTheLetter()
{
    const Login login;
    QVERIFY(login.user);
    QVERIFY(login.password);
    QVERIFY(login.ok);
    QCOMPARE(login.password->echoMode(), QLineEdit::Password);
    QVERIFY(login.ok->isDefault());
    QCOMPARE(login.dialog.layoutDirection(), Qt::RightToLeft);
}

void TestCDlgLogin::rightPasswordLogsIn()
{
    Login login;
    login.enter(QStringLiteral("admin"), QStringLiteral("secret"));
    QCOMPARE(login.dialog.result(), int(QDialog::Accepted));
    QCOMPARE(login.dialog.userID(), m_office.admin);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCDlgLogin::enterMovesToThePasswordAndThenLogsIn()
{
    Login login;
    login.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&login.dialog));
    QTRY_VERIFY(login.user->hasFocus());
    QTest::keyClicks(login.user, QStringLiteral("admin"));
    QTest::keyClick(login.user, Qt::Key_Return);
    QVERIFY(login.password->hasFocus());
    QTest::keyClicks(login.password, QStringLiteral("secret"));
    QTest::keyClick(login.password, Qt::Key_Return);
    QCOMPARE(login.dialog.userID(), m_office.admin);
}

void TestCDlgLogin::wrongPasswordIsToldAndThePasswordHasTheFocus()
{
    Login login;
    login.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&login.dialog));
    login.enter(QStringLiteral("admin"), QStringLiteral("guess"));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("نام کاربری یا کلمه عبور درست نیست.")});
    QVERIFY(login.dialog.isVisible());
    QCOMPARE(login.dialog.userID(), 0);
    QVERIFY(login.password->hasFocus());
    QCOMPARE(login.password->selectedText().size(), 5);
}

void TestCDlgLogin::unknownUserIsToldTheSame()
{
    Login login;
    login.enter(QStringLiteral("nobody"), QStringLiteral("secret"));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("نام کاربری یا کلمه عبور درست نیست.")});
    QCOMPARE(login.dialog.userID(), 0);
}

void TestCDlgLogin::inactiveUserIsRefused()
{
    m_office.database.run(QStringLiteral("UPDATE Users SET iStatus=1"));
    Login login;
    login.enter(QStringLiteral("admin"), QStringLiteral("secret"));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(login.dialog.userID(), 0);
}

void TestCDlgLogin::emptyFieldsAreAskedFor()
{
    Login login;
    login.enter({}, QStringLiteral("secret"));
    login.enter(QStringLiteral("admin"), {});
    QCOMPARE(g_pDlgWarning->takeShown(), (QStringList{
                                             QStringLiteral("لطفا نام کاربری را وارد نمایید."),
                                             QStringLiteral("لطفا کلمه عبور را وارد نمایید."),
                                         }));
    QVERIFY(login.ok->isEnabled());
}

void TestCDlgLogin::lastUserIsRememberedAndThePasswordIsNot()
{
    {
        Login login;
        login.enter(QStringLiteral("admin"), QStringLiteral("secret"));
    }
    const Login next;
    QCOMPARE(next.user->text(), QStringLiteral("admin"));
    QVERIFY(next.password->text().isEmpty());
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray stored = file.readAll();
    QVERIFY(stored.contains("admin"));
    QVERIFY(!stored.contains("secret"));
}

void TestCDlgLogin::attemptsAreSlowed()
{
    Login login;
    login.enter(QStringLiteral("admin"), QStringLiteral("one"));
    QVERIFY(login.ok->isEnabled());
    login.enter(QStringLiteral("admin"), QStringLiteral("two"));
    QVERIFY(!login.ok->isEnabled());
    login.password->setText(QStringLiteral("secret"));
    login.dialog.accept();
    QCOMPARE(login.dialog.userID(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(login.ok->isEnabled(), 3000);
    login.ok->click();
    QCOMPARE(login.dialog.userID(), m_office.admin);
}

void TestCDlgLogin::waitGrowsUpToItsLimit_data()
{
    QTest::addColumn<int>("attempts");
    QTest::addColumn<int>("seconds");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("first") << 1 << 0;
    QTest::newRow("second") << 2 << 1;
    QTest::newRow("third") << 3 << 2;
    QTest::newRow("fourth") << 4 << 4;
    QTest::newRow("sixth") << 6 << 16;
    QTest::newRow("seventh") << 7 << 30;
    QTest::newRow("hundredth") << 100 << 30;
}

void TestCDlgLogin::waitGrowsUpToItsLimit()
{
    QFETCH(int, attempts);
    QTEST(CDlgLogin::waitAfter(attempts), "seconds");
}

void TestCDlgLogin::saysWhenItIsOnTheScreen()
{
    Login login(QStringLiteral("نمایشگاه نمونه"));
    QSignalSpy painted(&login.dialog, &CDlgLogin::painted);
    login.dialog.show();
    QTRY_COMPARE(painted.count(), 1);
    login.dialog.repaint();
    QTest::qWait(20);
    QCOMPARE(painted.count(), 1);
}

static const RegisteredTest<TestCDlgLogin, QApplication> registered;
#include "TestCDlgLogin.moc"

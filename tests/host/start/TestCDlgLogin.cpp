// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/CDlgLogin.h"

#include "host/start/LoginAttempts.h"

#include "suite/utility/entries/KEdit.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

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
    void messageMovesNothing();
    void waitOutlivesTheProgram();
    void wrongAttemptsAreLoggedWithoutWhatWasTyped();
    void attemptsAreForgottenAfterAWhileAndByTheRightPassword();
    void waitGrowsUpToItsLimit_data();
    void waitGrowsUpToItsLimit();
    void saysWhenItIsOnTheScreen();
    void pressIsRememberedUntilTheDatabaseAnswers();
    void whoeverTypesOnHasNotPressed();

private:
    HostTestOffice m_office;
};

namespace {

struct Login
{
    explicit Login(const QString &officeName = {})
        : dialog(officeName)
        , user(named<KEdit>(dialog, u"نام کاربری :"_s))
        , password(named<KEdit>(dialog, u"کلمه عبور :"_s))
        , ok(named<QPushButton>(dialog, u"ورود"_s))
    {
        if (!ok) // a button's caption is its accessible name unless it has one of its own
            for (QPushButton *button : dialog.findChildren<QPushButton *>())
                if (button->text() == u"ورود"_s)
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
    login.enter(u"admin"_s, u"secret"_s);
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
    QTest::keyClicks(login.user, u"admin"_s);
    QTest::keyClick(login.user, Qt::Key_Return);
    QVERIFY(login.password->hasFocus());
    QTest::keyClicks(login.password, u"secret"_s);
    QTest::keyClick(login.password, Qt::Key_Return);
    QCOMPARE(login.dialog.userID(), m_office.admin);
}

void TestCDlgLogin::wrongPasswordIsToldAndThePasswordHasTheFocus()
{
    Login login;
    login.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&login.dialog));
    login.enter(u"admin"_s, u"guess"_s);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"نام کاربری یا کلمه عبور درست نیست."_s});
    QVERIFY(login.dialog.isVisible());
    QCOMPARE(login.dialog.userID(), 0);
    QVERIFY(login.password->hasFocus());
    QCOMPARE(login.password->selectedText().size(), 5);
}

void TestCDlgLogin::unknownUserIsToldTheSame()
{
    Login login;
    login.enter(u"nobody"_s, u"secret"_s);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"نام کاربری یا کلمه عبور درست نیست."_s});
    QCOMPARE(login.dialog.userID(), 0);
}

void TestCDlgLogin::inactiveUserIsRefused()
{
    m_office.database.run(u"UPDATE Users SET iStatus=1"_s);
    Login login;
    login.enter(u"admin"_s, u"secret"_s);
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(login.dialog.userID(), 0);
}

void TestCDlgLogin::emptyFieldsAreAskedFor()
{
    Login login;
    login.enter({}, u"secret"_s);
    login.enter(u"admin"_s, {});
    QCOMPARE(g_pDlgWarning->takeShown(), (QStringList{
                                             u"لطفا نام کاربری را وارد نمایید."_s,
                                             u"لطفا کلمه عبور را وارد نمایید."_s,
                                         }));
    QVERIFY(login.ok->isEnabled());
}

void TestCDlgLogin::lastUserIsRememberedAndThePasswordIsNot()
{
    {
        Login login;
        login.enter(u"admin"_s, u"secret"_s);
    }
    const Login next;
    QCOMPARE(next.user->text(), u"admin"_s);
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
    login.enter(u"admin"_s, u"one"_s);
    QVERIFY(login.ok->isEnabled());
    login.enter(u"admin"_s, u"two"_s);
    QVERIFY(!login.ok->isEnabled());
    login.password->setText(u"secret"_s);
    login.dialog.accept();
    QCOMPARE(login.dialog.userID(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(login.ok->isEnabled(), 3000);
    login.ok->click();
    QCOMPARE(login.dialog.userID(), m_office.admin);
}

void TestCDlgLogin::messageMovesNothing()
{
    Login login;
    login.dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&login.dialog));
    const auto places = [&login] {
        return QList<QRect>{login.dialog.geometry(), QRect(login.user->mapTo(&login.dialog, QPoint()), login.user->size()),
                            QRect(login.ok->mapTo(&login.dialog, QPoint()), login.ok->size())};
    };
    const QList<QRect> before = places();
    for (int attempt = 0; attempt < 2; ++attempt)
        login.enter(u"admin"_s, u"guess"_s);
    const auto labels = login.dialog.findChildren<QLabel *>();
    const auto message = std::find_if(labels.cbegin(), labels.cend(), [](const QLabel *label) { return label->text().contains(u"ثانیه"_s); });
    QVERIFY(message != labels.cend());
    QVERIFY((*message)->isVisible());
    QVERIFY((*message)->height() >= (*message)->fontMetrics().height());
    QCoreApplication::processEvents();
    QCOMPARE(places(), before);
}

void TestCDlgLogin::waitOutlivesTheProgram()
{
    {
        Login login;
        for (int attempt = 0; attempt < 4; ++attempt)
            LoginAttempts::countWrong(u"admin"_s);
        // A window that was open before learns of it when it asks.
        login.enter(u"admin"_s, u"secret"_s);
        QCOMPARE(login.dialog.userID(), 0);
        QVERIFY(!login.ok->isEnabled());
    }
    setSettingsFile(QString()); // nothing of it is in the settings of the computer
    Login again;
    QVERIFY(!again.ok->isEnabled());
    again.password->setText(u"secret"_s);
    again.user->setText(u"admin"_s);
    again.dialog.accept();
    QCOMPARE(again.dialog.userID(), 0);
    m_office.database.run(u"UPDATE Properties SET sValue=CONCAT('4 ',DATE_FORMAT(NOW() - INTERVAL 4 SECOND,'%Y-%m-%dT%H:%i:%s'))"
                          " WHERE sSection='LoginAttempts'"_s);
    const Login later;
    QVERIFY(later.ok->isEnabled());
}

void TestCDlgLogin::wrongAttemptsAreLoggedWithoutWhatWasTyped()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"wrong password for admin - attempt 1 in a row on .* - the next one in 0 s"_s));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^wrong password for an unknown user - attempt 2 in a row on .* in 1 s$"_s));
    Login login;
    login.enter(u"admin"_s, u"guess"_s);
    login.enter(u"MyPassword"_s, u"x"_s);
    g_pDlgWarning->takeShown();
}

void TestCDlgLogin::attemptsAreForgottenAfterAWhileAndByTheRightPassword()
{
    for (int attempt = 0; attempt < 9; ++attempt)
        LoginAttempts::countWrong(u"admin"_s);
    QVERIFY(LoginAttempts::secondsLeft() > 25);
    const auto lastWas = [this](const char *ago) {
        m_office.database.run(u"UPDATE Properties SET sValue=CONCAT('9 ',DATE_FORMAT(NOW() %1,'%Y-%m-%dT%H:%i:%s'))"
                              " WHERE sSection='LoginAttempts'"_s.arg(QLatin1String(ago)));
    };
    lastWas("- INTERVAL 31 SECOND");
    QCOMPARE(LoginAttempts::secondsLeft(), 0);
    QCOMPARE(LoginAttempts::countWrong(u"admin"_s), 30);
    lastWas("- INTERVAL 16 MINUTE");
    QCOMPARE(LoginAttempts::countWrong(u"admin"_s), 0);
    // Set back, the server's clock keeps nobody out for longer than the wait.
    lastWas("+ INTERVAL 1 DAY");
    QCOMPARE(LoginAttempts::secondsLeft(), 30);
    LoginAttempts::forget();
    QCOMPARE(LoginAttempts::secondsLeft(), 0);
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
    QTEST(LoginAttempts::waitAfter(attempts), "seconds");
}

void TestCDlgLogin::saysWhenItIsOnTheScreen()
{
    Login login(u"نمایشگاه نمونه"_s);
    QSignalSpy painted(&login.dialog, &CDlgLogin::painted);
    login.dialog.show();
    QTRY_COMPARE(painted.count(), 1);
    login.dialog.repaint();
    QTest::qWait(20);
    QCOMPARE(painted.count(), 1);
}

void TestCDlgLogin::pressIsRememberedUntilTheDatabaseAnswers()
{
    CDlgLogin dialog{CDlgLogin::BeforeDatabase()};
    auto *ok = captioned<QPushButton>(dialog, u"ورود"_s);
    dialog.waitFor(u"در انتظار"_s);
    dialog.show();
    named<KEdit>(dialog, u"نام کاربری :"_s)->setText(u"admin"_s);
    auto *password = named<KEdit>(dialog, u"کلمه عبور :"_s);
    password->setText(u"secret"_s);
    password->setFocus();
    // The second time impatiently: it must not meet the button beside.
    for (int press = 0; press < 2; ++press) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QVERIFY(!ok->isEnabled());
    }
    QCOMPARE(dialog.focusWidget(), password);
    QCOMPARE(dialog.userID(), 0);
    dialog.databaseAnswers(u"نمایشگاه آریا"_s);
    QTRY_COMPARE(dialog.userID(), m_office.admin);
    QVERIFY(!dialog.isVisible());
    QVERIFY(CDlgLogin::isOfficeKnown());
    const CDlgLogin next{CDlgLogin::BeforeDatabase()};
    const QList<QLabel *> labels = next.findChildren<QLabel *>();
    QVERIFY(std::ranges::any_of(labels, [](const QLabel *label) { return label->text() == u"نمایشگاه آریا"_s; }));
}

void TestCDlgLogin::whoeverTypesOnHasNotPressed()
{
    CDlgLogin dialog{CDlgLogin::BeforeDatabase()};
    auto *ok = captioned<QPushButton>(dialog, u"ورود"_s);
    auto *password = named<KEdit>(dialog, u"کلمه عبور :"_s);
    dialog.show();
    named<KEdit>(dialog, u"نام کاربری :"_s)->setText(u"admin"_s);
    password->setText(u"secre"_s);
    ok->click();
    QTest::keyClicks(password, u"t"_s);
    QVERIFY(ok->isEnabled());
    dialog.databaseAnswers({});
    QCoreApplication::processEvents();
    QCOMPARE(dialog.userID(), 0);
    QVERIFY(dialog.isVisible());
    ok->click();
    QCOMPARE(dialog.userID(), m_office.admin);
}

static const RegisteredTest<TestCDlgLogin, QApplication> registeredCDlgLogin;
#include "TestCDlgLogin.moc"

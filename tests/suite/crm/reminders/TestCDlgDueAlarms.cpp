// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/CDlgDueAlarms.h"

#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/crm/reminders/Alarms.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgDueAlarms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init();
    void withoutDueOnesNoWindowComes();
    void whatDoesNotRepeatComesAtOneLoginOnly();
    void whatRepeatsComesUntilItIsDone();
    void loginOfAnotherUserShowsTheirs();
    void lastOneDoneClosesTheWindow();
    void postponedOneGoes();
    void editedOneGoesOnceItIsNotDue();
    void oneGivenToAnotherUserGoes();
    void closedDatabaseOnlyShows();
    void tabGoesRoundListAndButtons();
    void escCloses();

private:
    int me() const { return GetDBSetting()->GetUserID(); }
    static KExtListCtrl *list(QDialog *dialog) { return dialog->findChild<KExtListCtrl *>(); }
    static QPushButton *button(QDialog *dialog, const QString &caption);

    Office m_office;
};

void TestCDlgDueAlarms::init()
{
    m_office.reset();
    m_office.db.run(u"DELETE FROM Alarms"_s);
}

QPushButton *TestCDlgDueAlarms::button(QDialog *dialog, const QString &caption)
{
    for (QPushButton *candidate : dialog->findChildren<QPushButton *>())
        if (candidate->text() == caption)
            return candidate;
    return nullptr;
}

void TestCDlgDueAlarms::withoutDueOnesNoWindowComes()
{
    QVERIFY(!CDlgDueAlarms::ShowAtLogin(nullptr));
    Alarms::add(me(), 60, u"آینده"_s);
    QVERIFY(!CDlgDueAlarms::ShowAtLogin(nullptr));
}

void TestCDlgDueAlarms::whatDoesNotRepeatComesAtOneLoginOnly()
{
    Alarms::add(me(), -60, u"یک بار"_s);
    QString shown;
    Hand::inNextWindow([&](QDialog *dialog) {
        shown = list(dialog)->cellText(0, 2);
        QVERIFY(list(dialog)->hasFocus());
        QCOMPARE(list(dialog)->currentRow(), 0);
    });
    QVERIFY(CDlgDueAlarms::ShowAtLogin(nullptr));
    QCOMPARE(shown, u"یک بار"_s);
    QVERIFY(!CDlgDueAlarms::ShowAtLogin(nullptr));
}

void TestCDlgDueAlarms::whatRepeatsComesUntilItIsDone()
{
    Alarms::add(me(), -60, u"هر بار"_s, Alarms::repeats);
    for (int login = 0; login < 2; ++login) {
        Hand::inNextWindow([](QDialog *) {});
        QVERIFY(CDlgDueAlarms::ShowAtLogin(nullptr));
    }
    Hand::inNextWindow([](QDialog *dialog) { button(dialog, u"انجام شد"_s)->click(); });
    QVERIFY(CDlgDueAlarms::ShowAtLogin(nullptr));
    QVERIFY(!CDlgDueAlarms::ShowAtLogin(nullptr));
}

void TestCDlgDueAlarms::loginOfAnotherUserShowsTheirs()
{
    Alarms::add(m_office.clerk(), -60, u"مال کارمند"_s);
    QVERIFY(!CDlgDueAlarms::ShowAtLogin(nullptr));
    m_office.loginClerk();
    int rows = 0;
    Hand::inNextWindow([&](QDialog *dialog) { rows = list(dialog)->count(); });
    QVERIFY(CDlgDueAlarms::ShowAtLogin(nullptr));
    QCOMPARE(rows, 1);
}

void TestCDlgDueAlarms::lastOneDoneClosesTheWindow()
{
    Alarms::add(me(), -60, u"اول"_s);
    Alarms::add(me(), -50, u"دوم"_s);
    CDlgDueAlarms dialog(CTblAlarm::dueAtLogin(me()), nullptr);
    dialog.show();
    button(&dialog, u"انجام شد"_s)->click();
    QVERIFY(dialog.isVisible());
    QCOMPARE(list(&dialog)->cellText(0, 2), u"دوم"_s);
    QCOMPARE(list(&dialog)->currentRow(), 0);
    QCOMPARE(CTblAlarm::dueCount(me()), 1);
    button(&dialog, u"انجام شد"_s)->click();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
}

void TestCDlgDueAlarms::postponedOneGoes()
{
    Alarms::add(me(), -60, u"اول"_s);
    CDlgDueAlarms dialog(CTblAlarm::dueAtLogin(me()), nullptr);
    dialog.show();
    QTimer::singleShot(0, &dialog, [] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->actions().size(), 4);
        menu->setActiveAction(menu->actions().constFirst());
        QTest::keyClick(menu, Qt::Key_Return);
    });
    button(&dialog, u"تعویق"_s)->click();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
    QVERIFY(m_office.db.value(u"SELECT TIMESTAMPDIFF(MINUTE,NOW(),date) FROM Alarms"_s).toInt() >= 58);
}

void TestCDlgDueAlarms::editedOneGoesOnceItIsNotDue()
{
    Alarms::add(me(), -60, u"اول"_s);
    CDlgDueAlarms dialog(CTblAlarm::dueAtLogin(me()), nullptr);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const auto setDesc = [](QDialog *editor, const QString &text) {
        Hand::named<KEdit>(editor, u"شرح :"_s)->setText(text);
    };
    Hand::inNextWindow([&](QDialog *editor) { setDesc(editor, u"دیگر"_s), editor->accept(); });
    QTest::keyClick(list(&dialog), Qt::Key_Return);
    QCOMPARE(list(&dialog)->cellText(0, 2), u"دیگر"_s);
    Hand::inNextWindow([&](QDialog *editor) {
        Hand::named<QLineEdit>(editor, u"تاریخ :"_s)->setText(u"1490/01/01"_s);
        editor->accept();
    });
    QTest::keyClick(list(&dialog), Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
}

void TestCDlgDueAlarms::oneGivenToAnotherUserGoes()
{
    const int given = Alarms::add(me(), -60, u"اول"_s);
    const int kept = Alarms::add(me(), -30, u"دوم"_s);
    CDlgDueAlarms dialog(CTblAlarm::dueAtLogin(me()), nullptr);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QCOMPARE(list(&dialog)->currentKey(), given);
    Hand::inNextWindow([](QDialog *editor) {
        Hand::named<QComboBox>(editor, u"برای کاربر :"_s)->setCurrentText(u"کارمند"_s);
        editor->accept();
    });
    QTest::keyClick(list(&dialog), Qt::Key_Return);
    QCOMPARE(list(&dialog)->count(), 1);
    QCOMPARE(list(&dialog)->currentKey(), kept);
}

void TestCDlgDueAlarms::closedDatabaseOnlyShows()
{
    Alarms::add(me(), -60, u"اول"_s);
    GetDBSetting()->SetClosedDB(true);
    CDlgDueAlarms dialog(CTblAlarm::dueAtLogin(me()), nullptr);
    dialog.show();
    QVERIFY(button(&dialog, u"انجام شد"_s)->isHidden());
    QVERIFY(button(&dialog, u"تعویق"_s)->isHidden());
    QVERIFY(!button(&dialog, u"بستن"_s)->isHidden());
}

void TestCDlgDueAlarms::tabGoesRoundListAndButtons()
{
    Alarms::add(me(), -60, u"اول"_s);
    CDlgDueAlarms dialog(CTblAlarm::dueAtLogin(me()), nullptr);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QStringList met;
    for (int i = 0; i < 4; ++i) {
        Hand::press(Qt::Key_Tab);
        met.append(Hand::focus() == list(&dialog) ? u"list"_s : qobject_cast<QPushButton *>(Hand::focus())->text());
    }
    const QStringList wanted{u"انجام شد"_s, u"تعویق"_s, u"بستن"_s, u"list"_s};
    QCOMPARE(met, wanted);
}

void TestCDlgDueAlarms::escCloses()
{
    Alarms::add(me(), -60, u"اول"_s);
    CDlgDueAlarms dialog(CTblAlarm::dueAtLogin(me()), nullptr);
    dialog.show();
    QTest::keyClick(list(&dialog), Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(CTblAlarm::dueCount(me()), 1);
}

static const RegisteredTest<TestCDlgDueAlarms, QApplication> registeredCDlgDueAlarms;
#include "TestCDlgDueAlarms.moc"

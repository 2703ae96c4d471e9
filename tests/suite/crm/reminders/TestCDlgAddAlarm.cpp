// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/CDlgAddAlarm.h"

#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/crm/reminders/AlarmTime.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTimeEdit.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/crm/reminders/Alarms.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgAddAlarm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init();
    void addKeepsEveryFieldAndItsRecord();
    void newReminderIsProposedForTomorrowMorning();
    void cancelAddsNothing();
    void enterWalksThroughTheForm();
    void refusedEntries_data();
    void refusedEntries();
    void oldReminderKeepsItsPastTime();
    void movedReminderIsToldAnew();
    void reminderIsEndedInItsEditor();
    void pastTimeIsTakenOfAReminderThatIsDone();
    void reminderIsGivenToAnotherUser();
    void reminderGivenToAnotherUserOrOpenedAgainIsToldAnew_data();
    void reminderGivenToAnotherUserOrOpenedAgainIsToldAnew();
    void inactiveUserStaysTheOneOfTheirReminder();
    void vanishedReminderIsTold();
    void closedDatabaseIsTold();
    void longDescriptionIsCutToItsColumn();
    void twoDesks_data();
    void twoDesks();

private:
    struct Fields
    {
        explicit Fields(QDialog *dialog)
            : date(Hand::named<KDateEdit>(dialog, u"تاریخ :"_s))
            , time(Hand::named<KTimeEdit>(dialog, u"ساعت :"_s))
            , desc(Hand::named<KEdit>(dialog, u"شرح :"_s))
            , user(Hand::named<QComboBox>(dialog, u"برای کاربر :"_s))
            , repeat(Hand::named<QCheckBox>(dialog, u"یادآوری تا انجام شدن تکرار شود"_s))
            , done(Hand::named<QCheckBox>(dialog, u"انجام شد"_s))
        {
        }

        KDateEdit *date;
        KTimeEdit *time;
        KEdit *desc;
        QComboBox *user;
        QCheckBox *repeat;
        QCheckBox *done; // null while a reminder is added
    };

    int me() const { return GetDBSetting()->GetUserID(); }
    QString row() { return m_office.db.value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iRecordID2,iUserID,date,"
                                             "sDesc,iStatus,bRepeat) FROM Alarms"_s); }

    Office m_office;
};

void TestCDlgAddAlarm::init()
{
    m_office.reset();
    m_office.db.run(u"DELETE FROM Alarms"_s);
    m_office.db.run(u"UPDATE Users SET iStatus=0"_s);
}

void TestCDlgAddAlarm::addKeepsEveryFieldAndItsRecord()
{
    Hand::inNextWindow([](QDialog *dialog) {
        const Fields fields(dialog);
        QVERIFY(fields.date && fields.time && fields.desc && fields.user && fields.repeat);
        QVERIFY(!fields.done);
        QCOMPARE(fields.desc->text(), u"تقاضای 15"_s);
        fields.date->setText(u"14990101"_s);
        QVERIFY(!fields.date->isEntryValid());
        fields.date->setText(u"۱۴۹۰/۰۱/۰۲"_s);
        fields.time->setTime(QTime(16, 45));
        fields.desc->setText(u"  تماس با مشتری "_s);
        fields.repeat->setChecked(true);
        dialog->accept();
    });
    const int id = CDlgAddAlarm::Add(u"تقاضای 15"_s, RecordKind::AutomobilDemandReminder, 7, 15, nullptr);
    QVERIFY(id > 0);
    QCOMPARE(row(), u"70|7|15|%1|2111-03-22 16:45:00|تماس با مشتری|0|1"_s.arg(me()));
    QCOMPARE(ConvertToMiladi(1490, 1, 2), QDate(2111, 3, 22));
    QCOMPARE(m_office.db.value(u"SELECT iID FROM Alarms"_s).toInt(), id);
}

void TestCDlgAddAlarm::newReminderIsProposedForTomorrowMorning()
{
    const QDateTime proposed = AlarmTime::proposed(GetDBSetting()->GetDBServerDate());
    Hand::inNextWindow([](QDialog *dialog) { Fields(dialog).desc->setText(u"متن"_s), dialog->accept(); });
    QVERIFY(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr) > 0);
    QCOMPARE(row(), u"0|0|0|%1|%2|متن|0|0"_s.arg(me()).arg(proposed.toString(u"yyyy-MM-dd HH:mm:ss"_s)));
}

void TestCDlgAddAlarm::cancelAddsNothing()
{
    Hand::inNextWindow([](QDialog *dialog) {
        Fields(dialog).desc->setText(u"متن"_s);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QCOMPARE(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr), 0);
    QCOMPARE(row(), QString());
}

void TestCDlgAddAlarm::enterWalksThroughTheForm()
{
    QStringList walked;
    Hand::inNextWindow([&](QDialog *dialog) {
        for (int step = 0; step < 5; ++step) {
            walked.append(Hand::focus()->accessibleName());
            if (qobject_cast<KTimeEdit *>(Hand::focus()))
                Hand::type(u"۱۸۳۰"_s);
            if (qobject_cast<KEdit *>(Hand::focus()))
                Hand::type(u"abc"_s);
            Hand::press(Qt::Key_Return);
        }
        QVERIFY(!dialog->isVisible());
    });
    QVERIFY(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr) > 0);
    QCOMPARE(walked, (QStringList{u"تاریخ :"_s, u"ساعت :"_s, u"شرح :"_s, u"برای کاربر :"_s, u"یادآوری تا انجام شدن تکرار شود"_s}));
    QVERIFY2(row().contains(u" 18:30:00|abc|"_s), qPrintable(row()));
}

void TestCDlgAddAlarm::refusedEntries_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("desc");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("focus");
    const QString date = u"تاریخ :"_s;
    QTest::newRow("no date") << ""
                             << "متن"
                             << "لطفا تاریخ یادآوری را وارد نمایید." << date;
    QTest::newRow("a day that does not exist") << "1405/13/01"
                                               << "متن" << QString() << date;
    QTest::newRow("a time that is past") << "1390/01/01"
                                         << "متن"
                                         << "زمان یادآوری گذشته است. لطفا تاریخ و ساعت را اصلاح نمایید." << date;
    QTest::newRow("no description") << "1490/01/01"
                                    << "  "
                                    << "لطفا شرح یادآوری را وارد نمایید."
                                    << "شرح :";
}

void TestCDlgAddAlarm::refusedEntries()
{
    QFETCH(QString, date);
    QFETCH(QString, desc);
    QFETCH(QString, told);
    QFETCH(QString, focus);
    Hand::inNextWindow([&](QDialog *dialog) {
        const Fields fields(dialog);
        fields.repeat->setFocus();
        fields.date->setText(date);
        fields.desc->setText(desc);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(Hand::focus()->accessibleName(), focus);
        // Nothing that was typed is lost.
        QCOMPARE(fields.desc->text(), desc);
    });
    QCOMPARE(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr), 0);
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY(told.isEmpty() ? !shown.constFirst().isEmpty() : shown.constFirst() == told);
    QCOMPARE(row(), QString());
}

void TestCDlgAddAlarm::oldReminderKeepsItsPastTime()
{
    const int id = Alarms::add(me(), -600, u"قدیمی"_s);
    const QString before = row();
    Hand::inNextWindow([](QDialog *dialog) {
        Fields(dialog).desc->setText(u"قدیمی تر"_s);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCOMPARE(row(), QString(before).replace(u"قدیمی"_s, u"قدیمی تر"_s));
}

void TestCDlgAddAlarm::movedReminderIsToldAnew()
{
    const int id = Alarms::add(me(), -600, u"کار"_s);
    CTblAlarm::markTold(CTblAlarm::dueAtLogin(me()));
    QVERIFY(CTblAlarm::dueAtLogin(me()).isEmpty());
    Hand::inNextWindow([](QDialog *dialog) {
        Fields(dialog).date->setText(u"1490/01/01"_s);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Alarms WHERE dateTold IS NULL"_s), u"1"_s);
}

void TestCDlgAddAlarm::reminderIsEndedInItsEditor()
{
    const int id = Alarms::add(me(), -600, u"کار"_s, Alarms::repeats);
    Hand::inNextWindow([](QDialog *dialog) {
        const Fields fields(dialog);
        QVERIFY(fields.repeat->isChecked() && !fields.done->isChecked());
        fields.done->setChecked(true);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
}

void TestCDlgAddAlarm::pastTimeIsTakenOfAReminderThatIsDone()
{
    const int id = Alarms::add(me(), 600, u"کار"_s);
    Hand::inNextWindow([](QDialog *dialog) {
        const Fields fields(dialog);
        fields.date->setText(u"1404/01/01"_s);
        fields.done->setChecked(true);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCDlgAddAlarm::reminderIsGivenToAnotherUser()
{
    const int id = Alarms::add(me(), -600, u"کار"_s);
    Hand::inNextWindow([](QDialog *dialog) {
        const Fields fields(dialog);
        QCOMPARE(fields.user->currentText(), u"مدیر"_s);
        fields.user->setCurrentText(u"کارمند"_s);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
    QCOMPARE(CTblAlarm::dueCount(m_office.clerk()), 1);
}

void TestCDlgAddAlarm::reminderGivenToAnotherUserOrOpenedAgainIsToldAnew_data()
{
    QTest::addColumn<int>("statusBefore");
    QTest::addColumn<QString>("user");
    QTest::addColumn<bool>("toldAnew");
    QTest::newRow("another description is told already") << int(CTblAlarm::statusOpen) << u"مدیر"_s << false;
    QTest::newRow("another user was told nothing yet") << int(CTblAlarm::statusOpen) << u"کارمند"_s << true;
    QTest::newRow("what is open again is told again") << int(CTblAlarm::statusDone) << u"مدیر"_s << true;
}

void TestCDlgAddAlarm::reminderGivenToAnotherUserOrOpenedAgainIsToldAnew()
{
    QFETCH(int, statusBefore);
    QFETCH(QString, user);
    QFETCH(bool, toldAnew);
    const int id = Alarms::add(me(), -600, u"کار"_s, [&](CTblAlarm &alarm) {
        alarm.m_dateTold = alarm.m_date;
        alarm.m_iStatus = statusBefore;
    });
    Hand::inNextWindow([&](QDialog *dialog) {
        const Fields fields(dialog);
        fields.user->setCurrentText(user);
        fields.desc->setText(u"کار دیگر"_s);
        fields.done->setChecked(false);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    const int owner = user == u"مدیر"_s ? me() : m_office.clerk();
    QCOMPARE(CTblAlarm::dueAtLogin(owner).size(), toldAnew ? 1 : 0);
    QCOMPARE(CTblAlarm::dueCount(owner), 1);
}

void TestCDlgAddAlarm::inactiveUserStaysTheOneOfTheirReminder()
{
    m_office.db.run(u"UPDATE Users SET iStatus=1 WHERE iID=%1"_s.arg(m_office.clerk()));
    const int id = Alarms::add(m_office.clerk(), -600, u"کار"_s);
    Hand::inNextWindow([](QDialog *dialog) {
        QCOMPARE(Fields(dialog).user->count(), 2);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QCOMPARE(CTblAlarm::dueCount(m_office.clerk()), 1);
    // Nobody new is given to who cannot log in.
    Hand::inNextWindow([](QDialog *dialog) { QCOMPARE(Fields(dialog).user->count(), 1); });
    QCOMPARE(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr), 0);
}

void TestCDlgAddAlarm::vanishedReminderIsTold()
{
    QVERIFY(!CDlgAddAlarm::Edit(99, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این یادآوری دیگر وجود ندارد."_s});
}

void TestCDlgAddAlarm::closedDatabaseIsTold()
{
    const int id = Alarms::add(me(), -600, u"کار"_s);
    GetDBSetting()->SetClosedDB(true);
    QCOMPARE(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr), 0);
    QVERIFY(!CDlgAddAlarm::Edit(id, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 2);
}

void TestCDlgAddAlarm::longDescriptionIsCutToItsColumn()
{
    Hand::inNextWindow([](QDialog *dialog) { dialog->accept(); });
    QVERIFY(CDlgAddAlarm::Add(QString(600, u'ب'), 0, 0, 0, nullptr) > 0);
    QCOMPARE(m_office.db.value(u"SELECT CHAR_LENGTH(sDesc) FROM Alarms"_s), u"500"_s);
}

// What a login or another desk does to the reminder while its window is open stays.
void TestCDlgAddAlarm::twoDesks_data()
{
    QTest::addColumn<QString>("theirs");
    QTest::addColumn<int>("answer"); // below 0: no window asks
    QTest::addColumn<QString>("stored");
    constexpr int none = -1;
    constexpr int takeTheirs = static_cast<int>(CDlgRowConflict::Answer::TakeTheirs);
    constexpr int takeMine = static_cast<int>(CDlgRowConflict::Answer::TakeMine);
    QTest::newRow("merged") << u"UPDATE Alarms SET iStatus=1"_s << none << u"من/1"_s;
    QTest::newRow("theirs") << u"UPDATE Alarms SET sDesc='او'"_s << takeTheirs << u"او/0"_s;
    QTest::newRow("mine") << u"UPDATE Alarms SET sDesc='او'"_s << takeMine << u"من/0"_s;
    QTest::newRow("gone: saved as a new one") << u"DELETE FROM Alarms"_s << none << u"من/0"_s;
}

void TestCDlgAddAlarm::twoDesks()
{
    QFETCH(QString, theirs);
    QFETCH(int, answer);
    const int id = Alarms::add(me(), 60, u"کار"_s, [](CTblAlarm &alarm) { alarm.m_iTable = RecordKind::AutomobilDemandReminder; });
    Hand::inNextWindow([&](QDialog *dialog) {
        Fields(dialog).desc->setText(u"من"_s);
        m_office.db.run(theirs);
        if (answer >= 0)
            CDlgRowConflict::answerNext(static_cast<CDlgRowConflict::Answer>(answer));
        dialog->accept();
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QCOMPARE(CDlgRowConflict::takeShown().size() > 0, answer >= 0);
    QTEST(m_office.db.value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',sDesc,iStatus)) FROM Alarms"_s), "stored");
    QCOMPARE(m_office.db.value(u"SELECT iTable FROM Alarms"_s).toInt(), int(RecordKind::AutomobilDemandReminder));
}

static const RegisteredTest<TestCDlgAddAlarm, QApplication> registeredCDlgAddAlarm;
#include "TestCDlgAddAlarm.moc"

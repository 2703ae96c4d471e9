// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/CDlgAddAlarm.h"

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

private:
    struct Fields
    {
        explicit Fields(QDialog *dialog)
            : date(Hand::named<KDateEdit>(dialog, QStringLiteral("تاریخ :")))
            , time(Hand::named<KTimeEdit>(dialog, QStringLiteral("ساعت :")))
            , desc(Hand::named<KEdit>(dialog, QStringLiteral("شرح :")))
            , user(Hand::named<QComboBox>(dialog, QStringLiteral("برای کاربر :")))
            , repeat(Hand::named<QCheckBox>(dialog, QStringLiteral("یادآوری تا انجام شدن تکرار شود")))
            , done(Hand::named<QCheckBox>(dialog, QStringLiteral("انجام شد")))
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
    QString row() { return m_office.db.value(QStringLiteral("SELECT CONCAT_WS('|',iTable,iRecordID,iRecordID2,iUserID,date,"
                                                            "sDesc,iStatus,bRepeat) FROM Alarms")); }

    Office m_office;
};

void TestCDlgAddAlarm::init()
{
    m_office.reset();
    m_office.db.run(QStringLiteral("DELETE FROM Alarms"));
    m_office.db.run(QStringLiteral("UPDATE Users SET iStatus=0"));
}

void TestCDlgAddAlarm::addKeepsEveryFieldAndItsRecord()
{
    Hand::inNextWindow([](QDialog *dialog) {
        const Fields fields(dialog);
        QVERIFY(fields.date && fields.time && fields.desc && fields.user && fields.repeat);
        QVERIFY(!fields.done);
        QCOMPARE(fields.desc->text(), QStringLiteral("تقاضای 15"));
        fields.date->setText(QStringLiteral("14990101"));
        QVERIFY(!fields.date->isEntryValid());
        fields.date->setText(QStringLiteral("۱۴۹۰/۰۱/۰۲"));
        fields.time->setTime(QTime(16, 45));
        fields.desc->setText(QStringLiteral("  تماس با مشتری "));
        fields.repeat->setChecked(true);
        dialog->accept();
    });
    const int id = CDlgAddAlarm::Add(QStringLiteral("تقاضای 15"), RecordKind::AutomobilDemandReminder, 7, 15, nullptr);
    QVERIFY(id > 0);
    QCOMPARE(row(), QStringLiteral("70|7|15|%1|2111-03-22 16:45:00|تماس با مشتری|0|1").arg(me()));
    QCOMPARE(ConvertToMiladi(1490, 1, 2), QDate(2111, 3, 22));
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT iID FROM Alarms")).toInt(), id);
}

void TestCDlgAddAlarm::newReminderIsProposedForTomorrowMorning()
{
    const QDateTime proposed = AlarmTime::proposed(GetDBSetting()->GetDBServerDate());
    Hand::inNextWindow([](QDialog *dialog) { Fields(dialog).desc->setText(QStringLiteral("متن")), dialog->accept(); });
    QVERIFY(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr) > 0);
    QCOMPARE(row(), QStringLiteral("0|0|0|%1|%2|متن|0|0").arg(me()).arg(proposed.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))));
}

void TestCDlgAddAlarm::cancelAddsNothing()
{
    Hand::inNextWindow([](QDialog *dialog) {
        Fields(dialog).desc->setText(QStringLiteral("متن"));
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
                Hand::type(QStringLiteral("۱۸۳۰"));
            if (qobject_cast<KEdit *>(Hand::focus()))
                Hand::type(QStringLiteral("abc"));
            Hand::press(Qt::Key_Return);
        }
        QVERIFY(!dialog->isVisible());
    });
    QVERIFY(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr) > 0);
    QCOMPARE(walked, (QStringList{QStringLiteral("تاریخ :"), QStringLiteral("ساعت :"), QStringLiteral("شرح :"), QStringLiteral("برای کاربر :"), QStringLiteral("یادآوری تا انجام شدن تکرار شود")}));
    QVERIFY2(row().contains(QStringLiteral(" 18:30:00|abc|")), qPrintable(row()));
}

void TestCDlgAddAlarm::refusedEntries_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("desc");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("focus");
    const QString date = QStringLiteral("تاریخ :");
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
    const int id = Alarms::add(me(), -600, QStringLiteral("قدیمی"));
    const QString before = row();
    Hand::inNextWindow([](QDialog *dialog) {
        Fields(dialog).desc->setText(QStringLiteral("قدیمی تر"));
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCOMPARE(row(), QString(before).replace(QStringLiteral("قدیمی"), QStringLiteral("قدیمی تر")));
}

void TestCDlgAddAlarm::movedReminderIsToldAnew()
{
    const int id = Alarms::add(me(), -600, QStringLiteral("کار"));
    CTblAlarm::markTold(CTblAlarm::dueAtLogin(me()));
    QVERIFY(CTblAlarm::dueAtLogin(me()).isEmpty());
    Hand::inNextWindow([](QDialog *dialog) {
        Fields(dialog).date->setText(QStringLiteral("1490/01/01"));
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT COUNT(*) FROM Alarms WHERE dateTold IS NULL")), QStringLiteral("1"));
}

void TestCDlgAddAlarm::reminderIsEndedInItsEditor()
{
    const int id = Alarms::add(me(), -600, QStringLiteral("کار"), Alarms::repeats);
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
    const int id = Alarms::add(me(), 600, QStringLiteral("کار"));
    Hand::inNextWindow([](QDialog *dialog) {
        const Fields fields(dialog);
        fields.date->setText(QStringLiteral("1404/01/01"));
        fields.done->setChecked(true);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCDlgAddAlarm::reminderIsGivenToAnotherUser()
{
    const int id = Alarms::add(me(), -600, QStringLiteral("کار"));
    Hand::inNextWindow([](QDialog *dialog) {
        const Fields fields(dialog);
        QCOMPARE(fields.user->currentText(), QStringLiteral("مدیر"));
        fields.user->setCurrentText(QStringLiteral("کارمند"));
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
    QTest::newRow("another description is told already") << int(CTblAlarm::statusOpen) << QStringLiteral("مدیر") << false;
    QTest::newRow("another user was told nothing yet") << int(CTblAlarm::statusOpen) << QStringLiteral("کارمند") << true;
    QTest::newRow("what is open again is told again") << int(CTblAlarm::statusDone) << QStringLiteral("مدیر") << true;
}

void TestCDlgAddAlarm::reminderGivenToAnotherUserOrOpenedAgainIsToldAnew()
{
    QFETCH(int, statusBefore);
    QFETCH(QString, user);
    QFETCH(bool, toldAnew);
    const int id = Alarms::add(me(), -600, QStringLiteral("کار"), [&](CTblAlarm &alarm) {
        alarm.m_dateTold = alarm.m_date;
        alarm.m_iStatus = statusBefore;
    });
    Hand::inNextWindow([&](QDialog *dialog) {
        const Fields fields(dialog);
        fields.user->setCurrentText(user);
        fields.desc->setText(QStringLiteral("کار دیگر"));
        fields.done->setChecked(false);
        dialog->accept();
    });
    QVERIFY(CDlgAddAlarm::Edit(id, nullptr));
    const int owner = user == QStringLiteral("مدیر") ? me() : m_office.clerk();
    QCOMPARE(CTblAlarm::dueAtLogin(owner).size(), toldAnew ? 1 : 0);
    QCOMPARE(CTblAlarm::dueCount(owner), 1);
}

void TestCDlgAddAlarm::inactiveUserStaysTheOneOfTheirReminder()
{
    m_office.db.run(QStringLiteral("UPDATE Users SET iStatus=1 WHERE iID=%1").arg(m_office.clerk()));
    const int id = Alarms::add(m_office.clerk(), -600, QStringLiteral("کار"));
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
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("این یادآوری دیگر وجود ندارد.")});
}

void TestCDlgAddAlarm::closedDatabaseIsTold()
{
    const int id = Alarms::add(me(), -600, QStringLiteral("کار"));
    GetDBSetting()->SetClosedDB(true);
    QCOMPARE(CDlgAddAlarm::Add({}, 0, 0, 0, nullptr), 0);
    QVERIFY(!CDlgAddAlarm::Edit(id, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 2);
}

void TestCDlgAddAlarm::longDescriptionIsCutToItsColumn()
{
    Hand::inNextWindow([](QDialog *dialog) { dialog->accept(); });
    QVERIFY(CDlgAddAlarm::Add(QString(600, u'ب'), 0, 0, 0, nullptr) > 0);
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT CHAR_LENGTH(sDesc) FROM Alarms")), QStringLiteral("500"));
}

static const RegisteredTest<TestCDlgAddAlarm, QApplication> registered;
#include "TestCDlgAddAlarm.moc"

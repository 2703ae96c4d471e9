// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemandBase.h"
#include "auto/cars/demands/editor/DemandReminder.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/office/OtherDesk.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// Two desks with the same demand open.
class TestDemandTwoDesks : public QObject
{
    Q_OBJECT

    using Dialog = CDlgAddAutomobilDemand;
    using Demand = CTblAutomobilDemands;
    using Answer = CDlgRowConflict::Answer;

    std::unique_ptr<TestOffice> m_office;
    int m_person = 0;
    int m_demand = 0;

    static KEdit *edit(const Dialog &dialog, const char *name) { return dialog.basePage()->form()->edit(QString::fromLatin1(name)); }

    std::unique_ptr<Dialog> opened(EditorMode mode = EditorMode::Edit)
    {
        auto dialog = std::make_unique<Dialog>(m_demand, mode);
        if (!dialog->load())
            qFatal("the demand is gone");
        dialog->show();
        return dialog;
    }

    std::unique_ptr<OtherDesk> m_other;

    void savedThere(const std::function<void(Dialog &)> &enter)
    {
        m_other->saves([this] { return opened(); }, enter);
    }

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString stored(const char *columns) { return m_other->stored("AutomobilDemands", columns); }

    int addAlarm(const QString &desc)
    {
        CTblAlarm alarm;
        alarm.AddNew();
        alarm.m_iTable = Demand::recordKind;
        alarm.m_iRecordID = m_demand;
        alarm.m_iUserID = m_office->adminID();
        alarm.m_date = QDateTime(QDate(2026, 12, 1), QTime(9, 0), Qt::UTC);
        alarm.m_sDesc = desc;
        alarm.Update(true);
        return alarm.m_iID;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        m_other = std::make_unique<OtherDesk>(*m_office, u"AutomobilDemands"_s);
        m_person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        m_demand = m_office->addDemand([this](Demand &demand) {
            demand.m_dateCreate = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
            demand.m_iPersonID = m_person;
            demand.m_iUserID = m_office->adminID();
            demand.m_iModelFrom = 1390;
            demand.m_iModelUpTo = 1395;
        });
    }

    void whatOnlyOneDeskChangedStays()
    {
        auto mine = opened();
        savedThere([](Dialog &there) { edit(there, "sAcquaintances")->setText(u"روزنامه"_s); });
        edit(*mine, "sDescSpecial")->setText(u"فوری"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("sAcquaintances,sDescSpecial"), u"روزنامه/فوری"_s);
        QVERIFY(CDlgRowConflict::takeShown().isEmpty());
    }

    // The end of one desk would lie before the beginning of the other.
    void rangeIsOneField_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("years");
        QTest::newRow("theirs") << int(Answer::TakeTheirs) << u"1394/1395"_s;
        QTest::newRow("mine") << int(Answer::TakeMine) << u"1390/1392"_s;
        QTest::newRow("back") << int(Answer::GoBack) << u"1394/1395"_s;
    }

    void rangeIsOneField()
    {
        QFETCH(int, answer);
        QFETCH(QString, years);
        auto mine = opened();
        savedThere([](Dialog &there) { edit(there, "iModelFrom")->setText(u"1394"_s); });
        edit(*mine, "iModelUpTo")->setText(u"1392"_s);
        CDlgRowConflict::answerNext(Answer(answer));
        mine->accept();
        QCOMPARE(CDlgRowConflict::takeShown(),
                 (QStringList{u"سال توليد از: 1390 | 1394 | 1390"_s, u"سال توليد تا: 1395 | 1395 | 1392"_s}));
        QCOMPARE(stored("iModelFrom,iModelUpTo"), years);
        QCOMPARE(mine->isVisible(), Answer(answer) == Answer::GoBack);
    }

    void customerIsShownByName()
    {
        const int other = m_office->addPerson(u"مریم"_s, u"نوری"_s);
        const int third = m_office->addPerson(u"رضا"_s, u"احمدی"_s);
        auto mine = opened();
        m_office->database().run(u"UPDATE AutomobilDemands SET iPersonID=%1"_s.arg(other));
        mine->basePage()->person()->setPersonID(third);
        CDlgRowConflict::answerNext(Answer::TakeTheirs);
        mine->accept();
        QCOMPARE(CDlgRowConflict::takeShown(), QStringList{u"متقاضی: سارا کریمی | مریم نوری | رضا احمدی"_s});
        QCOMPARE(stored("iPersonID"), QString::number(other));
    }

    void codeThatIsOnlyShownIsNotWritten()
    {
        auto mine = opened();
        m_office->database().run(u"UPDATE AutomobilDemands SET iCode=77"_s);
        edit(*mine, "sDescSpecial")->setText(u"فوری"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("iCode"), u"77"_s);
    }

    void demandThatIsGoneIsSavedAsANewOneWithoutItsReminder()
    {
        const int alarm = addAlarm(u"زنگ"_s);
        Demand::setAlarm(m_demand, alarm);
        auto mine = opened();
        edit(*mine, "sDescSpecial")->setText(u"فوری"_s);
        m_office->addDemand();
        m_other->does([this] {
            Demand demand;
            QVERIFY(demand.IsRecordExist(u"iID"_s, m_demand));
            demand.Delete();
        });
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        mine->accept();
        OtherDesk::compareTold(g_pDlgYesNo->takeShown(), u"این تقاضا را در این میان حذف کرده است."_s);
        QVERIFY(!mine->isVisible());
        QCOMPARE(value(u"SELECT CONCAT_WS('/',iCode,sDescSpecial,iPersonID,iAlarmID) FROM AutomobilDemands WHERE iID=%1"_s.arg(mine->key())),
                 u"3/فوری/%1/0"_s.arg(m_person));
    }

    void demandArchivedMeanwhileIsNotSaved()
    {
        auto mine = opened();
        edit(*mine, "sDescSpecial")->setText(u"فوری"_s);
        m_other->does([] { Demand::archive(1, GetDBSetting()->GetUserID()); });
        mine->accept();
        QVERIFY(mine->isVisible());
        OtherDesk::compareTold(g_pDlgWarning->takeShown(), u"این تقاضا را در این میان بایگانی کرده است."_s);
        QCOMPARE(edit(*mine, "sDescSpecial")->text(), u"فوری"_s);
    }

    // One that was opened from the archive may be saved there.
    void demandOpenedFromTheArchiveIsSavedThere()
    {
        m_office->database().run(u"UPDATE AutomobilDemands SET iArchiveUserID=1"_s);
        auto mine = opened();
        edit(*mine, "sDescSpecial")->setText(u"فوری"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("sDescSpecial,iArchiveUserID"), u"فوری/1"_s);
    }

    void demandThatAnotherDeskTookOutOfTheArchiveIsSaid()
    {
        m_office->database().run(u"UPDATE AutomobilDemands SET iArchiveUserID=1"_s);
        auto mine = opened(EditorMode::Show);
        m_office->database().run(u"UPDATE AutomobilDemands SET iArchiveUserID=0"_s);
        mine->unarchiveButton()->click();
        QVERIFY(!mine->isVisible());
        QVERIFY(mine->refreshNeeded());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این تقاضا در این میان از بایگانی خارج شده است."_s});
    }

    // --- The reminder ---

    void reminderOfTheOtherDeskIsOpenedInsteadOfASecondOne()
    {
        auto mine = opened();
        Demand::setAlarm(m_demand, addAlarm(u"زنگ بزن"_s));
        QString title;
        TestOffice::whenModal("CDlgAddAlarm", [&](QWidget *window) {
            title = window->windowTitle();
            static_cast<QDialog *>(window)->reject();
        });
        mine->basePage()->reminder()->remindBox()->setChecked(true);
        QCOMPARE(title, u"یادآوری - ویرایش"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Alarms"_s), u"1"_s);
        QVERIFY(mine->basePage()->reminder()->description().contains(u"زنگ بزن"_s));
    }

    void reminderThatTwoDesksAddAtOnceIsTheFirstOne()
    {
        auto mine = opened();
        TestOffice::whenModal("CDlgAddAlarm", [this](QWidget *window) {
            Demand::setAlarm(m_demand, addAlarm(u"زنگ بزن"_s));
            static_cast<QDialog *>(window)->accept();
        });
        mine->basePage()->reminder()->remindBox()->setChecked(true);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(sDesc) FROM Alarms"_s), u"زنگ بزن"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilDemands d JOIN Alarms a ON a.iID=d.iAlarmID"_s), u"1"_s);
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(u"یادآوری شما ذخیره نشد"_s) && told.constFirst().contains(u"سارا کریمی"_s),
                 qPrintable(told.constFirst()));
        QVERIFY(mine->basePage()->reminder()->description().contains(u"زنگ بزن"_s));
    }

    void reminderOfADemandThatIsGoneIsNotLeftBehind()
    {
        auto mine = opened();
        TestOffice::whenModal("CDlgAddAlarm", [this](QWidget *window) {
            m_office->database().run(u"DELETE FROM AutomobilDemands"_s);
            static_cast<QDialog *>(window)->accept();
        });
        mine->basePage()->reminder()->remindBox()->setChecked(true);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Alarms"_s), u"0"_s);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }
};

static const RegisteredTest<TestDemandTwoDesks, KApplication> registeredDemandTwoDesks;

#include "TestDemandTwoDesks.moc"

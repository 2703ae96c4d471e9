// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/CDlgAlarms.h"

#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/crm/reminders/Alarms.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgAlarms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init();
    void everybodySeesTheirOwnAndNoOthers();
    void dueOnesComeFirstAndDoneOnesOnRequestLast();
    void rowTellsStateTimeAndRecord();
    void searchedTextIsFound();
    void doneIsTakenOffAndTold();
    void postponedThroughTheMenu();
    void delaysAreOfferedAtTheButtonInSight();
    void menuLeftWithoutAChoiceChangesNothing();
    void deletedAfterTheQuestion();
    void keysAddAndEdit();
    void vanishedOneIsTakenOff();
    void closedDatabaseOnlyShows();

private:
    int me() const { return GetDBSetting()->GetUserID(); }
    QStringList column(const CDlgAlarms &page, QStringView key) const;
    static void show(CDlgAlarms &page);
    static void chooseInMenu(const QString &beginning, QRect *place = nullptr);

    Office m_office;
};

void TestCDlgAlarms::init()
{
    m_office.reset();
    m_office.db.run(u"DELETE FROM Alarms"_s);
}

QStringList TestCDlgAlarms::column(const CDlgAlarms &page, QStringView key) const
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts.append(page.list()->cellText(row, key));
    return texts;
}

void TestCDlgAlarms::show(CDlgAlarms &page)
{
    page.resize(900, 500);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
}

// Chooses the entry that begins so in the menu that opens next; an empty text leaves it.
void TestCDlgAlarms::chooseInMenu(const QString &beginning, QRect *place)
{
    auto *timer = new QTimer(qApp);
    connect(timer, &QTimer::timeout, qApp, [timer, beginning, place] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        timer->deleteLater();
        timer->stop();
        if (place)
            *place = menu->geometry();
        for (QAction *action : menu->actions()) {
            if (!beginning.isEmpty() && action->text().startsWith(beginning)) {
                menu->setActiveAction(action);
                QTest::keyClick(menu, Qt::Key_Return);
                return;
            }
        }
        menu->close();
    });
    timer->start(10);
}

void TestCDlgAlarms::everybodySeesTheirOwnAndNoOthers()
{
    Alarms::add(me(), -5, u"مال مدیر"_s);
    Alarms::add(m_office.clerk(), -5, u"مال کارمند"_s);
    // No right has been given to the clerk at all.
    m_office.loginClerk();
    CDlgAlarms page;
    QVERIFY(page.OnAccess());
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    page.open();
    QCOMPARE(column(page, u"description"), QStringList{u"مال کارمند"_s});
    QVERIFY(!page.button(u"new")->isHidden());
}

void TestCDlgAlarms::dueOnesComeFirstAndDoneOnesOnRequestLast()
{
    Alarms::add(me(), 500, u"آینده"_s);
    Alarms::add(me(), -5, u"دوم"_s);
    Alarms::add(me(), -900, u"انجام شده"_s, [](CTblAlarm &alarm) { alarm.m_iStatus = CTblAlarm::statusDone; });
    Alarms::add(me(), -500, u"اول"_s);
    CDlgAlarms page;
    page.open();
    const QStringList open{u"اول"_s, u"دوم"_s, u"آینده"_s};
    QCOMPARE(column(page, u"description"), open);
    QCOMPARE(page.countText(), SuiteMessages::count(3));
    const auto standsOut = [&page](int row) { return page.list()->listModel()->rows().at(row).warning; };
    QVERIFY(standsOut(0) && standsOut(1) && !standsOut(2));
    auto *done = page.filters().control<QCheckBox>(u"done");
    QCOMPARE(done->accessibleName(), u"نمايش انجام شده ها"_s);
    done->setChecked(true);
    QCOMPARE(column(page, u"description"), open + QStringList{u"انجام شده"_s});
    QVERIFY(!standsOut(3));
}

void TestCDlgAlarms::rowTellsStateTimeAndRecord()
{
    Alarms::add(me(), 0, u"تماس"_s, [](CTblAlarm &alarm) {
        alarm.m_date = QDateTime(QDate(2024, 3, 20), QTime(8, 30), Qt::UTC);
        alarm.m_iTable = RecordKind::AutomobilDemandReminder;
        alarm.m_iRecordID = 3;
        alarm.m_iRecordID2 = 15;
        alarm.m_bRepeat = 1;
    });
    Alarms::add(me(), 500, u"آزاد"_s);
    CDlgAlarms page;
    page.open();
    const auto row = [&page](int row) {
        QStringList cells;
        for (const QStringView key : {u"row", u"state", u"date", u"time", u"description", u"record", u"repeat"})
            cells.append(page.list()->cellText(row, key));
        return cells;
    };
    QCOMPARE(row(0), (QStringList{u"1"_s, u"سررسیده"_s, u"1403/01/01"_s, u"08:30"_s, u"تماس"_s, u"یادآوری تقاضای اتومبیل 15"_s, u"بلی"_s}));
    QCOMPARE(page.list()->cellText(1, u"state"), u"در انتظار"_s);
    QCOMPARE(page.list()->cellText(1, u"record"), QString());
    QCOMPARE(page.list()->cellText(1, u"repeat"), u"-"_s);
}

void TestCDlgAlarms::searchedTextIsFound()
{
    Alarms::add(me(), -5, u"تماس با خریدار"_s);
    Alarms::add(me(), -5, u"100% پرداخت"_s);
    CDlgAlarms page;
    show(page);
    auto *text = page.filters().control<KEdit>(u"description");
    QCOMPARE(text->accessibleName(), u"شرح :"_s);
    text->setText(u"0%"_s);
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(column(page, u"description"), QStringList{u"100% پرداخت"_s});
}

void TestCDlgAlarms::doneIsTakenOffAndTold()
{
    Alarms::add(me(), -50, u"اول"_s);
    Alarms::add(me(), -5, u"دوم"_s);
    CDlgAlarms page;
    show(page);
    QSignalSpy changed(&page, &CDlgAlarms::alarmsChanged);
    page.list()->selectRow(0);
    QTest::keyClick(page.list(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(column(page, u"description"), QStringList{u"دوم"_s});
    QCOMPARE(changed.count(), 1);
    QCOMPARE(CTblAlarm::dueCount(me()), 1);
}

void TestCDlgAlarms::postponedThroughTheMenu()
{
    const int id = Alarms::add(me(), -50, u"اول"_s);
    CDlgAlarms page;
    show(page);
    QSignalSpy changed(&page, &CDlgAlarms::alarmsChanged);
    page.list()->selectRow(0);
    chooseInMenu(u"فردا"_s);
    QTest::keyClick(page.list(), Qt::Key_F4);
    QCOMPARE(column(page, u"state"), QStringList{u"در انتظار"_s});
    QCOMPARE(changed.count(), 1);
    QCOMPARE(CTblAlarm::dueCount(me()), 0);
    QCOMPARE(m_office.db.value(u"SELECT DATEDIFF(date,NOW()) FROM Alarms"_s), u"1"_s);
    QCOMPARE(page.list()->currentKey(), id);
}

// The command may stand in the menu of those that do not fit.
void TestCDlgAlarms::delaysAreOfferedAtTheButtonInSight()
{
    Alarms::add(me(), -50, u"اول"_s);
    CDlgAlarms page;
    show(page);
    page.list()->selectRow(0);
    for (const int width : {900, 330}) {
        page.resize(width, 500);
        QTRY_COMPARE(page.button(u"postpone")->isVisible(), width == 900);
        const QPushButton *shown = width == 900 ? page.button(u"postpone") : page.commandLine()->moreButton();
        QVERIFY(shown->isVisible());
        QRect place;
        chooseInMenu({}, &place);
        QVERIFY(page.runCommand(u"postpone"));
        // The edge of the screen may push it to one side.
        const QRect anchor(shown->mapToGlobal(QPoint()), shown->size());
        QCOMPARE(place.bottom() + 1, anchor.top());
        QVERIFY2(place.left() < anchor.right() && place.right() > anchor.left(), qPrintable(u"%1-%2 %3-%4"_s.arg(place.left()).arg(place.right()).arg(anchor.left()).arg(anchor.right())));
    }
}

void TestCDlgAlarms::menuLeftWithoutAChoiceChangesNothing()
{
    Alarms::add(me(), -50, u"اول"_s);
    CDlgAlarms page;
    show(page);
    page.list()->selectRow(0);
    chooseInMenu({});
    QVERIFY(page.runCommand(u"postpone"));
    QCOMPARE(CTblAlarm::dueCount(me()), 1);
}

void TestCDlgAlarms::deletedAfterTheQuestion()
{
    Alarms::add(me(), -50, u"اول"_s);
    CDlgAlarms page;
    show(page);
    page.list()->selectRow(0);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    QTest::keyClick(page.list(), Qt::Key_Delete);
    QCOMPARE(page.list()->count(), 1);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    QTest::keyClick(page.list(), Qt::Key_Delete);
    QCOMPARE(page.list()->count(), 0);
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Alarms"_s), u"0"_s);
    QCOMPARE(g_pDlgYesNo->takeShown(), (QStringList{SuiteMessages::deleteQuestion(), SuiteMessages::deleteQuestion()}));
}

void TestCDlgAlarms::keysAddAndEdit()
{
    CDlgAlarms page;
    show(page);
    Hand::inNextWindow([](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), u"یادآوری - جدید"_s);
        Hand::named<KEdit>(dialog, u"شرح :"_s)->setText(u"تازه"_s);
        dialog->accept();
    });
    QTest::keyClick(page.list(), Qt::Key_Insert);
    QCOMPARE(column(page, u"description"), QStringList{u"تازه"_s});
    QVERIFY(page.list()->currentKey() > 0);
    // There is no window manager here that would do it.
    page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    Hand::inNextWindow([](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), u"یادآوری - ویرایش"_s);
        Hand::named<KEdit>(dialog, u"شرح :"_s)->setText(u"تازه تر"_s);
        dialog->accept();
    });
    QTest::keyClick(page.list(), Qt::Key_F2);
    QCOMPARE(column(page, u"description"), QStringList{u"تازه تر"_s});
}

void TestCDlgAlarms::vanishedOneIsTakenOff()
{
    Alarms::add(me(), -50, u"اول"_s);
    CDlgAlarms page;
    show(page);
    page.list()->selectRow(0);
    m_office.db.run(u"DELETE FROM Alarms"_s);
    QTest::keyClick(page.list(), Qt::Key_F2);
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(page.list()->count(), 0);
}

void TestCDlgAlarms::closedDatabaseOnlyShows()
{
    Alarms::add(me(), -50, u"اول"_s);
    GetDBSetting()->SetClosedDB(true);
    CDlgAlarms page;
    show(page);
    QCOMPARE(page.list()->count(), 1);
    for (const char *id : {"new", "edit", "done", "postpone", "delete"})
        QVERIFY2(page.button(QString::fromLatin1(id))->isHidden(), id);
    page.list()->selectRow(0);
    QTest::keyClick(page.list(), Qt::Key_Delete);
    QCOMPARE(page.list()->count(), 1);
}

static const RegisteredTest<TestCDlgAlarms, QApplication> registeredCDlgAlarms;
#include "TestCDlgAlarms.moc"

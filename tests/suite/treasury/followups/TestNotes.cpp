// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/treasury/followups/CDlgNote.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

// Notes and calls about records: added by who may, changed and taken away by who wrote them.
class TestNotes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void kindAndNextDateAreKept();
    void wrongEntryIsRefused_data();
    void wrongEntryIsRefused();
    void changedByItsAuthorWithATrace();
    void otherDeskIsTold_data();
    void otherDeskIsTold();
    void nobodyElseChangesIt();
    void whatIsDueStaysAsItWasSaid();
    void plannedEndsWithTheNextNote();
    void closedDatabaseRefuses();
    void windowAddsChangesAndTakesAway();

private:
    int add(const QString &note, const QDateTime &next = {}, CTblFollowUps::Kind kind = CTblFollowUps::note)
    {
        return CTblFollowUps::add({.recordKind = RecordKind::Person, .recordID = m_person, .form = u"Persons"_s, .kind = kind}, note, next);
    }
    QString value(const QString &query) { return m_office.database.value(query); }
    static QDateTime inDays(int days) { return GetDBSetting()->GetDBServerDate().date().addDays(days).startOfDay(Qt::UTC); }

    TestOffice m_office;
    int m_person = 0;
};

void TestNotes::init()
{
    m_office.database.run(u"DELETE FROM FollowUps"_s);
    GetDBSetting()->Login(m_office.admin);
    KSecurity::forgetRights();
    g_pDlgWarning->takeShown();
    m_person = m_office.addPerson(u"زهرا"_s);
}

void TestNotes::kindAndNextDateAreKept()
{
    const int key = add(u" زنگ زد "_s, inDays(2), CTblFollowUps::call);
    QCOMPARE(value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iKind,sNote,iUserID,DATE(datePromised)=DATE(NOW())+INTERVAL 2 DAY) FROM FollowUps WHERE iID=%1"_s.arg(key)),
             u"1|%1|2|زنگ زد|%2|1"_s.arg(m_person).arg(m_office.admin));
}

void TestNotes::wrongEntryIsRefused_data()
{
    QTest::addColumn<QString>("note");
    QTest::addColumn<int>("days");
    QTest::addColumn<QString>("column");
    QTest::newRow("without words") << u"  "_s << 3 << u"sNote"_s;
    QTest::newRow("a day that is over") << u"زنگ"_s << -1 << u"datePromised"_s;
}

void TestNotes::wrongEntryIsRefused()
{
    QFETCH(QString, note);
    QFETCH(int, days);
    try {
        add(note, inDays(days));
        QFAIL("accepted");
    } catch (const FieldRefused &refused) {
        QTEST(refused.column(), "column");
    }
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestNotes::changedByItsAuthorWithATrace()
{
    const int key = add(u"اول"_s);
    CTblFollowUps::change(CTblFollowUps::shown(key), CTblFollowUps::call, u"دوم"_s, inDays(1));
    QCOMPARE(value(u"SELECT CONCAT(sNote,iKind) FROM FollowUps WHERE iID=%1"_s.arg(key)), u"دوم2"_s);
    QVERIFY(value(u"SELECT sValues FROM Changes WHERE sTable='FollowUps' AND iKind=1 AND iRecordID=%1"_s.arg(key)).contains(u"اول"_s));
    CTblFollowUps::take(CTblFollowUps::shown(key));
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
    QVERIFY(value(u"SELECT sValues FROM Changes WHERE sTable='FollowUps' AND iKind=2 AND iRecordID=%1"_s.arg(key)).contains(u"دوم"_s));
}

void TestNotes::otherDeskIsTold_data()
{
    QTest::addColumn<QString>("otherDesk");
    QTest::addColumn<bool>("takes");
    QTest::newRow("changed, then changed") << u"UPDATE FollowUps SET sNote='theirs'"_s << false;
    QTest::newRow("changed, then taken away") << u"UPDATE FollowUps SET sNote='theirs'"_s << true;
    QTest::newRow("another day, then changed") << u"UPDATE FollowUps SET datePromised=NOW()"_s << false;
    QTest::newRow("gone, then changed") << u"DELETE FROM FollowUps"_s << false;
    QTest::newRow("gone, then taken away") << u"DELETE FROM FollowUps"_s << true;
}

void TestNotes::otherDeskIsTold()
{
    QFETCH(QString, otherDesk);
    QFETCH(bool, takes);
    const CTblFollowUps::Shown shown = CTblFollowUps::shown(add(u"اول"_s));
    m_office.database.run(otherDesk);
    const QString before = value(u"SELECT GROUP_CONCAT(sNote) FROM FollowUps"_s);
    if (takes)
        QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::take(shown));
    else
        QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::change(shown, CTblFollowUps::note, u"mine"_s, {}));
    QCOMPARE(value(u"SELECT GROUP_CONCAT(sNote) FROM FollowUps"_s), before);
}

void TestNotes::nobodyElseChangesIt()
{
    const CTblFollowUps::Shown shown = CTblFollowUps::shown(add(u"اول"_s));
    GetDBSetting()->Login(m_office.clerk);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::shown(shown.id));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::change(shown, CTblFollowUps::note, u"mine"_s, {}));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::take(shown));
    // And without the right on persons they add none.
    QVERIFY_THROWS_EXCEPTION(KAccountingError, add(u"نو"_s));
    QCOMPARE(value(u"SELECT GROUP_CONCAT(sNote) FROM FollowUps"_s), u"اول"_s);
}

void TestNotes::whatIsDueStaysAsItWasSaid()
{
    const int key = add(u"قول داد"_s, {}, CTblFollowUps::due);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::shown(key));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::take({key, CTblFollowUps::due, u"قول داد"_s, {}}));
}

void TestNotes::plannedEndsWithTheNextNote()
{
    const auto planned = [this](int user) {
        QStringList keys;
        CTblTemp query;
        for (query.ExecuteQuery("SELECT f.iID FROM FollowUps f WHERE " + CTblFollowUps::planned(user, "CURDATE()+INTERVAL 1 DAY")); query.HasResultRow(); query.MoveNextResult())
            keys.append(query.GetTextFieldValue(0));
        return keys;
    };
    add(u"دیرتر"_s, inDays(5));
    m_person = m_office.addPerson(u"علی"_s);
    const int key = add(u"امروز"_s, inDays(0));
    QCOMPARE(planned(m_office.admin), QStringList{QString::number(key)});
    QCOMPARE(planned(m_office.clerk), QStringList());
    add(u"زنگ زدم"_s);
    QCOMPARE(planned(m_office.admin), QStringList());
}

void TestNotes::closedDatabaseRefuses()
{
    const CTblFollowUps::Shown shown = CTblFollowUps::shown(add(u"اول"_s));
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::change(shown, CTblFollowUps::note, u"نو"_s, {}));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblFollowUps::take(shown));
    GetDBSetting()->SetClosedDB(false);
    QCOMPARE(value(u"SELECT GROUP_CONCAT(sNote) FROM FollowUps"_s), u"اول"_s);
}

void TestNotes::windowAddsChangesAndTakesAway()
{
    const CTblFollowUps::Subject subject{.recordKind = RecordKind::Person, .recordID = m_person, .form = u"Persons"_s};
    CDlgNote adding(subject, u"زهرا"_s);
    adding.show();
    adding.accept();
    QVERIFY(adding.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    adding.note()->setText(u"زنگ زد"_s);
    adding.next()->setDateTime(inDays(1));
    adding.accept();
    adding.accept();
    QCOMPARE(value(u"SELECT CONCAT_WS('|',COUNT(*),MAX(sNote),MAX(iKind)) FROM FollowUps"_s), u"1|زنگ زد|2"_s);
    const int key = value(u"SELECT MAX(iID) FROM FollowUps"_s).toInt();
    CDlgNote changing(CTblFollowUps::shown(key));
    changing.show();
    QCOMPARE(changing.note()->text(), u"زنگ زد"_s);
    changing.kind()->setCurrentIndex(1);
    changing.accept();
    QCOMPARE(value(u"SELECT iKind FROM FollowUps"_s), u"1"_s);
    CDlgNote taking(CTblFollowUps::shown(key));
    taking.show();
    taking.takeAway();
    QVERIFY(!taking.isVisible());
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

static const RegisteredTest<TestNotes, QApplication> registeredNotes;
#include "TestNotes.moc"

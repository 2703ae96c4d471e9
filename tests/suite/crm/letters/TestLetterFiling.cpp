// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/letters/LetterFiling.h"
#include "suite/db/connection/CMySQLException.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

#include <thread>

namespace {

const QByteArray somePdf = "%PDF-1.6\n%%EOF\n";

QString refusedBy(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

}

// A letter is filed whole or not at all, and once.
class TestLetterFiling : public QObject
{
    Q_OBJECT

    Office m_office;
    LetterRecipient m_person;

    QString value(const QString &sql) { return m_office.db.value(sql); }
    QString standing() { return value(u"SELECT CONCAT((SELECT COUNT(*) FROM FiledPapers),' ',(SELECT COUNT(*) FROM FileDocs))"_s); }
    static Letter sample(const QString &number = u"1405/7"_s) { return {QDate(2026, 11, 23), number, u"تحویل خودرو"_s, u"خط یکم\nخط دوم 😀 '\\\""_s}; }
    qint32 file(const QString &mark = u"m"_s) { return LetterFiling::file(m_person, sample(), mark, somePdf); }

private Q_SLOTS:
    void init()
    {
        m_office.reset();
        for (const char *table : {"FiledPapers", "FileDocs", "UserRights"})
            m_office.db.run(u"DELETE FROM "_s + QLatin1String(table));
        KSecurity::forgetRights();
        m_person = {Office::addPerson(u"علی"_s, u"رضایی"_s), u"علی رضایی"_s, LetterRecipient::Address::Man};
    }

    void letterIsAFileOfThePersonAndItsWords()
    {
        const qint32 id = file();
        QCOMPARE(standing(), u"1 1"_s);
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iTable,iRecordID=%1,iScope,sName) FROM FileDocs WHERE iID=%2"_s.arg(m_person.id).arg(id)), u"1|1|0|نامه 1405_7 تحویل خودرو.pdf"_s);
        QCOMPARE(value(u"SELECT CONCAT_WS('|',p.iTable,p.iRecordID=f.iRecordID,p.iVersion,SHA2(f.oData,256)=p.sFileHash) FROM FiledPapers p JOIN FileDocs f ON f.iID=p.iFileDocID"_s), u"1|1|1|1"_s);
        const QList<LetterFiling::Filed> filed = LetterFiling::newest(10);
        QCOMPARE(filed.size(), 1);
        QCOMPARE(filed.constFirst().person, u"علی رضایی"_s);
        QCOMPARE(filed.constFirst().letter, sample());
    }

    void pressedTwiceIsFiledOnce()
    {
        const qint32 id = file();
        QCOMPARE(file(), id);
        QCOMPARE(standing(), u"1 1"_s);
        QVERIFY(file(u"another letter of the same words"_s) != id);
        QCOMPARE(standing(), u"2 2"_s);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iVersion ORDER BY iID) FROM FiledPapers"_s), u"1,2"_s);
    }

    // The two wait for each other, and none takes the other's number.
    void twoDesksAtOnce()
    {
        const int user = GetDBSetting()->GetUserID();
        QVERIFY(user > 0);
        std::thread other([this] {
            for (int i = 0; i < 5; ++i)
                file(u"other%1"_s.arg(i));
        });
        for (int i = 0; i < 5; ++i)
            file(u"mine%1"_s.arg(i));
        other.join();
        QCOMPARE(standing(), u"10 10"_s);
        QCOMPARE(value(u"SELECT CONCAT(COUNT(DISTINCT iVersion),' ',MAX(iVersion)) FROM FiledPapers"_s), u"10 10"_s);
    }

    void personDeletedMeanwhileIsSaid()
    {
        m_office.db.run(u"DELETE FROM Persons WHERE iID=%1"_s.arg(m_person.id));
        const QString told = refusedBy([&] { file(); });
        QVERIFY2(told.contains(u"علی رضایی"_s) && told.contains(u"حذف کرده است"_s), qPrintable(told));
        QCOMPARE(standing(), u"0 0"_s);
    }

    void asksTheRightToChangePersons()
    {
        m_office.loginClerk();
        KSecurity::setRights(m_office.clerk(), u"Persons"_s, KSecurity::allRights & ~KSecurity::Modify);
        KSecurity::forgetRights();
        QCOMPARE(refusedBy([&] { file(); }), KSecurity::refusalText(u"Persons"_s, KSecurity::Modify));
        QCOMPARE(standing(), u"0 0"_s);
    }

    void closedBooksTakeNone()
    {
        GetDBSetting()->SetClosedDB(true);
        QVERIFY(!refusedBy([&] { file(); }).isEmpty());
        QCOMPARE(standing(), u"0 0"_s);
    }

    void emptyPaperIsNone()
    {
        QVERIFY(!refusedBy([&] { LetterFiling::file(m_person, sample(), u"m"_s, {}); }).isEmpty());
        QCOMPARE(standing(), u"0 0"_s);
    }

    void lineCutAtCommit_data()
    {
        QTest::addColumn<int>("fault");
        QTest::addColumn<QString>("left");
        QTest::newRow("before") << int(FaultProxy::Fault::CutBeforeCommit) << u"0 0"_s;
        QTest::newRow("after") << int(FaultProxy::Fault::CutAfterCommit) << u"1 1"_s;
    }
    // And whoever presses again has one letter.
    void lineCutAtCommit()
    {
        QFETCH(int, fault);
        QFETCH(QString, left);
        FaultProxy proxy(m_office.db.settings());
        KConnection::configure(0, proxy.settings());
        KConnection::forThread().run(QByteArrayLiteral("SELECT 1"));
        proxy.failAtCommit(static_cast<FaultProxy::Fault>(fault));
        bool isTold = false;
        try {
            file();
        } catch (const CMySQLException &) {
            isTold = true;
        }
        KConnection::configure(0, m_office.db.settings());
        QCOMPARE(isTold, fault == int(FaultProxy::Fault::CutBeforeCommit));
        QCOMPARE(standing(), left);
        QVERIFY(file() > 0);
        QCOMPARE(standing(), u"1 1"_s);
    }

    // Its connection is ended between the file and the row that says what it is.
    void programThatDiesHalfWayLeavesNothing()
    {
        m_office.db.run(u"CREATE TRIGGER slow BEFORE INSERT ON FiledPapers FOR EACH ROW SET @waited=SLEEP(30)"_s);
        std::thread killer([this] {
            const QString sleeping = u"SELECT ID FROM information_schema.PROCESSLIST WHERE DB=DATABASE() AND STATE='User sleep' LIMIT 1"_s;
            QString id;
            while ((id = m_office.db.value(sleeping)).isEmpty())
                QTest::qSleep(20);
            m_office.db.run(u"KILL "_s + id);
        });
        bool isTold = false;
        try {
            file();
        } catch (const CMySQLException &) {
            isTold = true;
        }
        killer.join();
        m_office.db.run(u"DROP TRIGGER slow"_s);
        QVERIFY(isTold);
        QCOMPARE(standing(), u"0 0"_s);
        QVERIFY(file() > 0);
        QCOMPARE(standing(), u"1 1"_s);
    }

    void nextNumberFollowsTheNewest()
    {
        const QDate today(2026, 11, 23);
        QCOMPARE(LetterFiling::proposedNumber(today), u"1405/1"_s);
        LetterFiling::file(m_person, sample(u"1405/41"_s), u"a"_s, somePdf);
        QCOMPARE(LetterFiling::proposedNumber(today), u"1405/42"_s);
        LetterFiling::file(m_person, sample(QString()), u"b"_s, somePdf);
        QCOMPARE(LetterFiling::proposedNumber(today), u"1405/1"_s);
    }
};

static const RegisteredTest<TestLetterFiling, QCoreApplication> registeredLetterFiling;
#include "TestLetterFiling.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/importing/ImportMapping.h"
#include "suite/accounting/importing/Importing.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/twins/TwinSettings.h"
#include "suite/accounting/waiting/FreshView.h"
#include "suite/crm/importing/PersonImport.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/utility/sheets/CsvText.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThread>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

// Persons out of a file: what the dry run says, and that all of a file is written or nothing.
class TestPersonImport : public QObject
{
    Q_OBJECT

    Office m_office;
    PersonImport m_kind;

    QList<ImportRow> rowsOf(const QString &csv) const
    {
        const Sheet sheet = CsvText::read(csv.toUtf8());
        return ImportMapping::rows(sheet, 0, m_kind.fields(), ImportMapping::matched(m_kind.fields(), ImportMapping::titlesIn(sheet, 0)));
    }
    static Importing::File file(const QString &csv) { return {u"persons.csv"_s, QString::number(qHash(csv))}; }
    Importing::Checked check(const QString &csv) const { return Importing::check(m_kind, file(csv), rowsOf(csv)); }
    int write(const QString &csv, const Importing::Checked &agreed, const Importing::Progress &progress = {}) const
    {
        return Importing::write(m_kind, file(csv), rowsOf(csv), agreed, progress);
    }
    QString persons() { return m_office.db.value(u"SELECT GROUP_CONCAT(iCode,' ',sName2 ORDER BY iCode SEPARATOR '/') FROM Persons"_s); }
    QString count(const QString &table) { return m_office.db.value(u"SELECT COUNT(*) FROM "_s + table); }

    // As the editor of another desk saves.
    static void saveAsDesk(CTblPersons &person, qint32 key, const RowEdit::Write &enter)
    {
        RowEdit edit(person, key);
        if (key > 0)
            edit.remember([] { });
        edit.save(enter, [] { });
    }
    static void addAsDesk(const QString &name, const QString &mobile, int code = 0)
    {
        CTblPersons person;
        person.Open(true, false, true);
        saveAsDesk(person, 0, [&] {
            person.m_sName = name;
            person.m_sMobile = mobile;
            person.m_iCode = code > 0 ? code : CTblPersons::nextCode();
        });
    }
    static void changeAsDesk(qint32 key, const QString &mobile)
    {
        CTblPersons person;
        QVERIFY(person.IsRecordExist(u"iID"_s, key));
        saveAsDesk(person, key, [&] { person.m_sMobile = mobile; });
    }

private Q_SLOTS:
    void initTestCase() { CrmSearch::enter(); }
    void init()
    {
        m_office.reset();
        for (const QString &table : {u"ImportedFiles"_s, u"Changes"_s, u"SearchKeys"_s})
            m_office.db.run(u"DELETE FROM "_s + table);
        m_office.db.run(u"DELETE FROM Properties WHERE sSection='Twins'"_s);
    }

    void problems_data()
    {
        QTest::addColumn<QString>("csv");
        QTest::addColumn<QString>("says");
        const QString titles = u"نام,نام خانوادگی,کد ملی,موبایل,نوع شخص,تاریخ تولد\n"_s;
        QTest::newRow("good") << titles + u"علی,رضایی,0499370899,09121234567,حقیقی,1360/01/15"_s << QString();
        QTest::newRow("code without its noughts") << titles + u"علی,رضایی,499370899,9121234567,,"_s << QString();
        QTest::newRow("a company") << titles + u"فولاد,,10380284790,,حقوقی,"_s << QString();
        QTest::newRow("no name") << titles + u",,0499370899,,,"_s << u"نام"_s;
        QTest::newRow("a wrong check digit") << titles + u"علی,,0499370898,,,"_s << u"کد ملی"_s;
        QTest::newRow("no code at all") << titles + u"علی,,12,,,"_s << u"کد ملی"_s;
        QTest::newRow("a mobile too short") << titles + u"علی,,,0912123,,"_s << u"موبایل"_s;
        QTest::newRow("a kind nobody knows") << titles + u"علی,,,,گربه,"_s << u"نوع شخص"_s;
        QTest::newRow("no day") << titles + u"علی,,,,,1404/12/30"_s << u"تاریخ تولد"_s;
        QTest::newRow("a name too long") << titles + QString(500, u'ب') + u",,,,,"_s << u"نام"_s;
        QTest::newRow("several at once") << titles + u"علی,,12,0912,,"_s << u"کد ملی/موبایل"_s;
    }
    void problems()
    {
        QFETCH(QString, csv);
        const Importing::Checked checked = check(csv);
        QCOMPARE(checked.rows.size(), 1);
        QStringList fields;
        for (const ImportProblem &problem : checked.rows.constFirst().problems)
            fields.append(problem.field);
        QTEST(fields.join(u'/'), "says");
    }

    void allIsWritten()
    {
        Office::addPerson(u"نخست"_s, {});
        const QString csv = u"کد شخص,نام,نام خانوادگی,نام پدر,کد ملی,جنسیت,تاریخ تولد,موبایل,درصد تخفیف\n,علي,رضايي,حسن,۰۴۹۹۳۷۰۸۹۹,زن,1360/01/15,09121234567,5\n50,زهرا,,,,,,,\n,مریم,,,,,,,"_s;
        QCOMPARE(write(csv, check(csv)), 3);
        QCOMPARE(persons(), u"1 نخست/50 زهرا/51 علی رضایی/52 مریم"_s);
        QCOMPARE(m_office.db.value(u"SELECT CONCAT_WS('|',sFatherName,sNationalCode,iSex,dateBirth,sMobile,dPercentDiscount,bNatural) FROM Persons WHERE iCode=51"_s),
                 u"حسن|0499370899|1|1981-04-04 00:00:00|09121234567|5|1"_s);
        // Noted and found as any other person.
        QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Changes WHERE sTable='Persons' AND iKind=0"_s), u"4"_s);
        QVERIFY(m_office.db.value(u"SELECT COUNT(*) FROM SearchKeys WHERE sKey LIKE '%0499370899%'"_s) != u"0"_s);
    }

    void aWholeNameIsParted()
    {
        const QString csv = u"نام و نام خانوادگی,نوع شخص\nعلی رضا کریمی,\nشرکت فولاد مبارکه,حقوقی"_s;
        QCOMPARE(write(csv, check(csv)), 2);
        QCOMPARE(m_office.db.value(u"SELECT GROUP_CONCAT(sName,'+',IFNULL(sFamily,'') ORDER BY iID SEPARATOR '/') FROM Persons"_s), u"علی+رضا کریمی/شرکت فولاد مبارکه+"_s);
    }

    void twins_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("says");
        QTest::newRow("nobody") << u"100,حسین,,,,"_s << QString();
        QTest::newRow("national code") << u"100,حسین,,,0499370899,"_s << u"شخص کد 7: همان کد ملی"_s;
        QTest::newRow("mobile with its country") << u"100,حسین,,,,+989121234567"_s << u"شخص کد 7: همان موبایل"_s;
        QTest::newRow("code") << u"7,حسین,,,,"_s << u"شخص کد 7: همان کد شخص"_s;
        QTest::newRow("name and father") << u"100,علي,رضايی,حسن,,"_s << u"شخص کد 7: همین نام و نام پدر"_s;
        QTest::newRow("namesake") << u"100,علی,رضایی,حسین,,"_s << QString();
        QTest::newRow("namesake without a father") << u"100,علی,رضایی,,,"_s << QString();
    }
    void twins()
    {
        QFETCH(QString, row);
        Office::addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &person) {
            person.m_iCode = 7;
            person.m_sFatherName = u"حسن"_s;
            person.m_sNationalCode = u"0499370899"_s;
            person.m_sMobile = u"09121234567"_s;
        });
        const QString csv = u"کد شخص,نام,نام خانوادگی,نام پدر,کد ملی,موبایل\n"_s + row;
        Importing::Checked checked = check(csv);
        const std::optional<ImportTwin> twin = checked.rows.constFirst().twin;
        QTEST(twin ? twin->text : QString(), "says");
        if (!twin)
            return;
        QCOMPARE(write(csv, checked), 0);
        m_office.db.run(u"DELETE FROM ImportedFiles"_s);
        // Taken all the same, with a code of its own.
        checked = check(csv);
        checked.rows.first().takesTwin = true;
        QCOMPARE(write(csv, checked), 1);
        QCOMPARE(count(u"Persons"_s), u"2"_s);
        QCOMPARE(m_office.db.value(u"SELECT COUNT(DISTINCT iCode) FROM Persons"_s), u"2"_s);
    }

    void twinsWithinTheFile()
    {
        const QString csv = u"نام,کد ملی\nعلی,0499370899\nحسین,499370899"_s;
        const Importing::Checked checked = check(csv);
        QVERIFY(!checked.rows.at(0).twin);
        QCOMPARE(checked.rows.at(1).twin->text, u"سطر 2 همین فایل: همان کد ملی"_s);
        QCOMPARE(write(csv, checked), 1);
    }

    void aNumberThatTheOfficeTakesOnce()
    {
        Office::addPerson(u"علی"_s, {}, [](CTblPersons &person) { person.m_sNationalCode = u"0499370899"_s; });
        CTblProperties::DBWriteSetting(TwinSettings::section(), TwinSettings::nationalCode.key.toString(), u"1"_s);
        m_office.loginClerk();
        QVERIFY(check(u"نام,کد ملی\nحسین,0499370899"_s).rows.constFirst().twin->isRefused);
        m_office.loginAdmin();
        QVERIFY(!check(u"نام,کد ملی\nحسین,0499370899"_s).rows.constFirst().twin->isRefused);
    }

    void nothingOfAFileWithAnError()
    {
        const QString csv = u"نام,موبایل\nعلی,09121234567\nحسین,12"_s;
        QVERIFY_THROWS_EXCEPTION(Importing::Changed, write(csv, check(csv)));
        QCOMPARE(count(u"Persons"_s), u"0"_s);
        QCOMPARE(count(u"ImportedFiles"_s), u"0"_s);
    }

    void anotherDeskWasFirst()
    {
        const QString csv = u"نام,کد ملی\nعلی,0499370899\nمریم,"_s;
        const Importing::Checked agreed = check(csv);
        Office::addPerson(u"دیگری"_s, {}, [](CTblPersons &person) { person.m_sNationalCode = u"0499370899"_s; });
        try {
            write(csv, agreed);
            QFAIL("it was written");
        } catch (const Importing::Changed &changed) {
            QVERIFY(changed.now.rows.at(0).twin);
            QCOMPARE(changed.now.written(), 1);
            QCOMPARE(count(u"Persons"_s), u"1"_s);
            // What is seen now may be agreed to.
            QCOMPARE(write(csv, changed.now), 1);
        }
        QCOMPARE(persons(), u"1 دیگری/2 مریم"_s);
    }

    void theSameFileTwice()
    {
        const QString csv = u"نام\nعلی"_s;
        const Importing::Checked agreed = check(csv);
        QVERIFY(!agreed.earlier);
        QCOMPARE(write(csv, agreed), 1);
        // Pressed again, or by another desk at the same moment: what was agreed to is not what is there now.
        QVERIFY_THROWS_EXCEPTION(Importing::Changed, write(csv, agreed));
        QCOMPARE(count(u"Persons"_s), u"1"_s);
        const Importing::Checked again = check(csv);
        QCOMPARE(again.earlier->rows, 1);
        QCOMPARE(again.earlier->file, u"persons.csv"_s);
        QCOMPARE(write(csv, again), 1);
        QCOMPARE(count(u"Persons"_s), u"2"_s);
    }

    void stoppedHalfWay()
    {
        const QString csv = u"نام\nیک\nدو\nسه\nچهار"_s;
        const Importing::Checked agreed = check(csv);
        // Two of four are written by then.
        QVERIFY_THROWS_EXCEPTION(Importing::Stopped, write(csv, agreed, [](int done, int total) { return done < total - 2; }));
        QCOMPARE(count(u"Persons"_s), u"0"_s);
        QCOMPARE(count(u"Changes"_s), u"0"_s);
        QCOMPARE(write(csv, agreed), 4);
    }

    void theDatabaseWasClosed()
    {
        const QString csv = u"نام\nیک"_s;
        const Importing::Checked agreed = check(csv);
        GetDBSetting()->SetClosedDB(true);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, write(csv, agreed));
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(count(u"Persons"_s), u"0"_s);
    }

    // The line breaks at COMMIT: saved or not, the program knows which, and nothing is half there.
    void brokenAtCommit_data()
    {
        QTest::addColumn<FaultProxy::Fault>("fault");
        QTest::addColumn<QString>("rows");
        QTest::newRow("before the server had it") << FaultProxy::Fault::CutBeforeCommit << u"0"_s;
        QTest::newRow("after the server had it") << FaultProxy::Fault::CutAfterCommit << u"3"_s;
    }
    void brokenAtCommit()
    {
        QFETCH(FaultProxy::Fault, fault);
        QFETCH(QString, rows);
        const QString csv = u"نام\nیک\nدو\nسه"_s;
        const Importing::Checked agreed = check(csv);
        FaultProxy proxy(m_office.db.settings());
        KConnection::configure(0, proxy.settings());
        proxy.failAtCommit(fault);
        int written = 0;
        try {
            written = write(csv, agreed);
        } catch (const CMySQLException &) {
            written = 0;
        }
        KConnection::configure(0, m_office.db.settings());
        QCOMPARE(QString::number(written), rows);
        QCOMPARE(count(u"Persons"_s), rows);
        QCOMPARE(count(u"ImportedFiles"_s), rows == u"0" ? u"0"_s : u"1"_s);
    }

    // The program dies before the end: what the server has then is a transaction without an end.
    void killedHalfWay()
    {
        const QString csv = u"نام\nیک\nدو\nسه"_s;
        const Importing::Checked agreed = check(csv);
        FaultProxy proxy(m_office.db.settings());
        KConnection::configure(0, proxy.settings());
        bool failed = false;
        try {
            write(csv, agreed, [&](int done, int total) {
                if (done == total - 1)
                    proxy.setReachable(false);
                return true;
            });
        } catch (const CMySQLException &) {
            failed = true;
        }
        KConnection::configure(0, m_office.db.settings());
        QVERIFY(failed);
        QCOMPARE(count(u"Persons"_s), u"0"_s);
        // And another desk goes on at once.
        QCOMPARE(write(csv, agreed), 3);
    }

    // Another desk adds persons while the rows are being written: nobody waits, and no code is drawn twice.
    void othersGoOn()
    {
        const QString csv = u"کد شخص,نام\n,یک\n20,دو\n,سه\n,چهار"_s;
        const Importing::Checked agreed = check(csv);
        QElapsedTimer longest;
        qint64 waited = 0;
        int added = 0;
        QCOMPARE(write(csv, agreed, [&](int done, int total) {
                     if (done >= total / 2) {
                         FreshView::read([&] {
                             longest.start();
                             addAsDesk(u"میز %1"_s.arg(++added), {});
                             waited = qMax(waited, longest.elapsed());
                         });
                     }
                     return true;
                 }),
                 4);
        QCOMPARE(added, 4);
        QVERIFY2(waited < 2000, qPrintable(QString::number(waited)));
        QCOMPARE(persons(), u"20 دو/21 یک/22 سه/23 چهار/24 میز 1/25 میز 2/26 میز 3/27 میز 4"_s);
        // And the next one of all draws above them, from nothing that was kept back.
        QCOMPARE(CTblPersons::nextCode(), 28);
        QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Properties WHERE sSection='CodesReserved'"_s), u"0"_s);
    }

    // What another desk saves while the rows are being written makes one of them a twin.
    void aTwinComesMeanwhile_data()
    {
        QTest::addColumn<bool>("isOld");
        QTest::newRow("a new person") << false;
        QTest::newRow("a person who was there") << true;
    }
    void aTwinComesMeanwhile()
    {
        QFETCH(bool, isOld);
        const int old = Office::addPerson(u"دیگری"_s, {});
        const QString csv = u"نام,موبایل\nیک,09121234567\nدو,09121234568"_s;
        const Importing::Checked agreed = check(csv);
        bool done = false;
        try {
            write(csv, agreed, [&](int at, int total) {
                if (at == total - 1 && !std::exchange(done, true))
                    FreshView::read([&] { isOld ? changeAsDesk(old, u"09121234567"_s) : addAsDesk(u"تازه"_s, u"09121234567"_s); });
                return true;
            });
            QFAIL("it was written");
        } catch (const Importing::Changed &changed) {
            QCOMPARE(changed.now.twins(), 1);
            QCOMPARE(changed.now.rows.constFirst().twin->text, u"شخص کد %1: همان موبایل"_s.arg(isOld ? 1 : 4));
        }
        QCOMPARE(count(u"Persons"_s), isOld ? u"1"_s : u"2"_s);
        QCOMPARE(count(u"ImportedFiles"_s), u"0"_s);
    }

    // Codes that were kept for an import that came to nothing are drawn again.
    void codesOfNothing()
    {
        const QString csv = u"نام\nیک\nدو"_s;
        const Importing::Checked agreed = check(csv);
        QVERIFY_THROWS_EXCEPTION(Importing::Stopped, write(csv, agreed, [](int done, int total) {
                                     if (done == total - 1)
                                         return CTblPersons::nextCode() != 3;
                                     return true;
                                 }));
        QCOMPARE(CTblPersons::nextCode(), 1);
        // A program that died has given nothing back but its lease.
        CTblProperties::DBWriteSetting(u"CodesReserved"_s, u"Persons"_s, u"400"_s);
        QCOMPARE(CTblPersons::nextCode(), 1);
        QCOMPARE(write(csv, agreed), 2);
        QCOMPARE(persons(), u"1 یک/2 دو"_s);
    }

    // A code that another desk types, which was kept for a row.
    void aKeptCodeIsTyped()
    {
        const QString csv = u"نام\nیک\nدو"_s;
        const Importing::Checked agreed = check(csv);
        bool done = false;
        QVERIFY_THROWS_EXCEPTION(Importing::Changed, write(csv, agreed, [&](int at, int total) {
                                     if (at == total - 1 && !std::exchange(done, true))
                                         FreshView::read([] { addAsDesk(u"میز"_s, {}, 2); });
                                     return true;
                                 }));
        QCOMPARE(write(csv, agreed), 2);
        QCOMPARE(persons(), u"2 میز/3 یک/4 دو"_s);
    }

    void twoFilesAtOnce()
    {
        const QString csv = u"نام\nیک"_s;
        const QString other = u"نام\nدو"_s;
        const Importing::Checked agreed = check(csv);
        QString said;
        QCOMPARE(write(csv, agreed, [&](int, int) {
                     FreshView::read([&] {
                         try {
                             write(other, check(other));
                         } catch (const KAccountingError &error) {
                             said = error.userMessage();
                         }
                     });
                     return true;
                 }),
                 1);
        QVERIFY2(said.contains(u"اشخاص"_s), qPrintable(said));
        QCOMPARE(write(other, check(other)), 1);
    }

    void manyRows()
    {
        const int rows = qMax(300, qEnvironmentVariableIntValue("TZ_IMPORT_ROWS"));
        QString csv = u"نام,نام خانوادگی,نام پدر,موبایل\n"_s;
        for (int i = 0; i < rows; ++i)
            csv += u"شخص,شماره %1,پدر %1,0912%2\n"_s.arg(i).arg(i, 7, 10, QChar(u'0'));
        QElapsedTimer clock;
        clock.start();
        const Importing::Checked checked = check(csv);
        const qint64 checkedIn = clock.restart();
        QCOMPARE(checked.written(), rows);
        // Another desk saves one person after the other meanwhile.
        std::atomic_bool written = false;
        std::pair<int, qint64> desk; // how many it saved, and the longest that one took
        std::thread saving([&] {
            QElapsedTimer one;
            while (!written) {
                one.start();
                addAsDesk(u"میز %1"_s.arg(++desk.first), {});
                desk.second = qMax(desk.second, one.elapsed());
                QThread::msleep(20);
            }
            KConnection::closeThreadConnections();
        });
        const int count = write(csv, checked);
        written = true;
        saving.join();
        QCOMPARE(count, rows);
        qInfo("%d rows: dry run %lld ms, import %lld ms; another desk saved %d meanwhile, in %lld ms at most", rows, checkedIn, clock.elapsed(), desk.first, desk.second);
        QVERIFY(desk.first > 0);
        QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Persons"_s), QString::number(rows + desk.first));
        QCOMPARE(m_office.db.value(u"SELECT COUNT(DISTINCT iCode) FROM Persons"_s), QString::number(rows + desk.first));
    }
};

static const RegisteredTest<TestPersonImport, QApplication> registeredPersonImport;
#include "TestPersonImport.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/Bin.h"
#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/books/ManualDocument.h"
#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/accounting/imported/CDlgImportedFiles.h"
#include "suite/accounting/imported/ImportReturn.h"
#include "suite/accounting/importing/ImportMapping.h"
#include "suite/accounting/importing/Importing.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/waiting/FreshView.h"
#include "suite/crm/importing/OpeningImport.h"
#include "suite/crm/importing/PersonImport.h"
#include "suite/crm/persons/PersonParts.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmSubjects.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/sheets/CsvText.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;

// A file that was imported goes back as one: what is as it came goes, what is used or changed stays and is named.
class TestImportReturn : public QObject
{
    Q_OBJECT

    Office m_office;
    PersonImport m_persons;
    OpeningImport m_openings;

    static QList<ImportRow> rowsOf(const ImportKind &kind, const QString &csv)
    {
        const Sheet sheet = CsvText::read(csv.toUtf8());
        return ImportMapping::rows(sheet, 0, kind.fields(), ImportMapping::matched(kind.fields(), ImportMapping::titlesIn(sheet, 0)));
    }
    // Returns the key of the file.
    qint32 import(const ImportKind &kind, const QString &csv)
    {
        const QList<ImportRow> rows = rowsOf(kind, csv);
        const Importing::File file{u"فایل.csv"_s, QString::number(qHash(csv))};
        Importing::write(kind, file, rows, Importing::check(kind, file, rows));
        return number(u"SELECT MAX(iID) FROM ImportedFiles"_s);
    }
    qint32 importThree() { return import(m_persons, u"نام\nیک\nدو\nسه"_s); }
    QString value(const QString &statement) { return m_office.db.value(statement); }
    qint32 number(const QString &statement) { return value(statement).toInt(); }
    QString count(const QString &table) { return value(u"SELECT COUNT(*) FROM "_s + table); }
    qint32 person(const QString &name) { return number(u"SELECT iID FROM Persons WHERE sName2='%1'"_s.arg(name)); }
    QString persons() { return value(u"SELECT GROUP_CONCAT(sName2 ORDER BY iID SEPARATOR '/') FROM Persons"_s); }
    static QStringList whys(const ImportReturn::Plan &plan)
    {
        QStringList texts;
        for (const ImportReturn::Staying &one : plan.staying)
            texts.append(one.name + u": "_s + one.why);
        return texts;
    }
    static void rename(qint32 key, const QString &name)
    {
        CTblPersons person;
        QVERIFY(person.IsRecordExist(u"iID"_s, key));
        RowEdit edit(person, key);
        edit.remember([] {});
        edit.save([&] { person.m_sName = name; });
    }

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        OfficeSubjects::enter();
        CrmSubjects::enter();
        PersonParts::enter();
        CrmSearch::enter();
    }
    void init()
    {
        m_office.reset();
        for (const QString &table : {u"ImportedFiles"_s, u"ImportedRows"_s, u"Changes"_s, u"SearchKeys"_s, u"Bin"_s, u"BinRows"_s, u"Docs"_s, u"Documents"_s, u"Alarms"_s, u"FileDocs"_s, u"Receipts"_s, u"UserRights"_s})
            m_office.db.run(u"DELETE FROM "_s + table);
        g_pDlgWarning->takeShown();
        g_pDlgMessage->answerAll(true);
        g_pDlgMessage->takeShown();
        g_pDlgYesNo->takeShown();
    }

    void allGoesAndComesBack()
    {
        Office::addPerson(u"پیشین"_s, {});
        const qint32 file = importThree();
        const ImportReturn::Plan plan = ImportReturn::plan(m_persons, file);
        QCOMPARE(plan.going.size(), 3);
        QVERIFY(plan.isKnown && plan.staying.isEmpty());
        QCOMPARE(ImportReturn::run(m_persons, plan), 3);
        QCOMPARE(persons(), u"پیشین"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM SearchKeys WHERE sKey LIKE '%دو%'"_s), u"0"_s);
        // Each is in the bin, and what happened is noted of each and of the file.
        QCOMPARE(count(u"Bin"_s), u"3"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes WHERE sTable='Persons' AND iKind=2"_s), u"3"_s);
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iTakenBack,iReturnUserID>0,dateReturn IS NOT NULL) FROM ImportedFiles"_s), u"3|1|1"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes WHERE sTable='ImportedFiles' AND iKind=1"_s), u"1"_s);
        QVERIFY(ImportReturn::plan(m_persons, file).going.isEmpty());
        // The same file may come again, and nobody is warned of it.
        importThree();
        QCOMPARE(persons(), u"پیشین/یک/دو/سه"_s);
    }

    void whatIsUsedStays()
    {
        const qint32 file = importThree();
        rename(person(u"یک"_s), u"یکم"_s);
        m_office.db.run(u"INSERT INTO Alarms(iTable,iRecordID) VALUES(%1,%2)"_s.arg(RecordKind::Person).arg(person(u"دو"_s)));
        const ImportReturn::Plan plan = ImportReturn::plan(m_persons, file);
        QCOMPARE(plan.going, QList<qint32>{person(u"سه"_s)});
        const QStringList texts = whys(plan);
        QCOMPARE(texts.size(), 2);
        QVERIFY2(texts.at(0).startsWith(u"شخص 1 - یکم: کاربر «admin»"_s) && texts.at(0).endsWith(u"آن را تغییر داده است"_s), qPrintable(texts.at(0)));
        QCOMPARE(texts.at(1), u"شخص 2 - دو: به کار رفته است: یادآوری"_s);
        QCOMPARE(ImportReturn::run(m_persons, plan), 1);
        QCOMPARE(persons(), u"یکم/دو"_s);
    }

    // What is attached to a record of another kind with the same key is no use of this one.
    void anotherKindWithTheSameKey()
    {
        const qint32 file = importThree();
        for (const QString &table : {u"Alarms"_s, u"FileDocs"_s})
            m_office.db.run(u"INSERT INTO %1(iTable,iRecordID) VALUES(%2,%3)"_s.arg(table).arg(RecordKind::AutomobilContract).arg(person(u"دو"_s)));
        QCOMPARE(whys(ImportReturn::plan(m_persons, file)), QStringList());
        m_office.db.run(u"UPDATE FileDocs SET iTable=%1"_s.arg(RecordKind::Person));
        QCOMPARE(ImportReturn::plan(m_persons, file).staying.size(), 1);
    }

    void usedInTheBooks()
    {
        const qint32 file = importThree();
        import(m_openings, u"حساب,شخص,بدهکار,بستانکار\n,دو,500,\n110101,,,500"_s);
        const QStringList texts = whys(ImportReturn::plan(m_persons, file));
        QCOMPARE(texts, QStringList{u"شخص 2 - دو: به کار رفته است: سند حسابداری"_s});
    }

    // One that was deleted by hand and came back is somebody's own work by now.
    void whatCameBackStays()
    {
        const qint32 file = importThree();
        const ImportReturn::Plan first = ImportReturn::plan(m_persons, file);
        ImportReturn::run(m_persons, first);
        BinRestoring::run(*Bin::entry(number(u"SELECT MIN(iID) FROM Bin"_s)));
        const ImportReturn::Plan plan = ImportReturn::plan(m_persons, file);
        QVERIFY(plan.going.isEmpty());
        QCOMPARE(plan.staying.size(), 1);
    }

    void anOpeningGoesWithItsDocument()
    {
        const QString csv = u"حساب,بدهکار,بستانکار\n110101,500,\n110201,,500"_s;
        const qint32 file = import(m_openings, csv);
        QCOMPARE(count(u"Docs"_s), u"2"_s);
        const ImportReturn::Plan plan = ImportReturn::plan(m_openings, file);
        QCOMPARE(whys(plan).join(u"/"_s), QString());
        QCOMPARE(plan.going.size(), 1);
        QCOMPARE(ImportReturn::run(m_openings, plan), 1);
        QCOMPARE(count(u"Documents"_s), u"0"_s);
        QCOMPARE(count(u"Docs"_s), u"0"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes WHERE sTable='Documents' AND iKind=2"_s), u"1"_s);
        // One that was changed by hand stays.
        const qint32 again = import(m_openings, csv);
        ManualDocument document = ManualDocument::load(number(u"SELECT iNum FROM Documents"_s), number(u"SELECT iFiscalYear FROM Documents"_s));
        document.desc = u"دیگر"_s;
        document.save();
        QVERIFY(ImportReturn::plan(m_openings, again).going.isEmpty());
        QCOMPARE(ImportReturn::plan(m_openings, again).staying.size(), 1);
    }

    // What another desk does between the look and the press, and while the rows go.
    void anotherDesk_data()
    {
        QTest::addColumn<bool>("isMeanwhile");
        QTest::newRow("before") << false;
        QTest::newRow("meanwhile") << true;
    }
    void anotherDesk()
    {
        QFETCH(bool, isMeanwhile);
        const qint32 file = importThree();
        const ImportReturn::Plan plan = ImportReturn::plan(m_persons, file);
        const qint32 last = person(u"سه"_s);
        bool done = false;
        const auto change = [&] {
            if (!std::exchange(done, true))
                FreshView::read([&] { rename(last, u"سوم"_s); });
        };
        if (!isMeanwhile)
            change();
        try {
            ImportReturn::run(m_persons, plan, [&](int, int) {
                change();
                return true;
            });
            QFAIL("it was taken back");
        } catch (const ImportReturn::Changed &changed) {
            QCOMPARE(changed.now.going.size(), 2);
            QCOMPARE(persons(), u"یک/دو/سوم"_s);
            QCOMPARE(count(u"Bin"_s), u"0"_s);
            QCOMPARE(ImportReturn::run(m_persons, changed.now), 2);
        }
        QCOMPARE(persons(), u"سوم"_s);
    }

    // One that goes nobody changes any more: the other desk waits, and is told.
    void theOtherDeskIsTooLate()
    {
        const qint32 file = importThree();
        const qint32 first = person(u"یک"_s);
        QString said;
        ImportReturn::run(m_persons, ImportReturn::plan(m_persons, file), [&](int done, int) {
            if (done == 2)
                FreshView::read([&] {
                    KConnection::forThread().run(QByteArrayLiteral("SET SESSION innodb_lock_wait_timeout=1"));
                    try {
                        rename(first, u"یکم"_s);
                    } catch (const std::exception &error) {
                        said = QString::fromUtf8(error.what());
                    }
                });
            return true;
        });
        QVERIFY(!said.isEmpty());
        QCOMPARE(count(u"Persons"_s), u"0"_s);
    }

    // Thousands of rows take their time; who works on something else meanwhile waits for none of them.
    void otherDesksGoOn()
    {
        Office::addPerson(u"پیشین"_s, {});
        const qint32 before = person(u"پیشین"_s);
        const qint32 file = importThree();
        Office::addPerson(u"پسین"_s, {});
        const qint32 after = person(u"پسین"_s);
        QString refused = u"nothing was saved"_s;
        ImportReturn::run(m_persons, ImportReturn::plan(m_persons, file), [&](int done, int) {
            if (done == 2)
                FreshView::read([&] {
                    KConnection::forThread().run(QByteArrayLiteral("SET SESSION innodb_lock_wait_timeout=1"));
                    try {
                        rename(before, u"یکمین"_s);
                        rename(after, u"دومین"_s);
                        Office::addPerson(u"تازه"_s, {});
                        for (const qint32 key : {before, after}) {
                            for (const QString &table : {u"Alarms"_s, u"FileDocs"_s})
                                KConnection::forThread().run(KSql::formatted("INSERT INTO %1(iTable,iRecordID) VALUES(%2,%3)", KSql::name(table), static_cast<int>(RecordKind::Person), key));
                        }
                        refused.clear();
                    } catch (const CMySQLException &error) {
                        refused = QString::fromUtf8(error.what());
                    }
                });
            return true;
        });
        QCOMPARE(refused, QString());
        QCOMPARE(persons(), u"یکمین/دومین/تازه"_s);
    }

    void pressedTwice()
    {
        const qint32 file = importThree();
        const ImportReturn::Plan plan = ImportReturn::plan(m_persons, file);
        QString said;
        QCOMPARE(ImportReturn::run(m_persons, plan, [&](int, int) {
                     if (said.isEmpty())
                         FreshView::read([&] {
                             try {
                                 ImportReturn::run(m_persons, plan);
                             } catch (const KAccountingError &error) {
                                 said = error.userMessage();
                             }
                         });
                     return true;
                 }),
                 3);
        QVERIFY2(said.contains(u"برگردانده می‌شود"_s), qPrintable(said));
        QVERIFY_THROWS_EXCEPTION(ImportReturn::Changed, ImportReturn::run(m_persons, plan));
        QCOMPARE(count(u"Bin"_s), u"3"_s);
        QCOMPARE(value(u"SELECT iTakenBack FROM ImportedFiles"_s), u"3"_s);
    }

    void stopped()
    {
        const qint32 file = importThree();
        QVERIFY_THROWS_EXCEPTION(LongTask::Stopped, ImportReturn::run(m_persons, ImportReturn::plan(m_persons, file), [](int done, int) { return done < 2; }));
        QCOMPARE(persons(), u"یک/دو/سه"_s);
        QCOMPARE(count(u"Bin"_s), u"0"_s);
    }

    void onlyWhoMayDelete()
    {
        const qint32 file = importThree();
        const ImportReturn::Plan plan = ImportReturn::plan(m_persons, file);
        m_office.loginClerk();
        QVERIFY_THROWS_EXCEPTION(KAccountingError, ImportReturn::run(m_persons, plan));
        KSecurity::setRights(m_office.clerk(), u"Persons"_s, KSecurity::Delete);
        GetDBSetting()->SetClosedDB(true);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, ImportReturn::run(m_persons, plan));
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(persons(), u"یک/دو/سه"_s);
        QCOMPARE(ImportReturn::run(m_persons, plan), 3);
        m_office.loginAdmin();
    }

    void brokenAtCommit_data()
    {
        QTest::addColumn<FaultProxy::Fault>("fault");
        QTest::addColumn<QString>("left");
        QTest::newRow("before the server had it") << FaultProxy::Fault::CutBeforeCommit << u"3"_s;
        QTest::newRow("after the server had it") << FaultProxy::Fault::CutAfterCommit << u"0"_s;
    }
    void brokenAtCommit()
    {
        QFETCH(FaultProxy::Fault, fault);
        QFETCH(QString, left);
        const ImportReturn::Plan plan = ImportReturn::plan(m_persons, importThree());
        FaultProxy proxy(m_office.db.settings());
        KConnection::configure(0, proxy.settings());
        proxy.failAtCommit(fault);
        int taken = 0;
        try {
            taken = ImportReturn::run(m_persons, plan);
        } catch (const CMySQLException &) {
            taken = 0;
        }
        KConnection::configure(0, m_office.db.settings());
        QCOMPARE(count(u"Persons"_s), left);
        QCOMPARE(taken, 3 - left.toInt());
        QCOMPARE(count(u"Bin"_s), QString::number(taken));
    }

    void ofATimeBefore()
    {
        importThree();
        m_office.db.run(u"DELETE FROM ImportedRows"_s);
        CDlgImportedFiles window(m_persons);
        QVERIFY2(window.outcome().contains(u"نسخه پیشین"_s), qPrintable(window.outcome()));
        QVERIFY(!window.OnOK());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(persons(), u"یک/دو/سه"_s);
    }

    void theWindow()
    {
        CDlgImportedFiles empty(m_persons);
        QCOMPARE(empty.files()->count(), 0);
        QCOMPARE(empty.outcome(), u"فایلی وارد نشده است."_s);
        importThree();
        import(m_persons, u"نام\nچهار"_s);
        rename(person(u"یک"_s), u"یکم"_s);
        CDlgImportedFiles window(m_persons);
        window.show();
        QCOMPARE(window.files()->count(), 2);
        QCOMPARE(window.outcome(), u"1 ردیف برمی‌گردد، 0 ردیف می‌ماند"_s);
        window.files()->selectRow(1);
        QCOMPARE(window.outcome(), u"2 ردیف برمی‌گردد، 1 ردیف می‌ماند"_s);
        QCOMPARE(window.staying()->cellText(0, 0), u"شخص 1 - یکم"_s);
        // Nothing goes before the answer.
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window.OnOK();
        QCOMPARE(count(u"Persons"_s), u"4"_s);
        QVERIFY(g_pDlgYesNo->takeShown().constFirst().contains(u"1 ردیف که پس از ورود تغییر کرده"_s));
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        window.OnOK();
        QCOMPARE(persons(), u"یکم/چهار"_s);
        QVERIFY(g_pDlgMessage->takeShown().constFirst().startsWith(u"2 ردیف برگردانده شد."_s));
        QCOMPARE(window.files()->cellText(1, 5), u"2"_s);
        QCOMPARE(window.outcome(), u"0 ردیف برمی‌گردد، 1 ردیف می‌ماند"_s);
        QVERIFY(window.isVisible());
    }

    void manyRows()
    {
        const int rows = qMax(300, qEnvironmentVariableIntValue("TZ_IMPORT_ROWS"));
        QString csv = u"نام,نام خانوادگی\n"_s;
        for (int i = 0; i < rows; ++i)
            csv += u"شخص,شماره %1\n"_s.arg(i);
        const qint32 file = import(m_persons, csv);
        QElapsedTimer clock;
        clock.start();
        const ImportReturn::Plan plan = ImportReturn::plan(m_persons, file);
        const qint64 planned = clock.restart();
        QCOMPARE(ImportReturn::run(m_persons, plan), rows);
        qInfo("%d rows: looked at in %lld ms, taken back in %lld ms", rows, planned, clock.elapsed());
        QCOMPARE(count(u"Persons"_s), u"0"_s);
    }
};

static const RegisteredTest<TestImportReturn, QApplication> registeredImportReturn;
#include "TestImportReturn.moc"

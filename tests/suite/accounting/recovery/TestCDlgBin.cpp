// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/bin/CarRecordParts.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/subjects/AutoSubjects.h"
#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/recovery/CDlgBin.h"
#include "suite/accounting/recovery/CDlgBinEntry.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The list of what was deleted: who sees what, and what each command does.
class TestCDlgBin : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void run(const QString &statement) { m_office->database().run(statement); }

    Bin::Entry deletedContract()
    {
        const PostedContract posted(*m_office);
        run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iNum,dAmount) VALUES(%1,1,2500000),(%1,2,1)"_s.arg(posted.key));
        CTblAutomobilContracts asked;
        ContractDeleting::run(posted.load(asked));
        return Bin::entryOf(u"AutomobilContracts"_s, posted.key).value_or(Bin::Entry());
    }
    Bin::Entry deletedPerson()
    {
        const int key = m_office->addPerson(u"ناصر"_s, u"مرادی"_s);
        CTblPersons asked;
        if (!asked.IsRecordExist(u"iID"_s, key))
            qFatal("the person is gone");
        RowDeleting::run(asked);
        return Bin::entryOf(u"Persons"_s, key).value_or(Bin::Entry());
    }
    static std::unique_ptr<CDlgBin> shown()
    {
        auto page = std::make_unique<CDlgBin>();
        page->resize(1100, 600);
        page->show();
        return page;
    }

private Q_SLOTS:
    void initTestCase()
    {
        CarRecordParts::enter();
        AutoSubjects::enter();
        m_office = std::make_unique<TestOffice>();
    }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->logInAsAdmin();
        for (const char *table : {"Bin", "BinRows", "Changes", "AutomobilPayments"})
            run(u"DELETE FROM "_s + QLatin1String(table));
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->takeShown();
    }

    void aRowSaysWhatWasDeletedByWhomAndWithWhat()
    {
        const Bin::Entry entry = deletedContract();
        run(u"UPDATE Bin SET date=NOW()-INTERVAL 85 DAY"_s);
        const auto page = shown();
        QCOMPARE(page->list()->count(), 1);
        QCOMPARE(page->list()->cellText(0, u"kind"), u"قرارداد"_s);
        QVERIFY2(page->list()->cellText(0, u"title").startsWith(QString::number(1)), qPrintable(page->list()->cellText(0, u"title")));
        QCOMPARE(page->list()->cellText(0, u"contents"), u"سند، 2 قسط"_s);
        QCOMPARE(page->list()->cellText(0, u"left"), u"5"_s);
        QCOMPARE(page->list()->cellText(0, u"user"), value(u"SELECT sUser FROM Users WHERE iID=%1"_s.arg(entry.userID)));
    }

    void twoClicksBringItBack()
    {
        const Bin::Entry entry = deletedContract();
        const auto page = shown();
        page->list()->selectKey(entry.id);
        page->button(u"restore")->click();
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList(u"%1 بازگشت."_s.arg(entry.name())));
        QCOMPARE(page->list()->count(), 0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
        page->button(u"restore")->click();
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    }

    void whatAnotherBroughtBackMeanwhileIsSaid()
    {
        const Bin::Entry entry = deletedContract();
        const auto page = shown();
        BinRestoring::run(entry);
        page->button(u"restore")->click();
        QVERIFY(g_pDlgWarning->takeShown().value(0).contains(u"دیگر در سطل بازیافت نیست"_s));
        QCOMPARE(page->list()->count(), 0);
    }

    void othersSeeTheirOwnAndDeleteNothingForGood()
    {
        deletedContract();
        m_office->logInAs(u"sima"_s, u"Persons"_s, KSecurity::allRights);
        const Bin::Entry own = deletedPerson();
        QVERIFY(CDlgBin::mayOpen());
        const auto page = shown();
        QCOMPARE(page->list()->count(), 1);
        QCOMPARE(page->list()->currentKey(), own.id);
        QVERIFY(!page->button(u"delete") && !page->button(u"empty"));
        m_office->logInAsAdmin();
        QCOMPARE(shown()->list()->count(), 2);
    }

    void whoMayDeleteNothingIsTold()
    {
        m_office->logInAs(u"nima"_s, u"Persons"_s, KSecurity::Access | KSecurity::Read);
        CDlgBin page;
        QVERIFY(!page.OnAccess());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void filtersByKindUserAndDay_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("rows");
        QTest::newRow("nothing") << u"kind"_s << QVariant(0) << 2;
        QTest::newRow("kind") << u"kind"_s << QVariant(1) << 1;
        QTest::newRow("title") << u"title"_s << QVariant(u"ناصر"_s) << 1;
        QTest::newRow("from tomorrow") << u"from"_s << QVariant(QDateTime(QDate::currentDate().addDays(2), QTime(0, 0), Qt::UTC)) << 0;
        QTest::newRow("up to today") << u"to"_s << QVariant(QDateTime(QDate::currentDate().addDays(1), QTime(0, 0), Qt::UTC)) << 2;
    }
    void filtersByKindUserAndDay()
    {
        QFETCH(QString, filter);
        QFETCH(QVariant, value);
        QFETCH(int, rows);
        deletedContract();
        deletedPerson();
        const auto page = shown();
        page->filters().set(filter, value);
        page->refill();
        QCOMPARE(page->list()->count(), rows);
    }

    void deletionForGoodAsksFirst()
    {
        const Bin::Entry entry = deletedContract();
        deletedPerson();
        const auto page = shown();
        page->list()->selectKey(entry.id);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        page->runCommand(u"delete");
        QCOMPARE(value(u"SELECT COUNT(*) FROM Bin"_s), u"2"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page->runCommand(u"delete");
        QCOMPARE(value(u"SELECT COUNT(*) FROM Bin"_s), u"1"_s);
        QVERIFY(g_pDlgYesNo->takeShown().value(0).contains(entry.name()));
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page->runCommand(u"empty");
        QCOMPARE(value(u"SELECT COUNT(*)+(SELECT COUNT(*) FROM BinRows) FROM Bin"_s), u"0"_s);
        QCOMPARE(page->list()->count(), 0);
    }

    void nothingIsOfferedInAClosedDatabase()
    {
        deletedContract();
        GetDBSetting()->SetClosedDB(true);
        const auto page = shown();
        const bool offered = page->isOffered(u"restore") || page->isOffered(u"delete") || page->isOffered(u"empty");
        const bool shows = page->isOffered(u"show");
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(!offered && shows);
    }

    void detailsAreInWords()
    {
        const Bin::Entry entry = deletedContract();
        const CDlgBinEntry window(entry);
        const auto *list = window.findChild<KExtListCtrl *>();
        QStringList lines;
        for (int row = 0; row < list->count(); ++row)
            lines.append(list->cellText(row, 0) + u'|' + list->cellText(row, 1));
        QVERIFY2(lines.contains(u"شخص طرف اول|رضا احمدی"_s), qPrintable(lines.join(u'\n')));
        QVERIFY2(lines.contains(u"کميسيون|1,000"_s), qPrintable(lines.join(u'\n')));
        QVERIFY2(lines.contains(u"سند|"_s) && lines.contains(u"قسط 2|"_s), qPrintable(lines.join(u'\n')));
        QVERIFY2(lines.contains(u"مبلغ|2,500,000"_s), qPrintable(lines.join(u'\n')));
    }
};

static const RegisteredTest<TestCDlgBin, QApplication> registeredCDlgBin;
#include "TestCDlgBin.moc"

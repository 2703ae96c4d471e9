// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/bin/CarRecordParts.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/subjects/AutoSubjects.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/recovery/BackupRecords.h"
#include "suite/accounting/recovery/CDlgRecordDifferences.h"
#include "suite/accounting/recovery/CDlgRestoreRecords.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/SameDatabase.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

// Single records out of a backup, which stands beside the office as database 1.
class TestBackupRecords : public QObject
{
    Q_OBJECT

    static constexpr int backup = 1;
    const QString contracts = u"AutomobilContracts"_s;
    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<TestDatabase> m_backup;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void run(const QString &statement) { m_office->database().run(statement); }

    int plannedContract()
    {
        const PostedContract posted(*m_office);
        run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iNum,date,dAmount) VALUES(%1,1,NOW(),2500000),(%1,2,NOW(),1)"_s.arg(posted.key));
        run(u"INSERT INTO FileDocs(iTable,iRecordID,sName,oData) VALUES(69,%1,'a','b')"_s.arg(posted.key));
        return posted.key;
    }
    // The office as it is now, as the backup.
    void takeBackup()
    {
        m_backup->recreate();
        CTblTemp tables;
        QStringList names;
        for (tables.ExecuteQuery("SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE()"); tables.HasResultRow(); tables.MoveNextResult())
            names.append(tables.GetTextFieldValue(0));
        for (const QString &name : std::as_const(names)) {
            m_backup->run(u"CREATE TABLE %1 LIKE %2.%1"_s.arg(name, m_office->database().name()));
            m_backup->run(u"INSERT INTO %1 SELECT * FROM %2.%1"_s.arg(name, m_office->database().name()));
        }
        KTableSchema::forgetAll();
    }
    void removeForGood(int key)
    {
        CTblAutomobilContracts asked;
        if (!asked.IsRecordExist(u"iID"_s, key))
            qFatal("the contract is gone");
        ContractDeleting::run(asked);
        run(u"DELETE FROM Bin"_s);
        run(u"DELETE FROM BinRows"_s);
    }
    static QString refusal(const std::function<void()> &work)
    {
        try {
            work();
        } catch (const KAccountingError &error) {
            return error.userMessage();
        }
        return {};
    }

private Q_SLOTS:
    void initTestCase()
    {
        CarRecordParts::enter();
        AutoSubjects::enter();
        m_office = std::make_unique<TestOffice>();
        m_backup = std::make_unique<TestDatabase>(backup);
    }
    void cleanupTestCase()
    {
        m_backup.reset();
        m_office.reset();
    }
    void init()
    {
        m_office->clear();
        m_office->logInAsAdmin();
        for (const char *table : {"Bin", "BinRows", "Changes", "AutomobilPayments", "FileDocs", "Receipts"})
            run(u"DELETE FROM "_s + QLatin1String(table));
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->takeShown();
    }

    void aMissingOneComesBackWithAllOfIt()
    {
        const int key = plannedContract();
        takeBackup();
        const SameDatabase before;
        removeForGood(key);
        QCOMPARE(BackupRecords::stateOf(contracts, key, backup), BackupRecords::State::Missing);
        const BinRestoring::Restored restored = BackupRecords::restore(contracts, key, backup, false);
        QCOMPARE(restored.key, key);
        QCOMPARE(before.differences(), QString());
        QCOMPARE(BackupRecords::stateOf(contracts, key, backup), BackupRecords::State::Same);
    }

    void itsPersonsComeAlong()
    {
        const int key = plannedContract();
        takeBackup();
        const SameDatabase before;
        removeForGood(key);
        run(u"DELETE FROM Persons"_s);
        const BinRestoring::Restored restored = BackupRecords::restore(contracts, key, backup, false);
        QCOMPARE(before.differences(), QString());
        QVERIFY2(restored.message.contains(u"رضا احمدی هم بازگشت"_s), qPrintable(restored.message));
    }

    // After going back to an older database, the keys of the lost days are given again.
    void aKeyThatSomebodyElseHasNowIsNotTakenForTheSame()
    {
        const int key = plannedContract();
        takeBackup();
        removeForGood(key);
        run(u"UPDATE Persons SET sName='حسن',sFamily='نوری',sName2='حسن نوری',sNationalCode='1'"_s);
        const BinRestoring::Restored restored = BackupRecords::restore(contracts, key, backup, false);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(p.sName2 ORDER BY p.iID) FROM Persons p JOIN AutomobilContracts c ON p.iID IN (c.iPersonFirstID,c.iPersonSecondID)"_s), u"رضا احمدی,مریم کریمی"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Docs d JOIN Persons p ON p.iID=d.iPersonID WHERE p.sName2='حسن نوری'"_s), u"0"_s);
        QCOMPARE(value(u"SELECT COUNT(DISTINCT d.iPersonID) FROM Docs d JOIN AutomobilContracts c ON d.iPersonID IN (c.iPersonFirstID,c.iPersonSecondID)"_s), u"2"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Persons"_s), u"4"_s);
        QVERIFY2(restored.message.contains(u"رضا احمدی هم بازگشت"_s), qPrintable(restored.message));
    }

    void aPersonThatIsThereUnderAnotherKeyIsMet()
    {
        const int key = plannedContract();
        run(u"UPDATE Persons SET sNationalCode=CONCAT('00000000',iID)"_s);
        takeBackup();
        removeForGood(key);
        run(u"UPDATE Persons SET iID=iID+1000"_s);
        BackupRecords::restore(contracts, key, backup, false);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Persons"_s), u"2"_s);
        QCOMPARE(value(u"SELECT CONCAT(iPersonFirstID>1000,iPersonSecondID>1000) FROM AutomobilContracts"_s), u"11"_s);
    }

    void theYearOfTheDocumentIsThatOfItsBooks_data()
    {
        QTest::addColumn<int>("backupYear"); // later than the document's
        QTest::addColumn<bool>("isNoted");   // the deletion, after this year was opened
        QTest::addColumn<int>("movedBy");
        QTest::newRow("closed when the backup was taken") << 1 << false << 0;
        QTest::newRow("deleted out of closed books") << 0 << true << 0;
        QTest::newRow("nobody knows") << 0 << false << 1;
    }
    void theYearOfTheDocumentIsThatOfItsBooks()
    {
        QFETCH(int, backupYear);
        QFETCH(bool, isNoted);
        QFETCH(int, movedBy);
        const int key = plannedContract();
        const int year = value(u"SELECT iFiscalYear FROM Documents"_s).toInt();
        GetDBSetting()->SetFiscalYear(year + backupYear);
        takeBackup();
        // Books that are closed keep their contracts.
        GetDBSetting()->SetFiscalYear(year);
        removeForGood(key);
        if (!isNoted)
            run(u"DELETE FROM Changes"_s);
        GetDBSetting()->SetFiscalYear(year + 1);
        m_office->setFiscalYearOpening(QDate::currentDate().addDays(-30));
        BackupRecords::restore(contracts, key, backup, false);
        QCOMPARE(value(u"SELECT iFiscalYear FROM AutomobilContracts"_s).toInt(), year + movedBy);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Docs d JOIN AutomobilContracts c ON c.iDocNum=d.iDocNum AND c.iFiscalYear=d.iFiscalYear"_s), u"4"_s);
    }

    void whatWasReceivedThenIsOpenNow()
    {
        const int key = plannedContract();
        run(u"UPDATE AutomobilPayments SET iStatus=1"_s);
        takeBackup();
        run(u"UPDATE AutomobilPayments SET iStatus=0"_s);
        run(u"INSERT INTO Receipts(iTable,iRecordID,iPaymentID,dAmount,iStatus) SELECT 69,%1,iID,2500000,1 FROM AutomobilPayments WHERE iNum=1"_s.arg(key));
        removeForGood(key);
        BackupRecords::restore(contracts, key, backup, false);
        // The second one was marked by hand.
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iNum,':',iStatus ORDER BY iNum) FROM AutomobilPayments"_s), u"1:0,2:1"_s);
    }

    void oneInTheBinIsToldToBeThere()
    {
        const int key = plannedContract();
        takeBackup();
        CTblAutomobilContracts asked;
        QVERIFY(asked.IsRecordExist(u"iID"_s, key));
        ContractDeleting::run(asked);
        const SameDatabase before;
        QVERIFY(refusal([&] { BackupRecords::restore(contracts, key, backup, false); }).contains(u"سطل بازیافت"_s));
        QCOMPARE(before.differences(), QString());
    }

    // The one that is there stays as it is, and its money counts once.
    void oneThatIsThereComesBackAsANewOneOnly()
    {
        const int key = plannedContract();
        takeBackup();
        run(u"UPDATE AutomobilContracts SET sDesc='now'"_s);
        const SameDatabase before;
        QVERIFY(!refusal([&] { BackupRecords::restore(contracts, key, backup, false); }).isEmpty());
        QCOMPARE(before.differences(), QString());
        const BinRestoring::Restored restored = BackupRecords::restore(contracts, key, backup, true);
        QVERIFY(restored.key != key);
        QCOMPARE(value(u"SELECT CONCAT(iCode,'/',iDocNum,'/',IFNULL(sDesc,'')) FROM AutomobilContracts WHERE iID=%1"_s.arg(restored.key)), u"2/0/"_s);
        QCOMPARE(value(u"SELECT sDesc FROM AutomobilContracts WHERE iID=%1"_s.arg(key)), u"now"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents"_s), u"1"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments WHERE iAutomobilContractID=%1"_s.arg(restored.key)), u"2"_s);
    }

    void anOlderBackupLacksColumns()
    {
        const int key = plannedContract();
        takeBackup();
        m_backup->run(u"ALTER TABLE AutomobilContracts DROP COLUMN sNote10, DROP COLUMN sAutomobilName"_s);
        KTableSchema::forgetAll();
        removeForGood(key);
        QCOMPARE(BackupRecords::find(contracts, u"احمدی"_s, backup).size(), 1);
        BackupRecords::restore(contracts, key, backup, false);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    }

    void onlyAdministratorsInAnOpenDatabase_data()
    {
        QTest::addColumn<bool>("admin");
        QTest::addColumn<bool>("closed");
        QTest::newRow("clerk") << false << false;
        QTest::newRow("closed") << true << true;
    }
    void onlyAdministratorsInAnOpenDatabase()
    {
        QFETCH(bool, admin);
        QFETCH(bool, closed);
        const int key = plannedContract();
        takeBackup();
        removeForGood(key);
        if (!admin)
            m_office->logInAs(u"sima"_s, contracts, KSecurity::allRights);
        GetDBSetting()->SetClosedDB(closed);
        const QString told = refusal([&] { BackupRecords::restore(contracts, key, backup, false); });
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(!told.isEmpty());
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"0"_s);
    }

    void differencesAreInWords()
    {
        const int key = plannedContract();
        takeBackup();
        run(u"UPDATE AutomobilContracts SET dCommission=1500"_s);
        run(u"DELETE FROM AutomobilPayments WHERE iNum=2"_s);
        QStringList lines;
        for (const BackupRecords::Difference &one : BackupRecords::differences(contracts, key, backup))
            lines.append(one.caption + u'|' + one.then + u'|' + one.now);
        QCOMPARE(lines, (QStringList{u"کميسيون|1,000|1,500"_s, u"به همراه|سند، 2 قسط، 1 پرونده|سند، 1 قسط، 1 پرونده"_s}));
    }

    void theWindowFindsAndBringsBack()
    {
        const int gone = plannedContract();
        const int there = plannedContract();
        takeBackup();
        removeForGood(gone);
        run(u"UPDATE AutomobilContracts SET sDesc='now'"_s);
        CDlgRestoreRecords window(backup);
        window.show();
        window.findChild<QComboBox *>()->setCurrentText(u"قرارداد"_s);
        QCOMPARE(window.list()->count(), 2);
        QVERIFY(window.list()->selectKey(gone));
        QCOMPARE(window.list()->cellText(window.list()->currentRow(), 1), u"نیست"_s);
        window.findChild<KEdit *>()->setText(u"1"_s);
        window.search();
        QVERIFY(window.list()->selectKey(gone));
        QCOMPARE(window.list()->currentRow(), 0);
        const auto press = [&](const QString &name) {
            for (QPushButton *button : window.findChildren<QPushButton *>()) {
                if (button->text() == name)
                    return button->click();
            }
            QFAIL("no such button");
        };
        press(u"بازگردانی"_s);
        QVERIFY(g_pDlgMessage->takeShown().value(0).contains(u"بازگشت"_s));
        QCOMPARE(window.list()->cellText(0, 1), u"همان است"_s);
        press(u"بازگردانی"_s);
        QVERIFY(g_pDlgMessage->takeShown().value(0).contains(u"همان است"_s));
        window.findChild<KEdit *>()->clear();
        window.search();
        QVERIFY(window.list()->selectKey(there));
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        press(u"بازگردانی"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"2"_s);
    }
};

static const RegisteredTest<TestBackupRecords, QApplication> registeredBackupRecords;
#include "TestBackupRecords.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"

#include "suite/db/connection/CMySQLException.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCTblAutomobilContracts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void bindingsStandInOrderWithTheirCaptions();
    void everyColumnOfTheTableIsBound();
    void constructionSetsZeroAndEmpty();
    void everyMemberIsStoredAndReadBack();
    void nextCodeOnAnEmptyTableIsOne();
    void nextCodeIsOneMoreThanTheHighest();
    void deleteRunsItsFiveStepsInOrder();
    void deleteTakesDocumentFilesAndCustomFieldsOfThisContractOnly();
    void deletingTakesThePlanOfThisContractOnly();
    void documentOfSomethingElseUnderTheSameNumberStays_data();
    void documentOfSomethingElseUnderTheSameNumberStays();
    void deletingAContractWithoutADocumentDeletesNoDocument();
    void failureInTheFirstStepLeavesTheDocument();
    void failureInALaterStepLeavesAllAsItWas();
    void deleteWithoutARowIsAClearErrorAndDeletesNothing();
    void archiveAndBackSetTheTimeBothTimes();
    void liveObjectsAreCounted();

private:
    qint32 addContract(qint32 code, qint32 docNum = 0);
    QString count(const char *table) { return m_database.value(u"SELECT COUNT(*) FROM "_s + QLatin1String(table)); }

    TestDatabase m_database;
};

void TestCTblAutomobilContracts::init()
{
    prepareModuleTables(m_database);
}

qint32 TestCTblAutomobilContracts::addContract(qint32 code, qint32 docNum)
{
    CTblAutomobilContracts contract;
    contract.AddNew();
    contract.m_iCode = code;
    contract.m_iDocNum = docNum;
    contract.m_iFiscalYear = 1405;
    contract.Update(true);
    if (docNum != 0) {
        m_database.run(u"INSERT INTO Documents (iNum, iFiscalYear, iKind) VALUES (%1, 1405, 28)"_s.arg(docNum));
        m_database.run(u"INSERT INTO Docs (iDocNum, iFiscalYear, dBed) VALUES (%1, 1405, 5)"_s.arg(docNum));
    }
    const auto key = qint32(contract.GetLastInsertedID());
    m_database.run(u"INSERT INTO FileDocs (iTable, iRecordID, sName) VALUES (69, %1, 'a')"_s.arg(key));
    m_database.run(u"INSERT INTO CustomFieldRecords (iTable, iRecordID, iFieldID, sValue) VALUES (69, %1, 1, 'a')"_s.arg(key));
    return key;
}

void TestCTblAutomobilContracts::bindingsStandInOrderWithTheirCaptions()
{
    QFile file(u"" TZ_TEST_SOURCE "/contract_columns.tsv"_s);
    QVERIFY(file.open(QIODevice::ReadOnly));
    static const QHash<KMySQL::ColumnKind, QString> kinds{
        {KMySQL::ColumnKind::Long, u"long"_s},
        {KMySQL::ColumnKind::Text, u"text"_s},
        {KMySQL::ColumnKind::Date, u"date"_s},
        {KMySQL::ColumnKind::Double, u"double"_s},
        {KMySQL::ColumnKind::Bool, u"bool"_s},
    };
    CTblAutomobilContracts contract;
    const auto &columns = contract.columns();
    QCOMPARE(columns.size(), size_t(126));
    int number = 0;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1Char('#')))
            continue;
        const KMySQL::Column &column = columns[size_t(number++)];
        QStringList lookup{column.lookupTable, column.lookupKey, column.lookupDisplay};
        lookup.removeAll(QString());
        QCOMPARE(u"%1\t%2\t%3\t[%4]\t%5"_s
                     .arg(QString::number(number), column.name, kinds.value(column.kind), column.caption,
                          lookup.join(QLatin1Char(','))),
                 line);
    }
    QCOMPARE(number, 126);
}

void TestCTblAutomobilContracts::everyColumnOfTheTableIsBound()
{
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM information_schema.COLUMNS WHERE "
                              "TABLE_SCHEMA=DATABASE() AND TABLE_NAME='AutomobilContracts' AND EXTRA NOT LIKE '%GENERATED%'"_s),
             u"126"_s);
    CTblAutomobilContracts contract;
    QVERIFY(contract.Open(false, true, true));
    QVERIFY(contract.IsEOF());
}

void TestCTblAutomobilContracts::constructionSetsZeroAndEmpty()
{
    CTblAutomobilContracts contract;
    QCOMPARE(contract.GetTableName(), u"AutomobilContracts"_s);
    for (const KMySQL::Column &column : contract.columns()) {
        const QVariant value = contract.value(column.name);
        switch (column.kind) {
        case KMySQL::ColumnKind::Text: QVERIFY(value.toString().isEmpty()); break;
        case KMySQL::ColumnKind::Date: QVERIFY(!value.toDateTime().isValid()); break;
        default: QCOMPARE(value.toDouble(), 0.0); break;
        }
    }
}

void TestCTblAutomobilContracts::everyMemberIsStoredAndReadBack()
{
    CTblAutomobilContracts written;
    QHash<QString, QVariant> expected;
    int number = 0;
    written.AddNew();
    for (const KMySQL::Column &column : written.columns()) {
        ++number;
        if (column.name == QLatin1String("iID"))
            continue;
        QVariant value;
        switch (column.kind) {
        case KMySQL::ColumnKind::Text: value = u"متن %1"_s.arg(number); break;
        case KMySQL::ColumnKind::Date: value = QDateTime(QDate(2026, 1, 1), QTime(1, 2, 3), Qt::UTC).addDays(number); break;
        case KMySQL::ColumnKind::Double: value = number + 0.25; break;
        default: value = number; break;
        }
        written.setValue(column.name, value);
        expected.insert(column.name, value);
    }
    written.Update(true);

    CTblAutomobilContracts read;
    QVERIFY(read.IsRecordExist(u"iID"_s, qint32(written.GetLastInsertedID())));
    for (auto it = expected.cbegin(); it != expected.cend(); ++it)
        QVERIFY2(read.value(it.key()) == it.value(), qPrintable(it.key()));
}

void TestCTblAutomobilContracts::nextCodeOnAnEmptyTableIsOne()
{
    ObservedStatements observed({u"SELECT"_s});
    QCOMPARE(CTblAutomobilContracts::nextCode(), 1);
    QCOMPARE(observed.taken(), QStringList(u"SELECT MAX(iCode) FROM AutomobilContracts"_s));
}

void TestCTblAutomobilContracts::nextCodeIsOneMoreThanTheHighest()
{
    addContract(40);
    addContract(7);
    QCOMPARE(CTblAutomobilContracts::nextCode(), 41);
}

void TestCTblAutomobilContracts::deleteRunsItsFiveStepsInOrder()
{
    const qint32 key = addContract(1, 12);
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, key));
    ObservedStatements observed({u"DELETE"_s});
    QVERIFY(contract.Delete());
    const QStringList statements = observed.taken();
    const QString deleteRow = u"DELETE FROM AutomobilContracts WHERE iID=%1 LIMIT 1"_s.arg(key);
    QVERIFY(statements.size() >= 6);
    QCOMPARE(statements.first(), deleteRow);
    QCOMPARE(statements.last(), deleteRow);
    const auto position = [&statements](const char *table) {
        const QString start = u"DELETE FROM "_s + QLatin1String(table) + QLatin1Char(' ');
        for (qsizetype i = 0; i < statements.size(); ++i) {
            if (statements[i].startsWith(start))
                return i;
        }
        return qsizetype(-1);
    };
    QVERIFY(position("Docs") > 0);
    QVERIFY(position("Docs") < position("Documents"));
    QVERIFY(position("Documents") < position("FileDocs"));
    QVERIFY(position("FileDocs") < position("CustomFieldRecords"));
    QVERIFY(position("CustomFieldRecords") < statements.size() - 1);
}

void TestCTblAutomobilContracts::deleteTakesDocumentFilesAndCustomFieldsOfThisContractOnly()
{
    const qint32 key = addContract(1, 12);
    const qint32 other = addContract(2, 13);
    m_database.run(u"INSERT INTO FileDocs (iTable, iRecordID, sName) VALUES (68, %1, 'car')"_s.arg(key));
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, key));
    QVERIFY(contract.Delete());
    QVERIFY(!contract.IsRecordExist(u"iID"_s, key));
    QVERIFY(contract.IsRecordExist(u"iID"_s, other));
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iNum) FROM Documents"_s), u"13"_s);
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iDocNum) FROM Docs"_s), u"13"_s);
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iTable, ':', iRecordID ORDER BY iTable) FROM FileDocs"_s),
             u"68:%1,69:%2"_s.arg(key).arg(other));
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iRecordID) FROM CustomFieldRecords"_s), QString::number(other));
}

void TestCTblAutomobilContracts::deletingTakesThePlanOfThisContractOnly()
{
    const qint32 key = addContract(1);
    const qint32 other = addContract(2);
    for (const qint32 contract : {key, other})
        m_database.run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iDepartmentID) VALUES(%1,1),(%1,2)"_s.arg(contract));
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, key));
    QVERIFY(contract.Delete());
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iAutomobilContractID) FROM AutomobilPayments"_s), u"%1,%1"_s.arg(other));
}

void TestCTblAutomobilContracts::documentOfSomethingElseUnderTheSameNumberStays_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("a receipt's") << u"UPDATE Documents SET iKind=3"_s;
    QTest::newRow("another contract's") << u"INSERT INTO AutomobilContracts(iCode,iDocNum,iFiscalYear) VALUES(2,12,1405)"_s;
}

void TestCTblAutomobilContracts::documentOfSomethingElseUnderTheSameNumberStays()
{
    QFETCH(QString, statement);
    const qint32 key = addContract(1, 12);
    m_database.run(statement);
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, key));
    QVERIFY(contract.Delete());
    QVERIFY(!contract.IsRecordExist(u"iID"_s, key));
    QCOMPARE(count("Documents"), u"1"_s);
    QCOMPARE(count("Docs"), u"1"_s);
}

void TestCTblAutomobilContracts::deletingAContractWithoutADocumentDeletesNoDocument()
{
    addContract(1, 12);
    const qint32 key = addContract(2);
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, key));
    QVERIFY(contract.Delete());
    QCOMPARE(count("AutomobilContracts"), u"1"_s);
    QCOMPARE(count("Documents"), u"1"_s);
    QCOMPARE(count("Docs"), u"1"_s);
    QCOMPARE(count("FileDocs"), u"1"_s);
}

void TestCTblAutomobilContracts::failureInTheFirstStepLeavesTheDocument()
{
    const qint32 key = addContract(1, 12);
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, key));
    m_database.run(u"RENAME TABLE AutomobilContracts TO AutomobilContractsAway"_s);
    QVERIFY_THROWS_EXCEPTION(CMySQLException, contract.Delete());
    QCOMPARE(count("AutomobilContractsAway"), u"1"_s);
    QCOMPARE(count("Documents"), u"1"_s);
    QCOMPARE(count("Docs"), u"1"_s);
    QCOMPARE(count("FileDocs"), u"1"_s);
}

void TestCTblAutomobilContracts::failureInALaterStepLeavesAllAsItWas()
{
    const qint32 key = addContract(1, 12);
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, key));
    m_database.run(u"RENAME TABLE FileDocs TO FileDocsAway"_s);
    QVERIFY_THROWS_EXCEPTION(CMySQLException, contract.Delete());
    QCOMPARE(count("AutomobilContracts"), u"1"_s);
    QCOMPARE(count("Documents"), u"1"_s);
    QCOMPARE(count("Docs"), u"1"_s);
    QCOMPARE(count("CustomFieldRecords"), u"1"_s);
}

void TestCTblAutomobilContracts::deleteWithoutARowIsAClearErrorAndDeletesNothing()
{
    m_database.run(u"INSERT INTO FileDocs (iTable, iRecordID, sName) VALUES (69, 0, 'a')"_s);
    CTblAutomobilContracts contract;
    QVERIFY(!contract.IsRecordExist(u"iID"_s, 12345));
    ObservedStatements observed({u"DELETE"_s});
    try {
        contract.Delete();
        QFAIL("there was nothing to delete");
    } catch (const CMySQLException &error) {
        QCOMPARE(error.category(), CMySQLException::Category::NoCurrentRow);
    }
    QCOMPARE(observed.taken(), QStringList());
    QCOMPARE(count("FileDocs"), u"1"_s);
}

void TestCTblAutomobilContracts::liveObjectsAreCounted()
{
    const int before = CTblAutomobilContracts::liveCount();
    {
        const CTblAutomobilContracts one;
        const CTblAutomobilContracts other(7);
        QCOMPARE(CTblAutomobilContracts::liveCount(), before + 2);
    }
    QCOMPARE(CTblAutomobilContracts::liveCount(), before);
}

void TestCTblAutomobilContracts::archiveAndBackSetTheTimeBothTimes()
{
    addContract(5);
    addContract(6);
    {
        ObservedStatements observed({u"UPDATE"_s});
        CTblAutomobilContracts::archive(5, 3);
        QCOMPARE(observed.taken(),
                 QStringList(u"UPDATE AutomobilContracts SET iArchiveUserID=3, dateArchive=NOW() WHERE iCode=5"_s));
    }
    QCOMPARE(m_database.value(u"SELECT iCode FROM AutomobilContracts WHERE iArchiveUserID=3 AND "
                              "dateArchive > NOW() - INTERVAL 1 MINUTE"_s),
             u"5"_s);
    m_database.run(u"UPDATE AutomobilContracts SET dateArchive='2020-01-01'"_s);
    {
        ObservedStatements observed({u"UPDATE"_s});
        CTblAutomobilContracts::unarchive(5);
        QCOMPARE(observed.taken(),
                 QStringList(u"UPDATE AutomobilContracts SET iArchiveUserID=0, dateArchive=NOW() WHERE iCode=5"_s));
    }
    QCOMPARE(m_database.value(u"SELECT iCode FROM AutomobilContracts WHERE iArchiveUserID=0 AND "
                              "dateArchive > NOW() - INTERVAL 1 MINUTE"_s),
             u"5"_s);
    CTblAutomobilContracts::archive(999, 3);
    QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts WHERE iArchiveUserID<>0"_s),
             u"0"_s);
}

static const RegisteredTest<TestCTblAutomobilContracts, QCoreApplication> registeredCTblAutomobilContracts;
#include "TestCTblAutomobilContracts.moc"

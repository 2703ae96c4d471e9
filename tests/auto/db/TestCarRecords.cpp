// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilInformationJoins.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/ObservedStatements.h"
#include "tests/auto/db/ColumnTable.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using CarJoin = CTblAutomobilInformationJoins;

}

class TestCarRecords : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    static int add(const std::function<void(Car &)> &set)
    {
        Car car;
        car.Open(true, false, true);
        car.AddNew();
        car.m_iCode = Car::nextCode();
        set(car);
        car.Update(true);
        return static_cast<int>(car.GetLastInsertedID());
    }

    int relatedRecords(int car)
    {
        return m_database
            .value(u"SELECT (SELECT COUNT(*) FROM FileDocs WHERE iTable=68 AND iRecordID=%1)"
                   "+(SELECT COUNT(*) FROM CustomFieldRecords WHERE iTable=68 AND iRecordID=%1)"_s
                       .arg(car))
            .toInt();
    }

    void addRelatedRecords(int car)
    {
        m_database.run(u"INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (68,%1,'a'),(69,%1,'b')"_s.arg(car));
        m_database.run(
            u"INSERT INTO CustomFieldRecords (iFieldID,iTable,iRecordID,sValue) VALUES (1,68,%1,'v')"_s.arg(car));
    }

private Q_SLOTS:
    void initTestCase() { prepareModuleTables(m_database); }
    void init()
    {
        for (const char *table : {"AutomobilInformations", "Items", "CarModels", "CarClasses"})
            m_database.run(u"DELETE FROM "_s + QLatin1String(table));
    }

    void bindingsStandInOrderWithCaptionsAndLookups()
    {
        Car car;
        QCOMPARE(car.columns().size(), size_t(77));
        QCOMPARE(ColumnTable::bound(car), ColumnTable::wanted(u"AutomobilInformations_columns.tsv"_s));
        QCOMPARE(car.GetTableName(), u"AutomobilInformations"_s);
        CarJoin join;
        QCOMPARE(join.columns().size(), size_t(71));
        QCOMPARE(ColumnTable::bound(join), ColumnTable::wanted(u"AutomobilInformationJoins_columns.tsv"_s));
    }

    void joinedViewReadsItsSourceToTheLetterAndNeverThePicture()
    {
        const ObservedStatements statements({u"SELECT"_s});
        CarJoin cars;
        cars.m_filter = "ai.iStatus=0 GROUP BY ai.iID";
        cars.Open(true, true, true);
        QCOMPARE(statements.taken().size(), 1);
        const QString statement = statements.taken().first();
        QVERIFY(statement.contains(u" FROM AutomobilInformations ai LEFT OUTER JOIN Items it ON (ai.iAutomobilType=it.iID OR ai.iColor=it.iID)"
                                   " LEFT OUTER JOIN CarModels cm ON ai.iModel=cm.iID LEFT OUTER JOIN CarClasses cc ON ai.iBrigade=cc.iID WHERE "_s));
        QVERIFY(statement.startsWith(u"SELECT ai.iID,ai.iCode,ai.iPersonID,"_s));
        QVERIFY(!statement.contains(u"oPicture"_s));
        QVERIFY(statement.endsWith(u" WHERE ai.iStatus=0 GROUP BY ai.iID"_s));
    }

    void constructionSetsZeroEmptyAndNoPicture()
    {
        Car car;
        for (const KMySQL::Column &column : car.columns()) {
            const QVariant value = car.value(column.name);
            QVERIFY2(column.kind == KMySQL::ColumnKind::Date           ? !value.toDateTime().isValid()
                         : column.kind == KMySQL::ColumnKind::Text     ? value.toString().isEmpty()
                         : column.kind == KMySQL::ColumnKind::LongBlob ? value.toByteArray().isEmpty()
                                                                       : value.toDouble() == 0,
                     qPrintable(column.name));
        }
        const int before = Car::liveCount();
        {
            const Car another;
            QCOMPARE(Car::liveCount(), before + 1);
        }
        QCOMPARE(Car::liveCount(), before);
    }

    void columnOfTheTariffIsNeitherReadNorWritten()
    {
        const int key = add([](Car &car) { car.m_dAmount = 1; });
        m_database.run(u"UPDATE AutomobilInformations SET iTariffsID=7 WHERE iID=%1"_s.arg(key));
        Car car;
        QVERIFY(!car.column(u"iTariffsID"));
        QVERIFY(car.IsRecordExist(u"iID"_s, key));
        car.Edit();
        car.m_dAmount = 2;
        car.Update(true);
        QCOMPARE(m_database.value(u"SELECT iTariffsID FROM AutomobilInformations WHERE iID=%1"_s.arg(key)),
                 u"7"_s);
    }

    void everyColumnComesBackAsItWasWritten()
    {
        const QDateTime moment(QDate(2026, 3, 21), QTime(10, 20, 30), Qt::UTC);
        Car car;
        car.Open(true, false, true);
        car.AddNew();
        QHash<QString, QVariant> written;
        int number = 10;
        for (const KMySQL::Column &column : car.columns()) {
            if (column.name == u"iID"_s)
                continue;
            ++number;
            QVariant value;
            switch (column.kind) {
            case KMySQL::ColumnKind::Long:
                value = number;
                break;
            case KMySQL::ColumnKind::Bool:
                value = 1;
                break;
            case KMySQL::ColumnKind::Double:
                value = number + 0.5;
                break;
            case KMySQL::ColumnKind::Date:
                value = moment.addDays(number);
                break;
            case KMySQL::ColumnKind::Text:
                value = u"م%1"_s.arg(number).left(qMax(1, car.textLength(column.name)));
                break;
            case KMySQL::ColumnKind::LongBlob:
                value = QByteArray("\x89PNG\0\x01", 6);
                break;
            }
            car.setValue(column.name, value);
            written.insert(column.name, value);
        }
        car.Update(true);
        Car again;
        QVERIFY(again.IsRecordExist(u"iID"_s, qint32(car.GetLastInsertedID())));
        for (auto it = written.cbegin(); it != written.cend(); ++it)
            QVERIFY2(again.value(it.key()) == it.value(), qPrintable(it.key()));
    }

    void nextCodeIsOneMoreThanTheHighest()
    {
        QCOMPARE(Car::nextCode(), 1);
        add([](Car &car) { car.m_iCode = 40; });
        add([](Car &car) { car.m_iCode = 12; });
        QCOMPARE(Car::nextCode(), 41);
    }

    void archivingAndTakingBackGoByTheCode()
    {
        add([](Car &car) { car.m_iCode = 5; });
        add([](Car &car) { car.m_iCode = 6; });
        const ObservedStatements statements({u"UPDATE"_s});
        Car::archive(5, 3);
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iArchiveUserID,dateArchive IS NULL ORDER BY iCode) FROM"
                                  " AutomobilInformations"_s),
                 u"30,01"_s);
        Car::unarchive(5);
        QCOMPARE(m_database.value(u"SELECT SUM(iArchiveUserID) FROM AutomobilInformations"_s), u"0"_s);
        QCOMPARE(statements.taken(),
                 (QStringList{
                     u"UPDATE AutomobilInformations SET iArchiveUserID=3, dateArchive=NOW() WHERE iCode=5"_s,
                     u"UPDATE AutomobilInformations SET iArchiveUserID=0 WHERE iCode=5 LIMIT 1"_s}));
    }

    void deletingACarRemovesItsAttachedFilesAndCustomFieldValuesBeforeTheRow()
    {
        const int key = add([](Car &) {});
        const int other = add([](Car &) {});
        addRelatedRecords(key);
        addRelatedRecords(other);
        Car car;
        QVERIFY(car.IsRecordExist(u"iID"_s, key));
        const ObservedStatements statements({u"DELETE"_s});
        QVERIFY(car.Delete());
        QCOMPARE(statements.taken().size(), 6);
        QVERIFY(statements.taken().at(0).startsWith(u"DELETE FROM FileDocs "_s));
        QVERIFY(statements.taken().at(1).startsWith(u"DELETE FROM CustomFieldRecords "_s));
        QVERIFY(statements.taken().at(2).startsWith(u"DELETE FROM FollowUps "_s));
        QVERIFY(statements.taken().at(3).startsWith(u"DELETE FROM Pictures "_s));
        QVERIFY(statements.taken().at(4).startsWith(u"DELETE FROM PublicCars "_s));
        QVERIFY(statements.taken().at(5).startsWith(u"DELETE FROM AutomobilInformations "_s));
        QCOMPARE(relatedRecords(key), 0);
        QCOMPARE(relatedRecords(other), 2);
        // Rows under the same number that belong to a contract stay.
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM FileDocs WHERE iTable=69 AND iRecordID=%1"_s.arg(key)),
                 u"1"_s);
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iID) FROM AutomobilInformations"_s), QString::number(other));
    }

    void failedDeleteOfTheAttachedFilesLeavesTheCar()
    {
        const int key = add([](Car &) {});
        addRelatedRecords(key);
        m_database.run(u"RENAME TABLE CustomFieldRecords TO CustomFieldRecordsAway"_s);
        Car car;
        QVERIFY(car.IsRecordExist(u"iID"_s, key));
        QVERIFY_THROWS_EXCEPTION(CMySQLException, car.Delete());
        m_database.run(u"RENAME TABLE CustomFieldRecordsAway TO CustomFieldRecords"_s);
        QCOMPARE(relatedRecords(key), 2);
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"1"_s);
    }
};

static const RegisteredTest<TestCarRecords, QCoreApplication> registeredCarRecords;
#include "TestCarRecords.moc"

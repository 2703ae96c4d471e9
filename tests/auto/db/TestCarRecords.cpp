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

namespace {

using Car = CTblAutomobilInformations;
using CarJoin = CTblAutomobilInformationJoins;

QString tablePath(const char *file)
{
    return QStringLiteral(TZ_TEST_SOURCE "/") + QString::fromLatin1(file);
}

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
            .value(QStringLiteral("SELECT (SELECT COUNT(*) FROM FileDocs WHERE iTable=68 AND iRecordID=%1)"
                                  "+(SELECT COUNT(*) FROM CustomFieldRecords WHERE iTable=68 AND iRecordID=%1)")
                       .arg(car))
            .toInt();
    }

    void addRelatedRecords(int car)
    {
        m_database.run(QStringLiteral("INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (68,%1,'a'),(69,%1,'b')").arg(car));
        m_database.run(
            QStringLiteral("INSERT INTO CustomFieldRecords (iFieldID,iTable,iRecordID,sValue) VALUES (1,68,%1,'v')").arg(car));
    }

private Q_SLOTS:
    void initTestCase() { prepareModuleTables(m_database); }
    void init()
    {
        for (const char *table : {"AutomobilInformations", "Items", "CarModels", "CarClasses"})
            m_database.run(QStringLiteral("DELETE FROM ") + QLatin1String(table));
    }

    void bindingsStandInOrderWithCaptionsAndLookups()
    {
        Car car;
        QCOMPARE(car.columns().size(), size_t(77));
        QCOMPARE(ColumnTable::bound(car), ColumnTable::wanted(tablePath("AutomobilInformations_columns.tsv")));
        QCOMPARE(car.GetTableName(), QStringLiteral("AutomobilInformations"));
        CarJoin join;
        QCOMPARE(join.columns().size(), size_t(71));
        QCOMPARE(ColumnTable::bound(join), ColumnTable::wanted(tablePath("AutomobilInformationJoins_columns.tsv")));
    }

    void joinedViewReadsItsSourceToTheLetterAndNeverThePicture()
    {
        const ObservedStatements statements({QStringLiteral("SELECT")});
        CarJoin cars;
        cars.m_filter = QStringLiteral("ai.iStatus=0 GROUP BY ai.iID");
        cars.Open(true, true, true);
        QCOMPARE(statements.taken().size(), 1);
        const QString statement = statements.taken().first();
        QVERIFY(statement.contains(QStringLiteral(
            " FROM AutomobilInformations ai LEFT OUTER JOIN Items it ON (ai.iAutomobilType=it.iID OR ai.iColor=it.iID)"
            " LEFT OUTER JOIN CarModels cm ON ai.iModel=cm.iID LEFT OUTER JOIN CarClasses cc ON ai.iBrigade=cc.iID WHERE ")));
        QVERIFY(statement.startsWith(QStringLiteral("SELECT ai.iID,ai.iCode,ai.iPersonID,")));
        QVERIFY(!statement.contains(QStringLiteral("oPicture")));
        QVERIFY(statement.endsWith(QStringLiteral(" WHERE ai.iStatus=0 GROUP BY ai.iID")));
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
        m_database.run(QStringLiteral("UPDATE AutomobilInformations SET iTariffsID=7 WHERE iID=%1").arg(key));
        Car car;
        QVERIFY(!car.column(u"iTariffsID"));
        QVERIFY(car.IsRecordExist(QStringLiteral("iID"), key));
        car.Edit();
        car.m_dAmount = 2;
        car.Update(true);
        QCOMPARE(m_database.value(QStringLiteral("SELECT iTariffsID FROM AutomobilInformations WHERE iID=%1").arg(key)),
                 QStringLiteral("7"));
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
            if (column.name == QStringLiteral("iID"))
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
                value = QStringLiteral("م%1").arg(number).left(qMax(1, car.textLength(column.name)));
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
        QVERIFY(again.IsRecordExist(QStringLiteral("iID"), qint32(car.GetLastInsertedID())));
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
        const ObservedStatements statements({QStringLiteral("UPDATE")});
        Car::archive(5, 3);
        QCOMPARE(m_database.value(QStringLiteral("SELECT GROUP_CONCAT(iArchiveUserID,dateArchive IS NULL ORDER BY iCode) FROM"
                                                 " AutomobilInformations")),
                 QStringLiteral("30,01"));
        Car::unarchive(5);
        QCOMPARE(m_database.value(QStringLiteral("SELECT SUM(iArchiveUserID) FROM AutomobilInformations")), QStringLiteral("0"));
        QCOMPARE(statements.taken(),
                 (QStringList{
                     QStringLiteral("UPDATE AutomobilInformations SET iArchiveUserID=3, dateArchive=NOW() WHERE iCode=5"),
                     QStringLiteral("UPDATE AutomobilInformations SET iArchiveUserID=0 WHERE iCode=5 LIMIT 1")}));
    }

    void deletingACarRemovesItsAttachedFilesAndCustomFieldValuesBeforeTheRow()
    {
        const int key = add([](Car &) {});
        const int other = add([](Car &) {});
        addRelatedRecords(key);
        addRelatedRecords(other);
        Car car;
        QVERIFY(car.IsRecordExist(QStringLiteral("iID"), key));
        const ObservedStatements statements({QStringLiteral("DELETE")});
        QVERIFY(car.Delete());
        QCOMPARE(statements.taken().size(), 3);
        QVERIFY(statements.taken().at(0).startsWith(QStringLiteral("DELETE FROM FileDocs ")));
        QVERIFY(statements.taken().at(1).startsWith(QStringLiteral("DELETE FROM CustomFieldRecords ")));
        QVERIFY(statements.taken().at(2).startsWith(QStringLiteral("DELETE FROM AutomobilInformations ")));
        QCOMPARE(relatedRecords(key), 0);
        QCOMPARE(relatedRecords(other), 2);
        // What lies under the same number but belongs to a contract stays.
        QCOMPARE(m_database.value(QStringLiteral("SELECT COUNT(*) FROM FileDocs WHERE iTable=69 AND iRecordID=%1").arg(key)),
                 QStringLiteral("1"));
        QCOMPARE(m_database.value(QStringLiteral("SELECT GROUP_CONCAT(iID) FROM AutomobilInformations")), QString::number(other));
    }

    void failedDeleteOfTheAttachedFilesDoesNotStopTheRow()
    {
        const int key = add([](Car &) {});
        addRelatedRecords(key);
        m_database.run(QStringLiteral("RENAME TABLE FileDocs TO FileDocsAway"));
        Car car;
        QVERIFY(car.IsRecordExist(QStringLiteral("iID"), key));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("FileDocs")));
        const bool deleted = car.Delete();
        m_database.run(QStringLiteral("RENAME TABLE FileDocsAway TO FileDocs"));
        QVERIFY(deleted);
        QCOMPARE(m_database.value(QStringLiteral("SELECT COUNT(*) FROM AutomobilInformations")), QStringLiteral("0"));
    }
};

static const RegisteredTest<TestCarRecords, QCoreApplication> registered;
#include "TestCarRecords.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/DamagedTable.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/db/connection/CMySQLException.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestDamagedTable : public QObject
{
    Q_OBJECT

    static QString told(const CMySQLException &error) { return KErrorText::userMessage(std::make_exception_ptr(error)); }

private Q_SLOTS:
    void tablesAreNamed_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QStringList>("tables");
        const QString join = u"SELECT c.iID FROM AutomobilContracts AS c LEFT JOIN tzauto.Persons p ON p.iID=c.iPersonID"_s;
        QTest::newRow("index") << 1034 << u"Index for table 'Persons' is corrupt; try to repair it"_s << join << QStringList(u"Persons"_s);
        QTest::newRow("table") << 1877 << u"Table `tzauto`.`Persons` is corrupted. Please drop the table and recreate."_s << join
                               << QStringList(u"Persons"_s);
        QTest::newRow("definition") << 1033 << u"Incorrect information in file: './tzauto/Persons.frm'"_s << join << QStringList(u"Persons"_s);
        QTest::newRow("gone") << 1146 << u"Table 'tzauto.Persons' doesn't exist"_s << join << QStringList(u"Persons"_s);
        QTest::newRow("gone in the engine") << 1932 << u"Table 'tzauto.Persons' doesn't exist in engine"_s << join << QStringList(u"Persons"_s);
        QTest::newRow("marked as crashed") << 1194 << u"Table 'Persons' is marked as crashed and should be repaired"_s << join
                                           << QStringList(u"Persons"_s);
        QTest::newRow("file") << 1017 << u"Can't find file: './tzauto/Persons.MAI' (errno: 2)"_s << join << QStringList(u"Persons"_s);
        QTest::newRow("rows gone, one table") << 1030 << u"Got error 194 \"Tablespace is missing for a table\" from storage engine InnoDB"_s
                                              << u"INSERT INTO Persons(sName) VALUES('from Users')"_s << QStringList(u"Persons"_s);
        QTest::newRow("rows gone, two tables") << 1030 << u"Got error 192 \"Table corrupted\" from storage engine InnoDB"_s << join
                                               << QStringList({u"AutomobilContracts"_s, u"Persons"_s});
        QTest::newRow("crashed table") << 1030 << u"Got error 145 \"Table was marked as crashed\" from storage engine Aria"_s
                                       << u"UPDATE Persons SET iCode=1"_s << QStringList(u"Persons"_s);
        QTest::newRow("index by its name") << 1712 << u"Index code is corrupted"_s << u"SELECT 1 FROM `Persons`"_s << QStringList(u"Persons"_s);
        QTest::newRow("disk full") << 1030 << u"Got error 28 \"No space left on device\" from storage engine InnoDB"_s << join << QStringList();
        QTest::newRow("duplicate key") << 1062 << u"Duplicate entry '1' for key 'code'"_s << join << QStringList();
        QTest::newRow("unknown column") << 1054 << u"Unknown column 'x' in 'field list'"_s << join << QStringList();
    }

    void tablesAreNamed()
    {
        QFETCH(int, code);
        QFETCH(QString, message);
        QFETCH(QString, statement);
        QFETCH(QStringList, tables);
        const CMySQLException error(CMySQLException::categoryOf(static_cast<unsigned int>(code)), static_cast<unsigned int>(code), message, statement);
        QCOMPARE(DamagedTable::namedBy(error), tables);
    }

    void messageNamesTheTable()
    {
        const CMySQLException damage(CMySQLException::Category::Other, 1034, u"Index for table 'Persons' is corrupt; try to repair it"_s);
        QCOMPARE(told(damage), u"جدول «Persons» در پایگاه داده آسیب دیده یا گم شده است."_s);
        KErrorText::setDamageText([](const QStringList &tables) { return u"راه بازگشت "_s + tables.join(u'/'); });
        QCOMPARE(told(damage), u"راه بازگشت Persons"_s);
        const CMySQLException other(CMySQLException::Category::DuplicateKey, 1062, u"Duplicate entry"_s);
        QCOMPARE(told(other), other.userMessage());
        KErrorText::setDamageText({});
    }
};

static const RegisteredTest<TestDamagedTable> registeredDamagedTable;
#include "TestDamagedTable.moc"

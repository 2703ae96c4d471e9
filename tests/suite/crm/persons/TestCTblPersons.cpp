// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CTblPersonsMini.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

class TestCTblPersons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.reset(); }
    void columnsAreThoseOfTheTable();
    void everyShownColumnHasACaption();
    void displayName_data();
    void displayName();
    void nextCodeOfAnEmptyTableIsOne();
    void nextCodeFollowsTheHighest();
    void everyColumnComesBack();
    void textsAreKeptInTheirStandardForm();
    void shownNameFollowsAChangeOfTheFamilyName();
    void shownNameAloneIsKept();
    void aChangeWithoutTheNamesLeavesTheShownName();
    void aTooLongNameIsRefusedAndNothingWritten();
    void duplicateNationalCodeIsFoundInAnyDigits();
    void namesOfManyPersonsInOneStatement();
    void nameOfNobodyIsEmpty();
    void aNewPersonIsANaturalOne();

private:
    Office m_office;
};

void TestCTblPersons::columnsAreThoseOfTheTable()
{
    CTblPersons persons;
    QStringList declared;
    for (const KMySQL::Column &column : persons.columns())
        declared.append(column.name);
    const QString stored = m_office.db.value(
        QStringLiteral("SELECT GROUP_CONCAT(COLUMN_NAME ORDER BY ORDINAL_POSITION) FROM information_schema.COLUMNS "
                       "WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='Persons'"));
    QCOMPARE(declared.join(u','), stored);
}

void TestCTblPersons::everyShownColumnHasACaption()
{
    CTblPersons persons;
    for (const KMySQL::Column &column : persons.columns())
        QCOMPARE(column.caption.isEmpty(), column.name == QStringLiteral("iID"));
}

void TestCTblPersons::displayName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("shown");
    QTest::newRow("both") << QStringLiteral("علی") << QStringLiteral("رضایی") << QStringLiteral("علی رضایی");
    QTest::newRow("no family") << QStringLiteral("شرکت الف") << QString() << QStringLiteral("شرکت الف");
    QTest::newRow("no name") << QString() << QStringLiteral("رضایی") << QStringLiteral("رضایی");
    QTest::newRow("neither") << QString() << QString() << QString();
    QTest::newRow("blanks") << QStringLiteral("  علي ") << QStringLiteral("  كريمي ") << QStringLiteral("علی کریمی");
}

void TestCTblPersons::displayName()
{
    QFETCH(QString, name);
    QFETCH(QString, family);
    QTEST(CTblPersons::displayName(name, family), "shown");
}

void TestCTblPersons::nextCodeOfAnEmptyTableIsOne()
{
    QCOMPARE(CTblPersons::nextCode(), 1);
}

void TestCTblPersons::nextCodeFollowsTheHighest()
{
    Office::addPerson(QStringLiteral("الف"), {}, [](CTblPersons &person) { person.m_iCode = 500; });
    Office::addPerson(QStringLiteral("ب"), {}, [](CTblPersons &person) { person.m_iCode = 7; });
    QCOMPARE(CTblPersons::nextCode(), 501);
}

void TestCTblPersons::everyColumnComesBack()
{
    CTblPersons person;
    person.Open(true, false, true);
    person.AddNew();
    int number = 3;
    for (const KMySQL::Column &column : person.columns()) {
        if (column.name == QStringLiteral("iID"))
            continue;
        switch (column.kind) {
        case KMySQL::ColumnKind::Text:
            person.setValue(column.name, QString::number(++number));
            break;
        case KMySQL::ColumnKind::Date:
            person.setValue(column.name, QDateTime(QDate(1985, 3, 21), QTime(0, 0), Qt::UTC));
            break;
        case KMySQL::ColumnKind::Double:
            person.setValue(column.name, 12.5);
            break;
        default:
            person.setValue(column.name, column.kind == KMySQL::ColumnKind::Bool ? 1 : ++number);
        }
    }
    person.Update(true);
    CTblPersons read;
    QVERIFY(read.IsRecordExist(QStringLiteral("iID"), static_cast<qint32>(person.GetLastInsertedID())));
    for (const KMySQL::Column &column : person.columns()) {
        if (column.name != QStringLiteral("iID"))
            QCOMPARE(read.value(column.name), person.value(column.name));
    }
    QCOMPARE(read.m_sName2, read.m_sName + u' ' + read.m_sFamily);
}

void TestCTblPersons::textsAreKeptInTheirStandardForm()
{
    const int id = Office::addPerson(QStringLiteral(" علي"), QStringLiteral("كريمي  نژاد "), [](CTblPersons &person) {
        person.m_sMobile = QStringLiteral("۰۹۱۲۱۲۳۴۵۶۷");
        person.m_sAddress = QStringLiteral("تهران،  خيابان ٣");
    });
    CTblPersons read;
    QVERIFY(read.IsRecordExist(QStringLiteral("iID"), id));
    QCOMPARE(read.m_sName, QStringLiteral("علی"));
    QCOMPARE(read.m_sFamily, QStringLiteral("کریمی نژاد"));
    QCOMPARE(read.m_sName2, QStringLiteral("علی کریمی نژاد"));
    QCOMPARE(read.m_sMobile, QStringLiteral("09121234567"));
    QCOMPARE(read.m_sAddress, QStringLiteral("تهران، خیابان 3"));
}

void TestCTblPersons::shownNameFollowsAChangeOfTheFamilyName()
{
    const int id = Office::addPerson(QStringLiteral("مریم"), QStringLiteral("احمدی"));
    CTblPersons person;
    QVERIFY(person.IsRecordExist(QStringLiteral("iID"), id));
    person.Edit();
    person.m_sFamily = QStringLiteral("کریمی");
    person.Update(true);
    QCOMPARE(CTblPersonsMini::GetName(id), QStringLiteral("مریم کریمی"));
}

void TestCTblPersons::shownNameAloneIsKept()
{
    const int id = Office::addPerson({}, {}, [](CTblPersons &person) { person.m_sName2 = QStringLiteral("مشتری نقدي"); });
    QCOMPARE(CTblPersonsMini::GetName(id), QStringLiteral("مشتری نقدی"));
}

void TestCTblPersons::aChangeWithoutTheNamesLeavesTheShownName()
{
    const int id = Office::addPerson(QStringLiteral("مریم"), QStringLiteral("احمدی"));
    CTblPersons person;
    person.SetColumns({QStringLiteral("sMobile")});
    person.m_filter = QStringLiteral("iID=%1").arg(id);
    person.Open(true, true, true);
    QVERIFY(!person.IsEOF());
    person.Edit();
    person.m_sMobile = QStringLiteral("09350000000");
    person.Update(true);
    CTblPersons read;
    QVERIFY(read.IsRecordExist(QStringLiteral("iID"), id));
    QCOMPARE(read.m_sMobile, QStringLiteral("09350000000"));
    QCOMPARE(read.m_sName2, QStringLiteral("مریم احمدی"));
    QCOMPARE(read.m_sFamily, QStringLiteral("احمدی"));
}

void TestCTblPersons::aTooLongNameIsRefusedAndNothingWritten()
{
    try {
        Office::addPerson(QString(101, u'ن'), {});
        QFAIL("the name was taken");
    } catch (const CMySQLException &error) {
        QCOMPARE(error.category(), CMySQLException::Category::ValueTooLong);
        QCOMPARE(error.columnCaption(), QStringLiteral("نام"));
    }
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT COUNT(*) FROM Persons")), QStringLiteral("0"));
}

void TestCTblPersons::duplicateNationalCodeIsFoundInAnyDigits()
{
    const int id = Office::addPerson(QStringLiteral("الف"), {}, [](CTblPersons &person) {
        person.m_sNationalCode = QStringLiteral("0076229645");
    });
    QCOMPARE(CTblPersons::findByNationalCode(QStringLiteral("۰۰۷۶۲۲۹۶۴۵"), 0), id);
    QCOMPARE(CTblPersons::findByNationalCode(QStringLiteral("0076229645"), id), 0);
    QCOMPARE(CTblPersons::findByNationalCode(QStringLiteral("0076229640"), 0), 0);
    Office::addPerson(QStringLiteral("ب"), {});
    QCOMPARE(CTblPersons::findByNationalCode(QString(), 0), 0);
    QCOMPARE(CTblPersons::findByNationalCode(QStringLiteral("' OR 1=1 -- "), 0), 0);
}

void TestCTblPersons::namesOfManyPersonsInOneStatement()
{
    const int first = Office::addPerson(QStringLiteral("الف"), {});
    const int second = Office::addPerson(QStringLiteral("ب"), {});
    int statements = 0;
    KConnection::setStatementObserver([&statements](const QString &) { ++statements; });
    const QHash<int, QString> names = CTblPersonsMini::GetNames({first, second, first, 0, 999999});
    KConnection::setStatementObserver(nullptr);
    QCOMPARE(statements, 1);
    QCOMPARE(names.size(), 2);
    QCOMPARE(names.value(first), QStringLiteral("الف"));
    QCOMPARE(names.value(second), QStringLiteral("ب"));
}

void TestCTblPersons::nameOfNobodyIsEmpty()
{
    QCOMPARE(CTblPersonsMini::GetName(0), QString());
    QCOMPARE(CTblPersonsMini::GetName(-1), QString());
    QCOMPARE(CTblPersonsMini::GetName(999999), QString());
}

void TestCTblPersons::aNewPersonIsANaturalOne()
{
    Office::addPerson(QStringLiteral("الف"), {});
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT CONCAT(iKind,bNatural,iStatus) FROM Persons")), QStringLiteral("010"));
}

static const RegisteredTest<TestCTblPersons, QCoreApplication> registered;
#include "TestCTblPersons.moc"

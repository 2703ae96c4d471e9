// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CTblPersonsMini.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

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
        u"SELECT GROUP_CONCAT(COLUMN_NAME ORDER BY ORDINAL_POSITION) FROM information_schema.COLUMNS "
        "WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='Persons'"_s);
    QCOMPARE(declared.join(u','), stored);
}

void TestCTblPersons::everyShownColumnHasACaption()
{
    CTblPersons persons;
    for (const KMySQL::Column &column : persons.columns())
        QCOMPARE(column.caption.isEmpty(), column.name == u"iID"_s);
}

void TestCTblPersons::displayName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("shown");
    QTest::newRow("both") << u"علی"_s << u"رضایی"_s << u"علی رضایی"_s;
    QTest::newRow("no family") << u"شرکت الف"_s << QString() << u"شرکت الف"_s;
    QTest::newRow("no name") << QString() << u"رضایی"_s << u"رضایی"_s;
    QTest::newRow("neither") << QString() << QString() << QString();
    QTest::newRow("blanks") << u"  علي "_s << u"  كريمي "_s << u"علی کریمی"_s;
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
    Office::addPerson(u"الف"_s, {}, [](CTblPersons &person) { person.m_iCode = 500; });
    Office::addPerson(u"ب"_s, {}, [](CTblPersons &person) { person.m_iCode = 7; });
    QCOMPARE(CTblPersons::nextCode(), 501);
}

void TestCTblPersons::everyColumnComesBack()
{
    CTblPersons person;
    person.Open(true, false, true);
    person.AddNew();
    int number = 3;
    for (const KMySQL::Column &column : person.columns()) {
        if (column.name == u"iID"_s)
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
    QVERIFY(read.IsRecordExist(u"iID"_s, static_cast<qint32>(person.GetLastInsertedID())));
    for (const KMySQL::Column &column : person.columns()) {
        if (column.name != u"iID"_s)
            QCOMPARE(read.value(column.name), person.value(column.name));
    }
    QCOMPARE(read.m_sName2, read.m_sName + u' ' + read.m_sFamily);
}

void TestCTblPersons::textsAreKeptInTheirStandardForm()
{
    const int id = Office::addPerson(u" علي"_s, u"كريمي  نژاد "_s, [](CTblPersons &person) {
        person.m_sMobile = u"۰۹۱۲۱۲۳۴۵۶۷"_s;
        person.m_sAddress = u"تهران،  خيابان ٣"_s;
    });
    CTblPersons read;
    QVERIFY(read.IsRecordExist(u"iID"_s, id));
    QCOMPARE(read.m_sName, u"علی"_s);
    QCOMPARE(read.m_sFamily, u"کریمی نژاد"_s);
    QCOMPARE(read.m_sName2, u"علی کریمی نژاد"_s);
    QCOMPARE(read.m_sMobile, u"09121234567"_s);
    QCOMPARE(read.m_sAddress, u"تهران، خیابان 3"_s);
}

void TestCTblPersons::shownNameFollowsAChangeOfTheFamilyName()
{
    const int id = Office::addPerson(u"مریم"_s, u"احمدی"_s);
    CTblPersons person;
    QVERIFY(person.IsRecordExist(u"iID"_s, id));
    person.Edit();
    person.m_sFamily = u"کریمی"_s;
    person.Update(true);
    QCOMPARE(CTblPersonsMini::GetName(id), u"مریم کریمی"_s);
}

void TestCTblPersons::shownNameAloneIsKept()
{
    const int id = Office::addPerson({}, {}, [](CTblPersons &person) { person.m_sName2 = u"مشتری نقدي"_s; });
    QCOMPARE(CTblPersonsMini::GetName(id), u"مشتری نقدی"_s);
}

void TestCTblPersons::aChangeWithoutTheNamesLeavesTheShownName()
{
    const int id = Office::addPerson(u"مریم"_s, u"احمدی"_s);
    CTblPersons person;
    person.SetColumns({u"sMobile"_s});
    person.m_filter = KSql::formatted("iID=%1", id);
    person.Open(true, true, true);
    QVERIFY(!person.IsEOF());
    person.Edit();
    person.m_sMobile = u"09350000000"_s;
    person.Update(true);
    CTblPersons read;
    QVERIFY(read.IsRecordExist(u"iID"_s, id));
    QCOMPARE(read.m_sMobile, u"09350000000"_s);
    QCOMPARE(read.m_sName2, u"مریم احمدی"_s);
    QCOMPARE(read.m_sFamily, u"احمدی"_s);
}

void TestCTblPersons::aTooLongNameIsRefusedAndNothingWritten()
{
    try {
        Office::addPerson(QString(101, u'ن'), {});
        QFAIL("the name was taken");
    } catch (const CMySQLException &error) {
        QCOMPARE(error.category(), CMySQLException::Category::ValueTooLong);
        QCOMPARE(error.columnCaption(), u"نام"_s);
    }
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Persons"_s), u"0"_s);
}

void TestCTblPersons::duplicateNationalCodeIsFoundInAnyDigits()
{
    const int id = Office::addPerson(u"الف"_s, {}, [](CTblPersons &person) {
        person.m_sNationalCode = u"0076229645"_s;
    });
    QCOMPARE(CTblPersons::findByNationalCode(u"۰۰۷۶۲۲۹۶۴۵"_s, 0), id);
    QCOMPARE(CTblPersons::findByNationalCode(u"0076229645"_s, id), 0);
    QCOMPARE(CTblPersons::findByNationalCode(u"0076229640"_s, 0), 0);
    Office::addPerson(u"ب"_s, {});
    QCOMPARE(CTblPersons::findByNationalCode(QString(), 0), 0);
    QCOMPARE(CTblPersons::findByNationalCode(u"' OR 1=1 -- "_s, 0), 0);
}

void TestCTblPersons::namesOfManyPersonsInOneStatement()
{
    const int first = Office::addPerson(u"الف"_s, {});
    const int second = Office::addPerson(u"ب"_s, {});
    int statements = 0;
    KConnection::setStatementObserver([&statements](const QString &) { ++statements; });
    const QHash<int, QString> names = CTblPersonsMini::GetNames({first, second, first, 0, 999999});
    KConnection::setStatementObserver(nullptr);
    QCOMPARE(statements, 1);
    QCOMPARE(names.size(), 2);
    QCOMPARE(names.value(first), u"الف"_s);
    QCOMPARE(names.value(second), u"ب"_s);
}

void TestCTblPersons::nameOfNobodyIsEmpty()
{
    QCOMPARE(CTblPersonsMini::GetName(0), QString());
    QCOMPARE(CTblPersonsMini::GetName(-1), QString());
    QCOMPARE(CTblPersonsMini::GetName(999999), QString());
}

void TestCTblPersons::aNewPersonIsANaturalOne()
{
    Office::addPerson(u"الف"_s, {});
    QCOMPARE(m_office.db.value(u"SELECT CONCAT(iKind,bNatural,iStatus) FROM Persons"_s), u"010"_s);
}

static const RegisteredTest<TestCTblPersons, QCoreApplication> registeredCTblPersons;
#include "TestCTblPersons.moc"

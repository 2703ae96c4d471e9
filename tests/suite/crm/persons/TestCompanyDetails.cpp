// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CompanyDetails.h"

#include "suite/accounting/office/CTblProperties.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCompanyDetails : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.db.run(u"DELETE FROM Properties WHERE sSection='Company'"_s); }
    void freshDatabaseGivesEmptyDetails();
    void everyPartComesBack();
    void partsAreInTheSectionCompanyUnderTheirNames();
    void aSecondWriteReplacesTheFirst();
    void name_data();
    void name();

private:
    static CompanyDetails sample();

    Office m_office;
};

CompanyDetails TestCompanyDetails::sample()
{
    CompanyDetails details;
    details.name1 = u"نمایشگاه اتومبیل"_s;
    details.name2 = u"البرز"_s;
    details.kind = CompanyDetails::kindLegal;
    details.nationalCode = u"10380284790"_s;
    details.economicCode = u"411111111111"_s;
    details.registrationNumber = u"12345"_s;
    details.manager = u"رضا کریمی"_s;
    details.telephone = u"02188776655"_s;
    details.mobile = u"09121234567"_s;
    details.province = u"تهران"_s;
    details.city = u"ری"_s;
    details.address = u"خیابان آزادی، پلاک 1"_s;
    details.postalCode = u"1234567890"_s;
    details.areaCode = u"021"_s;
    details.taxKind = u"6"_s;
    details.taxZone = u"2107"_s;
    details.provinceCode = u"23"_s;
    details.cityCode = u"1"_s;
    return details;
}

void TestCompanyDetails::freshDatabaseGivesEmptyDetails()
{
    const CompanyDetails details = CompanyDetails::read();
    QVERIFY(details == CompanyDetails());
    QVERIFY(details.isEmpty());
}

void TestCompanyDetails::everyPartComesBack()
{
    sample().write();
    QVERIFY(CompanyDetails::read() == sample());
}

void TestCompanyDetails::partsAreInTheSectionCompanyUnderTheirNames()
{
    sample().write();
    const QHash<QString, QString> stored = CTblProperties::DBReadSection(u"Company"_s);
    QCOMPARE(stored.size(), 18);
    QCOMPARE(stored.value(u"name1"_s), u"نمایشگاه اتومبیل"_s);
    QCOMPARE(stored.value(u"name2"_s), u"البرز"_s);
    QCOMPARE(stored.value(u"telephone"_s), u"02188776655"_s);
    QCOMPARE(stored.value(u"kind"_s), u"2"_s);
}

void TestCompanyDetails::aSecondWriteReplacesTheFirst()
{
    sample().write();
    CompanyDetails changed = sample();
    changed.name2.clear();
    changed.address = u"قم"_s;
    changed.write();
    QVERIFY(CompanyDetails::read() == changed);
}

void TestCompanyDetails::name_data()
{
    QTest::addColumn<QString>("name1");
    QTest::addColumn<QString>("name2");
    QTest::addColumn<QString>("name");
    QTest::newRow("both") << u"الف"_s << u"ب"_s << u"الف ب"_s;
    QTest::newRow("first only") << u"الف"_s << QString() << u"الف"_s;
    QTest::newRow("second only") << QString() << u"ب"_s << u"ب"_s;
    QTest::newRow("none") << QString() << QString() << QString();
}

void TestCompanyDetails::name()
{
    QFETCH(QString, name1);
    QFETCH(QString, name2);
    CompanyDetails details;
    details.name1 = name1;
    details.name2 = name2;
    QTEST(details.name(), "name");
}

static const RegisteredTest<TestCompanyDetails, QCoreApplication> registeredCompanyDetails;
#include "TestCompanyDetails.moc"

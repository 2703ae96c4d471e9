// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CompanyDetails.h"

#include "suite/accounting/office/CTblProperties.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

class TestCompanyDetails : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.db.run(QStringLiteral("DELETE FROM Properties WHERE sSection='Company'")); }
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
    details.name1 = QStringLiteral("نمایشگاه اتومبیل");
    details.name2 = QStringLiteral("البرز");
    details.kind = CompanyDetails::kindLegal;
    details.nationalCode = QStringLiteral("10380284790");
    details.economicCode = QStringLiteral("411111111111");
    details.registrationNumber = QStringLiteral("12345");
    details.manager = QStringLiteral("رضا کریمی");
    details.telephone = QStringLiteral("02188776655");
    details.mobile = QStringLiteral("09121234567");
    details.province = QStringLiteral("تهران");
    details.city = QStringLiteral("ری");
    details.address = QStringLiteral("خیابان آزادی، پلاک 1");
    details.postalCode = QStringLiteral("1234567890");
    details.areaCode = QStringLiteral("021");
    details.taxKind = QStringLiteral("6");
    details.taxZone = QStringLiteral("2107");
    details.provinceCode = QStringLiteral("23");
    details.cityCode = QStringLiteral("1");
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
    const QHash<QString, QString> stored = CTblProperties::DBReadSection(QStringLiteral("Company"));
    QCOMPARE(stored.size(), 18);
    QCOMPARE(stored.value(QStringLiteral("name1")), QStringLiteral("نمایشگاه اتومبیل"));
    QCOMPARE(stored.value(QStringLiteral("name2")), QStringLiteral("البرز"));
    QCOMPARE(stored.value(QStringLiteral("telephone")), QStringLiteral("02188776655"));
    QCOMPARE(stored.value(QStringLiteral("kind")), QStringLiteral("2"));
}

void TestCompanyDetails::aSecondWriteReplacesTheFirst()
{
    sample().write();
    CompanyDetails changed = sample();
    changed.name2.clear();
    changed.address = QStringLiteral("قم");
    changed.write();
    QVERIFY(CompanyDetails::read() == changed);
}

void TestCompanyDetails::name_data()
{
    QTest::addColumn<QString>("name1");
    QTest::addColumn<QString>("name2");
    QTest::addColumn<QString>("name");
    QTest::newRow("both") << QStringLiteral("الف") << QStringLiteral("ب") << QStringLiteral("الف ب");
    QTest::newRow("first only") << QStringLiteral("الف") << QString() << QStringLiteral("الف");
    QTest::newRow("second only") << QString() << QStringLiteral("ب") << QStringLiteral("ب");
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

static const RegisteredTest<TestCompanyDetails, QCoreApplication> registered;
#include "TestCompanyDetails.moc"

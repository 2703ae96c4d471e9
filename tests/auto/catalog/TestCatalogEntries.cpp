// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogEntries.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/accounting/office/CDBSetting.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

QStringList names(const QVector<CatalogEntries::Entry> &entries)
{
    QStringList names;
    for (const CatalogEntries::Entry &entry : entries)
        names << entry.name;
    return names;
}

QDateTime now()
{
    return GetDBSetting()->GetDBServerDate();
}

}

class TestCatalogEntries : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->clear(); }

    void listsAreSortedByNameBelowTheirParent()
    {
        const int saipa = m_office->addBrand(u"Saipa"_s);
        const int iran = m_office->addBrand(u"Iran Khodro"_s);
        const int pride = m_office->addModel(saipa, u"Pride"_s);
        m_office->addModel(iran, u"Samand"_s);
        m_office->addModel(saipa, u"Atlas"_s);
        m_office->addClass(pride, u"141"_s);
        m_office->addClass(pride, u"131"_s);
        QCOMPARE(names(CatalogEntries::list(CatalogLevel::Brand, 0, {})), (QStringList{u"Iran Khodro"_s, u"Saipa"_s}));
        QCOMPARE(names(CatalogEntries::list(CatalogLevel::Model, saipa, {})), (QStringList{u"Atlas"_s, u"Pride"_s}));
        QCOMPARE(names(CatalogEntries::list(CatalogLevel::Class, pride, {})), (QStringList{u"131"_s, u"141"_s}));
        QCOMPARE(names(CatalogEntries::list(CatalogLevel::Model, saipa, u"rid"_s)), QStringList{u"Pride"_s});
        QCOMPARE(CatalogEntries::list(CatalogLevel::Brand, 0, u"aip"_s).value(0).key, saipa);
    }

    void whatIsAddedHoldsNameUserTimeAndParent()
    {
        const int brand = CatalogEntries::add(CatalogLevel::Brand, 0, u"پژو"_s, 7, now());
        const int model = CatalogEntries::add(CatalogLevel::Model, brand, u"206"_s, 8, now());
        const int carClass = CatalogEntries::add(CatalogLevel::Class, model, u"تیپ 5"_s, 9, now());
        CTblCarBrands brands;
        QVERIFY(brands.IsRecordExist(u"iID"_s, brand));
        QCOMPARE(brands.m_sName, u"پژو"_s);
        QCOMPARE(brands.m_iUserID, 7);
        QVERIFY(qAbs(brands.m_dateCreate.secsTo(GetDBSetting()->GetDBServerDate())) < 60);
        CTblCarModels models;
        QVERIFY(models.IsRecordExist(u"iID"_s, model));
        QCOMPARE(models.m_iClassID, brand);
        QCOMPARE(models.m_iUserID, 8);
        QVERIFY(models.m_dateCreate.isValid());
        CTblCarClasses classes;
        QVERIFY(classes.IsRecordExist(u"iID"_s, carClass));
        QCOMPARE(classes.m_iBrandID, model);
        QCOMPARE(classes.m_sName, u"تیپ 5"_s);
        QCOMPARE(classes.m_iUserID, 9);
        QVERIFY(classes.m_dateCreate.isValid());
    }

    void aSecondBrandOfTheSameNameIsRefused()
    {
        m_office->addBrand(u"پژو"_s);
        try {
            CatalogEntries::add(CatalogLevel::Brand, 0, u"پژو"_s, 1, now());
            QFAIL("the unique index let it in");
        } catch (const CMySQLException &error) {
            QCOMPARE(error.category(), CMySQLException::Category::DuplicateKey);
        }
        QCOMPARE(value(u"SELECT COUNT(*) FROM CarBrands"_s), u"1"_s);
    }

    void modelsAndClassesMayShareAName()
    {
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = CatalogEntries::add(CatalogLevel::Model, brand, u"206"_s, 1, now());
        QVERIFY(CatalogEntries::add(CatalogLevel::Model, brand, u"206"_s, 1, now()) > model);
    }

    void nameOfAnEntryThatIsNotThereIsNone()
    {
        const int brand = CatalogEntries::add(CatalogLevel::Brand, 0, u"پژو"_s, 7, now());
        QCOMPARE(CatalogEntries::name(CatalogLevel::Brand, brand), u"پژو"_s);
        QVERIFY(!CatalogEntries::name(CatalogLevel::Model, brand));
        QVERIFY(!CatalogEntries::name(CatalogLevel::Brand, brand + 1));
    }

    void inUseIsAskedToTheLetter_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QString>("statement");
        QTest::newRow("brand") << int(CatalogLevel::Brand)
                               << "SELECT cb.iID FROM AutomobilInformations ai, CarBrands cb WHERE cb.iID=ai.iAutomobilType AND ai.iAutomobilType=%1 LIMIT 1";
        QTest::newRow("model") << int(CatalogLevel::Model)
                               << "SELECT cm.iID FROM AutomobilInformations ai, CarModels cm WHERE cm.iID=ai.iModel AND ai.iModel=%1 LIMIT 1";
        QTest::newRow("class") << int(CatalogLevel::Class)
                               << "SELECT cc.iID FROM AutomobilInformations ai, CarClasses cc WHERE cc.iID=ai.iBrigade AND ai.iBrigade=%1 LIMIT 1";
    }

    void inUseIsAskedToTheLetter()
    {
        QFETCH(int, level);
        QFETCH(QString, statement);
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = m_office->addModel(brand, u"206"_s);
        const int carClass = m_office->addClass(model, u"تیپ 5"_s);
        const int key = QList<int>{brand, model, carClass}[level];
        {
            const ObservedStatements observed({u"SELECT"_s});
            QVERIFY(!CatalogEntries::isUsed(static_cast<CatalogLevel>(level), key));
            QCOMPARE(observed.taken(), QStringList{statement.arg(key)});
        }
        // Of the other two levels only.
        m_office->addCar([&](CTblAutomobilInformations &car) {
            car.m_iAutomobilType = level == 0 ? 0 : brand;
            car.m_iModel = level == 1 ? 0 : model;
            car.m_iBrigade = level == 2 ? 0 : carClass;
        });
        QVERIFY(!CatalogEntries::isUsed(static_cast<CatalogLevel>(level), key));
        m_office->addCar([&](CTblAutomobilInformations &car) {
            car.m_iAutomobilType = brand;
            car.m_iModel = model;
            car.m_iBrigade = carClass;
        });
        QVERIFY(CatalogEntries::isUsed(static_cast<CatalogLevel>(level), key));
        QVERIFY(!CatalogEntries::isUsed(static_cast<CatalogLevel>(level), key + 1000));
    }

    void removeTakesTheEntryWithWhatItsRecordClassTakes()
    {
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = m_office->addModel(brand, u"206"_s);
        m_office->addClass(model, u"تیپ 5"_s);
        const int other = m_office->addClass(model, u"تیپ 2"_s);
        QVERIFY(CatalogEntries::remove(CatalogLevel::Class, *CatalogEntries::record(CatalogLevel::Class, other)));
        QCOMPARE(value(u"SELECT COUNT(*) FROM CarClasses"_s), u"1"_s);
        const auto asked = CatalogEntries::record(CatalogLevel::Brand, brand);
        QVERIFY(CatalogEntries::remove(CatalogLevel::Brand, *asked));
        QCOMPARE(value(u"SELECT (SELECT COUNT(*) FROM CarBrands)+(SELECT COUNT(*) FROM CarModels)"
                       "+(SELECT COUNT(*) FROM CarClasses)"_s),
                 u"0"_s);
        QVERIFY(!CatalogEntries::record(CatalogLevel::Brand, brand));
    }

    void failureOfAnyStatementLeavesTheCatalogAsItWas_data()
    {
        QTest::addColumn<QString>("table");
        for (const char *table : {"CarBrands", "CarModels", "CarClasses"})
            QTest::newRow(table) << QString::fromLatin1(table);
    }

    void failureOfAnyStatementLeavesTheCatalogAsItWas()
    {
        QFETCH(QString, table);
        const int brand = m_office->addBrand(u"پژو"_s);
        m_office->addClass(m_office->addModel(brand, u"206"_s), u"تیپ 5"_s);
        const auto asked = CatalogEntries::record(CatalogLevel::Brand, brand);
        m_office->database().run(u"CREATE TRIGGER keep BEFORE DELETE ON %1 FOR EACH ROW SIGNAL SQLSTATE '45000'"_s.arg(table));
        const auto drop = qScopeGuard([this] { m_office->database().run(u"DROP TRIGGER keep"_s); });
        QVERIFY_THROWS_EXCEPTION(CMySQLException, (void)CatalogEntries::remove(CatalogLevel::Brand, *asked));
        QCOMPARE(value(u"SELECT (SELECT COUNT(*) FROM CarBrands)+(SELECT COUNT(*) FROM CarModels)+(SELECT COUNT(*) FROM CarClasses)"_s), u"3"_s);
    }

    void whatAnotherDidWhileTheUserWasAskedKeepsTheEntry_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<bool>("isUsed"); // otherwise it is refused as changed
        QTest::newRow("a car uses it") << u"UPDATE AutomobilInformations SET iAutomobilType=%1"_s << true;
        QTest::newRow("renamed") << u"UPDATE CarBrands SET sName='b' WHERE iID=%1"_s << false;
        QTest::newRow("gone") << u"DELETE FROM CarBrands WHERE iID=%1"_s << false;
    }

    void whatAnotherDidWhileTheUserWasAskedKeepsTheEntry()
    {
        QFETCH(QString, statement);
        QFETCH(bool, isUsed);
        const int brand = m_office->addBrand(u"پژو"_s);
        m_office->addClass(m_office->addModel(brand, u"206"_s), u"تیپ 5"_s);
        m_office->addCar();
        const auto asked = CatalogEntries::record(CatalogLevel::Brand, brand);
        m_office->database().run(statement.arg(brand));
        if (isUsed)
            QVERIFY(!CatalogEntries::remove(CatalogLevel::Brand, *asked));
        else
            QVERIFY_THROWS_EXCEPTION(RowDeleting::Refused, (void)CatalogEntries::remove(CatalogLevel::Brand, *asked));
        QCOMPARE(value(u"SELECT (SELECT COUNT(*) FROM CarModels)+(SELECT COUNT(*) FROM CarClasses)"_s), u"2"_s);
    }

    void theNameCheckLooksAmongTheModelsByTheirOwnKey()
    {
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = m_office->addModel(brand, u"O'Neil"_s);
        QVERIFY(CatalogEntries::isNameTaken(0, u"O'Neil"_s, model));
        QVERIFY(!CatalogEntries::isNameTaken(0, u"O'Neil"_s, model + 1));
        QVERIFY(!CatalogEntries::isNameTaken(model, u"O'Neil"_s, model));
        QVERIFY(!CatalogEntries::isNameTaken(0, u"پژو"_s, brand));
    }
};

static const RegisteredTest<TestCatalogEntries, KApplication> registeredCatalogEntries;
#include "TestCatalogEntries.moc"

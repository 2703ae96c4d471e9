// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogEntries.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/CMySQLException.h"
#include "suite/accounting/office/CDBSetting.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

namespace {

QStringList names(const QVector<CatalogEntries::Entry> &entries)
{
    QStringList names;
    for (const CatalogEntries::Entry &entry : entries)
        names << entry.name;
    return names;
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
        const int saipa = m_office->addBrand(QStringLiteral("Saipa"));
        const int iran = m_office->addBrand(QStringLiteral("Iran Khodro"));
        const int pride = m_office->addModel(saipa, QStringLiteral("Pride"));
        m_office->addModel(iran, QStringLiteral("Samand"));
        m_office->addModel(saipa, QStringLiteral("Atlas"));
        m_office->addClass(pride, QStringLiteral("141"));
        m_office->addClass(pride, QStringLiteral("131"));
        QCOMPARE(names(CatalogEntries::list(CatalogLevel::Brand, 0, {})), (QStringList{QStringLiteral("Iran Khodro"), QStringLiteral("Saipa")}));
        QCOMPARE(names(CatalogEntries::list(CatalogLevel::Model, saipa, {})), (QStringList{QStringLiteral("Atlas"), QStringLiteral("Pride")}));
        QCOMPARE(names(CatalogEntries::list(CatalogLevel::Class, pride, {})), (QStringList{QStringLiteral("131"), QStringLiteral("141")}));
        QCOMPARE(names(CatalogEntries::list(CatalogLevel::Model, saipa, QStringLiteral("rid"))), QStringList{QStringLiteral("Pride")});
        QCOMPARE(CatalogEntries::list(CatalogLevel::Brand, 0, QStringLiteral("aip")).value(0).key, saipa);
    }

    void whatIsAddedHoldsNameUserTimeAndParent()
    {
        const int brand = CatalogEntries::add(CatalogLevel::Brand, 0, QStringLiteral("پژو"), 7);
        const int model = CatalogEntries::add(CatalogLevel::Model, brand, QStringLiteral("206"), 8);
        const int carClass = CatalogEntries::add(CatalogLevel::Class, model, QStringLiteral("تیپ 5"), 9);
        CTblCarBrands brands;
        QVERIFY(brands.IsRecordExist(QStringLiteral("iID"), brand));
        QCOMPARE(brands.m_sName, QStringLiteral("پژو"));
        QCOMPARE(brands.m_iUserID, 7);
        QVERIFY(qAbs(brands.m_dateCreate.secsTo(GetDBSetting()->GetDBServerDate())) < 60);
        CTblCarModels models;
        QVERIFY(models.IsRecordExist(QStringLiteral("iID"), model));
        QCOMPARE(models.m_iClassID, brand);
        QCOMPARE(models.m_iUserID, 8);
        QVERIFY(models.m_dateCreate.isValid());
        CTblCarClasses classes;
        QVERIFY(classes.IsRecordExist(QStringLiteral("iID"), carClass));
        QCOMPARE(classes.m_iBrandID, model);
        QCOMPARE(classes.m_sName, QStringLiteral("تیپ 5"));
        QCOMPARE(classes.m_iUserID, 9);
        QVERIFY(classes.m_dateCreate.isValid());
    }

    void aSecondBrandOfTheSameNameIsRefused()
    {
        m_office->addBrand(QStringLiteral("پژو"));
        try {
            CatalogEntries::add(CatalogLevel::Brand, 0, QStringLiteral("پژو"), 1);
            QFAIL("the unique index let it in");
        } catch (const CMySQLException &error) {
            QCOMPARE(error.category(), CMySQLException::Category::DuplicateKey);
        }
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM CarBrands")), QStringLiteral("1"));
    }

    void modelsAndClassesMayShareAName()
    {
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int model = CatalogEntries::add(CatalogLevel::Model, brand, QStringLiteral("206"), 1);
        QVERIFY(CatalogEntries::add(CatalogLevel::Model, brand, QStringLiteral("206"), 1) > model);
    }

    void renameChangesTheNameAlone()
    {
        const int brand = CatalogEntries::add(CatalogLevel::Brand, 0, QStringLiteral("پژ"), 7);
        QVERIFY(CatalogEntries::rename(CatalogLevel::Brand, brand, QStringLiteral("پژو")));
        QCOMPARE(CatalogEntries::name(CatalogLevel::Brand, brand), QStringLiteral("پژو"));
        QCOMPARE(value(QStringLiteral("SELECT iUserID FROM CarBrands")), QStringLiteral("7"));
        QVERIFY(!CatalogEntries::rename(CatalogLevel::Brand, brand + 1, QStringLiteral("x")));
        QVERIFY(!CatalogEntries::name(CatalogLevel::Model, brand));
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
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int model = m_office->addModel(brand, QStringLiteral("206"));
        const int carClass = m_office->addClass(model, QStringLiteral("تیپ 5"));
        const int key = QList<int>{brand, model, carClass}[level];
        {
            const ObservedStatements observed({QStringLiteral("SELECT")});
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
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int model = m_office->addModel(brand, QStringLiteral("206"));
        m_office->addClass(model, QStringLiteral("تیپ 5"));
        const int other = m_office->addClass(model, QStringLiteral("تیپ 2"));
        QVERIFY(CatalogEntries::remove(CatalogLevel::Class, other));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM CarClasses")), QStringLiteral("1"));
        QVERIFY(CatalogEntries::remove(CatalogLevel::Brand, brand));
        QCOMPARE(value(QStringLiteral("SELECT (SELECT COUNT(*) FROM CarBrands)+(SELECT COUNT(*) FROM CarModels)"
                                      "+(SELECT COUNT(*) FROM CarClasses)")),
                 QStringLiteral("0"));
        QVERIFY(!CatalogEntries::remove(CatalogLevel::Brand, brand));
    }

    void theNameCheckLooksAmongTheModelsByTheirOwnKey()
    {
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int model = m_office->addModel(brand, QStringLiteral("O'Neil"));
        QVERIFY(CatalogEntries::isNameTaken(0, QStringLiteral("O'Neil"), model));
        QVERIFY(!CatalogEntries::isNameTaken(0, QStringLiteral("O'Neil"), model + 1));
        QVERIFY(!CatalogEntries::isNameTaken(model, QStringLiteral("O'Neil"), model));
        QVERIFY(!CatalogEntries::isNameTaken(0, QStringLiteral("پژو"), brand));
    }
};

static const RegisteredTest<TestCatalogEntries, KApplication> registered;
#include "TestCatalogEntries.moc"

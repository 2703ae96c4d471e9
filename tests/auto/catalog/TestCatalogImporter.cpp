// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogImporter.h"

#include "suite/accounting/frame/KApplication.h"
#include "suite/db/CMySQLException.h"
#include "tests/office/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QFile>

class TestCatalogImporter : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    int count(const char *table)
    {
        return m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM ") + QLatin1String(table)).toInt();
    }
    QVector<CatalogImport::Entry> startingSet()
    {
        QFile file(QStringLiteral(TZ_STARTING_SET));
        return file.open(QIODevice::ReadOnly) ? CatalogImport::parse(file.readAll()).entries : QVector<CatalogImport::Entry>();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->clear(); }

    void everyEntryOfTheStartingSetHasItsPlace()
    {
        const QVector<CatalogImport::Entry> entries = startingSet();
        const CatalogImport::Plan added = CatalogImporter::add(entries, 5);
        QCOMPARE(count("CarBrands"), int(added.brands.size()));
        QCOMPARE(count("CarModels"), int(added.models.size()));
        QCOMPARE(count("CarClasses"), int(added.classes.size()));
        QVERIFY(added.brands.size() >= 30);
        for (const CatalogImport::Entry &entry : entries) {
            const QString found = entry.carClass.isEmpty()
                ? m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM CarModels m JOIN CarBrands b ON b.iID=m.iClassID "
                                                            "WHERE b.sName='%1' AND m.sName='%2'")
                                                 .arg(entry.brand, entry.model))
                : m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM CarClasses c JOIN CarModels m ON m.iID=c.iBrandID "
                                                            "JOIN CarBrands b ON b.iID=m.iClassID "
                                                            "WHERE b.sName='%1' AND m.sName='%2' AND c.sName='%3'")
                                                 .arg(entry.brand, entry.model, entry.carClass));
            QVERIFY2(found == QStringLiteral("1"), qPrintable(entry.brand + u'/' + entry.model + u'/' + entry.carClass));
        }
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM CarClasses WHERE iUserID<>5 OR dateCreate IS NULL")),
                 QStringLiteral("0"));
    }

    void theServersTimeIsAskedOncePerHundredEntriesAtMost()
    {
        QVector<CatalogImport::Entry> entries;
        for (int number = 0; number < 2000; ++number)
            entries.append({QStringLiteral("brand %1").arg(number / 100), QStringLiteral("model %1").arg(number / 10),
                            QStringLiteral("class %1").arg(number)});
        const ObservedStatements statements({QStringLiteral("SELECT NOW()"), QStringLiteral("INSERT")});
        const CatalogImport::Plan added = CatalogImporter::add(entries, 1);
        const qsizetype rows = added.brands.size() + added.models.size() + added.classes.size();
        QCOMPARE(rows, 2220);
        const qsizetype questions = statements.taken().count(QStringLiteral("SELECT NOW()"));
        QVERIFY2(questions >= 1 && questions <= rows / 100, qPrintable(QString::number(questions)));
        QCOMPARE(statements.taken().size(), rows + questions);
        QCOMPARE(m_office->database().value(QStringLiteral(
                     "SELECT COUNT(*) FROM CarBrands WHERE dateCreate IS NULL OR ABS(TIMESTAMPDIFF(SECOND,dateCreate,NOW()))>60")),
                 QStringLiteral("0"));
    }

    void aSecondImportAddsNothing()
    {
        const QVector<CatalogImport::Entry> entries = startingSet();
        CatalogImporter::add(entries, 1);
        const int before = count("CarBrands") + count("CarModels") + count("CarClasses");
        QVERIFY(before > 0);
        QVERIFY(CatalogImporter::add(entries, 1).isEmpty());
        QCOMPARE(count("CarBrands") + count("CarModels") + count("CarClasses"), before);
    }

    void whatIsThereAlreadyIsLeftAlone()
    {
        const int brand = m_office->addBrand(QStringLiteral("ايران\u200cخودرو"));
        const int samand = m_office->addModel(brand, QStringLiteral("سمند"));
        CatalogImporter::add(startingSet(), 1);
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT sName FROM CarBrands WHERE iID=%1").arg(brand)),
                 QStringLiteral("ايران\u200cخودرو"));
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM CarBrands WHERE sName LIKE '%خودرو'")), QStringLiteral("1"));
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM CarModels WHERE sName='سمند'")), QStringLiteral("1"));
        QVERIFY(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM CarModels WHERE iClassID=%1").arg(brand)).toInt() > 1);
        QVERIFY(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM CarClasses WHERE iBrandID=%1").arg(samand)).toInt() > 1);
    }

    void anErrorHalfWayKeepsNothing()
    {
        m_office->database().run(QStringLiteral("RENAME TABLE CarClasses TO CarClassesAway"));
        m_office->database().run(QStringLiteral("CREATE TABLE CarClasses LIKE CarClassesAway"));
        m_office->database().run(QStringLiteral("ALTER TABLE CarClasses MODIFY sName VARCHAR(2)"));
        QVERIFY_THROWS_EXCEPTION(CMySQLException, CatalogImporter::add({{QStringLiteral("A"), QStringLiteral("1"), QStringLiteral("xyz")}}, 1));
        m_office->database().run(QStringLiteral("DROP TABLE CarClasses"));
        m_office->database().run(QStringLiteral("RENAME TABLE CarClassesAway TO CarClasses"));
        QCOMPARE(count("CarBrands") + count("CarModels") + count("CarClasses"), 0);
    }
};

static const RegisteredTest<TestCatalogImporter, KApplication> registered;
#include "TestCatalogImporter.moc"

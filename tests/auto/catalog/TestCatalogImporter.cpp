// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogImporter.h"

#include "suite/accounting/frame/KApplication.h"
#include "suite/db/connection/CMySQLException.h"
#include "tests/office/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QFile>

using namespace Qt::StringLiterals;

class TestCatalogImporter : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    int count(const char *table)
    {
        return m_office->database().value(u"SELECT COUNT(*) FROM "_s + QLatin1String(table)).toInt();
    }
    QVector<CatalogImport::Entry> startingSet()
    {
        QFile file(u"" TZ_STARTING_SET ""_s);
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
                ? m_office->database().value(u"SELECT COUNT(*) FROM CarModels m JOIN CarBrands b ON b.iID=m.iClassID "
                                             "WHERE b.sName='%1' AND m.sName='%2'"_s
                                                 .arg(entry.brand, entry.model))
                : m_office->database().value(u"SELECT COUNT(*) FROM CarClasses c JOIN CarModels m ON m.iID=c.iBrandID "
                                             "JOIN CarBrands b ON b.iID=m.iClassID "
                                             "WHERE b.sName='%1' AND m.sName='%2' AND c.sName='%3'"_s
                                                 .arg(entry.brand, entry.model, entry.carClass));
            QVERIFY2(found == u"1"_s, qPrintable(entry.brand + u'/' + entry.model + u'/' + entry.carClass));
        }
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM CarClasses WHERE iUserID<>5 OR dateCreate IS NULL"_s),
                 u"0"_s);
    }

    void theServersTimeIsAskedOncePerHundredEntriesAtMost()
    {
        QVector<CatalogImport::Entry> entries;
        for (int number = 0; number < 2000; ++number)
            entries.append({u"brand %1"_s.arg(number / 100), u"model %1"_s.arg(number / 10),
                            u"class %1"_s.arg(number)});
        const ObservedStatements statements({u"SELECT NOW()"_s, u"INSERT INTO Car"_s});
        const CatalogImport::Plan added = CatalogImporter::add(entries, 1);
        const qsizetype rows = added.brands.size() + added.models.size() + added.classes.size();
        QCOMPARE(rows, 2220);
        const qsizetype questions = statements.taken().count(u"SELECT NOW()"_s);
        QVERIFY2(questions >= 1 && questions <= rows / 100, qPrintable(QString::number(questions)));
        QCOMPARE(statements.taken().size(), rows + questions);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM CarBrands WHERE dateCreate IS NULL OR ABS(TIMESTAMPDIFF(SECOND,dateCreate,NOW()))>60"_s),
                 u"0"_s);
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
        const int brand = m_office->addBrand(u"ايران\u200cخودرو"_s);
        const int samand = m_office->addModel(brand, u"سمند"_s);
        CatalogImporter::add(startingSet(), 1);
        QCOMPARE(m_office->database().value(u"SELECT sName FROM CarBrands WHERE iID=%1"_s.arg(brand)),
                 u"ايران\u200cخودرو"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM CarBrands WHERE sName LIKE '%خودرو'"_s), u"1"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM CarModels WHERE sName='سمند'"_s), u"1"_s);
        QVERIFY(m_office->database().value(u"SELECT COUNT(*) FROM CarModels WHERE iClassID=%1"_s.arg(brand)).toInt() > 1);
        QVERIFY(m_office->database().value(u"SELECT COUNT(*) FROM CarClasses WHERE iBrandID=%1"_s.arg(samand)).toInt() > 1);
    }

    void anErrorHalfWayKeepsNothing()
    {
        m_office->database().run(u"RENAME TABLE CarClasses TO CarClassesAway"_s);
        m_office->database().run(u"CREATE TABLE CarClasses LIKE CarClassesAway"_s);
        m_office->database().run(u"ALTER TABLE CarClasses MODIFY sName VARCHAR(2)"_s);
        QVERIFY_THROWS_EXCEPTION(CMySQLException, CatalogImporter::add({{u"A"_s, u"1"_s, u"xyz"_s}}, 1));
        m_office->database().run(u"DROP TABLE CarClasses"_s);
        m_office->database().run(u"RENAME TABLE CarClassesAway TO CarClasses"_s);
        QCOMPARE(count("CarBrands") + count("CarModels") + count("CarClasses"), 0);
    }
};

static const RegisteredTest<TestCatalogImporter, KApplication> registeredCatalogImporter;
#include "TestCatalogImporter.moc"

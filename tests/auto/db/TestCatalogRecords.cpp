// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/CMySQLException.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/ObservedStatements.h"
#include "tests/auto/db/ColumnTable.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<KMySQL> makeRecord(const QString &table)
{
    if (table == u"CarBrands"_s)
        return std::make_unique<CTblCarBrands>();
    if (table == u"CarModels"_s)
        return std::make_unique<CTblCarModels>();
    return std::make_unique<CTblCarClasses>();
}

QStringList texts(const QComboBox &combo)
{
    QStringList texts;
    for (int i = 0; i < combo.count(); ++i)
        texts << combo.itemText(i);
    return texts;
}

}

class TestCatalogRecords : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    template <class Record>
    static int add(const std::function<void(Record &)> &set)
    {
        Record record;
        record.Open(true, false, true);
        record.AddNew();
        set(record);
        record.Update(true);
        return static_cast<int>(record.GetLastInsertedID());
    }
    static int addBrand(const QString &name)
    {
        return add<CTblCarBrands>([&](CTblCarBrands &brand) { brand.m_sName = name; });
    }
    static int addModel(int brand, const QString &name)
    {
        return add<CTblCarModels>([&](CTblCarModels &model) {
            model.m_iClassID = brand;
            model.m_sName = name;
        });
    }
    static int addClass(int model, const QString &name)
    {
        return add<CTblCarClasses>([&](CTblCarClasses &carClass) {
            carClass.m_iBrandID = model;
            carClass.m_sName = name;
        });
    }

    // The names that are left of a table, in the order of their keys.
    QString left(const char *table)
    {
        return m_database.value(u"SELECT GROUP_CONCAT(sName ORDER BY iID) FROM "_s + QLatin1String(table));
    }

    static void tables()
    {
        QTest::addColumn<QString>("table");
        for (const char *table : {"CarBrands", "CarModels", "CarClasses"})
            QTest::newRow(table) << QString::fromLatin1(table);
    }

private Q_SLOTS:
    void init() { prepareModuleTables(m_database); }

    void bindingsStandInOrderWithCaptionsAndLookups_data() { tables(); }
    void bindingsStandInOrderWithCaptionsAndLookups()
    {
        QFETCH(QString, table);
        const std::unique_ptr<KMySQL> record = makeRecord(table);
        QCOMPARE(record->GetTableName(), table);
        QCOMPARE(ColumnTable::bound(*record),
                 ColumnTable::wanted(table + u"_columns.tsv"_s));
    }

    void everyColumnOfTheTableIsBound_data() { tables(); }
    void everyColumnOfTheTableIsBound()
    {
        QFETCH(QString, table);
        QStringList bound;
        const std::unique_ptr<KMySQL> record = makeRecord(table);
        for (const KMySQL::Column &column : record->columns())
            bound << column.name;
        bound.sort();
        QStringList stored = m_database
                                 .value(u"SELECT GROUP_CONCAT(COLUMN_NAME) FROM information_schema.COLUMNS "
                                        "WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='%1'"_s
                                            .arg(table))
                                 .split(u',');
        stored.sort();
        QCOMPARE(bound, stored);
    }

    void everyMemberIsStoredAndReadBack_data() { tables(); }
    void everyMemberIsStoredAndReadBack()
    {
        QFETCH(QString, table);
        const std::unique_ptr<KMySQL> written = makeRecord(table);
        QHash<QString, QVariant> expected;
        int number = 0;
        written->AddNew();
        for (const KMySQL::Column &column : written->columns()) {
            ++number;
            if (column.name == u"iID"_s)
                continue;
            QVariant value = number;
            if (column.kind == KMySQL::ColumnKind::Text)
                value = u"متن %1"_s.arg(number);
            else if (column.kind == KMySQL::ColumnKind::Date)
                value = QDateTime(QDate(2026, 1, number), QTime(1, 2, 3), Qt::UTC);
            else if (column.kind == KMySQL::ColumnKind::Bool)
                value = 1;
            written->setValue(column.name, value);
            expected.insert(column.name, value);
        }
        written->Update(true);
        const std::unique_ptr<KMySQL> read = makeRecord(table);
        QVERIFY(read->IsRecordExist(u"iID"_s, qint32(written->GetLastInsertedID())));
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QVERIFY2(read->value(it.key()) == it.value(), qPrintable(it.key()));
    }

    void constructionSetsZeroAndEmpty_data() { tables(); }
    void constructionSetsZeroAndEmpty()
    {
        QFETCH(QString, table);
        const std::unique_ptr<KMySQL> record = makeRecord(table);
        for (const KMySQL::Column &column : record->columns()) {
            const QVariant value = record->value(column.name);
            QVERIFY2(column.kind == KMySQL::ColumnKind::Text       ? value.toString().isEmpty()
                         : column.kind == KMySQL::ColumnKind::Date ? !value.toDateTime().isValid()
                                                                   : value.toDouble() == 0,
                     qPrintable(column.name));
        }
    }

    void liveObjectsAreCounted()
    {
        const int brands = CTblCarBrands::liveCount();
        const int models = CTblCarModels::liveCount();
        const int classes = CTblCarClasses::liveCount();
        {
            const CTblCarBrands brand;
            const CTblCarModels model;
            const CTblCarClasses one;
            const CTblCarClasses other;
            QCOMPARE(CTblCarBrands::liveCount(), brands + 1);
            QCOMPARE(CTblCarModels::liveCount(), models + 1);
            QCOMPARE(CTblCarClasses::liveCount(), classes + 2);
        }
        QCOMPARE(CTblCarClasses::liveCount(), classes);
    }

    void deletingABrandWithoutModelsDeletesOnlyTheBrandRow()
    {
        const int brand = addBrand(u"A"_s);
        const int other = addBrand(u"B"_s);
        addClass(addModel(other, u"b1"_s), u"b1x"_s);
        CTblCarBrands record;
        QVERIFY(record.IsRecordExist(u"iID"_s, brand));
        QVERIFY(record.Delete());
        QCOMPARE(left("CarBrands"), u"B"_s);
        QCOMPARE(left("CarModels"), u"b1"_s);
        QCOMPARE(left("CarClasses"), u"b1x"_s);
    }

    void deletingABrandWhoseModelsAllHaveClassesDeletesTheBrandItsModelsAndTheirClasses()
    {
        const int brand = addBrand(u"A"_s);
        const int one = addModel(brand, u"a1"_s);
        const int two = addModel(brand, u"a2"_s);
        addClass(one, u"a1x"_s);
        addClass(one, u"a1y"_s);
        addClass(two, u"a2x"_s);
        const int other = addBrand(u"B"_s);
        addClass(addModel(other, u"b1"_s), u"b1x"_s);
        CTblCarBrands record;
        QVERIFY(record.IsRecordExist(u"iID"_s, brand));
        QVERIFY(record.Delete());
        QCOMPARE(left("CarBrands"), u"B"_s);
        QCOMPARE(left("CarModels"), u"b1"_s);
        QCOMPARE(left("CarClasses"), u"b1x"_s);
    }

    void deletingABrandThatHasAModelWithoutClassesLeavesThatModelInTheTable()
    {
        const int brand = addBrand(u"A"_s);
        addClass(addModel(brand, u"a1"_s), u"a1x"_s);
        addModel(brand, u"a2"_s);
        CTblCarBrands record;
        QVERIFY(record.IsRecordExist(u"iID"_s, brand));
        QVERIFY(record.Delete());
        QCOMPARE(left("CarBrands"), QString());
        QCOMPARE(left("CarModels"), u"a2"_s);
        QCOMPARE(left("CarClasses"), QString());
    }

    void deletingAModelDeletesTheModelRowEvenWhenItHasNoClass()
    {
        const int brand = addBrand(u"A"_s);
        const int model = addModel(brand, u"a1"_s);
        addClass(addModel(brand, u"a2"_s), u"a2x"_s);
        CTblCarModels record;
        QVERIFY(record.IsRecordExist(u"iID"_s, model));
        QVERIFY(record.Delete());
        QCOMPARE(left("CarBrands"), u"A"_s);
        QCOMPARE(left("CarModels"), u"a2"_s);
        QCOMPARE(left("CarClasses"), u"a2x"_s);
    }

    void deletingAModelTakesItsClassesAlong()
    {
        const int brand = addBrand(u"A"_s);
        const int model = addModel(brand, u"a1"_s);
        addClass(model, u"a1x"_s);
        addClass(model, u"a1y"_s);
        addClass(addModel(brand, u"a2"_s), u"a2x"_s);
        CTblCarModels record;
        QVERIFY(record.IsRecordExist(u"iID"_s, model));
        QVERIFY(record.Delete());
        QCOMPARE(left("CarModels"), u"a2"_s);
        QCOMPARE(left("CarClasses"), u"a2x"_s);
    }

    void deletingAClassRemovesOnlyItsOwnRow()
    {
        const int model = addModel(addBrand(u"A"_s), u"a1"_s);
        const int carClass = addClass(model, u"a1x"_s);
        addClass(model, u"a1y"_s);
        CTblCarClasses record;
        QVERIFY(record.IsRecordExist(u"iID"_s, carClass));
        const ObservedStatements observed({u"DELETE"_s});
        QVERIFY(record.Delete());
        QCOMPARE(observed.taken().size(), 1);
        QCOMPARE(left("CarClasses"), u"a1y"_s);
        QCOMPARE(left("CarModels"), u"a1"_s);
    }

    void theJoinedDeletionsAreToTheLetter()
    {
        const int brand = addBrand(u"A"_s);
        const int model = addModel(brand, u"a1"_s);
        CTblCarModels models;
        QVERIFY(models.IsRecordExist(u"iID"_s, model));
        CTblCarBrands brands;
        QVERIFY(brands.IsRecordExist(u"iID"_s, brand));
        const ObservedStatements observed({u"DELETE"_s});
        QVERIFY(models.Delete());
        QVERIFY(brands.Delete());
        const QStringList taken = observed.taken();
        QCOMPARE(taken.size(), 4);
        QCOMPARE(taken[0], u"DELETE cm, cc FROM CarModels cm INNER JOIN CarClasses cc\tWHERE cc.iBrandID=cm.iID AND cc.iBrandID=%1"_s.arg(model));
        QVERIFY(taken[1].startsWith(u"DELETE FROM CarModels WHERE iID=%1"_s.arg(model)));
        QCOMPARE(taken[2], u"DELETE cm, cb, cc FROM CarModels cm INNER JOIN CarBrands cb INNER JOIN CarClasses cc WHERE cc.iBrandID=cm.iID AND cb.iID=cm.iClassID AND cm.iClassID=%1"_s.arg(brand));
        QVERIFY(taken[3].startsWith(u"DELETE FROM CarBrands WHERE iID=%1"_s.arg(brand)));
    }

    void anErrorOfTheJoinedDeletionLeavesTheRow()
    {
        const int brand = addBrand(u"A"_s);
        const int model = addModel(brand, u"a1"_s);
        CTblCarBrands brands;
        QVERIFY(brands.IsRecordExist(u"iID"_s, brand));
        CTblCarModels models;
        QVERIFY(models.IsRecordExist(u"iID"_s, model));
        m_database.run(u"RENAME TABLE CarClasses TO CarClassesAway"_s);
        QVERIFY_THROWS_EXCEPTION(CMySQLException, brands.Delete());
        QVERIFY_THROWS_EXCEPTION(CMySQLException, models.Delete());
        QCOMPARE(left("CarBrands"), u"A"_s);
        QCOMPARE(left("CarModels"), u"a1"_s);
    }

    void withoutARowNothingIsDeleted()
    {
        addClass(addModel(0, u"orphan"_s), u"x"_s);
        CTblCarBrands brands;
        CTblCarModels models;
        const ObservedStatements observed({u"DELETE"_s});
        QVERIFY_THROWS_EXCEPTION(CMySQLException, brands.Delete());
        QVERIFY_THROWS_EXCEPTION(CMySQLException, models.Delete());
        QCOMPARE(observed.taken(), QStringList());
    }

    void theBrandComboBoxListsBrandsInKeyOrderNotByNameAndHasNoSelectionAfterwards()
    {
        const int second = addBrand(u"Z"_s);
        const int third = addBrand(u"A"_s);
        QComboBox combo;
        combo.addItem(u"before"_s);
        QCOMPARE(CTblCarBrands::FillComboBox(&combo), 1);
        QCOMPARE(texts(combo), (QStringList{u"Z"_s, u"A"_s}));
        QCOMPARE(combo.itemData(0).toInt(), second);
        QCOMPARE(combo.itemData(1).toInt(), third);
        QCOMPARE(combo.currentIndex(), -1);
    }

    void theClassComboBoxForAModelWithoutClassesIsEmpty()
    {
        const int model = addModel(addBrand(u"A"_s), u"a1"_s);
        addClass(model + 1, u"of another"_s);
        QComboBox combo;
        combo.addItem(u"before"_s);
        QCOMPARE(CTblCarClasses::FillComboBox(&combo, model, 3), 1);
        QCOMPARE(combo.count(), 0);
    }

    void theClassComboBoxStandsOnTheAskedClass_data()
    {
        QTest::addColumn<int>("asked"); // position; -1: a key that no class has
        QTest::addColumn<int>("index");
        QTest::newRow("the first") << 0 << 0;
        QTest::newRow("the second") << 1 << 1;
        QTest::newRow("of another model") << 2 << -1;
        QTest::newRow("none") << -1 << -1;
    }

    void theClassComboBoxStandsOnTheAskedClass()
    {
        QFETCH(int, asked);
        const int brand = addBrand(u"A"_s);
        const int model = addModel(brand, u"a1"_s);
        const QList<int> keys{addClass(model, u"z"_s), addClass(model, u"a"_s),
                              addClass(addModel(brand, u"a2"_s), u"other"_s)};
        QComboBox combo;
        QCOMPARE(CTblCarClasses::FillComboBox(&combo, model, keys.value(asked, 0)), 1);
        QCOMPARE(texts(combo), (QStringList{u"z"_s, u"a"_s}));
        QCOMPARE(combo.itemData(1).toInt(), keys[1]);
        QTEST(combo.currentIndex(), "index");
    }
};

static const RegisteredTest<TestCatalogRecords, QApplication> registeredCatalogRecords;
#include "TestCatalogRecords.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/DemandFilter.h"
#include "auto/cars/register/CarFilter.h"
#include "auto/catalog/CatalogEntries.h"
#include "auto/catalog/parameters/InputParameterValues.h"
#include "auto/catalog/tariffs/TariffFilter.h"
#include "auto/contracts/ContractFilter.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemandJoins.h"
#include "auto/db/CTblAutomobilInformationJoins.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblAutomobilTariffs.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/values/TextStandard.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/AddItem.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

namespace {

// One text filter of the module: the list's filters, its key, the record that holds the column, and the one that the list reads.
struct TextFilter
{
    const char *name;
    QList<KListFilter> (*filters)();
    const char *key;
    const char *column; // of the record
    bool wildcards;     // % and _ are typed as such
    std::unique_ptr<KMySQL> (*record)();
    std::unique_ptr<KMySQL> (*listed)();
};

template <class Record>
std::unique_ptr<KMySQL> make()
{
    return std::make_unique<Record>();
}

QList<KListFilter> ofCars()
{
    return carFilters();
}

QList<KListFilter> ofDemands()
{
    return demandFilters();
}

const TextFilter textFilters[] = {
    {"tariffs, name", tariffFilters, "name", "sTitle", true, make<CTblAutomobilTariffs>, make<CTblAutomobilTariffs>},
    {"cars, documents", ofCars, "documentsDeficit", "sDocumentsDeficit", true, make<CTblAutomobilInformations>, make<CTblAutomobilInformationJoins>},
    {"cars, parts", ofCars, "partsDeficit", "sFractionalParts", true, make<CTblAutomobilInformations>, make<CTblAutomobilInformationJoins>},
    {"cars, chassis", ofCars, "chassis", "sChassisNum", true, make<CTblAutomobilInformations>, make<CTblAutomobilInformationJoins>},
    {"demands, special", ofDemands, "specialDescription", "sDescSpecial", false, make<CTblAutomobilDemands>, make<CTblAutomobilDemandJoins>},
    {"contracts, description", contractFilters, "description", "sDesc", false, make<CTblAutomobilContracts>, make<CTblAutomobilContracts>},
    {"contracts, explanation", contractFilters, "explanation", "sExplain", false, make<CTblAutomobilContracts>, make<CTblAutomobilContracts>},
};

// Whether the stored text holds the typed one, blanks apart.
bool holds(const QString &stored, const QString &typed, bool wildcards)
{
    QString pattern = QRegularExpression::escape(searchKey(typed));
    if (wildcards)
        pattern.replace(u"\\%"_s, u".*"_s).replace(u'_', u'.');
    return QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption).match(searchKey(stored)).hasMatch();
}

// One text in several ways of writing it, none of which is in the others to the letter.
const QStringList waysOfWriting = {u"کتاب‌خانه ۱۲یک"_s, u"كتاب خانه ١٢ يك"_s, u"کتابخانه12یک"_s, u"كتــابخانه 12 یك"_s};

}

// Every text that is typed to find something, in every list of the module: it finds what holds it, and nothing else happens.
class TestHostileTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        prepareModuleTables(m_database);
        m_database.run(u"INSERT INTO Users(sUser,sPasswordHash,sName) VALUES('admin','$argon2id$secret','x')"_s);
        m_database.run(u"INSERT INTO Persons(iID,iCode,sName2) VALUES(5,1,'علی')"_s);
    }

    void filterFindsWhatHoldsTheText_data()
    {
        QTest::addColumn<int>("filter");
        for (int i = 0; i < int(std::size(textFilters)); ++i)
            QTest::newRow(textFilters[i].name) << i;
    }

    void filterFindsWhatHoldsTheText()
    {
        QFETCH(int, filter);
        const TextFilter &asked = textFilters[filter];
        const QStringList stored = store(asked, hostileTexts() + QStringList{u"plain"_s});
        for (const QString &text : hostileTexts()) {
            QStringList expected;
            for (const QString &each : stored) {
                if (holds(each, text.left(m_length), asked.wildcards))
                    expected.append(each);
            }
            QCOMPARE(found(asked, text.left(m_length)), expected);
        }
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Users"_s), u"1"_s);
    }

    void everyWayOfWritingFindsEveryOther_data() { filterFindsWhatHoldsTheText_data(); }

    void everyWayOfWritingFindsEveryOther()
    {
        QFETCH(int, filter);
        const TextFilter &asked = textFilters[filter];
        const QStringList stored = store(asked, waysOfWriting);
        for (const QString &way : waysOfWriting) {
            QCOMPARE(found(asked, way), stored);
            QCOMPARE(found(asked, way.mid(1, 9)), stored);
        }
        QVERIFY(found(asked, waysOfWriting.front() + u'x').isEmpty());
    }

    void characterThatNoTableHoldsFindsNothing_data() { filterFindsWhatHoldsTheText_data(); }

    void characterThatNoTableHoldsFindsNothing()
    {
        QFETCH(int, filter);
        const TextFilter &asked = textFilters[filter];
        store(asked, {u"ab"_s, u"?"_s, u"\uFFFD"_s});
        QVERIFY(found(asked, u"🚗"_s).isEmpty());
        QVERIFY(found(asked, u"a🚗"_s).isEmpty());
        QVERIFY(found(asked, u"%🚗"_s).isEmpty());
    }

    void wildcardsAreWhereTheyAreWanted_data() { filterFindsWhatHoldsTheText_data(); }

    void wildcardsAreWhereTheyAreWanted()
    {
        QFETCH(int, filter);
        const TextFilter &asked = textFilters[filter];
        const QStringList stored = store(asked, {u"a%c"_s, u"abc"_s, u"ب ۵ ج"_s, u"a_c"_s, u"ac"_s});
        const auto expected = [&](const QStringList &withWildcards, const QStringList &without) { return asked.wildcards ? withWildcards : without; };
        QCOMPARE(found(asked, u"a%c"_s), expected({u"a%c"_s, u"abc"_s, u"a_c"_s, u"ac"_s}, {u"a%c"_s}));
        QCOMPARE(found(asked, u"a_c"_s), expected({u"a%c"_s, u"abc"_s, u"a_c"_s}, {u"a_c"_s}));
        QCOMPARE(found(asked, u"ب%ج"_s), expected({u"ب ۵ ج"_s}, {}));
        QCOMPARE(found(asked, u"ب_ج"_s), expected({u"ب ۵ ج"_s}, {}));
        QCOMPARE(found(asked, u"b\\"_s), QStringList());
    }

    void catalogAndParametersTakeTheTextAsItIs_data()
    {
        QTest::addColumn<QString>("text");
        for (const QString &text : hostileTexts())
            QTest::addRow("%s", qUtf8Printable(QString(text).replace(QChar(0), u'0'))) << text;
    }

    void catalogAndParametersTakeTheTextAsItIs()
    {
        QFETCH(QString, text);
        text.truncate(48); // with a letter on both sides
        for (const CatalogLevel level : {CatalogLevel::Brand, CatalogLevel::Model, CatalogLevel::Class}) {
            const int key = CatalogEntries::add(level, 0, u"a"_s + text + u"b"_s, 0, QDateTime(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC));
            const QVector<CatalogEntries::Entry> entries = CatalogEntries::list(level, 0, u"a"_s + text);
            QCOMPARE(entries.size(), 1);
            QCOMPARE(entries.constFirst().key, key);
        }
        QVERIFY(!CatalogEntries::isNameTaken(0, text, 0));
        m_database.run(u"DELETE FROM Items"_s);
        QVERIFY(!InputParameterValues::isNameTaken(text, 0));
        addItem(CTblItems::typeColor, text);
        QVERIFY(InputParameterValues::isNameTaken(text, 0));
    }

    void parameterInAnotherWayOfWritingIsTaken()
    {
        const int key = addItem(CTblItems::typeColor, waysOfWriting.front());
        for (const QString &way : waysOfWriting) {
            QVERIFY(InputParameterValues::isNameTaken(way, 0));
            QVERIFY(!InputParameterValues::isNameTaken(way, key));
            QVERIFY(!InputParameterValues::isNameTaken(way + u'x', 0));
        }
        QVERIFY(!InputParameterValues::isNameTaken(u"🚗"_s, 0));
    }

private:
    // A row for each text and no others. The texts as they stand in the rows, in their order.
    QStringList store(const TextFilter &filter, QStringList texts)
    {
        m_database.run(u"DELETE FROM "_s + filter.record()->GetTableName());
        for (QString &text : texts) {
            const std::unique_ptr<KMySQL> record = filter.record();
            m_length = std::min(50, record->textLength(QString::fromLatin1(filter.column)));
            text = text.left(m_length);
            record->AddNew();
            if (record->column(u"iPersonID"))
                record->setValue(u"iPersonID", 5);
            record->setValue(QString::fromLatin1(filter.column), text);
            record->Update(true);
        }
        return texts;
    }

    QStringList found(const TextFilter &filter, const QString &typed)
    {
        KFilterValues values{{QString::fromLatin1(filter.key), typed}};
        const std::unique_ptr<KMySQL> rows = filter.listed();
        rows->m_filter = KListFilter::condition(filter.filters(), values, 0);
        const bool joined = !rows->column(u"iID");
        const QString alias = joined ? rows->columns().front().name.section(u'.', 0, 0) + u'.' : QString();
        rows->m_sort = KSql::order(alias + u"iID"_s);
        QStringList texts;
        for (rows->Open(true, true, true); !rows->IsEOF(); rows->MoveNext())
            texts.append(rows->value(alias + QString::fromLatin1(filter.column)).toString());
        return texts;
    }

    TestDatabase m_database;
    int m_length = 0;
};

static const RegisteredTest<TestHostileTexts, QApplication> registeredHostileTexts;
#include "TestHostileTexts.moc"

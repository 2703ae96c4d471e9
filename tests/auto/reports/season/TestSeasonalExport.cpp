// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalColumns.h"
#include "auto/reports/season/SeasonalExport.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KApplication.h"
#include "tests/auto/reports/season/ExportedSeason.h"
#include "tests/support/AccessFileReader.h"
#include "tests/support/OrdinaryRights.h"
#include "tests/support/RegisteredTest.h"

#include <QCryptographicHash>
#include <QDir>
#include <QJsonArray>
#include <QUuid>

using namespace Qt::StringLiterals;

using ExportedSeason::ownRow;
using ExportedSeason::report;
using ExportedSeason::summedRow;
using Kind = SeasonalExport::Kind;
using Outcome = SeasonalExport::Outcome;

namespace {

const QString salesName = u"Foroosh_Fasly_1404_2.mdb"_s;

QJsonObject companyRecord()
{
    return {{u"FirstName"_s, u"نمایشگاه"_s},
            {u"LastName"_s, u"پارس"_s},
            {u"PersonKind"_s, 2},
            {u"NationalCode"_s, u"10101234567"_s},
            {u"EconomicNumber"_s, u"4111"_s},
            {u"RegistrationNumber"_s, u"9876"_s},
            {u"Manager"_s, u"مینا کریمی"_s},
            {u"Telephone"_s, u"02188"_s},
            {u"Mobile"_s, u"0912"_s},
            {u"Province"_s, u"تهران"_s},
            {u"City"_s, u"ری"_s},
            {u"Address"_s, u"میدان نماز"_s},
            {u"PostalCode"_s, u"1111122222"_s}};
}

QJsonObject ownRecord(const QString &guid, int sequence)
{
    return {{u"HeadID"_s, guid},
            {u"GoodsKind"_s, 12},
            {u"Description"_s, u"مبایعه نامه"_s},
            {u"Sequence"_s, sequence},
            {u"Returned"_s, 1},
            {u"Amount"_s, u"1250000"_s},
            {u"ValueAddedTax"_s, u"112500"_s},
            {u"OtherDuties"_s, u"75"_s},
            {u"Discount"_s, u"10000.5"_s},
            {u"PersonKind"_s, 2},
            {u"PostalCode"_s, u"1234567890"_s},
            {u"AreaCode"_s, u"021"_s},
            {u"Telephone"_s, u"22334455"_s},
            {u"Address"_s, u"تهران، خیابان ولی‌عصر، پلاک ۱۲\tطبقه \\ دوم"_s},
            {u"FirstName"_s, u"شرکت پژوهش گچ"_s},
            {u"FamilyName"_s, u"كاراي «نو»"_s},
            {u"EconomicNumber"_s, u"411111111111"_s},
            {u"NationalCode"_s, u"0012345679"_s},
            {u"PartyKind"_s, 6},
            {u"ProvinceCode"_s, 23},
            {u"CityCode"_s, 8},
            {u"ContractCode"_s, u"1042"_s},
            {u"ContractDate"_s, u"1404/05/12"_s},
            {u"DocumentDate"_s, u"1404/05/13"_s}};
}

QJsonObject summedRecord(const QString &guid)
{
    return {{u"HeadID"_s, guid},
            {u"Description"_s, u" "_s},
            {u"Returned"_s, 0},
            {u"Amount"_s, u"3000000"_s},
            {u"ValueAddedTax"_s, u"112500"_s},
            {u"OtherDuties"_s, u"75"_s},
            {u"Discount"_s, u"10000.5"_s},
            {u"FamilyName"_s, u" "_s}};
}

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList everythingIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

// A folder with a copy of the files beside the module, to be spoilt.
void copyModuleFolder(const QString &to)
{
    QVERIFY(QDir().mkpath(to + u"/taxfile"_s));
    for (const QString &name : {u"TTMS.mdb"_s, u"TTMS.mapping.json"_s})
        QVERIFY(QFile::copy(ExportedSeason::builtFolder + u'/' + name, to + u'/' + name));
    const QDir jars(ExportedSeason::builtFolder + u"/taxfile"_s);
    for (const QString &name : jars.entryList(QDir::Files))
        QVERIFY(QFile::copy(jars.filePath(name), to + u"/taxfile/"_s + name));
}

QString messageOf(const SeasonalExport &task, const QString &folder)
{
    try {
        static_cast<void>(task.run(folder));
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

}

// Every file is read back by another program.
class TestSeasonalExport : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_folder;

    QString exported(const SeasonalExport::Report &rows)
    {
        if (SeasonalExport(rows, ExportedSeason::builtFolder).run(m_folder->path()) != Outcome::Done)
            throw std::runtime_error("not exported");
        return m_folder->filePath(SeasonalExport::fileName(rows.kind, rows.year, rows.season));
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        ExportedSeason::giveCompany();
        m_folder = std::make_unique<QTemporaryDir>();
    }

    void templateIsOfAccess2000WithFiveEmptyTables()
    {
        const AccessFileReader file(ExportedSeason::builtFolder + u"/TTMS.mdb"_s);
        QCOMPARE(file.version(), u"JET4"_s);
        const QStringList tables{u"Moshakhasat"_s, u"Foroush"_s, u"Foroush_Detail"_s,
                                 u"Kharid"_s, u"Kharid_Detail"_s};
        QCOMPARE(file.tables(), tables);
        for (const QString &table : tables)
            QCOMPARE(file.count(table), 0);
    }

    void everyValueComesBack_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("otherTable");
        QTest::newRow("sales") << 0 << salesName << u"Foroush"_s << u"Kharid"_s;
        QTest::newRow("purchases") << 1 << u"Kharid_Fasly_1404_2.mdb"_s << u"Kharid"_s
                                   << u"Foroush"_s;
    }

    void everyValueComesBack()
    {
        QFETCH(int, kind);
        QFETCH(QString, name);
        QFETCH(QString, table);
        QFETCH(QString, otherTable);
        exported(report(static_cast<Kind>(kind), {ownRow(1), summedRow(), ownRow(2)}));
        QCOMPARE(everythingIn(m_folder->path()), QStringList{name});

        const AccessFileReader file(m_folder->filePath(name));
        QCOMPARE(file.version(), u"JET4"_s);
        const QVector<QJsonObject> company = file.records(u"Moshakhasat"_s);
        QCOMPARE(company, QVector{companyRecord()});

        QVector<QJsonObject> heads = file.records(table);
        QCOMPARE(heads.size(), 1);
        const QString guid = heads.first().value(u"ID"_s).toString();
        QVERIFY(!QUuid::fromString(guid).isNull());
        QCOMPARE(guid.size(), 36);
        QCOMPARE(heads.first().value(u"Season"_s).toInt(), 2);
        QCOMPARE(heads.first().value(u"Year"_s).toInt(), 1404);

        const QString details = table + u"_Detail"_s;
        QCOMPARE(file.count(details), 3);
        QCOMPARE(file.records(details), (QVector{ownRecord(guid, 1), summedRecord(guid), ownRecord(guid, 2)}));
        QCOMPARE(file.count(otherTable), 0);
        QCOMPARE(file.count(otherTable + u"_Detail"_s), 0);
    }

    void emptyListGivesTheCompanyAndOneHeadButNoDetails()
    {
        const AccessFileReader file(exported(report(Kind::Sales, {})));
        QCOMPARE(file.records(u"Moshakhasat"_s), QVector{companyRecord()});
        QCOMPARE(file.count(u"Foroush"_s), 1);
        QCOMPARE(file.count(u"Foroush_Detail"_s), 0);
    }

    void sequenceNumberOf1000000001IsWrittenAs0_1000000000AsIs()
    {
        QStringList highest = ownRow(1);
        highest[1] = u"1000000000"_s;
        QStringList above = ownRow(2);
        above[1] = u"1000000001"_s;
        const QVector<QJsonObject> details =
            AccessFileReader(exported(report(Kind::Sales, {highest, above}))).records(u"Foroush_Detail"_s);
        QCOMPARE(details.size(), 2);
        QCOMPARE(details.at(0).value(u"Sequence"_s).toInt(), 1'000'000'000);
        QCOMPARE(details.at(1).value(u"Sequence"_s).toInt(-1), 0);
    }

    void rowWhoseCellsAreEmptyStillGivesADetailRecord()
    {
        const AccessFileReader file(exported(report(Kind::Sales, {QStringList(30)})));
        QJsonObject details = file.records(u"Foroush_Detail"_s).value(0);
        details.remove(u"HeadID"_s);
        QCOMPARE(details, (QJsonObject{{u"Returned"_s, 0}, {u"Amount"_s, u"0"_s}, {u"ValueAddedTax"_s, u"0"_s}, {u"OtherDuties"_s, u"0"_s}, {u"Discount"_s, u"0"_s}}));
    }

    void manyRowsKeepTheListsOrder()
    {
        QVector<QStringList> rows;
        for (int number = 1; number <= 2500; ++number)
            rows.append(ownRow(number));
        const QVector<QJsonObject> details =
            AccessFileReader(exported(report(Kind::Sales, rows))).records(u"Foroush_Detail"_s);
        QCOMPARE(details.size(), 2500);
        for (int i = 0; i < details.size(); ++i)
            QCOMPARE(details.at(i).value(u"Sequence"_s).toInt(), i + 1);
    }

    void exportingTwiceIntoTheSameFolderReplacesTheEarlierFileOfTheSameSeasonYearAndKind()
    {
        const QString purchases = exported(report(Kind::Purchases, {ownRow(9)}));
        SeasonalExport::Report spring = report(Kind::Sales, {ownRow(8)});
        spring.season = 0;
        const QString otherSeason = exported(spring);
        const QByteArray purchasesBefore = content(purchases), otherBefore = content(otherSeason);

        const QString path = exported(report(Kind::Sales, {ownRow(1), ownRow(2), ownRow(3)}));
        const QVector<QJsonObject> firstHead = AccessFileReader(path).records(u"Foroush"_s);
        QCOMPARE(exported(report(Kind::Sales, {summedRow()})), path);
        const AccessFileReader second(path);
        QCOMPARE(second.count(u"Foroush"_s), 1);
        QCOMPARE(second.count(u"Foroush_Detail"_s), 1);
        QCOMPARE(second.count(u"Moshakhasat"_s), 1);
        // Each export has an identifier of its own.
        QVERIFY(second.records(u"Foroush"_s) != firstHead);

        QCOMPARE(everythingIn(m_folder->path()).size(), 3);
        QCOMPARE(content(purchases), purchasesBefore);
        QCOMPARE(content(otherSeason), otherBefore);
    }

    // An office may put a file of the authority's in place that holds records, or one that nobody may write to.
    void templateThatHoldsRecordsAndIsReadOnly()
    {
        QTemporaryDir module;
        copyModuleFolder(module.path());
        const QString filled = exported(report(Kind::Sales, {ownRow(1), ownRow(2)}));
        const QString own = module.filePath(u"TTMS.mdb"_s);
        QVERIFY(QFile::remove(own) && QFile::copy(filled, own));
        QVERIFY(QFile::setPermissions(own, QFile::ReadOwner));
        QVERIFY(QFile::remove(filled));

        CompanyDetails other = CompanyDetails::read();
        other.name1 = u"نو"_s;
        other.mobile.clear();
        other.write();
        QCOMPARE(SeasonalExport(report(Kind::Sales, {ownRow(5)}), module.path()).run(m_folder->path()), Outcome::Done);
        const AccessFileReader file(filled);
        QCOMPARE(file.count(u"Foroush"_s), 1);
        const QVector<QJsonObject> details = file.records(u"Foroush_Detail"_s);
        QCOMPARE(details.size(), 1);
        QCOMPARE(details.first().value(u"Sequence"_s).toInt(), 5);
        const QVector<QJsonObject> company = file.records(u"Moshakhasat"_s);
        QCOMPARE(company.size(), 1);
        QCOMPARE(company.first().value(u"FirstName"_s).toString(), u"نو"_s);
        // Removed records do not remain from the earlier export.
        QVERIFY(!company.first().contains(u"Mobile"_s));
    }

    void folderOfAnyName()
    {
        const QString folder = m_folder->filePath(u"اظهارنامه فصلی 'تابستان' $1"_s);
        QVERIFY(QDir().mkpath(folder));
        QCOMPARE(SeasonalExport(report(Kind::Sales, {ownRow(1)}), ExportedSeason::builtFolder).run(folder), Outcome::Done);
        QCOMPARE(AccessFileReader(folder + u'/' + salesName).count(u"Foroush_Detail"_s), 1);
    }

    void progressTellsHowManyRowsStandInTheFile()
    {
        QVector<QStringList> rows(20'000, ownRow(1));
        QVector<int> done;
        const SeasonalExport task(report(Kind::Sales, rows), ExportedSeason::builtFolder);
        QCOMPARE(task.run(m_folder->path(),
                          [&](int rowsDone, int total) {
                              done.append(total == 20'000 ? rowsDone : -1);
                              return true;
                          }),
                 Outcome::Done);
        QVERIFY(done.size() >= 3);
        QVERIFY(std::is_sorted(done.cbegin(), done.cend()));
        QVERIFY(done.first() >= 0 && done.last() > 0 && done.last() <= 20'000);
    }

    void cancelledLeavesNoHalfFileNorTouchesAnEarlierOne_data()
    {
        QTest::addColumn<bool>("earlier");
        QTest::addColumn<int>("after");
        QTest::newRow("at once, nothing there") << false << 0;
        QTest::newRow("half-way, nothing there") << false << 1000;
        QTest::newRow("half-way over an earlier one") << true << 1000;
    }

    void cancelledLeavesNoHalfFileNorTouchesAnEarlierOne()
    {
        QFETCH(bool, earlier);
        QFETCH(int, after);
        QByteArray before;
        if (earlier)
            before = content(exported(report(Kind::Sales, {ownRow(1)})));
        const SeasonalExport task(report(Kind::Sales, QVector<QStringList>(60'000, ownRow(1))), ExportedSeason::builtFolder);
        int last = 0;
        QCOMPARE(task.run(m_folder->path(),
                          [&](int done, int) {
                              last = done;
                              return done < after;
                          }),
                 Outcome::Cancelled);
        QVERIFY(last < 60'000);
        QCOMPARE(everythingIn(m_folder->path()), earlier ? QStringList{salesName} : QStringList());
        QCOMPARE(content(m_folder->filePath(salesName)), before);
    }

    void failedLeavesNoHalfFileNorTouchesAnEarlierOne()
    {
        const QByteArray before = content(exported(report(Kind::Sales, {ownRow(1)})));
        QStringList spoilt = ownRow(2);
        spoilt[10] = QString(256, u'ن');
        SeasonalExport::Report rows = report(Kind::Sales, {ownRow(1), spoilt});
        rows.subject = [](int row) { return u"فاکتور شماره %1"_s.arg(16 + row); };
        for (const KListModel::Column &column : seasonalColumns(SeasonalGathering::Kind::Sales))
            rows.titles.append(column.title);
        QCOMPARE(messageOf(SeasonalExport(rows, ExportedSeason::builtFolder), m_folder->path()),
                 u"ردیف 2 (فاکتور شماره 17): متن ستون «آدرس» بیش از 255 حرف دارد."_s);
        QCOMPARE(everythingIn(m_folder->path()), QStringList{salesName});
        QCOMPARE(content(m_folder->filePath(salesName)), before);
    }

    // The dealership's own address is in no row of the list.
    void valueOfAnotherTableIsNoneOfARow()
    {
        SeasonalExport::Report rows = report(Kind::Sales, {ownRow(1)});
        for (const KListModel::Column &column : seasonalColumns(SeasonalGathering::Kind::Sales))
            rows.titles.append(column.title);
        CompanyDetails details = CompanyDetails::read();
        details.address = QString(256, u'ن');
        details.write();
        const QString message = messageOf(SeasonalExport(rows, ExportedSeason::builtFolder), m_folder->path());
        QVERIFY2(message.contains(u"«Moshakhasat»"_s), qPrintable(message));
    }

    void addressAboveTheAuthoritysLengthIsStillExported()
    {
        QStringList row = ownRow(1);
        row[10] = QString(250, u'ن');
        const AccessFileReader file(exported(report(Kind::Sales, {row})));
        QCOMPARE(file.records(u"Foroush_Detail"_s).first().value(u"Address"_s).toString(), row.at(10));
    }

    void rowsThatCannotBeReadEndIt()
    {
        SeasonalExport::Report broken = report(Kind::Sales, {ownRow(1)});
        broken.cells = [](int) -> QStringList { throw KAccountingError(u"خطا"_s); };
        QCOMPARE(messageOf(SeasonalExport(broken, ExportedSeason::builtFolder), m_folder->path()), u"خطا"_s);
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    void missingJavaNamesThePackage()
    {
        const QByteArray path = qgetenv("PATH"), home = qgetenv("JAVA_HOME");
        qputenv("PATH", m_folder->path().toLocal8Bit());
        qunsetenv("JAVA_HOME");
        const QString message = messageOf(SeasonalExport(report(Kind::Sales, {ownRow(1)}), ExportedSeason::builtFolder),
                                          m_folder->path());
        qputenv("PATH", path);
        if (!home.isEmpty())
            qputenv("JAVA_HOME", home);
        QVERIFY2(message.contains(u"default-jre-headless"_s), qPrintable(message));
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    void missingFileBesideTheModuleIsNamed_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("helper") << u"taxfile/tztaxfile.jar"_s;
        QTest::newRow("mapping") << u"TTMS.mapping.json"_s;
    }

    void missingFileBesideTheModuleIsNamed()
    {
        QFETCH(QString, file);
        QTemporaryDir module;
        copyModuleFolder(module.path());
        QVERIFY(QFile::remove(module.filePath(file)));
        const QString message = messageOf(SeasonalExport(report(Kind::Sales, {ownRow(1)}), module.path()), m_folder->path());
        QVERIFY2(message.contains(file), qPrintable(message));
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    // A helper whose libraries are gone ends before it says anything.
    void damagedHelperIsAnError()
    {
        QTemporaryDir module;
        copyModuleFolder(module.path());
        QVERIFY(QFile::resize(module.filePath(u"taxfile/tztaxfile.jar"_s), 100));
        const QString message = messageOf(SeasonalExport(report(Kind::Sales, {ownRow(1)}), module.path()), m_folder->path());
        QCOMPARE(message, u"برنامه نوشتن فایل مالیات (taxfile/tztaxfile.jar) خراب است یا اجرا نمی شود. "
                          "لطفا بسته tzauto را دوباره نصب نمایید."_s);
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    void damagedTemplateIsAnError()
    {
        QTemporaryDir module;
        copyModuleFolder(module.path());
        QVERIFY(QFile::resize(module.filePath(u"TTMS.mdb"_s), 5000));
        QCOMPARE(messageOf(SeasonalExport(report(Kind::Sales, {ownRow(1)}), module.path()), m_folder->path()),
                 u"فایل اکسس مالیات خراب است و خوانده نمی شود. لطفا TTMS.mdb را با نسخه سالم آن جایگزین نمایید."_s);
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    void missingTemplateStopsFirst()
    {
        QTemporaryDir module;
        const SeasonalExport task(report(Kind::Sales, {ownRow(1)}), module.path());
        CompanyDetails().write();
        QCOMPARE(task.check(), Outcome::TemplateMissing);
        QCOMPARE(task.run(m_folder->path()), Outcome::TemplateMissing);
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    void emptyCompanyStops()
    {
        CompanyDetails().write();
        const SeasonalExport task(report(Kind::Sales, {ownRow(1)}), ExportedSeason::builtFolder);
        QCOMPARE(task.check(), Outcome::CompanyEmpty);
        QCOMPARE(task.run(m_folder->path()), Outcome::CompanyEmpty);
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    void folderThatMayNotBeWritten()
    {
        const QString folder = m_folder->filePath(u"closed"_s);
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
        const SeasonalExport task(report(Kind::Sales, {ownRow(1)}), ExportedSeason::builtFolder);
        Outcome outcome = Outcome::Done;
        {
            const OrdinaryRights ordinary;
            outcome = task.run(folder);
        }
        QCOMPARE(outcome, Outcome::CopyFailed);
        QCOMPARE(everythingIn(folder), QStringList());
    }

    void folderThatTakesNoCopy_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("year");
        QTest::newRow("is gone") << u"gone"_s << u"1404"_s;
        QTest::newRow("has a folder of that name") << u"taken"_s << u"1404"_s;
        QTest::newRow("year that leads elsewhere") << QString() << u"/../../x"_s;
        QTest::newRow("year with a backslash") << QString() << u"..\\x"_s;
    }

    void folderThatTakesNoCopy()
    {
        QFETCH(QString, folder);
        QFETCH(QString, year);
        QVERIFY(QDir().mkpath(m_folder->filePath(u"taken/"_s + salesName)));
        SeasonalExport::Report rows = report(Kind::Sales, {ownRow(1)});
        rows.year = year;
        const SeasonalExport task(rows, ExportedSeason::builtFolder);
        QCOMPARE(task.run(m_folder->filePath(folder)), Outcome::CopyFailed);
        QCOMPARE(everythingIn(m_folder->path()), QStringList{u"taken"_s});
        QCOMPARE(everythingIn(m_folder->filePath(u"taken"_s)), QStringList{salesName});
    }
};

static const RegisteredTest<TestSeasonalExport, KApplication> registeredSeasonalExport;
#include "TestSeasonalExport.moc"

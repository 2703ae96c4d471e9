// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

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

using ExportedSeason::ownRow;
using ExportedSeason::report;
using ExportedSeason::summedRow;
using Kind = SeasonalExport::Kind;
using Outcome = SeasonalExport::Outcome;

namespace {

const QString salesName = QStringLiteral("Foroosh_Fasly_1404_2.mdb");

QJsonObject companyRecord()
{
    return {{QStringLiteral("FirstName"), QStringLiteral("نمایشگاه")},
            {QStringLiteral("LastName"), QStringLiteral("پارس")},
            {QStringLiteral("PersonKind"), 2},
            {QStringLiteral("NationalCode"), QStringLiteral("10101234567")},
            {QStringLiteral("EconomicNumber"), QStringLiteral("4111")},
            {QStringLiteral("RegistrationNumber"), QStringLiteral("9876")},
            {QStringLiteral("Manager"), QStringLiteral("مینا کریمی")},
            {QStringLiteral("Telephone"), QStringLiteral("02188")},
            {QStringLiteral("Mobile"), QStringLiteral("0912")},
            {QStringLiteral("Province"), QStringLiteral("تهران")},
            {QStringLiteral("City"), QStringLiteral("ری")},
            {QStringLiteral("Address"), QStringLiteral("میدان نماز")},
            {QStringLiteral("PostalCode"), QStringLiteral("1111122222")}};
}

QJsonObject ownRecord(const QString &guid, int sequence)
{
    return {{QStringLiteral("HeadID"), guid},
            {QStringLiteral("GoodsKind"), 12},
            {QStringLiteral("Description"), QStringLiteral("مبایعه نامه")},
            {QStringLiteral("Sequence"), sequence},
            {QStringLiteral("Returned"), 1},
            {QStringLiteral("Amount"), QStringLiteral("1250000")},
            {QStringLiteral("ValueAddedTax"), QStringLiteral("112500")},
            {QStringLiteral("OtherDuties"), QStringLiteral("75")},
            {QStringLiteral("Discount"), QStringLiteral("10000.5")},
            {QStringLiteral("PersonKind"), 2},
            {QStringLiteral("PostalCode"), QStringLiteral("1234567890")},
            {QStringLiteral("AreaCode"), QStringLiteral("021")},
            {QStringLiteral("Telephone"), QStringLiteral("22334455")},
            {QStringLiteral("Address"), QStringLiteral("تهران، خیابان ولی‌عصر، پلاک ۱۲\tطبقه \\ دوم")},
            {QStringLiteral("FirstName"), QStringLiteral("شرکت پژوهش گچ")},
            {QStringLiteral("FamilyName"), QStringLiteral("كاراي «نو»")},
            {QStringLiteral("EconomicNumber"), QStringLiteral("411111111111")},
            {QStringLiteral("NationalCode"), QStringLiteral("0012345679")},
            {QStringLiteral("PartyKind"), 6},
            {QStringLiteral("ProvinceCode"), 23},
            {QStringLiteral("CityCode"), 8},
            {QStringLiteral("ContractCode"), QStringLiteral("1042")},
            {QStringLiteral("ContractDate"), QStringLiteral("1404/05/12")},
            {QStringLiteral("DocumentDate"), QStringLiteral("1404/05/13")}};
}

QJsonObject summedRecord(const QString &guid)
{
    return {{QStringLiteral("HeadID"), guid},
            {QStringLiteral("Description"), QStringLiteral(" ")},
            {QStringLiteral("Returned"), 0},
            {QStringLiteral("Amount"), QStringLiteral("3000000")},
            {QStringLiteral("ValueAddedTax"), QStringLiteral("112500")},
            {QStringLiteral("OtherDuties"), QStringLiteral("75")},
            {QStringLiteral("Discount"), QStringLiteral("10000.5")},
            {QStringLiteral("FamilyName"), QStringLiteral(" ")}};
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

// A folder that holds what lies beside the module, to be spoilt.
void copyModuleFolder(const QString &to)
{
    QVERIFY(QDir().mkpath(to + QStringLiteral("/taxfile")));
    for (const QString &name : {QStringLiteral("TTMS.mdb"), QStringLiteral("TTMS.mapping.json")})
        QVERIFY(QFile::copy(ExportedSeason::builtFolder + u'/' + name, to + u'/' + name));
    const QDir jars(ExportedSeason::builtFolder + QStringLiteral("/taxfile"));
    for (const QString &name : jars.entryList(QDir::Files))
        QVERIFY(QFile::copy(jars.filePath(name), to + QStringLiteral("/taxfile/") + name));
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
        const AccessFileReader file(ExportedSeason::builtFolder + QStringLiteral("/TTMS.mdb"));
        QCOMPARE(file.version(), QStringLiteral("JET4"));
        const QStringList tables{QStringLiteral("Moshakhasat"), QStringLiteral("Foroush"), QStringLiteral("Foroush_Detail"),
                                 QStringLiteral("Kharid"), QStringLiteral("Kharid_Detail")};
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
        QTest::newRow("sales") << 0 << salesName << QStringLiteral("Foroush") << QStringLiteral("Kharid");
        QTest::newRow("purchases") << 1 << QStringLiteral("Kharid_Fasly_1404_2.mdb") << QStringLiteral("Kharid")
                                   << QStringLiteral("Foroush");
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
        QCOMPARE(file.version(), QStringLiteral("JET4"));
        const QVector<QJsonObject> company = file.records(QStringLiteral("Moshakhasat"));
        QCOMPARE(company, QVector{companyRecord()});

        QVector<QJsonObject> heads = file.records(table);
        QCOMPARE(heads.size(), 1);
        const QString guid = heads.first().value(QStringLiteral("ID")).toString();
        QVERIFY(!QUuid::fromString(guid).isNull());
        QCOMPARE(guid.size(), 36);
        QCOMPARE(heads.first().value(QStringLiteral("Season")).toInt(), 2);
        QCOMPARE(heads.first().value(QStringLiteral("Year")).toInt(), 1404);

        const QString details = table + QStringLiteral("_Detail");
        QCOMPARE(file.count(details), 3);
        QCOMPARE(file.records(details), (QVector{ownRecord(guid, 1), summedRecord(guid), ownRecord(guid, 2)}));
        QCOMPARE(file.count(otherTable), 0);
        QCOMPARE(file.count(otherTable + QStringLiteral("_Detail")), 0);
    }

    void emptyListGivesTheCompanyAndOneHeadButNoDetails()
    {
        const AccessFileReader file(exported(report(Kind::Sales, {})));
        QCOMPARE(file.records(QStringLiteral("Moshakhasat")), QVector{companyRecord()});
        QCOMPARE(file.count(QStringLiteral("Foroush")), 1);
        QCOMPARE(file.count(QStringLiteral("Foroush_Detail")), 0);
    }

    void sequenceNumberOf1000000001IsWrittenAs0_1000000000AsIs()
    {
        QStringList highest = ownRow(1);
        highest[1] = QStringLiteral("1000000000");
        QStringList above = ownRow(2);
        above[1] = QStringLiteral("1000000001");
        const QVector<QJsonObject> details =
            AccessFileReader(exported(report(Kind::Sales, {highest, above}))).records(QStringLiteral("Foroush_Detail"));
        QCOMPARE(details.size(), 2);
        QCOMPARE(details.at(0).value(QStringLiteral("Sequence")).toInt(), 1'000'000'000);
        QCOMPARE(details.at(1).value(QStringLiteral("Sequence")).toInt(-1), 0);
    }

    void rowWhoseCellsAreEmptyStillGivesADetailRecord()
    {
        const AccessFileReader file(exported(report(Kind::Sales, {QStringList(30)})));
        QJsonObject details = file.records(QStringLiteral("Foroush_Detail")).value(0);
        details.remove(QStringLiteral("HeadID"));
        QCOMPARE(details, (QJsonObject{{QStringLiteral("Returned"), 0}, {QStringLiteral("Amount"), QStringLiteral("0")}, {QStringLiteral("ValueAddedTax"), QStringLiteral("0")}, {QStringLiteral("OtherDuties"), QStringLiteral("0")}, {QStringLiteral("Discount"), QStringLiteral("0")}}));
    }

    void manyRowsKeepTheListsOrder()
    {
        QVector<QStringList> rows;
        for (int number = 1; number <= 2500; ++number)
            rows.append(ownRow(number));
        const QVector<QJsonObject> details =
            AccessFileReader(exported(report(Kind::Sales, rows))).records(QStringLiteral("Foroush_Detail"));
        QCOMPARE(details.size(), 2500);
        for (int i = 0; i < details.size(); ++i)
            QCOMPARE(details.at(i).value(QStringLiteral("Sequence")).toInt(), i + 1);
    }

    void exportingTwiceIntoTheSameFolderReplacesTheEarlierFileOfTheSameSeasonYearAndKind()
    {
        const QString purchases = exported(report(Kind::Purchases, {ownRow(9)}));
        SeasonalExport::Report spring = report(Kind::Sales, {ownRow(8)});
        spring.season = 0;
        const QString otherSeason = exported(spring);
        const QByteArray purchasesBefore = content(purchases), otherBefore = content(otherSeason);

        const QString path = exported(report(Kind::Sales, {ownRow(1), ownRow(2), ownRow(3)}));
        const QVector<QJsonObject> firstHead = AccessFileReader(path).records(QStringLiteral("Foroush"));
        QCOMPARE(exported(report(Kind::Sales, {summedRow()})), path);
        const AccessFileReader second(path);
        QCOMPARE(second.count(QStringLiteral("Foroush")), 1);
        QCOMPARE(second.count(QStringLiteral("Foroush_Detail")), 1);
        QCOMPARE(second.count(QStringLiteral("Moshakhasat")), 1);
        // Each export has an identifier of its own.
        QVERIFY(second.records(QStringLiteral("Foroush")) != firstHead);

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
        const QString own = module.filePath(QStringLiteral("TTMS.mdb"));
        QVERIFY(QFile::remove(own) && QFile::copy(filled, own));
        QVERIFY(QFile::setPermissions(own, QFile::ReadOwner));
        QVERIFY(QFile::remove(filled));

        CompanyDetails other = CompanyDetails::read();
        other.name1 = QStringLiteral("نو");
        other.mobile.clear();
        other.write();
        QCOMPARE(SeasonalExport(report(Kind::Sales, {ownRow(5)}), module.path()).run(m_folder->path()), Outcome::Done);
        const AccessFileReader file(filled);
        QCOMPARE(file.count(QStringLiteral("Foroush")), 1);
        const QVector<QJsonObject> details = file.records(QStringLiteral("Foroush_Detail"));
        QCOMPARE(details.size(), 1);
        QCOMPARE(details.first().value(QStringLiteral("Sequence")).toInt(), 5);
        const QVector<QJsonObject> company = file.records(QStringLiteral("Moshakhasat"));
        QCOMPARE(company.size(), 1);
        QCOMPARE(company.first().value(QStringLiteral("FirstName")).toString(), QStringLiteral("نو"));
        // What was taken away does not stay from before.
        QVERIFY(!company.first().contains(QStringLiteral("Mobile")));
    }

    void folderOfAnyName()
    {
        const QString folder = m_folder->filePath(QStringLiteral("اظهارنامه فصلی 'تابستان' $1"));
        QVERIFY(QDir().mkpath(folder));
        QCOMPARE(SeasonalExport(report(Kind::Sales, {ownRow(1)}), ExportedSeason::builtFolder).run(folder), Outcome::Done);
        QCOMPARE(AccessFileReader(folder + u'/' + salesName).count(QStringLiteral("Foroush_Detail")), 1);
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
        const SeasonalExport task(report(Kind::Sales, {ownRow(1), spoilt}), ExportedSeason::builtFolder);
        const QString message = messageOf(task, m_folder->path());
        QVERIFY2(message.contains(QStringLiteral("ردیف 2")) && message.contains(QStringLiteral("«Address»"))
                     && message.contains(QStringLiteral("255")),
                 qPrintable(message));
        QCOMPARE(everythingIn(m_folder->path()), QStringList{salesName});
        QCOMPARE(content(m_folder->filePath(salesName)), before);
    }

    void addressAboveTheAuthoritysLengthIsStillExported()
    {
        QStringList row = ownRow(1);
        row[10] = QString(250, u'ن');
        const AccessFileReader file(exported(report(Kind::Sales, {row})));
        QCOMPARE(file.records(QStringLiteral("Foroush_Detail")).first().value(QStringLiteral("Address")).toString(), row.at(10));
    }

    void rowsThatCannotBeReadEndIt()
    {
        SeasonalExport::Report broken = report(Kind::Sales, {ownRow(1)});
        broken.cells = [](int) -> QStringList { throw KAccountingError(QStringLiteral("خطا")); };
        QCOMPARE(messageOf(SeasonalExport(broken, ExportedSeason::builtFolder), m_folder->path()), QStringLiteral("خطا"));
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
        QVERIFY2(message.contains(QStringLiteral("default-jre-headless")), qPrintable(message));
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    void missingFileBesideTheModuleIsNamed_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("helper") << QStringLiteral("taxfile/tztaxfile.jar");
        QTest::newRow("mapping") << QStringLiteral("TTMS.mapping.json");
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
        QVERIFY(QFile::resize(module.filePath(QStringLiteral("taxfile/tztaxfile.jar")), 100));
        const QString message = messageOf(SeasonalExport(report(Kind::Sales, {ownRow(1)}), module.path()), m_folder->path());
        QVERIFY2(message.contains(QStringLiteral("نوشتن فایل مالیات ممکن نشد")), qPrintable(message));
        QCOMPARE(everythingIn(m_folder->path()), QStringList());
    }

    void damagedTemplateIsAnError()
    {
        QTemporaryDir module;
        copyModuleFolder(module.path());
        QVERIFY(QFile::resize(module.filePath(QStringLiteral("TTMS.mdb")), 5000));
        QVERIFY(!messageOf(SeasonalExport(report(Kind::Sales, {ownRow(1)}), module.path()), m_folder->path()).isEmpty());
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
        const QString folder = m_folder->filePath(QStringLiteral("closed"));
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
        QTest::newRow("is gone") << QStringLiteral("gone") << QStringLiteral("1404");
        QTest::newRow("has a folder of that name") << QStringLiteral("taken") << QStringLiteral("1404");
        QTest::newRow("year that leads elsewhere") << QString() << QStringLiteral("/../../x");
        QTest::newRow("year with a backslash") << QString() << QStringLiteral("..\\x");
    }

    void folderThatTakesNoCopy()
    {
        QFETCH(QString, folder);
        QFETCH(QString, year);
        QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("taken/") + salesName)));
        SeasonalExport::Report rows = report(Kind::Sales, {ownRow(1)});
        rows.year = year;
        const SeasonalExport task(rows, ExportedSeason::builtFolder);
        QCOMPARE(task.run(m_folder->filePath(folder)), Outcome::CopyFailed);
        QCOMPARE(everythingIn(m_folder->path()), QStringList{QStringLiteral("taken")});
        QCOMPARE(everythingIn(m_folder->filePath(QStringLiteral("taken"))), QStringList{salesName});
    }
};

static const RegisteredTest<TestSeasonalExport, KApplication> registered;
#include "TestSeasonalExport.moc"

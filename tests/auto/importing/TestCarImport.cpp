// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/importing/CarImport.h"
#include "auto/importing/DemandImport.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/imported/ImportReturn.h"
#include "suite/accounting/importing/ImportMapping.h"
#include "suite/accounting/importing/ImportSample.h"
#include "suite/accounting/importing/Importing.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/sheets/SheetFile.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// Cars and demands out of a file.
class TestCarImport : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    CarImport m_cars;
    DemandImport m_demands;
    int m_brand = 0;
    int m_model = 0;
    int m_color = 0;

    static QList<ImportRow> rowsOf(const ImportKind &kind, const QByteArray &file)
    {
        const Sheet sheet = SheetFile::read(file).constFirst();
        const int titles = ImportMapping::titleRow(sheet, kind.fields());
        return ImportMapping::rows(sheet, titles, kind.fields(), ImportMapping::matched(kind.fields(), ImportMapping::titlesIn(sheet, titles)));
    }
    static Importing::Checked check(const ImportKind &kind, const QString &csv) { return Importing::check(kind, {u"a.csv"_s, u"1"_s}, rowsOf(kind, csv.toUtf8())); }
    static int write(const ImportKind &kind, const QByteArray &file)
    {
        const QList<ImportRow> rows = rowsOf(kind, file);
        return Importing::write(kind, {u"a.csv"_s, u"1"_s}, rows, Importing::check(kind, {u"a.csv"_s, u"1"_s}, rows));
    }
    static QString problems(const ImportRow &row)
    {
        QStringList fields;
        for (const ImportProblem &problem : row.problems)
            fields.append(problem.field);
        return fields.join(u'/');
    }
    QString value(const QString &statement) { return m_office->database().value(statement); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->database().run(u"DELETE FROM ImportedFiles"_s);
        m_brand = m_office->addBrand(u"پژو"_s);
        m_model = m_office->addModel(m_brand, u"206"_s);
        m_office->addClass(m_model, u"تیپ ۲"_s);
        m_color = m_office->addItem(CTblItems::typeColor, u"سفید صدفی"_s);
        m_office->addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &person) { person.m_iCode = 7; });
        m_office->addPerson(u"مریم"_s, u"کریمی"_s, [](CTblPersons &person) { person.m_sNationalCode = u"0499370899"_s; });
    }

    void allIsWritten()
    {
        const QString csv = u"نوع خودرو;مدل;تيپ;سال تولید;پلاک;شماره شاسی;رنگ;سوخت;کاربری;مبلغ;مالک;خریدار;وضعیت فروش;تاریخ معرفی;کارکرد\n"
                            "پژو;206;تیپ 2;1400;۱۲ب۳۴۵-۶۷;NAAM01;سفيد صدفي;گازوئیل;سواری;8,500,000,000;علی رضایی;499370899;فروخته شده;1405/01/15;45000"_s;
        const Importing::Checked checked = check(m_cars, csv);
        QCOMPARE(problems(checked.rows.constFirst()), QString());
        QCOMPARE(write(m_cars, csv.toUtf8()), 1);
        CTblAutomobilInformations car;
        car.Open(true, true, true);
        QCOMPARE(car.m_iAutomobilType, m_brand);
        QCOMPARE(car.m_iModel, m_model);
        QVERIFY(car.m_iBrigade > 0);
        QCOMPARE(car.m_iColor, m_color);
        QCOMPARE(car.m_iFuel, 3);
        QCOMPARE(car.m_iUsageType, 1);
        QCOMPARE(car.m_sNumOfPlates, u"12 ب 345 ایران 67"_s);
        QCOMPARE(car.m_dAmount, 8.5e9);
        QCOMPARE(car.m_bSold, 1);
        QCOMPARE(car.m_iFunction, 45000);
        QCOMPARE(car.m_dateIntroduction.date(), ConvertToMiladi(1405, 1, 15));
        QVERIFY(car.m_iPersonID > 0 && car.m_iPersonBuyerID > car.m_iPersonID);
        QVERIFY(car.m_iCode > 0 && car.m_iUserID == m_office->adminID() && car.m_dateCreate.isValid());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes WHERE sTable='AutomobilInformations' AND iKind=0 AND iRecordID=%1"_s.arg(car.m_iID)), u"1"_s);
    }

    void problems_data()
    {
        QTest::addColumn<QString>("titles");
        QTest::addColumn<QString>("cells");
        QTest::addColumn<QString>("fields");
        QTest::newRow("brand") << u"نوع خودرو"_s << u"پزو"_s << u"نوع خودرو"_s;
        QTest::newRow("model of another brand") << u"نوع خودرو,مدل"_s << u"پژو,405"_s << u"مدل"_s;
        QTest::newRow("class without a model") << u"نوع خودرو,تیپ"_s << u"پژو,تیپ 2"_s << u"تیپ"_s;
        QTest::newRow("colour") << u"نوع خودرو,رنگ"_s << u"پژو,بی‌رنگ"_s << u"رنگ"_s;
        QTest::newRow("fuel") << u"نوع خودرو,سوخت"_s << u"پژو,زغال"_s << u"سوخت"_s;
        QTest::newRow("owner") << u"نوع خودرو,مالک"_s << u"پژو,هیچکس"_s << u"نام مالک"_s;
        QTest::newRow("owner who buys") << u"نوع خودرو,مالک,خریدار"_s << u"پژو,7,علی رضایی"_s << u"نام خریدار"_s;
        QTest::newRow("VIN") << u"نوع خودرو,VIN"_s << u"پژو,123"_s << u"VIN"_s;
        QTest::newRow("year") << u"نوع خودرو,سال"_s << u"پژو,99"_s << u"سال تولید"_s;
    }
    void problems()
    {
        QFETCH(QString, titles);
        QFETCH(QString, cells);
        QTEST(problems(check(m_cars, titles + u'\n' + cells).rows.constFirst()), "fields");
    }

    void twins_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("says");
        QTest::newRow("none") << u"پژو,,"_s << QString();
        QTest::newRow("plate in another spelling") << u"پژو,67-345ب12,"_s << u"خودروی کد 1: همان پلاک"_s;
        QTest::newRow("chassis in another spelling") << u"پژو,,naam-01"_s << u"خودروی کد 1: همان شماره شاسی"_s;
    }
    void twins()
    {
        QFETCH(QString, row);
        m_office->addCar([](CTblAutomobilInformations &car) {
            car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
            car.m_sChassisNum = u"NAAM01"_s;
        });
        const Importing::Checked checked = check(m_cars, u"نوع خودرو,پلاک,شاسی\n"_s + row);
        const std::optional<ImportTwin> twin = checked.rows.constFirst().twin;
        QTEST(twin ? twin->text : QString(), "says");
    }

    // What the list writes as a spreadsheet is read back, every row as the car that it was.
    void theListComesBack()
    {
        m_office->addCar([this](CTblAutomobilInformations &car) {
            car.m_iAutomobilType = m_brand;
            car.m_iModel = m_model;
            car.m_iColor = m_color;
            car.m_iFuel = 3;
            car.m_iUsageType = 1;
            car.m_iYear = 1400;
            car.m_dAmount = 7.25e9;
            car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
            car.m_sVIN = u"NAAM01CA1KE123456"_s;
            car.m_iFunction = 1200;
            car.m_dateIntroduction = QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC);
            car.m_iPersonID = value(u"SELECT iID FROM Persons WHERE iCode=7"_s).toInt();
        });
        const QString columns = u"SELECT CONCAT_WS('|',iAutomobilType,iModel,iColor,iFuel,iUsageType,iYear,dAmount,sNumOfPlates,sVIN,iFunction,dateIntroduction,iPersonID) FROM AutomobilInformations"_s;
        const QString before = value(columns);
        CDlgAutomobilInformations page;
        page.open();
        for (const QStringView column : {u"plate", u"vin", u"mileage"})
            page.list()->setColumnShown(column, true);
        page.refill();
        ListReport report(u"Cars"_s, u"List"_s);
        report.setTable(u"Table"_s, page.list());
        report.buildStandard(u"خودروها"_s);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"cars.xlsx"_s);
        QVERIFY(CDlgReportGenerator::saveSpreadsheet(report, path, nullptr));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_office->database().run(u"DELETE FROM AutomobilInformations"_s);
        QCOMPARE(write(m_cars, file.readAll()), 1);
        QCOMPARE(value(columns), before);
    }

    void theExampleIsRead()
    {
        const QTemporaryDir folder;
        for (const ImportKind *kind : {static_cast<const ImportKind *>(&m_cars), static_cast<const ImportKind *>(&m_demands)}) {
            const QString path = folder.filePath(kind->id() + u".xlsx"_s);
            QVERIFY(ImportSample::write(*kind, path));
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            const Sheet sheet = SheetFile::read(file.readAll()).constFirst();
            const ImportMapping::Columns columns = ImportMapping::matched(kind->fields(), ImportMapping::titlesIn(sheet, 0));
            // Every field finds its own column, and nothing of the example is refused.
            for (qsizetype i = 0; i < kind->fields().size(); ++i)
                QCOMPARE(columns.value(kind->fields().at(i).key, -1), int(i));
            const QList<ImportRow> rows = ImportMapping::rows(sheet, 0, kind->fields(), columns);
            QCOMPARE(rows.size(), 1);
            QCOMPARE(problems(rows.constFirst()), QString());
        }
    }

    // A car that a contract or a public page names stays when its file goes back; so does a demand with a reminder.
    void whatIsUsedStays()
    {
        const QString csv = u"نوع خودرو;مدل;شماره شاسی\nپژو;206;NAAM01\nپژو;206;NAAM02\nپژو;206;NAAM03"_s;
        QCOMPARE(write(m_cars, csv.toUtf8()), 3);
        const auto car = [&](const QString &chassis) { return value(u"SELECT iID FROM AutomobilInformations WHERE sChassisNum='%1'"_s.arg(chassis)).toInt(); };
        m_office->database().run(u"INSERT INTO CarContracts(iContractID,iCarID) VALUES(1,%1)"_s.arg(car(u"NAAM01"_s)));
        m_office->database().run(u"INSERT INTO PublicCars(iCarID) VALUES(%1)"_s.arg(car(u"NAAM02"_s)));
        const ImportReturn::Plan cars = ImportReturn::plan(m_cars, value(u"SELECT MAX(iID) FROM ImportedFiles"_s).toInt());
        QCOMPARE(cars.staying.size(), 2);
        QVERIFY2(cars.staying.constFirst().why.contains(u"قرارداد"_s), qPrintable(cars.staying.constFirst().why));
        QCOMPARE(cars.going, QList<qint32>{car(u"NAAM03"_s)});
        QCOMPARE(ImportReturn::run(m_cars, cars), 1);

        QCOMPARE(write(m_demands, u"متقاضی,خودرو درخواستی\n7,پژو\nمریم کریمی,پژو"_s.toUtf8()), 2);
        const int demand = value(u"SELECT MIN(iID) FROM AutomobilDemands"_s).toInt();
        m_office->database().run(u"INSERT INTO Alarms(iTable,iRecordID) VALUES(%1,%2)"_s.arg(CTblAutomobilDemands::recordKind).arg(demand));
        const ImportReturn::Plan demands = ImportReturn::plan(m_demands, value(u"SELECT MAX(iID) FROM ImportedFiles"_s).toInt());
        QCOMPARE(demands.staying.size(), 1);
        QCOMPARE(ImportReturn::run(m_demands, demands), 1);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"1"_s);
    }

    void demands()
    {
        const QString csv = u"متقاضی,خودرو درخواستی,از سال,تا سال,از مبلغ,تا مبلغ,رنگ,تاریخ مراجعه\n"
                            "7,پژو,1398,1402,5000000000,7000000000,سفید صدفی,1405/08/29\n"
                            "مریم کریمی,,,,,,,"_s;
        QCOMPARE(write(m_demands, csv.toUtf8()), 2);
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iCode,iModelFrom,iModelUpTo,dAmountFrom,dAmountUpTo,DATE(dateReference),iUserID) FROM AutomobilDemands ORDER BY iCode LIMIT 1"_s),
                 u"1|1398|1402|5000000000|7000000000|2026-11-20|%1"_s.arg(m_office->adminID()));
        // The same again is known.
        const Importing::Checked again = check(m_demands, csv);
        QCOMPARE(again.twins(), 2);
        QVERIFY(again.earlier);
    }

    void demandProblems_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("fields");
        QTest::newRow("nobody") << u",پژو,,,,"_s << u"نام متقاضی"_s;
        QTest::newRow("one year") << u"7,,1398,,,"_s << u"از مدل"_s;
        QTest::newRow("years the wrong way") << u"7,,1402,1398,,"_s << u"از مدل"_s;
        QTest::newRow("amounts the wrong way") << u"7,,,,9,5"_s << u"از مبلغ"_s;
    }
    void demandProblems()
    {
        QFETCH(QString, row);
        QTEST(problems(check(m_demands, u"متقاضی,خودرو,از سال,تا سال,از مبلغ,تا مبلغ\n"_s + row).rows.constFirst()), "fields");
    }

    void anotherDeskTakesTheModelAway()
    {
        const QByteArray csv = u"نوع خودرو,مدل\nپژو,206"_s.toUtf8();
        const QList<ImportRow> rows = rowsOf(m_cars, csv);
        const Importing::Checked agreed = Importing::check(m_cars, {}, rows);
        m_office->database().run(u"DELETE FROM CarModels"_s);
        QVERIFY_THROWS_EXCEPTION(Importing::Changed, Importing::write(m_cars, {}, rows, agreed));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"0"_s);
    }
};

static const RegisteredTest<TestCarImport, KApplication> registeredCarImport;
#include "TestCarImport.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/prices/CarPricePaper.h"
#include "auto/cars/prices/CarPriceSheet.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/utility/values/Money.h"
#include "tests/office/TestOffice.h"
#include "tests/support/PaperProof.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

// The price sheet of a stored car, against what the tables say by themselves.
class TestCarPricePaper : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_car = 0;

    QString value(const QString &column) { return m_office->database().value(u"SELECT %1 FROM AutomobilInformations WHERE iID=%2"_s.arg(column).arg(m_car)); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->logInAsAdmin();
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = m_office->addModel(brand, u"207"_s);
        m_office->addCar();
        m_car = m_office->addCar([=](CTblAutomobilInformations &car) {
            car.m_iAutomobilType = brand;
            car.m_iModel = model;
            car.m_iYear = 1402;
            car.m_iFunction = 43500;
            car.m_dAmount = 987654321;
            car.m_dAmountContract = 111222333;
            car.m_sFacilities = u"دوربین عقب"_s;
        });
        (void)g_pDlgWarning->takeShown();
    }

    void sheetSaysWhatTheTablesSay()
    {
        const std::optional<PaperSheet> sheet = CarPriceSheet::read(m_car);
        QVERIFY(sheet);
        QCOMPARE(sheet->headline, u"پژو 207"_s);
        QCOMPARE(sheet->marks.constFirst().text, value(u"iCode"_s));
        QCOMPARE(sheet->scanCode, u"CAR-"_s + value(u"iCode"_s));
        QCOMPARE(sheet->highlight.text, value(u"FORMAT(dAmount,0)"_s));
        QCOMPARE(sheet->totals.constFirst().text, amountInWords(value(u"dAmount"_s).toDouble()) + u" ریال"_s);
        QCOMPARE(sheet->facts.at(0).text, value(u"iYear"_s));
        QCOMPARE(sheet->facts.at(2).text, value(u"CONCAT(FORMAT(iFunction,0),' کیلومتر')"_s));
        QCOMPARE(sheet->facts.at(6).text, value(u"sFacilities"_s));
        QVERIFY(!CarPriceSheet::read(99999));
    }

    // What the office paid and agreed is nobody's who passes by.
    void otherAmountsStayInside()
    {
        const PaperProof proof(*CarPriceSheet::read(m_car), SheetPages::Size::A4);
        QVERIFY(proof.text().contains(u"987,654,321"_s));
        QVERIFY2(!proof.text().contains(u"111,222,333"_s), qPrintable(proof.text()));
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<QString>("said");
        QTest::newRow("sold") << u"UPDATE AutomobilInformations SET bSold=1"_s << u"این خودرو فروخته شده است و برگه قیمت ندارد."_s;
        QTest::newRow("gone") << u"DELETE FROM AutomobilInformations"_s << u"این خودرو دیگر وجود ندارد."_s;
    }
    void refusals()
    {
        QFETCH(QString, change);
        QFETCH(QString, said);
        m_office->database().run(change);
        CarPricePaper::show(m_car, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{said});
    }

    void rights_data()
    {
        QTest::addColumn<int>("rights");
        QTest::addColumn<int>("missing");
        QTest::newRow("none") << int(KSecurity::Access) << int(KSecurity::Read);
        QTest::newRow("reads") << int(KSecurity::Access | KSecurity::Read) << int(KSecurity::PrintList);
    }
    void rights()
    {
        QFETCH(int, rights);
        QFETCH(int, missing);
        m_office->logInAs(u"clerk"_s, u"AutomobilInformations"_s, rights);
        CarPricePaper::show(m_car, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"AutomobilInformations"_s, static_cast<KSecurity::Right>(missing))});
    }

    void shownToWhoMayPrint()
    {
        m_office->logInAs(u"clerk"_s, u"AutomobilInformations"_s, KSecurity::Access | KSecurity::Read | KSecurity::PrintList);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"car.pdf"_s);
        TestOffice::whenModal("CDlgPaper", [&path](QWidget *window) {
            static_cast<CDlgPaper *>(window)->savePdf(path);
            static_cast<QDialog *>(window)->reject();
        });
        CarPricePaper::show(m_car, nullptr);
        QVERIFY(PaperProof::textOf(path).contains(u"987,654,321"_s));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    }
};

static const RegisteredTest<TestCarPricePaper, KApplication> registeredCarPricePaper;
#include "TestCarPricePaper.moc"

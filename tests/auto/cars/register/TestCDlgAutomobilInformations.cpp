// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformationJoins.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/Day.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using Page = CDlgAutomobilInformations;

const QString section = QStringLiteral("AutomobilInformations");
const QString rightsForm = QStringLiteral("AutomobilInformations");
const QString archiveForm = QStringLiteral("AutomobilInformationArchive");
constexpr int columnCount = 17;
constexpr QStringView chassisIsInPlate = u"plate"; // the hidden column tells the cars of a test apart

QStringList cells(const Page &page, QStringView column)
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts << page.list()->cellText(row, column);
    return texts;
}

QStringList plates(const Page &page)
{
    return cells(page, chassisIsInPlate);
}

QString headerText(const Page &page, int column)
{
    return page.list()->model()->headerData(column, Qt::Horizontal).toString();
}

QString headerText(const Page &page, QStringView column)
{
    return headerText(page, page.list()->columnOf(column));
}

QStringList comboTexts(const QComboBox *combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts << combo->itemText(i);
    return texts;
}

class KeptPages : public KTabHost
{
public:
    void addPage(KDialogTabPage *page) override { pages.emplace_back(page); }
    std::vector<std::unique_ptr<KDialogTabPage>> pages;
};

const QStringList rowCommands = {u"edit"_s, u"delete"_s, u"archive"_s, u"show"_s};
const QStringList changeCommands = rowCommands + QStringList{u"new"_s};

}

class TestCDlgAutomobilInformations : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    int addNamed(const QString &plate, const std::function<void(Car &)> &set = {})
    {
        return m_office->addCar([&](Car &car) {
            car.m_sNumOfPlates = plate;
            if (set)
                set(car);
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->clear(); }

    // --- What it looks like ---

    void everyLabelAndTitleIsToTheLetter()
    {
        Page page;
        page.open();
        QCOMPARE(page.title(), QStringLiteral("گالري اتومبيل"));
        QStringList labels;
        for (const QLabel *label : page.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {QStringLiteral("نام مالک :"), QStringLiteral("نام خريدار :"), QStringLiteral("نوع خودرو :"), QStringLiteral("مبلغ از :"),
              QStringLiteral("وضعيت بايگاني :"), QStringLiteral("سال توليد از :"), QStringLiteral("سوخت :"), QStringLiteral("رنگ :"),
              QStringLiteral("تاريخ معرفي از :"), QStringLiteral("شماره شاسي :"), QStringLiteral("تعداد نمايش :")})
            QCOMPARE(labels.count(text), 1);
        QCOMPARE(labels.count(QStringLiteral("تا :")), 3);
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        for (const QString &text :
             {QStringLiteral("جستجو"), QStringLiteral("پيش فرض"), QStringLiteral("جديد"), QStringLiteral("ويرايش"),
              QStringLiteral("نمايش"), QStringLiteral("بايگاني شد"), QStringLiteral("چاپ"), QStringLiteral("نام خودرو"), QStringLiteral("پارامترهاي ورودي"), QStringLiteral("متقاضیان")})
            QCOMPARE(captions.count(text), 1);
        QCOMPARE(captions.count(QStringLiteral("...")), 2);
        // The command, and the clear buttons of owner and buyer.
        QCOMPARE(captions.count(QStringLiteral("حذف")), 3);
        QCOMPARE(page.filters().control<QCheckBox>(u"inactive")->text(), QStringLiteral("نمايش غير فعال ها"));
        QStringList titles;
        for (int column = 0; column < columnCount; ++column)
            titles << headerText(page, column);
        QCOMPARE(titles, (QStringList{QStringLiteral("ردیف"), QStringLiteral("نام خریدار*"), QStringLiteral("وضعیت فروش"), QStringLiteral("نام مالک"), QStringLiteral("نوع خودرو"), QStringLiteral("مدل"), QStringLiteral("تیپ"), QStringLiteral("پلاک"), QStringLiteral("سال تولید"), QStringLiteral("تاریخ معرفی"), QStringLiteral("کاربری"), QStringLiteral("رنگ"), QStringLiteral("سوخت"), QStringLiteral("مبلغ"), QStringLiteral("کسری مدارک"), QStringLiteral("کسری لوازم"), QStringLiteral("وضعیت بایگانی")}));
    }

    void columnsHaveTheirWidthAlignmentAndSortKey()
    {
        Page page;
        const QVector<KListModel::Column> &columns = page.list()->listModel()->columns();
        QCOMPARE(columns.size(), columnCount);
        const QList<int> widths{40, 120, 70, 120, 80, 50, 50, 0, 50, 80, 80, 60, 80, 80, 80, 80, 80};
        const QStringList keys{{}, QStringLiteral("iPersonBuyerID"), QStringLiteral("bSold"), QStringLiteral("iPersonID"), QStringLiteral("iAutomobilType"), QStringLiteral("iModel"), QStringLiteral("iBrigade"), QStringLiteral("sNumOfPlates"), QStringLiteral("iYear"), QStringLiteral("dateIntroduction"), QStringLiteral("iUsageType"), QStringLiteral("iColor"), QStringLiteral("iFuel"), QStringLiteral("dAmount"), QStringLiteral("sDocumentsDeficit"), QStringLiteral("sFractionalParts"), QStringLiteral("iArchiveUserID")};
        const QList<int> right{10, 11, 14, 15};
        for (int i = 0; i < columnCount; ++i) {
            QCOMPARE(columns[i].width, widths[i]);
            QCOMPARE(columns[i].sortKey, keys[i]);
            QCOMPARE(columns[i].alignment.testFlag(Qt::AlignRight), right.contains(i));
            QCOMPARE(columns[i].isDate, i == 9);
            QCOMPARE(page.list()->isColumnHidden(i), i == 7);
        }
    }

    void everyControlHasANameOfItsOwn()
    {
        Page page;
        page.open();
        QHash<QString, int> names;
        for (const QWidget *control : page.findChildren<QWidget *>()) {
            if (control->focusPolicy() != Qt::NoFocus && !control->accessibleName().isEmpty())
                ++names[control->accessibleName()];
        }
        for (auto it = names.cbegin(); it != names.cend(); ++it)
            QVERIFY2(it.value() == 1, qPrintable(it.key()));
        for (const QString &name : {QStringLiteral("مبلغ تا :"), QStringLiteral("سال توليد تا :"), QStringLiteral("تاريخ معرفي تا :")})
            QVERIFY(names.contains(name));
    }

    void searchControlsBeginAsStated()
    {
        m_office->addBrand(QStringLiteral("پژو"));
        m_office->addItem(CTblItems::typeColor, QStringLiteral("سفید"));
        m_office->addItem(CTblItems::typeSystem, QStringLiteral("سیستم"));
        Page page;
        QCOMPARE(page.countText(), QStringLiteral("تعداد : -"));
        page.open();
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"type")), (QStringList{QStringLiteral("همه"), QStringLiteral("پژو")}));
        QCOMPARE(page.filters().control<QComboBox>(u"type")->currentIndex(), 0);
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"color")), (QStringList{QStringLiteral("همه"), QStringLiteral("سفید")}));
        QCOMPARE(page.filters().control<QComboBox>(u"color")->currentIndex(), 0);
        QCOMPARE(page.filters().control<QComboBox>(u"color")->itemData(0).toInt(), 0);
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"fuel")),
                 (QStringList{QStringLiteral("-"), QStringLiteral("بنزین"), QStringLiteral("دوگانه سوز"), QStringLiteral("گازئیل"),
                              QStringLiteral("گاز"), QStringLiteral("سایر")}));
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"archive")),
                 (QStringList{QStringLiteral("همه"), QStringLiteral("بایگانی نشده"), QStringLiteral("بایگانی شده"),
                              QStringLiteral("بایگانی شده دیگران")}));
        QCOMPARE(page.filters().control<QComboBox>(u"archive")->currentIndex(), 1);
        for (const QString &key : {u"amountFrom"_s, u"amountTo"_s, u"yearFrom"_s, u"yearTo"_s, u"chassis"_s, u"documentsDeficit"_s, u"partsDeficit"_s})
            QVERIFY(page.filters().control<KEdit>(key)->text().isEmpty());
        QVERIFY(!page.filters().control<KDateEdit>(u"introductionFrom")->isChecked());
        QVERIFY(!page.filters().control<KDateEdit>(u"introductionTo")->isChecked());
        QVERIFY(!page.filters().control<QCheckBox>(u"inactive")->isChecked());
        for (const QString &key : {u"documentsDeficit"_s, u"partsDeficit"_s, u"usage"_s})
            QVERIFY(page.filters().control(key)->isHidden());
    }

    // --- What the rows read as ---

    void rowShowsTheCarByItsNames()
    {
        const int owner = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        const int buyer = m_office->addPerson(QStringLiteral("رضا"), QStringLiteral("احمدی"));
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int model = m_office->addModel(brand, QStringLiteral("206"));
        const int carClass = m_office->addClass(model, QStringLiteral("تیپ 5"));
        const int white = m_office->addItem(CTblItems::typeColor, QStringLiteral("سفید"));
        addNamed(QStringLiteral("12 ب 345 ایران 67"), [=](Car &c) {
            c.m_iPersonID = owner;
            c.m_iPersonBuyerID = buyer;
            c.m_bSold = 1;
            c.m_iAutomobilType = brand;
            c.m_iModel = model;
            c.m_iBrigade = carClass;
            c.m_iColor = white;
            c.m_iYear = 1400;
            c.m_dateIntroduction = day(2026, 11, 20);
            c.m_iUsageType = 1;
            c.m_iFuel = 2;
            c.m_dAmount = 1234567890;
            c.m_sDocumentsDeficit = QStringLiteral("برگ سبز");
            c.m_sFractionalParts = QStringLiteral("زاپاس");
            c.m_iArchiveUserID = 5;
        });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        const QStringList wanted{QStringLiteral("1"), QStringLiteral("رضا احمدی"), QStringLiteral("فروخته شده"), QStringLiteral("سارا کریمی"), QStringLiteral("پژو"), QStringLiteral("206"), QStringLiteral("تیپ 5"), QStringLiteral("12 ب 345 ایران 67"), QStringLiteral("1400"), QStringLiteral("1405/08/29"), QStringLiteral("سواری"), QStringLiteral("سفید"), QStringLiteral("دوگانه سوز"), QStringLiteral("1,234,567,890"), QStringLiteral("برگ سبز"), QStringLiteral("زاپاس"), QStringLiteral("بلی")};
        for (int column = 0; column < columnCount; ++column)
            QCOMPARE(page.list()->cellText(0, column), wanted[column]);
        const QModelIndex amount = page.list()->listModel()->index(0, page.list()->columnOf(u"amount"));
        QCOMPARE(amount.data(KListModel::SortRole).toDouble(), 1234567890.0);
        QCOMPARE(page.list()->listModel()->index(0, page.list()->columnOf(u"introduction")).data(KListModel::SortRole).toDateTime(), day(2026, 11, 20));
    }

    void whatIsNotThereIsADash()
    {
        addNamed(QStringLiteral("a"), [](Car &c) {
            c.m_iPersonID = 99999;
            c.m_iPersonBuyerID = 99998;
            c.m_iAutomobilType = 99997;
            c.m_iColor = 99996;
            c.m_iModel = 99995;
            c.m_iBrigade = 99994;
        });
        Page page;
        page.open();
        const QString dash = QStringLiteral("-");
        for (const QString &column : {u"buyer"_s, u"sold"_s, u"owner"_s, u"type"_s, u"usage"_s, u"color"_s, u"fuel"_s, u"archived"_s})
            QCOMPARE(page.list()->cellText(0, column), dash);
        // A deleted model or class leaves its cell empty.
        QCOMPARE(page.list()->cellText(0, u"model"), QString());
        QCOMPARE(page.list()->cellText(0, u"class"), QString());
        QCOMPARE(page.list()->cellText(0, u"year"), QStringLiteral("0"));
        QCOMPARE(page.list()->cellText(0, u"introduction"), QString());
    }

    void usageReadsAsItsWord_data()
    {
        QTest::addColumn<int>("usage");
        QTest::addColumn<QString>("word");
        QTest::newRow("0") << 0 << QStringLiteral("-");
        QTest::newRow("1") << 1 << QStringLiteral("سواری");
        QTest::newRow("2") << 2 << QStringLiteral("سنگین");
        QTest::newRow("3") << 3 << QStringLiteral("-");
        QTest::newRow("-1") << -1 << QStringLiteral("-");
    }

    void usageReadsAsItsWord()
    {
        QFETCH(int, usage);
        QFETCH(QString, word);
        addNamed(QStringLiteral("a"), [usage](Car &c) { c.m_iUsageType = usage; });
        Page page;
        page.open();
        QCOMPARE(page.list()->cellText(0, u"usage"), word);
    }

    void fuelReadsAsItsEntry_data()
    {
        QTest::addColumn<int>("fuel");
        QTest::addColumn<QString>("word");
        QTest::newRow("0") << 0 << QStringLiteral("-");
        QTest::newRow("1") << 1 << QStringLiteral("بنزین");
        QTest::newRow("2") << 2 << QStringLiteral("دوگانه سوز");
        QTest::newRow("3") << 3 << QStringLiteral("گازئیل");
        QTest::newRow("4") << 4 << QStringLiteral("گاز");
        QTest::newRow("5") << 5 << QStringLiteral("سایر");
    }

    void fuelReadsAsItsEntry()
    {
        QFETCH(int, fuel);
        QFETCH(QString, word);
        addNamed(QStringLiteral("a"), [fuel](Car &c) { c.m_iFuel = fuel; });
        Page page;
        page.open();
        QCOMPARE(page.list()->cellText(0, u"fuel"), word);
        page.filters().set(u"fuel", fuel);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
    }

    void fillTakesAFewStatementsHoweverManyRowsAndNoPicture()
    {
        const int owner = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int white = m_office->addItem(CTblItems::typeColor, QStringLiteral("سفید"));
        Page page;
        page.open();
        for (const int rows : {1, 30}) {
            for (int i = page.list()->count(); i < rows; ++i) {
                addNamed(QString::number(i), [=](Car &c) {
                    c.m_iPersonID = owner;
                    c.m_iAutomobilType = brand;
                    c.m_iColor = white;
                    c.m_oPicture.data = QByteArray(1000, 'p');
                });
            }
            const ObservedStatements statements({QStringLiteral("SELECT")});
            page.refill();
            QCOMPARE(page.list()->count(), rows);
            QCOMPARE(statements.taken().size(), 4);
            QVERIFY(statements.taken().filter(QStringLiteral("oPicture")).isEmpty());
            // Of the car's 71 columns only those that the list shows.
            QVERIFY(!statements.taken().first().contains(QStringLiteral("sVIN")));
        }
    }

    // --- Searching ---

    void withAnEmptyResultTheRowCommandsAreDisabledAndTheCountShowsZero()
    {
        const int key = addNamed(QStringLiteral("a"));
        Page page;
        page.open();
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 1"));
        for (const QString &command : rowCommands)
            QVERIFY(page.button(command)->isEnabled());
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilInformations WHERE iID=%1").arg(key));
        page.refill();
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 0"));
        for (const QString &command : rowCommands)
            QVERIFY2(!page.button(command)->isEnabled(), qPrintable(command));
        QVERIFY(page.button(u"new")->isEnabled());
        QVERIFY(page.button(u"print")->isEnabled());
    }

    void inactiveAndArchivedCarsAreListedOnlyOnRequest()
    {
        addNamed(QStringLiteral("plain"));
        addNamed(QStringLiteral("inactive"), [](Car &c) { c.m_iStatus = 1; });
        addNamed(QStringLiteral("mine"), [this](Car &c) { c.m_iArchiveUserID = m_office->adminID(); });
        addNamed(QStringLiteral("other"), [this](Car &c) { c.m_iArchiveUserID = m_office->adminID() + 1; });
        Page page;
        page.open();
        QCOMPARE(plates(page), QStringList{QStringLiteral("plain")});
        page.filters().set(u"inactive", true);
        page.refill();
        QCOMPARE(plates(page), (QStringList{QStringLiteral("plain"), QStringLiteral("inactive")}));
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(plates(page), QStringList{QStringLiteral("mine")});
        page.filters().set(u"archive", 3);
        page.refill();
        QCOMPARE(plates(page), QStringList{QStringLiteral("other")});
    }

    void everyControlReachesTheSearch()
    {
        const int person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int white = m_office->addItem(CTblItems::typeColor, QStringLiteral("سفید"));
        Page page;
        page.open();
        page.filters().set(u"owner", person);
        page.filters().set(u"buyer", person);
        page.filters().set(u"type", brand);
        page.filters().set(u"color", white);
        page.filters().set(u"fuel", 4);
        page.filters().set(u"archive", 3);
        page.filters().control<KEdit>(u"amountFrom")->setText(QStringLiteral("100"));
        page.filters().control<KEdit>(u"amountTo")->setText(QStringLiteral("۲۰۰"));
        page.filters().control<KEdit>(u"yearFrom")->setText(QStringLiteral("1400"));
        page.filters().control<KEdit>(u"yearTo")->setText(QStringLiteral("1401"));
        page.filters().set(u"introductionFrom", QDate(2026, 5, 1));
        page.filters().set(u"introductionTo", QDate(2026, 5, 2));
        page.filters().set(u"chassis", QStringLiteral("NAS"));
        page.filters().set(u"documentsDeficit", QStringLiteral("d"));
        page.filters().set(u"partsDeficit", QStringLiteral("p"));
        page.filters().set(u"usage", 2); // not used
        QCOMPARE(page.filters().condition(m_office->adminID()),
                 QStringLiteral("ai.iStatus=0 AND ai.iArchiveUserID<>0 AND ai.iArchiveUserID<>%1 AND ai.iAutomobilType=%2"
                                " AND ai.iColor=%3 AND ai.iFuel=4 AND ai.dateIntroduction >= '2026-05-01'"
                                " AND ai.dateIntroduction <= '2026-05-03' AND ai.sDocumentsDeficit LIKE '%d%'"
                                " AND ai.sFractionalParts LIKE '%p%' AND ai.dAmount >= 100.000000 AND ai.dAmount <= 200.000000"
                                " AND ai.iYear=1400 AND ai.iYear<=1401 AND ai.iPersonBuyerID=%4 AND ai.iPersonID=%4"
                                " AND ai.sChassisNum LIKE '%NAS%' GROUP BY ai.iID")
                     .arg(QString::number(m_office->adminID()), QString::number(brand), QString::number(white),
                          QString::number(person)));
        page.refill();
        QCOMPARE(page.list()->count(), 0);
    }

    void uncheckedDateDoesNotSearch()
    {
        addNamed(QStringLiteral("a"));
        Page page;
        page.open();
        page.filters().control<KDateEdit>(u"introductionFrom")->setDate(QDate(2030, 1, 1));
        page.refill();
        QCOMPARE(page.list()->count(), 1);
    }

    void typedQuoteIsOneMessageAndTheListStays()
    {
        addNamed(QStringLiteral("a"));
        Page page;
        page.open();
        page.filters().set(u"chassis", QStringLiteral("a'b"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("SELECT")));
        for (QPushButton *button : page.findChildren<QPushButton *>()) {
            if (button->text() == QStringLiteral("جستجو"))
                button->click();
        }
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.filters().control<KEdit>(u"chassis")->text(), QStringLiteral("a'b"));
    }

    void selectionStaysAtItsPlaceAndElseAtTheLastRow()
    {
        for (const char *plate : {"a", "b", "c"})
            addNamed(QString::fromLatin1(plate));
        Page page;
        page.open();
        QCOMPARE(page.list()->currentRow(), 0);
        page.list()->selectRow(2);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 2);
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilInformations WHERE sNumOfPlates<>'a'"));
        page.refill();
        QCOMPARE(page.list()->currentRow(), 0);
    }

    void rowLimitCapsTheList()
    {
        for (int i = 0; i < 5; ++i)
            addNamed(QString::number(i));
        WriteSetting(section, QStringLiteral("iMaxRows"), 3);
        Page page;
        page.open();
        QCOMPARE(page.rowLimit(), 3);
        QCOMPARE(page.list()->count(), 3);
    }

    void everySortableColumnSortsTheRealList_data()
    {
        QTest::addColumn<int>("column");
        for (int column = 1; column < columnCount; ++column)
            QTest::newRow(qPrintable(QString::number(column))) << column;
    }

    void everySortableColumnSortsTheRealList()
    {
        QFETCH(int, column);
        addNamed(QStringLiteral("first"), [](Car &c) {
            c.m_iPersonBuyerID = c.m_bSold = c.m_iPersonID = c.m_iAutomobilType = c.m_iModel = c.m_iBrigade = 1;
            c.m_iYear = c.m_iUsageType = c.m_iColor = c.m_iFuel = 1;
            c.m_dAmount = 1;
            c.m_dateIntroduction = day(2026, 5, 2);
            c.m_sDocumentsDeficit = c.m_sFractionalParts = QStringLiteral("b");
            c.m_iArchiveUserID = 1;
        });
        addNamed(QStringLiteral("a second"), [](Car &c) { c.m_dateIntroduction = day(2026, 5, 1); });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(plates(page), (QStringList{QStringLiteral("first"), QStringLiteral("a second")}));
        Q_EMIT page.list()->columnClicked(column);
        // The column that is sorted by at first is clicked a second time, so to say.
        if (column == 1)
            Q_EMIT page.list()->columnClicked(column);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(plates(page), (QStringList{QStringLiteral("a second"), QStringLiteral("first")}));
        QVERIFY(headerText(page, column).endsWith(u'*'));
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), page.list()->listModel()->columns().at(column).sortKey + QStringLiteral(" DESC"));
        QCOMPARE(plates(page), (QStringList{QStringLiteral("first"), QStringLiteral("a second")}));
    }

    void clickOnTheRowNumberIsIgnored()
    {
        addNamed(QStringLiteral("a"));
        Page page;
        page.open();
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"row"));
        QCOMPARE(page.sortExpression(), QStringLiteral("ai.iCode"));
        QCOMPARE(headerText(page, u"row"), QStringLiteral("ردیف"));
        QCOMPARE(headerText(page, u"buyer"), QStringLiteral("نام خریدار*"));
    }

    // --- Settings ---

    void storedSortedColumnOutOfRangeBecomesColumnOne_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("used");
        QTest::newRow("40") << 40 << 1;
        QTest::newRow("17, the column count") << 17 << 1;
        QTest::newRow("-1") << -1 << 1;
        QTest::newRow("16") << 16 << 16;
        QTest::newRow("0") << 0 << 0;
    }

    void storedSortedColumnOutOfRangeBecomesColumnOne()
    {
        QFETCH(int, stored);
        QFETCH(int, used);
        WriteSetting(section, QStringLiteral("iLastCol"), stored);
        Page page;
        page.open();
        for (int column = 0; column < columnCount; ++column)
            QCOMPARE(headerText(page, column).endsWith(u'*'), column == used);
        page.OnClosing();
        QCOMPARE(ReadSetting(section, QStringLiteral("iLastCol"), -7), used);
    }

    void settingsBeginWithTheirDefaultsAndAreWrittenBack()
    {
        {
            Page page;
            page.open();
            QCOMPARE(page.rowLimit(), 1000);
            QCOMPARE(page.sortExpression(), QStringLiteral("ai.iCode"));
            addNamed(QStringLiteral("a"));
            page.refill();
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"amount"));
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"amount"));
            page.setRowLimit(50);
            page.OnClosing();
        }
        QCOMPARE(ReadSetting(section, QStringLiteral("iMaxRows"), 0), 50);
        QCOMPARE(ReadSetting(section, QStringLiteral("iLastCol"), 0), 13);
        QCOMPARE(ReadSetting(section, QStringLiteral("Sort"), QString()), QStringLiteral("dAmount DESC"));
        Page page;
        page.open();
        QCOMPARE(page.sortExpression(), QStringLiteral("dAmount DESC"));
        QCOMPARE(headerText(page, u"amount"), QStringLiteral("مبلغ*"));
    }

    // The items that the search joins have a title, so the order is one that the database knows.
    void emptyStoredSortBecomesTheTitle()
    {
        addNamed(QStringLiteral("a"));
        WriteSetting(section, QStringLiteral("Sort"), QString());
        Page page;
        page.open();
        QCOMPARE(page.sortExpression(), QStringLiteral("sTitle"));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(page.list()->count(), 1);
        page.OnClosing();
        QCOMPARE(ReadSetting(section, QStringLiteral("Sort"), QString()), QStringLiteral("sTitle"));
    }

    void storedSortThatNoColumnGivesIsNotTaken()
    {
        WriteSetting(section, QStringLiteral("Sort"), QStringLiteral("SLEEP(9)"));
        Page page;
        page.open();
        QCOMPARE(page.sortExpression(), QStringLiteral("ai.iCode"));
    }

    // --- Defaults ---

    void defaultsResetEveryControlAndEmptyTheList()
    {
        addNamed(QStringLiteral("a"));
        const int person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int white = m_office->addItem(CTblItems::typeColor, QStringLiteral("سفید"));
        Page page;
        page.open();
        page.filters().set(u"owner", person);
        page.filters().set(u"buyer", person);
        page.filters().set(u"type", brand);
        page.filters().set(u"color", white);
        page.filters().set(u"fuel", 4);
        page.filters().set(u"usage", 1);
        page.filters().set(u"archive", 3);
        page.filters().set(u"inactive", true);
        for (const QString &key : {u"amountFrom"_s, u"amountTo"_s, u"yearFrom"_s, u"yearTo"_s})
            page.filters().control<KEdit>(key)->setText(QStringLiteral("5"));
        for (const QString &key : {u"chassis"_s, u"documentsDeficit"_s, u"partsDeficit"_s})
            page.filters().control<KEdit>(key)->setText(QStringLiteral("x"));
        for (const QString &key : {u"introductionFrom"_s, u"introductionTo"_s})
            page.filters().control<KDateEdit>(key)->setChecked(true);
        m_office->addBrand(QStringLiteral("سمند"));

        QVERIFY(page.runCommand(u"reset"));
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(!page.button(u"edit")->isEnabled());
        for (const QString &key : {u"amountFrom"_s, u"amountTo"_s, u"yearFrom"_s, u"yearTo"_s})
            QCOMPARE(page.filters().control<KEdit>(key)->text(), QStringLiteral("0"));
        for (const QString &key : {u"chassis"_s, u"documentsDeficit"_s, u"partsDeficit"_s})
            QVERIFY(page.filters().control<KEdit>(key)->text().isEmpty());
        for (const QString &key : {u"usage"_s, u"fuel"_s, u"color"_s, u"type"_s})
            QCOMPARE(page.filters().control<QComboBox>(key)->currentIndex(), 0);
        for (const QString &key : {u"introductionFrom"_s, u"introductionTo"_s})
            QVERIFY(!page.filters().control<KDateEdit>(key)->isChecked());
        QVERIFY(!page.filters().control<QCheckBox>(u"inactive")->isChecked());
        QCOMPARE(page.filters().control<QComboBox>(u"archive")->currentIndex(), 1);
        QCOMPARE(page.filters().control<KPersonField>(u"owner")->personID(), 0);
        QCOMPARE(page.filters().control<KPersonField>(u"buyer")->personID(), 0);
        for (const QString &key : {u"owner"_s, u"buyer"_s})
            QVERIFY(!page.filters().control<KPersonField>(key)->findChildren<QPushButton *>().last()->isEnabled());
        // The types are read anew.
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"type")),
                 (QStringList{QStringLiteral("همه"), QStringLiteral("پژو"), QStringLiteral("سمند")}));
        QCOMPARE(page.filters().condition(m_office->adminID()), QStringLiteral("ai.iStatus=0 AND iArchiveUserID=0 GROUP BY ai.iID"));
    }

    // --- From a demand ---

    void searchBeginsWithTheWishesOfTheDemand()
    {
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int white = m_office->addItem(CTblItems::typeColor, QStringLiteral("سفید"));
        auto fits = [=](Car &c) {
            c.m_iAutomobilType = brand;
            c.m_iColor = white;
            c.m_iYear = 1398;
            c.m_dAmount = 150;
        };
        addNamed(QStringLiteral("fits"), fits);
        addNamed(QStringLiteral("newer"), [&](Car &c) {
            fits(c);
            c.m_iYear = 1399;
        });
        addNamed(QStringLiteral("dear"), [&](Car &c) {
            fits(c);
            c.m_dAmount = 250;
        });
        const int demand = m_office->addDemand([=](CTblAutomobilDemands &d) {
            d.m_iAutomobilType = brand;
            d.m_iColor = white;
            d.m_iModelFrom = 1398;
            d.m_iModelUpTo = 1400;
            d.m_dAmountFrom = 100;
            d.m_dAmountUpTo = 200;
        });
        Page page;
        page.setDemand(demand);
        page.open();
        QCOMPARE(page.filters().control<KEdit>(u"amountFrom")->number(), 100.0);
        QCOMPARE(page.filters().control<KEdit>(u"amountTo")->number(), 200.0);
        QCOMPARE(page.filters().control<KEdit>(u"yearFrom")->integer(), 1398);
        QCOMPARE(page.filters().control<KEdit>(u"yearTo")->integer(), 1400);
        QCOMPARE(page.filters().value(u"color").toInt(), white);
        QCOMPARE(page.filters().value(u"type").toInt(), brand);
        // The "from" year selects one year.
        QCOMPARE(plates(page), QStringList{QStringLiteral("fits")});
    }

    void demandThatIsGonePresetsNothing()
    {
        addNamed(QStringLiteral("a"));
        Page page;
        page.setDemand(12345);
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(page.filters().control<KEdit>(u"yearFrom")->text().isEmpty());
    }

    void demandOpensTheListAsAPageOfTheHost()
    {
        const int demand = m_office->addDemand([](CTblAutomobilDemands &d) { d.m_iModelFrom = 1390; });
        KeptPages host;
        GetDBSetting()->SetTabHost(&host);
        Page::ShowForDemand(demand);
        GetDBSetting()->SetTabHost(nullptr);
        QCOMPARE(host.pages.size(), size_t(1));
        auto *page = qobject_cast<Page *>(host.pages.front().get());
        QVERIFY(page);
        page->open();
        QCOMPARE(page->filters().control<KEdit>(u"yearFrom")->integer(), 1390);
    }

    // --- Commands ---

    void closedDatabaseAndSelectModeHideWhatChangesData_data()
    {
        QTest::addColumn<bool>("closed");
        QTest::newRow("closed database") << true;
        QTest::newRow("select mode") << false;
    }

    void closedDatabaseAndSelectModeHideWhatChangesData()
    {
        QFETCH(bool, closed);
        const int key = addNamed(QStringLiteral("a"));
        GetDBSetting()->SetClosedDB(closed);
        Page page;
        page.setSelectMode(!closed);
        page.open();
        for (const QString &command : changeCommands) {
            QVERIFY2(page.button(command)->isHidden(), qPrintable(command));
            QVERIFY(!page.runCommand(command));
        }
        // What changes data is refused by the command itself too.
        for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s, u"archive"_s})
            page.button(command)->click();
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(!page.button(u"search"));
        QVERIFY(!page.button(u"print")->isHidden());
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(value(QStringLiteral("SELECT CONCAT(COUNT(*),SUM(iArchiveUserID)) FROM AutomobilInformations")),
                 QStringLiteral("10"));
        QVERIFY(key > 0);
    }

    void deletingAsksFirstAndAnsweringNoChangesNothing()
    {
        addNamed(QStringLiteral("a"));
        Page page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{QStringLiteral("آیا از حذف این رکورد اطمینان دارید؟")});
        QCOMPARE(page.list()->count(), 1);
    }

    void afterDeletingTheLastRowTheSelectionMovesToTheNewLastRow()
    {
        addNamed(QStringLiteral("a"));
        addNamed(QStringLiteral("b"));
        const int last = addNamed(QStringLiteral("c"));
        m_office->database().run(QStringLiteral("INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (68,%1,'a'),(69,%1,'b')").arg(last));
        m_office->database().run(QStringLiteral("INSERT INTO CustomFieldRecords (iFieldID,iTable,iRecordID,sValue) VALUES (1,68,%1,'v')").arg(last));
        Page page;
        page.open();
        page.list()->selectKey(last);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(plates(page), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
        QCOMPARE(page.list()->currentRow(), 1);
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 2"));
        QCOMPARE(value(QStringLiteral("SELECT GROUP_CONCAT(iTable) FROM FileDocs")), QStringLiteral("69"));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM CustomFieldRecords")), QStringLiteral("0"));
    }

    void archivingNeedsItsOwnRight()
    {
        addNamed(QStringLiteral("a"));
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights);
        KSecurity::setRights(GetDBSetting()->GetUserID(), archiveForm, 0);
        KSecurity::forgetRights();
        Page page;
        page.open();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("شما اجازه بایگانی کردن نامه ها را ندارید.")});
        QCOMPARE(value(QStringLiteral("SELECT iArchiveUserID FROM AutomobilInformations")), QStringLiteral("0"));
    }

    void archivingAnArchivedCarWarnsAndWritesNothing()
    {
        addNamed(QStringLiteral("a"), [](Car &c) {
            c.m_iArchiveUserID = 77;
            c.m_dateArchive = day(2020, 1, 1);
        });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("این قرارداد قبلا بایگانی شده است.")});
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QCOMPARE(value(QStringLiteral("SELECT CONCAT(iArchiveUserID,DATE(dateArchive)) FROM AutomobilInformations")),
                 QStringLiteral("772020-01-01"));
    }

    void archivedCarLeavesTheListAndTellsWhoAndWhen()
    {
        addNamed(QStringLiteral("a"));
        addNamed(QStringLiteral("b"));
        Page page;
        page.open();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{QStringLiteral("بایگانی شد.")});
        QCOMPARE(plates(page), QStringList{QStringLiteral("b")});
        QCOMPARE(value(QStringLiteral("SELECT CONCAT(iArchiveUserID,'|',dateArchive>NOW()-INTERVAL 1 MINUTE) FROM"
                                      " AutomobilInformations WHERE sNumOfPlates='a'")),
                 QStringLiteral("%1|1").arg(m_office->adminID()));
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(plates(page), QStringList{QStringLiteral("a")});
        QCOMPARE(page.list()->cellText(0, u"archived"), QStringLiteral("بلی"));
    }

    void everyCommandAsksItsOwnRight_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("missing");
        QTest::newRow("edit") << u"edit"_s << int(KSecurity::Modify);
        QTest::newRow("show") << u"show"_s << int(KSecurity::Read);
        QTest::newRow("delete") << u"delete"_s << int(KSecurity::Delete);
        QTest::newRow("print") << u"print"_s << int(KSecurity::PrintList);
        QTest::newRow("catalog") << u"catalog"_s << int(KSecurity::Access);
        QTest::newRow("input parameters") << u"inputParameters"_s << int(KSecurity::Access);
    }

    void everyCommandAsksItsOwnRight()
    {
        QFETCH(QString, command);
        QFETCH(int, missing);
        addNamed(QStringLiteral("a"));
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights & ~missing);
        Page page;
        page.open();
        QVERIFY(page.runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(rightsForm, static_cast<KSecurity::Right>(missing))});
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilInformations")), QStringLiteral("1"));
    }

    void pageIsRefusedToAUserWithoutAccess()
    {
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, 0);
        Page page;
        QVERIFY(!page.OnAccess());
        QCOMPARE(Page::SelectCar(nullptr), 0);
    }

    void carThatVanishedIsLeftAlone()
    {
        const int key = addNamed(QStringLiteral("a"));
        Page page;
        page.open();
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilInformations WHERE iID=%1").arg(key));
        for (const QString &command : {u"edit"_s, u"delete"_s, u"archive"_s})
            QVERIFY(page.runCommand(command));
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
    }

    void selectModePicksACarAndBeginsAtTheOneChosenBefore()
    {
        const int first = addNamed(QStringLiteral("a"));
        const int second = addNamed(QStringLiteral("b"));
        int preselected = 0;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = window->findChild<Page *>();
            preselected = page->list()->currentKey();
            page->list()->selectKey(first);
            Q_EMIT page->list()->rowActivated(first);
        });
        QCOMPARE(Page::SelectCar(nullptr, second), first);
        QCOMPARE(preselected, second);
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        QCOMPARE(Page::SelectCar(nullptr, second), 0);
    }

    void printShowsTheListInItsReport()
    {
        addNamed(QStringLiteral("a"));
        addNamed(QStringLiteral("b"));
        Page page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&](QWidget *window) {
            const ListReport &report = static_cast<CDlgReportGenerator *>(window)->report();
            shown = true;
            QCOMPARE(report.group(), QStringLiteral("گالری اتومبیل"));
            QCOMPARE(report.shownTitle(), QStringLiteral("لیست گالری اتومبیل"));
            QCOMPARE(report.text(QStringLiteral("RightTop")), QStringLiteral("گالری اتومبیل"));
            QCOMPARE(report.text(QStringLiteral("LeftBottom")), QStringLiteral("تاریخ چاپ : ") + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(QStringLiteral("Count")), QStringLiteral("تعداد : 2"));
            QCOMPARE(report.rows().size(), 2);
            // What the list does not show is not printed.
            QCOMPARE(report.shownColumns().size(), columnCount - 1);
            window->close();
        });
        QVERIFY(page.runCommand(u"print"));
        QVERIFY(shown);
    }
};

static const RegisteredTest<TestCDlgAutomobilInformations, KApplication> registered;
#include "TestCDlgAutomobilInformations.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/CDlgAutomobilDemands.h"

#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemandBase.h"
#include "auto/cars/matching/CDlgMatches.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/settings/ContractSettings.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/Day.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Demand = CTblAutomobilDemands;
using Page = CDlgAutomobilDemands;

const QString section = QStringLiteral("AutomobilDemands");
const QString rightsForm = QStringLiteral("AutomobilDemands");
const QString archiveForm = QStringLiteral("AutomobilDemandArchive");
const QStringList changing = {u"new"_s, u"edit"_s, u"show"_s, u"delete"_s, u"archive"_s};

QString headerText(const Page &page, int column)
{
    return page.list()->model()->headerData(column, Qt::Horizontal).toString();
}

QString headerText(const Page &page, QStringView column)
{
    return headerText(page, page.list()->columnOf(column));
}

QStringList column(const Page &page, QStringView column)
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts << page.list()->cellText(row, column);
    return texts;
}

// The codes of the listed demands.
QStringList codes(const Page &page)
{
    return column(page, u"code");
}

// Takes the pages as the host's tabbed work area does.
class TabHost : public KTabHost
{
public:
    TabHost() { GetDBSetting()->SetTabHost(this); }
    ~TabHost() override
    {
        GetDBSetting()->SetTabHost(nullptr);
        qDeleteAll(m_pages);
    }
    void addPage(KDialogTabPage *page) override { m_pages.append(page); }
    QList<KDialogTabPage *> pages() const { return m_pages; }

private:
    QList<KDialogTabPage *> m_pages;
};

}

class TestCDlgAutomobilDemands : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_person = 0;
    int m_brand = 0;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    int addDemand(const std::function<void(Demand &)> &set = {})
    {
        return m_office->addDemand([&](Demand &demand) {
            demand.m_dateCreate = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
            demand.m_iPersonID = m_person;
            if (set)
                set(demand);
        });
    }

    static void archiveDemandsAfter(int days)
    {
        ContractSettings settings;
        settings.archiveDemands = true;
        settings.demandDays = days;
        settings.save();
    }

    int addOldDemand()
    {
        return addDemand([](Demand &demand) { demand.m_dateCreate = day(2019, 3, 21); });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        m_brand = m_office->addBrand(QStringLiteral("پژو"));
    }

    // --- Texts ---

    void everyLabelAndTitleIsToTheLetter()
    {
        Page page;
        page.open();
        QCOMPARE(page.title(), QStringLiteral("تقاضا"));
        QStringList labels;
        for (const QLabel *label : page.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {QStringLiteral("متقاضي :"), QStringLiteral("مبلغ از :"), QStringLiteral("سال توليد از :"),
              QStringLiteral("وضعيت بايگاني :"), QStringLiteral("توضيحات ويژه :"), QStringLiteral("نوع خودرو :"),
              QStringLiteral("تاريخ مراجعه از :"), QStringLiteral("رنگ :"), QStringLiteral("تعداد نمايش :")})
            QVERIFY2(labels.contains(text), qPrintable(text));
        QCOMPARE(labels.count(QStringLiteral("تا :")), 3);
        QCOMPARE(page.filters().control<QCheckBox>(u"inactive")->text(), QStringLiteral("نمايش غير فعال ها"));
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        for (const QString &text : {QStringLiteral("جديد"), QStringLiteral("ويرايش"), QStringLiteral("نمايش"), QStringLiteral("حذف"), QStringLiteral("بايگاني شد"), QStringLiteral("جستجو"), QStringLiteral("پيش فرض"), QStringLiteral("چاپ ليست"), QStringLiteral("خودروهای مناسب")})
            QVERIFY2(captions.contains(text), qPrintable(text));
        QStringList titles;
        for (int i = 0; i < 11; ++i)
            titles << headerText(page, i);
        QCOMPARE(titles, (QStringList{QStringLiteral("ردیف"), QStringLiteral("کد تقاضا*"), QStringLiteral("نام متقاضی"), QStringLiteral("نوع خودرو"), QStringLiteral("از مدل"), QStringLiteral("تا مدل"), QStringLiteral("از مبلغ"), QStringLiteral("تا مبلغ"), QStringLiteral("تاریخ مراجعه"), QStringLiteral("توضیحات ویژه"), QStringLiteral("وضعیت بایگانی")}));
    }

    void columnsHaveTheirWidthsAlignmentsAndSortKeys()
    {
        Page page;
        const QVector<KListModel::Column> &columns = page.list()->listModel()->columns();
        QStringList lines;
        for (const KListModel::Column &column : columns)
            lines << QStringLiteral("%1 %2 %3").arg(column.width).arg(column.alignment == Qt::AlignRight ? QStringLiteral("r") : column.isDate ? QStringLiteral("date")
                                                                                                                                               : QStringLiteral("c"))
                         .arg(column.sortKey);
        QCOMPARE(lines, (QStringList{QStringLiteral("40 c "), QStringLiteral("40 c ad.iCode"), QStringLiteral("80 r ad.iPersonID"), QStringLiteral("80 r ad.iAutomobilType"), QStringLiteral("50 r ad.iModelFrom"), QStringLiteral("50 r ad.iModelUpTo"), QStringLiteral("50 c ad.dAmountFrom"), QStringLiteral("50 c ad.dAmountUpTo"), QStringLiteral("80 date ad.dateReference"), QStringLiteral("150 r ad.sDescSpecial"), QStringLiteral("50 r ad.iArchiveUserID")}));
    }

    void noTwoControlsHaveOneName()
    {
        Page page;
        page.open();
        QSet<QString> names;
        for (const QWidget *widget : page.findChildren<QWidget *>()) {
            if (widget->accessibleName().isEmpty() || !(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy())
                continue;
            QVERIFY2(!names.contains(widget->accessibleName()), qPrintable(widget->accessibleName()));
            names.insert(widget->accessibleName());
        }
        QVERIFY(names.size() > 20);
    }

    // --- Rows ---

    void aRowShowsTheDemand()
    {
        const int key = addDemand([this](Demand &d) {
            d.m_iCode = 12;
            d.m_iAutomobilType = m_brand;
            d.m_iModelFrom = 1390;
            d.m_iModelUpTo = 1395;
            d.m_dAmountFrom = 4500000000;
            d.m_dAmountUpTo = 5000000000;
            d.m_dateReference = day(2026, 3, 21);
            d.m_sDescSpecial = QStringLiteral("فوری");
        });
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.list()->currentKey(), key);
        QStringList cells;
        for (int i = 0; i < 11; ++i)
            cells << page.list()->cellText(0, i);
        QCOMPARE(cells, (QStringList{QStringLiteral("1"), QStringLiteral("12"), QStringLiteral("سارا کریمی"), QStringLiteral("پژو"), QStringLiteral("1390"), QStringLiteral("1395"), DToMoney(4500000000), DToMoney(5000000000), QStringLiteral("1405/01/01"), QStringLiteral("فوری"), QStringLiteral("-")}));
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 1"));
    }

    void demandWhosePersonWasDeletedIsNotListed()
    {
        addDemand();
        addDemand([](Demand &d) { d.m_iPersonID = 999999; });
        Page page;
        page.open();
        QCOMPARE(codes(page), QStringList{QStringLiteral("1")});
    }

    void demandWhoseTypeWasDeletedShowsADashAsItsType()
    {
        addDemand([](Demand &d) { d.m_iAutomobilType = 4711; });
        addDemand();
        Page page;
        page.open();
        QCOMPARE(column(page, u"type"), (QStringList{QStringLiteral("-"), QStringLiteral("-")}));
    }

    void archivedDemandReadsYes()
    {
        addDemand([this](Demand &d) { d.m_iArchiveUserID = m_office->adminID(); });
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 0);
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(page.list()->cellText(0, u"archived"), QStringLiteral("بلی"));
    }

    void namesAreLookedUpOnceForTheWholeList()
    {
        const auto statementsOf = [](Page &page) {
            const ObservedStatements statements({QStringLiteral("SELECT")});
            page.refill();
            return statements.taken().size();
        };
        addDemand([this](Demand &d) { d.m_iAutomobilType = m_brand; });
        Page page;
        page.open();
        const qsizetype few = statementsOf(page);
        for (int i = 0; i < 40; ++i) {
            const int person = m_office->addPerson(QStringLiteral("a"), QString::number(i));
            const int brand = m_office->addBrand(QString::number(i));
            addDemand([&](Demand &d) { d.m_iPersonID = person; d.m_iAutomobilType = brand; });
        }
        QCOMPARE(statementsOf(page), few);
        QCOMPARE(page.list()->count(), 41);
        QCOMPARE(page.list()->cellText(40, u"type"), QStringLiteral("39"));
    }

    // --- Filter ---

    void everyFilterControlGoesIntoTheCriteria()
    {
        const int color = CTblMultiItems::addValue(CTblItems::typeColor, QStringLiteral("سفید"));
        Page page;
        page.open();
        page.filters().set(u"inactive", true);
        page.filters().set(u"archive", 3);
        page.filters().set(u"type", m_brand);
        page.filters().set(u"color", color);
        page.filters().control<KDateEdit>(u"referenceFrom")->setText(QStringLiteral("1405/01/01"));
        page.filters().control<KDateEdit>(u"referenceTo")->setText(QStringLiteral("1405/01/02"));
        page.filters().set(u"specialDescription", QStringLiteral("50%"));
        page.filters().set(u"person", m_person);
        page.filters().control<KEdit>(u"yearFrom")->setText(QStringLiteral("1385"));
        page.filters().control<KEdit>(u"yearTo")->setText(QStringLiteral("۱۳۹۰"));
        page.filters().control<KEdit>(u"amountFrom")->setText(QStringLiteral("1,000"));
        page.filters().control<KEdit>(u"amountTo")->setText(QStringLiteral("2000"));
        const KFilterValues asked = page.filters().values();
        QVERIFY(asked[u"inactive"_s].toBool());
        QCOMPARE(asked[u"archive"_s].toInt(), 3);
        QCOMPARE(asked[u"type"_s].toInt(), m_brand);
        QCOMPARE(asked[u"color"_s].toInt(), color);
        QCOMPARE(asked[u"referenceFrom"_s].toDateTime().date(), QDate(2026, 3, 21));
        QCOMPARE(asked[u"referenceTo"_s].toDateTime().date(), QDate(2026, 3, 22));
        QCOMPARE(asked[u"specialDescription"_s].toString(), QStringLiteral("50\\%"));
        QCOMPARE(asked[u"person"_s].toInt(), m_person);
        QCOMPARE(asked[u"yearFrom"_s].toInt(), 1385);
        QCOMPARE(asked[u"yearTo"_s].toInt(), 1390);
        QCOMPARE(asked[u"amountFrom"_s].toDouble(), 1000.0);
        QCOMPARE(asked[u"amountTo"_s].toDouble(), 2000.0);
        const ObservedStatements statements({QStringLiteral("SELECT ad.")});
        page.refill();
        QVERIFY(statements.taken().constFirst().contains(QStringLiteral("ad.iArchiveUserID<>%1").arg(m_office->adminID())));
    }

    void filterStartsAndResetsWithDemandsNotArchivedAndAllTypes()
    {
        addDemand();
        CTblMultiItems::addValue(CTblItems::typeColor, QStringLiteral("سفید"));
        Page page;
        page.open();
        const QStringList numbers = {u"type"_s, u"color"_s, u"person"_s, u"yearFrom"_s, u"yearTo"_s, u"amountFrom"_s, u"amountTo"_s};
        const QStringList dates = {u"referenceFrom"_s, u"referenceTo"_s};
        const auto isDefault = [&] {
            const KFilterValues asked = page.filters().values();
            return !asked[u"inactive"_s].toBool() && asked[u"archive"_s].toInt() == 1 && asked[u"specialDescription"_s].toString().isEmpty()
                && std::all_of(numbers.cbegin(), numbers.cend(), [&](const QString &key) { return asked[key].toDouble() == 0; })
                && std::none_of(dates.cbegin(), dates.cend(), [&](const QString &key) { return asked[key].toDateTime().isValid(); });
        };
        QVERIFY(isDefault());
        QCOMPARE(page.filters().control<QComboBox>(u"type")->itemText(0), QStringLiteral("همه"));
        QCOMPARE(page.list()->count(), 1);
        page.filters().set(u"inactive", true);
        page.filters().set(u"archive", 2);
        page.filters().control<QComboBox>(u"type")->setCurrentIndex(1);
        page.filters().control<QComboBox>(u"color")->setCurrentIndex(1);
        page.filters().set(u"person", m_person);
        page.filters().set(u"specialDescription", QStringLiteral("x"));
        for (const QString &key : {u"referenceFrom"_s, u"referenceTo"_s})
            page.filters().control<KDateEdit>(key)->setText(QStringLiteral("1405/01/01"));
        for (const QString &key : {u"yearFrom"_s, u"yearTo"_s, u"amountFrom"_s, u"amountTo"_s})
            page.filters().control<KEdit>(key)->setText(QStringLiteral("1385"));
        const KFilterValues asked = page.filters().values();
        QVERIFY(asked[u"inactive"_s].toBool());
        QCOMPARE(asked[u"archive"_s].toInt(), 2);
        QVERIFY(!asked[u"specialDescription"_s].toString().isEmpty());
        for (const QString &key : numbers)
            QVERIFY2(asked[key].toDouble() != 0, qPrintable(key));
        for (const QString &key : dates)
            QVERIFY2(asked[key].toDateTime().isValid(), qPrintable(key));
        // A brand and a colour that were added meanwhile are offered too.
        m_office->addBrand(QStringLiteral("سایپا"));
        CTblMultiItems::addValue(CTblItems::typeColor, QStringLiteral("سیاه"));
        QVERIFY(page.runCommand(u"reset"));
        QVERIFY(isDefault());
        QCOMPARE(page.filters().control<QComboBox>(u"type")->count(), 3);
        QCOMPARE(page.filters().control<QComboBox>(u"color")->count(), 3);
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 0"));
        QVERIFY(!page.button(u"edit")->isEnabled());
    }

    void longNamesOfTypesAndColoursDoNotWidenThePage()
    {
        const int width = Page().minimumSizeHint().width();
        m_office->addBrand(QString(50, u'س'));
        CTblMultiItems::addValue(CTblItems::typeColor, QString(250, u'س'));
        const Page page;
        QCOMPARE(page.filters().control<QComboBox>(u"color")->count(), 2);
        QCOMPARE(page.minimumSizeHint().width(), width);
    }

    void yearsOfTheSearchBoundTheDemandsOwnRange()
    {
        addDemand([](Demand &d) { d.m_iModelFrom = 1386; d.m_iModelUpTo = 1389; });
        addDemand([](Demand &d) { d.m_iModelFrom = 1384; d.m_iModelUpTo = 1389; });
        Page page;
        page.open();
        page.filters().control<KEdit>(u"yearFrom")->setText(QStringLiteral("1385"));
        page.filters().control<KEdit>(u"yearTo")->setText(QStringLiteral("1390"));
        page.refill();
        QCOMPARE(codes(page), QStringList{QStringLiteral("1")});
    }

    // --- Settings ---

    void settingsAreWrittenBackAndReadAgain()
    {
        {
            Page page;
            page.open();
            QCOMPARE(page.rowLimit(), 1000);
            QCOMPARE(page.sortExpression(), QStringLiteral("ad.iCode"));
            page.setRowLimit(25);
            addDemand();
            page.refill();
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"specialDescription"));
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"specialDescription"));
            page.OnClosing();
        }
        QCOMPARE(ReadSetting(section, QStringLiteral("iMaxRows"), 0), 25);
        QCOMPARE(ReadSetting(section, QStringLiteral("iLastCol"), 0), 9);
        QCOMPARE(ReadSetting(section, QStringLiteral("Sort"), QString()), QStringLiteral("ad.sDescSpecial DESC"));
        Page page;
        page.open();
        QCOMPARE(page.rowLimit(), 25);
        QCOMPARE(page.sortExpression(), QStringLiteral("ad.sDescSpecial DESC"));
        QCOMPARE(headerText(page, u"specialDescription"), QStringLiteral("توضیحات ویژه*"));
    }

    void emptyStoredSortIsByCode()
    {
        WriteSetting(section, QStringLiteral("Sort"), QString());
        addDemand([](Demand &d) { d.m_iCode = 9; });
        addDemand([](Demand &d) { d.m_iCode = 2; });
        Page page;
        page.open();
        QCOMPARE(codes(page), (QStringList{QStringLiteral("2"), QStringLiteral("9")}));
    }

    void rowLimit_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("listed");
        QTest::newRow("above 0") << 3 << 3;
        QTest::newRow("0 sets none") << 0 << 6;
        QTest::newRow("less sets none") << -5 << 6;
    }

    void rowLimit()
    {
        QFETCH(int, limit);
        for (int i = 0; i < 6; ++i)
            addDemand();
        WriteSetting(section, QStringLiteral("iMaxRows"), limit);
        const ObservedStatements statements({QStringLiteral("SELECT ad.")});
        Page page;
        page.open();
        QTEST(page.list()->count(), "listed");
        QCOMPARE(statements.taken().size(), 1);
        QCOMPARE(statements.taken().first().contains(QStringLiteral(" LIMIT ")), limit > 0);
        QVERIFY(statements.taken().first().contains(QStringLiteral(" GROUP BY ad.iID ORDER BY ad.iCode")));
    }

    void everySortableColumnSorts()
    {
        addDemand();
        addDemand();
        Page page;
        page.open();
        const QVector<KListModel::Column> columns = page.list()->listModel()->columns();
        for (int i = 0; i < columns.size(); ++i) {
            const QString before = page.sortExpression();
            Q_EMIT page.list()->columnClicked(i);
            const QString key = columns.at(i).sortKey;
            QVERIFY(key.isEmpty() ? page.sortExpression() == before : page.sortExpression().startsWith(key));
            QCOMPARE(page.list()->count(), 2);
        }
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    // --- Commands ---

    void commandsOnARowNeedOne()
    {
        Page page;
        page.open();
        const QStringList onRow = {u"edit"_s, u"delete"_s, u"archive"_s, u"show"_s, u"matchingCars"_s, u"carList"_s};
        for (const QString &command : onRow)
            QVERIFY2(!page.button(command)->isEnabled(), qPrintable(command));
        addDemand();
        page.refill();
        for (const QString &command : onRow)
            QVERIFY2(page.button(command)->isEnabled(), qPrintable(command));
    }

    void closedDatabaseHidesWhatChanges()
    {
        addDemand();
        GetDBSetting()->SetClosedDB(true);
        Page page;
        page.open();
        for (const QString &command : changing) {
            QVERIFY2(page.button(command)->isHidden(), qPrintable(command));
            QVERIFY(!page.runCommand(command));
        }
        Q_EMIT page.list()->emptyAreaActivated();
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilDemands")), QStringLiteral("1"));
        QVERIFY(!page.button(u"matchingCars")->isHidden());
    }

    void newDemandIsListedAndSelected()
    {
        addDemand();
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [this](QWidget *window) {
            auto *dialog = static_cast<CDlgAddAutomobilDemand *>(window);
            QCOMPARE(dialog->windowTitle(), QStringLiteral("تقاضا - جدید"));
            dialog->basePage()->person()->setPersonID(m_person);
            dialog->accept();
        });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(codes(page), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
        QCOMPARE(page.list()->currentRow(), 1);
    }

    void cancelledNewDemandLeavesNoRow()
    {
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilDemands")), QStringLiteral("0"));
        QCOMPARE(page.list()->count(), 0);
    }

    void editedDemandIsReadAnew()
    {
        addDemand();
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) {
            auto *dialog = static_cast<CDlgAddAutomobilDemand *>(window);
            QCOMPARE(dialog->windowTitle(), QStringLiteral("تقاضا - ویرایش"));
            dialog->basePage()->form()->edit(QStringLiteral("sDescSpecial"))->setText(QStringLiteral("فوری"));
            dialog->accept();
        });
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(page.list()->cellText(0, u"specialDescription"), QStringLiteral("فوری"));
    }

    void commandOnAVanishedDemandDoesNothing()
    {
        addDemand();
        Page page;
        page.open();
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilDemands"));
        for (const QString &command : {u"edit"_s, u"show"_s, u"delete"_s, u"archive"_s, u"matchingCars"_s})
            QVERIFY2(page.runCommand(command), qPrintable(command));
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void shownDemandOpensReadOnlyByCommandAndByRow()
    {
        addDemand();
        Page page;
        page.open();
        const auto expectShown = [] {
            TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) {
                QCOMPARE(window->windowTitle(), QStringLiteral("تقاضا - نمایش"));
                static_cast<QDialog *>(window)->reject();
            });
        };
        expectShown();
        QVERIFY(page.runCommand(u"show"));
        expectShown();
        Q_EMIT page.list()->rowActivated(page.list()->currentKey());
    }

    void demandTakenOutOfTheArchiveIsReadAnew_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("from the editor") << u"edit"_s;
        QTest::newRow("while it is shown") << u"show"_s;
    }

    void demandTakenOutOfTheArchiveIsReadAnew()
    {
        QFETCH(QString, command);
        addDemand([this](Demand &d) { d.m_iArchiveUserID = m_office->adminID(); });
        Page page;
        page.open();
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) {
            static_cast<CDlgAddAutomobilDemand *>(window)->unarchiveButton()->click();
        });
        QVERIFY(page.runCommand(command));
        QCOMPARE(page.list()->count(), 0);
    }

    void deletingAsksAndTakesFilesAndRemindersAlong()
    {
        const int key = addDemand();
        addDemand();
        m_office->database().run(QStringLiteral("INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (70,%1,'a')").arg(key));
        m_office->database().run(QStringLiteral("INSERT INTO Alarms (iTable,iRecordID,sDesc) VALUES (70,%1,'a')").arg(key));
        Page page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{QStringLiteral("آیا از حذف این رکورد اطمینان دارید؟")});
        QCOMPARE(page.list()->count(), 2);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(codes(page), QStringList{QStringLiteral("2")});
        QCOMPARE(page.list()->cellText(0, u"row"), QStringLiteral("1"));
        QCOMPARE(page.list()->currentRow(), 0);
        QCOMPARE(value(QStringLiteral("SELECT (SELECT COUNT(*) FROM FileDocs)+(SELECT COUNT(*) FROM Alarms)")), QStringLiteral("0"));
    }

    void afterDeletingTheLastRowTheNewLastIsSelected()
    {
        addDemand();
        addDemand();
        Page page;
        page.open();
        page.list()->selectRow(1);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(page.list()->currentRow(), 0);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(!page.button(u"delete")->isEnabled());
    }

    void archivingStampsTheUserAndSearchesAgain()
    {
        const int key = addDemand([](Demand &d) { d.m_iCode = 30; });
        Page page;
        page.open();
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{QStringLiteral("بایگانی شد.")});
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(value(QStringLiteral("SELECT CONCAT(iArchiveUserID,',',dateArchive IS NOT NULL) FROM AutomobilDemands WHERE iID=%1").arg(key)),
                 QStringLiteral("%1,1").arg(m_office->adminID()));
    }

    void archivingAnArchivedDemandWarnsAndWritesNothing()
    {
        addDemand([](Demand &d) { d.m_iArchiveUserID = 4711; });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        const ObservedStatements statements({QStringLiteral("UPDATE")});
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("این تقاضا قبلا بایگانی شده است.")});
        QVERIFY(statements.taken().isEmpty());
        QCOMPARE(value(QStringLiteral("SELECT iArchiveUserID FROM AutomobilDemands")), QStringLiteral("4711"));
    }

    // --- Archiving what is old ---

    void oldDemandsAreArchivedQuietlyBeforeTheFirstSearch()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        const int young = addDemand([](Demand &d) { d.m_dateCreate = GetDBSetting()->GetDBServerDate(); });
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.list()->currentKey(), young);
        QCOMPARE(value(QStringLiteral("SELECT GROUP_CONCAT(iArchiveUserID ORDER BY iID) FROM AutomobilDemands")),
                 QStringLiteral("%1,0").arg(m_office->adminID()));
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        // An open list leaves alone what the user took out of the archive.
        m_office->database().run(QStringLiteral("UPDATE AutomobilDemands SET iArchiveUserID=0"));
        page.refill();
        QCOMPARE(page.list()->count(), 2);
    }

    void openingArchivesNothingWithoutTheRight()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        m_office->logInAs(QStringLiteral("keeper"), rightsForm, KSecurity::allRights);
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        m_office->logInAs(QStringLiteral("keeper"), archiveForm, KSecurity::Access);
        Page next;
        next.open();
        QCOMPARE(next.list()->count(), 0);
    }

    void openingArchivesNothingInAClosedDatabase()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        GetDBSetting()->SetClosedDB(true);
        Page page;
        page.open();
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(value(QStringLiteral("SELECT iArchiveUserID FROM AutomobilDemands")), QStringLiteral("0"));
    }

    void demandsThatCannotBeArchivedAreListedAllTheSame()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        m_office->database().run(QStringLiteral("CREATE TRIGGER keepDemands BEFORE UPDATE ON AutomobilDemands FOR EACH ROW"
                                                " SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT='not now'"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("not now")));
        Page page;
        page.open();
        m_office->database().run(QStringLiteral("DROP TRIGGER keepDemands"));
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void archivingNeedsItsRight()
    {
        addDemand();
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights);
        Page page;
        page.open();
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("شما اجازه بایگانی کردن تقاضا را ندارید.")});
        QCOMPARE(value(QStringLiteral("SELECT iArchiveUserID FROM AutomobilDemands")), QStringLiteral("0"));
        m_office->logInAs(QStringLiteral("clerk"), archiveForm, KSecurity::Access);
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{QStringLiteral("بایگانی شد.")});
    }

    void everyCommandAsksForItsRight_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("right");
        QTest::newRow("new") << u"new"_s << int(KSecurity::Write);
        QTest::newRow("edit") << u"edit"_s << int(KSecurity::Modify);
        QTest::newRow("show") << u"show"_s << int(KSecurity::Read);
        QTest::newRow("delete") << u"delete"_s << int(KSecurity::Delete);
        QTest::newRow("print") << u"print"_s << int(KSecurity::PrintList);
    }

    void everyCommandAsksForItsRight()
    {
        QFETCH(QString, command);
        QFETCH(int, right);
        addDemand();
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights & ~right);
        Page page;
        page.open();
        QVERIFY(page.runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Right(right))});
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilDemands")), QStringLiteral("1"));
    }

    void listIsPrintedWithItsTitleDateAndCount()
    {
        addDemand();
        Page page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&shown](QWidget *window) {
            const ListReport report = static_cast<CDlgReportGenerator *>(window)->report();
            QCOMPARE(report.shownTitle(), QStringLiteral("لیست تقاضاها"));
            QCOMPARE(report.group(), QStringLiteral("گالری اتومبیل"));
            QCOMPARE(report.text(QStringLiteral("RightTop")), QStringLiteral("گالری اتومبیل"));
            QCOMPARE(report.text(QStringLiteral("LeftBottom")), QStringLiteral("تاریخ چاپ : ") + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(QStringLiteral("Count")), QStringLiteral("تعداد : 1"));
            QCOMPARE(report.rows().size(), 1);
            shown = true;
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"print"));
        QVERIFY(shown);
    }

    void fittingCarsOfTheSelectedDemandAreListed()
    {
        addDemand([this](Demand &d) { d.m_iAutomobilType = m_brand; });
        m_office->addCar([this](CTblAutomobilInformations &car) { car.m_iAutomobilType = m_brand; });
        m_office->addCar();
        Page page;
        page.open();
        TestOffice::whenModal("CDlgMatches", [](QWidget *window) {
            QCOMPARE(window->windowTitle(), QStringLiteral("خودروهای مناسب"));
            QCOMPARE(static_cast<CDlgMatches *>(window)->list()->count(), 1);
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"matchingCars"));
    }

    void carListOpensForTheSelectedDemand()
    {
        addDemand();
        TabHost host;
        Page page;
        page.open();
        QVERIFY(page.runCommand(u"carList"));
        QCOMPARE(host.pages().size(), 1);
        QCOMPARE(host.pages().constFirst()->title(), QStringLiteral("گالري اتومبيل"));
    }
};

static const RegisteredTest<TestCDlgAutomobilDemands, KApplication> registered;
#include "TestCDlgAutomobilDemands.moc"

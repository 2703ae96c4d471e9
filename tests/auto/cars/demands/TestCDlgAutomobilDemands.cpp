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

const QString section = u"AutomobilDemands"_s;
const QString rightsForm = u"AutomobilDemands"_s;
const QString archiveForm = u"AutomobilDemandArchive"_s;
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
        m_person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        m_brand = m_office->addBrand(u"پژو"_s);
    }

    // --- Texts ---

    void everyLabelAndTitleIsToTheLetter()
    {
        Page page;
        page.open();
        QCOMPARE(page.title(), u"تقاضا"_s);
        QStringList labels;
        for (const QLabel *label : page.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {u"متقاضي :"_s, u"مبلغ از :"_s, u"سال توليد از :"_s,
              u"وضعيت بايگاني :"_s, u"توضيحات ويژه :"_s, u"نوع خودرو :"_s,
              u"تاريخ مراجعه از :"_s, u"رنگ :"_s, u"تعداد نمايش :"_s})
            QVERIFY2(labels.contains(text), qPrintable(text));
        QCOMPARE(labels.count(u"تا :"_s), 3);
        QCOMPARE(page.filters().control<QCheckBox>(u"inactive")->text(), u"نمايش غير فعال ها"_s);
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        for (const QString &text : {u"جديد"_s, u"ويرايش"_s, u"نمايش"_s, u"حذف"_s, u"بايگاني شد"_s, u"جستجو"_s, u"پيش فرض"_s, u"چاپ ليست"_s, u"خودروهای مناسب"_s})
            QVERIFY2(captions.contains(text), qPrintable(text));
        QStringList titles;
        for (int i = 0; i < 11; ++i)
            titles << headerText(page, i);
        QCOMPARE(titles, (QStringList{u"ردیف"_s, u"کد تقاضا*"_s, u"نام متقاضی"_s, u"نوع خودرو"_s, u"از مدل"_s, u"تا مدل"_s, u"از مبلغ"_s, u"تا مبلغ"_s, u"تاریخ مراجعه"_s, u"توضیحات ویژه"_s, u"وضعیت بایگانی"_s}));
    }

    void columnsHaveTheirWidthsAlignmentsAndSortKeys()
    {
        Page page;
        const QVector<KListModel::Column> &columns = page.list()->listModel()->columns();
        QStringList lines;
        for (const KListModel::Column &column : columns)
            lines << u"%1 %2 %3"_s.arg(column.width).arg(column.alignment == Qt::AlignRight ? u"r"_s : column.isDate ? u"date"_s
                                                                                                                     : u"c"_s)
                         .arg(column.sortKey);
        QCOMPARE(lines, (QStringList{u"40 c "_s, u"40 c ad.iCode"_s, u"80 r ad.iPersonID"_s, u"80 r ad.iAutomobilType"_s, u"50 r ad.iModelFrom"_s, u"50 r ad.iModelUpTo"_s, u"50 c ad.dAmountFrom"_s, u"50 c ad.dAmountUpTo"_s, u"80 date ad.dateReference"_s, u"150 r ad.sDescSpecial"_s, u"50 r ad.iArchiveUserID"_s}));
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
            d.m_sDescSpecial = u"فوری"_s;
        });
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.list()->currentKey(), key);
        QStringList cells;
        for (int i = 0; i < 11; ++i)
            cells << page.list()->cellText(0, i);
        QCOMPARE(cells, (QStringList{u"1"_s, u"12"_s, u"سارا کریمی"_s, u"پژو"_s, u"1390"_s, u"1395"_s, DToMoney(4500000000), DToMoney(5000000000), u"1405/01/01"_s, u"فوری"_s, u"-"_s}));
        QCOMPARE(page.countText(), u"تعداد : 1"_s);
    }

    void demandWhosePersonWasDeletedIsNotListed()
    {
        addDemand();
        addDemand([](Demand &d) { d.m_iPersonID = 999999; });
        Page page;
        page.open();
        QCOMPARE(codes(page), QStringList{u"1"_s});
    }

    void demandWhoseTypeWasDeletedShowsADashAsItsType()
    {
        addDemand([](Demand &d) { d.m_iAutomobilType = 4711; });
        addDemand();
        Page page;
        page.open();
        QCOMPARE(column(page, u"type"), (QStringList{u"-"_s, u"-"_s}));
    }

    void archivedDemandReadsYes()
    {
        addDemand([this](Demand &d) { d.m_iArchiveUserID = m_office->adminID(); });
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 0);
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(page.list()->cellText(0, u"archived"), u"بلی"_s);
    }

    void namesAreLookedUpOnceForTheWholeList()
    {
        const auto statementsOf = [](Page &page) {
            const ObservedStatements statements({u"SELECT"_s});
            page.refill();
            return statements.taken().size();
        };
        addDemand([this](Demand &d) { d.m_iAutomobilType = m_brand; });
        Page page;
        page.open();
        const qsizetype few = statementsOf(page);
        for (int i = 0; i < 40; ++i) {
            const int person = m_office->addPerson(u"a"_s, QString::number(i));
            const int brand = m_office->addBrand(QString::number(i));
            addDemand([&](Demand &d) { d.m_iPersonID = person; d.m_iAutomobilType = brand; });
        }
        QCOMPARE(statementsOf(page), few);
        QCOMPARE(page.list()->count(), 41);
        QCOMPARE(page.list()->cellText(40, u"type"), u"39"_s);
    }

    // --- Filter ---

    void everyFilterControlGoesIntoTheCriteria()
    {
        const int color = CTblMultiItems::addValue(CTblItems::typeColor, u"سفید"_s);
        Page page;
        page.open();
        page.filters().set(u"inactive", true);
        page.filters().set(u"archive", 3);
        page.filters().set(u"type", m_brand);
        page.filters().set(u"color", color);
        page.filters().control<KDateEdit>(u"referenceFrom")->setText(u"1405/01/01"_s);
        page.filters().control<KDateEdit>(u"referenceTo")->setText(u"1405/01/02"_s);
        page.filters().set(u"specialDescription", u"50%"_s);
        page.filters().set(u"person", m_person);
        page.filters().control<KEdit>(u"yearFrom")->setText(u"1385"_s);
        page.filters().control<KEdit>(u"yearTo")->setText(u"۱۳۹۰"_s);
        page.filters().control<KEdit>(u"amountFrom")->setText(u"1,000"_s);
        page.filters().control<KEdit>(u"amountTo")->setText(u"2000"_s);
        const KFilterValues asked = page.filters().values();
        QVERIFY(asked[u"inactive"_s].toBool());
        QCOMPARE(asked[u"archive"_s].toInt(), 3);
        QCOMPARE(asked[u"type"_s].toInt(), m_brand);
        QCOMPARE(asked[u"color"_s].toInt(), color);
        QCOMPARE(asked[u"referenceFrom"_s].toDateTime().date(), QDate(2026, 3, 21));
        QCOMPARE(asked[u"referenceTo"_s].toDateTime().date(), QDate(2026, 3, 22));
        QCOMPARE(asked[u"specialDescription"_s].toString(), u"50%"_s);
        QCOMPARE(asked[u"person"_s].toInt(), m_person);
        QCOMPARE(asked[u"yearFrom"_s].toInt(), 1385);
        QCOMPARE(asked[u"yearTo"_s].toInt(), 1390);
        QCOMPARE(asked[u"amountFrom"_s].toDouble(), 1000.0);
        QCOMPARE(asked[u"amountTo"_s].toDouble(), 2000.0);
        const ObservedStatements statements({u"SELECT ad."_s});
        page.refill();
        QVERIFY(statements.taken().constFirst().contains(u"ad.iArchiveUserID<>%1"_s.arg(m_office->adminID())));
    }

    void filterStartsAndResetsWithDemandsNotArchivedAndAllTypes()
    {
        addDemand();
        CTblMultiItems::addValue(CTblItems::typeColor, u"سفید"_s);
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
        QCOMPARE(page.filters().control<QComboBox>(u"type")->itemText(0), u"همه"_s);
        QCOMPARE(page.list()->count(), 1);
        page.filters().set(u"inactive", true);
        page.filters().set(u"archive", 2);
        page.filters().control<QComboBox>(u"type")->setCurrentIndex(1);
        page.filters().control<QComboBox>(u"color")->setCurrentIndex(1);
        page.filters().set(u"person", m_person);
        page.filters().set(u"specialDescription", u"x"_s);
        for (const QString &key : {u"referenceFrom"_s, u"referenceTo"_s})
            page.filters().control<KDateEdit>(key)->setText(u"1405/01/01"_s);
        for (const QString &key : {u"yearFrom"_s, u"yearTo"_s, u"amountFrom"_s, u"amountTo"_s})
            page.filters().control<KEdit>(key)->setText(u"1385"_s);
        const KFilterValues asked = page.filters().values();
        QVERIFY(asked[u"inactive"_s].toBool());
        QCOMPARE(asked[u"archive"_s].toInt(), 2);
        QVERIFY(!asked[u"specialDescription"_s].toString().isEmpty());
        for (const QString &key : numbers)
            QVERIFY2(asked[key].toDouble() != 0, qPrintable(key));
        for (const QString &key : dates)
            QVERIFY2(asked[key].toDateTime().isValid(), qPrintable(key));
        // A brand and a colour that were added meanwhile are offered too.
        m_office->addBrand(u"سایپا"_s);
        CTblMultiItems::addValue(CTblItems::typeColor, u"سیاه"_s);
        QVERIFY(page.runCommand(u"reset"));
        QVERIFY(isDefault());
        QCOMPARE(page.filters().control<QComboBox>(u"type")->count(), 3);
        QCOMPARE(page.filters().control<QComboBox>(u"color")->count(), 3);
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(page.countText(), u"تعداد : 0"_s);
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
        page.filters().control<KEdit>(u"yearFrom")->setText(u"1385"_s);
        page.filters().control<KEdit>(u"yearTo")->setText(u"1390"_s);
        page.refill();
        QCOMPARE(codes(page), QStringList{u"1"_s});
    }

    // --- Settings ---

    void settingsAreWrittenBackAndReadAgain()
    {
        {
            Page page;
            page.open();
            QCOMPARE(page.rowLimit(), 1000);
            QCOMPARE(page.sortExpression(), u"ad.iCode"_s);
            page.setRowLimit(25);
            addDemand();
            page.refill();
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"specialDescription"));
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"specialDescription"));
            page.OnClosing();
        }
        QCOMPARE(ReadSetting(section, u"iMaxRows"_s, 0), 25);
        QCOMPARE(ReadSetting(section, u"iLastCol"_s, 0), 9);
        QCOMPARE(ReadSetting(section, u"Sort"_s, QString()), u"ad.sDescSpecial DESC"_s);
        Page page;
        page.open();
        QCOMPARE(page.rowLimit(), 25);
        QCOMPARE(page.sortExpression(), u"ad.sDescSpecial DESC"_s);
        QCOMPARE(headerText(page, u"specialDescription"), u"توضیحات ویژه*"_s);
    }

    void emptyStoredSortIsByCode()
    {
        WriteSetting(section, u"Sort"_s, QString());
        addDemand([](Demand &d) { d.m_iCode = 9; });
        addDemand([](Demand &d) { d.m_iCode = 2; });
        Page page;
        page.open();
        QCOMPARE(codes(page), (QStringList{u"2"_s, u"9"_s}));
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
        WriteSetting(section, u"iMaxRows"_s, limit);
        const ObservedStatements statements({u"SELECT ad."_s});
        Page page;
        page.open();
        QTEST(page.list()->count(), "listed");
        QCOMPARE(statements.taken().size(), 1);
        QCOMPARE(statements.taken().first().contains(u" LIMIT "_s), limit > 0);
        QVERIFY(statements.taken().first().contains(u" GROUP BY ad.iID ORDER BY ad.iCode"_s));
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
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"1"_s);
        QVERIFY(!page.button(u"matchingCars")->isHidden());
    }

    void newDemandIsListedAndSelected()
    {
        addDemand();
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [this](QWidget *window) {
            auto *dialog = static_cast<CDlgAddAutomobilDemand *>(window);
            QCOMPARE(dialog->windowTitle(), u"تقاضا - جدید"_s);
            dialog->basePage()->person()->setPersonID(m_person);
            dialog->accept();
        });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(codes(page), (QStringList{u"1"_s, u"2"_s}));
        QCOMPARE(page.list()->currentRow(), 1);
    }

    void cancelledNewDemandLeavesNoRow()
    {
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"0"_s);
        QCOMPARE(page.list()->count(), 0);
    }

    void editedDemandIsReadAnew()
    {
        addDemand();
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) {
            auto *dialog = static_cast<CDlgAddAutomobilDemand *>(window);
            QCOMPARE(dialog->windowTitle(), u"تقاضا - ویرایش"_s);
            dialog->basePage()->form()->edit(u"sDescSpecial"_s)->setText(u"فوری"_s);
            dialog->accept();
        });
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(page.list()->cellText(0, u"specialDescription"), u"فوری"_s);
    }

    void demandOfAnOpenEditorIsNotListedAndThatOfADeadProgramIsRemoved()
    {
        addDemand();
        const int open = CDlgAddAutomobilDemand::addPlaceholder();
        const int left = CDlgAddAutomobilDemand::addPlaceholder();
        // A person, without whom no demand is listed.
        m_office->database().run(u"UPDATE AutomobilDemands SET iPersonID=%1 WHERE iID IN (%2,%3)"_s.arg(m_person).arg(open).arg(left));
        m_office->database().run(u"UPDATE Placeholders SET sSession='a program that died' WHERE iRecordID=%1"_s.arg(left));
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"2"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Placeholders"_s), u"1"_s);
    }

    void commandOnAVanishedDemandDoesNothing()
    {
        addDemand();
        Page page;
        page.open();
        Page other;
        other.open();
        m_office->database().run(u"DELETE FROM AutomobilDemands"_s);
        for (const QString &command : {u"edit"_s, u"show"_s, u"matchingCars"_s})
            QVERIFY2(page.runCommand(command), qPrintable(command));
        QVERIFY(other.runCommand(u"delete"));
        QCOMPARE(other.list()->count(), 0);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        // Whoever archives is told why it is not done, and the list is read anew.
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"کاربر دیگری این ردیف را در این میان حذف کرده است. چیزی ذخیره نشد."_s});
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
    }

    void shownDemandOpensReadOnlyByCommandAndByRow()
    {
        addDemand();
        Page page;
        page.open();
        const auto expectShown = [] {
            TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) {
                QCOMPARE(window->windowTitle(), u"تقاضا - نمایش"_s);
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
        m_office->database().run(u"INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (70,%1,'a')"_s.arg(key));
        m_office->database().run(u"INSERT INTO Alarms (iTable,iRecordID,sDesc) VALUES (70,%1,'a')"_s.arg(key));
        Page page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{u"آیا از حذف این رکورد اطمینان دارید؟"_s});
        QCOMPARE(page.list()->count(), 2);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(codes(page), QStringList{u"2"_s});
        QCOMPARE(page.list()->cellText(0, u"row"), u"1"_s);
        QCOMPARE(page.list()->currentRow(), 0);
        QCOMPARE(value(u"SELECT (SELECT COUNT(*) FROM FileDocs)+(SELECT COUNT(*) FROM Alarms)"_s), u"0"_s);
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
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"بایگانی شد."_s});
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(value(u"SELECT CONCAT(iArchiveUserID,',',dateArchive IS NOT NULL) FROM AutomobilDemands WHERE iID=%1"_s.arg(key)),
                 u"%1,1"_s.arg(m_office->adminID()));
    }

    void archivingAnArchivedDemandWarnsAndWritesNothing()
    {
        addDemand([](Demand &d) { d.m_iArchiveUserID = 4711; });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        const ObservedStatements statements({u"UPDATE"_s});
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این تقاضا قبلا بایگانی شده است."_s});
        QVERIFY(statements.taken().isEmpty());
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilDemands"_s), u"4711"_s);
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
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iArchiveUserID ORDER BY iID) FROM AutomobilDemands"_s),
                 u"%1,0"_s.arg(m_office->adminID()));
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        // An open list leaves alone what the user took out of the archive.
        m_office->database().run(u"UPDATE AutomobilDemands SET iArchiveUserID=0"_s);
        page.refill();
        QCOMPARE(page.list()->count(), 2);
    }

    void openingArchivesNothingWithoutTheRight()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        m_office->logInAs(u"keeper"_s, rightsForm, KSecurity::allRights);
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        m_office->logInAs(u"keeper"_s, archiveForm, KSecurity::Access);
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
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilDemands"_s), u"0"_s);
    }

    void demandsThatCannotBeArchivedAreListedAllTheSame()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        m_office->database().run(u"CREATE TRIGGER keepDemands BEFORE UPDATE ON AutomobilDemands FOR EACH ROW"
                                 " SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT='not now'"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"not now"_s));
        Page page;
        page.open();
        m_office->database().run(u"DROP TRIGGER keepDemands"_s);
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void archivingNeedsItsRight()
    {
        addDemand();
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights);
        Page page;
        page.open();
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شما اجازه بایگانی کردن تقاضا را ندارید."_s});
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilDemands"_s), u"0"_s);
        m_office->logInAs(u"clerk"_s, archiveForm, KSecurity::Access);
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"بایگانی شد."_s});
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
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~right);
        Page page;
        page.open();
        QVERIFY(page.runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Right(right))});
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"1"_s);
    }

    void listIsPrintedWithItsTitleDateAndCount()
    {
        addDemand();
        Page page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&shown](QWidget *window) {
            const ListReport report = static_cast<CDlgReportGenerator *>(window)->report();
            QCOMPARE(report.shownTitle(), u"لیست تقاضاها"_s);
            QCOMPARE(report.group(), u"گالری اتومبیل"_s);
            QCOMPARE(report.text(u"RightTop"_s), u"گالری اتومبیل"_s);
            QCOMPARE(report.text(u"LeftBottom"_s), u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(u"Count"_s), u"تعداد : 1"_s);
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
            QCOMPARE(window->windowTitle(), u"خودروهای مناسب"_s);
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
        QCOMPARE(host.pages().constFirst()->title(), u"گالري اتومبيل"_s);
    }
};

static const RegisteredTest<TestCDlgAutomobilDemands, KApplication> registeredCDlgAutomobilDemands;
#include "TestCDlgAutomobilDemands.moc"

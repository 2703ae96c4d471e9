// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/reports/income/CDlgAutoFullReport.h"
#include "auto/reports/income/IncomeChart.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractAxis>
#include <QAbstractBarSeries>
#include <QBarSet>
#include <QChart>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QGraphicsView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int year = 1405;

QStringList column(const CDlgAutoFullReport &report, int column)
{
    QStringList texts;
    for (int row = 0; row < report.list()->count(); ++row)
        texts.append(report.list()->cellText(row, column));
    return texts;
}

// How long each of so many bars is in the picture, in dots.
QList<int> barLengths(const QImage &picture, const QRectF &plot, int bars)
{
    const QRgb colors[] = {HostColors::of(HostColors::Role::Chart).rgb(), HostColors::of(HostColors::Role::ChartOther).rgb()};
    QList<int> lengths(bars, 0);
    const QRect inside = plot.toRect();
    for (int y = inside.top(); y < inside.bottom(); ++y) {
        int length = 0;
        for (int x = inside.left(); x < inside.right(); ++x)
            length += int(std::ranges::count(colors, picture.pixel(x, y)));
        int &longest = lengths[std::min(bars - 1, (y - inside.top()) * bars / inside.height())];
        longest = std::max(longest, length);
    }
    return lengths;
}

}

class TestCDlgAutoFullReport : public QObject
{
    Q_OBJECT

    TestOffice m_office;

    static void post(int bedAccount, int besAccount, double amount, const QDate &day = ConvertToMiladi(year, 5, 1))
    {
        const int number = CTblDocuments::AddDoc(1, QDateTime(day, QTime(12, 0), Qt::UTC), u"سند"_s, year);
        const auto row = [&](int account, double bed, double bes) {
            CTblDocs::AddRecords(number, year, {{account, 0, bed, bes, {}}});
        };
        row(bedAccount, amount, 0);
        row(besAccount, 0, amount);
    }

private Q_SLOTS:
    void init()
    {
        m_office.clear();
        GetDBSetting()->SetFiscalYear(year);
        m_office.setFiscalYearOpening(ConvertToMiladi(year, 1, 1));
        m_office.database().run(u"DELETE FROM HesabTafsily"_s);
    }

    void rowsStandInTheirOrder()
    {
        post(110101, 410202, 5000); // commission earned
        post(610502, 110101, 700);
        post(610503, 110101, 90);
        const CDlgAutoFullReport report;
        QCOMPARE(report.windowTitle(), u"گزارش جامع"_s);
        QCOMPARE(column(report, 0), (QStringList{{}, u"410202"_s, {}, {}, u"610502"_s, u"610503"_s, {}, {}}));
        const QStringList names = column(report, 1);
        QCOMPARE(names.at(0), u"درآمد ها"_s);
        QCOMPARE(names.at(2), u"جمع درآمدها"_s);
        QCOMPARE(names.at(3), u"هزینه ها"_s);
        QCOMPARE(names.at(6), u"جمع هزینه ها"_s);
        QCOMPARE(names.at(7), u"مابه التفاوت درآمدها با هزینه ها"_s);
        QCOMPARE(column(report, 2), (QStringList{{}, u"5,000"_s, u"5,000"_s, {}, u"700"_s, u"90"_s, u"790"_s, u"4,210"_s}));
        const QString debit = u"بد"_s;
        const QString credit = u"بس"_s;
        QCOMPARE(column(report, 3), (QStringList{{}, credit, credit, {}, debit, debit, debit, credit}));
        const QVector<KListModel::Row> rows = report.list()->listModel()->rows();
        for (const int row : {0, 2, 3, 6, 7})
            QVERIFY(rows.at(row).heading);
        QVERIFY(!rows.at(1).heading);
        // Enter opens it.
        QCOMPARE(report.list()->currentKey(), 410202);
    }

    void theFirstAccountIsSelectedAlsoWhereThereIsNoIncome()
    {
        post(610502, 110101, 700);
        const CDlgAutoFullReport report;
        QCOMPARE(report.list()->currentKey(), 610502);
    }

    void anEmptyGroupGivesOnlyItsHeadingAndAZeroTotal()
    {
        const CDlgAutoFullReport report;
        QCOMPARE(report.list()->currentRow(), 0);
        QCOMPARE(column(report, 2), (QStringList{{}, u"0"_s, {}, u"0"_s, u"0"_s}));
        QCOMPARE(column(report, 3), (QStringList{{}, u"-"_s, {}, u"-"_s, u"-"_s}));
    }

    void equalIncomeAndExpenseTotalsGiveADifferenceOfZero()
    {
        post(610502, 410202, 300);
        const CDlgAutoFullReport report;
        QCOMPARE(column(report, 2).constLast(), u"0"_s);
        QCOMPARE(column(report, 3).constLast(), u"-"_s);
    }

    void opensOnTheCurrentFiscalYear()
    {
        post(110101, 410202, 1, ConvertToMiladi(year, 1, 1).addDays(-1));
        post(110101, 410202, 20, ConvertToMiladi(year, 1, 1));
        post(110101, 410202, 300, ConvertToMiladi(year, 12, 29));
        post(110101, 410202, 4000, ConvertToMiladi(year + 1, 1, 1));
        CDlgAutoFullReport report;
        QCOMPARE(shamsiText(report.fromDate()->date()), u"1405/01/01"_s);
        QCOMPARE(shamsiText(report.toDate()->date()), u"1405/12/29"_s);
        QCOMPARE(column(report, 2).at(1), u"320"_s);
        report.toDate()->setDateTime({});
        report.search();
        QCOMPARE(column(report, 2).at(1), u"4,320"_s);
    }

    void inactiveAccountsAreLeftOut()
    {
        post(110101, 410202, 5000);
        m_office.database().run(u"UPDATE HesabMoeen SET iStatus=1 WHERE iCode=410202"_s);
        const CDlgAutoFullReport report;
        m_office.database().run(u"UPDATE HesabMoeen SET iStatus=0 WHERE iCode=410202"_s);
        QVERIFY(!column(report, 0).contains(u"410202"_s));
    }

    void noStatementPerAccount()
    {
        for (int i = 1; i <= 50; ++i) {
            m_office.database().run(
                u"INSERT INTO HesabTafsily(iCode,sName,iStatus,iHesabMoeenCode) VALUES(%1,'شعبه',0,410202)"_s.arg(41020200 + i));
        }
        const ObservedStatements observed({u"SELECT"_s});
        const ComprehensiveReport report = ComprehensiveReport::read({}, {});
        // Three groups of three levels, each with its accounts and its balances.
        QCOMPARE(observed.taken().size(), 3 * 3 * 2);
        QVERIFY(report.income.accounts.isEmpty());
    }

    // By bare number the accounts of group 62 would stand before the detail accounts of 61.
    void accountsStandInTheirTree()
    {
        m_office.database().run(u"INSERT INTO HesabKol(iCode,sName,iStatus) VALUES(6201,'اجاره',0)"_s);
        m_office.database().run(u"INSERT INTO HesabMoeen(iCode,sName,iStatus,iHesabKolCode) VALUES(620101,'دفتر',0,6201)"_s);
        m_office.database().run(u"INSERT INTO HesabTafsily(iCode,sName,iStatus,iHesabMoeenCode) "
                                "VALUES(610502001,'شعبه یک',0,610502),(610502002,'شعبه دو',0,610502)"_s);
        post(610502002, 110101, 1);
        post(610502001, 110101, 20);
        post(610503, 110101, 300);
        post(620101, 110101, 4000);
        CDlgAutoFullReport report;
        const QStringList tree{u"610502001"_s, u"610502002"_s, u"610503"_s, u"620101"_s};
        QCOMPARE(column(report, 0).mid(3, 4), tree);
        Q_EMIT report.list()->columnClicked(0);
        QCOMPARE(column(report, 0).mid(3, 4), QStringList(tree.crbegin(), tree.crend()));
        m_office.database().run(u"DELETE FROM HesabMoeen WHERE iCode=620101"_s);
        m_office.database().run(u"DELETE FROM HesabKol WHERE iCode=6201"_s);
    }

    void aClickOnATitleSortsTheAccountsWithinTheirSide()
    {
        post(610502, 110101, 90);
        post(610503, 110101, 700);
        {
            CDlgAutoFullReport report;
            const auto click = [&report](int column) { Q_EMIT report.list()->columnClicked(column); };
            click(2);
            QCOMPARE(column(report, 2).mid(3, 2), (QStringList{u"90"_s, u"700"_s}));
            click(2);
            QCOMPARE(column(report, 2).mid(3, 2), (QStringList{u"700"_s, u"90"_s}));
            QCOMPARE(column(report, 1).constLast(), u"مابه التفاوت درآمدها با هزینه ها"_s);
            report.reject();
        }
        const CDlgAutoFullReport again;
        QCOMPARE(column(again, 2).mid(3, 2), (QStringList{u"700"_s, u"90"_s}));
        QCOMPARE(again.list()->listModel()->headerData(2, Qt::Horizontal).toString(), u"مبلغ*"_s);
    }

    void activatingAnAccountOpensItsDocuments()
    {
        post(110101, 410202, 5000);
        CDlgAutoFullReport report;
        report.show();
        bool opened = false;
        TestOffice::whenModal("CDlgAccountDocs", [&opened](QWidget *window) {
            opened = window->windowTitle().contains(u"410202"_s);
            window->close();
        });
        Q_EMIT report.list()->rowActivated(410202);
        QVERIFY(opened);
        Q_EMIT report.list()->rowActivated(0); // a heading opens nothing
    }

    void choiceModeGivesTheAccount()
    {
        post(110101, 410202, 5000);
        CDlgAutoFullReport report;
        const auto hasButton = [&report](const QString &caption) {
            const QList<QPushButton *> buttons = report.findChildren<QPushButton *>();
            return std::any_of(buttons.cbegin(), buttons.cend(), [&](const QPushButton *button) { return button->text() == caption; });
        };
        QVERIFY(hasButton(u"بازگشت"_s));
        report.setChoiceMode(true);
        QVERIFY(hasButton(u"انتخاب"_s));
        QVERIFY(!hasButton(u"بازگشت"_s));
        QVERIFY(hasButton(u"انصراف"_s));
        report.list()->selectRow(0);
        report.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(report.result(), 0);
        report.list()->selectKey(410202);
        report.accept();
        QCOMPARE(report.result(), int(QDialog::Accepted));
        QCOMPARE(report.chosenCode(), 410202);
    }

    void whatIsOpenedAndPrintedIsOfTheRangeThatWasSearched()
    {
        post(110101, 410202, 5000);
        CDlgAutoFullReport report;
        report.show();
        report.fromDate()->setText(u"1405/09/01"_s);
        QString from;
        TestOffice::whenModal("CDlgAccountDocs", [&from](QWidget *window) {
            from = window->findChild<KDateEdit *>()->text();
            window->close();
        });
        Q_EMIT report.list()->rowActivated(410202);
        QCOMPARE(from, u"1405/01/01"_s);
        QCOMPARE(report.listReport().text(u"RightCenter"_s), u"تاريخ : 1405/01/01"_s);
        report.search();
        QCOMPARE(report.listReport().text(u"RightCenter"_s), u"تاريخ : 1405/09/01"_s);
        report.fromDate()->setDateTime({});
        report.toDate()->setDateTime({});
        report.search();
        QCOMPARE(report.listReport().text(u"RightCenter"_s), QString());
        QCOMPARE(report.listReport().text(u"RightBottom"_s), QString());
    }

    void enterInADateSearchesAndAWrongOneKeepsTheFocus()
    {
        post(110101, 410202, 5000);
        CDlgAutoFullReport report;
        report.show();
        report.toDate()->setFocus();
        report.toDate()->setText(u"1405/02/01"_s);
        QTest::keyClick(report.toDate(), Qt::Key_Return);
        QTRY_COMPARE(report.list()->count(), 5);
        QVERIFY(report.isVisible());
        report.fromDate()->setFocus();
        report.fromDate()->setText(u"1405/13/01"_s);
        QTest::keyClick(report.fromDate(), Qt::Key_Return);
        QTRY_COMPARE(report.focusWidget(), report.fromDate());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void aWrongDateIsTold()
    {
        post(110101, 410202, 5000);
        CDlgAutoFullReport report;
        report.show();
        report.fromDate()->setText(u"1405/13/01"_s);
        report.search();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(column(report, 2).at(1), u"5,000"_s);
    }

    void rangeThatEndsBeforeItBeginsIsRefused()
    {
        post(110101, 410202, 5000);
        CDlgAutoFullReport report;
        report.show();
        report.fromDate()->setText(u"1405/03/02"_s);
        report.toDate()->setText(u"1405/03/01"_s);
        report.search();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"«تاريخ» بزرگتر از «تاريخ تا» است. لطفا اصلاح نمایید."_s});
        QCOMPARE(report.focusWidget(), report.fromDate());
        QCOMPARE(column(report, 2).at(1), u"5,000"_s);
    }

    void chartShowsTheSameFigures()
    {
        post(110101, 410202, 5000);
        post(610502, 110101, 700);
        CDlgAutoFullReport report;
        QCOMPARE(report.chart()->categories().size(), 2);
        QVERIFY(report.chart()->categories().at(0).contains(u"410202"_s));
        QVERIFY(report.chart()->categories().at(1).contains(u"610502"_s));
    }

    // Whatever size the window had or has.
    void theChartFillsItsPaper()
    {
        post(110101, 410202, 5000);
        post(610502, 110101, 700);
        CDlgAutoFullReport report;
        for (const QSize &size : {QSize(1300, 700), QSize(800, 560)}) {
            report.resize(size);
            report.show();
            QCoreApplication::processEvents();
            QImage paper(800, 500, QImage::Format_RGB32);
            paper.fill(Qt::yellow);
            {
                QPainter painter(&paper);
                report.chart()->draw(painter, QRectF(paper.rect()), u"1405"_s);
            }
            const QRgb income = HostColors::of(HostColors::Role::Chart, HostColors::Look::Light).rgb();
            QRect bar;
            for (int y = 0; y < paper.height(); ++y) {
                for (int x = 0; x < paper.width(); ++x) {
                    QVERIFY(paper.pixel(x, y) != qRgb(255, 255, 0)); // no paper is left out
                    if (paper.pixel(x, y) == income && y < 400)      // above the legend
                        bar |= QRect(x, y, 1, 1);
                }
            }
            QVERIFY2(bar.width() > 400 && bar.height() > 50, qPrintable(u"%1 x %2"_s.arg(bar.width()).arg(bar.height())));
        }
    }

    // Many bars have smaller names; without room for one the library would show three dots in its place.
    void namesFitTheirBars()
    {
        ComprehensiveReport report;
        for (int i = 0; i < IncomeBars::mostOfASide; ++i) {
            report.income.accounts.append({AccountLevel::Moeen, 410101 + i, u"حساب"_s, {0, 100.0 + i}});
            report.expenses.accounts.append({AccountLevel::Moeen, 610101 + i, u"حساب"_s, {100.0 + i, 0}});
        }
        IncomeChart chart(u"ریال"_s);
        chart.resize(700, 400);
        chart.setReport(report);
        chart.show();
        QCoreApplication::processEvents();
        const QFont names = chart.chart()->axes(Qt::Vertical).constFirst()->labelsFont();
        const double room = chart.chart()->plotArea().height() / double(chart.categories().size());
        QVERIFY(QFontMetricsF(names).height() < room);
        QVERIFY(QFontInfo(names).pixelSize() < QFontInfo(chart.font()).pixelSize());
        int shown = 0;
        const QList<QGraphicsItem *> items = chart.chart()->scene()->items();
        for (const QGraphicsItem *item : items) {
            const auto *text = qgraphicsitem_cast<const QGraphicsTextItem *>(item);
            shown += text && text->isVisible() && text->toPlainText().endsWith(u"- حساب"_s);
        }
        QCOMPARE(shown, chart.categories().size());
    }

    // Beside one that is a thousand times as much, the others would have no length to see.
    void amountsStandAtTheirBars()
    {
        ComprehensiveReport report;
        report.income.accounts = {{AccountLevel::Moeen, 410101, u"حساب"_s, {0, 9'000'000'000.0}},
                                  {AccountLevel::Moeen, 410102, u"حساب"_s, {0, 8'000'000.0}}};
        report.expenses.accounts = {{AccountLevel::Moeen, 610101, u"حساب"_s, {4'000'000.0, 0}},
                                    {AccountLevel::Moeen, 610102, u"حساب"_s, {5.0, 0}}};
        IncomeChart chart(u"ریال"_s);
        chart.resize(500, 400);
        chart.setReport(report);
        chart.show();
        QCoreApplication::processEvents();
        const QImage picture = chart.chart()->scene()->views().constFirst()->grab().toImage();
        const QRectF plot = chart.chart()->plotArea();
        for (const QString &amount : {u"9,000,000,000"_s, u"8,000,000"_s, u"4,000,000"_s, u"5"_s}) {
            const QGraphicsSimpleTextItem *label = nullptr;
            for (const QGraphicsItem *item : chart.chart()->scene()->items()) {
                const auto *text = qgraphicsitem_cast<const QGraphicsSimpleTextItem *>(item);
                if (text && text->isVisible() && text->text() == amount)
                    label = text;
            }
            QVERIFY2(label, qPrintable(amount));
            QVERIFY2(plot.contains(label->sceneBoundingRect()), qPrintable(amount));
        }
        const QList<int> lengths = barLengths(picture, plot, 4);
        QVERIFY(lengths.at(0) > lengths.at(1));
        QVERIFY2(std::abs(lengths.at(1) - 2 * lengths.at(2)) <= 4, qPrintable(QString::number(lengths.at(2))));
        QVERIFY(lengths.at(3) > 0);
    }

    // A small account on the wrong side of zero, where the plot has no room for a dozen digits.
    void amountOfAShortBarIsSeenWhereTheAxisEnds()
    {
        ComprehensiveReport report;
        report.income.accounts = {{AccountLevel::Moeen, 410101, u"حساب"_s, {0, 60'000'000.0}},
                                  {AccountLevel::Moeen, 410102, u"حساب"_s, {3'500'000.0, 0}}};
        IncomeChart chart(u"ریال"_s);
        chart.resize(500, 400);
        chart.setReport(report);
        chart.show();
        QCoreApplication::processEvents();
        const QGraphicsSimpleTextItem *label = nullptr;
        for (const QGraphicsItem *item : chart.chart()->scene()->items()) {
            const auto *text = qgraphicsitem_cast<const QGraphicsSimpleTextItem *>(item);
            if (text && text->text() == u"-3,500,000"_s)
                label = text;
        }
        QVERIFY(label);
        QVERIFY(chart.chart()->plotArea().contains(label->sceneBoundingRect()));
        QCOMPARE(label->brush().color(), chart.palette().color(QPalette::WindowText)); // white is for the inside of a bar
    }

    // On paper it is light whatever the screen is.
    void chartFollowsTheLook()
    {
        ComprehensiveReport report;
        report.income.accounts = {{AccountLevel::Moeen, 410101, u"حساب"_s, {0, 5000.0}}};
        report.expenses.accounts = {{AccountLevel::Moeen, 610101, u"حساب"_s, {700.0, 0}}};
        IncomeChart chart(u"ریال"_s);
        chart.setReport(report);
        const auto colors = [&chart] {
            const auto *series = static_cast<const QAbstractBarSeries *>(chart.chart()->series().constFirst());
            QList<QColor> found;
            for (QBarSet *set : series->barSets())
                found << set->color();
            return found;
        };
        const auto expected = [](HostColors::Look look) {
            return QList<QColor>{HostColors::of(HostColors::Role::Chart, look), HostColors::of(HostColors::Role::ChartOther, look)};
        };
        QCOMPARE(colors(), expected(HostColors::Look::Light));
        HostColors::setLook(HostColors::Look::Dark);
        chart.setPalette(HostColors::palette(HostColors::Look::Dark));
        QCOMPARE(colors(), expected(HostColors::Look::Dark));
        QImage paper(400, 300, QImage::Format_RGB32);
        {
            QPainter painter(&paper);
            chart.draw(painter, QRectF(paper.rect()), {});
        }
        HostColors::setLook(HostColors::Look::Light);
        QCOMPARE(paper.pixelColor(0, 0), HostColors::of(HostColors::Role::Surface, HostColors::Look::Light));
    }

    void manyAccountsBecomeOneBarAtTheEnd()
    {
        ComprehensiveReport report;
        for (int i = 0; i < 12; ++i)
            report.income.accounts.append({AccountLevel::Moeen, 410101 + i, u"حساب"_s, {0, 100.0 + i}});
        IncomeChart chart(u"ریال"_s);
        chart.setReport(report);
        QCOMPARE(chart.categories().size(), IncomeBars::mostOfASide + 1);
        QCOMPARE(chart.categories().constLast(), u"سایر درآمدها"_s);
    }

    void reportOnPaper()
    {
        post(110101, 410202, 5000);
        const CDlgAutoFullReport report;
        const ListReport paper = report.listReport();
        QCOMPARE(paper.shownTitle(), u"لیست گزارش جامع"_s);
        QVERIFY(paper.text(u"LeftBottom"_s).startsWith(u"تاریخ چاپ : "_s));
        QCOMPARE(paper.text(u"Count"_s), u"تعداد : 1"_s);
        QCOMPARE(paper.rows().size(), report.list()->count());
    }

    void withoutTheRightItDoesNotOpen()
    {
        m_office.logInAs(u"reza"_s, u"AutomobilContracts"_s, KSecurity::allRights);
        CDlgAutoFullReport::Show(nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"AutoFullReport"_s, KSecurity::Access)});
    }

    void theContractListOpensIt()
    {
        CDlgAutomobilContracts contracts;
        contracts.show();
        bool opened = false;
        TestOffice::whenModal("CDlgAutoFullReport", [&opened](QWidget *window) {
            opened = true;
            window->close();
        });
        QVERIFY(contracts.runCommand(u"fullReport"));
        QVERIFY(opened);
    }
};

static const RegisteredTest<TestCDlgAutoFullReport, KApplication> registeredCDlgAutoFullReport;

#include "TestCDlgAutoFullReport.moc"

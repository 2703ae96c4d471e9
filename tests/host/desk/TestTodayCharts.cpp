// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/TodayCharts.h"

#include "host/today/DayCurves.h"
#include "host/today/MonthBars.h"
#include "host/today/MonthFigures.h"
#include "suite/utility/look/HostColors.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QImage>
#include <QTest>

using namespace Qt::StringLiterals;
using HostColors::Role;

namespace {

const QList<std::pair<QString, int>> halfYear{{u"آذر"_s, 14}, {u"آبان"_s, 12}, {u"مهر"_s, 7}, {u"شهریور"_s, 0}, {u"مرداد"_s, 11}, {u"تیر"_s, 9}};

QImage chartPicture(QWidget &chart)
{
    QImage image(chart.size(), QImage::Format_RGB32);
    image.fill(HostColors::of(Role::Surface));
    chart.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

// Rows of that colour in a column of the picture.
int inked(const QImage &image, int x, Role ink)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        if (image.pixelColor(x, y) == HostColors::of(ink))
            ++count;
    }
    return count;
}

// The highest point of that colour between two columns; the height where there is none.
int highest(const QImage &image, int from, int to, Role ink)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = from; x < to; ++x) {
            if (image.pixelColor(x, y) == HostColors::of(ink))
                return y;
        }
    }
    return image.height();
}

}

// The charts of the first page.
class TestTodayCharts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runningMonthIsAtTheLeftAndStandsOut();
    void barsAreAsHighAsTheirCounts();
    void officeWithoutContractsHasNoBars();
    void daysRunFromTheRight();
    void amountsBelowNothingStayInTheChart();
    void firstDayIsOneDay();
    void figuresAreToldToWhoDoesNotSeeThem();
    void cardOfTheMonthHasThem();
    void daysThatAreNotToldHaveNoChart();
};

void TestTodayCharts::runningMonthIsAtTheLeftAndStandsOut()
{
    MonthBars bars;
    bars.resize(600, 140);
    bars.setMonths(halfYear);
    const QImage image = chartPicture(bars);
    QVERIFY(inked(image, 50, Role::Chart) > 50);
    QCOMPARE(inked(image, 50, Role::ChartPast), 0);
    for (const int middle : {150, 250, 450, 550}) {
        QCOMPARE(inked(image, middle, Role::Chart), 0);
        QVERIFY(inked(image, middle, Role::ChartPast) > 20);
    }
}

void TestTodayCharts::barsAreAsHighAsTheirCounts()
{
    MonthBars bars;
    bars.resize(600, 140);
    bars.setMonths(halfYear);
    const QImage image = chartPicture(bars);
    const int most = inked(image, 50, Role::Chart);
    const QList<int> middles{50, 150, 250, 350, 450, 550};
    for (qsizetype place = 1; place < middles.size(); ++place) {
        const int own = inked(image, middles.at(place), Role::ChartPast);
        const int wanted = most * halfYear.at(place).second / 14;
        QVERIFY2(qAbs(own - wanted) <= 2, qPrintable(u"%1: %2 of %3"_s.arg(place).arg(own).arg(wanted)));
    }
}

void TestTodayCharts::officeWithoutContractsHasNoBars()
{
    MonthBars bars;
    bars.resize(600, 140);
    bars.setMonths({{u"آذر"_s, 0}, {u"آبان"_s, 0}});
    const QImage image = chartPicture(bars);
    QCOMPARE(inked(image, 150, Role::Chart), 0);
    QCOMPARE(inked(image, 450, Role::ChartPast), 0);
    QCOMPARE(bars.accessibleDescription(), u"آذر 0، آبان 0"_s);
}

void TestTodayCharts::daysRunFromTheRight()
{
    DayCurves curves;
    curves.resize(400, 110);
    curves.setDays(u"آذر"_s, {2, 5, 6, 10, 13, 15, 21, 24, 30, 33}, {1, 2, 5, 6, 6, 8, 9, 12, 12, 14});
    const QImage image = chartPicture(curves);
    QVERIFY(highest(image, 0, 20, Role::Chart) < highest(image, 190, 210, Role::Chart));
    QVERIFY(highest(image, 190, 210, Role::Chart) < highest(image, 375, 400, Role::Chart));
    // What it cost lies below what came in.
    QVERIFY(highest(image, 0, 20, Role::ChartOther) > highest(image, 0, 20, Role::Chart));
    QVERIFY(highest(image, 0, 20, Role::ChartOther) < image.height());
}

void TestTodayCharts::amountsBelowNothingStayInTheChart()
{
    DayCurves curves;
    curves.resize(400, 110);
    curves.setDays(u"آذر"_s, {-40, -30, 10}, {0, 0, 0});
    const QImage image = chartPicture(curves);
    for (int y = 95; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QVERIFY2(image.pixelColor(x, y) != HostColors::of(Role::Chart), qPrintable(u"%1, %2"_s.arg(x).arg(y)));
    }
    QVERIFY(highest(image, 0, 20, Role::Chart) < highest(image, 380, 400, Role::Chart));
}

void TestTodayCharts::firstDayIsOneDay()
{
    DayCurves curves;
    curves.resize(400, 110);
    curves.setDays(u"آذر"_s, {5}, {2});
    const QImage image = chartPicture(curves);
    QVERIFY(highest(image, 380, 400, Role::Chart) < image.height());
    QCOMPARE(highest(image, 0, 300, Role::Chart), image.height());
    QCOMPARE(curves.accessibleDescription(), u"تا 1 آذر: درآمد 5، هزینه 2"_s);
}

void TestTodayCharts::figuresAreToldToWhoDoesNotSeeThem()
{
    TodayCharts charts;
    charts.setLayoutDirection(Qt::RightToLeft);
    charts.setMonths(halfYear);
    charts.setDays({1000, 2500000}, {0, 400});
    const auto *bars = charts.findChild<MonthBars *>();
    const auto *curves = charts.findChild<DayCurves *>();
    QCOMPARE(bars->accessibleName(), u"قراردادهای شش ماه"_s);
    QCOMPARE(bars->accessibleDescription(), u"آذر 14، آبان 12، مهر 7، شهریور 0، مرداد 11، تیر 9"_s);
    QCOMPARE(curves->accessibleName(), u"درآمد و هزینه این ماه"_s);
    QCOMPARE(curves->accessibleDescription(), u"تا 2 آذر: درآمد 2,500,000، هزینه 400"_s);
    QCOMPARE(curves->dayText(0), u"1 آذر: درآمد 1,000، هزینه 0"_s);
    charts.setMonths({});
    charts.setDays({}, {});
    QCOMPARE(curves->accessibleDescription(), QString());
    charts.resize(360, 330);
    QVERIFY(!chartPicture(charts).isNull());
}

void TestTodayCharts::daysThatAreNotToldHaveNoChart()
{
    TodayCharts charts;
    charts.setMonths(halfYear);
    charts.setDays({}, {});
    QVERIFY(charts.findChild<DayCurves *>()->isHidden());
    QVERIFY(!charts.findChild<MonthBars *>()->isHidden());
    charts.setDays({1}, {0});
    QVERIFY(!charts.findChild<DayCurves *>()->isHidden());
}

void TestTodayCharts::cardOfTheMonthHasThem()
{
    TodayFigures figures;
    for (qsizetype place = 0; place < halfYear.size(); ++place) {
        figures.months[std::size_t(place)].name = halfYear.at(place).first;
        figures.months[std::size_t(place)].contracts = halfYear.at(place).second;
    }
    figures.income = {10, 20, 30};
    figures.expenses = {1, 2, 3};
    MonthFigures card;
    card.show(figures, u"ریال"_s);
    QCOMPARE(card.findChild<MonthBars *>()->accessibleDescription(), u"آذر 14، آبان 12، مهر 7، شهریور 0، مرداد 11، تیر 9"_s);
    QCOMPARE(card.findChild<DayCurves *>()->accessibleDescription(), u"تا 3 آذر: درآمد 30، هزینه 3"_s);
}

#include "TestTodayCharts.moc"

static const RegisteredTest<TestTodayCharts, QApplication> registeredTodayCharts;

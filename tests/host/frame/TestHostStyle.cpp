// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostStyle.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/HostColors.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A drop-down whose text stays readable while it is disabled.
class ReadableCombo : public QComboBox
{
public:
    ReadableCombo()
    {
        addItem(u"سواری"_s);
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, palette.color(QPalette::Active, QPalette::ButtonText));
        setPalette(palette);
        resize(160, 30);
    }

    // The greatest difference in brightness that is found there against the drop-down's ground.
    int contrastOf(QStyle::SubControl part)
    {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QRect area = style()->subControlRect(QStyle::CC_ComboBox, &option, part, this).adjusted(3, 6, -3, -6);
        const QImage picture = grab().toImage();
        int least = 255;
        int most = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                least = qMin(least, qGray(picture.pixel(x, y)));
                most = qMax(most, qGray(picture.pixel(x, y)));
            }
        }
        return most - least;
    }
};

}

class TestHostStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new HostStyle); }
    void cleanup() { HostColors::setLook(HostColors::Look::Light); }

    void selectedRowHasItsGroundAndABarAtTheLeadingEdge()
    {
        using HostColors::Role;
        QApplication::setPalette(HostColors::palette(HostColors::look()));
        KExtListCtrl list;
        list.setColumns({{.title = u"ردیف"_s, .width = 40}, {.title = u"نام"_s, .width = 100}});
        list.setRows({{1, {{u"1"_s, 1}, {u"مجید"_s}}}, {2, {{u"2"_s, 2}, {u"سمیرا"_s}}}, {3, {{u"3"_s, 3}, {u"حسین"_s}}}});
        list.resize(400, 200);
        list.selectKey(2);
        list.show();
        const QImage picture = list.viewport()->grab().toImage();
        const QRect row = list.visualRect(list.model()->index(1, 0));
        const int y = row.top() + 2;
        QCOMPARE(picture.pixelColor(picture.width() - 2, y), HostColors::of(list.hasFocus() ? Role::Accent : Role::Edge));
        QCOMPARE(picture.pixelColor(picture.width() - 8, y), HostColors::of(Role::Select));
        QCOMPARE(picture.pixelColor(8, y), HostColors::of(Role::Select));
        QCOMPARE(picture.pixelColor(8, list.visualRect(list.model()->index(2, 0)).top() + 2), HostColors::of(Role::Surface));
    }

    // A window's own focus stays where it was while another window has the keys.
    void barIsQuietWhileAnotherWindowHasTheKeys()
    {
        using HostColors::Role;
        QApplication::setPalette(HostColors::palette(HostColors::look()));
        KExtListCtrl list;
        list.setColumns({{.title = u"ردیف"_s, .width = 40}});
        list.setRows({{1, {{u"1"_s, 1}}}});
        list.resize(300, 120);
        list.selectKey(1);
        list.show();
        QApplication::setActiveWindow(&list);
        list.setFocus();
        const auto bar = [&list] {
            const QImage picture = list.viewport()->grab().toImage();
            return picture.pixelColor(picture.width() - 2, list.visualRect(list.model()->index(0, 0)).top() + 2);
        };
        QVERIFY(list.hasFocus());
        QCOMPARE(bar(), HostColors::of(Role::Accent));
        QWidget other;
        other.show();
        QApplication::setActiveWindow(&other);
        QVERIFY(!list.hasFocus());
        QCOMPARE(bar(), HostColors::of(Role::Edge));
    }

    void lyingScrollBarBeginsAtTheRight()
    {
        QScrollBar bar(Qt::Horizontal);
        bar.setLayoutDirection(Qt::RightToLeft);
        bar.setRange(0, 300);
        bar.setPageStep(100);
        bar.resize(200, 12);
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = Qt::Horizontal;
        option.minimum = 0;
        option.maximum = 300;
        option.pageStep = 100;
        option.sliderPosition = 0;
        const auto part = [&](QStyle::SubControl which) { return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, which, &bar); };
        QCOMPARE(part(QStyle::SC_ScrollBarSlider).right(), bar.rect().right());
        QCOMPARE(part(QStyle::SC_ScrollBarAddPage).left(), 0);
        QVERIFY(part(QStyle::SC_ScrollBarSubPage).isEmpty());
        option.sliderPosition = 300;
        QCOMPARE(part(QStyle::SC_ScrollBarSlider).left(), 0);
        QCOMPARE(part(QStyle::SC_ScrollBarSubPage).right(), bar.rect().right());
    }

    void areaThatIsOnlyReadHasNoBorder()
    {
        QPlainTextEdit area;
        area.resize(120, 60);
        const auto edge = [&] { return area.grab().toImage().pixelColor(60, 0); };
        QCOMPARE(edge(), HostColors::of(HostColors::Role::Edge));
        area.setReadOnly(true);
        QVERIFY(edge() != HostColors::of(HostColors::Role::Edge));
    }

    void dropDownThatOnlyShowsItsValueHasAGreyArrowAndAReadableText_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void dropDownThatOnlyShowsItsValueHasAGreyArrowAndAReadableText()
    {
        QFETCH(bool, dark);
        HostColors::setLook(dark ? HostColors::Look::Dark : HostColors::Look::Light);
        QApplication::setPalette(HostColors::palette(HostColors::look()));
        ReadableCombo combo;
        const int arrow = combo.contrastOf(QStyle::SC_ComboBoxArrow);
        const int text = combo.contrastOf(QStyle::SC_ComboBoxEditField);
        QVERIFY(arrow > 60);
        combo.setEnabled(false);
        QVERIFY2(combo.contrastOf(QStyle::SC_ComboBoxArrow) < arrow * 2 / 3, "the arrow");
        QVERIFY2(combo.contrastOf(QStyle::SC_ComboBoxEditField) > text * 4 / 5, "the text");
    }
};

static const RegisteredTest<TestHostStyle, QApplication> registeredHostStyle;
#include "TestHostStyle.moc"

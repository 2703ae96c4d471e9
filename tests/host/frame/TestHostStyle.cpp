// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostStyle.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QStyleOptionComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QPalette paletteOf(bool dark)
{
    QPalette palette(dark ? QColor(50, 50, 50) : QColor(240, 240, 240));
    palette.setColor(QPalette::ButtonText, dark ? Qt::white : Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(128, 128, 128));
    return palette;
}

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

    void dropDownThatOnlyShowsItsValueHasAGreyArrowAndAReadableText_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void dropDownThatOnlyShowsItsValueHasAGreyArrowAndAReadableText()
    {
        QFETCH(bool, dark);
        QApplication::setPalette(paletteOf(dark));
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

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/FittedFont.h"

#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QTest>

class TestFittedFont : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFontThatFitsStaysAsItIs()
    {
        const QFont base = QApplication::font();
        QCOMPARE(FittedFont::of(base, QFontMetricsF(base).height() + 1), base);
    }

    void oneThatDoesNotIsAsLargeAsFits()
    {
        QFont base = QApplication::font();
        base.setPixelSize(20);
        const double room = QFontMetricsF(base).height() * 0.7;
        QFont fitting = FittedFont::of(base, room);
        QVERIFY(QFontMetricsF(fitting).height() <= room);
        fitting.setPixelSize(QFontInfo(fitting).pixelSize() + 1);
        QVERIFY(QFontMetricsF(fitting).height() > room);
    }

    void itStaysReadable()
    {
        QVERIFY(QFontInfo(FittedFont::of(QApplication::font(), 1)).pixelSize() >= 7);
    }
};

static const RegisteredTest<TestFittedFont, QApplication> registeredFittedFont;
#include "TestFittedFont.moc"

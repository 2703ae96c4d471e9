// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/PlateKind.h"

#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestPlateKind : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kindOfAText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("kind");
        const auto row = [](const char *name, const QString &text, PlateKind::Kind kind) { QTest::newRow(name) << text << int(kind); };
        row("nothing", {}, PlateKind::Common);
        row("a plate", u"12ب34567"_s, PlateKind::Common);
        row("one that is being typed", u"12 ب"_s, PlateKind::Common);
        row("free zone", u"منطقه آزاد 12345"_s, PlateKind::FreeZone);
        row("free zone, Arabic letters", u"منطقه  آزاد  كيش 12345"_s, PlateKind::FreeZone);
        row("passage", u"گذر موقت 77"_s, PlateKind::Temporary);
        row("motorcycle", u"موتور 123-45678"_s, PlateKind::Motorcycle);
        row("the word inside another", u"موتوری 12"_s, PlateKind::Free);
        row("old", u"قدیمی تهران 12 - 12345"_s, PlateKind::Old);
        row("anything", u"تهران 12 - 12345"_s, PlateKind::Free);
    }

    void kindOfAText()
    {
        QFETCH(QString, text);
        QTEST(int(PlateKind::of(text)), "kind");
    }

    void choosingAKind_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("result");
        const auto row = [](const char *name, PlateKind::Kind kind, const QString &text, const QString &result) {
            QTest::newRow(name) << int(kind) << text << result;
        };
        row("word in front", PlateKind::Motorcycle, u"123-45678"_s, u"موتور 123-45678"_s);
        row("word exchanged", PlateKind::FreeZone, u"موتور 12345"_s, u"منطقه آزاد 12345"_s);
        row("word taken off", PlateKind::Free, u"قدیمی تهران 12"_s, u"تهران 12"_s);
        row("back to a plate", PlateKind::Common, u"گذر موقت 12ب34567"_s, u"12 ب 345 ایران 67"_s);
        row("nothing typed yet", PlateKind::Temporary, {}, u"گذر موقت "_s);
        row("the same again", PlateKind::Old, u"قدیمی 5"_s, u"قدیمی 5"_s);
    }

    void choosingAKind()
    {
        QFETCH(int, kind);
        QFETCH(QString, text);
        QTEST(PlateKind::as(PlateKind::Kind(kind), text), "result");
    }

    void everyKindHasAName()
    {
        QCOMPARE(PlateKind::names().size(), int(PlateKind::Count));
        QVERIFY(!PlateKind::names().contains(QString()));
    }
};

static const RegisteredTest<TestPlateKind> registeredPlateKind;
#include "TestPlateKind.moc"

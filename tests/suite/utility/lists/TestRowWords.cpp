// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/RowWords.h"

#include <QCoreApplication>
#include <QTest>

#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestRowWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRowIsFoundByWordsOfItsCells_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("found");
        QTest::newRow("nothing") << u""_s << true;
        QTest::newRow("only marks") << u" / - "_s << true;
        QTest::newRow("Arabic yeh and kaf") << u"كشاورزي"_s << true;
        QTest::newRow("Persian digits") << u"۱۴۰۵/۰۸"_s << true;
        QTest::newRow("without separators") << u"14050828"_s << true;
        QTest::newRow("an amount without its commas") << u"71240"_s << true;
        QTest::newRow("an amount with them") << u"۷۱,۲۴۰"_s << true;
        QTest::newRow("in another order") << u"پژو مجيد"_s << true;
        QTest::newRow("without the joiner") << u"نقره ای"_s << true;
        QTest::newRow("joined") << u"نقرهای"_s << true;
        QTest::newRow("without its blank") << u"مجیدکشاورزی"_s << true;
        QTest::newRow("Latin in another case") << u"nas1"_s << true;
        QTest::newRow("one word is missing") << u"پژو سمند"_s << false;
        QTest::newRow("across two cells") << u"کشاورزیپژو"_s << false;
    }

    void aRowIsFoundByWordsOfItsCells()
    {
        QFETCH(QString, typed);
        QFETCH(bool, found);
        QString key;
        for (const QString &cell : {u"مجید کشاورزی"_s, u"پژو نقره‌ای"_s, u"1405/08/28"_s, u"71,240,000"_s, u"NAS1"_s})
            key += RowWords::key(cell) + RowWords::cellEnd;
        QCOMPARE(RowWords::areIn(RowWords::of(typed), key), found);
    }
};

static const RegisteredTest<TestRowWords, QCoreApplication> registeredRowWords;
#include "TestRowWords.moc"

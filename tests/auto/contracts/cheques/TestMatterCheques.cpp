// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cheques/MatterCheques.h"

#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestMatterCheques : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsSayTheCheques_data()
    {
        using Parts = QList<MatterCheques::Part>;
        QTest::addColumn<Parts>("cheques");
        QTest::addColumn<QString>("texts");
        QTest::newRow("none") << Parts() << u"/////"_s;
        QTest::newRow("one") << Parts{{u"77"_s, u"ملت"_s, u"ونک"_s, u"6510"_s, 1500}} << u"1/1,500/77/ملت/ونک/6510"_s;
        QTest::newRow("two of one bank") << Parts{{u"77"_s, u"ملت"_s, u"ونک"_s, u"6510"_s, 1500}, {u"78"_s, u"ملت"_s, u"ونک"_s, u"6510"_s, 500}}
                                         << u"2/2,000/77، 78/ملت/ونک/6510"_s;
        QTest::newRow("a book") << Parts{{u"098"_s, {}, {}, {}, 1}, {u"099"_s, {}, {}, {}, 1}, {u"100"_s, {}, {}, {}, 1}, {u"300"_s, {}, {}, {}, 1}}
                                << u"4/4/098 تا 100، 300///"_s;
        QTest::newRow("two banks") << Parts{{u"1"_s, u"ملت"_s, {}, {}, 1}, {u"9"_s, u"ملی"_s, {}, {}, 2}} << u"2/3/1، 9/ملت، ملی//"_s;
        QTest::newRow("without a number") << Parts{{{}, u"ملت"_s, {}, {}, 5}} << u"1/5//ملت//"_s;
    }

    void fieldsSayTheCheques()
    {
        QFETCH(QList<MatterCheques::Part>, cheques);
        QStringList columns;
        QStringList texts;
        for (const MatterCheques::FieldText &field : MatterCheques::texts(cheques)) {
            columns.append(field.column);
            texts.append(field.text);
        }
        QTEST(texts.join(u'/'), "texts");
        QCOMPARE(columns, (QStringList{u"sCheckCount"_s, u"dAgreeAmount"_s, u"sCheckNum"_s, u"sBankName"_s, u"sBranchName"_s, u"sBranchCode"_s}));
    }
};

static const RegisteredTest<TestMatterCheques> registeredMatterCheques;
#include "TestMatterCheques.moc"

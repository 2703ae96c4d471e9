// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/PlanSheet.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/PaperProof.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QtTest>

namespace {

PlanSheet::Source plan(int count)
{
    PlanSheet::Source source{.number = 1233, .date = QDate(2026, 11, 20), .office = u"نمایشگاه آریا"_s, .first = u"رضا کریمی"_s, .second = u"سید محمدحسین طباطبایی‌نژاد اصفهانی رودباری"_s, .car = u"پژو 207"_s, .plate = u"12 ب 345 ایران 67"_s, .chassis = u"NAAP41FE8BJ123456"_s, .moneyUnit = u"ریال"_s};
    for (int i = 0; i < count; ++i) {
        StoredInstalments::Row row;
        row.number = i + 1;
        row.date = QDateTime(QDate(2026, 12, 21).addMonths(i), QTime(0, 0), Qt::UTC);
        row.due = 123456789 + i;
        source.rows.push_back(row);
    }
    return source;
}

}

class TestPlanSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageSaysWhatIsSigned_data();
    void pageSaysWhatIsSigned();
    void receivedIsSaidWhereThereIsAny();
};

void TestPlanSheet::pageSaysWhatIsSigned_data()
{
    QTest::addColumn<SheetPages::Size>("size");
    QTest::addColumn<int>("count");
    QTest::newRow("A5") << SheetPages::Size::A5 << 3;
    QTest::newRow("A5 over pages") << SheetPages::Size::A5 << 60;
    QTest::newRow("A4") << SheetPages::Size::A4 << 3;
    QTest::newRow("A4 over pages") << SheetPages::Size::A4 << 60;
}

void TestPlanSheet::pageSaysWhatIsSigned()
{
    QFETCH(SheetPages::Size, size);
    QFETCH(int, count);
    const PlanSheet::Source source = plan(count);
    const PaperProof proof(PlanSheet::of(source), size, {.name = source.office, .address = {}, .telephone = {}, .logo = {}});
    QCOMPARE(proof.pageCount() > 1, count > 3);
    const QString text = proof.text();
    double total = 0;
    for (const StoredInstalments::Row &row : source.rows) {
        QVERIFY2(text.contains(DToMoney(row.due)), qPrintable(text));
        QVERIFY2(text.contains(shamsiText(row.date.date())), qPrintable(text));
        total += row.due;
    }
    for (const QString &word : {u"1233"_s, u"1405/08/29"_s, u"آریا"_s, u"کریمی"_s, u"اصفهانی"_s, u"207"_s, u"345"_s, u"NAAP41FE8BJ123456"_s, u"فروشنده"_s, u"خریدار"_s, u"نمایشگاه"_s, DToMoney(total), u"میلیون"_s})
        QVERIFY2(text.contains(word), qPrintable(word + u"\n"_s + text));
    // The three of them sign what they have read to its end.
    QCOMPARE(proof.text(proof.pageCount()).count(u"امضای"_s), 3);
}

void TestPlanSheet::receivedIsSaidWhereThereIsAny()
{
    PlanSheet::Source source = plan(3);
    QVERIFY(!PaperProof(PlanSheet::of(source), SheetPages::Size::A4).text().contains(u"دریافت"_s));
    source.rows.front().received = 55000;
    const QString text = PaperProof(PlanSheet::of(source), SheetPages::Size::A4).text();
    QVERIFY2(text.contains(u"دریافت"_s) && text.contains(u"55,000"_s), qPrintable(text));
}

static const RegisteredTest<TestPlanSheet, QApplication> registeredPlanSheet;
#include "TestPlanSheet.moc"

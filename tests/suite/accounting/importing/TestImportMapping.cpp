// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportMapping.h"
#include "suite/accounting/importing/ImportParsers.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<ImportField> mappedFields()
{
    return {
        {.key = u"sName"_s, .title = u"نام"_s, .words = {u"first name"_s}, .parse = ImportParsers::text()},
        {.key = u"sFamily"_s, .title = u"نام خانوادگی"_s, .words = {u"فامیل"_s}, .parse = ImportParsers::text()},
        {.key = u"dAmount"_s, .title = u"مبلغ"_s, .words = {u"قیمت"_s, u"نام"_s}, .parse = ImportParsers::money()},
    };
}

Sheet sheetOf(const QList<QStringList> &rows)
{
    Sheet sheet;
    for (const QStringList &row : rows) {
        QList<SheetCell> cells;
        for (const QString &text : row)
            cells.append({text});
        sheet.rows.append(cells);
    }
    return sheet;
}

QString said(const ImportMapping::Columns &columns)
{
    QStringList parts;
    for (const ImportField &field : mappedFields())
        parts.append(QString::number(columns.value(field.key, -1)));
    return parts.join(u',');
}

}

class TestImportMapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matches_data()
    {
        QTest::addColumn<QStringList>("titles");
        QTest::addColumn<QString>("columns");
        QTest::newRow("by title") << QStringList{u"مبلغ"_s, u"نام"_s, u"نام خانوادگی"_s} << u"1,2,0"_s;
        QTest::newRow("other spelling") << QStringList{u"نام خانوادگي :"_s, u" نام * "_s} << u"1,0,-1"_s;
        QTest::newRow("other words") << QStringList{u"First Name"_s, u"فامیل"_s, u"قیمت"_s} << u"0,1,2"_s;
        QTest::newRow("by column") << QStringList{u"sFamily"_s, u"sname"_s} << u"1,0,-1"_s;
        QTest::newRow("twice the same") << QStringList{u"نام"_s, u"نام"_s} << u"0,-1,-1"_s;
        QTest::newRow("nothing known") << QStringList{u"؟"_s, QString()} << u"-1,-1,-1"_s;
    }
    void matches()
    {
        QFETCH(QStringList, titles);
        QTEST(said(ImportMapping::matched(mappedFields(), titles)), "columns");
    }

    void titlesAreFoundBelowALetterhead()
    {
        const Sheet sheet = sheetOf({{u"گزارش اشخاص"_s}, {}, {u"ردیف"_s, u"نام"_s, u"قیمت"_s}, {u"1"_s, u"علی"_s, u"5"_s}});
        QCOMPARE(ImportMapping::titleRow(sheet, mappedFields()), 2);
        QCOMPARE(ImportMapping::titleRow(sheetOf({{}, {u"a"_s}}), mappedFields()), 1);
        QCOMPARE(ImportMapping::titleRow({}, mappedFields()), 0);
    }

    void whatWasKeptServesAnotherOrder()
    {
        const QString kept = ImportMapping::toText({{u"sName"_s, 1}, {u"dAmount"_s, 0}}, {u"ارزش"_s, u"مشتری"_s});
        QCOMPARE(said(ImportMapping::fromText(kept, {u"مشتري"_s, u"دیگر"_s, u"ارزش"_s})), u"0,-1,2"_s);
        QCOMPARE(said(ImportMapping::fromText(kept, {u"دیگر"_s})), u"-1,-1,-1"_s);
        QCOMPARE(said(ImportMapping::fromText(u"{broken"_s, {u"ارزش"_s})), u"-1,-1,-1"_s);
    }

    void rowsKeepTheirNumbers()
    {
        const Sheet sheet = sheetOf({{u"نام"_s, u"مبلغ"_s}, {u"علی"_s, u"5"_s}, {}, {u"-"_s, u" "_s}, {u"زهرا"_s, u"پنج"_s}});
        const QList<ImportRow> rows = ImportMapping::rows(sheet, 0, mappedFields(), {{u"sName"_s, 0}, {u"dAmount"_s, 1}});
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.at(0).number, 2);
        QCOMPARE(rows.at(0).values.value(u"dAmount"_s), 5.0);
        QVERIFY(rows.at(0).isWritten());
        QCOMPARE(rows.at(1).number, 5);
        QCOMPARE(rows.at(1).problems.size(), 1);
        QCOMPARE(rows.at(1).problems.constFirst().field, u"مبلغ"_s);
        QVERIFY(!rows.at(1).isWritten());
    }
};

static const RegisteredTest<TestImportMapping, QCoreApplication> registeredImportMapping;
#include "TestImportMapping.moc"

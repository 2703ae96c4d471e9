// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/PaperProof.h"
#include "suite/accounting/books/DocumentSheet.h"
#include "suite/accounting/invoices/InvoiceSheet.h"
#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QtTest>

namespace {

const QString longName = u"سید محمدحسین طباطبایی‌نژاد اصفهانی رودباری"_s;

// Of so many lines, each of 123,456,789.
InvoiceSheet::Source longInvoice(int lines)
{
    InvoiceSheet::Source source{.person = longName, .nationalCode = u"0012345679"_s, .docNum = 31, .user = u"مدیر"_s, .moneyUnit = u"ریال"_s};
    source.invoice.num = 42;
    source.invoice.date = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
    for (int i = 0; i < lines; ++i) {
        source.invoice.lines.append({.desc = u"کارشناسی بدنه و موتور خودروی شماره %1 با تنظیم و تعویض قطعه‌های مصرفی"_s.arg(i + 1), .count = 1, .price = 123456789});
        source.services.append(QString());
    }
    return source;
}

DocumentSheet::Source longDocument(int rows)
{
    DocumentSheet::Source source{.num = 7, .fiscalYear = 1405, .date = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC), .kind = u"دستی"_s, .desc = u"سند اصلاحی"_s, .user = u"مدیر"_s, .moneyUnit = u"ریال"_s};
    for (int i = 0; i < rows; ++i) {
        DocumentRows::Named named;
        named.accountName = u"حساب شماره %1"_s.arg(i + 1);
        named.row.account = 110100 + i;
        (i % 2 == 0 ? named.row.debit : named.row.credit) = 987654321;
        source.rows.append(named);
    }
    return source;
}

// A paragraph each, which other programs read back as it is.
QString numbered(int lines)
{
    QStringList all;
    for (int i = 0; i < lines; ++i)
        all.append(u"N%1N"_s.arg(i));
    return all.join(u'\n');
}

PaperSheet letterOf(const QString &body)
{
    PaperSheet letter;
    letter.title = u"نامه"_s;
    letter.isLetter = true;
    letter.opening = u"جناب آقای علی رضایی"_s;
    letter.body = body;
    letter.signatures = {{u"امضا"_s, u"مدیر"_s}};
    return letter;
}

void sizes()
{
    QTest::addColumn<SheetPages::Size>("size");
    QTest::newRow("A5") << SheetPages::Size::A5;
    QTest::newRow("A4") << SheetPages::Size::A4;
}

// What the foot of a page says, in no order: readers of PDFs turn a line from right to left about.
QStringList pageNumbers(const QString &text)
{
    QStringList numbers;
    for (const QString &line : text.split(u'\n')) {
        if (!line.contains(u"صفحه"_s) || !line.contains(u"از"_s) || line.contains(u"نقل"_s))
            continue;
        // The foot's other half names the document.
        static const QRegularExpression count(u"(\\d+)\\s*از\\s*(\\d+)"_s);
        const QRegularExpressionMatch match = count.match(line);
        numbers = {match.captured(1), match.captured(2)};
    }
    return numbers;
}

}

class TestSheetPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableGoesOnWithItsSums_data();
    void tableGoesOnWithItsSums();
    void nothingLeavesThePage_data();
    void nothingLeavesThePage();
    void signaturesHaveTextAboveThem_data();
    void signaturesHaveTextAboveThem();
    void paragraphsArePartedInTwoLinesAtLeast();
    void noWordIsLost_data();
    void noWordIsLost();
    void whatIsEmptyLeavesNoLabel();
    void returnSaysWhatItReturns();
    void voidIsSaidOnEveryPage();
    void squareIsReadByOthers();
    void tooLongASquareIsNone();
};

void TestSheetPages::tableGoesOnWithItsSums_data()
{
    sizes();
}

void TestSheetPages::tableGoesOnWithItsSums()
{
    QFETCH(SheetPages::Size, size);
    // So that rows stand on the last page, too.
    const int lines = size == SheetPages::Size::A4 ? 85 : 80;
    const PaperProof proof(InvoiceSheet::of(longInvoice(lines)), size, {.name = u"نمایشگاه آریا"_s, .address = u"تهران، خیابان شریعتی"_s, .telephone = u"22334455"_s, .logo = {}});
    QVERIFY(proof.pageCount() > 1);
    const QString first = proof.text(1), last = proof.text(proof.pageCount());
    for (const QString &word : {u"آریا"_s, u"22334455"_s, u"0012345679"_s, u"طباطبایینژاد"_s, u"42"_s, u"1405/08/29"_s, u"بعد"_s})
        QVERIFY2(first.contains(word), qPrintable(word + u"\n"_s + first));
    for (const QString &word : {DToMoney(123456789.0 * lines, 0), u"پرداخت"_s, u"میلیارد"_s, u"قبل"_s, u"امضای"_s})
        QVERIFY2(last.contains(word), qPrintable(word + u"\n"_s + last));
    // What is carried forward is a sum of whole lines, the same at the foot of a page and at the head of the next.
    const auto carried = [&](const QString &text, const QString &word) {
        for (const QString &line : text.split(u'\n')) {
            if (line.contains(u"نقل"_s) && line.contains(word))
                return QRegularExpression(u"[\\d,]{9,}"_s).match(line).captured();
        }
        return QString();
    };
    for (int page = 1; page < proof.pageCount(); ++page) {
        const QString at = carried(proof.text(page), u"بعد"_s);
        double sum = 0;
        QVERIFY2(parseMoney(at, &sum), qPrintable(proof.text(page)));
        QCOMPARE(std::fmod(sum, 123456789.0), 0.0);
        QVERIFY(sum > 0);
        QCOMPARE(carried(proof.text(page + 1), u"قبل"_s), at);
    }
    for (int page = 1; page <= proof.pageCount(); ++page)
        QCOMPARE(pageNumbers(proof.text(page)), (QStringList{QString::number(page), QString::number(proof.pageCount())}));
    // No line is lost where a page ends.
    QCOMPARE(proof.text().count(u"کارشناسی"_s), lines);
}

void TestSheetPages::nothingLeavesThePage_data()
{
    QTest::addColumn<PaperSheet>("sheet");
    PaperSheet letter;
    letter.title = u"نامه"_s;
    letter.body = u"به آگاهی می‌رساند خودروی مورد نظر شما آماده تحویل است. "_s.repeated(150);
    letter.signatures = {{u"مدیر"_s, longName}};
    QTest::newRow("invoice") << InvoiceSheet::of(longInvoice(3));
    QTest::newRow("long invoice") << InvoiceSheet::of(longInvoice(80));
    QTest::newRow("document") << DocumentSheet::of(longDocument(60));
    QTest::newRow("nothing") << PaperSheet();
    QTest::newRow("text over pages") << letter;
}

void TestSheetPages::nothingLeavesThePage()
{
    QFETCH(PaperSheet, sheet);
    for (const SheetPages::Size size : {SheetPages::Size::A5, SheetPages::Size::A4}) {
        const PaperProof proof(sheet, size, {.name = longName, .address = longName.repeated(6), .telephone = u"22334455"_s, .logo = {}});
        for (int page = 0; page < proof.pageCount(); ++page) {
            const QRectF ink = proof.inked(page);
            QVERIFY2(QRectF(0.045, 0.03, 0.91, 0.94).contains(ink), qPrintable(u"page %1: %2,%3 %4x%5"_s.arg(page).arg(ink.x()).arg(ink.y()).arg(ink.width()).arg(ink.height())));
        }
    }
}

void TestSheetPages::signaturesHaveTextAboveThem_data()
{
    sizes();
}

// Of each length around the end of a page: nobody signs a page that says nothing.
void TestSheetPages::signaturesHaveTextAboveThem()
{
    QFETCH(SheetPages::Size, size);
    int turns = 0, before = 1;
    for (int lines = 1; lines < 130; ++lines) {
        const PaperSheet sheet = letterOf(numbered(lines));
        const int pages = SheetPages({sheet}, {}, size).pageCount();
        if (pages == before)
            continue;
        ++turns;
        QCOMPARE(pages, before + 1);
        const PaperProof proof(sheet, size);
        const QString last = proof.text(pages);
        QVERIFY2(last.contains(u"مدیر"_s), qPrintable(last));
        QVERIFY2(last.count(QRegularExpression(u"N\\d+N"_s)) >= 2, qPrintable(last));
        QCOMPARE(proof.text().count(QRegularExpression(u"N\\d+N"_s)), lines);
        before = pages;
    }
    QVERIFY(turns >= 1);
}

// Three lines each, so that a page would end within one of them.
void TestSheetPages::paragraphsArePartedInTwoLinesAtLeast()
{
    const QString four = u"خودروی یادشده پس از کارشناسی و بازدید فنی تحویل گردید و هیچ یک از دو طرف ادعایی ندارند. "_s.repeated(2);
    for (int shift = 0; shift < 4; ++shift) {
        QString body = numbered(shift + 1) + u'\n';
        for (int i = 0; i < 25; ++i)
            body += u"A%1A "_s.arg(i) + four + u"B%1B\n"_s.arg(i);
        const PaperProof proof(letterOf(body), SheetPages::Size::A5);
        QVERIFY(proof.pageCount() > 1);
        for (int page = 1; page < proof.pageCount(); ++page) {
            QStringList lines;
            for (const QString &line : proof.text(page).split(u'\n')) {
                if (!line.trimmed().isEmpty() && !line.contains(u"صفحه"_s))
                    lines.append(line);
            }
            // Its last line alone would stand at the head of the next page, its first one alone here.
            QVERIFY2(!lines.constLast().contains(QRegularExpression(u"A\\d+A"_s)), qPrintable(proof.text(page)));
            const QStringList next = proof.text(page + 1).split(u'\n', Qt::SkipEmptyParts);
            QVERIFY2(!next.value(1).contains(QRegularExpression(u"B\\d+B"_s)) || next.value(1).contains(QRegularExpression(u"A\\d+A"_s)), qPrintable(proof.text(page + 1)));
        }
    }
}

void TestSheetPages::noWordIsLost_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QStringList>("words");
    QStringList many;
    for (int i = 0; i < 500; ++i)
        many.append(u"N%1N"_s.arg(i));
    QTest::newRow("one line") << u"سلام N0N"_s << QStringList{u"N0N"_s};
    QTest::newRow("500 lines") << numbered(500) << many;
    QTest::newRow("very long word") << u"آغاز "_s + QString(900, u'ب') + u" پایان N7N"_s << QStringList{u"آغاز"_s, u"پایان"_s, u"N7N"_s};
    QTest::newRow("only blank lines") << u"\n\n\n"_s << QStringList{u"مدیر"_s};
}

void TestSheetPages::noWordIsLost()
{
    QFETCH(QString, body);
    QFETCH(QStringList, words);
    for (const SheetPages::Size size : {SheetPages::Size::A5, SheetPages::Size::A4}) {
        const PaperProof proof(letterOf(body), size);
        const QString text = proof.text();
        qsizetype at = 0;
        for (const QString &word : std::as_const(words)) {
            at = text.indexOf(word, at);
            QVERIFY2(at >= 0, qPrintable(word + u"\n"_s + text));
        }
        for (int page = 0; page < proof.pageCount(); ++page)
            QVERIFY(QRectF(0.045, 0.03, 0.91, 0.94).contains(proof.inked(page)));
        for (int page = 1; page <= proof.pageCount(); ++page) {
            // Among Latin letters a reader turns the foot about.
            const QStringList numbers = pageNumbers(proof.text(page));
            QVERIFY2(numbers.contains(QString::number(page)) && numbers.contains(QString::number(proof.pageCount())), qPrintable(proof.text(page)));
        }
    }
}

void TestSheetPages::whatIsEmptyLeavesNoLabel()
{
    InvoiceSheet::Source source = longInvoice(1);
    source.nationalCode.clear();
    const QString text = PaperProof(InvoiceSheet::of(source), SheetPages::Size::A4).text();
    for (const QString &word : {u"ملی"_s, u"تخفیف"_s, u"مالیات"_s, u"عوارض"_s, u"تلفن"_s})
        QVERIFY2(!text.contains(word), qPrintable(word + u"\n"_s + text));
    source.invoice.discount = 1000;
    QVERIFY(PaperProof(InvoiceSheet::of(source), SheetPages::Size::A4).text().contains(u"تخفیف"_s));
}

void TestSheetPages::returnSaysWhatItReturns()
{
    InvoiceSheet::Source source = longInvoice(1);
    source.invoice.returned = true;
    QCOMPARE(InvoiceSheet::of(source).title, u"فاکتور برگشت از فروش"_s);
    QVERIFY(PaperProof(InvoiceSheet::of(source), SheetPages::Size::A5).text().contains(u"فروخته"_s));
    source.invoice.type = Invoice::purchase;
    QCOMPARE(InvoiceSheet::of(source).title, u"فاکتور برگشت از خرید"_s);
}

void TestSheetPages::voidIsSaidOnEveryPage()
{
    InvoiceSheet::Source source = longInvoice(80);
    QCOMPARE(PaperProof(InvoiceSheet::of(source), SheetPages::Size::A4).reddish(0), 0);
    source.isVoid = true;
    const PaperProof proof(InvoiceSheet::of(source), SheetPages::Size::A4);
    QVERIFY(proof.pageCount() > 1);
    for (int page = 0; page < proof.pageCount(); ++page)
        QVERIFY(proof.reddish(page) > 500);
}

void TestSheetPages::squareIsReadByOthers()
{
    for (const SheetPages::Size size : {SheetPages::Size::A5, SheetPages::Size::A4}) {
        PaperSheet sheet;
        sheet.title = u"برگه قیمت"_s;
        QCOMPARE(PaperProof(sheet, size).scanned(), QString());
        sheet.scanCode = u"CAR-1234"_s;
        QCOMPARE(PaperProof(sheet, size).scanned(), u"CAR-1234"_s);
    }
}

void TestSheetPages::tooLongASquareIsNone()
{
    PaperSheet sheet;
    sheet.title = u"برگه قیمت"_s;
    sheet.scanCode = QString(5000, u'A');
    QCOMPARE(PaperProof(sheet, SheetPages::Size::A4).scanned(), QString());
}

static const RegisteredTest<TestSheetPages, QApplication> registeredSheetPages;
#include "TestSheetPages.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddFactor.h"
#include "host/books/CDlgDocuments.h"
#include "host/books/CDlgFactors.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/books/DocumentPaper.h"
#include "suite/accounting/books/DocumentSheet.h"
#include "suite/accounting/invoices/InvoicePaper.h"
#include "suite/accounting/invoices/InvoiceSheet.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "tests/host/books/BooksOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/PaperProof.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

namespace {

QString factOf(const QList<PaperSheet::Fact> &facts, const QString &label)
{
    for (const PaperSheet::Fact &fact : facts) {
        if (fact.label == label)
            return fact.text;
    }
    return {};
}

double sumOf(const PaperSheet &sheet, const QString &title)
{
    double sum = 0;
    for (qsizetype column = 0; column < sheet.columns.size(); ++column) {
        for (const QList<PaperSheet::Cell> &row : sheet.rows)
            sum += sheet.columns.at(column).title == title ? row.at(column).amount : 0;
    }
    return sum;
}

// The cells of these columns, a line for each row.
QString cellsOf(const PaperSheet &sheet, const QList<int> &columns)
{
    QStringList lines;
    for (const QList<PaperSheet::Cell> &row : sheet.rows) {
        QStringList cells;
        for (const int column : columns)
            cells.append(row.at(column).text);
        lines.append(cells.join(u'|'));
    }
    return lines.join(u'\n');
}

}

// What the papers of the books say, against what the tables say by themselves; who is shown them, and by which button.
class TestBookPapers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.open(); }
    void invoiceSaysWhatTheTablesSay_data();
    void invoiceSaysWhatTheTablesSay();
    void invoiceAsksForWhatTheBooksCharge();
    void voidInvoiceSaysSo();
    void documentSaysWhatTheTablesSay_data();
    void documentSaysWhatTheTablesSay();
    void voidDocumentSaysSo();
    void goneOnesHaveNoPaper();
    void rights_data();
    void rights();
    void buttons_data();
    void buttons();

private:
    QString value(const QString &statement) { return m_office.database.value(statement); }
    // What the paper that the work opens says, as its PDF is read.
    QString paperOf(const std::function<void()> &work) const;

    BooksOffice m_office;
};

QString TestBookPapers::paperOf(const std::function<void()> &work) const
{
    const QString path = m_office.settings.filePath(u"paper.pdf"_s);
    QString text;
    Hand::inNextWindow([&](QDialog *dialog) {
        if (auto *paper = qobject_cast<CDlgPaper *>(dialog)) {
            paper->savePdf(path);
            text = PaperProof::textOf(path);
        }
    });
    work();
    return text;
}

void TestBookPapers::invoiceSaysWhatTheTablesSay_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("returned");
    QTest::addColumn<QString>("title");
    QTest::newRow("sale") << int(Invoice::sale) << false << u"فاکتور فروش"_s;
    QTest::newRow("purchase") << int(CTblFactors::purchase) << false << u"فاکتور خرید"_s;
    QTest::newRow("sale returned") << int(Invoice::sale) << true << u"فاکتور برگشت از فروش"_s;
    QTest::newRow("purchase returned") << int(CTblFactors::purchase) << true << u"فاکتور برگشت از خرید"_s;
}

void TestBookPapers::invoiceSaysWhatTheTablesSay()
{
    QFETCH(int, type);
    QFETCH(bool, returned);
    QFETCH(QString, title);
    m_office.database.run(u"UPDATE Persons SET sNationalCode='0012345679' WHERE iID=2"_s);
    Invoice invoice = m_office.invoice(type, BooksOffice::pars);
    invoice.returned = returned;
    invoice.lines.append({m_office.transfer, u"فوری"_s, 2.5, 1234});
    const int num = InvoicePosting::save(invoice).num;
    InvoicePosting::save(m_office.invoice());
    const std::optional<PaperSheet> sheet = InvoiceSheet::read(num);
    QVERIFY(sheet);
    QCOMPARE(sheet->title, title);
    QCOMPARE(factOf(sheet->marks, u"شماره :"_s), QString::number(num));
    QCOMPARE(factOf(sheet->marks, u"تاریخ :"_s), u"1405/02/03"_s);
    QCOMPARE(factOf(sheet->facts, type == Invoice::sale ? u"خریدار :"_s : u"فروشنده :"_s), u"پارس خودرو"_s);
    QCOMPARE(factOf(sheet->facts, u"کد ملی :"_s), u"0012345679"_s);
    QCOMPARE(cellsOf(*sheet, {1, 3, 4}), value(u"SELECT GROUP_CONCAT(CONCAT_WS('|',CONCAT_WS(' - ',NULLIF(s.sName,''),NULLIF(f.sDesc,'')),FORMAT(f.dPrice,0),FORMAT(f.dCount*f.dPrice,0)) ORDER BY f.iID SEPARATOR '\\n') FROM FactorStuffs f LEFT JOIN Services s ON s.iID=f.iServiceID WHERE f.iFactorNum=%1"_s.arg(num)));
    QCOMPARE(cellsOf(*sheet, {0, 2}), u"1|2\n2|1\n3|2.5"_s);
    QCOMPARE(sumOf(*sheet, u"مبلغ"_s), value(u"SELECT SUM(dCount*dPrice) FROM FactorStuffs WHERE iFactorNum=%1"_s.arg(num)).toDouble());
    for (const auto &[label, column] : {std::pair{u"تخفیف :"_s, u"dDiscount"_s}, {u"مالیات :"_s, u"dTax"_s}, {u"عوارض :"_s, u"dImposition"_s}})
        QCOMPARE(factOf(sheet->totals, label), value(u"SELECT CONCAT(FORMAT(%1,0),' ریال') FROM Factors WHERE iID=%2"_s.arg(column).arg(num)));
    QVERIFY2(sheet->foot.contains(u"admin"_s) && sheet->foot.contains(value(u"SELECT iDocNum FROM Factors WHERE iID=%1"_s.arg(num))), qPrintable(sheet->foot));
    QCOMPARE(sheet->state, QString());
}

// The two are computed apart: the paper from its lines, the books by their rows on the person.
void TestBookPapers::invoiceAsksForWhatTheBooksCharge()
{
    const int num = InvoicePosting::save(m_office.invoice()).num;
    const std::optional<PaperSheet> sheet = InvoiceSheet::read(num);
    QVERIFY(sheet);
    const QString charged = value(u"SELECT FORMAT(SUM(dBed-dBes),0) FROM Docs WHERE iPersonID=1"_s);
    QCOMPARE(charged, u"990"_s);
    QCOMPARE(factOf(sheet->totals, u"قابل پرداخت :"_s), charged + u" ریال"_s);
    QCOMPARE(factOf(sheet->totals, u"به حروف :"_s), amountInWords(990) + u" ریال"_s);
}

void TestBookPapers::voidInvoiceSaysSo()
{
    const int num = InvoicePosting::save(m_office.invoice()).num;
    InvoicePosting::makeVoid(num);
    QCOMPARE(value(u"SELECT iStatus FROM Factors"_s), u"1"_s);
    QCOMPARE(InvoiceSheet::read(num)->state, u"باطل"_s);
}

void TestBookPapers::documentSaysWhatTheTablesSay_data()
{
    QTest::addColumn<bool>("ofAnInvoice");
    QTest::newRow("typed") << false;
    QTest::newRow("of an invoice") << true;
}

void TestBookPapers::documentSaysWhatTheTablesSay()
{
    QFETCH(bool, ofAnInvoice);
    if (ofAnInvoice)
        InvoicePosting::save(m_office.invoice());
    else
        BooksOffice::document(123456).save();
    const int num = value(u"SELECT MAX(iNum) FROM Documents"_s).toInt();
    const std::optional<PaperSheet> sheet = DocumentSheet::read(num, BooksOffice::year);
    QVERIFY(sheet);
    const QString rows = value(u"SELECT GROUP_CONCAT(CONCAT_WS('|',IF(iHesabTafsilyCode>0,iHesabTafsilyCode,iHesabMoeenCode),IFNULL(sDesc,''),IF(dBed=0,'',FORMAT(dBed,0)),IF(dBes=0,'',FORMAT(dBes,0))) ORDER BY iID SEPARATOR '\\n') FROM Docs WHERE iDocNum=%1 AND iFiscalYear=1405"_s.arg(num));
    QCOMPARE(cellsOf(*sheet, {1, 3, 4, 5}), rows);
    QCOMPARE(rows.count(u'\n') + 1, ofAnInvoice ? 5 : 2);
    const double debit = value(u"SELECT SUM(dBed) FROM Docs"_s).toDouble();
    QVERIFY(debit > 0);
    QCOMPARE(sumOf(*sheet, u"بدهکار"_s), debit);
    QCOMPARE(sumOf(*sheet, u"بستانکار"_s), debit);
    QCOMPARE(factOf(sheet->totals, u"جمع به حروف :"_s), amountInWords(debit) + u" ریال"_s);
    QCOMPARE(factOf(sheet->marks, u"تاریخ :"_s), ofAnInvoice ? u"1405/02/03"_s : u"1405/03/01"_s);
    QCOMPARE(factOf(sheet->facts, u"شرح سند :"_s), value(u"SELECT sDesc FROM Documents"_s));
    QCOMPARE(sheet->signatures.constFirst().name, u"admin"_s);
    QCOMPARE(cellsOf(*sheet, {2}).contains(u"علی رضایی"_s), ofAnInvoice);
}

void TestBookPapers::voidDocumentSaysSo()
{
    BooksOffice::document().save();
    m_office.database.run(u"UPDATE Documents SET iStatus=1"_s);
    QCOMPARE(DocumentSheet::read(1, BooksOffice::year)->state, u"باطل"_s);
}

void TestBookPapers::goneOnesHaveNoPaper()
{
    BooksOffice::document().save();
    QVERIFY(!InvoiceSheet::read(77));
    QVERIFY(!DocumentSheet::read(77, BooksOffice::year));
    QVERIFY(!DocumentSheet::read(1, BooksOffice::year - 1));
    InvoicePaper::show(77, nullptr);
    DocumentPaper::show(77, BooksOffice::year, nullptr);
    QCOMPARE(g_pDlgWarning->takeShown(), (QStringList{u"این فاکتور دیگر وجود ندارد."_s, u"سند حسابداری وجود ندارد."_s}));
}

void TestBookPapers::rights_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<int>("rights");
    QTest::addColumn<int>("missing");
    for (const QString &form : {u"Factors"_s, u"Documents"_s}) {
        const auto row = [&form](const char *name, int rights, int missing) { QTest::newRow(qPrintable(form + u' ' + QLatin1String(name))) << form << rights << missing; };
        row("none", 0, KSecurity::Read);
        row("reads", KSecurity::Access | KSecurity::Read, KSecurity::PrintList);
        row("prints unread", KSecurity::Access | KSecurity::PrintList, KSecurity::Read);
        row("both", KSecurity::Access | KSecurity::Read | KSecurity::PrintList, 0);
    }
}

void TestBookPapers::rights()
{
    QFETCH(QString, form);
    QFETCH(int, rights);
    QFETCH(int, missing);
    const int num = InvoicePosting::save(m_office.invoice()).num;
    const int clerk = m_office.loginClerk();
    KSecurity::setRights(clerk, form, rights);
    KSecurity::forgetRights();
    const auto show = [&] { form == u"Factors" ? InvoicePaper::show(num, nullptr) : DocumentPaper::show(1, BooksOffice::year, nullptr); };
    if (missing == 0) {
        const QString text = paperOf(show);
        QVERIFY2(text.contains(u"990"_s), qPrintable(text));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        return;
    }
    show();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(form, static_cast<KSecurity::Right>(missing))});
}

void TestBookPapers::buttons_data()
{
    QTest::addColumn<QString>("window");
    for (const char *name : {"invoices", "invoice", "documents", "document"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestBookPapers::buttons()
{
    QFETCH(QString, window);
    const int num = InvoicePosting::save(m_office.invoice()).num;
    const auto press = [](QWidget &shown, const QString &caption) {
        shown.show();
        auto *button = captioned<QPushButton>(shown, caption);
        QVERIFY(button && button->isEnabled());
        button->click();
    };
    const auto run = [](auto &page, QStringView command) {
        page.open();
        page.show();
        page.list()->selectRow(0);
        QVERIFY(page.runCommand(command));
    };
    const QString text = paperOf([&] {
        if (window == u"invoices") {
            CDlgFactors page;
            run(page, u"printInvoice");
        } else if (window == u"invoice") {
            CDlgAddFactor shown(InvoicePosting::load(num), true);
            press(shown, u"چاپ فاکتور"_s);
        } else if (window == u"documents") {
            CDlgDocuments page;
            run(page, u"printDocument");
        } else {
            CDlgShowDocument shown(1, BooksOffice::year);
            press(shown, u"چاپ سند"_s);
        }
    });
    QVERIFY2(text.contains(u"990"_s) && text.contains(u"علی"_s) && text.contains(u"1405/02/03"_s), qPrintable(text));
}

static const RegisteredTest<TestBookPapers, QApplication> registeredBookPapers;
#include "TestBookPapers.moc"

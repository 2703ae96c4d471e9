// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/crm/persons/OfficeLetterhead.h"
#include "suite/treasury/receiving/ReceiptPaper.h"
#include "suite/treasury/receiving/ReceiptSheet.h"
#include "suite/utility/values/Money.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/treasury/receiving/InvoiceOffice.h"
#include "suite/accounting/office/KSecurity.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

namespace {

const QString money = u"ریال"_s;

Letterhead showroom()
{
    CompanyDetails office;
    office.name1 = u"نمایشگاه اتومبیل آریا"_s;
    office.city = u"تهران"_s;
    office.address = u"خیابان شریعتی، بالاتر از پل صدر، پلاک ۱۲"_s;
    office.telephone = u"22334455"_s;
    return OfficeLetterhead::of(office);
}

ReceiptDetails sample()
{
    ReceiptDetails receipt;
    receipt.number = 137;
    receipt.method = CTblReceipts::cash;
    receipt.person = u"مریم احمدی"_s;
    receipt.date = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
    receipt.amount = 1250000;
    receipt.account = u"صندوق"_s;
    receipt.purpose = u"کمیسیون قرارداد 12، خریدار"_s;
    receipt.desc = u"بابت تسویه قرارداد شماره 12"_s;
    receipt.docNum = 45;
    receipt.fiscalYear = 1405;
    receipt.user = u"مدیر"_s;
    return receipt;
}

Cheque leaf()
{
    return {.sayad = u"1234567890123456"_s, .number = u"77"_s, .bank = u"ملت"_s, .branch = u"ونک"_s, .branchCode = u"6543"_s, .due = QDateTime(QDate(2026, 12, 20), QTime(0, 0), Qt::UTC), .drawer = u"رضا کریمی"_s};
}

ReceiptDetails longest()
{
    ReceiptDetails receipt = sample();
    receipt.person = u"شرکت بازرگانی و خدمات پس از فروش خودروهای سواری و باری ایرانیان نوین"_s;
    receipt.amount = 987654321987654;
    receipt.method = CTblReceipts::cheque;
    receipt.cheque = leaf();
    receipt.cheque->drawer = receipt.person;
    receipt.chequeAmount = receipt.amount;
    receipt.purpose = u"قسط 36 قرارداد 123456، خریدار، خودروی پژو 206 تیپ 5"_s.repeated(4);
    receipt.desc = u"تحویل خودرو پس از انتقال سند و تسویه کامل مبلغ قرارداد انجام خواهد شد. "_s.repeated(7);
    receipt.status = CTblReceipts::voided;
    receipt.voidUser = u"مدیر"_s;
    receipt.voidDate = receipt.date;
    receipt.voidReason = u"مبلغ اشتباه وارد شده بود "_s.repeated(10);
    return receipt;
}

ReceiptDetails byCheque()
{
    ReceiptDetails receipt = sample();
    receipt.method = CTblReceipts::cheque;
    receipt.account.clear();
    receipt.cheque = leaf();
    receipt.chequeAmount = 5000000;
    return receipt;
}

ReceiptDetails payment()
{
    ReceiptDetails receipt = sample();
    receipt.kind = CTblReceipts::paid;
    receipt.method = CTblReceipts::bank;
    receipt.account = u"بانک ملت"_s;
    return receipt;
}

ReceiptDetails voided()
{
    ReceiptDetails receipt = sample();
    receipt.status = CTblReceipts::voided;
    receipt.voidUser = u"مدیر"_s;
    receipt.voidDate = receipt.date;
    receipt.voidReason = u"مبلغ اشتباه بود"_s;
    return receipt;
}

PaperSheet sheetOf(const ReceiptDetails &receipt)
{
    return ReceiptSheet::of(receipt, showroom().name, money);
}

QString plainText(const QString &path)
{
    QProcess process;
    process.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    process.waitForFinished();
    QString text = QString::fromUtf8(process.readAllStandardOutput()).normalized(QString::NormalizationForm_KC);
    return text.remove(QRegularExpression(u"[\\x{200c}\\x{200e}\\x{200f}\\x{202a}-\\x{202e}\\x{2066}-\\x{2069}]"_s));
}

QImage picture(const SheetPages &paper, int page)
{
    constexpr double scale = 0.25;
    const QSizeF size = paper.paperSize() * scale;
    QImage image(size.toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    paper.paint(painter, page);
    return image;
}

// Where anything is painted on the page.
QRect inked(const QImage &image)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

}

class TestReceiptPaper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.clear(); }
    void paperHoldsWhatTheReceiptSays_data();
    void paperHoldsWhatTheReceiptSays();
    void nothingLeavesThePage_data();
    void nothingLeavesThePage();
    void stateIsPaintedAcross();
    void eachReceiptHasItsPage();
    void windowRemembersThePaper();
    void detailsAreThoseOfTheTables();
    void bankOfAChequeIsCalledABankOnce_data();
    void bankOfAChequeIsCalledABankOnce();
    void goneReceiptIsSaidSo();
    void sheetIsThatOfTheTables_data();
    void sheetIsThatOfTheTables();
    void rights();

private:
    InvoiceOffice m_office;
};

void TestReceiptPaper::paperHoldsWhatTheReceiptSays_data()
{
    QTest::addColumn<ReceiptDetails>("receipt");
    QTest::addColumn<QStringList>("words");
    const QStringList always{u"137"_s, u"1405/08/29"_s, u"1,250,000"_s, u"ریال"_s, u"کمیسیون"_s, u"میلیون"_s, u"آریا"_s, u"تهران"_s, u"دریافت"_s, u"پرداخت"_s, u"احمدی"_s, u"مدیر"_s};
    QTest::newRow("in cash") << sample() << always + QStringList{u"صندوق"_s, u"نقدی"_s};
    QTest::newRow("by cheque") << byCheque() << always + QStringList{u"1234567890123456"_s, u"77"_s, u"ملت"_s, u"6543"_s, u"1405/09/29"_s, u"کریمی"_s, u"5,000,000"_s};
    QTest::newRow("paid") << payment() << always + QStringList{u"بانکی"_s, u"ملت"_s};
    QTest::newRow("void") << voided() << always + QStringList{u"ابطال"_s, u"اشتباه"_s};
}

void TestReceiptPaper::paperHoldsWhatTheReceiptSays()
{
    QFETCH(ReceiptDetails, receipt);
    QFETCH(QStringList, words);
    for (const SheetPages::Size size : {SheetPages::Size::A5, SheetPages::Size::A4}) {
        const QString path = m_office.folder.filePath(u"receipt.pdf"_s);
        QVERIFY(ReportOutput::writePagesPdf(SheetPages({sheetOf(receipt)}, showroom(), size), ReceiptSheet::titleOf(receipt), path));
        const QString text = plainText(path);
        for (const QString &word : words) {
            QVERIFY2(text.contains(word), qPrintable(word + u" is missing in:\n"_s + text));
            // Both copies of A4 say it.
            if (size == SheetPages::Size::A4)
                QVERIFY2(text.count(word) >= 2, qPrintable(word));
        }
    }
}

void TestReceiptPaper::nothingLeavesThePage_data()
{
    QTest::addColumn<ReceiptDetails>("receipt");
    QTest::newRow("ordinary") << sample();
    QTest::newRow("by cheque") << byCheque();
    QTest::newRow("void") << voided();
    QTest::newRow("longest") << longest();
}

void TestReceiptPaper::nothingLeavesThePage()
{
    QFETCH(ReceiptDetails, receipt);
    for (const SheetPages::Size size : {SheetPages::Size::A5, SheetPages::Size::A4}) {
        const SheetPages paper({sheetOf(receipt)}, showroom(), size);
        const QImage image = picture(paper, 0);
        const QRect ink = inked(image);
        // Ten millimetres all around, less a dot of rounding.
        const int margin = int(10 / 25.4 * PaperPages::resolution * 0.25) - 2;
        QVERIFY(!ink.isEmpty());
        QVERIFY2(image.rect().adjusted(margin, margin, -margin, -margin).contains(ink),
                 qPrintable(u"%1,%2 to %3,%4"_s.arg(ink.left()).arg(ink.top()).arg(ink.right()).arg(ink.bottom())));
    }
}

void TestReceiptPaper::stateIsPaintedAcross()
{
    const auto reddish = [](const ReceiptDetails &receipt) {
        const QImage image = picture(SheetPages({sheetOf(receipt)}, showroom(), SheetPages::Size::A5), 0);
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += qRed(image.pixel(x, y)) - qGreen(image.pixel(x, y)) > 20;
        }
        return count;
    };
    ReceiptDetails bounced = byCheque();
    bounced.status = CTblReceipts::unpaid;
    QCOMPARE(reddish(sample()), 0);
    QVERIFY(reddish(voided()) > 500);
    QVERIFY(reddish(bounced) > 500);
}

void TestReceiptPaper::eachReceiptHasItsPage()
{
    ReceiptDetails second = sample();
    second.number = 138;
    CDlgPaper window({sheetOf(sample()), sheetOf(second)});
    QCOMPARE(window.pages()->pageCount(), 2);
    QVERIFY(FormDriver::button(&window, u"بعدی"_s)->isVisibleTo(&window));
    FormDriver::button(&window, u"بعدی"_s)->click();
    QCOMPARE(window.pages()->currentPage(), 1);
    CDlgPaper single({sheetOf(sample())});
    QVERIFY(!FormDriver::button(&single, u"بعدی"_s)->isVisibleTo(&single));
}

void TestReceiptPaper::windowRemembersThePaper()
{
    const QString path = m_office.folder.filePath(u"size.pdf"_s);
    const auto pageSize = [&path](CDlgPaper &window) {
        window.savePdf(path);
        QProcess process;
        process.start(u"pdfinfo"_s, {path});
        process.waitForFinished();
        const QString text = QString::fromUtf8(process.readAllStandardOutput());
        return QRegularExpression(u"Page size: +([\\d.]+) x ([\\d.]+)"_s).match(text).captured(1).toDouble();
    };
    {
        CDlgPaper window({sheetOf(sample())});
        QCOMPARE(window.windowTitle(), u"پیش نمایش چاپ - رسید دریافت"_s);
        auto *size = FormDriver::field<QComboBox>(&window, u"کاغذ :"_s);
        QCOMPARE(size->currentText(), u"A5"_s);
        QVERIFY(qAbs(pageSize(window) - 595) < 2);
        size->setCurrentIndex(1);
        Q_EMIT size->activated(1);
        QVERIFY(qAbs(pageSize(window) - 595) < 2);
    }
    CDlgPaper window({sheetOf(payment())});
    QCOMPARE(FormDriver::field<QComboBox>(&window, u"کاغذ :"_s)->currentText(), u"A4 (دو نسخه)"_s);
    QCOMPARE(window.windowTitle(), u"پیش نمایش چاپ - رسید پرداخت"_s);
}

void TestReceiptPaper::detailsAreThoseOfTheTables()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    const int key = m_office.take(m_office.ali, 90, m_office.purposeOf(m_office.ali, num));
    const std::optional<ReceiptDetails> taken = ReceiptDetails::read(key);
    QVERIFY(taken);
    QCOMPARE(taken->person, u"علی رضایی"_s);
    QCOMPARE(taken->methodText(), u"نقدی، صندوق"_s);
    QCOMPARE(taken->purpose, u"فاکتور فروش شماره %1"_s.arg(num));
    QCOMPARE(taken->amount, 90.);
    QCOMPARE(taken->user, u"admin"_s);
    QCOMPARE(taken->voidText(), QString());
    ReceiptPosting::makeVoid(key, u"اشتباه بود"_s);
    const std::optional<ReceiptDetails> voided = ReceiptDetails::read(key);
    QVERIFY(voided->isVoid());
    QVERIFY2(voided->voidText().startsWith(u"کاربر «admin» در "_s) && voided->voidText().endsWith(u": اشتباه بود"_s), qPrintable(voided->voidText()));
    QCOMPARE(ReceiptDetails::read(m_office.take(m_office.ali, 5))->purpose, u"علی‌الحساب"_s);
    QVERIFY(!ReceiptDetails::read(999999));
}

void TestReceiptPaper::bankOfAChequeIsCalledABankOnce_data()
{
    QTest::addColumn<QString>("bank");
    QTest::newRow("name alone") << u"ملت"_s;
    QTest::newRow("with the word") << u"بانک ملت"_s;
}

void TestReceiptPaper::bankOfAChequeIsCalledABankOnce()
{
    QFETCH(QString, bank);
    ReceiptDetails details;
    details.method = CTblReceipts::cheque;
    details.cheque = Cheque{.sayad = u"1234567890123456"_s, .bank = bank, .due = m_office.day, .drawer = u"علی"_s};
    QVERIFY2(details.methodText().contains(u"، بانک ملت، "_s), qPrintable(details.methodText()));
    QVERIFY(details.methodText().endsWith(u"صادرکننده علی"_s));
}

void TestReceiptPaper::goneReceiptIsSaidSo()
{
    ReceiptPaper::show({999999}, nullptr);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این رسید دیگر وجود ندارد."_s});
}

void TestReceiptPaper::sheetIsThatOfTheTables_data()
{
    QTest::addColumn<CTblReceipts::Kind>("kind");
    QTest::addColumn<bool>("isVoid");
    QTest::newRow("received") << CTblReceipts::received << false;
    QTest::newRow("paid") << CTblReceipts::paid << false;
    QTest::newRow("void") << CTblReceipts::received << true;
}

void TestReceiptPaper::sheetIsThatOfTheTables()
{
    QFETCH(CTblReceipts::Kind, kind);
    QFETCH(bool, isVoid);
    const bool isPaid = kind == CTblReceipts::paid;
    const int person = isPaid ? m_office.pars : m_office.ali;
    const int num = m_office.invoice(isPaid ? int(CTblFactors::purchase) : int(Invoice::sale), person);
    const int key = m_office.take(person, 321, InvoiceOffice::purposeOf(person, num, kind), kind);
    m_office.take(m_office.ali, 5);
    if (isVoid)
        ReceiptPosting::makeVoid(key, u"اشتباه بود"_s);
    const auto stored = [&](const QString &what) { return m_office.database.value(u"SELECT %1 FROM Receipts r JOIN Persons p ON p.iID=r.iPersonID WHERE r.iID=%2"_s.arg(what).arg(key)); };
    const PaperSheet sheet = ReceiptSheet::of(*ReceiptDetails::read(key), u"نمایشگاه"_s, money);
    QCOMPARE(sheet.title, isPaid ? u"رسید پرداخت"_s : u"رسید دریافت"_s);
    QStringList facts;
    for (qsizetype i : {0, 1, 2, 4})
        facts.append(sheet.facts.at(i).text);
    QCOMPARE(facts, (QStringList{stored(u"p.sName2"_s), stored(u"CONCAT(FORMAT(r.dAmount,0),' ریال')"_s), amountInWords(stored(u"r.dAmount"_s).toDouble()) + u" ریال"_s, stored(u"r.sFor"_s)}));
    QCOMPARE(stored(u"FORMAT(r.dAmount,0)"_s), u"321"_s);
    QVERIFY(sheet.foot.endsWith(u" : "_s + stored(u"r.iDocNum"_s)));
    // The document that it names is of the same amount, on the same person; that of a void one weighs nothing.
    QCOMPARE(m_office.database.value(u"SELECT SUM(dBed+dBes) FROM Docs d JOIN Receipts r ON r.iDocNum=d.iDocNum AND r.iFiscalYear=d.iFiscalYear AND r.iPersonID=d.iPersonID WHERE r.iID=%1"_s.arg(key)).toDouble(), isVoid ? 0. : 321.);
    // The side that hands money out and the one that takes it.
    const QString name = stored(u"p.sName2"_s);
    QCOMPARE(sheet.signatures.at(0).name, isPaid ? name : u"نمایشگاه"_s);
    QCOMPARE(sheet.signatures.at(1).name, isPaid ? u"نمایشگاه"_s : name);
    QCOMPARE(!sheet.state.isEmpty(), isVoid);
}

// Whoever may read receipts hands them out, and nobody else.
void TestReceiptPaper::rights()
{
    const int key = m_office.take(m_office.ali, 321);
    GetDBSetting()->Login(m_office.clerk);
    ReceiptPaper::show({key}, nullptr);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::Read)});
    KSecurity::setRights(m_office.clerk, u"Receipts"_s, KSecurity::Access | KSecurity::Read);
    KSecurity::forgetRights();
    bool isShown = false;
    Hand::inNextWindow([&isShown](QDialog *dialog) { isShown = qobject_cast<CDlgPaper *>(dialog) != nullptr; });
    ReceiptPaper::show({key}, nullptr);
    KSecurity::setRights(m_office.clerk, u"Receipts"_s, 0);
    QVERIFY(isShown);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
}

static const RegisteredTest<TestReceiptPaper, QApplication> registeredReceiptPaper;
#include "TestReceiptPaper.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/MatterFields.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "auto/contracts/printing/ContractMergeFields.h"
#include "auto/contracts/printing/ContractPrinting.h"
#include "auto/contracts/printing/TemplateCheck.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/CompanyLogo.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/utility/documents/KMSWord.h"
#include "suite/utility/values/TemporaryFolders.h"
#include "tests/auto/contracts/printing/DocxParts.h"
#include "tests/auto/contracts/printing/PrintedContracts.h"
#include "tests/support/OrdinaryRights.h"
#include "tests/support/RegisteredTest.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Contract = CTblAutomobilContracts;
using Trouble = ContractPrinting::Trouble;

const QString builtTemplates = u"" TZ_TEMPLATES ""_s;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

// Every file and folder below, to see that nothing was added, with the content of the files.
QMap<QString, QByteArray> snapshot(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        files.insert(path, all.fileInfo().isDir() ? QByteArray() : contentOf(path));
    }
    return files;
}

}

class TestContractPrinting : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_folder;
    QList<Trouble> m_warnings;
    QStringList m_opened;
    QString m_choice; // what the person answers when asked for a template
    int m_asked = 0;
    bool m_dialogstopOpens = true;
    QStringList m_disagreements;
    bool m_goesOn = true;

    QString templates() const { return m_folder->filePath(u"AutomobileDocx"_s); }
    QString temporary() const { return m_folder->filePath(u"temporary"_s); }
    QString templatePath(const QString &name) const { return templates() + u'/' + name; }

    // An instalment sale of 2000, which splits 1200 of it into instalments.
    int addWithPlan()
    {
        const int contract = PrintedContracts::add(*m_office, 2);
        m_office->database().run(u"UPDATE AutomobilContracts SET dAmount=2000,dFixAmount=500,dAgreeAmount=300,iPersonSecondID=0 WHERE iID=%1"_s.arg(contract));
        m_office->database().run(u"INSERT INTO AutomobilPayments(iDepartmentID,iAutomobilContractID,iPersonID,iNum,dAmount,dExtra,iMonths,iStatus,date) "
                                 "VALUES((SELECT MIN(iID) FROM Departments),%1,0,1,1200,0,1,0,NOW())"_s.arg(contract));
        return contract;
    }

    bool print(int contract)
    {
        ContractPrinting::Dialogs dialogs;
        dialogs.warn = [this](Trouble trouble) { m_warnings << trouble; };
        dialogs.chooseTemplate = [this] {
            ++m_asked;
            return m_choice;
        };
        dialogs.open = [this](const QString &path) {
            m_opened << path;
            return m_dialogstopOpens;
        };
        dialogs.goOn = [this](const QString &disagreement) {
            m_disagreements << disagreement;
            return m_goesOn;
        };
        return ContractPrinting(dialogs, {templates(), temporary()}).print(contract);
    }

    // The names still to be filled in the document opened last.
    QStringList fieldsLeft() const
    {
        KMSWord word;
        if (!word.Init() || !word.OpenDocument(m_opened.value(m_opened.size() - 1), 1))
            return {u"unreadable"_s};
        return word.GetFields().GetNames();
    }

    QString printedText() const { return shownText(readDocx(m_opened.value(m_opened.size() - 1))); }

    // A form of the office's own, outside the templates' folder.
    QString ownForm(const QString &name)
    {
        const QString path = m_folder->filePath(name);
        QFile::copy(builtTemplates + u"/AutoRent.docx"_s, path);
        return path;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        m_office->database().run(u"DELETE FROM Templates"_s);
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir().mkpath(templates()) && QDir().mkpath(temporary()));
        for (const char *name : {"AutoMbayh.docx", "AutoRent.docx", "AutoInstallment.docx"})
            QVERIFY(QFile::copy(builtTemplates + u'/' + QLatin1String(name), templatePath(QLatin1String(name))));
        m_warnings.clear();
        m_opened.clear();
        m_choice.clear();
        m_asked = 0;
        m_dialogstopOpens = true;
        m_disagreements.clear();
        m_goesOn = true;
    }

    void contractIsPrintedFromTheTemplateOfItsType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("name");
        QTest::newRow("sale agreement") << 0 << u"AutoMbayh.docx"_s;
        QTest::newRow("rent") << 1 << u"AutoRent.docx"_s;
        QTest::newRow("instalment sale") << 2 << u"AutoInstallment.docx"_s;
    }

    void contractIsPrintedFromTheTemplateOfItsType()
    {
        QFETCH(int, type);
        QFETCH(QString, name);
        QVERIFY(print(PrintedContracts::add(*m_office, type)));
        QCOMPARE(m_asked, 0);
        QVERIFY(m_warnings.isEmpty());
        QCOMPARE(m_opened.size(), 1);
        const QFileInfo printed(m_opened.first());
        QCOMPARE(printed.fileName(), name);
        QVERIFY(printed.filePath().startsWith(temporary() + u'/'));
        QCOMPARE(fieldsLeft(), QStringList());
        const DocxParts parts = readDocx(printed.filePath());
        for (const QByteArray &part : parts)
            QVERIFY(!part.contains("MERGEFIELD"));
        const QStringList lines = shownText(parts).split(u'\n');
        for (const QString &value : PrintedContracts::values(type))
            QVERIFY2(lines.contains(value), qPrintable(value));
        for (const QString &value : PrintedContracts::hiddenValues(type))
            QVERIFY2(!lines.join(u'\n').contains(value), qPrintable(value));
        QVERIFY(!lines.join(u'\n').contains(u'«'));
    }

    // Each form says everything that its type shows, and nothing else; a name that nothing fills would stay in every printed contract.
    void everyFormSuitsItsType_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("missing");
        // The number of the plate stands in its form, as Plate.
        QTest::newRow("sale agreement") << u"AutoMbayh.docx"_s << 0 << u"NumOfPlates"_s;
        QTest::newRow("rent") << u"AutoRent.docx"_s << 1 << u"NumOfPlates"_s;
        QTest::newRow("instalment sale") << u"AutoInstallment.docx"_s << 2 << u"NumOfPlates"_s;
        QTest::newRow("letter") << u"AutoLetter.docx"_s << 3 << u"Capacity"_s;
    }

    void everyFormSuitsItsType()
    {
        QFETCH(QString, name);
        QFETCH(int, type);
        QFETCH(QString, missing);
        const TemplateCheck check = TemplateCheck::of(contentOf(builtTemplates + u'/' + name), type);
        QVERIFY2(check.isUsable(), qUtf8Printable(check.refusal));
        QCOMPARE(check.unknown, QStringList());
        QCOMPARE(check.hidden, QStringList());
        QCOMPARE(check.unpaired, QStringList());
        QCOMPARE(check.missing.join(u' '), missing);
    }

    // The rule that says what a type hides knows each field of the page.
    void everyFieldOfTheMatterIsKnownAsOne()
    {
        for (const KFormField &field : matterFields())
            QVERIFY2(MatterVisibility::isMatter(field.column), qPrintable(field.column));
        for (const char16_t *column : {u"dAmount", u"sDesc", u"sFromFirst", u"sNoAdvice", u"sPage", u"sDeal", u"sNote1"})
            QVERIFY(!MatterVisibility::isMatter(column));
    }

    // What is empty goes with its words; what somebody writes by hand has a line.
    void contractThatSaysLittlePrintsNoWordsAboutTheRest_data() { contractIsPrintedFromTheTemplateOfItsType_data(); }

    void contractThatSaysLittlePrintsNoWordsAboutTheRest()
    {
        QFETCH(int, type);
        QFETCH(QString, name);
        const int contract = m_office->addContract([&](Contract &c) {
            c.m_iContractType = type;
            c.m_iCode = 9;
            c.m_iPersonContract1 = c.m_iPersonContract2 = 2;
            c.m_sName1 = u"علی مرادی"_s;
            c.m_sName2 = u"رضا کاوه"_s;
            c.m_dAmount = 2000;
            c.m_sAutomobilName = u"پراید"_s;
        });
        QVERIFY(print(contract));
        QCOMPARE(fieldsLeft(), QStringList());
        const QString text = printedText();
        for (const char *words : {"علی مرادی", "رضا کاوه", "2,000", "دو هزار ریال", "پراید", "کد رهگیری", "حق کمیسیونی دریافت نمی‌کند"})
            QVERIFY2(text.contains(QString::fromUtf8(words)), words);
        for (const char *words : {"نام پدر", "کد اقتصادی", "تلفن", "نشانی:", "از طرف:", "چک‌ها", "بانک", "باقی‌مانده", "خسارت تخلف", "دیرکرد", "تخفیف", "VIN", "شماره شاسی:",
                                  "ساعت:", "پرداخت نقدی", "تبصره", "تعهدات فروشنده", "مشاور خودرو", "صفر"})
            QVERIFY2(!text.contains(QString::fromUtf8(words)), words);
        QVERIFY(!text.split(u'\n').contains(u"0"_s));
    }

    void planStandsInTheInstalmentForm()
    {
        const int contract = PrintedContracts::add(*m_office, 2);
        PrintedContracts::addPlan(*m_office, contract);
        QVERIFY(print(contract));
        const QStringList lines = printedText().split(u'\n');
        for (const QString &value : {u"610,000,001"_s, u"610,000,002"_s, u"610,000,003"_s, u"1405/11/01"_s, u"1405/12/02"_s, u"1406/01/01"_s, u"1,830,000,006"_s,
                                     u"ششصد و ده میلیون و سه ریال"_s})
            QVERIFY2(lines.contains(value), qPrintable(value));
        QVERIFY(!lines.join(u' ').contains(u"پیوست"_s));
        QVERIFY(readDocx(m_opened.last()).value(u"word/document.xml"_s).contains("w:tblHeader"));
    }

    void chequeOfAnInstalmentStandsInItsRow()
    {
        const int contract = PrintedContracts::add(*m_office, 2);
        PrintedContracts::addPlan(*m_office, contract);
        m_office->database().run(u"INSERT INTO Cheques(sNumber,sBank,iState) VALUES('778812','ملت',0)"_s);
        m_office->database().run(u"INSERT INTO Receipts(iTable,iRecordID,iPaymentID,iFor,iKind,iChequeID) SELECT 69,%1,iID,2,%2,(SELECT MAX(iID) FROM Cheques) "
                                 "FROM AutomobilPayments WHERE iNum=2"_s
                                     .arg(contract)
                                     .arg(int(CTblReceipts::received)));
        QVERIFY(print(contract));
        const QStringList lines = printedText().split(u'\n');
        QCOMPARE(lines.count(u"چک"_s), 1); // the column's title, of one table
        QVERIFY(lines.indexOf(u"778812 ملت"_s) > lines.indexOf(u"610,000,002"_s));
        QVERIFY(lines.indexOf(u"778812 ملت"_s) < lines.indexOf(u"610,000,003"_s));
        m_office->database().run(u"DELETE FROM Receipts"_s);
        QVERIFY(print(contract));
        QCOMPARE(printedText().split(u'\n').count(u"چک"_s), 0);
    }

    void contractWithoutAPlanNamesTheTableThatIsToBeMade()
    {
        QVERIFY(print(PrintedContracts::add(*m_office, 2)));
        QVERIFY(printedText().contains(u"جدول اقساط پیوست"_s));
        QVERIFY(!readDocx(m_opened.last()).value(u"word/document.xml"_s).contains("w:tblHeader"));
    }

    void letterheadHasTheOfficesAddressTelephoneAndLogo()
    {
        CompanyDetails company;
        company.name1 = u"نمایشگاه آریا"_s;
        company.address = u"تبریز، خیابان امام"_s;
        company.telephone = u"041-33330000"_s;
        company.write();
        const QByteArray png = QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==");
        CompanyLogo::save(png, 0);
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(print(contract));
        QStringList lines = printedText().split(u'\n');
        QVERIFY(lines.contains(company.address) && lines.contains(company.telephone));
        // The office's own address stands there, not the sample's.
        QVERIFY(!lines.contains(u"تهران، بزرگراه رسالت"_s));
        QCOMPARE(readDocx(m_opened.last()).value(u"word/media/filled-logo.png"_s), png);
        QVERIFY(readDocx(m_opened.last()).value(u"word/header1.xml"_s).contains("r:embed"));

        CompanyLogo::save({}, CompanyLogo::read().id);
        QVERIFY(print(contract));
        QVERIFY(!readDocx(m_opened.last()).contains(u"word/media/filled-logo.png"_s));
    }

    void letterheadIsTheNameOfTheOfficeOrALineToWriteItOn()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(print(contract));
        QVERIFY(printedText().contains(u"نمایشگاه اتومبیل ...."_s));
        CompanyDetails company;
        company.name1 = u"نمایشگاه"_s;
        company.name2 = u"آریا"_s;
        company.write();
        QVERIFY(print(contract));
        QVERIFY(printedText().split(u'\n').contains(u"نمایشگاه آریا"_s));
    }

    void nameOfTheTemplateByType()
    {
        QCOMPARE(ContractPrinting::templateName(0), u"AutoMbayh.docx"_s);
        QCOMPARE(ContractPrinting::templateName(1), u"AutoRent.docx"_s);
        QCOMPARE(ContractPrinting::templateName(2), u"AutoInstallment.docx"_s);
        QCOMPARE(ContractPrinting::templateName(3), QString());
        QCOMPARE(ContractPrinting::templateName(-1), QString());
    }

    void printedContractCannotBeReadByOtherUsers()
    {
        QVERIFY(print(PrintedContracts::add(*m_office, 0)));
        const QFileInfo folder(QFileInfo(m_opened.first()).path());
        QVERIFY(folder.filePath() != temporary());
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        QVERIFY(!(folder.permissions() & others));
    }

    void contractThatIsGoneDoesNothing()
    {
        const auto before = snapshot(m_folder->path());
        QVERIFY(!print(4711));
        QVERIFY(!print(0));
        QVERIFY(m_warnings.isEmpty());
        QCOMPARE(m_asked, 0);
        QCOMPARE(snapshot(m_folder->path()), before);
    }

    void printingChangesNoData()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        const auto checksums = [this] {
            return QString::fromLatin1(m_office->database().sumOf(u"AutomobilContracts"_s))
                + m_office->database().value(u"SELECT COUNT(*) FROM Documents"_s)
                + m_office->database().value(u"SELECT GROUP_CONCAT(iID, sName2) FROM Persons"_s);
        };
        const QString before = checksums();
        QVERIFY(print(contract));
        QCOMPARE(checksums(), before);
    }

    void missingTemplateAsksForAFileOnceAndThenNoLonger_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::newRow("a file of the template's name") << u"AutoMbayh.docx"_s;
        QTest::newRow("a file of another name") << u"فرم ما.docx"_s;
    }

    void missingTemplateAsksForAFileOnceAndThenNoLonger()
    {
        QFETCH(QString, fileName);
        QVERIFY(QFile::remove(templatePath(u"AutoMbayh.docx"_s)));
        m_choice = ownForm(fileName);
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(print(contract));
        QCOMPARE(m_warnings, QList<Trouble>{Trouble::TemplateMissing});
        QCOMPARE(m_asked, 1);
        // Under its own name, and under the one that the next print looks for.
        QCOMPARE(contentOf(templatePath(fileName)), contentOf(m_choice));
        QCOMPARE(QFileInfo(m_opened.first()).fileName(), u"AutoMbayh.docx"_s);
        QVERIFY(print(contract));
        QCOMPARE(m_asked, 1);
        QCOMPARE(m_warnings.size(), 1);
        QCOMPARE(fieldsLeft(), QStringList());
    }

    void missingFolderOfTemplatesIsMade()
    {
        QVERIFY(QDir(templates()).removeRecursively());
        m_choice = ownForm(u"AutoMbayh.docx"_s);
        QVERIFY(print(PrintedContracts::add(*m_office, 0)));
        QVERIFY(QFile::exists(templatePath(u"AutoMbayh.docx"_s)));
    }

    void chosenFileOverwritesOneOfItsName()
    {
        QVERIFY(QFile::remove(templatePath(u"AutoMbayh.docx"_s)));
        QVERIFY(write(templatePath(u"form.docx"_s), "old"));
        m_choice = ownForm(u"form.docx"_s);
        QVERIFY(print(PrintedContracts::add(*m_office, 0)));
        QCOMPARE(contentOf(templatePath(u"form.docx"_s)), contentOf(m_choice));
    }

    void givingUpTheChoiceStops()
    {
        QVERIFY(QFile::remove(templatePath(u"AutoMbayh.docx"_s)));
        const auto before = snapshot(m_folder->path());
        QVERIFY(!print(PrintedContracts::add(*m_office, 0)));
        QCOMPARE(m_warnings, QList<Trouble>{Trouble::TemplateMissing});
        QVERIFY(m_opened.isEmpty());
        QCOMPARE(snapshot(m_folder->path()), before);
    }

    void letterContractAlwaysAsksForTheTemplateFile()
    {
        m_choice = ownForm(u"نامه.docx"_s);
        const int contract = PrintedContracts::add(*m_office, 3);
        for (int round = 1; round <= 2; ++round) {
            QVERIFY(print(contract));
            QCOMPARE(m_asked, round);
            QCOMPARE(m_warnings.size(), round);
            QCOMPARE(m_warnings.last(), Trouble::TemplateMissing);
        }
        // Saved under the template's own name.
        QCOMPARE(QFileInfo(m_opened.last()).fileName(), u"نامه.docx"_s);
        QVERIFY(m_opened.last().startsWith(temporary() + u'/'));
        QCOMPARE(contentOf(templatePath(u"نامه.docx"_s)), contentOf(m_choice));
        QCOMPARE(fieldsLeft(), QStringList());
        QCOMPARE(QDir(templates()).entryList(QDir::Files).size(), 4);
    }

    void fileOfTheFolderItselfIsUsedAsItIs()
    {
        const QString letter = templatePath(u"AutoRent.docx"_s);
        const QByteArray before = contentOf(letter);
        m_choice = letter;
        QVERIFY(print(PrintedContracts::add(*m_office, 3)));
        QCOMPARE(contentOf(letter), before);
        QCOMPARE(QFileInfo(m_opened.first()).fileName(), u"AutoRent.docx"_s);
    }

    void contractWhosePersonNoLongerExistsPrintsWithThatBatchUnfilled_data()
    {
        QTest::addColumn<bool>("first");
        QTest::newRow("first person") << true;
        QTest::newRow("second person") << false;
    }

    void contractWhosePersonNoLongerExistsPrintsWithThatBatchUnfilled()
    {
        QFETCH(bool, first);
        const int contract = PrintedContracts::add(*m_office, 0, [first](Contract &c) {
            (first ? c.m_iPersonFirstID : c.m_iPersonSecondID) = 987654;
        });
        QVERIFY(print(contract));
        const QStringList left = fieldsLeft();
        const QStringList firstOnly = u"Mr Name Family Address PC Father IdentityCode NC BirthCity dateBirth Tel EC "
                                      "IdentityCodeCity sumTax1 Pay1 DiscountFirst"_s
                                          .split(u' ');
        const QStringList secondOnly = u"MrPerson2 NamePerson2 Family2 Address2 FatherName2 IdentityCode2 N BirthCity2 "
                                       "dateBirth2 Tel2 IdentityCodeCity2 E p sumTax2 Pay2 DiscountSecond"_s
                                           .split(u' ');
        for (const QString &name : first ? firstOnly : secondOnly)
            QVERIFY2(left.contains(name), qPrintable(name));
        for (const QString &name : left)
            QVERIFY2((first ? firstOnly : secondOnly).contains(name), qPrintable(name));
        const QString text = printedText();
        QVERIFY(text.contains(first ? u"«Family»"_s : u"«Family2»"_s));
        for (const QString &value : {first ? u"کریمی"_s : u"احمدی"_s, u"12,850,000,000"_s,
                                     u"NAAM01CA1JK123456"_s})
            QVERIFY2(text.contains(value), qPrintable(value));
    }

    void partyOfKind1Or2PrintsABlankWhereTheContractHasNoColumn()
    {
        const int contract = PrintedContracts::add(*m_office, 0, [](Contract &c) {
            c.m_iPersonContract1 = 1;
            c.m_iPersonContract2 = 2;
            c.m_sName1 = u"نمایشگاه بهار"_s;
            c.m_sName2 = u"رضا مرادی"_s;
            c.m_sNationalId2 = u"5558889990"_s;
            c.m_sMobile2 = u"09350001122"_s;
        });
        QVERIFY(print(contract));
        QCOMPARE(fieldsLeft(), QStringList());
        const QStringList lines = printedText().split(u'\n');
        for (const QString &value : {u"نمایشگاه بهار"_s, u"رضا مرادی"_s, u"5558889990"_s,
                                     u"09350001122"_s})
            QVERIFY2(lines.contains(value), qPrintable(value));
        for (const QString &value : {u"محمد"_s, u"حسین"_s, u"1358/04/17"_s, u"قزوین"_s,
                                     u"9913"_s, u"خانم"_s})
            QVERIFY2(!lines.contains(value), qPrintable(value));
        QVERIFY(lines.contains(u" "_s));
    }

    void templateThatIsNoDocumentIsTold_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("not a document");
        QTest::newRow("cut off") << contentOf(builtTemplates + u"/AutoMbayh.docx"_s).left(2000);
    }

    void templateThatIsNoDocumentIsTold()
    {
        QFETCH(QByteArray, content);
        QVERIFY(write(templatePath(u"AutoMbayh.docx"_s), content));
        const auto before = snapshot(m_folder->path());
        QVERIFY(!print(PrintedContracts::add(*m_office, 0)));
        QCOMPARE(m_warnings, QList<Trouble>{Trouble::TemplateUnreadable});
        QVERIFY(m_opened.isEmpty());
        QCOMPARE(snapshot(m_folder->path()), before);
    }

    // A harmful document chosen in good faith: reported once, and nothing of it gets into the templates' folder.
    void hostileTemplateIsRefusedAndNothingWritten_data()
    {
        QTest::addColumn<QString>("part");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("document type declaration") << u"word/document.xml"_s
                                                   << QByteArray("<!DOCTYPE w:document [<!ENTITY a \"aaaa\">]><w:document/>");
        QTest::newRow("entry that climbs out of the folder") << u"../../climbed.xml"_s << QByteArray("<a/>");
        QTest::newRow("macros") << u"word/vbaProject.bin"_s << QByteArray("macro");
        QTest::newRow("over 64 MiB unpacked") << u"word/media/image1.png"_s << QByteArray((64 << 20) + 1, 'a');
    }

    void hostileTemplateIsRefusedAndNothingWritten()
    {
        QFETCH(QString, part);
        QFETCH(QByteArray, content);
        DocxParts parts = readDocx(builtTemplates + u"/AutoMbayh.docx"_s);
        QVERIFY(parts.size() > 5);
        parts.insert(part, content);
        m_choice = m_folder->filePath(u"hostile.docx"_s);
        QVERIFY(writeDocx(m_choice, parts));
        QVERIFY(QFile::remove(templatePath(u"AutoMbayh.docx"_s)));
        const auto before = snapshot(m_folder->path());
        QVERIFY(!print(PrintedContracts::add(*m_office, 0)));
        QCOMPARE(m_warnings, (QList<Trouble>{Trouble::TemplateMissing, Trouble::TemplateUnreadable}));
        QVERIFY(m_opened.isEmpty());
        QCOMPARE(snapshot(m_folder->path()), before);
    }

    void chosenFileThatVanishedStopsSilently()
    {
        m_choice = m_folder->filePath(u"gone.docx"_s);
        QVERIFY(!print(PrintedContracts::add(*m_office, 3)));
        QCOMPARE(m_warnings, QList<Trouble>{Trouble::TemplateMissing});
    }

    // The office's own from then on, in the database, so that neither this desk nor another asks again.
    void folderThatMayNotBeWrittenPrintsAllTheSame()
    {
        QVERIFY(QFile::remove(templatePath(u"AutoMbayh.docx"_s)));
        m_choice = ownForm(u"form.docx"_s);
        // Which any user may read, as may be written into the temporary folder.
        const auto open = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
        QVERIFY(QFile::setPermissions(m_folder->path(), open) && QFile::setPermissions(temporary(), open | QFile::WriteGroup | QFile::WriteOther));
        QVERIFY(QFile::setPermissions(m_choice, open));
        const int contract = PrintedContracts::add(*m_office, 0);
        const auto before = snapshot(templates());
        QVERIFY(QFile::setPermissions(templates(), open & ~QFile::WriteOwner));
        {
            const OrdinaryRights ordinary;
            QVERIFY(print(contract));
            QVERIFY(print(contract));
        }
        QVERIFY(QFile::setPermissions(templates(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QCOMPARE(m_warnings, QList<Trouble>{Trouble::TemplateMissing});
        QCOMPARE(m_asked, 1);
        QCOMPARE(m_opened.size(), 2);
        QCOMPARE(fieldsLeft(), QStringList());
        QCOMPARE(snapshot(templates()), before);
    }

    void temporaryFolderThatTakesNothingIsTold()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(QDir(temporary()).removeRecursively());
        QVERIFY(!print(contract));
        QCOMPARE(m_warnings, QList<Trouble>{Trouble::NotSaved});
        QVERIFY(m_opened.isEmpty());
    }

    void documentThatNothingOpensIsTold()
    {
        m_dialogstopOpens = false;
        QVERIFY(!print(PrintedContracts::add(*m_office, 0)));
        QCOMPARE(m_warnings, QList<Trouble>{Trouble::NotOpened});
        QVERIFY(QFile::exists(m_opened.value(0)));
    }

    void printThatIsStillOpenStaysWhatItIs()
    {
        const int first = PrintedContracts::add(*m_office, 0);
        const int second = PrintedContracts::add(*m_office, 0, [](Contract &c) { c.m_iCode = 555; });
        QVERIFY(print(first));
        const QByteArray before = contentOf(m_opened.first());
        QVERIFY(print(second));
        QVERIFY(m_opened.first() != m_opened.last());
        QCOMPARE(contentOf(m_opened.first()), before);
        QVERIFY(printedText().contains(u"555"_s));
    }

    void printStaysWhileTheProgramRuns()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(print(contract));
        TemporaryFolders::removeLeft(temporary());
        QVERIFY(QFile::exists(m_opened.first()));
    }

    void planThatAgreesIsNotAskedAbout()
    {
        QVERIFY(print(addWithPlan()));
        QVERIFY(m_disagreements.isEmpty());
    }

    void contractThatItsPlanDoesNotAgreeWithIsAskedAbout_data()
    {
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("printed") << true;
        QTest::newRow("not printed") << false;
    }

    void contractThatItsPlanDoesNotAgreeWithIsAskedAbout()
    {
        QFETCH(bool, goesOn);
        m_goesOn = goesOn;
        const int contract = addWithPlan();
        m_office->database().run(u"UPDATE AutomobilContracts SET dAmount=2600"_s);
        QCOMPARE(print(contract), goesOn);
        QCOMPARE(m_disagreements.size(), 1);
        QVERIFY2(m_disagreements.constFirst().contains(u"1,800"_s), qPrintable(m_disagreements.constFirst()));
        QCOMPARE(m_opened.size(), goesOn ? 1 : 0);
    }
};

static const RegisteredTest<TestContractPrinting, KApplication> registeredContractPrinting;

#include "TestContractPrinting.moc"

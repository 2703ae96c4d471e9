// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractPrinting.h"
#include "auto/contracts/printing/ContractTemplates.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "tests/auto/contracts/printing/DocxParts.h"
#include "tests/auto/contracts/printing/PrintedContracts.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString form = u"AutomobilContracts"_s;
constexpr int sale = 0;

QByteArray suppliedForm(const char *name)
{
    QFile file(u"" TZ_TEMPLATES "/"_s + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Nothing where it was taken.
QString refusalOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

}

// The office's own templates, as every desk has them.
class TestContractTemplates : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_opened;
    QString m_proposed;
    QString m_choice;
    int m_asked = 0;

    // Which file is in use for sales, and how many are kept.
    QString standing()
    {
        return m_office->database().value(u"SELECT CONCAT(IFNULL(MAX(IF(bInUse,sName,NULL)),'-'),' ',COUNT(*),' ',IFNULL(SUM(bInUse),0)) FROM Templates WHERE sKind='contract.0'"_s);
    }
    static qint32 use(const QString &name, const QByteArray &file, qint32 seen) { return ContractTemplates::use(sale, name, file, u"از فایل"_s, seen); }

    bool print(int contract)
    {
        ContractPrinting::Dialogs dialogs;
        dialogs.warn = [](ContractPrinting::Trouble) {};
        dialogs.chooseTemplate = [this] {
            ++m_asked;
            return m_choice;
        };
        dialogs.chooseLetter = [this](const QString &proposed) {
            ++m_asked;
            m_proposed = proposed;
            return m_choice.isEmpty() ? proposed : m_choice;
        };
        dialogs.open = [this](const QString &path) {
            m_opened = path;
            return true;
        };
        return ContractPrinting(dialogs, {m_folder->filePath(u"forms"_s), m_folder->path()}).print(contract);
    }

    QString write(const QString &name, const QByteArray &content)
    {
        QFile file(m_folder->filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        m_office->logInAsAdmin();
        m_office->database().run(u"DELETE FROM Templates"_s);
        m_office->database().run(u"DELETE FROM Changes"_s);
        m_folder = std::make_unique<QTemporaryDir>();
        m_opened.clear();
        m_proposed.clear();
        m_choice.clear();
        m_asked = 0;
    }

    // At a desk whose program has no templates at all.
    void theOfficesOwnIsPrintedFromAtEveryDesk()
    {
        DocxParts parts = readDocx(u"" TZ_TEMPLATES "/AutoMbayh.docx"_s);
        parts[u"word/document.xml"_s].replace("</w:body>", "<w:p><w:r><w:t>بند ویژه دفتر ما</w:t></w:r></w:p></w:body>");
        const QString own = m_folder->filePath(u"own.docx"_s);
        QVERIFY(writeDocx(own, parts));
        QVERIFY(use(u"own.docx"_s, ContractTemplates::read(own), 0) > 0);
        QVERIFY(print(PrintedContracts::add(*m_office, sale)));
        QCOMPARE(m_asked, 0);
        QCOMPARE(QFileInfo(m_opened).fileName(), u"AutoMbayh.docx"_s);
        QVERIFY(shownText(readDocx(m_opened)).contains(u"بند ویژه دفتر ما"_s));
        // Of what was printed from nothing is left but the document.
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
    }

    void chosenWhilePrintingIsTheOfficesFromThenOn()
    {
        m_choice = write(u"فرم ما.docx"_s, suppliedForm("AutoMbayh.docx"));
        const int contract = PrintedContracts::add(*m_office, sale);
        QVERIFY(print(contract));
        QCOMPARE(standing(), u"فرم ما.docx 1 1"_s);
        QVERIFY(QDir(m_folder->filePath(u"forms"_s)).removeRecursively());
        QVERIFY(print(contract));
        QCOMPARE(m_asked, 1);
    }

    // He may print, but what all desks print from is not his to change.
    void chosenByWhoMayNotChangeContractsIsPrintedOnly()
    {
        m_choice = write(u"فرم ما.docx"_s, suppliedForm("AutoMbayh.docx"));
        const int contract = PrintedContracts::add(*m_office, sale);
        m_office->logInAs(u"clerk"_s, form, KSecurity::allRights & ~KSecurity::Modify);
        QVERIFY(print(contract));
        QCOMPARE(standing(), u"- 0 0"_s);
    }

    void letterIsAskedForWithWhatThereIs()
    {
        QVERIFY(QDir().mkpath(m_folder->filePath(u"forms"_s)));
        const QString supplied = write(u"forms/AutoLetter.docx"_s, suppliedForm("AutoRent.docx"));
        const int contract = PrintedContracts::add(*m_office, ContractTemplates::letter);
        QVERIFY(print(contract));
        QCOMPARE(m_proposed, supplied);
        QCOMPARE(QFileInfo(m_opened).fileName(), u"AutoLetter.docx"_s);
        // What came along is nobody's choice.
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Templates"_s), u"0"_s);
        m_choice = write(u"نامه.docx"_s, suppliedForm("AutoMbayh.docx"));
        QVERIFY(print(contract));
        m_choice.clear();
        QVERIFY(print(contract));
        QCOMPARE(m_asked, 3);
        QCOMPARE(QFileInfo(m_proposed).fileName(), u"نامه.docx"_s);
        QCOMPARE(QFileInfo(m_opened).fileName(), u"نامه.docx"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Templates WHERE sKind='contract.3'"_s), u"1"_s);
    }

    void oneBeforeComesBackAndSoDoesWhatCameAlong()
    {
        const qint32 first = use(u"a.docx"_s, suppliedForm("AutoMbayh.docx"), 0);
        const qint32 second = use(u"b.docx"_s, suppliedForm("AutoRent.docx"), first);
        QCOMPARE(standing(), u"b.docx 2 1"_s);
        ContractTemplates::goBack(sale, first, second);
        QCOMPARE(standing(), u"a.docx 2 1"_s);
        QCOMPARE(ContractTemplates::inUse(sale).file, suppliedForm("AutoMbayh.docx"));
        ContractTemplates::useSupplied(sale, first);
        QCOMPARE(standing(), u"- 2 0"_s);
        const QList<ContractTemplates::Version> versions = ContractTemplates::versions(sale);
        QCOMPARE(versions.size(), 2);
        QCOMPARE(versions.constFirst().id, second);
        QVERIFY(!refusalOf([&] { ContractTemplates::goBack(ContractTemplates::letter, first, 0); }).isEmpty());
        m_office->database().run(u"DELETE FROM Templates"_s);
        QCOMPARE(refusalOf([&] { ContractTemplates::goBack(sale, first, 0); }), u"این قالب دیگر در پایگاه داده نیست."_s);
    }

    void pressedTwiceIsPressedOnce()
    {
        const qint32 first = use(u"a.docx"_s, suppliedForm("AutoMbayh.docx"), 0);
        QCOMPARE(use(u"a.docx"_s, suppliedForm("AutoMbayh.docx"), first), first);
        QCOMPARE(standing(), u"a.docx 1 1"_s);
    }

    // With the signs that Persian names hold, and none that leads out of a folder when a file is made of it.
    void nameStaysAsItWasChosen()
    {
        const QString name = u"مبایعه‌نامه ما.docx"_s;
        use(name, suppliedForm("AutoMbayh.docx"), 0);
        QCOMPARE(ContractTemplates::inUse(sale).name, name);
        m_office->database().run(u"UPDATE Templates SET sKind='contract.3',sName='../../climbed.docx'"_s);
        QVERIFY(print(PrintedContracts::add(*m_office, ContractTemplates::letter)));
        QVERIFY2(m_proposed.startsWith(m_folder->path() + u'/') && !m_proposed.contains(u"/../"_s), qPrintable(m_proposed));
    }

    // Both looked while the one that came along was in use.
    void secondOfTwoDesksIsTold()
    {
        m_office->logInAs(u"sima"_s, form, KSecurity::allRights);
        const qint32 theirs = use(u"sima.docx"_s, suppliedForm("AutoRent.docx"), 0);
        m_office->logInAsAdmin();
        try {
            use(u"mine.docx"_s, suppliedForm("AutoMbayh.docx"), 0);
            QFAIL("replaced unseen");
        } catch (const ContractTemplates::Overtaken &overtaken) {
            QCOMPARE(overtaken.now(), theirs);
            QVERIFY2(overtaken.userMessage().startsWith(u"کاربر «sima» در "_s), qPrintable(overtaken.userMessage()));
        }
        QCOMPARE(standing(), u"sima.docx 1 1"_s);
        // Knowing of it he may.
        QVERIFY(use(u"mine.docx"_s, suppliedForm("AutoMbayh.docx"), theirs) > theirs);
        QCOMPARE(standing(), u"mine.docx 2 1"_s);
    }

    void changesAreNoted()
    {
        const qint32 first = use(u"a.docx"_s, suppliedForm("AutoMbayh.docx"), 0);
        ContractTemplates::useSupplied(sale, first);
        QCOMPARE(m_office->database().value(u"SELECT GROUP_CONCAT(iKind ORDER BY iID) FROM Changes WHERE sTable='Templates' AND iRecordID=%1"_s.arg(first)), u"0,1"_s);
    }

    void unfitFileIsRefused_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("empty") << QByteArray() << u"خالی"_s;
        QTest::newRow("no document") << QByteArray("<html>") << u"سالم"_s;
        QTest::newRow("cut off") << suppliedForm("AutoMbayh.docx").left(3000) << u"سالم"_s;
        QTest::newRow("too large") << QByteArray(ContractTemplates::maxBytes + 1, 'a') << u"5 مگابایت"_s;
    }

    void unfitFileIsRefused()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, refusal);
        const QString told = refusalOf([&] { use(u"a.docx"_s, file, 0); });
        QVERIFY2(told.contains(refusal), qPrintable(told));
        QCOMPARE(standing(), u"- 0 0"_s);
    }

    void fileWithMacrosIsRefused()
    {
        DocxParts parts = readDocx(u"" TZ_TEMPLATES "/AutoMbayh.docx"_s);
        parts.insert(u"word/vbaProject.bin"_s, "macro");
        const QString path = m_folder->filePath(u"macros.docx"_s);
        QVERIFY(writeDocx(path, parts));
        QVERIFY(refusalOf([&] { use(u"a.docx"_s, ContractTemplates::read(path), 0); }).contains(u"بی‌خطر"_s));
        QCOMPARE(standing(), u"- 0 0"_s);
    }

    void changingAsksTheRightAsItStandsNow()
    {
        m_office->logInAs(u"clerk"_s, form, KSecurity::allRights & ~KSecurity::Modify);
        const QString refusal = KSecurity::refusalText(form, KSecurity::Modify);
        QCOMPARE(refusalOf([] { use(u"a.docx"_s, suppliedForm("AutoMbayh.docx"), 0); }), refusal);
        QCOMPARE(refusalOf([] { ContractTemplates::useSupplied(sale, 0); }), refusal);
        QCOMPARE(refusalOf([] { ContractTemplates::goBack(sale, 1, 0); }), refusal);
        QCOMPARE(standing(), u"- 0 0"_s);
    }

    // Either whole or not at all: never two in use, and never none of which one is told that it is.
    void lineCutAtCommitLeavesOneInUse_data()
    {
        QTest::addColumn<int>("fault");
        QTest::addColumn<QString>("left");
        QTest::newRow("before") << int(FaultProxy::Fault::CutBeforeCommit) << u"a.docx 1 1"_s;
        QTest::newRow("after") << int(FaultProxy::Fault::CutAfterCommit) << u"b.docx 2 1"_s;
    }

    void lineCutAtCommitLeavesOneInUse()
    {
        QFETCH(int, fault);
        QFETCH(QString, left);
        const qint32 first = use(u"a.docx"_s, suppliedForm("AutoMbayh.docx"), 0);
        FaultProxy proxy(m_office->database().settings());
        KConnection::configure(0, proxy.settings());
        KConnection::forThread().run(QByteArrayLiteral("SELECT 1"));
        proxy.failAtCommit(static_cast<FaultProxy::Fault>(fault));
        bool isTold = false;
        try {
            use(u"b.docx"_s, suppliedForm("AutoRent.docx"), first);
        } catch (const CMySQLException &) {
            isTold = true;
        }
        KConnection::configure(0, m_office->database().settings());
        QCOMPARE(isTold, fault == int(FaultProxy::Fault::CutBeforeCommit));
        QCOMPARE(standing(), left);
    }
};

static const RegisteredTest<TestContractTemplates, KApplication> registeredContractTemplates;

#include "TestContractTemplates.moc"

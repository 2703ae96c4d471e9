// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/printing/ContractPrintingDialogs.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/printing/PrintedContracts.h"
#include "tests/support/RegisteredTest.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString suppliedTemplates = u"" TZ_TEMPLATES ""_s;
const QString command = u"printContract"_s;
const QString missingText = u"فایل نامه پیدا نشد.\nلطفا مسیر فایل را مشخص نمایید."_s;

}

// The command of the list, its words to the letter, and the desktop that opens what was printed.
class TestContractPrintingDialogs : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_folder;
    QList<QUrl> m_opened;

    std::unique_ptr<CDlgAutomobilContracts> openPage()
    {
        auto page = std::make_unique<CDlgAutomobilContracts>();
        page->setPrinting(ContractPrinting(contractPrintingDialogs(page.get()),
                                           {m_folder->filePath(u"AutomobileDocx"_s), m_folder->path()}));
        page->open();
        return page;
    }

public Q_SLOTS:
    void open(const QUrl &url) { m_opened.append(url); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        m_office->database().run(u"DELETE FROM Templates"_s);
        m_folder = std::make_unique<QTemporaryDir>();
        m_opened.clear();
        QDesktopServices::setUrlHandler(u"file"_s, this, "open");
    }

    void cleanup() { QDesktopServices::unsetUrlHandler(u"file"_s); }

    void commandPrintsTheSelectedContractAndOpensIt()
    {
        QVERIFY(QDir().mkpath(m_folder->filePath(u"AutomobileDocx"_s)));
        QVERIFY(QFile::copy(suppliedTemplates + u"/AutoRent.docx"_s,
                            m_folder->filePath(u"AutomobileDocx/AutoRent.docx"_s)));
        PrintedContracts::add(*m_office, 1);
        const auto page = openPage();
        QVERIFY(page->button(command)->isEnabled());
        page->button(command)->click();
        QCOMPARE(m_opened.size(), 1);
        QCOMPARE(QFileInfo(m_opened.first().toLocalFile()).fileName(), u"AutoRent.docx"_s);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void missingTemplateAsksWithTitleAndFilterToTheLetter()
    {
        PrintedContracts::add(*m_office, 0);
        const auto page = openPage();
        QString title;
        QStringList filters;
        bool oneExistingFile = false;
        TestOffice::whenModal("QFileDialog", [&](QWidget *window) {
            auto *dialog = static_cast<QFileDialog *>(window);
            title = dialog->windowTitle();
            filters = dialog->nameFilters();
            oneExistingFile = dialog->fileMode() == QFileDialog::ExistingFile;
            dialog->setDirectory(suppliedTemplates);
            dialog->selectFile(u"AutoMbayh.docx"_s);
            static_cast<QDialog *>(dialog)->accept();
        });
        QVERIFY(page->runCommand(command));
        QCOMPARE(title, u"فایل نامه را انتخاب کنید"_s);
        QCOMPARE(filters, QStringList{u"فایل میاکروسافت وورد(*.docx)"_s});
        QVERIFY(oneExistingFile);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{missingText});
        QCOMPARE(m_opened.size(), 1);
        QVERIFY(QFile::exists(m_folder->filePath(u"AutomobileDocx/AutoMbayh.docx"_s)));
        // The same print no longer asks.
        QVERIFY(page->runCommand(command));
        QCOMPARE(m_opened.size(), 2);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void cancelledChoiceStops()
    {
        PrintedContracts::add(*m_office, 3);
        const auto page = openPage();
        TestOffice::whenModal("QFileDialog", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        QVERIFY(page->runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{missingText});
        QVERIFY(m_opened.isEmpty());
    }

    void hostileTemplateGetsTheMessageOfAMissingDocument()
    {
        QVERIFY(QDir().mkpath(m_folder->filePath(u"AutomobileDocx"_s)));
        QFile hostile(m_folder->filePath(u"AutomobileDocx/AutoMbayh.docx"_s));
        QVERIFY(hostile.open(QIODevice::WriteOnly) && hostile.write("no document") > 0);
        hostile.close();
        PrintedContracts::add(*m_office, 0);
        const auto page = openPage();
        QVERIFY(page->runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"فایل ورد پیدا نشد."_s});
        QVERIFY(m_opened.isEmpty());
    }

    void everyWarningIsToTheLetter_data()
    {
        QTest::addColumn<int>("trouble");
        QTest::addColumn<QString>("text");
        QTest::newRow("template missing") << int(ContractPrinting::Trouble::TemplateMissing) << missingText;
        QTest::newRow("no word processor") << int(ContractPrinting::Trouble::ProcessorMissing)
                                           << u"امکان مقدار دهی اولیه مایکروسافت ورد وجود ندارد!"_s;
        QTest::newRow("template unreadable") << int(ContractPrinting::Trouble::TemplateUnreadable) << u"فایل ورد پیدا نشد."_s;
    }

    void everyWarningIsToTheLetter()
    {
        QFETCH(int, trouble);
        QFETCH(QString, text);
        contractPrintingDialogs(nullptr).warn(static_cast<ContractPrinting::Trouble>(trouble));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{text});
    }

    void contractThatVanishedFromTheListIsPassedOver()
    {
        PrintedContracts::add(*m_office, 0);
        const auto page = openPage();
        m_office->database().run(u"DELETE FROM AutomobilContracts"_s);
        QVERIFY(page->runCommand(command));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(m_opened.isEmpty());
    }

    void printingAsksTheRightToSeeAContract()
    {
        PrintedContracts::add(*m_office, 0);
        const QString form = u"AutomobilContracts"_s;
        m_office->logInAs(u"clerk"_s, form, KSecurity::allRights & ~KSecurity::Read);
        const auto page = openPage();
        QVERIFY(page->runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(form, KSecurity::Read)});
        QVERIFY(m_opened.isEmpty());
    }

    void templatesAreLookedForBesideTheCode()
    {
        QCOMPARE(QDir(ContractPrinting::defaultTemplateFolder()),
                 QDir(u"" TZ_TEMPLATES ""_s));
    }
};

static const RegisteredTest<TestContractPrintingDialogs, KApplication> registeredContractPrintingDialogs;

#include "TestContractPrintingDialogs.moc"

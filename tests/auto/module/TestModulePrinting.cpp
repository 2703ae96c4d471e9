// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/CAutoDBSetting.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/KModuleLoader.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class TabHost final : public KTabHost
{
public:
    void addPage(KDialogTabPage *page) override { m_page.reset(page); }

    std::unique_ptr<KDialogTabPage> m_page;
};

}

// Printing in the module as the host loads it: it finds the templates that were built beside it, whatever the folder of
// the program.
class TestModulePrinting : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    QTemporaryDir m_folder;
    QList<QUrl> m_opened;

public Q_SLOTS:
    void open(const QUrl &url) { m_opened.append(url); }

private Q_SLOTS:
    void initTestCase()
    {
        setSettingsFile(m_folder.filePath(u"user.ini"_s));
        qputenv("TMPDIR", m_folder.path().toLocal8Bit());
        QDesktopServices::setUrlHandler(u"file"_s, this, "open");
        g_pDlgWarning->answerAll(true);
        CTblUsers::setHashCost(CTblUsers::leastCost());
        SuiteSchema::upgrade();
    }

    void cleanupTestCase()
    {
        QDesktopServices::unsetUrlHandler(u"file"_s);
        GetDBSetting()->Logout();
        setSettingsFile({});
    }

    void contractIsPrintedFromTheTemplateBesideTheModule()
    {
        KModuleLoader loader(u"TzAuto"_s);
        QVERIFY2(loader.load(u"" TZ_MODULE ""_s), qPrintable(loader.technicalText()));
        const auto entry = reinterpret_cast<CAutoDBSetting *(*)()>(loader.resolve("GetAutoDBSetting"));
        QVERIFY(entry);
        double reached = 0;
        QCOMPARE(entry()->UpdateDB(0, 0, reached, false), 1);
        SuiteSchema::raiseModuleVersion(reached);
        SuiteSchema::afterModuleUpgrade();
        QVERIFY(GetDBSetting()->Login(CTblUsers::create(u"boss"_s, u"secret"_s, u"boss"_s, true)));
        m_database.run(u"INSERT INTO AutomobilContracts (iCode, iContractType, iPersonContract1, iPersonContract2, sName1, "
                       "iStatus, bReturn, iArchiveUserID) VALUES (9, 2, 2, 2, 'a', 0, 0, 0)"_s);

        TabHost host;
        GetDBSetting()->SetTabHost(&host);
        entry()->ShowAutomobilContractDlg();
        auto *page = qobject_cast<KListPage *>(host.m_page.get());
        QVERIFY(page);
        page->open();
        QVERIFY(page->runCommand(u"printContract"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        QCOMPARE(m_opened.size(), 1);
        const QFileInfo printed(m_opened.first().toLocalFile());
        QCOMPARE(printed.fileName(), u"AutoInstallment.docx"_s);
        QVERIFY(printed.filePath().startsWith(m_folder.path() + u'/'));
        QVERIFY(printed.size() > 0);
        // Code of the module must be gone before the module is.
        host.m_page.reset();
        GetDBSetting()->SetTabHost(nullptr);
        QVERIFY(loader.unload());
    }
};

static const RegisteredTest<TestModulePrinting, KApplication> registeredModulePrinting;

#include "TestModulePrinting.moc"

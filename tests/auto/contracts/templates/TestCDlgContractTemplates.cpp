// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/templates/CDlgContractTemplates.h"
#include "auto/contracts/templates/TemplateEditing.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString rightsForm = u"AutomobilContracts"_s;
const QString cameAlong = u"قالب همراه برنامه"_s;

QString formPath(const char *name)
{
    return u"" TZ_TEMPLATES "/"_s + QLatin1String(name);
}

QByteArray formContent(const char *name)
{
    QFile file(formPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}

// What each type is printed from, and every way of changing it, by two desks.
class TestCDlgContractTemplates : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_folder;
    QList<QUrl> m_opened;

    std::unique_ptr<CDlgContractTemplates> open()
    {
        auto window = std::make_unique<CDlgContractTemplates>(nullptr, ContractPrinting::Places{u"" TZ_TEMPLATES ""_s, m_folder->path()});
        window->show();
        return window;
    }
    static QPushButton *button(CDlgContractTemplates &window, const QString &caption)
    {
        for (QPushButton *found : window.findChildren<QPushButton *>()) {
            if (found->accessibleName() == caption)
                return found;
        }
        return nullptr;
    }
    // Of sales: the file in use and how many there are.
    QString standing()
    {
        return m_office->database().value(u"SELECT CONCAT(IFNULL(MAX(IF(bInUse,sName,NULL)),'-'),' ',COUNT(*)) FROM Templates WHERE sKind='contract.0'"_s);
    }
    // As the word processor does it.
    static void save(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    void otherDesk(const std::function<void()> &work)
    {
        m_office->logInAs(u"sima"_s, rightsForm, KSecurity::allRights);
        work();
        m_office->logInAsAdmin();
    }

public Q_SLOTS:
    void openUrl(const QUrl &url) { m_opened.append(url); }

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
        for (KMessageDialog *messages : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            messages->takeShown();
        QDesktopServices::setUrlHandler(u"file"_s, this, "openUrl");
    }
    void cleanup() { QDesktopServices::unsetUrlHandler(u"file"_s); }

    void eachTypeShowsWhatItIsPrintedFrom()
    {
        const auto window = open();
        QCOMPARE(window->types()->count(), ContractTemplates::types);
        for (int row = 0; row < ContractTemplates::types; ++row)
            QCOMPARE(window->types()->cellText(row, 1), cameAlong);
        window->replaceBy(formPath("AutoMbayh.docx"));
        QCOMPARE(window->types()->cellText(0, 1), u"AutoMbayh.docx"_s);
        QCOMPARE(window->types()->cellText(1, 1), cameAlong);
        QCOMPARE(window->versions()->count(), 1);
        // Twice is once.
        window->replaceBy(formPath("AutoMbayh.docx"));
        QCOMPARE(standing(), u"AutoMbayh.docx 1"_s);
    }

    void oneBeforeComesBackAndThenWhatCameAlong()
    {
        const auto window = open();
        window->replaceBy(formPath("AutoMbayh.docx"));
        window->replaceBy(formPath("AutoRent.docx"));
        QCOMPARE(standing(), u"AutoRent.docx 2"_s);
        QVERIFY(!button(*window, u"بازگشت به این قالب"_s)->isEnabled());
        window->versions()->selectRow(1);
        button(*window, u"بازگشت به این قالب"_s)->click();
        QCOMPARE(standing(), u"AutoMbayh.docx 2"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        button(*window, cameAlong)->click();
        QCOMPARE(standing(), u"- 2"_s);
        QVERIFY(!button(*window, cameAlong)->isEnabled());
    }

    void anotherDesksChoiceIsAskedAbout_data()
    {
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("mine takes its place") << true;
        QTest::newRow("theirs stays") << false;
    }

    void anotherDesksChoiceIsAskedAbout()
    {
        QFETCH(bool, goesOn);
        const auto window = open();
        otherDesk([] { ContractTemplates::use(0, u"sima.docx"_s, formContent("AutoRent.docx"), u"از فایل"_s, 0); });
        g_pDlgYesNo->answerNext(goesOn ? KMessageDialog::Yes : KMessageDialog::No);
        window->replaceBy(formPath("AutoMbayh.docx"));
        const QStringList asked = g_pDlgYesNo->takeShown();
        QVERIFY2(asked.size() == 1 && asked.constFirst().startsWith(u"کاربر «sima» در "_s), qPrintable(asked.join(u'|')));
        QCOMPARE(standing(), goesOn ? u"AutoMbayh.docx 2"_s : u"sima.docx 1"_s);
        QCOMPARE(window->types()->cellText(0, 1), goesOn ? u"AutoMbayh.docx"_s : u"sima.docx"_s);
    }

    void savedInTheWordProcessorIsTakenBack()
    {
        const auto window = open();
        button(*window, u"ویرایش در واژه‌پرداز"_s)->click();
        QCOMPARE(m_opened.size(), 1);
        const QString path = m_opened.constFirst().toLocalFile();
        QCOMPARE(path, window->editing()->path());
        QVERIFY(path.startsWith(m_folder->path()));
        QVERIFY(!window->editing()->isChanged());
        QSignalSpy saved(window->editing(), &TemplateEditing::saved);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        save(path, formContent("AutoRent.docx"));
        QTRY_COMPARE(saved.size(), 1);
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(standing(), u"AutoMbayh.docx 1"_s);
        QCOMPARE(ContractTemplates::inUse(0).file, formContent("AutoRent.docx"));
        QVERIFY(!window->editing()->isChanged());
        window->reject();
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    }

    // Edited for long enough that somebody else replaced what it is a copy of.
    void editedMeanwhileReplacedIsAsked()
    {
        const auto window = open();
        window->edit();
        otherDesk([] { ContractTemplates::use(0, u"sima.docx"_s, formContent("AutoRent.docx"), u"از فایل"_s, 0); });
        // A look at the list in between does not hide it.
        window->choose(1);
        window->choose(0);
        save(window->editing()->path(), formContent("AutoInstallment.docx"));
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window->takeBack();
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(standing(), u"sima.docx 1"_s);
        // Nothing of the editing is lost by that.
        QVERIFY(window->editing()->isChanged());
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window->reject();
        QVERIFY(window->isVisible());
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        window->reject();
        QVERIFY(!window->isVisible());
    }

    void unfitFileIsToldAndChangesNothing()
    {
        const auto window = open();
        window->edit();
        save(window->editing()->path(), "no document");
        button(*window, u"گرفتن ویرایش"_s)->click();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(standing(), u"- 0"_s);
        QVERIFY(window->editing()->isChanged());
    }

    void previewPrintsTheContractOfThatCode()
    {
        const int contract = m_office->addContract();
        m_office->database().run(u"UPDATE AutomobilContracts SET iContractType=0,iCode=77 WHERE iID=%1"_s.arg(contract));
        const auto window = open();
        QCOMPARE(window->findChild<QLineEdit *>()->text(), u"77"_s);
        window->preview();
        QCOMPARE(m_opened.size(), 1);
        QCOMPARE(QFileInfo(m_opened.constFirst().toLocalFile()).fileName(), u"AutoMbayh.docx"_s);
        // Of another type.
        window->choose(1);
        window->findChild<QLineEdit *>()->setText(u"77"_s);
        window->preview();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"قراردادی از این نوع با این کد نیست."_s});
        QCOMPARE(m_opened.size(), 1);
    }

    void checkSaysWhatIsWrong()
    {
        const auto window = open();
        window->check();
        const QStringList own = g_pDlgMessage->takeShown();
        QVERIFY2(own.size() == 1 && !own.constFirst().contains(u"شناخته نیستند"_s), qPrintable(own.join(u'|')));
        // A letter says less than a sale shows.
        window->replaceBy(formPath("AutoLetter.docx"));
        window->check();
        const QStringList other = g_pDlgMessage->takeShown();
        QVERIFY2(other.size() == 1 && other != own && other.constFirst().contains(u"Capacity"_s), qPrintable(other.join(u'|')));
    }

    void whoMayNotChangeContractsOnlyLooks()
    {
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~KSecurity::Modify);
        const auto window = open();
        for (const QString &caption : {u"جایگزینی با فایل"_s, u"ویرایش در واژه‌پرداز"_s, u"گرفتن ویرایش"_s, cameAlong, u"بازگشت به این قالب"_s})
            QVERIFY2(!button(*window, caption)->isEnabled(), qPrintable(caption));
        QVERIFY(button(*window, u"بررسی"_s)->isEnabled());
    }
};

static const RegisteredTest<TestCDlgContractTemplates, KApplication> registeredCDlgContractTemplates;

#include "TestCDlgContractTemplates.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalExportDialogs.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "tests/auto/reports/season/ExportedSeason.h"
#include "tests/support/AccessFileReader.h"
#include "tests/support/RegisteredTest.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

using ExportedSeason::builtFolder;
using ExportedSeason::ownRow;
using ExportedSeason::report;
using Kind = SeasonalExport::Kind;

namespace {

const QString fileName = u"Foroosh_Fasly_1404_2.mdb"_s;

}

// The steps with their messages to the letter, and the desktop that opens the folder in the end.
class TestSeasonalExportDialogs : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_folder;
    QList<QUrl> m_opened;

    // Types the folder: the window reads what lies in it on a thread of its own, and may select that meanwhile.
    static void typeAndAccept(QWidget *window, const QString &folder)
    {
        auto *name = window->findChild<QLineEdit *>(u"fileNameEdit"_s);
        QVERIFY(name);
        name->setText(folder);
        static_cast<QDialog *>(window)->accept();
    }

    // Answers the choice of a folder.
    void choose(const QString &folder)
    {
        TestOffice::whenModal("QFileDialog", [folder](QWidget *window) { typeAndAccept(window, folder); });
    }

public Q_SLOTS:
    void open(const QUrl &url) { m_opened.append(url); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        ExportedSeason::giveCompany();
        m_folder = std::make_unique<QTemporaryDir>();
        m_opened.clear();
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage})
            dialog->takeShown();
        QDesktopServices::setUrlHandler(u"file"_s, this, "open");
    }

    void cleanup() { QDesktopServices::unsetUrlHandler(u"file"_s); }

    void writesTheFileSaysSoAndOpensTheFolder()
    {
        QString prompt;
        bool folders = false;
        const QString path = m_folder->path();
        TestOffice::whenModal("QFileDialog", [&](QWidget *window) {
            auto *dialog = static_cast<QFileDialog *>(window);
            prompt = dialog->windowTitle();
            folders = dialog->fileMode() == QFileDialog::Directory;
            typeAndAccept(window, path);
        });
        QVERIFY(exportSeasonWithDialogs(nullptr, report(Kind::Sales, {ownRow(1)}), builtFolder));
        QCOMPARE(prompt, u": پوشه مورد نظر خود را انتخاب نمایید"_s);
        QVERIFY(folders);
        QCOMPARE(AccessFileReader(m_folder->filePath(fileName)).count(u"Foroush_Detail"_s), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"انجام شد."_s});
        QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(path)});
    }

    void cancelledChoiceOfTheFolderEndsSilently()
    {
        TestOffice::whenModal("QFileDialog", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        QVERIFY(!exportSeasonWithDialogs(nullptr, report(Kind::Sales, {ownRow(1)}), builtFolder));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(m_opened.isEmpty());
    }

    void missingTemplateWarns()
    {
        QVERIFY(!exportSeasonWithDialogs(nullptr, report(Kind::Sales, {ownRow(1)}), m_folder->path()));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"فایل اکسس مالیات موجود نیست : TTMS.mdb"_s});
        QVERIFY(m_opened.isEmpty());
    }

    void emptyCompanyWarns()
    {
        CompanyDetails().write();
        QVERIFY(!exportSeasonWithDialogs(nullptr, report(Kind::Sales, {ownRow(1)}), builtFolder));
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"ابتدا مشخصات شرکت یا فروشگاه خود را از طریق دکمه مشخصات شرکت/فروشگاه پر نمایید."_s});
        QVERIFY(m_opened.isEmpty());
    }

    void failedCopyWarns()
    {
        QVERIFY(QDir().mkpath(m_folder->filePath(fileName)));
        choose(m_folder->path());
        QVERIFY(!exportSeasonWithDialogs(nullptr, report(Kind::Sales, {ownRow(1)}), builtFolder));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"امکان کپی فایل نیست."_s});
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(m_opened.isEmpty());
    }

    void stoppedByItsButton()
    {
        choose(m_folder->path());
        bool sawProgress = false;
        QTimer poll;
        connect(&poll, &QTimer::timeout, this, [&] {
            auto *window = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
            if (!window || sawProgress)
                return;
            sawProgress = true;
            for (QPushButton *button : window->findChildren<QPushButton *>()) {
                if (button->accessibleName() == u"انصراف"_s)
                    button->click();
            }
        });
        poll.start(10);
        // More than will be written before the window is there.
        SeasonalExport::Report large = report(Kind::Sales, {ownRow(1)});
        large.rowCount = 2'000'000;
        large.cells = [](int) { return ownRow(1); };
        QVERIFY(!exportSeasonWithDialogs(nullptr, large, builtFolder));
        QVERIFY(sawProgress);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(m_opened.isEmpty());
        QVERIFY(QDir(m_folder->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }
};

static const RegisteredTest<TestSeasonalExportDialogs, KApplication> registeredSeasonalExportDialogs;
#include "TestSeasonalExportDialogs.moc"

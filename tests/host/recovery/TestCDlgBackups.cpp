// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/CDlgBackups.h"

#include "host/backup/BackupFiles.h"
#include "host/backup/BackupTaking.h"
#include "host/keeping/BackupKeeper.h"
#include "host/keeping/BackupPassphrase.h"
#include "host/keeping/BackupsHere.h"
#include "host/recovery/CDlgBackupUnlock.h"
#include "host/recovery/RestoreLoss.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/recovery/CDlgRestoreRecords.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/host/HostTestOffice.h"
#include "tests/host/keeping/VerifyingProgram.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

using State = BackupManifest::Verification::State;

// The window of the backups: what it lists, what its commands do, and for whom.
class TestCDlgBackups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_verifies.reset(); }
    void othersThanAdministratorsDoNotSeeIt();
    void whoIsNoAdministratorAnyMoreChangesNothing();
    void withoutBackupsItOffersOne();
    void listsWhatIsKnown();
    void backupsOfBothFoldersStandOnce();
    void takesOne();
    void verifies_data();
    void verifies();
    void deletesFileAndManifestAndCopy();
    void anotherBackupDuringTheQuestionIsNotTheOneDeleted();
    void onlyProvedOneIsNotDeletedLightly();
    void restoringSaysWhatIsLost();
    void oneOfTheSecondFolderAloneMayBeAnotherOffices();
    void changesAreCountedFromTheLog();
    void othersAtWorkAreNamedAndNothingIsRestored();
    void recordsAreChosenFromTheLoadedBackup();
    void passphraseIsAskedUntilItIsRight();
    void ownPassphraseIsNotAskedFor();

private:
    DataFolder folder() const { return DataFolder(m_folder->filePath(u"office"_s)); }
    BackupFile take(const QString &passphrase = {}) const
    {
        return BackupTaking(m_office.database.settings()).take({.folder = folder().backupsPath(), .passphrase = passphrase});
    }
    static void setVerified(BackupFile file, State state)
    {
        BackupManifest manifest = *file.manifest();
        manifest.verification = {state, QDateTime::currentDateTimeUtc(), state == State::Failed ? u"جدول «اشخاص» کم است."_s : QString()};
        file.setManifest(manifest);
    }
    static void change(int times)
    {
        for (int each = 0; each < times; ++each)
            KTransaction::runReplayable([] { KChangeLog::note(u"Persons"_s, 1, KChange::Kind::Changed); });
    }

    TestDatabase::Alone m_alone; // a backup stops the whole server for a moment
    HostTestOffice m_office;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<VerifyingProgram> m_verifies;
};

void TestCDlgBackups::initTestCase()
{
    m_office.fresh();
}

// The database is only read by most of these, so that one does for all.
void TestCDlgBackups::init()
{
    GetDBSetting()->Login(m_office.admin);
    m_office.database.run(u"UPDATE Users SET bAdmin=1"_s);
    setSettingsFile(m_office.settings.filePath(QString::fromLatin1(QTest::currentTestFunction()) + u".ini"_s));
    m_folder = std::make_unique<QTemporaryDir>();
    folder().create();
    m_verifies = std::make_unique<VerifyingProgram>();
    static_cast<void>(g_pDlgWarning->takeShown());
    static_cast<void>(g_pDlgMessage->takeShown());
    static_cast<void>(g_pDlgYesNo->takeShown());
}

void TestCDlgBackups::othersThanAdministratorsDoNotSeeIt()
{
    m_office.database.run(u"UPDATE Users SET bAdmin=0"_s);
    const RestoreRequest request = CDlgBackups::choose(folder(), nullptr, nullptr);
    QVERIFY(!request.file.exists());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این کار فقط برای مدیر برنامه مجاز است."_s});
}

void TestCDlgBackups::whoIsNoAdministratorAnyMoreChangesNothing()
{
    const BackupFile file = take();
    CDlgBackups dialog(folder(), nullptr);
    m_office.database.run(u"UPDATE Users SET bAdmin=0"_s);
    for (const QString &command : {u"take"_s, u"verify"_s, u"lookInto"_s, u"restore"_s, u"records"_s, u"delete"_s}) {
        dialog.runCommand(command);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این کار فقط برای مدیر برنامه مجاز است."_s});
    }
    QVERIFY(BackupFile(file.path()).exists());
    QCOMPARE(BackupFiles::in(folder().backupsPath(), m_office.database.name()).size(), 1);
    QVERIFY(!m_verifies->wasCalled());
    QVERIFY(!dialog.request().file.exists());
}

void TestCDlgBackups::withoutBackupsItOffersOne()
{
    CDlgBackups dialog(folder(), nullptr);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.list()->count(), 0);
    auto *empty = dialog.findChild<KEmptyState *>();
    QVERIFY(empty && empty->isVisible());
    QVERIFY(!dialog.runCommand(u"restore"));
    empty->button()->click();
    QCOMPARE(dialog.list()->count(), 1);
    QVERIFY(!empty->isVisible());
}

void TestCDlgBackups::listsWhatIsKnown()
{
    const BackupFile good = take();
    setVerified(good, State::Passed);
    const BackupFile bad = take(u"کوه سبز پنجره"_s);
    setVerified(bad, State::Failed);
    QFile old(folder().backupsPath() + u'/' + m_office.database.name() + u"-20200102-030405.sql"_s);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.close();
    CDlgBackups dialog(folder(), nullptr);
    KExtListCtrl *list = dialog.list();
    QCOMPARE(list->count(), 3);
    const int goodRow = list->cellText(0, u"encrypted") == u"ندارد" ? 0 : 1;
    QVERIFY(list->cellText(goodRow, u"verified").startsWith(u"آزموده شد"_s));
    QCOMPARE(list->cellText(1 - goodRow, u"verified"), u"ایراد دارد"_s);
    QCOMPARE(list->cellText(1 - goodRow, u"encrypted"), u"دارد"_s);
    QCOMPARE(list->cellText(goodRow, u"reason"), BackupManifest::shown(BackupManifest::Reason::ByHand));
    QCOMPARE(list->cellText(2, u"date"), u"1398/10/12"_s);
    QCOMPARE(list->cellText(2, u"time"), u"03:04"_s);
    QCOMPARE(list->cellText(2, u"verified"), u"آزموده نشده"_s);
    QCOMPARE(list->cellText(2, u"size"), u"0 بایت"_s);
}

void TestCDlgBackups::backupsOfBothFoldersStandOnce()
{
    const QString usb = m_folder->filePath(u"usb"_s);
    QVERIFY(QDir().mkpath(usb));
    BackupsHere::setSecondFolder(usb);
    const BackupFile both = take();
    BackupFiles::copy(both, usb);
    const BackupFile onlyThere = take();
    BackupFiles::copy(onlyThere, usb);
    QVERIFY(onlyThere.remove());
    CDlgBackups dialog(folder(), nullptr);
    QCOMPARE(dialog.list()->count(), 2);
    QStringList places{dialog.list()->cellText(0, u"place"), dialog.list()->cellText(1, u"place")};
    places.sort();
    QCOMPARE(places, (QStringList{u"این رایانه و پوشه دوم"_s, u"پوشه دوم"_s}));
}

void TestCDlgBackups::takesOne()
{
    BackupKeeper keeper(folder(), true);
    CDlgBackups dialog(folder(), &keeper);
    QVERIFY(dialog.runCommand(u"take"));
    QCOMPARE(dialog.list()->count(), 1);
    QVERIFY(g_pDlgMessage->takeShown().constFirst().contains(folder().backupsPath()));
    QTRY_VERIFY(m_verifies->wasCalled());
    QTRY_VERIFY(!keeper.isVerifying());
}

void TestCDlgBackups::verifies_data()
{
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("says");
    QTest::addColumn<bool>("warns");
    QTest::newRow("well") << 0 << "درست بود" << false;
    QTest::newRow("a difference") << 3 << "ایراد دارد" << true;
    QTest::newRow("no room") << 1 << "انجام نشد" << true;
}

void TestCDlgBackups::verifies()
{
    QFETCH(int, exitCode);
    QFETCH(QString, says);
    QFETCH(bool, warns);
    m_verifies->endWith(exitCode);
    const BackupFile file = take();
    CDlgBackups dialog(folder(), nullptr);
    QVERIFY(dialog.runCommand(u"verify"));
    QVERIFY(m_verifies->arguments().contains(file.path()));
    const QStringList shown = (warns ? g_pDlgWarning : g_pDlgMessage)->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(says), qPrintable(shown.constFirst()));
}

void TestCDlgBackups::deletesFileAndManifestAndCopy()
{
    const QString usb = m_folder->filePath(u"usb"_s);
    QVERIFY(QDir().mkpath(usb));
    BackupsHere::setSecondFolder(usb);
    const BackupFile file = take();
    BackupFiles::copy(file, usb);
    CDlgBackups dialog(folder(), nullptr);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    QVERIFY(dialog.runCommand(u"delete"));
    QVERIFY(BackupFile(file.path()).exists());
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    QVERIFY(dialog.runCommand(u"delete"));
    QCOMPARE(QDir(folder().backupsPath()).entryList(QDir::Files), QStringList());
    QCOMPARE(QDir(usb).entryList(QDir::Files), QStringList());
    QCOMPARE(dialog.list()->count(), 0);
}

namespace {

std::function<void()> duringTheQuestion;

}

void TestCDlgBackups::anotherBackupDuringTheQuestionIsNotTheOneDeleted()
{
    const QString asked = take().path();
    CDlgBackups dialog(folder(), nullptr);
    QString taken;
    duringTheQuestion = [&] {
        taken = take().path();
        dialog.refill();
    };
    g_pDlgYesNo->answerAll(false);
    const auto ended = qScopeGuard([] {
        KMessageDialog::setBox(nullptr);
        g_pDlgYesNo->answerAll(true);
    });
    KMessageDialog::setBox([](KMessageDialog::Kind, const QString &, KMessageDialog::Buttons, QWidget *) {
        duringTheQuestion();
        return KMessageDialog::Yes;
    });
    QVERIFY(dialog.runCommand(u"delete"));
    QVERIFY(!QFile::exists(asked));
    QVERIFY(QFile::exists(taken));
    QCOMPARE(dialog.list()->count(), 1);
}

void TestCDlgBackups::onlyProvedOneIsNotDeletedLightly()
{
    setVerified(take(), State::Passed);
    CDlgBackups dialog(folder(), nullptr);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    dialog.runCommand(u"delete");
    QVERIFY(g_pDlgYesNo->takeShown().constFirst().contains(u"تنها پشتیبان آزموده شده"_s));
}

void TestCDlgBackups::restoringSaysWhatIsLost()
{
    const BackupFile file = take();
    change(3);
    CDlgBackups dialog(folder(), nullptr);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    QVERIFY(dialog.runCommand(u"restore"));
    QVERIFY(!dialog.request().file.exists());
    const QString question = g_pDlgYesNo->takeShown().constFirst();
    QVERIFY2(question.contains(BackupListing::whenText(file)), qPrintable(question));
    QVERIFY2(question.contains(u"3 تغییری"_s), qPrintable(question));
    QVERIFY2(question.contains(u"آزموده نشده"_s), qPrintable(question));
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    QVERIFY(dialog.runCommand(u"restore"));
    QCOMPARE(dialog.request().file.path(), file.path());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestCDlgBackups::oneOfTheSecondFolderAloneMayBeAnotherOffices()
{
    const QString usb = m_folder->filePath(u"usb"_s);
    QVERIFY(QDir().mkpath(usb));
    BackupsHere::setSecondFolder(usb);
    const BackupFile file = take();
    BackupFiles::copy(file, usb);
    CDlgBackups dialog(folder(), nullptr);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    QVERIFY(dialog.runCommand(u"restore"));
    QVERIFY(!g_pDlgYesNo->takeShown().constFirst().contains(u"دفتر دیگری"_s));
    QVERIFY(file.remove());
    dialog.refill();
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    QVERIFY(dialog.runCommand(u"restore"));
    const QStringList questions = g_pDlgYesNo->takeShown();
    QCOMPARE(questions.size(), 1);
    QVERIFY2(questions.constFirst().contains(u"شاید از دفتر دیگری"_s), qPrintable(questions.constFirst()));
    QVERIFY(!dialog.request().file.exists());
}

void TestCDlgBackups::changesAreCountedFromTheLog()
{
    change(1);
    const BackupFile file = take();
    QCOMPARE(RestoreLoss::changesSince(file), std::optional<qint64>(0));
    change(2);
    KTransaction::runReplayable([] { KChangeLog::note(u"Backup"_s, 0, KChange::Kind::BackedUp); });
    QCOMPARE(RestoreLoss::changesSince(file), std::optional<qint64>(2));
    // The log does not reach back to the backup: how much is lost is not known.
    m_office.database.run(u"DELETE FROM Changes"_s);
    QCOMPARE(RestoreLoss::changesSince(file), std::optional<qint64>());
    QVERIFY(RestoreLoss::question(file, std::nullopt).contains(u"از دست می‌رود"_s));
}

void TestCDlgBackups::othersAtWorkAreNamedAndNothingIsRestored()
{
    take();
    KLease::createTable();
    m_office.database.run(u"INSERT INTO Leases(sName,sHolder,sText,dateTaken,dateSeen) "
                          "VALUES('Session 7','elsewhere/7/7','حسابداری-2',UTC_TIMESTAMP(),UTC_TIMESTAMP())"_s);
    CDlgBackups dialog(folder(), nullptr);
    QVERIFY(dialog.runCommand(u"restore"));
    const QStringList shown = g_pDlgWarning->takeShown();
    m_office.database.run(u"DELETE FROM Leases WHERE sName='Session 7'"_s);
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(u"حسابداری-2"_s), qPrintable(shown.constFirst()));
    QVERIFY(!dialog.request().file.exists());
    QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
}

void TestCDlgBackups::recordsAreChosenFromTheLoadedBackup()
{
    CTblProperties::DBWriteSetting(u"Test"_s, u"sState"_s, u"پیشین"_s);
    take();
    CTblProperties::DBWriteSetting(u"Test"_s, u"sState"_s, u"کنونی"_s);
    CDlgBackups dialog(folder(), nullptr);
    QString there;
    QString here;
    QTimer glance;
    connect(&glance, &QTimer::timeout, this, [&] {
        auto *window = qobject_cast<CDlgRestoreRecords *>(QApplication::activeModalWidget());
        if (!window)
            return;
        there = CTblProperties::DBReadSetting(u"Test"_s, u"sState"_s, QString(), 1);
        here = CTblProperties::DBReadSetting(u"Test"_s, u"sState"_s, QString());
        window->reject();
    });
    glance.start(50);
    QVERIFY(dialog.runCommand(u"records"));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QCOMPARE(there, u"پیشین"_s);
    QCOMPARE(here, u"کنونی"_s);
    QCOMPARE(QDir(folder().temporaryPath()).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
}

void TestCDlgBackups::passphraseIsAskedUntilItIsRight()
{
    const QString text = u"کوه سبز پنجره"_s;
    CDlgBackupUnlock dialog(take(text));
    auto *field = named<KEdit>(dialog, u"رمز پشتیبان :"_s);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    field->setText(u"رمز دیگر"_s);
    dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این رمز پشتیبان را باز نمی‌کند."_s});
    QVERIFY(dialog.isVisible());
    QCOMPARE(field->text(), u"رمز دیگر"_s);
    QVERIFY(field->hasFocus());
    field->setText(text);
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.passphrase(), text);
}

void TestCDlgBackups::ownPassphraseIsNotAskedFor()
{
    const QString text = u"کوه سبز پنجره"_s;
    BackupPassphrase(folder()).store(text);
    QCOMPARE(CDlgBackupUnlock::passphraseFor(take(text), folder(), nullptr), std::optional<QString>(text));
    QCOMPARE(CDlgBackupUnlock::passphraseFor(take(), folder(), nullptr), std::optional<QString>(QString()));
}

static const RegisteredTest<TestCDlgBackups, QApplication> registeredCDlgBackups;
#include "TestCDlgBackups.moc"

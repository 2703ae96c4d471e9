// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupKeeper.h"

#include "host/backup/BackupFiles.h"
#include "host/keeping/BackupJob.h"
#include "host/keeping/BackupPassphrase.h"
#include "host/keeping/BackupsHere.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/host/HostTestOffice.h"
#include "tests/host/keeping/VerifyingProgram.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDir>
#include <QScopeGuard>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

using State = BackupManifest::Verification::State;
using Kind = BackupStanding::Kind;

// Backups that the program takes by itself, from a real database.
class TestBackupKeeper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void takesWhatIsDueAndLetsItBeVerified();
    void isTakenOnAnotherThread();
    void atClosingOnlyWhatChanged();
    void switchedOffItTakesNothing_data();
    void switchedOffItTakesNothing();
    void oneProgramAtATime();
    void whatAnotherDeskTookIsNotTakenAgain();
    void failureIsToldOnceAndStays();
    void missingSecondFolderIsToldOnceADay();
    void secondFolderGetsAWholeCopy();
    void givenUpNothingIsLeft();
    void endsWithTheKeeper();
    void copyingThatHangsIsLetGo_data();
    void copyingThatHangsIsLetGo();
    void passphraseReachesTheVerifyingByItsInput();
    void passphraseThatCannotBeReadMakesNoOpenBackup();
    void verifyingThatFails_data();
    void verifyingThatFails();
    void newestIsVerifiedAtTheNextStart();
    void whatTheUserTookStays();
    void clockThatWasAheadMakesNoBackupEachMinute();
    void anotherOfficesCopiesAreLeftAlone();
    void copyLearnsWhetherItIsProved();

private:
    DataFolder folder() const { return DataFolder(m_folder->filePath(u"office"_s)); }
    QList<BackupFile> files() const { return BackupFiles::in(folder().backupsPath(), m_office.database.name()); }
    void change()
    {
        CTblProperties::DBWriteSettingInt(u"Test"_s, u"iChange"_s, ++m_change);
        noteChange();
    }
    static void noteChange()
    {
        KTransaction::runReplayable([] { KChangeLog::note(u"Persons"_s, 1, KChange::Kind::Changed); });
    }
    static void takeAndWait(BackupKeeper &keeper, BackupManifest::Reason reason = BackupManifest::Reason::Interval);

    TestDatabase::Alone m_alone; // a backup stops the whole server for a moment
    HostTestOffice m_office;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<VerifyingProgram> m_verifies;
    int m_change = 0;
};

void TestBackupKeeper::init()
{
    m_office.fresh();
    m_folder = std::make_unique<QTemporaryDir>();
    folder().create();
    m_verifies = std::make_unique<VerifyingProgram>();
    noteChange();
}

void TestBackupKeeper::cleanup()
{
    OfficeSettings::setOnlyRead({});
    m_verifies.reset();
}

void TestBackupKeeper::takeAndWait(BackupKeeper &keeper, BackupManifest::Reason reason)
{
    QSignalSpy taken(&keeper, &BackupKeeper::taken);
    QVERIFY(keeper.take(reason));
    QVERIFY(taken.wait(60000));
}

void TestBackupKeeper::takesWhatIsDueAndLetsItBeVerified()
{
    BackupKeeper keeper(folder(), true);
    QCOMPARE(keeper.standing().kind, Kind::None);
    QSignalSpy taken(&keeper, &BackupKeeper::taken);
    QSignalSpy failed(&keeper, &BackupKeeper::failed);
    keeper.look();
    QVERIFY(keeper.isTaking());
    QCOMPARE(keeper.standing().kind, Kind::Taking);
    QVERIFY(taken.wait(60000));
    QVERIFY(taken.constFirst().constFirst().toBool());
    QCOMPARE(files().size(), 1);
    const BackupFile file = files().constFirst();
    QVERIFY(file.manifest());
    QCOMPARE(file.manifest()->reason, BackupManifest::Reason::Interval);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Changes WHERE sTable='Backup' AND iKind=9"_s), u"1"_s);
    QTRY_VERIFY(m_verifies->wasCalled());
    QTRY_VERIFY(!keeper.isVerifying());
    QVERIFY2(m_verifies->arguments().contains(u"--verify\n"_s + file.path()), qPrintable(m_verifies->arguments()));
    QVERIFY(m_verifies->arguments().contains(u"--data-dir\n"_s + folder().path()));
    QVERIFY(failed.isEmpty());
    QCOMPARE(keeper.standing().taken, file.taken());

    m_verifies->forget();
    keeper.look();
    QVERIFY(!keeper.isTaking());
    QCOMPARE(files().size(), 1);
}

void TestBackupKeeper::isTakenOnAnotherThread()
{
    BackupKeeper keeper(folder(), true);
    QSignalSpy taken(&keeper, &BackupKeeper::taken);
    QVERIFY(keeper.take(BackupManifest::Reason::Interval));
    // The window's own thread goes on meanwhile: this is reached before the backup's end is handled.
    QVERIFY(taken.isEmpty());
    QCOMPARE(m_office.database.value(u"SELECT 1"_s), u"1"_s);
    QVERIFY(taken.wait(60000));
}

void TestBackupKeeper::atClosingOnlyWhatChanged()
{
    BackupKeeper keeper(folder(), true);
    QVERIFY(keeper.isDueAtClosing());
    takeAndWait(keeper, BackupManifest::Reason::Closing);
    QVERIFY2(!m_verifies->wasCalled(), "the program is about to end");
    QVERIFY(!keeper.isDueAtClosing());
    change();
    QVERIFY(keeper.isDueAtClosing());
    CTblProperties::DBWriteSettingInt(u"Backup"_s, u"bAtClosing"_s, 0);
    QVERIFY(!keeper.isDueAtClosing());
}

void TestBackupKeeper::switchedOffItTakesNothing_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"hours", "here", "clerk on the office's server", "view of a backup"})
        QTest::newRow(how) << how;
}

void TestBackupKeeper::switchedOffItTakesNothing()
{
    QFETCH(QString, how);
    const bool isPrivate = how != u"clerk on the office's server";
    if (how == u"hours")
        CTblProperties::DBWriteSettingInt(u"Backup"_s, u"iHours"_s, 0);
    else if (how == u"here")
        BackupsHere::setTakesByItself(false);
    else if (!isPrivate)
        m_office.loginClerk();
    else
        OfficeSettings::setOnlyRead(u"پشتیبان"_s);
    BackupKeeper keeper(folder(), isPrivate);
    keeper.look();
    QVERIFY(!keeper.isTaking());
    QCOMPARE(keeper.isDueAtClosing(), how == u"hours");
}

void TestBackupKeeper::oneProgramAtATime()
{
    BackupKeeper keeper(folder(), true);
    KLease::createTable();
    std::unique_ptr<KLease> others = KLease::tryTake(u"backup"_s, u"رایانه دیگر"_s);
    QVERIFY(others);
    keeper.look();
    QVERIFY(!keeper.isTaking());
    QVERIFY(!keeper.take(BackupManifest::Reason::Interval));
    others.reset();
    takeAndWait(keeper);
    QVERIFY(!KLease::isAlive(u"backup"_s));
    QCOMPARE(files().size(), 1);
}

void TestBackupKeeper::whatAnotherDeskTookIsNotTakenAgain()
{
    KTransaction::runReplayable([] { KChangeLog::note(u"Backup"_s, 0, KChange::Kind::BackedUp); });
    BackupKeeper keeper(folder(), true);
    keeper.look();
    QVERIFY(!keeper.isTaking());
    m_office.database.run(u"UPDATE Changes SET date=NOW() - INTERVAL 61 MINUTE WHERE sTable='Backup'"_s);
    keeper.look();
    QVERIFY(keeper.isTaking());
}

void TestBackupKeeper::failureIsToldOnceAndStays()
{
    QVERIFY(QDir(folder().backupsPath()).removeRecursively());
    QFile inTheWay(folder().backupsPath());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    {
        BackupKeeper keeper(folder(), true);
        QSignalSpy failed(&keeper, &BackupKeeper::failed);
        takeAndWait(keeper);
        takeAndWait(keeper);
        QCOMPARE(failed.size(), 1);
        QVERIFY2(failed.constFirst().constFirst().toString().contains(folder().backupsPath()), qPrintable(failed.constFirst().constFirst().toString()));
        QCOMPARE(keeper.standing().kind, Kind::Failed);
        QVERIFY(keeper.standing().isBad());
        QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Changes WHERE sTable='Backup'"_s), u"0"_s);
    }
    // The next start knows; whoever shows it says it once, the keeper does not say it again.
    BackupKeeper next(folder(), true);
    QSignalSpy failed(&next, &BackupKeeper::failed);
    QVERIFY(!BackupKeeper::failure().isEmpty());
    QVERIFY(next.standing().isBad());
    takeAndWait(next);
    QCOMPARE(failed.size(), 0);
    QVERIFY(inTheWay.remove());
    takeAndWait(next);
    QVERIFY(BackupKeeper::failure().isEmpty());
    QVERIFY(!next.standing().isBad());
}

void TestBackupKeeper::missingSecondFolderIsToldOnceADay()
{
    BackupsHere::setSecondFolder(m_folder->filePath(u"usb"_s));
    BackupKeeper keeper(folder(), true);
    QSignalSpy failed(&keeper, &BackupKeeper::failed);
    takeAndWait(keeper);
    QCOMPARE(files().size(), 1);
    QCOMPARE(failed.size(), 1);
    QVERIFY(failed.constFirst().constFirst().toString().contains(u"پوشه دوم"_s));
    QVERIFY(!QDir(m_folder->filePath(u"usb"_s)).exists());
    takeAndWait(keeper);
    QCOMPARE(failed.size(), 1);
    QTRY_VERIFY(!keeper.isVerifying());
    QVERIFY(keeper.standing().isBad());
    QVERIFY(BackupKeeper::failure().isEmpty());
    QVERIFY(QDir().mkpath(m_folder->filePath(u"usb"_s)));
    takeAndWait(keeper);
    QTRY_VERIFY(!keeper.isVerifying());
    QVERIFY(!keeper.standing().isBad());
}

void TestBackupKeeper::secondFolderGetsAWholeCopy()
{
    const QString usb = m_folder->filePath(u"usb"_s);
    QVERIFY(QDir().mkpath(usb));
    BackupsHere::setSecondFolder(usb);
    BackupKeeper keeper(folder(), true);
    takeAndWait(keeper);
    const QList<BackupFile> copies = BackupFiles::in(usb, m_office.database.name());
    QCOMPARE(copies.size(), 1);
    QVERIFY(copies.constFirst().manifest());
    QCOMPARE(copies.constFirst().size(), files().constFirst().size());
}

void TestBackupKeeper::givenUpNothingIsLeft()
{
    BackupKeeper keeper(folder(), true);
    QSignalSpy taken(&keeper, &BackupKeeper::taken);
    QSignalSpy failed(&keeper, &BackupKeeper::failed);
    QVERIFY(keeper.take(BackupManifest::Reason::Closing));
    keeper.cancel();
    QVERIFY(taken.wait(60000));
    QVERIFY(!taken.constFirst().constFirst().toBool());
    QVERIFY(failed.isEmpty());
    QVERIFY(BackupKeeper::failure().isEmpty());
    QCOMPARE(QDir(folder().backupsPath()).entryList(QDir::Files | QDir::Hidden), QStringList());
    QVERIFY(!KLease::isAlive(u"backup"_s));
}

void TestBackupKeeper::endsWithTheKeeper()
{
    {
        BackupKeeper keeper(folder(), true);
        QVERIFY(keeper.take(BackupManifest::Reason::Interval));
    }
    QCOMPARE(QDir(folder().backupsPath()).entryList({u"*.part"_s}, QDir::Files | QDir::Hidden), QStringList());
    QVERIFY(!KLease::isAlive(u"backup"_s));
    m_verifies->endWith(0, true);
    {
        BackupKeeper keeper(folder(), true);
        takeAndWait(keeper);
        QTRY_VERIFY(m_verifies->wasCalled());
        QVERIFY(keeper.isVerifying());
    }
}

void TestBackupKeeper::copyingThatHangsIsLetGo_data()
{
    QTest::addColumn<bool>("atOnce");
    QTest::newRow("given up by the user") << false;
    QTest::newRow("the keeper ends") << true;
}

void TestBackupKeeper::copyingThatHangsIsLetGo()
{
    QFETCH(bool, atOnce);
    const QString share = m_folder->filePath(u"share"_s);
    QVERIFY(QDir().mkpath(share));
    BackupsHere::setSecondFolder(share);
    const auto begun = std::make_shared<QSemaphore>();
    const auto answers = std::make_shared<QSemaphore>();
    const auto ended = std::make_shared<QSemaphore>();
    BackupJob::setCopying([=](const BackupFile &, const QString &, const std::function<bool()> &) {
        begun->release();
        answers->acquire();
        ended->release();
    });
    const auto restored = qScopeGuard([] { BackupJob::setCopying({}); });
    auto keeper = std::make_unique<BackupKeeper>(folder(), true);
    QSignalSpy taken(keeper.get(), &BackupKeeper::taken);
    QVERIFY(keeper->take(BackupManifest::Reason::Closing));
    QVERIFY(begun->tryAcquire(1, 60000));
    if (!atOnce) {
        keeper->cancel();
        QCOMPARE(taken, QList<QVariantList>{{true}});
        QVERIFY(!keeper->isTaking());
    }
    keeper.reset();
    // The share has not answered yet.
    QCOMPARE(ended->available(), 0);
    QCOMPARE(files().size(), 1);
    answers->release();
    QVERIFY(ended->tryAcquire(1, 60000));
}

void TestBackupKeeper::passphraseReachesTheVerifyingByItsInput()
{
    const QString text = u"کوه سبز پنجره هفت"_s;
    BackupPassphrase(folder()).store(text);
    BackupKeeper keeper(folder(), true);
    takeAndWait(keeper);
    QVERIFY(files().constFirst().isEncrypted());
    QTRY_VERIFY(!keeper.isVerifying());
    QCOMPARE(m_verifies->input(), text + u'\n');
    QVERIFY(!m_verifies->arguments().contains(text));
}

void TestBackupKeeper::passphraseThatCannotBeReadMakesNoOpenBackup()
{
    BackupPassphrase(folder()).store(u"کوه سبز پنجره هفت"_s);
    QVERIFY(QFile::setPermissions(BackupPassphrase(folder()).file(), QFile::ReadOwner | QFile::ReadOther));
    BackupKeeper keeper(folder(), true);
    QSignalSpy failed(&keeper, &BackupKeeper::failed);
    takeAndWait(keeper);
    QCOMPARE(failed.size(), 1);
    QCOMPARE(files().size(), 0);
}

void TestBackupKeeper::verifyingThatFails_data()
{
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<int>("messages");
    QTest::newRow("passed") << 0 << 0;
    QTest::newRow("could not be done") << 1 << 1;
    QTest::newRow("found a difference") << 3 << 1;
    QTest::newRow("another passphrase") << 5 << 0;
}

void TestBackupKeeper::verifyingThatFails()
{
    QFETCH(int, exitCode);
    QFETCH(int, messages);
    m_verifies->endWith(exitCode);
    BackupKeeper keeper(folder(), true);
    QSignalSpy failed(&keeper, &BackupKeeper::failed);
    takeAndWait(keeper);
    QTRY_VERIFY(m_verifies->wasCalled());
    QTRY_VERIFY(!keeper.isVerifying());
    QTRY_COMPARE(failed.size(), messages);
    QCOMPARE(keeper.standing().isBad(), messages > 0);
    takeAndWait(keeper);
    QTRY_VERIFY(!keeper.isVerifying());
    QTRY_COMPARE(keeper.standing().isBad(), messages > 0);
    QCOMPARE(failed.size(), messages);
}

void TestBackupKeeper::newestIsVerifiedAtTheNextStart()
{
    {
        BackupKeeper keeper(folder(), true);
        takeAndWait(keeper, BackupManifest::Reason::Closing);
    }
    QVERIFY(!m_verifies->wasCalled());
    BackupKeeper next(folder(), true);
    next.look();
    QVERIFY(!next.isTaking());
    QTRY_VERIFY(m_verifies->wasCalled());
    QTRY_VERIFY(!next.isVerifying());
    m_verifies->forget();
    next.look();
    QVERIFY2(!next.isVerifying(), "it is not tried again and again");
}

void TestBackupKeeper::whatTheUserTookStays()
{
    const QDateTime now(QDate(2026, 11, 22), QTime(12, 0), Qt::UTC);
    const auto make = [&](int daysAgo, BackupManifest::Reason reason) {
        const QDateTime taken = now.addDays(-daysAgo);
        const QString path = BackupFiles::freePath(folder().backupsPath(), u"office"_s, BackupFile::Format::Compressed, taken);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("x");
        file.close();
        BackupManifest manifest;
        manifest.database = u"office"_s;
        manifest.taken = taken;
        manifest.takenUtc = taken;
        manifest.reason = reason;
        manifest.program = u"1.0"_s;
        manifest.size = 1;
        BackupFile(path).setManifest(manifest);
    };
    for (int day = 0; day < 4; ++day)
        make(400 + day, BackupManifest::Reason::Interval);
    make(410, BackupManifest::Reason::ByHand);
    make(0, BackupManifest::Reason::Interval);
    QFile old(folder().backupsPath() + u"/office-20200101-120000.sql"_s);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("-- Dump completed\n");
    old.close();
    const QList<BackupFile> going = BackupJob::outdated(folder().backupsPath(), u"office"_s, {.daily = 1, .weekly = 0, .monthly = 0}, now);
    QVERIFY(!going.isEmpty());
    for (const BackupFile &file : going) {
        QVERIFY2(file.manifest(), qPrintable(file.path()));
        QCOMPARE(file.manifest()->reason, BackupManifest::Reason::Interval);
    }
}

void TestBackupKeeper::clockThatWasAheadMakesNoBackupEachMinute()
{
    BackupKeeper keeper(folder(), true);
    takeAndWait(keeper);
    QTRY_VERIFY(!keeper.isVerifying());
    const BackupFile today = files().constFirst();
    // The same once more, as taken while the clock stood ahead.
    BackupManifest manifest = *today.manifest();
    manifest.taken = manifest.taken.addYears(9);
    manifest.lastChange = 0;
    const QString ahead = BackupFiles::freePath(folder().backupsPath(), m_office.database.name(), BackupFile::Format::Compressed, manifest.taken);
    QVERIFY(QFile::copy(today.path(), ahead));
    BackupFile(ahead).setManifest(manifest);
    QCOMPARE(files().constFirst().path(), ahead);
    change();
    keeper.look();
    QVERIFY(!keeper.isTaking());
    QCOMPARE(keeper.standing().taken, today.taken());
}

void TestBackupKeeper::anotherOfficesCopiesAreLeftAlone()
{
    const QString usb = m_folder->filePath(u"usb"_s);
    QVERIFY(QDir().mkpath(usb));
    BackupsHere::setSecondFolder(usb);
    for (const auto &key : {u"iDaily"_s, u"iWeekly"_s, u"iMonthly"_s})
        CTblProperties::DBWriteSettingInt(u"Backup"_s, key, key == u"iDaily" ? 1 : 0);
    BackupKeeper keeper(folder(), true);
    takeAndWait(keeper);
    QTRY_VERIFY(!keeper.isVerifying());
    const BackupFile own = files().constFirst();
    // Two of other days, of this office and of another: the names are of the same kind.
    const auto older = [&](const QString &where, int days) {
        BackupManifest manifest = *own.manifest();
        manifest.taken = manifest.taken.addDays(-days);
        manifest.digest[0] = char(days);
        const QString path = BackupFiles::freePath(where, m_office.database.name(), BackupFile::Format::Compressed, manifest.taken);
        QFile::copy(own.path(), path);
        BackupFile(path).setManifest(manifest);
        return path;
    };
    const QString mine = older(folder().backupsPath(), 50);
    const QString minesCopy = older(usb, 50);
    const QString others = older(usb, 60);
    takeAndWait(keeper);
    QVERIFY(!QFile::exists(mine));
    QVERIFY(!QFile::exists(minesCopy));
    QVERIFY(QFile::exists(others));
    QVERIFY(BackupsHere::copiesToRemove().isEmpty());

    // While the disk is away, what is to go there is remembered.
    const QString later = older(folder().backupsPath(), 70);
    const QString latersCopy = older(usb, 70);
    QVERIFY(QDir().rename(usb, usb + u"-away"_s));
    takeAndWait(keeper);
    QVERIFY(!QFile::exists(later));
    QCOMPARE(BackupsHere::copiesToRemove().size(), 1);
    QVERIFY(QDir().rename(usb + u"-away"_s, usb));
    takeAndWait(keeper);
    QVERIFY(!QFile::exists(latersCopy));
    QVERIFY(BackupsHere::copiesToRemove().isEmpty());
}

void TestBackupKeeper::copyLearnsWhetherItIsProved()
{
    const QString usb = m_folder->filePath(u"usb"_s);
    QVERIFY(QDir().mkpath(usb));
    BackupsHere::setSecondFolder(usb);
    BackupKeeper keeper(folder(), true);
    takeAndWait(keeper);
    QTRY_VERIFY(!keeper.isVerifying());
    BackupFile file = files().constFirst();
    BackupManifest manifest = *file.manifest();
    manifest.verification = {State::Failed, QDateTime::currentDateTimeUtc(), u"جدول «اشخاص» کم است."_s};
    file.setManifest(manifest);
    const auto copy = [&] { return BackupFiles::in(usb, m_office.database.name()).constFirst(); };
    QCOMPARE(copy().verification().state, State::None);
    BackupJob::mirrorVerification(file, usb);
    QCOMPARE(copy().verification().state, State::Failed);
    // Of the same name, but another backup: it is not touched.
    BackupManifest another = *copy().manifest();
    another.digest[0] = char(another.digest[0] + 1);
    another.verification = {};
    BackupFile(copy().path()).setManifest(another);
    BackupJob::mirrorVerification(file, usb);
    QCOMPARE(copy().verification().state, State::None);
}

static const RegisteredTest<TestBackupKeeper, QApplication> registeredBackupKeeper;
#include "TestBackupKeeper.moc"

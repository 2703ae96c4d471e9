// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupKeeper.h"

#include "host/backup/BackupDue.h"
#include "host/backup/BackupFiles.h"
#include "host/backup/BackupState.h"
#include "host/frame/StartupClock.h"
#include "host/keeping/BackupJob.h"
#include "host/keeping/BackupPassphrase.h"
#include "host/keeping/BackupSettings.h"
#include "host/keeping/BackupsHere.h"
#include "host/server/ServerError.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/utility/values/KSettings.h"

#include <QFileInfo>
#include <QSysInfo>
#include <QThread>

using namespace Qt::StringLiterals;

using State = BackupManifest::Verification::State;

namespace {

constexpr int minute = 60 * 1000;
// Nobody who has just logged in waits for the disk.
constexpr int minutesBeforeFirst = 2;
constexpr int minutesAfterAnError = 10;

constexpr int patienceWithMirror = 3000;

// Nobody waits for it any more; it goes when it ends.
void leaveBehind(std::unique_ptr<QThread> thread)
{
    QObject::connect(thread.get(), &QThread::finished, thread.get(), &QObject::deleteLater);
    static_cast<void>(thread.release());
}

const QString leaseName = u"backup"_s;
const QString kindInLog = u"Backup"_s;
const QString toldSection = u"Backup"_s;
const QString toldKey = u"sSecondTold"_s;

QString databaseName()
{
    return KConnection::settings(0).database;
}

// Of this computer, held as the office's times are.
QDateTime localNow()
{
    const QDateTime now = QDateTime::currentDateTime();
    return QDateTime(now.date(), now.time(), Qt::UTC);
}

// One of a clock that was ahead would be the newest for years.
bool isOfFuture(const QDateTime &taken, const QDateTime &now)
{
    constexpr int tolerance = 60;
    return taken > now.addSecs(tolerance);
}

// The newest that holds what it was to hold, as far as that is known.
std::optional<BackupFile> newestGood(const QList<BackupFile> &files, const QDateTime &now)
{
    for (const BackupFile &file : files) {
        if (file.manifest() && file.verification().state != State::Failed && !isOfFuture(file.taken(), now))
            return file;
    }
    return std::nullopt;
}

}

BackupKeeper::BackupKeeper(const DataFolder &folder, bool isPrivate, QObject *parent)
    : QObject(parent)
    , m_folder(folder)
    , m_isPrivate(isPrivate)
    , m_process(folder)
    , m_told{failure()}
    , m_minutesToSkip(minutesBeforeFirst)
{
    m_clock.setInterval(minute);
    connect(&m_clock, &QTimer::timeout, this, [this] {
        if (m_minutesToSkip > 0)
            --m_minutesToSkip;
        else
            look();
    });
    connect(&m_process, &BackupProcess::ended, this, &BackupKeeper::verified);
}

BackupKeeper::~BackupKeeper()
{
    stopVerifying();
    if (m_mirror && !m_mirror->wait(patienceWithMirror))
        leaveBehind(std::move(m_mirror));
    if (m_thread && !letGoOfCopying())
        m_thread->wait();
}

void BackupKeeper::start()
{
    m_clock.start();
    Q_EMIT standingChanged();
}

QString BackupKeeper::failure()
{
    return BackupsHere::failure();
}

bool BackupKeeper::takesByItself() const
{
    return !OfficeSettings::isOnlyRead() && BackupsHere::takesByItself(m_isPrivate, GetDBSetting()->IsAdmin());
}

namespace {

// What decides whether one is due, asked from the files and the database.
BackupDue dueNow(const QString &folder, const OfficeSettings &read)
{
    const BackupSettings settings = BackupSettings::of(read);
    BackupDue due{.everyHours = settings.hours, .atClosing = settings.atClosing};
    if (const std::optional<BackupFile> newest = newestGood(BackupFiles::in(folder, databaseName()), read.serverTime())) {
        due.last = newest->taken();
        due.lastChange = newest->manifest()->lastChange;
    }
    // One that another program of the office has taken stands in its own folder.
    const std::optional<KChange> logged = KChangeLog::last(kindInLog, 0);
    if (logged && logged->kind == KChange::Kind::BackedUp && logged->when > due.last && !isOfFuture(logged->when, read.serverTime()))
        due.last = logged->when;
    due.changeNow = BackupState::lastChange(KConnection::forThread(0), databaseName());
    return due;
}

}

void BackupKeeper::look()
{
    if (isTaking() || isVerifying() || !takesByItself() || KConnection::isWaiting())
        return;
    try {
        const OfficeSettings read = OfficeSettings::read(BackupSettings::sections());
        if (!dueNow(backupsFolder(), read).isDue(read.serverTime()) || !take(BackupManifest::Reason::Interval))
            verifyNewest();
    } catch (const CMySQLException &) {
        qCWarning(lcHost).noquote() << "backup:" << KErrorText::logText(std::current_exception());
        m_minutesToSkip = minutesAfterAnError;
    }
}

bool BackupKeeper::isDueAtClosing()
{
    if (isTaking() || !takesByItself())
        return false;
    try {
        return dueNow(backupsFolder(), OfficeSettings::read(BackupSettings::sections())).isDueAtClosing();
    } catch (const CMySQLException &) {
        qCWarning(lcHost).noquote() << "backup at closing:" << KErrorText::logText(std::current_exception());
        return false;
    }
}

bool BackupKeeper::take(BackupManifest::Reason reason)
{
    if (isTaking())
        return false;
    KLease::createTable();
    m_lease = KLease::tryTake(leaseName, QSysInfo::machineHostName());
    if (!m_lease)
        return false;
    stopVerifying();
    std::shared_ptr<BackupJob> job = newJob(m_folder, reason);
    runJob(std::move(job));
    return true;
}

// A passphrase that is set and cannot be read makes no backup that anybody can read.
std::shared_ptr<BackupJob> BackupKeeper::newJob(const DataFolder &folder, BackupManifest::Reason reason)
{
    const BackupPassphrase passphrase(folder);
    const BackupSettings settings = BackupSettings::read();
    auto job = std::make_shared<BackupJob>();
    job->server = KConnection::settings(0);
    job->request = {.folder = folder.backupsPath(), .reason = reason, .passphrase = passphrase.read()};
    job->secondFolder = BackupsHere::secondFolder();
    job->copiesToRemove = BackupsHere::copiesToRemove();
    job->kept = {settings.daily, settings.weekly, settings.monthly};
    if (passphrase.isSet() && job->request.passphrase.isEmpty()) {
        job->problem = u"پرونده رمز پشتیبان‌ها خوانده نشد یا دیگران هم می‌توانند آن را بخوانند؛ رمز را در تنظیمات دوباره تعیین نمایید."_s;
        job->detail = passphrase.file() + u": cannot be read, or others can read it"_s;
    }
    return job;
}

void BackupKeeper::runJob(std::shared_ptr<BackupJob> job)
{
    m_job = std::move(job);
    m_thread.reset(QThread::create([job = m_job] { job->run(); }));
    connect(m_thread.get(), &QThread::finished, this, &BackupKeeper::jobEnded);
    m_thread->start(QThread::LowPriority);
    Q_EMIT standingChanged();
}

void BackupKeeper::jobEnded()
{
    m_thread->wait();
    // Its signal is being handled.
    m_thread.release()->deleteLater();
    finishJob();
}

bool BackupKeeper::letGoOfCopying()
{
    if (!m_job->letGo())
        return false;
    qCWarning(lcHost) << "the copy in the second folder was given up";
    disconnect(m_thread.get(), nullptr, this, nullptr);
    leaveBehind(std::move(m_thread));
    return true;
}

void BackupKeeper::finishJob()
{
    const std::shared_ptr<BackupJob> job = std::move(m_job);
    if (job->file) {
        noteInLog();
        succeeded(*job);
    } else if (!job->cancelled) {
        m_minutesToSkip = minutesAfterAnError;
        fail(job->problem, job->detail);
    }
    m_lease.reset();
    Q_EMIT taken(job->file.has_value());
    Q_EMIT standingChanged();
}

// So that the other programs of the office know, and whoever looks at its history.
void BackupKeeper::noteInLog() const
{
    try {
        KTransaction::runReplayable([] { KChangeLog::note(kindInLog, 0, KChange::Kind::BackedUp); });
    } catch (const CMySQLException &) {
        qCWarning(lcHost).noquote() << "backup:" << KErrorText::logText(std::current_exception());
    }
}

void BackupKeeper::adopt(const BackupJob &job)
{
    noteInLog();
    succeeded(job);
    Q_EMIT standingChanged();
}

void BackupKeeper::succeeded(const BackupJob &job)
{
    qCInfo(lcHost).noquote() << "backup taken:" << job.file->path();
    BackupsHere::setFailure({});
    BackupsHere::setCopiesToRemove(job.copiesToRemove);
    m_secondProblem = job.secondProblem;
    if (!m_secondProblem.isEmpty())
        tellSecondFolder(job.secondProblem);
    if (job.request.reason != BackupManifest::Reason::Closing)
        verify(*job.file);
}

void BackupKeeper::fail(const QString &message, const QString &detail)
{
    qCWarning(lcHost).noquote() << "backup:" << detail;
    BackupsHere::setFailure(message);
    if (!m_told.contains(message))
        Q_EMIT failed(message);
    m_told.insert(message);
    Q_EMIT standingChanged();
}

// A disk that is carried away on most days is told about once on each.
void BackupKeeper::tellSecondFolder(const QString &problem)
{
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    if (ReadSetting(toldSection, toldKey, QString()) == today)
        return;
    WriteSetting(toldSection, toldKey, today);
    Q_EMIT failed(u"پشتیبان گرفته شد، ولی در پوشه دوم نوشته نشد.\n%1"_s.arg(problem));
}

void BackupKeeper::verify(const BackupFile &file)
{
    if (isVerifying())
        return;
    m_verifying = file;
    m_tried.insert(file.path());
    m_process.verify(file, BackupPassphrase(m_folder).read());
    Q_EMIT standingChanged();
}

void BackupKeeper::verifyNewest()
{
    const std::optional<BackupFile> newest = newestGood(BackupFiles::in(backupsFolder(), databaseName()), localNow());
    if (newest && newest->verification().state == State::None && !m_tried.contains(newest->path()))
        verify(*newest);
}

void BackupKeeper::verified(BackupProcess::Outcome outcome, const QString &words)
{
    const QString path = m_verifying ? m_verifying->path() : QString();
    m_verifying.reset();
    qCInfo(lcHost).noquote() << "backup verified:" << path << int(outcome) << words;
    mirror(path);
    if (outcome == BackupProcess::Outcome::Passed) {
        BackupsHere::setFailure({});
        m_told.clear();
    }
    if (outcome == BackupProcess::Outcome::Refuted)
        fail(u"پشتیبانی که گرفته شد در آزمون بازگرداندن ایراد داشت و نباید به آن تکیه کرد. اکنون پشتیبان دیگری بگیرید؛ اگر باز هم ایراد داشت، دیسک "
             "این رایانه را بررسی نمایید."_s,
             words);
    else if (outcome == BackupProcess::Outcome::NotRun)
        fail(u"پشتیبان گرفته شد، ولی آزمون بازگرداندن آن انجام نشد؛ فضای دیسک و گزارش برنامه را بررسی نمایید."_s, words);
    Q_EMIT standingChanged();
}

// Also what stands in the second folder says whether it is proved. A share may be slow.
void BackupKeeper::mirror(const QString &path)
{
    const QString second = BackupsHere::secondFolder();
    if (second.isEmpty() || m_mirror)
        return;
    m_mirror.reset(QThread::create([path, second] {
        try {
            BackupJob::mirrorVerification(BackupFile(path), second);
        } catch (const ServerError &error) {
            qCWarning(lcHost).noquote() << "second folder:" << error.detail();
        }
    }));
    connect(m_mirror.get(), &QThread::finished, this, [this] {
        m_mirror->wait();
        m_mirror.release()->deleteLater();
    });
    m_mirror->start();
}

double BackupKeeper::progress() const
{
    if (!m_job || m_job->expected <= 0)
        return -1;
    return qMin(1.0, double(m_job->done) / double(m_job->expected));
}

void BackupKeeper::cancel()
{
    if (m_job && letGoOfCopying())
        finishJob();
    stopVerifying();
}

void BackupKeeper::stopVerifying()
{
    if (!isVerifying())
        return;
    m_process.cancel();
    if (m_verifying)
        m_tried.remove(m_verifying->path());
    m_verifying.reset();
}

BackupStanding BackupKeeper::standing() const
{
    BackupStanding standing;
    const QList<BackupFile> files = BackupFiles::in(backupsFolder(), databaseName());
    const auto present = std::find_if(files.cbegin(), files.cend(), [](const BackupFile &file) { return !isOfFuture(file.taken(), localNow()); });
    const std::optional<BackupFile> newest = present == files.cend() ? std::nullopt : std::optional(*present);
    standing.kind = newest ? BackupStanding::Kind::Taken : BackupStanding::Kind::None;
    if (newest) {
        standing.taken = newest->taken();
        const BackupManifest::Verification verification = newest->verification();
        standing.verified = verification.when.toLocalTime();
        if (verification.state != State::None)
            standing.kind = verification.state == State::Passed ? BackupStanding::Kind::Verified : BackupStanding::Kind::Refuted;
    }
    standing.trouble = failure().isEmpty() ? m_secondProblem : failure();
    if (m_verifying) {
        standing.kind = BackupStanding::Kind::Verifying;
        standing.taken = m_verifying->taken();
    }
    if (isTaking())
        standing.kind = BackupStanding::Kind::Taking;
    else if (!failure().isEmpty() && !m_verifying && standing.kind != BackupStanding::Kind::Refuted)
        standing.kind = BackupStanding::Kind::Failed;
    return standing;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/DatabaseUpgrade.h"

#include "auto/CAutoDBSetting.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KLongWork.h"
#include "suite/db/connection/KTableSchema.h"
#include "host/frame/StartupClock.h"
#include "host/backup/BackupTaking.h"
#include "host/server/TableNames.h"
#include "host/start/SchemaGuard.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/SuiteSchema.h"

#include <QSysInfo>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int pulseMilliseconds = 50;
constexpr int pulsesBetweenLooks = 5;
// Fewer are summed up beside the first reading of balances, in a second or two.
constexpr int documentsToSumUp = 10000;

const QString leaseName = u"upgrade"_s;
const QString schemaSection = u"Schema"_s;
const QString unfinishedKey = u"TzAutoUnfinished"_s;

// Tables whose rows users entered. An upgrade brings the others (accounts, settings) by itself.
const QStringList &suiteTables()
{
    static const QStringList tables = {u"Users"_s, u"UserRights"_s, u"Persons"_s, u"Items"_s, u"Documents"_s, u"Docs"_s,
                                       u"Receipts"_s, u"Cheques"_s, u"ChequeChanges"_s, u"FollowUps"_s, u"CarContracts"_s, u"FileDocs"_s, u"CustomFields"_s, u"CustomFieldRecords"_s,
                                       u"ReportLayouts"_s, u"Alarms"_s, u"Services"_s, u"Factors"_s, u"FactorStuffs"_s, u"Bin"_s, u"BinRows"_s, u"MessageTexts"_s};
    return tables;
}

const QStringList &moduleTables()
{
    static const QStringList tables = {u"AutomobilContracts"_s, u"AutomobilDemands"_s, u"AutomobilInformations"_s,
                                       u"AutomobilPayments"_s, u"AutomobilTariffs"_s, u"CarBrands"_s, u"CarModels"_s,
                                       u"CarClasses"_s, u"CarYears"_s};
    return tables;
}

bool holdRows(const QStringList &tables)
{
    CTblTemp query;
    query.Open(false, false, true);
    QList<KSql> names;
    for (const QString &table : tables)
        names.append(KSql::quoted(table));
    query.ExecuteQuery(KSql::formatted("SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_SCHEMA = DATABASE() "
                                       "AND TABLE_TYPE = 'BASE TABLE' AND TABLE_NAME IN (%1)",
                                       KSql::joined(names, ",")));
    QList<KSql> present;
    for (; query.HasResultRow(); query.MoveNextResult())
        present.append(KSql::formatted("EXISTS(SELECT 1 FROM %1)", KSql::name(query.GetTextFieldValue(0))));
    if (present.isEmpty())
        return false;
    query.ExecuteQuery("SELECT " + KSql::joined(present, " OR "));
    return query.GetLongFieldValue(0) != 0;
}

bool holdsRows()
{
    return holdRows(suiteTables() + moduleTables());
}

// What others read who wait for this program.
QString thisDesk()
{
    QString user = qEnvironmentVariable("USER");
    if (user.isEmpty())
        user = qEnvironmentVariable("USERNAME");
    return u"کاربر «\u2068%1\u2069» روی رایانه «\u2068%2\u2069»"_s.arg(user, QSysInfo::machineHostName());
}

bool isUnfinished()
{
    return CTblProperties::DBReadSettingInt(schemaSection, unfinishedKey, 0) != 0;
}

void setUnfinished(bool unfinished)
{
    CTblProperties::DBWriteSettingInt(schemaSection, unfinishedKey, unfinished ? 1 : 0);
}

// The module wants to change the schema while it is not this program's turn yet.
struct ChangeIsDue
{
};

// The upgrade is to begin anew, from what is stored.
struct BeginAnew
{
};

}

DatabaseUpgrade::DatabaseUpgrade(const QString &backupsFolder, Progress progress, Waiting waiting)
    : m_backupsFolder(backupsFolder)
    , m_progress(std::move(progress))
    , m_waiting(std::move(waiting))
{
}

std::unique_ptr<KLease> DatabaseUpgrade::takeTurn()
{
    KLease::createTable();
    for (;;) {
        if (std::unique_ptr<KLease> lease = KLease::tryTake(leaseName, thisDesk()))
            return lease;
        waitForTurn();
    }
}

void DatabaseUpgrade::waitForTurn()
{
    for (;;) {
        const std::optional<KLease::Holder> holder = KLease::holder(leaseName);
        if (!holder || !holder->alive)
            return;
        const QString text = u"%1 در حال ارتقای پایگاه داده است"_s.arg(holder->text);
        for (int pulse = 0; pulse < pulsesBetweenLooks; ++pulse) {
            if (!m_waiting)
                m_progress(text);
            else if (!m_waiting(text))
                throw ServerError(ServerError::Kind::Cancelled, u"برنامه به درخواست شما پیش از پایان ارتقای پایگاه داده بسته شد."_s,
                                  u"the user gave up waiting for: "_s + holder->text);
            QThread::msleep(pulseMilliseconds);
        }
    }
}

void DatabaseUpgrade::refuse(const QString &what) const
{
    throw ServerError(ServerError::Kind::VersionLost,
                      u"شماره نسخه %1 در پایگاه داده پیدا نشد، ولی جدول‌های آن اطلاعات دارند. برای آنکه چیزی از دست نرود، برنامه "
                      "آنها را تغییر نداد؛ پایگاه داده را از نسخه پشتیبان بازگردانید."_s.arg(what)
                          + (m_wayBack.isEmpty() ? QString() : u'\n' + m_wayBack),
                      u"tables hold rows, but the schema version of "_s + what + u" is missing"_s);
}

void DatabaseUpgrade::upgradeSuite()
{
    if (!SuiteSchema::isVersionStored() && holdsRows())
        refuse(u"برنامه"_s);
    if (SuiteSchema::storedVersion() == SuiteSchema::currentVersion())
        return;
    const std::unique_ptr<KLease> lease = takeTurn();
    const KLongWork work;
    const int stored = SuiteSchema::storedVersion();
    if (stored == SuiteSchema::currentVersion())
        return;
    if (stored < SuiteSchema::currentVersion() && holdsRows())
        takeDump();
    m_progress(u"آماده‌سازی جدول‌های پایگاه داده"_s);
    qCInfo(lcHost) << "suite schema" << stored << "to" << SuiteSchema::currentVersion();
    SuiteSchema::upgrade();
    KTableSchema::forgetAll();
}

void DatabaseUpgrade::sumUpBooks()
{
    if (TotalsFolding::behind(documentsToSumUp) < documentsToSumUp)
        return;
    const std::unique_ptr<KLease> lease = takeTurn();
    const KLongWork work;
    TotalsFolding::fold([this](int done) {
        m_progress(u"جمع‌بندی حساب‌ها: %1 سند"_s.arg(done));
        return true;
    });
}

bool DatabaseUpgrade::upgradeModule(CAutoDBSetting &module)
{
    if (!SuiteSchema::isModuleVersionStored() && holdRows(moduleTables()))
        refuse(u"گالری اتومبیل"_s);
    if (!runModule(module))
        return false;
    closeModuleUpgrade();
    return true;
}

// A start without a due step takes no turn: the module is let run as far as its first change, and only then is called again.
bool DatabaseUpgrade::runModule(CAutoDBSetting &module)
{
    try {
        return callModule(module, nullptr);
    } catch (const ChangeIsDue &) {
    }
    for (;;) {
        const std::unique_ptr<KLease> lease = takeTurn();
        const KLongWork work;
        try {
            return callModule(module, lease.get());
        } catch (const BeginAnew &) {
            qCWarning(lcHost) << "the module's upgrade begins anew";
        }
    }
}

bool DatabaseUpgrade::callModule(CAutoDBSetting &module, KLease *lease)
{
    const double stored = SuiteSchema::moduleVersion();
    // A step that a broken-off run left half done meets columns and tables of its own; only then are they passed over.
    const bool unfinished = isUnfinished();
    double reached = stored;
    double written = stored;
    bool changed = false;
    const auto keepReached = [&] {
        if (reached <= written)
            return;
        SuiteSchema::raiseModuleVersion(reached);
        qCInfo(lcHost) << "module schema" << written << "to" << reached;
        written = reached;
    };
    const auto beforeChange = [&](const QString &dropped) {
        if (!lease)
            throw ChangeIsDue();
        // Taken over while this computer slept: whoever has the turn now goes on from what is stored.
        if (dropped.isEmpty() ? !lease->isHeld() : !lease->confirm())
            throw BeginAnew();
        if (!changed)
            prepareModuleChange();
        changed = true;
        // The stored version is behind the tables: the steps are run as those of a broken-off upgrade, which keep such a table.
        if (!dropped.isEmpty() && holdRows({dropped})) {
            if (!unfinished)
                throw BeginAnew();
            throw ServerError(ServerError::Kind::UpgradeFailed, u"ارتقای پایگاه داده جدول «%1» را که اطلاعات دارد کنار می‌گذاشت و متوقف شد."_s.arg(dropped) + (m_wayBack.isEmpty() ? QString() : u'\n' + m_wayBack),
                              u"the upgrade would drop "_s + dropped);
        }
    };
    bool completed = false;
    {
        const SchemaGuard guard({keepReached, beforeChange});
        completed = module.UpdateDB(0, stored, reached, !unfinished) == 1;
    }
    if (changed)
        KTableSchema::forgetAll();
    keepReached();
    if (completed == isUnfinished())
        setUnfinished(!completed);
    return completed;
}

// The mark stands before the first change, and a version beside it: from then on a missing one is a lost one.
void DatabaseUpgrade::prepareModuleChange()
{
    if (m_dump.isEmpty() && holdsRows())
        takeDump();
    setUnfinished(true);
    SuiteSchema::raiseModuleVersion(0);
    m_progress(u"آماده‌سازی جدول‌های گالری اتومبیل"_s);
}

void DatabaseUpgrade::closeModuleUpgrade()
{
    if (!SuiteSchema::isClosingStepDue())
        return;
    const std::unique_ptr<KLease> lease = takeTurn();
    const KLongWork work;
    SuiteSchema::afterModuleUpgrade(0, [this](const QString &table, int number, int count) {
        m_progress(u"ساخت کلیدهای فهرست‌ها، %1 از %2: %3"_s.arg(number).arg(count).arg(TableNames::shown(table)));
    });
}

void DatabaseUpgrade::takeDump()
{
    const QString waitingFor = u"پشتیبان‌گیری پیش از ارتقای پایگاه داده"_s;
    m_progress(waitingFor);
    const BackupTaking::Request request{m_backupsFolder, {}, BackupManifest::Reason::BeforeUpgrade};
    m_dump = BackupTaking(KConnection::settings(0)).take(request, [&](qint64, qint64) {
                                                       m_progress(waitingFor);
                                                       return true;
                                                   })
                 .path();
    qCInfo(lcHost) << "dump before the upgrade:" << m_dump;
}

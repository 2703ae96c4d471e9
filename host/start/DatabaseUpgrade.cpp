// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/DatabaseUpgrade.h"

#include "auto/CAutoDBSetting.h"
#include "suite/db/CTblTemp.h"
#include "suite/db/KTableSchema.h"
#include "host/frame/StartupClock.h"
#include "host/server/DatabaseDump.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

// Tables whose rows users typed. The seeded ones (accounts, settings) are recreated by an upgrade.
const QStringList &dataTables()
{
    static const QStringList tables = {u"Users"_s, u"Persons"_s, u"Documents"_s,
                                       u"AutomobilContracts"_s, u"AutomobilDemands"_s,
                                       u"AutomobilInformations"_s};
    return tables;
}

bool holdsRows()
{
    CTblTemp query;
    query.Open(false, false, true);
    QList<KSql> tables;
    for (const QString &table : dataTables())
        tables.append(KSql::quoted(table));
    query.ExecuteQuery(KSql::formatted("SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_SCHEMA = DATABASE() "
                                       "AND TABLE_NAME IN (%1)",
                                       KSql::joined(tables, ",")));
    QList<KSql> present;
    for (; query.HasResultRow(); query.MoveNextResult())
        present.append(KSql::formatted("EXISTS(SELECT 1 FROM %1)", KSql::name(query.GetTextFieldValue(0))));
    if (present.isEmpty())
        return false;
    query.ExecuteQuery("SELECT " + KSql::joined(present, " OR "));
    return query.GetLongFieldValue(0) != 0;
}

bool changesSchema(const QString &statement)
{
    const QString text = statement.trimmed();
    for (const QString &verb : {u"ALTER "_s, u"DROP "_s, u"CREATE "_s})
        if (text.startsWith(verb, Qt::CaseInsensitive))
            return true;
    return false;
}

// Runs an action before the first statement that changes the schema. Only the module knows which of its steps are due, so
// its statements show that one is.
class BeforeSchemaChange
{
public:
    explicit BeforeSchemaChange(std::function<void()> action)
        : m_action(std::move(action))
    {
        KConnection::setStatementObserver([this](const QString &statement) {
            if (!m_done && changesSchema(statement)) {
                m_done = true;
                m_action();
            }
        });
    }
    ~BeforeSchemaChange() { KConnection::setStatementObserver({}); }
    BeforeSchemaChange(const BeforeSchemaChange &) = delete;
    BeforeSchemaChange &operator=(const BeforeSchemaChange &) = delete;

private:
    std::function<void()> m_action;
    bool m_done = false;
};

const QString schemaSection = u"Schema"_s;
const QString unfinishedKey = u"TzAutoUnfinished"_s;

}

DatabaseUpgrade::DatabaseUpgrade(const QString &backupsFolder, Progress progress)
    : m_backupsFolder(backupsFolder)
    , m_progress(std::move(progress))
{
}

void DatabaseUpgrade::upgradeSuite()
{
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

bool DatabaseUpgrade::upgradeModule(CAutoDBSetting &module)
{
    if (!runModule(module))
        return false;
    SuiteSchema::afterModuleUpgrade();
    return true;
}

bool DatabaseUpgrade::runModule(CAutoDBSetting &module)
{
    const double stored = SuiteSchema::moduleVersion();
    // A step that a failed run left half done meets columns that already exist; only then are they passed over.
    const bool unfinished = CTblProperties::DBReadSettingInt(schemaSection, unfinishedKey, 0) != 0;
    const bool dumpIfChanged = m_dump.isEmpty() && holdsRows();
    bool changed = false;
    const BeforeSchemaChange guard([&] {
        changed = true;
        if (dumpIfChanged)
            takeDump();
        m_progress(u"آماده‌سازی جدول‌های گالری اتومبیل"_s);
    });

    double reached = stored;
    const bool completed = module.UpdateDB(0, stored, reached, !unfinished) == 1;
    if (changed)
        KTableSchema::forgetAll();
    if (!IsEquals(reached, stored)) {
        SuiteSchema::setModuleVersion(reached);
        qCInfo(lcHost) << "module schema" << stored << "to" << reached;
    }
    if (completed == unfinished)
        CTblProperties::DBWriteSettingInt(schemaSection, unfinishedKey, completed ? 0 : 1);
    return completed;
}

void DatabaseUpgrade::takeDump()
{
    const QString waitingFor = u"پشتیبان‌گیری پیش از ارتقای پایگاه داده"_s;
    m_progress(waitingFor);
    m_dump = DatabaseDump(KConnection::settings(0), m_backupsFolder).take([&](qint64, qint64) {
        m_progress(waitingFor);
        return true;
    });
    qCInfo(lcHost) << "dump before the upgrade:" << m_dump;
}

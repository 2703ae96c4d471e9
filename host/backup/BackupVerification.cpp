// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupVerification.h"

#include "host/backup/BackupReader.h"
#include "host/backup/BackupScratch.h"
#include "host/backup/BackupState.h"
#include "host/backup/BackupTools.h"
#include "host/server/ServerState.h"
#include "host/server/TableNames.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Tables without which the program does not work, since the step of the schema that brought them.
struct SchemaTables
{
    int suiteVersion;
    QStringList names;
};

const QList<SchemaTables> &suiteTablesBySteps()
{
    static const QList<SchemaTables> steps{
        {1, {u"Properties"_s, u"Users"_s, u"UserRights"_s}},
        {2, {u"Persons"_s, u"Items"_s, u"Departments"_s}},
        {3, {u"HesabKol"_s, u"HesabMoeen"_s, u"HesabTafsily"_s}},
        {4, {u"Documents"_s, u"Docs"_s, u"Receipts"_s}},
        {5, {u"FileDocs"_s, u"CustomFields"_s, u"CustomFieldRecords"_s}},
        {6, {u"ReportLayouts"_s}},
        {7, {u"Alarms"_s}},
        {8, {u"Services"_s, u"Factors"_s, u"FactorStuffs"_s}},
        {11, {u"UnitTokens"_s, u"Changes"_s, u"Placeholders"_s}},
        {13, {u"Cheques"_s, u"ChequeChanges"_s, u"FollowUps"_s}},
        {14, {u"Bin"_s, u"BinRows"_s}},
    };
    return steps;
}

const QStringList &tablesOfTheModule()
{
    static const QStringList names{u"AutomobilContracts"_s, u"AutomobilDemands"_s, u"AutomobilInformations"_s, u"AutomobilPayments"_s,
                                   u"AutomobilTariffs"_s, u"CarBrands"_s, u"CarModels"_s, u"CarClasses"_s, u"CarYears"_s};
    return names;
}

QStringList missingTables(const BackupManifest &dumped, const QList<BackupManifest::Table> &tables)
{
    QSet<QString> there;
    for (const BackupManifest::Table &table : tables)
        there.insert(table.name.toLower());
    QStringList required;
    for (const SchemaTables &step : suiteTablesBySteps()) {
        if (dumped.suiteVersion >= step.suiteVersion)
            required += step.names;
    }
    if (dumped.moduleVersion > 0)
        required += tablesOfTheModule();
    for (const BackupManifest::Table &table : dumped.tables)
        required.append(table.name);
    QStringList missing;
    for (const QString &name : std::as_const(required)) {
        if (!there.contains(name.toLower()) && !missing.contains(name, Qt::CaseInsensitive))
            missing.append(name);
    }
    return missing;
}

// Another series of the server may compute other sums of the same rows.
bool haveSameSums(const QString &a, const QString &b)
{
    const auto series = [](const QString &version) { return QVersionNumber(ServerState::versionIn(version).segments().mid(0, 2)); };
    return !series(a).isNull() && series(a) == series(b);
}

// Most damage shows without a server.
void readThrough(const BackupFile &file, const QString &passphrase, const BackupLoading::Progress &progress)
{
    BackupReader reader(file, passphrase);
    while (!reader.next().isEmpty()) {
        if (progress && !progress(0, file.size()))
            throw BackupTools::cancelled();
    }
}

// Whether the error says something of the backup, and not of this computer, on which it could not be loaded today: statements that the
// server refused, unless it had no room, no memory or no time for them.
bool isOfTheBackup(const ServerError &error)
{
    if (error.kind() == ServerError::Kind::BackupDamaged)
        return true;
    static const QRegularExpression refusal(u"ERROR (\\d+) \\([0-9A-Z]+\\) at line"_s);
    static const QSet<int> ofTheComputer{1021, 1037, 1038, 1040, 1041, 1053, 1114, 1317, 2002, 2006, 2013, 3024};
    const QRegularExpressionMatch found = refusal.match(error.detail());
    return error.kind() == ServerError::Kind::DumpFailed && found.hasMatch() && !ofTheComputer.contains(found.captured(1).toInt());
}

bool isEqualTotal(double a, double b)
{
    return std::abs(a - b) <= std::max(0.0001, std::abs(a) * 1e-9);
}

}

BackupVerification::BackupVerification(const DataFolder &office, const ServerPrograms &programs)
    : m_office(office)
    , m_programs(programs)
{
}

BackupVerification::Result BackupVerification::run(BackupFile &file, const QString &passphrase, const BackupLoading::Progress &progress) const
{
    using State = BackupManifest::Verification::State;
    Result result;
    const QDateTime now = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch(), Qt::UTC);
    result.verification = {State::Passed, now};
    try {
        readThrough(file, passphrase, progress);
        BackupScratch scratch(m_office, m_programs);
        scratch.setLowPriority(m_low);
        scratch.load(file, passphrase, progress);
        KConnection connection(scratch.settings());
        const QString database = scratch.settings().database;
        result.tables = BackupState::tables(connection, database);
        result.books = BackupState::books(connection, database);
        BackupManifest loaded;
        loaded.database = database;
        BackupState::readVersions(connection, loaded);
        if (file.manifest())
            result.differences = compare(*file.manifest(), result.tables, result.books, loaded.server);
        else if (result.tables.isEmpty())
            result.differences << u"در این پشتیبان جدولی نیست."_s;
    } catch (const CMySQLException &error) {
        // The server of this computer ended, or had no room.
        throw ServerError(ServerError::Kind::DidNotStart, u"پشتیبان آزموده نشد؛ دوباره تلاش کنید."_s, error.GetErrorMessage());
    } catch (const ServerError &error) {
        if (!isOfTheBackup(error))
            throw;
        result.differences << error.userMessage();
    }
    if (!result.differences.isEmpty())
        result.verification = {State::Failed, now, result.differences.first(qMin<qsizetype>(10, result.differences.size())).join(u'\n')};
    if (file.manifest()) {
        BackupManifest manifest = *file.manifest();
        manifest.verification = result.verification;
        file.setManifest(manifest);
    }
    return result;
}

QStringList BackupVerification::compare(const BackupManifest &dumped, const QList<BackupManifest::Table> &tables,
                                        const BackupManifest::Books &books, const QString &server)
{
    QStringList differences;
    for (const QString &name : missingTables(dumped, tables))
        differences << u"جدول «%1» در پشتیبان نیست."_s.arg(TableNames::shown(name));
    QHash<QString, BackupManifest::Table> loaded;
    for (const BackupManifest::Table &table : tables)
        loaded.insert(table.name.toLower(), table);
    for (const BackupManifest::Table &table : dumped.tables) {
        // Counts of a little later than the dump prove nothing.
        if (!dumped.oneSnapshot || table.rows < 0 || !loaded.contains(table.name.toLower()))
            continue;
        const BackupManifest::Table found = loaded.value(table.name.toLower());
        if (found.rows != table.rows)
            differences << u"جدول «%1» هنگام پشتیبان‌گیری %2 ردیف داشت و در پشتیبان %3 ردیف دارد."_s.arg(TableNames::shown(table.name)).arg(table.rows).arg(found.rows);
        else if (table.checksum && found.checksum && *table.checksum != *found.checksum && haveSameSums(dumped.server, server))
            differences << u"ردیف‌های جدول «%1» در پشتیبان همان نیست که بود."_s.arg(TableNames::shown(table.name));
    }
    if (!dumped.oneSnapshot)
        return differences;
    if (books.unbalanced != dumped.books.unbalanced)
        differences << u"هنگام پشتیبان‌گیری %1 سند ناتراز بود و در پشتیبان %2 سند."_s.arg(dumped.books.unbalanced).arg(books.unbalanced);
    if (books.documents != dumped.books.documents || !isEqualTotal(dumped.books.total, books.total))
        differences << u"جمع اسناد حسابداری در پشتیبان همان نیست که بود."_s;
    return differences;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupPointInTime.h"

#include "host/server/ServerError.h"
#include "host/server/ServerOptions.h"

using namespace Qt::StringLiterals;

namespace {

BinaryLogReplay::Mark markOf(const BackupFile &file)
{
    const std::optional<BackupManifest> &manifest = file.manifest();
    return manifest ? BinaryLogReplay::Mark{manifest->logFile, manifest->logPosition} : BinaryLogReplay::Mark();
}

}

BackupPointInTime::BackupPointInTime(const DataFolder &office, const ServerPrograms &programs)
    : m_office(office)
    , m_programs(programs)
{
}

BinaryLogReplay::Reach BackupPointInTime::reach(const BackupFile &file) const
{
    return BinaryLogReplay(m_office, m_programs).reach(markOf(file));
}

std::function<void(const QString &)> BackupPointInTime::onto(const KConnectionSettings &settings, const BackupFile &file, const BackupMoment &moment) const
{
    return [*this, settings, file, moment](const QString &loaded) { run(settings, loaded, file, moment); };
}

std::function<void(const KConnectionSettings &)> BackupPointInTime::ontoNew(const BackupFile &file, const BackupMoment &moment) const
{
    return [*this, file, moment](const KConnectionSettings &loaded) { run(loaded, loaded.database, file, moment); };
}

// Logged is the database of the private server, whatever it is loaded into.
void BackupPointInTime::run(const KConnectionSettings &server, const QString &into, const BackupFile &file, const BackupMoment &moment) const
{
    if (!moment.lastMinute && moment.time < file.taken())
        throw ServerError(ServerError::Kind::DumpFailed,
                          u"%1 پیش از این پشتیبان است و با آن نمی‌توان به آن زمان بازگشت؛ پشتیبان قدیمی‌تری انتخاب نمایید."_s.arg(moment.shown()),
                          u"the moment is before the backup"_s);
    BinaryLogReplay(m_office, m_programs)
        .run(server, markOf(file), ServerOptions::databaseName(), into, moment.lastMinute ? std::nullopt : std::optional(moment.time));
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/BackupCommands.h"

#include "host/backup/BackupFiles.h"
#include "host/backup/BackupPointInTime.h"
#include "host/backup/BackupReader.h"
#include "host/backup/BackupRestoring.h"
#include "host/backup/BackupTaking.h"
#include "host/backup/BackupVerification.h"
#include "host/frame/HostOptions.h"
#include "host/server/Platform.h"
#include "host/start/ConsoleLines.h"
#include "host/start/OfficeAccess.h"
#include "host/start/OfficeAccount.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int percentBetweenLines = 10;

using ConsoleLines::complain;
using ConsoleLines::say;

// A line of the standard error for each tenth of the way.
class ProgressLines
{
public:
    bool operator()(qint64 done, qint64 expected)
    {
        const int percent = expected > 0 ? static_cast<int>(qMin<qint64>(100, done * 100 / expected)) : 0;
        if (percent < m_told)
            m_told = 0;
        if (percent >= m_told + percentBetweenLines) {
            m_told = percent - percent % percentBetweenLines;
            std::fputs(qPrintable(QString::number(m_told) + u" %\n"_s), stderr);
        }
        return true;
    }

private:
    int m_told = 0;
};

class Commands
{
public:
    Commands(const HostOptions &options, const DataFolder &folder, bool persian)
        : m_options(options)
        , m_folder(folder)
        , m_persian(persian) { }

    int run()
    {
        QString problem;
        if (!readPassphrase(&problem)) {
            complain(problem);
            return BackupCommands::Failed;
        }
        if (!m_options.backupFile.isEmpty())
            return backUp();
        if (!m_options.verifyFile.isEmpty())
            return verify();
        if (!m_options.restoreFile.isEmpty())
            return restore();
        if (!m_options.decryptFile.isEmpty())
            return decrypt();
        return list();
    }

private:
    bool readPassphrase(QString *problem)
    {
        if (m_options.passphraseFile.isEmpty())
            return true;
        std::optional<QString> read;
        if (m_options.passphraseFile == u"-"_s) {
            QFile input;
            if (input.open(stdin, QIODevice::ReadOnly))
                read = QString::fromUtf8(input.readLine()).remove(u'\n').remove(u'\r');
        } else {
            read = OfficeAccount::readPassword(m_options.passphraseFile, problem);
        }
        if (!read)
            return false;
        if (read->isEmpty())
            *problem = text(u"the passphrase is empty"_s, u"گذرواژه خالی است."_s);
        m_passphrase = *read;
        return !read->isEmpty();
    }

    QString text(const QString &english, const QString &persian) const { return m_persian ? persian : english; }

    int backUp()
    {
        BackupTaking::Request request;
        request.reason = BackupManifest::Reason::CommandLine;
        request.passphrase = m_passphrase;
        if (QFileInfo(m_options.backupFile).isDir())
            request.folder = QFileInfo(m_options.backupFile).absoluteFilePath();
        else
            request.file = QFileInfo(m_options.backupFile).absoluteFilePath();
        // By its name the format is known again.
        if (!request.file.isEmpty() && BackupFile::formatOf(request.file) != (m_passphrase.isEmpty() ? BackupFile::Format::Compressed : BackupFile::Format::Encrypted)) {
            complain(m_passphrase.isEmpty() ? text(u"the file's name must end with .sql.zst"_s, u"نام پرونده باید به .sql.zst پایان یابد."_s)
                                            : text(u"the file's name must end with .sql.zst.enc"_s, u"نام پرونده باید به .sql.zst.enc پایان یابد."_s));
            return BackupCommands::WrongOptions;
        }
        OfficeAccess office(m_options, m_folder);
        office.open();
        say(BackupTaking(office.settings()).take(request, ProgressLines()).path());
        return BackupCommands::Done;
    }

    int verify()
    {
        BackupFile file(m_options.verifyFile);
        // Without one, loading proves that it is whole, and nothing was there to compare it with.
        const bool hasManifest = file.manifest().has_value();
        const bool isManifestLost = !hasManifest && QFileInfo::exists(file.manifestPath());
        BackupVerification verification(m_folder);
        verification.setLowPriority(!m_options.normalPriority);
        const BackupVerification::Result result = verification.run(file, m_passphrase, ProgressLines());
        for (const QString &difference : result.differences)
            complain(difference);
        const bool passed = result.verification.state == BackupManifest::Verification::State::Passed;
        qint64 rows = 0;
        for (const BackupManifest::Table &table : result.tables)
            rows += qMax<qint64>(0, table.rows);
        if (isManifestLost) {
            complain(text(u"its manifest cannot be read, so that nothing was compared"_s, u"شرح آن خوانده نشد و چیزی با آن سنجیده نشد."_s));
            say(text(u"failed"_s, u"ایراد دارد"_s));
            return BackupCommands::Different;
        }
        const QString counts = text(u"%1 tables, %2 rows"_s, u"%1 جدول، %2 ردیف"_s).arg(result.tables.size()).arg(rows);
        const QString proved = hasManifest ? text(u"passed: %1"_s, u"آزموده شد: %1"_s) : text(u"loaded, but it has no manifest to compare it with: %1"_s, u"خوانده شد، ولی شرحی نیست که با آن سنجیده شود: %1"_s);
        say(passed ? proved.arg(counts) : text(u"failed"_s, u"ایراد دارد"_s));
        return passed ? BackupCommands::Done : BackupCommands::Different;
    }

    int restore()
    {
        if (!m_options.restoreTo.isEmpty()) {
            m_moment = BackupMoment::fromText(m_options.restoreTo);
            if (!m_moment) {
                complain(text(u"--to: %1 is no time"_s, u"--to: %1 زمان نیست."_s).arg(m_options.restoreTo));
                return BackupCommands::WrongOptions;
            }
        }
        const BackupFile file(m_options.restoreFile);
        if (m_moment)
            tellReach(file);
        if (!m_options.connect)
            return restoreFolder(file);
        OfficeAccess office(m_options, m_folder);
        office.open();
        restoreInto(office, file);
        return restored();
    }

    void restoreInto(const OfficeAccess &office, const BackupFile &file)
    {
        const BackupRestoring restoring(office.settings());
        restoring.cleanLeft();
        BackupRestoring::Request request{file, m_passphrase, m_folder.backupsPath(), file.isEncrypted() ? m_passphrase : QString()};
        request.warn = complain;
        if (m_moment)
            request.beforeExchange = BackupPointInTime(m_folder).onto(office.settings(), file, *m_moment);
        const BackupFile copy = restoring.restore(request, ProgressLines());
        say(text(u"restored; the state before: %1"_s, u"بازگردانده شد؛ وضع پیش از آن: %1"_s).arg(copy.path()));
    }

    // The last minute that is known may be one of long ago.
    void tellReach(const BackupFile &file)
    {
        const BinaryLogReplay::Reach reach = BackupPointInTime(m_folder).reach(file);
        m_endsEarly = m_moment->lastMinute && !reach.upToNow;
        if (m_endsEarly)
            complain(reach.words());
    }

    BackupCommands::Exit restored() const { return m_endsEarly ? BackupCommands::Partly : BackupCommands::Done; }

    // Where the database cannot be opened or read, it is put aside and a new one is made.
    int restoreFolder(const BackupFile &file)
    {
        OfficeAccess office(m_options, m_folder);
        office.takeFolder();
        if (QFileInfo(m_folder.databasePath()).isDir()) {
            try {
                office.open();
                restoreInto(office, file);
                return restored();
            } catch (const ServerError &error) {
                using Kind = ServerError::Kind;
                if (error.kind() != Kind::Damaged && error.kind() != Kind::DidNotStart && error.kind() != Kind::EndedUnexpectedly)
                    throw;
                complain(error.userMessage());
            }
            office.close();
        }
        const QString damaged = BackupRestoring::intoNewFolder(
            m_folder, file, m_passphrase, ProgressLines(), {},
            m_moment ? BackupPointInTime(m_folder).ontoNew(file, *m_moment) : std::function<void(const KConnectionSettings &)>());
        say(damaged.isEmpty() ? text(u"restored"_s, u"بازگردانده شد"_s) : text(u"restored; the damaged database: %1"_s, u"بازگردانده شد؛ پایگاه داده آسیب‌دیده: %1"_s).arg(damaged));
        return restored();
    }

    int list()
    {
        const QString database = m_options.connect ? m_options.database : ServerOptions::databaseName();
        const QList<BackupFile> backups = BackupFiles::in(m_folder.backupsPath(), database);
        for (const BackupFile &backup : backups) {
            using State = BackupManifest::Verification::State;
            const State state = backup.verification().state;
            const QString verified = state == State::Passed ? text(u"passed"_s, u"آزموده شد"_s) : state == State::Failed ? text(u"failed"_s, u"ایراد دارد"_s)
                                                                                                                         : text(u"not verified"_s, u"آزموده نشده"_s);
            say(QStringList{backup.taken().toString(u"yyyy-MM-dd HH:mm:ss"_s), QString::number(backup.size()), verified, backup.path()}.join(u'\t'));
        }
        return BackupCommands::Done;
    }

    int decrypt()
    {
        const BackupFile file(m_options.decryptFile);
        if (!file.isEncrypted()) {
            complain(text(u"%1 is not encrypted"_s, u"%1 رمز نشده است."_s).arg(file.path()));
            return BackupCommands::Failed;
        }
        BackupReader reader(file, m_passphrase);
        QString reason;
        const QString path = m_options.outputFile;
        if (QFileInfo::exists(path)) {
            complain(text(u"%1 is there already"_s, u"%1 از پیش هست."_s).arg(path));
            return BackupCommands::Failed;
        }
        if (platform::writePrivateFile(path, {}, &reason) != platform::WriteResult::Written) {
            complain(text(u"cannot write %1: %2"_s, u"%1 نوشته نشد: %2"_s).arg(path, reason));
            return BackupCommands::Failed;
        }
        QFile output(path);
        try {
            if (!writeAll(reader, output)) {
                complain(text(u"cannot write %1: %2"_s, u"%1 نوشته نشد: %2"_s).arg(path, output.errorString()));
                output.remove();
                return BackupCommands::Failed;
            }
        } catch (...) {
            output.remove();
            throw;
        }
        say(path);
        return BackupCommands::Done;
    }

    static bool writeAll(BackupReader &reader, QFile &output)
    {
        if (!output.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return false;
        for (QByteArray part = reader.nextPacked(); !part.isEmpty(); part = reader.nextPacked()) {
            if (output.write(part) != part.size())
                return false;
        }
        output.close();
        return platform::flushToDisk(output.fileName());
    }

    const HostOptions &m_options;
    const DataFolder &m_folder;
    bool m_persian;
    QString m_passphrase;
    bool m_endsEarly = false;
    std::optional<BackupMoment> m_moment; // to which is restored; nothing: that of the backup
};

int exitOf(ServerError::Kind kind)
{
    switch (kind) {
    case ServerError::Kind::InUse:
        return BackupCommands::InUse;
    case ServerError::Kind::WrongPassphrase:
        return BackupCommands::WrongPassphrase;
    case ServerError::Kind::BackupDamaged:
        return BackupCommands::Different;
    default:
        return BackupCommands::Failed;
    }
}

}

namespace BackupCommands {

int run(const HostOptions &options, const DataFolder &folder, bool persian)
{
    try {
        return Commands(options, folder, persian).run();
    } catch (const ServerError &error) {
        complain(error.userMessage());
        complain(error.detail());
        return exitOf(error.kind());
    } catch (const std::exception &error) {
        complain(QString::fromUtf8(error.what()));
        return Failed;
    }
}

}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerDamage.h"

#include "host/server/ServerError.h"
#include "host/server/ServerOptions.h"
#include "host/server/TableNames.h"
#include "host/server/WayBack.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

using Part = ServerDamage::Part;

// How the server words it. The file is the first capture, or else the one given.
struct DamageSign
{
    Part part;
    QRegularExpression words;
    QString file;
};

// In this order: a server that misses one file complains of others too.
const QList<DamageSign> &damageSigns()
{
    const auto words = [](const QString &pattern) { return QRegularExpression(pattern, QRegularExpression::MultilineOption); };
    static const QList<DamageSign> signs{
        {Part::SystemFile, words(u"redo log file '\\./ib_logfile0' exists\\. Creating system tablespace"_s), u"ibdata1"_s},
        {Part::SystemFile, words(u"\\[ERROR\\].*\\W(ibdata\\d+)\\b"_s), {}},
        {Part::UndoFile, words(u"\\[ERROR\\].*\\W(undo\\d{3})\\b"_s), {}},
        {Part::RedoLog, words(u"\\[ERROR\\].*\\b(ib_logfile\\d+)\\b"_s), {}},
        {Part::RedoLog,
         words(u"\\[ERROR\\].*(?:Invalid log header|The log was only scanned up to|Missing FILE_CHECKPOINT|Missing MLOG_CHECKPOINT|"
               "No valid checkpoint|Malformed log record|log scan was aborted|log file is corrupted)"_s),
         u"ib_logfile0"_s},
        {Part::SystemLog, words(u"\\[ERROR\\].*Aria engine: log initialization failed"_s), u"aria_log.00000001"_s},
        {Part::SystemLog, words(u"\\[ERROR\\].*not a valid aria control file|control file is smaller than expected"_s), u"aria_log_control"_s},
        {Part::SystemTable, words(u"privilege tables: .*'\\./(mysql/\\w+\\.\\w+)'"_s), {}},
        {Part::SystemTable, words(u"privilege tables"_s), u"mysql"_s},
        {Part::SystemTable, words(u"^ERROR: \\d+ .*from storage engine Aria"_s), u"mysql/global_priv.MAD"_s},
        {Part::Table, words(u"\\[ERROR\\].*'?\\./((?!mysql/)[^/\\s']+/[^/\\s'.]+\\.(?:ibd|frm))\\b"_s), {}},
        {Part::SystemTable, words(u"\\[ERROR\\].*'?\\./(mysql/[^/\\s'.]+\\.\\w+)\\b"_s), {}},
        {Part::SystemLog, words(u"\\[ERROR\\].*\\b(aria_log\\w*(?:\\.\\d+)?)\\b"_s), {}},
    };
    return signs;
}

// What the server never leaves empty.
bool isLost(const QString &path)
{
    return QFileInfo(path).size() == 0;
}

QString adviceOnSystemLog()
{
    return u"اطلاعات دفتر در آن نیست: برنامه را ببندید، همه پرونده‌هایی را که نامشان با aria_log آغاز می‌شود از آن پوشه به جای دیگری ببرید و "
           "برنامه را دوباره باز کنید. اگر باز هم نشد، به نسخه پشتیبان بازگردید."_s;
}

}

std::optional<ServerDamage> ServerDamage::in(const QString &log)
{
    for (const DamageSign &sign : damageSigns()) {
        const QRegularExpressionMatch found = sign.words.match(log);
        if (found.hasMatch())
            return ServerDamage{sign.part, sign.file.isEmpty() ? found.captured(1) : sign.file};
    }
    return std::nullopt;
}

std::optional<ServerDamage> ServerDamage::in(const DataFolder &folder)
{
    const QDir database(folder.databasePath());
    for (const auto &[part, file] : {std::pair(Part::SystemFile, u"ibdata1"_s), std::pair(Part::RedoLog, u"ib_logfile0"_s)}) {
        if (isLost(database.filePath(file)))
            return ServerDamage{part, file};
    }
    const QStringList logs = database.entryList({u"aria_log*"_s}, QDir::Files);
    for (const QString &log : logs) {
        if (isLost(database.filePath(log)))
            return ServerDamage{Part::SystemLog, log};
    }
    if (!QFileInfo(database.filePath(ServerOptions::databaseName())).isDir())
        return ServerDamage{Part::Tables, ServerOptions::databaseName()};
    return std::nullopt;
}

ServerDamage ServerDamage::ofTable(const QString &table)
{
    return {Part::Table, u"%1/%2.ibd"_s.arg(ServerOptions::databaseName(), table)};
}

QString ServerDamage::table() const
{
    return part == Part::Table ? QFileInfo(file).completeBaseName() : QString();
}

QString ServerDamage::sentence(const DataFolder &folder) const
{
    const QString shown = ServerError::shownPath(folder.databasePath() + u'/' + file);
    switch (part) {
    case Part::SystemFile:
        return u"پرونده %1، که جدول‌های پایگاه داده را به هم پیوند می‌دهد، آسیب دیده یا گم شده است."_s.arg(shown);
    case Part::UndoFile:
        return u"پرونده %1، که تغییرهای ناتمام پایگاه داده در آن است، آسیب دیده یا گم شده است."_s.arg(shown);
    case Part::RedoLog:
        return u"پرونده %1، که آخرین ذخیره‌های پایگاه داده در آن است، آسیب دیده یا گم شده است."_s.arg(shown);
    case Part::SystemTable:
        return u"%1، از جدول‌های سامانه خود سرور پایگاه داده، آسیب دیده یا گم شده است."_s.arg(shown);
    case Part::SystemLog:
        return u"پرونده %1، گزارش جدول‌های سامانه سرور پایگاه داده، آسیب دیده است."_s.arg(shown);
    case Part::Tables:
        return u"پوشه %1، که جدول‌های دفتر در آن است، گم شده است."_s.arg(shown);
    case Part::Table:
        break;
    }
    return u"جدول «%1» (پرونده %2) آسیب دیده یا گم شده است."_s.arg(TableNames::shown(table()), shown);
}

QString ServerDamage::message(const DataFolder &folder) const
{
    const QString advice = part == Part::SystemLog ? adviceOnSystemLog() + u'\n' : QString();
    return sentence(folder) + u'\n' + advice + WayBack(folder).sentences();
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupManifest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int format = 1;
constexpr qsizetype mostTables = 2000;
constexpr qsizetype longestText = 4000;
constexpr double largestWhole = 9007199254740992.0; // what a number of JSON holds exactly
constexpr qsizetype digestBytes = 32;

struct ReasonName
{
    BackupManifest::Reason reason;
    const char *stored;
    QString shown;
};

const QList<ReasonName> &reasonNames()
{
    using Reason = BackupManifest::Reason;
    static const QList<ReasonName> names{
        {Reason::ByHand, "by hand", u"به دستور کاربر"_s},
        {Reason::Closing, "closing", u"هنگام بستن برنامه"_s},
        {Reason::Interval, "interval", u"خودکار"_s},
        {Reason::BeforeUpgrade, "before upgrade", u"پیش از ارتقا"_s},
        {Reason::BeforeRestore, "before restore", u"پیش از بازگرداندن"_s},
        {Reason::CommandLine, "command line", u"از خط فرمان"_s},
    };
    return names;
}

QString stateName(BackupManifest::Verification::State state)
{
    switch (state) {
    case BackupManifest::Verification::State::Passed:
        return u"passed"_s;
    case BackupManifest::Verification::State::Failed:
        return u"failed"_s;
    default:
        return u"none"_s;
    }
}

// Reads values within their bounds; the first one that is not makes the whole not a manifest.
class Fields
{
public:
    Fields(const QJsonObject &object, QString &fault)
        : m_object(object)
        , m_fault(fault) { }

    qint64 whole(const char *key, qint64 least = 0)
    {
        const double value = number(key);
        if (value < static_cast<double>(least) || std::floor(value) != value)
            refuse(key);
        return static_cast<qint64>(m_fault.isEmpty() ? value : 0);
    }

    double number(const char *key)
    {
        const QJsonValue value = m_object.value(QLatin1StringView(key));
        const double read = value.toDouble();
        if (!(value.isDouble() || value.isUndefined()) || !std::isfinite(read) || std::abs(read) > largestWhole)
            refuse(key);
        return read;
    }

    QString text(const char *key)
    {
        const QJsonValue value = m_object.value(QLatin1StringView(key));
        const QString read = value.toString();
        if (!(value.isString() || value.isUndefined()) || read.size() > longestText)
            refuse(key);
        return read;
    }

    QDateTime moment(const char *key, bool required)
    {
        const QString written = text(key);
        QDateTime read = QDateTime::fromString(written, Qt::ISODate);
        read.setTimeSpec(Qt::UTC);
        if ((required || !written.isEmpty()) && !read.isValid())
            refuse(key);
        return read;
    }

    bool flag(const char *key) { return m_object.value(QLatin1StringView(key)).toBool(); }
    QJsonObject object(const char *key) { return m_object.value(QLatin1StringView(key)).toObject(); }
    QJsonArray array(const char *key) { return m_object.value(QLatin1StringView(key)).toArray(); }

    void refuse(const char *key)
    {
        if (m_fault.isEmpty())
            m_fault = QString::fromLatin1(key) + u" is out of bounds"_s;
    }

private:
    QJsonObject m_object;
    QString &m_fault;
};

// Of a table, a database or a file of the server: never with a path in it.
bool isName(const QString &text, qsizetype longest = 64)
{
    static const QRegularExpression form(u"^[^\\x00-\\x1f/\\\\]+$"_s);
    return text.size() <= longest && text != u"." && text != u".." && form.match(text).hasMatch();
}

QJsonArray written(const QList<BackupManifest::Table> &tables)
{
    QJsonArray array;
    for (const BackupManifest::Table &table : tables) {
        QJsonObject object{{u"name"_s, table.name}, {u"rows"_s, table.rows}};
        if (table.checksum)
            object.insert(u"checksum"_s, *table.checksum);
        array.append(object);
    }
    return array;
}

QList<BackupManifest::Table> readTables(const QJsonArray &array, QString &fault)
{
    QList<BackupManifest::Table> tables;
    if (array.size() > mostTables)
        fault = u"too many tables"_s;
    for (const QJsonValue &value : array) {
        Fields fields(value.toObject(), fault);
        BackupManifest::Table table{fields.text("name"), fields.whole("rows", -1)};
        if (!isName(table.name))
            fields.refuse("table");
        if (value.toObject().contains(u"checksum"_s))
            table.checksum = fields.whole("checksum");
        if (!fault.isEmpty())
            return {};
        tables.append(table);
    }
    return tables;
}

BackupManifest::Reason readReason(Fields &fields)
{
    const QString stored = fields.text("reason");
    for (const ReasonName &name : reasonNames()) {
        if (stored == QLatin1StringView(name.stored))
            return name.reason;
    }
    fields.refuse("reason");
    return {};
}

BackupManifest::Verification readVerification(Fields fields)
{
    using State = BackupManifest::Verification::State;
    BackupManifest::Verification verification;
    const QString stored = fields.text("state");
    for (const State state : {State::Passed, State::Failed}) {
        if (stored == stateName(state))
            verification.state = state;
    }
    verification.when = fields.moment("when", verification.state != State::None);
    verification.problem = fields.text("problem");
    return verification;
}

}

QByteArray BackupManifest::toJson() const
{
    const auto moment = [](const QDateTime &when) { return when.toString(Qt::ISODate); };
    QString reasonStored;
    for (const ReasonName &name : reasonNames()) {
        if (name.reason == reason)
            reasonStored = QString::fromLatin1(name.stored);
    }
    QJsonObject object{
        {u"format"_s, format},
        {u"database"_s, database},
        {u"takenUtc"_s, moment(takenUtc)},
        {u"taken"_s, taken.toString(u"yyyy-MM-ddTHH:mm:ss"_s)},
        {u"reason"_s, reasonStored},
        {u"program"_s, program},
        {u"server"_s, server},
        {u"suiteVersion"_s, suiteVersion},
        {u"moduleVersion"_s, moduleVersion},
        {u"size"_s, size},
        {u"plainSize"_s, plainSize},
        {u"digest"_s, QString::fromLatin1(digest.toHex())},
        {u"encrypted"_s, encrypted},
        {u"oneSnapshot"_s, oneSnapshot},
        {u"tables"_s, written(tables)},
        {u"books"_s, QJsonObject{{u"documents"_s, books.documents}, {u"unbalanced"_s, books.unbalanced}, {u"total"_s, books.total}}},
        {u"lastChange"_s, lastChange},
        {u"largestPacket"_s, largestPacket},
        {u"logFile"_s, logFile},
        {u"logPosition"_s, logPosition},
    };
    if (verification.state != Verification::State::None)
        object.insert(u"verification"_s, QJsonObject{{u"state"_s, stateName(verification.state)}, {u"when"_s, moment(verification.when)}, {u"problem"_s, verification.problem.left(longestText)}});
    return QJsonDocument(object).toJson();
}

std::optional<BackupManifest> BackupManifest::fromJson(const QByteArray &json, QString *fault)
{
    QString found;
    BackupManifest manifest;
    QJsonParseError parsing;
    const QJsonDocument document = json.size() > largestSize ? QJsonDocument() : QJsonDocument::fromJson(json, &parsing);
    if (!document.isObject())
        found = json.size() > largestSize ? u"it is too large"_s : u"it is no object of JSON: "_s + parsing.errorString();
    Fields fields(document.object(), found);
    if (found.isEmpty() && fields.whole("format") != format)
        fields.refuse("format");
    manifest.database = fields.text("database");
    manifest.takenUtc = fields.moment("takenUtc", true);
    manifest.taken = fields.moment("taken", true);
    manifest.reason = readReason(fields);
    manifest.program = fields.text("program");
    manifest.server = fields.text("server");
    manifest.suiteVersion = static_cast<int>(qMin<qint64>(fields.whole("suiteVersion"), 1'000'000));
    manifest.moduleVersion = fields.number("moduleVersion");
    manifest.size = fields.whole("size");
    manifest.plainSize = fields.whole("plainSize");
    manifest.digest = QByteArray::fromHex(fields.text("digest").toLatin1());
    if (!manifest.digest.isEmpty() && manifest.digest.size() != digestBytes)
        fields.refuse("digest");
    manifest.encrypted = fields.flag("encrypted");
    manifest.oneSnapshot = fields.flag("oneSnapshot");
    Fields books(fields.object("books"), found);
    manifest.books = {books.whole("documents"), books.whole("unbalanced"), books.number("total")};
    manifest.lastChange = fields.whole("lastChange");
    manifest.largestPacket = fields.whole("largestPacket");
    manifest.logFile = fields.text("logFile");
    manifest.logPosition = fields.whole("logPosition");
    if (!isName(manifest.database) || !(manifest.logFile.isEmpty() || isName(manifest.logFile, 255)))
        fields.refuse("name");
    manifest.verification = readVerification(Fields(fields.object("verification"), found));
    if (found.isEmpty())
        manifest.tables = readTables(fields.array("tables"), found);
    if (found.isEmpty())
        return manifest;
    if (fault)
        *fault = found;
    return std::nullopt;
}

QString BackupManifest::shown(Reason reason)
{
    for (const ReasonName &name : reasonNames()) {
        if (name.reason == reason)
            return name.shown;
    }
    return {};
}

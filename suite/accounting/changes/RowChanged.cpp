// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RowChanged.h"

#include "suite/accounting/office/CTblUsers.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/records/KMySQL.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

QString sentence(RowChanged::Kind kind, const QString &who, const QString &what = {})
{
    const QString row = what.isEmpty() ? u"این ردیف"_s : what;
    switch (kind) {
    case RowChanged::Kind::Conflict:
        return u"%1 همین اطلاعات را در این میان تغییر داده است. چیزی ذخیره نشد."_s.arg(who);
    case RowChanged::Kind::Gone:
        return u"%1 %2 را در این میان حذف کرده است. چیزی ذخیره نشد."_s.arg(who, row);
    case RowChanged::Kind::Archived:
        return u"%1 %2 را در این میان بایگانی کرده است. چیزی ذخیره نشد."_s.arg(who, row);
    case RowChanged::Kind::Refused:
        break;
    }
    return u"%1 %2 را در این میان بسته است. چیزی ذخیره نشد."_s.arg(who, row);
}

// Somebody who is not known where the row went without a trace: its last change but that was no deletion.
QString deletedBy(const KMySQL &record, qint32 key)
{
    const auto change = KChangeLog::last(record.GetTableName(), key, record.database());
    const bool known = change && change->kind == KChange::Kind::Deleted;
    return RowChanged::user(known ? change->userID : 0, known ? change->when : QDateTime(), record.database());
}

qint32 keyOf(KMySQL &record)
{
    return record.value(u"iID").toInt();
}

}

RowChanged::RowChanged(Kind kind, KMySQL &record, QList<RowConflict> conflicts)
    : KAccountingError(sentence(kind, lastChange(record.GetTableName(), keyOf(record), record.database())))
    , m_kind(kind)
    , m_table(record.GetTableName())
    , m_key(keyOf(record))
    , m_conflicts(std::move(conflicts))
{
}

RowChanged::RowChanged(Kind kind, KMySQL &record, qint32 key, const QString &what)
    : KAccountingError(sentence(kind, kind == Kind::Gone ? deletedBy(record, key) : lastChange(record.GetTableName(), key, record.database()), what))
    , m_kind(kind)
    , m_table(record.GetTableName())
    , m_key(key)
{
}

RowChanged::RowChanged(Kind kind, KMySQL &record, const QString &message)
    : KAccountingError(message)
    , m_kind(kind)
    , m_table(record.GetTableName())
    , m_key(keyOf(record))
{
}

RowChanged RowChanged::archived(KMySQL &record, const QString &what)
{
    const QString who = user(record.value(u"iArchiveUserID").toInt(), record.value(u"dateArchive").toDateTime(), record.database());
    return RowChanged(Kind::Archived, record, sentence(Kind::Archived, who, what));
}

RowChanged RowChanged::unarchived(KMySQL &record, const QString &what)
{
    const QString row = what.isEmpty() ? u"این ردیف"_s : what;
    const auto change = KChangeLog::last(record.GetTableName(), keyOf(record), record.database());
    const bool known = change && change->kind == KChange::Kind::Unarchived;
    return RowChanged(Kind::Refused, record,
                      known ? u"%1 %2 را در این میان از بایگانی خارج کرده است."_s.arg(
                          user(change->userID, change->when, record.database()), row)
                            : u"%1 در این میان از بایگانی خارج شده است."_s.arg(row));
}

RowChanged::~RowChanged() = default;

QString RowChanged::lastChange(const QString &table, qint32 key, int database)
{
    const auto change = KChangeLog::last(table, key, database);
    return change ? user(change->userID, change->when, database) : user(0, {}, database);
}

QString RowChanged::user(qint32 userID, const QDateTime &when, int database)
{
    const QString name = userID != 0 ? CTblUsers::GetName(userID, database) : QString();
    if (name.isEmpty())
        return u"کاربر دیگری"_s;
    return u"کاربر «%1» در %2 ساعت %3"_s.arg(name, shamsiText(when.date()), when.time().toString(u"HH:mm"_s));
}

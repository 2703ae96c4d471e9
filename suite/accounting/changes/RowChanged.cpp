// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RowChanged.h"

#include "suite/accounting/office/CTblUsers.h"
#include "suite/db/KChangeLog.h"
#include "suite/db/KMySQL.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

QString sentence(RowChanged::Kind kind, const QString &who)
{
    switch (kind) {
    case RowChanged::Kind::Conflict:
        return u"%1 همین اطلاعات را در این میان تغییر داده است. چیزی ذخیره نشد."_s.arg(who);
    case RowChanged::Kind::Gone:
        return u"%1 این ردیف را در این میان حذف کرده است. چیزی ذخیره نشد."_s.arg(who);
    case RowChanged::Kind::Archived:
        return u"%1 این ردیف را در این میان بایگانی کرده است. چیزی ذخیره نشد."_s.arg(who);
    case RowChanged::Kind::Refused:
        break;
    }
    return u"%1 این ردیف را در این میان بسته است. چیزی ذخیره نشد."_s.arg(who);
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

RowChanged::RowChanged(Kind kind, KMySQL &record, qint32 key)
    : KAccountingError(sentence(kind, lastChange(record.GetTableName(), key, record.database())))
    , m_kind(kind)
    , m_table(record.GetTableName())
    , m_key(key)
{
}

RowChanged::~RowChanged() = default;

QString RowChanged::lastChange(const QString &table, qint32 key, int database)
{
    const auto change = KChangeLog::last(table, key, database);
    const QString name = change ? CTblUsers::GetName(change->userID, database) : QString();
    if (name.isEmpty())
        return u"کاربر دیگری"_s;
    return u"کاربر «%1» در %2 ساعت %3"_s.arg(name, shamsiText(change->when.date()), change->when.time().toString(u"HH:mm"_s));
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessageSubjects.h"

#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/crm/messages/CTblMessageTexts.h"
#include "suite/crm/messages/MessageKinds.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

// Two of a kind with one name could not be told apart.
void settleName(KWholeRow &row, int database, QStringList &notes)
{
    const QString kind = row.text(u"sKind");
    const QString name = row.text(u"sName");
    const auto isTaken = [&](const QString &wanted) {
        CTblTemp others(database);
        others.ExecuteQuery(KSql::formatted("SELECT 1 FROM MessageTexts WHERE sKind=%1 AND sName=%2 LIMIT 1 LOCK IN SHARE MODE", KSql::quoted(kind), KSql::quoted(wanted)));
        return others.HasResultRow();
    };
    QString free = name;
    for (int count = 2; isTaken(free); ++count)
        free = u"%1 %2"_s.arg(name.left(CTblMessageTexts::longestName - 4)).arg(count);
    if (free == name)
        return;
    row.set(u"sName", free);
    notes.append(u"متن دیگری با نام «%1» هست؛ این متن با نام «%2» بازگشت."_s.arg(name, free));
}

}

void MessageSubjects::enter()
{
    const QString table = u"MessageTexts"_s;
    RecordSubjects::enter({.table = table,
                           .kind = u"متن پیام"_s,
                           .form = table,
                           .make = RecordSubject::maker<CTblMessageTexts>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblMessageTexts &>(record).m_sName; },
                           .caption = {},
                           .word = [](const QString &column, const QVariant &value) { return column == "sKind"_L1 ? MessageKinds::titleOf(value.toString()) : QString(); }});
    BinnedRecords::enter({.table = table, .form = table, .references = {}, .parts = {}, .known = {u"sKind"_s, u"sName"_s}, .settle = &settleName});
}

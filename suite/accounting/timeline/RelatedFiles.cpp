// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/RelatedFiles.h"

#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

QList<StoryEvent> filesOf(const StoryScope &scope, int limit, int database)
{
    QList<StoryEvent> events;
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT f.dateCreate,f.sName,COALESCE(NULLIF(u.sName,''),u.sUser) FROM FileDocs f LEFT JOIN Users u ON u.iID=f.iUserID"
                                      " WHERE %1 AND (f.iScope=%2 OR f.iUserID=%3) AND f.dateCreate IS NOT NULL ORDER BY f.iID DESC LIMIT %4",
                                      scope.named("f."), int(CTblFileDocs::General), GetDBSetting()->GetUserID(), limit));
    for (; rows.HasResultRow(); rows.MoveNextResult())
        events.append({.kind = StoryEvent::Kind::File, .when = rows.GetDateFieldValue(0), .title = u"فایل پیوست شد"_s, .line = rows.GetTextFieldValue(1), .user = rows.GetTextFieldValue(2)});
    return events;
}

// Those that were added together are one event.
QList<StoryEvent> picturesOf(const StoryScope &scope, int limit, int database)
{
    QList<StoryEvent> events;
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT MAX(p.dateCreate),COUNT(*),GROUP_CONCAT(NULLIF(p.sName,'') ORDER BY p.iOrder SEPARATOR '، '),COALESCE(NULLIF(u.sName,''),u.sUser)"
                                      " FROM Pictures p LEFT JOIN Users u ON u.iID=p.iUserID WHERE %1 AND p.dateCreate IS NOT NULL"
                                      " GROUP BY DATE(p.dateCreate),HOUR(p.dateCreate),p.iUserID,u.sName,u.sUser ORDER BY 1 DESC LIMIT %2",
                                      scope.named("p."), limit));
    for (; rows.HasResultRow(); rows.MoveNextResult())
        events.append({.kind = StoryEvent::Kind::Picture, .when = rows.GetDateFieldValue(0), .title = u"%1 تصویر افزوده شد"_s.arg(rows.GetLongFieldValue(1)), .line = rows.GetTextFieldValue(2), .user = rows.GetTextFieldValue(3)});
    return events;
}

}

QList<StoryEvent> RelatedFiles::read(const StoryScope &scope, int limit, int database)
{
    return filesOf(scope, limit, database) + picturesOf(scope, limit, database);
}

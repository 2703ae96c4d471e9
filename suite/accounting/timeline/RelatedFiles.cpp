// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/RelatedFiles.h"

#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/office/CDBSetting.h"

using namespace Qt::StringLiterals;

namespace {

QList<StoryColumns> files(const StoryScope &scope)
{
    return {{.when = "f.dateCreate",
             .texts = {"f.sName"},
             .user = "f.iUserID",
             .from = KSql::formatted("FileDocs f WHERE %1 AND (f.iScope=%2 OR f.iUserID=%3) AND f.dateCreate IS NOT NULL ORDER BY f.iID DESC", scope.named("f."), int(CTblFileDocs::General), GetDBSetting()->GetUserID())}};
}

std::optional<StoryEvent> tellFile(const StoryRow &row)
{
    return StoryEvent{.kind = StoryEvent::Kind::File, .title = u"فایل پیوست شد"_s, .line = row.texts[0]};
}

// Those that were added together are one event.
QList<StoryColumns> pictures(const StoryScope &scope)
{
    return {{.when = "MAX(p.dateCreate)",
             .numbers = {"COUNT(*)"},
             .texts = {"GROUP_CONCAT(NULLIF(p.sName,'') ORDER BY p.iOrder SEPARATOR '، ')"},
             .user = "p.iUserID",
             .from = KSql::formatted("Pictures p WHERE %1 AND p.dateCreate IS NOT NULL GROUP BY DATE(p.dateCreate),HOUR(p.dateCreate),p.iUserID ORDER BY MAX(p.dateCreate) DESC", scope.named("p."))}};
}

std::optional<StoryEvent> tellPictures(const StoryRow &row)
{
    return StoryEvent{.kind = StoryEvent::Kind::Picture, .title = u"%1 تصویر افزوده شد"_s.arg(row.numbers[0]), .line = row.texts[0]};
}

}

const QList<StorySource> &RelatedFiles::sources()
{
    static const QList<StorySource> list{
        {.id = u"files"_s, .form = {}, .columns = &files, .tell = &tellFile},
        {.id = u"pictures"_s, .form = {}, .columns = &pictures, .tell = &tellPictures},
    };
    return list;
}

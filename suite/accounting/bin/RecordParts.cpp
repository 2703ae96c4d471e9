// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/RecordParts.h"

#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/attachments/CTblFiledPapers.h"
#include "suite/accounting/attachments/CTblPictures.h"

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// One object for each, so that what of() returned stays where it is while others are entered.
std::vector<std::unique_ptr<RecordParts>> &enteredParts()
{
    static std::vector<std::unique_ptr<RecordParts>> parts;
    return parts;
}

}

RecordPart RecordParts::byKind(const QString &table, const QString &word, int kind)
{
    return {.table = table,
            .word = word,
            .rows = [kind](const KWholeRow &record, int) { return KSql::formatted("iTable=%1 AND iRecordID=%2", kind, record.key()); }};
}

RecordPart RecordParts::files(int kind)
{
    RecordPart part = byKind(u"FileDocs"_s, u"پرونده"_s, kind);
    part.make = &RecordPart::of<CTblFileDocs>;
    return part;
}

RecordPart RecordParts::filedPapers(int kind)
{
    RecordPart part = byKind(u"FiledPapers"_s, {}, kind);
    part.references = {{u"iFileDocID"_s, u"FileDocs"_s}};
    part.make = &RecordPart::of<CTblFiledPapers>;
    return part;
}

RecordPart RecordParts::pictures(int kind)
{
    RecordPart part = byKind(u"Pictures"_s, u"تصویر"_s, kind);
    part.make = &RecordPart::of<CTblPictures>;
    return part;
}

RecordPart RecordParts::customValues(int kind)
{
    RecordPart part = byKind(u"CustomFieldRecords"_s, u"فیلد سفارشی"_s, kind);
    part.references = {{u"iFieldID"_s, u"CustomFields"_s, u"فیلد سفارشی"_s, RecordReference::Gone::LeftOut}};
    part.make = &RecordPart::of<CTblCustomFieldRecords>;
    return part;
}

RecordPart RecordParts::byColumn(const QString &table, const QString &word, const QString &column, const QString &recordTable)
{
    return {.table = table,
            .word = word,
            .rows = [column](const KWholeRow &record, int) { return KSql::formatted("%1=%2", KSql::name(column), record.key()); },
            .references = {{column, recordTable}}};
}

void BinnedRecords::enter(RecordParts parts)
{
    // Whatever names the record by kind and key follows it to a new key.
    for (RecordPart &part : parts.parts) {
        if (std::ranges::none_of(part.references, [](const RecordReference &reference) { return reference.column == u"iRecordID"; }))
            part.references.append({u"iRecordID"_s, parts.table});
    }
    remove(parts.table);
    enteredParts().push_back(std::make_unique<RecordParts>(std::move(parts)));
}

void BinnedRecords::remove(const QString &table)
{
    std::erase_if(enteredParts(), [&](const auto &parts) { return parts->table == table; });
}

const RecordParts *BinnedRecords::of(const QString &table)
{
    const auto found = std::ranges::find_if(enteredParts(), [&](const auto &parts) { return parts->table == table; });
    return found == enteredParts().end() ? nullptr : found->get();
}

QList<const RecordParts *> BinnedRecords::all()
{
    QList<const RecordParts *> all;
    for (const auto &parts : enteredParts())
        all.append(parts.get());
    return all;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportRecord.h"

#include "suite/db/records/KMySQL.h"

using namespace Qt::StringLiterals;

void ImportRecord::requireFits(KMySQL &record, const QList<ImportField> &fields, ImportRow &row)
{
    for (const ImportField &field : fields) {
        if (!row.has(field.key) || !record.column(field.key))
            continue;
        const int longest = record.textLength(field.key);
        const qsizetype length = row.text(field.key).size();
        if (longest > 0 && length > longest)
            row.refuse(field.title, u"%1 نویسه است و حداکثر %2 نویسه ثبت می‌شود. آن را کوتاه کنید."_s.arg(length).arg(longest));
    }
}

void ImportRecord::fill(KMySQL &record, const ImportRow &row)
{
    for (auto value = row.values.cbegin(); value != row.values.cend(); ++value) {
        if (record.column(value.key()))
            record.setValue(value.key(), value.value());
    }
}

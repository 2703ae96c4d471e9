// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/HistoryMerge.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int oneSave = 2; // seconds

// Those who save settings are also noted under the section that their window begins with, which may have nothing that changed.
bool isOfSettings(const HistoryEntry &entry)
{
    return entry.table.startsWith("Properties:"_L1);
}

QString recordOf(const HistoryEntry &entry)
{
    return isOfSettings(entry) ? u"Properties:"_s : u"%1/%2"_s.arg(entry.table).arg(entry.key);
}

bool belongsTo(const HistoryEntry &older, const HistoryEntry &newer)
{
    using Kind = KChange::Kind;
    const bool areChanges = newer.change.kind == Kind::Changed && (older.change.kind == Kind::Added || older.change.kind == Kind::Changed);
    const bool areOfOne = older.change.userID == newer.change.userID && older.change.computer == newer.change.computer;
    const bool haveValues = (older.hasValues && newer.hasValues) || isOfSettings(newer);
    return areChanges && areOfOne && haveValues && older.change.when.secsTo(newer.change.when) <= oneSave;
}

// The older one's values below those of the newer one.
void mergeValues(HistoryEntry &newer, const HistoryEntry &older)
{
    QList<KChangedValue> values = older.values;
    for (const KChangedValue &value : std::as_const(newer.values)) {
        const auto known = std::ranges::find(values, value.column, &KChangedValue::column);
        if (known == values.end())
            values.append(value);
        else
            known->after = value.after;
    }
    if (older.change.kind == KChange::Kind::Changed)
        values.removeIf([](const KChangedValue &value) { return !value.isSecret && value.before == value.after; });
    newer.values = values;
}

}

QList<HistoryEntry> HistoryMerge::of(const QList<HistoryEntry> &newestFirst)
{
    QList<HistoryEntry> merged;
    QHash<QString, qsizetype> newest; // by record, the place of the entry that an older one may belong to
    for (const HistoryEntry &entry : newestFirst) {
        const QString record = recordOf(entry);
        const auto known = newest.constFind(record);
        if (known == newest.cend() || !belongsTo(entry, merged.at(*known))) {
            newest.insert(record, merged.size());
            merged.append(entry);
            continue;
        }
        HistoryEntry &newer = merged[*known];
        mergeValues(newer, entry);
        newer.change.kind = entry.change.kind;
        newer.change.when = entry.change.when;
        if (entry.hasValues)
            newer.table = entry.table;
        newer.hasValues = newer.hasValues || entry.hasValues;
    }
    return merged;
}

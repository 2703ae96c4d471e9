// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/HistoryMerge.h"

#include <QHash>

#include <algorithm>
#include <functional>

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
    const qint64 seconds = older.change.when.secsTo(newer.change.when);
    const bool haveValues = (older.hasValues && newer.hasValues) || isOfSettings(newer);
    return areChanges && areOfOne && haveValues && seconds >= 0 && seconds <= oneSave;
}

// The older one's values below those of the newer one.
QList<KChangedValue> mergedValues(const HistoryEntry &newer, const HistoryEntry &older)
{
    QList<KChangedValue> values = older.values;
    for (const KChangedValue &value : newer.values) {
        const auto known = std::ranges::find(values, value.column, &KChangedValue::column);
        if (known == values.end())
            values.append(value);
        else
            known->after = value.after;
    }
    if (older.change.kind == KChange::Kind::Changed)
        values.removeIf([](const KChangedValue &value) { return !value.isSecret && value.before == value.after; });
    return values;
}

// False for what was done and at once taken back: both are to be seen.
bool merge(HistoryEntry &newer, const HistoryEntry &older)
{
    const QList<KChangedValue> values = mergedValues(newer, older);
    if (values.isEmpty() && !(newer.values.isEmpty() && older.values.isEmpty()))
        return false;
    newer.values = values;
    newer.change.kind = older.change.kind;
    newer.change.when = older.change.when;
    if (older.hasValues)
        newer.table = older.table;
    newer.hasValues = newer.hasValues || older.hasValues;
    return true;
}

}

QList<HistoryEntry> HistoryMerge::of(QList<HistoryEntry> entries)
{
    std::ranges::stable_sort(entries, std::ranges::greater(), &HistoryEntry::id);
    QList<HistoryEntry> merged;
    QHash<QString, qsizetype> newest; // by record, the place of the entry that an older one may belong to
    for (const HistoryEntry &entry : std::as_const(entries)) {
        const QString record = recordOf(entry);
        const auto known = newest.constFind(record);
        if (known != newest.cend() && belongsTo(entry, merged.at(*known)) && merge(merged[*known], entry))
            continue;
        newest.insert(record, merged.size());
        merged.append(entry);
    }
    return merged;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/RecordPackage.h"

#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/db/records/CTblTemp.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// No statement grows with what is attached: a longer row is several rows of the bin, in their order. A byte takes two at most.
constexpr qsizetype longestPiece = 256 * 1024;

void addPieces(QList<KSql> &values, qsizetype &size, qint32 entry, const KWholeRow &row, CTblTemp &bin)
{
    const auto flush = [&] {
        if (!values.isEmpty())
            bin.ExecuteQuery("INSERT INTO BinRows(iBinID,sTable,iRecordID,oRow) VALUES" + KSql::joined(values, ","));
        values.clear();
        size = 0;
    };
    const QByteArray bytes = row.toBytes();
    for (qsizetype from = 0; from < bytes.size(); from += longestPiece) {
        const QByteArray piece = bytes.mid(from, longestPiece);
        if (size + piece.size() > longestPiece)
            flush();
        values.append(KSql::formatted("(%1,%2,%3,%4)", entry, KSql::quoted(row.table()), row.key(), KSql::quoted(piece)));
        size += piece.size();
    }
}

}

RecordPackage RecordPackage::ofRecord(const QString &table, qint32 key, int database, bool forUpdate)
{
    RecordPackage package;
    package.m_table = table;
    package.m_key = key;
    package.m_database = database;
    const RecordParts *parts = BinnedRecords::of(table);
    const std::optional<KWholeRow> own = parts ? KWholeRow::read(table, key, database) : std::nullopt;
    if (!own)
        return package;
    package.m_rows.append({table, key});
    for (const RecordPart &part : parts->parts) {
        const KSql condition = part.rows(*own, database);
        if (condition.isEmpty())
            continue;
        for (const qint32 row : KWholeRow::keys(part.table, condition, database, forUpdate))
            package.m_rows.append({part.table, row});
    }
    return package;
}

RecordPackage RecordPackage::ofBin(qint32 entry, int database)
{
    RecordPackage package;
    package.m_database = database;
    package.m_entry = entry;
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT b.sTable,b.iRecordID,r.sTable,r.iRecordID FROM Bin b JOIN BinRows r ON r.iBinID=b.iID WHERE b.iID=%1"
                                      " GROUP BY r.sTable,r.iRecordID ORDER BY MIN(r.iID)",
                                      entry));
    for (; rows.HasResultRow(); rows.MoveNextResult()) {
        package.m_table = rows.GetTextFieldValue(0);
        package.m_key = rows.GetLongFieldValue(1);
        package.m_rows.append({rows.GetTextFieldValue(2), rows.GetLongFieldValue(3)});
    }
    return package;
}

QList<qint32> RecordPackage::keysOf(const QString &table) const
{
    QList<qint32> keys;
    for (const Ref &ref : m_rows) {
        if (ref.table == table)
            keys.append(ref.key);
    }
    return keys;
}

KWholeRow RecordPackage::row(const Ref &ref) const
{
    if (m_entry == 0) {
        if (std::optional<KWholeRow> living = KWholeRow::read(ref.table, ref.key, m_database))
            return *living;
        throw KAccountingError(u"آنچه خوانده می‌شد در این میان حذف شده است. چیزی ثبت نشد."_s);
    }
    CTblTemp pieces(m_database);
    pieces.Open(true, false, true);
    pieces.ExecuteQuery(KSql::formatted("SELECT oRow FROM BinRows WHERE iBinID=%1 AND sTable=%2 AND iRecordID=%3 ORDER BY iID", m_entry,
                                        KSql::quoted(ref.table), ref.key));
    QByteArray bytes;
    for (; pieces.HasResultRow(); pieces.MoveNextResult())
        bytes += pieces.GetBinaryFieldValue(0);
    if (std::optional<KWholeRow> kept = KWholeRow::fromBytes(ref.table, bytes); kept && kept->key() == ref.key)
        return *kept;
    throw KAccountingError(u"این ردیف سطل بازیافت آسیب دیده است و بازنمی‌گردد. چیزی ثبت نشد."_s);
}

QString RecordPackage::contents() const
{
    QList<std::pair<QString, int>> counts;
    for (const Ref &ref : m_rows.mid(1)) {
        const auto counted = std::ranges::find_if(counts, [&](const auto &count) { return count.first == ref.table; });
        if (counted == counts.end())
            counts.append({ref.table, 1});
        else
            ++counted->second;
    }
    return contentsOf(m_table, counts);
}

QString RecordPackage::contentsOf(const QString &record, const QList<std::pair<QString, int>> &counts)
{
    const RecordParts *parts = BinnedRecords::of(record);
    if (!parts)
        return {};
    QStringList words;
    for (const RecordPart &part : parts->parts) {
        const auto counted = std::ranges::find_if(counts, [&](const auto &count) { return count.first == part.table; });
        if (part.word.isEmpty() || counted == counts.end())
            continue;
        // There is one document at most.
        words.append(part.table == u"Documents" ? part.word : u"%1 %2"_s.arg(QString::number(counted->second), part.word));
    }
    return words.join(u"، "_s);
}

void RecordPackage::putInto(qint32 entry) const
{
    CTblTemp bin(m_database);
    bin.Open(true, false, true);
    QList<KSql> values;
    qsizetype size = 0;
    for (const Ref &ref : m_rows)
        addPieces(values, size, entry, row(ref), bin);
    if (!values.isEmpty())
        bin.ExecuteQuery("INSERT INTO BinRows(iBinID,sTable,iRecordID,oRow) VALUES" + KSql::joined(values, ","));
}

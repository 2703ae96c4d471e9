// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/RecordUses.h"

#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/records/CTblTemp.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// Rows of that table whose column holds the key of a record.
struct Use
{
    QString table;
    QString column;
    QList<int> kinds; // where the key means a record of the kind beside it (iTable); empty: of one kind only
    QString word;
};

class Uses
{
public:
    Uses(const QString &table, int database)
        : m_table(table)
        , m_database(database)
    {
    }

    void addColumns(KMySQL &record, const QString &word)
    {
        for (const KMySQL::Column &column : record.columns()) {
            const KNameSource source = record.nameSource(column.name);
            if (source.table == m_table && source.key == "iID"_L1)
                add(record.GetTableName(), column.name, word);
        }
    }

    void addReferences(const QString &table, const QList<RecordReference> &references, const QString &word)
    {
        for (const RecordReference &reference : references) {
            if (reference.table == m_table)
                add(table, reference.column, word);
        }
    }

    void add(const QString &table, const QString &column, const QString &word)
    {
        const KTableSchema schema = KTableSchema::of(table, m_database);
        if (!schema.column(column) || m_known.contains({table, column}))
            return;
        Use use{table, column, {}, word};
        if (column == "iRecordID"_L1 && schema.column(u"iTable"_s)) {
            const RecordSubject *subject = RecordSubjects::of(m_table);
            use.kinds = subject ? subject->recordKinds : QList<int>();
            if (use.kinds.isEmpty())
                return; // no row names such a record by its kind
        }
        m_known.insert({table, column});
        m_uses.append(use);
    }

    const QList<Use> &all() const { return m_uses; }

private:
    QString m_table;
    int m_database;
    QSet<std::pair<QString, QString>> m_known;
    QList<Use> m_uses;
};

QString spokenKind(const QString &table)
{
    const RecordSubject *subject = RecordSubjects::of(table);
    return subject ? subject->kind : u"ردیف‌های وابسته"_s;
}

QList<Use> usesOf(const QString &table, int database)
{
    Uses uses(table, database);
    for (const RecordParts *parts : BinnedRecords::all()) {
        uses.addReferences(parts->table, parts->references, spokenKind(parts->table));
        for (const RecordPart &part : parts->parts)
            uses.addReferences(part.table, part.references, part.word.isEmpty() ? spokenKind(parts->table) : part.word);
    }
    for (const RecordSubject *subject : RecordSubjects::all()) {
        if (subject->make)
            uses.addColumns(*subject->make(database), subject->kind);
    }
    CTblDocs rows(database);
    uses.addColumns(rows, spokenKind(u"Documents"_s));
    return uses.all();
}

}

QHash<qint32, QString> RecordUses::of(const QString &table, const KSql &keys, int database)
{
    QHash<qint32, QString> used;
    CTblTemp query(database);
    query.Open(false, false, true);
    for (const Use &use : usesOf(table, database)) {
        KSql condition = KSql::name(use.column) + " IN (" + keys + ")";
        if (!use.kinds.isEmpty()) {
            QList<KSql> kinds;
            for (const int kind : use.kinds)
                kinds.append(KSql::formatted("%1", kind));
            condition = condition + " AND iTable IN (" + KSql::joined(kinds, ",") + ")";
        }
        query.ExecuteQuery(KSql::formatted("SELECT DISTINCT %1 FROM %2 WHERE %3", KSql::name(use.column), KSql::name(use.table), condition));
        for (; query.HasResultRow(); query.MoveNextResult()) {
            QString &words = used[query.GetLongFieldValue(0)];
            if (!words.split(u"، "_s).contains(use.word))
                words += (words.isEmpty() ? QString() : u"، "_s) + use.word;
        }
    }
    return used;
}

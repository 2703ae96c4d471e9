// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/RecordReturn.h"

#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/records/KMySQL.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString documentTable = u"Documents"_s;
const QString documentRowTable = u"Docs"_s;

QString kindOf(const QString &table)
{
    const RecordSubject *subject = RecordSubjects::of(table);
    return subject ? subject->kind : table;
}

bool isPresent(const QString &table, qint32 key, int database)
{
    return !KWholeRow::present(table, {key}, database).isEmpty();
}

}

RecordReturn::RecordReturn(const RecordPackage &package, const QDateTime &deleted, int database, Fetch fetch, Document document, IsMeant isMeant)
    : m_package(package)
    , m_deleted(deleted)
    , m_database(database)
    , m_fetch(std::move(fetch))
    , m_whichDocument(document)
    , m_isMeant(std::move(isMeant))
    , m_parts(BinnedRecords::of(package.table()))
{
}

qint32 RecordReturn::run()
{
    if (!m_parts)
        throw KAccountingError(u"افزونه‌ای که این ردیف از آن است بارگذاری نشده است. چیزی بازنگشت."_s);
    if (m_package.isEmpty())
        throw KAccountingError(u"این ردیف دیگر در دسترس نیست. چیزی بازنگشت."_s);
    KWholeRow own = m_package.row(m_package.rows().constFirst());
    if (!follow(own, m_parts->references))
        throw KAccountingError(u"آنچه این ردیف به آن تعلق داشت دیگر نیست. چیزی بازنگشت."_s);
    settleCode(own);
    if (m_parts->settle)
        m_parts->settle(own, m_database, m_notes);
    findTakenKeys();
    drawDocument(own);
    insert(own);
    insertParts();
    pointToParts(own);
    if (m_document)
        CTblDocuments::RequireBalanced(m_document->number(u"iNum"), m_document->number(u"iFiscalYear"), m_database);
    const qint32 key = m_keys.value({m_package.table(), m_package.key()});
    if (key != m_package.key())
        m_notes.append(u"شناسه %1 گرفته شده بود؛ پیوندهایی که به آن بود با این ردیف نیست."_s.arg(m_package.key()));
    note(own);
    return key;
}

void RecordReturn::settleCode(KWholeRow &own)
{
    if (m_parts->code.isEmpty())
        return;
    NamedLock::take(own.table(), m_database);
    const qint32 code = own.number(m_parts->code);
    const KSql table = KSql::name(own.table());
    const KSql column = KSql::name(m_parts->code);
    CTblTemp others(m_database);
    // Locking reads see what others have committed since this transaction began.
    others.ExecuteQuery(KSql::formatted("SELECT iID FROM %1 WHERE %2=%3 LIMIT 1 LOCK IN SHARE MODE", table, column, code));
    if (code > 0 && !others.HasResultRow())
        return;
    others.ExecuteQuery(KSql::formatted("SELECT MAX(%1) FROM %2 LOCK IN SHARE MODE", column, table));
    const qint32 next = others.GetLongFieldValue(0) + 1;
    own.set(m_parts->code, next);
    m_oldCode = code;
    m_newCode = next;
    m_notes.append(u"کد %1 گرفته شده بود؛ %2 با کد %3 بازگشت."_s.arg(QString::number(code), kindOf(own.table()), QString::number(next)));
}

bool RecordReturn::follow(KWholeRow &row, const QList<RecordReference> &references)
{
    return std::ranges::all_of(references, [&](const RecordReference &reference) {
        const qint32 key = row.number(reference.column);
        if (const auto back = m_keys.constFind({reference.table, key}); back != m_keys.cend())
            row.set(reference.column, *back);
        else if (key > 0 && !reference.what.isEmpty())
            return resolve(row, reference, key);
        return true;
    });
}

bool RecordReturn::isThere(const QString &table, qint32 key) const
{
    return isPresent(table, key, m_database) && (!m_isMeant || m_isMeant(table, key));
}

bool RecordReturn::resolve(KWholeRow &row, const RecordReference &reference, qint32 key)
{
    if (isThere(reference.table, key))
        return true;
    // Another desk may bring it back in the same moment.
    const std::optional<qint32> fetched = m_fetch ? m_fetch(reference.table, key) : std::nullopt;
    if (fetched || isThere(reference.table, key)) {
        row.set(reference.column, fetched.value_or(key));
        return true;
    }
    const QString gone = u"%1 آن دیگر نیست"_s.arg(reference.what);
    switch (reference.gone) {
    case RecordReference::Gone::Refused:
        throw KAccountingError(gone + u"؛ نخست آن را بازگردانید. چیزی بازنگشت."_s);
    case RecordReference::Gone::LeftOut:
        m_notes.append(gone + u" و مقدار آن بازنگشت."_s);
        return false;
    case RecordReference::Gone::Emptied:
        row.set(reference.column, 0);
        break;
    case RecordReference::Gone::Kept:
        // Somebody else has the key by now.
        if (isPresent(reference.table, key, m_database))
            row.set(reference.column, 0);
        break;
    }
    const QString sentence = gone + u"؛ بدون آن بازگشت."_s;
    if (!m_notes.contains(sentence))
        m_notes.append(sentence);
    return true;
}

void RecordReturn::findTakenKeys()
{
    QStringList tables;
    for (const RecordPackage::Ref &ref : m_package.rows())
        tables.append(ref.table);
    tables.removeDuplicates();
    for (const QString &table : std::as_const(tables)) {
        const QList<qint32> keys = m_package.keysOf(table);
        m_taken.insert(table, KWholeRow::present(table, keys, m_database));
        if (m_isMeant)
            m_taken[table] += KWholeRow::numbers(u"Bin"_s, u"iRecordID"_s, KSql::formatted("sTable=%1 AND iRecordID IN (%2)", KSql::quoted(table), KSql::list(keys)), m_database);
    }
}

// The books of an earlier year stand as they were closed. Where the deletion reached into them after that, taking it back makes them again
// what they were; where they were closed without the document, it belongs into the books that are open.
qint32 RecordReturn::yearOf(const KWholeRow &document) const
{
    const qint32 year = document.number(u"iFiscalYear");
    const OfficeSettings settings = OfficeSettings::read({}, m_database);
    const bool wasClosed = m_deleted.isValid() && m_deleted >= settings.fiscalYearOpeningDate();
    return year >= settings.fiscalYear() || wasClosed ? year : settings.fiscalYear();
}

void RecordReturn::drawDocument(KWholeRow &own)
{
    const QList<qint32> keys = m_package.keysOf(documentTable);
    if (keys.isEmpty())
        return;
    if (m_whichDocument == Document::LeftOut) {
        own.set(u"iDocNum", 0);
        own.set(u"iFiscalYear", 0);
        m_notes.append(u"سند آن بازنگشت تا مبلغی دو بار حساب نشود؛ پس از بررسی آن را تایید کنید."_s);
        return;
    }
    KWholeRow document = m_package.row({documentTable, keys.constFirst()});
    const qint32 before = document.number(u"iNum");
    const qint32 yearBefore = document.number(u"iFiscalYear");
    const qint32 year = yearOf(document);
    const qint32 num = CTblDocuments::drawNumber(year, m_database);
    if (year != yearBefore) {
        const OfficeSettings settings = OfficeSettings::read({}, m_database);
        const QDateTime day = std::clamp(QDateTime(settings.serverTime().date(), QTime(0, 0), Qt::UTC), settings.fiscalYearOpeningDate(),
                                         settings.fiscalYearClosingDate());
        document.set(u"date", day.toString(u"yyyy-MM-dd HH:mm:ss"_s));
        m_notes.append(u"دفاتر سال %1 بدون سند آن بسته شده است؛ سند شماره %2 در سال مالی %3 ثبت شد."_s.arg(
            QString::number(yearBefore), QString::number(num), QString::number(year)));
    } else if (num != before) {
        m_notes.append(u"سند شماره %1 با شماره %2 بازگشت."_s.arg(QString::number(before), QString::number(num)));
    }
    document.set(u"iNum", num);
    document.set(u"iFiscalYear", year);
    // It was taken out of the sums of accounts when it was deleted, whatever it says itself.
    document.set(u"bSummed", 0);
    own.set(u"iDocNum", num);
    own.set(u"iFiscalYear", year);
    m_document = document;
}

const QList<RecordReference> &RecordReturn::referencesOf(const QString &table) const
{
    static const QList<RecordReference> none;
    const auto part = std::ranges::find_if(m_parts->parts, [&](const RecordPart &one) { return one.table == table; });
    return part == m_parts->parts.cend() ? none : part->references;
}

void RecordReturn::insert(const KWholeRow &row)
{
    const bool keepsKey = !m_taken.value(row.table()).contains(row.key());
    m_keys.insert({row.table(), row.key()}, row.insert(m_database, keepsKey));
}

void RecordReturn::insertParts()
{
    for (const RecordPackage::Ref &ref : m_package.rows().mid(1)) {
        if (m_whichDocument == Document::LeftOut && (ref.table == documentTable || ref.table == documentRowTable))
            continue;
        KWholeRow row = m_document && ref.table == documentTable ? *m_document : m_package.row(ref);
        if (m_document && ref.table == documentRowTable) {
            row.set(u"iDocNum", m_document->number(u"iNum"));
            row.set(u"iFiscalYear", m_document->number(u"iFiscalYear"));
        }
        // A reminder shows the code of what it is about.
        if (ref.table == u"Alarms" && m_newCode != 0 && row.number(u"iRecordID2") == m_oldCode)
            row.set(u"iRecordID2", m_newCode);
        if (follow(row, referencesOf(ref.table)))
            insert(row);
    }
}

// The record came before its parts, whose keys may be new.
void RecordReturn::pointToParts(const KWholeRow &own)
{
    for (const RecordReference &reference : m_parts->references) {
        const qint32 before = own.number(reference.column);
        const auto now = m_keys.constFind({reference.table, before});
        if (now == m_keys.cend() || *now == before)
            continue;
        CTblTemp row(m_database);
        row.ExecuteQuery(KSql::formatted("UPDATE %1 SET %2=%3 WHERE iID=%4", KSql::name(own.table()), KSql::name(reference.column), *now,
                                         m_keys.value({own.table(), own.key()})));
    }
}

// Whoever looks at the history of one of them finds that it came back.
void RecordReturn::note(const KWholeRow &own)
{
    for (const RecordPackage::Ref &ref : m_package.rows()) {
        const RecordSubject *subject = RecordSubjects::of(ref.table);
        const qint32 key = m_keys.value({ref.table, ref.key});
        if (key == 0 || (!subject && ref.table != own.table()))
            continue;
        QList<KChangedValue> values;
        const std::unique_ptr<KMySQL> record = subject ? subject->make(m_database) : nullptr;
        if (record && record->IsRecordExist(u"iID"_s, key)) {
            for (const KMySQL::Column &column : record->columns()) {
                if (column.name != u"iID" && !column.isEmpty())
                    values.append({column.name, QVariant(), column.value()});
            }
        }
        KChangeLog::note(ref.table, key, KChange::Kind::Restored, m_database, values);
    }
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KMySQL.h"

#include "suite/db/records/KRowFollowers.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/connection/KTransaction.h"

#include <QLoggingCategory>

#include <cstdarg>

#include <mysql.h>

namespace {

Q_LOGGING_CATEGORY(lcRecords, "tz.records")

// What a log may show of a statement: its beginning up to the first quoted value.
QString withoutValues(const char *statement)
{
    const QString text = QString::fromUtf8(statement);
    return text.left(text.indexOf(QLatin1Char('\''))).left(120);
}

// By its verb: what it changes is saved, so that its outcome matters.
bool changesRows(const char *statement)
{
    while (isspace(static_cast<unsigned char>(*statement)))
        ++statement;
    for (const char *verb : {"INSERT ", "UPDATE ", "DELETE ", "REPLACE "}) {
        if (qstrnicmp(statement, verb, qstrlen(verb)) == 0)
            return true;
    }
    return false;
}

}

KMySQL::KMySQL(int database)
    : m_database(database)
{
}

KMySQL::~KMySQL() = default;

KConnection &KMySQL::connection() const
{
    return KConnection::forThread(m_database);
}

bool KMySQL::Open(bool bVerify, bool bReadAll, bool bThrow)
{
    try {
        if (bVerify)
            connection().verify();
        return !bReadAll || Requery();
    } catch (const CMySQLException &) {
        if (bThrow)
            throw;
        return false;
    }
}

void KMySQL::Close()
{
    m_rows.reset();
    m_places.clear();
    m_result.clear();
    m_count = 0;
    m_atEnd = true;
    m_hasValues = false;
    m_mode = Mode::Browse;
}

void KMySQL::AddNew()
{
    ensureBound();
    if (m_mode == Mode::Browse) {
        m_before = m_columns.values();
        m_hadValues = m_hasValues;
    }
    m_mode = Mode::Add;
    resetMembers();
}

void KMySQL::Edit()
{
    ensureBound();
    requireRow("Edit");
    if (m_mode == Mode::Browse) {
        m_before = m_columns.values();
        m_hadValues = true;
    }
    m_mode = Mode::Edit;
}

bool KMySQL::Update(bool bThrow)
{
    try {
        if (m_mode == Mode::Browse)
            raiseNoRow("Update");
        if (m_mode == Mode::Add)
            inTransaction([this] { insertRow(); });
        else
            updateRow();
    } catch (const CMySQLException &) {
        if (bThrow)
            throw;
        return false;
    }
    m_mode = Mode::Browse;
    m_hasValues = true;
    m_before.clear();
    return true;
}

void KMySQL::AddRows(qsizetype count, const std::function<void(qsizetype)> &fill)
{
    ensureBound();
    if (isNoted())
        throw CMySQLException(CMySQLException::Category::Other, 0, u"rows whose changes are noted are added one by one"_s, GetTableName());
    QByteArray rows;
    for (qsizetype index = 0; index < count; ++index) {
        resetMembers();
        fill(index);
        rows += rows.isEmpty() ? "(" : ",(";
        for (const Column &column : m_columns.all()) {
            if (!KColumns::isKey(column))
                rows += (column.isEmpty() ? QByteArrayLiteral("DEFAULT") : literal(column)) + ',';
        }
        rows.back() = ')';
    }
    resetMembers();
    if (rows.isEmpty())
        return;
    QByteArray names;
    for (const Column &column : m_columns.all()) {
        if (!KColumns::isKey(column))
            names += column.name.toUtf8() + ',';
    }
    names.chop(1);
    inTransaction([&] { connection().run("INSERT INTO " + GetTableName().toUtf8() + '(' + names + ") VALUES" + rows); });
}

void KMySQL::CancelUpdate()
{
    if (m_mode == Mode::Browse)
        return;
    m_columns.setValues(m_before);
    m_hasValues = m_hadValues;
    m_mode = Mode::Browse;
    m_before.clear();
    m_further.clear();
}

bool KMySQL::Delete()
{
    ensureBound();
    requireRow("Delete");
    inTransaction([this] {
        connection().run("DELETE FROM " + GetTableName().toUtf8() + " WHERE iID=" + QByteArray::number(m_columns.key()) + " LIMIT 1");
        noteDeleted();
    });
    m_hasValues = false;
    m_mode = Mode::Browse;
    return true;
}

void KMySQL::noteDeleted()
{
    if (isNoted())
        noteRow(KChange::Kind::Deleted, m_columns.key(), heldValues(KChange::Kind::Deleted));
    KRowFollowers::deleted(GetTableName(), m_columns.key(), m_database);
}

bool KMySQL::Requery()
{
    ensureBound();
    const QList<KRowBound::Term> order = orderTerms();
    select(rowsStatement(order));
    noteLastRow(order.mid(0, notedTerms(order)));
    return true;
}

void KMySQL::expectOpen()
{
    ensureBound();
    KReadAhead::expect(rowsStatement(orderTerms()), m_database);
}

// What the order says of the last row stands behind the columns that are read.
qsizetype KMySQL::notedTerms(const QList<KRowBound::Term> &order) const
{
    return m_isListing && m_limit > 0 ? order.size() : 0;
}

QByteArray KMySQL::rowsStatement(const QList<KRowBound::Term> &order)
{
    QByteArray statement = "SELECT " + m_columns.selectList();
    for (qsizetype term = 0; term < notedTerms(order); ++term)
        statement += ',' + order.at(term).expression.utf8();
    statement += " FROM " + source();
    KSql matched = this->matched();
    if (!m_behind.isEmpty())
        matched = matched.isEmpty() ? m_behind.behind() : m_behind.behind() + " AND " + matched;
    if (!matched.isEmpty())
        statement += " WHERE " + matched.utf8();
    if (!order.isEmpty())
        statement += " ORDER BY " + KColumns::ordered(order).utf8();
    if (m_limit > 0)
        statement += " LIMIT " + QByteArray::number(m_limit);
    return statement;
}

// The table is asked about its columns for an order by a text alone.
QList<KRowBound::Term> KMySQL::orderTerms() const
{
    static const KTableSchema unknown;
    const KTableSchema &table = m_columns.holdText(m_sort) ? KTableSchema::of(GetTableName(), m_database) : unknown;
    return m_isListing ? m_columns.totalTerms(m_sort, table) : m_columns.terms(m_sort, table);
}

// Those of the order stand behind the other columns of the result.
void KMySQL::noteLastRow(const QList<KRowBound::Term> &order)
{
    m_lastRow = {};
    if (order.isEmpty() || m_count == 0)
        return;
    const auto columns = static_cast<qsizetype>(mysql_num_fields(m_rows.get()));
    MYSQL_ROWS *const next = mysql_row_tell(m_rows.get());
    mysql_data_seek(m_rows.get(), static_cast<unsigned long long>(m_count - 1));
    const MYSQL_ROW row = mysql_fetch_row(m_rows.get());
    const unsigned long *const lengths = mysql_fetch_lengths(m_rows.get());
    std::vector<KRowBound::Value> values;
    for (qsizetype column = columns - order.size(); column < columns; ++column)
        values.push_back(row[column] ? KRowBound::Value(QString::fromUtf8(row[column], static_cast<qsizetype>(lengths[column]))) : std::nullopt);
    m_lastRow = KRowBound(order, std::move(values));
    mysql_row_seek(m_rows.get(), next);
}

bool KMySQL::isSpared() const
{
    return m_isListing && spareJoin().isSpared(m_filter, m_sort);
}

QByteArray KMySQL::source() const
{
    return (isSpared() ? spareJoin().rest : fromClause()).toUtf8();
}

KSql KMySQL::matched() const
{
    return isSpared() ? m_filter.withoutEnd(spareJoin().grouping) : m_filter;
}

QByteArray KMySQL::CountStatement(qint64 most)
{
    // A filter may end by grouping the rows, and then its groups are what is listed.
    QByteArray matching = "SELECT 1 FROM " + source();
    if (const KSql matched = this->matched(); !matched.isEmpty())
        matching += " WHERE " + matched.utf8();
    if (most > 0)
        matching += " LIMIT " + QByteArray::number(most);
    return "SELECT COUNT(*) FROM (" + matching + ") matching";
}

qint64 KMySQL::CountMatching(qint64 most)
{
    const KConnection::Result result = connection().run(CountStatement(most));
    const MYSQL_ROW row = mysql_fetch_row(result.get());
    return row && row[0] ? QByteArray(row[0]).toLongLong() : 0;
}

QString KMySQL::fromClause() const
{
    return GetTableName();
}

void KMySQL::RFX_Long(QStringView column, qint32 &value, QStringView caption, QStringView lookupTable,
                      QStringView lookupKey, QStringView lookupDisplay, QStringView)
{
    bind(column, ColumnKind::Long, &value, caption, lookupTable, lookupKey, lookupDisplay);
}

void KMySQL::RFX_Text(QStringView column, QString &value, QStringView caption, QStringView lookupTable,
                      QStringView lookupKey, QStringView lookupDisplay, QStringView)
{
    bind(column, ColumnKind::Text, &value, caption, lookupTable, lookupKey, lookupDisplay);
}

void KMySQL::RFX_Date(QStringView column, QDateTime &value, QStringView caption, QStringView lookupTable,
                      QStringView lookupKey, QStringView lookupDisplay, QStringView)
{
    bind(column, ColumnKind::Date, &value, caption, lookupTable, lookupKey, lookupDisplay);
}

void KMySQL::RFX_Double(QStringView column, double &value, QStringView caption, QStringView lookupTable,
                        QStringView lookupKey, QStringView lookupDisplay, QStringView)
{
    bind(column, ColumnKind::Double, &value, caption, lookupTable, lookupKey, lookupDisplay);
}

void KMySQL::RFX_Bool(QStringView column, qint32 &value, QStringView caption, QStringView lookupTable,
                      QStringView lookupKey, QStringView lookupDisplay, QStringView)
{
    bind(column, ColumnKind::Bool, &value, caption, lookupTable, lookupKey, lookupDisplay);
}

void KMySQL::RFX_LongBlob(QStringView column, KLongBinary &value, QStringView caption, QStringView lookupTable,
                          QStringView lookupKey, QStringView lookupDisplay, QStringView)
{
    bind(column, ColumnKind::LongBlob, &value, caption, lookupTable, lookupKey, lookupDisplay);
}

void KMySQL::bind(QStringView column, ColumnKind kind, Column::Member member, QStringView caption, QStringView lookupTable,
                  QStringView lookupKey, QStringView lookupDisplay)
{
    m_columns.add({column.toString(), kind, member, caption.toString(), lookupTable.toString(), lookupKey.toString(),
                   lookupDisplay.toString()});
}

void KMySQL::setAlias(QStringView alias)
{
    m_columns.setAlias(alias);
}

void KMySQL::namesFrom(QStringView column, QStringView table, QStringView key, QStringView display)
{
    m_columns.addNameSource(column, {table.toString(), key.toString(), display.toString()});
}

void KMySQL::ensureBound()
{
    if (m_columns.all().empty())
        DoFieldExchange();
}

bool KMySQL::IsEOF() const
{
    return m_atEnd;
}

bool KMySQL::MoveNext()
{
    if (!m_rows || m_atEnd)
        raiseNoRow("MoveNext");
    return fetchRow();
}

void KMySQL::MoveLast()
{
    if (!m_rows || m_count == 0)
        raiseNoRow("MoveLast");
    mysql_data_seek(m_rows.get(), static_cast<unsigned long long>(m_count - 1));
    fetchRow();
}

bool KMySQL::MoveTo(qint64 row)
{
    if (!m_rows || row < 0 || row >= m_count)
        return false;
    if (m_places.empty())
        notePlaces();
    mysql_row_seek(m_rows.get(), m_places[static_cast<size_t>(row)]);
    return fetchRow();
}

// The library finds a row by its number by going through all that stand before it.
void KMySQL::notePlaces()
{
    m_places.reserve(static_cast<size_t>(m_count));
    mysql_data_seek(m_rows.get(), 0);
    for (qint64 row = 0; row < m_count; ++row) {
        m_places.push_back(mysql_row_tell(m_rows.get()));
        mysql_fetch_row(m_rows.get());
    }
}

qint64 KMySQL::GetRecordsCount() const
{
    return m_count;
}

void KMySQL::SetLimit(qint64 rows)
{
    m_limit = rows;
}

void KMySQL::SetListing(bool on)
{
    m_isListing = on;
    m_behind = {};
}

void KMySQL::SetBehind(const KRowBound &row)
{
    m_behind = row;
}

bool KMySQL::IsRecordExist(const QString &column, qint32 value, int, const KSql &extra)
{
    connection().verify();
    QByteArray statement = selectColumns() + " WHERE " + KSql::name(column).utf8() + '=' + QByteArray::number(value);
    if (!extra.isEmpty())
        statement += ' ' + extra.utf8();
    select(statement + " LIMIT 1");
    return m_hasValues;
}

bool KMySQL::lockRecord(qint32 key)
{
    if (!connection().inTransaction())
        throw CMySQLException(CMySQLException::Category::Other, 0,
                              GetTableName() + QLatin1String(": a row is locked outside of a transaction"));
    select(lockStatement(key));
    return m_hasValues;
}

void KMySQL::expectLock(qint32 key)
{
    KReadAhead::expect(lockStatement(key), m_database);
}

QByteArray KMySQL::lockStatement(qint32 key)
{
    return selectColumns() + " WHERE iID=" + QByteArray::number(key) + " LIMIT 1 FOR UPDATE";
}

QByteArray KMySQL::selectColumns()
{
    ensureBound();
    return "SELECT " + m_columns.selectList() + " FROM " + fromClause().toUtf8();
}

void KMySQL::select(const QByteArray &statement)
{
    KConnection::Result rows = connection().run(statement);
    m_mode = Mode::Browse;
    m_rows = std::move(rows);
    m_places.clear();
    m_count = static_cast<qint64>(mysql_num_rows(m_rows.get()));
    resetMembers();
    fetchRow();
}

bool KMySQL::fetchRow()
{
    m_mode = Mode::Browse;
    const MYSQL_ROW row = mysql_fetch_row(m_rows.get());
    m_atEnd = row == nullptr;
    m_hasValues = row != nullptr;
    if (!row)
        return false;
    m_columns.load(row, mysql_fetch_lengths(m_rows.get()));
    return true;
}

void KMySQL::resetMembers()
{
    m_columns.clear();
    m_hasValues = false;
}

QByteArray KMySQL::literal(const Column &column) const
{
    if (column.kind == ColumnKind::Text)
        column.requireFits(KTableSchema::of(GetTableName(), m_database));
    return column.literal();
}

void KMySQL::insertRow()
{
    QByteArray names;
    QByteArray values;
    for (const Column &column : m_columns.all()) {
        // What was not set keeps the column's default, which is what a constructed member stands for.
        if (KColumns::isKey(column) || column.isEmpty())
            continue;
        names += column.name.toUtf8() + ',';
        values += literal(column) + ',';
    }
    names.chop(1);
    values.chop(1);
    runNoted("INSERT INTO " + GetTableName().toUtf8() + '(' + names + ") VALUES(" + values + ')', KChange::Kind::Added, std::nullopt,
             heldValues(KChange::Kind::Added));
    m_lastInsertedId = connection().lastInsertedId();
    m_columns.setKey(static_cast<qint32>(m_lastInsertedId));
    KRowFollowers::added(GetTableName(), m_columns.key(), m_database);
}

void KMySQL::updateRow()
{
    QByteArray assignments;
    QStringList changed;
    QList<KChangedValue> changes;
    qint32 key = 0;
    for (size_t i = 0; i < m_columns.all().size(); ++i) {
        const Column &column = m_columns.all()[i];
        if (KColumns::isKey(column))
            key = m_before[i].toInt();
        else if (!column.isStill(m_before[i])) {
            assignments += column.name.toUtf8() + '=' + literal(column) + ',';
            changed.append(column.name);
            if (isNoted())
                changes.append({column.name, m_before[i], column.value(), isSecret(column.name)});
        }
    }
    const bool isFirst = m_noting == Noting::AsAdded;
    const KChange::Kind kind = isFirst ? KChange::Kind::Added : KChange::Kind::Changed;
    if (isFirst)
        changes = heldValues(KChange::Kind::Added);
    if (assignments.isEmpty()) {
        if (isNoted() && (isFirst || !m_further.isEmpty()))
            inTransaction([&] { noteRow(kind, key, changes); });
        return;
    }
    assignments.chop(1);
    inTransaction([&] {
        runNoted("UPDATE " + GetTableName().toUtf8() + " SET " + assignments + " WHERE iID=" + QByteArray::number(key) + " LIMIT 1", kind, key, changes);
        if (connection().affectedRows() == 0)
            throw CMySQLException(CMySQLException::Category::NoCurrentRow, 0,
                                  GetTableName() + QLatin1String(": the row to update is gone"));
        KRowFollowers::changed(GetTableName(), key, m_database, changed);
    });
}

void KMySQL::runNoted(const QByteArray &statement, KChange::Kind kind, std::optional<qint32> key, const QList<KChangedValue> &values)
{
    if (!isNoted()) {
        connection().run(statement);
        return;
    }
    KChangeLog::noteNext(GetTableName(), key, kind, m_database, values + m_further);
    connection().run(statement);
    noted();
}

void KMySQL::noteRow(KChange::Kind kind, qint32 key, const QList<KChangedValue> &values)
{
    KChangeLog::note(GetTableName(), key, kind, m_database, values + m_further);
    noted();
}

void KMySQL::noted()
{
    m_further.clear();
    if (m_noting == Noting::AsAdded)
        m_noting = Noting::AsWritten;
}

QList<KChangedValue> KMySQL::heldValues(KChange::Kind kind) const
{
    const bool isGone = kind == KChange::Kind::Deleted;
    QList<KChangedValue> values;
    for (const Column &column : m_columns.all()) {
        if (KColumns::isKey(column) || column.isEmpty())
            continue;
        const QVariant held = column.value();
        values.append({column.name, isGone ? held : QVariant(), isGone ? QVariant() : held, isSecret(column.name)});
    }
    return values;
}

void KMySQL::requireRow(const char *operation) const
{
    if (!m_hasValues)
        raiseNoRow(operation);
}

void KMySQL::raiseNoRow(const char *operation) const
{
    throw CMySQLException(CMySQLException::Category::NoCurrentRow, 0,
                          GetTableName() + QLatin1String(": no current row for ") + QLatin1String(operation));
}

void KMySQL::inTransaction(const std::function<void()> &work)
{
    if (connection().inTransaction())
        return work();
    KTransaction transaction(m_database);
    work();
    transaction.commit();
}

int KMySQL::ExecuteQuery(const char *statement, bool bRaise, bool bLog)
{
    try {
        if (!changesRows(statement))
            return keepResult(connection().run(QByteArray(statement)));
        int rows = 0;
        inTransaction([&] { rows = keepResult(connection().run(QByteArray(statement))); });
        return rows;
    } catch (const CMySQLException &error) {
        if (bLog)
            qCWarning(lcRecords).noquote() << "error" << error.serverCode() << "in" << withoutValues(statement);
        if (!bRaise && error.category() == CMySQLException::Category::AlreadySo)
            return 0;
        throw;
    }
}

int KMySQL::ExecuteQuery(const KSql &statement, bool bRaise)
{
    return ExecuteQuery(statement.utf8().constData(), bRaise, true);
}

int KMySQL::executeFormatted(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    // Not the C library's: that one writes a number's decimal point as the user's language does.
    const QByteArray statement = QString::vasprintf(format, arguments).toUtf8();
    va_end(arguments);
    return ExecuteQuery(statement.constData(), true, true);
}

int KMySQL::keepResult(KConnection::Result result)
{
    const bool hasRows = result != nullptr;
    m_result.set(std::move(result));
    if (hasRows)
        return static_cast<int>(m_result.rowCount());
    m_lastInsertedId = connection().lastInsertedId();
    return static_cast<int>(connection().affectedRows());
}

qint32 KMySQL::GetLongFieldValue(int column) const
{
    return m_result.value<qint32>(column);
}

double KMySQL::GetDoubleFieldValue(int column) const
{
    return m_result.value<double>(column);
}

QString KMySQL::GetTextFieldValue(int column) const
{
    return m_result.value<QString>(column);
}

QDateTime KMySQL::GetDateFieldValue(int column) const
{
    return m_result.value<QDateTime>(column);
}

QByteArray KMySQL::GetBinaryFieldValue(int column) const
{
    return m_result.value<KLongBinary>(column).data;
}

bool KMySQL::HasResultRow() const
{
    return m_result.hasRow();
}

bool KMySQL::MoveNextResult()
{
    if (!m_result.hasRow())
        raiseNoRow("MoveNextResult");
    return m_result.moveNext();
}

quint64 KMySQL::GetLastInsertedID() const
{
    return m_lastInsertedId;
}

bool KMySQL::canSortBy(const KSql &order)
{
    ensureBound();
    return fromClause() != GetTableName() || m_columns.hold(order);
}

void KMySQL::SetColumns(const QStringList &columns)
{
    m_columns.setSubset(columns);
}

const std::vector<KMySQL::Column> &KMySQL::columns()
{
    ensureBound();
    return m_columns.all();
}

const KMySQL::Column *KMySQL::column(QStringView name)
{
    ensureBound();
    return m_columns.find(name);
}

KNameSource KMySQL::nameSource(QStringView name)
{
    ensureBound();
    return m_columns.nameSource(name);
}

QVariant KMySQL::value(QStringView name)
{
    const Column *found = column(name);
    Q_ASSERT_X(found, "KMySQL::value", "no such column");
    return found ? found->value() : QVariant();
}

void KMySQL::setValue(QStringView name, const QVariant &value)
{
    const Column *found = column(name);
    Q_ASSERT_X(found, "KMySQL::setValue", "no such column");
    if (found)
        found->setValue(value);
}

KRowValues KMySQL::rowValues()
{
    ensureBound();
    return m_columns.rowValues();
}

void KMySQL::setRowValues(const KRowValues &values)
{
    for (auto column = values.cbegin(); column != values.cend(); ++column)
        setValue(column.key(), column.value());
}

int KMySQL::textLength(QStringView name)
{
    return KTableSchema::textLength(GetTableName(), name.toString(), m_database);
}

bool KMySQL::isBasicPlaneOnly(QStringView name)
{
    const KTableSchema::Column *found = KTableSchema::of(GetTableName(), m_database).column(name.toString());
    return found && found->basicPlaneOnly;
}

void KMySQL::requireFits(QStringView name)
{
    const Column *found = column(name);
    Q_ASSERT_X(found, "KMySQL::requireFits", "no such column");
    if (found)
        found->requireFits(KTableSchema::of(GetTableName(), m_database));
}

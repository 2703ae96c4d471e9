// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/KMySQL.h"

#include "suite/db/KTableSchema.h"

#include <QLoggingCategory>

#include <charconv>
#include <cmath>
#include <cstdarg>
#include <limits>

#include <mysql.h>

namespace {

Q_LOGGING_CATEGORY(lcRecords, "tz.records")

const QString keyColumn = QStringLiteral("iID");

// A joined view names the key with its table's alias.
bool isKeyColumn(const QString &name)
{
    return name == keyColumn || name.endsWith(QLatin1String(".iID"));
}

// What a log may show of a statement: its beginning up to the first quoted value.
QString withoutValues(const char *statement)
{
    const QString text = QString::fromUtf8(statement);
    return text.left(text.indexOf(QLatin1Char('\''))).left(120);
}

template <class Number>
Number parsed(const char *text, unsigned long length)
{
    Number number{};
    std::from_chars(text, text + length, number);
    return number;
}

int digits(const char *text, int count)
{
    int number = 0;
    for (int i = 0; i < count; ++i)
        number = number * 10 + (text[i] - '0');
    return number;
}

// "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS", as the server writes them; the zero date is no date.
QDateTime parsedDate(const char *text, unsigned long length)
{
    if (length < 10)
        return {};
    const QDate date(digits(text, 4), digits(text + 5, 2), digits(text + 8, 2));
    if (!date.isValid())
        return {};
    const QTime time =
        length >= 19 ? QTime(digits(text + 11, 2), digits(text + 14, 2), digits(text + 17, 2)) : QTime(0, 0);
    return QDateTime(date, time, Qt::UTC);
}

QString dateText(const QDateTime &dateTime)
{
    return dateTime.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

void assign(const KMySQL::Column &column, const char *text, unsigned long length)
{
    switch (column.kind) {
    case KMySQL::ColumnKind::Long:
    case KMySQL::ColumnKind::Bool:
        *static_cast<qint32 *>(column.member) = text ? parsed<qint32>(text, length) : 0;
        break;
    case KMySQL::ColumnKind::Double:
        *static_cast<double *>(column.member) = text ? parsed<double>(text, length) : 0.0;
        break;
    case KMySQL::ColumnKind::Text: {
        QString &member = *static_cast<QString *>(column.member);
        if (text && length > 0)
            member = QString::fromUtf8(text, static_cast<qsizetype>(length));
        else
            member = QString();
        break;
    }
    case KMySQL::ColumnKind::Date:
        *static_cast<QDateTime *>(column.member) = text ? parsedDate(text, length) : QDateTime();
        break;
    case KMySQL::ColumnKind::LongBlob:
        static_cast<KLongBinary *>(column.member)->data = text ? QByteArray(text, static_cast<qsizetype>(length)) : QByteArray();
        break;
    }
}

QVariant memberValue(const KMySQL::Column &column)
{
    switch (column.kind) {
    case KMySQL::ColumnKind::Long:
    case KMySQL::ColumnKind::Bool:
        return *static_cast<const qint32 *>(column.member);
    case KMySQL::ColumnKind::Double:
        return *static_cast<const double *>(column.member);
    case KMySQL::ColumnKind::Text:
        return *static_cast<const QString *>(column.member);
    case KMySQL::ColumnKind::Date:
        return *static_cast<const QDateTime *>(column.member);
    case KMySQL::ColumnKind::LongBlob:
        return static_cast<const KLongBinary *>(column.member)->data;
    }
    Q_UNREACHABLE();
}

void setMemberValue(const KMySQL::Column &column, const QVariant &value)
{
    switch (column.kind) {
    case KMySQL::ColumnKind::Long:
    case KMySQL::ColumnKind::Bool:
        *static_cast<qint32 *>(column.member) = value.toInt();
        break;
    case KMySQL::ColumnKind::Double:
        *static_cast<double *>(column.member) = value.toDouble();
        break;
    case KMySQL::ColumnKind::Text:
        *static_cast<QString *>(column.member) = value.toString();
        break;
    case KMySQL::ColumnKind::Date:
        *static_cast<QDateTime *>(column.member) = value.toDateTime();
        break;
    case KMySQL::ColumnKind::LongBlob:
        static_cast<KLongBinary *>(column.member)->data = value.toByteArray();
        break;
    }
}

// NULL and the empty value are one thing: two empty texts or dates are equal whatever kind of empty they are.
bool sameValue(const KMySQL::Column &column, const QVariant &before)
{
    switch (column.kind) {
    case KMySQL::ColumnKind::Date: {
        const QDateTime now = *static_cast<const QDateTime *>(column.member);
        const QDateTime then = before.toDateTime();
        return now.isValid() == then.isValid() && (!now.isValid() || now == then);
    }
    case KMySQL::ColumnKind::Text:
        return *static_cast<const QString *>(column.member) == before.toString();
    default:
        return memberValue(column) == before;
    }
}

bool isConstructedValue(const KMySQL::Column &column)
{
    switch (column.kind) {
    case KMySQL::ColumnKind::Long:
    case KMySQL::ColumnKind::Bool:
        return *static_cast<const qint32 *>(column.member) == 0;
    case KMySQL::ColumnKind::Double:
        return *static_cast<const double *>(column.member) == 0.0;
    case KMySQL::ColumnKind::Text:
        return static_cast<const QString *>(column.member)->isEmpty();
    case KMySQL::ColumnKind::Date:
        return !static_cast<const QDateTime *>(column.member)->isValid();
    case KMySQL::ColumnKind::LongBlob:
        return static_cast<const KLongBinary *>(column.member)->isEmpty();
    }
    Q_UNREACHABLE();
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
    m_result.reset();
    m_resultRow = nullptr;
    m_count = 0;
    m_atEnd = true;
    m_hasValues = false;
    m_mode = Mode::Browse;
}

void KMySQL::AddNew()
{
    ensureBound();
    if (m_mode == Mode::Browse) {
        m_before = snapshot();
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
        m_before = snapshot();
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
            insertRow();
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

void KMySQL::CancelUpdate()
{
    if (m_mode == Mode::Browse)
        return;
    restore(m_before);
    m_hasValues = m_hadValues;
    m_mode = Mode::Browse;
    m_before.clear();
}

bool KMySQL::Delete()
{
    ensureBound();
    requireRow("Delete");
    connection().run("DELETE FROM " + GetTableName().toUtf8() + " WHERE iID=" + QByteArray::number(currentKey()) + " LIMIT 1");
    m_hasValues = false;
    m_mode = Mode::Browse;
    return true;
}

bool KMySQL::Requery()
{
    QByteArray statement = selectColumns();
    if (!m_filter.isEmpty())
        statement += " WHERE " + m_filter.toUtf8();
    if (!m_sort.isEmpty())
        statement += " ORDER BY " + m_sort.toUtf8();
    if (m_limit > 0)
        statement += " LIMIT " + QByteArray::number(m_limit);
    select(statement);
    return true;
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

void KMySQL::bind(QStringView column, ColumnKind kind, void *member, QStringView caption, QStringView lookupTable,
                  QStringView lookupKey, QStringView lookupDisplay)
{
    m_columns.push_back({column.toString(), kind, member, caption.toString(), lookupTable.toString(),
                         lookupKey.toString(), lookupDisplay.toString()});
}

void KMySQL::namesFrom(QStringView column, QStringView table, QStringView key, QStringView display)
{
    m_nameSources.emplace_back(column.toString(), KLookup::Source{table.toString(), key.toString(), display.toString()});
}

void KMySQL::ensureBound()
{
    if (m_columns.empty())
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

qint64 KMySQL::GetRecordsCount() const
{
    return m_count;
}

void KMySQL::SetLimit(qint64 rows)
{
    m_limit = rows;
}

bool KMySQL::IsRecordExist(const QString &column, qint32 value, int, const QString &extra)
{
    connection().verify();
    QByteArray statement = selectColumns() + " WHERE " + column.toUtf8() + '=' + QByteArray::number(value);
    if (!extra.isEmpty())
        statement += ' ' + extra.toUtf8();
    select(statement + " LIMIT 1");
    return m_hasValues;
}

QByteArray KMySQL::selectColumns()
{
    ensureBound();
    m_selected.clear();
    QByteArray statement = "SELECT ";
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const QString &name = m_columns[i].name;
        if (!m_subset.isEmpty() && !isKeyColumn(name) && !m_subset.contains(name))
            continue;
        m_selected.push_back(static_cast<int>(i));
        statement += name.toUtf8() + ',';
    }
    statement.chop(1);
    return statement + " FROM " + fromClause().toUtf8();
}

void KMySQL::select(const QByteArray &statement)
{
    KConnection::Result rows = connection().run(statement);
    m_mode = Mode::Browse;
    m_rows = std::move(rows);
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
    const unsigned long *lengths = mysql_fetch_lengths(m_rows.get());
    for (size_t i = 0; i < m_selected.size(); ++i)
        assign(m_columns[static_cast<size_t>(m_selected[i])], row[i], lengths[i]);
    return true;
}

void KMySQL::resetMembers()
{
    for (const Column &column : m_columns)
        assign(column, nullptr, 0);
    m_hasValues = false;
}

std::vector<QVariant> KMySQL::snapshot() const
{
    std::vector<QVariant> values;
    values.reserve(m_columns.size());
    for (const Column &column : m_columns)
        values.push_back(memberValue(column));
    return values;
}

void KMySQL::restore(const std::vector<QVariant> &values)
{
    for (size_t i = 0; i < values.size(); ++i)
        setMemberValue(m_columns[i], values[i]);
}

void KMySQL::checkText(const Column &column, const QString &text) const
{
    const KTableSchema::Column *schema = KTableSchema::of(GetTableName(), m_database).column(column.name);
    if (!schema)
        return;
    qint64 characters = 0;
    bool beyondBasicPlane = false;
    for (const QChar c : text) {
        if (c.isLowSurrogate())
            continue;
        ++characters;
        beyondBasicPlane |= c.isHighSurrogate();
    }
    if (beyondBasicPlane && schema->basicPlaneOnly)
        refuse(column, CMySQLException::Category::BadCharacter, ": a character that the column's character set cannot hold");
    if (schema->maxCharacters > 0 && characters > schema->maxCharacters)
        refuse(column, CMySQLException::Category::ValueTooLong, ": text longer than its column");
}

void KMySQL::refuse(const Column &column, CMySQLException::Category category, const char *why)
{
    CMySQLException error(category, 0, column.name + QLatin1String(why));
    error.setColumnCaption(column.caption);
    throw error;
}

QByteArray KMySQL::literal(const Column &column) const
{
    constexpr auto outOfRange = CMySQLException::Category::ValueTooLong;
    switch (column.kind) {
    case ColumnKind::Long:
        return QByteArray::number(*static_cast<const qint32 *>(column.member));
    case ColumnKind::Bool: {
        const qint32 flag = *static_cast<const qint32 *>(column.member);
        if (flag < std::numeric_limits<qint8>::min() || flag > std::numeric_limits<qint8>::max())
            refuse(column, outOfRange, ": a flag that is larger than a byte");
        return QByteArray::number(flag);
    }
    case ColumnKind::Double: {
        const double number = *static_cast<const double *>(column.member);
        if (!std::isfinite(number))
            refuse(column, outOfRange, ": no finite number");
        return QByteArray::number(number, 'g', 17);
    }
    case ColumnKind::Text: {
        const QString &text = *static_cast<const QString *>(column.member);
        checkText(column, text);
        return connection().quoted(text);
    }
    case ColumnKind::Date: {
        const QDateTime &date = *static_cast<const QDateTime *>(column.member);
        if (!date.isValid())
            return QByteArrayLiteral("NULL");
        // The server would read the digits of such a year as another date.
        if (date.date().year() < 1 || date.date().year() > 9999)
            refuse(column, outOfRange, ": no year of four digits");
        return connection().quoted(dateText(date));
    }
    case ColumnKind::LongBlob: {
        const QByteArray &data = static_cast<const KLongBinary *>(column.member)->data;
        return data.isEmpty() ? QByteArrayLiteral("NULL") : connection().quoted(data);
    }
    }
    Q_UNREACHABLE();
}

void KMySQL::insertRow()
{
    QByteArray names;
    QByteArray values;
    for (const Column &column : m_columns) {
        // What was not set keeps the column's default, which is what a constructed member stands for.
        if (column.name == keyColumn || isConstructedValue(column))
            continue;
        names += column.name.toUtf8() + ',';
        values += literal(column) + ',';
    }
    names.chop(1);
    values.chop(1);
    connection().run("INSERT INTO " + GetTableName().toUtf8() + '(' + names + ") VALUES(" + values + ')');
    m_lastInsertedId = connection().lastInsertedId();
    if (const Column *key = column(keyColumn))
        *static_cast<qint32 *>(key->member) = static_cast<qint32>(m_lastInsertedId);
}

void KMySQL::updateRow()
{
    QByteArray assignments;
    qint32 key = 0;
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const Column &column = m_columns[i];
        if (column.name == keyColumn)
            key = m_before[i].toInt();
        else if (!sameValue(column, m_before[i]))
            assignments += column.name.toUtf8() + '=' + literal(column) + ',';
    }
    if (assignments.isEmpty())
        return;
    assignments.chop(1);
    connection().run("UPDATE " + GetTableName().toUtf8() + " SET " + assignments + " WHERE iID=" + QByteArray::number(key)
                     + " LIMIT 1");
    if (connection().affectedRows() == 0)
        throw CMySQLException(CMySQLException::Category::NoCurrentRow, 0,
                              GetTableName() + QLatin1String(": the row to update is gone"));
}

qint32 KMySQL::currentKey() const
{
    for (const Column &column : m_columns) {
        if (column.name == keyColumn)
            return *static_cast<const qint32 *>(column.member);
    }
    return 0;
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

int KMySQL::ExecuteQuery(const char *statement, bool bRaise, bool bLog)
{
    try {
        return keepResult(connection().run(QByteArray(statement)));
    } catch (const CMySQLException &error) {
        if (bLog)
            qCWarning(lcRecords).noquote() << "error" << error.serverCode() << "in" << withoutValues(statement);
        if (!bRaise && error.category() == CMySQLException::Category::AlreadySo)
            return 0;
        throw;
    }
}

int KMySQL::ExecuteQuery(const QString &statement, bool bRaise)
{
    return ExecuteQuery(statement.toUtf8().constData(), bRaise, true);
}

int KMySQL::FormatAndExecuteQuery(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    // Not the C library's: that one writes a number's decimal point as the user's language does.
    const QString statement = QString::vasprintf(format, arguments);
    va_end(arguments);
    return ExecuteQuery(statement, true);
}

int KMySQL::keepResult(KConnection::Result result)
{
    m_result = std::move(result);
    m_resultRow = nullptr;
    if (!m_result) {
        m_lastInsertedId = connection().lastInsertedId();
        return static_cast<int>(connection().affectedRows());
    }
    fetchResultRow();
    return static_cast<int>(mysql_num_rows(m_result.get()));
}

void KMySQL::fetchResultRow()
{
    m_resultRow = mysql_fetch_row(m_result.get());
    m_resultLengths = m_resultRow ? mysql_fetch_lengths(m_result.get()) : nullptr;
}

const char *KMySQL::resultCell(int column, unsigned long *length) const
{
    if (!m_result || !m_resultRow || column < 0 || static_cast<unsigned int>(column) >= mysql_num_fields(m_result.get()))
        return nullptr;
    *length = m_resultLengths[column];
    return m_resultRow[column];
}

qint32 KMySQL::GetLongFieldValue(int column) const
{
    unsigned long length = 0;
    const char *cell = resultCell(column, &length);
    return cell ? parsed<qint32>(cell, length) : 0;
}

double KMySQL::GetDoubleFieldValue(int column) const
{
    unsigned long length = 0;
    const char *cell = resultCell(column, &length);
    return cell ? parsed<double>(cell, length) : 0.0;
}

QString KMySQL::GetTextFieldValue(int column) const
{
    return QString::fromUtf8(GetBinaryFieldValue(column));
}

QDateTime KMySQL::GetDateFieldValue(int column) const
{
    unsigned long length = 0;
    const char *cell = resultCell(column, &length);
    return cell ? parsedDate(cell, length) : QDateTime();
}

QByteArray KMySQL::GetBinaryFieldValue(int column) const
{
    unsigned long length = 0;
    const char *cell = resultCell(column, &length);
    return cell ? QByteArray(cell, static_cast<qsizetype>(length)) : QByteArray();
}

bool KMySQL::HasResultRow() const
{
    return m_resultRow != nullptr;
}

bool KMySQL::MoveNextResult()
{
    if (!m_result || !m_resultRow)
        raiseNoRow("MoveNextResult");
    fetchResultRow();
    return HasResultRow();
}

quint64 KMySQL::GetLastInsertedID() const
{
    return m_lastInsertedId;
}

void KMySQL::SetColumns(const QStringList &columns)
{
    m_subset = columns;
}

const std::vector<KMySQL::Column> &KMySQL::columns()
{
    ensureBound();
    return m_columns;
}

const KMySQL::Column *KMySQL::column(QStringView name)
{
    ensureBound();
    for (const Column &column : m_columns) {
        if (column.name == name)
            return &column;
    }
    return nullptr;
}

KLookup::Source KMySQL::nameSource(QStringView name)
{
    const Column *bound = column(name);
    if (bound && !bound->lookupTable.isEmpty())
        return {bound->lookupTable, bound->lookupKey, bound->lookupDisplay};
    for (const auto &[column, source] : m_nameSources) {
        if (column == name)
            return source;
    }
    return {};
}

QVariant KMySQL::value(QStringView name)
{
    const Column *found = column(name);
    Q_ASSERT_X(found, "KMySQL::value", "no such column");
    return found ? memberValue(*found) : QVariant();
}

void KMySQL::setValue(QStringView name, const QVariant &value)
{
    const Column *found = column(name);
    Q_ASSERT_X(found, "KMySQL::setValue", "no such column");
    if (found)
        setMemberValue(*found, value);
}

int KMySQL::textLength(QStringView name)
{
    return KTableSchema::textLength(GetTableName(), name.toString(), m_database);
}

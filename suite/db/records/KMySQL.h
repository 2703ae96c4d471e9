// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/CMySQLException.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/records/KColumns.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KLongBinary.h"
#include "suite/sql/KSql.h"
#include "suite/db/records/KStatementFormat.h"
#include "suite/db/connection/KStatementResult.h"

#include <QDateTime>
#include <QStringList>
#include "suite/db/records/KRowBound.h"
#include "suite/db/records/KSpareJoin.h"

#include <QVariant>

#include <functional>
#include <vector>

struct st_mysql_rows;

// Record set over one table: a current row in the members of a derived class, over the rows that match a filter.
//
// A derived class declares each column once, in DoFieldExchange, by RFX_ calls in column order. The base runs that
// declaration once per object and from then on reads and writes the members by it: the SELECT, loading, INSERT,
// UPDATE, captions and lookups all come from the same list. An object is therefore neither copied nor moved.
//
// What changes the table outside of a transaction runs in one of its own, so that its outcome can be asked for (KTransaction).
//
// Date-times are the wall-clock time of the office, held as QDateTime in Qt::UTC so that no daylight-saving rule ever
// moves or voids one; NULL is the invalid QDateTime, in both directions. NULL texts are empty, NULL numbers 0.
class TZDB_EXPORT KMySQL
{
public:
    using Column = KColumn;
    using ColumnKind = KColumn::Kind;

    // Condition after WHERE, without that word; empty: all rows. Columns after ORDER BY, texts in the order of the Persian
    // alphabet; empty: no order.
    // Both are read by Open and Requery.
    KSql m_filter;
    KSql m_sort;

    explicit KMySQL(int database = 0);
    KMySQL(const KMySQL &) = delete;
    KMySQL &operator=(const KMySQL &) = delete;

    // The order of these virtual operations is fixed.
    virtual ~KMySQL();
    // bVerify: make sure first that a connection left idle still answers (reconnecting if not); for what a user starts.
    // bReadAll: select the rows and stand on the first; false: only make the set ready for statements and AddNew.
    // bThrow: errors are raised; false: they are returned as false.
    virtual bool Open(bool bVerify, bool bReadAll, bool bThrow);
    virtual void Close();
    // Starts a new row: the members are as constructed until they are set. Written by Update.
    virtual void AddNew();
    // Starts a change of the current row. Throws NoCurrentRow when there is none.
    virtual void Edit();
    // Writes what AddNew or Edit started: a new row's set columns, or the changed columns of an edited one. On an error the
    // members keep what they hold and the edit stays open. bThrow false: errors are returned as false. Throws NoCurrentRow
    // without AddNew or Edit before it.
    virtual bool Update(bool bThrow);
    // Adds rows by one statement, whatever their number: fill is called with 0 and so on and sets the members of each. For a table whose changes
    // are not noted row by row and whose new keys nobody asks for. Throws, and has added none then.
    void AddRows(qsizetype count, const std::function<void(qsizetype)> &fill);
    // Drops what AddNew or Edit started; the members are again what they were before.
    virtual void CancelUpdate();
    // Deletes the current row by its iID. True when it is gone, also when somebody else deleted it first. The set stands on
    // no row until MoveNext. Throws NoCurrentRow.
    virtual bool Delete();
    // Reads the rows again with the filter, sort and limit as they are now.
    virtual bool Requery();
    // That the rows will be read, with the filter, sort and limit as they are now (KReadAhead).
    void expectOpen();
    virtual QString GetTableName() const = 0;

protected:
    virtual void DoFieldExchange() = 0;

    // Column name; member; Persian caption (empty: never shown); lookup table, its key and its display column
    // (empty: no lookup); a further text, always empty.
    void RFX_Long(QStringView column, qint32 &value, QStringView caption, QStringView lookupTable = {},
                  QStringView lookupKey = {}, QStringView lookupDisplay = {}, QStringView extra = {});
    void RFX_Text(QStringView column, QString &value, QStringView caption, QStringView lookupTable = {},
                  QStringView lookupKey = {}, QStringView lookupDisplay = {}, QStringView extra = {});
    void RFX_Date(QStringView column, QDateTime &value, QStringView caption, QStringView lookupTable = {},
                  QStringView lookupKey = {}, QStringView lookupDisplay = {}, QStringView extra = {});
    void RFX_Double(QStringView column, double &value, QStringView caption, QStringView lookupTable = {},
                    QStringView lookupKey = {}, QStringView lookupDisplay = {}, QStringView extra = {});
    void RFX_Bool(QStringView column, qint32 &value, QStringView caption, QStringView lookupTable = {},
                  QStringView lookupKey = {}, QStringView lookupDisplay = {}, QStringView extra = {});
    void RFX_LongBlob(QStringView column, KLongBinary &value, QStringView caption, QStringView lookupTable = {},
                      QStringView lookupKey = {}, QStringView lookupDisplay = {}, QStringView extra = {});

    // What stands after FROM; a derived class that reads a joined view overrides it.
    virtual QString fromClause() const;
    // The join of it that a list can do without.
    virtual KSpareJoin spareJoin() const { return {}; }

    // The bindings that follow are of this alias of the FROM clause: "ai" makes "ai.iCode" of iCode. Empty: no alias.
    void setAlias(QStringView alias);
    // Where the names behind a column's keys stand, for a column whose binding offers no lookup: KLookup finds them by it,
    // while forms, captions and statements stay as without it. In DoFieldExchange, beside the binding of the column.
    void namesFrom(QStringView column, QStringView table, QStringView key, QStringView display);

    // Throws NoCurrentRow unless the members hold a row of the table; for operations of derived classes.
    void requireRow(const char *operation) const;

    // Whether each row that is added, changed or deleted through the class is noted in the log of changes (KChangeLog).
    virtual bool isLogged() const { return false; }
    // Whether the log says of the column only that it changed, never its values: a password, for one.
    virtual bool isSecret(QStringView) const { return false; }

public:
    // True when the set stands behind its last row or has none.
    bool IsEOF() const;
    // To the next row; false when there is none. Throws NoCurrentRow on a set that is already at its end or not open.
    bool MoveNext();
    void MoveLast();
    // To that row of those that the last Open or Requery selected, from 0; false, and no move, when there is none.
    bool MoveTo(qint64 row);
    // Rows that the last Open or Requery selected (after the limit).
    qint64 GetRecordsCount() const;
    // Rows that the filter matches as it is now, whatever the limit; asks the database. most: it counts no further; 0: all.
    qint64 CountMatching(qint64 most = 0);
    // The statement that asks for it, for another thread.
    QByteArray CountStatement(qint64 most = 0);
    // Caps the rows that the next Open or Requery fetches; 0: no cap.
    void SetLimit(qint64 rows);
    // For a list that is read in parts: the key stands behind the order, so that no two rows are alike in it, and a join that only
    // repeats rows is left out where it can be.
    void SetListing(bool on);
    // In a listing with a limit, the end of the rows that the last Open or Requery fetched; empty where there were none.
    const KRowBound &LastRow() const { return m_lastRow; }
    // The next Open or Requery of a listing fetches the rows behind that, of the same filter and order; an empty one: from the first.
    // Counting asks for all all the same.
    void SetBehind(const KRowBound &row);
    // Loads the row whose column (KSql::name) equals value; extra is appended to the condition. False when there is none: the
    // members are then as constructed.
    bool IsRecordExist(const QString &column, qint32 value, int reserved = 0, const KSql &extra = {});

    // Runs one statement and returns the number of rows it changed or returned. bRaise false: an error that says that the
    // schema is already so (duplicate column, existing table) is logged and passed over with 0; every other error is raised.
    // bLog: a failing statement is written to the log.
    int ExecuteQuery(const char *statement, bool bRaise, bool bLog);
    int ExecuteQuery(const KSql &statement, bool bRaise = true);
    // printf-formatted, whatever the user's language, and checked while it is compiled: %d takes an int, %f a double, %s a part
    // of a statement.
    template <class... Values>
    int FormatAndExecuteQuery(KStatementFormat<std::type_identity_t<Values>...> format, const Values &...values)
    {
        return executeFormatted(format.text, KStatementValue::of(values)...);
    }
    // Value of the last statement's current result row (the first, until MoveNextResult), columns from 0. NULL, a missing
    // column or no row reads as 0, an empty text, an invalid date-time.
    qint32 GetLongFieldValue(int column) const;
    double GetDoubleFieldValue(int column) const;
    QString GetTextFieldValue(int column) const;
    QDateTime GetDateFieldValue(int column) const;
    QByteArray GetBinaryFieldValue(int column) const;
    // For statements of several rows: whether the result stands on a row, and on to the next one.
    bool HasResultRow() const;
    bool MoveNextResult();
    quint64 GetLastInsertedID() const;

    // Loads the row of that key as it is now, whatever this transaction read before, and keeps everybody else from changing it
    // until the transaction ends. False when it is gone: the members are then as constructed. Throws Other outside of a
    // transaction.
    bool lockRecord(qint32 key);
    // That it will be asked (KReadAhead).
    void expectLock(qint32 key);

    // Whether the database can have columns of the order: false when one is not the table's. Not asked of a joined view, which has
    // more columns than are bound.
    bool canSortBy(const KSql &order);
    // Fetch only these columns (iID is always among them); empty: all. To be called before Open.
    void SetColumns(const QStringList &columns);
    const std::vector<Column> &columns();
    const Column *column(QStringView name);
    // Where the names behind a column's keys stand: the lookup of its binding, else what namesFrom says; its parts are empty
    // when neither does.
    KNameSource nameSource(QStringView column);
    // A column's member by name, for forms and tables; an unknown name is an error of the program and asserts.
    QVariant value(QStringView column);
    void setValue(QStringView column, const QVariant &value);
    // The members of the columns that are read, but the key; and back into those that are named.
    KRowValues rowValues();
    void setRowValues(const KRowValues &values);
    // Characters that a text column holds, as the database says; 0 when it is no text.
    int textLength(QStringView column);
    // Whether the text column holds no character above U+FFFF (an emoji, for one), as the database says.
    bool isBasicPlaneOnly(QStringView column);
    // Throws what Update would throw about the text in the column's member (BadCharacter, ValueTooLong); writes nothing.
    void requireFits(QStringView column);

    // What the log of changes makes of the rows that the object writes, where the class is logged.
    enum class Noting {
        AsWritten,
        Nothing, // rows that nobody has saved yet
        AsAdded  // the first save of such a row: with all that it holds, also where this save changes nothing
    };
    void setNoting(Noting noting) { m_noting = noting; }
    // A value that belongs to the row and stands elsewhere: noted with the next write of the row, which is then noted also where no column
    // changes.
    void noteFurther(const KChangedValue &value) { m_further.append(value); }
    // Notes that the current row is deleted, for a row that goes by the statement of another record.
    void noteDeleted();

    int database() const { return m_database; }
    bool isEditing() const { return m_mode != Mode::Browse; }

private:
    enum class Mode {
        Browse,
        Add,
        Edit
    };
    void bind(QStringView column, ColumnKind kind, Column::Member member, QStringView caption, QStringView lookupTable,
              QStringView lookupKey, QStringView lookupDisplay);
    void ensureBound();
    KConnection &connection() const;
    QByteArray selectColumns();
    bool isSpared() const;
    // FROM and WHERE of what the filter matches, without those words.
    QByteArray source() const;
    KSql matched() const;
    QList<KRowBound::Term> orderTerms() const;
    void noteLastRow(const QList<KRowBound::Term> &order);
    void select(const QByteArray &statement);
    bool fetchRow();
    void notePlaces();
    void resetMembers();
    QByteArray lockStatement(qint32 key);
    QByteArray rowsStatement(const QList<KRowBound::Term> &order);
    qsizetype notedTerms(const QList<KRowBound::Term> &order) const;
    QByteArray literal(const Column &column) const;
    void insertRow();
    void updateRow();
    // The columns that hold something, as the log notes a row that is added or deleted.
    QList<KChangedValue> heldValues(KChange::Kind kind) const;
    bool isNoted() const { return isLogged() && m_noting != Noting::Nothing; }
    // Runs the statement, which adds or changes the row of that key, with its note and the further values, which are then forgotten.
    void runNoted(const QByteArray &statement, KChange::Kind kind, std::optional<qint32> key, const QList<KChangedValue> &values);
    void noteRow(KChange::Kind kind, qint32 key, const QList<KChangedValue> &values);
    void noted();
    void inTransaction(const std::function<void()> &work);
    int keepResult(KConnection::Result result);
    [[noreturn]] void raiseNoRow(const char *operation) const;
    int executeFormatted(const char *format, ...);

    int m_database;
    KColumns m_columns;
    KConnection::Result m_rows; // rows of Open and Requery
    std::vector<st_mysql_rows *> m_places; // where each of them stands, once one of them was asked for by its number
    qint64 m_count = 0;
    bool m_atEnd = true;
    bool m_hasValues = false; // the members hold a row of the table
    Mode m_mode = Mode::Browse;
    std::vector<QVariant> m_before; // member values when AddNew or Edit began
    bool m_hadValues = false;       // m_hasValues at that time
    qint64 m_limit = 0;
    bool m_isListing = false;
    KRowBound m_behind;
    KRowBound m_lastRow;
    quint64 m_lastInsertedId = 0;
    Noting m_noting = Noting::AsWritten;
    QList<KChangedValue> m_further;
    KStatementResult m_result; // of the last free statement
};

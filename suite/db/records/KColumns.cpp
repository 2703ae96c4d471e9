// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KColumns.h"

#include "suite/db/connection/KColumnValue.h"
#include "suite/db/connection/KTableSchema.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString keyColumn = u"iID"_s;

template <class Value>
void loadMember(Value *member, const char *cell, unsigned long length)
{
    if (cell)
        KColumnValue<Value>::read(*member, cell, length);
    else if (!KColumnValue<Value>::isEmpty(*member))
        *member = Value();
}

}

QString KColumns::qualified(QStringView name) const
{
    return m_alias.isEmpty() ? name.toString() : m_alias + u'.' + name.toString();
}

void KColumns::add(KColumn column)
{
    column.name = qualified(column.name);
    m_columns.push_back(std::move(column));
}

void KColumns::addNameSource(QStringView column, KNameSource source)
{
    m_nameSources.emplace_back(qualified(column), std::move(source));
}

const KColumn *KColumns::find(QStringView name) const
{
    for (const KColumn &column : m_columns) {
        if (column.name == name)
            return &column;
    }
    return nullptr;
}

KNameSource KColumns::nameSource(QStringView name) const
{
    const KColumn *column = find(name);
    if (column && !column->lookupTable.isEmpty())
        return {column->lookupTable, column->lookupKey, column->lookupDisplay};
    for (const auto &[of, source] : m_nameSources) {
        if (of == name)
            return source;
    }
    return {};
}

QByteArray KColumns::selectList()
{
    m_read.clear();
    QByteArray list;
    for (const KColumn &column : m_columns) {
        // A joined view names the key with its table's alias.
        const bool read = m_subset.isEmpty() || isKey(column) || column.name.endsWith(QLatin1String(".iID"))
            || m_subset.contains(column.name);
        if (!read)
            continue;
        m_read.push_back(column.member);
        list += column.name.toUtf8() + ',';
    }
    list.chop(1);
    return list;
}

// The columns of a joined view may be named without their table, as in a statement.
bool KColumns::isText(QStringView name) const
{
    return std::any_of(m_columns.cbegin(), m_columns.cend(), [name](const KColumn &column) {
        return column.kind == KColumn::Kind::Text && (column.name == name || QStringView(column.name).endsWith(u'.' + name.toString()));
    });
}

bool KColumns::hold(const KSql &order) const
{
    static const QRegularExpression between(u"[-+,]| ASC| DESC"_s);
    const QStringList names = order.text().split(between, Qt::SkipEmptyParts);
    return std::all_of(names.cbegin(), names.cend(), [this](const QString &name) { return find(name) != nullptr; });
}

bool KColumns::holdText(const KSql &order) const
{
    static const QRegularExpression between(u",| ASC| DESC"_s);
    const QStringList names = order.text().split(between, Qt::SkipEmptyParts);
    return std::ranges::any_of(names, [this](const QString &name) { return isText(name); });
}

QList<KRowBound::Term> KColumns::terms(const KSql &columns, const KTableSchema &table) const
{
    static const QString descending = u" DESC"_s;
    static const QString ascending = u" ASC"_s;
    QList<KRowBound::Term> terms;
    for (const QString &column : columns.text().split(u',', Qt::SkipEmptyParts)) {
        const bool isDescending = column.endsWith(descending);
        const QStringView name = QStringView(column).chopped(isDescending ? descending.size() : column.endsWith(ascending) ? ascending.size()
                                                                                                                          : 0);
        terms.append({isText(name) ? textTerm(name, table) : KSql::order(name), isDescending});
    }
    return terms;
}

// The order column has the alias of its text, which is that of the key; those of other tables stay as they are.
KSql KColumns::textTerm(QStringView name, const KTableSchema &table) const
{
    const QString key = keyName();
    const QString alias = key.chopped(keyColumn.size());
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString bare = name.mid(dot + 1).toString();
    const bool isOfTable = dot < 0 ? find(alias + bare) != nullptr : name.left(dot + 1) == alias;
    const QString ordered = isOfTable ? table.orderColumn(bare) : QString();
    return ordered.isEmpty() ? KSql::alphabetical(KSql::name(name)) : KSql::name(alias + ordered);
}

QList<KRowBound::Term> KColumns::totalTerms(const KSql &columns, const KTableSchema &table) const
{
    QList<KRowBound::Term> terms = this->terms(columns, table);
    const KSql key = KSql::name(keyName());
    const bool hasKey = !terms.isEmpty() && (terms.constLast().expression == key || terms.constLast().expression == KSql::name(keyColumn));
    if (!hasKey)
        terms.append({key, !terms.isEmpty() && terms.constLast().isDescending});
    return terms;
}

KSql KColumns::ordered(const QList<KRowBound::Term> &terms)
{
    QList<KSql> columns;
    for (const KRowBound::Term &term : terms)
        columns.append(term.isDescending ? term.expression + " DESC" : term.expression);
    return KSql::joined(columns, ",");
}

void KColumns::load(char *const *cells, const unsigned long *lengths) const
{
    for (size_t i = 0; i < m_read.size(); ++i)
        std::visit([cell = cells[i], length = lengths[i]](auto *member) { loadMember(member, cell, length); }, m_read[i]);
}

void KColumns::clear() const
{
    for (const KColumn &column : m_columns)
        column.clear();
}

std::vector<QVariant> KColumns::values() const
{
    std::vector<QVariant> values;
    values.reserve(m_columns.size());
    for (const KColumn &column : m_columns)
        values.push_back(column.value());
    return values;
}

KRowValues KColumns::rowValues() const
{
    KRowValues values;
    for (const KColumn &column : m_columns) {
        if (!isKey(column) && (m_subset.isEmpty() || m_subset.contains(column.name)))
            values.insert(column.name, column.value());
    }
    return values;
}

void KColumns::setValues(const std::vector<QVariant> &values) const
{
    for (size_t i = 0; i < values.size(); ++i)
        m_columns[i].setValue(values[i]);
}

// A joined view names the key with its table's alias.
QString KColumns::keyName() const
{
    const auto key = std::ranges::find_if(m_columns, [](const KColumn &column) { return isKey(column) || column.name.endsWith(QLatin1String(".iID")); });
    return key == m_columns.cend() ? keyColumn : key->name;
}

bool KColumns::isKey(const KColumn &column)
{
    return column.name == keyColumn;
}

qint32 KColumns::key() const
{
    const KColumn *column = find(keyColumn);
    return column ? *std::get<qint32 *>(column->member) : 0;
}

void KColumns::setKey(qint32 key) const
{
    if (const KColumn *column = find(keyColumn))
        *std::get<qint32 *>(column->member) = key;
}

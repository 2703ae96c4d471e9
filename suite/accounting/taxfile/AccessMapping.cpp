// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/AccessMapping.h"

#include "suite/accounting/frame/KAccountingError.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 1 << 20;

[[noreturn]] void refuse(const QString &path, const QString &what)
{
    throw KAccountingError(
        u"فایل «%1» قابل استفاده نیست: %2"_s.arg(QFileInfo(path).fileName(), what));
}

QString text(const QString &path, const QJsonObject &object, const QString &key)
{
    const QString text = object.value(key).toString();
    if (text.isEmpty())
        refuse(path, u"«%1» خالی است."_s.arg(key));
    return text;
}

// Access compares names without regard to case.
void takeOnce(const QString &path, QSet<QString> &taken, const QString &name)
{
    if (taken.contains(name.toCaseFolded()))
        refuse(path, u"«%1» دو بار آمده است."_s.arg(name));
    taken.insert(name.toCaseFolded());
}

AccessMapping::Table readTable(const QString &path, const QJsonObject &object)
{
    AccessMapping::Table table{text(path, object, u"role"_s), text(path, object, u"name"_s), {}};
    QSet<QString> values;
    QSet<QString> names;
    const QJsonArray fields = object.value(u"fields"_s).toArray();
    for (const QJsonValue &entry : fields) {
        const QJsonObject field = entry.toObject();
        table.fields.append({text(path, field, u"value"_s), text(path, field, u"name"_s)});
        takeOnce(path, values, table.fields.last().value);
        takeOnce(path, names, table.fields.last().name);
    }
    return table;
}

}

AccessMapping AccessMapping::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(path, u"پیدا نشد یا خوانا نیست."_s);
    const QByteArray content = file.read(largestFile + 1);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (content.size() > largestFile || error.error != QJsonParseError::NoError)
        refuse(path, u"ساختار آن درست نیست (نویسه %1)."_s.arg(error.offset));
    AccessMapping mapping;
    mapping.m_path = path;
    QSet<QString> roles;
    QSet<QString> names;
    const QJsonArray tables = document.object().value(u"tables"_s).toArray();
    for (const QJsonValue &entry : tables) {
        mapping.m_tables.append(readTable(path, entry.toObject()));
        takeOnce(path, roles, mapping.m_tables.last().role);
        takeOnce(path, names, mapping.m_tables.last().name);
    }
    return mapping;
}

const AccessMapping::Table &AccessMapping::table(const QString &role) const
{
    for (const Table &table : m_tables) {
        if (table.role == role)
            return table;
    }
    refuse(m_path, u"جدول «%1» در آن نیست."_s.arg(role));
}

QString AccessMapping::valueIn(const QString &role, const QString &table, const QString &column) const
{
    for (const Table &known : m_tables) {
        if (known.role != role || known.name.compare(table, Qt::CaseInsensitive) != 0)
            continue;
        for (const Field &field : known.fields) {
            if (field.name.compare(column, Qt::CaseInsensitive) == 0)
                return field.value;
        }
    }
    return {};
}

void AccessMapping::refuseValue(const QString &role, const QString &value) const
{
    refuse(m_path, u"مقدار «%1» در جدول «%2» شناخته شده نیست."_s.arg(value, role));
}

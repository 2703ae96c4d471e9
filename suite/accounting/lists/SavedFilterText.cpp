// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/SavedFilterText.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Kind = KListFilter::Kind;

bool isDate(const KListFilter &filter)
{
    return filter.kind == Kind::Date || filter.kind == Kind::PlainDate;
}

QJsonValue keptValue(const KListFilter &filter, const QVariant &value)
{
    if (!isDate(filter))
        return QJsonValue::fromVariant(value);
    const QDate day = value.toDate();
    return day.isValid() ? QJsonValue(day.toString(Qt::ISODate)) : QJsonValue();
}

// Of the type that the filter's kind has.
QVariant readValue(const KListFilter &filter, const QJsonValue &kept)
{
    switch (filter.kind) {
    case Kind::Person:
    case Kind::Choice:
    case Kind::Number:
        return kept.toInt();
    case Kind::Amount:
        return kept.toDouble();
    case Kind::Date:
    case Kind::PlainDate:
        return QDate::fromString(kept.toString(), Qt::ISODate).startOfDay(Qt::UTC);
    case Kind::Flag:
        return kept.toBool();
    case Kind::Text:
    case Kind::Always:
        break;
    }
    return kept.toString();
}

}

QString SavedFilterText::of(const QList<KListFilter> &filters, const KFilterValues &values)
{
    QJsonObject kept;
    for (const KListFilter &filter : filters) {
        if (filter.kind != Kind::Always && values.contains(filter.key))
            kept.insert(filter.key, keptValue(filter, values.value(filter.key)));
    }
    return QString::fromUtf8(QJsonDocument(kept).toJson(QJsonDocument::Compact));
}

SavedFilterText::Read SavedFilterText::read(const QList<KListFilter> &filters, const QString &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isObject())
        return {.values = {}, .isPartly = true};
    const QJsonObject kept = document.object();
    Read read;
    for (auto entry = kept.constBegin(); entry != kept.constEnd(); ++entry) {
        const auto filter = std::ranges::find(filters, entry.key(), &KListFilter::key);
        if (filter == filters.cend() || filter->kind == Kind::Always)
            read.isPartly = true;
        else
            read.values.insert(filter->key, readValue(*filter, entry.value()));
    }
    return read;
}

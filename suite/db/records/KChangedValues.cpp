// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KChangedValues.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QJsonValue noted(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::UnknownType:
        return QJsonValue::Null;
    case QMetaType::QDateTime: {
        const QDateTime when = value.toDateTime();
        return when.isValid() ? QJsonValue(when.toString(u"yyyy-MM-ddTHH:mm:ss"_s)) : QJsonValue(QJsonValue::Null);
    }
    case QMetaType::QByteArray:
        return u"%1 B"_s.arg(value.toByteArray().size());
    case QMetaType::Double:
        return std::isfinite(value.toDouble()) ? QJsonValue(value.toDouble()) : QJsonValue(QJsonValue::Null);
    default:
        return QJsonValue::fromVariant(value);
    }
}

QVariant read(const QJsonValue &value)
{
    return value.isNull() || value.isUndefined() ? QVariant() : value.toVariant();
}

}

QByteArray KChangedValues::toJson(const QList<KChangedValue> &values)
{
    QJsonArray all;
    for (const KChangedValue &value : values) {
        QJsonArray one{value.column};
        if (!value.isSecret) {
            one.append(noted(value.before));
            one.append(noted(value.after));
        }
        all.append(one);
    }
    return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

QList<KChangedValue> KChangedValues::fromJson(const QByteArray &json)
{
    QList<KChangedValue> values;
    const QJsonArray all = QJsonDocument::fromJson(json).array();
    for (const QJsonValue &item : all) {
        const QJsonArray one = item.toArray();
        const QString column = one.at(0).toString();
        if (!column.isEmpty())
            values.append({column, read(one.at(1)), read(one.at(2)), one.size() == 1});
    }
    return values;
}

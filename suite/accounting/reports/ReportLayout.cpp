// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportLayout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString titleKey = u"title"_s;
const QString columnsKey = u"columns"_s;
const QString shareKey = u"share"_s;
const QString textsKey = u"texts"_s;
const QString landscapeKey = u"landscape"_s;
const QString fontSizeKey = u"fontSize"_s;

}

const QStringList &ReportLayout::corners()
{
    static const QStringList names{u"RightTop"_s, u"RightCenter"_s, u"RightBottom"_s,
                                   u"LeftTop"_s, u"LeftCenter"_s, u"LeftBottom"_s};
    return names;
}

QString ReportLayout::ownTextMark()
{
    return u"[متن گزارش]"_s;
}

QString ReportLayout::dateMark()
{
    return u"[تاریخ]"_s;
}

QString ReportLayout::countMark()
{
    return u"[تعداد]"_s;
}

QString ReportLayout::filled(const QString &text, const QString &own, const QString &date, const QString &count)
{
    const std::pair<QString, QString> marks[] = {{ownTextMark(), own}, {dateMark(), date}, {countMark(), count}};
    QString result;
    // Read once from its start: a mark that stands in a filled-in value is a text like any other.
    for (qsizetype at = 0; at < text.size();) {
        const std::pair<QString, QString> *found = nullptr;
        for (const auto &mark : marks) {
            if (QStringView(text).mid(at).startsWith(mark.first))
                found = &mark;
        }
        result += found ? found->second : QString(text.at(at));
        at += found ? found->first.size() : 1;
    }
    return result;
}

QByteArray ReportLayout::toJson() const
{
    QJsonArray columnList;
    for (const Column &column : columns)
        columnList.append(QJsonObject{{titleKey, column.title}, {shareKey, column.share}});
    QJsonObject textObject;
    for (auto text = texts.cbegin(); text != texts.cend(); ++text)
        textObject.insert(text.key(), text.value());
    return QJsonDocument(QJsonObject{{titleKey, title},
                                     {columnsKey, columnList},
                                     {textsKey, textObject},
                                     {landscapeKey, landscape},
                                     {fontSizeKey, fontSize}})
        .toJson(QJsonDocument::Compact);
}

std::optional<ReportLayout> ReportLayout::fromJson(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject() || !document.object().value(columnsKey).isArray())
        return std::nullopt;
    const QJsonObject object = document.object();
    ReportLayout layout;
    layout.title = object.value(titleKey).toString();
    for (const QJsonValue &value : object.value(columnsKey).toArray()) {
        const QJsonObject column = value.toObject();
        layout.columns.append({column.value(titleKey).toString(), qBound(0.0, column.value(shareKey).toDouble(), 100.0)});
    }
    const QJsonObject textObject = object.value(textsKey).toObject();
    for (auto text = textObject.begin(); text != textObject.end(); ++text) {
        if (corners().contains(text.key()))
            layout.texts.insert(text.key(), text.value().toString());
    }
    layout.landscape = object.value(landscapeKey).toBool();
    layout.fontSize = qBound(lowestFontSize, object.value(fontSizeKey).toDouble(layout.fontSize), highestFontSize);
    return layout;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportMapping.h"

#include "suite/accounting/importing/ImportParsers.h"
#include "suite/utility/values/TextStandard.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowsLookedAt = 20;

}

QString ImportMapping::titleKey(const QString &title)
{
    QString key = searchKey(title);
    key.removeIf([](QChar c) { return c == u':' || c == u'*' || c == u'_' || c.isSpace(); });
    return key;
}

QStringList ImportMapping::titlesIn(const Sheet &sheet, int titleRow)
{
    QStringList titles;
    for (qsizetype column = 0; column < sheet.columns(); ++column)
        titles.append(ConvertToStandard(sheet.cell(titleRow, column).text));
    return titles;
}

int ImportMapping::titleRow(const Sheet &sheet, const QList<ImportField> &fields)
{
    int best = -1;
    qsizetype most = -1;
    int looked = 0;
    for (int row = 0; row < sheet.rows.size() && looked < rowsLookedAt; ++row) {
        if (sheet.rows.at(row).isEmpty())
            continue;
        ++looked;
        const qsizetype known = matched(fields, titlesIn(sheet, row)).size();
        if (known > most) {
            most = known;
            best = row;
        }
    }
    return qMax(best, 0);
}

ImportMapping::Columns ImportMapping::matched(const QList<ImportField> &fields, const QStringList &titles)
{
    QHash<QString, int> places;
    for (int column = 0; column < titles.size(); ++column) {
        const QString key = titleKey(titles.at(column));
        if (!key.isEmpty() && !places.contains(key))
            places.insert(key, column);
    }
    Columns columns;
    QSet<int> taken;
    const auto take = [&](const ImportField &field, const QString &title) {
        const int column = places.value(titleKey(title), -1);
        if (column < 0 || taken.contains(column) || columns.contains(field.key))
            return;
        columns.insert(field.key, column);
        taken.insert(column);
    };
    for (const ImportField &field : fields)
        take(field, field.title);
    for (const ImportField &field : fields) {
        for (const QString &word : field.words)
            take(field, word);
        take(field, field.key);
    }
    return columns;
}

QString ImportMapping::toText(const Columns &columns, const QStringList &titles)
{
    QJsonObject kept;
    for (auto column = columns.cbegin(); column != columns.cend(); ++column)
        kept.insert(column.key(), titles.value(column.value()));
    return QString::fromUtf8(QJsonDocument(kept).toJson(QJsonDocument::Compact));
}

ImportMapping::Columns ImportMapping::fromText(const QString &text, const QStringList &titles)
{
    QStringList keys;
    for (const QString &title : titles)
        keys.append(titleKey(title));
    const QJsonObject kept = QJsonDocument::fromJson(text.toUtf8()).object();
    Columns columns;
    for (auto field = kept.constBegin(); field != kept.constEnd(); ++field) {
        const QString key = titleKey(field.value().toString());
        if (const qsizetype column = keys.indexOf(key); !key.isEmpty() && column >= 0)
            columns.insert(field.key(), static_cast<int>(column));
    }
    return columns;
}

QList<ImportRow> ImportMapping::rows(const Sheet &sheet, int titleRow, const QList<ImportField> &fields, const Columns &columns)
{
    QList<ImportRow> rows;
    for (qsizetype at = titleRow + 1; at < sheet.rows.size(); ++at) {
        ImportRow row{static_cast<int>(at) + 1, {}, {}, {}, false};
        for (const ImportField &field : fields) {
            const auto column = columns.constFind(field.key);
            if (column == columns.cend())
                continue;
            const ImportParsed parsed = field.parse(sheet.cell(at, *column));
            if (!parsed.problem.isEmpty())
                row.refuse(field.title, parsed.problem);
            else if (parsed.value.isValid())
                row.values.insert(field.key, parsed.value);
        }
        if (!row.values.isEmpty() || !row.problems.isEmpty())
            rows.append(row);
    }
    return rows;
}

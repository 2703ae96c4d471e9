// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/HistoryWords.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/db/records/KLookup.h"
#include "suite/db/records/KMySQL.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using ChangeKind = KChange::Kind;

constexpr int longestWord = 60;
constexpr int longestSentence = 400;

QString yesOrNo(bool yes)
{
    return yes ? u"بلی"_s : u"خیر"_s;
}

// A day, with the time where it says one.
QString shownDate(const QString &text)
{
    const QDateTime when = QDateTime::fromString(text, Qt::ISODate);
    if (!when.isValid())
        return text;
    const QString day = shamsiText(when.date());
    return when.time() == QTime(0, 0) ? day : day + when.time().toString(u" HH:mm"_s);
}

bool isDate(const QString &text)
{
    static const QRegularExpression iso(u"^\\d{4}-\\d\\d-\\d\\d(T\\d\\d:\\d\\d:\\d\\d)?$"_s);
    return iso.match(text).hasMatch();
}

// Percentages and rates keep the digits that an amount would lose.
QString shownNumber(const QString &column, double number)
{
    if (!column.contains("Percent"_L1))
        return DToMoney(number);
    return QString::number(number, 'g', 8);
}

QString shownSize(const QString &size)
{
    bool isSize = false;
    const double bytes = size.chopped(2).toDouble(&isSize);
    return isSize ? u"%1 کیلوبایت"_s.arg(DToMoney(std::max(bytes / 1024, 1.0), 0)) : size;
}

// With the digits that it has, and none of those that a binary number brings along.
QString shownExactly(double number)
{
    const double whole = std::trunc(number);
    return whole == number ? DToMoney(number, 0) : QString::number(number, 'g', 12);
}

// A value of a kind that no record class declares.
QString shownPlain(const QVariant &value)
{
    if (value.metaType().id() == QMetaType::Bool)
        return yesOrNo(value.toBool());
    if (const int type = value.metaType().id(); type == QMetaType::Double || type == QMetaType::LongLong || type == QMetaType::Int)
        return shownExactly(value.toDouble());
    const QString text = value.toString();
    return isDate(text) ? shownDate(text) : text;
}

QString sourceName(const KNameSource &source)
{
    return source.table + u'/' + source.key + u'/' + source.display;
}

// Latin letters would turn the arrow beside them around.
QString isolated(const QString &text)
{
    const bool isLatin = std::ranges::any_of(text, [](QChar letter) { return letter.direction() == QChar::DirL; });
    return isLatin ? u'\u2068' + text + u'\u2069' : text;
}

QString shortened(const QString &text, int length)
{
    const QString line = text.simplified();
    return line.size() > length ? line.left(length - 1) + u'…' : line;
}

}

HistoryWords::HistoryWords(int database)
    : m_database(database)
{
}

HistoryWords::~HistoryWords() = default;

const HistoryWords::Table &HistoryWords::tableOf(const QString &table)
{
    std::shared_ptr<Table> &known = m_tables[table];
    if (!known) {
        known = std::make_shared<Table>();
        known->subject = RecordSubjects::of(table);
        // What is noted of a setting or a right is known by its caption.
        if (known->subject && known->subject->make) {
            known->record = known->subject->make(m_database);
            if (known->record->GetTableName() != table)
                known->record.reset();
        }
    }
    return *known;
}

void HistoryWords::lookUp(const QList<HistoryEntry> &entries)
{
    struct Wanted
    {
        KNameSource source;
        QList<int> keys;
    };
    QMap<QString, Wanted> wanted;
    for (const HistoryEntry &entry : entries) {
        const Table &table = tableOf(entry.table);
        for (const KChangedValue &value : table.record ? entry.values : QList<KChangedValue>()) {
            const KNameSource source = table.record->column(value.column) ? table.record->nameSource(value.column) : KNameSource();
            if (source.table.isEmpty())
                continue;
            Wanted &names = wanted[sourceName(source)];
            names.source = source;
            for (const int key : {value.before.toInt(), value.after.toInt()}) {
                if (key > 0 && !m_names.value(sourceName(source)).contains(key))
                    names.keys.append(key);
            }
        }
    }
    for (auto names = wanted.cbegin(); names != wanted.cend(); ++names) {
        if (!names->keys.isEmpty())
            m_names[names.key()].insert(KLookup::names(names->source, names->keys, m_database));
    }
}

QString HistoryWords::captionOf(const Table &table, const QString &column) const
{
    if (table.subject && table.subject->derived.contains(column))
        return {};
    if (const QString caption = table.subject && table.subject->caption ? table.subject->caption(column) : QString(); !caption.isEmpty())
        return caption;
    const KMySQL::Column *declared = table.record ? table.record->column(column) : nullptr;
    return declared ? declared->caption.trimmed() : column;
}

QString HistoryWords::wordOf(const Table &table, const QString &column, const QVariant &value)
{
    if (!value.isValid() || value.toString().isEmpty())
        return {};
    if (const QString word = table.subject && table.subject->word ? table.subject->word(column, value) : QString(); !word.isEmpty())
        return word;
    const KMySQL::Column *declared = table.record ? table.record->column(column) : nullptr;
    if (!declared)
        return shownPlain(value);
    switch (declared->kind) {
    case KColumn::Kind::Bool:
        return yesOrNo(value.toInt() != 0);
    case KColumn::Kind::Date:
        return shownDate(value.toString());
    case KColumn::Kind::Double:
        return shownNumber(column, value.toDouble());
    case KColumn::Kind::LongBlob:
        return shownSize(value.toString());
    case KColumn::Kind::Long: {
        const KNameSource source = table.record->nameSource(column);
        const QString number = QString::number(value.toInt());
        return source.table.isEmpty() ? number : value.toInt() == 0 ? QString()
                                                                    : m_names.value(sourceName(source)).value(value.toInt(), number);
    }
    case KColumn::Kind::Text:
        break;
    }
    return value.toString();
}

QList<HistoryEntry::Line> HistoryWords::lines(const QString &table, const QList<KChangedValue> &values)
{
    const Table &known = tableOf(table);
    QList<HistoryEntry::Line> lines;
    for (const KChangedValue &value : values) {
        const QString caption = captionOf(known, value.column);
        if (caption.isEmpty())
            continue;
        if (value.isSecret)
            lines.append({caption, {}, u"تغییر کرد"_s});
        else
            lines.append({caption, wordOf(known, value.column, value.before), wordOf(known, value.column, value.after)});
    }
    return lines;
}

QString HistoryWords::action(KChange::Kind kind)
{
    switch (kind) {
    case ChangeKind::Added: return u"ثبت"_s;
    case ChangeKind::Changed: return u"ویرایش"_s;
    case ChangeKind::Deleted: return u"حذف"_s;
    case ChangeKind::Archived: return u"بایگانی"_s;
    case ChangeKind::Unarchived: return u"برگشت از بایگانی"_s;
    case ChangeKind::Restored: return u"بازگردانی"_s;
    case ChangeKind::SignedIn: return u"ورود"_s;
    case ChangeKind::SignInFailed: return u"ورود ناموفق"_s;
    case ChangeKind::Exported: return u"خروجی"_s;
    case ChangeKind::BackedUp: return u"پشتیبان‌گیری"_s;
    }
    return {};
}

QString HistoryWords::kindOf(const QString &table)
{
    const RecordSubject *subject = RecordSubjects::of(table);
    if (subject)
        return subject->kind;
    return table.startsWith("Properties:"_L1) ? u"تنظیمات"_s : table;
}

QString HistoryWords::nothing()
{
    return u"(خالی)"_s;
}

QString HistoryWords::sentence(const HistoryEntry &entry)
{
    const bool isRow = entry.change.kind <= ChangeKind::Unarchived;
    if (!entry.hasValues)
        return entry.change.kind <= ChangeKind::Deleted ? u"جزئیات ثبت نشده است"_s : QString();
    const bool isChange = isRow && entry.change.kind == ChangeKind::Changed;
    QStringList parts;
    for (const HistoryEntry::Line &line : entry.lines) {
        const QString before = isolated(shortened(line.before, longestWord));
        const QString after = isolated(shortened(line.after, longestWord));
        const QString alone = after.isEmpty() ? before : after;
        const bool isSecret = line.before.isEmpty() && line.after == u"تغییر کرد"_s;
        if (!isChange || isSecret) {
            if (!alone.isEmpty())
                parts.append(u"%1 : %2"_s.arg(line.caption, alone));
        } else {
            parts.append(u"%1 : %2 ← %3"_s.arg(line.caption, before.isEmpty() ? nothing() : before, after.isEmpty() ? nothing() : after));
        }
    }
    return shortened(parts.join(u"؛ "_s), longestSentence);
}

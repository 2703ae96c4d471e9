// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchText.h"

#include "suite/utility/values/PlateText.h"
#include "suite/utility/values/TextStandard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestExplained = 3;
constexpr qsizetype mostWordsOfAName = 6;
constexpr qsizetype digitsOfATelephone = 10; // with the code of the town or network, without the zero before it
constexpr QChar joiner(0x200C);

// A table of three-byte characters holds no other.
bool belongs(QChar c)
{
    return (c.isLetterOrNumber() || c.isMark()) && !c.isSurrogate();
}

QString cut(const QString &key)
{
    return key.left(SearchText::longestKey);
}

QString digitsOf(const QString &text)
{
    QString digits;
    for (const QChar c : toAsciiDigits(text)) {
        if (c >= u'0' && c <= u'9')
            digits += c;
    }
    return digits;
}

// Of all that people write before a number: +98, 0098, 98 and the zero.
QString withoutCountry(const QString &number)
{
    QString digits = digitsOf(number);
    const bool isAbroad = number.trimmed().startsWith(u'+') || digits.startsWith("00"_L1);
    if (digits.startsWith("00"_L1))
        digits.remove(0, 2);
    if ((isAbroad || digits.size() > digitsOfATelephone) && digits.startsWith("98"_L1))
        digits.remove(0, 2);
    while (digits.startsWith(u'0'))
        digits.remove(0, 1);
    return digits;
}

QString reversed(const QString &text)
{
    QString result(text);
    std::ranges::reverse(result);
    return result;
}

void appendKey(QStringList &keys, const QString &key)
{
    if (!key.isEmpty() && !keys.contains(key))
        keys.append(key);
}

// The parts that a plate is known by, from each of them on.
QString plateKey(const PlateText &plate)
{
    return searchKey(plate.two + plate.letter + plate.three + plate.region);
}

}

QString SearchText::folded(const QString &text)
{
    QString result;
    for (const QChar c : searchKey(text)) {
        if (belongs(c))
            result += c;
    }
    return cut(result);
}

QStringList SearchText::words(const QString &text)
{
    QStringList words;
    QString word;
    const auto end = [&] {
        if (const QString key = folded(word); !key.isEmpty())
            words.append(key);
        word.clear();
    };
    for (const QChar c : text) {
        // A kashida, a direction mark or a vowel sign parts nothing.
        if (belongs(c) || c == joiner || c.category() == QChar::Other_Format || c == QChar(0x0640))
            word += c;
        else
            end();
    }
    end();
    return words;
}

QStringList SearchText::ofName(const QString &name)
{
    QStringList parts = words(name);
    QStringList keys;
    const qsizetype count = std::min(parts.size(), mostWordsOfAName);
    for (qsizetype first = 0; first < count; ++first) {
        appendKey(keys, cut(parts.join(QString())));
        parts.append(parts.takeFirst());
    }
    return keys;
}

QStringList SearchText::ofNumber(qint64 number)
{
    return number == 0 ? QStringList() : QStringList{QString::number(number)};
}

QStringList SearchText::ofCode(const QString &code)
{
    const QString key = folded(code);
    return key.isEmpty() ? QStringList() : QStringList{key};
}

QStringList SearchText::ofLongNumber(const QString &number)
{
    const QString key = folded(number);
    return key.isEmpty() ? QStringList() : QStringList{key, cut(backwards + reversed(key))};
}

QStringList SearchText::ofTelephone(const QString &number)
{
    const QString key = wholeTelephone(number);
    return key.isEmpty() ? QStringList() : QStringList{key, cut(backwards + reversed(key))};
}

QStringList SearchText::ofPlate(const QString &plate)
{
    QStringList keys;
    const std::optional<PlateText> parts = PlateText::of(plate);
    appendKey(keys, wholePlate(plate));
    if (parts) {
        appendKey(keys, searchKey(parts->letter + parts->three + parts->region));
        appendKey(keys, parts->three + parts->region);
    } else {
        appendKey(keys, cut(digitsOf(plate)));
    }
    return keys;
}

QStringList SearchText::ofExplanation(const QString &text, int atMost)
{
    QStringList keys;
    for (const QString &word : words(text)) {
        if (keys.size() == atMost)
            break;
        if (word.size() >= shortestExplained)
            appendKey(keys, cut(explaining + word));
    }
    return keys;
}

QString SearchText::ofReference(qint32 person)
{
    return referring + QString::number(person);
}

QString SearchText::wholePlate(const QString &plate)
{
    const std::optional<PlateText> parts = PlateText::of(plate);
    return parts ? plateKey(*parts) : folded(plate);
}

QString SearchText::wholeTelephone(const QString &number)
{
    return cut(withoutCountry(number));
}

QList<SearchText::Mark> SearchText::marks(const QString &text, const QString &typed)
{
    // The folded text, and for each of its characters where it stands in the text.
    QString shown;
    QList<qsizetype> places;
    for (qsizetype at = 0; at < text.size(); ++at) {
        for (const QChar c : folded(text.mid(at, 1))) {
            shown += c;
            places.append(at);
        }
    }
    QList<Mark> found;
    QStringList sought = words(typed);
    sought.append(wholePlate(typed));
    sought.append(wholeTelephone(typed));
    const auto isPart = [&](qsizetype place) { return place >= 0 && place < text.size() && belongs(text.at(place)); };
    // As it is found: from the beginning of a word on, or to the end of a number.
    const auto take = [&](qsizetype from, qsizetype to) {
        const bool isTrunkZero = from > 0 && text.at(from - 1) == u'0' && !isPart(from - 2);
        if (!isPart(from - 1) || isTrunkZero || (!isPart(to) && text.at(to - 1).isDigit()))
            found.append({from, to - from});
    };
    for (const QString &word : std::as_const(sought)) {
        for (qsizetype at = word.isEmpty() ? -1 : shown.indexOf(word); at >= 0; at = shown.indexOf(word, at + word.size()))
            take(places.at(at), places.at(at + word.size() - 1) + 1);
    }
    std::ranges::sort(found, {}, &Mark::start);
    QList<Mark> apart;
    for (const Mark &mark : std::as_const(found)) {
        if (!apart.isEmpty() && mark.start <= apart.constLast().start + apart.constLast().length) {
            Mark &last = apart.last();
            last.length = std::max(last.length, mark.start + mark.length - last.start);
        } else {
            apart.append(mark);
        }
    }
    return apart;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/PlateText.h"

#include "suite/utility/values/TextStandard.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int digitsOfAPlate = 7;

const QString country = u"ایران"_s;

// The letters that plates bear, but for alef, which has a name and several forms.
const QString letters = u"بپتثجدزژسشصطعفقکگلمنوهی"_s;
const QString alef = u"الف"_s;
constexpr const char16_t *waysOfAlef[] = {u"الف", u"ا", u"آ", u"أ"};

// Words that stand before a plate and say nothing of it.
constexpr const char16_t *fillers[] = {u"پلاک", u"شماره"};

bool isOneOf(std::span<const char16_t *const> words, const QString &word)
{
    return std::ranges::any_of(words, [&word](const char16_t *known) { return word == QStringView(known); });
}

// Empty for what is no letter of a plate.
QString letterOf(const QString &word)
{
    if (isOneOf(waysOfAlef, word))
        return alef;
    return word.size() == 1 && letters.contains(word) ? word : QString();
}

// In which order the parts stand, told by how many digits come before the letter: where each begins among the seven digits.
struct Order
{
    int before;
    int two;
    int three;
    int region;
};
constexpr Order orders[] = {
    {2, 0, 2, 5}, // 12 ب 345 67
    {3, 3, 0, 5}, // 345 ب 12 67, as typed from the right
    {4, 2, 4, 0}, // 67 12 ب 345
    {5, 5, 2, 0}, // 67 345 ب 12
};

// The text in its pieces. Where a run of digits begins, and where "ایران" stands, is counted in the digits before it.
struct Pieces
{
    QString digits;
    std::vector<qsizetype> starts;
    std::vector<qsizetype> countries;
    QString letter;
    qsizetype beforeLetter = 0;
    bool isPlain = true; // nothing else is in it
};

void takeWord(const QString &word, Pieces &pieces)
{
    if (word == country) {
        pieces.countries.push_back(pieces.digits.size());
        return;
    }
    if (isOneOf(fillers, word))
        return;
    const QString letter = letterOf(word);
    if (letter.isEmpty() || !pieces.letter.isEmpty()) {
        pieces.isPlain = false;
        return;
    }
    pieces.letter = letter;
    pieces.beforeLetter = pieces.digits.size();
}

bool mayStandBetween(QChar c)
{
    return c.isSpace() || c.isPunct() || c.isSymbol();
}

Pieces piecesOf(const QString &text)
{
    const QString standard = ConvertToStandard(text);
    Pieces pieces;
    for (qsizetype i = 0; i < standard.size();) {
        const auto runWhile = [&](auto belongs) {
            const qsizetype from = i;
            while (i < standard.size() && belongs(standard.at(i)))
                ++i;
            return standard.sliced(from, i - from);
        };
        const QChar c = standard.at(i);
        if (c >= u'0' && c <= u'9') {
            pieces.starts.push_back(pieces.digits.size());
            pieces.digits += runWhile([](QChar d) { return d >= u'0' && d <= u'9'; });
        } else if (c.isLetter()) {
            takeWord(runWhile([](QChar l) { return l.isLetter() || l.isMark(); }), pieces);
        } else if (mayStandBetween(c) || c == QChar(0x200C)) {
            ++i;
        } else {
            pieces.isPlain = false;
            ++i;
        }
    }
    return pieces;
}

}

std::optional<PlateText> PlateText::of(const QString &text)
{
    const Pieces pieces = piecesOf(text);
    const auto *order = std::ranges::find(orders, pieces.beforeLetter, &Order::before);
    if (!pieces.isPlain || pieces.letter.isEmpty() || pieces.digits.size() != digitsOfAPlate || order == std::end(orders))
        return std::nullopt;
    // A run of digits begins where a part does, and "ایران" stands beside the region: anything else is no plate.
    const std::array<int, 3> begins{order->two, order->three, order->region};
    const bool isWhole = std::ranges::all_of(pieces.starts, [&begins](qsizetype start) { return std::ranges::count(begins, start) > 0; });
    const bool isBesideRegion = std::ranges::all_of(pieces.countries, [order](qsizetype at) { return at == order->region || at == order->region + 2; });
    if (!isWhole || !isBesideRegion || pieces.countries.size() > 1)
        return std::nullopt;
    return PlateText{pieces.digits.sliced(order->two, 2), pieces.letter, pieces.digits.sliced(order->three, 3), pieces.digits.sliced(order->region, 2)};
}

QString PlateText::text() const
{
    return u"%1 %2 %3 ایران %4"_s.arg(two, letter, three, region);
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/PlateText.h"

#include "suite/utility/values/TextStandard.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int digitsOfAPlate = 7;

const QString country = u"ایران"_s;

// The letters that plates bear, but for alef, which has a name and several forms.
const QString letters = u"بپتثجدزژسشصطعفقکگلمنوهی"_s;
const QString alef = u"الف"_s;
constexpr const char16_t *waysOfAlef[] = {u"الف", u"ا", u"آ", u"أ"};

// Letters that are spelled as they are read out on the telephone.
constexpr std::pair<const char16_t *, const char16_t *> readOut[] = {
    {u"به", u"ب"},
    {u"په", u"پ"},
    {u"ته", u"ت"},
    {u"ثه", u"ث"},
    {u"جیم", u"ج"},
    {u"دال", u"د"},
    {u"زه", u"ز"},
    {u"ژه", u"ژ"},
    {u"سین", u"س"},
    {u"شین", u"ش"},
    {u"صاد", u"ص"},
    {u"طا", u"ط"},
    {u"عین", u"ع"},
    {u"فه", u"ف"},
    {u"قاف", u"ق"},
    {u"کاف", u"ک"},
    {u"گاف", u"گ"},
    {u"لام", u"ل"},
    {u"میم", u"م"},
    {u"نون", u"ن"},
    {u"واو", u"و"},
    {u"یه", u"ی"},
};

// Words that stand before a plate and say nothing of it.
constexpr const char16_t *fillers[] = {u"پلاک", u"شماره", u"انتظامی", u"خودرو"};
// As the blue band of a plate has them.
constexpr const char16_t *latinFillers[] = {u"ir", u"iran"};

bool isOneOf(std::span<const char16_t *const> words, const QString &word)
{
    return std::ranges::any_of(words, [&word](const char16_t *known) { return word == QStringView(known); });
}

// Empty for what is no letter of a plate.
QString letterOf(const QString &word, bool mayBeReadOut)
{
    if (isOneOf(waysOfAlef, word))
        return alef;
    const auto *spelled = std::ranges::find_if(readOut, [&word](const auto &letter) { return word == QStringView(letter.first); });
    if (mayBeReadOut && spelled != std::end(readOut))
        return QStringView(spelled->second).toString();
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

void takeWord(const QString &word, bool mayBeReadOut, Pieces &pieces)
{
    if (word == country) {
        pieces.countries.push_back(pieces.digits.size());
        return;
    }
    if (isOneOf(fillers, word) || isOneOf(latinFillers, word.toLower()))
        return;
    const QString letter = letterOf(word, mayBeReadOut);
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

Pieces piecesOf(const QString &text, bool mayBeReadOut = true)
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
            takeWord(runWhile([](QChar l) { return l.isLetter() || l.isMark(); }), mayBeReadOut, pieces);
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

std::optional<PlateText> PlateText::begun(const QString &text)
{
    // While a word is typed its beginning may be the name of a letter.
    const Pieces pieces = piecesOf(text, false);
    constexpr qsizetype before = 2;
    const bool hasLetter = !pieces.letter.isEmpty();
    const qsizetype digits = pieces.digits.size();
    const bool inOrder = hasLetter ? pieces.beforeLetter == before : digits <= before;
    // A run of digits that begins inside a part is a part that was cut short.
    const auto beginsPart = [](qsizetype start) { return start == 0 || start == 2 || start == 5; };
    const auto behindThree = [](qsizetype at) { return at == 5; };
    if (!pieces.isPlain || digits == 0 || digits > digitsOfAPlate || !inOrder || !std::ranges::all_of(pieces.starts, beginsPart)
        || pieces.countries.size() > 1 || !std::ranges::all_of(pieces.countries, behindThree))
        return std::nullopt;
    return PlateText{pieces.digits.first(std::min(before, digits)), pieces.letter, pieces.digits.mid(2, 3), pieces.digits.mid(5)};
}

bool PlateText::isWhole() const
{
    return two.size() == 2 && !letter.isEmpty() && three.size() == 3 && region.size() == 2;
}

QString PlateText::typedText() const
{
    QString typed = two;
    if (!letter.isEmpty())
        typed += u' ' + letter;
    if (!three.isEmpty())
        typed += u' ' + three;
    if (!region.isEmpty())
        typed += u' ' + country + u' ' + region;
    return typed;
}

QString PlateText::oneSpelling(const QString &text)
{
    const std::optional<PlateText> plate = of(text);
    return plate ? plate->text() : text;
}

QString PlateText::text() const
{
    return u"%1 %2 %3 ایران %4"_s.arg(two, letter, three, region);
}

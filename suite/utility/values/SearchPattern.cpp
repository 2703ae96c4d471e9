// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/SearchPattern.h"

#include "suite/utility/values/TextStandard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// What may stand inside a text without being typed, as the inside of a bracket: blanks, joiners, direction marks, kashida,
// vowel signs, a lone hamza.
const QString unseen = u" \u00A0\u200B-\u200F\u0640\u064B-\u0655\u0670\u0621"_s;
const QString filler = u'[' + unseen + u"\t\r\n]*"_s;
const QString fillerOrMark = u'[' + unseen + u"[:punct:]]*"_s;

bool isUnseen(QChar c)
{
    const char16_t code = c.unicode();
    return c.isSpace() || (code >= 0x200B && code <= 0x200F) || code == 0x0640 || (code >= 0x064B && code <= 0x0655) || code == 0x0670
        || code == 0x0621;
}

// Every character that a folded character stands for, as the inside of a bracket.
QString waysOfWriting(QChar folded)
{
    const char16_t code = folded.unicode();
    if (code >= u'0' && code <= u'9')
        return QString(folded) + QChar(0x06F0 + (code - u'0')) + QChar(0x0660 + (code - u'0'));
    switch (code) {
    case 0x0627:
        return u"\u0627\u0622\u0623\u0625\u0671"_s;
    case 0x0648:
        return u"\u0648\u0624"_s;
    case 0x06CC:
        return u"\u06CC\u064A\u0649\u0626"_s;
    case 0x06A9:
        return u"\u06A9\u0643"_s;
    case 0x0647:
        return u"\u0647\u0629\u06C0\u06D5"_s;
    default:
        return folded;
    }
}

// A character that is no letter or digit, standing for itself.
QString itself(QChar c)
{
    if (c.unicode() < u' ' || c.unicode() == 0x7F)
        return u"\\x{%1}"_s.arg(c.unicode(), 0, 16);
    return c.unicode() < 0x80 ? u'\\' + QString(c) : QString(c);
}

QString element(QChar c, SearchPattern::Wildcards wildcards)
{
    if (wildcards == SearchPattern::Wildcards::Like && c == u'%')
        return u"[\\s\\S]*"_s;
    if (wildcards == SearchPattern::Wildcards::Like && c == u'_')
        return u"[\\s\\S]"_s;
    // A letter may fold to one that is nothing by itself.
    const QString folded = c.isLetterOrNumber() ? searchKey(c) : QString();
    return folded.size() == 1 && folded.front().isLetterOrNumber() ? u'[' + waysOfWriting(folded.front()) + u']' : itself(c);
}

}

QString SearchPattern::ofText(const QString &text, Wildcards wildcards)
{
    QString pattern;
    for (const QChar c : text) {
        if (isUnseen(c))
            continue;
        if (!pattern.isEmpty())
            pattern += filler;
        pattern += element(c, wildcards);
    }
    return pattern;
}

QString SearchPattern::ofWord(const QString &word)
{
    QString pattern;
    for (const QChar c : searchKey(word)) {
        if (!c.isLetter() && !c.isDigit())
            continue;
        if (!pattern.isEmpty())
            pattern += fillerOrMark;
        pattern += u'[' + waysOfWriting(c) + u']';
    }
    return pattern;
}

bool SearchPattern::isWrittenOneWay(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c.unicode() < 0x80 && !c.isDigit() && !c.isSpace();
    });
}

bool SearchPattern::isStorable(const QString &text)
{
    return std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSurrogate(); });
}

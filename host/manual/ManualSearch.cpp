// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/ManualSearch.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar halfSpace(0x200c);

// Characters that are one to whoever reads them.
const QStringList sames{u"یيى"_s, u"کك"_s, u"اآأإ"_s, u"هةۀ"_s, u"وؤ"_s};
constexpr char16_t latinZero = u'0';
constexpr char16_t persianZero = u'\u06f0';
constexpr char16_t arabicZero = u'\u0660';

QString anyOf(QChar letter)
{
    if (const int digit = letter.digitValue(); digit >= 0)
        return u"[%1%2%3]"_s.arg(QChar(latinZero + digit)).arg(QChar(persianZero + digit)).arg(QChar(arabicZero + digit));
    for (const QString &same : sames) {
        if (same.contains(letter))
            return u'[' + same + u']';
    }
    return QRegularExpression::escape(QString(letter));
}

QRegularExpression wordOf(const QString &typed)
{
    QStringList letters;
    for (const QChar letter : typed) {
        if (letter != halfSpace)
            letters.append(anyOf(letter));
    }
    return QRegularExpression(letters.join(QString(halfSpace) + u'?'), QRegularExpression::CaseInsensitiveOption);
}

}

ManualSearch::ManualSearch(const QString &typed)
{
    for (const QString &word : typed.simplified().split(u' ', Qt::SkipEmptyParts)) {
        if (const QRegularExpression expression = wordOf(word); !expression.pattern().isEmpty())
            m_words.append(expression);
    }
}

bool ManualSearch::isIn(const QString &text) const
{
    return std::all_of(m_words.cbegin(), m_words.cend(), [&](const QRegularExpression &word) { return text.contains(word); });
}

QRegularExpression ManualSearch::anyWord() const
{
    QStringList words;
    for (const QRegularExpression &word : m_words)
        words.append(word.pattern());
    return QRegularExpression(words.isEmpty() ? u"(?!)"_s : words.join(u'|'), QRegularExpression::CaseInsensitiveOption);
}

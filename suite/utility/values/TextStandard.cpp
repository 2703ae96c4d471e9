// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/TextStandard.h"

#include <QCollator>

#include <algorithm>

namespace {

constexpr QChar zeroWidthNonJoiner(0x200C);

QChar asciiDigit(QChar c)
{
    const char16_t code = c.unicode();
    if (code >= 0x06F0 && code <= 0x06F9)
        return QChar(u'0' + (code - 0x06F0));
    if (code >= 0x0660 && code <= 0x0669)
        return QChar(u'0' + (code - 0x0660));
    return c;
}

QChar standardChar(QChar c)
{
    switch (c.unicode()) {
    case 0x064A: // Arabic yeh
    case 0x0649: // alef maksura, typed for a yeh
        return QChar(0x06CC);
    case 0x0643: // Arabic kaf
        return QChar(0x06A9);
    default:
        return asciiDigit(c);
    }
}

bool isInvisible(QChar c)
{
    const char16_t code = c.unicode();
    return code == 0x0640 // kashida
        || code == 0x200B || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069) || code == 0xFEFF;
}

// Letters in the shapes of old fonts, as text copied out of a PDF has them.
bool isPresentationForm(QChar c)
{
    const char16_t code = c.unicode();
    return (code >= 0xFB50 && code <= 0xFDFF) || (code >= 0xFE70 && code < 0xFEFF);
}

QString withoutPresentationForms(const QString &text)
{
    // As good as every text.
    if (std::none_of(text.cbegin(), text.cend(), isPresentationForm))
        return text;
    QString result;
    result.reserve(text.size());
    for (const QChar c : text)
        result.append(isPresentationForm(c) ? QString(c).normalized(QString::NormalizationForm_KC) : QString(c));
    return result;
}

QChar foldedChar(QChar c)
{
    switch (c.unicode()) {
    case 0x0622: // alef with madda
    case 0x0623: // alef with hamza above
    case 0x0625: // alef with hamza below
    case 0x0671: // alef wasla
        return QChar(0x0627);
    case 0x0624: // waw with hamza
        return QChar(0x0648);
    case 0x0626: // yeh with hamza
        return QChar(0x06CC);
    case 0x0629: // teh marbuta
    case 0x06C0: // heh with yeh above
    case 0x06D5: // ae
        return QChar(0x0647);
    default:
        return c;
    }
}

bool isVowelSign(QChar c)
{
    return (c.unicode() >= 0x064B && c.unicode() <= 0x0655) || c.unicode() == 0x0670;
}

}

QString ConvertToStandard(const QString &text)
{
    QString result;
    result.reserve(text.size());
    bool blankDue = false;
    bool joinerDue = false;
    for (const QChar original : withoutPresentationForms(text)) {
        const QChar c = standardChar(original);
        if (isInvisible(c))
            continue;
        if (c == zeroWidthNonJoiner) {
            joinerDue = true;
        } else if (c.isSpace() && c != u'\n') {
            blankDue = true;
        } else {
            const bool atLineEnd = result.isEmpty() || result.back() == u'\n' || c == u'\n';
            if (blankDue && !atLineEnd)
                result.append(u' ');
            else if (joinerDue && !blankDue && !atLineEnd && result.back().isLetter() && c.isLetter())
                result.append(zeroWidthNonJoiner);
            result.append(c);
            blankDue = joinerDue = false;
        }
    }
    return result;
}

QString searchKey(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : ConvertToStandard(text).toLower()) {
        const QChar folded = foldedChar(c);
        if (!folded.isSpace() && folded != zeroWidthNonJoiner && !isVowelSign(folded) && folded != QChar(0x0621))
            result.append(folded);
    }
    return result;
}

int comparePersian(const QString &first, const QString &second)
{
    // A collator belongs to a thread.
    static thread_local const QCollator persian(QLocale(QLocale::Persian));
    return persian.compare(first, second);
}

QString toAsciiDigits(const QString &text)
{
    QString result = text;
    for (QChar &c : result)
        c = asciiDigit(c);
    return result;
}

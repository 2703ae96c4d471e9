// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/CodeFont.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// What the names of the cuts with Persian digits end with.
const QString persianDigits = u" FD"_s;

bool isLatinLetter(QChar c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

}

bool CodeFont::isLatinCode(const QString &text)
{
    bool letter = false;
    bool digit = false;
    for (const QChar c : text) {
        if (c.direction() == QChar::DirR || c.direction() == QChar::DirAL)
            return false;
        letter = letter || isLatinLetter(c);
        digit = digit || (c >= u'0' && c <= u'9');
    }
    return letter && digit;
}

QList<CodeFont::Stretch> CodeFont::codesIn(const QString &text)
{
    static const QRegularExpression word(u"[A-Za-z0-9][A-Za-z0-9-]*"_s);
    QList<Stretch> codes;
    for (auto words = word.globalMatch(text); words.hasNext();) {
        const QRegularExpressionMatch found = words.next();
        if (isLatinCode(found.captured()))
            codes.append({found.capturedStart(), found.capturedLength()});
    }
    return codes;
}

QStringList CodeFont::families(const QFont &base)
{
    QStringList families = base.families().isEmpty() ? QStringList{base.family()} : base.families();
    if (families.constFirst().endsWith(persianDigits))
        families.prepend(families.constFirst().chopped(persianDigits.size()));
    return families;
}

QFont CodeFont::of(const QFont &base, const QString &text)
{
    if (!isLatinCode(text))
        return base;
    QFont font = base;
    font.setFamilies(families(base));
    return font;
}

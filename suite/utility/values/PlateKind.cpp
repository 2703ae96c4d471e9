// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/PlateKind.h"

#include "suite/utility/values/PlateText.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

struct Named
{
    const char16_t *name;
    const char16_t *word; // that such a plate begins with
};

// By the values of Kind.
constexpr Named kinds[PlateKind::Count] = {
    {u"پلاک ملی", u""},
    {u"منطقه آزاد", u"منطقه آزاد"},
    {u"گذر موقت", u"گذر موقت"},
    {u"موتورسیکلت", u"موتور"},
    {u"پلاک قدیمی", u"قدیمی"},
    {u"متن آزاد", u""},
};

QString wordOf(int kind)
{
    return QStringView(kinds[kind].word).toString();
}

// The kind whose word the text begins with; Free for none.
int begunWith(const QString &standard)
{
    for (int kind = 0; kind < PlateKind::Count; ++kind) {
        const QString word = wordOf(kind);
        if (!word.isEmpty() && (standard == word || standard.startsWith(word + u' ')))
            return kind;
    }
    return PlateKind::Free;
}

}

QStringList PlateKind::names()
{
    QStringList names;
    for (const Named &kind : kinds)
        names.append(QStringView(kind.name).toString());
    return names;
}

PlateKind::Kind PlateKind::of(const QString &text)
{
    const QString standard = ConvertToStandard(text);
    if (standard.isEmpty() || PlateText::of(text) || PlateText::begun(text))
        return Common;
    return Kind(begunWith(standard));
}

QString PlateKind::as(Kind kind, const QString &text)
{
    QString rest = ConvertToStandard(text);
    if (const int before = begunWith(rest); before != Free)
        rest = rest.sliced(wordOf(before).size()).trimmed();
    const QString word = wordOf(kind);
    if (word.isEmpty())
        return kind == Common ? PlateText::oneSpelling(rest) : rest;
    return rest.isEmpty() ? word + u' ' : word + u' ' + rest;
}

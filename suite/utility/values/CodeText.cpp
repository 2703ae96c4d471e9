// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/CodeText.h"

#include <algorithm>

namespace {

bool runsFromTheRight(QChar c)
{
    return c.direction() == QChar::DirR || c.direction() == QChar::DirAL;
}

// Whether a run of letters that run from the right ends behind this position.
bool endsRun(const QString &code, qsizetype at)
{
    if (!runsFromTheRight(code.at(at)))
        return false;
    qsizetype next = at + 1;
    while (next < code.size() && (code.at(next).isSpace() || code.at(next).direction() == QChar::DirNSM))
        ++next;
    return next < code.size() && !runsFromTheRight(code.at(next));
}

}

QString CodeText::shown(const QString &code, qsizetype *caret)
{
    QString text;
    const qsizetype before = caret ? *caret : 0;
    if (std::any_of(code.cbegin(), code.cend(), runsFromTheRight)) {
        text.append(mark);
        if (before > 0)
            ++*caret;
    }
    for (qsizetype at = 0; at < code.size(); ++at) {
        text.append(code.at(at));
        if (!endsRun(code, at))
            continue;
        text.append(mark);
        if (caret && at < before)
            ++*caret;
    }
    return text;
}

QString CodeText::plain(const QString &shown)
{
    QString code = shown;
    return code.remove(mark);
}

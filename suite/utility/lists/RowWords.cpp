// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/RowWords.h"

#include <algorithm>

#include "suite/utility/values/TextStandard.h"

// An amount, a date or a code is found with its separators or without them.
QString RowWords::key(const QString &text)
{
    QString key = searchKey(text);
    key.removeIf([](QChar c) { return !c.isLetterOrNumber(); });
    return key;
}

QStringList RowWords::of(const QString &text)
{
    QStringList words;
    for (const QString &part : text.simplified().split(u' ', Qt::SkipEmptyParts)) {
        if (const QString word = key(part); !word.isEmpty())
            words.append(word);
    }
    return words;
}

bool RowWords::areIn(const QStringList &words, const QString &key)
{
    return std::ranges::all_of(words, [&key](const QString &word) { return key.contains(word); });
}

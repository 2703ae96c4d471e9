// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/lists/WordChoices.h"

KListFilter::Choices wordChoices(WordLists::List list)
{
    return [list] {
        QList<KListFilter::Choice> choices;
        for (const QString &word : WordLists::texts(list))
            choices.append({word, static_cast<int>(choices.size())});
        return choices;
    };
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/faults/desk/DeskBin.h"

#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/frame/KAccountingError.h"

using namespace Qt::StringLiterals;

Desk::Then DeskBin::takeBack(Desk &desk, const Desk::Words &words)
{
    const std::optional<Bin::Entry> entry = Bin::entryOf(words.value(1), Desk::number(words, 2));
    if (!entry)
        Desk::complain(u"not in the bin"_s);
    try {
        desk.setValue(BinRestoring::run(*entry).key);
    } catch (const KAccountingError &error) {
        desk.setValue(error.userMessage());
    }
    return Desk::Then::AnswerDone;
}

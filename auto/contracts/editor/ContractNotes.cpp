// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/ContractNotes.h"

#include "auto/db/CTblAutomobilContracts.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QString CTblAutomobilContracts::*, ContractNotes::most> columns = {
    &CTblAutomobilContracts::m_sNote1,
    &CTblAutomobilContracts::m_sNote2,
    &CTblAutomobilContracts::m_sNote3,
    &CTblAutomobilContracts::m_sNote4,
    &CTblAutomobilContracts::m_sNote5,
    &CTblAutomobilContracts::m_sNote6,
    &CTblAutomobilContracts::m_sNote7,
    &CTblAutomobilContracts::m_sNote8,
    &CTblAutomobilContracts::m_sNote9,
    &CTblAutomobilContracts::m_sNote10,
};

}

QStringList ContractNotes::notes(const CTblAutomobilContracts &contract)
{
    QStringList texts;
    for (const auto column : columns) {
        if (const QString &text = contract.*column; !text.isEmpty())
            texts << text;
    }
    return texts;
}

QString ContractNotes::problem(const QStringList &notes)
{
    if (notes.size() > most)
        return u"حداکثر %1 تبصره قابل ثبت است."_s.arg(most);
    const int longest = CTblAutomobilContracts().textLength(u"sNote1"_s);
    for (const QString &note : notes) {
        if (note.toUcs4().size() > longest)
            return u"هر تبصره حداکثر %1 نویسه است و این تبصره بلندتر است : %2"_s.arg(QString::number(longest), note);
    }
    return {};
}

void ContractNotes::setNotes(CTblAutomobilContracts &contract, const QStringList &notes)
{
    qsizetype position = 0;
    for (const auto column : columns)
        contract.*column = notes.value(position++);
}

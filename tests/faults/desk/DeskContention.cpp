// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/faults/desk/DeskContention.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/changes/OpenedRow.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/connection/KTransaction.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Then = Desk::Then;
using Words = Desk::Words;

struct Count
{
    int saved = 0;
    int conflicts = 0;

    QJsonObject json() const { return {{u"saved"_s, saved}, {u"conflicts"_s, conflicts}}; }
};

void loadLocked(CTblAutomobilContracts &contract, int key)
{
    if (!contract.lockRecord(key))
        Desk::complain(u"the contract is gone"_s);
}

void addToAll(const QString &column, const QList<int> &keys)
{
    KTransaction::runReplayable([&] {
        for (const int key : keys) {
            CTblAutomobilContracts contract;
            loadLocked(contract, key);
            contract.Edit();
            contract.setValue(column, contract.value(column).toDouble() + 1);
            contract.Update(true);
        }
    });
}

// Desks count in steps of their own, for two who write the same do not disagree.
void mergeOnce(const QString &column, const QString &text, double step, int key)
{
    CTblAutomobilContracts read;
    if (!read.IsRecordExist(u"iID"_s, key))
        Desk::complain(u"the contract is gone"_s);
    const OpenedRow opened(read, {}, [] {});
    const double counted = read.m_dCostsForBuyer + step;
    KTransaction::runReplayable([&] {
        CTblAutomobilContracts contract;
        loadLocked(contract, key);
        contract.Edit();
        opened.mergeOnto(contract, [&] {
            contract.setRowValues(opened.values());
            contract.setValue(column, text);
            contract.m_dCostsForBuyer = counted;
        });
        contract.Update(true);
    });
}

// Holds the row as long as it lives.
class HeldRow
{
public:
    explicit HeldRow(int key)
    {
        CTblAutomobilContracts contract;
        loadLocked(contract, key);
    }

private:
    KTransaction m_transaction;
};

std::unique_ptr<HeldRow> &heldRow()
{
    static std::unique_ptr<HeldRow> row;
    return row;
}

}

Then DeskContention::add(Desk &desk, const Words &words)
{
    QList<int> keys;
    for (int position = 3; position < words.size(); ++position)
        keys.append(Desk::number(words, position));
    Count count;
    for (int time = Desk::number(words, 2); time > 0; --time) {
        try {
            addToAll(words.value(1), keys);
            ++count.saved;
        } catch (const CMySQLException &error) {
            const auto category = error.category();
            if (category != CMySQLException::Category::LockConflict && category != CMySQLException::Category::LockWait)
                throw;
            ++count.conflicts;
        }
    }
    desk.setValue(count.json());
    return Then::AnswerDone;
}

Then DeskContention::merge(Desk &desk, const Words &words)
{
    Count count;
    for (const int times = Desk::number(words, 3); count.saved < times;) {
        try {
            mergeOnce(words.value(1), QString::number(count.saved + 1), words.value(2).toDouble(), Desk::number(words, 4));
            ++count.saved;
        } catch (const RowChanged &) {
            ++count.conflicts;
        }
    }
    desk.setValue(count.json());
    return Then::AnswerDone;
}

Then DeskContention::hold(Desk &, const Words &words)
{
    heldRow() = std::make_unique<HeldRow>(Desk::number(words, 1));
    return Then::AnswerDone;
}

Then DeskContention::letGo(Desk &, const Words &)
{
    heldRow().reset();
    return Then::AnswerDone;
}

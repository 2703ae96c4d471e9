// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class CTblAutomobilContracts;

enum class ContractEditorMode {
    New,
    Edit,
    Show
};

// What the contract editor asks of each of its own pages.
class ContractEditorPage
{
public:
    virtual ~ContractEditorPage() = default;

    // Shows the loaded contract.
    virtual void fill(CTblAutomobilContracts &contract) = 0;
    // False after the page has told what is wrong and gone to the field.
    [[nodiscard]] virtual bool validate() = 0;
    // Sets the page's own columns of a contract that is open for editing, inside the transaction that saves it; may run again
    // when that is replayed. What it throws ends the save, and nothing of it is kept.
    virtual void write(CTblAutomobilContracts &contract) = 0;
    // The contract is saved for good.
    virtual void saved() { }
};

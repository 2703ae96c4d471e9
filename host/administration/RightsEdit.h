// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/CTblValues.h"
#include "suite/accounting/changes/RowEdit.h"

#include <memory>

// The rights of one user while a window edits them, cell by cell of the grid of forms and rights.
class RightsEdit final : public RowEdit
{
public:
    // Reads them.
    explicit RightsEdit(int userID);
    ~RightsEdit() override;

    // Bits of KSecurity::Right by form.
    QHash<QString, int> rights() const;
    // For write.
    void setRights(const QHash<QString, int> &rights);
    // For settle, with the bits of the window: a form that another user has closed to this one meanwhile has no other rights.
    // Returns what the window wanted there, as "right - form".
    QStringList closeForms(const QHash<QString, int> &wanted);

protected:
    void lockRow() override;
    void storeRow() override;

private:
    RightsEdit(int userID, std::unique_ptr<CTblValues> cells);

    int m_userID;
    std::unique_ptr<CTblValues> m_cells;
    QHash<QString, int> m_stored; // when the user was locked
};

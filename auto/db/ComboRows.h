// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

using namespace Qt::StringLiterals;

// That a drop-down will be filled with the rows of the set (KReadAhead).
template <class Rows>
void expectComboBox(Rows &rows)
{
    rows.SetColumns({u"sName"_s});
    rows.expectOpen();
}

// Fills a drop-down of any kind with the rows of the set in its order: the shown text is the row's name, the data its key.
// Selects the row with key current, none when there is no such row. Returns 1.
template <class Rows, class ComboBox>
int fillComboBox(ComboBox *combo, Rows &rows, int current)
{
    combo->clear();
    rows.SetColumns({u"sName"_s});
    int chosen = -1;
    for (rows.Open(true, true, true); !rows.IsEOF(); rows.MoveNext()) {
        combo->addItem(rows.m_sName, rows.m_iID);
        if (rows.m_iID == current)
            chosen = combo->count() - 1;
    }
    combo->setCurrentIndex(chosen);
    return 1;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/KSecurity.h"
#include "suite/utility/KDialog.h"

// The car catalog: brands, the models of the selected brand and the classes of the selected model, side by side. A window
// to keep the catalog in, or, in pick mode, to choose an entry of it.
//
// Opening it needs the access right of form "CarsAll"; each command its own right and an open database.
class CDlgCarsAll : public KDialog, private KSecurity
{
public:
    explicit CDlgCarsAll(QWidget *parent = nullptr);
    ~CDlgCarsAll() override;

    // Lets the user choose. The keys are preselected (0: none) and, when it gives true, those that were chosen; a model or
    // class that the user left open is 0. False: cancelled or refused, the keys are as they were. Names may have been
    // changed in either case.
    [[nodiscard]] static bool Pick(QWidget *parent, int &brand, int &model, int &carClass);
    // Opens the catalog to be kept. Whether it was changed in a way that lists of it elsewhere must follow (isChanged).
    static bool Browse(QWidget *parent);

    // Before exec.
    void setPickMode(bool on) { m_pickMode = on; }
    void setChosen(int brand, int model, int carClass);
    int chosenBrand() const { return m_chosenBrand; }
    int chosenModel() const { return m_chosenModel; }
    int chosenClass() const { return m_chosenClass; }
    // A class was added, or a set of entries imported.
    bool isChanged() const { return m_changed; }

private:
    bool m_pickMode = false;
    int m_chosenBrand = 0;
    int m_chosenModel = 0;
    int m_chosenClass = 0;
    bool m_changed = false;
};

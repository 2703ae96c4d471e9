// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/entries/KDropDown.h"

class PlateEdit;

// What kind of plate stands in a line: follows what is typed there, and puts the word of another kind in front when the user chooses one.
class TZUTILITY_EXPORT PlateKindBox : public KDropDown
{
    Q_OBJECT

public:
    explicit PlateKindBox(PlateEdit *plate, QWidget *parent = nullptr);

private:
    void follow();
    void take(int kind);

    PlateEdit *m_plate;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QComboBox>

// The suite's drop-down of an editor page.
//
// The wheel changes the choice only while it has the focus: scrolling the page must not change the choice in a drop-down
// that passes under the pointer. When disabled, its frame and arrow are greyed, but its text stays readable.
class TZUTILITY_EXPORT KDropDown : public QComboBox
{
    Q_OBJECT

public:
    explicit KDropDown(QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;

private:
    void keepTextReadable();
};

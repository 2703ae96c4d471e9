// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QComboBox>

// The suite's drop-down of an editor page.
//
// The wheel chooses in it only while it has the focus: a page that is scrolled must not choose something else in a drop-down
// that comes below the pointer on the way. Disabled, it is greyed by its frame and arrow, but its text is there to be read.
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

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QSpinBox>

// A number with steps, on a page that scrolls. The wheel steps it only while it has the focus: scrolling the page past it must not
// change it.
class TZUTILITY_EXPORT KSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit KSpinBox(QWidget *parent = nullptr);

protected:
    void wheelEvent(QWheelEvent *event) override;
};

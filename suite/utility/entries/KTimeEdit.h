// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTimeEdit>

#include "suite/utility/TzUtilityExport.h"

// Entry of a time of day, 00:00 to 23:59, in Persian, Arabic or ASCII digits. Up and Down step the part under the caret.
class TZUTILITY_EXPORT KTimeEdit : public QTimeEdit
{
    Q_OBJECT

public:
    explicit KTimeEdit(QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};

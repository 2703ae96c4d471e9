// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

class DataFolder;

// What program this is, of what version, and where its data lie.
class CDlgAbout : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgAbout(const DataFolder &folder, QWidget *parent = nullptr);
};

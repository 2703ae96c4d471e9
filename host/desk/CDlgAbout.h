// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

class DataFolder;

// The program's name and version, and where its data is.
class CDlgAbout : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgAbout(const DataFolder &folder, QWidget *parent = nullptr);
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/printing/ContractPrinting.h"

class QWidget;

// The dialogs of a window: warnings and the choice of a template over it, the finished document in the desktop's own program.
ContractPrinting::Dialogs contractPrintingDialogs(QWidget *parent);

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

class QWidget;

// Makes content, laid out, the whole of an editor's page, scrolling where the window is too small for it. The scroll area
// follows the focus and is not a tab stop itself; Tab moves through the content as it is laid out.
TZUTILITY_EXPORT void fillWithScrolled(QWidget *page, QWidget *content);

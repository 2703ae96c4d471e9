// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

class QComboBox;

// For a drop-down of names that the office enters: it asks its page for the room of an ordinary name and takes any more
// there is. By itself a drop-down asks for the room of its longest entry, and one long name would push the page's other
// fields together and the window off the screen.
TZUTILITY_EXPORT void keepComboWidth(QComboBox &combo);

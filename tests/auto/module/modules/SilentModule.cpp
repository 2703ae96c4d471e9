// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QtGlobal>

// A library that is no module: it enters itself nowhere.
extern "C" Q_DECL_EXPORT int silent()
{
    return 1;
}

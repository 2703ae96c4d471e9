// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

// What the module shows to the host. The export list in TzAuto.map hides everything else, also what a static archive
// linked into the module would let through.
#if defined(TZAUTO_BUILDING)
#define TZAUTO_EXPORT Q_DECL_EXPORT
#else
#define TZAUTO_EXPORT Q_DECL_IMPORT
#endif

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#if defined(TZCRM_BUILDING)
#define TZCRM_EXPORT Q_DECL_EXPORT
#else
#define TZCRM_EXPORT Q_DECL_IMPORT
#endif

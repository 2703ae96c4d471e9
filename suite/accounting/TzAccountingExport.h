// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#if defined(TZACCOUNTING_BUILDING)
#define TZACCOUNTING_EXPORT Q_DECL_EXPORT
#else
#define TZACCOUNTING_EXPORT Q_DECL_IMPORT
#endif

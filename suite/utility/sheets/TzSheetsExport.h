// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#if defined(TZSHEETS_BUILDING)
#define TZSHEETS_EXPORT Q_DECL_EXPORT
#else
#define TZSHEETS_EXPORT Q_DECL_IMPORT
#endif

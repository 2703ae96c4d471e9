// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#if defined(TZTREASURY_BUILDING)
#define TZTREASURY_EXPORT Q_DECL_EXPORT
#else
#define TZTREASURY_EXPORT Q_DECL_IMPORT
#endif

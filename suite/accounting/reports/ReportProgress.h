// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

// Reports the progress of a long task; returning false asks it to stop.
using ReportProgress = std::function<bool(int done, int total)>;

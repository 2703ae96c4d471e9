// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/Trial.h"

#include <QtGlobal>

namespace Trial {

bool isOn()
{
    static const bool on = qEnvironmentVariableIsSet("TZ_BENCH_TRIAL");
    return on;
}

int size(int full)
{
    return isOn() ? full / 20 : full;
}

int repetitions(int full)
{
    return isOn() ? 2 : full;
}

}

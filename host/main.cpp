// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/HostProgram.h"

int main(int argc, char **argv)
{
    return HostProgram::start(argc, argv);
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/TestRegistry.h"

#include <cstdio>
#include <cstdlib>

namespace {

// Filled before main by the files of the test classes, in whatever order.
std::map<std::string, TestRegistry::Run> &entries()
{
    static std::map<std::string, TestRegistry::Run> map;
    return map;
}

}

void TestRegistry::add(const char *name, Run run)
{
    if (!entries().emplace(name, run).second) {
        std::fprintf(stderr, "two test classes are called %s\n", name);
        std::abort();
    }
}

const std::map<std::string, TestRegistry::Run> &TestRegistry::all()
{
    return entries();
}

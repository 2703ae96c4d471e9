// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// usage: PROGRAM TestClass [arguments of QTest]
//        PROGRAM --holds TestClass...
//
// Runs one test class of the program. With --holds it runs none and says whether the program holds exactly those classes:
// the build asks so after linking, so that a file whose class is not registered breaks the build.

#include "tests/support/TestRegistry.h"

#include <cstdio>
#include <set>

namespace {

int compareWith(const std::set<std::string> &wanted)
{
    int faults = 0;
    for (const std::string &name : wanted) {
        if (TestRegistry::all().count(name) == 0) {
            std::fprintf(stderr, "%s is not registered\n", name.c_str());
            ++faults;
        }
    }
    for (const auto &[name, run] : TestRegistry::all()) {
        if (wanted.count(name) == 0) {
            std::fprintf(stderr, "%s has no file of its name\n", name.c_str());
            ++faults;
        }
    }
    return faults == 0 ? 0 : 1;
}

}

int main(int argc, char **argv)
{
    const std::string wanted = argc > 1 ? argv[1] : "";
    if (wanted == "--holds")
        return compareWith(std::set<std::string>(argv + 2, argv + argc));
    const auto found = TestRegistry::all().find(wanted);
    if (found != TestRegistry::all().end())
        return found->second(argc - 1, argv + 1);
    std::fprintf(stderr, "no test class \"%s\" here; there are:\n", wanted.c_str());
    for (const auto &[name, run] : TestRegistry::all())
        std::fprintf(stderr, "  %s\n", name.c_str());
    return 2;
}

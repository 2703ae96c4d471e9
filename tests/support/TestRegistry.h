// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <map>
#include <string>

// The test classes of a program, by name. A program holds the classes of a room; ctest starts it once for each of them.
class TestRegistry
{
public:
    // Runs the class with the arguments that remain, the class's name in place of the program's. Returns main's result.
    using Run = int (*)(int argc, char **argv);

    // Ends the program when the name is taken.
    static void add(const char *name, Run run);
    static const std::map<std::string, Run> &all();
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The module's records among RecordSubjects: contracts with their plans, cars, demands, the catalog, tariffs, parameters.
class AutoSubjects
{
public:
    // Until the module is unloaded; a second call changes nothing.
    static void enter();

    AutoSubjects(const AutoSubjects &) = delete;
    AutoSubjects &operator=(const AutoSubjects &) = delete;

private:
    AutoSubjects();
    ~AutoSubjects();
};

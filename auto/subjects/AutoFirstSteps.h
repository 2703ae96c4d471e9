// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The first steps of an office that the module leads to: commission, car catalog, first car and first contract.
class AutoFirstSteps
{
public:
    // While the module is loaded.
    static void enter();

    AutoFirstSteps(const AutoFirstSteps &) = delete;
    AutoFirstSteps &operator=(const AutoFirstSteps &) = delete;

private:
    AutoFirstSteps();
    ~AutoFirstSteps();
};

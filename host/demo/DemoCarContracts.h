// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Contracts that were made from cars of the register, and a car whose price was changed twice.
namespace DemoCarContracts {

// Of the newest contracts that sell, as many as there are sold cars, at most six: each takes its car over and remembers it. Belongs inside a
// transaction.
void write(int database = 0);

}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/editor/ContractFromCar.h"

#include <optional>

// Reads a car with the names behind its keys, without its picture. None when it is gone. Throws CMySQLException.
std::optional<CarForContract> loadCarForContract(int carID, int database = 0);

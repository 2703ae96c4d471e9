// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/office/TestOffice.h"

#include <QString>

// Contracts as an office writes them, with something in every column that is printed.
namespace PrintedContracts {

int addSeller(TestOffice &office);
int addBuyer(TestOffice &office);
// Between two persons of the office; more changes it before it is stored.
int add(TestOffice &office, int contractType, const std::function<void(CTblAutomobilContracts &)> &more = {});
// Every value that such a contract prints, whatever its type.
QStringList values();

}

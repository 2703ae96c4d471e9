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
// Three instalments, of 610,000,001 to 610,000,003.
void addPlan(TestOffice &office, int contract);
// Every value that such a contract prints on the form of its type, but for its plan; and those that its type does not show.
QStringList values(int contractType);
QStringList hiddenValues(int contractType);

}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/printing/ContractPrinting.h"

class QWidget;

// Prints a contract as a PDF that is filed with it, by the word processor in the background, with progress and a way to stop it.
namespace ContractFilingDialogs {

struct Options
{
    ContractPrinting::Places places = {};
    QString program = {};      // empty: the one that is installed
    int limitMilliseconds = 0; // 0: the usual one
    bool opens = true;         // shows the PDF afterwards
};

// Whether a version was filed; why not has been shown. Throws KAccountingError and CMySQLException.
bool run(int contractID, QWidget *parent, const Options &options = {});

}

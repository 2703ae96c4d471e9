// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

// What an office is told before its first contract.
namespace FirstContract {

// Whether a contract may be begun now. Before the first one tells what the office has not set yet; the user goes on without it, or
// goes to the contract settings first, or does neither. Asks nothing once there is a contract, or nothing is missing.
bool mayBegin(QWidget *parent);
// That it will be asked (KReadAhead).
void expect();

}

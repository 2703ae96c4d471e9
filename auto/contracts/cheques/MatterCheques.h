// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

// What the matter page of a contract says about the cheques that pay the price.
namespace MatterCheques {

// A cheque of the register, or a part of one.
struct Part
{
    QString number;
    QString bank;
    QString branch;
    QString branchCode;
    double amount = 0; // of the price, in the suite's money unit
};

// One field of the page, by its column, and the text for it.
struct FieldText
{
    QString column;
    QString text;

    friend bool operator==(const FieldText &, const FieldText &) = default;
};

// The texts of sCheckCount, dAgreeAmount, sCheckNum, sBankName, sBranchName and sBranchCode, in that order; all empty without cheques.
// What several cheques have in common is said once, and of numbers that follow one another the first and the last.
QList<FieldText> texts(const QList<Part> &cheques);

}

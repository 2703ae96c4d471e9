// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

// Tells of receipts from before they said themselves what they are for, where their text leaves no doubt.
namespace OlderReceipts {

// One that says nothing of it.
struct Receipt
{
    int id = 0;
    int personID = 0;
    double amount = 0;
    QString text;
};

// Something that money was received for, with the text that was proposed then.
struct Claim
{
    QString text;
    int personID = 0;
    int contractID = 0;
    int paymentID = 0; // 0: the commission
    int side = 0;
    double amount = 0; // of an instalment: it was received whole; 0: any
    QString purpose;   // in words, as it is kept from now on
};

struct Link
{
    int receiptID = 0;
    Claim claim;
};

// Each receipt with the one claim that it fits: the same person, the text to the letter, the amount. None for a receipt that fits
// several, such as contracts of one number, nor for several receipts that fit one instalment.
QList<Link> links(const QList<Receipt> &receipts, const QList<Claim> &claims);

}

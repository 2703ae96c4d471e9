// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QDateTime>
#include <QList>
#include <QString>

// Rules of an invoice of services: its totals and what it must have. Amounts in the money unit, percents 0 to 100.

struct InvoiceLine
{
    int serviceID = 0; // 0: no service of the list, only the description
    QString desc;
    double count = 0;
    double price = 0; // of one

    bool operator==(const InvoiceLine &) const = default;
};

// A percentage and the amount that follows from it, or an amount that was typed.
struct TZACCOUNTINGDATA_EXPORT InvoiceLevy
{
    double percent = 0;
    double amount = 0;
    bool typed = false; // the amount stays when the base changes, and the percentage follows

    void setPercent(double value, double base, int decimals);
    void setAmount(double value, double base);
    void baseChanged(double base, int decimals);
    // As an invoice keeps it, by the amount alone: as computed when a percentage of at most four decimals yields exactly that
    // amount, else as typed.
    static InvoiceLevy fromAmount(double amount, double base, int decimals);
};

// The figures below the lines. The base of tax and duty is the lines' sum less the discount.
class TZACCOUNTINGDATA_EXPORT InvoiceFigures
{
public:
    // decimals: those of the office's money unit, to which every figure is rounded.
    explicit InvoiceFigures(int decimals);

    // The largest total of an invoice. With decimals it is less: debit and credit are compared within 0.0001, which a double
    // resolves only up to there.
    static double largestAmount(int decimals);
    static double lineAmount(double count, double price, int decimals);

    // New lines keep the discount; what follows from the base is computed again.
    void setLines(const QList<InvoiceLine> &lines);
    void setDiscount(double discount);
    void setTaxPercent(double percent);
    void setTax(double amount);
    void setDutyPercent(double percent);
    void setDuty(double amount);
    // The figures of a stored invoice, whose percentages follow from its amounts.
    void load(const QList<InvoiceLine> &lines, double discount, double tax, double duty);

    double sum() const { return m_sum; }
    double discount() const { return m_discount; }
    const InvoiceLevy &tax() const { return m_tax; }
    const InvoiceLevy &duty() const { return m_duty; }
    // What the person owes, or is owed: sum - discount + tax + duty.
    double total() const;

private:
    double base() const { return m_sum - m_discount; }
    void recompute();

    int m_decimals;
    double m_sum = 0;
    double m_discount = 0;
    InvoiceLevy m_tax;
    InvoiceLevy m_duty;
};

// An invoice as it is to be saved.
struct TZACCOUNTINGDATA_EXPORT Invoice
{
    // Types of an invoice, as Factors.iType keeps them.
    static constexpr int sale = 7;
    static constexpr int purchase = 8;

    int num = 0; // 0: a new one
    int type = sale;
    bool returned = false; // a return: every line is a returned one, and the document runs the other way round
    int personID = 0;
    QDateTime date;
    QString desc;
    QList<InvoiceLine> lines;
    double discount = 0;
    double tax = 0;
    double duty = 0;

    struct Problem
    {
        enum class What {
            NoPerson,
            NoDate,
            NoLines,
            LineOfNothing, // neither service nor description
            LineWithoutCount,
            LineWithoutPrice,
            NegativeFigure,
            AmountTooLarge, // of a line, or without one of the whole
            DiscountAboveSum
        };
        What what;
        int line = -1; // the line it is about, from 0
    };

    double sum(int decimals) const;
    // The first thing that keeps it from being saved, in the order of the window's fields; the sentence for the user beside it.
    QList<Problem> problems(int decimals) const;
    static QString message(const Problem &problem);

    bool operator==(const Invoice &) const = default;
};

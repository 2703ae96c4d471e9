// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/Invoice.h"

#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int percentDecimals = 4;

double percentOf(double base, double percent, int decimals)
{
    return roundToDecimals(base * percent / 100.0, decimals);
}

double percentFor(double amount, double base)
{
    return base > 0 ? roundToDecimals(amount * 100.0 / base, percentDecimals) : 0;
}

bool isAbove(double value, double bound)
{
    return value > bound && !IsEquals(value, bound);
}

void appendLineProblems(QList<Invoice::Problem> &found, const InvoiceLine &line, int index, int decimals)
{
    using What = Invoice::Problem::What;
    const double amount = InvoiceFigures::lineAmount(line.count, line.price, decimals);
    if (line.serviceID < 1 && line.desc.trimmed().isEmpty())
        found.append({What::LineOfNothing, index});
    if (!isAbove(line.count, 0))
        found.append({What::LineWithoutCount, index});
    else if (!isAbove(amount, 0))
        found.append({What::LineWithoutPrice, index});
    else if (amount > InvoiceFigures::largestAmount(decimals))
        found.append({What::AmountTooLarge, index});
}

}

void InvoiceLevy::setPercent(double value, double base, int decimals)
{
    percent = value;
    typed = false;
    baseChanged(base, decimals);
}

void InvoiceLevy::setAmount(double value, double base)
{
    amount = value;
    typed = true;
    percent = percentFor(amount, base);
}

void InvoiceLevy::baseChanged(double base, int decimals)
{
    if (typed)
        percent = percentFor(amount, base);
    else
        amount = base > 0 ? percentOf(base, percent, decimals) : 0;
}

InvoiceLevy InvoiceLevy::fromAmount(double amount, double base, int decimals)
{
    InvoiceLevy levy;
    levy.setAmount(amount, base);
    // The roundest percentage that yields the amount is the one that was meant.
    for (int places = 0; places <= percentDecimals && base > 0; ++places) {
        const double percent = roundToDecimals(amount * 100.0 / base, places);
        if (!IsEquals(percentOf(base, percent, decimals), amount))
            continue;
        levy.percent = percent;
        levy.typed = false;
        break;
    }
    return levy;
}

InvoiceFigures::InvoiceFigures(int decimals)
    : m_decimals(decimals)
{
}

double InvoiceFigures::largestAmount(int decimals)
{
    constexpr double withDecimals = 99999999999.0;
    return decimals == 0 ? largestMoney : withDecimals;
}

double InvoiceFigures::lineAmount(double count, double price, int decimals)
{
    return roundToDecimals(count * price, decimals);
}

void InvoiceFigures::recompute()
{
    m_tax.baseChanged(base(), m_decimals);
    m_duty.baseChanged(base(), m_decimals);
}

void InvoiceFigures::setLines(const QList<InvoiceLine> &lines)
{
    m_sum = 0;
    for (const InvoiceLine &line : lines)
        m_sum += lineAmount(line.count, line.price, m_decimals);
    recompute();
}

void InvoiceFigures::setDiscount(double discount)
{
    m_discount = discount;
    recompute();
}

void InvoiceFigures::setTaxPercent(double percent)
{
    m_tax.setPercent(percent, base(), m_decimals);
}

void InvoiceFigures::setTax(double amount)
{
    m_tax.setAmount(amount, base());
}

void InvoiceFigures::setDutyPercent(double percent)
{
    m_duty.setPercent(percent, base(), m_decimals);
}

void InvoiceFigures::setDuty(double amount)
{
    m_duty.setAmount(amount, base());
}

void InvoiceFigures::load(const QList<InvoiceLine> &lines, double discount, double tax, double duty)
{
    m_discount = discount;
    setLines(lines);
    m_tax = InvoiceLevy::fromAmount(tax, base(), m_decimals);
    m_duty = InvoiceLevy::fromAmount(duty, base(), m_decimals);
}

double InvoiceFigures::total() const
{
    return base() + m_tax.amount + m_duty.amount;
}

double Invoice::sum(int decimals) const
{
    double sum = 0;
    for (const InvoiceLine &line : lines)
        sum += InvoiceFigures::lineAmount(line.count, line.price, decimals);
    return sum;
}

QList<Invoice::Problem> Invoice::problems(int decimals) const
{
    using What = Problem::What;
    QList<Problem> found;
    if (personID < 1)
        found.append({What::NoPerson});
    if (!date.isValid())
        found.append({What::NoDate});
    if (lines.isEmpty())
        found.append({What::NoLines});
    for (int index = 0; index < lines.size(); ++index)
        appendLineProblems(found, lines.at(index), index, decimals);
    const double largest = InvoiceFigures::largestAmount(decimals);
    const double whole = sum(decimals);
    if (discount < 0 || tax < 0 || duty < 0)
        found.append({What::NegativeFigure});
    if (found.isEmpty() && (whole > largest || whole + tax + duty > largest))
        found.append({What::AmountTooLarge});
    if (!lines.isEmpty() && isAbove(discount, whole))
        found.append({What::DiscountAboveSum});
    return found;
}

QString Invoice::message(const Problem &problem)
{
    using What = Problem::What;
    const QString line = QString::number(problem.line + 1);
    switch (problem.what) {
    case What::NoPerson:
        return u"لطفا شخص را انتخاب نمایید."_s;
    case What::NoDate:
        return u"لطفا تاریخ را وارد نمایید."_s;
    case What::NoLines:
        return u"لطفا دست‌کم یک ردیف وارد نمایید."_s;
    case What::LineOfNothing:
        return u"لطفا خدمت یا شرح ردیف %1 را وارد نمایید."_s.arg(line);
    case What::LineWithoutCount:
        return u"لطفا تعداد ردیف %1 را وارد نمایید."_s.arg(line);
    case What::LineWithoutPrice:
        return u"لطفا قیمت ردیف %1 را وارد نمایید."_s.arg(line);
    case What::AmountTooLarge:
        return problem.line < 0 ? u"مبلغ فاکتور بیش از اندازه بزرگ است."_s
                                : u"مبلغ ردیف %1 بیش از اندازه بزرگ است."_s.arg(line);
    case What::DiscountAboveSum:
        return u"تخفیف از جمع ردیف‌ها بیشتر است."_s;
    case What::NegativeFigure:
        return u"تخفیف، مالیات و عوارض منفی نمی‌شوند."_s;
    }
    Q_UNREACHABLE();
}

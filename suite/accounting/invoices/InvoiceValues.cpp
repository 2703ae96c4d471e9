// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/InvoiceValues.h"

#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblFactorStuffs.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

const QString personColumn = u"iPersonID"_s;
const QString dateColumn = u"date"_s;
const QString descColumn = u"sDesc"_s;
const QString linesColumn = u"lines"_s;
const QString returnedColumn = u"bReturned"_s;
const QString discountColumn = u"dDiscount"_s;
const QString taxColumn = u"dTax"_s;
const QString dutyColumn = u"dImposition"_s;

const QStringList amountColumns{discountColumn, taxColumn, dutyColumn};

// Brings every double back as it was.
QString exact(double value)
{
    return QString::number(value, 'g', 17);
}

QString textOf(const QList<InvoiceLine> &lines)
{
    return InvoiceValues::linesOf(lines).join(u'\n');
}

QString shownLines(const QString &text)
{
    QStringList shown;
    for (const QString &line : text.split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList parts = line.split(u'\t');
        const QString service = KLookup::name<CTblFactorStuffs>(u"iServiceID", parts.value(0).toInt());
        shown.append(u"%1 %2: %3 × %4"_s.arg(service, parts.value(1), QString::number(parts.value(2).toDouble()), DToMoney(parts.value(3).toDouble())).trimmed());
    }
    return shown.join(u'\n');
}

}

InvoiceValues::InvoiceValues(int database)
    : CTblValues(u"Factors"_s,
                 {{personColumn, u"شخص"_s},
                  {dateColumn, u"تاریخ"_s},
                  {descColumn, u"شرح"_s},
                  {linesColumn, u"ردیف‌ها"_s},
                  {returnedColumn, u"برگشتی"_s},
                  {discountColumn, u"تخفیف"_s},
                  {taxColumn, u"مالیات"_s},
                  {dutyColumn, u"عوارض"_s}},
                 database)
{
}

InvoiceValues::~InvoiceValues() = default;

// The parts of a line by tabs: service, description, count and price.
QStringList InvoiceValues::linesOf(const QList<InvoiceLine> &lines)
{
    QStringList texts;
    for (const InvoiceLine &line : lines)
        texts.append(QStringList{QString::number(line.serviceID), line.desc, exact(line.count), exact(line.price)}.join(u'\t'));
    return texts;
}

QList<QStringList> InvoiceValues::groups()
{
    return {QStringList{linesColumn, returnedColumn} + amountColumns};
}

void InvoiceValues::set(const Invoice &invoice)
{
    setKey(invoice.num);
    setText(personColumn, QString::number(invoice.personID));
    setText(dateColumn, invoice.date.toString(Qt::ISODate));
    setText(descColumn, invoice.desc);
    setText(linesColumn, textOf(invoice.lines));
    setText(returnedColumn, invoice.returned ? u"1"_s : QString());
    setText(discountColumn, exact(invoice.discount));
    setText(taxColumn, exact(invoice.tax));
    setText(dutyColumn, exact(invoice.duty));
}

Invoice InvoiceValues::merged(const Invoice &theirs, const Invoice &mine)
{
    Invoice merged = theirs;
    const auto isMine = [&](const QString &column, const QString &text) { return this->text(column) == text; };
    if (isMine(personColumn, QString::number(mine.personID)))
        merged.personID = mine.personID;
    if (isMine(dateColumn, mine.date.toString(Qt::ISODate)))
        merged.date = mine.date;
    if (isMine(descColumn, mine.desc))
        merged.desc = mine.desc;
    if (isMine(linesColumn, textOf(mine.lines)))
        merged.lines = mine.lines;
    merged.returned = !text(returnedColumn).isEmpty();
    merged.discount = text(discountColumn).toDouble();
    merged.tax = text(taxColumn).toDouble();
    merged.duty = text(dutyColumn).toDouble();
    return merged;
}

std::optional<QString> InvoiceValues::shown(const QString &column, const QVariant &value)
{
    const QString text = value.toString();
    if (column == personColumn)
        return KLookup::name<CTblFactors>(u"iPersonID", text.toInt());
    if (column == dateColumn)
        return shamsiText(QDateTime::fromString(text, Qt::ISODate).date());
    if (column == linesColumn)
        return shownLines(text);
    if (column == returnedColumn)
        return text.isEmpty() ? u"خیر"_s : u"بله"_s;
    if (amountColumns.contains(column))
        return DToMoney(text.toDouble());
    return std::nullopt;
}

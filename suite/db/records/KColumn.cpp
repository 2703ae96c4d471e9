// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KColumn.h"

#include "suite/db/connection/KColumnValue.h"
#include "suite/db/connection/KTableSchema.h"

#include <limits>

namespace {

template <class Value>
KColumnValue<Value> conversionOf(const Value *)
{
    return {};
}

bool isByte(qint32 number)
{
    return number >= std::numeric_limits<qint8>::min() && number <= std::numeric_limits<qint8>::max();
}

}

QVariant KColumn::value() const
{
    return std::visit([](const auto *held) { return conversionOf(held).toVariant(*held); }, member);
}

void KColumn::setValue(const QVariant &value) const
{
    std::visit([&value](auto *held) { *held = conversionOf(held).fromVariant(value); }, member);
}

void KColumn::clear() const
{
    std::visit([](auto *held) { *held = std::remove_pointer_t<decltype(held)>(); }, member);
}

bool KColumn::isEmpty() const
{
    return std::visit([](const auto *held) { return conversionOf(held).isEmpty(*held); }, member);
}

bool KColumn::isStill(const QVariant &before) const
{
    return std::visit(
        [&before](const auto *held) {
            const auto conversion = conversionOf(held);
            const auto then = conversion.fromVariant(before);
            return conversion.isEmpty(*held) == conversion.isEmpty(then) && (conversion.isEmpty(then) || *held == then);
        },
        member);
}

QByteArray KColumn::literal() const
{
    return std::visit(
        [this](const auto *held) {
            const auto conversion = conversionOf(held);
            if (const char *why = conversion.refusal(*held))
                refuse(CMySQLException::Category::ValueTooLong, why);
            if constexpr (std::is_same_v<decltype(held), const qint32 *>) {
                if (kind == Kind::Bool && !isByte(*held))
                    refuse(CMySQLException::Category::ValueTooLong, ": a flag that is larger than a byte");
            }
            return conversion.literal(*held);
        },
        member);
}

void KColumn::requireFits(const KTableSchema &schema) const
{
    const KTableSchema::Column *said = schema.column(name);
    if (!said)
        return;
    qint64 characters = 0;
    bool beyondBasicPlane = false;
    const QString &text = *std::get<QString *>(member);
    for (const QChar c : text) {
        if (c.isLowSurrogate())
            continue;
        ++characters;
        beyondBasicPlane |= c.isHighSurrogate();
    }
    if (beyondBasicPlane && said->basicPlaneOnly)
        refuse(CMySQLException::Category::BadCharacter, ": a character that the column's character set cannot hold");
    if (said->maxCharacters > 0 && characters > said->maxCharacters)
        refuse(CMySQLException::Category::ValueTooLong, ": text longer than its column");
}

void KColumn::refuse(CMySQLException::Category category, const char *why) const
{
    CMySQLException error(category, 0, name + QLatin1String(why));
    error.setColumnCaption(caption);
    throw error;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/DamagedTable.h"

#include "suite/db/connection/CMySQLException.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The server's own errors about a table's files or its index, and that the table is gone.
constexpr unsigned int damageCodes[] = {1016, 1017, 1033, 1034, 1035, 1146, 1194, 1195, 1712, 1812, 1814, 1877, 1932};
// Those of a storage engine, which come as one error of the server with a number in its text.
constexpr unsigned int engineError = 1030;
constexpr unsigned int engineDamageCodes[] = {126, 127, 130, 131, 134, 136, 144, 145, 155, 157, 175, 176, 177, 190, 191, 192, 194};

template <std::size_t size>
bool isOneOf(const unsigned int (&codes)[size], unsigned int code)
{
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

bool saysDamage(unsigned int code, const QString &message)
{
    static const QRegularExpression engineCode(u"Got error (\\d+)"_s);
    return code == engineError ? isOneOf(engineDamageCodes, engineCode.match(message).captured(1).toUInt()) : isOneOf(damageCodes, code);
}

QStringList captured(const QRegularExpression &pattern, const QString &text)
{
    QStringList names;
    for (auto match = pattern.globalMatch(text); match.hasNext();)
        names.append(match.next().captured(1));
    names.removeDuplicates();
    return names;
}

}

QStringList DamagedTable::namedBy(unsigned int serverCode, const QString &message, const QString &statement)
{
    if (!saysDamage(serverCode, message))
        return {};
    // Table `tzauto`.`Persons` is corrupted; Index for table 'Persons' is corrupt; './tzauto/Persons.frm'; 'tzauto.Persons' doesn't exist
    static const QRegularExpression inMessage(u"(?:(?:table|file:?) ['`]|/)(?:\\./)?(?:\\w+(?:`\\.`|\\.|/))?(\\w+)(?:\\.\\w{3})?['`]"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    const QStringList named = captured(inMessage, message);
    if (!named.isEmpty())
        return named.first(1);
    static const QRegularExpression inStatement(u"\\b(?:FROM|JOIN|INTO|UPDATE|TABLE)\\s+`?(?:\\w+`?\\.`?)?(\\w+)"_s,
                                                QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression text(uR"('(?:[^'\\]|\\.|'')*')"_s, QRegularExpression::DotMatchesEverythingOption);
    return captured(inStatement, QString(statement).replace(text, u"?"_s));
}

QStringList DamagedTable::namedBy(const CMySQLException &error)
{
    return namedBy(error.serverCode(), error.GetErrorMessage(), error.statement());
}

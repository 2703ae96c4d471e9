// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KErrorText.h"

#include "suite/accounting/frame/DamagedTable.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/db/connection/CMySQLException.h"

#include <QRegularExpression>

#include <new>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestLoggedStatement = 500;

QString categoryName(CMySQLException::Category category)
{
    using Category = CMySQLException::Category;
    switch (category) {
    case Category::ConnectionLost:
        return u"connection lost"_s;
    case Category::DuplicateKey:
        return u"duplicate key"_s;
    case Category::LockConflict:
        return u"lock conflict"_s;
    case Category::LockWait:
        return u"lock wait"_s;
    case Category::GivenUp:
        return u"given up"_s;
    case Category::OutcomeUnknown:
        return u"outcome unknown"_s;
    case Category::SavedAfterAll:
        return u"saved after all"_s;
    case Category::ValueTooLong:
        return u"value too long"_s;
    case Category::BadCharacter:
        return u"bad character"_s;
    case Category::BadStatement:
        return u"bad statement"_s;
    case Category::AlreadySo:
        return u"already so"_s;
    case Category::DiskFull:
        return u"disk full"_s;
    case Category::NoCurrentRow:
        return u"no current row"_s;
    case Category::Other:
        break;
    }
    return u"other"_s;
}

// The server quotes values in its messages too; an apostrophe within a word is none of those quotes.
QString maskedMessage(QString message)
{
    static const QRegularExpression quoted(uR"((?<!\w)'.*'(?!\w))"_s,
                                           QRegularExpression::DotMatchesEverythingOption
                                               | QRegularExpression::UseUnicodePropertiesOption);
    return message.replace(quoted, u"?"_s).simplified();
}

std::function<QString(const QStringList &)> &damageText()
{
    static std::function<QString(const QStringList &)> text;
    return text;
}

QString textOfDamage(const QStringList &tables)
{
    return damageText() ? damageText()(tables) : u"جدول «%1» در پایگاه داده آسیب دیده یا گم شده است."_s.arg(tables.constFirst());
}

QString databaseLogText(const CMySQLException &error)
{
    QString text = u"database, "_s + categoryName(error.category())
        + u" (%1): "_s.arg(error.serverCode()) + maskedMessage(error.GetErrorMessage());
    if (!error.statement().isEmpty())
        text += u" in: "_s + KErrorText::maskedStatement(error.statement());
    return text;
}

}

QString KErrorText::maskedStatement(const QString &statement)
{
    static const QRegularExpression quoted(uR"('(?:[^'\\]|\\.|'')*(?:'|$)|"(?:[^"\\]|\\.|"")*(?:"|$))"_s,
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression number(uR"(\b(?:0x[0-9A-Fa-f]+|\d+(?:\.\d+)?(?:[eE][+-]?\d+)?)\b)"_s);
    QString masked = statement.left(20 * longestLoggedStatement);
    masked.replace(quoted, u"?"_s);
    masked.replace(number, u"?"_s);
    return masked.simplified().left(longestLoggedStatement);
}

void KErrorText::setDamageText(std::function<QString(const QStringList &)> text)
{
    damageText() = std::move(text);
}

QString KErrorText::userMessage(const std::exception_ptr &error)
{
    try {
        std::rethrow_exception(error);
    } catch (const CMySQLException &known) {
        const QStringList damaged = DamagedTable::namedBy(known);
        return damaged.isEmpty() ? known.userMessage() : textOfDamage(damaged);
    } catch (const KAccountingError &known) {
        return known.userMessage();
    } catch (const std::bad_alloc &) {
        return u"حافظه رایانه برای این کار کافی نبود."_s;
    } catch (...) {
        return u"خطایی پیش بینی نشده رخ داد و این کار انجام نشد. جزئیات در گزارش رویدادها ثبت شد."_s;
    }
}

QString KErrorText::logText(const std::exception_ptr &error)
{
    try {
        std::rethrow_exception(error);
    } catch (const CMySQLException &known) {
        return databaseLogText(known);
    } catch (const KAccountingError &known) {
        return u"refused: "_s + known.userMessage();
    } catch (const std::exception &known) {
        return u"exception: "_s + QString::fromUtf8(known.what());
    } catch (...) {
        return u"exception of an unknown kind"_s;
    }
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KErrorText.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/db/CMySQLException.h"

#include <QRegularExpression>

#include <new>

namespace {

constexpr int longestLoggedStatement = 500;

QString categoryName(CMySQLException::Category category)
{
    using Category = CMySQLException::Category;
    switch (category) {
    case Category::ConnectionLost:
        return QStringLiteral("connection lost");
    case Category::DuplicateKey:
        return QStringLiteral("duplicate key");
    case Category::LockConflict:
        return QStringLiteral("lock conflict");
    case Category::ValueTooLong:
        return QStringLiteral("value too long");
    case Category::BadCharacter:
        return QStringLiteral("bad character");
    case Category::BadStatement:
        return QStringLiteral("bad statement");
    case Category::AlreadySo:
        return QStringLiteral("already so");
    case Category::DiskFull:
        return QStringLiteral("disk full");
    case Category::NoCurrentRow:
        return QStringLiteral("no current row");
    case Category::Other:
        break;
    }
    return QStringLiteral("other");
}

// The server quotes values in its messages too; an apostrophe within a word is none of those quotes.
QString maskedMessage(QString message)
{
    static const QRegularExpression quoted(QStringLiteral(R"((?<!\w)'.*'(?!\w))"),
                                           QRegularExpression::DotMatchesEverythingOption
                                               | QRegularExpression::UseUnicodePropertiesOption);
    return message.replace(quoted, QStringLiteral("?")).simplified();
}

QString databaseLogText(const CMySQLException &error)
{
    QString text = QStringLiteral("database, ") + categoryName(error.category())
        + QStringLiteral(" (%1): ").arg(error.serverCode()) + maskedMessage(error.GetErrorMessage());
    if (!error.statement().isEmpty())
        text += QStringLiteral(" in: ") + KErrorText::maskedStatement(error.statement());
    return text;
}

}

QString KErrorText::maskedStatement(const QString &statement)
{
    static const QRegularExpression quoted(QStringLiteral(R"('(?:[^'\\]|\\.|'')*(?:'|$)|"(?:[^"\\]|\\.|"")*(?:"|$))"),
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression number(QStringLiteral(R"(\b(?:0x[0-9A-Fa-f]+|\d+(?:\.\d+)?(?:[eE][+-]?\d+)?)\b)"));
    QString masked = statement.left(20 * longestLoggedStatement);
    masked.replace(quoted, QStringLiteral("?"));
    masked.replace(number, QStringLiteral("?"));
    return masked.simplified().left(longestLoggedStatement);
}

QString KErrorText::userMessage(const std::exception_ptr &error)
{
    try {
        std::rethrow_exception(error);
    } catch (const CMySQLException &known) {
        return known.userMessage();
    } catch (const KAccountingError &known) {
        return known.userMessage();
    } catch (const std::bad_alloc &) {
        return QStringLiteral("حافظه رایانه برای این کار کافی نبود.");
    } catch (...) {
        return QStringLiteral("خطایی پیش بینی نشده رخ داد و این کار انجام نشد. جزئیات در گزارش رویدادها ثبت شد.");
    }
}

QString KErrorText::logText(const std::exception_ptr &error)
{
    try {
        std::rethrow_exception(error);
    } catch (const CMySQLException &known) {
        return databaseLogText(known);
    } catch (const KAccountingError &known) {
        return QStringLiteral("refused: ") + known.userMessage();
    } catch (const std::exception &known) {
        return QStringLiteral("exception: ") + QString::fromUtf8(known.what());
    } catch (...) {
        return QStringLiteral("exception of an unknown kind");
    }
}

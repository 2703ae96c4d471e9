// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KErrorBoundary.h"

#include "suite/db/CMySQLException.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QThread>

#include <atomic>
#include <new>

namespace {

Q_LOGGING_CATEGORY(lcErrors, "tz.errors")

constexpr int longestLoggedStatement = 500;

std::atomic<bool> showing{false};

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
        text += QStringLiteral(" in: ") + KErrorBoundary::maskedStatement(error.statement());
    return text;
}

bool onUserInterfaceThread()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return application && QThread::currentThread() == application->thread();
}

}

QString KErrorBoundary::maskedStatement(const QString &statement)
{
    static const QRegularExpression quoted(QStringLiteral(R"('(?:[^'\\]|\\.|'')*(?:'|$)|"(?:[^"\\]|\\.|"")*(?:"|$))"),
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression number(QStringLiteral(R"(\b(?:0x[0-9A-Fa-f]+|\d+(?:\.\d+)?(?:[eE][+-]?\d+)?)\b)"));
    QString masked = statement.left(20 * longestLoggedStatement);
    masked.replace(quoted, QStringLiteral("?"));
    masked.replace(number, QStringLiteral("?"));
    return masked.simplified().left(longestLoggedStatement);
}

QString KErrorBoundary::userMessage(const std::exception_ptr &error)
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

QString KErrorBoundary::logText(const std::exception_ptr &error)
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

void KErrorBoundary::report(std::exception_ptr error, QWidget *parent) noexcept
{
    if (!error)
        return;
    try {
        qCWarning(lcErrors).noquote() << logText(error);
        if (!onUserInterfaceThread() || showing.exchange(true))
            return;
        try {
            g_pDlgWarning->Show(userMessage(error), parent);
        } catch (...) {
            qCWarning(lcErrors) << "the message about an error could not be shown";
        }
        showing = false;
    } catch (...) {
        // Not even the log takes a line any more; there is nobody left to tell.
    }
}

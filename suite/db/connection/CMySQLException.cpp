// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/CMySQLException.h"

#include <errmsg.h>
#include <mysqld_error.h>

using namespace Qt::StringLiterals;

namespace {

// A read says nothing about what was saved before it: a list may be read anew right after a save.
bool isRead(const QString &statement)
{
    return statement.startsWith(u"SELECT"_s) && !statement.contains(u" FOR UPDATE"_s);
}

QString withColumn(const QString &plain, const QString &named, const QString &caption)
{
    return caption.isEmpty() ? plain : named.arg(caption.trimmed());
}

}

CMySQLException::CMySQLException(Category category, unsigned int serverCode, QString message, QString statement)
    : m_category(category)
    , m_serverCode(serverCode)
    , m_message(std::move(message))
    , m_statement(std::move(statement))
    , m_utf8(m_message.toUtf8())
{
}

QString CMySQLException::userMessage() const
{
    switch (m_category) {
    case Category::ConnectionLost:
        if (isRead(m_statement))
            return u"ارتباط با پایگاه داده هنگام خواندن قطع شد. پیش از تکرار کاری، لیست را تازه نمایید."_s;
        return u"ارتباط با پایگاه داده قطع شد. چیزی ذخیره نشد؛ لطفا دوباره تلاش نمایید."_s;
    case Category::DuplicateKey:
        return u"این مقدار قبلا ثبت شده است و تکرار آن ممکن نیست."_s;
    case Category::LockConflict:
        return u"کاربر دیگری هم‌زمان در حال تغییر همین اطلاعات است. لطفا دوباره تلاش نمایید."_s;
    case Category::LockWait:
        return (m_holder.isEmpty() ? u"کاربر دیگری"_s : m_holder)
            + u" همین اطلاعات را در دست تغییر دارد. چیزی ذخیره نشد؛ لطفا کمی بعد دوباره تلاش نمایید."_s;
    case Category::GivenUp:
        if (isRead(m_statement))
            return u"از انتظار برای پایگاه داده هنگام خواندن صرف نظر شد. پیش از تکرار کاری، لیست را تازه نمایید."_s;
        return u"از انتظار برای پایگاه داده صرف نظر شد. چیزی ذخیره نشد."_s;
    case Category::OutcomeUnknown:
        return u"ارتباط با پایگاه داده هنگام ذخیره قطع شد و معلوم نیست ذخیره انجام شده باشد. پیش از تکرار، نتیجه را ببینید."_s;
    case Category::SavedAfterAll:
        return u"ذخیره پیشین که نتیجه آن نامعلوم بود انجام شده است. این بار چیزی ذخیره نشد؛ پیش از تکرار نگاه کنید."_s;
    case Category::ValueTooLong:
        return withColumn(u"مقدار وارد شده بیشتر از اندازه مجاز است."_s,
                          u"مقدار «%1» بیشتر از اندازه مجاز است."_s, m_columnCaption);
    case Category::BadCharacter:
        return withColumn(u"متن وارد شده نویسه‌ای دارد که قابل ذخیره نیست."_s,
                          u"متن «%1» نویسه‌ای دارد که قابل ذخیره نیست."_s, m_columnCaption);
    case Category::BadStatement:
        return u"پایگاه داده این درخواست را نپذیرفت. جزئیات در گزارش رویدادها ثبت شد."_s;
    case Category::AlreadySo:
        return u"ساختار پایگاه داده از قبل به همین شکل است."_s;
    case Category::DiskFull:
        return u"فضای دیسک پایگاه داده پر شده است. اطلاعات ذخیره شده قبلی سالم است؛ لطفا فضا آزاد نمایید."_s;
    case Category::NoCurrentRow:
        return u"این ردیف دیگر وجود ندارد."_s;
    case Category::Other:
        break;
    }
    return u"خطایی در پایگاه داده رخ داد. جزئیات در گزارش رویدادها ثبت شد."_s;
}

CMySQLException::Category CMySQLException::categoryOf(unsigned int serverCode)
{
    struct Row
    {
        unsigned int code;
        Category category;
    };
    static constexpr Row table[] = {
        {CR_SERVER_GONE_ERROR, Category::ConnectionLost},
        {CR_SERVER_LOST, Category::ConnectionLost},
        {CR_CONNECTION_ERROR, Category::ConnectionLost},
        {CR_CONN_HOST_ERROR, Category::ConnectionLost},
        {CR_UNKNOWN_HOST, Category::ConnectionLost},
        {CR_SERVER_LOST_EXTENDED, Category::ConnectionLost},
        {CR_COMMANDS_OUT_OF_SYNC, Category::Other},
        {ER_SERVER_SHUTDOWN, Category::ConnectionLost},
        {ER_NORMAL_SHUTDOWN, Category::ConnectionLost},
        {ER_CONNECTION_KILLED, Category::ConnectionLost},
        {ER_UNKNOWN_COM_ERROR, Category::ConnectionLost}, // a node that has lost its cluster
        {ER_DUP_ENTRY, Category::DuplicateKey},
        {ER_DUP_ENTRY_WITH_KEY_NAME, Category::DuplicateKey},
        {ER_DUP_KEY, Category::DuplicateKey},
        {ER_LOCK_DEADLOCK, Category::LockConflict},
        {ER_LOCK_WAIT_TIMEOUT, Category::LockWait},
        {ER_DATA_TOO_LONG, Category::ValueTooLong},
        {ER_WARN_DATA_OUT_OF_RANGE, Category::ValueTooLong},
        {ER_TRUNCATED_WRONG_VALUE_FOR_FIELD, Category::BadCharacter},
        {ER_INVALID_CHARACTER_STRING, Category::BadCharacter},
        {ER_PARSE_ERROR, Category::BadStatement},
        {ER_SYNTAX_ERROR, Category::BadStatement},
        {ER_NO_SUCH_TABLE, Category::BadStatement},
        {ER_BAD_TABLE_ERROR, Category::BadStatement},
        {ER_BAD_FIELD_ERROR, Category::BadStatement},
        {ER_DUP_FIELDNAME, Category::AlreadySo},
        {ER_TABLE_EXISTS_ERROR, Category::AlreadySo},
        {ER_DUP_KEYNAME, Category::AlreadySo},
        {ER_CANT_DROP_FIELD_OR_KEY, Category::AlreadySo},
        {ER_DISK_FULL, Category::DiskFull},
        {ER_RECORD_FILE_FULL, Category::DiskFull},
    };
    for (const Row &row : table) {
        if (row.code == serverCode)
            return row.category;
    }
    return Category::Other;
}

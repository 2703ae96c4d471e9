// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/WayBack.h"

#include "host/server/DumpFiles.h"
#include "host/server/ServerError.h"
#include "host/server/ServerOptions.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype namedDumps = 3;

// An argument as the terminal takes it for one word.
QString word(const QString &text)
{
    static const QRegularExpression plain(u"^[A-Za-z0-9_./=-]+$"_s);
    return plain.match(text).hasMatch() ? text : u'\'' + QString(text).replace(u'\'', u"'\\''"_s) + u'\'';
}

// A line that runs left to right within a Persian message.
QString leftToRight(const QString &line)
{
    return u"\u2066"_s + line + u"\u2069"_s;
}

QString dateOf(const QString &dump)
{
    static const QRegularExpression stamp(u"-(\\d{8}-\\d{6})"_s);
    const QDateTime taken = QDateTime::fromString(stamp.match(QFileInfo(dump).completeBaseName()).captured(1), u"yyyyMMdd-HHmmss"_s);
    return shamsiText(taken.date()) + u' ' + taken.toString(u"HH:mm"_s);
}

}

WayBack::WayBack(const DataFolder &folder)
    : m_folder(folder)
    , m_dumps(DumpFiles::in(folder.backupsPath(), ServerOptions::databaseName()))
{
}

QString WayBack::command() const
{
    return m_dumps.isEmpty() ? QString()
                             : u"mariadb %1 < %2"_s.arg(word(u"--defaults-file="_s + m_folder.clientConfigPath()), word(m_dumps.constFirst()));
}

QString WayBack::dumps() const
{
    QString text = u"تازه‌ترین نسخه‌های پشتیبان در پوشه %1:"_s.arg(ServerError::shownPath(m_folder.backupsPath()));
    for (const QString &dump : m_dumps.first(qMin(namedDumps, m_dumps.size())))
        text += u'\n' + leftToRight(QFileInfo(dump).fileName()) + u" ("_s + dateOf(dump) + u')';
    return text + u'\n';
}

QString WayBack::whileServerRuns() const
{
    if (m_dumps.isEmpty())
        return u"در پوشه %1 نسخه پشتیبانی نیست. از پوشه %2 رونوشت بگیرید و آن را برای پشتیبانی بفرستید."_s
            .arg(ServerError::shownPath(m_folder.backupsPath()), ServerError::shownPath(m_folder.path()));
    return dumps() + u"برای بازگشت به تازه‌ترین آنها، تا این پیام باز است این فرمان را در پایانه اجرا و سپس برنامه را دوباره باز کنید:\n"_s
        + leftToRight(command());
}

QString WayBack::withNewDatabase() const
{
    const QString aside = m_folder.databasePath() + u"-damaged"_s;
    if (m_dumps.isEmpty())
        return u"در پوشه %1 نسخه پشتیبانی نیست. برنامه را ببندید، از پوشه %2 رونوشت بگیرید و آن را برای پشتیبانی بفرستید؛ چیزی را در آن پاک نکنید."_s
            .arg(ServerError::shownPath(m_folder.backupsPath()), ServerError::shownPath(m_folder.databasePath()));
    return dumps()
        + u"برای بازگشت به تازه‌ترین آنها: برنامه را ببندید و پوشه %1 را به %2 تغییر نام دهید. برنامه را باز کنید تا پایگاه داده تازه‌ای بسازد، "
          "در نخستین پنجره بمانید، این فرمان را در پایانه اجرا و سپس برنامه را دوباره باز کنید:\n"_s
              .arg(ServerError::shownPath(m_folder.databasePath()), ServerError::shownPath(aside))
        + leftToRight(command());
}

QString WayBack::ofOfficeServer()
{
    return u"بازگرداندن نسخه پشتیبان را از مسئول سرور دفتر بخواهید."_s;
}

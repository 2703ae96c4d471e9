// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostOptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr char connectForm[] = "HOST[:PORT][,HOST[:PORT]...]/DATABASE";

struct Option
{
    const char *name;
    const char *value; // null: the option takes no value
    QString english;
    QString persian;
};

const QList<Option> &shownOptions()
{
    static const QList<Option> options = {
        {"data-dir", "DIR", u"keep everything of the office in this folder"_s,
         u"همه چیز دفتر در این پوشه نگهداری شود"_s},
        {"connect", connectForm, u"work on an office server instead of a private one, or on the nodes of a cluster"_s,
         u"کار با سرور دفتر به جای پایگاه داده همراه برنامه، یا با گره‌های یک خوشه"_s},
        {"user", "NAME", u"account on the office server"_s, u"حساب کاربری روی سرور دفتر"_s},
        {"password-file", "FILE", u"file whose first line is that account's password (asked for otherwise)"_s,
         u"پرونده‌ای که سطر نخست آن کلمه عبور آن حساب است (وگرنه پرسیده می‌شود)"_s},
        {"tls", nullptr, u"refuse an office server that does not prove who it is"_s,
         u"سروری که هویت خود را ثابت نکند پذیرفته نشود"_s},
        {"ca", "FILE", u"certificate authority for --tls (the system's otherwise)"_s,
         u"گواهی مرجع برای --tls (وگرنه مراجع سیستم)"_s},
        {"demo", nullptr, u"open a demo office; user demo, password demo"_s,
         u"باز کردن دفتر نمونه؛ کاربر demo و کلمه عبور demo"_s},
        {"demo-size", "N", u"contracts of a new demo office (300)"_s,
         u"شمار قراردادهای دفتر نمونه تازه (300)"_s},
        {"module-dir", "DIR", u"folder of the dealership module"_s,
         u"پوشه افزونه گالری اتومبیل"_s},
        {"help", nullptr, u"show this text"_s, u"نمایش همین متن"_s},
        {"version", nullptr, u"show the version"_s, u"نمایش نسخه برنامه"_s},
    };
    return options;
}

void declare(QCommandLineParser &parser)
{
    for (const Option &option : shownOptions())
        parser.addOption(QCommandLineOption(QString::fromLatin1(option.name), option.english,
                                            QString::fromLatin1(option.value ? option.value : "")));
    parser.addOption(QCommandLineOption(u"quit-after-login-shown"_s));
}

// HOST[:PORT], an IPv6 address in brackets.
std::optional<KServerAddress> serverAt(const QString &text)
{
    static const QRegularExpression form(uR"(^(?:\[([^\[\]]+)\]|([^\[\]:]+))(?::(\d+))?$)"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    KServerAddress server;
    server.host = match.captured(1) + match.captured(2);
    if (match.hasCaptured(3))
        server.port = match.captured(3).toUShort();
    return server.port == 0 ? std::nullopt : std::optional(server);
}

// HOST[:PORT][,HOST[:PORT]...]/DATABASE
bool readAddress(const QString &address, HostOptions &options)
{
    const qsizetype slash = address.indexOf(u'/');
    if (slash <= 0 || slash + 1 == address.size())
        return false;
    options.database = address.mid(slash + 1);
    for (const QString &text : address.left(slash).split(u',')) {
        const std::optional<KServerAddress> server = serverAt(text);
        if (!server)
            return false;
        options.furtherNodes.append(*server);
    }
    options.host = options.furtherNodes.constFirst().host;
    options.port = static_cast<quint16>(options.furtherNodes.takeFirst().port);
    return true;
}

struct Problem
{
    QString english;
    QString persian;

    QString in(bool wantsPersian) const { return wantsPersian ? persian : english; }
};

Problem contradiction(const QCommandLineParser &parser, const HostOptions &options)
{
    if (options.connect && options.demo)
        return {u"--demo fills an office of its own and cannot be used with --connect."_s,
                u"--demo دفتر جداگانه خود را می‌سازد و همراه --connect به کار نمی‌رود."_s};
    for (const char *name : {"user", "password-file", "tls", "ca"})
        if (!options.connect && parser.isSet(QString::fromLatin1(name)))
            return {u"--%1 needs --connect."_s.arg(QString::fromLatin1(name)),
                    u"--%1 همراه --connect معنا دارد."_s.arg(QString::fromLatin1(name))};
    if (options.connect && options.user.isEmpty())
        return {u"--connect needs --user."_s, u"--connect به --user نیاز دارد."_s};
    if (!options.tls && !options.caFile.isEmpty())
        return {u"--ca needs --tls."_s, u"--ca همراه --tls معنا دارد."_s};
    if (!options.demo && parser.isSet(u"demo-size"_s))
        return {u"--demo-size needs --demo."_s, u"--demo-size همراه --demo معنا دارد."_s};
    return {};
}

void readValues(const QCommandLineParser &parser, HostOptions &options)
{
    options.dataDir = parser.value(u"data-dir"_s);
    options.moduleDir = parser.value(u"module-dir"_s);
    options.connect = parser.isSet(u"connect"_s);
    options.user = parser.value(u"user"_s);
    options.passwordFile = parser.value(u"password-file"_s);
    options.tls = parser.isSet(u"tls"_s);
    options.caFile = parser.value(u"ca"_s);
    options.demo = parser.isSet(u"demo"_s);
    options.help = parser.isSet(u"help"_s);
    options.version = parser.isSet(u"version"_s);
    options.quitAfterLoginShown = parser.isSet(u"quit-after-login-shown"_s);
}

Problem firstProblem(const QCommandLineParser &parser, HostOptions &options)
{
    if (!parser.positionalArguments().isEmpty())
        return {u"Unexpected argument \"%1\"."_s.arg(parser.positionalArguments().constFirst()),
                u"آرگومان «%1» شناخته نشد."_s.arg(parser.positionalArguments().constFirst())};
    const QString address = parser.value(u"connect"_s);
    if (options.connect && !readAddress(address, options))
        return {u"--connect takes %1, not \"%2\"."_s.arg(QString::fromLatin1(connectForm), address),
                u"نشانی --connect باید به شکل %1 باشد، نه «%2»."_s.arg(QString::fromLatin1(connectForm), address)};
    if (parser.isSet(u"demo-size"_s)) {
        bool isNumber = false;
        options.demoSize = parser.value(u"demo-size"_s).toInt(&isNumber);
        if (!isNumber || options.demoSize < 1 || options.demoSize > HostOptions::largestDemo)
            return {u"--demo-size takes a number from 1 to %1."_s.arg(HostOptions::largestDemo),
                    u"--demo-size باید عددی از 1 تا %1 باشد."_s.arg(HostOptions::largestDemo)};
    }
    return contradiction(parser, options);
}

}

HostOptions HostOptions::parse(const QStringList &arguments, bool persian)
{
    QCommandLineParser parser;
    declare(parser);
    HostOptions options;
    if (!parser.parse(QStringList(u"tzhost"_s) + arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        options.error = unknown.isEmpty() ? parser.errorText()
            : persian                     ? u"گزینه «%1» شناخته نشد."_s.arg(unknown.constFirst())
                                          : u"Unknown option \"%1\"."_s.arg(unknown.constFirst());
        return options;
    }
    readValues(parser, options);
    if (!options.help && !options.version)
        options.error = firstProblem(parser, options).in(persian);
    return options;
}

QString HostOptions::helpText(bool persian)
{
    QString text = persian ? u"حسابداری نمایشگاه اتومبیل\n\nکاربرد: tzhost [گزینه‌ها]\n\n"_s
                           : u"Accounting of a car dealership\n\nUsage: tzhost [options]\n\n"_s;
    for (const Option &option : shownOptions()) {
        QString form = u"  --"_s + QString::fromLatin1(option.name);
        if (option.value)
            form += u' ' + QString::fromLatin1(option.value);
        text += form + u"\n        "_s + (persian ? option.persian : option.english) + u'\n';
    }
    return text;
}

QString HostOptions::versionText(bool persian)
{
    const QString version = u"" TZ_VERSION ""_s;
    return (persian ? u"TzAuto نسخه %1\n"_s : u"TzAuto %1\n"_s).arg(version);
}

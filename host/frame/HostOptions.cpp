// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostOptions.h"

#include <QCommandLineParser>

namespace {

struct Option
{
    const char *name;
    const char *value; // null: the option takes none
    QString english;
    QString persian;
};

const QList<Option> &shownOptions()
{
    static const QList<Option> options = {
        {"data-dir", "DIR", QStringLiteral("keep everything of the office in this folder"),
         QStringLiteral("همه چیز دفتر در این پوشه نگهداری شود")},
        {"connect", "HOST[:PORT]/DATABASE", QStringLiteral("work on an office server instead of a private one"),
         QStringLiteral("کار با سرور دفتر به جای پایگاه داده همراه برنامه")},
        {"user", "NAME", QStringLiteral("account on the office server"), QStringLiteral("حساب کاربری روی سرور دفتر")},
        {"password-file", "FILE", QStringLiteral("file whose first line is that account's password (asked for otherwise)"),
         QStringLiteral("پرونده‌ای که سطر نخست آن کلمه عبور آن حساب است (وگرنه پرسیده می‌شود)")},
        {"tls", nullptr, QStringLiteral("refuse an office server that does not prove who it is"),
         QStringLiteral("سروری که هویت خود را ثابت نکند پذیرفته نشود")},
        {"ca", "FILE", QStringLiteral("certificate authority for --tls (the system's otherwise)"),
         QStringLiteral("گواهی مرجع برای --tls (وگرنه مراجع سیستم)")},
        {"demo", nullptr, QStringLiteral("open a made-up office; user demo, password demo"),
         QStringLiteral("باز کردن دفتر نمونه؛ کاربر demo و کلمه عبور demo")},
        {"demo-size", "N", QStringLiteral("contracts of a new made-up office (300)"),
         QStringLiteral("شمار قراردادهای دفتر نمونه تازه (300)")},
        {"module-dir", "DIR", QStringLiteral("folder of the dealership module"),
         QStringLiteral("پوشه افزونه گالری اتومبیل")},
        {"help", nullptr, QStringLiteral("show this text"), QStringLiteral("نمایش همین متن")},
        {"version", nullptr, QStringLiteral("show the version"), QStringLiteral("نمایش نسخه برنامه")},
    };
    return options;
}

void declare(QCommandLineParser &parser)
{
    for (const Option &option : shownOptions())
        parser.addOption(QCommandLineOption(QString::fromLatin1(option.name), option.english,
                                            QString::fromLatin1(option.value ? option.value : "")));
    parser.addOption(QCommandLineOption(QStringLiteral("quit-after-login-shown")));
}

// HOST[:PORT]/DATABASE, an IPv6 address in brackets.
bool readAddress(const QString &address, HostOptions &options)
{
    const qsizetype slash = address.indexOf(u'/');
    if (slash <= 0 || slash + 1 == address.size())
        return false;
    options.database = address.mid(slash + 1);
    const QString server = address.left(slash);
    const qsizetype bracket = server.startsWith(u'[') ? server.indexOf(u']') : -1;
    const qsizetype colon = bracket > 0 ? server.indexOf(u':', bracket) : server.indexOf(u':');
    options.host = bracket > 0 ? server.mid(1, bracket - 1) : server.left(colon < 0 ? server.size() : colon);
    if (colon >= 0) {
        bool isNumber = false;
        options.port = server.mid(colon + 1).toUShort(&isNumber);
        if (!isNumber || options.port == 0)
            return false;
    }
    return !options.host.isEmpty();
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
        return {QStringLiteral("--demo fills an office of its own and cannot be used with --connect."),
                QStringLiteral("--demo دفتر جداگانه خود را می‌سازد و همراه --connect به کار نمی‌رود.")};
    for (const char *name : {"user", "password-file", "tls", "ca"})
        if (!options.connect && parser.isSet(QString::fromLatin1(name)))
            return {QStringLiteral("--%1 needs --connect.").arg(QString::fromLatin1(name)),
                    QStringLiteral("--%1 همراه --connect معنا دارد.").arg(QString::fromLatin1(name))};
    if (options.connect && options.user.isEmpty())
        return {QStringLiteral("--connect needs --user."), QStringLiteral("--connect به --user نیاز دارد.")};
    if (!options.tls && !options.caFile.isEmpty())
        return {QStringLiteral("--ca needs --tls."), QStringLiteral("--ca همراه --tls معنا دارد.")};
    if (!options.demo && parser.isSet(QStringLiteral("demo-size")))
        return {QStringLiteral("--demo-size needs --demo."), QStringLiteral("--demo-size همراه --demo معنا دارد.")};
    return {};
}

void readValues(const QCommandLineParser &parser, HostOptions &options)
{
    options.dataDir = parser.value(QStringLiteral("data-dir"));
    options.moduleDir = parser.value(QStringLiteral("module-dir"));
    options.connect = parser.isSet(QStringLiteral("connect"));
    options.user = parser.value(QStringLiteral("user"));
    options.passwordFile = parser.value(QStringLiteral("password-file"));
    options.tls = parser.isSet(QStringLiteral("tls"));
    options.caFile = parser.value(QStringLiteral("ca"));
    options.demo = parser.isSet(QStringLiteral("demo"));
    options.help = parser.isSet(QStringLiteral("help"));
    options.version = parser.isSet(QStringLiteral("version"));
    options.quitAfterLoginShown = parser.isSet(QStringLiteral("quit-after-login-shown"));
}

Problem firstProblem(const QCommandLineParser &parser, HostOptions &options)
{
    if (!parser.positionalArguments().isEmpty())
        return {QStringLiteral("Unexpected argument \"%1\".").arg(parser.positionalArguments().constFirst()),
                QStringLiteral("آرگومان «%1» شناخته نشد.").arg(parser.positionalArguments().constFirst())};
    const QString address = parser.value(QStringLiteral("connect"));
    if (options.connect && !readAddress(address, options))
        return {QStringLiteral("--connect takes HOST[:PORT]/DATABASE, not \"%1\".").arg(address),
                QStringLiteral("نشانی --connect باید به شکل HOST[:PORT]/DATABASE باشد، نه «%1».").arg(address)};
    if (parser.isSet(QStringLiteral("demo-size"))) {
        bool isNumber = false;
        options.demoSize = parser.value(QStringLiteral("demo-size")).toInt(&isNumber);
        if (!isNumber || options.demoSize < 1 || options.demoSize > HostOptions::largestDemo)
            return {QStringLiteral("--demo-size takes a number from 1 to %1.").arg(HostOptions::largestDemo),
                    QStringLiteral("--demo-size باید عددی از 1 تا %1 باشد.").arg(HostOptions::largestDemo)};
    }
    return contradiction(parser, options);
}

}

HostOptions HostOptions::parse(const QStringList &arguments, bool persian)
{
    QCommandLineParser parser;
    declare(parser);
    HostOptions options;
    if (!parser.parse(QStringList(QStringLiteral("tzhost")) + arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        options.error = unknown.isEmpty() ? parser.errorText()
            : persian                     ? QStringLiteral("گزینه «%1» شناخته نشد.").arg(unknown.constFirst())
                                          : QStringLiteral("Unknown option \"%1\".").arg(unknown.constFirst());
        return options;
    }
    readValues(parser, options);
    if (!options.help && !options.version)
        options.error = firstProblem(parser, options).in(persian);
    return options;
}

QString HostOptions::helpText(bool persian)
{
    QString text = persian ? QStringLiteral("حسابداری نمایشگاه اتومبیل\n\nکاربرد: tzhost [گزینه‌ها]\n\n")
                           : QStringLiteral("Accounting of a car dealership\n\nUsage: tzhost [options]\n\n");
    for (const Option &option : shownOptions()) {
        QString form = QStringLiteral("  --") + QString::fromLatin1(option.name);
        if (option.value)
            form += u' ' + QString::fromLatin1(option.value);
        text += form + QStringLiteral("\n        ") + (persian ? option.persian : option.english) + u'\n';
    }
    return text;
}

QString HostOptions::versionText(bool persian)
{
    const QString version = QStringLiteral(TZ_VERSION);
    return (persian ? QStringLiteral("TzAuto نسخه %1\n") : QStringLiteral("TzAuto %1\n")).arg(version);
}

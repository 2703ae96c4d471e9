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
        {"demo-day", "DAY", u"day that is today in a new demo office, such as 2026-11-23"_s,
         u"روزی که در دفتر نمونه تازه امروز است، مانند 2026-11-23"_s},
        {"module-dir", "DIR", u"folder of the dealership module"_s,
         u"پوشه افزونه گالری اتومبیل"_s},
        {"backup", "FILE", u"take a backup into this file, or under a name of its own into this folder, and end"_s,
         u"گرفتن پشتیبان در این پرونده، یا با نامی از خود در این پوشه، و پایان"_s},
        {"verify", "FILE", u"prove that a backup can be restored, and end"_s, u"آزمودن اینکه پشتیبان بازگردانده می‌شود، و پایان"_s},
        {"restore", "FILE", u"put a backup in the place of the office's present state, which is backed up before, and end"_s,
         u"نشاندن پشتیبان به جای وضع کنونی دفتر، که پیش از آن از آن پشتیبان گرفته می‌شود، و پایان"_s},
        {"to", "TIME", u"bring what --restore puts back forward by the binary log, to \"now\", \"1405/09/01 14:20\" or \"2026-11-22T14:20\""_s,
         u"آنچه --restore بازمی‌گرداند با ثبت تغییرات تا «now»، «1405/09/01 14:20» یا «2026-11-22T14:20» پیش برده می‌شود"_s},
        {"list-backups", nullptr, u"list the backups of the data folder, and end"_s, u"فهرست پشتیبان‌های پوشه اطلاعات، و پایان"_s},
        {"decrypt", "FILE", u"decrypt a backup into the file of --output, for zstd -d, and end"_s,
         u"رمزگشایی پشتیبان در پرونده --output، برای zstd -d، و پایان"_s},
        {"output", "FILE", u"file that --decrypt writes"_s, u"پرونده‌ای که --decrypt می‌نویسد"_s},
        {"passphrase-file", "FILE", u"file whose first line encrypts or opens the backup; - for the standard input"_s,
         u"پرونده‌ای که سطر نخست آن پشتیبان را رمز یا باز می‌کند؛ - یعنی ورودی استاندارد"_s},
        {"normal-priority", nullptr, u"with --verify: do not give way to other programs"_s, u"همراه --verify: اولویت برنامه کم نشود"_s},
        {"rebuild-search", nullptr, u"make anew what records are found by, and end"_s, u"بازسازی فهرست جستجو، و پایان"_s},
        {"check-books", nullptr, u"compare the kept sums of accounts with the documents, and end"_s, u"سنجش جمع‌های حساب‌ها با اسناد، و پایان"_s},
        {"mend", nullptr, u"with --check-books: correct the sums that differ"_s, u"همراه --check-books: جمع‌هایی که نمی‌خواند درست شود"_s},
        {"manual-pdf", "FILE", u"write the manual into this file as a PDF, and end"_s, u"نوشتن راهنما در این پرونده PDF، و پایان"_s},
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
    // For the program itself.
    parser.addOption(QCommandLineOption(u"quit-after-login-shown"_s));
    parser.addOption(QCommandLineOption(u"look-into"_s, {}, u"FILE"_s));
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

QStringList namesOf(const QCommandLineParser &parser, std::initializer_list<const char *> options)
{
    QStringList set;
    for (const char *name : options) {
        if (parser.isSet(QString::fromLatin1(name)))
            set << QString::fromLatin1(name);
    }
    return set;
}

Problem contradictionOfBackups(const QCommandLineParser &parser, const HostOptions &options)
{
    const QStringList commands = namesOf(parser, {"backup", "verify", "restore", "list-backups", "decrypt"});
    if (commands.size() > 1)
        return {u"--%1 and --%2 cannot be used together."_s.arg(commands[0], commands[1]), u"--%1 و --%2 با هم به کار نمی‌روند."_s.arg(commands[0], commands[1])};
    const QStringList details = namesOf(parser, {"output", "normal-priority", "passphrase-file", "to"});
    if (commands.isEmpty())
        return details.isEmpty() ? Problem() : Problem{u"--%1 needs a command for backups, such as --backup."_s.arg(details[0]), u"--%1 همراه یکی از فرمان‌های پشتیبان، مانند --backup، معنا دارد."_s.arg(details[0])};
    if (options.normalPriority && options.verifyFile.isEmpty())
        return {u"--normal-priority needs --verify."_s, u"--normal-priority همراه --verify معنا دارد."_s};
    if (!options.isBackupCommand())
        return {u"--%1 needs the name of a file."_s.arg(commands[0]), u"--%1 به نام پرونده نیاز دارد."_s.arg(commands[0])};
    if (parser.isSet(u"to"_s) && (options.restoreFile.isEmpty() || options.connect))
        return {u"--to needs --restore and the program's own server."_s, u"--to همراه --restore و با سرور خود برنامه معنا دارد."_s};
    if (options.decryptFile.isEmpty() != options.outputFile.isEmpty())
        return {u"--decrypt and --output need each other."_s, u"--decrypt و --output همراه هم معنا دارند."_s};
    if (!options.decryptFile.isEmpty() && options.passphraseFile.isEmpty())
        return {u"--decrypt needs --passphrase-file."_s, u"--decrypt به --passphrase-file نیاز دارد."_s};
    if (options.demo)
        return {u"--demo cannot be used with --%1; name its folder by --data-dir."_s.arg(commands[0]), u"--demo همراه --%1 به کار نمی‌رود؛ پوشه آن را با --data-dir نام ببرید."_s.arg(commands[0])};
    if (options.connect && options.passwordFile.isEmpty() && !(options.backupFile.isEmpty() && options.restoreFile.isEmpty()))
        return {u"--%1 with --connect needs --password-file."_s.arg(commands[0]), u"--%1 همراه --connect به --password-file نیاز دارد."_s.arg(commands[0])};
    return {};
}

Problem contradictionOfBooks(const QCommandLineParser &parser, const HostOptions &options)
{
    const QStringList others = namesOf(parser, {"backup", "verify", "restore", "list-backups", "decrypt", "rebuild-search", "manual-pdf", "demo"});
    if (!others.isEmpty())
        return {u"--check-books and --%1 cannot be used together."_s.arg(others[0]), u"--check-books و --%1 با هم به کار نمی‌روند."_s.arg(others[0])};
    if (options.connect && options.passwordFile.isEmpty())
        return {u"--check-books with --connect needs --password-file."_s, u"--check-books همراه --connect به --password-file نیاز دارد."_s};
    return {};
}

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
    for (const QString &ofDemo : {u"demo-size"_s, u"demo-day"_s}) {
        if (!options.demo && parser.isSet(ofDemo))
            return {u"--%1 needs --demo."_s.arg(ofDemo), u"--%1 همراه --demo معنا دارد."_s.arg(ofDemo)};
    }
    if (parser.isSet(u"manual-pdf"_s) && options.manualPdf.isEmpty())
        return {u"--manual-pdf needs the name of a file."_s, u"--manual-pdf به نام پرونده نیاز دارد."_s};
    if (options.mend && !options.checkBooks)
        return {u"--mend needs --check-books."_s, u"--mend همراه --check-books معنا دارد."_s};
    if (options.checkBooks)
        return contradictionOfBooks(parser, options);
    return contradictionOfBackups(parser, options);
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
    options.backupFile = parser.value(u"backup"_s);
    options.verifyFile = parser.value(u"verify"_s);
    options.restoreFile = parser.value(u"restore"_s);
    options.restoreTo = parser.value(u"to"_s);
    options.listBackups = parser.isSet(u"list-backups"_s);
    options.decryptFile = parser.value(u"decrypt"_s);
    options.outputFile = parser.value(u"output"_s);
    options.normalPriority = parser.isSet(u"normal-priority"_s);
    options.passphraseFile = parser.value(u"passphrase-file"_s);
    options.lookInto = parser.value(u"look-into"_s);
    options.rebuildSearch = parser.isSet(u"rebuild-search"_s);
    options.checkBooks = parser.isSet(u"check-books"_s);
    options.mend = parser.isSet(u"mend"_s);
    options.manualPdf = parser.value(u"manual-pdf"_s);
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
    if (parser.isSet(u"demo-day"_s)) {
        options.demoDay = QDate::fromString(parser.value(u"demo-day"_s), Qt::ISODate);
        if (!options.demoDay.isValid() || options.demoDay > QDate::currentDate())
            return {u"--demo-day takes a day that has begun, such as 2026-11-23."_s, u"--demo-day باید روزی باشد که آغاز شده است، مانند 2026-11-23."_s};
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

bool HostOptions::isBackupCommand() const
{
    return listBackups || !(backupFile.isEmpty() && verifyFile.isEmpty() && restoreFile.isEmpty() && decryptFile.isEmpty());
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
    text += persian ? u"\nفرمان‌های پشتیبان با این عددها پایان می‌یابند: 0 انجام شد، 1 انجام نشد، 2 گزینه نادرست، 3 پشتیبان ایراد دارد، "
                      "4 پوشه یا پایگاه داده در دست دیگری است، 5 گذرواژه نادرست، 6 بازگردانده شد ولی نه تا آخرین دقیقه\n"
                      "--check-books: 0 جمع‌ها می‌خواند یا درست شد، 3 نمی‌خواند\n"_s
                    : u"\nThe commands for backups end with: 0 done, 1 failed, 2 wrong options, 3 the backup is faulty, "
                      "4 the folder or database is in use, 5 wrong passphrase, 6 restored, but not to the last minute\n"
                      "--check-books: 0 the sums agree or were mended, 3 they differ\n"_s;
    return text;
}

QString HostOptions::versionText(bool persian)
{
    const QString version = u"" TZ_VERSION ""_s;
    return (persian ? u"TzAuto نسخه %1\n"_s : u"TzAuto %1\n"_s).arg(version);
}

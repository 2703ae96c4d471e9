// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/BooksCommands.h"

#include "host/frame/HostOptions.h"
#include "host/start/ConsoleLines.h"
#include "host/start/OfficeAccess.h"
#include "suite/accounting/books/totals/TotalsCheck.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/db/connection/KLongWork.h"

using namespace Qt::StringLiterals;

namespace {

using ConsoleLines::complain;
using ConsoleLines::say;

QString counted(qsizetype differences, bool isMended, bool persian)
{
    if (differences == 0)
        return persian ? u"جمع‌های حساب‌ها با اسناد می‌خواند."_s : u"the sums of accounts agree with the documents"_s;
    if (isMended)
        return (persian ? u"%1 جمع درست شد."_s : u"%1 sums mended"_s).arg(differences);
    return (persian ? u"%1 جمع با اسناد نمی‌خواند؛ --mend آنها را درست می‌کند."_s : u"%1 sums differ; --mend corrects them"_s).arg(differences);
}

int checkBooks(const HostOptions &options, const DataFolder &folder, bool persian)
{
    OfficeAccess office(options, folder);
    office.open();
    const KLongWork work;
    // The command changes no schema, and an older one has no such sums.
    if (SuiteSchema::storedVersion() != SuiteSchema::currentVersion()) {
        complain(persian ? u"پایگاه داده از نسخه دیگری از برنامه است؛ نخست دفتر را با این نسخه باز کنید."_s
                         : u"the database is of another version of the program; open the office with this one first"_s);
        return BooksCommands::Failed;
    }
    const QList<TotalsCheck::Difference> differences = options.mend ? TotalsCheck::mend() : TotalsCheck::find();
    for (const TotalsCheck::Difference &difference : differences)
        say(difference.line());
    say(counted(differences.size(), options.mend, persian));
    return differences.isEmpty() || options.mend ? BooksCommands::Done : BooksCommands::Different;
}

}

namespace BooksCommands {

int run(const HostOptions &options, const DataFolder &folder, bool persian)
{
    try {
        return checkBooks(options, folder, persian);
    } catch (const ServerError &error) {
        complain(error.userMessage());
        complain(error.detail());
    } catch (const std::exception &error) {
        complain(QString::fromUtf8(error.what()));
    }
    return Failed;
}

}

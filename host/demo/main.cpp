// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/AutoSearch.h"
#include "host/demo/ClientConfig.h"
#include "host/demo/DemoData.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/accounting/search/SearchFilling.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/treasury/subjects/TreasurySearch.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int exitFailed = 1;
constexpr int exitWrongOptions = 2;

// Once it is filled: the keys of many records are made faster together.
void makeSearchable()
{
    OfficeSearch::enter();
    CrmSearch::enter();
    TreasurySearch::enter();
    AutoSearch::enter();
    SearchFilling::fill();
}

}

// Fills the database of a client configuration with a demo office. tzhost starts it; it can also be run by hand.
int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"client-config"_s, u"options file that tells how to reach the database"_s,
                        u"FILE"_s},
                       {u"contracts"_s, u"number of contracts"_s, u"N"_s,
                        u"300"_s},
                       {u"day"_s, u"day that is today in the office, such as 2026-11-23; the computer's today otherwise"_s,
                        u"DAY"_s}});
    parser.addHelpOption();
    parser.process(application);

    const auto settings = ClientConfig::read(parser.value(u"client-config"_s));
    const int contracts = parser.value(u"contracts"_s).toInt();
    const QDate day = parser.isSet(u"day"_s) ? QDate::fromString(parser.value(u"day"_s), Qt::ISODate) : QDate::currentDate();
    if (!day.isValid() || day > QDate::currentDate()) {
        std::fputs("tz-demo-data: --day takes a day that has begun, such as 2026-11-23\n", stderr);
        return exitWrongOptions;
    }
    if (!settings || contracts < 1 || contracts > DemoData::largest) {
        std::fputs(settings ? "tz-demo-data: --contracts takes a number from 1\n"
                            : "tz-demo-data: --client-config names no file that can be read\n",
                   stderr);
        return exitWrongOptions;
    }
    KConnection::configure(0, *settings);
    try {
        DemoData::fill(contracts, day);
        makeSearchable();
    } catch (...) {
        const std::exception_ptr error = std::current_exception();
        std::fprintf(stderr, "tz-demo-data: %s\n", qUtf8Printable(KErrorText::logText(error)));
        return exitFailed;
    }
    return 0;
}

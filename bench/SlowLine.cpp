// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// A clerk's operations behind a line on which each packet is under way for 30 ms: how many round trips each takes, and how long. A table of all
// of them is printed; of each kind of operation the one that takes most of either is judged. Trips are the same on any computer.

#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "host/frame/HostLook.h"
#include "suite/accounting/frame/KApplication.h"
#include "tests/host/desk/DeskAtWork.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int delay = 30; // milliseconds, in either direction

struct Kind
{
    QString name;                                    // of its samples
    std::function<bool(const QString &)> isOfIt; // the operation of that name
};

const QList<Kind> &kinds()
{
    static const QList<Kind> all{{u"login"_s, [](const QString &name) { return name.startsWith("login"_L1); }},
                                 {u"list"_s, [](const QString &name) { return name.startsWith("list of "_L1); }},
                                 {u"save"_s, [](const QString &name) { return name.contains(", saved"_L1); }},
                                 {u"row"_s, [](const QString &name) { return name.startsWith("row "_L1); }},
                                 {u"editor"_s, [](const QString &) { return true; }}};
    return all;
}

std::string kindOf(const QString &operation)
{
    return std::ranges::find_if(kinds(), [&operation](const Kind &kind) { return kind.isOfIt(operation); })->name.toStdString();
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    const size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// Of one kind, in each round, what the operation that takes most of it takes.
using Worst = std::map<std::string, std::vector<double>>;

void note(Worst &worst, const std::string &name, size_t round, double value)
{
    std::vector<double> &rounds = worst[name];
    rounds.resize(std::max(rounds.size(), round + 1));
    rounds[round] = std::max(rounds[round], value);
}

}

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    HostLook::apply(application);
    DeskAtWork desk(Trial::size(1'000));
    desk.line().setDelay(Trial::isOn() ? 2 : delay);
    const auto rounds = static_cast<size_t>(Trial::repetitions(5));
    Worst worst;
    std::printf("%-28s %8s %8s %8s %10s\n", "operation", "first", "again", "bound", "ms");
    for (const DeskAtWork::Operation &operation : DeskAtWork::operations()) {
        std::vector<double> trips;
        std::vector<double> times;
        for (size_t round = 0; round < rounds; ++round) {
            const std::optional<DeskAtWork::Cost> cost = operation.run(desk);
            if (!cost || cost->trips == 0) {
                std::fprintf(stderr, "%s could not be done\n", qPrintable(operation.name));
                return 1;
            }
            trips.push_back(cost->trips);
            times.push_back(double(cost->milliseconds));
            note(worst, kindOf(operation.name) + "Trips", round, cost->trips);
            note(worst, kindOf(operation.name) + "Time", round, double(cost->milliseconds));
        }
        std::printf("%-28s %8.0f %8.0f %8d %10.0f\n", qPrintable(operation.name), trips.front(), trips.back(), operation.most, median(times));
        std::fflush(stdout);
    }
    SampleReporter reporter;
    for (const auto &[name, values] : worst) {
        for (const double value : values)
            reporter.add(name, value);
    }
    return reporter.finish() ? 0 : 1;
}

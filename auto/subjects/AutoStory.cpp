// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/AutoStory.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/subjects/CarStory.h"
#include "auto/subjects/ContractStory.h"
#include "auto/subjects/StoryHeads.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/timeline/StorySources.h"

using namespace Qt::StringLiterals;

namespace {

const QString storedCars = u"AutomobilInformations"_s;
const QString storedContracts = u"AutomobilContracts"_s;
const QString storedDemands = u"AutomobilDemands"_s;

// A person's story holds that of their contracts, of which the suite knows nothing.
void addPersonsContracts(StoryScope &scope, int limit, int database)
{
    if (scope.table == "Persons"_L1)
        ContractStory::addOfPerson(scope, limit, database);
}

void enterStories()
{
    StorySources::enter(StorySubject{.table = storedCars,
                                     .caption = u"سرگذشت خودرو"_s,
                                     .entered = u"خودرو معرفی شد"_s,
                                     .recordKind = CTblAutomobilInformations::recordKind,
                                     .hasPicture = true,
                                     .first = {u"iPersonID"_s, u"dAmount"_s},
                                     .head = &StoryHeads::ofCar,
                                     .widen = &ContractStory::addOfCar,
                                     .tell = &CarStory::tell});
    StorySources::enter(StorySubject{.table = storedContracts,
                                     .caption = u"سرگذشت قرارداد"_s,
                                     .entered = u"قرارداد نوشته شد"_s,
                                     .recordKind = CTblAutomobilContracts::recordKind,
                                     .first = {u"iPersonFirstID"_s, u"iPersonSecondID"_s, u"dAmount"_s},
                                     .head = &StoryHeads::ofContract,
                                     .tell = &ContractStory::tell});
    StorySources::enter(StorySubject{.table = storedDemands,
                                     .caption = u"سرگذشت تقاضا"_s,
                                     .entered = u"تقاضا ثبت شد"_s,
                                     .recordKind = CTblAutomobilDemands::recordKind,
                                     .first = {u"iAutomobilType"_s, u"dAmountUpTo"_s},
                                     .head = &StoryHeads::ofDemand});
}

const QList<StorySource> &moduleSources()
{
    static const QList<StorySource> list{
        {.id = u"contracts"_s, .form = storedContracts, .columns = &ContractStory::contracts, .tell = &ContractStory::tellContract, .widen = &addPersonsContracts},
        {.id = u"returns"_s, .form = storedContracts, .columns = &ContractStory::returns, .tell = &ContractStory::tellReturn},
        {.id = u"instalments"_s, .form = storedContracts, .columns = &ContractStory::instalments, .tell = &ContractStory::tellInstalment},
        {.id = u"matches"_s, .form = storedDemands, .read = &CarStory::matchingDemands},
        {.id = u"offers"_s, .form = storedCars, .read = &CarStory::matchingCars},
        {.id = u"cars"_s, .form = storedCars, .columns = &CarStory::cars, .tell = &CarStory::tellCar},
        {.id = u"demands"_s, .form = storedDemands, .columns = &CarStory::demands, .tell = &CarStory::tellDemand},
    };
    return list;
}

}

AutoStory::AutoStory()
{
    enterStories();
    for (const StorySource &source : moduleSources())
        StorySources::enter(source);
}

// The functions that they hold are the module's.
AutoStory::~AutoStory()
{
    for (const QString &table : {storedCars, storedContracts, storedDemands})
        StorySources::removeSubject(table);
    for (const StorySource &source : moduleSources())
        StorySources::removeSource(source.id);
}

void AutoStory::enter()
{
    static const AutoStory entered;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/AutoSearch.h"

#include "auto/subjects/CarFacts.h"
#include "auto/words/WordLists.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/accounting/search/SearchValues.h"

using namespace Qt::StringLiterals;

namespace {

using namespace SearchText;
using namespace SearchValues;

QString either(const QString &first, const QString &second)
{
    return first.isEmpty() ? second : first;
}

QStringList keysOfContract(const SearchRow &row)
{
    QStringList keys = ofNumber(row.at(3).toLongLong()) + ofNumber(row.at(4).toLongLong());
    for (const int name : {5, 6, 7, 8, 17})
        keys += ofName(row.at(name));
    for (const int telephone : {9, 10})
        keys += ofTelephone(row.at(telephone));
    for (const int code : {11, 12})
        keys += ofCode(row.at(code));
    keys += ofPlate(row.at(13));
    for (const int number : {14, 15, 16, 18, 19})
        keys += ofLongNumber(row.at(number));
    for (const int text : {20, 21})
        keys += ofExplanation(row.at(text));
    return keys;
}

SearchHit contractHit(const SearchRow &row)
{
    const QString number = row.at(2).toInt() != 0 ? row.at(2) : row.at(1);
    const QString seller = either(row.at(4), row.at(6));
    const QString buyer = either(row.at(5), row.at(7));
    const QString parties = seller.isEmpty() || buyer.isEmpty() ? seller + buyer : u"%1 به %2"_s.arg(seller, buyer);
    return {.title = u"قرارداد %1، %2"_s.arg(number, WordLists::textAt(WordLists::contractTypes(), row.at(3).toInt())),
            .line = joined({parties, row.at(8), row.at(9), money(row.at(10))}),
            .aside = row.at(12).toInt() != 0 ? u"بایگانی"_s : day(row.at(11))};
}

void enterSoughtContracts()
{
    const KSql table = "AutomobilContracts t LEFT JOIN Persons p ON p.iID=t.iPersonFirstID LEFT JOIN Persons q ON q.iID=t.iPersonSecondID";
    SearchIndex::enter({.number = SearchKinds::Contracts,
                        .table = u"AutomobilContracts"_s,
                        .group = u"قراردادها"_s,
                        .form = u"AutomobilContracts"_s,
                        .columns = {u"iPersonFirstID"_s, u"iPersonSecondID"_s, u"iCode"_s, u"iNum"_s, u"sName1"_s, u"sName2"_s, u"sMobile1"_s, u"sMobile2"_s, u"sNationalId1"_s, u"sNationalId2"_s, u"sNumOfPlates"_s, u"sVIN"_s, u"sChassisNum"_s, u"sNumOfEngines"_s, u"sAutomobilName"_s, u"sTrackingCode"_s, u"sSerial"_s, u"sDesc"_s, u"sExplain"_s},
                        .keyColumns = {{u"t.iID"_s, u"t.iPersonFirstID"_s, u"t.iPersonSecondID"_s, u"t.iCode"_s, u"t.iNum"_s, u"p.sName2"_s, u"q.sName2"_s, u"t.sName1"_s, u"t.sName2"_s, u"t.sMobile1"_s, u"t.sMobile2"_s, u"t.sNationalId1"_s, u"t.sNationalId2"_s, u"t.sNumOfPlates"_s, u"t.sVIN"_s, u"t.sChassisNum"_s, u"t.sNumOfEngines"_s, u"t.sAutomobilName"_s, u"t.sTrackingCode"_s, u"t.sSerial"_s, u"t.sDesc"_s, u"t.sExplain"_s}, table},
                        .keys = &keysOfContract,
                        .persons = {1, 2},
                        .hitColumns = {{u"t.iID"_s, u"t.iCode"_s, u"t.iNum"_s, u"t.iContractType"_s, u"p.sName2"_s, u"q.sName2"_s, u"t.sName1"_s, u"t.sName2"_s, u"t.sAutomobilName"_s, u"t.sNumOfPlates"_s, u"t.dAmount"_s, u"t.dateContract"_s, u"t.iArchiveUserID"_s}, table},
                        .hit = &contractHit});
}

QStringList keysOfCar(const SearchRow &row)
{
    QStringList keys = ofNumber(row.at(3).toLongLong()) + ofName(row.at(4)) + ofName(row.at(5)) + ofPlate(row.at(6));
    for (const int number : {7, 8, 9, 10})
        keys += ofLongNumber(row.at(number));
    for (const int text : {11, 12})
        keys += ofExplanation(row.at(text));
    return keys;
}

SearchHit carHit(const SearchRow &row)
{
    const QString name = u"%1 %2 %3"_s.arg(row.at(2), row.at(3), row.at(4)).simplified();
    const bool sold = row.at(10).toInt() != 0;
    return {.title = joined({either(name, u"خودرو %1"_s.arg(row.at(1))), row.at(5), row.at(6) == "0"_L1 ? QString() : row.at(6)}),
            .line = joined({labelled(u"مالک:"_s, row.at(7)), labelled(u"پلاک"_s, row.at(8)), labelled(u"VIN"_s, row.at(9))}),
            .aside = sold ? u"فروخته شده"_s : row.at(11).toInt() != 0 ? u"بایگانی"_s
                                                                      : u"موجود"_s};
}

void enterSoughtCars()
{
    SearchIndex::enter({.number = SearchKinds::Cars,
                        .table = u"AutomobilInformations"_s,
                        .group = u"خودروها"_s,
                        .form = u"AutomobilInformations"_s,
                        .columns = {u"iPersonID"_s, u"iPersonBuyerID"_s, u"iCode"_s, u"sNumOfPlates"_s, u"sVIN"_s, u"sChassisNum"_s, u"sNumOfEngines"_s, u"sNumOfBodies"_s, u"sDesc"_s, u"sDescSpecial"_s},
                        .keyColumns = {{u"t.iID"_s, u"t.iPersonID"_s, u"t.iPersonBuyerID"_s, u"t.iCode"_s, u"p.sName2"_s, u"q.sName2"_s, u"t.sNumOfPlates"_s, u"t.sVIN"_s, u"t.sChassisNum"_s, u"t.sNumOfEngines"_s, u"t.sNumOfBodies"_s, u"t.sDesc"_s, u"t.sDescSpecial"_s}, "AutomobilInformations t LEFT JOIN Persons p ON p.iID=t.iPersonID LEFT JOIN Persons q ON q.iID=t.iPersonBuyerID"},
                        .keys = &keysOfCar,
                        .persons = {1, 2},
                        .hitColumns = {{u"t.iID"_s, u"t.iCode"_s, u"b.sName"_s, u"m.sName"_s, u"c.sName"_s, u"i.sName"_s, u"t.iYear"_s, u"p.sName2"_s, u"t.sNumOfPlates"_s, u"t.sVIN"_s, u"t.bSold"_s, u"t.iArchiveUserID"_s}, "AutomobilInformations t LEFT JOIN Persons p ON p.iID=t.iPersonID LEFT JOIN CarBrands b ON b.iID=t.iAutomobilType LEFT JOIN CarModels m ON m.iID=t.iModel LEFT JOIN CarClasses c ON c.iID=t.iBrigade LEFT JOIN Items i ON i.iID=t.iColor"},
                        .hit = &carHit,
                        .listKey = "ai.iID",
                        .facts = [](qint32 key, const QList<int> &readable, int database) { return CarFacts::of(key, readable, database); }});
}

void enterSoughtDemands()
{
    SearchIndex::enter({.number = SearchKinds::Demands,
                        .table = u"AutomobilDemands"_s,
                        .group = u"تقاضاها"_s,
                        .form = u"AutomobilDemands"_s,
                        .columns = {u"iPersonID"_s, u"iCode"_s, u"sDesc"_s, u"sDescSpecial"_s},
                        .keyColumns = {{u"t.iID"_s, u"t.iPersonID"_s, u"t.iCode"_s, u"p.sName2"_s, u"t.sDesc"_s, u"t.sDescSpecial"_s}, "AutomobilDemands t LEFT JOIN Persons p ON p.iID=t.iPersonID"},
                        .keys = [](const SearchRow &row) { return ofNumber(row.at(2).toLongLong()) + ofName(row.at(3)) + ofExplanation(row.at(4)) + ofExplanation(row.at(5)); },
                        .persons = {1},
                        .hitColumns = {{u"t.iID"_s, u"t.iCode"_s, u"p.sName2"_s, u"b.sName"_s, u"t.iModelFrom"_s, u"t.iModelUpTo"_s, u"t.dAmountUpTo"_s, u"t.dateReference"_s, u"t.iArchiveUserID"_s}, "AutomobilDemands t LEFT JOIN Persons p ON p.iID=t.iPersonID LEFT JOIN CarBrands b ON b.iID=t.iAutomobilType"},
                        .hit =
                            [](const SearchRow &row) {
                                const QString from = row.at(4) == "0"_L1 ? QString() : labelled(u"از مدل"_s, row.at(4));
                                return SearchHit{.title = joined({u"تقاضای %1"_s.arg(row.at(1)), row.at(2)}),
                                                 .line = joined({row.at(3), from, labelled(u"تا مبلغ"_s, money(row.at(6)))}),
                                                 .aside = row.at(8).toInt() != 0 ? u"بایگانی"_s : day(row.at(7))};
                            },
                        .listKey = "ad.iID"});
}

}

AutoSearch::AutoSearch()
{
    enterSoughtContracts();
    enterSoughtCars();
    enterSoughtDemands();
}

// The functions that they hold are the module's.
AutoSearch::~AutoSearch()
{
    for (const int kind : {SearchKinds::Contracts, SearchKinds::Cars, SearchKinds::Demands})
        SearchIndex::remove(kind);
}

void AutoSearch::enter()
{
    static const AutoSearch entered;
}

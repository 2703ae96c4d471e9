// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/BenchFilling.h"

#include "auto/subjects/AutoSearch.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/subjects/TreasurySearch.h"

#include <QList>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int codeOfTheDemo = 100'000; // codes of what is filled in begin behind it

void run(const QByteArray &statement)
{
    KConnection::forThread().run(statement);
}

// What the statements below say of row seq in the same way; a name in % stands for its expression.
QByteArray expanded(QByteArray statement, int contracts)
{
    static const QList<std::pair<QByteArray, QByteArray>> expressions{
        {"%first%", "ELT(1+MOD(seq,20),'علی','محمد','حسین','رضا','مریم','زهرا','فاطمه','امیر','سارا','مهدی','حسن','نرگس','احمد','سعید','لیلا','علیرضا','محمدرضا','کامران','بهزاد','شهرام')"},
        {"%family%", "CONCAT(ELT(1+MOD(seq DIV 20,25),'احمدی','محمدی','کریمی','رضایی','حسینی','موسوی','کشاورز','رستمی','صادقی','نجفی','فلاح','جعفری','قاسمی','هاشمی','اکبری','یوسفی','باقری','سلیمانی','مرادی','شریفی','عباسی','نوری','امینی','طاهری','دهقان'),IF(MOD(seq,3)=0,'',CONCAT('‌',ELT(1+MOD(seq DIV 500,7),'نژاد','پور','فر','زاده','تبار','راد','منش'))))"},
        {"%plate%", "CONCAT(10+MOD(seq,90),' ',ELT(1+MOD(seq,12),'ب','ج','د','س','ص','ط','ق','ل','م','ن','و','ه'),' ',LPAD(MOD(seq*7,1000),3,'0'),' ایران ',10+MOD(seq,80))"},
        {"%vin%", "CONCAT('NAA',LPAD(HEX(seq*2654435761),8,'0'),LPAD(seq,6,'0'))"},
        // Ten years, so that a day has many rows of the same date; some have none.
        {"%day%", "IF(MOD(seq,997)=0,NULL,DATE('2016-03-20')+INTERVAL seq*3650 DIV %rows% DAY)"},
        {"%amount%", "(1000000000+MOD(seq*104729,20000)*1000000)"},
        {"%year%", "(1395+(seq-1)*10 DIV %rows%)"},
        {"%number%", "(1000+MOD(seq-1,GREATEST(1,%contracts% DIV 10+1)))"},
    };
    for (const auto &[name, expression] : expressions)
        statement.replace(name, expression);
    statement.replace("%contracts%", QByteArray::number(contracts));
    statement.replace("%persons%", QByteArray::number(std::max(20, contracts / 2)));
    return statement.replace("%cars%", QByteArray::number(std::max(12, contracts * 3 / 10)));
}

// Names, numbers, texts, dates and states of a real office's variety, by the key of the row: ties, empty fields, archived and inactive rows.
void fillRecords(int contracts)
{
    const auto fill = [contracts](QByteArray statement, const char *rows) {
        statement = expanded(statement + " FROM seq_1_to_" + rows, contracts);
        run(expanded(statement.replace("%rows%", rows), contracts));
    };
    fill("INSERT INTO Persons(iCode,sName,sFamily,sName2,sMobile,sNationalCode) SELECT 100000+seq,%first%,%family%,CONCAT(%first%,' ',%family%),"
         "CONCAT('0912',LPAD(seq,7,'0')),LPAD(seq*7919,10,'0')", "%persons%");
    fill("INSERT INTO AutomobilInformations(iCode,iPersonID,sNumOfPlates,sVIN,sChassisNum,sDesc,iStatus,iArchiveUserID,bSold,iPersonBuyerID,dateIntroduction,"
         "iAutomobilType,iModel,iBrigade,iColor,iYear,dAmount) SELECT 100000+seq,1+MOD(seq*31,%persons%),%plate%,%vin%,CONCAT('CH',LPAD(seq,7,'0')),"
         "'تحویل پس از بازدید کارشناس، بدون رنگ',0,IF(seq*3<%rows%*2,MOD(seq,2),0),IF(seq*15<%rows%*14,1,0),IF(MOD(seq,3)=0,1+MOD(seq*13,%persons%),0),%day%,"
         "1+MOD(seq,20),5+MOD(seq,7),1+MOD(seq,40),(SELECT MIN(iID) FROM Items WHERE iType=808)+MOD(seq,4),1385+MOD(seq,21),%amount%", "%cars%");
    fill("INSERT INTO AutomobilContracts(iCode,iNum,iPersonFirstID,iPersonSecondID,sName1,sAutomobilName,sNumOfPlates,sVIN,sDesc,dAmount,iContractType,"
         "iStatus,iArchiveUserID,bReturn,dateContract,dateExpiration,iFiscalYear,iDocNum,dCommissionEveryPerson) SELECT 100000+seq,100000+seq,1+MOD(seq*17,%persons%),"
         "1+MOD(seq*29,%persons%),'',ELT(1+MOD(seq,6),'پژو پارس','سمند','پراید 131','دنا پلاس','تیبا','کوییک'),%plate%,%vin%,'تحویل با سند قطعی در محضر',%amount%,"
         "IF(MOD(seq,10)=0,2,IF(MOD(seq,11)=0,1,0)),0,IF(seq*10<%rows%*7 AND MOD(seq,3)=0,1,0),IF(MOD(seq,101)=0,1,0),%day%,"
         "IF(MOD(seq,5)=0,%day%+INTERVAL 365 DAY,NULL),%year%,%number%,%amount%/200", "%contracts%");
}

// Each contract's document with a row of the person and one of the income, and the instalments of every tenth.
void fillBooks()
{
    const QByteArray contracts = " FROM AutomobilContracts WHERE iCode>" + QByteArray::number(codeOfTheDemo);
    run("INSERT INTO Documents(iNum,iFiscalYear,iKind,`date`,sDesc,iUserID,iStatus) SELECT iDocNum,iFiscalYear,28,IFNULL(dateContract,'2016-03-20'),"
        "'بابت مبایعه نامه خودرو',1,0" + contracts);
    run("INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,iPersonID,dBed,dBes,sDesc) SELECT iDocNum,iFiscalYear,1103,110301,0,"
        "iPersonFirstID,dCommissionEveryPerson,0,'کمیسیون پرداختی'" + contracts);
    run("INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,iPersonID,dBed,dBes,sDesc) SELECT iDocNum,iFiscalYear,4102,410202,0,"
        "0,0,dCommissionEveryPerson,'کمیسیون پرداختی'" + contracts);
    run("INSERT INTO AutomobilPayments(iDepartmentID,iAutomobilContractID,iPersonID,iNum,`date`,sDesc,dAmount,dExtra,iStatus,iUserID) SELECT 1,iID,iPersonSecondID,"
        "seq,IFNULL(dateContract,'2016-03-20')+INTERVAL seq MONTH,CONCAT('قسط شماره ',seq),dAmount/12,0,IF(seq<4,1,0),1 FROM AutomobilContracts JOIN seq_1_to_6"
        " WHERE iContractType=2 AND iCode>" + QByteArray::number(codeOfTheDemo));
    run("ANALYZE TABLE AutomobilContracts,AutomobilInformations,AutomobilPayments,Documents,Docs,Persons");
}

// What the rules make of each text of a column, so that the server can hang it on all rows that say it.
using Rule = QStringList (*)(const QString &text);

void enterRule(const QByteArray &table, const QByteArray &column, Rule rule)
{
    CTblTemp texts;
    texts.Open(false, false, true);
    texts.ExecuteQuery(KSql::formatted("SELECT DISTINCT %1 FROM %2", KSql::name(QLatin1String(column)), KSql::name(QLatin1String(table))));
    QList<KSql> rows;
    for (; texts.HasResultRow(); texts.MoveNextResult()) {
        const QString text = texts.GetTextFieldValue(0);
        for (const QString &key : rule(text))
            rows.append(KSql::formatted("(%1,%2)", KSql::quoted(text), KSql::quoted(key)));
    }
    for (qsizetype from = 0; from < rows.size(); from += 1000) {
        KConnection::forThread().run("INSERT INTO BenchKeys(sText,sKey) VALUES" + KSql::joined(rows.mid(from, 1000), ","));
    }
}

// One kind's keys in the order of their table. select: of key and record, from the rows of the table t behind those of the demo.
void fillKind(int kind, const QByteArray &table, const QList<QByteArray> &keys, const QList<QByteArray> &texts, const QList<QByteArray> &persons,
              const QByteArray &behindTheDemo = "t.iCode>100000")
{
    QByteArrayList parts;
    const QByteArray from = " FROM " + table + " t";
    const QByteArray where = " WHERE " + behindTheDemo;
    const QByteArray ofText = "JOIN BenchKeys b ON b.sText=CONVERT(%1 USING utf8) COLLATE utf8_bin";
    for (const QByteArray &key : keys)
        parts.append("SELECT " + key + " AS sKey,t.iID" + from + where);
    for (const QByteArray &text : texts)
        parts.append("SELECT b.sKey,t.iID" + from + ' ' + QByteArray(ofText).replace("%1", "t." + text) + where);
    for (const QByteArray &person : persons) {
        parts.append("SELECT CONCAT('@',t." + person + "),t.iID" + from + where + " AND t." + person + "<>0");
        parts.append("SELECT b.sKey,t.iID" + from + " JOIN Persons p ON p.iID=t." + person + ' ' + QByteArray(ofText).replace("%1", "p.sName2") + where);
    }
    run("INSERT IGNORE INTO SearchKeys(iKind,sKey,iRecordID) SELECT " + QByteArray::number(kind) + ",sKey,iID FROM (" + parts.join(" UNION ALL ") + ") k ORDER BY sKey,iID");
}

// The keys that SearchIndex would make of these rows, set by set: one by one they take a quarter of an hour. That they are the same ones is what the small
// run looks at.
void fillKeys()
{
    const QByteArray plate = "REPLACE(REPLACE(t.sNumOfPlates,' ایران ',''),' ','')";
    const QList<QByteArray> ofCar{"CAST(t.iCode AS CHAR)", plate, "SUBSTR(" + plate + ",3)", "SUBSTR(" + plate + ",4)", "LOWER(t.sVIN)", "CONCAT('<',REVERSE(LOWER(t.sVIN)))"};
    run("CREATE TABLE BenchKeys (sText VARCHAR(200) COLLATE utf8_bin NOT NULL, sKey VARCHAR(64) COLLATE utf8_bin NOT NULL, KEY (sText)) CHARSET=utf8");
    enterRule("Persons", "sName2", &SearchText::ofName);
    enterRule("AutomobilContracts", "sAutomobilName", &SearchText::ofName);
    for (const char *table : {"AutomobilContracts", "AutomobilInformations", "Documents"})
        enterRule(table, "sDesc", [](const QString &text) { return SearchText::ofExplanation(text); });
    // Made at once at the end, in order.
    run("ALTER TABLE SearchKeys DROP KEY record");
    fillKind(SearchKinds::Persons, "Persons", {"CAST(t.iCode AS CHAR)", "SUBSTR(t.sMobile,2)", "CONCAT('<',REVERSE(SUBSTR(t.sMobile,2)))", "t.sNationalCode"}, {"sName2"}, {});
    fillKind(SearchKinds::Cars, "AutomobilInformations", ofCar + QList<QByteArray>{"LOWER(t.sChassisNum)", "CONCAT('<',REVERSE(LOWER(t.sChassisNum)))"}, {"sDesc"}, {"iPersonID", "iPersonBuyerID"});
    fillKind(SearchKinds::Contracts, "AutomobilContracts", ofCar, {"sAutomobilName", "sDesc"}, {"iPersonFirstID", "iPersonSecondID"});
    fillKind(SearchKinds::Documents, "Documents", {"CAST(t.iNum AS CHAR)"}, {"sDesc"}, {}, "t.iNum>=1000");
    run("ALTER TABLE SearchKeys ADD KEY record (iKind,iRecordID)");
    run("DROP TABLE BenchKeys");
    run("ANALYZE TABLE SearchKeys");
}

qint64 contractsHeld()
{
    CTblTemp query;
    query.Open(false, false, true);
    query.ExecuteQuery("SELECT COUNT(*) FROM AutomobilContracts");
    return query.GetLongFieldValue(0);
}

}

void BenchFilling::enterSearch()
{
    [[maybe_unused]] static const bool once = [] {
        OfficeSearch::enter();
        CrmSearch::enter();
        TreasurySearch::enter();
        AutoSearch::enter();
        return true;
    }();
}

void BenchFilling::fillUpTo(int contracts)
{
    if (contractsHeld() >= contracts)
        return;
    enterSearch();
    SearchIndex::build(true);
    fillRecords(contracts);
    fillBooks();
    fillKeys();
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/FiledContract.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/attachments/CTblFiledPapers.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

constexpr int contractKind = CTblAutomobilContracts::recordKind;
const QString planKey = u"plan"_s;
const QString contractsTable = u"AutomobilContracts"_s;

// The office's own notes on a contract, which no paper says.
bool isSaid(const QString &column)
{
    static const QStringList beside{u"iID"_s, u"iUserID"_s, u"iArchiveUserID"_s, u"dateArchive"_s, u"iDocNum"_s, u"iFiscalYear"_s, u"dateCreate"_s};
    return !beside.contains(column);
}

QString textOf(const QVariant &value)
{
    if (value.userType() == QMetaType::QDateTime)
        return value.toDateTime().isValid() ? value.toDateTime().toString(Qt::ISODate) : QString();
    return value.userType() == QMetaType::Double ? QString::number(value.toDouble(), 'f', 4) : value.toString();
}

void addParty(FiledContract::Values &values, int side, qint32 personID, int database)
{
    static const QStringList said{u"sName"_s, u"sFamily"_s, u"sName2"_s, u"iSex"_s, u"sFatherName"_s, u"dateBirth"_s, u"sBirthCity"_s, u"sIdentityNum"_s,
                                  u"sIdentityCity"_s, u"sNationalCode"_s, u"sEconomicCode"_s, u"sPostalCode"_s, u"sTel"_s, u"sMobile"_s, u"sAddress"_s};
    CTblPersons person(database);
    if (personID <= 0 || !person.IsRecordExist(u"iID"_s, personID))
        return;
    for (const QString &column : said)
        values.insert(u"%1.%2"_s.arg(QString::number(side), column), textOf(person.value(column)));
}

QString planText(const CTblAutomobilContracts &contract)
{
    CTblTemp rows(contract.database());
    rows.Open(false, false, true);
    QStringList lines;
    for (rows.FormatAndExecuteQuery("SELECT CONCAT_WS(' ',iNum,DATE(date),dAmount) FROM AutomobilPayments WHERE iAutomobilContractID=%d ORDER BY iNum,date,iID", contract.m_iID);
         rows.HasResultRow(); rows.MoveNextResult())
        lines.append(rows.GetTextFieldValue(0));
    return lines.join(u'\n');
}

QString captionOf(const QString &key)
{
    if (key == planKey)
        return u"اقساط"_s;
    const QString place = key.section(u'.', 0, 0);
    const QString column = key.section(u'.', 1);
    const QString table = place == "c"_L1 ? contractsTable : u"Persons"_s;
    const RecordSubject *subject = RecordSubjects::of(table);
    if (!subject)
        return column;
    QString caption = subject->caption ? subject->caption(column) : QString();
    if (caption.isEmpty()) {
        const std::unique_ptr<KMySQL> record = subject->make(0);
        const KMySQL::Column *found = record->column(column);
        caption = found ? found->caption : column;
    }
    return place == "c"_L1 ? caption : u"%1 %2"_s.arg(caption, place == "1"_L1 ? u"طرف اول"_s : u"طرف دوم"_s);
}

QJsonObject jsonOf(const FiledContract::Values &values)
{
    QJsonObject json;
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        json.insert(value.key(), value.value());
    return json;
}

QString userName(qint32 userID, int database)
{
    CTblUsers user(database);
    if (userID <= 0 || !user.IsRecordExist(u"iID"_s, userID))
        return {};
    return user.m_sName.isEmpty() ? user.m_sUser : user.m_sName;
}

// Not a byte more than is kept: what is too long is refused by its size.
QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(CTblFileDocs::maxFileBytes + 1) : QByteArray();
}

void requireSame(CTblAutomobilContracts &contract, const FiledContract::Stamp &stamp)
{
    if (FiledContract::hashOf(FiledContract::valuesOf(contract)) != stamp.hash)
        throw KAccountingError(u"قرارداد هنگام ساختن PDF تغییر کرد و بایگانی نشد؛ دوباره چاپ و بایگانی کنید."_s);
    const FiledContract::Paper newest = FiledContract::last(contract.m_iID, contract.database());
    if (newest.version + 1 != stamp.version)
        throw KAccountingError(u"در این میان نسخه %1 این قرارداد بایگانی شده است؛ دوباره چاپ و بایگانی کنید."_s.arg(newest.version));
}

}

FiledContract::Values FiledContract::valuesOf(CTblAutomobilContracts &contract)
{
    Values values;
    for (const KMySQL::Column &column : contract.columns()) {
        if (isSaid(column.name))
            values.insert(u"c."_s + column.name, textOf(column.value()));
    }
    // Of a party of another kind the contract's own columns say all.
    if (contract.m_iPersonContract1 == 0)
        addParty(values, 1, contract.m_iPersonFirstID, contract.database());
    if (contract.m_iPersonContract2 == 0)
        addParty(values, 2, contract.m_iPersonSecondID, contract.database());
    values.insert(planKey, planText(contract));
    return values;
}

QString FiledContract::hashOf(const Values &values)
{
    return CTblFiledPapers::sha256(QJsonDocument(jsonOf(values)).toJson(QJsonDocument::Compact));
}

FiledContract::Paper FiledContract::last(qint32 contractID, int database)
{
    CTblFiledPapers rows(database);
    if (!rows.openNewest(contractKind, contractID))
        return {};
    Paper paper{rows.m_iVersion, rows.m_sValuesHash, {}, userName(rows.m_iUserID, database), rows.m_dateCreate};
    const QJsonObject json = QJsonDocument::fromJson(rows.m_sValues.toUtf8()).object();
    for (auto value = json.begin(); value != json.end(); ++value)
        paper.values.insert(value.key(), value.value().toString());
    return paper;
}

QStringList FiledContract::changes(const Values &before, const Values &after)
{
    Values all = before;
    all.insert(after);
    QStringList captions;
    for (auto value = all.cbegin(); value != all.cend(); ++value) {
        if (before.value(value.key()) != after.value(value.key()))
            captions.append(captionOf(value.key()));
    }
    captions.removeDuplicates();
    return captions;
}

QString FiledContract::notice(CTblAutomobilContracts &contract)
{
    constexpr int most = 6; // a message that names more is not read
    const Paper paper = last(contract.m_iID, contract.database());
    const Values now = valuesOf(contract);
    if (paper.version == 0 || paper.hash == hashOf(now))
        return {};
    QStringList what = changes(paper.values, now);
    const QString rest = what.size() > most ? u" و %1 مورد دیگر"_s.arg(what.size() - most) : QString();
    what = what.mid(0, most);
    return u"این قرارداد پس از نسخه %1 (%2) تغییر کرده است.\n%3%4"_s.arg(QString::number(paper.version), shamsiText(paper.when.date()), what.join(u"، "_s), rest);
}

FiledContract::Stamp FiledContract::stamp(CTblAutomobilContracts &contract)
{
    ContractSettings::requireRight();
    GetDBSetting()->RequireOpenDB();
    const QDateTime now = GetDBSetting()->GetDBServerDate();
    Stamp stamp;
    stamp.version = last(contract.m_iID, contract.database()).version + 1;
    stamp.values = valuesOf(contract);
    stamp.hash = hashOf(stamp.values);
    stamp.text = u"نسخه %1 - %2 ساعت %3 - %4"_s.arg(QString::number(stamp.version), shamsiText(now.date()), now.time().toString(u"HH:mm"_s),
                                                    userName(GetDBSetting()->GetUserID(), contract.database()));
    return stamp;
}

int FiledContract::file(qint32 contractID, const Stamp &stamp, const QString &pdfPath, int database)
{
    ContractSettings::requireRight();
    GetDBSetting()->RequireOpenDB();
    const QByteArray file = contentOf(pdfPath);
    const QByteArray values = QJsonDocument(jsonOf(stamp.values)).toJson(QJsonDocument::Compact);
    int fileID = 0;
    KTransaction::runReplayable(
        [&] {
            CTblAutomobilContracts contract(database);
            if (!contract.lockRecord(contractID))
                throw RowChanged(RowChanged::Kind::Gone, contract, contractID, u"این قرارداد"_s);
            requireSame(contract, stamp);
            fileID = CTblFiledPapers::add({.kind = contractKind, .recordID = contractID, .version = stamp.version, .valuesHash = stamp.hash, .values = values, .name = QFileInfo(pdfPath).fileName(), .file = file}, database);
        },
        database);
    return fileID;
}

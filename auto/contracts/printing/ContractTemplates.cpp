// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractTemplates.h"

#include "auto/db/CTblTemplates.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/documents/KMSWord.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTemporaryFile>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcTemplates, "tzauto.templates")

constexpr int longestName = 200; // of its end, where the suffix is

KSql ofKind(int contractType)
{
    return KSql::formatted("sKind=%1", KSql::quoted(ContractTemplates::kindOf(contractType)));
}

QString hashOf(const QByteArray &file)
{
    return QString::fromLatin1(QCryptographicHash::hash(file, QCryptographicHash::Sha256).toHex());
}

// Read by the very code that will fill it, so that what is taken here is printed from later.
void requireDocument(const QByteArray &file)
{
    if (file.isEmpty())
        throw KAccountingError(u"فایل قالب خالی است."_s);
    if (file.size() > ContractTemplates::maxBytes)
        throw KAccountingError(u"اندازه فایل قالب بیشتر از %1 مگابایت است و پذیرفته نشد."_s.arg(ContractTemplates::maxBytes / (1024 * 1024)));
    QTemporaryFile copy;
    if (!copy.open() || copy.write(file) != file.size() || !copy.flush())
        throw KAccountingError(u"پوشه موقت جایی برای خواندن قالب ندارد."_s);
    KMSWord word;
    if (word.Init() && word.OpenDocument(copy.fileName(), 1))
        return;
    qCWarning(lcTemplates) << word.Failure();
    throw KAccountingError(u"این فایل یک سند ورد (docx) سالم و بی‌خطر نیست و پذیرفته نشد."_s);
}

// The newest, should an office have restored two.
qint32 keyNow(int contractType, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery("SELECT iID FROM Templates WHERE bInUse=1 AND " + ofKind(contractType) + " ORDER BY iID DESC LIMIT 1");
    return query.HasResultRow() ? query.GetLongFieldValue(0) : 0;
}

void setInUse(CTblTemplates &row, bool inUse)
{
    if ((row.m_bInUse != 0) == inUse)
        return;
    row.Edit();
    row.m_bInUse = inUse ? 1 : 0;
    row.Update(true);
}

// Every change is one unit, alone with the templates of its type. change: which one is in use is known to it as now.
void change(int contractType, qint32 seen, int database, const std::function<void(qint32 now)> &change)
{
    ContractSettings::requireRight();
    GetDBSetting()->RequireOpenDB();
    KTransaction::runReplayable(
        [&] {
            NamedLock::take(ContractTemplates::kindOf(contractType), database);
            const qint32 now = keyNow(contractType, database);
            if (now != seen) {
                const QString who = RowChanged::lastChange(u"Templates"_s, now > 0 ? now : seen, database);
                throw ContractTemplates::Overtaken(who + u" قالب دیگری برای این قرارداد گذاشته است."_s, now);
            }
            change(now);
        },
        database);
}

void takeOutOfUse(qint32 now, int database)
{
    CTblTemplates before(database);
    if (now > 0 && before.lockRecord(now))
        setInUse(before, false);
}

}

ContractTemplates::Overtaken::Overtaken(const QString &message, qint32 now)
    : KAccountingError(message)
    , m_now(now)
{
}

ContractTemplates::Overtaken::~Overtaken() = default;

QString ContractTemplates::kindOf(int contractType)
{
    return u"contract.%1"_s.arg(contractType);
}

qint32 ContractTemplates::keyInUse(int contractType, int database)
{
    return keyNow(contractType, database);
}

ContractTemplates::Held ContractTemplates::inUse(int contractType, int database)
{
    return version(contractType, keyNow(contractType, database), database);
}

ContractTemplates::Held ContractTemplates::version(int contractType, qint32 id, int database)
{
    CTblTemplates row(database);
    if (id <= 0 || !row.IsRecordExist(u"iID"_s, id, 0, " AND " + ofKind(contractType)))
        return {};
    return {row.m_iID, row.m_sName, row.m_oFile.data};
}

QList<ContractTemplates::Version> ContractTemplates::versions(int contractType, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    QList<Version> versions;
    for (query.ExecuteQuery("SELECT t.iID,t.sName,t.sDesc,COALESCE(NULLIF(u.sName,''),u.sUser,''),t.dateCreate,t.bInUse FROM Templates t"
                            " LEFT JOIN Users u ON u.iID=t.iUserID WHERE t."
                            + ofKind(contractType) + " ORDER BY t.iID DESC");
         query.HasResultRow(); query.MoveNextResult())
        versions.append({query.GetLongFieldValue(0), query.GetTextFieldValue(1), query.GetTextFieldValue(2), query.GetTextFieldValue(3),
                         query.GetDateFieldValue(4), query.GetLongFieldValue(5) != 0});
    return versions;
}

qint32 ContractTemplates::use(int contractType, const QString &name, const QByteArray &file, const QString &source, qint32 seen, int database)
{
    requireDocument(file);
    const QString hash = hashOf(file);
    qint32 key = 0;
    change(contractType, seen, database, [&](qint32 now) {
        CTblTemplates before(database);
        if (now > 0 && before.lockRecord(now) && before.m_sHash == hash) {
            key = now;
            return;
        }
        takeOutOfUse(now, database);
        CTblTemplates row(database);
        row.Open(false, false, true);
        row.AddNew();
        row.m_sKind = kindOf(contractType);
        row.m_sName = name.right(longestName);
        row.m_oFile.data = file;
        row.m_sHash = hash;
        row.m_bInUse = 1;
        row.m_sDesc = source;
        row.m_iUserID = GetDBSetting()->GetUserID();
        row.m_dateCreate = GetDBSetting()->GetDBServerDate();
        row.Update(true);
        key = row.m_iID;
    });
    return key;
}

void ContractTemplates::goBack(int contractType, qint32 id, qint32 seen, int database)
{
    change(contractType, seen, database, [&](qint32 now) {
        CTblTemplates row(database);
        if (!row.lockRecord(id) || row.m_sKind != kindOf(contractType))
            throw KAccountingError(u"این قالب دیگر در پایگاه داده نیست."_s);
        if (now == id)
            return;
        takeOutOfUse(now, database);
        setInUse(row, true);
    });
}

void ContractTemplates::useSupplied(int contractType, qint32 seen, int database)
{
    change(contractType, seen, database, [&](qint32 now) { takeOutOfUse(now, database); });
}

QByteArray ContractTemplates::read(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw KAccountingError(u"فایل انتخاب شده خوانده نشد."_s);
    // One byte more than allowed reveals a file that is too large, also one that has grown since it was chosen.
    QByteArray data = file.read(maxBytes + 1);
    if (file.error() != QFileDevice::NoError)
        throw KAccountingError(u"فایل انتخاب شده خوانده نشد."_s);
    if (data.size() > maxBytes)
        throw KAccountingError(u"اندازه فایل قالب بیشتر از %1 مگابایت است و پذیرفته نشد."_s.arg(maxBytes / (1024 * 1024)));
    return data;
}

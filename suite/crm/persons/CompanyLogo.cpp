// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CompanyLogo.h"

#include "suite/accounting/attachments/CTblPictures.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/accounting/office/NamedLock.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

constexpr int ofNoRecord = 0;
const QByteArray pngHead = QByteArrayLiteral("\x89PNG\r\n\x1a\n\0\0\0\rIHDR");

int sideOf(const QByteArray &png, qsizetype offset)
{
    if (!png.startsWith(pngHead) || png.size() < pngHead.size() + 8)
        return 0;
    const quint32 side = qFromBigEndian<quint32>(png.constData() + pngHead.size() + offset);
    return side <= quint32(CompanyLogo::maxSide) ? int(side) : 0;
}

bool isLogo(const QByteArray &bytes)
{
    return bytes.size() <= CompanyLogo::maxBytes && CompanyLogo::widthOf(bytes) > 0 && CompanyLogo::heightOf(bytes) > 0;
}

QString spoken(const QByteArray &bytes)
{
    return bytes.isEmpty() ? QString() : u"تصویر %1×%2"_s.arg(CompanyLogo::widthOf(bytes)).arg(CompanyLogo::heightOf(bytes));
}

void store(const QByteArray &bytes, qint32 seen, int database)
{
    NamedLock::take(u"Properties"_s, database);
    OfficeClosing::requireOpen(database);
    const CompanyLogo before = CompanyLogo::read(database);
    if (before.id != seen)
        throw KAccountingError(u"نشان نمایشگاه را میز دیگری هم‌اکنون عوض کرده است. پنجره را ببندید و دوباره باز کنید."_s);
    KConnection::forThread(database).run(KSql::formatted("DELETE FROM Pictures WHERE iTable=%1 AND iRecordID=0", ofNoRecord));
    if (!bytes.isEmpty()) {
        CTblPictures picture(database);
        picture.Open(true, false, true);
        picture.AddNew();
        picture.m_iTable = ofNoRecord;
        picture.m_iOrder = 1;
        picture.m_oPicture.data = bytes;
        picture.m_iUserID = GetDBSetting()->GetUserID();
        picture.m_dateCreate = GetDBSetting()->GetDBServerDate();
        picture.Update(true);
    }
    KChangeLog::note(u"Properties:"_s + CompanyDetails::section(), 0, KChange::Kind::Changed, database,
                     {{u"نشان نمایشگاه"_s, spoken(before.bytes), spoken(bytes)}});
}

}

int CompanyLogo::widthOf(const QByteArray &png)
{
    return sideOf(png, 0);
}

int CompanyLogo::heightOf(const QByteArray &png)
{
    return sideOf(png, 4);
}

CompanyLogo CompanyLogo::read(int database)
{
    CTblPictures picture(database);
    CompanyLogo logo;
    if (picture.IsRecordExist(u"iTable"_s, ofNoRecord, 0, " AND iRecordID=0"))
        logo = {picture.m_iID, picture.m_oPicture.data};
    if (!isLogo(logo.bytes))
        logo.bytes.clear();
    return logo;
}

void CompanyLogo::save(const QByteArray &bytes, qint32 seen, int database)
{
    if (!bytes.isEmpty() && !isLogo(bytes))
        throw KAccountingError(u"این تصویر برای نشان پذیرفته نمی‌شود."_s);
    KTransaction::runReplayable([&] { store(bytes, seen, database); }, database);
}

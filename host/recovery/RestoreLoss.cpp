// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/RestoreLoss.h"

#include "host/recovery/BackupListing.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"

using namespace Qt::StringLiterals;

std::optional<qint64> RestoreLoss::changesSince(const BackupFile &file, int database)
{
    if (!file.manifest())
        return std::nullopt;
    CTblTemp log(database);
    log.Open(true, false, true);
    // Signing in, exports and backups change no row.
    log.ExecuteQuery(KSql::formatted("SELECT SUM(iID>%1), MAX(iID)>=%1 FROM Changes WHERE iKind<=%2", KSql::number(file.manifest()->lastChange),
                                     KSql::number(int(KChange::Kind::Restored))));
    const bool reachesBack = file.manifest()->lastChange == 0 || log.GetLongFieldValue(1) != 0;
    return reachesBack ? std::optional<qint64>(log.GetLongFieldValue(0)) : std::nullopt;
}

namespace {

QString lostText(std::optional<qint64> changes, const RestoreExtent &extent)
{
    if (extent.lastMinute && extent.reach.upToNow)
        return extent.words();
    QString lost = u"آنچه پس از آن ثبت شده است از دست می‌رود."_s;
    if (changes && !extent.lastMinute)
        lost = *changes == 0 ? u"پس از آن چیزی ثبت نشده است."_s : u"%1 تغییری که پس از آن ثبت شده است از دست می‌رود."_s.arg(*changes);
    return extent.words().isEmpty() ? lost : extent.words() + u' ' + lost;
}

}

QString RestoreLoss::question(const BackupFile &file, std::optional<qint64> changes, const RestoreExtent &extent)
{
    QString state;
    if (BackupListing::isBad(file))
        state = u"\nاین پشتیبان در آزمون ایراد داشته است."_s;
    else if (file.verification().state == BackupManifest::Verification::State::None)
        state = u"\nاین پشتیبان هنوز آزموده نشده است."_s;
    return u"همه اطلاعات دفتر به %1 بازگردانده می‌شود. %2%3\nپیش از آن از وضع کنونی پشتیبان گرفته می‌شود و برنامه به صفحه ورود می‌رود. بازگردانده شود؟"_s
        .arg(BackupListing::whenText(file), lostText(changes, extent), state);
}

QString RestoreLoss::warningOfOtherOffice()
{
    return u"این پشتیبان در پوشه خود این دفتر نیست و شاید از دفتر دیگری باشد که در همین پوشه دوم پشتیبان می‌گیرد؛ آنگاه همه اطلاعات آن دفتر به جای "
           "اطلاعات این دفتر می‌نشیند. پیش از بازگرداندن، با «نمایش» آن را بررسی نمایید.\n\n"_s;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportTexts.h"

#include "suite/accounting/office/CTblUsers.h"
#include "suite/utility/sheets/SheetFile.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

QString ImportTexts::trouble(const SheetError &error)
{
    using Trouble = SheetError::Trouble;
    switch (error.trouble()) {
    case Trouble::TooLarge:
        return u"این فایل بزرگ‌تر از اندازه مجاز (%1 مگابایت) است. آن را به چند فایل تقسیم کنید."_s.arg(SheetFile::maxBytes / 1024 / 1024);
    case Trouble::TooManyRows:
        return u"این فایل بیش از %1 سطر دارد. آن را به چند فایل تقسیم کنید."_s.arg(SheetFile::maxRows);
    case Trouble::TooManyColumns:
        return u"سطر %1 این فایل بیش از %2 ستون دارد."_s.arg(error.row()).arg(SheetFile::maxColumns);
    case Trouble::OldFormat:
        return u"این فایل با قالب قدیمی صفحه گسترده (xls) ذخیره شده است. آن را در برنامه خود باز کنید و با قالب xlsx ذخیره کنید."_s;
    case Trouble::NotText:
        return u"این فایل صفحه گسترده (xlsx) یا متن (csv) نیست."_s;
    case Trouble::OpenQuote:
        return u"نشانه نقل قولی که در سطر %1 باز شده، بسته نشده است."_s.arg(error.row());
    case Trouble::Empty:
        return u"در این فایل چیزی نیست."_s;
    case Trouble::Damaged:
        break;
    }
    return u"این فایل آسیب دیده است یا صفحه گسترده نیست. آن را در برنامه خود باز کنید و دوباره ذخیره کنید."_s;
}

QString ImportTexts::earlier(const CTblImportedFiles::Entry &entry)
{
    return u"همین محتوا پیش از این وارد شده است: فایل «%1»، %2، %3، %4 ردیف. آیا دوباره وارد شود؟"_s.arg(entry.file, shamsiText(entry.when.date()), CTblUsers::GetName(entry.userID)).arg(entry.rows);
}

QString ImportTexts::counts(const Importing::Checked &checked)
{
    return u"%1 سطر: %2 وارد می‌شود، %3 خطا دارد، %4 تکراری است"_s.arg(checked.rows.size()).arg(checked.written()).arg(checked.bad()).arg(checked.twins());
}

QString ImportTexts::outcome(int written, qsizetype skipped)
{
    const QString left = skipped == 0 ? QString() : u"\n%1 سطر تکراری کنار گذاشته شد."_s.arg(skipped);
    return u"%1 ردیف وارد شد."_s.arg(written) + left + u"\nاگر نادرست بود، «ورود از فایل» را باز کنید و با «ورودهای پیشین» آن را یکجا برگردانید."_s;
}

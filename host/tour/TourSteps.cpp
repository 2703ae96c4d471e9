// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/tour/TourSteps.h"

#include "suite/accounting/office/KSecurity.h"

using namespace Qt::StringLiterals;

const QList<TourStep> &TourSteps::all()
{
    static const QList<TourStep> steps{
        {.title = u"روز کاری شما"_s,
         .text = u"صفحه «امروز» هر صبح نشان می‌دهد چه کاری مانده است: قسط و چک سررسید، یادآوری، تماس‌های قرارگذاشته و خودروهای مانده. هر سطر با یک کلیک یا Enter باز می‌شود. با Alt+Home همیشه به همین صفحه برمی‌گردید."_s,
         .page = {},
         .control = u"اقساط سررسید و معوق"_s,
         .manual = u"today"_s,
         .form = u"AutomobilPayments"_s},
        {.title = u"جستجو در همه"_s,
         .text = u"نام، شماره تلفن، پلاک یا شماره قرارداد را هر طور که شنیده‌اید بنویسید؛ فارسی و لاتین بودن رقم‌ها فرقی نمی‌کند. Ctrl+K از هر جای پنجره به این خانه می‌آید."_s,
         .page = {},
         .control = u"جستجو در همه"_s,
         .manual = u"search"_s,
         .form = {}},
        {.title = u"فهرست قراردادها"_s,
         .text = u"همه فهرست‌های برنامه مانند این یکی کار می‌کنند: فیلتر در بالا، پالایش سریع، ستون‌های دلخواه و دکمه‌ها در پایین. آنچه در پالایش سریع بنویسید همان دم سطرها را کم می‌کند."_s,
         .page = u"قرارداد"_s,
         .control = u"پالایش سریع در فهرست"_s,
         .manual = u"contracts"_s,
         .form = u"AutomobilContracts"_s},
        {.title = u"قرارداد تازه از روی خودرو"_s,
         .text = u"خودرو را در فهرست انتخاب کنید و «قراردادهای خودرو» را بزنید: قرارداد تازه با مشخصات، مالک و مبلغ همان خودرو پر می‌شود. پس از ثبت قرارداد، فروش خودرو هم ثبت می‌شود."_s,
         .page = u"گالري اتومبيل"_s,
         .control = u"گالري اتومبيل"_s,
         .manual = u"job-sale"_s,
         .form = u"AutomobilInformations"_s},
        {.title = u"کمیسیون و رقم‌های قرارداد"_s,
         .text = u"در پنجره قرارداد، با نوشتن مبلغ، کمیسیون پلکانی، مالیات، عوارض و سهم هر طرف حساب می‌شود و سند حسابداری آن هم ثبت می‌شود. پله‌ها و درصدها را در «تنظیمات» همین فهرست می‌گذارید."_s,
         .page = u"قرارداد"_s,
         .control = u"تنظيمات"_s,
         .manual = u"figures"_s,
         .form = u"AutomobilContracts"_s},
        {.title = u"قسط و رسید آن"_s,
         .text = u"این‌جا قسط‌های سررسید و معوق همه قراردادها کنار هم هستند. «دریافت قسط» مبلغ مانده را پیشنهاد می‌کند، رسید و سند را ثبت می‌کند و رسید چاپ می‌شود. «پیگیری» قول پرداخت را نگه می‌دارد."_s,
         .page = u"اقساط و سررسیدها"_s,
         .control = u"دریافت قسط"_s,
         .manual = u"overdue"_s,
         .form = u"AutomobilPayments"_s},
        {.title = u"چک از دریافت تا وصول"_s,
         .text = u"چک‌های دریافتی و پرداختی با سررسید و وضعیتشان. «تغییر وضعیت» چک را به بانک می‌برد، وصول یا برگشت می‌زند، و هر گام سند خود را دارد. چک برگشتی بدهی را دوباره باز می‌کند."_s,
         .page = u"چک‌ها"_s,
         .control = u"تغییر وضعیت"_s,
         .manual = u"cheques"_s,
         .form = u"Cheques"_s},
        {.title = u"کاربران و دسترسی‌ها"_s,
         .text = u"هر کس با نام خود وارد می‌شود و تنها آن را می‌بیند که به او اجازه داده‌اید. برای هر کاربر یک نقش مانند صندوقدار یا کارمند فروش برگزینید و سپس جزئیات را تغییر دهید."_s,
         .page = u"کاربران و دسترسی‌ها"_s,
         .control = u"دسترسی‌ها"_s,
         .manual = u"job-rights"_s,
         .form = u"Users"_s},
        {.title = u"پشتیبان‌ها"_s,
         .text = u"برنامه خود از داده‌ها پشتیبان می‌گیرد و درستی هر پشتیبان را آزمایش می‌کند. فهرست آنها و راه بازگشت، در منوی «مدیریت» زیر «بازگرداندن پشتیبان» است؛ وضع آخرین پشتیبان در پایین پنجره هم دیده می‌شود."_s,
         .page = {},
         .control = u"مدیریت"_s,
         .manual = u"backups"_s,
         .form = u"Settings"_s},
        {.title = u"راهنما همیشه یک کلید دورتر است"_s,
         .text = u"در هر پنجره F1 را بزنید تا صفحه همان پنجره در راهنما باز شود. کلیدها، گام‌های نخست و همین گشت در منوی «برنامه» هستند."_s,
         .page = {},
         .control = u"برنامه"_s,
         .manual = u"main-window"_s,
         .form = {}},
    };
    return steps;
}

QList<TourStep> TourSteps::ofUser()
{
    QList<TourStep> steps;
    for (const TourStep &step : all()) {
        if (step.form.isEmpty() || KSecurity::IsGranted(step.form, KSecurity::Access))
            steps.append(step);
    }
    return steps;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/KeyList.h"

#include "suite/accounting/lists/KListPage.h"
#include "suite/utility/frame/KCommandButton.h"
#include "suite/utility/frame/KDialogTabPage.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

QString readable(const QKeySequence &keys)
{
    return keys.toString(QKeySequence::NativeText);
}

const QString inWindow = u"پنجره اصلی"_s;
const QString inLists = u"فهرست‌ها"_s;
const QString inEditors = u"پنجره‌های ویرایش"_s;
const QString inDates = u"تاریخ و ساعت"_s;
const QString inLines = u"جدول ردیف‌ها"_s;
const QString onPaper = u"پیش‌نمایش چاپ"_s;

}

QVector<KeyList::Entry> KeyList::ofMenus(const QMenuBar &bar)
{
    QVector<Entry> entries;
    for (const QAction *menu : bar.actions()) {
        if (!menu->menu())
            continue;
        for (const QAction *action : menu->menu()->actions()) {
            if (!action->shortcut().isEmpty())
                entries.append({menu->iconText(), readable(action->shortcut()), action->iconText()});
        }
    }
    return entries;
}

QVector<KeyList::Entry> KeyList::ofPage(const KDialogTabPage &page)
{
    const auto *list = qobject_cast<const KListPage *>(&page);
    const QList<const QPushButton *> withheld = list ? list->commandLine()->withheld() : QList<const QPushButton *>();
    QVector<Entry> entries;
    for (const KCommandButton *button : page.findChildren<KCommandButton *>()) {
        if (!button->shownShortcut().isEmpty() && !withheld.contains(button))
            entries.append({page.title(), readable(button->shownShortcut()), button->accessibleName()});
    }
    return entries;
}

QVector<KeyList::Entry> KeyList::everywhere()
{
    return {
        {inWindow, u"Ctrl+K"_s, u"جستجو در همه"_s},
        {inWindow, u"Alt"_s, u"رفتن به منوها"_s},
        {inWindow, u"F10"_s, u"باز کردن نخستین منو"_s},
        {inWindow, u"Ctrl+Shift+1"_s, u"باز کردن صفحه دیگری از همان فهرست (با هر کلید Ctrl و رقم)"_s},
        {inWindow, u"Ctrl+Tab"_s, u"صفحه باز بعدی"_s},
        {inWindow, u"Ctrl+Shift+Tab"_s, u"صفحه باز قبلی"_s},
        {inWindow, u"Ctrl+W"_s, u"بستن صفحه"_s},
        {inWindow, u"Alt+Home"_s, u"امروز"_s},
        {inWindow, u"Ctrl+Z"_s, u"بازگردانی آخرین حذف"_s},
        {inLists, u"Ctrl+F"_s, u"پالایش سریع در فهرست"_s},
        {inLists, u"Ctrl+F, Ctrl+F"_s, u"رفتن به فیلتر جستجو"_s},
        {inLists, u"Ctrl+Shift+F"_s, u"باز و بسته کردن فيلتر"_s},
        {inLists, u"F5"_s, u"خواندن دوباره فهرست"_s},
        {inLists, u"Enter"_s, u"باز کردن ردیف"_s},
        {inLists, u"Shift+F10"_s, u"فرمان‌های ردیف"_s},
        {inLists, u"Ctrl+C"_s, u"کپی کردن ردیف"_s},
        {inEditors, u"Enter"_s, u"رفتن به فیلد بعدی"_s},
        {inEditors, u"Ctrl+Enter"_s, u"تاييد"_s},
        {inEditors, u"Esc"_s, u"انصراف"_s},
        {inEditors, u"Ctrl+Tab"_s, u"برگه بعدی"_s},
        {inEditors, u"Ctrl+PageDown"_s, u"برگه بعدی"_s},
        {inEditors, u"Ctrl+Shift+Tab"_s, u"برگه قبلی"_s},
        {inEditors, u"Ctrl+PageUp"_s, u"برگه قبلی"_s},
        {inDates, u"F4"_s, u"باز کردن تقویم"_s},
        {inDates, u"Alt+Down"_s, u"باز کردن تقویم"_s},
        {inDates, u"Up"_s, u"روز بعد"_s},
        {inDates, u"Down"_s, u"روز قبل"_s},
        {inDates, u"PageUp"_s, u"ماه بعد"_s},
        {inDates, u"PageDown"_s, u"ماه قبل"_s},
        {inDates, u"Shift+PageUp"_s, u"سال بعد"_s},
        {inDates, u"Shift+PageDown"_s, u"سال قبل"_s},
        {inLines, u"Insert"_s, u"ردیف تازه"_s},
        {inLines, u"Delete"_s, u"حذف ردیف"_s},
        {inLines, u"F4"_s, u"انتخاب از فهرست"_s},
        {inLines, u"Enter"_s, u"رفتن به خانه بعدی"_s},
        {onPaper, u"PageDown"_s, u"صفحه بعدی"_s},
        {onPaper, u"PageUp"_s, u"صفحه قبلی"_s},
        {onPaper, u"Home"_s, u"نخستین صفحه"_s},
        {onPaper, u"End"_s, u"آخرین صفحه"_s},
        {onPaper, u"+"_s, u"بزرگ‌تر"_s},
        {onPaper, u"-"_s, u"کوچک‌تر"_s},
        {onPaper, u"Ctrl+P"_s, u"چاپ"_s},
    };
}
